/// @file xeafxcmn.h
/// The common controls: slider, scroll bar, progress bar, spin box, tabs.
#pragma once

#include "xerangectrl.h"
#include "xetabctrl.h"
