/// @file xeafxarc.h
/// The archive: a buffered binary stream over a file.
#pragma once

#include "xeafxstr.h"
#include "xedef.h"

#include <cstddef>
#include <cstring>

class CArchive_X;
class CFile_X;
class CObject_X;

namespace xe {
unsigned long long bytesLeft(CArchive_X& archive);
bool hasMore(CArchive_X& archive);
} // namespace xe

/// A buffered stream of values over a CFile_X, for one direction. Open a file, store or load, close the archive:
///
///     CFile_X file(L"parts.dat", CFile_X::modeWrite);
///     CArchive_X archive(&file, CArchive_X::store);
///     archive << count << price << name;
///     archive.Close();
///
/// It is a plain byte stream and holds what the client put there: no header, version or type names, and **no objects**:
/// the operators for object pointers do nothing. Streams are not those of Windows programs. Numbers stand in host
/// order:
///
/// | type                                        | bytes         | on the stream                                     |
/// | ------------------------------------------- | ------------- | ------------------------------------------------- |
/// | `char`, `unsigned char`, `bool`             | 1             | any byte but 0 is true                            |
/// | `short`, `unsigned short`                   | 2             |                                                   |
/// | `int`, `unsigned int`, `float`              | 4             |                                                   |
/// | `wchar_t`                                   | 4             | unlike the 2 of Windows                           |
/// | `double`, `long long`, `unsigned long long` | 8             |                                                   |
/// | `long`                                      | 8             | unlike the 4 of Windows                           |
/// | count (WriteCount)                          | 2             | below 0xFFFF                                      |
/// |                                             | 2 + 4         | else 0xFFFF and the low 32 bits                   |
/// | CString_X                                   | 3             | FF FE FF, the mark of wide text, then the length: |
/// |                                             | 1             | below 0xFF                                        |
/// |                                             | 1 + 2         | else FF, below 0xFFFE                             |
/// |                                             | 1 + 2 + 4     | else FF FFFF, below 0xFFFFFFFF                    |
/// |                                             | 1 + 2 + 4 + 8 | else FF FFFF FFFFFFFF                             |
/// |                                             | 4 each        | then the elements, without a terminator           |
///
/// Nothing is reported and nothing raises but want of memory (std::bad_alloc): a value that the stream does not hold
/// whole is read as 0, and what follows it too; what the file does not take is lost, and all that is stored behind it,
/// so that the stream ends there and is never shifted. Only Read() tells how much came.
///
/// A CMemFile_X that can grow lends its own block, so nothing is copied in between. Nobody else may use a file while an
/// archive is open on it. No locks.
class XE_EXPORT CArchive_X
{
public:
    enum Mode : unsigned int {
        store = 0,            ///< to the file
        load = 1,             ///< from the file
        bNoFlushOnDelete = 2, ///< the destructor does not write what is still in the buffer
    };

    /// `mode` is a Mode, with or without bNoFlushOnDelete. `file` is not owned and must be open; with a null one
    /// everything does nothing. A `bufferSize` in bytes below 128 stands for 128 and drops the given `buffer`;
    /// otherwise the archive works in `buffer`, which the caller owns and which has that many bytes, or makes one of
    /// its own.
    CArchive_X(CFile_X* file, unsigned int mode, int bufferSize = 4096, void* buffer = nullptr);
    /// Close(), unless bNoFlushOnDelete is set.
    ~CArchive_X();
    Q_DISABLE_COPY_MOVE(CArchive_X)

    bool IsLoading() const { return mode & load; }
    bool IsStoring() const { return !IsLoading(); }
    /// The file; null after Close() and Abort().
    CFile_X* GetFile() const { return file; }

    /// Writes what is in the buffer, or gives back what was read ahead, and lets go of the file, which stays open. From
    /// then on stores are dropped and loads give 0.
    void Close();
    /// Lets go of the file without writing what is in the buffer. Afterwards as Close().
    void Abort();

    /// Writes what is in the buffer to the file, or gives back to the file what was read ahead, so that its position is
    /// that of the archive. The file itself is not flushed.
    void Flush();

    /// Reads bytes. Returns their number: less than `count` at the end of the stream, 0 when storing and for null.
    unsigned int Read(void* buffer, unsigned int count);
    /// Read() and no more: unlike the published function it does not raise when bytes are missing.
    unsigned int EnsureRead(void* buffer, unsigned int count) { return Read(buffer, count); }
    /// Writes bytes. Nothing when loading, and for null.
    void Write(const void* buffer, unsigned int count);

    /// Writes the bare elements, 4 bytes each, without length, line end or terminator. Nothing for null.
    void WriteString(const wchar_t* text);

    /// Reads a line of bare elements, at most |max| of them, `max` being taken as a signed number, and terminates it:
    /// the caller promises room for one more. A line ends with LF, or with CR and the element behind it, whatever that
    /// is. A negative `max` keeps this last element. Returns `buffer`, or null for a null buffer, a `max` of 0, an
    /// empty line with a positive `max`, and where the stream has ended.
    wchar_t* ReadString(wchar_t* buffer, unsigned int max);

    /// Reads a line of any length without its line end. 1, or 0, with an empty `line`, if the stream has ended. A 0
    /// element ends the text, and the rest of up to 128 elements or to the line end is lost.
    int ReadString(CString_X& line);

    /// Writes the low 32 bits of a number in the short form of the table above.
    void WriteCount(unsigned long long count);
    /// Reads such a number; 0 where the stream has ended.
    unsigned long long ReadCount();

    // ---------------------------------------------------------------------------------------------------------- values
    // `<<` stores a value in the form of the table above, `>>` loads it; both return the archive. Nothing happens in an
    // archive of the other direction. A value that the stream does not hold whole is loaded as 0.

    CArchive_X& operator<<(unsigned char value) { return put(value); }      ///< 1 byte
    CArchive_X& operator<<(unsigned short value) { return put(value); }     ///< 2 bytes
    CArchive_X& operator<<(unsigned int value) { return put(value); }       ///< 4 bytes
    CArchive_X& operator<<(float value) { return put(value); }              ///< 4 bytes
    CArchive_X& operator<<(double value) { return put(value); }             ///< 8 bytes
    CArchive_X& operator<<(long long value) { return put(value); }          ///< 8 bytes
    CArchive_X& operator<<(unsigned long long value) { return put(value); } ///< 8 bytes
    CArchive_X& operator<<(long value) { return put(value); }               ///< 8 bytes
    CArchive_X& operator<<(int value) { return put(value); }                ///< 4 bytes
    CArchive_X& operator<<(short value) { return put(value); }              ///< 2 bytes
    CArchive_X& operator<<(char value) { return put(value); }               ///< 1 byte
    CArchive_X& operator<<(wchar_t value) { return put(value); }            ///< 4 bytes
    CArchive_X& operator<<(bool value) { return put(value); }               ///< 1 byte
    /// The mark of wide text, the length and the elements, zeros and all.
    CArchive_X& operator<<(const CString_X& text);
    /// Does not compile: by way of its pointer a text would be stored as a bool. Write CString_X(text).
    CArchive_X& operator<<(const wchar_t* text) = delete;
    CArchive_X& operator<<(const char* text) = delete;

    CArchive_X& operator>>(unsigned char& value) { return take(value); }      ///< 1 byte
    CArchive_X& operator>>(unsigned short& value) { return take(value); }     ///< 2 bytes
    CArchive_X& operator>>(unsigned int& value) { return take(value); }       ///< 4 bytes
    CArchive_X& operator>>(float& value) { return take(value); }              ///< 4 bytes
    CArchive_X& operator>>(double& value) { return take(value); }             ///< 8 bytes
    CArchive_X& operator>>(long long& value) { return take(value); }          ///< 8 bytes
    CArchive_X& operator>>(unsigned long long& value) { return take(value); } ///< 8 bytes
    CArchive_X& operator>>(long& value) { return take(value); }               ///< 8 bytes
    CArchive_X& operator>>(int& value) { return take(value); }                ///< 4 bytes
    CArchive_X& operator>>(short& value) { return take(value); }              ///< 2 bytes
    CArchive_X& operator>>(char& value) { return take(value); }               ///< 1 byte
    CArchive_X& operator>>(wchar_t& value) { return take(value); }            ///< 4 bytes
    CArchive_X& operator>>(bool& value);                                      ///< any byte but 0 is true

    /// The text stays as it is when the stream does not hold all its elements; they are consumed then. A text without
    /// the mark is read as 32-bit elements all the same.
    CArchive_X& operator>>(CString_X& text);

protected:
    int directBuffer = 0; ///< 1 if the file lends its own memory for the buffer
    int blocking = 0;     ///< 2 if only what was asked for may be read from the file
public:
    CString_X fileName; ///< the file's path when the archive was made
protected:
    CFile_X* file;                        ///< null after Close() and Abort()
    unsigned int mode;                    ///< what the constructor was given
    int userBuffer = 1;                   ///< 0 if the buffer is the archive's own
    int bufferSize;                       ///< in bytes
    unsigned char* cursor = nullptr;      ///< where the next byte is read or written
    unsigned char* bufferEnd = nullptr;   ///< end of what was read, or of the room
    unsigned char* bufferStart = nullptr; ///< null while the file lends none

private:
    friend unsigned long long xe::bytesLeft(CArchive_X& archive);
    friend bool xe::hasMore(CArchive_X& archive);

    std::size_t available() const { return static_cast<std::size_t>(bufferEnd - cursor); }
    template <class T>
    CArchive_X& put(T value);
    template <class T>
    CArchive_X& take(T& value);
    template <class T>
    bool get(T& value);
    bool makeRoom(std::size_t width);
    bool fetch(void* value, std::size_t width);

    bool writeFile(const unsigned char* from, unsigned int count);
    void stopStoring();
    bool fillBuffer(unsigned int need);
    bool borrow(unsigned int command);
    unsigned int readFile(unsigned char* to, unsigned int request, unsigned int enough);
    unsigned int takeBuffered(unsigned char* to, unsigned int count);
    unsigned int putBuffered(const unsigned char* from, unsigned int count);
    void writeElements(const wchar_t* elements, std::size_t count);

    bool m_hasGap = false; // the file has not taken something
};

/// Objects are neither stored nor loaded, unlike in a published archive: these leave everything alone and return the
/// archive.
inline CArchive_X& operator<<(CArchive_X& archive, const CObject_X*) { return archive; }
inline CArchive_X& operator>>(CArchive_X& archive, CObject_X*&) { return archive; }
inline CArchive_X& operator>>(CArchive_X& archive, const CObject_X*&) { return archive; }

/// Writes the length of a text in elements as in the table above, behind the mark if `wide` is not 0.
XE_EXPORT void AfxWriteStringLength_X(CArchive_X& archive, unsigned long length, int wide);

/// Reads such a length; 0 where the stream has ended. `charSize` becomes 4 if the mark is there, else 1.
XE_EXPORT unsigned long AfxReadStringLength_X(CArchive_X& archive, int& charSize);

// ---------------------------------------------------------------------------------------------- short and often called

template <class T>
CArchive_X& CArchive_X::put(T value)
{
    if (IsStoring() && (available() >= sizeof(T) || makeRoom(sizeof(T)))) {
        std::memcpy(cursor, &value, sizeof(T));
        cursor += sizeof(T);
    }
    return *this;
}

template <class T>
bool CArchive_X::get(T& value)
{
    if (available() < sizeof(T))
        return fetch(&value, sizeof(T));
    std::memcpy(&value, cursor, sizeof(T));
    cursor += sizeof(T);
    return true;
}

template <class T>
CArchive_X& CArchive_X::take(T& value)
{
    if (IsLoading())
        get(value);
    return *this;
}

inline CArchive_X& CArchive_X::operator>>(bool& value)
{
    unsigned char byte = value;
    take(byte);
    value = byte != 0;
    return *this;
}
