// Formats every kind of argument that goes through, and with ARGUMENT defined that one more. Only
// check-format-arguments compiles this.

#include <xeafxstr.h>

#include <QByteArray>
#include <QVariant>

#include <string_view>

enum class Colour : unsigned char { Red };

struct Plain
{
    int number;
};

void format(CString_X& text, const CString_X& part, const std::wstring& wide, const std::string& narrow)
{
    const wchar_t array[] = L"array";
    text.Format(L"%s %s %s %s %S", part, wide, array, part.GetString(), narrow.c_str());
    text.Format(L"%s %d %d %c %d %lld", part, short(1), true, 'c', 5, 5LL);
    text.Format(L"%s %f %f %p %d", wide, 1.5F, 1.5, &text, Colour::Red);
    text.Format(part);
    text.Format(L"no argument");
    text.AppendFormat(L"%s", part);
#ifdef ARGUMENT
    text.Format(L"%s", ARGUMENT);
#endif
}
