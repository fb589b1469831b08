#pragma once

#include <QtGlobal>

#include <cstdint>
#include <cstring>

namespace xe {

/// The address of the code that a virtual call of `method` on `object` would run, read from the object's table as the
/// Itanium C++ ABI lays it out; null where the machine's ABI keeps member pointers differently.
///
/// Comparing it with that of an object of the base class itself tells whether anybody overrides `method`.
template <class Class, class Method>
const void* virtualTarget(const Class* object, Method Class::*method)
{
#if defined(__x86_64__)
    struct
    {
        std::uintptr_t slotPlusOne;
        std::ptrdiff_t adjustment;
    } member;
    static_assert(sizeof member == sizeof method);
    std::memcpy(&member, &method, sizeof member);
    const char* table = nullptr;
    std::memcpy(&table, static_cast<const void*>(object), sizeof table);
    const void* code = nullptr;
    std::memcpy(&code, table + member.slotPlusOne - 1, sizeof code);
    return code;
#else
    Q_UNUSED(object)
    Q_UNUSED(method)
    return nullptr;
#endif
}

} // namespace xe
