#pragma once
#include "xebase.h"
#include <XeCustomUI.h>
#include <QWidget>
