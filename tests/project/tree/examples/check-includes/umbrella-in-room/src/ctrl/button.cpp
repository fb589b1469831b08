#include "xecontrols.h"
#include <XeMFCEmu.h>
