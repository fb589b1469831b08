// The date value: a QDateTime in local time beside a number of Unix seconds, in several time zones.

#include "testclass.h"

#include <xeoledt.h>

#include <cmath>
#include <ctime>
#include <limits>

namespace {

// Zones by rule, since a machine need not have the time zone database.
constexpr char berlin[] = "CET-1CEST,M3.5.0,M10.5.0/3";
constexpr char newYork[] = "EST5EDT,M3.2.0,M11.1.0";
constexpr char shanghai[] = "CST-8";

void setZone(const char* zone)
{
    qputenv("TZ", zone);
    tzset();
}

COleDateTime_X withStatus(COleDateTime_X::DateTimeStatus status, double seconds = 0)
{
    COleDateTime_X value(seconds);
    value.SetStatus(status);
    return value;
}

QString fields(const COleDateTime_X& value)
{
    return QStringLiteral("%1-%2-%3 %4:%5:%6")
        .arg(value.GetYear())
        .arg(value.GetMonth())
        .arg(value.GetDay())
        .arg(value.GetHour())
        .arg(value.GetMinute())
        .arg(value.GetSecond());
}

} // namespace

Q_DECLARE_METATYPE(COleDateTime_X)

class tst_OleDateTime : public QObject
{
    Q_OBJECT

private slots:
    void init() { setZone("UTC"); }

    void startsEmpty();
    void takesSeconds_data();
    void takesSeconds();
    void takesAnySeconds_data();
    void takesAnySeconds();
    void setsFields_data();
    void setsFields();
    void setsDateAndTime();
    void rejectedFieldsAreNotDetected();
    void keepsLow32Bits_data();
    void keepsLow32Bits();
    void currentTime();
    void dayOfWeekAndYear_data();
    void dayOfWeekAndYear();
    void numberNeedsAValidStatus();
    void settingMakesItValid();
    void parses_data();
    void parses();
    void formats_data();
    void formats();
    void compares_data();
    void compares();
    void copies();
};

void tst_OleDateTime::startsEmpty()
{
    const COleDateTime_X value;
    QCOMPARE(value.dt, 0.0);
    QCOMPARE(value.status, COleDateTime_X::valid);
    QVERIFY(value.isNull());
    QCOMPARE(double(value), 0.0);
}

void tst_OleDateTime::takesSeconds_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<double>("seconds");
    QTest::addColumn<QString>("local");
    QTest::newRow("zero in UTC") << QByteArray("UTC") << 0.0 << "1970-1-1 0:0:0";
    QTest::newRow("zero in Berlin") << QByteArray(berlin) << 0.0 << "1970-1-1 1:0:0";
    QTest::newRow("zero in New York") << QByteArray(newYork) << 0.0 << "1969-12-31 19:0:0";
    QTest::newRow("winter in Berlin") << QByteArray(berlin) << 1705320000.0 << "2024-1-15 13:0:0";
    QTest::newRow("summer in Berlin") << QByteArray(berlin) << 1721044800.0 << "2024-7-15 14:0:0";
    QTest::newRow("last second before summer time") << QByteArray(berlin) << 1711846799.0 << "2024-3-31 1:59:59";
    QTest::newRow("first second of summer time") << QByteArray(berlin) << 1711846800.0 << "2024-3-31 3:0:0";
    QTest::newRow("a fraction is cut") << QByteArray("UTC") << 59.999 << "1970-1-1 0:0:59";
    QTest::newRow("cut towards zero") << QByteArray("UTC") << -0.999 << "1970-1-1 0:0:0";
    QTest::newRow("before 1970") << QByteArray("UTC") << -1.0 << "1969-12-31 23:59:59";
    QTest::newRow("after 2106") << QByteArray("UTC") << 4294967296.0 << "2106-2-7 6:28:16";
}

void tst_OleDateTime::takesSeconds()
{
    QFETCH(QByteArray, zone);
    QFETCH(double, seconds);
    setZone(zone);
    const COleDateTime_X constructed(seconds);
    QTEST(fields(constructed), "local");
    QCOMPARE(constructed.dt, seconds);
    QCOMPARE(double(constructed), seconds);

    COleDateTime_X assigned = withStatus(COleDateTime_X::null, 77);
    assigned = seconds;
    QTEST(fields(assigned), "local");
    QCOMPARE(assigned.dt, seconds);
    QCOMPARE(assigned.GetStatus(), COleDateTime_X::valid);
}

void tst_OleDateTime::takesAnySeconds_data()
{
    QTest::addColumn<double>("seconds");
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
    QTest::newRow("minus infinite") << -std::numeric_limits<double>::infinity();
    QTest::newRow("beyond 64 bits") << 1e300;
    QTest::newRow("milliseconds beyond 64 bits") << 1e17;
}

void tst_OleDateTime::takesAnySeconds()
{
    QFETCH(double, seconds);
    COleDateTime_X value(1.0);
    value = seconds;
    QVERIFY(value.isNull());
    QCOMPARE(value.dt, seconds);
    QCOMPARE(value.GetStatus(), COleDateTime_X::valid);
    QCOMPARE(value.GetYear(), 0);
    QCOMPARE(value.GetHour(), -1);
}

void tst_OleDateTime::setsFields_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<QList<int>>("set");
    QTest::addColumn<double>("seconds");
    QTest::newRow("UTC") << QByteArray("UTC") << QList<int>{2024, 3, 5, 6, 7, 8} << 1709618828.0;
    QTest::newRow("Berlin, winter") << QByteArray(berlin) << QList<int>{2024, 3, 5, 6, 7, 8} << 1709615228.0;
    QTest::newRow("Berlin, summer") << QByteArray(berlin) << QList<int>{2024, 7, 5, 6, 7, 8} << 1720152428.0;
    QTest::newRow("New York, winter") << QByteArray(newYork) << QList<int>{2024, 1, 1, 0, 0, 0} << 1704085200.0;
    QTest::newRow("Shanghai") << QByteArray(shanghai) << QList<int>{2024, 1, 1, 0, 0, 0} << 1704038400.0;
    QTest::newRow("leap day") << QByteArray("UTC") << QList<int>{2024, 2, 29, 23, 59, 59} << 1709251199.0;
}

void tst_OleDateTime::setsFields()
{
    QFETCH(QByteArray, zone);
    QFETCH(QList<int>, set);
    setZone(zone);
    const COleDateTime_X constructed(set[0], set[1], set[2], set[3], set[4], set[5]);
    QTEST(constructed.dt, "seconds");
    COleDateTime_X value = withStatus(COleDateTime_X::invalid);
    QCOMPARE(value.SetDateTime(set[0], set[1], set[2], set[3], set[4], set[5]), 0);
    QTEST(double(value), "seconds");
    const QList<int> read{value.GetYear(), value.GetMonth(),  value.GetDay(),
                          value.GetHour(), value.GetMinute(), value.GetSecond()};
    QCOMPARE(read, set);
}

void tst_OleDateTime::setsDateAndTime()
{
    COleDateTime_X value;
    QCOMPARE(value.SetDate(2024, 3, 5), 0);
    QCOMPARE(fields(value), QStringLiteral("2024-3-5 0:0:0"));
    QCOMPARE(value.SetTime(12, 30, 0), 0);
    QCOMPARE(fields(value), QStringLiteral("1970-1-1 12:30:0"));
    QCOMPARE(value.dt, 45000.0);
}

void tst_OleDateTime::rejectedFieldsAreNotDetected()
{
    COleDateTime_X value = withStatus(COleDateTime_X::invalid);
    QCOMPARE(value.SetDateTime(2023, 2, 29, 12, 0, 0), 0);
    QCOMPARE(value.GetStatus(), COleDateTime_X::valid);
    value.SetStatus(COleDateTime_X::invalid);
    QCOMPARE(value.SetDateTime(2023, 2, 28, 25, 0, 0), 0);
    QCOMPARE(value.GetStatus(), COleDateTime_X::valid);
    QCOMPARE(fields(value), QStringLiteral("2023-2-28 0:0:0"));
}

void tst_OleDateTime::keepsLow32Bits_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<int>("year");
    QTest::addColumn<double>("seconds");
    QTest::newRow("last year that fits") << QByteArray("UTC") << 2106 << 4291747200.0;
    QTest::newRow("a year too late") << QByteArray("UTC") << 2107 << 4323283200.0 - 4294967296.0;
    QTest::newRow("a year too early") << QByteArray("UTC") << 1969 << -31536000.0 + 4294967296.0;
    QTest::newRow("midnight of 1970 in the east") << QByteArray(shanghai) << 1970 << -28800.0 + 4294967296.0;
}

void tst_OleDateTime::keepsLow32Bits()
{
    QFETCH(QByteArray, zone);
    QFETCH(int, year);
    setZone(zone);
    COleDateTime_X value;
    value.SetDate(year, 1, 1);
    QTEST(value.dt, "seconds");
    QCOMPARE(static_cast<double>(value.toSecsSinceEpoch()), value.dt);
}

void tst_OleDateTime::currentTime()
{
    const double before = static_cast<double>(QDateTime::currentSecsSinceEpoch());
    const COleDateTime_X now = COleDateTime_X::GetCurrentTime();
    const double after = static_cast<double>(QDateTime::currentSecsSinceEpoch());
    QVERIFY(before <= now.dt && now.dt <= after);
    QCOMPARE(static_cast<double>(now.toSecsSinceEpoch()), now.dt);
    QCOMPARE(now.timeSpec(), Qt::LocalTime);
}

void tst_OleDateTime::dayOfWeekAndYear_data()
{
    QTest::addColumn<int>("day");
    QTest::addColumn<int>("dayOfWeek");
    for (int i = 0; i < 7; ++i)
        QTest::addRow("%d days after a Monday", i) << 4 + i << 1 + i;
}

void tst_OleDateTime::dayOfWeekAndYear()
{
    QFETCH(int, day);
    const COleDateTime_X value(2024, 3, day, 23, 0, 0);
    QTEST(value.GetDayOfWeek(), "dayOfWeek");
    QCOMPARE(value.GetDayOfYear(), 60 + day);
}

void tst_OleDateTime::numberNeedsAValidStatus()
{
    QCOMPARE(double(withStatus(COleDateTime_X::valid, 5)), 5.0);
    QCOMPARE(double(withStatus(COleDateTime_X::invalid, 5)), 0.0);
    QCOMPARE(double(withStatus(COleDateTime_X::null, 5)), 0.0);
    QCOMPARE(withStatus(COleDateTime_X::null, 5).dt, 5.0);
}

void tst_OleDateTime::settingMakesItValid()
{
    COleDateTime_X value = withStatus(COleDateTime_X::null);
    value.SetDate(2000, 1, 1);
    QCOMPARE(value.GetStatus(), COleDateTime_X::valid);
    value.SetStatus(COleDateTime_X::invalid);
    value.SetTime(1, 2, 3);
    QCOMPARE(value.GetStatus(), COleDateTime_X::valid);
}

void tst_OleDateTime::parses_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<unsigned>("flags");
    QTest::addColumn<QString>("read");
    const QString untouched = QStringLiteral("2001-9-9 1:46:40");
    QTest::newRow("a time") << "2024-03-05 16:17:18" << VAR_TIMEVALUEONLY << "1970-1-1 16:17:18";
    QTest::newRow("a time is the second word") << "16:17:18" << VAR_TIMEVALUEONLY << "1970-1-1 0:0:0";
    QTest::newRow("of another form") << "x 6:17:18" << VAR_TIMEVALUEONLY << "1970-1-1 0:0:0";
    QTest::newRow("a date") << "2024-03-05 16:17:18" << VAR_DATEVALUEONLY << "2024-3-5 0:0:0";
    QTest::newRow("a date alone") << "2024-03-05" << VAR_DATEVALUEONLY << "2024-3-5 0:0:0";
    QTest::newRow("both flags mean time")
        << "2024-03-05 16:17:18" << (VAR_TIMEVALUEONLY | VAR_DATEVALUEONLY) << "1970-1-1 16:17:18";
    QTest::newRow("other bits do not matter") << "2024-03-05" << (VAR_DATEVALUEONLY | 0x80000000) << "2024-3-5 0:0:0";
    QTest::newRow("no flags") << "2024-03-05 16:17:18" << 0U << untouched;
    QTest::newRow("other flags") << "2024-03-05 16:17:18" << 4U << untouched;
    QTest::newRow("an empty text without flags") << "" << 0U << untouched;
}

void tst_OleDateTime::parses()
{
    QFETCH(QString, text);
    QFETCH(unsigned, flags);
    COleDateTime_X value(1e9);
    QCOMPARE(value.ParseDateTime(text.toStdWString().c_str(), flags, 2052), 1);
    QTEST(fields(value), "read");
    QCOMPARE(value.ParseDateTime(nullptr, flags), 1);
}

void tst_OleDateTime::formats_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("text");
    QTest::newRow("date") << "%Y-%m-%d"
                          << "2004-03-05";
    QTest::newRow("time") << "%H:%M:%S"
                          << "06:07:08";
    QTest::newRow("the short year is not padded") << "%y"
                                                  << "4";
    QTest::newRow("a token twice") << "%d%d"
                                   << "0505";
    QTest::newRow("others stay") << "%A %B %j %%"
                                 << "%A %B %j %%";
    QTest::newRow("behind a per cent sign too") << "%%Y"
                                                << "%2004";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("text around") << QString::fromUtf8("年 %Y 😀") << QString::fromUtf8("年 2004 😀");
}

void tst_OleDateTime::formats()
{
    QFETCH(QString, format);
    const COleDateTime_X value(2004, 3, 5, 6, 7, 8);
    const QString formatted = XeQString(value.Format(format.toStdWString().c_str()));
    QTEST(formatted, "text");
    QVERIFY(value.Format(nullptr).IsEmpty());
}

void tst_OleDateTime::compares_data()
{
    QTest::addColumn<COleDateTime_X>("a");
    QTest::addColumn<COleDateTime_X>("b");
    QTest::addColumn<bool>("equal");
    QTest::addColumn<bool>("less");
    QTest::addColumn<bool>("lessOrEqual");
    using Value = COleDateTime_X;
    QTest::newRow("equal seconds") << Value(5.25) << Value(5.25) << true << false << true;
    QTest::newRow("less by a fraction") << Value(5.25) << Value(5.5) << false << true << true;
    QTest::newRow("greater") << Value(6.0) << Value(5.5) << false << false << false;
    QTest::newRow("null and null") << withStatus(Value::null, 1) << withStatus(Value::null, 2) << true << false
                                   << false;
    QTest::newRow("invalid and invalid") << withStatus(Value::invalid) << withStatus(Value::invalid) << false << false
                                         << false;
    QTest::newRow("invalid and null") << withStatus(Value::invalid) << withStatus(Value::null) << false << false
                                      << false;
    QTest::newRow("valid and null") << Value(1.0) << withStatus(Value::null, 2) << false << false << false;
    QTest::newRow("invalid and valid") << withStatus(Value::invalid, 1) << Value(2.0) << false << false << false;
    QTest::newRow("no number") << Value(std::nan("")) << Value(std::nan("")) << false << false << false;
}

void tst_OleDateTime::compares()
{
    QFETCH(COleDateTime_X, a);
    QFETCH(COleDateTime_X, b);
    QFETCH(bool, equal);
    QFETCH(bool, less);
    QFETCH(bool, lessOrEqual);
    QCOMPARE(a == b, equal);
    QCOMPARE(b == a, equal);
    QCOMPARE(a != b, !equal);
    QCOMPARE(a < b, less);
    QCOMPARE(b > a, less);
    QCOMPARE(a <= b, lessOrEqual);
    QCOMPARE(b >= a, lessOrEqual);
}

void tst_OleDateTime::copies()
{
    const COleDateTime_X original = withStatus(COleDateTime_X::invalid, 1e9);
    COleDateTime_X copy(original);
    QCOMPARE(copy.dt, 1e9);
    QCOMPARE(copy.GetStatus(), COleDateTime_X::invalid);
    QCOMPARE(copy.toSecsSinceEpoch(), original.toSecsSinceEpoch());
    copy = COleDateTime_X(3.0);
    QCOMPARE(fields(copy), QStringLiteral("1970-1-1 0:0:3"));
}

XE_APPLESS_TEST(tst_OleDateTime)
#include "tst_oledatetime.moc"
