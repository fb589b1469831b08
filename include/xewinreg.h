/// @file xewinreg.h
/// The registry, kept in one INI file of QSettings in user scope.
///
/// A key is a text path, a value is an entry at the end of a path, and a key is there as long as values lie below it:
///
///     HKEY key = nullptr;
///     RegOpenKeyExW_X(HKEY_CURRENT_USER, L"Software\\Acme", 0, KEY_READ, &key);
///     const DWORD size = 123;
///     RegSetValueExW_X(key, L"Size", 0, REG_DWORD, &size, sizeof size);
///     RegCloseKey_X(key);
///
/// writes `Software\Acme\Size=123` under `[HKEY_CURRENT_USER]`. The file is named after the organisation and the
/// application that QCoreApplication knows when this library is loaded; docs/porting.md says how a host sets them in
/// time. It is written when QSettings does so by itself, by RegFlushKey_X, and at exit. At every moment it is there
/// whole, as it was or as it will be. What could not be written, for want of room on the disk or otherwise, stays in
/// memory without a word, and the next of these writes takes it along; a file that could not be read is not written
/// over. Another QSettings object of the host's own on this file writes it in Qt's way, which takes a file whose end
/// found no room for written.
///
/// The file keeps no types: a number comes back as the text of its digits in the next run. Keys are case-sensitive,
/// unlike on Windows. "\" and "/" both separate keys.
///
/// Results are LSTATUS numbers, never the last error: 0 is success, also for keys and values that are not there. Only a
/// key opened from a predefined one is an opened key; a null or predefined handle in its place gives
/// ERROR_INVALID_HANDLE. An output given as null is skipped, a null name or sub-key is the empty one unless the
/// function says otherwise, and arguments not spoken of are ignored. No sizes are checked: who hands in a buffer
/// promises that it is large enough. Texts are delivered as 32-bit elements without a terminator, and counts are
/// elements, unless the function says otherwise. There is no lock: callers stay on one thread.
#pragma once

#include "xedef.h"

class QString;

// --------------------------------------------------------------------------------------------------- types and numbers

/// An opened key: its whole path, such as "HKEY_CURRENT_USER/Software/Acme". Freed by RegCloseKey_X. The predefined
/// keys are numbers, sign-extended, and must not be dereferenced.
using HKEY = QString*;
using PHKEY = HKEY*;
using REGSAM = DWORD; ///< an access mask; ignored everywhere

inline const HKEY HKEY_CLASSES_ROOT = reinterpret_cast<HKEY>(0xFFFFFFFF80000000);
inline const HKEY HKEY_CURRENT_USER = reinterpret_cast<HKEY>(0xFFFFFFFF80000001);
inline const HKEY HKEY_LOCAL_MACHINE = reinterpret_cast<HKEY>(0xFFFFFFFF80000002);
inline const HKEY HKEY_USERS = reinterpret_cast<HKEY>(0xFFFFFFFF80000003);
inline const HKEY HKEY_PERFORMANCE_DATA = reinterpret_cast<HKEY>(0xFFFFFFFF80000004);
inline const HKEY HKEY_PERFORMANCE_TEXT = reinterpret_cast<HKEY>(0xFFFFFFFF80000050);
inline const HKEY HKEY_PERFORMANCE_NLSTEXT = reinterpret_cast<HKEY>(0xFFFFFFFF80000060);
inline const HKEY HKEY_CURRENT_CONFIG = reinterpret_cast<HKEY>(0xFFFFFFFF80000005);
inline const HKEY HKEY_DYN_DATA = reinterpret_cast<HKEY>(0xFFFFFFFF80000006);
inline const HKEY HKEY_CURRENT_USER_LOCAL_SETTINGS = reinterpret_cast<HKEY>(0xFFFFFFFF80000007);

inline constexpr DWORD REG_NONE = 0;
inline constexpr DWORD REG_SZ = 1;
inline constexpr DWORD REG_EXPAND_SZ = 2;
inline constexpr DWORD REG_BINARY = 3;
inline constexpr DWORD REG_DWORD = 4;
inline constexpr DWORD REG_DWORD_LITTLE_ENDIAN = REG_DWORD;
inline constexpr DWORD REG_DWORD_BIG_ENDIAN = 5;
inline constexpr DWORD REG_LINK = 6;
inline constexpr DWORD REG_MULTI_SZ = 7;
inline constexpr DWORD REG_RESOURCE_LIST = 8;
inline constexpr DWORD REG_FULL_RESOURCE_DESCRIPTOR = 9;
inline constexpr DWORD REG_RESOURCE_REQUIREMENTS_LIST = 10;
inline constexpr DWORD REG_QWORD = 11;
inline constexpr DWORD REG_QWORD_LITTLE_ENDIAN = REG_QWORD;

inline constexpr REGSAM KEY_QUERY_VALUE = 0x0001;
inline constexpr REGSAM KEY_SET_VALUE = 0x0002;
inline constexpr REGSAM KEY_CREATE_SUB_KEY = 0x0004;
inline constexpr REGSAM KEY_ENUMERATE_SUB_KEYS = 0x0008;
inline constexpr REGSAM KEY_NOTIFY = 0x0010;
inline constexpr REGSAM KEY_CREATE_LINK = 0x0020;
inline constexpr REGSAM KEY_WOW64_64KEY = 0x0100;
inline constexpr REGSAM KEY_WOW64_32KEY = 0x0200;
inline constexpr REGSAM KEY_READ = 0x20019;
inline constexpr REGSAM KEY_WRITE = 0x20006;
inline constexpr REGSAM KEY_EXECUTE = KEY_READ;
inline constexpr REGSAM KEY_ALL_ACCESS = 0xF003F;

inline constexpr DWORD REG_OPTION_NON_VOLATILE = 0;
inline constexpr DWORD REG_OPTION_VOLATILE = 1;
inline constexpr DWORD REG_CREATED_NEW_KEY = 1;     ///< never given here
inline constexpr DWORD REG_OPENED_EXISTING_KEY = 2; ///< never given here

inline constexpr DWORD RRF_RT_REG_NONE = 0x0001;
inline constexpr DWORD RRF_RT_REG_SZ = 0x0002;
inline constexpr DWORD RRF_RT_REG_EXPAND_SZ = 0x0004;
inline constexpr DWORD RRF_RT_REG_BINARY = 0x0008;
inline constexpr DWORD RRF_RT_REG_DWORD = 0x0010;
inline constexpr DWORD RRF_RT_REG_MULTI_SZ = 0x0020;
inline constexpr DWORD RRF_RT_REG_QWORD = 0x0040;
inline constexpr DWORD RRF_RT_DWORD = RRF_RT_REG_BINARY | RRF_RT_REG_DWORD;
inline constexpr DWORD RRF_RT_QWORD = RRF_RT_REG_BINARY | RRF_RT_REG_QWORD;
inline constexpr DWORD RRF_RT_ANY = 0xFFFF;

/// One value of RegQueryMultipleValues_X.
struct value_entW
{
    wchar_t* ve_valuename;
    DWORD ve_valuelen; ///< elements without the terminator, unlike the published bytes
    void* ve_valueptr; ///< no longer valid when the function has returned
    DWORD ve_type;     ///< always REG_SZ
};

using VALENTW = value_entW;
using PVALENTW = value_entW*;

// ------------------------------------------------------------------------------------------------------ open and close
// `parent` is one of the predefined keys and nothing else: a key is never opened relative to an opened one, so callers
// pass the whole path. Neither opening nor creating touches the file. A key that was never written opens, and a created
// one comes into the file with its first value. The 8-bit sub-key is Latin-1. A wide one is converted by
// WideCharToMultiByte_X and the bytes taken as Latin-1, so a letter outside ASCII is as many letters as it has bytes,
// and text that the C locale cannot hold is the empty sub-key.

/// Makes a handle in `out`, which RegCloseKey_X frees. ERROR_FILE_NOT_FOUND, with `out` left alone, when the parent is
/// not predefined: it tells nothing about the key.
XE_EXPORT LSTATUS RegOpenKeyExA_X(HKEY parent, const char* subKey, DWORD options, REGSAM access, PHKEY out);
XE_EXPORT LSTATUS RegOpenKeyExW_X(HKEY parent, const wchar_t* subKey, DWORD options, REGSAM access, PHKEY out);
XE_EXPORT LSTATUS RegOpenKeyA_X(HKEY parent, const char* subKey, PHKEY out);
XE_EXPORT LSTATUS RegOpenKeyW_X(HKEY parent, const wchar_t* subKey, PHKEY out);

/// As opening, but with ERROR_INVALID_HANDLE when the parent is not predefined. The disposition is never written.
XE_EXPORT LSTATUS RegCreateKeyExA_X(HKEY parent, const char* subKey, DWORD reserved, char* className, DWORD options,
                                    REGSAM access, const SECURITY_ATTRIBUTES* security, PHKEY out, DWORD* disposition);
XE_EXPORT LSTATUS RegCreateKeyExW_X(HKEY parent, const wchar_t* subKey, DWORD reserved, wchar_t* className,
                                    DWORD options, REGSAM access, const SECURITY_ATTRIBUTES* security, PHKEY out,
                                    DWORD* disposition);
XE_EXPORT LSTATUS RegCreateKey_X(HKEY parent, const wchar_t* subKey, PHKEY out);

XE_EXPORT LSTATUS RegOpenCurrentUser_X(REGSAM access, PHKEY out); ///< an opened "HKEY_CURRENT_USER"
/// An opened "HKEY_CLASSES_ROOT".
XE_EXPORT LSTATUS RegOpenUserClassesRoot_X(HANDLE token, DWORD options, REGSAM access, PHKEY out);

/// Frees an opened key, nothing else.
XE_EXPORT LSTATUS RegCloseKey_X(HKEY key);

/// Writes the whole store to its file, and reads what others have changed there. Any handle will do, null too.
XE_EXPORT LSTATUS RegFlushKey_X(HKEY key);

XE_EXPORT LSTATUS RegDisablePredefinedCache_X(); ///< does nothing

// --------------------------------------------------------------------------------------------- delete, rename and copy

/// Removes the entry `subKey` and all below it; with an empty sub-key, the opened key with all below it.
/// RegDeleteKey_X gives ERROR_PATH_NOT_FOUND for a null sub-key. Deletes whole trees, unlike the published function.
XE_EXPORT LSTATUS RegDeleteKey_X(HKEY key, const wchar_t* subKey);
XE_EXPORT LSTATUS RegDeleteTree_X(HKEY key, const wchar_t* subKey);

/// The same: the value's name is not looked at, and the whole sub-key goes, unlike in the published function.
XE_EXPORT LSTATUS RegDeleteKeyValue_X(HKEY key, const wchar_t* subKey, const wchar_t* valueName);

/// Moves one entry, as text. Unlike by the published function, what lies below the old name is lost; where there were
/// only entries below it, the new name gets the empty text.
XE_EXPORT LSTATUS RegRenameKey_X(HKEY key, const wchar_t* oldName, const wchar_t* newName);

/// With a sub-key, copies that one entry of `source` to the same name below `destination`, or nothing when it is not
/// there. With null, copies the entries directly below `source`. Types are kept. No copy reaches deeper, in spite of
/// the name.
XE_EXPORT LSTATUS RegCopyTree_X(HKEY source, const wchar_t* subKey, HKEY destination);

// --------------------------------------------------------------------------------------------------------- enumeration
// What is counted is every entry at any depth below the key, in the order of UTF-16 units; sub-keys and values are not
// told apart. A loop from index 0 upwards is cheap. Index 0 looks at the store afresh.

/// Delivers the path, relative to the key and with "/", of the entry at an index. ERROR_PATH_NOT_FOUND past the end,
/// not ERROR_NO_MORE_ITEMS. `length` is output alone.
XE_EXPORT LSTATUS RegEnumKeyEx_X(HKEY key, DWORD index, wchar_t* name, DWORD* length, DWORD* reserved,
                                 wchar_t* className, DWORD* classLength, FILETIME* lastWrite);
XE_EXPORT LSTATUS RegEnumKey_X(HKEY key, DWORD index, wchar_t* name, DWORD* length); ///< the length is a pointer here

/// Delivers the *text* of the entry at an index of the same list into `text`, where the published function puts the
/// name. Type and data are not written. ERROR_PATH_NOT_FOUND past the end.
XE_EXPORT LSTATUS RegEnumValue_X(HKEY key, DWORD index, wchar_t* text, DWORD* length, DWORD* reserved, DWORD* type,
                                 void* data, DWORD* size);

/// Writes the number of entries, the length of the longest relative path and that of the longest text. All other
/// outputs stay as they are, the counts of sub-keys too.
XE_EXPORT LSTATUS RegQueryInfoKey_X(HKEY key, wchar_t* className, DWORD* classLength, DWORD* reserved, DWORD* subKeys,
                                    DWORD* maxSubKeyLength, DWORD* maxClassLength, DWORD* values,
                                    DWORD* maxValueNameLength, DWORD* maxValueLength, DWORD* securityLength,
                                    FILETIME* lastWrite);

// ------------------------------------------------------------------------------------------------------ writing values
// `data` is a 32-bit number for REG_DWORD, a 64-bit one for REG_QWORD, a terminated text for REG_SZ and REG_EXPAND_SZ;
// the size is ignored. A null text is the empty one. A null address of a number, and any other type, writes nothing and
// gives 0: binary values and lists of texts are lost. An empty name writes the entry at the key's own path, which
// reading an empty name does not find.

/// Name and text are Latin-1.
XE_EXPORT LSTATUS RegSetValueExA_X(HKEY key, const char* name, DWORD reserved, DWORD type, const void* data,
                                   DWORD size);

/// Name and text are wide and pass as they are. A name outside ASCII is another one than the queries below look for.
XE_EXPORT LSTATUS RegSetValueExW_X(HKEY key, const wchar_t* name, DWORD reserved, DWORD type, const void* data,
                                   DWORD size);

/// RegSetValueExW_X with the sub-key as the value's name. ERROR_BAD_FORMAT unless the type is REG_SZ or REG_EXPAND_SZ.
XE_EXPORT LSTATUS RegSetValue_X(HKEY key, const wchar_t* subKey, DWORD type, const void* data, DWORD size);

/// RegSetValueExW_X directly below the key: the sub-key is dropped.
XE_EXPORT LSTATUS RegSetKeyValue_X(HKEY key, const wchar_t* subKey, const wchar_t* name, DWORD type, const void* data,
                                   DWORD size);

/// Empties a value: the entry stays, as an empty REG_SZ. RegDeleteKey_X is what removes an entry.
XE_EXPORT LSTATUS RegDeleteValue_X(HKEY key, const wchar_t* name);

// ------------------------------------------------------------------------------------------------------ reading values
// An empty name reads the entry "Default" below the key. 8-bit texts are in the encoding of the C locale, terminated,
// and their sizes are bytes with the terminator; text that the encoding cannot hold comes as the empty one.

/// Reads a REG_DWORD, REG_QWORD or REG_SZ; REG_EXPAND_SZ comes as REG_SZ. The incoming size is not looked at. A value
/// that is not there, or of another kind, gives 0 and leaves every output as it was: callers set them beforehand.
XE_EXPORT LSTATUS RegQueryValueExA_X(HKEY key, const char* name, DWORD* reserved, DWORD* type, void* data, DWORD* size);

/// The same with the name converted as that of a key. Text arrives in *8 bits* here too.
XE_EXPORT LSTATUS RegQueryValueExW_X(HKEY key, const wchar_t* name, DWORD* reserved, DWORD* type, void* data,
                                     DWORD* size);

/// Reads the bytes that RegQueryValueExA_X gives, and their number. Unlike the published function it takes a value's
/// name, and numbers too. Nothing is written when the value is not there.
XE_EXPORT LSTATUS RegQueryValueA_X(HKEY key, const char* name, char* data, LONG* size);

/// The wide form of those bytes up to their first 0, but only the first (length * 2 + 2) *bytes* of it, and that number
/// as the size. With 32-bit elements this is the first half of the text, without a terminator: RegQueryValueExW_X gives
/// the whole of it.
XE_EXPORT LSTATUS RegQueryValueW_X(HKEY key, const wchar_t* name, wchar_t* data, LONG* size);

/// RegQueryValueExW_X with the sub-key as the value's name; name and flags are ignored.
XE_EXPORT LSTATUS RegGetValue_X(HKEY key, const wchar_t* subKey, const wchar_t* name, DWORD flags, DWORD* type,
                                void* data, DWORD* size);

/// Reads several values as texts, one after another into `buffer` with one element between them that is left alone, and
/// their lengths and types into the list. Their names pass as they are. `total` gets the sum of the lengths, each with
/// 1 added; what it held is not looked at. ERROR_MORE_DATA for a null buffer, with the total stored. An empty name
/// reads the entry at the key's own path.
XE_EXPORT LSTATUS RegQueryMultipleValues_X(HKEY key, value_entW* list, DWORD count, wchar_t* buffer, DWORD* total);
