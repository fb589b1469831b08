#pragma once
#include "ctrl/button.h"
