/// @file xeafxlist.h
/// The three doubly linked lists: one body, and a class an element type.
///
/// | class         | element      | made by name | on an archive, behind the count |
/// | ------------- | ------------ | ------------ | ------------------------------- |
/// | CPtrList_X    | `void*`      | no           | not storable                    |
/// | CObList_X     | `CObject_X*` | yes          | nothing: objects are not stored |
/// | CStringList_X | CString_X    | yes          | the strings                     |
#pragma once

#include "xeafx.h"
#include "xeafxplex.h"
#include "xeafxstr.h"
#include "xeexcept.h"

#include <utility>

/// What the list classes have in common: nodes from blocks, so that none is allocated singly.
///
///     CStringList_X parts;
///     parts.AddTail(L"bolt");
///     parts.AddHead(L"nut");
///     for (POSITION position = parts.GetHeadPosition(); position;)
///         show(parts.GetNext(position)); // nut, bolt
///
/// A null position raises a CInvalidArgException_X* unless stated otherwise, and so does taking or reading the first or
/// last element of an empty list. Want of memory raises std::bad_alloc and leaves the list as it was. Removing the last
/// element frees all blocks; as long as one is left, all of them stay. Lists have no lock.
///
/// @tparam List the list class itself
/// @tparam Sought how a value to find is passed
template <class List, class Value, class Sought = Value>
class XE_EXPORT XeList
{
public:
    struct CNode_X
    {
        CNode_X* next;
        CNode_X* prev;
        Value value;
    };

    /// A block holds `nodesPerBlock` nodes. A number below 1 makes the first insertion raise.
    explicit XeList(long long nodesPerBlock = 10) : blockSize(nodesPerBlock) {}
    XeList(const XeList&) = delete;
    XeList& operator=(const XeList&) = delete;

    /// The number of elements.
    long long GetCount() const { return count; }
    long long GetSize() const { return count; }
    bool IsEmpty() const { return count == 0; }

    // -------------------------------------------------------------------------------------------------------- elements

    /// The first element itself, to be read or changed. Raises for an empty list.
    Value& GetHead() { return existing(head)->value; }
    const Value& GetHead() const { return existing(head)->value; }
    /// The last element, likewise.
    Value& GetTail() { return existing(tail)->value; }
    const Value& GetTail() const { return existing(tail)->value; }
    /// The element at a position, to be read or changed.
    Value& GetAt(POSITION position) { return nodeAt(position)->value; }
    const Value& GetAt(POSITION position) const { return nodeAt(position)->value; }
    /// Puts a value in the element's place.
    void SetAt(POSITION position, const Value& value) { nodeAt(position)->value = value; }

    // ------------------------------------------------------------------------------------------------------- positions

    POSITION GetHeadPosition() const { return positionOf(head); } ///< null for an empty list
    POSITION GetTailPosition() const { return positionOf(tail); } ///< null for an empty list

    /// The element at the position, which moves on to the next one; null behind the last.
    Value& GetNext(POSITION& position) { return passed(position, &CNode_X::next); }
    const Value& GetNext(POSITION& position) const { return passed(position, &CNode_X::next); }
    /// The same towards the head.
    Value& GetPrev(POSITION& position) { return passed(position, &CNode_X::prev); }
    const Value& GetPrev(POSITION& position) const { return passed(position, &CNode_X::prev); }

    /// The first element equal to `value` behind `startAfter`, or from the head on for null; null if there is none.
    /// Texts compare by CString_X::Compare().
    POSITION Find(Sought value, POSITION startAfter = nullptr) const;

    /// The element with this index from 0 on; null for one outside the list. It is counted off from the head.
    POSITION FindIndex(long long index) const;

    // ------------------------------------------------------------------------------------------------------- insertion
    // The value may be one of the list's own elements. The result is the new element's position.

    /// Adds an element in front or at the end, before or behind the one at a position. A null position means the head
    /// for InsertBefore, the tail for InsertAfter.
    POSITION AddHead(const Value& value) { return insert(head, value); }
    POSITION AddTail(const Value& value) { return insert(nullptr, value); }
    POSITION InsertBefore(POSITION position, const Value& value) { return insert(nodeOrHead(position), value); }
    POSITION InsertAfter(POSITION position, const Value& value) { return insert(nodeBehind(position), value); }

    /// Adds all elements of another list, in its order. From the list itself those that it had are added. Raises for
    /// null.
    void AddHead(const List* other);
    void AddTail(const List* other);

    // --------------------------------------------------------------------------------------------------------- removal

    /// Takes the first element out and gives it. Raises for an empty list.
    Value RemoveHead() { return remove(existing(head)); }
    /// Takes the last element out, likewise.
    Value RemoveTail() { return remove(existing(tail)); }
    /// Takes the element at a position out; other positions stay good.
    void RemoveAt(POSITION position) { remove(nodeAt(position)); }
    /// Empties the list and frees its blocks.
    void RemoveAll();

protected:
    ~XeList() { RemoveAll(); }

    /// Inserts in front of `next`, at the tail for null.
    POSITION insert(CNode_X* next, Value value);
    CNode_X* nodeOrHead(POSITION position) const { return position ? nodeAt(position) : head; }
    static CNode_X* nodeBehind(POSITION position) { return position ? nodeAt(position)->next : nullptr; }

    CNode_X* head = nullptr;
    CNode_X* tail = nullptr;
    long long count = 0;
    CNode_X* freeList = nullptr; ///< linked through `next`
    CPlex_X* blocks = nullptr;
    long long blockSize; ///< as given

private:
    static POSITION positionOf(CNode_X* node) { return reinterpret_cast<POSITION>(node); }
    static CNode_X* existing(CNode_X* node)
    {
        if (!node)
            AfxThrowInvalidArgException_X();
        return node;
    }
    static CNode_X* nodeAt(POSITION position) { return existing(reinterpret_cast<CNode_X*>(position)); }
    static Value& passed(POSITION& position, CNode_X* CNode_X::*onward)
    {
        CNode_X* node = nodeAt(position);
        position = positionOf(node->*onward);
        return node->value;
    }
    Value remove(CNode_X* node);
};

template <class List, class Value, class Sought>
inline POSITION XeList<List, Value, Sought>::insert(CNode_X* next, Value value)
{
    CNode_X* prev = next ? next->prev : tail;
    CNode_X* node = xe::detail::takeNode(freeList, blocks, blockSize, next, prev, std::move(value));
    (prev ? prev->next : head) = node;
    (next ? next->prev : tail) = node;
    ++count;
    return positionOf(node);
}

extern template class XeList<class CPtrList_X, void*>;
extern template class XeList<class CObList_X, CObject_X*>;
extern template class XeList<class CStringList_X, CString_X, const wchar_t*>;

// ---------------------------------------------------------------------------------------------------- the list classes
// Loading adds to what is in the list.

/// Pointers to anything, not owned.
class XE_EXPORT CPtrList_X : public CObject_X, public XeList<CPtrList_X, void*>
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CPtrList_X)
    using XeList::XeList;
};

/// Pointers to objects, which the list does not own: it never deletes one.
class XE_EXPORT CObList_X : public CObject_X, public XeList<CObList_X, CObject_X*>
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CObList_X)
    using XeList::XeList;

    /// Stores the number of objects alone. Loading adds as many nulls, but not more than 1,048,576, as the archive has
    /// nothing to hold against the number.
    void Serialize(CArchive_X& archive) override;
};

/// Texts by value. A null text is an empty one.
class XE_EXPORT CStringList_X : public CObject_X, public XeList<CStringList_X, CString_X, const wchar_t*>
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CStringList_X)
    using XeList::XeList;

    using XeList::SetAt;
    void SetAt(POSITION position, const wchar_t* text) { GetAt(position) = text; }
    using XeList::AddHead;
    POSITION AddHead(const wchar_t* text) { return insert(head, text); }
    using XeList::AddTail;
    POSITION AddTail(const wchar_t* text) { return insert(nullptr, text); }
    using XeList::InsertBefore;
    POSITION InsertBefore(POSITION position, const wchar_t* text) { return insert(nodeOrHead(position), text); }
    using XeList::InsertAfter;
    POSITION InsertAfter(POSITION position, const wchar_t* text) { return insert(nodeBehind(position), text); }

    /// Loading ends early where the archive does.
    void Serialize(CArchive_X& archive) override;
};
