/// @file xeresource.h
/// Resource identifiers: which module asks, and what its tables call a number.
///
/// A module (the host or a plug-in) carries two tables in its Qt resource tree, INI texts in UTF-8. The identifier
/// table `:/<module>/<module>IDs` has lines `number=NAME`, the string table `:/<module>/<module>ST` lines `NAME=text`.
/// The CMake function `xe_add_resource_tables` makes both from a `resource.h` and a list of texts. A control's Qt
/// object name is such a symbolic name.
///
/// The module is the one that called: the first on the call stack that is not this library. A module handle that a
/// caller passes is never looked at. What is not found gives an empty text or 0; there are no errors. GUI thread only.
#pragma once

#include "xedef.h"

#include <QMap>
#include <QPixmap>
#include <QString>

/// The file name, up to its first ".", of the innermost module on the call stack that is not one of the library's own.
/// 16 frames are looked at; the name of the outermost of them if there is none.
XE_EXPORT QString GetPlxResourceName();

/// True for the names of the library's own modules, which the stack walk skips.
XE_EXPORT bool isCurrentLibrary(const QString& module);

/// The identifier table of the calling module; a key that is no decimal number, and one in a section, counts as 0. It
/// belongs to a cache: copy it or use it at once. A table that is empty is looked for anew each time, any other is
/// never read again.
XE_EXPORT QMap<unsigned int, QString>& GetResourceIDMap();

/// The string table of the calling module, likewise.
XE_EXPORT QMap<QString, QString>& GetStringResourceTable();

/// The symbolic name of an identifier in the calling module's table, or the empty string.
XE_EXPORT QString GetObjectNameById(int id);
XE_EXPORT QString ToStringId(unsigned int id);

/// The lowest identifier with this symbolic name, case-sensitive; 0 if there is none.
XE_EXPORT int ToCtrlId(const QString& name);

/// The text of an identifier by way of its symbolic name; empty when either is missing.
XE_EXPORT QString GetResourceStringById(unsigned int id);

/// Writes the text of an identifier as 32-bit elements, cut to the capacity, and *without a terminator*, unlike the
/// published function: callers clear their buffer first. Returns the number of elements written; 0 with the buffer left
/// alone when there is no such text, no buffer or no capacity. `module` is ignored.
XE_EXPORT int LoadString_X(void* module, unsigned int id, wchar_t* buffer, int capacity);

/// The image of a file, light grey (192, 192, 192) transparent. It takes a path, unlike the published function. A file
/// that cannot be read gives a null pixmap.
XE_EXPORT QPixmap LoadBitmap_X(const wchar_t* path);

/// There is no resource handle: null, whatever was set.
XE_EXPORT void* AfxGetResourceHandle_X();
XE_EXPORT void AfxSetResourceHandle_X(void* module);
