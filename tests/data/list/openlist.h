#pragma once

#include "raises.h"
#include "xeafxlist.h"

#include <QSet>
#include <QTest>

#include <string>
#include <type_traits>

/// A list whose fields are in the open.
template <class List>
struct OpenList : List
{
    using List::blocks;
    using List::blockSize;
    using List::count;
    using List::freeList;
    using List::head;
    using List::List;
    using List::tail;
    using Node = typename List::CNode_X;
    using Value = decltype(Node::value);

    /// What breaks the rules that hold between the fields; empty if nothing does.
    QString checkSanity() const
    {
        QSet<const Node*> used;
        const Node* last = nullptr;
        for (const Node* node = head; node; last = node, node = node->next) {
            if (node->prev != last || used.contains(node))
                return QStringLiteral("a broken link at node %1").arg(used.size());
            used.insert(node);
        }
        if (last != tail || used.size() != count)
            return QStringLiteral("%1 nodes, but a count of %2").arg(used.size()).arg(count);
        int idle = 0;
        for (const Node* node = freeList; node; node = node->next, ++idle)
            if (used.contains(node))
                return QStringLiteral("a free node in use");
        if (used.size() + idle != blockCount() * blockSize || (count == 0 && blocks))
            return QStringLiteral("%1 nodes and %2 free in %3 blocks").arg(count).arg(idle).arg(blockCount());
        return {};
    }

    int blockCount() const
    {
        int number = 0;
        for (const CPlex_X* block = blocks; block; block = block->pNext)
            ++number;
        return number;
    }
};

// --------------------------------------------------------------------------------- elements of all classes as letters

/// The element that stands for a letter. Those of capital letters are too long for a string's own buffer.
template <class Value>
Value elementOf(char letter)
{
    if constexpr (std::is_same_v<Value, CString_X>)
        return CString_X(wchar_t(letter), letter < 'a' ? 40 : 1);
    else
        return reinterpret_cast<Value>(static_cast<quintptr>(letter));
}

inline char letterOf(const CString_X& value) { return value.IsEmpty() ? '-' : char(value.GetAt(0)); }
inline char letterOf(const void* value) { return value ? char(reinterpret_cast<quintptr>(value)) : '-'; }

/// The elements as letters, `-` for null and the empty text, from the head on.
template <class List>
QString shown(const List& list)
{
    QString letters;
    for (POSITION position = list.GetHeadPosition(); position;)
        letters += QLatin1Char(letterOf(list.GetNext(position)));
    return letters;
}

template <class List>
void fill(OpenList<List>& list, const char* letters)
{
    list.RemoveAll();
    for (; *letters; ++letters)
        list.AddTail(elementOf<typename OpenList<List>::Value>(*letters));
}

// ---------------------------------------------------------------------------------------- one test, three list classes

/// Adds the column of withList() and a row for each list class.
inline void listClassRows()
{
    QTest::addColumn<int>("listClass");
    QTest::newRow("CPtrList_X") << 0;
    QTest::newRow("CObList_X") << 1;
    QTest::newRow("CStringList_X") << 2;
}

template <class List, class Check>
void checkNewList(Check check)
{
    OpenList<List> list;
    check(list);
    if (!QTest::currentTestFailed())
        QCOMPARE(list.checkSanity(), QString());
}

/// Runs the check on a new list of the class that the row names.
template <class Check>
void withList(Check check)
{
    QFETCH(int, listClass);
    switch (listClass) {
    case 0:
        return checkNewList<CPtrList_X>(check);
    case 1:
        return checkNewList<CObList_X>(check);
    default:
        return checkNewList<CStringList_X>(check);
    }
}
