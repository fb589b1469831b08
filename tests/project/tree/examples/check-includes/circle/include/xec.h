#pragma once
#include <xeb.h>
