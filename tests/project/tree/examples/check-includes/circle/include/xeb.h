#pragma once
#include "xec.h"
#include <vector>
