/// @file xeafxcmn.h
/// The common controls: list, tree, header, tool tip, slider, scroll bar, progress bar, spin box, tabs.
#pragma once

#include "xeheaderctrl.h"
#include "xelistctrl.h"
#include "xerangectrl.h"
#include "xetabctrl.h"
#include "xetooltipctrl.h"
#include "xetreectrl.h"
