// The real program, driven by real input on a real X server: which messages its message window receives, and in which
// order.

#include "testclass.h"
#include "xuser.h"

#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace {

// What the user does, and the messages that must come of it before the next step begins (the window manager loses
// clicks that follow each other faster). The actions are separated by spaces: "+a" presses a key and "-a" releases it,
// and so do "+Button1" and "-Button1" (4 and 5 are the wheel); "@20,30" moves the pointer to a point of the window.
struct Step
{
    QString actions;
    QStringList messages;
};
using Steps = QVector<Step>;

// Where the pointer is at the beginning and after the end of a test.
const QString home("300,200");
const QString corner("1,1");

constexpr auto separator = "\n    ";

QString asText(const QStringList& messages) { return separator + messages.join(separator); }

} // namespace

Q_DECLARE_METATYPE(Steps)

class tst_PartsbookInput : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void inputBecomesMessages_data();
    void inputBecomesMessages();
    void eachMoveIsAMessage();
    void moveWithAButtonHeld();
    void aNewSizeIsAMessage();
    void theTimerRuns();
    void traceThatCannotBeWritten();
    void closingTheMainWindowEndsTheProgram();

private:
    void startProgram();
    void stopProgram();
    QStringList trace() const;
    QStringList inputMessages() const;
    QStringList newMessages() const { return inputMessages().mid(m_seen); }
    QString lastMove() const;
    void waitFor(const QStringList& messages);
    void act(const QString& action);
    void putPointerTo(const QString& place);

    XUser m_user;
    QString m_binary = qEnvironmentVariable("PARTSBOOK");
    QString m_parts = qEnvironmentVariable("PARTS");
    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<QProcess> m_program;
    WId m_window = 0;
    int m_seen = 0; // input messages that have been compared
};

void tst_PartsbookInput::initTestCase()
{
    QVERIFY(m_user.isUsable());
    QVERIFY2(QFileInfo(m_binary).isExecutable(), "PARTSBOOK does not name the program");
}

void tst_PartsbookInput::init()
{
    if (!m_program || m_program->state() == QProcess::NotRunning)
        startProgram();
    if (!QTest::currentTestFailed())
        putPointerTo(home);
}

void tst_PartsbookInput::cleanup()
{
    m_user.releaseAll();
    if (QTest::currentTestFailed())
        stopProgram(); // what it still has to say is no concern of the next test
    else if (m_program->state() != QProcess::NotRunning)
        putPointerTo(corner);
    QCOMPARE(asText(newMessages()), asText({}));
}

void tst_PartsbookInput::cleanupTestCase() { stopProgram(); }

void tst_PartsbookInput::startProgram()
{
    stopProgram();
    m_folder.reset(new QTemporaryDir);
    m_program.reset(new QProcess);
    m_program->start(m_binary, {"--trace", m_folder->filePath("trace"), m_parts});
    QVERIFY(m_program->waitForStarted());
    QTRY_VERIFY((m_window = m_user.windowOfProcess(m_program->processId(), "Messages")));
    QTRY_VERIFY(m_user.hasFocus(m_window));
    QCOMPARE(m_user.sizeOf(m_window), QSize(640, 480));
    m_seen = 0;
    waitFor({"WM_SIZE  640 x 480"});
    putPointerTo(corner);
}

void tst_PartsbookInput::stopProgram()
{
    if (!m_program)
        return;
    m_program->kill();
    m_program->waitForFinished();
    m_program.reset();
    m_seen = inputMessages().size();
}

QStringList tst_PartsbookInput::trace() const
{
    QFile file(m_folder->filePath("trace"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
}

// Without timer and moves, which come in between as they please.
QStringList tst_PartsbookInput::inputMessages() const
{
    QStringList messages;
    for (const QString& message : trace()) {
        if (!message.startsWith("WM_TIMER") && !message.startsWith("WM_MOUSEMOVE"))
            messages += message;
    }
    return messages;
}

QString tst_PartsbookInput::lastMove() const
{
    const QStringList moves = trace().filter("WM_MOUSEMOVE");
    return moves.isEmpty() ? QString() : moves.last();
}

// The messages must come, and nothing else beside them. Polls fast, since the parts of a double click wait here.
void tst_PartsbookInput::waitFor(const QStringList& messages)
{
    (void)QTest::qWaitFor([&] { return newMessages() == messages; });
    QCOMPARE(asText(newMessages()), asText(messages));
    m_seen += messages.size();
}

void tst_PartsbookInput::act(const QString& action)
{
    const bool down = action.startsWith('+');
    const QString what = action.mid(1);
    if (action.startsWith('@'))
        m_user.movePointer(m_user.windowOrigin(m_window)
                           + QPoint(what.section(',', 0, 0).toInt(), what.section(',', 1, 1).toInt()));
    else if (what.startsWith("Button"))
        m_user.setButton(what.mid(6).toUInt(), down);
    else
        m_user.setNamedKey(qPrintable(what), down);
}

// Returns when the program knows of it, and so of everything that was before.
void tst_PartsbookInput::putPointerTo(const QString& place)
{
    act('@' + place);
    const QString move = QString("WM_MOUSEMOVE  (%1)").arg(QString(place).replace(",", ", "));
    (void)QTest::qWaitFor([&] { return lastMove() == move; });
    QCOMPARE(lastMove(), move);
}

// ------------------------------------------------------------------------------------------------------------- input

void tst_PartsbookInput::inputBecomesMessages_data()
{
    QTest::addColumn<Steps>("steps");
    const auto row = [](const char* name, const Steps& steps) { QTest::newRow(name) << steps; };

    row("left button",
        {{"+Button1", {"WM_LBUTTONDOWN  MK_LBUTTON  (300, 200)"}}, {"-Button1", {"WM_LBUTTONUP  (300, 200)"}}});
    row("right button",
        {{"+Button3", {"WM_RBUTTONDOWN  MK_RBUTTON  (300, 200)"}}, {"-Button3", {"WM_RBUTTONUP  (300, 200)"}}});
    row("middle button",
        {{"+Button2", {"WM_MBUTTONDOWN  MK_MBUTTON  (300, 200)"}}, {"-Button2", {"WM_MBUTTONUP  (300, 200)"}}});
    row("upper left corner",
        {{"@0,0 +Button1 -Button1", {"WM_LBUTTONDOWN  MK_LBUTTON  (0, 0)", "WM_LBUTTONUP  (0, 0)"}}});
    row("a release outside the window", {{"+Button1", {"WM_LBUTTONDOWN  MK_LBUTTON  (300, 200)"}},
                                         {"@660,-30 -Button1", {"WM_LBUTTONUP  (660, -30)"}}});
    row("left double click", {{"+Button1", {"WM_LBUTTONDOWN  MK_LBUTTON  (300, 200)"}},
                              {"-Button1", {"WM_LBUTTONUP  (300, 200)"}},
                              {"+Button1", {"WM_LBUTTONDBLCLK  MK_LBUTTON  (300, 200)"}},
                              {"-Button1", {"WM_LBUTTONUP  (300, 200)"}}});
    row("right double click", {{"+Button3", {"WM_RBUTTONDOWN  MK_RBUTTON  (300, 200)"}},
                               {"-Button3", {"WM_RBUTTONUP  (300, 200)"}},
                               {"+Button3", {"WM_RBUTTONDBLCLK  MK_RBUTTON  (300, 200)"}},
                               {"-Button3", {"WM_RBUTTONUP  (300, 200)"}}});
    row("middle double click", {{"+Button2", {"WM_MBUTTONDOWN  MK_MBUTTON  (300, 200)"}},
                                {"-Button2", {"WM_MBUTTONUP  (300, 200)"}},
                                {"+Button2", {"WM_MBUTTONDBLCLK  MK_MBUTTON  (300, 200)"}},
                                {"-Button2", {"WM_MBUTTONUP  (300, 200)"}}});
    row("two clicks at two places are no double click",
        {{"+Button1 -Button1", {"WM_LBUTTONDOWN  MK_LBUTTON  (300, 200)", "WM_LBUTTONUP  (300, 200)"}},
         {"@340,200 +Button1 -Button1", {"WM_LBUTTONDOWN  MK_LBUTTON  (340, 200)", "WM_LBUTTONUP  (340, 200)"}}});
    row("two buttons at a time", {{"+Button1", {"WM_LBUTTONDOWN  MK_LBUTTON  (300, 200)"}},
                                  {"+Button3", {"WM_RBUTTONDOWN  MK_LBUTTON | MK_RBUTTON  (300, 200)"}},
                                  {"-Button1", {"WM_LBUTTONUP  MK_RBUTTON  (300, 200)"}},
                                  {"-Button3", {"WM_RBUTTONUP  (300, 200)"}}});
    row("Shift and a button", {{"+Shift_L", {"WM_KEYDOWN  VK_SHIFT  MK_SHIFT"}},
                               {"+Button1", {"WM_LBUTTONDOWN  MK_LBUTTON | MK_SHIFT  (300, 200)"}},
                               {"-Button1", {"WM_LBUTTONUP  MK_SHIFT  (300, 200)"}},
                               {"-Shift_L", {"WM_KEYUP  VK_SHIFT"}}});
    row("Control and a button", {{"+Control_R", {"WM_KEYDOWN  VK_CONTROL  MK_CONTROL"}},
                                 {"+Button3", {"WM_RBUTTONDOWN  MK_RBUTTON | MK_CONTROL  (300, 200)"}},
                                 {"-Button3", {"WM_RBUTTONUP  MK_CONTROL  (300, 200)"}},
                                 {"-Control_R", {"WM_KEYUP  VK_CONTROL"}}});
    row("a button without a message", {{"+Button8 -Button8", {}}});

    row("wheel up", {{"+Button4 -Button4", {"WM_MOUSEWHEEL  +120  (300, 200)"}}});
    row("wheel down", {{"+Button5 -Button5", {"WM_MOUSEWHEEL  -120  (300, 200)"}}});
    row("the wheel does not tell of Control", {{"+Control_L", {"WM_KEYDOWN  VK_CONTROL  MK_CONTROL"}},
                                               {"+Button4 -Button4", {"WM_MOUSEWHEEL  +120  (300, 200)"}},
                                               {"-Control_L", {"WM_KEYUP  VK_CONTROL"}}});

    row("a letter", {{"+h", {"WM_KEYDOWN  VK 'H'", "WM_CHAR  'h'"}}, {"-h", {"WM_KEYUP  VK 'H'"}}});
    row("a capital", {{"+Shift_L", {"WM_KEYDOWN  VK_SHIFT  MK_SHIFT"}},
                      {"+h", {"WM_KEYDOWN  VK 'H'  MK_SHIFT", "WM_CHAR  'H'  MK_SHIFT"}},
                      {"-h", {"WM_KEYUP  VK 'H'  MK_SHIFT"}},
                      {"-Shift_L", {"WM_KEYUP  VK_SHIFT"}}});
    row("a capital, Shift released first", {{"+Shift_L", {"WM_KEYDOWN  VK_SHIFT  MK_SHIFT"}},
                                            {"+h", {"WM_KEYDOWN  VK 'H'  MK_SHIFT", "WM_CHAR  'H'  MK_SHIFT"}},
                                            {"-Shift_L", {"WM_KEYUP  VK_SHIFT"}},
                                            {"-h", {"WM_KEYUP  VK 'H'"}}});
    row("a digit", {{"+1", {"WM_KEYDOWN  VK '1'", "WM_CHAR  '1'"}}, {"-1", {"WM_KEYUP  VK '1'"}}});
    row("the sign above a digit has the digit's code",
        {{"+Shift_R", {"WM_KEYDOWN  VK_SHIFT  MK_SHIFT"}},
         {"+1", {"WM_KEYDOWN  VK '1'  MK_SHIFT", "WM_CHAR  '!'  MK_SHIFT"}},
         {"-1", {"WM_KEYUP  VK '1'  MK_SHIFT"}},
         {"-Shift_R", {"WM_KEYUP  VK_SHIFT"}}});
    row("both signs of a key have one code",
        {{"+semicolon", {"WM_KEYDOWN  VK_OEM_1", "WM_CHAR  ';'"}},
         {"-semicolon", {"WM_KEYUP  VK_OEM_1"}},
         {"+Shift_L", {"WM_KEYDOWN  VK_SHIFT  MK_SHIFT"}},
         {"+semicolon", {"WM_KEYDOWN  VK_OEM_1  MK_SHIFT", "WM_CHAR  ':'  MK_SHIFT"}},
         {"-semicolon", {"WM_KEYUP  VK_OEM_1  MK_SHIFT"}},
         {"-Shift_L", {"WM_KEYUP  VK_SHIFT"}}});
    row("Alt and a letter", {{"+Alt_L", {"WM_SYSKEYDOWN  VK_MENU  MK_ALT"}},
                             {"+x", {"WM_SYSKEYDOWN  VK 'X'  MK_ALT", "WM_SYSCHAR  'x'  MK_ALT"}},
                             {"-x", {"WM_SYSKEYUP  VK 'X'  MK_ALT"}},
                             {"-Alt_L", {"WM_KEYUP  VK_MENU"}}});
    row("Alt, released before the letter", {{"+Alt_L", {"WM_SYSKEYDOWN  VK_MENU  MK_ALT"}},
                                            {"+x", {"WM_SYSKEYDOWN  VK 'X'  MK_ALT", "WM_SYSCHAR  'x'  MK_ALT"}},
                                            {"-Alt_L", {"WM_KEYUP  VK_MENU"}},
                                            {"-x", {"WM_KEYUP  VK 'X'"}}});
    row("Control and a letter", {{"+Control_L", {"WM_KEYDOWN  VK_CONTROL  MK_CONTROL"}},
                                 {"+a", {"WM_KEYDOWN  VK 'A'  MK_CONTROL", "WM_CHAR  0x01  MK_CONTROL"}},
                                 {"-a", {"WM_KEYUP  VK 'A'  MK_CONTROL"}},
                                 {"-Control_L", {"WM_KEYUP  VK_CONTROL"}}});
    row("space", {{"+space", {"WM_KEYDOWN  VK_SPACE", "WM_CHAR  ' '"}}, {"-space", {"WM_KEYUP  VK_SPACE"}}});
    row("Return", {{"+Return", {"WM_KEYDOWN  VK_RETURN", "WM_CHAR  0x0D"}}, {"-Return", {"WM_KEYUP  VK_RETURN"}}});
    row("Escape", {{"+Escape", {"WM_KEYDOWN  VK_ESCAPE", "WM_CHAR  0x1B"}}, {"-Escape", {"WM_KEYUP  VK_ESCAPE"}}});
    row("Tab stays in the view", {{"+Tab", {"WM_KEYDOWN  VK_TAB", "WM_CHAR  0x09"}}, {"-Tab", {"WM_KEYUP  VK_TAB"}}});
    row("keys without a character", {{"+F5", {"WM_KEYDOWN  VK_F5"}},
                                     {"-F5", {"WM_KEYUP  VK_F5"}},
                                     {"+Left", {"WM_KEYDOWN  VK_LEFT"}},
                                     {"-Left", {"WM_KEYUP  VK_LEFT"}}});
    row("a key without a code", {{"+Super_L", {"WM_KEYDOWN  no VK"}}, {"-Super_L", {"WM_KEYUP  no VK"}}});
}

void tst_PartsbookInput::inputBecomesMessages()
{
    QFETCH(const Steps, steps);
    for (const Step& step : steps) {
        for (const QString& action : step.actions.split(' '))
            act(action);
        waitFor(step.messages);
        if (QTest::currentTestFailed())
            return;
    }
}

void tst_PartsbookInput::eachMoveIsAMessage()
{
    const int before = trace().size();
    for (const QString place : {"310,210", "320,220", "639,5"})
        putPointerTo(place);
    const QStringList expected{"WM_MOUSEMOVE  (310, 210)", "WM_MOUSEMOVE  (320, 220)", "WM_MOUSEMOVE  (639, 5)"};
    QCOMPARE(asText(trace().mid(before).filter("WM_MOUSEMOVE")), asText(expected));
}

void tst_PartsbookInput::moveWithAButtonHeld()
{
    act("+Button1");
    waitFor({"WM_LBUTTONDOWN  MK_LBUTTON  (300, 200)"});
    act("@330,230");
    QTRY_COMPARE(lastMove(), QString("WM_MOUSEMOVE  MK_LBUTTON  (330, 230)"));
    act("-Button1");
    waitFor({"WM_LBUTTONUP  (330, 230)"});
}

void tst_PartsbookInput::aNewSizeIsAMessage()
{
    m_user.resize(m_window, {600, 410});
    waitFor({"WM_SIZE  600 x 410"});
    m_user.resize(m_window, {640, 480});
    waitFor({"WM_SIZE  640 x 480"});
}

void tst_PartsbookInput::theTimerRuns()
{
    const int before = trace().size();
    QTRY_COMPARE(trace().mid(before).filter(QRegularExpression("^WM_TIMER  id \\d+$")).size(), 2);
}

void tst_PartsbookInput::traceThatCannotBeWritten()
{
    QProcess program;
    program.start(m_binary, {"--trace", m_folder->path(), m_parts});
    QVERIFY(program.waitForFinished(5000));
    QCOMPARE(program.readAllStandardError(), "partsbook: cannot write " + m_folder->path().toUtf8() + '\n');
    QCOMPARE(program.exitCode(), 1);
    QTRY_VERIFY(m_user.hasFocus(m_window)); // the other window no longer lies above
}

void tst_PartsbookInput::closingTheMainWindowEndsTheProgram()
{
    m_user.close(m_user.windowOfProcess(m_program->processId(), "Parts Book"));
    QVERIFY(m_program->waitForFinished(5000));
    QCOMPARE(m_program->readAllStandardError(), QByteArray());
    QCOMPARE(m_program->exitStatus(), QProcess::NormalExit);
    QCOMPARE(m_program->exitCode(), 0);
}

XE_GUILESS_TEST(tst_PartsbookInput)
#include "tst_partsbookinput.moc"
