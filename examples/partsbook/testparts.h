#pragma once

#include "part.h"

#include <vector>

/// So many parts for a try: each has another number, and they are the same each time.
std::vector<Part> testParts(int count);
