/// @file xeafxcoll.h
/// Collections: arrays, lists and maps.
#pragma once

#include "xeafxarray.h"
#include "xeafxlist.h"
#include "xeafxmap.h"
