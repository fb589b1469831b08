// How many GDI objects hold a value: several may, by a handle that is attached twice.
#pragma once

namespace xe {

/// Whether an object holds the value.
bool isHeld(const void* value);

void addHolder(const void* value);

/// Counts one holder less. True if nobody holds the value any more.
bool removeHolder(const void* value);

} // namespace xe
