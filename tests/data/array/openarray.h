#pragma once

#include "raises.h"
#include "xeafxarray.h"

#include <QTest>

#include <string>
#include <tuple>

/// An array with its protected members in the open.
template <class Array>
struct OpenArray : Array
{
    using Array::capacity;
    using Array::data;
    using Array::growStep;
    using Array::InsertEmpty;
    using Array::size;
    using Base = Array;
    using Element = std::decay_t<decltype(std::declval<Array&>()[0])>;

    /// What breaks the rules that hold between the fields; empty if nothing does.
    QString checkSanity() const
    {
        if (size < 0 || size > capacity || growStep < 0)
            return QStringLiteral("size %1, capacity %2, step %3").arg(size).arg(capacity).arg(growStep);
        if ((data == nullptr) != (capacity == 0))
            return QStringLiteral("a block and a capacity of %1").arg(capacity);
        if (this->GetSize() != size || this->GetCount() != size || this->GetUpperBound() != size - 1
            || this->IsEmpty() != (size == 0) || this->GetData() != data)
            return QStringLiteral("an answer that differs from its field");
        if constexpr (std::is_same_v<Element, CString_X>)
            for (long long i = size; i < capacity; ++i)
                if (!data[i].empty() || data[i].capacity() > CString_X().capacity() || data[i].utf8Cache)
                    return QStringLiteral("a text behind the size, at %1").arg(i);
        return {};
    }

    /// Size, capacity and step.
    QString room() const { return QStringLiteral("%1 of %2, step %3").arg(size).arg(capacity).arg(growStep); }
};

// ---------------------------------------------------------------------------- elements of all classes as small numbers

/// The element that stands for a number from 0 to 255. Odd numbers become texts too long for a string's own buffer.
template <class Element>
Element elementOf(int number)
{
    if constexpr (std::is_same_v<Element, CString_X>)
        return number == 0 ? L""
                           : std::to_wstring(number) + (number % 2 ? L" long enough for a block of its own" : L"");
    else if constexpr (std::is_pointer_v<Element>)
        return reinterpret_cast<Element>(static_cast<quintptr>(number));
    else
        return static_cast<Element>(number);
}

/// The number of an element, -1 for one that elementOf() did not make.
template <class Element>
int numberOf(const Element& value)
{
    for (int number = 0; number < 256; ++number)
        if (value == elementOf<Element>(number))
            return number;
    return -1;
}

/// The elements as numbers, with blanks between them.
template <class Array>
QString shown(const OpenArray<Array>& array)
{
    QStringList texts;
    for (long long i = 0; i < array.GetSize(); ++i)
        texts << QString::number(numberOf(array.GetData()[i]));
    return texts.join(' ');
}

/// Makes the array hold these numbers, in a block of their size and without a step.
template <class Array>
void fill(OpenArray<Array>& array, std::initializer_list<int> numbers)
{
    array.SetSize(0, 0);
    array.SetSize(static_cast<long long>(numbers.size()), -1);
    long long index = 0;
    for (const int number : numbers)
        array.data[index++] = elementOf<typename OpenArray<Array>::Element>(number);
}

/// Changes the array and gives it as numbers, behind "raises: " if the change does that.
template <class Array, class Change>
QString changed(OpenArray<Array>& array, Change change)
{
    const bool raised = raises([&] { change(); });
    const QString broken = array.checkSanity();
    return (raised ? QStringLiteral("raises: ") : QString()) + (broken.isEmpty() ? shown(array) : broken);
}

// --------------------------------------------------------------------------------------------- one test, seven classes

using ArrayClasses =
    std::tuple<CByteArray_X, CWordArray_X, CDWordArray_X, CUIntArray_X, CPtrArray_X, CObArray_X, CStringArray_X>;
constexpr const char* arrayClassNames[] = {"CByteArray_X", "CWordArray_X", "CDWordArray_X", "CUIntArray_X",
                                           "CPtrArray_X",  "CObArray_X",   "CStringArray_X"};

/// Adds the column of withArray() and a row for each array class.
inline void arrayClassRows()
{
    QTest::addColumn<int>("arrayClass");
    for (int i = 0; i < int(std::size(arrayClassNames)); ++i)
        QTest::newRow(arrayClassNames[i]) << i;
}

/// Adds rows for each array class: `addRow` gets the class as a number and makes a row with this prefix in its name.
template <class AddRow>
void rowsForEachClass(const char* aspect, AddRow addRow)
{
    for (int i = 0; i < int(std::size(arrayClassNames)); ++i)
        addRow(QTest::addRow("%s: %s", arrayClassNames[i], aspect) << i);
}

template <class Array, class Check>
void checkNewArray(Check check)
{
    OpenArray<Array> array;
    check(array);
    QCOMPARE(array.checkSanity(), QString());
}

template <class Check, std::size_t... Indices>
void checkArrayOfClass(int arrayClass, Check check, std::index_sequence<Indices...>)
{
    ((arrayClass == int(Indices) ? checkNewArray<std::tuple_element_t<Indices, ArrayClasses>>(check) : void()), ...);
}

/// Runs the check on a new array of the class that the row names.
template <class Check>
void withArray(Check check)
{
    QFETCH(int, arrayClass);
    checkArrayOfClass(arrayClass, check, std::make_index_sequence<std::tuple_size_v<ArrayClasses>>());
}
