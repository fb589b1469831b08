// The editor of a text by itself: what ends it, what it reports, and who may delete it meanwhile.

#include "editing/texteditor.h"
#include "leavenothing.h"
#include "testclass.h"

#include <QPointer>

class tst_InPlaceEditEnd : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void record();
    void endByKey_data();
    void endByKey();

    void focusLoss_data();
    void focusLoss();
    void deactivationEnds();
    void killFocusMessage();
    void focusGoesBackToTheGrid();
    void endTwice();
    void oneEndAtATime();

    void goesAfterItsEnd();
    void goesWithItsWidget();
    void deletedInItsReport_data();
    void deletedInItsReport();
    void windowGoesWhileItOpens();
};

// ------------------------------------------------------------------------------------------------------------- the end

void tst_InPlaceEditEnd::record()
{
    EditStage stage;
    QVERIFY(stage.comeUp());
    const Editor by(stage, 'k');
    QWidget* const field = by.field;
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(stage.host.ends, QStringList{QStringLiteral("3,4 'k' 13")});
    QCOMPARE(stage.host.lastId, WPARAM(8));
    QCOMPARE(stage.host.lastHeader.hwndFrom, field);
    QCOMPARE(stage.host.lastHeader.idFrom, UINT_PTR(0));
    QCOMPARE(static_cast<int>(stage.host.lastHeader.code), -176);
    const _GV_ITEM_X& item = stage.host.lastItem;
    QCOMPARE(item.mask, 5u);
    QCOMPARE(item.nState, 0u);
    QCOMPARE(item.nFormat, 0x8824u);
    QCOMPARE(item.iImage, -1);
    QCOMPARE(item.iTile, 0);
    QCOMPARE(item.crBkClr, 0xFF000000u);
    QCOMPARE(item.crFgClr, 0xFF000000u);
    QCOMPARE(item.nMargin, 3u);
}

void tst_InPlaceEditEnd::endByKey_data()
{
    QTest::addColumn<unsigned>("ch");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("end");

    const auto row = [](const char* name, unsigned ch, int key, int modifiers, const char* end) {
        QTest::newRow(name) << ch << key << modifiers << QString::fromLatin1(end);
    };
    row("Return", 1, Qt::Key_Return, 0, "3,4 'drillx' 13");
    row("Enter of the keypad", 1, Qt::Key_Enter, Qt::KeypadModifier, "3,4 'drillx' 13");
    row("Esc brings the text back", 1, Qt::Key_Escape, 0, "3,4 'drill' 27");
    row("Tab", 1, Qt::Key_Tab, 0, "3,4 'drillx' 9");
    row("Shift and Tab", 1, Qt::Key_Backtab, Qt::ShiftModifier, "3,4 'drillx' 9");
    row("Down", 13, Qt::Key_Down, 0, "3,4 'drillx' 40");
    row("Up", 13, Qt::Key_Up, 0, "3,4 'drillx' 38");
    row("Left", 13, Qt::Key_Left, 0, "3,4 'drillx' 37");
    row("Right", 13, Qt::Key_Right, 0, "3,4 'drillx' 39");
    row("Page Up", 13, Qt::Key_PageUp, 0, "3,4 'drillx' 33");
    row("Page Down", 13, Qt::Key_PageDown, 0, "3,4 'drillx' 34");
    row("Ctrl and Down, opened by the host", 1, Qt::Key_Down, Qt::ControlModifier, "3,4 'drillx' 40");
    row("Ctrl and Left, opened by the host", 1, Qt::Key_Left, Qt::ControlModifier, "3,4 'drillx' 37");
}

void tst_InPlaceEditEnd::endByKey()
{
    QFETCH(unsigned, ch);
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, end);
    EditStage stage;
    QVERIFY(stage.comeUp());
    const Editor by(stage, ch);
    QTest::keyClick(by.field, 'x');
    QTest::keyClick(by.field, static_cast<Qt::Key>(key), Qt::KeyboardModifiers(modifiers));
    QTRY_COMPARE(stage.host.ends, QStringList{end});
    stage.settle();
    QCOMPARE(stage.host.ends, QStringList{end});
    QVERIFY(!by.field);
    QVERIFY(!by.editor);
    QVERIFY(stage.grid->hasFocus());
    QVERIFY(stage.host.keys.isEmpty());
}

// ----------------------------------------------------------------------------------------------------------- the focus

void tst_InPlaceEditEnd::focusLoss_data()
{
    QTest::addColumn<int>("reason");
    QTest::addColumn<bool>("ends");

    QTest::newRow("mouse") << int(Qt::MouseFocusReason) << true;
    QTest::newRow("Tab") << int(Qt::TabFocusReason) << true;
    QTest::newRow("a call") << int(Qt::OtherFocusReason) << true;
    QTest::newRow("shortcut") << int(Qt::ShortcutFocusReason) << true;
    QTest::newRow("context menu or list") << int(Qt::PopupFocusReason) << false;
    QTest::newRow("menu bar") << int(Qt::MenuBarFocusReason) << false;
}

void tst_InPlaceEditEnd::focusLoss()
{
    QFETCH(int, reason);
    QFETCH(bool, ends);
    EditStage stage;
    QVERIFY(stage.comeUp());
    const Editor by(stage, 'k');
    stage.other->setFocus(static_cast<Qt::FocusReason>(reason));
    QCOMPARE(stage.host.ends, ends ? QStringList{QStringLiteral("3,4 'k' 0")} : QStringList());
    stage.settle();
    QCOMPARE(by.field.isNull(), ends);
    QVERIFY(stage.other->hasFocus());
    if (!ends)
        by.editor->EndEdit();
}

void tst_InPlaceEditEnd::deactivationEnds()
{
    EditStage stage;
    QVERIFY(stage.comeUp());
    const Editor by(stage, 'k');
    QWidget window;
    window.show();
    QTRY_VERIFY((window.activateWindow(), window.isActiveWindow()));
    QCOMPARE(stage.host.ends, QStringList{QStringLiteral("3,4 'k' 0")});
    stage.settle();
    QVERIFY(!by.field);
    QVERIFY(window.isActiveWindow());
    QCOMPARE(stage.window.focusWidget(), stage.grid);
}

void tst_InPlaceEditEnd::killFocusMessage()
{
    EditStage stage;
    QVERIFY(stage.comeUp());
    const Editor by(stage);
    by.editor->SendMessage(WM_KILLFOCUS);
    QCOMPARE(stage.host.ends.size(), 1);
    QVERIFY(stage.grid->hasFocus());
}

void tst_InPlaceEditEnd::focusGoesBackToTheGrid()
{
    EditStage stage;
    QVERIFY(stage.comeUp());
    const Editor by(stage);
    by.editor->EndEdit();
    QVERIFY(stage.grid->hasFocus());
    QVERIFY(!by.field->isVisible());
    QCOMPARE(stage.host.ends.size(), 1);
    stage.settle();
    QVERIFY(stage.grid->hasFocus());
}

void tst_InPlaceEditEnd::endTwice()
{
    EditStage stage;
    QVERIFY(stage.comeUp());
    const Editor by(stage);
    by.editor->EndEdit();
    by.editor->EndEdit();
    QCOMPARE(stage.host.ends.size(), 2);
    stage.other->setFocus();
    QTest::keyClick(by.field, Qt::Key_Return);
    by.editor->OnChar(13, 1, 0);
    by.editor->OnKillFocus(nullptr);
    QCOMPARE(stage.host.ends.size(), 2);
    QVERIFY(stage.other->hasFocus());
}

void tst_InPlaceEditEnd::oneEndAtATime()
{
    EditStage stage;
    QVERIFY(stage.comeUp());
    const Editor first(stage, 'a');
    QPointer<CInPlaceEdit_X> second;
    stage.host.onEnd = [&] {
        if (second)
            return;
        second = Editor(stage, 'b').editor;
        second->EndEdit();       // not while the first one ends
        stage.other->setFocus(); // this is caught up
    };
    first.editor->EndEdit();
    QCOMPARE(stage.host.takeEnds(), QStringList{QStringLiteral("3,4 'a' 0")});
    QTRY_COMPARE(stage.host.ends, QStringList{QStringLiteral("3,4 'b' 0")});
    stage.settle();
    QVERIFY(!second);
}

// --------------------------------------------------------------------------------------------------------------- death

void tst_InPlaceEditEnd::goesAfterItsEnd()
{
    EditStage stage;
    const Editor by(stage);
    by.editor->EndEdit();
    QVERIFY(by.editor);
    QVERIFY(by.field);
    stage.settle();
    QVERIFY(!by.editor);
    QVERIFY(!by.field);
}

void tst_InPlaceEditEnd::goesWithItsWidget()
{
    EditStage stage;
    const Editor by(stage);
    delete by.field;
    QVERIFY(!by.editor);
    const Editor destroyed(stage);
    destroyed.editor->DestroyWindow();
    QVERIFY(!destroyed.editor);
    QVERIFY(stage.host.ends.isEmpty());
}

void tst_InPlaceEditEnd::deletedInItsReport_data()
{
    QTest::addColumn<int>("what");
    QTest::addColumn<int>("key");

    const std::pair<const char*, int> keys[] = {{"focus", 0}, {"Return", Qt::Key_Return}, {"Tab", Qt::Key_Tab}};
    const char* const what[] = {"editor", "field", "grid's widget", "grid's widget without its wrapper"};
    for (int i = 0; i < 4; ++i) {
        for (const auto& [name, key] : keys)
            QTest::addRow("%s by %s", what[i], name) << i << key;
    }
}

void tst_InPlaceEditEnd::deletedInItsReport()
{
    QFETCH(int, what);
    QFETCH(int, key);
    auto stage = std::make_unique<EditStage>();
    QVERIFY(stage->comeUp());
    const Editor by(*stage, 'k');
    stage->host.onEnd = [&, what] {
        switch (what) {
        case 0:
            delete by.editor;
            break;
        case 1:
            delete by.field;
            break;
        case 2:
            delete stage->grid;
            break;
        default:
            stage->host.Detach();
            delete stage->grid;
        }
    };
    if (key)
        QTest::keyClick(by.field, static_cast<Qt::Key>(key));
    else
        stage->other->setFocus();
    EditStage::settle();
    QVERIFY(!by.editor);
    QVERIFY(!by.field);
    QCOMPARE(stage->host.ends.size(), 1);
}

void tst_InPlaceEditEnd::windowGoesWhileItOpens()
{
    struct Destroyer : QObject
    {
        bool eventFilter(QObject* target, QEvent* event) override
        {
            const bool isKey = event->type() == QEvent::KeyPress;
            if (isKey)
                delete target;
            return isKey;
        }
    };
    EditStage stage;
    QVERIFY(stage.comeUp());
    Destroyer destroyer;
    qApp->installEventFilter(&destroyer);
    CRect rect(0, 0, 60, 20);
    const CInPlaceEdit_X editor(stage.grid, rect, 0, 8, 1, 1, L"x", 'k');
    QVERIFY(!editor.GetSafeHwnd());
}

XE_TEST(tst_InPlaceEditEnd)

#include "tst_inplaceeditend.moc"
