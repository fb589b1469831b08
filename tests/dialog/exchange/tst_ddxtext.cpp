// Texts and numbers between controls and variables.

#include "boxwatch.h"
#include "exchangewindow.h"
#include "testclass.h"

#include <leavenothing.h>

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTextEdit>

#include <limits>

namespace {

QWidget* const noControl = nullptr;

// A variable of each type that a number can have.
struct Numbers
{
    short s = 99;
    int i = 99;
    long l = 99;
    float f = 99;
    double d = 99;
    unsigned u = 99;

    void exchange(CDataExchange_X* dataExchange, QWidget* control, int type)
    {
        switch (type) {
        case TextShort:
            return DDX_Text(dataExchange, control, s);
        case TextInt:
            return DDX_Text(dataExchange, control, i);
        case TextLong:
            return DDX_Text(dataExchange, control, l);
        case TextFloat:
            return DDX_Text(dataExchange, control, f);
        case TextDouble:
            return DDX_Text(dataExchange, control, d);
        case TextUInt:
            return DDX_Text(dataExchange, control, u);
        }
    }
    void exchangeWithFormat(CDataExchange_X* dataExchange, QWidget* control, int type)
    {
        void* const variables[] = {nullptr, &s, &i, &l, &f, &d, &u};
        DDX_TextWithFormat(dataExchange, control, variables[type], static_cast<TextDataType>(type));
    }
    double value(int type) const
    {
        const double values[] = {0, double(s), double(i), double(l), double(f), d, double(u)};
        return values[type];
    }
};

class TitledWindow : public CWnd_X
{
public:
    QStringList texts;
    void SetWindowText(const wchar_t* text) override { texts += QString::fromWCharArray(text); }
};

} // namespace

class tst_DdxText : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::German)); }
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void typeNumbers();
    void parsed_data();
    void parsed();
    void limits();
    void notParsed_data();
    void notParsed();
    void shown_data();
    void shown();
    void doubleIsNotReadBackAsItWas();

    void text_data();
    void text();
    void equalTextCausesNoChange();
    void wrappedControlIsSetByItsWrapper();
    void setWindowText();

    void unknownType_data();
    void unknownType();
    void nullVariable();
    void nullControl();
};

// ------------------------------------------------------------------------------------------------------------ numbers

void tst_DdxText::typeNumbers()
{
    QCOMPARE((QVector<int>{TextShort, TextInt, TextLong, TextFloat, TextDouble, TextUInt}),
             (QVector<int>{1, 2, 3, 4, 5, 6}));
}

void tst_DdxText::parsed_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("value");
    const auto row = [](const char* name, int type, const char* text, double value) {
        QTest::addRow("%s", name) << type << QString::fromLatin1(text) << value;
    };
    row("short", TextShort, "-32768", -32768);
    row("int", TextInt, "-2147483648", -2147483648.0);
    row("int with a sign", TextInt, "+5", 5);
    row("int among blanks", TextInt, "  12 ", 12);
    row("int with zeros in front is decimal", TextInt, "010", 10);
    row("long", TextLong, "4294967296", 4294967296.0);
    row("float", TextFloat, "0.25", 0.25);
    row("float with exponent", TextFloat, "-2.5e3", -2500);
    row("double", TextDouble, "123456.75", 123456.75);
    row("double without a fraction", TextDouble, "7", 7);
    row("double with exponent", TextDouble, "1e-3", 0.001);
    row("unsigned", TextUInt, "4294967295", 4294967295.0);
}

void tst_DdxText::parsed()
{
    QFETCH(int, type);
    QFETCH(QString, text);
    QWidget widget;
    auto* const edit = new QLineEdit(text, &widget);
    ExchangeWindow window(&widget);
    Numbers numbers;
    QCOMPARE(window.save([&](CDataExchange_X* exchange) { numbers.exchange(exchange, edit, type); }), 1);
    QTEST(numbers.value(type), "value");
    Numbers others;
    QCOMPARE(window.save([&](CDataExchange_X* exchange) { others.exchangeWithFormat(exchange, edit, type); }), 1);
    QTEST(others.value(type), "value");
    for (int other = TextShort; other <= TextUInt; ++other) {
        if (other != type)
            QCOMPARE(others.value(other), 99.0);
    }
    QCOMPARE(edit->text(), text);
}

// Out and back in, to the last bit.
void tst_DdxText::limits()
{
    QWidget widget;
    auto* const edit = new QLineEdit(&widget);
    ExchangeWindow window(&widget);
    for (const long written : {std::numeric_limits<long>::min(), std::numeric_limits<long>::max()}) {
        long value = written;
        const auto exchangeValue = [&](CDataExchange_X* exchange) { DDX_Text(exchange, edit, value); };
        QCOMPARE(window.load(exchangeValue), 1);
        QCOMPARE(edit->text(), QString::fromStdString(std::to_string(written)));
        value = 0;
        QCOMPARE(window.save(exchangeValue), 1);
        QCOMPARE(value, written);
    }
}

void tst_DdxText::notParsed_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("text");
    const char* const types[] = {"", "short", "int", "long", "float", "double", "unsigned"};
    const auto row = [&types](int type, const char* name, const char* text) {
        QTest::addRow("%s: %s", types[type], name) << type << QString::fromLatin1(text);
    };
    for (int type = TextShort; type <= TextUInt; ++type) {
        row(type, "empty", "");
        row(type, "blank", " ");
        row(type, "no number", "abc");
        row(type, "number and text", "12abc");
        row(type, "two numbers", "1 2");
        row(type, "comma of the locale", "1,5");
        row(type, "hexadecimal", "0x10");
        row(type, "sign alone", "-");
    }
    for (const int type : {TextShort, TextInt, TextLong, TextUInt}) {
        row(type, "fraction", "1.5");
        row(type, "exponent", "1e3");
    }
    row(TextShort, "above the range", "32768");
    row(TextShort, "far above the range", "70000");
    row(TextShort, "below the range", "-32769");
    row(TextInt, "above the range", "2147483648");
    row(TextInt, "below the range", "-2147483649");
    row(TextLong, "above the range", "9223372036854775808");
    row(TextLong, "below the range", "-9223372036854775809");
    row(TextFloat, "above the range", "1e39");
    row(TextDouble, "above the range", "1e309");
    row(TextUInt, "above the range", "4294967296");
    row(TextUInt, "below the range", "-1");
}

void tst_DdxText::notParsed()
{
    QFETCH(int, type);
    QFETCH(QString, text);
    QWidget widget;
    auto* const other = new QLineEdit(&widget);
    auto* const edit = new QLineEdit(text, &widget);
    ExchangeWindow window(&widget);
    BoxWatch watch;
    Numbers numbers;
    other->setFocus();
    QCOMPARE(window.save([&](CDataExchange_X* exchange) { numbers.exchange(exchange, edit, type); }), 0);
    QCOMPARE(numbers.value(type), 99.0);
    QCOMPARE(widget.focusWidget(), edit);
    QCOMPARE(edit->selectedText(), text);
    QCOMPARE(watch.take(), QStringLiteral("警告: 请输入正确的数值！"));

    QCOMPARE(window.save([&](CDataExchange_X* exchange) { numbers.exchangeWithFormat(exchange, edit, type); }), 0);
    QCOMPARE(numbers.value(type), 99.0);
    QCOMPARE(watch.take(), QStringLiteral("警告: 请输入正确的数值！"));
}

void tst_DdxText::shown_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, int type, double value, const char* text) {
        QTest::newRow(name) << type << value << QString::fromLatin1(text);
    };
    row("short", TextShort, -32768, "-32768");
    row("int", TextInt, -2147483648.0, "-2147483648");
    row("int has no groups", TextInt, 1234567, "1234567");
    row("long", TextLong, 4294967296.0, "4294967296");
    row("float", TextFloat, 0.25, "0.25");
    row("float with six digits", TextFloat, 1234567, "1.23457e+06");
    row("double", TextDouble, -0.5, "-0.5");
    row("double with six digits", TextDouble, 1234567.0, "1.23457e+06");
    row("double with a long fraction", TextDouble, 3.14159265, "3.14159");
    row("small double", TextDouble, 0.00001, "1e-05");
    row("double without a fraction", TextDouble, 100000, "100000");
    row("double zero", TextDouble, 0, "0");
    row("unsigned", TextUInt, 4294967295.0, "4294967295");
}

void tst_DdxText::shown()
{
    QFETCH(int, type);
    QFETCH(double, value);
    Numbers numbers;
    numbers.s = type == TextShort ? static_cast<short>(value) : short(99);
    numbers.i = type == TextInt ? static_cast<int>(value) : 99;
    numbers.l = static_cast<long>(value);
    numbers.f = static_cast<float>(value);
    numbers.d = value;
    numbers.u = type == TextUInt ? static_cast<unsigned>(value) : 99;
    QWidget widget;
    auto* const edit = new QLineEdit(QStringLiteral("old"), &widget);
    auto* const another = new QLineEdit(&widget);
    ExchangeWindow window(&widget);
    QCOMPARE(window.load([&](CDataExchange_X* exchange) {
        numbers.exchange(exchange, edit, type);
        numbers.exchangeWithFormat(exchange, another, type);
    }),
             1);
    QTEST(edit->text(), "text");
    QTEST(another->text(), "text");
}

void tst_DdxText::doubleIsNotReadBackAsItWas()
{
    QWidget widget;
    auto* const edit = new QLineEdit(&widget);
    ExchangeWindow window(&widget);
    double value = 1234567.0;
    const auto exchangeValue = [&](CDataExchange_X* exchange) { DDX_Text(exchange, edit, value); };
    QCOMPARE(window.load(exchangeValue), 1);
    QCOMPARE(window.save(exchangeValue), 1);
    QCOMPARE(value, 1234570.0);
}

// -------------------------------------------------------------------------------------------------------------- texts

void tst_DdxText::text_data()
{
    QTest::addColumn<QString>("className");
    QTest::newRow("line edit") << QStringLiteral("QLineEdit");
    QTest::newRow("text edit") << QStringLiteral("QTextEdit");
    QTest::newRow("editable combo box") << QStringLiteral("QComboBox");
    QTest::newRow("button") << QStringLiteral("QPushButton");
    QTest::newRow("label") << QStringLiteral("QLabel");
    QTest::newRow("title of any other widget") << QStringLiteral("QFrame");
}

void tst_DdxText::text()
{
    QFETCH(QString, className);
    QWidget widget;
    new QLineEdit(&widget);
    new QTextEdit(&widget);
    (new QComboBox(&widget))->setEditable(true);
    new QPushButton(&widget);
    new QLabel(&widget);
    new QFrame(&widget);
    QWidget* control = nullptr;
    for (auto* child : widget.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (QLatin1String(child->metaObject()->className()) == className)
            control = child;
    }
    QVERIFY(control);
    ExchangeWindow window(&widget);
    for (const wchar_t* given : {L"螺栓 😀", L"", L"12 mm"}) {
        CString_X value(given);
        const auto exchangeValue = [&](CDataExchange_X* exchange) { DDX_Text(exchange, control, value); };
        QCOMPARE(window.load(exchangeValue), 1);
        CString_X shown;
        GetWindowText_X(control, shown);
        QCOMPARE(shown, CString_X(given));
        value = L"other";
        QCOMPARE(window.save(exchangeValue), 1);
        QCOMPARE(value, CString_X(given));
    }
}

void tst_DdxText::equalTextCausesNoChange()
{
    QWidget widget;
    auto* const edit = new QTextEdit(&widget);
    edit->setPlainText(QStringLiteral("12"));
    const QSignalSpy changes(edit, &QTextEdit::textChanged);
    ExchangeWindow window(&widget);
    CString_X text(L"12");
    int number = 12;
    const auto exchangeBoth = [&](CDataExchange_X* exchange) {
        DDX_Text(exchange, edit, text);
        DDX_Text(exchange, edit, number);
    };
    QCOMPARE(window.load(exchangeBoth), 1);
    QCOMPARE(changes.size(), 0);

    AfxSetWindowText(edit, L"21"); // of the same length
    QCOMPARE(changes.size(), 1);
    AfxSetWindowText(edit, L"21");
    QCOMPARE(changes.size(), 1);
    AfxSetWindowText(edit, L"210");
    QCOMPARE(changes.size(), 2);
}

void tst_DdxText::wrappedControlIsSetByItsWrapper()
{
    QWidget widget;
    auto* const edit = new QLineEdit(QStringLiteral("1"), &widget);
    TitledWindow control;
    QVERIFY(control.SubclassWindow(edit));
    ExchangeWindow window(&widget);
    int number = 1;
    const auto exchangeNumber = [&](CDataExchange_X* exchange) { DDX_Text(exchange, edit, number); };
    QCOMPARE(window.load(exchangeNumber), 1);
    QCOMPARE(control.texts, QStringList());
    number = 2;
    QCOMPARE(window.load(exchangeNumber), 1);
    QCOMPARE(control.texts, QStringList(QStringLiteral("2")));
}

void tst_DdxText::setWindowText()
{
    AfxSetWindowText(nullptr, L"text");
    QLineEdit edit;
    edit.setText(QStringLiteral("long text"));
    AfxSetWindowText(&edit, L"螺栓");
    QCOMPARE(edit.text(), QStringLiteral("螺栓"));
    QCOMPARE(edit.cursorPosition(), 0);
    AfxSetWindowText(&edit, CString_X());
    QCOMPARE(edit.text(), QString());
}

// ---------------------------------------------------------------------------------------------------------- no target

void tst_DdxText::unknownType_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("0") << 0;
    QTest::newRow("7") << 7;
    QTest::newRow("highest") << 255;
}

void tst_DdxText::unknownType()
{
    QFETCH(int, type);
    QWidget widget;
    auto* const edit = new QLineEdit(QStringLiteral("5"), &widget);
    ExchangeWindow window(&widget);
    BoxWatch watch;
    double value = 99;
    const auto exchangeValue = [&](CDataExchange_X* exchange) {
        DDX_TextWithFormat(exchange, edit, &value, static_cast<TextDataType>(type));
    };
    QCOMPARE(window.load(exchangeValue), 1);
    QCOMPARE(edit->text(), QStringLiteral("5"));
    QCOMPARE(watch.take(), QString());
    QCOMPARE(window.save(exchangeValue), 0);
    QCOMPARE(value, 99.0);
    QCOMPARE(edit->selectedText(), QStringLiteral("5"));
    QCOMPARE(watch.take(), QStringLiteral("警告: 请输入正确的数值！"));
}

void tst_DdxText::nullVariable()
{
    QWidget widget;
    auto* const edit = new QLineEdit(QStringLiteral("5"), &widget);
    ExchangeWindow window(&widget);
    const auto exchangeNothing = [edit](CDataExchange_X* exchange) {
        DDX_TextWithFormat(exchange, edit, nullptr, TextInt);
    };
    QCOMPARE(window.load(exchangeNothing), 1);
    QCOMPARE(window.save(exchangeNothing), 1);
    QCOMPARE(edit->text(), QStringLiteral("5"));
}

// The variable stays as it is.
void tst_DdxText::nullControl()
{
    QWidget widget;
    ExchangeWindow window(&widget);
    BoxWatch watch;
    CString_X text(L"text");
    const auto exchangeText = [&](CDataExchange_X* exchange) { DDX_Text(exchange, noControl, text); };
    QCOMPARE(window.load(exchangeText), 1);
    QCOMPARE(window.save(exchangeText), 1);
    QCOMPARE(text, CString_X(L"text"));
    for (int type = TextShort; type <= TextUInt; ++type) {
        Numbers numbers;
        const auto exchangeNumber = [&](CDataExchange_X* exchange) { numbers.exchange(exchange, noControl, type); };
        QCOMPARE(window.load(exchangeNumber), 1);
        QCOMPARE(window.save(exchangeNumber), 1);
        QCOMPARE(numbers.value(type), 99.0);
    }
    QCOMPARE(watch.take(), QString());
}

XE_TEST(tst_DdxText)
#include "tst_ddxtext.moc"
