#include "xeexcept.h"

#include <cwchar>

IMPLEMENT_DYNAMIC_X(CException_X, CObject_X)
IMPLEMENT_DYNAMIC_X(CSimpleException_X, CException_X)
IMPLEMENT_DYNAMIC_X(CMemoryException_X, CSimpleException_X)
IMPLEMENT_DYNAMIC_X(CNotSupportedException_X, CSimpleException_X)
IMPLEMENT_DYNAMIC_X(CInvalidArgException_X, CSimpleException_X)
IMPLEMENT_DYNAMIC_X(CResourceException_X, CSimpleException_X)
IMPLEMENT_DYNAMIC_X(CUserException_X, CSimpleException_X)

CMemoryException_X _simpleMemoryException(0, 61475);
CNotSupportedException_X _simpleNotSupportedException(0, 61473);
CResourceException_X _simpleResourceException(0, 61474);
CUserException_X _simpleUserException(0, 61476);
CInvalidArgException_X _simpleInvalidArgException(0, 61477);

void AfxThrowMemoryException_X() { throw &_simpleMemoryException; }

void AfxThrowNotSupportedException_X() { throw &_simpleNotSupportedException; }

void AfxThrowInvalidArgException_X() { throw &_simpleInvalidArgException; }

void AfxThrowResourceException_X() { throw &_simpleResourceException; }

void AfxThrowUserException_X() { throw &_simpleUserException; }

// ------------------------------------------------------------------------------------------------ base of exceptions

int CException_X::GetErrorMessage(wchar_t* buffer, unsigned, unsigned* help) const
{
    if (help)
        *help = 0;
    if (buffer)
        *buffer = L'\0';
    return 0;
}

int CException_X::GetErrorMessage(wchar_t* buffer, unsigned size, unsigned* help)
{
    return std::as_const(*this).GetErrorMessage(buffer, size, help);
}

void CException_X::Delete()
{
    if (autoDelete > 0)
        delete this;
}

// ------------------------------------------------------------------------------------------------- simple exceptions

int CSimpleException_X::GetErrorMessage(wchar_t* buffer, unsigned size, unsigned*) const
{
    if (!buffer || size == 0)
        return 0;
    if (!initialized)
        InitString();
    std::wcsncpy(buffer, message, size);
    return loaded;
}

void CSimpleException_X::InitString() const
{
    std::wcscpy(message, L"CException");
    loaded = 1;
    initialized = 1;
}
