#include "text/xeletters.h"
