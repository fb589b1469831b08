#pragma once
#include "xeafx.h"
