#include "leavenothing.h"
#include "testclass.h"

#include <xeafxddx.h>
#include <xerangectrl.h>

#include <QLabel>
#include <QSignalSpy>

class tst_Slider : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void theStyleSaysTheDirection();
    void theStyleTakesAfterTheWidget();
    void classOfTheWidget();
    void range();
    void sizes();
    void position();
    void positionWithoutTracking();
    void keysMoveIt();
    void marksStayAsTheyAre();
    void withoutAWidget();
};

void tst_Slider::theStyleSaysTheDirection()
{
    QWidget parent;
    CWnd_X frame;
    frame.SubclassWindow(&parent);
    CSliderCtrl_X level;
    QCOMPARE(level.Create(WS_CHILD | WS_VISIBLE | TBS_AUTOTICKS, CRect(10, 20, 110, 40), &frame), 1);
    QCOMPARE(level.Imp<QSlider>()->orientation(), Qt::Horizontal);
    QCOMPARE(level.GetSafeHwnd()->geometry(), QRect(10, 20, 100, 20));
    CSliderCtrl_X upright;
    QCOMPARE(upright.Create(WS_CHILD | TBS_VERT, CRect(0, 0, 20, 100), &parent), 1);
    QCOMPARE(upright.Imp<QSlider>()->orientation(), Qt::Vertical);
    QVERIFY(parent.findChildren<QSlider*>().size() == 2);
    level.DestroyWindow();
    upright.DestroyWindow();
}

void tst_Slider::theStyleTakesAfterTheWidget()
{
    QSlider upright(Qt::Vertical);
    QSlider level(Qt::Horizontal);
    CSliderCtrl_X slider;
    slider.ModifyStyle(0, TBS_AUTOTICKS);
    slider.SubclassWindow(&upright);
    QCOMPARE(slider.GetStyle(), TBS_VERT | TBS_AUTOTICKS);
    slider.SubclassWindow(&level);
    QCOMPARE(slider.GetStyle(), TBS_AUTOTICKS);
}

void tst_Slider::classOfTheWidget()
{
    QSlider widget;
    QCOMPARE(CWnd_X::FromHandle(&widget)->GetRuntimeClass(), RUNTIME_CLASS_X(CSliderCtrl_X));
    QLabel label;
    CSliderCtrl_X slider;
    QCOMPARE(slider.SubclassWindow(&label), 0);
}

void tst_Slider::range()
{
    QSlider widget;
    CSliderCtrl_X slider;
    slider.SubclassWindow(&widget);
    slider.SetRange(-5, 70, TRUE);
    int minimum = 0;
    int maximum = 0;
    slider.GetRange(minimum, maximum);
    QCOMPARE(minimum, -5);
    QCOMPARE(maximum, 70);
    QCOMPARE(widget.maximum(), 70);
}

void tst_Slider::sizes()
{
    QSlider widget;
    CSliderCtrl_X slider;
    slider.SubclassWindow(&widget);
    QCOMPARE(slider.GetLineSize(), 1);
    QCOMPARE(slider.SetLineSize(3), 1);
    QCOMPARE(slider.GetLineSize(), 3);
    QCOMPARE(slider.GetPageSize(), 10);
    QCOMPARE(slider.SetPageSize(25), 10);
    QCOMPARE(widget.pageStep(), 25);
}

void tst_Slider::position()
{
    QSlider widget;
    widget.setRange(0, 50);
    CSliderCtrl_X slider;
    slider.SubclassWindow(&widget);
    const QSignalSpy changes(&widget, &QSlider::valueChanged);
    slider.SetPos(20);
    QCOMPARE(slider.GetPos(), 20);
    slider.SetPos(99);
    QCOMPARE(slider.GetPos(), 50);
    QCOMPARE(changes.size(), 2);
}

void tst_Slider::positionWithoutTracking()
{
    QSlider widget;
    widget.setTracking(false);
    CSliderCtrl_X slider;
    slider.SubclassWindow(&widget);
    widget.setSliderDown(true);
    slider.SetPos(30);
    QCOMPARE(slider.GetPos(), 30);
    QCOMPARE(widget.value(), 0);
    widget.setSliderDown(false);
    QCOMPARE(widget.value(), 30);
}

void tst_Slider::keysMoveIt()
{
    QSlider widget(Qt::Horizontal);
    CSliderCtrl_X slider;
    slider.SubclassWindow(&widget);
    slider.SetLineSize(4);
    slider.SetPageSize(20);
    QTest::keyClick(&widget, Qt::Key_Right);
    QCOMPARE(slider.GetPos(), 4);
    QTest::keyClick(&widget, Qt::Key_PageUp);
    QCOMPARE(slider.GetPos(), 24);
    QTest::keyClick(&widget, Qt::Key_End);
    QCOMPARE(slider.GetPos(), 99);
}

void tst_Slider::marksStayAsTheyAre()
{
    QSlider widget;
    widget.setTickInterval(7);
    CSliderCtrl_X slider;
    slider.SubclassWindow(&widget);
    slider.SetTicFreq(3);
    QCOMPARE(widget.tickInterval(), 7);
}

void tst_Slider::withoutAWidget()
{
    CSliderCtrl_X slider;
    int minimum = 7;
    int maximum = 8;
    slider.GetRange(minimum, maximum);
    QCOMPARE(minimum, 7);
    QCOMPARE(maximum, 8);
    slider.SetRange(1, 2);
    slider.SetPos(3);
    slider.SetTicFreq(1);
    QCOMPARE(slider.GetLineSize(), -1);
    QCOMPARE(slider.SetLineSize(2), -1);
    QCOMPARE(slider.GetPageSize(), -1);
    QCOMPARE(slider.SetPageSize(2), -1);
    QCOMPARE(slider.GetPos(), 0);
}

XE_TEST(tst_Slider)
#include "tst_slider.moc"
