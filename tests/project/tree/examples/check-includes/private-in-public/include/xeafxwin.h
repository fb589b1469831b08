#pragma once
#include "core/links.h"
#include <QWidget>
