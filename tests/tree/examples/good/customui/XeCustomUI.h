#pragma once
#include <QLabel>
