#pragma once

#include <xeatltypes.h>

/// Values whose members tell their places.
constexpr tagPOINT p34 = {3, 4};
constexpr tagSIZE s56 = {5, 6};
constexpr tagRECT r1234 = {1, 2, 3, 4};
