// The checks of data exchange: what passes, and what the user is told of the rest.

#include "boxwatch.h"
#include "exchangewindow.h"
#include "testclass.h"

#include <leavenothing.h>

#include <cmath>
#include <limits>

namespace {

using Check = ExchangeWindow::Exchange;

} // namespace
Q_DECLARE_METATYPE(Check)

class tst_Ddv : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void range_data();
    void range();

    void maxChars_data();
    void maxChars();
    void limitOnTheControl_data();
    void limitOnTheControl();
    void limitStaysAfterAFailure();
    void limitOfAComboBox();
    void limitWithoutAControl();
};

void tst_Ddv::range_data()
{
    QTest::addColumn<Check>("check");
    QTest::addColumn<QString>("message"); // empty: passes
    const auto row = [](const char* name, Check check, const QString& message = QString()) {
        QTest::newRow(name) << check << message;
    };
    const auto whole = [](int value, int minimum, int maximum) {
        return [=](CDataExchange_X* exchange) { DDV_MinMaxInt(exchange, value, minimum, maximum); };
    };
    const auto natural = [](unsigned value, unsigned minimum, unsigned maximum) {
        return [=](CDataExchange_X* exchange) { DDV_MinMaxUInt(exchange, value, minimum, maximum); };
    };
    const auto real = [](double value, double minimum, double maximum) {
        return [=](CDataExchange_X* exchange) { DDV_MinMaxDouble(exchange, value, minimum, maximum); };
    };
    row("int inside", whole(3, 1, 5));
    row("int at the minimum", whole(1, 1, 5));
    row("int at the maximum", whole(5, 1, 5));
    row("int in a range of one", whole(2, 2, 2));
    row("int below", whole(0, 1, 5), QStringLiteral("请填入一个1和5之间的整数。"));
    row("int above", whole(6, 1, 5), QStringLiteral("请填入一个1和5之间的整数。"));
    row("int below a negative range", whole(-9, -5, -1), QStringLiteral("请填入一个-5和-1之间的整数。"));
    row("int above the widest range but one", whole(INT_MAX, INT_MIN, INT_MAX - 1),
        QStringLiteral("请填入一个-2147483648和2147483646之间的整数。"));
    row("int, minimum above maximum", whole(99, 5, 1));
    row("unsigned inside", natural(3000000000u, 1, 4000000000u));
    row("unsigned at the minimum", natural(1, 1, 5));
    row("unsigned at the maximum", natural(5, 1, 5));
    row("unsigned below", natural(0, 1, 5), QStringLiteral("请填入一个1和5之间的整数。"));
    row("unsigned is compared without sign", natural(0xFFFFFFFFu, 0, 4000000000u),
        QStringLiteral("请填入一个0和4000000000之间的整数。"));
    row("unsigned, minimum above maximum", natural(99, 0xFFFFFFFFu, 1));
    row("double inside", real(0.5, 0.25, 0.75));
    row("double at the minimum", real(0.25, 0.25, 0.75));
    row("double at the maximum", real(0.75, 0.25, 0.75));
    row("double below", real(0.2, 0.25, 0.75), QStringLiteral("请填入一个0.25和0.75之间的数字。"));
    row("double just above", real(std::nextafter(0.75, 1), 0.25, 0.75),
        QStringLiteral("请填入一个0.25和0.75之间的数字。"));
    row("double with limits of many digits", real(0, 1.0 / 3, 1234567),
        QStringLiteral("请填入一个0.333333和1.23457e+06之间的数字。"));
    row("double with whole limits", real(11, -1, 10), QStringLiteral("请填入一个-1和10之间的数字。"));
    row("double, minimum above maximum", real(99, 5, 1));
    row("not a number lies in no range", real(std::numeric_limits<double>::quiet_NaN(), 1, 2),
        QStringLiteral("请填入一个1和2之间的数字。"));
}

void tst_Ddv::range()
{
    QFETCH(Check, check);
    QFETCH(QString, message);
    QWidget widget;
    auto* const other = new QLineEdit(&widget);
    auto* const edit = new QLineEdit(QStringLiteral("text"), &widget);
    other->setFocus();
    ExchangeWindow window(&widget);
    BoxWatch watch;
    const auto preparedCheck = [&](CDataExchange_X* exchange) {
        exchange->PrepareCtrl(edit);
        check(exchange);
    };
    QCOMPARE(window.load(preparedCheck), 1);
    QCOMPARE(watch.take(), QString());

    const bool passes = message.isEmpty();
    QCOMPARE(window.save(preparedCheck), passes ? 1 : 0);
    QCOMPARE(widget.focusWidget(), passes ? other : edit);
    QCOMPARE(edit->selectedText(), passes ? QString() : QStringLiteral("text"));
    QCOMPARE(watch.take(), passes ? QString() : QStringLiteral("警告: ") + message);
}

void tst_Ddv::maxChars_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("limit");
    QTest::addColumn<QString>("message"); // empty: passes
    QTest::newRow("shorter") << QStringLiteral("ab") << 3 << QString();
    QTest::newRow("of the length") << QStringLiteral("abc") << 3 << QString();
    QTest::newRow("longer") << QStringLiteral("abcd") << 3 << QStringLiteral("请填入不多于3个的字符。");
    QTest::newRow("much longer") << QString(2000, QLatin1Char('x')) << 1000
                                 << QStringLiteral("请填入不多于1000个的字符。");
    QTest::newRow("empty") << QString() << 1 << QString();
    QTest::newRow("one element a character") << QStringLiteral("😀螺栓") << 3 << QString();
    QTest::newRow("limit 0") << QStringLiteral("abcd") << 0 << QString();
    QTest::newRow("limit below 0") << QStringLiteral("abcd") << -1 << QString();
}

void tst_Ddv::maxChars()
{
    QFETCH(QString, text);
    QFETCH(int, limit);
    QFETCH(QString, message);
    QWidget widget;
    auto* const edit = new QLineEdit(text, &widget);
    ExchangeWindow window(&widget);
    BoxWatch watch;
    CString_X value;
    QCOMPARE(window.save([&](CDataExchange_X* exchange) {
        DDX_Text(exchange, edit, value);
        DDV_MaxChars(exchange, value, limit);
    }),
             message.isEmpty() ? 1 : 0);
    QCOMPARE(XeQString(value), text);
    QCOMPARE(watch.take(), message.isEmpty() ? QString() : QStringLiteral("警告: ") + message);
    QCOMPARE(edit->selectedText(), message.isEmpty() ? QString() : text);
}

void tst_Ddv::limitOnTheControl_data()
{
    QTest::addColumn<int>("limit");
    QTest::addColumn<int>("maxLength");
    QTest::newRow("1") << 1 << 1;
    QTest::newRow("40") << 40 << 40;
    QTest::newRow("0 leaves it") << 0 << 32767;
    QTest::newRow("-1 leaves it") << -1 << 32767;
}

void tst_Ddv::limitOnTheControl()
{
    QFETCH(int, limit);
    QFETCH(int, maxLength);
    QWidget widget;
    auto* const loaded = new QLineEdit(&widget);
    auto* const saved = new QLineEdit(&widget);
    ExchangeWindow window(&widget);
    CString_X value;
    const auto exchangeWith = [&](QLineEdit* edit) {
        return [&value, edit, limit](CDataExchange_X* exchange) {
            DDX_Text(exchange, edit, value);
            DDV_MaxChars(exchange, value, limit);
        };
    };
    QCOMPARE(window.load(exchangeWith(loaded)), 1);
    QCOMPARE(loaded->maxLength(), maxLength);
    QCOMPARE(window.save(exchangeWith(saved)), 1);
    QCOMPARE(saved->maxLength(), maxLength);
}

// A text that is too long is loaded, and cut by the limit that follows.
void tst_Ddv::limitStaysAfterAFailure()
{
    QWidget widget;
    auto* const edit = new QLineEdit(QStringLiteral("abcd"), &widget);
    ExchangeWindow window(&widget);
    BoxWatch watch;
    CString_X value;
    const auto exchangeValue = [&](CDataExchange_X* exchange) {
        DDX_Text(exchange, edit, value);
        DDV_MaxChars(exchange, value, 3);
    };
    QCOMPARE(window.save(exchangeValue), 0);
    QCOMPARE(edit->maxLength(), 32767);
    QCOMPARE(watch.take(), QStringLiteral("警告: 请填入不多于3个的字符。"));
    QCOMPARE(window.load(exchangeValue), 1);
    QCOMPARE(edit->maxLength(), 3);
    QCOMPARE(edit->text(), QStringLiteral("abc"));
    QCOMPARE(watch.take(), QString());
}

void tst_Ddv::limitOfAComboBox()
{
    QWidget widget;
    auto* const box = new QComboBox(&widget);
    box->setEditable(true);
    ExchangeWindow window(&widget);
    CString_X value(L"ab");
    QCOMPARE(window.load([&](CDataExchange_X* exchange) {
        DDX_CBString(exchange, box, value);
        DDV_MaxChars(exchange, value, 12);
    }),
             1);
    QCOMPARE(box->lineEdit()->maxLength(), 12);
}

void tst_Ddv::limitWithoutAControl()
{
    QWidget widget;
    ExchangeWindow window(&widget);
    BoxWatch watch;
    const auto check = [](CDataExchange_X* exchange) { DDV_MaxChars(exchange, L"abcd", 3); };
    QCOMPARE(window.load(check), 1);
    QCOMPARE(window.save(check), 0);
    QCOMPARE(watch.take(), QString());
}

XE_TEST(tst_Ddv)
#include "tst_ddv.moc"
