#include "xeafx.h"
#include "xeafxwin.h"
