#pragma once
#include "xebase.h"
#include <QWidget>
#include <XeCustomUI.h>
