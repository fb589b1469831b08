#include "settings.h"

#include "text.h"

#include <xeconvert.h>
#include <xewinreg.h>

#include <algorithm>
#include <string>

namespace {

class Key
{
public:
    explicit Key(const wchar_t* subKey) { RegCreateKey_X(HKEY_CURRENT_USER, subKey, &m_key); }
    ~Key() { RegCloseKey_X(m_key); }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;

    CString_X text(const wchar_t* name) const;
    int number(const wchar_t* name, int otherwise) const;
    void set(const wchar_t* name, const CString_X& text) const;
    void set(const wchar_t* name, int number) const;

private:
    HKEY m_key = nullptr;
};

// A text comes as multibyte text, also through the wide function.
CString_X Key::text(const wchar_t* name) const
{
    DWORD type = REG_NONE;
    DWORD size = 0;
    RegQueryValueExW_X(m_key, name, nullptr, &type, nullptr, &size);
    if (type != REG_SZ)
        return {};
    std::string bytes(size, '\0');
    RegQueryValueExW_X(m_key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(bytes.data()), nullptr);
    return MultiByteToWideChar_X(bytes, "chs");
}

// A number of an earlier run comes as its digits: the file keeps no types.
int Key::number(const wchar_t* name, int otherwise) const
{
    DWORD type = REG_NONE;
    DWORD number = 0;
    RegQueryValueExW_X(m_key, name, nullptr, &type, nullptr, nullptr);
    if (type == REG_SZ) {
        bool isNumber = false;
        number = XeQString(text(name)).toUInt(&isNumber);
        return isNumber ? static_cast<int>(number) : otherwise;
    }
    if (type == REG_DWORD)
        RegQueryValueExW_X(m_key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(&number), nullptr);
    return type == REG_DWORD ? static_cast<int>(number) : otherwise;
}

void Key::set(const wchar_t* name, const CString_X& text) const
{
    RegSetValueExW_X(m_key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.GetString()), 0);
}

void Key::set(const wchar_t* name, int number) const
{
    RegSetValueExW_X(m_key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number), sizeof number);
}

constexpr const wchar_t* windowKey = L"Software\\PartsBook\\Window";
constexpr const wchar_t* viewKey = L"Software\\PartsBook\\View";
constexpr const wchar_t* filesKey = L"Software\\PartsBook\\Files";

CString_X fileName(int place) { return formatText(L"File%d", place); }

} // namespace

QRect settings::windowPlace()
{
    const Key key(windowKey);
    return {key.number(L"Left", 0), key.number(L"Top", 0), key.number(L"Width", 0), key.number(L"Height", 0)};
}

void settings::setWindowPlace(const QRect& place)
{
    const Key key(windowKey);
    key.set(L"Left", place.x());
    key.set(L"Top", place.y());
    key.set(L"Width", place.width());
    key.set(L"Height", place.height());
}

COLORREF settings::shortColor()
{
    constexpr COLORREF red = RGB(0xc0, 0x39, 0x2b);
    return static_cast<COLORREF>(Key(viewKey).number(L"ShortColor", static_cast<int>(red)));
}

void settings::setShortColor(COLORREF color) { Key(viewKey).set(L"ShortColor", static_cast<int>(color)); }

unsigned settings::hiddenColumns()
{
    constexpr unsigned source = 1 << 4;
    constexpr unsigned inUse = 1 << 8;
    constexpr unsigned delivered = 1 << 10;
    return static_cast<unsigned>(Key(viewKey).number(L"HiddenColumns", source | inUse | delivered));
}

void settings::setHiddenColumns(unsigned columns) { Key(viewKey).set(L"HiddenColumns", static_cast<int>(columns)); }

int settings::treeWidth() { return Key(windowKey).number(L"Tree", 168); }

void settings::setTreeWidth(int width) { Key(windowKey).set(L"Tree", width); }

std::vector<CString_X> settings::recentFiles()
{
    const Key key(filesKey);
    std::vector<CString_X> files;
    for (int place = 1; place <= mostRecentFiles; ++place) {
        const CString_X file = key.text(fileName(place));
        if (!file.IsEmpty())
            files.push_back(file);
    }
    return files;
}

void settings::addRecentFile(const CString_X& file)
{
    std::vector<CString_X> files = recentFiles();
    files.erase(std::remove(files.begin(), files.end(), file), files.end());
    files.insert(files.begin(), file);
    const Key key(filesKey);
    for (int place = 1; place <= std::min<int>(mostRecentFiles, static_cast<int>(files.size())); ++place)
        key.set(fileName(place), files[static_cast<std::size_t>(place - 1)]);
}
