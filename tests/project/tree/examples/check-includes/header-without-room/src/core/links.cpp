#include "xestray.h"
