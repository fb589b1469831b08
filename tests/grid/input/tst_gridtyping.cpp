// Keys that change or command: Delete, F2, characters and shortcuts. And the keys that go on to the window.

#include "input/keyedgrid.h"
#include "leavenothing.h"
#include "testclass.h"

#include <QLineEdit>

namespace {

// What keys go on to the widget that the grid is painted on.
class PassedKeys : public QObject
{
public:
    explicit PassedKeys(QWidget* parent) : m_parent(parent) { parent->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress)
            keys += QString::number(static_cast<QKeyEvent*>(event)->key(), 16);
        return false;
    }
    QStringList keys;

private:
    QWidget* m_parent;
};

} // namespace

class tst_GridTyping : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void deleteClears();
    void deleteOnAReadOnlyCell();
    void deleteAndNotices();
    void f2Edits();
    void characters_data();
    void characters();
    void charactersWithoutTheFocus();
    void commands_data();
    void commands();
    void otherKeysGoOn_data();
    void otherKeysGoOn();
    void withoutAFocusCell();
    void disabled();
    void heldKeysCount();
    void noticesMayDelete_data();
    void noticesMayDelete();
};

void tst_GridTyping::deleteClears()
{
    KeyedWindow host(4, 4);
    host.fill();
    host.grid->SetModified(FALSE);
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 2);
    host.grid->SetSelectedRange(1, 1, 3, 3);
    host.window.take();
    QTest::keyClick(host.widget, Qt::Key_Delete);
    QCOMPARE(host.window.take(), QStringLiteral("BEGIN(2, 2) END(2, 2)"));
    QVERIFY(host.grid->GetItemText(2, 2).IsEmpty());
    QVERIFY(host.grid->GetItemText(1, 1) == L"1,1"); // one cell alone
    QCOMPARE(host.grid->GetModified(2, 2), 1);
    QTest::qWait(0);
    QCOMPARE(KeyedGrid::take(host.grid->edits), QString()); // its character opens no editor
}

void tst_GridTyping::deleteOnAReadOnlyCell()
{
    KeyedWindow host(4, 4);
    host.fill();
    QVERIFY(host.comeUp());
    host.grid->SetItemState(2, 2, CGridCellBase_X::ReadOnly);
    host.grid->SetFocusCell(2, 2);
    host.window.take();
    const PassedKeys passed(host.window.GetSafeHwnd());
    QTest::keyClick(host.widget, Qt::Key_Delete);
    QCOMPARE(host.window.take(), QString());
    QVERIFY(host.grid->GetItemText(2, 2) == L"2,2");
    QVERIFY(passed.keys.isEmpty()); // consumed
}

void tst_GridTyping::deleteAndNotices()
{
    KeyedWindow host(4, 4);
    host.fill();
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 2);
    host.window.onNotice = [&host](const XeGridNotification&) { host.grid->DeleteAllItems(); };
    QTest::keyClick(host.widget, Qt::Key_Delete);
    QCOMPARE(host.grid->GetRowCount(), 0);
}

void tst_GridTyping::f2Edits()
{
    KeyedWindow host(4, 4);
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 3);
    QTest::keyClick(host.widget, Qt::Key_F2);
    QCOMPARE(KeyedGrid::take(host.grid->edits), QStringLiteral("2,3 -1 -1 1"));
}

void tst_GridTyping::characters_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("edit");

    QTest::newRow("a letter") << int(Qt::Key_A) << "a" << 0 << "2,3 -1 -1 97";
    QTest::newRow("with Shift") << int(Qt::Key_A) << "A" << int(Qt::ShiftModifier) << "2,3 -1 -1 65";
    QTest::newRow("a Chinese one") << int(Qt::Key_unknown) << QString::fromUtf8("世") << 0 << "2,3 -1 -1 19990";
    QTest::newRow("beyond 16 bits") << int(Qt::Key_unknown) << QString::fromUtf8("😀") << 0 << "2,3 -1 -1 128512";
    QTest::newRow("Backspace") << int(Qt::Key_Backspace) << "\b" << 0 << "2,3 -1 -1 8";
    QTest::newRow("a blank") << int(Qt::Key_Space) << " " << 0 << "2,3 -1 -1 32";
    QTest::newRow("with Ctrl") << int(Qt::Key_B) << "\x02" << int(Qt::ControlModifier) << "";
    QTest::newRow("another control character") << int(Qt::Key_B) << "\x02" << 0 << "";
    QTest::newRow("Return") << int(Qt::Key_Return) << "\r" << 0 << "";
    QTest::newRow("Esc") << int(Qt::Key_Escape) << "\x1b" << 0 << "";
    QTest::newRow("Delete's") << int(Qt::Key_unknown) << "\x7f" << 0 << "";
    QTest::newRow("Tab") << int(Qt::Key_unknown) << "\t" << 0 << "";
}

void tst_GridTyping::characters()
{
    QFETCH(int, key);
    QFETCH(QString, text);
    QFETCH(int, modifiers);
    KeyedWindow host(4, 4);
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 3);
    QKeyEvent press(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers), text);
    QCoreApplication::sendEvent(host.widget, &press);
    QCoreApplication::sendPostedEvents(host.widget);
    QTEST(KeyedGrid::take(host.grid->edits), "edit");
}

void tst_GridTyping::charactersWithoutTheFocus()
{
    KeyedWindow host(4, 4);
    auto* const other = new QLineEdit(host.window.GetSafeHwnd());
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 3);
    other->setFocus();
    host.grid->OnChar('a', 1, 0);
    QCOMPARE(KeyedGrid::take(host.grid->edits), QString());
    host.widget->setFocus();
    host.grid->m_MouseMode = CGridCtrl_X::MOUSE_SELECT_CELLS;
    host.grid->OnChar('a', 1, 0);
    QCOMPARE(KeyedGrid::take(host.grid->edits), QString());
    host.grid->m_MouseMode = CGridCtrl_X::MOUSE_SELECT_ROW; // left behind, with no button held
    host.grid->OnChar('a', 1, 0);
    QCOMPARE(KeyedGrid::take(host.grid->edits), QStringLiteral("2,3 -1 -1 97"));
    host.grid->m_bHandleTabKey = FALSE;
    host.grid->OnChar(9, 1, 0);
    QCOMPARE(KeyedGrid::take(host.grid->edits), QStringLiteral("2,3 -1 -1 9"));
}

void tst_GridTyping::commands_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("commands");

    const int control = Qt::ControlModifier;
    const int shift = Qt::ShiftModifier;
    QTest::newRow("Ctrl+C") << int(Qt::Key_C) << control << "copy";
    QTest::newRow("Ctrl+Insert") << int(Qt::Key_Insert) << control << "copy";
    QTest::newRow("Ctrl+A") << int(Qt::Key_A) << control << "all";
    QTest::newRow("Ctrl+V") << int(Qt::Key_V) << control << "paste";
    QTest::newRow("Ctrl+X") << int(Qt::Key_X) << control << "cut";
    QTest::newRow("Shift+Insert") << int(Qt::Key_Insert) << shift << "paste";
    QTest::newRow("Ctrl+Shift+Insert") << int(Qt::Key_Insert) << (control | shift) << "copy; paste";
    QTest::newRow("Insert") << int(Qt::Key_Insert) << 0 << "";
    QTest::newRow("C") << int(Qt::Key_C) << 0 << "";
    QTest::newRow("Ctrl+B") << int(Qt::Key_B) << control << "";
}

void tst_GridTyping::commands()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    KeyedWindow host(4, 4);
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 3);
    const PassedKeys passed(host.window.GetSafeHwnd());
    QKeyEvent press(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers));
    QCoreApplication::sendEvent(host.widget, &press);
    QTEST(KeyedGrid::take(host.grid->commands), "commands");
    QCOMPARE(passed.keys, QStringList(QString::number(key, 16))); // and the window sees the key too
    host.grid->SetFocusCell(-1, -1);
    QCoreApplication::sendEvent(host.widget, &press);
    QCOMPARE(KeyedGrid::take(host.grid->commands), QString());
}

void tst_GridTyping::otherKeysGoOn_data()
{
    QTest::addColumn<int>("key");

    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_F1, Qt::Key_F3, Qt::Key_Menu,
                              Qt::Key_Space, Qt::Key_Shift})
        QTest::newRow(qPrintable(QString::number(key, 16))) << int(key);
}

void tst_GridTyping::otherKeysGoOn()
{
    QFETCH(int, key);
    KeyedWindow host(4, 4);
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 3);
    const PassedKeys passed(host.window.GetSafeHwnd());
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(host.widget, &press);
    QCOMPARE(passed.keys.size(), 1);
    QCOMPARE(host.focus(), QStringLiteral("2,3"));
}

void tst_GridTyping::withoutAFocusCell()
{
    KeyedWindow host(4, 4);
    QVERIFY(host.comeUp());
    const PassedKeys passed(host.window.GetSafeHwnd());
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Delete, Qt::Key_F2, Qt::Key_Home})
        QTest::keyClick(host.widget, key);
    QCOMPARE(passed.keys.size(), 4);
    QCOMPARE(host.focus(), QStringLiteral("-1,-1"));
    QCOMPARE(KeyedGrid::take(host.grid->edits), QString());
}

void tst_GridTyping::disabled()
{
    KeyedWindow host(4, 4);
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 2);
    host.widget->setEnabled(false);
    host.grid->OnKeyDown(VK_DOWN, 1, 0);
    host.grid->OnChar('a', 1, 0);
    QCOMPARE(host.focus(), QStringLiteral("2,2"));
    QCOMPARE(KeyedGrid::take(host.grid->edits), QString());
}

void tst_GridTyping::heldKeysCount()
{
    KeyedWindow host(6, 6);
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 2);
    host.grid->OnKeyDown('C', 1, MK_CONTROL);
    QCOMPARE(KeyedGrid::take(host.grid->commands), QStringLiteral("copy"));
    host.grid->OnKeyDown(VK_RIGHT, 1, 0);
    host.grid->OnKeyDown(VK_DOWN, 1, MK_SHIFT);
    QCOMPARE(host.selected(), QStringLiteral("2,3 3,3"));
}

void tst_GridTyping::noticesMayDelete_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<UINT>("code");

    QTest::newRow("an arrow, when the focus leaves") << int(Qt::Key_Down) << LVN_ITEMCHANGING;
    QTest::newRow("an arrow, when the focus has come") << int(Qt::Key_Down) << LVN_ITEMCHANGED;
    QTest::newRow("Delete, before") << int(Qt::Key_Delete) << LVN_BEGINLABELEDITW;
    QTest::newRow("Delete, after") << int(Qt::Key_Delete) << LVN_ENDLABELEDITW;
    QTest::newRow("Tab") << int(Qt::Key_Tab) << LVN_ITEMCHANGED;
    QTest::newRow("Shift+Tab") << int(Qt::Key_Backtab) << LVN_ITEMCHANGING;
}

void tst_GridTyping::noticesMayDelete()
{
    QFETCH(int, key);
    QFETCH(UINT, code);
    KeyedWindow host(6, 6);
    QVERIFY(host.comeUp());
    host.grid->SetFocusCell(2, 2);
    host.window.onNotice = [&](const XeGridNotification& told) {
        if (told.hdr.code == code)
            host.grid.reset();
    };
    QTest::keyPress(host.widget, static_cast<Qt::Key>(key));
    QVERIFY(!host.grid);
}

XE_TEST(tst_GridTyping)

#include "tst_gridtyping.moc"
