// A book of parts and its file: what the user has not changed is never lost, and a file is written whole or not at all.

#include "partsbook.h"
#include "samplelines.h"
#include "testclass.h"

#include <QTemporaryDir>

#include <csignal>
#include <sys/resource.h>

namespace {

const QByteArray quotedBearing = "BE-2,\"Bearing, small\",Bearing,瓦轴,made,3,5,12.5,no,\"top \"\"A\"\"\"\n";
const QByteArray freeMotor = "EL-3,Motor,Electrical,Kessler,customer,0,0,0.00,yes,heavy\n";

// While it lives, this process can write no file beyond a size.
class SmallFiles
{
public:
    explicit SmallFiles(int bytes)
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = static_cast<rlim_t>(bytes);
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~SmallFiles()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    Q_DISABLE_COPY_MOVE(SmallFiles)

private:
    rlimit m_before{};
    void (*m_handler)(int) = std::signal(SIGXFSZ, SIG_IGN); // a failed write, not the end of the process
};

} // namespace

class tst_PartsbookFile : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void theShippedFile();
    void isSavedAsItWas_data();
    void isSavedAsItWas();
    void badLinesAreTold();
    void badLinesKeepTheirPlaces();
    void aChangeChangesItsLine();
    void aChangedLineKeepsItsEnd();
    void noChangeIsNone();
    void newPartsComeLast_data();
    void newPartsComeLast();
    void removal();
    void find();
    void findAll();
    void namesOfKindsAndSuppliers();
    void renaming();
    void aLineOfAnEarlierVersion();

    void cannotBeRead_data();
    void cannotBeRead();
    void cannotBeWritten_data();
    void cannotBeWritten();
    void noRoomForTheWholeFile();
    void savingKeepsALink();

private:
    QString path(const char* name) const { return m_folder->filePath(name); }
    void write(const QByteArray& text, const char* name = "parts.csv");
    QByteArray content(const char* name = "parts.csv") const;
    bool load(const QByteArray& text);
    QByteArray saved();

    QScopedPointer<QTemporaryDir> m_folder;
    PartsBook m_book;
};

void tst_PartsbookFile::init()
{
    m_folder.reset(new QTemporaryDir);
    QVERIFY(m_folder->isValid());
    m_book = PartsBook();
}

void tst_PartsbookFile::write(const QByteArray& text, const char* name)
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(text), qint64(text.size()));
}

QByteArray tst_PartsbookFile::content(const char* name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

bool tst_PartsbookFile::load(const QByteArray& text)
{
    write(text);
    return m_book.load(path("parts.csv"));
}

QByteArray tst_PartsbookFile::saved() { return m_book.save() ? content() : QByteArray("cannot be saved"); }

// ------------------------------------------------------------------------------------------------------ what is kept

void tst_PartsbookFile::theShippedFile()
{
    QVERIFY(m_book.load(qEnvironmentVariable("PARTS")));
    QCOMPARE(m_book.count(), 200);
    QVERIFY(m_book.badLines().empty());
    QSet<QString> numbers;
    for (int row = 0; row < m_book.count(); ++row)
        numbers += XeQString(m_book.part(row).number);
    QCOMPARE(numbers.size(), 200);
}

void tst_PartsbookFile::isSavedAsItWas_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("parts");
    QTest::addColumn<int>("badLines");
    const auto row = [](const char* name, const QByteArray& text, int parts, int badLines) {
        QTest::newRow(name) << text << parts << badLines;
    };
    row("an empty file", "", 0, 0);
    row("a heading alone", headingLine, 0, 0);
    row("heading and parts", headingLine + screw + quotedBearing, 2, 0);
    row("parts without a heading", screw + quotedBearing, 2, 0);
    row("a byte order mark", "\xEF\xBB\xBF" + headingLine + screw, 1, 0);
    row("a byte order mark without a heading", "\xEF\xBB\xBF" + screw, 1, 0);
    row("CR LF", QByteArray(headingLine + screw + quotedBearing).replace('\n', "\r\n"), 2, 0);
    row("no line end at the end", (headingLine + screw).chopped(1), 1, 0);
    row("blank lines", headingLine + "\n  \n" + screw + "\n\n" + quotedBearing + "\n", 2, 0);
    row("other ways to write the same", "FA-1,\"Screw\",,,BOUGHT,010,5,0.0600,Yes,\n", 1, 0);
    row("a heading further down is a bad line", screw + headingLine, 1, 1);
    row("bad lines everywhere", "no part\n" + screw + "\xFF\xFE\n\"open\n" + quotedBearing + "too,few\n", 2, 4);
    row("bytes of any kind", QByteArray("\0\1\2\n\xC3\x28\r\r\n\"\"\"", 12) + screw, 0, 3);
}

void tst_PartsbookFile::isSavedAsItWas()
{
    QFETCH(const QByteArray, text);
    QVERIFY(load(text));
    QTEST(m_book.count(), "parts");
    QTEST(static_cast<int>(m_book.badLines().size()), "badLines");
    QVERIFY(!m_book.isModified());
    QCOMPARE(saved(), text);
}

void tst_PartsbookFile::badLinesAreTold()
{
    QVERIFY(load(headingLine + screw + "too,few\n" + "\"two\nlines\",x\n" + "FA-9,x,y,z,bought,many,5,1,yes,\n"
                 + quotedBearing + "\"open\n"));
    QCOMPARE(m_book.count(), 2);
    const auto& bad = m_book.badLines();
    QCOMPARE(bad.size(), std::size_t(4));
    QCOMPARE(bad[0].line, 3);
    QCOMPARE(bad[0].problem, CString_X(L"2 fields in place of 10 to 12"));
    QCOMPARE(bad[1].line, 4);
    QCOMPARE(bad[1].problem, CString_X(L"2 fields in place of 10 to 12"));
    QCOMPARE(bad[2].line, 6);
    QCOMPARE(bad[2].problem, CString_X(L"stock: no whole number from 0 to 99999"));
    QCOMPARE(bad[3].line, 8);
    QCOMPARE(bad[3].problem, CString_X(L"a quotation mark is not closed"));
}

void tst_PartsbookFile::badLinesKeepTheirPlaces()
{
    QVERIFY(load(headingLine + "bad 1\n" + screw + "bad 2\n" + quotedBearing + "bad 3\n"));
    Part part = m_book.part(0);
    part.stock = 7;
    m_book.change(0, part);
    m_book.remove(1);
    m_book.add(part);
    const QByteArray changed = "FA-1,Screw 螺钉,Fastener,华丰,bought,7,5,0.06,yes,\n";
    QCOMPARE(saved(), headingLine + "bad 1\n" + changed + "bad 2\nbad 3\n" + changed);
}

// ---------------------------------------------------------------------------------------------------------- changes

void tst_PartsbookFile::aChangeChangesItsLine()
{
    QVERIFY(load(headingLine + screw + quotedBearing + freeMotor));
    Part part = m_book.part(1);
    part.name = L"Bearing \"6204\", 轴承";
    part.source = Part::FromCustomer;
    part.inUse = TRUE;
    m_book.change(1, part);
    QVERIFY(m_book.isModified());
    QCOMPARE(saved(),
             headingLine + screw
                 + "BE-2,\"Bearing \"\"6204\"\", 轴承\",Bearing,瓦轴,customer,3,5,12.50,yes,\"top \"\"A\"\"\"\n"
                 + freeMotor);
    QVERIFY(!m_book.isModified());
}

void tst_PartsbookFile::aChangedLineKeepsItsEnd()
{
    QVERIFY(load(screw.chopped(1) + "\r\n" + freeMotor.chopped(1)));
    for (int row = 0; row < 2; ++row) {
        Part part = m_book.part(row);
        part.remark = L"new";
        m_book.change(row, part);
    }
    QCOMPARE(saved(), QByteArray("FA-1,Screw 螺钉,Fastener,华丰,bought,10,5,0.06,yes,new\r\n"
                                 "EL-3,Motor,Electrical,Kessler,customer,0,0,0.00,yes,new"));
}

void tst_PartsbookFile::noChangeIsNone()
{
    QVERIFY(load(quotedBearing));
    m_book.change(0, Part(m_book.part(0)));
    QVERIFY(!m_book.isModified());
    QCOMPARE(saved(), quotedBearing); // its price is written otherwise than it would be now
}

void tst_PartsbookFile::newPartsComeLast_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    const QByteArray added = "N-1,,,,bought,0,0,0.00,yes,";

    QTest::newRow("in an empty file") << QByteArray() << added + "\n";
    QTest::newRow("behind the last part") << screw << screw + added + "\n";
    QTest::newRow("behind a last line without an end") << screw.chopped(1) << screw + added + "\n";
    QTest::newRow("behind a bad line") << screw + "bad\n" << screw + "bad\n" + added + "\n";
    QTest::newRow("behind a bad line without an end") << screw + "bad" << screw + "bad\n" + added + "\n";
    QTest::newRow("behind a heading without an end") << headingLine.chopped(1) << headingLine + added + "\n";
    QTest::newRow("with CR LF") << QByteArray("bad\r\nbad") << "bad\r\nbad\r\n" + added + "\r\n";
}

void tst_PartsbookFile::newPartsComeLast()
{
    QFETCH(const QByteArray, before);
    QFETCH(const QByteArray, after);
    QVERIFY(load(before));
    Part part;
    part.number = L"N-1";
    m_book.add(part);
    QVERIFY(m_book.isModified());
    QVERIFY(m_book.part(m_book.count() - 1) == part);
    QCOMPARE(saved(), after);
}

void tst_PartsbookFile::removal()
{
    QVERIFY(load(headingLine + screw + quotedBearing + freeMotor));
    m_book.remove(1);
    QVERIFY(m_book.isModified());
    QCOMPARE(m_book.count(), 2);
    QCOMPARE(saved(), headingLine + screw + freeMotor);
    m_book.remove(0);
    m_book.remove(0);
    QCOMPARE(m_book.count(), 0);
    QCOMPARE(saved(), headingLine);
}

void tst_PartsbookFile::find()
{
    QVERIFY(load(screw + quotedBearing + freeMotor));
    QCOMPARE(m_book.find(L"motor", false, 0), 2);
    QCOMPARE(m_book.find(L"motor", true, 0), -1);
    QCOMPARE(m_book.find(L"r", false, 0), 1);
    QCOMPARE(m_book.find(L"r", false, 2), 0);
    QCOMPARE(m_book.find(L"screw", false, 0), 0); // all the way round
    QCOMPARE(m_book.find(L"screw", false, -1), 0);
    QCOMPARE(m_book.find(L"no such thing", false, 0), -1);
    QCOMPARE(PartsBook().find(L"x", false, -1), -1);
}

void tst_PartsbookFile::findAll()
{
    QVERIFY(load(screw + quotedBearing + freeMotor));
    QVERIFY(m_book.findAll(L"e", false) == (std::vector<int>{0, 1, 2}));
    QVERIFY(m_book.findAll(L"MOTOR", false) == std::vector<int>{2});
    QVERIFY(m_book.findAll(L"MOTOR", true).empty());
}

void tst_PartsbookFile::namesOfKindsAndSuppliers()
{
    QVERIFY(load(freeMotor + screw + screw + "X-1,,,,made,0,0,0.00,yes,\n" + quotedBearing));
    QVERIFY(m_book.namesOf(&Part::kind) == (std::vector<CString_X>{L"Electrical", L"Fastener", L"Bearing"}));
    QVERIFY(m_book.namesOf(&Part::supplier) == (std::vector<CString_X>{L"Kessler", L"华丰", L"瓦轴"}));
    QVERIFY(PartsBook().namesOf(&Part::kind).empty());
}

void tst_PartsbookFile::renaming()
{
    QVERIFY(load(screw + freeMotor + screw));
    m_book.rename(&Part::kind, L"Nothing", L"Something");
    QVERIFY(!m_book.isModified());
    m_book.rename(&Part::kind, L"Fastener", L"Bolt");
    m_book.rename(&Part::supplier, L"Kessler", L"K");
    const QByteArray bolt = QByteArray(screw).replace("Fastener", "Bolt");
    QCOMPARE(saved(), bolt + QByteArray(freeMotor).replace("Kessler", "K") + bolt);
}

// A changed line gets the fields that such a file does not have only when there is something in them.
void tst_PartsbookFile::aLineOfAnEarlierVersion()
{
    QVERIFY(load(screw + freeMotor));
    Part part = m_book.part(0);
    part.stock = 11;
    m_book.change(0, part);
    part = m_book.part(1);
    part.delivered = L"2026-03-31";
    m_book.change(1, part);
    QCOMPARE(saved(),
             QByteArray(screw).replace(",10,", ",11,") + QByteArray(freeMotor).replace("heavy", "heavy,2026-03-31"));
}

// ---------------------------------------------------------------------------------------------------------- failures

void tst_PartsbookFile::cannotBeRead_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("error");

    QTest::newRow("a file that is not there") << "missing.csv"
                                              << "No such file or directory";
    QTest::newRow("a folder") << "."
                              << "it is not a file";
    QTest::newRow("a device") << "/dev/zero"
                              << "it is not a file";
    QTest::newRow("a path below a file") << "file.csv/parts.csv"
                                         << "Not a directory";
    QTest::newRow("a file larger than 64 MiB") << "large.csv"
                                               << "it is larger than 64 MiB";
}

// The book stays what it was.
void tst_PartsbookFile::cannotBeRead()
{
    QFETCH(const QString, name);
    write({}, "file.csv");
    write({}, "large.csv");
    QVERIFY(QFile::resize(path("large.csv"), (64 << 20) + 1));
    QVERIFY(load(screw));
    QVERIFY(!m_book.load(QDir(m_folder->path()).filePath(name)));
    QTEST(QString(XeQString(m_book.error())), "error");
    QCOMPARE(m_book.count(), 1);
    QCOMPARE(m_book.fileName(), path("parts.csv"));
    QCOMPARE(saved(), screw);
}

void tst_PartsbookFile::cannotBeWritten_data()
{
    QTest::addColumn<bool>("folderIsFile");

    QTest::newRow("the folder has gone") << false;
    QTest::newRow("a file has taken the folder's place") << true;
}

// The change stays, and can be saved once the folder is there.
void tst_PartsbookFile::cannotBeWritten()
{
    QFETCH(const bool, folderIsFile);
    QDir folder(m_folder->path());
    QVERIFY(folder.mkdir("shelf"));
    write(screw, "shelf/parts.csv");
    QVERIFY(m_book.load(path("shelf/parts.csv")));
    m_book.remove(0);

    QVERIFY(folder.rename("shelf", "away"));
    if (folderIsFile)
        write({}, "shelf");
    QVERIFY(!m_book.save());
    QVERIFY(!m_book.error().IsEmpty());
    QVERIFY(m_book.isModified());
    QCOMPARE(content("away/parts.csv"), screw);

    QVERIFY(!folderIsFile || folder.remove("shelf"));
    QVERIFY(folder.rename("away", "shelf"));
    QVERIFY(m_book.save());
    QCOMPARE(content("shelf/parts.csv"), QByteArray());
    QCOMPARE(QDir(path("shelf")).entryList(QDir::Files), QStringList("parts.csv")); // and nothing half-written
}

// What the system takes of it ends in the middle, as on a full disk.
void tst_PartsbookFile::noRoomForTheWholeFile()
{
    const QByteArray text = headingLine + screw + quotedBearing.repeated(1000);
    QVERIFY(load(text));
    m_book.remove(0);
    {
        const SmallFiles limit(headingLine.size() + 1);
        QVERIFY(!m_book.save());
    }
    QVERIFY(!m_book.error().IsEmpty());
    QVERIFY(m_book.isModified());
    QCOMPARE(content(), text);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList("parts.csv"));
    QCOMPARE(saved(), headingLine + quotedBearing.repeated(1000));
}

void tst_PartsbookFile::savingKeepsALink()
{
    write(screw, "true.csv");
    QVERIFY(QFile::link(path("true.csv"), path("link.csv")));
    QVERIFY(m_book.load(path("link.csv")));
    m_book.remove(0);
    QVERIFY(m_book.save());
    QVERIFY(QFileInfo(path("link.csv")).isSymLink());
    QCOMPARE(content("true.csv"), QByteArray());
}

XE_GUILESS_TEST(tst_PartsbookFile)
#include "tst_partsbookfile.moc"
