#pragma once
#include <QWidget>
#include "core/links.h"
