// Opening, names, bytes, status, and what stands in the class record.

#include "leavenothing.h"
#include "tempfiles.h"
#include "testclass.h"

#include <xeafxfile.h>

#include <QSignalSpy>

class tst_File : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void open_data();
    void open();
    void theConstructorOpens();
    void theConstructorReportsNoFailure();
    void openAgainClosesTheFirst();
    void textModeTranslatesOnReading();
    void readAndWrite();
    void readCountsWhatCame();
    void writeIsBufferedUntilFlush();
    void abortLeavesTheFileOpen();
    void names_data();
    void names();
    void setFilePathClosesAndRenamesNothing();
    void statusOfAFile();
    void statusOfAMissingFile();
    void statusOfAPath();
    void statusCutsALongName();
    void renameMoves();
    void renameKeepsAnExistingTarget();
    void removeDeletes();
    void noDirectBuffer();
    void classRecord();
};

void tst_File::open_data()
{
    QTest::addColumn<unsigned>("flags");
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<int>("result");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QByteArray>("after");

    const QByteArray none;
    const QByteArray old("old");
    const QByteArray empty("");
    const int in = QIODevice::ReadOnly;
    const int out = QIODevice::WriteOnly;
    const int both = QIODevice::ReadWrite;
    const int closed = QIODevice::NotOpen;
    using F = CFile_X;
    const auto row = [](const char* name) -> QTestData& { return QTest::newRow(name); };
    row("reading an existing file") << unsigned(F::modeRead) << old << 1 << in << old;
    row("reading a missing file fails") << unsigned(F::modeRead) << none << 0 << closed << none;
    row("writing truncates without modeCreate") << unsigned(F::modeWrite) << old << 1 << out << empty;
    row("writing makes a file without modeCreate") << unsigned(F::modeWrite) << none << 1 << out << empty;
    row("modeNoTruncate is ignored") << unsigned(F::modeWrite | F::modeNoTruncate) << old << 1 << out << empty;
    row("both ways keeps the content") << unsigned(F::modeReadWrite) << old << 1 << both << old;
    row("both ways makes a file") << unsigned(F::modeReadWrite) << none << 1 << both << empty;
    row("both ways with modeCreate keeps the content")
        << unsigned(F::modeReadWrite | F::modeCreate) << old << 1 << both << old;
    row("access 3 is both ways") << 3U << old << 1 << both << old;
    row("modeCreate does not help reading") << unsigned(F::modeCreate) << none << 0 << closed << none;
    row("typeText") << unsigned(F::modeRead | F::typeText) << old << 1 << int(in | QIODevice::Text) << old;
    row("typeText both ways") << unsigned(F::modeReadWrite | F::typeText) << old << 1 << int(both | QIODevice::Text)
                              << old;
    row("all ignored bits") << ~unsigned(3 | F::typeText) << old << 1 << in << old;
}

void tst_File::open()
{
    QFETCH(unsigned, flags);
    QFETCH(QByteArray, before);
    QFETCH(int, mode);

    const TempFiles disk;
    if (!before.isNull())
        disk.write("file", before);
    CFile_X file;
    QTEST(file.Open(disk.widePath("file"), flags, nullptr), "result");
    QCOMPARE(int(file.Imp<QFile>()->openMode()), mode);
    QCOMPARE(file.GetPosition(), 0ULL);
    file.Close();
    QTEST(disk.read("file"), "after");
    QCOMPARE(disk.read("file").isNull(), mode == QIODevice::NotOpen);
}

void tst_File::theConstructorOpens()
{
    const TempFiles disk;
    disk.write("file", "abc");
    CFile_X file(disk.widePath("file"), CFile_X::modeRead);
    QCOMPARE(file.GetLength(), 3ULL);
    QVERIFY(file.Imp<QFile>()->isOpen());
}

void tst_File::theConstructorReportsNoFailure()
{
    const TempFiles disk;
    CFile_X unreachable(disk.widePath("no/file"), CFile_X::modeReadWrite);
    QVERIFY(!unreachable.Imp<QFile>()->isOpen());
    QCOMPARE(unreachable.GetFileName(), CString_X(L"file"));
    CFile_X unnamed(nullptr, CFile_X::modeReadWrite);
    QVERIFY(!unnamed.Imp<QFile>()->isOpen());
    CFile_X empty(L"", CFile_X::modeReadWrite);
    QVERIFY(!empty.Imp<QFile>()->isOpen());
}

void tst_File::openAgainClosesTheFirst()
{
    const TempFiles disk;
    CFile_X file(disk.widePath("first"), CFile_X::modeWrite);
    file.Write("one", 3);
    QCOMPARE(file.Open(disk.widePath("second"), CFile_X::modeWrite), 1);
    file.Write("two", 3);
    file.Close();
    QCOMPARE(disk.read("first"), QByteArray("one"));
    QCOMPARE(disk.read("second"), QByteArray("two"));

    QCOMPARE(file.Open(disk.widePath("second"), CFile_X::modeRead), 1);
    QCOMPARE(file.Open(nullptr, CFile_X::modeRead), 0);
    QVERIFY(file.Imp<QFile>()->isOpen());
    QCOMPARE(file.GetFileName(), CString_X(L"second"));
}

void tst_File::textModeTranslatesOnReading()
{
    const TempFiles disk;
    disk.write("file", "a\r\nb");
    CFile_X file(disk.widePath("file"), CFile_X::modeRead | CFile_X::typeText);
    char bytes[8] = {};
    QCOMPARE(file.Read(bytes, sizeof(bytes)), 3U);
    QCOMPARE(QByteArray(bytes, 3), QByteArray("a\nb"));
}

void tst_File::readAndWrite()
{
    const TempFiles disk;
    CFile_X file(disk.widePath("file"), CFile_X::modeReadWrite);
    const QByteArray bytes("\x00\xFF\r\n\x1A tail", 10);
    file.Write(bytes.constData(), 10);
    QCOMPARE(file.GetPosition(), 10ULL);
    QCOMPARE(file.GetLength(), 10ULL);

    file.SeekToBegin();
    QCOMPARE(file.GetPosition(), 0ULL);
    QByteArray back(10, 'x');
    QCOMPARE(file.Read(back.data(), 10), 10U);
    QCOMPARE(back, bytes);

    QCOMPARE(file.Seek(2, CFile_X::begin), 2ULL);
    file.Write("AB", 2);
    file.Write("CD", 0);
    file.Close();
    QCOMPARE(disk.read("file"), QByteArray("\x00\xFF"
                                           "AB\x1A tail",
                                           10));
}

void tst_File::readCountsWhatCame()
{
    const TempFiles disk;
    disk.write("file", "abcde");
    CFile_X file(disk.widePath("file"), CFile_X::modeRead);
    char bytes[8] = {};
    QCOMPARE(file.Read(bytes, 0), 0U);
    QCOMPARE(file.Read(bytes, 3), 3U);
    QCOMPARE(file.Read(bytes, 8), 2U);
    QCOMPARE(QByteArray(bytes), QByteArray("dec"));
    QCOMPARE(file.Read(bytes, 8), 0U);
    QCOMPARE(file.GetPosition(), 5ULL);
}

void tst_File::writeIsBufferedUntilFlush()
{
    const TempFiles disk;
    CFile_X file(disk.widePath("file"), CFile_X::modeWrite);
    file.Write("abc", 3);
    QCOMPARE(disk.read("file"), QByteArray(""));
    file.Flush();
    QCOMPARE(disk.read("file"), QByteArray("abc"));
    file.Write("de", 2);
    QCOMPARE(file.GetLength(), 5ULL);
    file.Close();
    QCOMPARE(disk.read("file"), QByteArray("abcde"));
}

void tst_File::abortLeavesTheFileOpen()
{
    const TempFiles disk;
    CFile_X file(disk.widePath("file"), CFile_X::modeWrite);
    QSignalSpy aboutToClose(file.Imp<QFile>(), &QIODevice::aboutToClose);
    file.Write("abc", 3);
    file.Abort();
    QCOMPARE(aboutToClose.count(), 1);
    QVERIFY(file.Imp<QFile>()->isOpen());
    file.Write("def", 3);
    file.Close();
    QCOMPARE(disk.read("file"), QByteArray("abcdef"));
}

void tst_File::names_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("absolute");

    const QString here = QDir::currentPath() + QLatin1Char('/');
    const auto row = [](const char* aspect, const char* path, const char* name, const char* title,
                        const QString& absolute) {
        QTest::newRow(aspect) << QString::fromUtf8(path) << QString::fromUtf8(name) << QString::fromUtf8(title)
                              << absolute;
    };
    row("a path", "/parts/list.txt", "list.txt", "list", "/parts/list.txt");
    row("the title ends at the first of two dots", "/parts/list.tar.gz", "list.tar.gz", "list", "/parts/list.tar.gz");
    row("no dot", "/parts/list", "list", "list", "/parts/list");
    row("a dot in front gives an empty title", "/parts/.list", ".list", "", "/parts/.list");
    row("a bare name is made absolute", "list.txt", "list.txt", "list", here + "list.txt");
    row("letters outside ASCII", "/t\xC3\xB6ne/\xF0\x9F\x94\xA9.x", "\xF0\x9F\x94\xA9.x", "\xF0\x9F\x94\xA9",
        QString::fromUtf8("/t\xC3\xB6ne/\xF0\x9F\x94\xA9.x"));
    row("backslashes are part of the name", "/parts\\list.txt", "parts\\list.txt", "parts\\list", "/parts\\list.txt");
    row("no name", "", "", "", "");
}

void tst_File::names()
{
    QFETCH(QString, path);
    QFETCH(QString, name);
    QFETCH(QString, title);
    QFETCH(QString, absolute);

    CFile_X file;
    file.SetFilePath(CString_X(path));
    QCOMPARE(file.GetFileName(), CString_X(name));
    QCOMPARE(file.GetFileTitle(), CString_X(title));
    QCOMPARE(file.GetFilePath(), CString_X(absolute));
}

void tst_File::setFilePathClosesAndRenamesNothing()
{
    const TempFiles disk;
    CFile_X file(disk.widePath("old"), CFile_X::modeWrite);
    file.Write("abc", 3);
    file.SetFilePath(disk.widePath("new"));
    QVERIFY(!file.Imp<QFile>()->isOpen());
    QCOMPARE(file.GetFileName(), CString_X(L"new"));
    QCOMPARE(disk.read("old"), QByteArray("abc"));
    QVERIFY(!QFile::exists(disk.path("new")));
    file.SetFilePath(nullptr);
    QCOMPARE(file.GetFileName(), CString_X());
}

void tst_File::statusOfAFile()
{
    const TempFiles disk;
    disk.write("file", "abc");
    const QFileInfo info(disk.path("file"));
    CFile_X file(disk.widePath("file"), CFile_X::modeRead);
    CFileStatus_X status;
    status.m_attribute = 77;
    QCOMPARE(file.GetStatus(status), 1);
    QCOMPARE(status.m_size, 3LL);
    QCOMPARE(status.m_mtime, info.lastModified());
    QCOMPARE(status.m_atime, info.lastRead());
    QCOMPARE(status.m_ctime, info.birthTime());
    QCOMPARE(status.m_attribute, 77);
    QCOMPARE(QString::fromUtf8(status.m_szFullName), disk.path("file"));
    QVERIFY(status.m_mtime.isValid());
}

void tst_File::statusOfAMissingFile()
{
    const TempFiles disk;
    CFile_X file;
    file.SetFilePath(disk.widePath("missing"));
    CFileStatus_X status;
    status.m_size = 5;
    status.m_mtime = status.m_atime = status.m_ctime = QDateTime::currentDateTime();
    QCOMPARE(file.GetStatus(status), 1);
    QCOMPARE(status.m_size, 0LL);
    QVERIFY(!status.m_ctime.isValid() && !status.m_mtime.isValid() && !status.m_atime.isValid());
    QCOMPARE(QString::fromUtf8(status.m_szFullName), disk.path("missing"));
}

void tst_File::statusOfAPath()
{
    const TempFiles disk;
    disk.write("t\xC3\xB6ne", "four");
    CFileStatus_X status;
    QCOMPARE(CFile_X::GetStatus(disk.widePath("t\xC3\xB6ne"), status), 1);
    QCOMPARE(status.m_size, 4LL);
    QVERIFY(QByteArray(status.m_szFullName).endsWith("/t\xC3\xB6ne"));
    QCOMPARE(CFile_X::GetStatus(disk.widePath("missing"), status), 1);
    QCOMPARE(status.m_size, 0LL);
    QCOMPARE(CFile_X::GetStatus(nullptr, status), 1);
    QCOMPARE(status.m_szFullName[0], '\0');
}

void tst_File::statusCutsALongName()
{
    CFileStatus_X status;
    QCOMPARE(CFile_X::GetStatus((L"/" + std::wstring(5000, L'n')).c_str(), status), 1);
    QCOMPARE(QByteArray(status.m_szFullName), QByteArray("/") + QByteArray(sizeof(status.m_szFullName) - 2, 'n'));
}

void tst_File::renameMoves()
{
    const TempFiles disk;
    disk.write("old", "abc");
    CFile_X::Rename(disk.widePath("old"), disk.widePath("new"));
    QVERIFY(disk.read("old").isNull());
    QCOMPARE(disk.read("new"), QByteArray("abc"));
    CFile_X::Rename(disk.widePath("missing"), disk.widePath("other"));
    QVERIFY(disk.read("other").isNull());
    CFile_X::Rename(nullptr, disk.widePath("other"));
    CFile_X::Rename(disk.widePath("new"), nullptr);
    QCOMPARE(disk.read("new"), QByteArray("abc"));
}

void tst_File::renameKeepsAnExistingTarget()
{
    const TempFiles disk;
    disk.write("old", "abc");
    disk.write("new", "def");
    CFile_X::Rename(disk.widePath("old"), disk.widePath("new"));
    QCOMPARE(disk.read("old"), QByteArray("abc"));
    QCOMPARE(disk.read("new"), QByteArray("def"));
}

void tst_File::removeDeletes()
{
    const TempFiles disk;
    disk.write("file", "abc");
    CFile_X::Remove(disk.widePath("file"));
    QVERIFY(disk.read("file").isNull());
    CFile_X::Remove(disk.widePath("file"));
    CFile_X::Remove(nullptr);
    CFile_X::Remove(L"");
}

void tst_File::noDirectBuffer()
{
    CFile_X file;
    void* start = &file;
    void* end = &file;
    for (unsigned command = 0; command < 5; ++command)
        QCOMPARE(file.GetBufferPtr(command, 10, &start, &end), 0U);
    QCOMPARE(start, &file);
    QCOMPARE(end, &file);
}

void tst_File::classRecord()
{
    CFile_X file;
    CStdioFile_X stdioFile;
    CMemFile_X memFile;
    QCOMPARE(QByteArray(file.GetClassName()), QByteArray("CFile_X"));
    QCOMPARE(file.GetRuntimeClass(), RUNTIME_CLASS_X(CFile_X));
    QCOMPARE(stdioFile.GetRuntimeClass(), RUNTIME_CLASS_X(CStdioFile_X));
    QCOMPARE(memFile.GetRuntimeClass(), RUNTIME_CLASS_X(CMemFile_X));
    for (const CObject_X* object : {&file, static_cast<CFile_X*>(&stdioFile), static_cast<CFile_X*>(&memFile)}) {
        QVERIFY(object->IsKindOf(RUNTIME_CLASS_X(CFile_X)));
        QCOMPARE(QByteArray(object->GetRuntimeClass()->GetImpClassName()), QByteArray("QFile"));
        QCOMPARE(object->GetRuntimeClass()->CreateObject(), nullptr);
        QVERIFY(object->Imp<QFile>());
        QVERIFY(!object->IsExternalImpObj());
    }
    QVERIFY(!stdioFile.IsKindOf(RUNTIME_CLASS_X(CMemFile_X)));
    QCOMPARE(g_mapCreateMethod.count(&QFile::staticMetaObject), std::size_t(0));
}

XE_TEST(tst_File)
#include "tst_file.moc"
