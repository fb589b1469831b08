#include "xeexcept.h"

#include "xebstr.h"
#include "xeformatmessage.h"
#include "xememory.h"

#include <cwchar>

IMPLEMENT_DYNAMIC_X(COleException_X, CException_X)
IMPLEMENT_DYNAMIC_X(COleDispatchException_X, CException_X)

namespace {

constexpr SCODE outOfMemory = static_cast<HRESULT>(0x8007000E);
constexpr SCODE unexpected = static_cast<HRESULT>(0x8000FFFF);

CString_X messageOf(const CException_X& exception)
{
    constexpr unsigned size = 512;
    wchar_t text[size + 1] = {}; // a text that fills its buffer has no terminator
    return exception.GetErrorMessage(text, size) ? text : L"";
}

BSTR newText(const CString_X& text) { return SysAllocStringLen_X(text, static_cast<UINT>(text.length())); }

BSTR newSource(const CString_X& text) { return text.IsEmpty() ? SysAllocStringLen_X(L"", 1) : newText(text); }

tagEXCEPINFO infoOf(const COleDispatchException_X& exception)
{
    tagEXCEPINFO info = {};
    info.wCode = exception.m_wCode;
    info.bstrSource = newSource(exception.m_strSource);
    info.bstrDescription = newText(exception.m_strDescription);
    info.bstrHelpFile = exception.m_strHelpFile.IsEmpty() ? nullptr : newText(exception.m_strHelpFile);
    info.dwHelpContext = exception.m_dwHelpContext;
    info.scode = exception.m_scError;
    return info;
}

} // namespace

// ----------------------------------------------------------------------------------------------------- status codes

void AfxThrowOleException_X(int code) { throw new COleException_X(code); }

void AfxThrowOleException_X(long code) { throw new COleException_X(code); }

void AfxCheckError_X(long code)
{
    if (code < 0)
        AfxThrowOleException_X(code);
}

SCODE COleException_X::Process(const CObject_X* exception)
{
    if (const auto* ole = qobject_cast<const COleException_X*>(exception))
        return ole->m_sc;
    return qobject_cast<const CException_X*>(exception) ? outOfMemory : unexpected;
}

int COleException_X::GetErrorMessage(wchar_t* buffer, unsigned size, unsigned* help) const
{
    if (help)
        *help = 0;
    constexpr DWORD flags = FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM;
    constexpr DWORD systemLanguage = 2048;
    wchar_t* text = nullptr;
    if (!buffer || !FormatMessage_X(flags, nullptr, static_cast<DWORD>(m_sc), systemLanguage, &text, 0, nullptr))
        return CException_X::GetErrorMessage(buffer, size, help);
    std::wcsncpy(buffer, text, size);
    LocalFree_X(text);
    return 1;
}

// ------------------------------------------------------------------------------------------------ automation clients

COleDispatchException_X::COleDispatchException_X(const wchar_t* description, unsigned helpId, WORD code)
    : m_wCode(code),
      m_strDescription(description),
      m_dwHelpContext(helpId ? helpId + 0x60000 : 0),
      m_scError(code ? 0 : unexpected)
{}

void AfxThrowOleDispatchException_X(WORD code, const wchar_t* description, unsigned helpId)
{
    throw new COleDispatchException_X(description, helpId, code);
}

void AfxThrowOleDispatchException_X(WORD code, unsigned, unsigned helpId)
{
    AfxThrowOleDispatchException_X(code, L"AfxThrowOleDispatchException", helpId);
}

void COleDispatchException_X::Process(tagEXCEPINFO* info, const CObject_X* exception)
{
    constexpr WORD internalFailure = 61704;
    if (!info)
        return;
    if (const auto* dispatch = qobject_cast<const COleDispatchException_X*>(exception)) {
        *info = infoOf(*dispatch);
        return;
    }
    *info = {};
    info->bstrSource = newSource(CString_X());
    if (const auto* other = qobject_cast<const CException_X*>(exception)) {
        info->bstrDescription = newText(messageOf(*other));
        info->scode = COleException_X::Process(other);
    } else {
        info->bstrDescription = newText(L"AFX_IDP_INTERNAL_FAILURE");
        info->wCode = internalFailure;
    }
}

int COleDispatchException_X::GetErrorMessage(wchar_t* buffer, unsigned size, unsigned* help) const
{
    if (help)
        *help = 0;
    if (!buffer)
        return 0;
    std::wcsncpy(buffer, m_strDescription, size);
    return 1;
}
