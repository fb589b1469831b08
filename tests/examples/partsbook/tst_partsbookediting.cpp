// The real program under a user's hands: what keyboard and mouse do to the file, byte for byte.

#include "samplelines.h"
#include "testclass.h"
#include "xuser.h"

#include <QProcess>
#include <QTemporaryDir>

namespace {

const QByteArray ballBearing =
    "BE-6204,Ball bearing 6204-2RS 深沟球轴承,Bearing 轴承,Wafangdian 瓦轴,bought,126,60,3.65,yes,\n";

} // namespace

class tst_PartsbookEditing : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void oneFieldAfterARefusal();
    void everyControl();
    void deletionOfThePartUnderTheMouse();
    void deletionByTheToolBar();
    void deletionOfThePartWhoseBarIsClicked();
    void unsavedChangesAreSavedOnClosing();
    void badLinesStay();
    void aFileThatIsNotThere();

private:
    void start();
    /// Waits until the window of this title has the keyboard.
    void comesUp(const QString& title);
    void waitForEnd(int exitCode);
    void openSearch();
    bool isSearchOpen() const;
    /// Where the chart has a bar of this colour, (0, 0) as long as there is none.
    QPoint barOf(unsigned long color) const;
    QPoint toolButtonOf(unsigned long color) const;
    void openBearing();
    /// The file becomes what it was, but for the line of the bearing.
    void becomesOriginalBut(const QByteArray& line);

    XUser m_user;
    QByteArray m_original = contentOf(qEnvironmentVariable("PARTS"));
    QScopedPointer<QTemporaryDir> m_folder;
    QString m_parts;
    QProcess m_program;
    WId m_window = 0; // the one that came up last
};

void tst_PartsbookEditing::initTestCase()
{
    QVERIFY(m_user.isUsable());
    QVERIFY2(QFileInfo(qEnvironmentVariable("PARTSBOOK")).isExecutable(), "PARTSBOOK does not name the program");
    QCOMPARE(m_original.count(ballBearing), 1);
}

void tst_PartsbookEditing::init()
{
    m_folder.reset(new QTemporaryDir);
    m_parts = m_folder->filePath("parts.csv");
    QFile file(m_parts);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(m_original), qint64(m_original.size()));
}

void tst_PartsbookEditing::cleanup()
{
    m_user.releaseAll();
    if (m_program.state() != QProcess::NotRunning) {
        m_program.kill();
        m_program.waitForFinished();
    }
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList("parts.csv"));
}

void tst_PartsbookEditing::start()
{
    // Qt complains of windows of its own that are gone sooner than it is done with them.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_LOGGING_RULES", "qt.qpa.xcb=false");
    m_program.setProcessEnvironment(environment);
    m_program.start(qEnvironmentVariable("PARTSBOOK"), {m_parts});
    QVERIFY(m_program.waitForStarted());
}

void tst_PartsbookEditing::comesUp(const QString& title)
{
    const auto hasCome = [&] {
        m_window = m_user.windowOfProcess(m_program.processId(), title);
        return m_window && m_user.hasFocus(m_window);
    };
    (void)QTest::qWaitFor(hasCome);
    QVERIFY2(hasCome(), qPrintable("missing: " + title));
}

void tst_PartsbookEditing::waitForEnd(int exitCode)
{
    QVERIFY(m_program.state() == QProcess::NotRunning || m_program.waitForFinished(5000));
    QCOMPARE(m_program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(m_program.exitCode(), exitCode);
    QCOMPARE(m_program.readAllStandardError(), QByteArray());
}

void tst_PartsbookEditing::openSearch()
{
    comesUp("Parts Book");
    m_user.press("Control_L f");
    QTRY_VERIFY(isSearchOpen());
}

// Whether the grey of the search bar has taken the place of the last rows.
bool tst_PartsbookEditing::isSearchOpen() const
{
    const QPoint place = m_user.windowOrigin(m_window) + QPoint(700, m_user.sizeOf(m_window).height() - 60);
    return (m_user.pixelAt(place) & 0xFFFFFF) == 0xEFEFEF;
}

// By the search bar, which gives the keyboard back to the table when it is closed.
void tst_PartsbookEditing::openBearing()
{
    openSearch();
    m_user.type("be-6204");
    m_user.press("Return");
    m_user.press("Escape");
    m_user.press("Return");
    comesUp("Edit Part");
}

void tst_PartsbookEditing::becomesOriginalBut(const QByteArray& line)
{
    const int before = m_original.indexOf(ballBearing);
    const int behind = m_original.size() - before - ballBearing.size();
    const auto present = [&] { return contentOf(m_parts); };
    (void)QTest::qWaitFor([&] { return present() != m_original; });
    QCOMPARE(QString(present().mid(before, present().size() - before - behind)), QString(line));
    QCOMPARE(present().left(before), m_original.left(before));
    QCOMPARE(present().right(behind), m_original.right(behind));
}

void tst_PartsbookEditing::oneFieldAfterARefusal()
{
    start();
    openBearing();
    m_user.press("Alt_L y"); // the page of the supply
    m_user.press("Alt_L s");
    m_user.type("100000");
    m_user.press("Alt_L i"); // away from it
    m_user.press("Return");
    comesUp("警告");
    m_user.press("Return");
    comesUp("Edit Part");
    m_user.type("250"); // in place of what was refused, which is selected
    m_user.press("Return");
    comesUp("Parts Book");
    QCOMPARE(contentOf(m_parts), m_original);
    m_user.press("Control_L s");
    becomesOriginalBut(QByteArray(ballBearing).replace(",126,", ",250,"));
    m_user.close(m_window);
    waitForEnd(0);
}

void tst_PartsbookEditing::everyControl()
{
    QVERIFY(m_user.provideKey(0x1000000 | 0x8F74)); // 轴
    start();
    openBearing();
    m_user.press("Control_L a");
    m_user.type("be-9");
    m_user.press("Alt_L a");
    m_user.press("End");
    m_user.typeKey(0x1000000 | 0x8F74);
    m_user.press("Alt_L k");
    m_user.press("Down");
    m_user.press("Alt_L r");
    m_user.type("left, right");
    m_user.press("Tab");
    m_user.press("space");   // out of use
    m_user.press("Shift_L"); // else the next key is a repetition
    m_user.press("space");   // no more is ordered
    m_user.press("Alt_L f");
    m_user.type("be-9.png");
    m_user.press("Alt_L y"); // the page of the supply
    m_user.press("Alt_L l");
    m_user.press("Home"); // the first supplier
    m_user.press("Tab");
    m_user.press("Down");
    m_user.press("Down"); // the last of the sources
    m_user.press("Alt_L s");
    m_user.type("7");
    m_user.press("Alt_L m");
    m_user.press("End");
    m_user.press("Tab");
    m_user.press("Down"); // one less, in the spin box
    m_user.press("Alt_L p");
    m_user.type("0.5");
    m_user.press("Alt_L i"); // the page of the history
    m_user.press("space");   // there is a delivery
    m_user.press("Tab");
    m_user.type("20260331");
    m_user.press("Return");
    comesUp("Parts Book");
    m_user.press("Control_L s");
    becomesOriginalBut("be-9,Ball bearing 6204-2RS 深沟球轴承轴,Seal 密封件,Dongtai 东泰密封,"
                       "customer,7,499,0.50,ending,\"left, right\",2026-03-31,be-9.png\n");
}

// Which of the rows that is depends on the font.
void tst_PartsbookEditing::deletionOfThePartUnderTheMouse()
{
    start();
    openSearch();
    m_user.press("Escape");
    QTRY_VERIFY(!isSearchOpen());
    const QPoint place = m_user.windowOrigin(m_window) + QPoint(300, 400);
    const unsigned long before = m_user.pixelAt(place);
    m_user.movePointer(place);
    m_user.clickButton(1);
    QTRY_VERIFY(m_user.pixelAt(place) != before); // selected
    m_user.press("Delete");
    comesUp("疑问");
    m_user.press("space"); // the first button: yes
    comesUp("Parts Book");
    m_user.press("Control_L s");
    QTRY_VERIFY(contentOf(m_parts) != m_original);
    const QByteArrayList left = contentOf(m_parts).split('\n');
    QByteArrayList lines = m_original.split('\n');
    int row = 0;
    while (row < left.size() && left.at(row) == lines.at(row))
        ++row;
    QVERIFY(row > 6 && row < 20);
    lines.removeAt(row);
    QCOMPARE(left, lines);
}

QPoint tst_PartsbookEditing::barOf(unsigned long color) const
{
    const QSize size = m_user.sizeOf(m_window);
    const QPoint column = m_user.windowOrigin(m_window) + QPoint(size.width() - 212 + 30, 0);
    for (int y = 40; y < size.height(); y += 4) {
        if ((m_user.pixelAt(column + QPoint(0, y)) & 0xFFFFFF) == color)
            return column + QPoint(0, y);
    }
    return {};
}

// A place in the picture of the rightmost button that has the colour.
QPoint tst_PartsbookEditing::toolButtonOf(unsigned long color) const
{
    const QPoint origin = m_user.windowOrigin(m_window);
    for (int x = 200; x > 0; x -= 2) {
        for (int y = 20; y < 80; y += 2) {
            if ((m_user.pixelAt(origin + QPoint(x, y)) & 0xFFFFFF) == color)
                return origin + QPoint(x, y);
        }
    }
    return {};
}

void tst_PartsbookEditing::deletionByTheToolBar()
{
    constexpr unsigned long redCross = 0xD0342C;
    start();
    comesUp("Parts Book");
    QPoint button;
    QTRY_VERIFY(!(button = toolButtonOf(redCross)).isNull());
    m_user.movePointer(button);
    m_user.clickButton(1);
    comesUp("疑问");
    m_user.press("space"); // the first button: yes
    comesUp("Parts Book");
    m_user.press("Control_L s");
    QTRY_VERIFY(contentOf(m_parts) != m_original);
    QByteArrayList lines = m_original.split('\n');
    lines.removeAt(1); // the first part
    QCOMPARE(contentOf(m_parts).split('\n'), lines);
}

void tst_PartsbookEditing::deletionOfThePartWhoseBarIsClicked()
{
    constexpr unsigned long bearings = 0x91D752; // the second kind in the file
    start();
    comesUp("Parts Book");
    QPoint bar;
    QTRY_VERIFY(!(bar = barOf(bearings)).isNull());
    m_user.movePointer(bar);
    m_user.clickButton(1);
    QTRY_COMPARE(m_user.pixelAt(bar) & 0xFFFFFF, bearings ^ 0xFFFFFF); // marked
    m_user.press("Delete");
    comesUp("疑问");
    m_user.press("space"); // the first button: yes
    comesUp("Parts Book");
    m_user.press("Control_L s");
    QTRY_VERIFY(contentOf(m_parts) != m_original);
    QByteArrayList lines = m_original.split('\n');
    const auto isBearing = [](const QByteArray& line) { return line.startsWith("BE-"); };
    lines.erase(std::find_if(lines.begin(), lines.end(), isBearing));
    QCOMPARE(contentOf(m_parts).split('\n'), lines);
}

void tst_PartsbookEditing::unsavedChangesAreSavedOnClosing()
{
    start();
    openBearing();
    m_user.press("Alt_L y");
    m_user.press("Alt_L p");
    m_user.type("4");
    m_user.press("Return");
    comesUp("Parts Book");
    const WId book = m_window;
    m_user.close(book);
    comesUp("疑问");
    m_user.press("Escape"); // neither: the window stays
    comesUp("Parts Book");
    QCOMPARE(contentOf(m_parts), m_original);
    m_user.close(book);
    comesUp("疑问");
    m_user.press("Return"); // yes
    waitForEnd(0);
    becomesOriginalBut(QByteArray(ballBearing).replace(",3.65,", ",4.00,"));
}

void tst_PartsbookEditing::badLinesStay()
{
    m_original = "number,name\r\n\xFF\xFE\r\n" + QByteArray(ballBearing).replace('\n', "\r\n") + "\"open";
    init();
    start();
    comesUp("警告");
    m_user.press("Return");
    comesUp("Parts Book");
    m_user.press("Return");
    comesUp("Edit Part");
    m_user.press("Alt_L y");
    m_user.press("Alt_L s");
    m_user.type("7");
    m_user.press("Return");
    comesUp("Parts Book");
    m_user.press("Control_L s");
    QTRY_COMPARE(contentOf(m_parts), QByteArray(m_original).replace(",126,", ",7,"));
    m_original = contentOf(qEnvironmentVariable("PARTS"));
}

void tst_PartsbookEditing::aFileThatIsNotThere()
{
    const QString present = m_parts;
    m_parts = m_folder->filePath("missing.csv");
    start();
    comesUp("严重错误");
    m_user.press("Return");
    waitForEnd(1);
    QCOMPARE(contentOf(present), m_original);
}

XE_GUILESS_TEST(tst_PartsbookEditing)
#include "tst_partsbookediting.moc"
