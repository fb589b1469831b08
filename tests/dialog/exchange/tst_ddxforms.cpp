// Each exchange function names its control in three ways: the control itself, its object name, its resource id.

#include "exchangewindow.h"
#include "resource.h"
#include "testclass.h"

#include <leavenothing.h>
#include <xeafxdlg.h>

#include <QCheckBox>

namespace {

// A control of every kind, named as its id in resource.h is.
class Form
{
public:
    Form()
        : name(add<QLineEdit>("IDC_NAME")),
          check(add<QCheckBox>("IDC_CHECK")),
          radio(add<QRadioButton>("IDC_RADIO")),
          box(add<QComboBox>("IDC_BOX")),
          scroll(add<QScrollBar>("IDC_SCROLL")),
          slider(add<QSlider>("IDC_SLIDER")),
          window(&widget)
    {
        radio->setAutoExclusive(false);
        box->addItems({QStringLiteral("bolt"), QStringLiteral("nut")});
    }

    QWidget widget;
    QLineEdit* name;
    QCheckBox* check;
    QRadioButton* radio;
    QComboBox* box;
    QScrollBar* scroll;
    QSlider* slider;
    ExchangeWindow window;

private:
    template <class Control>
    Control* add(const char* objectName)
    {
        auto* const control = new Control(&widget);
        control->setObjectName(QString::fromLatin1(objectName));
        return control;
    }
};

// A value of a variable, and the control's property that stands for it.
template <class Value>
struct State
{
    Value value;
    QVariant shown;
};

// By each of the three names, one state is loaded over the other, and the other then saved.
template <class Control, class Value, class Exchange>
void throughEachForm(ExchangeWindow& window, Control* control, int id, const char* property, const State<Value>& one,
                     const State<Value>& other, Exchange exchange)
{
    const auto through = [&](auto key) {
        Value value = one.value;
        const auto run = [&](CDataExchange_X* dataExchange) { exchange(dataExchange, key, value); };
        control->setProperty(property, other.shown);
        QCOMPARE(window.load(run), 1);
        QCOMPARE(control->property(property), one.shown);
        control->setProperty(property, other.shown);
        QCOMPARE(window.save(run), 1);
        QCOMPARE(value, other.value);
    };
    const QByteArray name = control->objectName().toUtf8();
    through(control);
    through(name.constData());
    through(id);
}

// DDX_Text() with a number.
template <class Number>
void numberThroughEachForm(Number one, const char* oneText, Number other, const char* otherText)
{
    Form form;
    throughEachForm(form.window, form.name, IDC_NAME, "text", State<Number>{one, QString::fromLatin1(oneText)},
                    State<Number>{other, QString::fromLatin1(otherText)},
                    [](auto* exchange, auto key, Number& value) { DDX_Text(exchange, key, value); });
}

enum ControlId { nameId = IDC_NAME };

} // namespace

class tst_DdxForms : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void text();
    void numbers();
    void check();
    void radio();
    void comboIndex();
    void comboText();
    void scrollAndSlider();
    void control();
    void otherKindsOfKeys();
    void nameInUtf8();
};

void tst_DdxForms::text()
{
    Form form;
    throughEachForm(form.window, form.name, IDC_NAME, "text", State<CString_X>{L"螺栓 😀", QStringLiteral("螺栓 😀")},
                    State<CString_X>{L"nut", QStringLiteral("nut")},
                    [](auto* exchange, auto key, CString_X& value) { DDX_Text(exchange, key, value); });
}

void tst_DdxForms::numbers()
{
    numberThroughEachForm<short>(-5, "-5", 32767, "32767");
    numberThroughEachForm<int>(-5, "-5", 70000, "70000");
    numberThroughEachForm<long>(-5, "-5", 4294967296, "4294967296");
    numberThroughEachForm<float>(-0.5f, "-0.5", 2.5f, "2.5");
    numberThroughEachForm<double>(-0.5, "-0.5", 2.5, "2.5");
    numberThroughEachForm<unsigned int>(5, "5", 4294967295u, "4294967295");
}

void tst_DdxForms::check()
{
    Form form;
    throughEachForm(form.window, form.check, IDC_CHECK, "checked", State<int>{1, true}, State<int>{0, false},
                    [](auto* exchange, auto key, int& value) { DDX_Check(exchange, key, value); });
}

void tst_DdxForms::radio()
{
    Form form;
    const auto exchange = [](auto* dataExchange, auto key, int& value) { DDX_Radio(dataExchange, key, value); };
    throughEachForm(form.window, form.radio, IDC_RADIO, "checked", State<int>{0, true}, State<int>{0, true}, exchange);
    throughEachForm(form.window, form.radio, IDC_RADIO, "checked", State<int>{1, false}, State<int>{0, true}, exchange);
}

void tst_DdxForms::comboIndex()
{
    Form form;
    throughEachForm(form.window, form.box, IDC_BOX, "currentIndex", State<int>{1, 1}, State<int>{0, 0},
                    [](auto* exchange, auto key, int& value) { DDX_CBIndex(exchange, key, value); });
}

void tst_DdxForms::comboText()
{
    Form form;
    const State<CString_X> one{L"nut", QStringLiteral("nut")};
    const State<CString_X> other{L"bolt", QStringLiteral("bolt")};
    throughEachForm(form.window, form.box, IDC_BOX, "currentText", one, other,
                    [](auto* exchange, auto key, CString_X& value) { DDX_CBString(exchange, key, value); });
    throughEachForm(form.window, form.box, IDC_BOX, "currentText", one, other,
                    [](auto* exchange, auto key, CString_X& value) { DDX_CBStringExact(exchange, key, value); });
}

void tst_DdxForms::scrollAndSlider()
{
    Form form;
    throughEachForm(form.window, form.scroll, IDC_SCROLL, "value", State<int>{5, 5}, State<int>{9, 9},
                    [](auto* exchange, auto key, int& value) { DDX_Scroll(exchange, key, value); });
    throughEachForm(form.window, form.slider, IDC_SLIDER, "value", State<int>{5, 5}, State<int>{9, 9},
                    [](auto* exchange, auto key, int& value) { DDX_Slider(exchange, key, value); });
}

void tst_DdxForms::control()
{
    Form form;
    CWnd_X members[3];
    QCOMPARE(form.window.load([&](CDataExchange_X* exchange) { DDX_Control(exchange, form.name, members[0]); }), 1);
    QCOMPARE(form.window.load([&](CDataExchange_X* exchange) { DDX_Control(exchange, "IDC_CHECK", members[1]); }), 1);
    QCOMPARE(form.window.load([&](CDataExchange_X* exchange) { DDX_Control(exchange, IDC_BOX, members[2]); }), 1);
    QCOMPARE(members[0].GetSafeHwnd(), form.name);
    QCOMPARE(members[1].GetSafeHwnd(), form.check);
    QCOMPARE(members[2].GetSafeHwnd(), form.box);
}

void tst_DdxForms::otherKindsOfKeys()
{
    Form form;
    int value = 5;
    constexpr unsigned unsignedId = IDC_NAME;
    char name[] = "IDC_NAME";
    QCOMPARE(form.window.load([&](CDataExchange_X* exchange) { DDX_Text(exchange, nameId, value); }), 1);
    QCOMPARE(form.name->text(), QStringLiteral("5"));
    ++value;
    QCOMPARE(form.window.load([&](CDataExchange_X* exchange) { DDX_Text(exchange, unsignedId, value); }), 1);
    QCOMPARE(form.name->text(), QStringLiteral("6"));
    ++value;
    QCOMPARE(form.window.load([&](CDataExchange_X* exchange) { DDX_Text(exchange, name, value); }), 1);
    QCOMPARE(form.name->text(), QStringLiteral("7"));
}

void tst_DdxForms::nameInUtf8()
{
    Form form;
    form.name->setObjectName(QStringLiteral("名😀"));
    int value = 5;
    QCOMPARE(form.window.load([&](CDataExchange_X* exchange) { DDX_Text(exchange, "名😀", value); }), 1);
    QCOMPARE(form.name->text(), QStringLiteral("5"));
}

XE_TEST(tst_DdxForms)
#include "tst_ddxforms.moc"
