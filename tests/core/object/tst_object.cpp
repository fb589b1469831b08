// A wrapper over a Qt object: which classes it takes, whose it is, and when a temporary one dies.

#include "leavenothing.h"
#include "testclass.h"

#include <xeafx.h>
#include <xeafxdump.h>

#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>

class LabelWrapper : public CObject_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(LabelWrapper)
    DECLARE_IMP_CLASS_X(QLabel)
};
IMPLEMENT_DYNAMIC_X(LabelWrapper, CObject_X)

class tst_Object : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void aNewWrapperIsEmpty();
    void addressesInProperties();
    void noParentIsZero();
    void theWrongClass_data();
    void theWrongClass();
    void theWrongClassLeavesTheOldImpObject();
    void ownerOfAnObject();
    void twoWrappersOnOneImpObject();
    void setImpOnlyStores();
    void attachDefault();
    void aTemporaryWrapperDiesAtIdle();
    void aTemporaryWrapperMayDieEarlier();
    void temporaryTwiceIsTemporary();
    void impOfATypeIsNullForAnotherType();
    void baseOverridablesDoNothing();
    void waitCursor();
    void waitCursorNeedsAWidget();
};

void tst_Object::aNewWrapperIsEmpty()
{
    const CObject_X wrapper;
    QCOMPARE(wrapper.parent(), nullptr);
    QCOMPARE(wrapper.GetImpQObject(), nullptr);
    QVERIFY(!wrapper.IsExternalImpObj());
    QVERIFY(!wrapper.IsTemporary());
}

void tst_Object::addressesInProperties()
{
    QObject imp;
    QObject parent;
    CObject_X wrapper;
    QVERIFY(wrapper.Attach(&imp, &parent, true));

    for (const char* name : {"owner", "parent"})
        QCOMPARE(imp.property(name).userType(), int(QMetaType::LongLong));
    QCOMPARE(imp.property("owner").toLongLong(), qlonglong(quintptr(static_cast<CObject_X*>(&wrapper))));
    QCOMPARE(imp.property("parent").toLongLong(), qlonglong(quintptr(&parent)));
    QCOMPARE(imp.parent(), nullptr);

    wrapper.Detach();
    QCOMPARE(imp.dynamicPropertyNames(), QList<QByteArray>());
}

void tst_Object::noParentIsZero()
{
    QObject imp;
    CObject_X wrapper;
    QVERIFY(wrapper.Attach(&imp, nullptr, true));
    QCOMPARE(imp.property("parent"), QVariant(qlonglong(0)));
}

void tst_Object::theWrongClass_data()
{
    QTest::addColumn<bool>("external");
    QTest::newRow("owned: deleted at once") << false;
    QTest::newRow("external: left alone") << true;
}

void tst_Object::theWrongClass()
{
    QFETCH(bool, external);

    LabelWrapper wrapper;
    const QPointer<QWidget> button = new QPushButton;
    QVERIFY(!wrapper.Attach(button, nullptr, external));
    QCOMPARE(button.isNull(), !external);
    QCOMPARE(wrapper.GetImpQObject(), nullptr);
    QVERIFY(!wrapper.IsExternalImpObj());
    if (button)
        QCOMPARE(button->dynamicPropertyNames(), QList<QByteArray>());
    delete button;
}

void tst_Object::theWrongClassLeavesTheOldImpObject()
{
    LabelWrapper wrapper;
    QLabel label;
    QWidget other;
    QVERIFY(wrapper.Attach(&label, nullptr, true));

    QVERIFY(!wrapper.Attach(&other, nullptr, true));
    QVERIFY(!wrapper.Attach(new QWidget, nullptr, false));

    QCOMPARE(wrapper.GetImpQObject(), &label);
    QVERIFY(wrapper.IsExternalImpObj());
    QCOMPARE(CObject_X::GetOwner(&label), &wrapper);
    QCOMPARE(CObject_X::GetOwner(&other), nullptr);
}

void tst_Object::ownerOfAnObject()
{
    QObject imp;
    QObject stranger;
    CObject_X wrapper;
    QVERIFY(wrapper.Attach(&imp, nullptr, true));

    QCOMPARE(CObject_X::GetOwner(&imp), &wrapper);
    QCOMPARE(CObject_X::GetOwner(&stranger), nullptr);
    QCOMPARE(CObject_X::GetOwner(nullptr), nullptr);
    wrapper.Detach();
    QCOMPARE(CObject_X::GetOwner(&imp), nullptr);
}

void tst_Object::twoWrappersOnOneImpObject()
{
    QObject imp;
    CObject_X first;
    CObject_X last;
    QVERIFY(first.Attach(&imp, nullptr, true));
    QVERIFY(last.Attach(&imp, nullptr, true));

    QCOMPARE(first.GetImpQObject(), &imp);
    QCOMPARE(CObject_X::GetOwner(&imp), &last);
}

void tst_Object::setImpOnlyStores()
{
    QObject one;
    QObject other;
    CObject_X wrapper;
    QCOMPARE(wrapper.SetImpQObject(&one), nullptr);
    QCOMPARE(wrapper.SetImpQObject(&other), &one);
    QCOMPARE(wrapper.GetImpQObject(), &other);
    QCOMPARE(other.dynamicPropertyNames(), QList<QByteArray>());
    QCOMPARE(wrapper.SetImpQObject(nullptr), &other);
    QCOMPARE(wrapper.GetImpQObject(), nullptr);
}

void tst_Object::attachDefault()
{
    QObject home;
    CObject_X wrapper;
    QVERIFY(wrapper.AttachDefault(&home));

    const QPointer<QObject> imp = wrapper.GetImpQObject();
    QVERIFY(imp);
    QCOMPARE(imp->metaObject(), &QObject::staticMetaObject);
    QCOMPARE(imp->parent(), &home);
    QVERIFY(!wrapper.IsExternalImpObj());
    QCOMPARE(imp->property("parent"), QVariant(qlonglong(quintptr(&home))));

    QVERIFY(wrapper.AttachDefault(nullptr));
    QCOMPARE(wrapper.GetImpQObject()->parent(), nullptr);
    QCOMPARE(imp->dynamicPropertyNames(), QList<QByteArray>());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!imp);
}

void tst_Object::aTemporaryWrapperDiesAtIdle()
{
    QObject imp;
    auto* const wrapper = new CObject_X;
    QVERIFY(wrapper->Attach(&imp, nullptr, true));
    QSignalSpy gone(wrapper, &QObject::destroyed);

    wrapper->SetTemporary();
    QVERIFY(wrapper->IsTemporary());
    QVERIFY(wrapper->IsExternalImpObj());
    QCOMPARE(CObject_X::GetOwner(&imp), wrapper);
    QCOMPARE(gone.count(), 0);

    QVERIFY(gone.wait());
    QCOMPARE(CObject_X::GetOwner(&imp), nullptr);
}

void tst_Object::aTemporaryWrapperMayDieEarlier()
{
    const QPointer<CObject_X> later = new CObject_X;
    auto* const earlier = new CObject_X;
    earlier->SetTemporary();
    later->SetTemporary();
    delete earlier;
    QVERIFY(later);
    ClearTempObjectPool();
    QVERIFY(!later);
}

void tst_Object::temporaryTwiceIsTemporary()
{
    const QPointer<CObject_X> wrapper = new CObject_X;
    wrapper->SetTemporary();
    wrapper->SetTemporary();
    QVERIFY(wrapper->IsTemporary());
    ClearTempObjectPool();
    QVERIFY(!wrapper);
}

void tst_Object::impOfATypeIsNullForAnotherType()
{
    QLabel label;
    CObject_X wrapper;
    QCOMPARE(wrapper.Imp<QObject>(), nullptr);
    QVERIFY(wrapper.Attach(&label, nullptr, true));
    QCOMPARE(wrapper.Imp<QLabel>(), &label);
    QCOMPARE(wrapper.Imp<QFrame>(), &label);
    QCOMPARE(wrapper.Imp<QLineEdit>(), nullptr);
}

void tst_Object::baseOverridablesDoNothing()
{
    QObject imp;
    CCmdTarget_X target;
    QVERIFY(target.Attach(&imp, nullptr, true));
    CDumpContext_X nowhere;

    QVERIFY(target.OnAttach());
    target.OnDetach();
    target.OnMessageMap();
    target.Dump(nowhere);
    target.ConnectSlotsFrom(nullptr, false);

    QCOMPARE(target.GetImpQObject(), &imp);
    QCOMPARE(CObject_X::GetOwner(&imp), &target);
}

void tst_Object::waitCursor()
{
    QWidget parent;
    QWidget widget(&parent);
    parent.setCursor(Qt::CrossCursor);
    CCmdTarget_X target;
    QVERIFY(target.Attach(&widget, nullptr, true));

    target.BeginWaitCursor();
    QCOMPARE(widget.cursor().shape(), Qt::WaitCursor);
    QVERIFY(widget.testAttribute(Qt::WA_SetCursor));
    QCOMPARE(parent.cursor().shape(), Qt::CrossCursor);
    target.EndWaitCursor();
    QCOMPARE(widget.cursor().shape(), Qt::CrossCursor);
    QVERIFY(!widget.testAttribute(Qt::WA_SetCursor));
}

void tst_Object::waitCursorNeedsAWidget()
{
    QObject imp;
    CCmdTarget_X target;
    target.BeginWaitCursor();
    target.EndWaitCursor();
    QVERIFY(target.Attach(&imp, nullptr, true));
    target.BeginWaitCursor();
    target.EndWaitCursor();
    QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
}

XE_TEST(tst_Object)
#include "tst_object.moc"
