#pragma once

#include <QtGlobal>

/// A handle that no object stands for.
inline void* handleOf(int number) { return reinterpret_cast<void*>(static_cast<quintptr>(number)); }
