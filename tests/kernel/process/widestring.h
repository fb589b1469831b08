#pragma once

#include <QMetaType>

#include <string>

Q_DECLARE_METATYPE(std::wstring)
