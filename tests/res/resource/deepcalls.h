#pragma once

#include <QString>

/// GetPlxResourceName at the end of a chain of calls of this library, whose name is one of those that the stack walk
/// skips. The chain has `frames` calls.
QString moduleBehind(int frames);
