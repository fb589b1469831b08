// The examples of the headers' class comments, word for word, put to use.

#include "testclass.h"

#include <XeMFCEmu.h>

#include <QtTest>

// ---- CObject_X

class CTone : public CObject_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CTone)
};
IMPLEMENT_DYNCREATE_X(CTone, CObject_X)

// ---- CWnd_X

class CPlanView : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CPlanView)
public:
    void OnLButtonDown(UINT flags, CPoint point);
    DECLARE_MESSAGE_MAP_X()

public:
    CPoint pressed; // not in the comment: what the test looks at
};
IMPLEMENT_DYNCREATE_X(CPlanView, CWnd_X)
BEGIN_MESSAGE_MAP_X(CPlanView, CWnd_X)
    ON_WM_LBUTTONDOWN_X()
END_MESSAGE_MAP_X()

void CPlanView::OnLButtonDown(UINT, CPoint point) { pressed = point; }

class tst_ApiExamples : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wrapperOfAnObject()
    {
        QObject implementation;
        CTone tone;
        tone.Attach(&implementation, nullptr, true);
        QCOMPARE(CObject_X::GetOwner(&implementation), &tone);
        QVERIFY(tone.IsKindOf(RUNTIME_CLASS_X(CTone)));
        const QScopedPointer<CObject_X> another(CTone::s_classInfo.CreateObject());
        QCOMPARE(QByteArray(another->GetClassName()), QByteArray("CTone"));
    }

    void windowWithAMessageMap()
    {
        QWidget widget;
        CPlanView view;
        QCOMPARE(view.SubclassWindow(&widget), 1);
        QTest::mousePress(&widget, Qt::LeftButton, Qt::NoModifier, QPoint(12, 34));
        QVERIFY(view.pressed == CPoint(12, 34));
    }
};

XE_TEST(tst_ApiExamples)
#include "tst_apiexamples.moc"
