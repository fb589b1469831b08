// The real program under a user's hands: its questions for files, a folder, a colour and a printer.

#include "samplelines.h"
#include "testclass.h"
#include "xuser.h"

#include <QDate>
#include <QProcess>
#include <QTemporaryDir>

namespace {

const QByteArray shortScrew = "FA-1,Screw 螺钉,Fastener,华丰,bought,1,5,0.06,yes,\n";

} // namespace

class tst_PartsbookDialogs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void openAnotherBook();
    void saveAsAnArchive();
    void importSeveralBooks();
    void importOfNoBook();
    void printToAFile();
    void backUp();
    void colourOfShortParts();
    void cancelledQuestions();

private:
    void start();
    /// Waits until the window of this title has the keyboard.
    void comesUp(const QString& title);
    void ask(const char* keys, const QString& title);
    void answer(const char* text);
    /// Closes the program, which must not ask to save.
    void end();
    void quote() { m_user.press("Shift_L apostrophe"); }
    void write(const char* name, const QByteArray& text) const;
    QByteArray read(const QString& name) const;
    QString path(const QString& name) const { return m_folder->filePath(name); }
    bool screenHas(unsigned long color) const;

    XUser m_user;
    QScopedPointer<QTemporaryDir> m_folder;
    QProcess m_program;
    WId m_window = 0; // the one that came up last
};

void tst_PartsbookDialogs::initTestCase()
{
    QVERIFY(m_user.isUsable());
    QVERIFY2(QFileInfo(qEnvironmentVariable("PARTSBOOK")).isExecutable(), "PARTSBOOK does not name the program");
}

void tst_PartsbookDialogs::init()
{
    m_folder.reset(new QTemporaryDir);
    write("parts.csv", headingLine + shortScrew);
    write("other.csv", headingLine + bearing);
    write("third.csv", headingLine + idleMotor);
    m_user.movePointer({1270, 1020});
}

void tst_PartsbookDialogs::cleanup()
{
    m_user.releaseAll();
    if (m_program.state() != QProcess::NotRunning) {
        m_program.kill();
        m_program.waitForFinished();
    }
}

// At home in the folder, where a name without a path is printed to.
void tst_PartsbookDialogs::start()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_LOGGING_RULES", "qt.qpa.xcb=false");
    environment.insert("HOME", m_folder->path());
    m_program.setProcessEnvironment(environment);
    m_program.start(qEnvironmentVariable("PARTSBOOK"), {path("parts.csv")});
    QVERIFY(m_program.waitForStarted());
    comesUp("Parts Book");
}

void tst_PartsbookDialogs::comesUp(const QString& title)
{
    const auto hasCome = [&] {
        m_window = m_user.windowOfProcess(m_program.processId(), title);
        return m_window && m_user.hasFocus(m_window);
    };
    (void)QTest::qWaitFor(hasCome, 10000);
    QVERIFY2(hasCome(), qPrintable("missing: " + title));
}

void tst_PartsbookDialogs::ask(const char* keys, const QString& title)
{
    for (const QString& chord : QString::fromLatin1(keys).split(", "))
        m_user.press(chord);
    comesUp(title);
}

void tst_PartsbookDialogs::answer(const char* text)
{
    m_user.type(text);
    m_user.press("Return");
    comesUp("Parts Book");
}

void tst_PartsbookDialogs::end()
{
    m_user.close(m_window);
    QVERIFY(m_program.waitForFinished(5000));
    QCOMPARE(m_program.exitCode(), 0);
    QCOMPARE(m_program.readAllStandardError(), QByteArray());
}

void tst_PartsbookDialogs::write(const char* name, const QByteArray& text) const
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

QByteArray tst_PartsbookDialogs::read(const QString& name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool tst_PartsbookDialogs::screenHas(unsigned long color) const
{
    const QPoint origin = m_user.windowOrigin(m_window);
    for (int y = 60; y < 200; ++y) {
        for (int x = 200; x < 400; ++x) { // the numbers of the parts
            if ((m_user.pixelAt(origin + QPoint(x, y)) & 0xFFFFFF) == color)
                return true;
        }
    }
    return false;
}

// --------------------------------------------------------------------------------------------------------------- files

void tst_PartsbookDialogs::openAnotherBook()
{
    start();
    ask("Control_L o", "Open");
    answer("other.csv");
    comesUp("Parts Book 零件簿 - other.csv");
    end();
}

void tst_PartsbookDialogs::saveAsAnArchive()
{
    start();
    ask("Control_L Shift_L s", "Save As");
    answer("book.parts");
    comesUp("Parts Book 零件簿 - book.parts");
    QVERIFY(read("book.parts").size() > 20);
    QCOMPARE(read("parts.csv"), headingLine + shortScrew);
    end();
}

void tst_PartsbookDialogs::importSeveralBooks()
{
    start();
    ask("Control_L i", "Import");
    quote();
    m_user.type("third.csv");
    quote();
    m_user.press("space");
    quote();
    m_user.type("other.csv");
    quote();
    answer("");
    m_user.press("Control_L s");
    QTRY_COMPARE(read("parts.csv"), headingLine + shortScrew + idleMotor + bearing);
    end();
}

void tst_PartsbookDialogs::importOfNoBook()
{
    write("broken.parts", "no archive");
    start();
    ask("Control_L i", "Import");
    m_user.type("broken.parts");
    m_user.press("Return");
    comesUp("严重错误");
    answer("");
    end();
    QCOMPARE(read("parts.csv"), headingLine + shortScrew);
}

void tst_PartsbookDialogs::backUp()
{
    QDir(m_folder->path()).mkdir("copies");
    start();
    ask("Control_L o", "Open"); // the dialog for folders begins where this one was
    m_user.press("Escape");
    comesUp("Parts Book");
    ask("Alt_L f, b", "Back Up");
    answer("copies");
    QTRY_COMPARE(read("copies/parts " + QDate::currentDate().toString(Qt::ISODate) + ".csv"), headingLine + shortScrew);
    end();
}

// ------------------------------------------------------------------------------------------------- printer and colour

void tst_PartsbookDialogs::printToAFile()
{
    start();
    ask("Control_L p", "Print");
    m_user.press("Alt_L f");
    m_user.press("Control_L a");
    answer("out.pdf");
    QTRY_VERIFY(read("out.pdf").trimmed().endsWith("%%EOF"));
    QVERIFY(read("out.pdf").startsWith("%PDF-1."));
    QCOMPARE(read("out.pdf").count("/Type /Page\n"), 1);
    end();
}

void tst_PartsbookDialogs::colourOfShortParts()
{
    constexpr unsigned long green = 0x107830;
    write("parts.csv", headingLine + bearing + shortScrew); // the second is not selected
    start();
    QVERIFY(!screenHas(green));
    ask("Alt_L v, c", "Select Color");
    m_user.press("Alt_L h");
    m_user.press("Control_L a");
    m_user.press("Shift_L 3"); // "#"
    answer("107830");
    QTRY_VERIFY(screenHas(green));
    end();
    start();
    QTRY_VERIFY(screenHas(green)); // it is kept
    end();
}

void tst_PartsbookDialogs::cancelledQuestions()
{
    const QStringList before = QDir(m_folder->path()).entryList(QDir::Files);
    start();
    const QPair<const char*, const char*> questions[] = {{"Control_L o", "Open"},   {"Control_L Shift_L s", "Save As"},
                                                         {"Control_L i", "Import"}, {"Control_L p", "Print"},
                                                         {"Alt_L f, b", "Back Up"}, {"Alt_L v, c", "Select Color"}};
    for (const auto& [keys, title] : questions) {
        ask(keys, title);
        m_user.press("Escape");
        comesUp("Parts Book 零件簿 - parts.csv");
    }
    end();
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), before);
}

XE_GUILESS_TEST(tst_PartsbookDialogs)
#include "tst_partsbookdialogs.moc"
