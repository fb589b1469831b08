#pragma once

#include "widevalue.h"

#include <xeurl.h>

#include <memory>
#include <string>

using namespace std::string_literals;

/// An HRESULT in the form in which it is known.
inline QString shown(HRESULT result)
{
    return QStringLiteral("0x%1").arg(static_cast<quint32>(result), 8, 16, QLatin1Char('0'));
}

constexpr std::size_t million = 1000000;
