/// @file xefileapi.h
/// File handles, paths, volumes and file times.
///
/// A file handle is the address of a CFile_X, opened by CreateFile_X or by the host; it is used by one thread at a
/// time. The handles of events, mutexes and semaphores are another kind, closed by XeCloseHandle. Paths are wide texts;
/// null stands for an empty one, which names no file. No function sets an error number of its own: the last error,
/// errno, is what the calls below left.
///
/// Where a result is "written without a terminator", whoever reads the buffer clears it first or goes by the result.
#pragma once

#include "xedef.h"

// -------------------------------------------------------------------------------------------------------- file handles
// A handle that is null, INVALID_HANDLE_VALUE or of a CFile_X that is not open gives the result of failure: 0 unless
// the function says otherwise.

inline const HANDLE INVALID_HANDLE_VALUE = reinterpret_cast<HANDLE>(-1);
inline constexpr DWORD INVALID_FILE_SIZE = 0xFFFFFFFF;
inline constexpr DWORD INVALID_SET_FILE_POINTER = 0xFFFFFFFF;

inline constexpr DWORD GENERIC_READ = 0x80000000;
inline constexpr DWORD GENERIC_WRITE = 0x40000000;

// Accepted and ignored.
inline constexpr DWORD FILE_SHARE_READ = 1;
inline constexpr DWORD FILE_SHARE_WRITE = 2;
inline constexpr DWORD FILE_SHARE_DELETE = 4;
inline constexpr DWORD CREATE_NEW = 1;
inline constexpr DWORD CREATE_ALWAYS = 2;
inline constexpr DWORD OPEN_EXISTING = 3;
inline constexpr DWORD OPEN_ALWAYS = 4;
inline constexpr DWORD TRUNCATE_EXISTING = 5;
inline constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x80;

inline constexpr DWORD FILE_BEGIN = 0;
inline constexpr DWORD FILE_CURRENT = 1;
inline constexpr DWORD FILE_END = 2;

union LARGE_INTEGER {
    struct
    {
        DWORD LowPart;
        LONG HighPart;
    };
    LONGLONG QuadPart;
};
using PLARGE_INTEGER = LARGE_INTEGER*;

struct _OVERLAPPED; ///< accepted and ignored
using LPOVERLAPPED = _OVERLAPPED*;

/// Opens a file as CFile_X::Open does with modeWrite for GENERIC_WRITE alone, modeRead for GENERIC_READ alone and
/// modeReadWrite for both or neither. So, unlike the published function, writing alone empties a file, and the
/// disposition, which is ignored, decides nothing. INVALID_HANDLE_VALUE on failure, with nothing left allocated.
XE_EXPORT HANDLE CreateFile_X(const wchar_t* path, DWORD access, DWORD share = 0,
                              LPSECURITY_ATTRIBUTES security = nullptr, DWORD disposition = 0, DWORD flags = 0,
                              HANDLE templateFile = nullptr);

/// Closes the file and deletes its CFile_X. 1.
XE_EXPORT BOOL CloseHandle_X(HANDLE file);

/// Reads up to `count` bytes and writes them to `buffer` as *wide text*, without a terminator: the bytes up to the
/// first 0 as MultiByteToWideChar_X converts them, cut to `count` - 1 elements. `*read` gets the number of elements.
/// What the C locale cannot convert is no text. 1, also at the end of the file.
XE_EXPORT BOOL ReadFile_X(HANDLE file, void* buffer, DWORD count, DWORD* read, LPOVERLAPPED overlapped = nullptr);

/// Writes the *wide text* at `text` up to its terminator, whatever `count` says, as WideCharToMultiByte_X converts it.
/// `*written` gets the number of bytes. 1, also when the disk had no room.
XE_EXPORT BOOL WriteFile_X(HANDLE file, const void* text, DWORD count, DWORD* written,
                           LPOVERLAPPED overlapped = nullptr);

XE_EXPORT BOOL FlushFileBuffers_X(HANDLE file);

/// The lower 32 bits of the size, INVALID_FILE_SIZE on failure; the upper ones go to `*high`.
XE_EXPORT DWORD GetFileSize_X(HANDLE file, DWORD* high);
XE_EXPORT BOOL GetFileSizeEx_X(HANDLE file, PLARGE_INTEGER size);

/// Moves to a distance from the start, the position or the end; another method, and a place before the start, move
/// nothing. The lower 32 bits of the position afterwards, INVALID_SET_FILE_POINTER on failure. `high` is neither read
/// nor written: the distance has 32 bits.
XE_EXPORT DWORD SetFilePointer_X(HANDLE file, LONG distance, LONG* high, DWORD method);

/// The same with 64 bits. The position is stored in `*position` only if what is there is not 0: callers preset it. 1.
XE_EXPORT BOOL SetFilePointerEx_X(HANDLE file, LARGE_INTEGER distance, PLARGE_INTEGER position, DWORD method);

/// Moves to the end of the file. It does not truncate, unlike the published function.
XE_EXPORT BOOL SetEndOfFile_X(HANDLE file);
/// Moves to this position.
XE_EXPORT BOOL SetFileValidData_X(HANDLE file, LONGLONG length);

/// Times in milliseconds since 1970; a time that the file system does not keep is 0. Null outputs are left out. 1.
XE_EXPORT BOOL GetFileTime_X(HANDLE file, FILETIME* creation, FILETIME* access, FILETIME* write);
/// Sets the three in this order and stops at the first that cannot be set, the result being 0: file systems that keep
/// no settable birth time stop at once. 0 if one is null.
XE_EXPORT BOOL SetFileTime_X(HANDLE file, const FILETIME* creation, const FILETIME* access, const FILETIME* write);

// --------------------------------------------------------------------------------------------------------------- paths

/// The file's QFile::Permissions, 0 if it does not exist: not the published attributes.
XE_EXPORT DWORD GetFileAttributes_X(const wchar_t* path);
XE_EXPORT BOOL SetFileAttributes_X(const wchar_t* path, DWORD permissions);

XE_EXPORT BOOL DeleteFile(const wchar_t* path);
/// Replaces an existing file unless `failIfExists`; until the copy is whole and on the disk, the old file stays. A copy
/// onto itself fails and changes nothing.
XE_EXPORT BOOL CopyFile(const wchar_t* from, const wchar_t* to, BOOL failIfExists);
/// Renames a file, never onto an existing one, or a directory by absolute paths within its parent. To another disk a
/// file is copied, and goes when the copy is whole and on that disk.
XE_EXPORT BOOL MoveFile_X(const wchar_t* from, const wchar_t* to);
/// Makes `link` a *symbolic* link to `target`.
XE_EXPORT BOOL CreateHardLink_X(const wchar_t* link, const wchar_t* target, LPSECURITY_ATTRIBUTES security = nullptr);

/// One level, with the mode 0775 less the process's mask. The path goes to the system as UTF-8; 0 for one that has no
/// such form.
XE_EXPORT BOOL CreateDirectory(const wchar_t* path, LPSECURITY_ATTRIBUTES security = nullptr);
XE_EXPORT BOOL RemoveDirectory_X(const wchar_t* path);        ///< an empty one
XE_EXPORT BOOL DeleteVolumeMountPoint_X(const wchar_t* path); ///< RemoveDirectory_X

/// The absolute path, cut to `capacity` elements and written without a terminator; the result is its length after the
/// cut. If `filePart` is given, the bare name is written, also without a terminator, into the buffer that `*filePart`
/// *points at already*, unlike the published function: the caller promises its size.
XE_EXPORT DWORD GetFullPathName_X(const wchar_t* path, DWORD capacity, wchar_t* buffer, wchar_t** filePart);

/// The system's folder for temporary files with a "/" behind it. At most `capacity` elements are copied; the result is
/// the number copied, with the terminator counted if that was among them.
XE_EXPORT DWORD GetTempPath(DWORD capacity, wchar_t* buffer);

/// Writes the name of a file that does not exist, without a terminator: path and prefix with nothing between them, a
/// number, ".tmp" and a random suffix. The file was made and removed again, unlike the published function's. 1;
/// ERROR_BUFFER_OVERFLOW for a name of more than 2034 elements; 0 if there can be no such file. Seeds `rand()`.
XE_EXPORT UINT GetTempFileName_X(const wchar_t* path, const wchar_t* prefix, UINT unique, wchar_t* buffer);

/// Runs the program "tar" on the path, for up to 30 seconds, and counts the bytes of its standard output. That is 0,
/// since the archive goes to a file called " -" in the current folder, which stays there: unlike from the published
/// function no size is to be had. The upper 32 bits go to `*high`. A path that begins with "-" is an option to that
/// program.
XE_EXPORT DWORD GetCompressedFileSize_X(const wchar_t* path, DWORD* high);

XE_EXPORT BOOL AreFileApisANSI_X(); ///< 0

/// 0 on success, -1 on failure. Never onto an existing file; to another disk as MoveFile_X.
XE_EXPORT int _wrename(const wchar_t* from, const wchar_t* to);

// ------------------------------------------------------------------------------------------------------------- volumes
// Texts are written without a terminator.

/// The mount point of the path's volume, cut to `capacity`. 1.
XE_EXPORT BOOL GetVolumePathName_X(const wchar_t* path, wchar_t* buffer, DWORD capacity);

/// The volume's name and file system. The capacities are ignored: the caller promises enough. The numbers become 0. 1.
XE_EXPORT BOOL GetVolumeInformation_X(const wchar_t* root, wchar_t* name, DWORD nameCapacity, DWORD* serial,
                                      DWORD* maxComponent, DWORD* flags, wchar_t* fileSystem, DWORD fileSystemCapacity);

XE_EXPORT DWORD GetLogicalDrives_X(); ///< 0

/// All mount points, one behind the other with nothing between them, cut to `capacity`. The result is the length before
/// the cut.
XE_EXPORT DWORD GetLogicalDriveStrings_X(DWORD capacity, wchar_t* buffer);

// ----------------------------------------------------------------------------------------------------- file operations

inline constexpr UINT FO_MOVE = 1;
inline constexpr UINT FO_COPY = 2;
inline constexpr UINT FO_DELETE = 3;
inline constexpr UINT FO_RENAME = 4;

struct _SHFILEOPSTRUCT_X
{
    HWND hwnd;
    UINT wFunc;
    const wchar_t* pFrom; ///< one path, not a list
    const wchar_t* pTo;
    WORD fFlags;
    BOOL fAnyOperationsAborted;
    void* hNameMappings;
    const wchar_t* lpszProgressTitle;
};

/// Moves or copies a file into a directory, over a file of its name, deletes it or renames it. 0 on success, and with
/// nothing done for a missing source, a missing target or another operation; -1 on failure, and for null. Directories
/// fail. A file of the target's name stays until the copy is whole and on the disk. A file is not copied or moved onto
/// itself: -1, with nothing changed. No dialog is shown.
/// `fAnyOperationsAborted` becomes 0.
XE_EXPORT int SHFileOperation_X(_SHFILEOPSTRUCT_X* operation);

// ------------------------------------------------------------------------------------------ functions of the C runtime

/// Removes a file. Returns 1 on success and 0 on failure, unlike the published function (0 and -1).
XE_EXPORT int _wunlink(const wchar_t* path);

/// Gives a file exactly one permission of its owner: mode 128 to write, 256 to read, 64 to execute. Returns 0, or -1 on
/// failure and, with nothing done, for any other mode.
XE_EXPORT int _wchmod(const wchar_t* path, int mode);

/// Removes an empty folder, and after it each parent folder that this leaves empty. Returns 0, or -1 when the folder is
/// missing, not empty (hidden entries count), the root or the current folder.
XE_EXPORT int _wrmdir(const wchar_t* path);

/// Makes one folder; its parent must be there. A bare name is made in the current folder, slashes at the end are
/// dropped. Returns 0, or -1 on failure and for a name that holds one of `\ / : * ? " < > |`.
XE_EXPORT int _wmkdir(const wchar_t* path);

// ---------------------------------------------------------------------------------------------------------- file times
// A FILETIME counts milliseconds since 1970-01-01 UTC, unlike the published one.

XE_EXPORT LONG CompareFileTime_X(const FILETIME* a, const FILETIME* b); ///< -1, 0, 1; null counts as 0
XE_EXPORT void GetSystemTimeAsFileTime_X(FILETIME* time);

/// Adds the offset of the local time zone at that moment. 1; 0 for null.
XE_EXPORT BOOL FileTimeToLocalFileTime_X(const FILETIME* time, FILETIME* local);
/// Subtracts it again. 1; 0 for null.
XE_EXPORT BOOL LocalFileTimeToFileTime_X(const FILETIME* local, FILETIME* time);
