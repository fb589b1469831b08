// The printf engine's interpreter.
#pragma once

#include "text/widebuffer.h"

#include <cstdarg>

namespace xe {

/// Appends the formatted text. A null format appends nothing.
void formatInto(WideBuffer& out, const wchar_t* format, std::va_list arguments);

} // namespace xe
