#pragma once

namespace xe {

int letterCount(const char* text = nullptr);
extern const int letterLimit;

struct Letter
{
    int code() const { return 1; }
    int width() const;
};

} // namespace xe
