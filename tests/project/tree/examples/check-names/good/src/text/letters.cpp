#include "text/letters.h"

int xe::letterCount(const char* text) { return text ? 1 : 0; }
