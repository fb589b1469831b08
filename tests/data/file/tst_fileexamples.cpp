// The examples that stand in the class comments.

#include "leavenothing.h"
#include "tempfiles.h"
#include "testclass.h"

#include <xeafxarc.h>
#include <xeafxfile.h>

class tst_FileExamples : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(QDir::setCurrent(m_disk.path(""))); }
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }
    void cleanupTestCase() { QDir::setCurrent(m_oldCurrent); }

    void aFile();
    void memory();
    void aSearch();
    void anArchive();

private:
    TempFiles m_disk;
    QString m_oldCurrent = QDir::currentPath();
};

void tst_FileExamples::aFile()
{
    char record[] = "bolt";

    CFile_X file(L"parts.bin", CFile_X::modeReadWrite);
    file.Write(record, sizeof(record));
    file.SeekToBegin();
    qstrcpy(record, "????");
    file.Read(record, sizeof(record));

    QCOMPARE(QByteArray(record), QByteArray("bolt"));
}

void tst_FileExamples::memory()
{
    unsigned char bytes[] = {'a', 'b'};
    const unsigned size = 16;
    auto* const block = static_cast<unsigned char*>(std::malloc(size));

    CMemFile_X file;
    CMemFile_X view(bytes, sizeof(bytes));
    CMemFile_X builder(block, size, 1024);

    file.Write("abc", 3);
    view.Write("xyz", 3);
    view.Write("x", 1);
    builder.Write("a text that is longer", 21);
    QCOMPARE(file.GetLength(), 3ULL);
    QCOMPARE(bytes[0], static_cast<unsigned char>('x'));
    QCOMPARE(view.GetLength(), 2ULL);
    QCOMPARE(builder.GetLength(), 21ULL);
    std::free(builder.Detach());
}

void tst_FileExamples::aSearch()
{
    QVERIFY(QDir().mkdir(m_disk.path("parts")));
    m_disk.write("parts/bolts.csv", "");
    m_disk.write("parts/nuts.csv", "");
    m_disk.write("parts/notes.txt", "");
    QStringList loaded;
    const auto load = [&loaded](const CString_X& name) { loaded += XeQString(name); };

    CFileFind_X find;
    for (BOOL more = find.FindFile(L"parts/*.csv"); more;) {
        more = find.FindNextFile();
        load(find.GetFileName());
    }

    loaded.sort();
    QCOMPARE(loaded, QStringList({"bolts.csv", "nuts.csv"}));
}

void tst_FileExamples::anArchive()
{
    int count = 12;
    double price = 0.25;
    CString_X name = L"bolt";

    CFile_X file(L"parts.dat", CFile_X::modeWrite);
    CArchive_X archive(&file, CArchive_X::store);
    archive << count << price << name;
    archive.Close();

    file.Close();
    QCOMPARE(file.Open(L"parts.dat", CFile_X::modeRead), 1);
    CArchive_X back(&file, CArchive_X::load);
    count = 0;
    price = 0;
    name.Empty();
    back >> count >> price >> name;
    QVERIFY(count == 12 && price == 0.25 && name == CString_X(L"bolt"));
}

XE_TEST(tst_FileExamples)
#include "tst_fileexamples.moc"
