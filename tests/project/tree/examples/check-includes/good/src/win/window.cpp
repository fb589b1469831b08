#include "xeafxwin.h"
#include "core/links.h"
