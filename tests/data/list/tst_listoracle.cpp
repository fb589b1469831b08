#include "openlist.h"
#include "testclass.h"

#include <list>
#include <random>

/// Lists in step with std::list, over long random sequences of operations.
class tst_ListOracle : public QObject
{
    Q_OBJECT

private slots:
    void inStepWithStdList_data();
    void inStepWithStdList();
};

namespace {

template <class List>
class Race
{
public:
    Race(OpenList<List>& list, unsigned seed) : m_list(list), m_random(seed) {}

    void step()
    {
        switch (below(m_expected.size() < 60 ? 12 : 16)) {
        case 0:
        case 1:
            m_positions.insert(m_positions.begin(), m_list.AddHead(newValue()));
            m_expected.push_front(m_value);
            break;
        case 2:
        case 3:
        case 4:
            m_positions.push_back(m_list.AddTail(newValue()));
            m_expected.push_back(m_value);
            break;
        case 5:
            insert(true);
            break;
        case 6:
            insert(false);
            break;
        case 7:
            replace();
            break;
        case 8:
            find();
            break;
        case 9:
            if (below(50) == 0)
                clear();
            break;
        case 10:
            removeEnd(true);
            break;
        case 11:
            removeEnd(false);
            break;
        default:
            removeAny();
        }
    }

    QString difference() const
    {
        auto expected = m_expected.begin();
        std::size_t index = 0;
        for (POSITION position = m_list.GetHeadPosition(); position; ++expected, ++index)
            if (expected == m_expected.end() || m_positions[index] != position
                || !(m_list.GetNext(position) == *expected))
                return QStringLiteral("element %1").arg(index);
        return expected == m_expected.end() ? m_list.checkSanity() : QStringLiteral("too short");
    }

private:
    using Value = typename OpenList<List>::Value;

    std::size_t below(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(m_random); }
    const Value& newValue() { return m_value = elementOf<Value>("abcdefXYZ"[below(9)]); }
    auto place(std::size_t index) { return std::next(m_expected.begin(), std::ptrdiff_t(index)); }

    void insert(bool before)
    {
        if (m_positions.empty())
            return;
        std::size_t index = below(m_positions.size());
        const POSITION position = m_positions[index];
        const POSITION made =
            before ? m_list.InsertBefore(position, newValue()) : m_list.InsertAfter(position, newValue());
        index += before ? 0 : 1;
        m_positions.insert(m_positions.begin() + std::ptrdiff_t(index), made);
        m_expected.insert(place(index), m_value);
    }

    void replace()
    {
        if (m_positions.empty())
            return;
        const std::size_t index = below(m_positions.size());
        m_list.SetAt(m_positions[index], newValue());
        *place(index) = m_value;
    }

    void find()
    {
        const auto expected = std::find(m_expected.begin(), m_expected.end(), newValue());
        const auto index = std::size_t(std::distance(m_expected.begin(), expected));
        QCOMPARE(m_list.Find(m_value), index < m_positions.size() ? m_positions[index] : nullptr);
        QCOMPARE(m_list.FindIndex(qlonglong(index)), index < m_positions.size() ? m_positions[index] : nullptr);
    }

    void removeEnd(bool atHead)
    {
        if (m_positions.empty())
            return;
        const Value removed = atHead ? m_list.RemoveHead() : m_list.RemoveTail();
        QVERIFY(removed == (atHead ? m_expected.front() : m_expected.back()));
        forget(atHead ? 0 : m_positions.size() - 1);
    }

    void removeAny()
    {
        const std::size_t index = below(m_positions.size());
        m_list.RemoveAt(m_positions[index]);
        forget(index);
    }

    void forget(std::size_t index)
    {
        m_expected.erase(place(index));
        m_positions.erase(m_positions.begin() + std::ptrdiff_t(index));
    }

    void clear()
    {
        m_list.RemoveAll();
        m_expected.clear();
        m_positions.clear();
    }

    OpenList<List>& m_list;
    std::mt19937 m_random;
    std::list<Value> m_expected;
    std::vector<POSITION> m_positions; // of the expected elements: a position stays as long as its element
    Value m_value{};
};

} // namespace

void tst_ListOracle::inStepWithStdList_data()
{
    QTest::addColumn<int>("listClass");
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= 3; ++seed) {
        QTest::addRow("pointers, seed %u", seed) << 0 << seed;
        QTest::addRow("objects, seed %u", seed) << 1 << seed;
        QTest::addRow("texts, seed %u", seed) << 2 << seed;
    }
}

void tst_ListOracle::inStepWithStdList()
{
    withList([](auto& list) {
        QFETCH(unsigned, seed);
        Race race(list, seed);
        for (int step = 0; step < 100000; ++step) {
            race.step();
            if (step % 50 == 0 || step < 1000)
                QCOMPARE(race.difference(), QString());
        }
    });
}

XE_APPLESS_TEST(tst_ListOracle)
#include "tst_listoracle.moc"
