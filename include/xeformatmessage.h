/// @file xeformatmessage.h
/// Texts of system messages.
///
/// Texts are terminated wide texts; capacities and results count elements.
#pragma once

#include "xedef.h"

#include <cstdarg>

inline constexpr DWORD FORMAT_MESSAGE_ALLOCATE_BUFFER = 0x100; ///< for the form that takes a `wchar_t**`
// Ignored.
inline constexpr DWORD FORMAT_MESSAGE_IGNORE_INSERTS = 0x200;
inline constexpr DWORD FORMAT_MESSAGE_FROM_STRING = 0x400;
inline constexpr DWORD FORMAT_MESSAGE_FROM_HMODULE = 0x800;
inline constexpr DWORD FORMAT_MESSAGE_FROM_SYSTEM = 0x1000;
inline constexpr DWORD FORMAT_MESSAGE_ARGUMENT_ARRAY = 0x2000;

/// Writes the text `source`, which is taken for a wide text whatever the flags, or, when that is null, "system error!
/// error number: " and the id, which is negative there when its top bit is set. Inserts such as %1 stay as they are:
/// the language and the arguments are ignored. The text is cut to leave room for its terminator. Returns its length; 0
/// for a null buffer or a capacity of 0.
///
/// 0 with FORMAT_MESSAGE_ALLOCATE_BUFFER too. That flag goes with a `wchar_t**` that is handed in as such, not cast to
/// `wchar_t*` as for the published function.
XE_EXPORT DWORD FormatMessage_X(DWORD flags, const void* source, DWORD id, DWORD language, wchar_t* buffer,
                                DWORD capacity, std::va_list* arguments);

/// The same text, at most 1023 elements of it, in a new block that goes to `*out` and that the caller frees by
/// LocalFree_X. Returns its length; 0 without FORMAT_MESSAGE_ALLOCATE_BUFFER, with `*out` left alone, and without
/// memory, with null in it. `minimum` is ignored.
XE_EXPORT DWORD FormatMessage_X(DWORD flags, const void* source, DWORD id, DWORD language, wchar_t** out, DWORD minimum,
                                std::va_list* arguments);
