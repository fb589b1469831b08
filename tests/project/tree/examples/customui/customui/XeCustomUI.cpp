#include "XeCustomUI.h"
#include "xewindow.h"
#include "core/links.h"
