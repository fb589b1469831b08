// The wrapper and its QFile, the order of the virtual functions, and which of them the constructors call.

#include "leavenothing.h"
#include "tempfiles.h"
#include "testclass.h"

#include <xeafxfile.h>

#include <QBuffer>

#include <cstring>

class tst_FileLife : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void theDestructorWritesEverything_data();
    void theDestructorWritesEverything();
    void theQFileGoesWithTheLoop();
    void aForeignQFileStaysOpen();
    void aTextFileClosesAForeignQFile();
    void anotherObjectIsRefused();
    void theQFileMayGoFirst();
    void commonInitCallsTheVirtualOpen();
    void orderOfTheVirtualFunctions();
};

void tst_FileLife::theDestructorWritesEverything_data()
{
    QTest::addColumn<bool>("text");
    QTest::newRow("CFile_X") << false;
    QTest::newRow("CStdioFile_X") << true;
}

void tst_FileLife::theDestructorWritesEverything()
{
    QFETCH(bool, text);

    const TempFiles disk;
    const CString_X path = disk.widePath("file");
    std::unique_ptr<CFile_X> file(text ? new CStdioFile_X(path, CFile_X::modeWrite)
                                       : new CFile_X(path, CFile_X::modeWrite));
    file->Write("abc", 3);
    const QPointer<QFile> imp = file->Imp<QFile>();
    file.reset();
    QCOMPARE(disk.read("file"), QByteArray("abc"));
    QVERIFY(!imp || !imp->isOpen());
}

void tst_FileLife::theQFileGoesWithTheLoop()
{
    auto* file = new CFile_X;
    const QPointer<QFile> imp = file->Imp<QFile>();
    QCOMPARE(CObject_X::GetOwner(imp), file);
    delete file;
    QVERIFY(imp);
    QCOMPARE(imp->dynamicPropertyNames(), QList<QByteArray>());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!imp);
}

void tst_FileLife::aForeignQFileStaysOpen()
{
    const TempFiles disk;
    QFile imp(disk.path("file"));
    QVERIFY(imp.open(QIODevice::WriteOnly));
    {
        CFile_X file;
        QVERIFY(file.Attach(&imp, nullptr, true));
        file.Write("abc", 3);
        QCOMPARE(file.GetPosition(), 3ULL);
    }
    QVERIFY(imp.isOpen());
    QVERIFY(imp.flush());
    QCOMPARE(disk.read("file"), QByteArray("abc"));
}

void tst_FileLife::aTextFileClosesAForeignQFile()
{
    const TempFiles disk;
    QFile imp(disk.path("file"));
    QVERIFY(imp.open(QIODevice::WriteOnly));
    {
        CStdioFile_X file;
        QVERIFY(file.Attach(&imp, nullptr, true));
    }
    QVERIFY(!imp.isOpen());
}

void tst_FileLife::anotherObjectIsRefused()
{
    CFile_X file;
    QFile* const imp = file.Imp<QFile>();
    QBuffer buffer;
    QVERIFY(!file.Attach(&buffer, nullptr, true));
    QCOMPARE(file.Imp<QFile>(), imp);
}

void tst_FileLife::theQFileMayGoFirst()
{
    const TempFiles disk;
    CFile_X file(disk.widePath("file"), CFile_X::modeWrite);
    file.Write("abc", 3);
    delete file.Imp<QFile>();
    QCOMPARE(disk.read("file"), QByteArray("abc"));
    QCOMPARE(file.GetImpQObject(), nullptr);
    file.Write("def", 3);
    QCOMPARE(file.GetLength(), 0ULL);
    QCOMPARE(file.Open(disk.widePath("file"), CFile_X::modeRead), 0);
}

void tst_FileLife::commonInitCallsTheVirtualOpen()
{
    class Recorder : public CStdioFile_X
    {
    public:
        int Open(const wchar_t* name, unsigned flags, CFileException_X* error) override
        {
            ++calls;
            seen = name;
            seenFlags = flags;
            hadError = error;
            return 0;
        }
        int calls = 0;
        CString_X seen;
        unsigned seenFlags = 0;
        bool hadError = true;
    };
    Recorder file;
    file.CommonInit(L"name", 17);
    file.CommonInit(nullptr, 18);
    QCOMPARE(file.calls, 1);
    QCOMPARE(file.seen, CString_X(L"name"));
    QCOMPARE(file.seenFlags, 17U);
    QVERIFY(!file.hadError);
}

// By the C++ ABI of this platform a pointer to a virtual member function holds 1 plus its offset in the virtual table.
template <class Function>
static std::ptrdiff_t slot(Function function)
{
    std::ptrdiff_t offset = 0;
    std::memcpy(&offset, &function, sizeof(offset));
    return (offset - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

static bool isRow(std::initializer_list<std::ptrdiff_t> places)
{
    std::ptrdiff_t expected = *places.begin();
    return std::all_of(places.begin(), places.end(), [&](std::ptrdiff_t place) { return place == expected++; });
}

void tst_FileLife::orderOfTheVirtualFunctions()
{
    QVERIFY(isRow({slot(&CObject_X::Serialize),
                   slot(&CObject_X::Dump),
                   slot(&CFile_X::GetPosition),
                   slot(&CFile_X::GetFileName),
                   slot(&CFile_X::GetFileTitle),
                   slot(&CFile_X::GetFilePath),
                   slot(&CFile_X::SetFilePath),
                   slot(&CFile_X::Open),
                   slot(&CFile_X::Seek),
                   slot(&CFile_X::SetLength),
                   slot(&CFile_X::GetLength),
                   slot(&CFile_X::Read),
                   slot(&CFile_X::Write),
                   slot(&CFile_X::Abort),
                   slot(&CFile_X::Flush),
                   slot(&CFile_X::Close),
                   slot(&CFile_X::GetBufferPtr),
                   slot(&CStdioFile_X::WriteString),
                   slot(static_cast<wchar_t* (CStdioFile_X::*)(wchar_t*, unsigned)>(&CStdioFile_X::ReadString)),
                   slot(static_cast<int (CStdioFile_X::*)(CString_X&)>(&CStdioFile_X::ReadString))}));
    QVERIFY(isRow({slot(&CFile_X::GetBufferPtr), slot(&CMemFile_X::Alloc), slot(&CMemFile_X::Realloc),
                   slot(&CMemFile_X::Memcpy), slot(&CMemFile_X::Free), slot(&CMemFile_X::GrowFile)}));
    QCOMPARE(slot(&CFileFind_X::GetFileName), std::ptrdiff_t(0));
    QVERIFY(isRow({slot(&CFileFind_X::GetFileName), slot(&CFileFind_X::GetFilePath), slot(&CFileFind_X::GetFileTitle),
                   slot(&CFileFind_X::IsDots), slot(&CFileFind_X::FindFile), slot(&CFileFind_X::FindNextFile)}));
    QVERIFY(!isRow({slot(&CFile_X::Read), slot(&CFile_X::Abort)}));
}

XE_TEST(tst_FileLife)
#include "tst_filelife.moc"
