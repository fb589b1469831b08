#include "XeCustomUI.h"
#include "core/links.h"
#include "xewindow.h"
