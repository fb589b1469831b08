// Push buttons, check boxes, radio buttons and group boxes: style and widget agree in both directions.

#include "leavenothing.h"
#include "messagetrace.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QCheckBox>
#include <QPushButton>
#include <QSignalSpy>

namespace {

using Maker = QWidget* (*)(QWidget* parent);

QWidget* makeTristate(QWidget* parent)
{
    auto* const box = new QCheckBox(parent);
    box->setTristate(true);
    return box;
}

QWidget* makeCheckable(QWidget* parent)
{
    auto* const box = new QGroupBox(parent);
    box->setCheckable(true);
    return box;
}

template <class Widget>
QWidget* make(QWidget* parent)
{
    return new Widget(parent);
}

CString_X textOf(const CWnd_X& window)
{
    CString_X text(L"untouched");
    window.GetWindowText(text);
    return text;
}

// SetCheck() with each number from -1 to 3, and what GetCheck() gives then.
QVector<int> checksOf(CButton_X& button)
{
    QVector<int> checks;
    for (int check = -1; check <= 3; ++check) {
        button.SetCheck(0);
        button.SetCheck(check);
        checks += button.GetCheck();
    }
    return checks;
}

} // namespace

Q_DECLARE_METATYPE(Maker)

class tst_Button : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void styleMakesTheWidget_data();
    void styleMakesTheWidget();
    void widgetSetsTheStyle_data();
    void widgetSetsTheStyle();
    void theParentMayBeAWrapper();
    void checks_data();
    void checks();
    void aFormsTristateBoxHasThreeStates();
    void texts_data();
    void texts();
    void stateIsTheFocus();
    void icons();
    void aClickIsAMessageAndASignal();
    void radioButtonsOfAParentAreOneGroup();
    void anotherWidget();
    void withoutAWidget();
};

void tst_Button::styleMakesTheWidget_data()
{
    QTest::addColumn<DWORD>("style");
    QTest::addColumn<QString>("widget");
    const char* const widgets[] = {"QPushButton",  "QPushButton default", "QCheckBox",          "QCheckBox",
                                   "QRadioButton", "QCheckBox tristate",  "QCheckBox tristate", "QGroupBox",
                                   "QPushButton",  "QRadioButton",        "QPushButton",        "QPushButton",
                                   "QPushButton",  "QPushButton",         "QPushButton",        "QPushButton"};
    for (DWORD kind = 0; kind < 16; ++kind) {
        QTest::addRow("%u", kind) << kind << QString::fromLatin1(widgets[kind]);
        QTest::addRow("%u among other bits", kind) << (kind | WS_CHILD | 0x2000) << QString::fromLatin1(widgets[kind]);
    }
}

void tst_Button::styleMakesTheWidget()
{
    QFETCH(DWORD, style);
    QWidget parent;
    CButton_X button;
    QCOMPARE(button.Create(L"S&ave", style, CRect(10, 20, 110, 50), &parent), 1);
    QWidget* const widget = button.GetSafeHwnd();
    QString seen = QString::fromLatin1(widget->metaObject()->className());
    if (const auto* box = qobject_cast<QCheckBox*>(widget); box && box->isTristate())
        seen += QStringLiteral(" tristate");
    if (const auto* push = qobject_cast<QPushButton*>(widget); push && push->isDefault())
        seen += QStringLiteral(" default");
    QTEST(seen, "widget");
    QCOMPARE(widget->parentWidget(), &parent);
    QCOMPARE(widget->geometry(), QRect(10, 20, 100, 30));
    QCOMPARE(button.GetStyle(), style);
    QCOMPARE(textOf(button), CString_X(L"S&ave"));
}

void tst_Button::widgetSetsTheStyle_data()
{
    QTest::addColumn<Maker>("make");
    QTest::addColumn<DWORD>("before");
    QTest::addColumn<DWORD>("after");
    const auto row = [](const char* name, Maker make, const QVector<DWORD>& kept, DWORD other) {
        for (DWORD kind = 0; kind < 16; ++kind)
            QTest::addRow("%s over %u", name, kind) << make << (kind | 0x120)
                                                    << ((kept.contains(kind) ? kind
                                                         : other == 16       ? kind
                                                                             : other)
                                                        | 0x120);
    };
    row("check box", make<QCheckBox>, {3, 5, 6}, 2);
    row("tristate check box", makeTristate, {3, 5, 6}, 2);
    row("radio button", make<QRadioButton>, {9}, 4);
    row("group box", make<QGroupBox>, {}, 7);
    row("push button", make<QPushButton>, {}, 16);
    row("label", make<QLabel>, {}, 16);
}

void tst_Button::widgetSetsTheStyle()
{
    QFETCH(Maker, make);
    QFETCH(DWORD, before);
    QWidget form;
    CButton_X button;
    button.ModifyStyle(0, before);
    QCOMPARE(button.SubclassWindow(make(&form)), 1);
    QTEST(button.GetStyle(), "after");
}

void tst_Button::theParentMayBeAWrapper()
{
    CWnd_X window;
    window.Create(nullptr);
    CButton_X button;
    QCOMPARE(button.Create(L"OK", WS_VISIBLE, CRect(0, 0, 50, 20), &window, 17), 1);
    QCOMPARE(button.GetSafeHwnd()->parentWidget(), window.GetSafeHwnd());
    QVERIFY(!button.GetSafeHwnd()->isHidden());
    CButton_X alone;
    QCOMPARE(alone.Create(L"OK", 0, CRect(0, 0, 50, 20), nullptr), 1);
    QVERIFY(alone.GetSafeHwnd()->isWindow());
    alone.DestroyWindow();
    button.DestroyWindow();
    window.DestroyWindow();
}

void tst_Button::checks_data()
{
    QTest::addColumn<Maker>("make");
    QTest::addColumn<DWORD>("style");
    QTest::addColumn<QVector<int>>("checks");
    const QVector<int> two{1, 0, 1, 1, 1};
    const QVector<int> three{0, 0, 1, 2, 0};
    const QVector<int> none{0, 0, 0, 0, 0};
    QTest::newRow("check box") << Maker(make<QCheckBox>) << DWORD(2) << two;
    QTest::newRow("box with three states") << Maker(makeTristate) << DWORD(2) << three;
    QTest::newRow("box of a style with three states") << Maker(make<QCheckBox>) << DWORD(5) << three;
    QTest::newRow("automatic one") << Maker(make<QCheckBox>) << DWORD(6) << three;
    QTest::newRow("radio button") << Maker(make<QRadioButton>) << DWORD(9) << two;
    QTest::newRow("push button") << Maker(make<QPushButton>) << DWORD(0) << none;
    QTest::newRow("group box") << Maker(make<QGroupBox>) << DWORD(7) << none;
    QTest::newRow("checkable group box") << Maker(makeCheckable) << DWORD(7) << two;
    QTest::newRow("label") << Maker(make<QLabel>) << DWORD(5) << none;
}

void tst_Button::checks()
{
    QFETCH(Maker, make);
    QFETCH(DWORD, style);
    QWidget form;
    CButton_X button;
    button.ModifyStyle(0, style);
    button.SubclassWindow(make(&form));
    QTEST(checksOf(button), "checks");
}

void tst_Button::aFormsTristateBoxHasThreeStates()
{
    QCheckBox box;
    box.setTristate(true);
    box.setCheckState(Qt::PartiallyChecked);
    CButton_X button;
    button.SubclassWindow(&box);
    QCOMPARE(button.GetStyle(), DWORD(BS_CHECKBOX));
    QCOMPARE(button.GetCheck(), static_cast<int>(BST_INDETERMINATE));
}

void tst_Button::texts_data()
{
    QTest::addColumn<Maker>("make");
    QTest::addColumn<QByteArray>("property");
    QTest::newRow("push button") << Maker(make<QPushButton>) << QByteArray("text");
    QTest::newRow("check box") << Maker(make<QCheckBox>) << QByteArray("text");
    QTest::newRow("radio button") << Maker(make<QRadioButton>) << QByteArray("text");
    QTest::newRow("group box") << Maker(make<QGroupBox>) << QByteArray("title");
    QTest::newRow("label") << Maker(make<QLabel>) << QByteArray("windowTitle");
}

void tst_Button::texts()
{
    QFETCH(Maker, make);
    QFETCH(QByteArray, property);
    QWidget form;
    QWidget* const widget = make(&form);
    widget->setObjectName(QStringLiteral("IDC_IT"));
    CButton_X button;
    CWnd_X dialog;
    dialog.SubclassWindow(&form);
    button.SubclassWindow(widget);

    button.SetWindowText(L"零件 😀");
    QCOMPARE(widget->property(property).toString(), QStringLiteral("零件 😀"));
    QCOMPARE(textOf(button), CString_X(L"零件 😀"));
    QCOMPARE(SetWindowText_X(widget, L"by the function"), TRUE);
    QCOMPARE(widget->property(property).toString(), QStringLiteral("by the function"));
    QCOMPARE(dialog.SetDlgItemText("IDC_IT", L"by the dialog"), TRUE);
    QCOMPARE(widget->property(property).toString(), QStringLiteral("by the dialog"));
    button.SetWindowText(nullptr);
    QCOMPARE(widget->property(property).toString(), QString());
}

void tst_Button::stateIsTheFocus()
{
    QWidget form;
    CButton_X button;
    button.Create(L"OK", WS_VISIBLE, CRect(0, 0, 50, 20), &form);
    form.show();
    form.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&form));
    button.SetState(0);
    QCOMPARE(button.GetState(), 0u);
    button.SetState(7);
    QCOMPARE(button.GetState(), BST_FOCUS);
    QVERIFY(button.GetSafeHwnd()->hasFocus());
    button.SetState(0);
    QCOMPARE(button.GetState(), 0u);
}

void tst_Button::icons()
{
    QPixmap picture(8, 8);
    picture.fill(Qt::red);
    const QIcon icon(picture);
    QPushButton push;
    CButton_X button;
    button.SubclassWindow(&push);
    QVERIFY(button.GetIcon().isNull());
    button.SetIcon(icon);
    QCOMPARE(push.icon().cacheKey(), icon.cacheKey());
    QCOMPARE(button.GetIcon().cacheKey(), icon.cacheKey());
    QVERIFY(push.windowIcon().isNull());
    QGroupBox group;
    button.SubclassWindow(&group);
    button.SetIcon(icon);
    QVERIFY(button.GetIcon().isNull());
}

void tst_Button::aClickIsAMessageAndASignal()
{
    QWidget form;
    Traced<CButton_X> button;
    button.Create(L"in use", WS_VISIBLE | BS_AUTO3STATE, CRect(0, 0, 80, 20), &form);
    form.show();
    auto* const box = qobject_cast<QCheckBox*>(button.GetSafeHwnd());
    QSignalSpy states(box, &QCheckBox::stateChanged);
    button.trace.clear();
    const QVector<int> cycle{static_cast<int>(BST_INDETERMINATE), BST_CHECKED, BST_UNCHECKED};
    for (const int check : cycle) {
        QTest::mouseClick(box, Qt::LeftButton, {}, {8, 10});
        QCOMPARE(button.GetCheck(), check);
    }
    QCOMPARE(states.count(), 3);
    QVERIFY(button.trace.text().startsWith(QLatin1String("WM_LBUTTONDOWN(0x1, 0xa0008) WM_LBUTTONUP(0x0, 0xa0008)")));
    QTest::keyClick(box, Qt::Key_Space);
    QCOMPARE(button.GetCheck(), static_cast<int>(BST_INDETERMINATE));
}

void tst_Button::radioButtonsOfAParentAreOneGroup()
{
    QWidget form;
    CButton_X first;
    CButton_X second;
    first.Create(L"1", BS_AUTORADIOBUTTON | 0x20000, CRect(0, 0, 50, 20), &form);
    second.Create(L"2", BS_AUTORADIOBUTTON | 0x20000, CRect(0, 20, 50, 40), &form);
    first.SetCheck(1);
    second.SetCheck(1);
    QCOMPARE(first.GetCheck(), 0);
    QCOMPARE(second.GetCheck(), 1);
}

void tst_Button::anotherWidget()
{
    QCheckBox box;
    QGroupBox group;
    CButton_X button;
    button.SubclassWindow(&box);
    button.SetWindowText(L"box");
    button.SubclassWindow(&group);
    button.SetWindowText(L"group");
    QCOMPARE(box.text(), QStringLiteral("box"));
    QCOMPARE(group.title(), QStringLiteral("group"));
    QCOMPARE(button.GetStyle(), DWORD(BS_GROUPBOX));
    button.Detach();
    QCOMPARE(textOf(button), CString_X(L"untouched"));
    QCOMPARE(button.SubclassWindow(&box), 1);
    QCOMPARE(button.GetStyle(), DWORD(BS_CHECKBOX));
}

void tst_Button::withoutAWidget()
{
    CButton_X button;
    button.SetWindowText(L"nobody");
    button.SetCheck(1);
    button.SetState(1);
    button.SetIcon(QIcon());
    QCOMPARE(button.GetCheck(), 0);
    QCOMPARE(button.GetState(), 0u);
    QVERIFY(button.GetIcon().isNull());
    QCOMPARE(textOf(button), CString_X(L"untouched"));
}

XE_TEST(tst_Button)
#include "tst_button.moc"
