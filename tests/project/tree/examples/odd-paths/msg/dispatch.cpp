#include "../core/links.h"
#include "include/xewindow.h"
