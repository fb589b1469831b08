#include "xeexcept.h"

#include <cwchar>

IMPLEMENT_DYNAMIC_X(CArchiveException_X, CException_X)
IMPLEMENT_DYNAMIC_X(CFileException_X, CException_X)

namespace {

const wchar_t* shownName(const CString_X& name) { return name.IsEmpty() ? L"AFX_IDS_UNNAMED_FILE" : name.GetString(); }

// All of the text or nothing.
int writeWhole(const CString_X& text, wchar_t* buffer, unsigned size)
{
    if (!buffer || text.length() > size)
        return 0;
    std::wcsncpy(buffer, text, size);
    return 1;
}

} // namespace

void AfxThrowArchiveException_X(int cause, const wchar_t* name) { throw new CArchiveException_X(cause, name); }

int CArchiveException_X::GetErrorMessage(wchar_t* buffer, unsigned size, unsigned*) const
{
    CString_X text;
    text.Format(L"cause: %d, file: %s\n", m_cause, shownName(m_strFileName));
    return writeWhole(text, buffer, size);
}

void AfxThrowFileException_X(int cause, int osError, const wchar_t* name)
{
    throw new CFileException_X(cause, osError, name);
}

int CFileException_X::GetErrorMessage(wchar_t* buffer, unsigned size, unsigned*) const
{
    CString_X text;
    text.Format(L"cause: %d, error: %d, file: %s\n", m_cause, m_lOsError, shownName(m_strFileName));
    return writeWhole(text, buffer, size);
}

void CFileException_X::ThrowOsError(int error, const wchar_t* name)
{
    if (error != 0)
        AfxThrowFileException_X(OsErrorToException(error), error, name);
}

void CFileException_X::ThrowErrno(int error, const wchar_t* name)
{
    if (error != 0)
        AfxThrowFileException_X(ErrnoToException(error), 0, name);
}
