// A tool tip as a user sees it: the pointer rests over a field, and the tip comes up.

#include "leavenothing.h"
#include "realwindow.h"
#include "testclass.h"
#include "tooltip/tipowner.h"

#include <xecolor.h>

#include <QToolTip>

class tst_TipReal : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_input.isUsable()); }
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void restingPointerShowsTheTip();

private:
    VirtualInput m_input;
};

void tst_TipReal::restingPointerShowsTheTip()
{
    RealWindow<CTipOwner> real(m_input);
    auto* const field = new QLineEdit(real.widget());
    field->setGeometry(50, 50, 150, 40);
    CToolTipCtrl_X tips;
    real.wrapper.tips = &tips;
    tips.Create(&real.wrapper);
    tips.AddTool(field, L"Name of the part");
    tips.SetTipBkColor(RGB(255, 255, 0));
    tips.Activate(TRUE);
    QVERIFY(real.comeUp());
    real.movePointer({80, 70});
    real.settle();
    real.movePointer({84, 72});
    QTRY_VERIFY(QToolTip::isVisible());
    QCOMPARE(QToolTip::text(), QStringLiteral("Name of the part"));
    real.movePointer({5, 5});
    QTRY_VERIFY(!QToolTip::isVisible());
    QTRY_COMPARE(LeaveNothing::leftovers().count(QStringLiteral("QTipLabel")), 0);
}

XE_TEST(tst_TipReal)

#include "tst_tipreal.moc"
