#include "xeformatmessage.h"
#include "xememory.h"

#include "text/widetext.h"
#include "xeafxstr.h"

namespace {

DWORD writeMessage(const void* source, DWORD id, wchar_t* buffer, DWORD capacity)
{
    if (!buffer || capacity == 0)
        return 0;
    CString_X text = static_cast<const wchar_t*>(source);
    if (!source)
        text.Format(L"system error! error number: %u", id);
    const int length = xe::writeWide(text, buffer, capacity - 1);
    buffer[length] = L'\0';
    return static_cast<DWORD>(length);
}

} // namespace

DWORD FormatMessage_X(DWORD flags, const void* source, DWORD id, DWORD, wchar_t* buffer, DWORD capacity, std::va_list*)
{
    return flags & FORMAT_MESSAGE_ALLOCATE_BUFFER ? 0 : writeMessage(source, id, buffer, capacity);
}

DWORD FormatMessage_X(DWORD flags, const void* source, DWORD id, DWORD, wchar_t** out, DWORD, std::va_list*)
{
    constexpr DWORD capacity = 1024;
    if (!out || !(flags & FORMAT_MESSAGE_ALLOCATE_BUFFER))
        return 0;
    *out = static_cast<wchar_t*>(LocalAlloc_X(LPTR, capacity * sizeof(wchar_t)));
    return writeMessage(source, id, *out, capacity);
}
