#include "XeCustomUI.h"
