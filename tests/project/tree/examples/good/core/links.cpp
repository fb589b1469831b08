#include "core/links.h"
#include "xewindow.h"
