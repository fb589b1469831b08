#pragma once

class Letter
{
    int code;
};

namespace xe {
inline bool isSmall(char ch) { return ch >= 'a'; }
} // namespace xe

inline bool isLetter(char ch)
{
    return xe::isSmall(ch);
}

int letterCount(const char* text);

using xe::isSmall;
