#pragma once

#include <QWidget>

/// How a data row says of which class its widget is.
using MakeWidget = QWidget* (*)();

Q_DECLARE_METATYPE(MakeWidget)
