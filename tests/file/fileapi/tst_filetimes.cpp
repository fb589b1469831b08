// File times: milliseconds since 1970 in two halves.

#include "folder.h"
#include "testclass.h"

#include <xefileapi.h>

#include <QDateTime>

#include <ctime>

namespace {

// By rule, since a machine need not have the time zone database.
constexpr char berlin[] = "CET-1CEST,M3.5.0,M10.5.0/3";
constexpr char newYork[] = "EST5EDT,M3.2.0,M11.1.0";

constexpr FILETIME timeOf(qint64 milliseconds)
{
    return {static_cast<DWORD>(static_cast<quint64>(milliseconds)),
            static_cast<DWORD>(static_cast<quint64>(milliseconds) >> 32)};
}

qint64 numberOf(const FILETIME& time)
{
    return static_cast<qint64>(static_cast<quint64>(time.dwHighDateTime) << 32 | time.dwLowDateTime);
}

void setZone(const char* zone)
{
    qputenv("TZ", zone);
    tzset();
}

} // namespace

class tst_FileTimes : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { setZone("UTC"); }

    void compares_data();
    void compares();
    void now();
    void local_data();
    void local();
    void thereAndBack();
    void nullTimes();
    void ofAFile();
    void settingStopsAtTheBirth();
};

void tst_FileTimes::compares_data()
{
    QTest::addColumn<qint64>("a");
    QTest::addColumn<qint64>("b");
    QTest::addColumn<int>("result");
    QTest::newRow("equal") << qint64(5) << qint64(5) << 0;
    QTest::newRow("less") << qint64(5) << qint64(6) << -1;
    QTest::newRow("greater") << qint64(6) << qint64(5) << 1;
    QTest::newRow("the upper half decides") << qint64(0xFFFFFFFF) << (qint64(1) << 32) << -1;
    QTest::newRow("signed") << qint64(-1) << qint64(1) << -1;
    QTest::newRow("before 1970") << qint64(-5) << qint64(-6) << 1;
}

void tst_FileTimes::compares()
{
    QFETCH(qint64, a);
    QFETCH(qint64, b);
    const FILETIME left = timeOf(a);
    const FILETIME right = timeOf(b);
    QTEST(CompareFileTime_X(&left, &right), "result");
}

void tst_FileTimes::now()
{
    const qint64 before = QDateTime::currentMSecsSinceEpoch();
    FILETIME time{};
    GetSystemTimeAsFileTime_X(&time);
    QVERIFY(before <= numberOf(time) && numberOf(time) <= QDateTime::currentMSecsSinceEpoch());
}

void tst_FileTimes::local_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<qint64>("utc");
    QTest::addColumn<qint64>("offset");
    constexpr qint64 winter = 1705320000123;
    constexpr qint64 summer = 1721044800456;
    QTest::newRow("UTC") << QByteArray("UTC") << winter << qint64(0);
    QTest::newRow("Berlin, winter") << QByteArray(berlin) << winter << qint64(3600000);
    QTest::newRow("Berlin, summer") << QByteArray(berlin) << summer << qint64(7200000);
    QTest::newRow("New York, winter") << QByteArray(newYork) << winter << qint64(-18000000);
    QTest::newRow("New York, summer") << QByteArray(newYork) << summer << qint64(-14400000);
    QTest::newRow("an hour before summer time") << QByteArray(berlin) << qint64(1711843200000) << qint64(3600000);
    QTest::newRow("an hour into summer time") << QByteArray(berlin) << qint64(1711850400000) << qint64(7200000);
    QTest::newRow("1970") << QByteArray(berlin) << qint64(0) << qint64(3600000);
}

void tst_FileTimes::local()
{
    QFETCH(QByteArray, zone);
    QFETCH(qint64, utc);
    QFETCH(qint64, offset);
    setZone(zone);
    const FILETIME time = timeOf(utc);
    FILETIME there{};
    QCOMPARE(FileTimeToLocalFileTime_X(&time, &there), 1);
    QCOMPARE(numberOf(there), utc + offset);
    FILETIME back{};
    QCOMPARE(LocalFileTimeToFileTime_X(&there, &back), 1);
    QCOMPARE(numberOf(back), utc);
}

void tst_FileTimes::thereAndBack()
{
    setZone(newYork);
    FILETIME time = timeOf(1721044800456);
    QCOMPARE(FileTimeToLocalFileTime_X(&time, &time), 1); // in place
    QCOMPARE(numberOf(time), qint64(1721044800456 - 14400000));
    QCOMPARE(LocalFileTimeToFileTime_X(&time, &time), 1);
    QCOMPARE(numberOf(time), qint64(1721044800456));
}

void tst_FileTimes::nullTimes()
{
    const FILETIME early = timeOf(-1);
    FILETIME time{3, 4};
    QCOMPARE(CompareFileTime_X(nullptr, nullptr), 0);
    QCOMPARE(CompareFileTime_X(&early, nullptr), -1);
    QCOMPARE(FileTimeToLocalFileTime_X(nullptr, &time), 0);
    QCOMPARE(FileTimeToLocalFileTime_X(&time, nullptr), 0);
    QCOMPARE(LocalFileTimeToFileTime_X(nullptr, &time), 0);
    QCOMPARE(LocalFileTimeToFileTime_X(&time, nullptr), 0);
    GetSystemTimeAsFileTime_X(nullptr);
    QCOMPARE(time.dwLowDateTime, 3U);
}

void tst_FileTimes::ofAFile()
{
    const Folder folder;
    folder.write("file", "x");
    const QDateTime moment = QDateTime::fromMSecsSinceEpoch(1234567890123);
    {
        QFile file(folder.path("file"));
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(moment, QFileDevice::FileModificationTime));
        QVERIFY(file.setFileTime(moment.addSecs(60), QFileDevice::FileAccessTime));
    }
    const HANDLE handle = CreateFile_X(folder.wide("file").c_str(), GENERIC_READ);
    FILETIME birth{77, 77}, access{}, write{};
    QCOMPARE(GetFileTime_X(handle, &birth, &access, &write), 1);
    QCOMPARE(numberOf(access), moment.toMSecsSinceEpoch() + 60000);
    QCOMPARE(numberOf(write), moment.toMSecsSinceEpoch());
    const QDateTime born = QFileInfo(folder.path("file")).birthTime();
    QCOMPARE(numberOf(birth), born.isValid() ? born.toMSecsSinceEpoch() : 0);
    FILETIME again{};
    QCOMPARE(GetFileTime_X(handle, nullptr, nullptr, &again), 1);
    QCOMPARE(CompareFileTime_X(&again, &write), 0);
    QCOMPARE(GetFileTime_X(handle, nullptr, nullptr, nullptr), 1);
    CloseHandle_X(handle);
}

void tst_FileTimes::settingStopsAtTheBirth()
{
    const Folder folder;
    folder.write("file", "x");
    const HANDLE handle = CreateFile_X(folder.wide("file").c_str(), GENERIC_READ | GENERIC_WRITE);
    FILETIME before{}, after{};
    GetFileTime_X(handle, nullptr, nullptr, &before);
    const FILETIME moment = timeOf(1234567890123);
    QCOMPARE(SetFileTime_X(handle, &moment, &moment, &moment), 0); // nobody can set a birth time here
    GetFileTime_X(handle, nullptr, nullptr, &after);
    QCOMPARE(CompareFileTime_X(&before, &after), 0);
    QCOMPARE(SetFileTime_X(handle, nullptr, &moment, &moment), 0);
    QCOMPARE(SetFileTime_X(handle, &moment, nullptr, &moment), 0);
    QCOMPARE(SetFileTime_X(handle, &moment, &moment, nullptr), 0);
    CloseHandle_X(handle);
}

XE_APPLESS_TEST(tst_FileTimes)
#include "tst_filetimes.moc"
