// The colour dialog: what it shows, and what its wrapper holds afterwards.

#include "testclass.h"

#include <boxwatch.h>
#include <leavenothing.h>
#include <modaldriver.h>

#include <QDialogButtonBox>
#include <QLocale>
#include <QPushButton>
#include <xeafxddx.h>
#include <xeafxdlgs.h>

namespace {

QPushButton* button(const QColorDialog* dialog, QDialogButtonBox::StandardButton which)
{
    return dialog->findChild<QDialogButtonBox*>()->button(which);
}

// Runs the dialog, acts on it, and clicks OK or Cancel.
template <class Action>
int run(CColorDialog_X& dialog, Action action, QDialogButtonBox::StandardButton end)
{
    const ModalDriver<QColorDialog> driver([&](QColorDialog* shown) {
        action(*shown);
        button(shown, end)->click();
        if (shown->isVisible())
            shown->reject();
    });
    return dialog.DoModal();
}

} // namespace

class tst_ColorDialog : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void fields();
    void parents();
    void initialColor_data();
    void initialColor();
    void chosenColor_data();
    void chosenColor();
    void cancelKeepsTheColor();
    void nextRunBeginsWithTheChosenColor();
    void chineseButtons_data();
    void chineseButtons();
    void failedExchangeKeepsTheDialogOpen();
    void refusedLoad();
    void wrapperGoesWhileTheDialogIsOpen();
    void withoutADialog();
};

void tst_ColorDialog::fields()
{
    const CColorDialog_X plain;
    QCOMPARE(plain.m_color, 0u);
    QCOMPARE(plain.m_dwFlags, 0u);
    const CColorDialog_X given(RGB(1, 2, 3), CC_FULLOPEN | CC_RGBINIT, nullptr);
    QCOMPARE(given.GetColor(), 0x00030201u);
    QCOMPARE(given.m_dwFlags, 3u);
    QVERIFY(given.IsKindOf(RUNTIME_CLASS_X(CCommonDialog_X)));
    QVERIFY(!CColorDialog_X::s_classInfo.CreateObject());
}

void tst_ColorDialog::parents()
{
    QWidget widget;
    CWnd_X window;
    QVERIFY(window.SubclassWindow(&widget));
    CColorDialog_X ofWidget(0, 0, &widget);
    CColorDialog_X ofWindow(0, 0, &window);
    for (CColorDialog_X* dialog : {&ofWidget, &ofWindow}) {
        const QWidget* parent = nullptr;
        run(
            *dialog, [&](QColorDialog& shown) { parent = shown.parentWidget(); }, QDialogButtonBox::Cancel);
        QCOMPARE(parent, &widget);
    }
}

void tst_ColorDialog::initialColor_data()
{
    QTest::addColumn<unsigned>("initial");
    QTest::addColumn<QColor>("shown");
    QTest::newRow("the low byte is red") << 0x0000FFu << QColor(255, 0, 0);
    QTest::newRow("the middle one is green") << 0x00FF00u << QColor(0, 255, 0);
    QTest::newRow("the high one is blue") << 0xFF0000u << QColor(0, 0, 255);
    QTest::newRow("mixed") << 0x123456u << QColor(0x56, 0x34, 0x12);
    QTest::newRow("the highest byte does not count") << 0xFF000080u << QColor(128, 0, 0);
}

void tst_ColorDialog::initialColor()
{
    QFETCH(const unsigned, initial);
    CColorDialog_X dialog(initial);
    const auto look = [](QColorDialog& shown) {
        QVERIFY(shown.testOption(QColorDialog::DontUseNativeDialog));
        QTEST(shown.currentColor(), "shown");
    };
    QCOMPARE(run(dialog, look, QDialogButtonBox::Ok), IDOK);
    QCOMPARE(dialog.GetColor(), initial & 0xFFFFFF);
}

void tst_ColorDialog::chosenColor_data()
{
    QTest::addColumn<QColor>("chosen");
    QTest::addColumn<unsigned>("result");
    QTest::newRow("opaque") << QColor(1, 2, 3) << 0x030201u;
    QTest::newRow("transparent") << QColor(1, 2, 3, 4) << 0x030201u;
    QTest::newRow("by its hue") << QColor::fromHsv(240, 255, 255) << 0xFF0000u;
}

void tst_ColorDialog::chosenColor()
{
    QFETCH(const QColor, chosen);
    CColorDialog_X dialog(RGB(9, 9, 9));
    const auto choose = [&](QColorDialog& shown) {
        shown.setOption(QColorDialog::ShowAlphaChannel);
        shown.setCurrentColor(chosen);
        QCOMPARE(dialog.GetColor(), RGB(9, 9, 9));
    };
    for (int i = 0; i < 2; ++i) // the dialog grows
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support propagateSizeHints()");
    QCOMPARE(run(dialog, choose, QDialogButtonBox::Ok), IDOK);
    QTEST(dialog.m_color, "result");
}

void tst_ColorDialog::cancelKeepsTheColor()
{
    CColorDialog_X dialog(0xFF000080u);
    const auto choose = [](QColorDialog& shown) { shown.setCurrentColor(Qt::green); };
    QCOMPARE(run(dialog, choose, QDialogButtonBox::Cancel), IDCANCEL);
    QCOMPARE(dialog.GetColor(), 0xFF000080u);
}

void tst_ColorDialog::nextRunBeginsWithTheChosenColor()
{
    CColorDialog_X dialog(RGB(1, 1, 1));
    run(
        dialog, [](QColorDialog& shown) { shown.setCurrentColor(QColor(7, 8, 9)); }, QDialogButtonBox::Ok);
    run(
        dialog, [](QColorDialog& shown) { QCOMPARE(shown.currentColor(), QColor(7, 8, 9)); }, QDialogButtonBox::Ok);
}

void tst_ColorDialog::chineseButtons_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::newRow("C") << QLocale::c();
    QTest::newRow("German") << QLocale(QLocale::German);
}

void tst_ColorDialog::chineseButtons()
{
    QFETCH(const QLocale, locale);
    QLocale::setDefault(locale);
    CColorDialog_X dialog;
    run(
        dialog,
        [](QColorDialog& shown) {
            QCOMPARE(button(&shown, QDialogButtonBox::Ok)->text(), QStringLiteral("确定"));
            QCOMPARE(button(&shown, QDialogButtonBox::Cancel)->text(), QStringLiteral("取消"));
        },
        QDialogButtonBox::Cancel);
    QLocale::setDefault(QLocale::system());
}

void tst_ColorDialog::failedExchangeKeepsTheDialogOpen()
{
    struct Failing : CColorDialog_X
    {
        void DoDataExchange(CDataExchange_X* exchange) override
        {
            if (exchange->m_bSaveAndValidate)
                exchange->Fail();
        }
    } dialog;
    BoxWatch watch;
    bool isOpen = false;
    const ModalDriver<QColorDialog> driver([&](QColorDialog* shown) {
        button(shown, QDialogButtonBox::Ok)->click();
        isOpen = shown->isVisible();
        watch.take();
        button(shown, QDialogButtonBox::Cancel)->click();
    });
    QCOMPARE(dialog.DoModal(), IDCANCEL);
    QVERIFY(isOpen);
}

void tst_ColorDialog::refusedLoad()
{
    struct Refusing : CColorDialog_X
    {
        void DoDataExchange(CDataExchange_X* exchange) override { exchange->Fail(); }
    } dialog;
    QCOMPARE(dialog.DoModal(), 3);
}

void tst_ColorDialog::wrapperGoesWhileTheDialogIsOpen()
{
    auto* const dialog = new CColorDialog_X;
    const ModalDriver<QColorDialog> driver([&](QColorDialog*) { delete dialog; });
    QCOMPARE(dialog->DoModal(), IDCANCEL);
}

void tst_ColorDialog::withoutADialog()
{
    CColorDialog_X dialog(5);
    QVERIFY(dialog.OnInitDialog());
    dialog.OnOK();
    QCOMPARE(dialog.GetColor(), 5u);
}

XE_TEST(tst_ColorDialog)
#include "tst_colordialog.moc"
