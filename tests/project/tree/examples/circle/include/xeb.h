#pragma once
#include <vector>
#include "xec.h"
