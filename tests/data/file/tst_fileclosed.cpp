// A file that is closed, has no QFile or was opened for the other direction: fixed answers, no warnings, no harm.

#include "leavenothing.h"
#include "tempfiles.h"
#include "testclass.h"

#include <xeafxfile.h>

class tst_FileClosed : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void everyCall_data();
    void everyCall();
    void readingAFileForWriting();
    void writingAFileForReading();
    void nullBuffers();
};

void tst_FileClosed::everyCall_data()
{
    QTest::addColumn<bool>("withQFile");
    QTest::addColumn<QString>("name");
    QTest::newRow("never opened") << true << QString();
    QTest::newRow("closed, with a name") << true << QStringLiteral("/nowhere/file.txt");
    QTest::newRow("without an imp object") << false << QString();
}

void tst_FileClosed::everyCall()
{
    QFETCH(bool, withQFile);
    QFETCH(QString, name);

    CStdioFile_X file;
    if (!name.isEmpty())
        file.SetFilePath(CString_X(name));
    if (!withQFile)
        file.Detach();

    char bytes[4] = {};
    wchar_t text[4] = L"old";
    CString_X line = L"old";
    CFileStatus_X status;
    QCOMPARE(file.Read(bytes, 4), 0U);
    file.Write("abc", 3);
    file.WriteString(L"abc");
    QCOMPARE(file.ReadString(line), 0);
    QCOMPARE(line, CString_X());
    QCOMPARE(file.ReadString(text, 4), static_cast<wchar_t*>(text));
    QCOMPARE(text[0], L'\0');
    for (unsigned from = 0; from <= 3; ++from)
        QCOMPARE(file.Seek(0, from), 0ULL);
    file.SeekToBegin();
    QCOMPARE(file.SeekToEnd(), 0ULL);
    file.SetLength(10);
    QCOMPARE(file.GetPosition(), 0ULL);
    QCOMPARE(file.GetLength(), 0ULL);
    QCOMPARE(file.GetFilePath(), CString_X(name));
    QCOMPARE(file.GetFileName(), CString_X(name.isEmpty() ? L"" : L"file.txt"));
    QCOMPARE(file.GetFileTitle(), CString_X(name.isEmpty() ? L"" : L"file"));
    QCOMPARE(file.GetStatus(status), 1);
    QCOMPARE(status.m_size, 0LL);
    file.Flush();
    file.Abort();
    file.Close();
    file.SetFilePath(nullptr);
    file.CommonInit(nullptr, 0);
    QCOMPARE(file.Open(nullptr, 0), 0);
    QCOMPARE(file.Open(L"", CFile_X::modeReadWrite), 0);
}

void tst_FileClosed::readingAFileForWriting()
{
    const TempFiles disk;
    CStdioFile_X file(disk.widePath("file"), CFile_X::modeWrite);
    file.Write("abc", 3);
    file.SeekToBegin();
    char bytes[4] = {};
    CString_X line;
    wchar_t text[4] = L"old";
    QCOMPARE(file.Read(bytes, 4), 0U);
    QCOMPARE(file.ReadString(line), 0);
    QCOMPARE(file.ReadString(text, 4), static_cast<wchar_t*>(text));
    QCOMPARE(text[0], L'\0');
    file.Close();
    QCOMPARE(disk.read("file"), QByteArray("abc"));
}

void tst_FileClosed::writingAFileForReading()
{
    const TempFiles disk;
    disk.write("file", "abc");
    CStdioFile_X file(disk.widePath("file"), CFile_X::modeRead);
    file.Write("XYZ", 3);
    file.WriteString(L"XYZ");
    file.Flush();
    QCOMPARE(file.GetPosition(), 0ULL);
    file.Close();
    QCOMPARE(disk.read("file"), QByteArray("abc"));
}

void tst_FileClosed::nullBuffers()
{
    const TempFiles disk;
    disk.write("file", "abc\n");
    CStdioFile_X file(disk.widePath("file"), CFile_X::modeReadWrite);
    QCOMPARE(file.Read(nullptr, 3), 0U);
    file.Write(nullptr, 3);
    file.WriteString(nullptr);
    QCOMPARE(file.ReadString(nullptr, 10), static_cast<wchar_t*>(nullptr));
    QCOMPARE(file.GetPosition(), 0ULL);
    file.Close();
    QCOMPARE(disk.read("file"), QByteArray("abc\n"));
}

XE_TEST(tst_FileClosed)
#include "tst_fileclosed.moc"
