// The modules on the call stack.
#pragma once

#include <QString>

namespace xe {

/// What is left of a module's file name: no folder, and nothing from its first "." on.
QString moduleName(const QString& file);

/// The name of the module that holds a return address. Right also after a module has taken the place of an unloaded
/// one.
struct Module
{
    QString name;
    bool isOwn = false; ///< one of the library's own
};
const Module& moduleAt(void* address);

} // namespace xe
