#include "../core/links.h"
#include "include/xeafx.h"
#include "src/core/links.h"
#include "window.h"
