#pragma once
#include "xeafxwin.h"
