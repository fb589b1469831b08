// How an edit in a grid ends: what is stored and told, what ends it from outside, and who may delete what meanwhile.

#include "editedgrid.h"
#include "realinputtest.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <X11/keysym.h>

namespace {

/// A grid whose end of an edit does not reach the base.
class ForgetfulGrid : public CGridCtrl_X
{
public:
    void OnEndEditCell(int, int, CString_X) override {}
};

} // namespace

class tst_GridEditEnd : public RealInputTest
{
    Q_OBJECT

private Q_SLOTS:
    void changedTextIsStored();
    void sameTextIsNoChange();
    void endOfACellThatIsNotThere();
    void messageWithoutARecord();

    void endsInACellThatTheFocusHasLeft();
    void clickElsewhereStores();
    void otherFieldStores();
    void structuralChangeEndsFirst_data();
    void structuralChangeEndsFirst();
    void resizeEnds();

    void forgetfulHost();
    void gridGoesWithAnOpenEditor();
    void cellGoesWithAnOpenEditor();
    void deletedInANotification_data();
    void deletedInANotification();
};

// ---------------------------------------------------------------------------------------------------------- the ends

void tst_GridEditEnd::changedTextIsStored()
{
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    stage.edit();
    stage.openField()->setText(QStringLiteral("new"));
    stage.grid->EndEditing();
    QCOMPARE(stage.text(2, 2), QStringLiteral("new"));
    QVERIFY(stage.grid->GetModified(2, 2));
    QVERIFY(stage.grid->GetModified());
}

// As by a drag, or by a host.
void tst_GridEditEnd::endsInACellThatTheFocusHasLeft()
{
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    stage.edit();
    stage.openField()->setText(QStringLiteral("new"));
    stage.grid->SetFocusCell(3, 1);
    QVERIFY(stage.openField());
    stage.owner.take();
    stage.grid->EndEditing();
    QVERIFY(!stage.openField());
    QCOMPARE(stage.owner.take(), QStringLiteral("END(2, 2)"));
    QCOMPARE(stage.text(2, 2), QStringLiteral("new"));
    QCOMPARE(stage.text(3, 1), QStringLiteral("3.1"));
}

void tst_GridEditEnd::sameTextIsNoChange()
{
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    stage.edit();
    m_input.typeKey(XK_x);
    QTRY_COMPARE(stage.openText(), QStringLiteral("2.2x"));
    m_input.typeKey(XK_Escape);
    QTRY_VERIFY(!stage.openField());
    QCOMPARE(stage.text(2, 2), QStringLiteral("2.2"));
    QVERIFY(!stage.grid->GetModified());
    QCOMPARE(stage.grid->IsItemEditing(2, 2), 0);
    QCOMPARE(stage.owner.take(), QStringLiteral("BEGIN(2, 2) END(2, 2)"));
}

void tst_GridEditEnd::endOfACellThatIsNotThere()
{
    EditedGrid<> stage;
    stage.grid->OnEndEditCell(99, 1, L"x");
    stage.grid->OnEndEditCell(1, -1, L"x");
    QVERIFY(!stage.grid->GetModified());
    XeGridEditEnd end{};
    end.item.row = 99;
    end.item.col = 1;
    QCOMPARE(stage.grid->SendMessage(XE_WM_ENDEDIT, 8, reinterpret_cast<LPARAM>(&end)), LRESULT(1));
    QCOMPARE(stage.owner.take(), QStringLiteral("END(99, 1)"));
}

void tst_GridEditEnd::messageWithoutARecord()
{
    EditedGrid<> stage;
    QCOMPARE(stage.grid->SendMessage(XE_WM_ENDEDIT, 8, 0), LRESULT(0));
    CGridCtrl_X bare;
    XeGridEditEnd end{};
    QCOMPARE(bare.OnEndInPlaceEdit(8, reinterpret_cast<LPARAM>(&end)), LRESULT(0));
}

// -------------------------------------------------------------------------------------------------- focus and changes

void tst_GridEditEnd::clickElsewhereStores()
{
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    stage.edit();
    stage.openField()->setText(QStringLiteral("new"));
    CRect rect;
    stage.grid->GetCellRect(3, 3, &rect);
    clickAt(stage.window, {rect.left + 5, rect.top + 5});
    QTRY_COMPARE(stage.text(2, 2), QStringLiteral("new"));
    QTRY_VERIFY(stage.grid->m_idCurrentCell == CCellID_X(3, 3));
    QVERIFY(!stage.openField());
}

void tst_GridEditEnd::otherFieldStores()
{
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    stage.edit();
    stage.openField()->setText(QStringLiteral("new"));
    clickAt(stage.window, {20, 270});
    QTRY_COMPARE(stage.text(2, 2), QStringLiteral("new"));
    QTRY_VERIFY(stage.other->hasFocus());
}

void tst_GridEditEnd::structuralChangeEndsFirst_data()
{
    QTest::addColumn<int>("what");
    QTest::addColumn<int>("row");

    QTest::newRow("inserted row") << 0 << 3;
    QTest::newRow("deleted row") << 1 << 1;
    QTest::newRow("row count") << 2 << 2;
    QTest::newRow("inserted column") << 3 << 2;
    QTest::newRow("cell type") << 4 << 2;
    QTest::newRow("sort") << 5 << 2;
}

void tst_GridEditEnd::structuralChangeEndsFirst()
{
    QFETCH(int, what);
    QFETCH(int, row);
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    stage.edit();
    stage.openField()->setText(QStringLiteral("2.2 new"));
    switch (what) {
    case 0:
        stage.grid->InsertRow(L"", 1);
        break;
    case 1:
        stage.grid->DeleteRow(1);
        break;
    case 2:
        stage.grid->SetRowCount(20);
        break;
    case 3:
        stage.grid->InsertColumn(L"");
        break;
    case 4:
        stage.grid->SetCellType(2, 2, RUNTIME_CLASS_X(CGridCell_X));
        break;
    default:
        stage.grid->SortTextItems(1, TRUE);
    }
    QVERIFY(!stage.openField());
    QCOMPARE(stage.text(row, 2), QStringLiteral("2.2 new"));
    QVERIFY(stage.owner.take().startsWith(QStringLiteral("BEGIN(2, 2) END(2, 2)")));
}

void tst_GridEditEnd::resizeEnds()
{
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    stage.edit();
    stage.openField()->setText(QStringLiteral("new"));
    stage.widget->resize(400, 200);
    QTRY_COMPARE(stage.text(2, 2), QStringLiteral("new"));
}

// --------------------------------------------------------------------------------------------------------------- death

void tst_GridEditEnd::forgetfulHost()
{
    EditedGrid<ForgetfulGrid> stage;
    QVERIFY(stage.comeUp());
    stage.edit();
    stage.openField()->setText(QStringLiteral("new"));
    stage.other->setFocus();
    QCOMPARE(stage.grid->IsItemEditing(2, 2), 0);
    QCOMPARE(static_cast<CGridCell_X*>(stage.grid->cellAt(2, 2))->m_pEditWnd, nullptr);
    stage.settle();
    stage.grid->EndEditing();
    QCOMPARE(stage.text(2, 2), QStringLiteral("2.2"));
}

void tst_GridEditEnd::gridGoesWithAnOpenEditor()
{
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    stage.edit();
    stage.openField()->setText(QStringLiteral("new"));
    stage.owner.take();
    stage.grid.reset();
    QCOMPARE(stage.owner.take(), QString());
    stage.settle();
    QVERIFY(!stage.field());
    EditedGrid<> second;
    QVERIFY(second.comeUp());
    second.edit();
    delete second.widget;
    second.grid.reset();
}

void tst_GridEditEnd::cellGoesWithAnOpenEditor()
{
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    stage.edit();
    stage.owner.take();
    delete stage.grid->cellAt(2, 2);
    (*stage.grid->m_RowData[2])[2] = nullptr;
    QCOMPARE(stage.owner.take(), QString());
    stage.settle();
    QVERIFY(!stage.field());
    QVERIFY(stage.widget->hasFocus());
    stage.edit(); // there is no cell
    QVERIFY(!stage.field());
}

void tst_GridEditEnd::deletedInANotification_data()
{
    QTest::addColumn<unsigned>("code");
    QTest::addColumn<int>("what");
    QTest::addColumn<unsigned long>("key");

    const char* const what[] = {"cell", "rows", "grid", "grid and widget"};
    for (int i = 0; i < 4; ++i) {
        QTest::addRow("%s as it begins", what[i]) << LVN_BEGINLABELEDITW << i << static_cast<unsigned long>(XK_Return);
        QTest::addRow("%s as it ends by Return", what[i])
            << LVN_ENDLABELEDITW << i << static_cast<unsigned long>(XK_Return);
        QTest::addRow("%s as it ends by Tab", what[i]) << LVN_ENDLABELEDITW << i << static_cast<unsigned long>(XK_Tab);
    }
}

void tst_GridEditEnd::deletedInANotification()
{
    QFETCH(unsigned, code);
    QFETCH(int, what);
    QFETCH(unsigned long, key);
    EditedGrid<> stage;
    QVERIFY(stage.comeUp());
    bool isTold = false;
    stage.owner.onNotice = [&](const XeGridNotification& told) {
        if (told.hdr.code != code || isTold)
            return;
        isTold = true;
        if (what == 0) {
            delete stage.grid->cellAt(2, 2);
            (*stage.grid->m_RowData[2])[2] = nullptr;
        } else if (what == 1) {
            stage.grid->DeleteAllItems();
        } else {
            stage.grid.reset();
        }
        if (what == 3)
            delete stage.widget;
    };
    stage.edit();
    if (code == LVN_ENDLABELEDITW)
        m_input.typeKey(key);
    QTRY_VERIFY(isTold);
    stage.settle();
    if (stage.grid && what == 0 && key == XK_Tab)
        stage.grid->EndEditing();
    stage.settle();
    QVERIFY(!stage.openField());
}

XE_TEST(tst_GridEditEnd)

#include "tst_grideditend.moc"
