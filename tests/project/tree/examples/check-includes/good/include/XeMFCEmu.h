#pragma once
#include "xeafx.h"
#include "xeafxwin.h"
#include "xecontrols.h"
#include "xeafxctrl.h"
#include "xedef.h"
