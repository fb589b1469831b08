#pragma once
#include "xedef.h"
#include <QObject>
