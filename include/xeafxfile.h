/// @file xeafxfile.h
/// Files on disk, files in memory, and the search in a directory.
#pragma once

#include "xeafx.h"
#include "xeafxstr.h"

#include <QDateTime>
#include <QFile>
#include <QStringList>

class CFileException_X;

/// What CFile_X::GetStatus() tells about a file.
struct CFileStatus_X
{
    QDateTime m_ctime; ///< birth; invalid where the file system does not keep it
    QDateTime m_mtime;
    QDateTime m_atime;
    long long m_size = 0;         ///< in bytes
    int m_attribute = 0;          ///< CFile_X leaves it as it is, CMemFile_X sets 0
    char m_szFullName[4096] = {}; ///< absolute path as UTF-8, cut to fit
};

/// A file on disk: the published file class on a QFile, its imp object.
///
///     CFile_X file(L"parts.bin", CFile_X::modeReadWrite);
///     file.Write(record, sizeof(record));
///     file.SeekToBegin();
///     file.Read(record, sizeof(record));
///
/// Nothing here raises: a failure is a 0, an unchanged position, or goes without notice, as stated at each function. Of
/// the open flags only the access mode and `typeText` count, and what they do follows QFile: `modeWrite` truncates an
/// existing file and makes a missing one, `modeReadWrite` makes a missing one and never truncates, whether or not
/// `modeCreate` is set. Data are buffered: others see them after Flush() or Close(). The destructor closes a QFile that
/// it owns.
///
/// On a closed file, and without an imp object, reading gives 0, writing and seeking do nothing. Null pointers do
/// nothing. A file belongs to one thread at a time. CMemFile_X is its sibling in memory; the file handles of Win32 are
/// CFile_X objects.
class XE_EXPORT CFile_X : public CObject_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CFile_X)
    DECLARE_IMP_CLASS_X(QFile)

    enum OpenFlags : unsigned int {
        modeRead = 0,
        modeWrite = 1,
        modeReadWrite = 2,
        typeText = 0x4000, ///< line ends are translated as QIODevice::Text does: on reading CR LF becomes LF
        // accepted and ignored:
        shareCompat = 0,
        shareExclusive = 0x10,
        shareDenyWrite = 0x20,
        shareDenyRead = 0x30,
        shareDenyNone = 0x40,
        modeNoInherit = 0x80,
        modeCreate = 0x1000,
        modeNoTruncate = 0x2000,
        typeBinary = 0x8000,
    };
    enum SeekPosition : unsigned int { begin = 0, current = 1, end = 2 };
    enum BufferCommand : unsigned int { bufferRead = 0, bufferWrite = 1, bufferCommit = 2, bufferCheck = 3 };
    enum BufferFlags : unsigned int { bufferDirect = 1, bufferBlocking = 2 }; ///< the answer to bufferCheck

    /// With a QFile of its own that has no name.
    CFile_X();
    /// Opens the file by CommonInit(): whether that worked is not reported. `Imp<QFile>()->isOpen()` tells.
    CFile_X(const wchar_t* name, unsigned int flags);
    /// Closes a QFile that it owns.
    ~CFile_X() override;

    /// Calls the virtual Open() and drops the result. Nothing happens for a null name.
    void CommonInit(const wchar_t* name, unsigned int flags);

    // ---------------------------------------------------------------------------------------------------- overridables
    // Their order is part of the interface.

    virtual unsigned long long GetPosition() const; ///< in bytes from the start
    virtual CString_X GetFileName() const;          ///< without the directory
    virtual CString_X GetFileTitle() const;         ///< the name up to its *first* dot
    virtual CString_X GetFilePath() const;          ///< absolute; empty for a file without a name
    virtual void SetFilePath(const wchar_t* path);  ///< renames nothing on disk; an open file is closed

    /// Opens the file of that name, after closing the one that may be open. 1, or 0 if it cannot be opened or the name
    /// is null or empty. `error` is never written.
    virtual int Open(const wchar_t* name, unsigned int flags, CFileException_X* error = nullptr);

    /// Moves the position and returns where it is afterwards. A move is only made when it lands strictly inside the
    /// file, or with `end` at its end: unlike in the published class nothing is ever extended, a refused move leaves
    /// the position and raises nothing, and moving from the start to just the file's size is refused too. Size and
    /// position are cut to signed 32 bits first, so files of 2 GiB and more seek wrongly.
    virtual unsigned long long Seek(long long offset, unsigned int from);

    virtual void SetLength(unsigned long long length); ///< moves to this position by Seek(); the length stays as it is
    virtual unsigned long long GetLength() const;      ///< in bytes

    /// Returns the number of bytes read: less than `count` at the end of the file, 0 on failure.
    virtual unsigned int Read(void* buffer, unsigned int count);
    virtual void Write(const void* buffer, unsigned int count); ///< a failure goes without notice

    virtual void Abort(); ///< emits the QFile's aboutToClose() and nothing more: the file stays open
    virtual void Flush();
    virtual void Close();

    /// Lends out the memory behind the file: see CMemFile_X. Here 0, there is none.
    virtual unsigned int GetBufferPtr(unsigned int command, unsigned int count = 0, void** start = nullptr,
                                      void** end = nullptr);

    // -------------------------------------------------------------------------------------------------------- commands

    /// Seek() to the start.
    void SeekToBegin() { Seek(0, begin); }
    /// 1 if the QFile could be moved to its end, else 0: not the position.
    unsigned long long SeekToEnd();

    /// Fills the record and returns 1, also for a file that does not exist: size 0 and invalid dates then.
    int GetStatus(CFileStatus_X& status) const;
    static int GetStatus(const wchar_t* name, CFileStatus_X& status);

    static void Rename(const wchar_t* oldName, const wchar_t* newName); ///< never onto an existing file
    static void Remove(const wchar_t* name);
};

/// A file of text lines. Writing and reading are no inverse pair for letters outside ASCII: text is written as UTF-8,
/// and read with each byte an element of its own.
class XE_EXPORT CStdioFile_X : public CFile_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CStdioFile_X)

    CStdioFile_X() = default;
    /// Opens the file as CFile_X does; without `typeText` line ends are read as they are.
    CStdioFile_X(const wchar_t* name, unsigned int flags);
    ~CStdioFile_X() override;

    virtual void WriteString(const wchar_t* text); ///< as UTF-8, with nothing behind it

    /// Reads up to the end of the line, but at most `max` - 1 bytes, and returns `buffer`, also at the end of the file,
    /// where the text is empty. The line end stays in the text, which ends at the first 0 byte of the line. The caller
    /// promises room for `max` elements. Nothing is read or written for a null buffer or a `max` of 0.
    virtual wchar_t* ReadString(wchar_t* buffer, unsigned int max);

    /// Reads a line without its line end. 0 at the end of the file, and for a line that begins with a 0 byte: the text
    /// ends at the first one. An empty line gives 1.
    virtual int ReadString(CString_X& line);
};

/// A file in memory: a block that grows by steps.
///
///     CMemFile_X file;                          // its own block
///     CMemFile_X view(bytes, sizeof(bytes));    // reads and overwrites the caller's block
///     CMemFile_X builder(block, size, 1024);    // starts empty in the caller's block, which must come from malloc()
///
/// A file with the step 0 cannot grow; what does not fit is dropped. Bytes between an old end and a position beyond it
/// are whatever the block holds. The block is lent out by GetBufferPtr() and moves when the file grows.
///
/// SeekToEnd(), the name functions and Open() are the QFile's, which is closed here: use Seek(0, CFile_X::end).
class XE_EXPORT CMemFile_X : public CFile_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CMemFile_X)

    /// An empty file with a block of its own, which is made by the first write.
    explicit CMemFile_X(unsigned int growBytes = 1024);
    /// Attach() to a block of the caller's.
    CMemFile_X(unsigned char* block, unsigned int size, unsigned int growBytes = 0);
    /// Frees the block if the file owns it.
    ~CMemFile_X() override;

    /// Takes a block of the caller's in place of the present one, which is freed if the file owns it. The caller goes
    /// on owning the block. The length is 0 if the file can grow, else `size`. A null block with a size changes
    /// nothing.
    void Attach(unsigned char* block, unsigned int size, unsigned int growBytes = 0);

    /// Gives up the block, which belongs to the caller then and comes from Alloc(). The file is empty and may grow
    /// again.
    unsigned char* Detach();

    unsigned long long GetPosition() const override { return position; } ///< in bytes, also beyond the end
    unsigned long long GetLength() const override { return fileSize; }   ///< in bytes
    int GetStatus(CFileStatus_X& status) const; ///< size, attribute 0 and an empty name; the dates stay. 1
    using CFile_X::GetStatus;

    /// The new position, or -1 for a negative one and for a positive offset from the end. The position may lie beyond
    /// the length, which stays; the block grows then. (The length is compared with the low 32 bits of the position.)
    unsigned long long Seek(long long offset, unsigned int from) override;
    void SetLength(unsigned long long length) override; ///< new bytes are whatever the block holds
    unsigned int Read(void* buffer, unsigned int count) override;
    void Write(const void* buffer, unsigned int count) override; ///< all or, without memory, nothing
    void Abort() override;                                       ///< Close()
    void Flush() override;
    void Close() override; ///< empties the file and frees an owned block; the file cannot grow afterwards

    /// The direct access to the block that an archive uses. The addresses hold until the file changes.
    ///
    /// | command      | what it does                                                                | result       |
    /// | ------------ | --------------------------------------------------------------------------- | ------------ |
    /// | bufferRead   | lends the next `count` bytes that there are; the position moves behind them | their number |
    /// | bufferWrite  | lends room for `count` bytes, or what there is of it; the position stays    | its size     |
    /// | bufferCommit | moves the position by `count`; the length rises to it                       | 0            |
    /// | bufferCheck  | tells whether the file can grow; the addresses are not looked at            | 1 or 0       |
    ///
    /// Lent memory is `*start` to `*end`. To read 0xFFFFFFFF bytes is to read all. Null addresses and other commands
    /// give 0.
    unsigned int GetBufferPtr(unsigned int command, unsigned int count = 0, void** start = nullptr,
                              void** end = nullptr) override;

    // The memory of the block; null means that there is none. A class that overrides these calls Close() in its
    // destructor.
    virtual unsigned char* Alloc(unsigned long long size);
    virtual unsigned char* Realloc(unsigned char* block, unsigned long long size);
    virtual unsigned char* Memcpy(unsigned char* to, const unsigned char* from, unsigned long long count);
    virtual void Free(unsigned char* block);

    /// Makes the block at least `newLength` bytes long, by whole steps. Without memory, and with the step 0, nothing
    /// changes.
    virtual void GrowFile(unsigned long long newLength);

protected:
    unsigned long long growBytes = 0; ///< the step; 0 marks a file that cannot grow
    unsigned long long position = 0;
    unsigned long long bufferSize = 0; ///< of the block
    unsigned long long fileSize = 0;
    unsigned char* buffer = nullptr;
    int autoDelete = 1; ///< whether the file owns the block

private:
    unsigned long long readable() const;
    unsigned int lend(unsigned long long first, unsigned long long last, void** start, void** end) const;
};

/// The entries of a directory that match a pattern.
///
///     CFileFind_X find;
///     for (BOOL more = find.FindFile(L"parts/*.csv"); more;) {
///         more = find.FindNextFile();
///         load(find.GetFileName());
///     }
///
/// The loop is the published one, except that FindFile() gives 1 also when nothing matches: the first name is empty
/// then. Entries are bare names in the file system's own order: the directory of the search is not part of them, so
/// that GetFilePath() gives the bare name and IsDirectory() looks in the process's current directory. Before the first
/// FindNextFile() and behind the last entry names are empty and answers 0.
class XE_EXPORT CFileFind_X
{
public:
    CFileFind_X() = default;
    Q_DISABLE_COPY_MOVE(CFileFind_X)

    virtual CString_X GetFileName() const;
    virtual CString_X GetFilePath() const;  ///< the bare name
    virtual CString_X GetFileTitle() const; ///< the name up to its first dot
    virtual int IsDots() const;             ///< 1 for the directories "." and ".."

    /// Lists the directory in front of the pattern's last slash or backslash: the current one if nothing stands there,
    /// for a slash at the very start as well. What follows is the one name filter of QDir, which does not tell case
    /// apart. "*.*" also lists every directory, but of the files only those with a dot. A null pattern stands for "*.*"
    /// in the current directory. 0 if the directory does not exist, else 1. `flags` is ignored.
    virtual int FindFile(const wchar_t* pattern = nullptr, unsigned int flags = 0);
    virtual int FindNextFile(); ///< goes to the next entry; 1 if more follow

    virtual ~CFileFind_X() = default; // behind the overridables, whose order is part of the interface

    int IsDirectory() const; ///< 1 if the current directory has a directory of the entry's name
    void Close();            ///< forgets the entries

protected:
    QStringList files;
    int index = -1;

private:
    QString entry() const;
};
