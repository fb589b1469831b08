#include "leavenothing.h"
#include "testclass.h"

#include <xerangectrl.h>

#include <QSignalSpy>

class tst_ScrollBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theStyleSaysTheDirection();
    void barsOfTheStyle_data();
    void barsOfTheStyle();
    void formsOfCreate();
    void classOfTheWidget();
    void aWindowsOwnBarIsOneToo();

    void position();
    void positionWithoutTracking();
    void range();
    void showAndHide();
    void aDisabledBarIsAHiddenOne();
    void withoutAWidget();

private:
    std::unique_ptr<QWidget> m_parent;
    std::unique_ptr<CScrollBar_X> m_bar;
};

void tst_ScrollBar::init()
{
    m_parent = std::make_unique<QWidget>();
    m_parent->show();
    m_bar = std::make_unique<CScrollBar_X>();
}

void tst_ScrollBar::cleanup()
{
    m_bar.reset();
    m_parent.reset();
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

void tst_ScrollBar::theStyleSaysTheDirection()
{
    QCOMPARE(m_bar->Create(WS_CHILD | WS_VISIBLE | SBS_VERT, CRect(10, 20, 30, 120), m_parent.get()), 1);
    QCOMPARE(m_bar->Imp<QScrollBar>()->orientation(), Qt::Vertical);
    QCOMPARE(m_bar->GetSafeHwnd()->geometry(), QRect(10, 20, 20, 100));
    QVERIFY(m_bar->GetSafeHwnd()->isVisible());
    CScrollBar_X level;
    QCOMPARE(level.Create(WS_CHILD | SBS_HORZ, CRect(0, 0, 100, 20), m_parent.get()), 1);
    QCOMPARE(level.Imp<QScrollBar>()->orientation(), Qt::Horizontal);
    QVERIFY(!level.GetSafeHwnd()->isVisible());
}

void tst_ScrollBar::barsOfTheStyle_data()
{
    QTest::addColumn<DWORD>("style");
    QTest::addColumn<DWORD>("kept");
    QTest::addColumn<int>("barsInside");
    QTest::newRow("none") << WS_VISIBLE << WS_VISIBLE << 0;
    QTest::newRow("a vertical one goes") << (WS_VISIBLE | WS_VSCROLL) << WS_VISIBLE << 0;
    QTest::newRow("a horizontal one stays") << (WS_VISIBLE | WS_HSCROLL) << (WS_VISIBLE | WS_HSCROLL) << 1;
    QTest::newRow("of both one") << (WS_HSCROLL | WS_VSCROLL) << WS_HSCROLL << 1;
}

void tst_ScrollBar::barsOfTheStyle()
{
    QFETCH(DWORD, style);
    QCOMPARE(m_bar->Create(style, CRect(0, 0, 100, 20), m_parent.get()), 1);
    QTEST(m_bar->GetStyle(), "kept");
    QTEST(m_bar->GetSafeHwnd()->findChildren<QScrollBar*>().size(), "barsInside");
}

void tst_ScrollBar::formsOfCreate()
{
    CWnd_X frame;
    frame.SubclassWindow(m_parent.get());
    QCOMPARE(m_bar->Create(SBS_VERT, CRect(0, 0, 20, 100), &frame, 1234), 1);
    QCOMPARE(m_bar->GetSafeHwnd()->parentWidget(), m_parent.get());
    QCOMPARE(m_bar->GetSafeHwnd()->objectName(), QString());
    CScrollBar_X second;
    QCOMPARE(second.Create(SBS_VERT, CRect(0, 0, 20, 100), &frame), 1);
    QCOMPARE(second.Imp<QScrollBar>()->orientation(), Qt::Vertical);
    CScrollBar_X plain;
    QCOMPARE(plain.Create(m_parent.get()), 1);
    QVERIFY(plain.Imp<QScrollBar>());
}

void tst_ScrollBar::classOfTheWidget()
{
    QScrollBar widget;
    QCOMPARE(CWnd_X::FromHandle(&widget)->GetRuntimeClass(), RUNTIME_CLASS_X(CScrollBar_X));
}

void tst_ScrollBar::aWindowsOwnBarIsOneToo()
{
    CWnd_X window;
    window.SubclassWindow(m_parent.get());
    window.ShowScrollBar(SB_VERT);
    auto* const bar = qobject_cast<CScrollBar_X*>(CWnd_X::FromHandle(window.GetScrollBarCtrl(SB_VERT)));
    QVERIFY(bar);
    bar->SetScrollRange(0, 30);
    QCOMPARE(bar->SetScrollPos(12), 0);
    QCOMPARE(window.GetScrollPos(SB_VERT), 12);
}

void tst_ScrollBar::position()
{
    m_bar->Create(0, CRect(0, 0, 100, 20), m_parent.get());
    const QSignalSpy changes(m_bar->Imp<QScrollBar>(), &QScrollBar::valueChanged);
    QCOMPARE(m_bar->SetScrollPos(15), 0);
    QCOMPARE(m_bar->SetScrollPos(500, FALSE), 15);
    QCOMPARE(m_bar->GetScrollPos(), 99);
    QCOMPARE(changes.size(), 2);
}

void tst_ScrollBar::positionWithoutTracking()
{
    m_bar->Create(0, CRect(0, 0, 100, 20), m_parent.get());
    auto* const widget = m_bar->Imp<QScrollBar>();
    widget->setTracking(false);
    widget->setSliderDown(true);
    m_bar->SetScrollPos(40);
    QCOMPARE(m_bar->GetScrollPos(), 40);
    QCOMPARE(widget->value(), 0);
}

void tst_ScrollBar::range()
{
    m_bar->Create(0, CRect(0, 0, 100, 20), m_parent.get());
    m_bar->SetScrollRange(-3, 44);
    int minimum = 0;
    int maximum = 0;
    m_bar->GetScrollRange(&minimum, nullptr);
    m_bar->GetScrollRange(nullptr, &maximum);
    QCOMPARE(minimum, -3);
    QCOMPARE(maximum, 44);
}

void tst_ScrollBar::showAndHide()
{
    m_bar->Create(0, CRect(0, 0, 100, 20), m_parent.get());
    m_bar->ShowScrollBar();
    QVERIFY(m_bar->GetSafeHwnd()->isVisible());
    m_bar->ShowScrollBar(FALSE);
    QVERIFY(m_bar->GetSafeHwnd()->isHidden());
}

void tst_ScrollBar::aDisabledBarIsAHiddenOne()
{
    m_bar->Create(WS_VISIBLE, CRect(0, 0, 100, 20), m_parent.get());
    QCOMPARE(m_bar->EnableScrollBar(ESB_DISABLE_BOTH), 1);
    QVERIFY(m_bar->GetSafeHwnd()->isHidden());
    QVERIFY(m_bar->GetSafeHwnd()->isEnabled());
    QCOMPARE(m_bar->EnableScrollBar(), 1);
    QVERIFY(m_bar->GetSafeHwnd()->isVisible());
    QCOMPARE(m_bar->EnableScrollBar(1), 1);
    QVERIFY(m_bar->GetSafeHwnd()->isHidden());
    QCOMPARE(m_bar->EnableScrollBar(ESB_ENABLE_BOTH), 1);
    QVERIFY(m_bar->GetSafeHwnd()->isVisible());
}

void tst_ScrollBar::withoutAWidget()
{
    int minimum = 7;
    int maximum = 8;
    m_bar->GetScrollRange(&minimum, &maximum);
    QCOMPARE(minimum, 7);
    QCOMPARE(maximum, 8);
    m_bar->SetScrollRange(1, 2);
    m_bar->ShowScrollBar(TRUE);
    QCOMPARE(m_bar->SetScrollPos(3), 0);
    QCOMPARE(m_bar->GetScrollPos(), 0);
    QCOMPARE(m_bar->EnableScrollBar(ESB_ENABLE_BOTH), 0);
}

XE_TEST(tst_ScrollBar)
#include "tst_scrollbar.moc"
