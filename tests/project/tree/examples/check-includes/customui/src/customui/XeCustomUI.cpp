#include "XeCustomUI.h"
#include "core/links.h"
#include "xeafxwin.h"
