#pragma once

#include <xeafxwin.h>

/// What a data row does with a window.
using WindowSteps = void (*)(CWnd_X& window);

Q_DECLARE_METATYPE(WindowSteps)
