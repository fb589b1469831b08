// Editing in a grid, by real keys: what opens an editor, and how a key goes on to the next cell.

#include "editedgrid.h"
#include "realinputtest.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QInputMethodEvent>
#include <QLineEdit>
#include <QShortcut>

#include <X11/keysym.h>

class tst_GridEditing : public RealInputTest
{
    Q_OBJECT

private Q_SLOTS:
    void opens();
    void opensNothing_data();
    void opensNothing();
    void alignedAsTheCell_data();
    void alignedAsTheCell();
    void oneAtATime();

    void tabGoesOn();
    void tabGoesBack();
    void keysThatComeAtOnce();
    void shortcutsThatComeAtOnce();
    void arrowsGoOn();
    void returnAndEscapeStay();
    void typedLetterOpens();
    void backspaceOpens();
    void functionKeyOpens();

    void inputMethodOpens();
};

void tst_GridEditing::opens()
{
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    stage.edit();
    QCOMPARE(stage.owner.take(), QStringLiteral("BEGIN(2, 2)"));
    QVERIFY(stage.openField());
    QVERIFY(stage.openField()->hasFocus());
    QCOMPARE(stage.openText(), QStringLiteral("2.2"));
    CRect rect;
    stage.grid->GetCellRect(2, 2, &rect);
    QCOMPARE(stage.openField()->geometry(),
             QRect(QPoint(rect.left, rect.top), QPoint(rect.right - 1, rect.bottom - 1)));
    QCOMPARE(stage.openField()->textMargins(), QMargins(3, 0, 3, 0));
    QCOMPARE(stage.grid->IsItemEditing(2, 2), 1);
    stage.grid->EndEditing();
    QCOMPARE(stage.grid->IsItemEditing(2, 2), 0);
    QCOMPARE(stage.owner.take(), QStringLiteral("END(2, 2)"));
    QVERIFY(stage.widget->hasFocus());
}

void tst_GridEditing::opensNothing_data()
{
    QTest::addColumn<int>("what");
    QTest::newRow("no such cell") << 0;
    QTest::newRow("read-only grid") << 1;
    QTest::newRow("read-only cell") << 2;
    QTest::newRow("hidden row") << 3;
    QTest::newRow("hidden column") << 4;
}

void tst_GridEditing::opensNothing()
{
    QFETCH(int, what);
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    if (what == 1)
        stage.grid->m_bEditable = FALSE;
    if (what == 2)
        stage.grid->SetItemState(2, 2, CGridCellBase_X::ReadOnly);
    if (what == 3)
        stage.grid->SetRowHeight(2, 0);
    if (what == 4)
        stage.grid->SetColumnWidth(2, 0);
    stage.edit(what == 0 ? 99 : 2);
    QVERIFY(!stage.field());
    QCOMPARE(stage.owner.take(), QString());
}

void tst_GridEditing::alignedAsTheCell_data()
{
    QTest::addColumn<unsigned>("format");
    QTest::addColumn<int>("alignment");
    QTest::newRow("left") << DT_LEFT << 1;
    QTest::newRow("centred") << DT_CENTER << 132;
    QTest::newRow("right") << DT_RIGHT << 2;
}

void tst_GridEditing::alignedAsTheCell()
{
    QFETCH(unsigned, format);
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    stage.grid->SetItemFormat(2, 2, format);
    stage.edit();
    QTEST(static_cast<int>(stage.openField()->alignment()), "alignment");
    stage.grid->EndEditing();
}

void tst_GridEditing::oneAtATime()
{
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    stage.edit();
    stage.openField()->setText(QStringLiteral("first"));
    stage.edit(3, 3);
    QCOMPARE(stage.text(2, 2), QStringLiteral("first"));
    QCOMPARE(stage.openText(), QStringLiteral("3.3"));
    QCOMPARE(stage.owner.take(), QStringLiteral("BEGIN(2, 2) END(2, 2) BEGIN(3, 3)"));
    stage.settle();
    QCOMPARE(stage.widget->findChildren<QLineEdit*>().size(), 1);
    stage.other->setFocus();
    QCOMPARE(stage.owner.take(), QStringLiteral("END(3, 3)"));
}

// ------------------------------------------------------------------------------------------------------------ the keys

void tst_GridEditing::tabGoesOn()
{
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    stage.edit();
    m_input.typeKey(XK_a);
    m_input.typeKey(XK_Tab);
    QTRY_COMPARE(stage.openText(), QStringLiteral("2.3"));
    QCOMPARE(stage.text(2, 2), QStringLiteral("2.2a"));
    QVERIFY(stage.grid->m_idCurrentCell == CCellID_X(2, 3));
    QCOMPARE(stage.openField()->selectedText(), QStringLiteral("2.3"));
    const QString told = stage.owner.take();
    QVERIFY2(told.startsWith(QStringLiteral("BEGIN(2, 2) END(2, 2) ")) && told.endsWith(QStringLiteral("BEGIN(2, 3)")),
             qPrintable(told));
    m_input.typeKey(XK_b);
    m_input.typeKey(XK_Tab);
    QTRY_COMPARE(stage.openText(), QStringLiteral("3.1"));
    QCOMPARE(stage.text(2, 3), QStringLiteral("b"));
    m_input.typeKey(XK_Return);
    QTRY_VERIFY(!stage.openField());
}

// The program has been busy: all the keys are there before any character of theirs is.
void tst_GridEditing::keysThatComeAtOnce()
{
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    const unsigned long keys[] = {XK_2, XK_5, XK_0, XK_Tab, XK_6, XK_0, XK_Return};
    for (const unsigned long key : keys)
        m_input.typeKey(key);
    QTRY_COMPARE(stage.text(2, 3), QString("60"));
    QCOMPARE(stage.text(2, 2), QString("250"));
    QVERIFY(!stage.openField());
    QTRY_COMPARE(stage.grid->m_idCurrentCell, CCellID_X(2, 3));
    EditedGrid<>::settle();
}

// A key that a shortcut has belongs to the editor that a key before it opens.
void tst_GridEditing::shortcutsThatComeAtOnce()
{
    EditedGrid<> stage;
    int triggered = 0;
    QShortcut shortcut(QKeySequence(Qt::Key_Delete), &stage.window);
    connect(&shortcut, &QShortcut::activated, this, [&] { ++triggered; });
    QVERIFY(stage.comeUp());
    const unsigned long keys[] = {XK_7, XK_Home, XK_Delete, XK_8, XK_Return};
    for (const unsigned long key : keys)
        m_input.typeKey(key);
    QTRY_COMPARE(stage.text(2, 2), QString("8"));
    QCOMPARE(triggered, 0);
    EditedGrid<>::settle();
}

void tst_GridEditing::tabGoesBack()
{
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    stage.edit();
    typeChord({XK_Shift_L, XK_Tab});
    QTRY_COMPARE(stage.openText(), QStringLiteral("2.1"));
    QVERIFY(stage.grid->m_idCurrentCell == CCellID_X(2, 1));
    stage.grid->EndEditing();
}

void tst_GridEditing::arrowsGoOn()
{
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    stage.edit(2, 2, 'x');
    QCOMPARE(stage.openText(), QStringLiteral("x"));
    m_input.typeKey(XK_Down);
    QTRY_COMPARE(stage.openText(), QStringLiteral("3.2"));
    m_input.typeKey(XK_Right);
    QTRY_COMPARE(stage.openText(), QStringLiteral("3.3"));
    m_input.typeKey(XK_Up);
    QTRY_COMPARE(stage.openText(), QStringLiteral("2.3"));
    m_input.typeKey(XK_Left);
    QTRY_COMPARE(stage.openText(), QStringLiteral("x"));
    m_input.typeKey(XK_Escape);
    QTRY_VERIFY(!stage.openField());
    QVERIFY(stage.grid->m_idCurrentCell == CCellID_X(2, 2));
}

void tst_GridEditing::returnAndEscapeStay()
{
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    for (const unsigned long key : {XK_Return, XK_KP_Enter, XK_Escape}) {
        stage.edit();
        m_input.typeKey(key);
        QTRY_VERIFY(!stage.openField());
        stage.settle();
        QVERIFY(!stage.openField());
        QVERIFY(stage.grid->m_idCurrentCell == CCellID_X(2, 2));
        QVERIFY(stage.widget->hasFocus());
    }
}

void tst_GridEditing::typedLetterOpens()
{
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    m_input.typeKey(XK_k);
    QTRY_COMPARE(stage.openText(), QStringLiteral("k"));
    m_input.typeKey(XK_l);
    QTRY_COMPARE(stage.openText(), QStringLiteral("kl"));
    m_input.typeKey(XK_Return);
    QTRY_COMPARE(stage.text(2, 2), QStringLiteral("kl"));
}

void tst_GridEditing::backspaceOpens()
{
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    m_input.typeKey(XK_BackSpace);
    QTRY_COMPARE(stage.openText(), QStringLiteral("2."));
    m_input.typeKey(XK_BackSpace);
    QTRY_COMPARE(stage.openText(), QStringLiteral("2"));
    m_input.typeKey(XK_Escape);
    QTRY_VERIFY(!stage.openField());
}

void tst_GridEditing::functionKeyOpens()
{
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    m_input.typeKey(XK_F2);
    QTRY_COMPARE(stage.openText(), QStringLiteral("2.2"));
    QCOMPARE(stage.openField()->selectedText(), QString());
    m_input.typeKey(XK_Left); // inside the field
    m_input.typeKey(XK_x);
    QTRY_COMPARE(stage.openText(), QStringLiteral("2.x2"));
    m_input.typeKey(XK_Escape);
    QTRY_VERIFY(!stage.openField());
}

void tst_GridEditing::inputMethodOpens()
{
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    QVERIFY(stage.widget->testAttribute(Qt::WA_InputMethodEnabled));
    QInputMethodEvent composing(QStringLiteral("ni"), {});
    QCoreApplication::sendEvent(stage.widget, &composing);
    QVERIFY(stage.openField());
    QInputMethodEvent done;
    done.setCommitString(QString(QChar(0x4F60)));
    QCoreApplication::sendEvent(stage.openField(), &done);
    QCOMPARE(stage.openText(), QString(QChar(0x4F60)));
    stage.grid->EndEditing();
    stage.grid->SetItemState(2, 2, CGridCellBase_X::ReadOnly);
    QCoreApplication::sendEvent(stage.widget, &composing);
    QVERIFY(!stage.openField());
}

XE_TEST(tst_GridEditing)

#include "tst_gridediting.moc"
