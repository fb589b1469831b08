#include "xeafxdump.h"

CDumpContext_X& CDumpContext_X::operator<<(const char*) { return *this; }

CDumpContext_X& CDumpContext_X::operator<<(const void*) { return *this; }
