#include "xetext.h"

#include "text/letters.h"

// A nested class of a public one, a class that is nobody else's, and public functions.
class CText_X::Cache
{
    int used;
};

namespace {

struct Row
{
    int key;
    const char* text; // struct NotHere { }
};

} // namespace

int textLength(const char* text) { return xe::letterCount(text); }
