/// @file xeafxdump.h
/// Diagnostics: the dump stream of the object system, the memory figures of the process, and the log file.
#pragma once

#include "xedef.h"

class CFile_X;
class CObject_X;
class CString_X;

/// The stream that CObject_X::Dump() writes to: wide text for a file, in 32-bit elements. Without a file everything
/// written is dropped: there is no debugger to write to.
class XE_EXPORT CDumpContext_X
{
public:
    /// `output` may be null and is not owned.
    explicit CDumpContext_X(CFile_X* output = nullptr) : file(output) {}

    /// Flushes the file.
    void Flush();

    /// Writes the elements of the text as they are. Throws the CUserException_X for null, unless there is no file.
    void OutputString(const wchar_t* text);

    /// A number in decimal. A floating one has 6 (float) or 15 (double) digits behind the point.
    CDumpContext_X& operator<<(unsigned char number);
    CDumpContext_X& operator<<(unsigned short number);
    CDumpContext_X& operator<<(int number);
    CDumpContext_X& operator<<(unsigned number);
    CDumpContext_X& operator<<(long long number);
    CDumpContext_X& operator<<(unsigned long long number);
    CDumpContext_X& operator<<(float number);
    CDumpContext_X& operator<<(double number);

    /// "$" and the address, as "$0x7ffd10"; "$(nil)" for null.
    CDumpContext_X& operator<<(const void* address);
    CDumpContext_X& operator<<(void* address) { return *this << static_cast<const void*>(address); }

    /// Line ends stay as they are. "NULL" for null.
    CDumpContext_X& operator<<(const wchar_t* text);
    CDumpContext_X& operator<<(const CString_X& text);

    /// Converts by the C locale and writes at most 512 elements, up to what is no text there. "(NULL)" for null.
    CDumpContext_X& operator<<(const char* text);

    /// A fixed text, whatever the object: unlike in the published class its Dump() is not called. "NULL" for null.
    CDumpContext_X& operator<<(const CObject_X* object);
    CDumpContext_X& operator<<(const CObject_X& object) { return *this << &object; }

    /// A number as "0x" and two digits for a byte, four for a word, eight for an int, sixteen for 64 bits.
    CDumpContext_X& DumpAsHex(unsigned char number);
    CDumpContext_X& DumpAsHex(unsigned short number);
    CDumpContext_X& DumpAsHex(int number);
    CDumpContext_X& DumpAsHex(unsigned number);
    CDumpContext_X& DumpAsHex(long long number);
    CDumpContext_X& DumpAsHex(unsigned long long number);

    /// Writes `count` bytes as " 0A 1F", `width` to a line, each line behind `prefix`. The prefix may hold "%%" and one
    /// conversion for the address of the line's first byte, such as "%p" or "%016lx"; with anything else behind a
    /// percent sign it is written as it stands. Throws the CInvalidArgException_X for null and for numbers below 1.
    void HexDump(const wchar_t* prefix, unsigned char* bytes, int count, int width);

    int depth = 0; ///< not read
    CFile_X* file; ///< not owned; null drops what is written
};

/// How much memory the process has, in kB as the system counts it; no single allocations. The difference of two states
/// tells what a piece of work took:
///
///     CMemoryState_X before, after, difference;
///     before.Checkpoint();
///     work();
///     after.Checkpoint();
///     difference.Difference(before, after);
///     difference.DumpStatistics();
class XE_EXPORT CMemoryState_X
{
public:
    /// Takes the figures of now. What the system does not tell stays as it was.
    void Checkpoint();

    /// Takes `newState` minus `oldState`, which can be negative. Always 1.
    BOOL Difference(const CMemoryState_X& oldState, const CMemoryState_X& newState);

    void UpdateData() {}                ///< nothing
    void DumpStatistics() const;        ///< one line of qDebug()
    void DumpAllObjectsSince() const {} ///< nothing: objects are not counted

    long long physicalKB = 0; ///< memory in use
    long long virtualKB = 0;  ///< address space
};

/// Appends a line to the log file, Common/IKev.log in the main directory (GetMainDirectory()), in UTF-8:
///
///     [2024-05-31 17:04:09 Fri] 12 parts saved
///
/// The format is that of CString_X::Format. The time is local, the day's name in the language of the system. Any thread
/// and several processes may write: a line stays whole. Nothing happens when the file cannot be opened, such as without
/// a folder Common. The file is opened for each line, so that it may be moved or read at any time, and never cut.
XE_EXPORT void xeLogPrintf(const wchar_t* format, ...);

extern XE_EXPORT char lgout; ///< neither read nor written here; hosts link to it
