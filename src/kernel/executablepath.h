// Where the running program stands.
#pragma once

#include <QString>

namespace xe {

/// The path of the executable, cut to 1024 bytes. Empty when the system does not tell.
QString executablePath();

} // namespace xe
