#include "core/links.h"
#include <vector>
