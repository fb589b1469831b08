#include "testclass.h"

#include <xeexcept.h>

#include <thread>

// The exceptions as objects: their run-time classes, what catches them, copies, and who deletes them.

namespace {

// What the five shared objects hold when static objects of a program are made.
struct SharedFields
{
    explicit SharedFields(const CSimpleException_X& object)
        : autoDelete(object.autoDelete),
          messageId(object.messageId),
          initialized(object.initialized),
          loaded(object.loaded),
          message(object.message)
    {}

    int autoDelete;
    unsigned messageId;
    int initialized;
    int loaded;
    std::wstring message;
};

const SharedFields atStart[] = {
    SharedFields(_simpleMemoryException),     SharedFields(_simpleNotSupportedException),
    SharedFields(_simpleResourceException),   SharedFields(_simpleUserException),
    SharedFields(_simpleInvalidArgException),
};

template <class Thrown, class Throw>
Thrown* caught(Throw doThrow)
{
    try {
        doThrow();
    } catch (Thrown* exception) {
        return exception;
    }
    return nullptr;
}

// The classes of what a function throws, as its first catching clause tells: "CUserException_X".
template <class Throw>
QByteArray classOf(Throw doThrow)
{
    CException_X* const exception = caught<CException_X>(doThrow);
    const QByteArray name = exception ? exception->GetClassName() : "nothing";
    if (exception)
        exception->Delete();
    return name;
}

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

int deleted = 0;

} // namespace

// A host's own exception, with a record of its own.
class HostException : public CFileException_X
{
    Q_OBJECT
    DECLARE_EXCEPTION_X(HostException)
    HostException() = default;
    HostException(const HostException&) = default;
    ~HostException() override { ++deleted; }
};
IMPLEMENT_DYNAMIC_X(HostException, CFileException_X)

using Class = const CRuntimeClass_X*;
Q_DECLARE_METATYPE(Class)

class tst_ExceptClasses : public QObject
{
    Q_OBJECT

private slots:
    void classTree_data();
    void classTree();
    void kinds();
    void castFromAnObject();
    void virtualFunctionsInOrder();
    void theExceptionIsAQExceptionFirst();

    void sharedObjects_data();
    void sharedObjects();
    void thrownObjects();
    void caughtByAnyBase();
    void notCaughtByASibling();

    void deleting_data();
    void deleting();
    void aSharedObjectOutlivesDelete();
    void aNewObjectGoesByDelete();

    void raisedAsItsOwnClass();
    void clonedAsItsOwnClass();
    void aCopyBelongsToItsMaker();
    void carriedOverAThread();
    void constructed();
};

void tst_ExceptClasses::classTree_data()
{
    QTest::addColumn<Class>("record");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("bases");

    const auto row = [](Class record, const char* name, const char* bases) {
        QTest::newRow(name) << record << QByteArray(name) << QByteArray(bases);
    };
    const char* const simple = "CSimpleException_X CException_X CObject_X QObject";
    const char* const direct = "CException_X CObject_X QObject";
    row(RUNTIME_CLASS_X(CException_X), "CException_X", "CObject_X QObject");
    row(RUNTIME_CLASS_X(CSimpleException_X), "CSimpleException_X", direct);
    row(RUNTIME_CLASS_X(CMemoryException_X), "CMemoryException_X", simple);
    row(RUNTIME_CLASS_X(CNotSupportedException_X), "CNotSupportedException_X", simple);
    row(RUNTIME_CLASS_X(CInvalidArgException_X), "CInvalidArgException_X", simple);
    row(RUNTIME_CLASS_X(CResourceException_X), "CResourceException_X", simple);
    row(RUNTIME_CLASS_X(CUserException_X), "CUserException_X", simple);
    row(RUNTIME_CLASS_X(CArchiveException_X), "CArchiveException_X", direct);
    row(RUNTIME_CLASS_X(CFileException_X), "CFileException_X", direct);
    row(RUNTIME_CLASS_X(COleException_X), "COleException_X", direct);
    row(RUNTIME_CLASS_X(COleDispatchException_X), "COleDispatchException_X", direct);
    row(RUNTIME_CLASS_X(HostException), "HostException", "CFileException_X CException_X CObject_X QObject");
}

void tst_ExceptClasses::classTree()
{
    QFETCH(Class, record);
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, bases);

    QCOMPARE(QByteArray(record->GetClassName()), name);
    QCOMPARE(QByteArray(record->GetImpClassName()), QByteArray("QObject"));
    QCOMPARE(record->CreateObject(), nullptr);
    QByteArrayList found;
    for (auto* meta = record->GetMetaObject()->superClass(); meta; meta = meta->superClass())
        found += meta->className();
    QCOMPARE(found.join(' '), bases);
    QVERIFY(record->IsDerivedFrom(RUNTIME_CLASS_X(CException_X)));
    QVERIFY(record->IsDerivedFrom(RUNTIME_CLASS_X(CObject_X)));
    QCOMPARE(record->IsDerivedFrom(RUNTIME_CLASS_X(CSimpleException_X)),
             bases.contains("Simple") || name.contains("Simple"));
}

void tst_ExceptClasses::kinds()
{
    const CObject_X& object = _simpleUserException;
    QCOMPARE(object.GetRuntimeClass(), RUNTIME_CLASS_X(CUserException_X));
    QCOMPARE(QByteArray(object.GetClassName()), QByteArray("CUserException_X"));
    QVERIFY(object.IsKindOf(RUNTIME_CLASS_X(CUserException_X)));
    QVERIFY(object.IsKindOf(RUNTIME_CLASS_X(CSimpleException_X)));
    QVERIFY(object.IsKindOf(RUNTIME_CLASS_X(CException_X)));
    QVERIFY(object.IsKindOf(RUNTIME_CLASS_X(CObject_X)));
    QVERIFY(!object.IsKindOf(RUNTIME_CLASS_X(CMemoryException_X)));
    QVERIFY(!object.IsKindOf(RUNTIME_CLASS_X(CFileException_X)));
    QVERIFY(object.IsKindOf("CException_X"));
    QVERIFY(!object.IsKindOf("CFileException_X"));
}

// The object part does not stand at the exception's own address.
void tst_ExceptClasses::castFromAnObject()
{
    CFileException_X exception;
    QObject* const object = &exception;
    QCOMPARE(qobject_cast<CException_X*>(object), static_cast<CException_X*>(&exception));
    QCOMPARE(qobject_cast<CFileException_X*>(object), &exception);
    QCOMPARE(qobject_cast<COleException_X*>(object), nullptr);
    QCOMPARE(exception.qt_metacast("CFileException_X"), static_cast<void*>(&exception));
}

// Hosts are compiled against this order: a function that moves breaks them without a word.
void tst_ExceptClasses::virtualFunctionsInOrder()
{
    using Const = int (CException_X::*)(wchar_t*, unsigned, unsigned*) const;
    using Plain = int (CException_X::*)(wchar_t*, unsigned, unsigned*);
    const int first = placeOf(&CException_X::GetRuntimeClass);
    QVERIFY(placeOf(&QException::clone) < first);
    QCOMPARE(placeOf(static_cast<Const>(&CException_X::GetErrorMessage)), first + 1);
    QCOMPARE(placeOf(static_cast<Plain>(&CException_X::GetErrorMessage)), first + 2);
    QCOMPARE(placeOf(&CException_X::ReportError), first + 3);
}

void tst_ExceptClasses::theExceptionIsAQExceptionFirst()
{
    CException_X exception;
    QCOMPARE(static_cast<void*>(static_cast<QException*>(&exception)), static_cast<void*>(&exception));
    QVERIFY(static_cast<void*>(static_cast<CObject_X*>(&exception)) != static_cast<void*>(&exception));
}

// -------------------------------------------------------------------------------------------------------- throwing

void tst_ExceptClasses::sharedObjects_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<unsigned>("messageId");
    QTest::newRow("memory") << 0 << 61475u;
    QTest::newRow("not supported") << 1 << 61473u;
    QTest::newRow("resource") << 2 << 61474u;
    QTest::newRow("user") << 3 << 61476u;
    QTest::newRow("invalid argument") << 4 << 61477u;
}

void tst_ExceptClasses::sharedObjects()
{
    QFETCH(int, index);
    QFETCH(unsigned, messageId);
    const SharedFields& fields = atStart[index];
    QCOMPARE(fields.autoDelete, 0);
    QCOMPARE(fields.messageId, messageId);
    QCOMPARE(fields.initialized, 0);
    QCOMPARE(fields.loaded, 0);
    QCOMPARE(fields.message, std::wstring());
}

void tst_ExceptClasses::thrownObjects()
{
    QCOMPARE(caught<CMemoryException_X>(AfxThrowMemoryException_X), &_simpleMemoryException);
    QCOMPARE(caught<CNotSupportedException_X>(AfxThrowNotSupportedException_X), &_simpleNotSupportedException);
    QCOMPARE(caught<CInvalidArgException_X>(AfxThrowInvalidArgException_X), &_simpleInvalidArgException);
    QCOMPARE(caught<CResourceException_X>(AfxThrowResourceException_X), &_simpleResourceException);
    QCOMPARE(caught<CUserException_X>(AfxThrowUserException_X), &_simpleUserException);

    QCOMPARE(classOf([] { AfxThrowArchiveException_X(3, L"a"); }), QByteArray("CArchiveException_X"));
    QCOMPARE(classOf([] { AfxThrowFileException_X(3, 4, L"a"); }), QByteArray("CFileException_X"));
    QCOMPARE(classOf([] { AfxThrowOleException_X(3); }), QByteArray("COleException_X"));
    QCOMPARE(classOf([] { AfxThrowOleException_X(3L); }), QByteArray("COleException_X"));
    QCOMPARE(classOf([] { AfxThrowOleDispatchException_X(1, L"a", 2); }), QByteArray("COleDispatchException_X"));
    QCOMPARE(classOf([] { AfxThrowOleDispatchException_X(1, 2u, 2); }), QByteArray("COleDispatchException_X"));
}

void tst_ExceptClasses::caughtByAnyBase()
{
    QCOMPARE(caught<CSimpleException_X>(AfxThrowUserException_X), &_simpleUserException);
    QCOMPARE(caught<CException_X>(AfxThrowUserException_X), &_simpleUserException);
    QCOMPARE(caught<CObject_X>(AfxThrowUserException_X), &_simpleUserException);
    QCOMPARE(caught<QObject>(AfxThrowUserException_X), &_simpleUserException);
    QCOMPARE(caught<QException>(AfxThrowUserException_X), &_simpleUserException);
    QCOMPARE(caught<std::exception>(AfxThrowUserException_X), &_simpleUserException);
}

void tst_ExceptClasses::notCaughtByASibling()
{
    QCOMPARE(caught<CException_X>([] { QCOMPARE(caught<CMemoryException_X>(AfxThrowUserException_X), nullptr); }),
             &_simpleUserException);
}

// ---------------------------------------------------------------------------------------------------------- deleting

void tst_ExceptClasses::deleting_data()
{
    QTest::addColumn<int>("autoDelete");
    QTest::addColumn<bool>("goes");
    QTest::newRow("1, the default") << 1 << true;
    QTest::newRow("above 1") << 2 << true;
    QTest::newRow("0") << 0 << false;
    QTest::newRow("negative") << -1 << false;
}

void tst_ExceptClasses::deleting()
{
    QFETCH(int, autoDelete);
    QFETCH(bool, goes);
    deleted = 0;
    auto* const exception = new HostException;
    QCOMPARE(exception->autoDelete, 1);
    exception->autoDelete = autoDelete;
    static_cast<CException_X*>(exception)->Delete(); // reaches the host's destructor
    QCOMPARE(deleted == 1, goes);
    if (!goes)
        delete exception;
}

void tst_ExceptClasses::aSharedObjectOutlivesDelete()
{
    for (int i = 0; i < 2; ++i) {
        auto* const exception = caught<CException_X>(AfxThrowInvalidArgException_X);
        QCOMPARE(exception, &_simpleInvalidArgException);
        exception->Delete();
        wchar_t text[32];
        QCOMPARE(exception->GetErrorMessage(text, 32), 1);
        QCOMPARE(std::wstring(text), std::wstring(L"CException"));
    }
}

void tst_ExceptClasses::aNewObjectGoesByDelete()
{
    auto* const exception = caught<CFileException_X>([] { AfxThrowFileException_X(1, 2, L"a"); });
    QVERIFY(exception);
    QCOMPARE(exception->autoDelete, 1);
    const QPointer<QObject> watch(exception);
    exception->Delete();
    QVERIFY(!watch);
}

// ------------------------------------------------------------------------------------------------------------ copies

void tst_ExceptClasses::raisedAsItsOwnClass()
{
    HostException original;
    original.m_cause = 4;
    original.m_lOsError = 5;
    original.m_strFileName = L"parts";
    try {
        static_cast<const QException&>(original).raise();
    } catch (const HostException& copy) {
        QVERIFY(&copy != &original);
        QCOMPARE(copy.m_cause, 4);
        QCOMPARE(copy.m_lOsError, 5);
        QCOMPARE(copy.m_strFileName, CString_X(L"parts"));
        return;
    }
    QFAIL("not caught");
}

void tst_ExceptClasses::clonedAsItsOwnClass()
{
    const COleDispatchException_X original(L"stuck", 7, 8);
    const std::unique_ptr<QException> clone(static_cast<const QException&>(original).clone());
    const auto* const copy = dynamic_cast<const COleDispatchException_X*>(clone.get());
    QVERIFY(copy);
    QCOMPARE(copy->m_strDescription, CString_X(L"stuck"));
    QCOMPARE(copy->m_dwHelpContext, 0x60007u);
    QCOMPARE(copy->m_wCode, WORD(8));

    const CFileException_X* const exceptions[] = {new CFileException_X, new HostException};
    for (const CFileException_X* exception : exceptions) {
        const std::unique_ptr<CException_X> other(exception->clone());
        QCOMPARE(other->GetRuntimeClass(), exception->GetRuntimeClass());
        delete exception;
    }
    const std::unique_ptr<CMemoryException_X> memory(_simpleMemoryException.clone());
    QCOMPARE(memory->messageId, 61475u);
}

void tst_ExceptClasses::aCopyBelongsToItsMaker()
{
    const CUserException_X original;
    QCOMPARE(original.autoDelete, 1);
    CUserException_X copy(original);
    QCOMPARE(copy.autoDelete, 0);
    copy.Delete();
    try {
        original.raise();
    } catch (CException_X& thrown) {
        thrown.Delete();
        QCOMPARE(thrown.GetRuntimeClass(), RUNTIME_CLASS_X(CUserException_X));
    }
}

// As Qt's concurrency layer does it: catch in one thread, keep a clone, raise in another.
void tst_ExceptClasses::carriedOverAThread()
{
    std::unique_ptr<QException> kept;
    std::thread([&kept] {
        try {
            throw CFileException_X(CFileException_X::diskFull, 112, L"parts");
        } catch (const QException& exception) {
            kept.reset(exception.clone());
        }
    }).join();
    QVERIFY(kept);
    try {
        kept->raise();
    } catch (const CFileException_X& exception) {
        QCOMPARE(exception.m_cause, 13);
        return;
    }
    QFAIL("not caught");
}

void tst_ExceptClasses::constructed()
{
    const CSimpleException_X simple(0, 77);
    QCOMPARE(simple.autoDelete, 0);
    QCOMPARE(simple.messageId, 77u);
    const CArchiveException_X archive;
    QCOMPARE(archive.m_cause, 0);
    QVERIFY(archive.m_strFileName.IsEmpty());
    const CFileException_X file;
    QCOMPARE(file.m_cause, 0);
    QCOMPARE(file.m_lOsError, -1);
    QVERIFY(file.m_strFileName.IsEmpty());
    const COleException_X ole;
    QCOMPARE(ole.m_sc, 0L);
    QCOMPARE(ole.autoDelete, 1);
}

XE_GUILESS_TEST(tst_ExceptClasses)
#include "tst_exceptclasses.moc"
