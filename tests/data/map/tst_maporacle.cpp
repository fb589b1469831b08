#include "openmap.h"
#include "testclass.h"

#include <random>
#include <unordered_map>

/// Maps in step with std::unordered_map, over long random sequences of operations.
class tst_MapOracle : public QObject
{
    Q_OBJECT

private slots:
    void inStepWithUnorderedMap_data();
    void inStepWithUnorderedMap();
};

namespace {

template <class Map>
class Race
{
public:
    Race(OpenMap<Map>& map, unsigned seed) : m_map(map), m_random(seed) {}

    void step()
    {
        const int key = below(m_crowded ? 300 : 40);
        const int value = below(50000);
        switch (below(8)) {
        case 0:
        case 1:
            set(m_map, key, value);
            m_expected[key] = value;
            break;
        case 2:
            m_map[keyOf<typename Map::Key>(key)] = keyOf<typename Map::Value>(value);
            m_expected[key] = value;
            break;
        case 3:
            QCOMPARE(numberOf(m_map[keyOf<typename Map::Key>(key)]), m_expected[key]);
            break;
        case 4:
        case 5:
            QCOMPARE(removeKey(m_map, key), m_expected.erase(key) > 0);
            break;
        case 6:
            QCOMPARE(valueAt(m_map, key), m_expected.count(key) ? m_expected[key] : -1);
            break;
        default:
            if (below(200) == 0)
                startAnew();
        }
    }

    QString difference() const
    {
        typename Map::Key key{};
        typename Map::Value value{};
        std::size_t walked = 0;
        for (POSITION position = m_map.GetStartPosition(); position; ++walked) {
            m_map.GetNextAssoc(position, key, value);
            const auto expected = m_expected.find(numberOf(key));
            if (expected == m_expected.end() || expected->second != numberOf(value) || walked > m_expected.size())
                return QStringLiteral("key %1").arg(numberOf(key));
        }
        return walked == m_expected.size() ? m_map.checkSanity() : QStringLiteral("too short");
    }

private:
    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_random); }

    void startAnew()
    {
        m_map.RemoveAll();
        m_expected.clear();
        m_crowded = below(2);
        if (below(2))
            m_map.InitHashTable(unsigned(1 + below(100)), below(2));
    }

    OpenMap<Map>& m_map;
    std::mt19937 m_random;
    std::unordered_map<int, int> m_expected;
    bool m_crowded = false;
};

} // namespace

void tst_MapOracle::inStepWithUnorderedMap_data()
{
    QTest::addColumn<int>("mapClass");
    QTest::addColumn<unsigned>("seed");
    for (int mapClass = 0; mapClass < int(std::size(mapClassNames)); ++mapClass)
        for (unsigned seed = 1; seed <= 2; ++seed)
            QTest::addRow("%s, seed %u", mapClassNames[mapClass], seed) << mapClass << seed;
}

void tst_MapOracle::inStepWithUnorderedMap()
{
    withMap([](auto& map) {
        QFETCH(unsigned, seed);
        Race race(map, seed);
        for (int step = 0; step < 100000; ++step) {
            race.step();
            if (step % 50 == 0 || step < 1000)
                QCOMPARE(race.difference(), QString());
        }
    });
}

XE_APPLESS_TEST(tst_MapOracle)
#include "tst_maporacle.moc"
