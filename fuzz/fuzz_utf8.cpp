// Narrow text to CString_X and back, judged by Qt's decoder.

#include <XeMFCEmu.h>

#include "check.h"

#include <QTextCodec>

#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>

namespace {

bool isValid(const std::string& bytes)
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    QTextCodec::codecForName("UTF-8")->toUnicode(bytes.data(), static_cast<int>(bytes.size()), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

void decode(const std::string& bytes)
{
    CString_X text = L"before";
    try {
        text = bytes.c_str();
    } catch (const std::range_error&) {
        check(!isValid(bytes), "valid UTF-8 is accepted");
        check(text == L"before", "a failed assignment leaves the text");
        return;
    }
    check(isValid(bytes), "invalid UTF-8 is refused");
    check(text.Utf8Ptr() == bytes, "the text gives back its bytes");
    check(CString_X(QString::fromUtf8(bytes.c_str())) == text || bytes.rfind("\xEF\xBB\xBF", 0) == 0,
          "QString decodes the same text");
}

void encode(const std::uint8_t* data, std::size_t size)
{
    std::wstring elements(size / sizeof(wchar_t), L'\0');
    std::memcpy(elements.data(), data, elements.size() * sizeof(wchar_t));
    CString_X text = elements;
    try {
        const std::string bytes = text.Utf8Ptr();
        check(isValid(bytes), "narrow text is UTF-8");
        check(CString_X(bytes.c_str()) == elements.c_str(), "narrow text decodes to the text up to its first 0");
    } catch (const std::range_error&) {
        check(text.utf8Cache == nullptr, "a failed conversion leaves no copy");
    }
    check(XeQString(text).size() <= 2 * text.GetLength(), "an element is at most two units of a QString");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    decode(bytes.c_str());
    encode(data, size);
    return 0;
}
