/// @file xeafxarray.h
/// The seven dynamic arrays: one body, and a class an element type.
///
/// | class           | element          | made by name | on an archive, behind the count     |
/// | --------------- | ---------------- | ------------ | ----------------------------------- |
/// | CByteArray_X    | `unsigned char`  | yes          | the bytes                           |
/// | CWordArray_X    | `unsigned short` | yes          | 2 bytes an element                  |
/// | CDWordArray_X   | `unsigned int`   | yes          | 4 bytes an element                  |
/// | CUIntArray_X    | `unsigned int`   | no           | not storable                        |
/// | CPtrArray_X     | `void*`          | no           | not storable                        |
/// | CObArray_X      | `CObject_X*`     | yes          | nothing: objects are not stored     |
/// | CStringArray_X  | CString_X        | yes          | the strings                         |
#pragma once

#include "xeafx.h"
#include "xeafxstr.h"
#include "xeexcept.h"

#include <type_traits>

/// What the array classes have in common: a block of elements that grows by the published rule.
///
///     CDWordArray_X codes;
///     codes.Add(17);
///     codes.SetAtGrow(3, 42); // 17, 0, 0, 42
///     codes.RemoveAt(1, 2);   // 17, 42
///
/// Sizes and indices have 64 bits and start at 0. Every index is checked, also by `operator[]`: a bad argument raises a
/// CInvalidArgException_X*, want of memory std::bad_alloc. Either leaves the array as it was, except that an array of
/// strings which runs out of memory while it copies texts may end up with empty ones in their place.
///
/// Slots that come into use without a value are 0, null or empty. A pointer or reference to an element holds until the
/// array grows beyond what it has allocated, is emptied, or gives its spare room back. Arrays have no lock.
///
/// @tparam Array the array class itself
template <class Array, class Element>
class XE_EXPORT XeArray
{
public:
    /// How an element is passed: numbers and pointers by value.
    using Argument = std::conditional_t<std::is_scalar_v<Element>, Element, const Element&>;

    XeArray(const XeArray&) = delete;
    XeArray& operator=(const XeArray&) = delete;

    /// The number of elements.
    long long GetSize() const { return size; }
    long long GetCount() const { return size; }
    bool IsEmpty() const { return size == 0; }
    /// The highest index; -1 for an empty array.
    long long GetUpperBound() const { return size - 1; }

    // ------------------------------------------------------------------------------------------------------------ room

    /// Sets the number of elements. A negative size raises; 0 frees the block.
    ///
    /// The first block has exactly `newSize` elements. Later ones grow by the step, or to `newSize` if that is more,
    /// and never shrink here. `growBy` from 0 upward becomes the step, a negative one leaves it alone. Step 0 means an
    /// eighth of the size, at least 4 and at most 1024. A step that leads beyond the largest number raises.
    void SetSize(long long newSize, long long growBy = -1);
    /// Gives back the room behind the elements.
    void FreeExtra();
    /// Empties the array and frees the block; the step stays.
    void RemoveAll() { SetSize(0, -1); }

    // -------------------------------------------------------------------------------------------------------- elements

    /// A copy of an element. Raises for an index outside the array, as the three below do.
    Element GetAt(long long index) const { return data[checked(index)]; }
    /// Replaces an element.
    void SetAt(long long index, Argument value) { data[checked(index)] = value; }
    /// The element itself, to be changed in place.
    Element& ElementAt(long long index) { return data[checked(index)]; }
    /// GetAt(), or ElementAt() of an array that may be changed.
    Element operator[](long long index) const { return GetAt(index); }
    Element& operator[](long long index) { return ElementAt(index); }

    /// The block, null while none is allocated. Removing the elements one by one keeps it.
    const Element* GetData() const { return data; }
    Element* GetData() { return data; }

    // ------------------------------------------------------------------------------------------------------- insertion
    // The value may be one of the array's own elements.

    /// Sets an element; the array grows to hold a new index. Raises for a negative one.
    void SetAtGrow(long long index, Argument value);

    /// Adds an element at the end. Returns its index.
    long long Add(Argument value);

    /// Adds the elements of another array and returns the old size. Raises for the array itself.
    long long Append(const Array& source);

    /// Becomes equal to `source` in size and elements, and keeps its step and its block if that is large enough.
    void Copy(const Array& source);

    /// Inserts `count` times the value. Beyond the end the array first grows to `index`. Raises for a negative index, a
    /// count below 1 and a size beyond the largest number.
    void InsertAt(long long index, Argument value, long long count = 1);

    /// Inserts the elements of another array; does nothing if that is empty. Raises for null and a negative index. From
    /// the array itself as many elements as it had are inserted, each as it stands when its turn to be read comes.
    void InsertAt(long long index, const Array* source);

    /// Removes `count` elements, which may be 0. The block stays. Raises for a range outside the array.
    void RemoveAt(long long index, long long count = 1);

protected:
    XeArray() = default;
    ~XeArray() { delete[] data; }

    /// Makes room for `count` elements at `index`, as InsertAt() does, and leaves them 0, null or empty.
    void InsertEmpty(long long index, long long count);

    Element* data = nullptr; ///< from array new; null while nothing is allocated
    long long size = 0;      ///< elements in use
    long long capacity = 0;  ///< elements allocated
    long long growStep = 0;  ///< 0 for a step that follows the size

private:
    bool holds(long long index) const
    {
        return static_cast<unsigned long long>(index) < static_cast<unsigned long long>(size);
    }
    long long checked(long long index) const
    {
        if (!holds(index))
            AfxThrowInvalidArgException_X();
        return index;
    }
    void growAndSet(long long index, Element value);
    long long capacityFor(long long newSize, long long step) const;
    void reallocate(long long newCapacity);
    void free();
    void resizeWithin(long long newSize);
    static void renew(Element* first, Element* last);
};

template <class Array, class Element>
inline void XeArray<Array, Element>::SetAtGrow(long long index, Argument value)
{
    if (holds(index))
        data[index] = value;
    else if (index == size)
        Add(value);
    else
        growAndSet(index, value);
}

// The size is written behind the element: a byte may lie anywhere, so whatever was written before it is read again.
template <class Array, class Element>
inline long long XeArray<Array, Element>::Add(Argument value)
{
    const long long index = size;
    if (index < capacity) {
        data[index] = value;
        size = index + 1;
    } else {
        growAndSet(index, value);
    }
    return index;
}

extern template class XeArray<class CByteArray_X, unsigned char>;
extern template class XeArray<class CWordArray_X, unsigned short>;
extern template class XeArray<class CDWordArray_X, unsigned int>;
extern template class XeArray<class CUIntArray_X, unsigned int>;
extern template class XeArray<class CPtrArray_X, void*>;
extern template class XeArray<class CObArray_X, CObject_X*>;
extern template class XeArray<class CStringArray_X, CString_X>;

// --------------------------------------------------------------------------------------------------- the array classes
// Loading replaces what was in the array. The count is believed as far as the archive still has data, and up to
// 1,048,576 elements without; where the data ends early the rest is 0, null or empty, and nothing is raised.

/// Bytes.
class XE_EXPORT CByteArray_X : public CObject_X, public XeArray<CByteArray_X, unsigned char>
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CByteArray_X)

    void Serialize(CArchive_X& archive) override;
};

/// 16-bit numbers.
class XE_EXPORT CWordArray_X : public CObject_X, public XeArray<CWordArray_X, unsigned short>
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CWordArray_X)

    void Serialize(CArchive_X& archive) override;
};

/// 32-bit numbers.
class XE_EXPORT CDWordArray_X : public CObject_X, public XeArray<CDWordArray_X, unsigned int>
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CDWordArray_X)

    void Serialize(CArchive_X& archive) override;
};

/// 32-bit numbers that are not stored.
class XE_EXPORT CUIntArray_X : public CObject_X, public XeArray<CUIntArray_X, unsigned int>
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CUIntArray_X)
};

/// Pointers to anything, not owned.
class XE_EXPORT CPtrArray_X : public CObject_X, public XeArray<CPtrArray_X, void*>
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CPtrArray_X)
};

/// Pointers to objects, which the array does not own: it never deletes one.
class XE_EXPORT CObArray_X : public CObject_X, public XeArray<CObArray_X, CObject_X*>
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CObArray_X)

    /// Stores the number of objects alone; loading gives as many nulls.
    void Serialize(CArchive_X& archive) override;
};

/// Texts by value: reading an element copies it, and a null text is an empty one.
class XE_EXPORT CStringArray_X : public CObject_X, public XeArray<CStringArray_X, CString_X>
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CStringArray_X)

    CStringArray_X() = default;
    CStringArray_X(const CStringArray_X& other) : CObject_X(), XeArray() { Copy(other); } ///< without the step
    CStringArray_X& operator=(const CStringArray_X& other); ///< the step becomes 0, the block one of the exact size

    using XeArray::SetAt;
    void SetAt(long long index, const wchar_t* text) { ElementAt(index) = text; }
    using XeArray::SetAtGrow;
    void SetAtGrow(long long index, const wchar_t* text) { SetAtGrow(index, CString_X(text)); }
    using XeArray::Add;
    long long Add(const wchar_t* text) { return Add(CString_X(text)); }
    using XeArray::InsertAt;
    void InsertAt(long long index, const wchar_t* text, long long count = 1)
    {
        InsertAt(index, CString_X(text), count);
    }
    using XeArray::InsertEmpty;

    void Serialize(CArchive_X& archive) override;
};
