/// @file xeresource.h
/// Resource identifiers: which module asks, and what its tables call a number.
///
/// A module (the host or a plug-in) carries the table `:/<module>/<module>IDs` in its Qt resource tree, an INI text in
/// UTF-8 of lines `number=NAME`. A control's Qt object name is such a symbolic name. The module is the one that called:
/// the first on the call stack that is not this library. GUI thread only.
#pragma once

#include "xedef.h"

#include <QMap>
#include <QString>

/// The base name, up to its first ".", of the innermost module on the call stack (16 frames at most) that is not one of
/// the library's own; the outermost name looked at if there is none.
XE_EXPORT QString GetPlxResourceName();

/// True for the names of the library's own modules, which the stack walk skips.
XE_EXPORT bool isCurrentLibrary(const QString& module);

/// The identifier table of the calling module. It belongs to a cache: copy it or use it at once. An empty table is
/// looked for anew each time.
XE_EXPORT QMap<unsigned int, QString>& GetResourceIDMap();

/// The symbolic name of an identifier in the calling module's table, or the empty string.
XE_EXPORT QString GetObjectNameById(int id);
XE_EXPORT QString ToStringId(unsigned int id);

/// The lowest identifier with this symbolic name, 0 if there is none.
XE_EXPORT int ToCtrlId(const QString& name);
