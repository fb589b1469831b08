#include "xeafxarray.h"

#include <algorithm>
#include <limits>
#include <memory>

namespace {

constexpr long long largest = std::numeric_limits<long long>::max();

} // namespace

// ------------------------------------------------------------------------------------------------------------- room

template <class Array, class Element>
void XeArray<Array, Element>::SetSize(long long newSize, long long growBy)
{
    if (newSize < 0)
        AfxThrowInvalidArgException_X();
    const long long step = growBy < 0 ? growStep : growBy;
    if (newSize > capacity)
        reallocate(capacityFor(newSize, step));
    if (newSize > 0)
        resizeWithin(newSize);
    else
        free();
    growStep = step;
}

template <class Array, class Element>
long long XeArray<Array, Element>::capacityFor(long long newSize, long long step) const
{
    if (!data)
        return newSize;
    if (step == 0)
        step = std::clamp(size / 8, 4LL, 1024LL);
    if (step > largest - capacity)
        AfxThrowInvalidArgException_X();
    return std::max(capacity + step, newSize);
}

template <class Array, class Element>
void XeArray<Array, Element>::reallocate(long long newCapacity)
{
    auto* const block = new Element[static_cast<std::size_t>(newCapacity)];
    std::move(data, data + size, block);
    delete[] data;
    data = block;
    capacity = newCapacity;
}

template <class Array, class Element>
void XeArray<Array, Element>::free()
{
    delete[] data;
    data = nullptr;
    size = capacity = 0;
}

// Behind the size, numbers and pointers are what they happen to be and become 0 when they come into use. A text becomes
// empty when it goes out of use, so that its memory is not held.
template <class Array, class Element>
void XeArray<Array, Element>::resizeWithin(long long newSize)
{
    if (std::is_trivial_v<Element> ? newSize > size : newSize < size)
        renew(data + std::min(size, newSize), data + std::max(size, newSize));
    size = newSize;
}

template <class Array, class Element>
void XeArray<Array, Element>::renew(Element* first, Element* last)
{
    std::destroy(first, last);
    std::uninitialized_value_construct(first, last);
}

template <class Array, class Element>
void XeArray<Array, Element>::FreeExtra()
{
    if (size == 0)
        free();
    else if (size < capacity)
        reallocate(size);
}

// ---------------------------------------------------------------------------------------------- insertion and removal

template <class Array, class Element>
void XeArray<Array, Element>::growAndSet(long long index, Element value)
{
    if (index < 0 || index == largest)
        AfxThrowInvalidArgException_X();
    SetSize(index + 1, -1);
    data[index] = std::move(value);
}

template <class Array, class Element>
long long XeArray<Array, Element>::Append(const Array& source)
{
    if (&source == this)
        AfxThrowInvalidArgException_X();
    const long long oldSize = size;
    SetSize(oldSize + source.size, -1);
    std::copy_n(source.data, source.size, data + oldSize);
    return oldSize;
}

template <class Array, class Element>
void XeArray<Array, Element>::Copy(const Array& source)
{
    if (&source == this)
        return;
    SetSize(source.size, -1);
    std::copy_n(source.data, size, data);
}

template <class Array, class Element>
void XeArray<Array, Element>::InsertEmpty(long long index, long long count)
{
    const long long oldSize = size;
    if (index < 0 || count < 1 || count > largest - std::max(index, oldSize))
        AfxThrowInvalidArgException_X();
    SetSize(std::max(index, oldSize) + count, -1);
    if (index < oldSize) {
        std::move_backward(data + index, data + oldSize, data + size);
        renew(data + index, data + std::min(index + count, oldSize));
    }
}

template <class Array, class Element>
void XeArray<Array, Element>::InsertAt(long long index, Argument value, long long count)
{
    const Element element(value);
    InsertEmpty(index, count);
    std::fill_n(data + index, count, element);
}

template <class Array, class Element>
void XeArray<Array, Element>::InsertAt(long long index, const Array* source)
{
    if (!source || index < 0)
        AfxThrowInvalidArgException_X();
    const long long count = source->size;
    if (count == 0)
        return;
    InsertAt(index, source->data[0], count);
    for (long long i = 0; i < count; ++i)
        data[index + i] = source->data[i];
}

template <class Array, class Element>
void XeArray<Array, Element>::RemoveAt(long long index, long long count)
{
    if (index < 0 || count < 0 || count > size - index)
        AfxThrowInvalidArgException_X();
    if (count > 0)
        std::move(data + index + count, data + size, data + index);
    resizeWithin(size - count);
}

// -------------------------------------------------------------------------------------------------- the array classes

template class XeArray<CByteArray_X, unsigned char>;
template class XeArray<CWordArray_X, unsigned short>;
template class XeArray<CDWordArray_X, unsigned int>;
template class XeArray<CUIntArray_X, unsigned int>;
template class XeArray<CPtrArray_X, void*>;
template class XeArray<CObArray_X, CObject_X*>;
template class XeArray<CStringArray_X, CString_X>;

IMPLEMENT_DYNCREATE_X(CByteArray_X, CObject_X)
IMPLEMENT_DYNCREATE_X(CWordArray_X, CObject_X)
IMPLEMENT_DYNCREATE_X(CDWordArray_X, CObject_X)
IMPLEMENT_DYNAMIC_X(CUIntArray_X, CObject_X)
IMPLEMENT_DYNAMIC_X(CPtrArray_X, CObject_X)
IMPLEMENT_DYNCREATE_X(CObArray_X, CObject_X)
IMPLEMENT_DYNCREATE_X(CStringArray_X, CObject_X)

CStringArray_X& CStringArray_X::operator=(const CStringArray_X& other)
{
    if (&other != this) {
        SetSize(0, 0);
        Copy(other);
    }
    return *this;
}
