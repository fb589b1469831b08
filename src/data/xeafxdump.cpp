#include "xeafxdump.h"

#include "xeafx.h"
#include "xeafxfile.h"
#include "xeafxstr.h"
#include "xeexcept.h"
#include "xeformat.h"

#include <QRegularExpression>

#include <algorithm>
#include <cstdlib>
#include <cwchar>

namespace {

template <class Value>
CDumpContext_X& dumpFormatted(CDumpContext_X& context, const wchar_t* format, Value value)
{
    wchar_t text[32];
    swprintf_s(text, format, value);
    context.OutputString(text);
    return context;
}

// Whether a format takes no argument but an address, or none.
bool takesAnAddress(const wchar_t* format)
{
    static const QRegularExpression safe(
        QStringLiteral(R"(\A(?:[^%]|%%)*+)"
                       R"((?:%[-+ #0]*[0-9]{0,2}(?:\.[0-9]{0,2})?(?:hh?|ll?|[jtz])?[pdiuoxX](?:[^%]|%%)*+)?\z)"));
    return safe.match(QString::fromWCharArray(format)).hasMatch();
}

std::wstring linePrefix(const wchar_t* format, const void* address)
{
    constexpr std::size_t widest = 100; // what the conversion writes
    std::wstring text(std::wcslen(format) + widest, L'\0');
    text.resize(static_cast<std::size_t>(std::max(0, std::swprintf(text.data(), text.size(), format, address))));
    return text;
}

} // namespace

void CDumpContext_X::Flush()
{
    if (file)
        file->Flush();
}

void CDumpContext_X::OutputString(const wchar_t* text)
{
    if (!file)
        return;
    if (!text)
        AfxThrowUserException_X();
    file->Write(text, static_cast<unsigned>(std::wcslen(text) * sizeof *text));
}

CDumpContext_X& CDumpContext_X::operator<<(unsigned char number) { return dumpFormatted(*this, L"%d", int(number)); }

CDumpContext_X& CDumpContext_X::operator<<(int number) { return dumpFormatted(*this, L"%d", number); }

CDumpContext_X& CDumpContext_X::operator<<(unsigned short number) { return *this << unsigned(number); }

CDumpContext_X& CDumpContext_X::operator<<(unsigned number) { return dumpFormatted(*this, L"%u", number); }

CDumpContext_X& CDumpContext_X::operator<<(long long number) { return dumpFormatted(*this, L"%lld", number); }

CDumpContext_X& CDumpContext_X::operator<<(unsigned long long number) { return dumpFormatted(*this, L"%llu", number); }

CDumpContext_X& CDumpContext_X::operator<<(float number)
{
    char text[512];
    sprintf_s(text, "%.6f", static_cast<double>(number));
    return *this << text;
}

CDumpContext_X& CDumpContext_X::operator<<(double number)
{
    char text[512];
    sprintf_s(text, "%.15f", number);
    return *this << text;
}

CDumpContext_X& CDumpContext_X::operator<<(const void* address) { return dumpFormatted(*this, L"$%p", address); }

CDumpContext_X& CDumpContext_X::operator<<(const wchar_t* text)
{
    OutputString(text ? text : L"NULL");
    return *this;
}

CDumpContext_X& CDumpContext_X::operator<<(const CString_X& text) { return *this << text.GetString(); }

CDumpContext_X& CDumpContext_X::operator<<(const char* text)
{
    constexpr std::size_t capacity = 512;
    wchar_t wide[capacity + 1] = {};
    std::mbstowcs(wide, text ? text : "(NULL)", capacity);
    return *this << wide;
}

CDumpContext_X& CDumpContext_X::operator<<(const CObject_X* object)
{
    return *this << (object ? L"Unable to dump object in static release builds" : L"NULL");
}

CDumpContext_X& CDumpContext_X::DumpAsHex(unsigned char number)
{
    return dumpFormatted(*this, L"0x%02x", unsigned(number));
}

CDumpContext_X& CDumpContext_X::DumpAsHex(unsigned short number)
{
    return dumpFormatted(*this, L"0x%04x", unsigned(number));
}

CDumpContext_X& CDumpContext_X::DumpAsHex(int number) { return DumpAsHex(static_cast<unsigned>(number)); }

CDumpContext_X& CDumpContext_X::DumpAsHex(unsigned number) { return dumpFormatted(*this, L"0x%08x", number); }

CDumpContext_X& CDumpContext_X::DumpAsHex(long long number)
{
    return DumpAsHex(static_cast<unsigned long long>(number));
}

CDumpContext_X& CDumpContext_X::DumpAsHex(unsigned long long number)
{
    return dumpFormatted(*this, L"0x%016llx", number);
}

void CDumpContext_X::HexDump(const wchar_t* prefix, unsigned char* bytes, int count, int width)
{
    if (!prefix || !bytes || count < 1 || width < 1)
        AfxThrowInvalidArgException_X();
    const bool isFormat = takesAnAddress(prefix);
    for (int i = 0; i < count; ++i) {
        if (i % width == 0)
            *this << (isFormat ? linePrefix(prefix, bytes + i).c_str() : prefix);
        dumpFormatted(*this, L" %02X", unsigned(bytes[i]));
        if ((i + 1) % width == 0 || i + 1 == count)
            *this << L"\n";
    }
}

// ------------------------------------------------------------------------------------------------ an object's own dump

void CObject_X::Dump(CDumpContext_X& context) const
{
    context << "a " << GetClassName() << " at " << static_cast<const void*>(this) << "\n";
}
