// The ease combo box: its timer, what it hears of the drop-down's window, and its sign column.

#include "leavenothing.h"
#include "testclass.h"

#include <XeEaseComboBox.h>
#include <xehook.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QSignalSpy>
#include <QStyle>
#include <QTimer>

namespace {

bool hasTimer() { return g_appEventHandler.timers.count(1); }

QTimer* timer() { return hasTimer() ? g_appEventHandler.timers[1] : nullptr; }

class CountingCombo : public CEaseComboBox_X
{
public:
    int PreTranslateMessage(tagMSG* message) override
    {
        if (message->message == WM_KEYDOWN)
            ++keysDown;
        return CEaseComboBox_X::PreTranslateMessage(message);
    }

    int keysDown = 0;
};

// A wrapped box of three items in a window that is shown.
struct Stage
{
    explicit Stage(bool editable = false)
    {
        window.resize(300, 200);
        box = new QComboBox(&window);
        box->setEditable(editable);
        box->addItems({QStringLiteral("bolt"), QStringLiteral("nut"), QStringLiteral("washer")});
        box->setGeometry(20, 20, 150, 30);
        combo.SubclassWindow(box);
        window.show();
    }

    bool isOpen() const { return box->view()->isVisible(); }

    QWidget window;
    QComboBox* box;
    CountingCombo combo;
};

} // namespace

class tst_EaseComboBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void startValues();
    void creatableByRecord();
    void hooksDoNothing();

    void dropDownStartsTheTimer();
    void choiceStopsTheTimerAndKeepsTheSign();
    void cancelStopsTheTimerAndDropsTheSign();
    void secondOpeningIsSeenToo();
    void slotsAlone();

    void timerOfAnotherWindowIsLeftAlone();
    void destroyStopsTheTimer();
    void goneBoxLeavesNoTimer();

    void tickWithoutHotItemSetsTheArrow();
    void tickWithHotItem_data();
    void tickWithHotItem();
    void otherTimersGoOn();

    void keyOverTheSignClosesTheList();
    void keyElsewhereIsTheLists();
    void sentKeyOverTheSign();
    void detachedBoxIsQuiet();
    void withoutWidget();
};

void tst_EaseComboBox::startValues()
{
    const CEaseComboBox_X combo;
    QCOMPARE(combo.m_bOverSign, 0);
    QCOMPARE(combo.m_nSignWidth, -1);
    QCOMPARE(combo.m_nSignHeight, -1);
    QCOMPARE(combo.m_nHotItem, -1);
    QCOMPARE(combo.m_nDropSel, -1);
    QCOMPARE(combo.m_iconSign.pixmap(32).toImage(),
             QApplication::style()->standardIcon(QStyle::SP_MessageBoxCritical).pixmap(32).toImage());
    QVERIFY(combo.m_pmSign.isNull());
    QCOMPARE(combo.m_bShowSign, 1);
    QCOMPARE(combo.m_crSign, 0xFA8080u);
}

void tst_EaseComboBox::creatableByRecord()
{
    const std::unique_ptr<CObject_X> object(RUNTIME_CLASS_X(CEaseComboBox_X)->CreateObject());
    QVERIFY(object->IsKindOf(RUNTIME_CLASS_X(CEaseComboBox_X)));
    QVERIFY(object->IsKindOf(RUNTIME_CLASS_X(CComboBox_X)));
}

void tst_EaseComboBox::hooksDoNothing()
{
    CEaseComboBox_X combo;
    combo.DrawItem(nullptr);
    tagRECT rect{1, 2, 3, 4};
    QCOMPARE(combo.DrawHighlightSign(&rect), 1);
    QCOMPARE(CRect(rect), CRect(1, 2, 3, 4));
    QCOMPARE(combo.DrawHighlightSign(nullptr), 1);
}

void tst_EaseComboBox::dropDownStartsTheTimer()
{
    Stage stage;
    stage.box->setCurrentIndex(2);
    QVERIFY(!hasTimer());
    stage.combo.ShowDropDown();
    QVERIFY(timer());
    QCOMPARE(timer()->interval(), 10);
    QCOMPARE(timer()->parent(), stage.box);
    QCOMPARE(stage.combo.m_nDropSel, 2);
    stage.combo.ShowDropDown(FALSE);
}

void tst_EaseComboBox::choiceStopsTheTimerAndKeepsTheSign()
{
    Stage stage;
    QSignalSpy chosen(stage.box, QOverload<int>::of(&QComboBox::activated));
    stage.combo.ShowDropDown();
    stage.combo.m_nHotItem = 1;
    QTest::keyClick(stage.box->view(), Qt::Key_Down);
    QTest::keyClick(stage.box->view(), Qt::Key_Return);
    QCOMPARE(chosen.count(), 1);
    QVERIFY(!stage.isOpen());
    QVERIFY(!hasTimer());
    QCoreApplication::processEvents();
    QCOMPARE(stage.combo.m_nHotItem, 1);
}

void tst_EaseComboBox::cancelStopsTheTimerAndDropsTheSign()
{
    Stage stage;
    stage.combo.SetCursor(Qt::CrossCursor);
    stage.combo.ShowDropDown();
    stage.combo.m_nHotItem = 1;
    QTest::keyClick(stage.box->view(), Qt::Key_Escape);
    QVERIFY(!stage.isOpen());
    QVERIFY(!hasTimer());
    QTRY_COMPARE(stage.combo.m_nHotItem, -1);
    QCOMPARE(stage.combo.m_bOverSign, 0);
    QCOMPARE(stage.combo.GetCursor().shape(), Qt::ArrowCursor);
}

void tst_EaseComboBox::secondOpeningIsSeenToo()
{
    Stage stage;
    stage.combo.ShowDropDown();
    stage.combo.m_nHotItem = 1;
    stage.combo.ShowDropDown(FALSE);
    QVERIFY(!hasTimer());
    stage.combo.ShowDropDown();
    QVERIFY(hasTimer());
    QCOMPARE(stage.combo.m_nHotItem, -1);
    stage.combo.ShowDropDown(FALSE);
    QVERIFY(!hasTimer());
}

void tst_EaseComboBox::slotsAlone()
{
    Stage stage;
    QVERIFY(QMetaObject::invokeMethod(&stage.combo, "OnDropdown"));
    QVERIFY(hasTimer());
    QVERIFY(QMetaObject::invokeMethod(&stage.combo, "OnSelchange"));
    QVERIFY(!hasTimer());
    stage.combo.OnDropdown();
    QVERIFY(QMetaObject::invokeMethod(&stage.combo, "OnCloseupComboEase"));
    QVERIFY(!hasTimer());
    stage.combo.OnDropdown();
    stage.combo.m_nHotItem = 2;
    stage.combo.m_bOverSign = 1;
    QVERIFY(QMetaObject::invokeMethod(&stage.combo, "OnSelendcancel"));
    QVERIFY(!hasTimer());
    QCOMPARE(stage.combo.m_nHotItem, -1);
    QCOMPARE(stage.combo.m_bOverSign, 0);
}

// ----------------------------------------------------------------------------------------------------------- the timer

void tst_EaseComboBox::timerOfAnotherWindowIsLeftAlone()
{
    Stage stage;
    CWnd_X other;
    other.SubclassWindow(&stage.window);
    other.SetTimer(1, 5000);
    stage.combo.ShowDropDown();
    QCOMPARE(timer()->parent(), &stage.window);
    QCOMPARE(timer()->interval(), 5000);
    stage.combo.ShowDropDown(FALSE);
    stage.combo.OnSelendcancel();
    stage.combo.OnSelchange();
    QVERIFY(hasTimer());
    other.KillTimer(1);
}

void tst_EaseComboBox::destroyStopsTheTimer()
{
    Stage stage;
    stage.combo.OnDropdown();
    QCOMPARE(stage.combo.DestroyWindow(), 1);
    QVERIFY(!hasTimer());
}

void tst_EaseComboBox::goneBoxLeavesNoTimer()
{
    Stage stage;
    stage.combo.ShowDropDown();
    delete stage.box;
    QVERIFY(!hasTimer());
    QCoreApplication::processEvents();
    stage.combo.OnSelendcancel();
}

void tst_EaseComboBox::tickWithoutHotItemSetsTheArrow()
{
    Stage stage;
    stage.combo.SetCursor(Qt::CrossCursor);
    stage.combo.m_bOverSign = 1;
    stage.combo.ShowDropDown();
    QTRY_COMPARE(stage.combo.GetCursor().shape(), Qt::ArrowCursor);
    QCOMPARE(stage.combo.m_bOverSign, 1);
    stage.combo.ShowDropDown(FALSE);
}

void tst_EaseComboBox::tickWithHotItem_data()
{
    QTest::addColumn<bool>("captured");
    QTest::addColumn<QPoint>("pointer");
    QTest::addColumn<int>("overSign");
    QTest::addColumn<int>("shape");

    const int cross = Qt::CrossCursor;
    const int arrow = Qt::ArrowCursor;
    QTest::newRow("nobody has the mouse") << false << QPoint(0, 0) << 0 << arrow;
    QTest::newRow("first column") << true << QPoint(0, 0) << 1 << cross;
    QTest::newRow("end of the sign column") << true << QPoint(16, 99) << 1 << cross;
    QTest::newRow("right of the sign column") << true << QPoint(17, 10) << 0 << arrow;
    QTest::newRow("left of the window") << true << QPoint(-1, 10) << 0 << arrow;
    QTest::newRow("below the window") << true << QPoint(0, 100) << 0 << arrow;
    QTest::newRow("above the window") << true << QPoint(0, -1) << 0 << arrow;
}

void tst_EaseComboBox::tickWithHotItem()
{
    QFETCH(bool, captured);
    QFETCH(QPoint, pointer);
    Stage stage;
    stage.combo.m_nSignWidth = 16;
    stage.combo.m_nHotItem = 2;
    stage.combo.m_bOverSign = captured ? 0 : 1;
    stage.combo.SetCursor(Qt::CrossCursor);
    QWidget grabber(&stage.window); // a child, which has no frame
    grabber.setGeometry(30, 60, 150, 100);
    grabber.show();
    QVERIFY(QTest::qWaitForWindowExposed(&stage.window));
    QCursor::setPos(grabber.mapToGlobal(pointer));
    if (captured)
        grabber.grabMouse();
    stage.combo.OnTimer(1);
    grabber.releaseMouse();
    QTEST(stage.combo.m_bOverSign, "overSign");
    QTEST(static_cast<int>(stage.combo.GetCursor().shape()), "shape");
}

void tst_EaseComboBox::otherTimersGoOn()
{
    struct TickBox : QComboBox
    {
        void timerEvent(QTimerEvent* event) override { ticks += event->timerId(); }
        int ticks = 0;
    };
    TickBox box;
    CEaseComboBox_X combo;
    combo.SubclassWindow(&box);
    QTimerEvent own(1);
    QCoreApplication::sendEvent(&box, &own);
    QCOMPARE(box.ticks, 0);
    QTimerEvent other(77);
    QCoreApplication::sendEvent(&box, &other);
    QCOMPARE(box.ticks, 77);
}

// ------------------------------------------------------------------------------------------------------------ the keys

void tst_EaseComboBox::keyOverTheSignClosesTheList()
{
    Stage stage;
    stage.combo.ShowDropDown();
    stage.combo.m_nHotItem = 0;
    stage.combo.m_bOverSign = 1;
    QTest::keyClick(stage.box->view(), Qt::Key_Down);
    QCOMPARE(stage.combo.m_bOverSign, 0);
    QVERIFY(!stage.isOpen());
    QCOMPARE(stage.combo.keysDown, 1);
    QCOMPARE(stage.box->currentIndex(), 0);
    QTRY_COMPARE(stage.combo.m_nHotItem, -1);
}

void tst_EaseComboBox::keyElsewhereIsTheLists()
{
    Stage stage;
    stage.combo.ShowDropDown();
    QTest::keyClick(stage.box->view(), Qt::Key_Down);
    QVERIFY(stage.isOpen());
    QCOMPARE(stage.box->view()->currentIndex().row(), 1);
    QCOMPARE(stage.combo.keysDown, 0);
    stage.combo.ShowDropDown(FALSE);
}

void tst_EaseComboBox::sentKeyOverTheSign()
{
    Stage stage;
    stage.combo.m_bOverSign = 1;
    stage.combo.SendMessage(WM_KEYUP, VK_SPACE);
    QCOMPARE(stage.combo.m_bOverSign, 0);
    tagMSG message{};
    stage.combo.m_bOverSign = 1;
    message.message = WM_CHAR;
    QCOMPARE(stage.combo.PreTranslateMessage(&message), 0);
    QCOMPARE(stage.combo.m_bOverSign, 1);
    message.message = WM_KEYDOWN;
    QCOMPARE(stage.combo.PreTranslateMessage(&message), 1);
    QCOMPARE(stage.combo.m_bOverSign, 0);
    QCOMPARE(stage.combo.PreTranslateMessage(&message), 0);
}

void tst_EaseComboBox::detachedBoxIsQuiet()
{
    Stage stage;
    stage.combo.ShowDropDown();
    stage.combo.m_bOverSign = 1;
    stage.combo.KillTimer(1);
    stage.combo.Detach();
    QTest::keyClick(stage.box->view(), Qt::Key_Down);
    QVERIFY(stage.isOpen());
    QCOMPARE(stage.combo.m_bOverSign, 1);
    stage.box->hidePopup();
    stage.box->showPopup();
    QVERIFY(!hasTimer());
    stage.box->hidePopup();
}

void tst_EaseComboBox::withoutWidget()
{
    CEaseComboBox_X combo;
    combo.OnDropdown();
    QVERIFY(!hasTimer());
    combo.OnTimer(1);
    combo.OnSelchange();
    combo.OnSelendcancel();
    QCOMPARE(combo.DestroyWindow(), 0);
    QCOMPARE(combo.PreTranslateMessage(nullptr), 0);
}

XE_TEST(tst_EaseComboBox)

#include "tst_easecombobox.moc"
