#include "core/links.h"
#include "xedef.h"
#include <vector>
