// The text of a window, which Qt keeps in another place for each kind of control.

#include "functions/makewidget.h"
#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QCheckBox>
#include <QDateEdit>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTextEdit>
#include <QToolButton>

#include <climits>

namespace {

using Widget = std::unique_ptr<QWidget>;

QString textOf(QWidget* widget)
{
    CString_X text;
    GetWindowText_X(widget, text);
    return QString::fromWCharArray(text);
}

QComboBox* makeBox()
{
    auto* const box = new QComboBox;
    box->addItems({QStringLiteral("bolt"), QStringLiteral("Nut"), QStringLiteral("washer")});
    box->setCurrentIndex(2);
    return box;
}

QDateEdit* makeDateEdit()
{
    auto* const edit = new QDateEdit(QDate(2024, 3, 1));
    edit->setDisplayFormat(QStringLiteral("yyyy/MM/dd"));
    return edit;
}

template <class Control>
QWidget* makeWithText()
{
    auto* const control = new Control;
    control->setText(QStringLiteral("old"));
    return control;
}

template <class SpinBox>
QWidget* makeSpinBox()
{
    auto* const box = new SpinBox;
    box->setRange(INT_MIN, INT_MAX);
    box->setValue(7);
    return box;
}

// A wrapper that keeps texts to itself.
class TextWindow : public CWnd_X
{
public:
    void SetWindowText(const wchar_t* text) override { texts += text ? QString::fromWCharArray(text) : "null"; }
    void GetWindowText(CString_X& text) const override { text = L"not asked"; }

    QStringList texts;
};

} // namespace

class tst_WindowText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void nullWindow();
    void textOfEachKind_data();
    void textOfEachKind();
    void lengthIsInCodePoints();
    void textInABuffer_data();
    void textInABuffer();

    void settingEachKind_data();
    void settingEachKind();
    void nullTextIsEmpty();
    void lineEditShowsTheStartOfItsText();
    void spinBoxTakesTheNumber_data();
    void spinBoxTakesTheNumber();
    void doubleSpinBoxTakesTheNumber_data();
    void doubleSpinBoxTakesTheNumber();
    void comboBoxFindsItsRow_data();
    void comboBoxFindsItsRow();
    void comboBoxIsQuiet();
    void comboBoxShowsTheStartOfItsText();
    void wrapperGetsTheText_data();
    void wrapperGetsTheText();
    void detachedWidgetGetsItsTextItself();
};

void tst_WindowText::nullWindow()
{
    CString_X text(L"kept");
    wchar_t buffer[] = L"####";
    QCOMPARE(GetWindowText_X(nullptr, text), 0);
    QCOMPARE(GetWindowText_X(nullptr, buffer, 4), 0);
    QCOMPARE(GetWindowTextLength_X(nullptr), 0);
    QCOMPARE(SetWindowText_X(nullptr, L"text"), 0);
}

// ------------------------------------------------------------------------------------------------------------- reading

void tst_WindowText::textOfEachKind_data()
{
    QTest::addColumn<MakeWidget>("make");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, MakeWidget make, const char* text) {
        QTest::newRow(name) << make << QString::fromLatin1(text);
    };
    row("line edit", makeWithText<QLineEdit>, "old");
    row(
        "text edit", [] { return static_cast<QWidget*>(new QTextEdit("<b>one</b><br>two")); }, "one\ntwo");
    row(
        "combo box", [] { return static_cast<QWidget*>(makeBox()); }, "washer");
    row(
        "editable combo box",
        [] {
            auto* const box = makeBox();
            box->setEditable(true);
            box->setEditText(QStringLiteral("typed"));
            return static_cast<QWidget*>(box);
        },
        "typed");
    row(
        "spin box: as it is shown",
        [] {
            auto* const box = new QSpinBox;
            box->setPrefix(QStringLiteral("no "));
            box->setSuffix(QStringLiteral(" mm"));
            box->setValue(12);
            return static_cast<QWidget*>(box);
        },
        "no 12 mm");
    row(
        "double spin box",
        [] {
            auto* const box = new QDoubleSpinBox;
            box->setValue(2.5);
            return static_cast<QWidget*>(box);
        },
        "2.50");
    row(
        "date edit: a spin box of another kind", [] { return static_cast<QWidget*>(makeDateEdit()); }, "2024/03/01");
    row("push button", makeWithText<QPushButton>, "old");
    row("check box", makeWithText<QCheckBox>, "old");
    row("radio button", makeWithText<QRadioButton>, "old");
    row("tool button", makeWithText<QToolButton>, "old");
    row("label", makeWithText<QLabel>, "old");
    row(
        "widget: its title", [] { return new QWidget; }, "title");
    row(
        "group box: its window's title", [] { return static_cast<QWidget*>(new QGroupBox("group")); }, "title");
    row(
        "plain text edit: its window's title", [] { return static_cast<QWidget*>(new QPlainTextEdit("plain")); },
        "title");
}

void tst_WindowText::textOfEachKind()
{
    QFETCH(MakeWidget, make);
    QFETCH(QString, text);
    const Widget widget(make());
    widget->setWindowTitle(QStringLiteral("title"));
    CString_X read(L"before");
    QCOMPARE(GetWindowText_X(widget.get(), read), text.size());
    QCOMPARE(QString::fromWCharArray(read), text);
    QCOMPARE(GetWindowTextLength_X(widget.get()), text.size());
}

void tst_WindowText::lengthIsInCodePoints()
{
    QLineEdit edit(QStringLiteral("a😀螺"));
    CString_X text;
    QCOMPARE(GetWindowText_X(&edit, text), 3);
    QCOMPARE(GetWindowTextLength_X(&edit), 3);
    edit.clear();
    QCOMPARE(GetWindowText_X(&edit, text), 0);
    QCOMPARE(text.GetLength(), 0);
}

void tst_WindowText::textInABuffer_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("size");
    QTest::addColumn<QString>("buffer"); // of eight '#', with '.' for the terminator
    QTest::addColumn<int>("count");
    QTest::newRow("with room to spare") << "abc" << 8 << "abc.####" << 3;
    QTest::newRow("filled to the last element") << "abc" << 4 << "abc.####" << 3;
    QTest::newRow("cut so that the terminator fits") << "abcdef" << 4 << "abc.####" << 3;
    QTest::newRow("a terminator alone") << "abc" << 1 << ".#######" << 0;
    QTest::newRow("no size") << "abc" << 0 << "########" << 0;
    QTest::newRow("negative size") << "abc" << -4 << "########" << 0;
    QTest::newRow("empty text") << "" << 4 << ".#######" << 0;
    QTest::newRow("an element a code point") << "😀螺栓" << 3 << "😀螺.#####" << 2;
}

void tst_WindowText::textInABuffer()
{
    QFETCH(QString, text);
    QFETCH(int, size);
    QLabel label(text);
    std::wstring buffer(8, L'#');
    QTEST(GetWindowText_X(&label, &buffer[0], size), "count");
    std::replace(buffer.begin(), buffer.end(), L'\0', L'.');
    QTEST(QString::fromStdWString(buffer), "buffer");
    QCOMPARE(GetWindowText_X(&label, nullptr, size), 0);
}

// ------------------------------------------------------------------------------------------------------------- setting

void tst_WindowText::settingEachKind_data()
{
    QTest::addColumn<MakeWidget>("make");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("title");
    const auto row = [](const char* name, MakeWidget make, const char* text, const char* title) {
        QTest::newRow(name) << make << QString::fromLatin1(text) << QString::fromLatin1(title);
    };
    row("line edit", makeWithText<QLineEdit>, "12 <b>", "old title");
    row(
        "text edit: no markup", [] { return static_cast<QWidget*>(new QTextEdit("old")); }, "12 <b>", "old title");
    row(
        "combo box without such a row", [] { return static_cast<QWidget*>(makeBox()); }, "washer", "old title");
    row("spin box", makeSpinBox<QSpinBox>, "12", "old title");
    row("double spin box", makeSpinBox<QDoubleSpinBox>, "12.00", "old title");
    row(
        "date edit: its window's title", [] { return static_cast<QWidget*>(makeDateEdit()); }, "2024/03/01", "12 <b>");
    row("push button", makeWithText<QPushButton>, "12 <b>", "old title");
    row("check box", makeWithText<QCheckBox>, "12 <b>", "old title");
    row("radio button", makeWithText<QRadioButton>, "12 <b>", "old title");
    row("label", makeWithText<QLabel>, "12 <b>", "old title");
    row(
        "widget: its title", [] { return new QWidget; }, "12 <b>", "12 <b>");
    row(
        "group box: its window's title", [] { return static_cast<QWidget*>(new QGroupBox("group")); }, "12 <b>",
        "12 <b>");
}

void tst_WindowText::settingEachKind()
{
    QFETCH(MakeWidget, make);
    const Widget widget(make());
    widget->setWindowTitle(QStringLiteral("old title"));
    QCOMPARE(SetWindowText_X(widget.get(), L"12 <b>"), 1);
    QTEST(textOf(widget.get()), "text");
    QTEST(widget->windowTitle(), "title");
    if (const auto* group = qobject_cast<QGroupBox*>(widget.get()))
        QCOMPARE(group->title(), QStringLiteral("group"));
}

void tst_WindowText::nullTextIsEmpty()
{
    QLineEdit edit(QStringLiteral("old"));
    QCOMPARE(SetWindowText_X(&edit, nullptr), 1);
    QCOMPARE(edit.text(), QString());
    QSpinBox box;
    box.setValue(5);
    QCOMPARE(SetWindowText_X(&box, nullptr), 1);
    QCOMPARE(box.value(), 0);
}

void tst_WindowText::lineEditShowsTheStartOfItsText()
{
    QLineEdit edit(QStringLiteral("old"));
    QCOMPARE(edit.cursorPosition(), 3);
    SetWindowText_X(&edit, L"a longer one");
    QCOMPARE(edit.text(), QStringLiteral("a longer one"));
    QCOMPARE(edit.cursorPosition(), 0);
}

void tst_WindowText::spinBoxTakesTheNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("value");
    QTest::newRow("fraction cut off") << "12.7" << 12;
    QTest::newRow("negative fraction cut off") << "-12.7" << -12;
    QTest::newRow("leading blanks, other text behind") << "  42 mm" << 42;
    QTest::newRow("exponent") << "1.5e3" << 1500;
    QTest::newRow("no number") << "abc" << 0;
    QTest::newRow("a number behind other text") << "x5" << 0;
    QTest::newRow("empty") << "" << 0;
    QTest::newRow("highest") << "2147483647" << INT_MAX;
    QTest::newRow("lowest") << "-2147483648" << INT_MIN;
    QTest::newRow("too high") << "2147483648" << INT_MAX;
    QTest::newRow("far too high") << "1e300" << INT_MAX;
    QTest::newRow("far too low") << "-1e300" << INT_MIN;
}

void tst_WindowText::spinBoxTakesTheNumber()
{
    QFETCH(QString, text);
    const Widget box(makeSpinBox<QSpinBox>());
    QCOMPARE(SetWindowText_X(box.get(), CString_X(text)), 1);
    QTEST(static_cast<QSpinBox*>(box.get())->value(), "value");
}

void tst_WindowText::doubleSpinBoxTakesTheNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("value");
    QTest::newRow("fraction kept") << "12.75" << 12.75;
    QTest::newRow("negative") << "-0.5" << -0.5;
    QTest::newRow("no number") << "abc" << 0.;
    QTest::newRow("beyond the range") << "1e300" << 2147483647.;
}

void tst_WindowText::doubleSpinBoxTakesTheNumber()
{
    QFETCH(QString, text);
    const Widget box(makeSpinBox<QDoubleSpinBox>());
    QCOMPARE(SetWindowText_X(box.get(), CString_X(text)), 1);
    QTEST(static_cast<QDoubleSpinBox*>(box.get())->value(), "value");
}

void tst_WindowText::comboBoxFindsItsRow_data()
{
    QTest::addColumn<bool>("editable");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("shown");
    QTest::newRow("a row") << false << "bolt" << 0 << "bolt";
    QTest::newRow("a row in another case") << false << "nut" << 1 << "Nut";
    QTest::newRow("part of a row") << false << "bol" << 2 << "washer";
    QTest::newRow("no row") << false << "screw" << 2 << "washer";
    QTest::newRow("editable, a row") << true << "bolt" << 0 << "bolt";
    QTest::newRow("editable, a row in another case") << true << "NUT" << 1 << "Nut";
    QTest::newRow("editable, no row") << true << "screw" << 2 << "screw";
    QTest::newRow("editable, part of a row") << true << "bol" << 2 << "bol";
    QTest::newRow("editable, a pattern is only text") << true << "b*" << 2 << "b*";
    QTest::newRow("editable, empty") << true << "" << 2 << "";
}

void tst_WindowText::comboBoxFindsItsRow()
{
    QFETCH(bool, editable);
    QFETCH(QString, text);
    const std::unique_ptr<QComboBox> box(makeBox());
    box->setEditable(editable);
    QCOMPARE(SetWindowText_X(box.get(), CString_X(text)), 1);
    QTEST(box->currentIndex(), "row");
    QTEST(box->currentText(), "shown");
}

void tst_WindowText::comboBoxIsQuiet()
{
    const std::unique_ptr<QComboBox> box(makeBox());
    box->setEditable(true);
    int signalCount = 0;
    const auto count = [&signalCount] { ++signalCount; };
    connect(box.get(), QOverload<int>::of(&QComboBox::currentIndexChanged), count);
    connect(box.get(), &QComboBox::currentTextChanged, count);
    connect(box.get(), &QComboBox::editTextChanged, count);
    SetWindowText_X(box.get(), L"bolt");
    SetWindowText_X(box.get(), L"screw");
    QCOMPARE(signalCount, 0);
    QVERIFY(!box->signalsBlocked());
    box->setCurrentIndex(1);
    QVERIFY(signalCount > 0);
}

void tst_WindowText::comboBoxShowsTheStartOfItsText()
{
    const std::unique_ptr<QComboBox> box(makeBox());
    box->setEditable(true);
    for (const wchar_t* text : {L"bolt", L"screw"}) {
        SetWindowText_X(box.get(), text);
        QCOMPARE(box->lineEdit()->cursorPosition(), 0);
    }
}

void tst_WindowText::wrapperGetsTheText_data()
{
    QTest::addColumn<MakeWidget>("make");
    QTest::newRow("line edit") << MakeWidget(makeWithText<QLineEdit>);
    QTest::newRow("label") << MakeWidget(makeWithText<QLabel>);
    QTest::newRow("spin box") << MakeWidget(makeSpinBox<QSpinBox>);
    QTest::newRow("widget") << MakeWidget([] { return new QWidget; });
}

void tst_WindowText::wrapperGetsTheText()
{
    QFETCH(MakeWidget, make);
    const Widget widget(make());
    const QString before = textOf(widget.get());
    TextWindow wrapper;
    wrapper.SubclassWindow(widget.get());
    QCOMPARE(SetWindowText_X(widget.get(), L"12"), 1);
    QCOMPARE(SetWindowText_X(widget.get(), nullptr), 1);
    QCOMPARE(wrapper.texts, QStringList({QStringLiteral("12"), QStringLiteral("null")}));
    QCOMPARE(textOf(widget.get()), before); // read from the widget, wrapper or not
    QCOMPARE(widget->windowTitle(), QString());
}

void tst_WindowText::detachedWidgetGetsItsTextItself()
{
    QLineEdit edit;
    TextWindow wrapper;
    wrapper.SubclassWindow(&edit);
    wrapper.Detach();
    SetWindowText_X(&edit, L"12");
    QCOMPARE(edit.text(), QStringLiteral("12"));
    QCOMPARE(wrapper.texts, QStringList());
}

XE_TEST(tst_WindowText)
#include "tst_windowtext.moc"
