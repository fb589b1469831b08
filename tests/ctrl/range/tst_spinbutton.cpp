#include "leavenothing.h"
#include "testclass.h"

#include <XeCustomUI.h>
#include <xerangectrl.h>

#include <QDateTimeEdit>
#include <QSignalSpy>

#include <climits>

namespace {

CString_X textOf(const CSpinButtonCtrl_X& spin)
{
    CString_X text = L"untouched";
    spin.GetWindowText(text);
    return text;
}

// As "start,end".
QString selectionOf(const CSpinButtonCtrl_X& spin)
{
    int start = -7;
    int end = -8;
    spin.GetSel(start, end);
    return QStringLiteral("%1,%2").arg(start).arg(end);
}

QLineEdit* fieldOf(const QWidget& box) { return box.findChild<QLineEdit*>(); }

} // namespace

class tst_SpinButton : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theStyleSaysTheKind();
    void theStyleTakesAfterTheWidget();
    void classOfTheWidget();

    void ranges();
    void decimalRangesAreCut();
    void positions();
    void decimalPositionsAreCut();

    void acceleration();
    void noAcceleration();
    void buddyBecomesTheField();
    void noBuddy();
    void bases();
    void decimals();

    void selection_data();
    void selection();
    void selectionOfAFormsBox();

    void texts_data();
    void texts();
    void textsOfTheWindow();
    void refusedTexts_data();
    void refusedTexts();

    void anotherKindOfBox();
    void withoutAWidget();

private:
    std::unique_ptr<QWidget> m_parent;
    std::unique_ptr<CSpinButtonCtrl_X> m_whole;
    std::unique_ptr<CSpinButtonCtrl_X> m_decimal;
};

void tst_SpinButton::init()
{
    m_parent = std::make_unique<QWidget>();
    m_whole = std::make_unique<CSpinButtonCtrl_X>();
    m_decimal = std::make_unique<CSpinButtonCtrl_X>();
    QCOMPARE(m_whole->Create(WS_CHILD | UDS_ARROWKEYS, CRect(0, 0, 80, 24), m_parent.get()), 1);
    QCOMPARE(m_decimal->Create(WS_CHILD | XE_UDS_DECIMAL, CRect(0, 30, 80, 54), m_parent.get()), 1);
}

void tst_SpinButton::cleanup()
{
    m_whole.reset();
    m_decimal.reset();
    m_parent.reset();
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

void tst_SpinButton::theStyleSaysTheKind()
{
    QVERIFY(m_whole->Imp<XeCUISpinBox>());
    QVERIFY(m_decimal->Imp<XeCUIDoubleSpinBox>());
    QCOMPARE(m_decimal->GetSafeHwnd()->geometry(), QRect(0, 30, 80, 24));
}

// A wrapper that was for the other kind before goes by the widget.
void tst_SpinButton::theStyleTakesAfterTheWidget()
{
    QDoubleSpinBox decimal;
    decimal.setValue(2.5);
    QSpinBox whole;
    CSpinButtonCtrl_X spin;
    spin.ModifyStyle(0, UDS_WRAP);
    spin.SubclassWindow(&decimal);
    QCOMPARE(spin.GetStyle(), XE_UDS_DECIMAL | UDS_WRAP);
    QVERIFY(textOf(spin) == L"2.500000");
    spin.SubclassWindow(&whole);
    QCOMPARE(spin.GetStyle(), UDS_WRAP);
    QVERIFY(textOf(spin) == L"0");
}

void tst_SpinButton::classOfTheWidget()
{
    QSpinBox whole;
    QDoubleSpinBox decimal;
    for (QWidget* widget : {static_cast<QWidget*>(&whole), static_cast<QWidget*>(&decimal)})
        QCOMPARE(CWnd_X::FromHandle(widget)->GetRuntimeClass(), RUNTIME_CLASS_X(CSpinButtonCtrl_X));
}

void tst_SpinButton::ranges()
{
    for (CSpinButtonCtrl_X* spin : {m_whole.get(), m_decimal.get()}) {
        int lower = 0;
        int upper = 0;
        spin->SetRange32(-100000, 200000);
        spin->GetRange32(lower, upper);
        QCOMPARE(lower, -100000);
        QCOMPARE(upper, 200000);
        spin->SetRange(-3, 4);
        spin->GetRange(lower, upper);
        QCOMPARE(lower, -3);
        QCOMPARE(upper, 4);
    }
}

void tst_SpinButton::decimalRangesAreCut()
{
    int lower = 0;
    int upper = 0;
    m_decimal->Imp<QDoubleSpinBox>()->setRange(-2.75, 7.99);
    m_decimal->GetRange32(lower, upper);
    QCOMPARE(lower, -2);
    QCOMPARE(upper, 7);
    m_decimal->Imp<QDoubleSpinBox>()->setRange(-1e300, 1e300);
    m_decimal->GetRange32(lower, upper);
    QCOMPARE(lower, INT_MIN);
    QCOMPARE(upper, INT_MAX);
}

void tst_SpinButton::positions()
{
    for (CSpinButtonCtrl_X* spin : {m_whole.get(), m_decimal.get()}) {
        spin->SetRange32(-10, 50);
        QCOMPARE(spin->SetPos32(20), 0);
        QCOMPARE(spin->SetPos(50), 20);
        QCOMPARE(spin->SetPos32(51), -1);
        QCOMPARE(spin->SetPos32(-11), -1);
        QCOMPARE(spin->SetPos32(-10), 50);
        QCOMPARE(spin->SetPos(0), -10);
    }
}

void tst_SpinButton::decimalPositionsAreCut()
{
    auto* const box = m_decimal->Imp<QDoubleSpinBox>();
    box->setRange(0, 1e300);
    box->setValue(7.9);
    QCOMPARE(m_decimal->SetPos32(1), 7);
    box->setValue(1e299);
    QCOMPARE(m_decimal->SetPos32(1), INT_MAX);
}

void tst_SpinButton::acceleration()
{
    const UDACCEL steps[]{{0, 5}, {2, 20}};
    for (CSpinButtonCtrl_X* spin : {m_whole.get(), m_decimal.get()}) {
        QCOMPARE(spin->SetAccel(2, steps), 1);
        QVERIFY(spin->Imp<QAbstractSpinBox>()->isAccelerated());
    }
    QCOMPARE(m_decimal->Imp<QDoubleSpinBox>()->singleStep(), 1.0);
    QTest::keyClick(m_whole->GetSafeHwnd(), Qt::Key_Up);
    QCOMPARE(m_whole->Imp<QSpinBox>()->value(), 5);
    const UDACCEL huge{0, UINT_MAX};
    m_whole->SetAccel(1, &huge);
    QCOMPARE(m_whole->Imp<QSpinBox>()->singleStep(), INT_MAX);
}

void tst_SpinButton::noAcceleration()
{
    const UDACCEL step{0, 5};
    QCOMPARE(m_whole->SetAccel(0, &step), 0);
    QCOMPARE(m_whole->SetAccel(-1, &step), 0);
    QCOMPARE(m_whole->SetAccel(1, nullptr), 0);
    QVERIFY(!m_whole->Imp<QSpinBox>()->isAccelerated());
    QCOMPARE(m_whole->Imp<QSpinBox>()->singleStep(), 1);
}

void tst_SpinButton::buddyBecomesTheField()
{
    for (CSpinButtonCtrl_X* spin : {m_whole.get(), m_decimal.get()}) {
        const QPointer<QLineEdit> former(fieldOf(*spin->GetSafeHwnd()));
        auto* const buddy = new QLineEdit(m_parent.get());
        QCOMPARE(spin->SetBuddy(buddy), buddy);
        QVERIFY(!former);
        QCOMPARE(fieldOf(*spin->GetSafeHwnd()), buddy);
        spin->SetPos(7);
        QVERIFY(buddy->text().startsWith('7'));
        QCOMPARE(spin->SetBuddy(buddy), buddy); // again
        QCOMPARE(fieldOf(*spin->GetSafeHwnd()), buddy);
    }
}

void tst_SpinButton::noBuddy()
{
    QCOMPARE(m_whole->SetBuddy(nullptr), nullptr);
    QVERIFY(fieldOf(*m_whole->GetSafeHwnd()));
    QSpinBox form;
    QLineEdit buddy;
    CSpinButtonCtrl_X spin;
    spin.SubclassWindow(&form);
    QLineEdit* const former = fieldOf(form);
    QCOMPARE(spin.SetBuddy(&buddy), &buddy);
    QCOMPARE(fieldOf(form), former);
    QCOMPARE(buddy.parent(), nullptr);
}

void tst_SpinButton::bases()
{
    m_whole->SetRange32(0, 1000);
    m_whole->SetPos32(255);
    QCOMPARE(m_whole->GetBase(), 10);
    QCOMPARE(m_whole->SetBase(16), 10);
    QCOMPARE(fieldOf(*m_whole->GetSafeHwnd())->text(), QString("ff"));
    for (const int base : {1, 37, 0, -16})
        QCOMPARE(m_whole->SetBase(base), 16);
    QCOMPARE(m_whole->GetBase(), 16);
    QCOMPARE(m_whole->SetBase(36), 16);
    QCOMPARE(m_whole->SetBase(2), 36);
    QCOMPARE(m_decimal->GetBase(), -1);
    QCOMPARE(m_decimal->SetBase(16), -1);
}

void tst_SpinButton::decimals()
{
    QCOMPARE(m_decimal->GetDecimals(), 2);
    m_decimal->SetDecimals(4);
    QCOMPARE(m_decimal->GetDecimals(), 4);
    m_whole->SetDecimals(4);
    QCOMPARE(m_whole->GetDecimals(), 0);
}

void tst_SpinButton::selection_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::addColumn<QString>("selection");
    QTest::newRow("all") << 0 << -1 << "0,5";
    QTest::newRow("a part") << 1 << 3 << "1,3";
    QTest::newRow("from behind") << 4 << 2 << "2,4";
    QTest::newRow("nothing but a caret") << 2 << 2 << "2,2";
    QTest::newRow("the end") << -1 << 0 << "5,5";
    QTest::newRow("beyond the end") << 3 << 99 << "3,5";
    QTest::newRow("a start beyond the end") << 6 << 7 << "5,5";
    QTest::newRow("a start below -1 does nothing") << -2 << 3 << "0,1";
}

void tst_SpinButton::selection()
{
    QFETCH(int, start);
    QFETCH(int, end);
    m_whole->SetRange32(0, 99999);
    m_whole->SetPos32(12345);
    m_whole->SetSel(0, 1);
    QCOMPARE(selectionOf(*m_whole), QString("0,1"));
    m_whole->SetSel(start, end);
    QTEST(selectionOf(*m_whole), "selection");
}

void tst_SpinButton::selectionOfAFormsBox()
{
    QDoubleSpinBox form;
    form.setValue(12.5);
    CSpinButtonCtrl_X spin;
    spin.SubclassWindow(&form);
    spin.SetSel(0, -1);
    QCOMPARE(selectionOf(spin), QString("0,5"));
    QTest::keyClicks(&form, "3");
    QCOMPARE(form.value(), 3.0);
}

void tst_SpinButton::texts_data()
{
    QTest::addColumn<bool>("isDecimal");
    QTest::addColumn<QString>("set");
    QTest::addColumn<QString>("got");
    QTest::newRow("a whole number") << false << "42"
                                    << "42";
    QTest::newRow("a negative one") << false << "-7"
                                    << "-7";
    QTest::newRow("one beyond the range is cut") << false << "5000"
                                                 << "1000";
    QTest::newRow("a decimal number has six places") << true << "1.5"
                                                     << "1.500000";
    QTest::newRow("a whole one too") << true << "3"
                                     << "3.000000";
    QTest::newRow("with an exponent") << true << "25e1"
                                      << "250.000000";
    QTest::newRow("cut to the range") << true << "-5000"
                                      << "-1000.000000";
}

void tst_SpinButton::texts()
{
    QFETCH(bool, isDecimal);
    QFETCH(QString, set);
    CSpinButtonCtrl_X& spin = isDecimal ? *m_decimal : *m_whole;
    spin.SetRange32(-1000, 1000);
    spin.Imp<QAbstractSpinBox>()->setProperty("prefix", "EUR ");
    spin.SetWindowText(CString_X(set));
    QTEST(QString(XeQString(textOf(spin))), "got");
}

void tst_SpinButton::textsOfTheWindow()
{
    m_whole->SetBase(16);
    CWnd_X& window = *m_whole;
    window.SetWindowText(L"12");
    CString_X text;
    window.GetWindowText(text);
    QVERIFY(text == L"12");
    QCOMPARE(fieldOf(*m_whole->GetSafeHwnd())->text(), QString("c"));
    SetWindowText_X(m_decimal->GetSafeHwnd(), L"2.25");
    QVERIFY(textOf(*m_decimal) == L"2.250000");
}

void tst_SpinButton::refusedTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << "";
    QTest::newRow("words") << "many";
    QTest::newRow("a number and a unit") << "12 mm";
    QTest::newRow("a hexadecimal number") << "0x10";
    QTest::newRow("a decimal comma") << "1,5";
    QTest::newRow("another script's digits") << QString::fromUtf8("４２");
}

void tst_SpinButton::refusedTexts()
{
    QFETCH(QString, text);
    for (CSpinButtonCtrl_X* spin : {m_whole.get(), m_decimal.get()}) {
        spin->SetPos32(9);
        spin->SetWindowText(CString_X(text));
        QCOMPARE(spin->SetPos32(9), 9);
    }
    m_whole->SetWindowText(L"1.5");
    m_whole->SetWindowText(L"99999999999");
    m_whole->SetWindowText(nullptr);
    QVERIFY(textOf(*m_whole) == L"9");
}

// A field for a date or a time is a spin box to Qt.
void tst_SpinButton::anotherKindOfBox()
{
    QDateTimeEdit edit;
    const QDateTime before = edit.dateTime();
    CSpinButtonCtrl_X spin;
    QCOMPARE(spin.SubclassWindow(&edit), 1);
    QCOMPARE(CWnd_X::FromHandlePermanent(&edit), static_cast<CWnd_X*>(&spin));
    const UDACCEL step{0, 5};
    int lower = 1;
    int upper = 2;
    spin.SetRange32(3, 4);
    spin.GetRange32(lower, upper);
    QCOMPARE(lower, 0);
    QCOMPARE(upper, 0);
    QCOMPARE(spin.SetPos32(3), 0);
    QCOMPARE(spin.SetAccel(1, &step), 0);
    QVERIFY(!edit.isAccelerated());
    QCOMPARE(spin.GetBase(), 0);
    QCOMPARE(spin.SetBase(16), 0);
    QCOMPARE(spin.GetDecimals(), 0);
    spin.SetDecimals(3);
    spin.SetWindowText(L"5");
    QVERIFY(textOf(spin) == L"untouched");
    QCOMPARE(edit.dateTime(), before);
}

void tst_SpinButton::withoutAWidget()
{
    CSpinButtonCtrl_X spin;
    const UDACCEL step{0, 5};
    QLineEdit buddy;
    int lower = 1;
    int upper = 2;
    spin.SetRange32(3, 4);
    spin.GetRange(lower, upper);
    QCOMPARE(lower, 0);
    QCOMPARE(upper, 0);
    QCOMPARE(spin.SetPos32(3), 0);
    QCOMPARE(spin.SetAccel(1, &step), 0);
    QCOMPARE(spin.SetBuddy(&buddy), &buddy);
    QCOMPARE(spin.GetBase(), 0);
    QCOMPARE(spin.SetBase(16), 0);
    QCOMPARE(spin.GetDecimals(), 0);
    spin.SetDecimals(3);
    spin.SetSel(0, -1);
    QCOMPARE(selectionOf(spin), QString("0,0"));
    spin.SetWindowText(L"5");
    QVERIFY(textOf(spin) == L"untouched");
}

XE_TEST(tst_SpinButton)
#include "tst_spinbutton.moc"
