// What a handler that updates a command does to an item or a button.

#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QAction>
#include <QCheckBox>
#include <QPushButton>

class tst_CmdUi : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void enables_data();
    void enables();
    void checks_data();
    void checks();
    void aCheckMarkShowsAtOnce();
    void aButtonHasToBeCheckable();
    void setsTheText();
    void nothingElseIsTouched();
    void byTheIdleSignal();
};

void tst_CmdUi::enables_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("1 enables") << 1 << true;
    QTest::newRow("0 disables") << 0 << false;
    QTest::newRow("2 disables") << 2 << false;
    QTest::newRow("-1 disables") << -1 << false;
}

void tst_CmdUi::enables()
{
    QFETCH(const int, value);
    QFETCH(const bool, enabled);
    for (const bool before : {false, true}) {
        QAction action(nullptr);
        QPushButton button;
        action.setEnabled(before);
        button.setEnabled(before);
        CCmdUI_X ui;
        ui.m_pOther = &action;
        ui.Enable(value);
        ui.m_pOther = &button;
        ui.Enable(value);
        QCOMPARE(action.isEnabled(), enabled);
        QCOMPARE(button.isEnabled(), enabled);
    }
    QAction action(nullptr);
    action.setEnabled(false);
    CCmdUI_X ui;
    ui.m_pOther = &action;
    ui.Enable();
    QVERIFY(action.isEnabled());
}

void tst_CmdUi::checks_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("checked");
    QTest::newRow("1 checks") << 1 << true;
    QTest::newRow("0 unchecks") << 0 << false;
    QTest::newRow("2 unchecks") << 2 << false;
}

void tst_CmdUi::checks()
{
    QFETCH(const int, value);
    QFETCH(const bool, checked);
    for (const bool before : {false, true}) {
        QAction action(nullptr);
        action.setCheckable(true);
        action.setChecked(before);
        QCheckBox box;
        box.setChecked(before);
        CCmdUI_X ui;
        ui.m_pOther = &action;
        ui.SetCheck(value);
        ui.m_pOther = &box;
        ui.SetCheck(value);
        QCOMPARE(action.isChecked(), checked);
        QCOMPARE(box.isChecked(), checked);
    }
}

void tst_CmdUi::aCheckMarkShowsAtOnce()
{
    QAction action(nullptr);
    CCmdUI_X ui;
    ui.m_pOther = &action;
    ui.SetCheck(0);
    QVERIFY(!action.isCheckable()); // no empty place for a mark
    ui.SetCheck();
    QVERIFY(action.isCheckable() && action.isChecked());
}

void tst_CmdUi::aButtonHasToBeCheckable()
{
    QPushButton button;
    CCmdUI_X ui;
    ui.m_pOther = &button;
    ui.SetCheck(1);
    QVERIFY(!button.isCheckable() && !button.isChecked());
}

void tst_CmdUi::setsTheText()
{
    QAction action(nullptr);
    QPushButton button;
    CCmdUI_X ui;
    for (QObject* object : std::initializer_list<QObject*>{&action, &button}) {
        ui.m_pOther = object;
        ui.SetText(L"字😀");
    }
    QCOMPARE(action.text(), QStringLiteral("字😀"));
    QCOMPARE(button.text(), QStringLiteral("字😀"));
    for (QObject* object : std::initializer_list<QObject*>{&action, &button}) {
        ui.m_pOther = object;
        ui.SetText(nullptr);
    }
    QCOMPARE(action.text(), QString());
    QCOMPARE(button.text(), QString());
}

void tst_CmdUi::nothingElseIsTouched()
{
    QLineEdit edit(QStringLiteral("text"));
    CCmdUI_X ui;
    QCOMPARE(ui.m_pOther, nullptr);
    for (QObject* object : std::initializer_list<QObject*>{nullptr, &edit}) {
        ui.m_pOther = object;
        ui.Enable(0);
        ui.SetCheck(1);
        ui.SetText(L"new");
    }
    QVERIFY(edit.isEnabled());
    QCOMPARE(edit.text(), QStringLiteral("text"));
}

// As a host does it, each time the program is about to wait.
void tst_CmdUi::byTheIdleSignal()
{
    QWidget widget;
    CWnd_X window;
    window.SubclassWindow(&widget);
    CMenu_X menu(&window);
    menu.AppendMenu(MF_STRING, 5, L"Save");
    bool isModified = false;
    connect(&window, &CWnd_X::updateCmdUi, &window, [&] {
        CCmdUI_X ui;
        ui.m_pOther = CMenu_X::findAction(5, menu);
        ui.Enable(isModified);
        ui.SetCheck(isModified);
    });
    window.OnEnterIdle();
    QCOMPARE(menu.GetMenuState(5, 0), MF_GRAYED);
    isModified = true;
    window.OnEnterIdle();
    QCOMPARE(menu.GetMenuState(5, 0), MF_CHECKED);
}

XE_TEST(tst_CmdUi)
#include "tst_cmdui.moc"
