// Choices between controls and variables: check boxes and sliders; and controls as such.

#include "exchangewindow.h"
#include "testclass.h"

#include <leavenothing.h>

#include <xeafxdlg.h>

#include <QCheckBox>
#include <QPushButton>
#include <QSignalSpy>

class tst_DdxChoices : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void check_data();
    void check();
    void checkHasNoThirdState();
    void checkedGroupBox();
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
