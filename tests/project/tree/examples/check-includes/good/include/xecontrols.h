#pragma once
#include "xeafxctrl.h"
