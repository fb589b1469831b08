// Any bytes as a profile: the readers stay within their buffers and agree with each other, and what is written comes
// back.

#include <XeMFCEmu.h>

#include "check.h"

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdint>
#include <cwchar>
#include <string>
#include <vector>

namespace {

class Profile
{
public:
    void fill(const QByteArray& bytes)
    {
        QFile file(m_name);
        check(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(), "the profile can be written");
    }

    operator const wchar_t*() const { return m_path.c_str(); }

private:
    const QTemporaryDir m_folder;
    const QString m_name = m_folder.filePath(QStringLiteral("profile.ini"));
    const std::wstring m_path = m_name.toStdWString();
};

// Without spare room, so that a step too far is seen. A text in a profile is no longer than the profile.
std::wstring textOf(const wchar_t* section, const wchar_t* key, const wchar_t* file, std::size_t room)
{
    std::vector<wchar_t> buffer(room + 1);
    const DWORD length = GetPrivateProfileString_X(section, key, L"", buffer.data(), 1, file);
    check(length <= room, "a text is no longer than its profile");
    return buffer.data();
}

void readLists(const wchar_t* section, const wchar_t* file, DWORD size)
{
    std::vector<wchar_t> buffer(size);
    check(GetPrivateProfileSection_X(section, buffer.data(), size, file) <= size, "a section stays in its buffer");
    check(GetPrivateProfileSectionNames_X(buffer.data(), size, file) <= size, "names stay in their buffer");
}

// The keys of the section as its lines show them; some lines are no keys, but parts of values.
std::vector<std::wstring> keysOf(const wchar_t* section, const wchar_t* file, std::size_t room)
{
    std::vector<wchar_t> buffer(4 * room + 4);
    const DWORD length = GetPrivateProfileSection_X(section, buffer.data(), DWORD(buffer.size()), file);
    std::vector<std::wstring> keys;
    for (auto start = buffer.begin(), end = start + length; start < end && keys.size() < 20;) {
        const auto lineEnd = std::find(start, end, L'\r');
        keys.emplace_back(start, std::find(start, lineEnd, L'='));
        start = lineEnd == end ? end : lineEnd + 1;
    }
    return keys;
}

void read(const wchar_t* file, std::size_t room)
{
    for (const wchar_t* section : {L"s", L""}) {
        readLists(section, file, DWORD(room));
        readLists(section, file, DWORD(room / 2));
        std::vector<std::wstring> keys = keysOf(section, file, room);
        keys.emplace_back(L"k");
        for (const std::wstring& key : keys) {
            textOf(section, key.c_str(), file, room);
            GetPrivateProfileInt_X(section, key.c_str(), 1, file);
            std::vector<char> bytes(room / 2);
            GetPrivateProfileStruct_X(section, key.c_str(), bytes.data(), UINT(bytes.size()), file);
        }
    }
}

// The input as a text that Qt can write: one element a byte, without zeros.
std::wstring asText(const QByteArray& bytes)
{
    std::wstring text;
    for (const char byte : bytes) {
        if (byte)
            text.push_back(static_cast<unsigned char>(byte));
    }
    return text;
}

void write(const wchar_t* file, const QByteArray& bytes)
{
    const std::wstring text = asText(bytes);
    const auto size = static_cast<UINT>(bytes.size());
    check(WritePrivateProfileString_X(L"written", L"text", text.c_str(), file) == TRUE, "the profile is there");
    check(WritePrivateProfileStruct_X(L"written", L"bytes", bytes.constData(), size, file) == TRUE, "it still is");
    check(textOf(L"written", L"text", file, text.size()) == text, "a text comes back");

    QByteArray back(bytes.size(), '#');
    check(GetPrivateProfileStruct_X(L"written", L"bytes", back.data(), size, file) == !bytes.isEmpty(), "bytes do");
    check(back == bytes, "the bytes are the same");
    WritePrivateProfileSection_X(L"s", text.c_str(), file);
    read(file, 20 * (text.size() + 20)); // the profile has grown, and a character has become an escape
}

// Qt believes the counts in these forms and asks for memory accordingly, which libFuzzer takes for a fault.
bool isStream(const QByteArray& bytes) { return bytes.contains("Variant") || bytes.contains("DateTime"); }

} // namespace

// In place of the C library's: Qt waits for the disk after each write, which would be most of the time.
extern "C" Q_DECL_EXPORT int fdatasync(int) { return 0; }

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Profile profile;
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    if (isStream(bytes))
        return 0;
    profile.fill(bytes);
    read(profile, size + 10);
    write(profile, bytes);
    return 0;
}
