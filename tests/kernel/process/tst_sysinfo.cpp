#include "testclass.h"

#include <xeprocess.h>

#include <ctime>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/vfs.h>
#include <unistd.h>

// Clock, file systems and firmware, and the tests of addresses. The C library's answers are the test's own where they
// would differ from machine to machine.

namespace {

struct Faked
{
    long fileSystem = -1; // no answer
    QByteArray path;
    QVector<uint> sleeps;
};

Faked faked;

// The watchdog of QtTest reads the clock in a thread of its own.
thread_local const timespec* fakedClock = nullptr;

} // namespace

extern "C" {

Q_DECL_EXPORT int clock_gettime(clockid_t clock, timespec* time) noexcept
{
    if (!fakedClock || clock != CLOCK_MONOTONIC)
        return int(syscall(SYS_clock_gettime, clock, time));
    *time = *fakedClock;
    return 0;
}

Q_DECL_EXPORT int usleep(useconds_t microseconds)
{
    faked.sleeps.append(microseconds);
    return 0;
}

Q_DECL_EXPORT int statfs(const char* path, struct statfs* info) noexcept
{
    faked.path = path;
    *info = {};
    info->f_type = faked.fileSystem;
    return faked.fileSystem == -1 ? -1 : 0;
}
}

class tst_SysInfo : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { faked = {}; }
    void tickCount_data();
    void tickCount();
    void sleeping_data();
    void sleeping();
    void localTime_data();
    void localTime();
    void driveTypes_data();
    void driveTypes();
    void drivesThatAreNotThere();
    void thePathOfADrive();
    void firmwareType();
    void unicodeText_data();
    void unicodeText();
    void badAddresses();
};

void tst_SysInfo::tickCount_data()
{
    QTest::addColumn<qlonglong>("seconds");
    QTest::addColumn<int>("nanoseconds");
    QTest::addColumn<qulonglong>("result");
    QTest::newRow("nothing") << 0LL << 0 << 0ULL;
    QTest::newRow("nanoseconds are cut off") << 5LL << 999999999 << 5999ULL;
    QTest::newRow("less than a millisecond") << 0LL << 999999 << 0ULL;
    QTest::newRow("a millisecond") << 0LL << 1000000 << 1ULL;
    QTest::newRow("beyond 32 bits") << 5000000LL << 1000000 << 5000000001ULL;
}

void tst_SysInfo::tickCount()
{
    QFETCH(qlonglong, seconds);
    QFETCH(int, nanoseconds);
    QFETCH(qulonglong, result);

    const timespec now = {time_t(seconds), nanoseconds};
    fakedClock = &now;
    const auto ticks = GetTickCount();
    fakedClock = nullptr;
    QCOMPARE(qulonglong(ticks), result);
    QCOMPARE(sizeof ticks, size_t(8));
}

void tst_SysInfo::sleeping_data()
{
    QTest::addColumn<uint>("milliseconds");
    QTest::addColumn<uint>("microseconds");
    QTest::newRow("not at all") << 0U << 0U;
    QTest::newRow("a second and a half") << 1500U << 1500000U;
    QTest::newRow("the longest") << 4294967U << 4294967000U;
    QTest::newRow("the first that wraps round") << 4294968U << 704U;
    QTest::newRow("for ever") << ~0U << 4294966296U;
}

void tst_SysInfo::sleeping()
{
    QFETCH(uint, milliseconds);
    QFETCH(uint, microseconds);
    Sleep_X(milliseconds);
    QCOMPARE(faked.sleeps, QVector<uint>(1, microseconds));
}

void tst_SysInfo::localTime_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::newRow("Greenwich") << QByteArray("UTC0");
    QTest::newRow("east") << QByteArray("EAST-09:30");
    QTest::newRow("west") << QByteArray("WEST+11");
}

void tst_SysInfo::localTime()
{
    QFETCH(QByteArray, zone);
    const QByteArray zoneBefore = qgetenv("TZ");
    qputenv("TZ", zone);
    tzset();

    SYSTEMTIME time = {1, 1, 77, 1, 1, 1, 1, 1};
    const QDateTime before = QDateTime::currentDateTime();
    GetLocalTime(&time);
    const QDateTime after = QDateTime::currentDateTime();
    const QDateTime told(QDate(time.wYear, time.wMonth, time.wDay),
                         QTime(time.wHour, time.wMinute, time.wSecond, time.wMilliseconds));
    qputenv("TZ", zoneBefore);
    tzset();

    QVERIFY(told >= before && told <= after);
    QCOMPARE(time.wDayOfWeek, WORD(77));
    GetLocalTime(nullptr);
}

void tst_SysInfo::driveTypes_data()
{
    QTest::addColumn<int>("fileSystem");
    QTest::addColumn<uint>("type");
    QTest::newRow("NFS is remote") << 0x6969 << 4U;
    QTest::newRow("SMB is remote") << 0x517B << 4U;
    QTest::newRow("ISO 9660 is a CD") << 0x9660 << 5U;
    QTest::newRow("ext is a RAM disk") << 0xEF53 << 6U;
    QTest::newRow("tmpfs is a RAM disk") << 0x1021994 << 6U;
    QTest::newRow("FAT is a RAM disk") << 0x4D44 << 6U;
    QTest::newRow("proc is unknown") << 0x9FA0 << 0U;
    QTest::newRow("XFS is unknown") << 0x58465342 << 0U;
    QTest::newRow("zero is unknown") << 0 << 0U;
}

void tst_SysInfo::driveTypes()
{
    QFETCH(int, fileSystem);
    QFETCH(uint, type);
    faked.fileSystem = fileSystem;
    QCOMPARE(GetDriveType_X(L"/somewhere"), type);
}

void tst_SysInfo::drivesThatAreNotThere()
{
    QCOMPARE(GetDriveType_X(L"/missing"), DRIVE_NO_ROOT_DIR);
    QCOMPARE(faked.path, QByteArray("/missing"));
    faked.fileSystem = 0xEF53;
    QCOMPARE(GetDriveType_X(nullptr), 1U);
}

void tst_SysInfo::thePathOfADrive()
{
    QCOMPARE(setlocale(LC_CTYPE, nullptr), "C.UTF-8");
    GetDriveType_X(L"/B\u00FCro \U0001F529");
    QCOMPARE(faked.path, QByteArray("/B\xC3\xBCro \xF0\x9F\x94\xA9"));
    GetDriveType_X(L"/B\xD800");
    QCOMPARE(faked.path, QByteArray(""));
    GetDriveType_X(L"");
    QCOMPARE(faked.path, QByteArray(""));
}

void tst_SysInfo::firmwareType()
{
    struct stat entry;
    const bool isUefi = stat("/sys/firmware/efi", &entry) == 0 && S_ISDIR(entry.st_mode);
    FIRMWARE_TYPE type = FirmwareTypeUnknown;
    QCOMPARE(GetFirmwareType_X(&type), 1);
    QCOMPARE(int(type), isUefi ? 2 : 1);
    QCOMPARE(GetFirmwareType_X(nullptr), 0);
}

void tst_SysInfo::unicodeText_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("result");
    QTest::newRow("a letter") << QByteArray("a\0", 2) << 2 << 1;
    QTest::newRow("two letters of ASCII") << QByteArray("ab") << 2 << 1;
    QTest::newRow("zeros") << QByteArray(2, '\0') << 2 << 1;
    QTest::newRow("half a surrogate pair") << QByteArray("\0\xD8", 2) << 2 << 1;
    QTest::newRow("an odd number of bytes") << QByteArray("abc") << 3 << 1;
    QTest::newRow("a byte order mark and a letter") << QByteArray("\xFF\xFE"
                                                                  "a\0",
                                                                  4)
                                                    << 4 << 1;
    QTest::newRow("a byte order mark alone") << QByteArray("\xFF\xFE") << 2 << 0;
    QTest::newRow("one byte") << QByteArray("ab") << 1 << 0;
    QTest::newRow("no bytes") << QByteArray("ab") << 0 << 0;
    QTest::newRow("a negative length") << QByteArray("ab") << -1 << 0;
    QTest::newRow("null") << QByteArray() << 2 << 0;
}

void tst_SysInfo::unicodeText()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, length);
    QFETCH(int, result);
    const void* const address = bytes.isNull() ? nullptr : bytes.constData();
    int out = 77;
    QCOMPARE(IsTextUnicode_X(address, length, &out), result);
    QCOMPARE(out, result);
    QCOMPARE(IsTextUnicode_X(address, length, nullptr), result);
}

void tst_SysInfo::badAddresses()
{
    wchar_t text[] = L"text";
    void* const nowhere = reinterpret_cast<void*>(8);

    QVERIFY(!IsBadReadPtr_X(text, 1));
    QVERIFY(IsBadReadPtr_X(text, 0));
    QVERIFY(IsBadReadPtr_X(nullptr, 1));
    QVERIFY(IsBadReadPtr_X(nullptr, 0));
    QVERIFY(!IsBadReadPtr_X(nowhere, 1));

    QVERIFY(!IsBadWritePtr_X(text));
    QVERIFY(!IsBadWritePtr_X(text, 0));
    QVERIFY(IsBadWritePtr_X(nullptr));
    QVERIFY(IsBadWritePtr_X(nullptr, 4));
    QVERIFY(!IsBadWritePtr_X(nowhere, 1));

    QCOMPARE(IsBadStringPtr_X(text, 4), 0);
    QCOMPARE(IsBadStringPtr_X(text, 0), 0);
    QCOMPARE(IsBadStringPtr_X(nullptr, 4), 1);
    QCOMPARE(IsBadStringPtr_X(nullptr, 0), 0);
}

XE_GUILESS_TEST(tst_SysInfo)
#include "tst_sysinfo.moc"
