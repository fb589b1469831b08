#include "openlist.h"
#include "testclass.h"

/// The operations of the three lists, one table for all.
class tst_List : public QObject
{
    Q_OBJECT

private slots:
    void steps_data();
    void steps();
    void checkSanityCanFail();
    void emptyList_data() { listClassRows(); }
    void emptyList();
    void nullPositions_data() { listClassRows(); }
    void nullPositions();
    void walk_data() { listClassRows(); }
    void walk();
    void find_data() { listClassRows(); }
    void find();
    void findIndex_data() { listClassRows(); }
    void findIndex();
    void wholeLists_data() { listClassRows(); }
    void wholeLists();
    void ownElements_data() { listClassRows(); }
    void ownElements();
    void elementsAreReferences_data() { listClassRows(); }
    void elementsAreReferences();
};

namespace {

/// Does a step such as "tail b", "before 1 x" or "remove 0" and gives what was removed.
template <class List>
QString perform(OpenList<List>& list, const QStringList& words)
{
    using Value = typename OpenList<List>::Value;
    const QString& name = words[0];
    const char letter = words.last().at(0).toLatin1();
    const POSITION position = list.FindIndex(words.value(1).toInt());
    if (name == "head")
        list.AddHead(elementOf<Value>(letter));
    else if (name == "tail")
        list.AddTail(elementOf<Value>(letter));
    else if (name == "before")
        list.InsertBefore(position, elementOf<Value>(letter));
    else if (name == "behind")
        list.InsertAfter(position, elementOf<Value>(letter));
    else if (name == "set")
        list.SetAt(position, elementOf<Value>(letter));
    else if (name == "remove")
        list.RemoveAt(position);
    else if (name == "empty")
        list.RemoveAll();
    else if (name == "removeHead")
        return QString(QLatin1Char(letterOf(list.RemoveHead())));
    else if (name == "removeTail")
        return QString(QLatin1Char(letterOf(list.RemoveTail())));
    return {};
}

} // namespace

void tst_List::steps_data()
{
    QTest::addColumn<int>("listClass");
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("result"); // what was removed, a blank, what is left

    const struct
    {
        const char* name;
        const char* steps;
        const char* result;
    } rows[] = {
        {"the first element is head and tail", "tail a", " a"},
        {"the tail grows backwards", "tail a; tail b; tail C", " abC"},
        {"the head grows forwards", "head a; head b; head C", " Cba"},
        {"before the head", "tail a; before 0 x", " xa"},
        {"before the tail", "tail a; tail b; before 1 x", " axb"},
        {"before no position is the head", "tail a; before -1 x", " xa"},
        {"behind the head", "tail a; tail b; behind 0 x", " axb"},
        {"behind the tail", "tail a; tail b; behind 1 x", " abx"},
        {"behind no position is the tail", "tail a; tail b; behind -1 x", " abx"},
        {"before no position in an empty list", "before -1 x", " x"},
        {"behind no position in an empty list", "behind -1 x", " x"},
        {"an element is replaced", "tail a; tail b; set 1 X", " aX"},
        {"the head goes", "tail a; tail B; tail c; removeHead", "a Bc"},
        {"the tail goes", "tail a; tail B; tail c; removeTail", "c aB"},
        {"the middle goes", "tail a; tail B; tail c; remove 1", " ac"},
        {"the head goes by its position", "tail a; tail b; remove 0", " b"},
        {"the tail goes by its position", "tail a; tail b; remove 1", " a"},
        {"the only element goes as head", "tail A; removeHead", "A "},
        {"the only element goes as tail", "tail A; removeTail", "A "},
        {"the only element goes by its position", "tail A; remove 0", " "},
        {"all go", "tail a; tail B; empty", " "},
        {"an emptied list fills again", "tail a; removeHead; tail b; empty; tail C; head d", "a dC"},
    };
    for (const auto& row : rows)
        for (int listClass = 0; listClass < 3; ++listClass)
            QTest::addRow("%s: %s", row.name,
                          listClass == 0   ? "pointers"
                          : listClass == 1 ? "objects"
                                           : "texts")
                << listClass << row.steps << row.result;
}

void tst_List::steps()
{
    withList([](auto& list) {
        QFETCH(QString, steps);
        QFETCH(QString, result);
        QString removed;
        const QStringList all = steps.split("; ");
        for (const QString& step : all) {
            removed += perform(list, step.split(' '));
            QCOMPARE(list.checkSanity(), QString());
        }
        QCOMPARE(removed + ' ' + shown(list), result);
        QCOMPARE(list.GetCount(), shown(list).size());
        QCOMPARE(list.GetSize(), list.GetCount());
        QCOMPARE(list.IsEmpty(), list.GetCount() == 0);
    });
}

void tst_List::checkSanityCanFail()
{
    OpenList<CPtrList_X> list;
    fill(list, "abc");
    QCOMPARE(list.checkSanity(), QString());
    ++list.count;
    QCOMPARE(list.checkSanity(), QString("3 nodes, but a count of 4"));
    --list.count;
    std::swap(list.head->next->prev, list.tail->prev);
    QCOMPARE(list.checkSanity(), QString("a broken link at node 1"));
    std::swap(list.head->next->prev, list.tail->prev);
    list.blockSize = 11;
    QCOMPARE(list.checkSanity(), QString("3 nodes and 7 free in 1 blocks"));
    list.blockSize = 10;
    std::swap(list.freeList, list.tail);
    QVERIFY(!list.checkSanity().isEmpty());
    std::swap(list.freeList, list.tail);
    QCOMPARE(list.checkSanity(), QString());
}

void tst_List::emptyList()
{
    withList([](auto& list) {
        const auto& constant = list;
        QCOMPARE(list.GetCount(), 0LL);
        QVERIFY(list.IsEmpty());
        QVERIFY(!list.GetHeadPosition());
        QVERIFY(!list.GetTailPosition());
        QVERIFY(!list.FindIndex(0));
        QVERIFY(raises([&] { list.GetHead(); }));
        QVERIFY(raises([&] { list.GetTail(); }));
        QVERIFY(raises([&] { constant.GetHead(); }));
        QVERIFY(raises([&] { constant.GetTail(); }));
        QVERIFY(raises([&] { list.RemoveHead(); }));
        QVERIFY(raises([&] { list.RemoveTail(); }));
        list.RemoveAll();
        QVERIFY(list.IsEmpty());
    });
}

void tst_List::nullPositions()
{
    withList([](auto& list) {
        fill(list, "ab");
        const auto& constant = list;
        POSITION none = nullptr;
        QVERIFY(raises([&] { list.GetNext(none); }));
        QVERIFY(raises([&] { list.GetPrev(none); }));
        QVERIFY(raises([&] { constant.GetNext(none); }));
        QVERIFY(raises([&] { constant.GetPrev(none); }));
        QVERIFY(raises([&] { list.GetAt(none); }));
        QVERIFY(raises([&] { constant.GetAt(none); }));
        QVERIFY(raises([&] { list.SetAt(none, list.GetHead()); }));
        QVERIFY(raises([&] { list.RemoveAt(none); }));
        QVERIFY(raises([&] { list.AddHead(static_cast<decltype(&list)>(nullptr)); }));
        QVERIFY(raises([&] { list.AddTail(static_cast<decltype(&list)>(nullptr)); }));
        QCOMPARE(shown(list), QString("ab"));
    });
}

void tst_List::walk()
{
    withList([](auto& list) {
        fill(list, "abC");
        const auto& constant = list;
        QCOMPARE(letterOf(list.GetHead()), 'a');
        QCOMPARE(letterOf(constant.GetHead()), 'a');
        QCOMPARE(letterOf(list.GetTail()), 'C');
        QCOMPARE(letterOf(constant.GetTail()), 'C');

        POSITION position = list.GetHeadPosition();
        QCOMPARE(letterOf(list.GetAt(position)), 'a');
        QCOMPARE(letterOf(list.GetNext(position)), 'a');
        QCOMPARE(letterOf(constant.GetAt(position)), 'b');
        QCOMPARE(letterOf(constant.GetNext(position)), 'b');
        QCOMPARE(position, list.GetTailPosition());
        QCOMPARE(letterOf(list.GetNext(position)), 'C');
        QVERIFY(!position);

        position = list.GetTailPosition();
        QCOMPARE(letterOf(list.GetPrev(position)), 'C');
        QCOMPARE(letterOf(constant.GetPrev(position)), 'b');
        QCOMPARE(position, list.GetHeadPosition());
        QCOMPARE(letterOf(list.GetPrev(position)), 'a');
        QVERIFY(!position);
    });
}

void tst_List::find()
{
    withList([](auto& list) {
        fill(list, "aBaBc");
        const auto index = [&](char letter, POSITION startAfter = nullptr) {
            const auto value = elementOf<typename std::decay_t<decltype(list)>::Value>(letter);
            const POSITION found = list.Find(value, startAfter);
            for (int i = 0; found && i < 5; ++i)
                if (list.FindIndex(i) == found)
                    return i;
            return -1;
        };
        QCOMPARE(index('a'), 0);
        QCOMPARE(index('B'), 1);
        QCOMPARE(index('c'), 4);
        QCOMPARE(index('d'), -1);
        QCOMPARE(index('a', list.FindIndex(0)), 2); // the start itself does not count
        QCOMPARE(index('B', list.FindIndex(0)), 1);
        QCOMPARE(index('a', list.FindIndex(2)), -1);
        QCOMPARE(index('c', list.GetTailPosition()), -1);
    });
}

void tst_List::findIndex()
{
    withList([](auto& list) {
        fill(list, "abc");
        QVERIFY(!list.FindIndex(-1));
        QVERIFY(!list.FindIndex(LLONG_MIN));
        QCOMPARE(list.FindIndex(0), list.GetHeadPosition());
        QCOMPARE(letterOf(list.GetAt(list.FindIndex(1))), 'b');
        QCOMPARE(list.FindIndex(2), list.GetTailPosition());
        QVERIFY(!list.FindIndex(3));
        QVERIFY(!list.FindIndex(LLONG_MAX));
    });
}

void tst_List::wholeLists()
{
    withList([](auto& list) {
        std::decay_t<decltype(list)> other;
        fill(other, "xYz");
        list.AddTail(&other);
        QCOMPARE(shown(list), QString("xYz"));
        list.AddHead(&other);
        QCOMPARE(shown(list), QString("xYzxYz"));
        fill(list, "ab");
        list.AddHead(&other);
        list.AddTail(&other);
        QCOMPARE(shown(list), QString("xYzabxYz"));
        QCOMPARE(shown(other), QString("xYz"));

        list.AddTail(&list);
        QCOMPARE(shown(list), QString("xYzabxYzxYzabxYz"));
        fill(list, "abc");
        list.AddHead(&list);
        QCOMPARE(shown(list), QString("abcabc"));

        other.RemoveAll();
        list.AddTail(&other);
        list.AddHead(&other);
        QCOMPARE(shown(list), QString("abcabc"));
    });
}

void tst_List::ownElements()
{
    withList([](auto& list) {
        fill(list, "aB");
        list.AddTail(list.GetTail());
        list.AddHead(list.GetTail());
        list.SetAt(list.GetTailPosition(), list.GetTail());
        QCOMPARE(shown(list), QString("BaBB"));
    });
}

void tst_List::elementsAreReferences()
{
    withList([](auto& list) {
        fill(list, "abcd");
        const auto value = list.GetTail();
        list.GetHead() = value;
        POSITION position = list.FindIndex(1);
        list.GetNext(position) = value;
        list.GetAt(position) = value;
        QCOMPARE(shown(list), QString("dddd"));
        list.GetPrev(position) = list.RemoveHead();
        list.GetTail() = value;
        QCOMPARE(shown(list), QString("ddd"));
    });
}

XE_APPLESS_TEST(tst_List)
#include "tst_list.moc"
