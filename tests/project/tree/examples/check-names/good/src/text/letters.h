// Declares what letters.cpp defines.
#pragma once

class QString;

namespace xe {

struct Letter
{
    int code;
    int width() const;
};

int letterCount(const char* text);
extern int letterLimit;

} // namespace xe
