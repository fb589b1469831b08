#pragma once

#include "widevalue.h"

#include <clocale>
#include <memory>
#include <string>

Q_DECLARE_METATYPE(wchar_t)

/// The C locale that folds and converts every character.
inline bool setUtf8Locale() { return std::setlocale(LC_CTYPE, "C.UTF-8") != nullptr; }

constexpr std::size_t million = 1000000;

/// A block that holds the elements and nothing else, so that a sanitizer sees the first step beyond them.
template <class Char>
std::unique_ptr<Char[]> exactBlock(const std::basic_string<Char>& elements)
{
    auto block = std::make_unique<Char[]>(elements.size());
    elements.copy(block.get(), elements.size());
    return block;
}

/// The distance of a found place from the start of its text; -1 for null.
template <class Char>
long long placeOf(const Char* found, const Char* text)
{
    return found ? found - text : -1;
}
