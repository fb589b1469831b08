#pragma once

#include "widevalue.h"

#include <xeprofile.h>

#include <memory>
#include <string>

using namespace std::string_literals;

/// A profile of these bytes in a folder of its own.
class ProfileFile
{
public:
    explicit ProfileFile(const QByteArray& bytes)
    {
        QFile file(name());
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            QTest::qFail("the profile cannot be written", __FILE__, __LINE__);
    }

    operator const wchar_t*() const { return m_path.c_str(); }
    QString name() const { return m_folder.filePath(QStringLiteral("profile.ini")); }
    QStringList folder() const { return QDir(m_folder.path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries); }

    QByteArray bytes() const
    {
        QFile file(name());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(unreadable)");
    }

private:
    const QTemporaryDir m_folder;
    const std::wstring m_path = name().toStdWString();
};

/// A buffer of exactly so many elements, so that a sanitizer sees the first step beyond it; "#" where nobody has
/// written, "|" for 0.
class WideBuffer
{
public:
    explicit WideBuffer(std::size_t size) : m_size(size), m_elements(new wchar_t[size])
    {
        std::fill_n(data(), size, L'#');
    }

    wchar_t* data() { return m_elements.get(); }

    std::wstring shown() const
    {
        std::wstring elements(m_elements.get(), m_size);
        std::replace(elements.begin(), elements.end(), L'\0', L'|');
        return elements;
    }

private:
    std::size_t m_size;
    std::unique_ptr<wchar_t[]> m_elements;
};

constexpr std::size_t mebibyte = 1 << 20;

/// The entry's text without its terminator, L"default" if there is none.
inline std::wstring textOf(const wchar_t* section, const wchar_t* key, const wchar_t* file, std::size_t room = 1000)
{
    std::wstring buffer(room, L'#');
    GetPrivateProfileString_X(section, key, L"default", buffer.data(), static_cast<DWORD>(room), file);
    return buffer.c_str();
}
