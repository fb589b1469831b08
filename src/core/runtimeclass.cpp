#include "xeafx.h"

#include <algorithm>
#include <cstdarg>

namespace {

using CreateMethodMap = std::map<const QMetaObject*, CRuntimeClass_X::CreateFunction>;

// Class records of any source file, also of the host's, may be constructed before this one.
CreateMethodMap& createMethods()
{
    static CreateMethodMap map;
    return map;
}

} // namespace

CreateMethodMap& g_mapCreateMethod = createMethods();

CRuntimeClass_X::CRuntimeClass_X(const QMetaObject* meta, const QMetaObject* impMeta, const QMetaObject* baseImpMeta,
                                 CreateFunction createFunction, MetaList* impMetaList, int objectSize,
                                 bool inheritsList)
    : m_meta(meta),
      m_impMeta(impMeta),
      m_impMetaList(impMetaList),
      m_createFunction(createFunction),
      m_objectSize(objectSize)
{
    const auto registerUnlessBase = [&](const QMetaObject* candidate) {
        if (candidate != baseImpMeta)
            RegisterCreateObjectMethod(candidate, createFunction);
    };
    if (!m_impMetaList)
        registerUnlessBase(m_impMeta);
    else if (!inheritsList)
        std::for_each(m_impMetaList->cbegin(), m_impMetaList->cend(), registerUnlessBase);
}

CRuntimeClass_X::~CRuntimeClass_X() { delete m_impMetaList; }

CRuntimeClass_X::MetaList* CRuntimeClass_X::CreateMetaList(const QMetaObject* first, ...)
{
    auto* list = new MetaList;
    va_list rest;
    va_start(rest, first);
    for (const QMetaObject* meta = first; meta; meta = va_arg(rest, const QMetaObject*))
        list->append(meta);
    va_end(rest);
    return list;
}

bool CRuntimeClass_X::RegisterCreateObjectMethod(const QMetaObject* impMeta, CreateFunction createFunction)
{
    return impMeta && createFunction && createMethods().emplace(impMeta, createFunction).second;
}

CObject_X* CRuntimeClass_X::CreateObject() const { return m_createFunction ? m_createFunction() : nullptr; }

bool CRuntimeClass_X::IsDerivedFrom(const CRuntimeClass_X* other) const
{
    return other && m_meta->inherits(other->m_meta);
}

bool CRuntimeClass_X::IsMyImpMeta(const QMetaObject* meta) const
{
    if (!meta)
        return false;
    if (!m_impMetaList)
        return meta->inherits(m_impMeta);
    return std::any_of(m_impMetaList->cbegin(), m_impMetaList->cend(),
                       [meta](const QMetaObject* entry) { return meta->inherits(entry); });
}
