// Choices between controls and variables: check boxes, radio buttons, combo boxes, sliders; and controls as such.

#include "boxwatch.h"
#include "exchangewindow.h"
#include "testclass.h"

#include <leavenothing.h>

#include <xeafxdlg.h>

#include <QButtonGroup>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>

namespace {

// Radio buttons in a window, by name, and the window that exchanges with them.
class RadioForm
{
public:
    RadioForm() : window(&widget) {}

    QRadioButton* add(const char* name)
    {
        auto* const button = new QRadioButton(&widget);
        button->setObjectName(QString::fromLatin1(name));
        return button;
    }
    int load(QRadioButton* first, int value)
    {
        return window.load([&](CDataExchange_X* exchange) { DDX_Radio(exchange, first, value); });
    }
    // What the variable holds after saving.
    int saved(QRadioButton* first, int value)
    {
        const int done = window.save([&](CDataExchange_X* exchange) { DDX_Radio(exchange, first, value); });
        return done ? value : -99;
    }
    QString checked() const
    {
        QStringList names;
        for (const auto* button : widget.findChildren<QRadioButton*>()) {
            if (button->isChecked())
                names += button->objectName();
        }
        return names.join(QLatin1Char(' '));
    }

    QWidget widget;
    ExchangeWindow window;
};

struct ComboForm
{
    ComboForm() : window(&widget)
    {
        box = new QComboBox(&widget);
        box->addItems({QStringLiteral("bolt"), QStringLiteral("Bolt"), QStringLiteral("bolt long")});
    }

    QWidget widget;
    QComboBox* box;
    ExchangeWindow window;
};

class SignalCount
{
public:
    explicit SignalCount(QComboBox* box)
    {
        const auto add = [this] { ++count; };
        QObject::connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), &m_context, add);
        QObject::connect(box, &QComboBox::currentTextChanged, &m_context, add);
        QObject::connect(box, &QComboBox::editTextChanged, &m_context, add);
        QObject::connect(box, QOverload<int>::of(&QComboBox::activated), &m_context, add);
    }

    int count = 0;

private:
    QObject m_context;
};

} // namespace

class tst_DdxChoices : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void check_data();
    void check();
    void checkHasNoThirdState();
    void checkedGroupBox();

    void radio();
    void radioWithAnIndexOutside_data();
    void radioWithAnIndexOutside();
    void radioWithoutACheckedButton();
    void radioFollowsTheTabOrder();
    void radioEndsAtTheFirstOtherWidget();
    void radioFromTheMiddle();
    void radioAcrossButtonGroups();
    void radioInARingOfRadioButtons();
    void radioNull();

    void comboIndex_data();
    void comboIndex();
    void comboIndexSaved();
    void comboText_data();
    void comboText();
    void comboTextSaved();
    void comboTextIsFoundByTheWholeText();
    void comboLoadsInSilence_data();
    void comboLoadsInSilence();
    void textOfALineEdit();

    void scroll();
    void slider();
    void sliderKeepsToItsRange();
    void sliderSignals();

    void control();
    void controlOfTheWrongClass();
    void controlThatIsThereAlready();
    void controlWhenSaving();
    void everyChoiceIsPrepared();
};

// -------------------------------------------------------------------------------------------------------- check boxes

void tst_DdxChoices::check_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("checked");
    QTest::newRow("0") << 0 << false;
    QTest::newRow("1") << 1 << true;
    QTest::newRow("2 is checked") << 2 << true;
    QTest::newRow("-1 is checked") << -1 << true;
}

void tst_DdxChoices::check()
{
    QFETCH(int, value);
    QFETCH(bool, checked);
    QWidget widget;
    auto* const box = new QCheckBox(&widget);
    auto* const button = new QPushButton(&widget);
    button->setCheckable(true);
    ExchangeWindow window(&widget);
    for (QAbstractButton* control : {static_cast<QAbstractButton*>(box), static_cast<QAbstractButton*>(button)}) {
        control->setChecked(!checked);
        int variable = value;
        const auto exchangeValue = [&](CDataExchange_X* exchange) { DDX_Check(exchange, control, variable); };
        QCOMPARE(window.load(exchangeValue), 1);
        QCOMPARE(control->isChecked(), checked);
        variable = 99;
        QCOMPARE(window.save(exchangeValue), 1);
        QCOMPARE(variable, checked ? 1 : 0);
    }
}

void tst_DdxChoices::checkHasNoThirdState()
{
    QWidget widget;
    auto* const box = new QCheckBox(&widget);
    box->setTristate(true);
    ExchangeWindow window(&widget);
    int value = 2;
    const auto exchangeValue = [&](CDataExchange_X* exchange) { DDX_Check(exchange, box, value); };
    QCOMPARE(window.load(exchangeValue), 1);
    QCOMPARE(box->checkState(), Qt::Checked);
    box->setCheckState(Qt::PartiallyChecked);
    QCOMPARE(window.save(exchangeValue), 1);
    QCOMPARE(value, box->isChecked() ? 1 : 0);
}

void tst_DdxChoices::checkedGroupBox()
{
    QWidget widget;
    auto* const box = new QGroupBox(&widget);
    box->setCheckable(true);
    ExchangeWindow window(&widget);
    int value = 0;
    const auto exchangeValue = [&](CDataExchange_X* exchange) { DDX_Check(exchange, box, value); };
    QCOMPARE(window.load(exchangeValue), 1);
    QVERIFY(!box->isChecked());
    value = 99;
    QCOMPARE(window.save(exchangeValue), 1);
    QCOMPARE(value, 0);
    value = 2;
    QCOMPARE(window.load(exchangeValue), 1);
    QVERIFY(box->isChecked());
    QCOMPARE(window.save(exchangeValue), 1);
    QCOMPARE(value, 1);
}

// ------------------------------------------------------------------------------------------------------ radio buttons

void tst_DdxChoices::radio()
{
    RadioForm form;
    QRadioButton* const first = form.add("a");
    form.add("b");
    form.add("c");
    const QStringList names{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
    for (const int index : {2, 0, 1}) {
        QCOMPARE(form.load(first, index), 1);
        QCOMPARE(form.checked(), names[index]);
        QCOMPARE(form.saved(first, 99), index);
    }
}

void tst_DdxChoices::radioWithAnIndexOutside_data()
{
    QTest::addColumn<int>("value");
    QTest::newRow("-1") << -1;
    QTest::newRow("past the end") << 2;
}

// Buttons that exclude each other always have one checked, once there is one.
void tst_DdxChoices::radioWithAnIndexOutside()
{
    QFETCH(int, value);
    RadioForm form;
    QRadioButton* const first = form.add("a");
    QRadioButton* const second = form.add("b");
    QCOMPARE(form.load(first, value), 1);
    QCOMPARE(form.checked(), QString());
    second->setChecked(true);
    QCOMPARE(form.load(first, value), 1);
    QCOMPARE(form.checked(), QStringLiteral("b"));
    first->setAutoExclusive(false);
    second->setAutoExclusive(false);
    QCOMPARE(form.load(first, value), 1);
    QCOMPARE(form.checked(), QString());
}

void tst_DdxChoices::radioWithoutACheckedButton()
{
    RadioForm form;
    QRadioButton* const first = form.add("a");
    form.add("b");
    QCOMPARE(form.saved(first, 7), 7);
}

void tst_DdxChoices::radioFollowsTheTabOrder()
{
    RadioForm form;
    QRadioButton* const middle = form.add("middle");
    QRadioButton* const first = form.add("first");
    form.add("last");
    QWidget::setTabOrder(first, middle);
    QCOMPARE(form.load(first, 2), 1);
    QCOMPARE(form.checked(), QStringLiteral("last"));
    QCOMPARE(form.saved(first, 99), 2);
    middle->setChecked(true);
    QCOMPARE(form.saved(first, 99), 1);
}

void tst_DdxChoices::radioEndsAtTheFirstOtherWidget()
{
    RadioForm form;
    QRadioButton* const first = form.add("a");
    form.add("b");
    new QLabel(&form.widget); // out of the user's tab order, and in the chain
    QRadioButton* const beyond = form.add("c");
    beyond->setAutoExclusive(false);
    beyond->setChecked(true);
    QCOMPARE(form.saved(first, 99), 99);
    QCOMPARE(form.load(first, 2), 1);
    QCOMPARE(form.checked(), QStringLiteral("c"));
    QCOMPARE(form.load(first, 1), 1);
    QCOMPARE(form.checked(), QStringLiteral("b c"));
    QCOMPARE(form.saved(first, 99), 1);
}

void tst_DdxChoices::radioFromTheMiddle()
{
    RadioForm form;
    form.add("a");
    QRadioButton* const middle = form.add("b");
    form.add("c");
    QCOMPARE(form.load(middle, 1), 1);
    QCOMPARE(form.checked(), QStringLiteral("c"));
    QCOMPARE(form.saved(middle, 99), 1);
}

// A group of Qt's does not bound the walk; the first checked button counts.
void tst_DdxChoices::radioAcrossButtonGroups()
{
    RadioForm form;
    QButtonGroup one;
    QButtonGroup two;
    QRadioButton* const first = form.add("a");
    QRadioButton* const second = form.add("b");
    QRadioButton* const third = form.add("c");
    one.addButton(first);
    one.addButton(second);
    two.addButton(third);
    third->setChecked(true);
    QCOMPARE(form.saved(first, 99), 2);
    second->setChecked(true);
    QCOMPARE(form.checked(), QStringLiteral("b c"));
    QCOMPARE(form.saved(first, 99), 1);
}

void tst_DdxChoices::radioInARingOfRadioButtons()
{
    QWidget widget;
    ExchangeWindow window(&widget);
    QRadioButton first;
    auto* const second = new QRadioButton(&first);
    auto* const third = new QRadioButton(&first);
    QCOMPARE(third->nextInFocusChain(), &first);
    int value = 2;
    const auto exchangeValue = [&](CDataExchange_X* exchange) { DDX_Radio(exchange, &first, value); };
    QCOMPARE(window.load(exchangeValue), 1);
    QVERIFY(!first.isChecked());
    QVERIFY(!second->isChecked());
    QVERIFY(third->isChecked());
    value = 99;
    QCOMPARE(window.save(exchangeValue), 1);
    QCOMPARE(value, 2);
    third->setAutoExclusive(false);
    third->setChecked(false);
    value = 99;
    QCOMPARE(window.save(exchangeValue), 1);
    QCOMPARE(value, 99);
}

void tst_DdxChoices::radioNull()
{
    RadioForm form;
    QCOMPARE(form.load(nullptr, 1), 1);
    QCOMPARE(form.saved(nullptr, 7), 7);
}

// -------------------------------------------------------------------------------------------------------- combo boxes

void tst_DdxChoices::comboIndex_data()
{
    QTest::addColumn<bool>("editable");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("row");
    for (const bool editable : {false, true}) {
        const char* const kind = editable ? "editable" : "list";
        QTest::addRow("%s: a row", kind) << editable << 2 << 2;
        QTest::addRow("%s: no row", kind) << editable << -1 << -1;
        QTest::addRow("%s: past the end", kind) << editable << 9 << -1;
    }
}

void tst_DdxChoices::comboIndex()
{
    QFETCH(bool, editable);
    QFETCH(int, value);
    ComboForm form;
    form.box->setEditable(editable);
    const SignalCount signalCount(form.box);
    QCOMPARE(form.window.load([&](CDataExchange_X* exchange) { DDX_CBIndex(exchange, form.box, value); }), 1);
    QTEST(form.box->currentIndex(), "row");
    QCOMPARE(signalCount.count, 0);
    QVERIFY(!form.box->signalsBlocked());
    if (editable)
        QCOMPARE(form.box->lineEdit()->cursorPosition(), 0);
}

void tst_DdxChoices::comboIndexSaved()
{
    ComboForm form;
    int value = 99;
    const auto exchangeValue = [&](CDataExchange_X* exchange) { DDX_CBIndex(exchange, form.box, value); };
    for (const int row : {1, -1, 0}) {
        form.box->setCurrentIndex(row);
        QCOMPARE(form.window.save(exchangeValue), 1);
        QCOMPARE(value, row);
    }
}

void tst_DdxChoices::comboText_data()
{
    QTest::addColumn<bool>("editable");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("row");
    const auto row = [](const char* name, bool editable, const char* value, const char* text, int index) {
        QTest::newRow(name) << editable << QString::fromUtf8(value) << QString::fromUtf8(text) << index;
    };
    row("list: a row", false, "bolt long", "bolt long", 2);
    row("list: in the other case", false, "Bolt", "Bolt", 1);
    row("list: no such row", false, "nut", "bolt", 0);
    row("list: a prefix is no row", false, "bolt l", "bolt", 0);
    row("editable: a row", true, "bolt long", "bolt long", 2);
    row("editable: in the other case", true, "Bolt", "Bolt", 1);
    row("editable: a case of its own", true, "BOLT", "BOLT", 0);
    row("editable: a text of its own", true, "螺栓", "螺栓", 0);
    row("editable: empty", true, "", "", 0);
}

void tst_DdxChoices::comboText()
{
    QFETCH(bool, editable);
    QFETCH(QString, value);
    using ExchangeText = void (*)(CDataExchange_X*, QComboBox*, CString_X&);
    for (const ExchangeText exchangeText : {ExchangeText(&DDX_CBString), ExchangeText(&DDX_CBStringExact)}) {
        ComboForm form;
        form.box->setEditable(editable);
        const SignalCount signalCount(form.box);
        CString_X variable(value);
        QCOMPARE(form.window.load([&](CDataExchange_X* exchange) { exchangeText(exchange, form.box, variable); }), 1);
        QTEST(form.box->currentText(), "text");
        QTEST(form.box->currentIndex(), "row");
        QCOMPARE(signalCount.count, 0);
        QVERIFY(!form.box->signalsBlocked());
        if (editable)
            QCOMPARE(form.box->lineEdit()->cursorPosition(), 0);
        QCOMPARE(form.box->count(), 3);
    }
}

void tst_DdxChoices::comboTextSaved()
{
    ComboForm form;
    form.box->setEditable(true);
    CString_X value;
    CString_X exactValue;
    const auto exchangeBoth = [&](CDataExchange_X* exchange) {
        DDX_CBString(exchange, form.box, value);
        DDX_CBStringExact(exchange, form.box, exactValue);
    };
    for (const QString& text : {QStringLiteral("bolt long"), QStringLiteral("螺栓 😀"), QString()}) {
        form.box->setCurrentText(text);
        QCOMPARE(form.window.save(exchangeBoth), 1);
        QCOMPARE(XeQString(value), text);
        QCOMPARE(XeQString(exactValue), text);
    }
}

// The first row of the text, among rows that contain it.
void tst_DdxChoices::comboTextIsFoundByTheWholeText()
{
    ComboForm form;
    form.box->setEditable(true);
    form.box->addItem(QStringLiteral("long"));
    CString_X value(L"long");
    QCOMPARE(form.window.load([&](CDataExchange_X* exchange) { DDX_CBString(exchange, form.box, value); }), 1);
    QCOMPARE(form.box->currentIndex(), 3);
}

void tst_DdxChoices::comboLoadsInSilence_data()
{
    QTest::addColumn<bool>("editable");
    QTest::newRow("list") << false;
    QTest::newRow("editable") << true;
}

// The same steps by hand are heard: the test can fail.
void tst_DdxChoices::comboLoadsInSilence()
{
    QFETCH(bool, editable);
    ComboForm form;
    form.box->setEditable(editable);
    const SignalCount signalCount(form.box);
    int index = 1;
    CString_X text(L"bolt long");
    QCOMPARE(form.window.load([&](CDataExchange_X* exchange) {
        DDX_CBIndex(exchange, form.box, index);
        DDX_CBString(exchange, form.box, text);
    }),
             1);
    QCOMPARE(signalCount.count, 0);
    form.box->setCurrentIndex(1);
    QVERIFY(signalCount.count > 0);
}

void tst_DdxChoices::textOfALineEdit()
{
    QWidget widget;
    auto* const edit = new QLineEdit(QStringLiteral("old"), &widget);
    ExchangeWindow window(&widget);
    CString_X value(L"螺栓 😀");
    const auto exchangeValue = [&](CDataExchange_X* exchange) { DDX_CBString(exchange, edit, value); };
    QCOMPARE(window.load(exchangeValue), 1);
    QCOMPARE(edit->text(), QStringLiteral("螺栓 😀"));
    QCOMPARE(edit->cursorPosition(), 0);
    edit->setText(QStringLiteral("new"));
    QCOMPARE(window.save(exchangeValue), 1);
    QCOMPARE(value, CString_X(L"new"));
}

// ------------------------------------------------------------------------------------------------------------ sliders

void tst_DdxChoices::scroll()
{
    QWidget widget;
    auto* const bar = new QScrollBar(&widget);
    bar->setRange(-10, 10);
    ExchangeWindow window(&widget);
    int value = -7;
    const auto exchangeValue = [&](CDataExchange_X* exchange) { DDX_Scroll(exchange, bar, value); };
    QCOMPARE(window.load(exchangeValue), 1);
    QCOMPARE(bar->value(), -7);
    bar->setValue(4);
    QCOMPARE(window.save(exchangeValue), 1);
    QCOMPARE(value, 4);
}

void tst_DdxChoices::slider()
{
    QWidget widget;
    auto* const slider = new QSlider(&widget);
    slider->setRange(-10, 10);
    ExchangeWindow window(&widget);
    int value = -7;
    const auto exchangeValue = [&](CDataExchange_X* exchange) { DDX_Slider(exchange, slider, value); };
    QCOMPARE(window.load(exchangeValue), 1);
    QCOMPARE(slider->value(), -7);
    slider->setValue(4);
    QCOMPARE(window.save(exchangeValue), 1);
    QCOMPARE(value, 4);
}

void tst_DdxChoices::sliderKeepsToItsRange()
{
    QWidget widget;
    auto* const slider = new QSlider(&widget);
    slider->setRange(1, 10);
    ExchangeWindow window(&widget);
    int value = 99;
    const auto exchangeValue = [&](CDataExchange_X* exchange) { DDX_Slider(exchange, slider, value); };
    QCOMPARE(window.load(exchangeValue), 1);
    QCOMPARE(slider->value(), 10);
    QCOMPARE(value, 99);
    QCOMPARE(window.save(exchangeValue), 1);
    QCOMPARE(value, 10);
}

// Signals are blocked on combo boxes alone.
void tst_DdxChoices::sliderSignals()
{
    QWidget widget;
    auto* const slider = new QSlider(&widget);
    const QSignalSpy changes(slider, &QSlider::valueChanged);
    ExchangeWindow window(&widget);
    int value = 5;
    QCOMPARE(window.load([&](CDataExchange_X* exchange) { DDX_Slider(exchange, slider, value); }), 1);
    QCOMPARE(changes.size(), 1);
}

// ----------------------------------------------------------------------------------------------------------- controls

void tst_DdxChoices::control()
{
    QWidget widget;
    auto* const edit = new QLineEdit(&widget);
    ExchangeWindow window(&widget);
    CWnd_X member;
    const auto exchangeMember = [&](CDataExchange_X* exchange) {
        DDX_Control(exchange, edit, member);
        QCOMPARE(exchange->m_pCurCtrl, edit);
    };
    QCOMPARE(window.load(exchangeMember), 1);
    QCOMPARE(member.GetSafeHwnd(), edit);
    QVERIFY(member.IsExternalImpObj());
    QCOMPARE(CWnd_X::FromHandlePermanent(edit), &member);
}

void tst_DdxChoices::controlOfTheWrongClass()
{
    QWidget widget;
    auto* const edit = new QLineEdit(&widget);
    ExchangeWindow window(&widget);
    CDialog_X member;
    QCOMPARE(window.load([&](CDataExchange_X* exchange) { DDX_Control(exchange, edit, member); }), 1);
    QVERIFY(!member.GetSafeHwnd());
    QVERIFY(!CWnd_X::FromHandlePermanent(edit));
}

void tst_DdxChoices::controlThatIsThereAlready()
{
    QWidget widget;
    auto* const first = new QLineEdit(&widget);
    auto* const second = new QLineEdit(&widget);
    ExchangeWindow window(&widget);
    CWnd_X member;
    QVERIFY(member.SubclassWindow(first));
    QCOMPARE(window.load([&](CDataExchange_X* exchange) {
        DDX_Control(exchange, second, member);
        QCOMPARE(exchange->m_pCurCtrl, nullptr);
    }),
             1);
    QCOMPARE(member.GetSafeHwnd(), first);
    QVERIFY(!CWnd_X::FromHandlePermanent(second));
}

void tst_DdxChoices::controlWhenSaving()
{
    QWidget widget;
    auto* const edit = new QLineEdit(&widget);
    ExchangeWindow window(&widget);
    CWnd_X member;
    QCOMPARE(window.save([&](CDataExchange_X* exchange) {
        DDX_Control(exchange, edit, member);
        QCOMPARE(exchange->m_pCurCtrl, edit);
    }),
             1);
    QVERIFY(!member.GetSafeHwnd());
}

// So that a check behind it is about this control.
void tst_DdxChoices::everyChoiceIsPrepared()
{
    QWidget widget;
    QCheckBox check(&widget);
    QGroupBox group(&widget);
    QRadioButton radioButton(&widget);
    QComboBox box(&widget);
    QLineEdit edit(&widget);
    QScrollBar bar(&widget);
    QSlider slider(&widget);
    ExchangeWindow window(&widget);
    int number = 0;
    CString_X text;
    const auto exchangeAll = [&](CDataExchange_X* exchange) {
        DDX_Check(exchange, &check, number);
        QCOMPARE(exchange->m_pCurCtrl, &check);
        DDX_Check(exchange, &group, number);
        QCOMPARE(exchange->m_pCurCtrl, &group);
        DDX_Radio(exchange, &radioButton, number);
        QCOMPARE(exchange->m_pCurCtrl, &radioButton);
        DDX_CBIndex(exchange, &box, number);
        QCOMPARE(exchange->m_pCurCtrl, &box);
        DDX_CBString(exchange, &edit, text);
        QCOMPARE(exchange->m_pCurCtrl, &edit);
        DDX_CBString(exchange, &box, text);
        QCOMPARE(exchange->m_pCurCtrl, &box);
        DDX_Scroll(exchange, &bar, number);
        QCOMPARE(exchange->m_pCurCtrl, &bar);
        DDX_CBStringExact(exchange, &box, text);
        QCOMPARE(exchange->m_pCurCtrl, &box);
        DDX_Slider(exchange, &slider, number);
        QCOMPARE(exchange->m_pCurCtrl, &slider);
    };
    QCOMPARE(window.load(exchangeAll), 1);
    QCOMPARE(window.save(exchangeAll), 1);
}

XE_TEST(tst_DdxChoices)
#include "tst_ddxchoices.moc"
