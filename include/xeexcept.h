/// @file xeexcept.h
/// The exceptions of the object system, thrown as pointers, and the functions that throw them.
#pragma once

#include "xeafx.h"
#include "xeafxstr.h"
#include "xedef.h"

#include <QException>

using SCODE = long; ///< a status code: an HRESULT in a wider field, so a failure is negative

/// In an exception class, beside Q_OBJECT: the run-time class record and the overrides that copy the whole object.
/// Members that follow are public. IMPLEMENT_DYNAMIC_X goes with it.
#define DECLARE_EXCEPTION_X(className)           \
    DECLARE_DYNAMIC_X(className)                 \
    void raise() const override { throw *this; } \
    className* clone() const override { return new className(*this); }

/// Base of all exceptions: what a host throws and catches by pointer and gives back by Delete().
///
///     try {
///         CFileException_X::ThrowErrno(errno, L"parts.csv");
///     } catch (CFileException_X* exception) {
///         exception->ReportError();
///         exception->Delete();
///     }
///
/// It is a QException as well: Qt's concurrency layer carries one that is thrown as an object, `throw *exception`, and
/// the other side catches that by reference. Any thread may throw and catch.
class XE_EXPORT CException_X :
#ifndef Q_MOC_RUN // which takes the first base for the one with the meta-object
    public QException,
#endif
    public CObject_X
{
    Q_OBJECT
    DECLARE_EXCEPTION_X(CException_X)

    explicit CException_X(int deleteIt = 1) : autoDelete(deleteIt) {}
    /// A copy belongs to whoever made it, a variable or Qt: it has the fields of the original, but `autoDelete` 0.
    CException_X(const CException_X& other) : QException(other), CObject_X(), autoDelete(0) {}

    /// Writes the message, at most `size` elements, and returns 1, or 0 when there is none. A message that fills the
    /// buffer has no terminator; the rest of a longer buffer is cleared. Here: writes an empty text, whatever the size,
    /// sets `*help` to 0 and returns 0. Null pointers are skipped.
    virtual int GetErrorMessage(wchar_t* buffer, unsigned size, unsigned* help = nullptr) const;
    /// The same; ReportError() calls this one.
    virtual int GetErrorMessage(wchar_t* buffer, unsigned size, unsigned* help = nullptr);

    /// Shows the message in a message box of the style `type`, or without one the text of the resource `messageId`, of
    /// 61472 for 0. Returns the box's answer.
    virtual int ReportError(unsigned type = 0, unsigned messageId = 0);

    /// Destroys the object if `autoDelete` is above 0; nothing otherwise.
    void Delete();

    int autoDelete; ///< above 0 for an object on the heap that the catcher is to give back
};

// --------------------------------------------------------------------------------------------------- simple exceptions

/// An exception with a fixed text. The text is "CException" for all of them: the resource `messageId` is not looked up,
/// unlike in the published class.
class XE_EXPORT CSimpleException_X : public CException_X
{
    Q_OBJECT
    DECLARE_EXCEPTION_X(CSimpleException_X)

    explicit CSimpleException_X(int deleteIt = 1) : CException_X(deleteIt) {}
    CSimpleException_X(int deleteIt, unsigned resource) : CException_X(deleteIt), messageId(resource) {}

    using CException_X::GetErrorMessage;
    /// 0 for a null buffer or a size of 0, else `loaded`, which is 1 from the first call on. Leaves `help` alone.
    int GetErrorMessage(wchar_t* buffer, unsigned size, unsigned* help = nullptr) const override;

    /// Fills `message`. Threads that share the object may do so at once: each writes the same.
    void InitString() const;

    DWORD messageId = 0; ///< not read
    mutable int initialized = 0;
    mutable int loaded = 0;
    mutable wchar_t message[128] = {};
};

/// There is not enough memory.
class XE_EXPORT CMemoryException_X : public CSimpleException_X
{
    Q_OBJECT
    DECLARE_EXCEPTION_X(CMemoryException_X)
    using CSimpleException_X::CSimpleException_X;
};

/// The operation is not supported. The library raises none: it is for hosts.
class XE_EXPORT CNotSupportedException_X : public CSimpleException_X
{
    Q_OBJECT
    DECLARE_EXCEPTION_X(CNotSupportedException_X)
    using CSimpleException_X::CSimpleException_X;
};

/// An argument is not valid, such as an index outside a collection.
class XE_EXPORT CInvalidArgException_X : public CSimpleException_X
{
    Q_OBJECT
    DECLARE_EXCEPTION_X(CInvalidArgException_X)
    using CSimpleException_X::CSimpleException_X;
};

/// A resource is not there. The library raises none: it is for hosts.
class XE_EXPORT CResourceException_X : public CSimpleException_X
{
    Q_OBJECT
    DECLARE_EXCEPTION_X(CResourceException_X)
    using CSimpleException_X::CSimpleException_X;
};

/// The user has been told already, and the operation ends. A dump raises it for a null text.
class XE_EXPORT CUserException_X : public CSimpleException_X
{
    Q_OBJECT
    DECLARE_EXCEPTION_X(CUserException_X)
    using CSimpleException_X::CSimpleException_X;
};

// What the functions below throw: one object for all, which Delete() leaves alone.
extern XE_EXPORT CMemoryException_X _simpleMemoryException;
extern XE_EXPORT CNotSupportedException_X _simpleNotSupportedException;
extern XE_EXPORT CInvalidArgException_X _simpleInvalidArgException;
extern XE_EXPORT CResourceException_X _simpleResourceException;
extern XE_EXPORT CUserException_X _simpleUserException;

/// Throw that object.
[[noreturn]] XE_EXPORT void AfxThrowMemoryException_X();
[[noreturn]] XE_EXPORT void AfxThrowNotSupportedException_X();
[[noreturn]] XE_EXPORT void AfxThrowInvalidArgException_X();
[[noreturn]] XE_EXPORT void AfxThrowResourceException_X();
[[noreturn]] XE_EXPORT void AfxThrowUserException_X();

// -------------------------------------------------------------------------------------- exceptions with their own text
// Their throw functions make a new object, which the catcher gives back by Delete(), or raise std::bad_alloc.

/// Something is wrong with an archive. The library's own archive raises none: it is for hosts.
class XE_EXPORT CArchiveException_X : public CException_X
{
    Q_OBJECT
    DECLARE_EXCEPTION_X(CArchiveException_X)

    enum { none, genericException, readOnly, endOfFile, writeOnly, badIndex, badClass, badSchema };

    explicit CArchiveException_X(int cause = none, const wchar_t* name = nullptr) : m_cause(cause), m_strFileName(name)
    {}

    using CException_X::GetErrorMessage;
    /// "cause: 3, file: parts.arc" and a line feed; an empty name is shown as AFX_IDS_UNNAMED_FILE. 0, with nothing
    /// written, for a null buffer and a text longer than `size`. Leaves `help` alone.
    int GetErrorMessage(wchar_t* buffer, unsigned size, unsigned* help = nullptr) const override;

    int m_cause;
    CString_X m_strFileName;
};

/// Throws a new archive exception.
[[noreturn]] XE_EXPORT void AfxThrowArchiveException_X(int cause, const wchar_t* name = nullptr);

/// Something is wrong with a file. The library's own files raise none: it is for hosts.
class XE_EXPORT CFileException_X : public CException_X
{
    Q_OBJECT
    DECLARE_EXCEPTION_X(CFileException_X)

    enum {
        none,
        genericException,
        fileNotFound,
        badPath,
        tooManyOpenFiles,
        accessDenied,
        invalidFile,
        removeCurrentDir,
        directoryFull,
        badSeek,
        hardIO,
        sharingViolation,
        lockViolation,
        diskFull,
        endOfFile,
    };

    explicit CFileException_X(int cause = none, LONG osError = -1, const wchar_t* name = nullptr)
        : m_cause(cause),
          m_lOsError(osError),
          m_strFileName(name)
    {}

    /// Throws a new exception for a Win32 error number; nothing for 0.
    static void ThrowOsError(int error, const wchar_t* name = nullptr);
    /// The same for an errno; the exception's `m_lOsError` is 0.
    static void ThrowErrno(int error, const wchar_t* name = nullptr);

    /// The cause for a Win32 error number: `none` for 0, `genericException` for one that is in no table.
    static int OsErrorToException(int error);
    /// The cause for an errno: `genericException` for one outside 1 to 36, also for 0.
    static int ErrnoToException(int error);

    using CException_X::GetErrorMessage;
    /// "cause: 2, error: 3, file: parts.csv" and a line feed; an empty name is shown as AFX_IDS_UNNAMED_FILE. 0, with
    /// nothing written, for a null buffer and a text longer than `size`. Leaves `help` alone.
    int GetErrorMessage(wchar_t* buffer, unsigned size, unsigned* help = nullptr) const override;

    int m_cause;
    LONG m_lOsError;
    CString_X m_strFileName;
};

/// Throws a new file exception.
[[noreturn]] XE_EXPORT void AfxThrowFileException_X(int cause, int osError = -1, const wchar_t* name = nullptr);

/// An exception that carries a status code.
class XE_EXPORT COleException_X : public CException_X
{
    Q_OBJECT
    DECLARE_EXCEPTION_X(COleException_X)

    explicit COleException_X(SCODE code = S_OK) : m_sc(code) {}

    /// The status code for any object: its `m_sc` from a COleException_X, 0x8007000E (out of memory) from any other
    /// exception, 0x8000FFFF (unexpected) from any other object and for null. The codes are negative, as HRESULTs are.
    static SCODE Process(const CObject_X* exception);

    using CException_X::GetErrorMessage;
    /// The system's message for `m_sc`, cut to `size`. Sets `*help` to 0. 0 for a null buffer.
    int GetErrorMessage(wchar_t* buffer, unsigned size, unsigned* help = nullptr) const override;

    SCODE m_sc;
};

/// Throws a new exception with a status code.
[[noreturn]] XE_EXPORT void AfxThrowOleException_X(int code);
[[noreturn]] XE_EXPORT void AfxThrowOleException_X(long code);
/// Throws a COleException_X for a negative code.
XE_EXPORT void AfxCheckError_X(long code);

/// What an automation call reports. The three texts belong to whoever holds the record and are freed by
/// SysFreeString_X.
struct tagEXCEPINFO
{
    WORD wCode;
    WORD wReserved;
    BSTR bstrSource;
    BSTR bstrDescription;
    BSTR bstrHelpFile;
    DWORD dwHelpContext;
    PVOID pvReserved;
    HRESULT (*pfnDeferredFillIn)(tagEXCEPINFO*);
    SCODE scode;
};
using EXCEPINFO = tagEXCEPINFO;
using LPEXCEPINFO = tagEXCEPINFO*;

/// An exception on its way to an automation client.
class XE_EXPORT COleDispatchException_X : public CException_X
{
    Q_OBJECT
    DECLARE_EXCEPTION_X(COleDispatchException_X)

    /// `helpId` 0 means no help; any other is counted from 0x60000. Without a `code` the exception has the status code
    /// 0x8000FFFF (unexpected).
    explicit COleDispatchException_X(const wchar_t* description = nullptr, unsigned helpId = 0, WORD code = 0);

    /// Fills the record with new texts; what it held before is forgotten. A COleDispatchException_X gives its fields,
    /// any other exception its message and status code. Any other object, and null, give the description
    /// "AFX_IDP_INTERNAL_FAILURE" with the code 61704. A missing source is an empty text, a missing help file is null.
    static void Process(tagEXCEPINFO* info, const CObject_X* exception);

    using CException_X::GetErrorMessage;
    /// The description, cut to `size`. Sets `*help` to 0, not to the help context. 0 for a null buffer.
    int GetErrorMessage(wchar_t* buffer, unsigned size, unsigned* help = nullptr) const override;

    WORD m_wCode;
    CString_X m_strDescription;
    DWORD m_dwHelpContext;
    CString_X m_strHelpFile;
    CString_X m_strSource;
    SCODE m_scError;
};

/// Throws a new exception for an automation client.
[[noreturn]] XE_EXPORT void AfxThrowOleDispatchException_X(WORD code, const wchar_t* description, unsigned helpId = 0);
/// The description is "AfxThrowOleDispatchException", whatever the id.
[[noreturn]] XE_EXPORT void AfxThrowOleDispatchException_X(WORD code, unsigned descriptionId, unsigned helpId = 0);
