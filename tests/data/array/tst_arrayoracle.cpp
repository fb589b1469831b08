#include "openarray.h"
#include "testclass.h"

#include <algorithm>
#include <limits>
#include <random>
#include <vector>

namespace {

/// An array class beside a std::vector that is changed alike, and beside its own idea of how the block grows.
template <class Array>
class Pair
{
public:
    using Element = typename OpenArray<Array>::Element;

    /// Takes one random step on both sides.
    void step()
    {
        using Step = void (Pair::*)();
        static constexpr Step steps[] = {&Pair::add,     &Pair::add,         &Pair::addOwn,      &Pair::setAtGrow,
                                         &Pair::insert,  &Pair::insertOwn,   &Pair::insertArray, &Pair::insertItself,
                                         &Pair::remove,  &Pair::remove,      &Pair::remove,      &Pair::set,
                                         &Pair::setSize, &Pair::appendArray, &Pair::copyArray,   &Pair::freeExtra,
                                         &Pair::fail};
        (this->*steps[upTo(std::size(steps) - 1)])();
        if (model.size() > 90)
            removeRange(5, model.size() - 5);
    }

    /// What differs between the two sides; empty if nothing does.
    QString difference() const
    {
        if (const QString broken = array.checkSanity(); !broken.isEmpty())
            return broken;
        if (array.capacity != capacity || array.growStep != growStep)
            return array.room() + QStringLiteral(", expected %1 and %2").arg(capacity).arg(growStep);
        if (!std::equal(model.begin(), model.end(), array.GetData(), array.GetData() + array.GetSize()))
            return QStringLiteral("other elements than the vector");
        return {};
    }

private:
    void add()
    {
        const Element value = anyElement();
        const long long index = array.Add(value);
        grow(model.size() + 1);
        model.push_back(value);
        if (index + 1 != count())
            array.SetSize(0); // found by difference()
    }

    void addOwn()
    {
        if (model.empty())
            return;
        const auto index = upTo(model.size() - 1);
        array.Add(array.ElementAt(position(index)));
        grow(model.size() + 1);
        model.push_back(Element(model[index]));
    }

    void setAtGrow()
    {
        const auto index = upTo(model.size() + 6);
        const Element value = anyElement();
        array.SetAtGrow(position(index), value);
        if (index >= model.size())
            resize(index + 1);
        model[index] = value;
    }

    void set()
    {
        if (model.empty())
            return;
        const auto index = upTo(model.size() - 1);
        model[index] = anyElement();
        array[position(index)] = model[index];
    }

    void insert() { insertBoth(upTo(model.size() + 5), anyElement(), 1 + upTo(9)); }

    void insertBoth(std::size_t index, const Element& value, std::size_t copies)
    {
        array.InsertAt(position(index), value, position(copies));
        grow(std::max(index, model.size()) + copies);
        model.resize(std::max(index, model.size()));
        model.insert(model.begin() + position(index), copies, value);
    }

    void insertOwn()
    {
        if (model.empty())
            return;
        const auto index = upTo(model.size());
        const auto from = upTo(model.size() - 1);
        array.InsertAt(position(index), array.ElementAt(position(from)), 3);
        grow(model.size() + 3);
        model.insert(model.begin() + position(index), 3, Element(model[from]));
    }

    void insertArray()
    {
        const std::vector<Element> elements = anyElements();
        OpenArray<Array> source;
        for (const Element& element : elements)
            source.Add(element);
        const auto index = upTo(model.size() + 3);
        array.InsertAt(position(index), &source);
        if (elements.empty())
            return;
        grow(std::max(index, model.size()) + elements.size());
        model.resize(std::max(index, model.size()));
        model.insert(model.begin() + position(index), elements.begin(), elements.end());
    }

    void insertItself()
    {
        const std::vector<Element> before = model;
        if (before.empty())
            return;
        const auto index = upTo(before.size() + 3);
        array.InsertAt(position(index), &array);
        grow(std::max(index, before.size()) + before.size());
        model.resize(std::max(index, before.size()));
        model.insert(model.begin() + position(index), before.size(), before.front());
        for (std::size_t i = 0; i < before.size(); ++i)
            model[index + i] = Element(model[i]);
    }

    void remove()
    {
        const auto index = upTo(model.size());
        removeRange(index, upTo(std::min<std::size_t>(model.size() - index, 12)));
    }

    void removeRange(std::size_t index, std::size_t removed)
    {
        array.RemoveAt(position(index), position(removed));
        model.erase(model.begin() + position(index), model.begin() + position(index + removed));
    }

    void setSize()
    {
        const auto newSize = upTo(60);
        const long long growBy = position(upTo(12)) - 4;
        array.SetSize(position(newSize), growBy);
        if (growBy >= 0)
            growStep = growBy;
        resize(newSize);
    }

    void appendArray()
    {
        const std::vector<Element> elements = anyElements();
        OpenArray<Array> source;
        for (const Element& element : elements)
            source.Add(element);
        array.Append(source);
        grow(model.size() + elements.size());
        model.insert(model.end(), elements.begin(), elements.end());
    }

    void copyArray()
    {
        const std::vector<Element> elements = anyElements();
        OpenArray<Array> source;
        for (const Element& element : elements)
            source.Add(element);
        array.Copy(source);
        grow(elements.size());
        model = elements;
    }

    void freeExtra()
    {
        array.FreeExtra();
        capacity = count();
    }

    void fail()
    {
        constexpr long long largest = std::numeric_limits<long long>::max();
        const Element value = anyElement();
        raised = raised && raises([&] { array.RemoveAt(1, count()); }) && raises([&] { array.RemoveAt(0, largest); })
                 && raises([&] { array.InsertAt(-1, value); }) && raises([&] { array.InsertAt(0, value, 0); })
                 && raises([&] { array.SetAtGrow(-1, value); }) && raises([&] { array.SetAt(count(), value); })
                 && raises([&] { array.Append(array); }) && raises([&] { array.SetSize(-1, 3); });
    }

    // The rule by which the block grows, which a size of 0 frees.
    void grow(std::size_t newSize)
    {
        const long long least = position(newSize);
        const long long eighth = count() / 8;
        const long long step = growStep != 0 ? growStep : eighth > 3 ? std::min(eighth, 1024LL) : 4;
        if (least == 0)
            capacity = 0;
        else if (capacity == 0)
            capacity = least;
        else if (least > capacity)
            capacity = std::max(least, capacity + step);
    }

    void resize(std::size_t newSize)
    {
        grow(newSize);
        model.resize(newSize);
    }

    static long long position(std::size_t index) { return static_cast<long long>(index); }
    long long count() const { return position(model.size()); }
    std::size_t upTo(std::size_t largest) { return std::uniform_int_distribution<std::size_t>(0, largest)(random); }
    Element anyElement() { return elementOf<Element>(int(upTo(255))); }
    std::vector<Element> anyElements()
    {
        std::vector<Element> elements(upTo(7));
        std::generate(elements.begin(), elements.end(), [this] { return anyElement(); });
        return elements;
    }

public:
    bool raised = true; ///< whether every bad argument raised

private:
    OpenArray<Array> array;
    std::vector<Element> model;
    long long capacity = 0;
    long long growStep = 0;
    std::mt19937 random{20240229};
};

} // namespace

/// Random steps, the array and a std::vector side by side.
class tst_ArrayOracle : public QObject
{
    Q_OBJECT

private slots:
    void randomSteps_data() { arrayClassRows(); }
    void randomSteps();
};

void tst_ArrayOracle::randomSteps()
{
    withArray([](auto& array) {
        Pair<typename std::decay_t<decltype(array)>::Base> pair;
        for (int i = 0; i < 100000; ++i) {
            pair.step();
            if (const QString difference = pair.difference(); !difference.isEmpty())
                QFAIL(qPrintable(QStringLiteral("step %1: %2").arg(i).arg(difference)));
        }
        QVERIFY(pair.raised);
    });
}

XE_APPLESS_TEST(tst_ArrayOracle)
#include "tst_arrayoracle.moc"
