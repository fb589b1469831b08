#include "messagelog.h"
#include "samplelines.h"
#include "testclass.h"

#include <QTemporaryDir>

namespace {

// The lines of a log as "text" or "text x3".
QStringList view(const MessageLog& log)
{
    QStringList lines;
    for (const MessageLine& line : log.lines())
        lines += line.count > 1 ? QString("%1 x%2").arg(line.text()).arg(line.count) : line.text();
    return lines;
}

} // namespace

class tst_PartsbookLog : public QObject
{
    Q_OBJECT

private slots:
    void mouseText_data();
    void mouseText();
    void wheelText_data();
    void wheelText();
    void keyMessageText_data();
    void keyMessageText();
    void keyName_data();
    void keyName();
    void characterMessageText_data();
    void characterMessageText();
    void timerText();
    void sizeText();
    void partsOfALine();
    void kinds();

    void movesInARowAreOneLine();
    void anotherMessageEndsARowOfMoves();
    void timersInARowAreOneLine();
    void otherMessagesAreNeverJoined();
    void theTimeIsThatOfTheLastMessage();
    void oldLinesAreDropped();

    void traceHasEachMessage();
    void traceIsThereAtOnce();
    void traceAppends();
    void traceIsUtf8();
    void traceToAFolderFails();
};

void tst_PartsbookLog::mouseText_data()
{
    QTest::addColumn<UINT>("message");
    QTest::addColumn<UINT>("flags");
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<QString>("text");

    const auto row = [](const char* name, UINT message, UINT flags, QPoint point, const char* text) {
        QTest::newRow(name) << message << flags << point << QString(text);
    };
    row("left down", 0x201, 0x01, {120, 80}, "WM_LBUTTONDOWN  MK_LBUTTON  (120, 80)");
    row("left up has no button left", 0x202, 0, {120, 80}, "WM_LBUTTONUP  (120, 80)");
    row("left double click", 0x203, 0x01, {0, 0}, "WM_LBUTTONDBLCLK  MK_LBUTTON  (0, 0)");
    row("right down", 0x204, 0x02, {1, 2}, "WM_RBUTTONDOWN  MK_RBUTTON  (1, 2)");
    row("right up", 0x205, 0, {1, 2}, "WM_RBUTTONUP  (1, 2)");
    row("right double click", 0x206, 0x02, {1, 2}, "WM_RBUTTONDBLCLK  MK_RBUTTON  (1, 2)");
    row("middle down", 0x207, 0x10, {1, 2}, "WM_MBUTTONDOWN  MK_MBUTTON  (1, 2)");
    row("middle up", 0x208, 0, {1, 2}, "WM_MBUTTONUP  (1, 2)");
    row("middle double click", 0x209, 0x10, {1, 2}, "WM_MBUTTONDBLCLK  MK_MBUTTON  (1, 2)");
    row("move", 0x200, 0, {639, 479}, "WM_MOUSEMOVE  (639, 479)");
    row("a move beyond the left and upper edge", 0x200, 0, {-3, -40}, "WM_MOUSEMOVE  (-3, -40)");
    row("every flag", 0x200, 0x3F, {1, 2},
        "WM_MOUSEMOVE  MK_LBUTTON | MK_RBUTTON | MK_MBUTTON | MK_SHIFT | MK_CONTROL | MK_ALT  (1, 2)");
    row("flags without a name are left out", 0x200, 0xFFC0, {1, 2}, "WM_MOUSEMOVE  (1, 2)");
    row("a message without a name shows its number", 0x7FFF, 0, {1, 2}, "WM 0x7FFF  (1, 2)");
}

void tst_PartsbookLog::mouseText()
{
    QFETCH(const UINT, message);
    QFETCH(const UINT, flags);
    QFETCH(const QPoint, point);
    QTEST(mouseLine(message, flags, CPoint(point.x(), point.y())).text(), "text");
}

void tst_PartsbookLog::wheelText_data()
{
    QTest::addColumn<UINT>("flags");
    QTest::addColumn<int>("delta");
    QTest::addColumn<QString>("text");

    QTest::newRow("up") << 0u << 120 << "WM_MOUSEWHEEL  +120  (7, 9)";
    QTest::newRow("down") << 0u << -120 << "WM_MOUSEWHEEL  -120  (7, 9)";
    QTest::newRow("not at all") << 0u << 0 << "WM_MOUSEWHEEL  0  (7, 9)";
    QTest::newRow("with Control") << 0x08u << 240 << "WM_MOUSEWHEEL  +240  MK_CONTROL  (7, 9)";
}

void tst_PartsbookLog::wheelText()
{
    QFETCH(const UINT, flags);
    QFETCH(const int, delta);
    QTEST(wheelLine(flags, static_cast<short>(delta), CPoint(7, 9)).text(), "text");
}

void tst_PartsbookLog::keyMessageText_data()
{
    QTest::addColumn<UINT>("message");
    QTest::addColumn<UINT>("vk");
    QTest::addColumn<UINT>("modifiers");
    QTest::addColumn<QString>("text");

    QTest::newRow("down") << 0x100u << 0x41u << 0u << "WM_KEYDOWN  VK 'A'";
    QTest::newRow("up, with the release bit") << 0x101u << 0x41u << 0x8000u << "WM_KEYUP  VK 'A'";
    QTest::newRow("down with Alt") << 0x104u << 0x58u << 0x20u << "WM_SYSKEYDOWN  VK 'X'  MK_ALT";
    QTest::newRow("up with Alt") << 0x105u << 0x58u << 0x8020u << "WM_SYSKEYUP  VK 'X'  MK_ALT";
    QTest::newRow("Shift and Control") << 0x100u << 0x70u << 0x0Cu << "WM_KEYDOWN  VK_F1  MK_SHIFT | MK_CONTROL";
}

void tst_PartsbookLog::keyMessageText()
{
    QFETCH(const UINT, message);
    QFETCH(const UINT, vk);
    QFETCH(const UINT, modifiers);
    QTEST(keyLine(message, vk, modifiers).text(), "text");
}

void tst_PartsbookLog::keyName_data()
{
    QTest::addColumn<UINT>("vk");
    QTest::addColumn<QString>("text");

    const auto row = [](UINT vk, const char* text) { QTest::newRow(text) << vk << QString(text); };
    row(0x30, "VK '0'");
    row(0x39, "VK '9'");
    row(0x41, "VK 'A'");
    row(0x5A, "VK 'Z'");
    row(0x08, "VK_BACK");
    row(0x0D, "VK_RETURN");
    row(0x10, "VK_SHIFT");
    row(0x11, "VK_CONTROL");
    row(0x12, "VK_MENU");
    row(0x20, "VK_SPACE");
    row(0x25, "VK_LEFT");
    row(0x2E, "VK_DELETE");
    row(0x6A, "VK_MULTIPLY");
    row(0x70, "VK_F1");
    row(0x87, "VK_F24");
    row(0xB3, "VK_MEDIA_PLAY_PAUSE");
    row(0xBA, "VK_OEM_1");
    row(0xDE, "VK_OEM_7");
    row(0x3A, "VK 0x3A");
    row(0x07, "VK 0x07");
    row(0xFFFFFFFF, "no VK");
}

void tst_PartsbookLog::keyName()
{
    QFETCH(const UINT, vk);
    QTEST(keyText(vk), "text");
}

void tst_PartsbookLog::characterMessageText_data()
{
    QTest::addColumn<UINT>("message");
    QTest::addColumn<UINT>("character");
    QTest::addColumn<UINT>("modifiers");
    QTest::addColumn<QString>("text");

    QTest::newRow("letter") << 0x102u << 0x61u << 0u << "WM_CHAR  'a'";
    QTest::newRow("capital") << 0x102u << 0x41u << 0x04u << "WM_CHAR  'A'  MK_SHIFT";
    QTest::newRow("space") << 0x102u << 0x20u << 0u << "WM_CHAR  ' '";
    QTest::newRow("beyond ASCII") << 0x102u << 0xE9u << 0u << QString::fromUtf8("WM_CHAR  '\u00E9'");
    QTest::newRow("beyond 16 bits") << 0x102u << 0x1F600u << 0u << QString::fromUtf8("WM_CHAR  '\U0001F600'");
    QTest::newRow("null") << 0x102u << 0u << 0u << "WM_CHAR  0x00";
    QTest::newRow("Return") << 0x102u << 0x0Du << 0u << "WM_CHAR  0x0D";
    QTest::newRow("delete") << 0x102u << 0x7Fu << 0u << "WM_CHAR  0x7F";
    QTest::newRow("no character at all") << 0x102u << 0xFFFFFFFFu << 0u << "WM_CHAR  0xFFFFFFFF";
    QTest::newRow("with Alt") << 0x106u << 0x78u << 0x20u << "WM_SYSCHAR  'x'  MK_ALT";
}

void tst_PartsbookLog::characterMessageText()
{
    QFETCH(const UINT, message);
    QFETCH(const UINT, character);
    QFETCH(const UINT, modifiers);
    QTEST(characterLine(message, character, modifiers).text(), "text");
}

void tst_PartsbookLog::timerText() { QCOMPARE(timerLine(17).text(), QString("WM_TIMER  id 17")); }

void tst_PartsbookLog::sizeText() { QCOMPARE(sizeLine(1000, 618).text(), QString("WM_SIZE  1000 x 618")); }

void tst_PartsbookLog::partsOfALine()
{
    const MessageLine line = mouseLine(WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, CPoint(120, 80));
    QCOMPARE(line.message, 0x201u);
    QCOMPARE(line.name, QString("WM_LBUTTONDOWN"));
    QCOMPARE(line.parameters, QString("MK_LBUTTON | MK_SHIFT"));
    QCOMPARE(line.point, QString("(120, 80)"));
    QCOMPARE(line.count, 1);
}

void tst_PartsbookLog::kinds()
{
    QVERIFY(mouseLine(WM_LBUTTONDOWN, 0, CPoint()).kind == MessageKind::Mouse);
    QVERIFY(mouseLine(WM_MBUTTONDBLCLK, 0, CPoint()).kind == MessageKind::Mouse);
    QVERIFY(mouseLine(WM_MOUSEMOVE, 0, CPoint()).kind == MessageKind::Move);
    QVERIFY(wheelLine(0, 120, CPoint()).kind == MessageKind::Wheel);
    QVERIFY(keyLine(WM_SYSKEYUP, 'A', 0).kind == MessageKind::Key);
    QVERIFY(characterLine(WM_SYSCHAR, 'a', 0).kind == MessageKind::Character);
    QVERIFY(timerLine(1).kind == MessageKind::Timer);
    QVERIFY(sizeLine(1, 1).kind == MessageKind::Size);
}

void tst_PartsbookLog::movesInARowAreOneLine()
{
    MessageLog log;
    for (int x = 1; x <= 17; ++x)
        log.append(mouseLine(WM_MOUSEMOVE, 0, CPoint(x, 5)));
    QCOMPARE(view(log), QStringList{"WM_MOUSEMOVE  (17, 5) x17"});
    QCOMPARE(log.total(), 17);
}

void tst_PartsbookLog::anotherMessageEndsARowOfMoves()
{
    MessageLog log;
    log.append(mouseLine(WM_MOUSEMOVE, 0, CPoint(1, 1)));
    log.append(mouseLine(WM_MOUSEMOVE, 0, CPoint(2, 2)));
    log.append(mouseLine(WM_LBUTTONUP, 0, CPoint(2, 2)));
    log.append(mouseLine(WM_MOUSEMOVE, 0, CPoint(3, 3)));
    QCOMPARE(view(log), (QStringList{"WM_MOUSEMOVE  (2, 2) x2", "WM_LBUTTONUP  (2, 2)", "WM_MOUSEMOVE  (3, 3)"}));
}

void tst_PartsbookLog::timersInARowAreOneLine()
{
    MessageLog log;
    log.append(timerLine(1));
    log.append(timerLine(1));
    log.append(mouseLine(WM_MOUSEMOVE, 0, CPoint(1, 1)));
    log.append(timerLine(1));
    QCOMPARE(view(log), (QStringList{"WM_TIMER  id 1 x2", "WM_MOUSEMOVE  (1, 1)", "WM_TIMER  id 1"}));
}

void tst_PartsbookLog::otherMessagesAreNeverJoined()
{
    MessageLog log;
    log.append(wheelLine(0, 120, CPoint(1, 1)));
    log.append(wheelLine(0, 120, CPoint(1, 1)));
    QCOMPARE(view(log), (QStringList{"WM_MOUSEWHEEL  +120  (1, 1)", "WM_MOUSEWHEEL  +120  (1, 1)"}));
}

void tst_PartsbookLog::theTimeIsThatOfTheLastMessage()
{
    MessageLog log;
    log.append(timerLine(1));
    const QTime first = log.lines().last().time;
    QVERIFY(first.isValid());
    QTRY_VERIFY(QTime::currentTime() != first);
    log.append(timerLine(1));
    QVERIFY(log.lines().last().time != first);
}

void tst_PartsbookLog::oldLinesAreDropped()
{
    MessageLog log;
    for (int i = 1; i <= MessageLog::capacity + 3; ++i)
        log.append(sizeLine(i, 1));
    QCOMPARE(log.lines().size(), 500);
    QCOMPARE(log.lines().first().text(), QString("WM_SIZE  4 x 1"));
    QCOMPARE(log.lines().last().text(), QString("WM_SIZE  503 x 1"));
    QCOMPARE(log.total(), 503);
}

void tst_PartsbookLog::traceHasEachMessage()
{
    const QTemporaryDir folder;
    MessageLog log;
    log.append(sizeLine(1, 1)); // before there is a trace
    QVERIFY(log.traceTo(folder.filePath("trace")));
    log.append(mouseLine(WM_MOUSEMOVE, 0, CPoint(1, 1)));
    log.append(mouseLine(WM_MOUSEMOVE, 0, CPoint(2, 2)));
    QCOMPARE(contentOf(folder.filePath("trace")), QByteArray("WM_MOUSEMOVE  (1, 1)\nWM_MOUSEMOVE  (2, 2)\n"));
}

void tst_PartsbookLog::traceIsThereAtOnce()
{
    const QTemporaryDir folder;
    MessageLog log;
    QVERIFY(log.traceTo(folder.filePath("trace")));
    QCOMPARE(contentOf(folder.filePath("trace")), QByteArray());
    log.append(timerLine(1));
    QCOMPARE(contentOf(folder.filePath("trace")), QByteArray("WM_TIMER  id 1\n"));
}

void tst_PartsbookLog::traceAppends()
{
    const QTemporaryDir folder;
    for (int run = 1; run <= 2; ++run) {
        MessageLog log;
        QVERIFY(log.traceTo(folder.filePath("trace")));
        log.append(sizeLine(run, run));
    }
    QCOMPARE(contentOf(folder.filePath("trace")), QByteArray("WM_SIZE  1 x 1\nWM_SIZE  2 x 2\n"));
}

void tst_PartsbookLog::traceIsUtf8()
{
    const QTemporaryDir folder;
    MessageLog log;
    QVERIFY(log.traceTo(folder.filePath("trace")));
    log.append(characterLine(WM_CHAR, 0xE9, 0));
    QCOMPARE(contentOf(folder.filePath("trace")), QByteArray("WM_CHAR  '\xC3\xA9'\n"));
}

void tst_PartsbookLog::traceToAFolderFails()
{
    const QTemporaryDir folder;
    MessageLog log;
    QVERIFY(!log.traceTo(folder.path()));
    log.append(timerLine(1));
    QCOMPARE(view(log), QStringList{"WM_TIMER  id 1"});
}

XE_GUILESS_TEST(tst_PartsbookLog)
#include "tst_partsbooklog.moc"
