// Clicks and keys on the controls of a cell.

#include "btncell/btnstage.h"
#include "leavenothing.h"
#include "testclass.h"

class tst_BtnClicks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void checkBox();
    void inactiveControl();
    void radioButtons();
    void pushButtonsOfAGroup();
    void scrollControlIsNeverChecked();
    void otherMessages();
    void clickBesideControls();
    void letGoElsewhere();
    void editClicksTheControl();
    void doubleClickTogglesTwice();
    void spacePushesForAWhile();
    void spaceAndInactiveControl();
    void secondKeyCompletesTheFirst();
    void hotKeys_data();
    void hotKeys();
    void hotKeyEdits();
    void editorOverTheText();
    void deletedWhilePushed();
    void deletedByItsNotification();
};

// -------------------------------------------------------------------------------------------------------------- clicks

void tst_BtnClicks::checkBox()
{
    BtnStage stage;
    stage.setUp(0, DFC_BUTTON, 0);
    stage.cell->OnClickDown({5, 5});
    QCOMPARE(stage.state(), pressed);
    QCOMPARE(stage.cell->GetLastCtlClicked(), short(0));
    stage.cell->OnClick({5, 5});
    QCOMPARE(stage.state(), checked);
    stage.cell->OnClickDown({5, 5});
    stage.cell->OnClick({5, 5});
    QCOMPARE(stage.state(), 0u);
    stage.cell->OnDblClick({5, 5});
    QCOMPARE(stage.state(), checked);
    QVERIFY(stage.owner.notes.isEmpty());
}

void tst_BtnClicks::inactiveControl()
{
    BtnStage stage;
    stage.setUp(0, DFC_BUTTON, DFCS_INACTIVE | checked);
    stage.cell->m_nLastCtlClicked = 3;
    for (const UINT message : {down, up, twice})
        QCOMPARE(stage.cell->ClickedCellCtl(message, 0), 0);
    QCOMPARE(stage.state(), DFCS_INACTIVE | checked);
    QCOMPARE(stage.cell->GetLastCtlClicked(), short(3));
}

void tst_BtnClicks::radioButtons()
{
    BtnStage stage;
    stage.setUp(0, DFC_BUTTON, DFCS_BUTTONRADIO | checked, CTL_ALIGN_LEFT, 10, TRUE);
    stage.setUp(1, DFC_BUTTON, DFCS_BUTTONRADIO, CTL_ALIGN_LEFT, 10, TRUE);
    stage.setUp(2, DFC_BUTTON, DFCS_BUTTONRADIO, CTL_ALIGN_LEFT, 10, FALSE); // its look makes it a member
    stage.setUp(3, DFC_BUTTON, checked, CTL_ALIGN_LEFT, 10, FALSE);
    QCOMPARE(stage.cell->ClickedCellCtl(up, 1), 1);
    QCOMPARE(stage.state(0), DFCS_BUTTONRADIO);
    QCOMPARE(stage.state(1), DFCS_BUTTONRADIO | checked);
    QCOMPARE(stage.state(3), checked);
    QCOMPARE(stage.cell->ClickedCellCtl(up, 2), 1);
    QCOMPARE(stage.state(1), DFCS_BUTTONRADIO);
    QCOMPARE(stage.state(2), DFCS_BUTTONRADIO | checked);
    QCOMPARE(stage.cell->ClickedCellCtl(up, 2), 1);
    QCOMPARE(stage.state(2), DFCS_BUTTONRADIO | checked);
}

void tst_BtnClicks::pushButtonsOfAGroup()
{
    BtnStage stage;
    stage.setUp(0, DFC_BUTTON, DFCS_BUTTONPUSH, CTL_ALIGN_LEFT, 10, TRUE);
    stage.setUp(1, DFC_BUTTON, DFCS_BUTTONPUSH, CTL_ALIGN_LEFT, 10, TRUE);
    stage.setUp(2, DFC_BUTTON, DFCS_BUTTONPUSH, CTL_ALIGN_LEFT, 10, FALSE);
    stage.cell->ClickedCellCtl(down, 0);
    stage.cell->ClickedCellCtl(up, 0);
    QCOMPARE(stage.state(0), DFCS_BUTTONPUSH | pressed | checked);
    stage.cell->ClickedCellCtl(down, 1);
    stage.cell->ClickedCellCtl(up, 1);
    QCOMPARE(stage.state(0), DFCS_BUTTONPUSH);
    QCOMPARE(stage.state(1), DFCS_BUTTONPUSH | pressed | checked);
    stage.cell->ClickedCellCtl(down, 2);
    stage.cell->ClickedCellCtl(up, 2);
    QCOMPARE(stage.state(2), DFCS_BUTTONPUSH);
    QCOMPARE(stage.state(1), DFCS_BUTTONPUSH | pressed | checked);
}

void tst_BtnClicks::scrollControlIsNeverChecked()
{
    BtnStage stage;
    stage.setUp(0, DFC_SCROLL, DFCS_SCROLLUP);
    stage.cell->ClickedCellCtl(down, 0);
    QCOMPARE(stage.state(), pressed);
    stage.cell->ClickedCellCtl(up, 0);
    QCOMPARE(stage.state(), 0u);
}

void tst_BtnClicks::otherMessages()
{
    BtnStage stage;
    stage.setUp(0, DFC_BUTTON, 0);
    QCOMPARE(stage.cell->ClickedCellCtl(WM_RBUTTONUP, 0), 0);
    QCOMPARE(stage.state(), 0u);
    QCOMPARE(stage.cell->ClickedCellCtl(up, 1), 0);
    QCOMPARE(stage.cell->ClickedCellCtl(up, -1), 0);
}

void tst_BtnClicks::clickBesideControls()
{
    BtnStage stage;
    stage.setUp(0, DFC_BUTTON, 0);
    stage.cell->m_nLastCtlClicked = 0;
    QCOMPARE(stage.cell->ProcessCtlClick(up, {60, 5}), 0);
    QCOMPARE(stage.cell->GetLastCtlClicked(), short(-1));
    QCOMPARE(stage.cell->ProcessCtlClick(up, {5, 5}), 1);
}

void tst_BtnClicks::letGoElsewhere()
{
    BtnStage stage;
    stage.setUp(0, DFC_BUTTON, DFCS_BUTTONPUSH, CTL_ALIGN_LEFT, 20);
    stage.setUp(1, DFC_BUTTON, DFCS_BUTTONPUSH | pressed | checked, CTL_ALIGN_LEFT, 20, TRUE);
    stage.cell->OnClickDown({5, 5});
    stage.cell->OnClick({90, 5});
    QCOMPARE(stage.state(0), DFCS_BUTTONPUSH);
    stage.cell->OnClickDown({30, 5});
    stage.cell->OnClick({90, 5});
    QCOMPARE(stage.state(1), DFCS_BUTTONPUSH | pressed | checked);
    stage.cell->OnClickDown({5, 5});
    stage.cell->OnClick({30, 5});
    QCOMPARE(stage.state(0), DFCS_BUTTONPUSH);
}

// ------------------------------------------------------------------------------------------------- editing and keys

void tst_BtnClicks::editClicksTheControl()
{
    BtnStage stage;
    stage.setUp(0, DFC_BUTTON, 0);
    QCOMPARE(stage.cell->Edit(1, 1, cellRect(stage), {5, 5}, 8, 1), 0);
    QCOMPARE(stage.state(), checked);
    QCOMPARE(stage.owner.notes, QStringList{QStringLiteral("-2 1,1")});
    QCOMPARE(stage.cell->IsEditing(), 0);
}

void tst_BtnClicks::doubleClickTogglesTwice()
{
    BtnStage stage;
    stage.setUp(0, DFC_BUTTON, 0);
    stage.cell->OnClickDown({5, 5});
    stage.cell->OnClick({5, 5});
    stage.cell->Edit(1, 1, cellRect(stage), {5, 5}, 8, 1); // the double click opens the editor first
    stage.cell->OnDblClick({5, 5});
    QCOMPARE(stage.state(), 0u);
    stage.cell->Edit(1, 1, cellRect(stage), {5, 5}, 8, 1);
    QCOMPARE(stage.state(), checked);
    QCoreApplication::processEvents();
    stage.cell->OnDblClick({5, 5}); // of another event
    QCOMPARE(stage.state(), 0u);
}

void tst_BtnClicks::spacePushesForAWhile()
{
    BtnStage stage;
    stage.setUp(0, DFC_BUTTON, 0);
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(stage.cell->Edit(1, 1, cellRect(stage), {-1, -1}, 8, VK_SPACE), 0);
    QVERIFY(timer.elapsed() < 100);
    QCOMPARE(stage.state(), pressed);
    QVERIFY(stage.owner.notes.isEmpty());
    QCOMPARE(stage.cell->Edit(1, 1, cellRect(stage), {-1, -1}, 8, VK_SPACE), 0); // the key repeats
    QCOMPARE(stage.state(), pressed);
    QTRY_COMPARE(stage.owner.notes, QStringList{QStringLiteral("-2 1,1")});
    QVERIFY(timer.elapsed() >= 140);
    QCOMPARE(stage.state(), checked);
}

void tst_BtnClicks::spaceAndInactiveControl()
{
    BtnStage stage;
    stage.setUp(0, DFC_BUTTON, DFCS_INACTIVE);
    QCOMPARE(stage.cell->Edit(1, 1, cellRect(stage), {-1, -1}, 8, VK_SPACE), 0);
    QTest::qWait(200);
    QCOMPARE(stage.state(), DFCS_INACTIVE);
    QVERIFY(stage.owner.notes.isEmpty());
}

void tst_BtnClicks::secondKeyCompletesTheFirst()
{
    BtnStage stage;
    stage.setUp(0, DFC_BUTTON, DFCS_BUTTONPUSH, CTL_ALIGN_LEFT, 0, FALSE, L"&One");
    stage.setUp(1, DFC_BUTTON, DFCS_BUTTONPUSH, CTL_ALIGN_LEFT, 0, FALSE, L"&Two");
    stage.cell->Edit(1, 1, cellRect(stage), {-1, -1}, 8, 'o');
    QCOMPARE(stage.state(0), DFCS_BUTTONPUSH | pressed);
    stage.cell->Edit(1, 1, cellRect(stage), {-1, -1}, 8, 't');
    QCOMPARE(stage.state(0), DFCS_BUTTONPUSH);
    QCOMPARE(stage.state(1), DFCS_BUTTONPUSH | pressed);
    QCOMPARE(stage.owner.notes.size(), 1);
    QTRY_COMPARE(stage.owner.notes.size(), 2);
}

void tst_BtnClicks::hotKeys_data()
{
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QChar>("key");
    QTest::addColumn<int>("match");

    const auto row = [](const char* name, const char* texts, char key, int match) {
        QTest::newRow(name) << QString::fromLatin1(texts).split(QLatin1Char('|')) << QChar::fromLatin1(key) << match;
    };
    row("first", "&Open|&Close", 'o', 0);
    row("second", "&Open|&Close", 'C', 1);
    row("inside", "Sa&ve", 'v', 0);
    row("no mark", "Open", 'o', -1);
    row("two ampersands are none", "A&&B", 'b', -1);
    row("two ampersands and a mark", "A&&&B", 'b', 0);
    row("ampersand at the end", "A&", 'a', -1);
    row("behind a control without text", "&One||&Two", 't', -1);
    row("before one", "&One||&Two", 'o', 0);
}

void tst_BtnClicks::hotKeys()
{
    QFETCH(QStringList, texts);
    QFETCH(QChar, key);
    BtnStage stage;
    for (int i = 0; i < texts.size(); ++i)
        stage.setUp(i, DFC_BUTTON, DFCS_BUTTONPUSH, CTL_ALIGN_LEFT, 0, FALSE, texts[i].toStdWString().c_str());
    QTEST(stage.cell->HotKeyBtnMatch(static_cast<wchar_t>(key.unicode())), "match");
}

void tst_BtnClicks::hotKeyEdits()
{
    BtnStage stage;
    stage.setUp(0, DFC_BUTTON, DFCS_BUTTONPUSH, CTL_ALIGN_FULLCELL, 0, FALSE, L"&Go");
    QCOMPARE(stage.cell->HasCellText(), 0);
    QCOMPARE(stage.cell->Edit(1, 1, cellRect(stage), {-1, -1}, 8, 'x'), 1);
    QVERIFY(stage.owner.notes.isEmpty());
    QCOMPARE(stage.cell->Edit(1, 1, cellRect(stage), {-1, -1}, 8, 'G'), 0);
    QTRY_COMPARE(stage.owner.notes, QStringList{QStringLiteral("-2 1,1")});
}

void tst_BtnClicks::editorOverTheText()
{
    BtnStage stage;
    QVERIFY(stage.comeUp());
    stage.setUp(0, DFC_BUTTON, 0, CTL_ALIGN_LEFT, 20);
    stage.cell->SetText(L"text");
    stage.cell->SetFormat(0x8026);
    QCOMPARE(stage.cell->Edit(1, 1, cellRect(stage), {60, 5}, 8, 1), 1);
    QCOMPARE(stage.cell->IsEditing(), 1);
    const QPointer<CInPlaceEdit_X> editor = qobject_cast<CInPlaceEdit_X*>(stage.cell->GetEditWnd());
    QVERIFY(editor);
    QCOMPARE(qobject_cast<QLineEdit*>(editor->GetSafeHwnd())->alignment(), Qt::AlignRight);
    const CRect rect = cellRect(stage);
    QCOMPARE(editor->GetSafeHwnd()->geometry(),
             QRect(QPoint(rect.left + 23, rect.top), QPoint(rect.right - 1, rect.bottom - 1)));
    editor->SetWindowText(L"new");
    CGridBtnCell_X other; // of the same group, and not editing
    other.SetBtnDataBase(&stage.shared);
    other.EndEdit();
    other.OnEndEdit();
    QCOMPARE(stage.cell->GetEditWnd(), editor);
    stage.cell->EndEdit();
    QCOMPARE(textOf(stage.cell->GetText()), QStringLiteral("new"));
    QCOMPARE(stage.cell->IsEditing(), 0);
    QVERIFY(!stage.shared.GetEditWnd());
    QVERIFY(stage.owner.notes.contains(QStringLiteral("-176 1,1")));
}

void tst_BtnClicks::deletedWhilePushed()
{
    BtnStage stage;
    stage.setUp(0, DFC_BUTTON, 0);
    stage.cell->Edit(1, 1, cellRect(stage), {-1, -1}, 8, VK_SPACE);
    stage.grid->DeleteAllItems();
    QVERIFY(!stage.cell);
    QTest::qWait(200);
    QVERIFY(!stage.owner.notes.contains(QStringLiteral("-2 1,1")));
}

void tst_BtnClicks::deletedByItsNotification()
{
    BtnStage stage;
    stage.setUp(0, DFC_BUTTON, 0);
    stage.owner.onNotify = [&](int code) {
        if (code == -2)
            stage.grid->DeleteAllItems();
    };
    QCOMPARE(stage.cell->Edit(1, 1, cellRect(stage), {5, 5}, 8, 1), 0);
    QVERIFY(!stage.cell);
}

XE_TEST(tst_BtnClicks)

#include "tst_btnclicks.moc"
