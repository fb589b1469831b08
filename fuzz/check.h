// A contradiction ends the program, so that the fuzzer keeps the input.
#pragma once

#include <cstdio>
#include <cstdlib>

inline void check(bool holds, const char* what)
{
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", what);
        std::abort();
    }
}
