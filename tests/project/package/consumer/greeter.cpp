#include "resource.h"

#include <XeMFCEmu.h>

#include <cstdio>

int main()
{
    CString_X greeting;
    if (!greeting.LoadString(IDS_GREETING))
        return 1;
    std::puts(greeting);
}
