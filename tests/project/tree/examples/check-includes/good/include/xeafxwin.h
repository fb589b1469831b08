#pragma once
#include "xeafx.h"
#include <XeCustomUI.h>
