// Members that hosts call on null objects too.
#pragma once

namespace xe {

/// `self`, a member's `this`, for a comparison with null. Read through a volatile, it is not taken for non-null.
template <class Type>
const Type* maybeNull(const Type* self)
{
    const Type* const volatile pointer = self;
    return pointer;
}

} // namespace xe
