// Prints its folder, the folder above and its own file name, without any application object and in the C locale.

#include <xeprocess.h>

#include <cstdio>

int main()
{
    wchar_t fileName[2048] = {};
    const DWORD known = GetModuleFileName_X(nullptr, fileName, 2048);
    std::printf("%s\n", GetApplicationDirectory().Utf8Ptr());
    std::printf("%s\n", GetMainDirectory().Utf8Ptr());
    std::printf("%u %s\n", known, CString_X(fileName).Utf8Ptr());
}
