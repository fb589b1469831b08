/// @file xeafx.h
/// The object wrapper that every emulated class builds on, its run-time class record, and the class macros.
#pragma once

#include "xedef.h"

#include <QList>
#include <QMetaMethod>
#include <QObject>

#include <map>
#include <type_traits>

class CArchive_X;
class CDumpContext_X;
class CObject_X;

/// The record that stands for a wrapper class at run time: one static instance a class, its member `s_classInfo`.
///
/// It names the meta-object of the wrapper class, and the meta-object of the Qt class, or a list of them, that the
/// class wraps: an imp object must inherit one of these. A class that wraps another Qt class than its base enters
/// itself in `g_mapCreateMethod`, so CObject_X::FromImpMetaObject() can make the right wrapper for a Qt object met
/// without one.
///
/// The class macros below write the records. Host code names one by RUNTIME_CLASS_X(), for IsKindOf() and
/// CreateObject().
class XE_EXPORT CRuntimeClass_X
{
public:
    using CreateFunction = CObject_X* (*)();
    using MetaList = QList<const QMetaObject*>;

    /// Stores the fields and registers `createFunction` under `impMeta`, or under each entry of `impMetaList`, where
    /// that differs from `baseImpMeta`. Takes ownership of `impMetaList`, which may be null. `objectSize` is stored
    /// only. A list that is the base's (`inheritsList`) registers nothing: the base stands for its entries.
    CRuntimeClass_X(const QMetaObject* meta, const QMetaObject* impMeta, const QMetaObject* baseImpMeta,
                    CreateFunction createFunction, MetaList* impMetaList, int objectSize, bool inheritsList = false);
    ~CRuntimeClass_X();
    Q_DISABLE_COPY_MOVE(CRuntimeClass_X)

    /// A new list of the arguments up to the terminating null; the caller (normally the constructor above) owns it.
    /// A null first argument gives an empty list.
    static MetaList* CreateMetaList(const QMetaObject* first, ...);

    /// Enters the pair in `g_mapCreateMethod`. False, with nothing changed, for a null function, a null meta-object,
    /// and for a meta-object that has an entry already: the first registration stands.
    static bool RegisterCreateObjectMethod(const QMetaObject* impMeta, CreateFunction createFunction);

    /// The meta-object of the wrapper class.
    const QMetaObject* GetMetaObject() const { return m_meta; }
    /// The meta-object of the Qt class that an imp object must inherit, where the class has no list.
    const QMetaObject* GetImpMetaObject() const { return m_impMeta; }

    /// The name of the wrapper class, in UTF-8; it lives as long as the program.
    const char* GetClassName() const { return m_meta->className(); }
    /// The name of that Qt class, likewise.
    const char* GetImpClassName() const { return m_impMeta->className(); }

    /// Size of a wrapper object in bytes.
    int GetObjectSize() const { return m_objectSize; }

    /// A new object of the class, owned by the caller; null for a class without a create function.
    CObject_X* CreateObject() const;

    /// True if the wrapper class is `other` or derives from it; false for null.
    bool IsDerivedFrom(const CRuntimeClass_X* other) const;

    /// True if an object with the meta-object `meta` may become the imp object of this class: it inherits the imp meta,
    /// or any entry of the list where the class has one. An empty list admits nothing; null is never admitted.
    bool IsMyImpMeta(const QMetaObject* meta) const;

private:
    const QMetaObject* m_meta;
    const QMetaObject* m_impMeta;
    MetaList* m_impMetaList;
    CreateFunction m_createFunction;
    int m_objectSize;
};

/// Which wrapper class stands for which Qt class: filled while static objects are constructed, read afterwards.
extern XE_EXPORT std::map<const QMetaObject*, CRuntimeClass_X::CreateFunction>& g_mapCreateMethod;

/// Base of all emulated classes: a wrapper that holds a separate Qt object, its imp object.
///
/// The emulated thing is not the Qt object itself. The wrapper is what host code derives from and calls; the imp object
/// (a QWidget for a window, a QMenu for a menu) does the work and takes the place of the Windows handle. Attach() ties
/// the two: the wrapper becomes event filter of the imp object, and the imp object carries the wrapper's address in its
/// dynamic property "owner" and the logical parent in "parent".
///
/// Life of the pair:
/// - A wrapper never has a Qt parent. Its owner in code deletes it, or the pool of temporary objects does.
/// - An imp object attached with `external` false is owned: when the wrapper lets go of it, it is deleted by
///   `deleteLater()`, so it outlives the wrapper until control returns to the event loop. An external one is left
///   alive.
/// - When the imp object dies first, the wrapper survives with a null imp object, and OnDetach() is not called.
///
/// Every operation on a wrapper without an imp object does nothing or gives 0. GUI thread only.
///
/// @code
/// class CTone : public CObject_X
/// {
///     Q_OBJECT
///     DECLARE_DYNCREATE_X(CTone)
/// };
/// IMPLEMENT_DYNCREATE_X(CTone, CObject_X)
///
/// QObject implementation;
/// CTone tone;
/// tone.Attach(&implementation, nullptr, true);
/// @endcode
class XE_EXPORT CObject_X : public QObject
{
    Q_OBJECT

public:
    CObject_X();
    /// Detaches. An override of OnDetach() is not reached from here, as the derived part is gone by then.
    ~CObject_X() override;

    /// The imp object, null while nothing is attached.
    QObject* GetImpQObject() const { return m_imp; }

    /// The imp object as a `T`, null if there is none or it is of another class.
    template <class T>
    T* Imp() const
    {
        return qobject_cast<T*>(m_imp);
    }

    /// Stores the pointer and does nothing else that Attach() does; gives the previous one.
    QObject* SetImpQObject(QObject* imp);

    /// Marks the wrapper as temporary and hands it to the pool, which deletes it at the next idle moment outside a host
    /// command. There is no way back.
    void SetTemporary();
    bool IsTemporary() const { return m_flags & Temporary; }

    /// True while an imp object is attached that the wrapper does not own.
    bool IsExternalImpObj() const { return m_flags & ExternalImp; }

    /// Ties this wrapper to `imp`, after letting go of an imp object it may have. `external` false hands over
    /// ownership.
    ///
    /// False for a null `imp`, with nothing changed; for an `imp` of the wrong class, which is left alone when it is
    /// external and **deleted at once** when it is not; and when OnAttach() refuses, which detaches again.
    bool Attach(QObject* imp, QObject* parent, bool external);

    /// Lets go of the imp object, deleting it later if it is owned, and calls OnDetach(). Without one it does nothing.
    void Detach();

    /// The wrapper of `imp`, null if it has none or is null.
    static CObject_X* GetOwner(const QObject* imp);

    /// A new wrapper for an imp object of class `impMeta`: of the class registered for it or for its nearest super
    /// class. Null for null, where no class is registered, and where the create function gives none.
    static CObject_X* FromImpMetaObject(const QMetaObject* impMeta);

    /// What the class macros ask a class for: the Qt class that an imp object must inherit, and the list that takes its
    /// place (none). A derived class with another imp class declares functions of the same names.
    static const QMetaObject* GetImpMetaObject() { return &QObject::staticMetaObject; }
    static CRuntimeClass_X::MetaList* GetImpMetaList() { return nullptr; }

    /// True if the object's class is this one or derives from it; false for null. A class is told from its base by its
    /// Q_OBJECT, without which the class macros do not compile.
    bool IsKindOf(const CRuntimeClass_X* runtimeClass) const;
    bool IsKindOf(const char* className) const;
    /// The name of the object's class, in UTF-8; it lives as long as the program.
    const char* GetClassName() const { return metaObject()->className(); }

    /// Looks for a slot of this name, inherited ones included, from method index 0 upward. The first match is left in
    /// `method` and gives true. Without a match `method` holds the last method looked at.
    bool FindSlotMethod(const QString& name, QMetaMethod& method) const;

    /// Connects `signal` to `slot` (texts as SIGNAL() and SLOT() make them) in place of whatever that signal was
    /// connected to at `receiver`. `ignored` has no meaning. A null object or text gives an empty Connection.
    static QMetaObject::Connection Connect(const QObject* sender, const char* signal, const QObject* receiver,
                                           const char* slot, const QObject* ignored = nullptr,
                                           Qt::ConnectionType type = Qt::UniqueConnection);

    /// The same with the first object below `root`, recursively, that bears the object name of the resource id `id`.
    /// A null root, an id without a name or a name without an object give an empty Connection.
    static QMetaObject::Connection Connect(unsigned id, const char* signal, const QObject* receiver, const char* slot,
                                           const QObject* root, Qt::ConnectionType type = Qt::UniqueConnection);

    QT_WARNING_PUSH
    QT_WARNING_DISABLE_GCC("-Woverloaded-virtual") // CWnd_X hides it by its form for a parent window
    /// Makes a default imp object with this Qt parent (here a QObject) and attaches it as an owned one; the result is
    /// that of Attach().
    virtual bool AttachDefault(QObject* parent);
    QT_WARNING_POP
    /// Called at the end of Attach(); false undoes the attachment.
    virtual bool OnAttach();
    /// Called at the end of Detach(), when the imp object is no longer attached.
    virtual void OnDetach();
    /// Moves connections that end at `from` to the wrapper's slots of the same names, as far as the signal's arguments
    /// fit. Connections to functors are left alone. With `keep` the old connection stays beside the new one. Nothing
    /// for null.
    virtual void ConnectSlotsFrom(QObject* from, bool keep);
    /// The record of the object's class.
    virtual CRuntimeClass_X* GetRuntimeClass() const;
    /// Stores the object to the archive, or loads it, as CArchive_X::IsStoring() tells. Here nothing.
    virtual void Serialize(CArchive_X& archive);
    /// Writes "a ", the class name, " at ", the address and a line feed.
    virtual void Dump(CDumpContext_X& context) const;

    /// A new object of the class, owned by the caller.
    static CObject_X* CreateObject();
    /// The record of the class.
    static CRuntimeClass_X s_classInfo;

public Q_SLOTS:
    /// The imp object has gone: forget it.
    void OnImpDestroy();

private:
    enum Flag : unsigned {
        ExternalImp = 1,
        Temporary = 2,
    };

    void setFlag(Flag flag, bool on) { m_flags = on ? m_flags | flag : m_flags & ~unsigned(flag); }

    QObject* m_imp = nullptr;
    unsigned m_flags = 0;
};

// -------------------------------------------------------------------------------------------------------- class macros

namespace xe::detail {

/// Whether a class has Q_OBJECT itself, and not by its base.
template <class T>
inline constexpr bool hasMetaObject =
    std::is_same_v<decltype(&T::qt_metacall), int (T::*)(QMetaObject::Call, int, void**)>;

template <auto first, auto second>
inline constexpr bool isSame = false;
template <auto same>
inline constexpr bool isSame<same, same> = true;

} // namespace xe::detail

/// In the class, beside Q_OBJECT: the run-time class record. Members that follow are public.
#define DECLARE_DYNAMIC_X(className)                                                              \
public:                                                                                           \
    static CRuntimeClass_X s_classInfo;                                                           \
    QT_WARNING_PUSH Q_OBJECT_NO_OVERRIDE_WARNING virtual CRuntimeClass_X* GetRuntimeClass() const \
    {                                                                                             \
        return &s_classInfo;                                                                      \
    }                                                                                             \
    QT_WARNING_POP

/// DECLARE_DYNAMIC_X for a class that can be created with no arguments.
#define DECLARE_DYNCREATE_X(className) \
    DECLARE_DYNAMIC_X(className)       \
    static CObject_X* CreateObject();

/// In the class: names the Qt class that an imp object of this class must inherit, where it differs from the base's.
#define DECLARE_IMP_CLASS_X(qtClass) \
public:                              \
    static const QMetaObject* GetImpMetaObject() { return &qtClass::staticMetaObject; }

/// In one source file: the record that DECLARE_DYNAMIC_X declares.
#define IMPLEMENT_DYNAMIC_X(className, baseClass) XE_IMPLEMENT_CLASS_INFO(className, baseClass, nullptr)

/// In one source file: the record and factory that DECLARE_DYNCREATE_X declares.
#define IMPLEMENT_DYNCREATE_X(className, baseClass)                \
    CObject_X* className::CreateObject() { return new className; } \
    XE_IMPLEMENT_CLASS_INFO(className, baseClass, &className::CreateObject)

#define XE_IMPLEMENT_CLASS_INFO(className, baseClass, createFunction)                                               \
    static_assert(xe::detail::hasMetaObject<className>, #className " needs Q_OBJECT to be told from its base");     \
    CRuntimeClass_X className::s_classInfo(                                                                         \
        &className::staticMetaObject, className::GetImpMetaObject(), baseClass::GetImpMetaObject(), createFunction, \
        className::GetImpMetaList(), sizeof(className),                                                             \
        xe::detail::isSame<&className::GetImpMetaList, &baseClass::GetImpMetaList>);

/// The run-time class record of a class, for IsKindOf() and IsDerivedFrom().
#define RUNTIME_CLASS_X(className) (&className::s_classInfo)

// --------------------------------------------------------------------------------------------------- temporary objects

/// Hands `object` to the pool of temporary objects, which deletes it at the next idle moment outside a host command. An
/// object that is deleted earlier leaves the pool by itself, and one that is in it twice is deleted once. Nothing for
/// null.
XE_EXPORT void AppendTempObjectPool(QObject* object);

// ------------------------------------------------------------------------------------------------------ command target

/// A wrapper that takes messages: it adds the point at which a message map is filled.
class XE_EXPORT CCmdTarget_X : public CObject_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CCmdTarget_X)

    /// Sets the wait cursor on the imp object; nothing unless that is a widget.
    void BeginWaitCursor();
    /// Takes the imp object's own cursor away again; nothing unless that is a widget.
    void EndWaitCursor();

    /// Fills the message map. An override calls its base first, then CWnd_X::AddMsgMapEntry() once a message; the
    /// message-map macros of xeafxmsg.h write such an override.
    virtual void OnMessageMap();
};
