#include "text/letters.h"

int xe::letterCount(const char*) { return 1; }
