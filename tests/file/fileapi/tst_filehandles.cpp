// File handles: what is read and written is text, and the disposition decides nothing.

#include "folder.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <clocale>
#include <memory>

#include <unistd.h>

namespace {

constexpr DWORD readWrite = GENERIC_READ | GENERIC_WRITE;

class Handle
{
public:
    explicit Handle(HANDLE handle) : m_handle(handle) {}
    ~Handle()
    {
        if (m_handle != INVALID_HANDLE_VALUE)
            CloseHandle_X(m_handle);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    operator HANDLE() const { return m_handle; }
    QFile& file() const { return *static_cast<CFile_X*>(m_handle)->Imp<QFile>(); }

private:
    HANDLE m_handle;
};

std::wstring readText(HANDLE handle, DWORD count, DWORD& read)
{
    std::wstring buffer(count + 4, L'#');
    read = 77;
    if (!ReadFile_X(handle, buffer.data(), count, &read))
        return L"failed";
    return buffer;
}

} // namespace

class tst_FileHandles : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_folder = std::make_unique<Folder>(); }
    void cleanup() { std::setlocale(LC_ALL, "C"); }

    void accessDecidesTheMode_data();
    void accessDecidesTheMode();
    void otherArgumentsAreIgnored();
    void cannotBeOpened_data();
    void cannotBeOpened();
    void closing();

    void reads_data();
    void reads();
    void readsOn();
    void readsMuchLessThanAsked();
    void readsInTheLocale();
    void writes();
    void writesInTheLocale();
    void outputsMayBeNull();
    void aFullDisk();
    void flush();

    void sizes();
    void sizesAbove32Bits();
    void movesTo_data();
    void movesTo();
    void movesIn64Bits();
    void storesThePositionOverANumber();
    void endOfFileDoesNotTruncate();
    void validData();

    void badHandles_data();
    void badHandles();

private:
    std::unique_ptr<Folder> m_folder;
};

// ------------------------------------------------------------------------------------------------------ open and close

void tst_FileHandles::accessDecidesTheMode_data()
{
    QTest::addColumn<DWORD>("access");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("write empties the file") << GENERIC_WRITE << int(QIODevice::WriteOnly) << QByteArray("");
    QTest::newRow("read") << GENERIC_READ << int(QIODevice::ReadOnly) << QByteArray("content");
    QTest::newRow("both") << readWrite << int(QIODevice::ReadWrite) << QByteArray("content");
    QTest::newRow("neither") << 0U << int(QIODevice::ReadWrite) << QByteArray("content");
    QTest::newRow("other bits do not count")
        << (GENERIC_READ | 0x1FFFFFFFU) << int(QIODevice::ReadOnly) << QByteArray("content");
}

void tst_FileHandles::accessDecidesTheMode()
{
    QFETCH(DWORD, access);
    QFETCH(int, mode);
    m_folder->write("file", "content");
    {
        const Handle file(CreateFile_X(m_folder->wide("file").c_str(), access));
        QVERIFY(file != INVALID_HANDLE_VALUE);
        const int opened = file.file().openMode() & QIODevice::ReadWrite;
        QCOMPARE(opened, mode);
    }
    QTEST(m_folder->read("file"), "content");
}

void tst_FileHandles::otherArgumentsAreIgnored()
{
    m_folder->write("file", "content");
    SECURITY_ATTRIBUTES security{};
    const Handle kept(CreateFile_X(m_folder->wide("file").c_str(), readWrite, 0, &security, CREATE_ALWAYS, 0xFFFFFFFF,
                                   INVALID_HANDLE_VALUE));
    QVERIFY(kept != INVALID_HANDLE_VALUE);
    QCOMPARE(m_folder->read("file"), QByteArray("content"));
    const Handle made(CreateFile_X(m_folder->wide("new").c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING));
    QVERIFY(made != INVALID_HANDLE_VALUE);
    QVERIFY(m_folder->has("new"));
}

void tst_FileHandles::cannotBeOpened_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<DWORD>("access");
    QTest::newRow("missing") << "missing" << GENERIC_READ;
    QTest::newRow("a folder") << "folder" << GENERIC_WRITE;
    QTest::newRow("below a file") << "file/below" << readWrite;
    QTest::newRow("in a folder that is not there") << "nowhere/file" << readWrite;
}

void tst_FileHandles::cannotBeOpened()
{
    QFETCH(QString, name);
    QFETCH(DWORD, access);
    m_folder->write("file", "content");
    m_folder->makeFolder("folder");
    QCOMPARE(CreateFile_X(m_folder->wide(name).c_str(), access), INVALID_HANDLE_VALUE);
    QCOMPARE(CreateFile_X(nullptr, access), INVALID_HANDLE_VALUE);
    QCOMPARE(CreateFile_X(L"", access), INVALID_HANDLE_VALUE);
}

void tst_FileHandles::closing()
{
    const HANDLE file = CreateFile_X(m_folder->wide("file").c_str(), GENERIC_WRITE);
    QPointer<CFile_X> object = static_cast<CFile_X*>(file);
    DWORD written = 0;
    QCOMPARE(WriteFile_X(file, L"text", 4, &written), 1);
    QCOMPARE(CloseHandle_X(file), 1);
    QVERIFY(!object);
    QCOMPARE(m_folder->read("file"), QByteArray("text"));
}

// ------------------------------------------------------------------------------------------------------ read and write

void tst_FileHandles::reads_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<DWORD>("count");
    QTest::addColumn<QString>("text");
    QTest::newRow("up to the first 0") << QByteArray("abc\0defghi", 10) << 10U << "abc";
    QTest::newRow("as many as asked for lose the last") << QByteArray("12345678") << 8U << "1234567";
    QTest::newRow("one more than there are") << QByteArray("12345678") << 9U << "12345678";
    QTest::newRow("less than there are") << QByteArray("12345678") << 3U << "12";
    QTest::newRow("one") << QByteArray("12345678") << 1U << "";
    QTest::newRow("none") << QByteArray("12345678") << 0U << "";
    QTest::newRow("an empty file") << QByteArray() << 8U << "";
    QTest::newRow("a 0 first") << QByteArray("\0abc", 4) << 4U << "";
    QTest::newRow("not ASCII in the C locale") << QByteArray("a\xC3\xA9") << 8U << "";
}

void tst_FileHandles::reads()
{
    QFETCH(QByteArray, bytes);
    QFETCH(DWORD, count);
    QFETCH(QString, text);
    m_folder->write("file", bytes);
    const Handle file(CreateFile_X(m_folder->wide("file").c_str(), GENERIC_READ));
    DWORD read = 0;
    const std::wstring buffer = readText(file, count, read);
    QCOMPARE(read, static_cast<DWORD>(text.size()));
    QCOMPARE(QString::fromStdWString(buffer.substr(0, read)), text);
    QCOMPARE(buffer.substr(read), std::wstring(buffer.size() - read, L'#')); // no terminator
}

void tst_FileHandles::readsOn()
{
    m_folder->write("file", "abcdefgh");
    const Handle file(CreateFile_X(m_folder->wide("file").c_str(), GENERIC_READ));
    DWORD read = 0;
    QCOMPARE(readText(file, 3, read).substr(0, 2), std::wstring(L"ab"));
    QCOMPARE(readText(file, 9, read).substr(0, 5), std::wstring(L"defgh")); // the third byte is lost
    QCOMPARE(read, 5U);
    readText(file, 9, read);
    QCOMPARE(read, 0U);
}

void tst_FileHandles::readsMuchLessThanAsked()
{
    m_folder->write("file", QByteArray(3000000, 'x'));
    const Handle file(CreateFile_X(m_folder->wide("file").c_str(), GENERIC_READ));
    auto buffer = std::make_unique<wchar_t[]>(3000000);
    DWORD read = 0;
    QCOMPARE(ReadFile_X(file, buffer.get(), 0xFFFFFFFF, &read), 1);
    QCOMPARE(read, 3000000U);
    QCOMPARE(buffer[2999999], L'x');
}

void tst_FileHandles::readsInTheLocale()
{
    QVERIFY(std::setlocale(LC_ALL, "C.UTF-8"));
    m_folder->write("file", "\xE9\x9B\xB6\xE4\xBB\xB6!");
    const Handle file(CreateFile_X(m_folder->wide("file").c_str(), GENERIC_READ));
    DWORD read = 0;
    const std::wstring buffer = readText(file, 20, read);
    QCOMPARE(buffer.substr(0, read), std::wstring(L"零件!"));
    QVERIFY(file.file().seek(0));
    readText(file, 4, read); // ends in the middle of a character
    QCOMPARE(read, 0U);
}

void tst_FileHandles::writes()
{
    const Handle file(CreateFile_X(m_folder->wide("file").c_str(), GENERIC_WRITE));
    DWORD written = 0;
    QCOMPARE(WriteFile_X(file, L"abcd", 2, &written), 1); // the count does not matter
    QCOMPARE(written, 4U);
    QCOMPARE(WriteFile_X(file, L"", 9, &written), 1);
    QCOMPARE(written, 0U);
    QCOMPARE(WriteFile_X(file, L"ef\0gh", 5, &written), 1);
    QCOMPARE(written, 2U);
    QCOMPARE(FlushFileBuffers_X(file), 1);
    QCOMPARE(m_folder->read("file"), QByteArray("abcdef"));
}

void tst_FileHandles::writesInTheLocale()
{
    const Handle file(CreateFile_X(m_folder->wide("file").c_str(), GENERIC_WRITE));
    DWORD written = 77;
    QCOMPARE(WriteFile_X(file, L"零", 1, &written), 1);
    QCOMPARE(written, 0U); // nothing that the C locale has
    QVERIFY(std::setlocale(LC_ALL, "C.UTF-8"));
    QCOMPARE(WriteFile_X(file, L"零", 1, &written), 1);
    QCOMPARE(written, 3U);
    QCOMPARE(FlushFileBuffers_X(file), 1);
    QCOMPARE(m_folder->read("file"), QByteArray("\xE9\x9B\xB6"));
}

void tst_FileHandles::outputsMayBeNull()
{
    const Handle file(CreateFile_X(m_folder->wide("file").c_str(), readWrite));
    QCOMPARE(WriteFile_X(file, L"abcd", 4, nullptr), 1);
    QVERIFY(file.file().seek(0));
    wchar_t buffer[10] = {};
    QCOMPARE(ReadFile_X(file, buffer, 10, nullptr), 1);
    QCOMPARE(std::wstring(buffer), std::wstring(L"abcd"));
    QCOMPARE(ReadFile_X(file, nullptr, 10, nullptr), 0);
    QCOMPARE(WriteFile_X(file, nullptr, 10, nullptr), 0);
    QCOMPARE(GetFileSize_X(file, nullptr), 4U);
    QCOMPARE(GetFileSizeEx_X(file, nullptr), 0);
    QCOMPARE(SetFilePointerEx_X(file, LARGE_INTEGER{}, nullptr, FILE_BEGIN), 1);
}

void tst_FileHandles::aFullDisk()
{
    QVERIFY(QFile::exists("/dev/full"));
    const Handle file(CreateFile_X(L"/dev/full", GENERIC_WRITE));
    DWORD written = 0;
    QCOMPARE(WriteFile_X(file, L"text", 4, &written), 1);
    QCOMPARE(written, 4U);
    QCOMPARE(FlushFileBuffers_X(file), 0);
}

void tst_FileHandles::flush()
{
    const Handle file(CreateFile_X(m_folder->wide("file").c_str(), GENERIC_WRITE));
    WriteFile_X(file, L"text", 4, nullptr);
    QCOMPARE(FlushFileBuffers_X(file), 1);
    QCOMPARE(m_folder->read("file"), QByteArray("text"));
}

// --------------------------------------------------------------------------------------------------- size and position

void tst_FileHandles::sizes()
{
    m_folder->write("file", "12345");
    const Handle file(CreateFile_X(m_folder->wide("file").c_str(), GENERIC_READ));
    DWORD high = 77;
    QCOMPARE(GetFileSize_X(file, &high), 5U);
    QCOMPARE(high, 0U);
    LARGE_INTEGER size{};
    QCOMPARE(GetFileSizeEx_X(file, &size), 1);
    QCOMPARE(size.QuadPart, 5LL);
}

void tst_FileHandles::sizesAbove32Bits()
{
    constexpr qint64 fiveGigabytes = 5LL << 30;
    m_folder->write("file", "x");
    QCOMPARE(truncate(QFile::encodeName(m_folder->path("file")), fiveGigabytes), 0);
    const Handle file(CreateFile_X(m_folder->wide("file").c_str(), readWrite));
    DWORD high = 0;
    QCOMPARE(GetFileSize_X(file, &high), 0x40000000U);
    QCOMPARE(high, 1U);
    LARGE_INTEGER number{};
    QCOMPARE(GetFileSizeEx_X(file, &number), 1);
    QCOMPARE(number.QuadPart, fiveGigabytes);
    QCOMPARE(SetFilePointer_X(file, -1, nullptr, FILE_END), 0x3FFFFFFFU);
    QCOMPARE(file.file().pos(), fiveGigabytes - 1);
    number.QuadPart = 1LL << 32;
    LARGE_INTEGER position{};
    position.QuadPart = 1;
    QCOMPARE(SetFilePointerEx_X(file, number, &position, FILE_BEGIN), 1);
    QCOMPARE(position.QuadPart, 1LL << 32);
    QCOMPARE(WriteFile_X(file, L"deep", 4, nullptr), 1);
    QCOMPARE(FlushFileBuffers_X(file), 1);
    QCOMPARE(file.file().size(), fiveGigabytes);
}

void tst_FileHandles::movesTo_data()
{
    QTest::addColumn<LONG>("distance");
    QTest::addColumn<DWORD>("method");
    QTest::addColumn<DWORD>("position");
    QTest::newRow("from the start") << 3 << FILE_BEGIN << 3U;
    QTest::newRow("from the position") << 3 << FILE_CURRENT << 7U;
    QTest::newRow("back from the position") << -3 << FILE_CURRENT << 1U;
    QTest::newRow("back from the end") << -3 << FILE_END << 7U;
    QTest::newRow("to the end") << 0 << FILE_END << 10U;
    QTest::newRow("beyond the end") << 5 << FILE_END << 15U;
    QTest::newRow("another method") << 3 << 3U << 4U;
    QTest::newRow("the last method") << 3 << 0xFFFFFFFFU << 4U;
    QTest::newRow("before the start") << -5 << FILE_CURRENT << 4U;
    QTest::newRow("negative from the start") << -1 << FILE_BEGIN << 4U;
}

void tst_FileHandles::movesTo()
{
    QFETCH(LONG, distance);
    QFETCH(DWORD, method);
    m_folder->write("file", "0123456789");
    const Handle file(CreateFile_X(m_folder->wide("file").c_str(), readWrite));
    QVERIFY(file.file().seek(4));
    LONG high = 77;
    QTEST(SetFilePointer_X(file, distance, &high, method), "position");
    QCOMPARE(high, 77);
    QVERIFY(file.file().seek(4));
    LARGE_INTEGER far{};
    far.QuadPart = distance;
    LARGE_INTEGER position{};
    position.QuadPart = -1;
    QCOMPARE(SetFilePointerEx_X(file, far, &position, method), 1);
    QTEST(static_cast<DWORD>(position.QuadPart), "position");
    QCOMPARE(file.file().size(), qint64(10));
}

void tst_FileHandles::movesIn64Bits()
{
    m_folder->write("file", "0123456789");
    const Handle file(CreateFile_X(m_folder->wide("file").c_str(), readWrite));
    QVERIFY(file.file().seek(4));
    LARGE_INTEGER far{};
    far.QuadPart = std::numeric_limits<LONGLONG>::max();
    QCOMPARE(SetFilePointerEx_X(file, far, nullptr, FILE_CURRENT), 1); // beyond 64 bits
    QCOMPARE(file.file().pos(), qint64(4));
    far.QuadPart = std::numeric_limits<LONGLONG>::min();
    QCOMPARE(SetFilePointerEx_X(file, far, nullptr, FILE_END), 1);
    QCOMPARE(file.file().pos(), qint64(4));
}

void tst_FileHandles::storesThePositionOverANumber()
{
    m_folder->write("file", "0123456789");
    const Handle file(CreateFile_X(m_folder->wide("file").c_str(), readWrite));
    LARGE_INTEGER distance{};
    distance.QuadPart = 6;
    LARGE_INTEGER position{};
    QCOMPARE(SetFilePointerEx_X(file, distance, &position, FILE_BEGIN), 1);
    QCOMPARE(position.QuadPart, 0LL);
    QCOMPARE(file.file().pos(), qint64(6));
    position.QuadPart = 1;
    QCOMPARE(SetFilePointerEx_X(file, distance, &position, FILE_BEGIN), 1);
    QCOMPARE(position.QuadPart, 6LL);
}

void tst_FileHandles::endOfFileDoesNotTruncate()
{
    m_folder->write("file", "0123456789");
    const Handle file(CreateFile_X(m_folder->wide("file").c_str(), readWrite));
    QCOMPARE(SetFilePointer_X(file, 4, nullptr, FILE_BEGIN), 4U);
    QCOMPARE(SetEndOfFile_X(file), 1);
    QCOMPARE(file.file().pos(), qint64(10));
    QCOMPARE(m_folder->read("file"), QByteArray("0123456789"));
}

void tst_FileHandles::validData()
{
    m_folder->write("file", "0123456789");
    const Handle file(CreateFile_X(m_folder->wide("file").c_str(), readWrite));
    QCOMPARE(SetFileValidData_X(file, 7), 1);
    QCOMPARE(file.file().pos(), qint64(7));
    QCOMPARE(SetFileValidData_X(file, -1), 0);
    QCOMPARE(file.file().pos(), qint64(7));
    QCOMPARE(m_folder->read("file"), QByteArray("0123456789"));
}

// --------------------------------------------------------------------------------------------------------- bad handles

void tst_FileHandles::badHandles_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("null") << 0;
    QTest::newRow("the value of a failure") << 1;
    QTest::newRow("a file that was never opened") << 2;
    QTest::newRow("a file in memory") << 3;
}

void tst_FileHandles::badHandles()
{
    QFETCH(int, kind);
    CFile_X closed;
    CMemFile_X memory;
    const HANDLE handle = kind == 0   ? nullptr
                          : kind == 1 ? INVALID_HANDLE_VALUE
                          : kind == 2 ? static_cast<HANDLE>(&closed)
                                      : static_cast<CFile_X*>(&memory);
    wchar_t buffer[4] = L"abc";
    DWORD number = 77;
    LARGE_INTEGER large{};
    large.QuadPart = 77;
    FILETIME time{1, 2};
    QCOMPARE(CloseHandle_X(handle), 0);
    QCOMPARE(ReadFile_X(handle, buffer, 4, &number), 0);
    QCOMPARE(WriteFile_X(handle, buffer, 4, &number), 0);
    QCOMPARE(FlushFileBuffers_X(handle), 0);
    QCOMPARE(GetFileSize_X(handle, &number), 0xFFFFFFFFU);
    QCOMPARE(GetFileSizeEx_X(handle, &large), 0);
    QCOMPARE(SetFilePointer_X(handle, 0, nullptr, FILE_BEGIN), 0xFFFFFFFFU);
    QCOMPARE(SetFilePointerEx_X(handle, large, &large, FILE_BEGIN), 0);
    QCOMPARE(SetEndOfFile_X(handle), 0);
    QCOMPARE(SetFileValidData_X(handle, 0), 0);
    QCOMPARE(GetFileTime_X(handle, &time, &time, &time), 0);
    QCOMPARE(SetFileTime_X(handle, &time, &time, &time), 0);
    QCOMPARE(number, 77U);
    QCOMPARE(large.QuadPart, 77LL);
    QCOMPARE(time.dwLowDateTime, 1U);
    QCOMPARE(std::wstring(buffer), std::wstring(L"abc"));
}

XE_APPLESS_TEST(tst_FileHandles)
#include "tst_filehandles.moc"
