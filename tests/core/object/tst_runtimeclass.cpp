#include "leavenothing.h"
#include "testclass.h"

#include <xeafxwin.h>

#include <QAction>
#include <QCheckBox>
#include <QDockWidget>
#include <QFontComboBox>
#include <QFrame>
#include <QMainWindow>
#include <QMenu>
#include <QPushButton>
#include <QThread>
#include <QTimer>

using MetaObject = const QMetaObject*;
using Create = CRuntimeClass_X::CreateFunction;
Q_DECLARE_METATYPE(MetaObject)
Q_DECLARE_METATYPE(const CRuntimeClass_X*)

// Imp classes that only this test knows.
class ImpRoot : public QObject
{
    Q_OBJECT
};
class ImpLeft : public ImpRoot
{
    Q_OBJECT
};
class ImpRight : public ImpRoot
{
    Q_OBJECT
};
class ImpLeftLeaf : public ImpLeft
{
    Q_OBJECT
};
class ImpScratch : public QObject
{
    Q_OBJECT
};
class ImpScratchLeaf : public ImpScratch
{
    Q_OBJECT
};

// A client class for an imp class of its own, one that keeps that of its base, one with a list, and one without a
// create function.
class RootWrapper : public CObject_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(RootWrapper)
    DECLARE_IMP_CLASS_X(ImpRoot)
};
IMPLEMENT_DYNCREATE_X(RootWrapper, CObject_X)

class SecondRootWrapper : public RootWrapper
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(SecondRootWrapper)
};
IMPLEMENT_DYNCREATE_X(SecondRootWrapper, RootWrapper)

class ListWrapper : public CObject_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(ListWrapper)

    static CRuntimeClass_X::MetaList* GetImpMetaList()
    {
        return CRuntimeClass_X::CreateMetaList(&QTimer::staticMetaObject, &ImpLeft::staticMetaObject, nullptr);
    }
};
IMPLEMENT_DYNCREATE_X(ListWrapper, CObject_X)

class AbstractWrapper : public CObject_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(AbstractWrapper)
    DECLARE_IMP_CLASS_X(ImpRight)
};
IMPLEMENT_DYNAMIC_X(AbstractWrapper, CObject_X)

namespace {

CObject_X* createPlain() { return new CObject_X; }

CObject_X* createTarget() { return new CCmdTarget_X; }

CObject_X* createNothing() { return nullptr; }

// The place of a virtual function in the table of its class, as the member pointer has it.
template <class Method>
int placeOf(Method method)
{
    quintptr offset = 0;
    memcpy(&offset, &method, sizeof offset);
#if defined(__x86_64__)
    --offset; // the lowest bit says that the function is virtual
#endif
    return int(offset / sizeof(void*));
}

// Takes what a test has registered out of the registry again.
class RegistryGuard
{
public:
    ~RegistryGuard() { g_mapCreateMethod = before; }
    const std::map<MetaObject, Create> before = g_mapCreateMethod;
};

// The class of a wrapper made and deleted; empty for null.
QByteArray classOf(CObject_X* wrapper)
{
    const std::unique_ptr<CObject_X> owner(wrapper);
    return wrapper ? QByteArray(wrapper->GetClassName()) : QByteArray();
}

} // namespace

class tst_RuntimeClass : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void classRecords_data();
    void classRecords();
    void aClassWithoutAFactoryCreatesNothing();
    void derivation_data();
    void derivation();
    void kindOfName_data();
    void kindOfName();
    void kindOfNull();
    void virtualFunctionsInOrder();

    void wrapperForAnImpClass_data();
    void wrapperForAnImpClass();
    void whichImpClassIsMine_data();
    void whichImpClassIsMine();
    void attachingByList();

    void metaLists();
    void theFirstRegistrationStands();
    void registeringNull();
    void aRecordRegistersUnlikeItsBase_data();
    void aRecordRegistersUnlikeItsBase();
    void aRecordWithAListRegistersEachUnlikeItsBase();
    void aSecondRecordDoesNotReplaceTheFirst();
    void anEmptyListAdmitsNothing();
    void aNullCreateFunctionInTheRegistryEndsTheSearch();
    void aFactoryThatGivesNothing();
};

void tst_RuntimeClass::classRecords_data()
{
    QTest::addColumn<const CRuntimeClass_X*>("record");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("impName");
    QTest::addColumn<bool>("isRegistered");

    const auto row = [](const CRuntimeClass_X* record, const char* name, const char* impName, bool isRegistered) {
        QTest::newRow(name) << record << QByteArray(name) << QByteArray(impName) << isRegistered;
    };
    row(RUNTIME_CLASS_X(CObject_X), "CObject_X", "QObject", false);
    row(RUNTIME_CLASS_X(CCmdTarget_X), "CCmdTarget_X", "QObject", false);
    row(RUNTIME_CLASS_X(CWnd_X), "CWnd_X", "QWidget", true);
    row(RUNTIME_CLASS_X(RootWrapper), "RootWrapper", "ImpRoot", true);
    row(RUNTIME_CLASS_X(SecondRootWrapper), "SecondRootWrapper", "ImpRoot", true); // by its base
    row(RUNTIME_CLASS_X(AbstractWrapper), "AbstractWrapper", "ImpRight", false);
    row(RUNTIME_CLASS_X(ListWrapper), "ListWrapper", "QObject", false);
}

void tst_RuntimeClass::classRecords()
{
    QFETCH(const CRuntimeClass_X*, record);
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, impName);
    QFETCH(bool, isRegistered);

    QCOMPARE(QByteArray(record->GetClassName()), name);
    QCOMPARE(QByteArray(record->GetMetaObject()->className()), name);
    QCOMPARE(QByteArray(record->GetImpClassName()), impName);
    QCOMPARE(QByteArray(record->GetImpMetaObject()->className()), impName);
    QCOMPARE(g_mapCreateMethod.count(record->GetImpMetaObject()) == 1, isRegistered);

    const std::unique_ptr<CObject_X> object(record->CreateObject());
    QCOMPARE(bool(object), record != RUNTIME_CLASS_X(AbstractWrapper));
    if (object) {
        QCOMPARE(QByteArray(object->GetClassName()), name);
        QCOMPARE(object->GetRuntimeClass(), record);
    }
}

void tst_RuntimeClass::aClassWithoutAFactoryCreatesNothing()
{
    AbstractWrapper wrapper;
    QCOMPARE(wrapper.GetRuntimeClass()->CreateObject(), nullptr);
    QCOMPARE(classOf(CObject_X::FromImpMetaObject(&ImpRight::staticMetaObject)), QByteArray("RootWrapper"));
}

void tst_RuntimeClass::derivation_data()
{
    QTest::addColumn<const CRuntimeClass_X*>("record");
    QTest::addColumn<const CRuntimeClass_X*>("other");
    QTest::addColumn<bool>("derives");

    const auto row = [](const char* name, const CRuntimeClass_X* record, const CRuntimeClass_X* other, bool derives) {
        QTest::newRow(name) << record << other << derives;
    };
    row("from itself", RUNTIME_CLASS_X(CWnd_X), RUNTIME_CLASS_X(CWnd_X), true);
    row("from its base", RUNTIME_CLASS_X(CWnd_X), RUNTIME_CLASS_X(CCmdTarget_X), true);
    row("from the base of all", RUNTIME_CLASS_X(CWnd_X), RUNTIME_CLASS_X(CObject_X), true);
    row("not from its derived class", RUNTIME_CLASS_X(CCmdTarget_X), RUNTIME_CLASS_X(CWnd_X), false);
    row("not from a sibling", RUNTIME_CLASS_X(RootWrapper), RUNTIME_CLASS_X(CCmdTarget_X), false);
    row("client class from a client class", RUNTIME_CLASS_X(SecondRootWrapper), RUNTIME_CLASS_X(RootWrapper), true);
    row("client class without a factory", RUNTIME_CLASS_X(AbstractWrapper), RUNTIME_CLASS_X(CObject_X), true);
    row("not from null", RUNTIME_CLASS_X(CWnd_X), nullptr, false);
}

void tst_RuntimeClass::derivation()
{
    QFETCH(const CRuntimeClass_X*, record);
    QFETCH(const CRuntimeClass_X*, other);
    QFETCH(bool, derives);

    QCOMPARE(record->IsDerivedFrom(other), derives);
    const std::unique_ptr<CObject_X> object(record->CreateObject());
    if (object)
        QCOMPARE(object->IsKindOf(other), derives);
}

void tst_RuntimeClass::kindOfName_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("isKind");

    QTest::newRow("own class") << QByteArray("SecondRootWrapper") << true;
    QTest::newRow("base class") << QByteArray("RootWrapper") << true;
    QTest::newRow("base of all wrappers") << QByteArray("CObject_X") << true;
    QTest::newRow("QObject") << QByteArray("QObject") << true;
    QTest::newRow("imp class") << QByteArray("ImpRoot") << false;
    QTest::newRow("another wrapper class") << QByteArray("CWnd_X") << false;
    QTest::newRow("letter case counts") << QByteArray("rootwrapper") << false;
    QTest::newRow("beginning of a name") << QByteArray("RootWrap") << false;
    QTest::newRow("empty name") << QByteArray("") << false;
}

void tst_RuntimeClass::kindOfName()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, isKind);

    const SecondRootWrapper wrapper;
    QCOMPARE(wrapper.IsKindOf(name.constData()), isKind);
}

void tst_RuntimeClass::kindOfNull()
{
    const CObject_X wrapper;
    QVERIFY(!wrapper.IsKindOf(static_cast<const char*>(nullptr)));
    QVERIFY(!wrapper.IsKindOf(static_cast<const CRuntimeClass_X*>(nullptr)));
}

// Hosts are compiled against this order: a function that moves breaks them without a word.
void tst_RuntimeClass::virtualFunctionsInOrder()
{
    const int ofQObject = placeOf(&QObject::eventFilter) + 6; // eventFilter() and the five behind it
    QCOMPARE(placeOf(&CObject_X::AttachDefault), ofQObject);
    QCOMPARE(placeOf(&CObject_X::OnAttach), ofQObject + 1);
    QCOMPARE(placeOf(&CObject_X::OnDetach), ofQObject + 2);
    QCOMPARE(placeOf(&CObject_X::ConnectSlotsFrom), ofQObject + 3);
    QCOMPARE(placeOf(&CObject_X::GetRuntimeClass), ofQObject + 4);
    QCOMPARE(placeOf(&CObject_X::Serialize), ofQObject + 5);
    QCOMPARE(placeOf(&CObject_X::Dump), ofQObject + 6);
    QCOMPARE(placeOf(&CCmdTarget_X::OnMessageMap), ofQObject + 7);
}

// ------------------------------------------------------------------------------------------ imp classes and wrappers

void tst_RuntimeClass::wrapperForAnImpClass_data()
{
    QTest::addColumn<MetaObject>("imp");
    QTest::addColumn<QByteArray>("wrapper");

    const auto row = [](const char* name, MetaObject imp, const char* wrapper) {
        QTest::newRow(name) << imp << QByteArray(wrapper);
    };
    row("null", nullptr, "");
    row("QObject", &QObject::staticMetaObject, "");
    row("a Qt class that is no widget", &QThread::staticMetaObject, "");
    row("a file", &QFile::staticMetaObject, "");
    row("QWidget", &QWidget::staticMetaObject, "CWnd_X");
    row("a push button gets no button wrapper", &QPushButton::staticMetaObject, "CWnd_X");
    row("a check box gets no button wrapper", &QCheckBox::staticMetaObject, "CWnd_X");
    row("a frame", &QFrame::staticMetaObject, "CWnd_X");
    row("a main window", &QMainWindow::staticMetaObject, "CWnd_X");
    row("a menu", &QMenu::staticMetaObject, "CWnd_X");
    row("a dock widget", &QDockWidget::staticMetaObject, "CWnd_X");
    row("the client's own imp class", &ImpRoot::staticMetaObject, "RootWrapper");
    row("a class below it without a wrapper", &ImpRight::staticMetaObject, "RootWrapper");
    row("first entry of the client's list", &QTimer::staticMetaObject, "ListWrapper");
    row("second entry of the client's list", &ImpLeft::staticMetaObject, "ListWrapper");
    row("a class below an entry of the list", &ImpLeftLeaf::staticMetaObject, "ListWrapper");
}

void tst_RuntimeClass::wrapperForAnImpClass()
{
    QFETCH(MetaObject, imp);
    QFETCH(QByteArray, wrapper);

    QCOMPARE(classOf(CObject_X::FromImpMetaObject(imp)), wrapper);
    const std::unique_ptr<CObject_X> one(CObject_X::FromImpMetaObject(imp));
    const std::unique_ptr<CObject_X> other(CObject_X::FromImpMetaObject(imp));
    QVERIFY(!one || one != other);
}

void tst_RuntimeClass::whichImpClassIsMine_data()
{
    QTest::addColumn<const CRuntimeClass_X*>("record");
    QTest::addColumn<MetaObject>("imp");
    QTest::addColumn<bool>("isMine");

    const auto row = [](const char* name, const CRuntimeClass_X* record, MetaObject imp, bool isMine) {
        QTest::newRow(name) << record << imp << isMine;
    };
    row("the class itself", RUNTIME_CLASS_X(CWnd_X), &QWidget::staticMetaObject, true);
    row("a derived class", RUNTIME_CLASS_X(CWnd_X), &QFontComboBox::staticMetaObject, true);
    row("a base class", RUNTIME_CLASS_X(CWnd_X), &QObject::staticMetaObject, false);
    row("an unrelated class", RUNTIME_CLASS_X(CWnd_X), &QTimer::staticMetaObject, false);
    row("null", RUNTIME_CLASS_X(CWnd_X), nullptr, false);
    row("a wrapper is an object like any other", RUNTIME_CLASS_X(CObject_X), &CWnd_X::staticMetaObject, true);
    row("the imp class of the base", RUNTIME_CLASS_X(SecondRootWrapper), &ImpLeft::staticMetaObject, true);
    row("list: first entry", RUNTIME_CLASS_X(ListWrapper), &QTimer::staticMetaObject, true);
    row("list: last entry", RUNTIME_CLASS_X(ListWrapper), &ImpLeft::staticMetaObject, true);
    row("list: below an entry", RUNTIME_CLASS_X(ListWrapper), &ImpLeftLeaf::staticMetaObject, true);
    row("list: above an entry", RUNTIME_CLASS_X(ListWrapper), &ImpRoot::staticMetaObject, false);
    row("list: the imp meta beside it does not count", RUNTIME_CLASS_X(ListWrapper), &QObject::staticMetaObject, false);
    row("list: null", RUNTIME_CLASS_X(ListWrapper), nullptr, false);
}

void tst_RuntimeClass::whichImpClassIsMine()
{
    QFETCH(const CRuntimeClass_X*, record);
    QFETCH(MetaObject, imp);
    QFETCH(bool, isMine);
    QCOMPARE(record->IsMyImpMeta(imp), isMine);
}

void tst_RuntimeClass::attachingByList()
{
    ListWrapper wrapper;
    QTimer timer;
    ImpLeftLeaf leaf;
    ImpRight right;
    QVERIFY(wrapper.Attach(&timer, nullptr, true));
    QVERIFY(wrapper.Attach(&leaf, nullptr, true));
    QVERIFY(!wrapper.Attach(&right, nullptr, true));
    QCOMPARE(wrapper.GetImpQObject(), &leaf);
}

// ---------------------------------------------------------------------------------------------------- the registry

void tst_RuntimeClass::metaLists()
{
    using List = CRuntimeClass_X::MetaList;
    const auto take = [](List* list) { return *std::unique_ptr<List>(list); };
    const MetaObject object = &QObject::staticMetaObject;
    const MetaObject widget = &QWidget::staticMetaObject;

    QCOMPARE(take(CRuntimeClass_X::CreateMetaList(nullptr)), List());
    QCOMPARE(take(CRuntimeClass_X::CreateMetaList(nullptr, widget, nullptr)), List());
    QCOMPARE(take(CRuntimeClass_X::CreateMetaList(widget, nullptr)), List{widget});
    QCOMPARE(take(CRuntimeClass_X::CreateMetaList(widget, object, widget, nullptr)), (List{widget, object, widget}));
    QCOMPARE(take(CRuntimeClass_X::CreateMetaList(widget, nullptr, object, nullptr)), List{widget});
}

void tst_RuntimeClass::theFirstRegistrationStands()
{
    const RegistryGuard guard;
    const MetaObject meta = &ImpScratch::staticMetaObject;
    QVERIFY(CRuntimeClass_X::RegisterCreateObjectMethod(meta, createPlain));
    QVERIFY(!CRuntimeClass_X::RegisterCreateObjectMethod(meta, createTarget));
    QVERIFY(!CRuntimeClass_X::RegisterCreateObjectMethod(meta, createPlain));

    QVERIFY(g_mapCreateMethod.at(meta) == &createPlain);
    QCOMPARE(classOf(CObject_X::FromImpMetaObject(meta)), QByteArray("CObject_X"));
    QCOMPARE(classOf(CObject_X::FromImpMetaObject(&ImpScratchLeaf::staticMetaObject)), QByteArray("CObject_X"));
}

void tst_RuntimeClass::registeringNull()
{
    const RegistryGuard guard;
    QVERIFY(!CRuntimeClass_X::RegisterCreateObjectMethod(&ImpScratch::staticMetaObject, nullptr));
    QVERIFY(!CRuntimeClass_X::RegisterCreateObjectMethod(nullptr, createPlain));
    QVERIFY(!CRuntimeClass_X::RegisterCreateObjectMethod(nullptr, nullptr));
    QVERIFY(g_mapCreateMethod == guard.before);
}

void tst_RuntimeClass::aRecordRegistersUnlikeItsBase_data()
{
    QTest::addColumn<MetaObject>("baseImp");
    QTest::addColumn<bool>("hasFactory");
    QTest::addColumn<bool>("registers");

    const MetaObject same = &ImpScratch::staticMetaObject;
    const MetaObject other = &QObject::staticMetaObject;
    QTest::newRow("another imp class than the base") << other << true << true;
    QTest::newRow("the imp class of the base") << same << true << false;
    QTest::newRow("another imp class, no factory") << other << false << false;
    QTest::newRow("the imp class of the base, no factory") << same << false << false;
}

void tst_RuntimeClass::aRecordRegistersUnlikeItsBase()
{
    QFETCH(MetaObject, baseImp);
    QFETCH(bool, hasFactory);
    QFETCH(bool, registers);

    const RegistryGuard guard;
    const MetaObject imp = &ImpScratch::staticMetaObject;
    const CRuntimeClass_X record(&CObject_X::staticMetaObject, imp, baseImp, hasFactory ? &createPlain : nullptr,
                                 nullptr, 1);
    QCOMPARE(g_mapCreateMethod.count(imp) == 1, registers);
    QCOMPARE(classOf(record.CreateObject()), hasFactory ? QByteArray("CObject_X") : QByteArray());
}

void tst_RuntimeClass::aRecordWithAListRegistersEachUnlikeItsBase()
{
    const RegistryGuard guard;
    const MetaObject scratch = &ImpScratch::staticMetaObject;
    const MetaObject leaf = &ImpScratchLeaf::staticMetaObject;
    const MetaObject base = &QThread::staticMetaObject;
    const CRuntimeClass_X record(&CObject_X::staticMetaObject, &QAction::staticMetaObject, base, &createPlain,
                                 CRuntimeClass_X::CreateMetaList(scratch, base, leaf, nullptr), 1);

    QCOMPARE(g_mapCreateMethod.size(), guard.before.size() + 2);
    QVERIFY(g_mapCreateMethod.at(scratch) == &createPlain);
    QVERIFY(g_mapCreateMethod.at(leaf) == &createPlain);
    QVERIFY(record.IsMyImpMeta(base));
    QVERIFY(!record.IsMyImpMeta(&QAction::staticMetaObject));
    QCOMPARE(record.GetImpMetaObject(), &QAction::staticMetaObject);
}

void tst_RuntimeClass::aSecondRecordDoesNotReplaceTheFirst()
{
    const RegistryGuard guard;
    const MetaObject imp = &ImpScratch::staticMetaObject;
    const MetaObject base = &QObject::staticMetaObject;
    const CRuntimeClass_X first(&CObject_X::staticMetaObject, imp, base, &createPlain, nullptr, 1);
    const CRuntimeClass_X second(&CCmdTarget_X::staticMetaObject, imp, base, &createTarget, nullptr, 1);
    QCOMPARE(classOf(CObject_X::FromImpMetaObject(imp)), QByteArray("CObject_X"));
    QCOMPARE(classOf(second.CreateObject()), QByteArray("CCmdTarget_X"));
}

void tst_RuntimeClass::anEmptyListAdmitsNothing()
{
    const RegistryGuard guard;
    const CRuntimeClass_X record(&CObject_X::staticMetaObject, &ImpScratch::staticMetaObject,
                                 &QObject::staticMetaObject, &createPlain, CRuntimeClass_X::CreateMetaList(nullptr), 1);
    QVERIFY(!record.IsMyImpMeta(&ImpScratch::staticMetaObject));
    QVERIFY(!record.IsMyImpMeta(&QObject::staticMetaObject));
    QVERIFY(!record.IsMyImpMeta(nullptr));
    QVERIFY(g_mapCreateMethod == guard.before);
}

void tst_RuntimeClass::aNullCreateFunctionInTheRegistryEndsTheSearch()
{
    const RegistryGuard guard;
    g_mapCreateMethod[&ImpLeftLeaf::staticMetaObject] = nullptr;
    QCOMPARE(CObject_X::FromImpMetaObject(&ImpLeftLeaf::staticMetaObject), nullptr);
}

void tst_RuntimeClass::aFactoryThatGivesNothing()
{
    const RegistryGuard guard;
    QVERIFY(CRuntimeClass_X::RegisterCreateObjectMethod(&ImpScratch::staticMetaObject, createNothing));
    QCOMPARE(CObject_X::FromImpMetaObject(&ImpScratch::staticMetaObject), nullptr);
}

XE_TEST(tst_RuntimeClass)
#include "tst_runtimeclass.moc"
