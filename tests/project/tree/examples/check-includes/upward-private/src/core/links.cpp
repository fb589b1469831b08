#include "core/links.h"
#include "win/window.h"
