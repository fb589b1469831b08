// A book as an archive: what is stored is what is loaded, and what is damaged is told and not loaded.

#include "bookarchive.h"
#include "partsbook.h"
#include "samplelines.h"
#include "testclass.h"

#include <QProcess>
#include <QTemporaryDir>

#include <cmath>

namespace {

Part screwPart()
{
    Part part;
    part.number = L"FA-1";
    part.name = CString_X(L"Screw 螺钉 😀");
    part.kind = L"Fastener";
    part.supplier = CString_X(L"华丰");
    part.source = Part::Made;
    part.stock = 10;
    part.minimum = 5;
    part.price = 0.0625;
    part.inUse = FALSE;
    part.remark = L"with, comma and \"quotes\"";
    part.delivered = L"2026-03-31";
    part.picture = L"pictures/screw.png";
    return part;
}

Part motorPart()
{
    Part part;
    part.number = L"EL-3";
    part.name = L"Motor";
    part.kind = L"Electrical";
    part.supplier = L"Kessler";
    part.source = Part::FromCustomer;
    return part;
}

// The heading, version 2, no parts, the mark at the end.
QByteArray emptyArchive()
{
    QByteArray bytes("\xFF\xFE\xFF\x0A", 4);
    for (const char ch : QByteArray("Parts Book"))
        bytes += QByteArray(1, ch) + QByteArray(3, '\0');
    bytes += QByteArray("\x02\0\0\0\0\0", 6);
    bytes += QByteArray("\xFF\xFE\xFF\x0C", 4);
    for (const char ch : QByteArray("end of parts"))
        bytes += QByteArray(1, ch) + QByteArray(3, '\0');
    return bytes;
}

} // namespace

class tst_PartsbookArchive : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_folder.reset(new QTemporaryDir); }

    void bytes();
    void thereAndBack();
    void anArchiveOfTheFirstVersion();
    void damagedArchives_data();
    void damagedArchives();
    void everyCutIsNoticed();
    void manyParts();

    void fileNamesDecide();
    void fromCsvToArchiveAndBack();
    void cannotBeWritten();
    void killedWhileSaving_data();
    void killedWhileSaving();

private:
    QString path(const QString& name) const { return m_folder->filePath(name); }

    QScopedPointer<QTemporaryDir> m_folder;
};

void tst_PartsbookArchive::bytes()
{
    QCOMPARE(archiveOf({}), emptyArchive());
    QVERIFY(archiveOf({motorPart()})
                .contains(QByteArray("\xFF\xFE\xFF\x04"
                                     "E\0\0\0L\0\0\0-\0\0\0"
                                     "3\0\0\0",
                                     20)));
}

void tst_PartsbookArchive::thereAndBack()
{
    std::vector<Part> parts;
    QVERIFY(readArchive(archiveOf({screwPart(), motorPart()}), parts).IsEmpty());
    QCOMPARE(parts.size(), std::size_t(2));
    QVERIFY(parts[0] == screwPart());
    QVERIFY(parts[1] == motorPart());
    QVERIFY(readArchive(emptyArchive(), parts).IsEmpty());
    QVERIFY(parts.empty());
}

// It ends a part with the remark.
void tst_PartsbookArchive::anArchiveOfTheFirstVersion()
{
    QByteArray bytes = archiveOf({motorPart()});
    const QByteArray twoEmptyTexts("\xFF\xFE\xFF\0\xFF\xFE\xFF\0", 8);
    const int remark = bytes.indexOf(twoEmptyTexts); // an empty one as well
    QVERIFY(remark > 0);
    bytes.remove(remark, twoEmptyTexts.size());
    bytes[44] = 1;
    std::vector<Part> parts;
    QVERIFY(readArchive(bytes, parts).IsEmpty());
    QVERIFY(parts == std::vector<Part>{motorPart()});
}

void tst_PartsbookArchive::damagedArchives_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("problem");
    Part wrong = motorPart();
    wrong.stock = -1;
    Part other = motorPart();
    other.source = 7;
    Part priceless = motorPart();
    priceless.price = std::nan("");
    Part useless = motorPart();
    useless.inUse = 3;
    QByteArray version0 = emptyArchive();
    version0[44] = 0;
    QByteArray version3 = emptyArchive();
    version3[44] = 3;
    QByteArray moreParts = emptyArchive();
    moreParts.replace(48, 2, "\xFF\xFF\xFF\xFF\xFF\xFF");
    QByteArray longName = archiveOf({motorPart()});
    longName.replace(50, 4, QByteArray("\xFF\xFE\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x7F", 18));
    QTest::newRow("empty") << QByteArray() << "it is no book of parts";
    QTest::newRow("a CSV file") << QByteArray("number,name\n") << "it is no book of parts";
    QTest::newRow("zeros") << QByteArray(1000, '\0') << "it is no book of parts";
    QTest::newRow("a version before the first") << version0 << "it is of another version of this program";
    QTest::newRow("a later version") << version3 << "it is of another version of this program";
    QTest::newRow("more parts than there are") << moreParts << "part 2 of it is damaged (the part has no number)";
    QTest::newRow("a text of more than there is") << longName << "part 1 of it is damaged (the part has no number)";
    QTest::newRow("a number that no part can have")
        << archiveOf({screwPart(), wrong}) << "part 2 of it is damaged (stock: no whole number from 0 to 99999)";
    QTest::newRow("a source that is none") << archiveOf({other}) << "part 1 of it is damaged (it is damaged)";
    QTest::newRow("a use that is none") << archiveOf({useless}) << "part 1 of it is damaged (it is damaged)";
    QTest::newRow("a price that is no number")
        << archiveOf({priceless}) << "part 1 of it is damaged (price: no number from 0 to 9999.99)";
}

void tst_PartsbookArchive::damagedArchives()
{
    QFETCH(QByteArray, bytes);
    std::vector<Part> parts{screwPart()};
    const QString problem = XeQString(readArchive(bytes, parts));
    QTEST(problem, "problem");
    QCOMPARE(parts.size(), std::size_t(1));
    QVERIFY(parts[0] == screwPart());
}

void tst_PartsbookArchive::everyCutIsNoticed()
{
    const QByteArray whole = archiveOf({screwPart(), motorPart()});
    for (int length = 0; length < whole.size(); ++length) {
        std::vector<Part> parts;
        QVERIFY2(!readArchive(whole.left(length), parts).IsEmpty(), qPrintable(QString::number(length)));
        QVERIFY(parts.empty());
    }
}

void tst_PartsbookArchive::manyParts()
{
    std::vector<Part> parts;
    for (int i = 0; i < 70000; ++i) { // the count has 6 bytes
        Part part = motorPart();
        part.number.Format(L"P-%d", i);
        parts.push_back(part);
    }
    std::vector<Part> read;
    QVERIFY(readArchive(archiveOf(parts), read).IsEmpty());
    QVERIFY(read == parts);
}

// ----------------------------------------------------------------------------------------------------------- the files

void tst_PartsbookArchive::fileNamesDecide()
{
    PartsBook book;
    book.add(motorPart());
    QVERIFY(book.saveAs(path("a.parts")));
    QVERIFY(book.saveAs(path("b.PARTS")));
    QCOMPARE(contentOf(path("a.parts")), archiveOf({motorPart()}));
    QCOMPARE(contentOf(path("b.PARTS")), archiveOf({motorPart()}));
    QVERIFY(book.saveAs(path("c.csv")));
    QCOMPARE(contentOf(path("c.csv")), QByteArray("EL-3,Motor,Electrical,Kessler,customer,0,0,0.00,yes,\n"));
    QCOMPARE(book.fileName(), path("c.csv"));
    QVERIFY(!book.isModified());

    QVERIFY(QFile::copy(path("c.csv"), path("d.parts")));
    QVERIFY(!book.load(path("d.parts")));
    QCOMPARE(XeQString(book.error()), QString("it is no book of parts"));
    QCOMPARE(book.fileName(), path("c.csv"));
    QCOMPARE(book.count(), 1);
}

void tst_PartsbookArchive::fromCsvToArchiveAndBack()
{
    PartsBook book;
    QVERIFY(book.load(qEnvironmentVariable("PARTS")));
    QVERIFY(book.saveAs(path("book.parts")));
    PartsBook again;
    QVERIFY(again.load(path("book.parts")));
    QCOMPARE(again.count(), book.count());
    QVERIFY(!again.isModified());
    for (int row = 0; row < book.count(); ++row)
        QVERIFY(again.part(row) == book.part(row));
    QVERIFY(again.saveAs(path("book.csv")));
    QCOMPARE(contentOf(path("book.csv")), contentOf(qEnvironmentVariable("PARTS")));
}

void tst_PartsbookArchive::cannotBeWritten()
{
    PartsBook book;
    book.add(motorPart());
    QVERIFY(book.saveAs(path("a.parts")));
    book.add(screwPart());
    QVERIFY(!book.saveAs(path("nowhere/a.parts")));
    QVERIFY(!book.error().IsEmpty());
    QVERIFY(book.isModified());
    QCOMPARE(book.fileName(), path("a.parts"));
    QCOMPARE(contentOf(path("a.parts")), archiveOf({motorPart()}));
}

void tst_PartsbookArchive::killedWhileSaving_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("archive") << "book.parts";
    QTest::newRow("CSV") << "book.csv";
}

void tst_PartsbookArchive::killedWhileSaving()
{
    QFETCH(QString, name);
    PartsBook book;
    QVERIFY(book.load(qEnvironmentVariable("PARTS")));
    QVERIFY(book.saveAs(path(name)));
    int before = book.count();
    for (int round = 0; round < 20; ++round) {
        QProcess saver;
        saver.start(qEnvironmentVariable("SAVER"), {path(name)});
        int saves = 0;
        while (saves < 3 + round % 5 && saver.waitForReadyRead())
            saves += saver.readAll().count('\n');
        saver.kill();
        QVERIFY(saver.waitForFinished());
        saves += saver.readAll().count('\n');
        QCOMPARE(saver.exitStatus(), QProcess::CrashExit);

        PartsBook found;
        QVERIFY2(found.load(path(name)), qPrintable(XeQString(found.error())));
        QVERIFY(found.badLines().empty());
        const int count = found.count();
        QVERIFY(count == before + saves || count == before + saves + 1); // the last word may not have got out
        before = count;
    }
}

XE_GUILESS_TEST(tst_PartsbookArchive)
#include "tst_partsbookarchive.moc"
