#include "leavenothing.h"
#include "testclass.h"

#include <xerangectrl.h>

#include <QTimer>

#include <climits>

class tst_Progress : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_bar.SubclassWindow(&m_widget); }
    void cleanup();
    void cleanupTestCase() { m_bar.Detach(); }

    void theStyleSaysTheDirection();
    void theStyleTakesAfterTheWidget();
    void classOfTheWidget();
    void rangeOf16Bits();
    void positionGivesTheOldOne();
    void beforeTheFirstPosition();
    void positionBeyondTheRange();
    void positionHandlesEvents();
    void positionMayEndTheBar();
    void steps();
    void stepsDoNotWrap();
    void withoutAWidget();

private:
    QProgressBar m_widget;
    CProgressCtrl_X m_bar;
};

void tst_Progress::cleanup()
{
    m_widget.setRange(0, 100);
    m_widget.reset();
    m_bar.SetStep(1);
    QCOMPARE(LeaveNothing::leftovers(), QStringLiteral("window QProgressBar ''")); // m_widget
}

void tst_Progress::theStyleSaysTheDirection()
{
    QWidget parent;
    CProgressCtrl_X level;
    QCOMPARE(level.Create(WS_CHILD | PBS_SMOOTH, CRect(10, 20, 110, 40), &parent), 1);
    QCOMPARE(level.Imp<QProgressBar>()->orientation(), Qt::Horizontal);
    CProgressCtrl_X upright;
    QCOMPARE(upright.Create(WS_CHILD | PBS_VERTICAL, CRect(0, 0, 20, 100), &parent), 1);
    QCOMPARE(upright.Imp<QProgressBar>()->orientation(), Qt::Vertical);
    QCOMPARE(upright.step, 1);
}

void tst_Progress::theStyleTakesAfterTheWidget()
{
    QCOMPARE(m_bar.GetStyle(), 0u);
    QProgressBar upright;
    upright.setOrientation(Qt::Vertical);
    m_bar.SubclassWindow(&upright);
    QCOMPARE(m_bar.GetStyle(), PBS_VERTICAL);
    m_bar.SubclassWindow(&m_widget);
    QCOMPARE(m_bar.GetStyle(), 0u);
}

void tst_Progress::classOfTheWidget()
{
    QProgressBar widget;
    QCOMPARE(CWnd_X::FromHandle(&widget)->GetRuntimeClass(), RUNTIME_CLASS_X(CProgressCtrl_X));
}

void tst_Progress::rangeOf16Bits()
{
    m_bar.SetRange(10, 300);
    QCOMPARE(m_widget.minimum(), 10);
    QCOMPARE(m_widget.maximum(), 300);
    const int large = 40000;
    m_bar.SetRange(static_cast<short>(large), 0);
    QCOMPARE(m_widget.minimum(), -25536);
}

void tst_Progress::positionGivesTheOldOne()
{
    m_widget.setValue(5);
    QCOMPARE(m_bar.SetPos(30), 5);
    QCOMPARE(m_bar.SetPos(40), 30);
    QCOMPARE(m_widget.value(), 40);
}

void tst_Progress::beforeTheFirstPosition()
{
    m_bar.SetRange(20, 50);
    m_widget.reset();
    QCOMPARE(m_widget.value(), 19);
    QCOMPARE(m_bar.OffsetPos(5), 20);
    QCOMPARE(m_widget.value(), 25);
    m_widget.reset();
    QCOMPARE(m_bar.SetPos(30), 20);
}

void tst_Progress::positionBeyondTheRange()
{
    m_widget.setValue(40);
    QCOMPARE(m_bar.SetPos(101), 40);
    QCOMPARE(m_bar.SetPos(-1), 40);
    QCOMPARE(m_widget.value(), 40);
    QCOMPARE(m_bar.OffsetPos(61), 40);
    QCOMPARE(m_widget.value(), 40);
}

void tst_Progress::positionHandlesEvents()
{
    bool handled = false;
    QTimer::singleShot(0, this, [&handled] { handled = true; });
    m_bar.OffsetPos(1);
    m_bar.StepIt();
    QVERIFY(!handled);
    m_bar.SetPos(10);
    QVERIFY(handled);
}

void tst_Progress::positionMayEndTheBar()
{
    QWidget parent;
    auto* const bar = new CProgressCtrl_X;
    bar->Create(WS_CHILD, CRect(0, 0, 100, 20), &parent);
    bar->SetPos(7);
    QTimer::singleShot(0, this, [bar] { delete bar; });
    QCOMPARE(bar->SetPos(10), 7);

    auto* const second = new QProgressBar(&parent);
    CProgressCtrl_X wrapper;
    wrapper.SubclassWindow(second);
    QTimer::singleShot(0, this, [second] { delete second; });
    QCOMPARE(wrapper.SetPos(10), 0);
    QCOMPARE(wrapper.GetSafeHwnd(), nullptr);
}

void tst_Progress::steps()
{
    m_widget.setValue(50);
    QCOMPARE(m_bar.StepIt(), 50);
    QCOMPARE(m_bar.SetStep(10), 1);
    QCOMPARE(m_bar.StepIt(), 51);
    QCOMPARE(m_bar.SetStep(-20), 10);
    QCOMPARE(m_bar.StepIt(), 61);
    QCOMPARE(m_widget.value(), 41);
    QCOMPARE(m_bar.step, -20);
}

void tst_Progress::stepsDoNotWrap()
{
    m_widget.setRange(INT_MIN, INT_MAX);
    m_widget.setValue(INT_MAX - 1);
    QCOMPARE(m_bar.OffsetPos(INT_MAX), INT_MAX - 1);
    QCOMPARE(m_widget.value(), INT_MAX - 1);
}

void tst_Progress::withoutAWidget()
{
    CProgressCtrl_X bar;
    bar.SetRange(0, 10);
    bool handled = false;
    QTimer::singleShot(0, this, [&handled] { handled = true; });
    QCOMPARE(bar.SetPos(3), 0);
    QVERIFY(!handled);
    QCOMPARE(bar.OffsetPos(3), 0);
    QCOMPARE(bar.SetStep(4), 1);
    QCOMPARE(bar.StepIt(), 0);
    QTRY_VERIFY(handled);
}

XE_TEST(tst_Progress)
#include "tst_progress.moc"
