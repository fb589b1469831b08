#include "customui/XeCustomUI.h"
