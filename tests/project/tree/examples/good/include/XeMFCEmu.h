#pragma once
#include "xebase.h"
#include "xewindow.h"
