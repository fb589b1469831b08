#include "xeurl.h"

#include "text/folding.h"
#include "xepath.h"
#include "xestr.h"

#include <algorithm>
#include <cwchar>
#include <cwctype>
#include <string_view>

const XeUrlScheme url_schemes[18] = {
    {URL_SCHEME_FTP, L"ftp"},
    {URL_SCHEME_HTTP, L"http"},
    {URL_SCHEME_GOPHER, L"gopher"},
    {URL_SCHEME_MAILTO, L"mailto"},
    {URL_SCHEME_NEWS, L"news"},
    {URL_SCHEME_NNTP, L"nntp"},
    {URL_SCHEME_TELNET, L"telnet"},
    {URL_SCHEME_WAIS, L"wais"},
    {URL_SCHEME_FILE, L"file"},
    {URL_SCHEME_MK, L"mk"},
    {URL_SCHEME_HTTPS, L"https"},
    {URL_SCHEME_SHELL, L"shell"},
    {URL_SCHEME_SNEWS, L"snews"},
    {URL_SCHEME_LOCAL, L"local"},
    {URL_SCHEME_JAVASCRIPT, L"javascript"},
    {URL_SCHEME_VBSCRIPT, L"vbscript"},
    {URL_SCHEME_ABOUT, L"about"},
    {URL_SCHEME_RES, L"res"},
};

// clang-format off
const BYTE HashDataLookup[256] = {
    0x01, 0x0E, 0x6E, 0x19, 0x61, 0xAE, 0x84, 0x77, 0x8A, 0xAA, 0x7D, 0x76, 0x1B, 0xE9, 0x8C, 0x33,
    0x57, 0xC5, 0xB1, 0x6B, 0xEA, 0xA9, 0x38, 0x44, 0x1E, 0x07, 0xAD, 0x49, 0xBC, 0x28, 0x24, 0x41,
    0x31, 0xD5, 0x68, 0xBE, 0x39, 0xD3, 0x94, 0xDF, 0x30, 0x73, 0x0F, 0x02, 0x43, 0xBA, 0xD2, 0x1C,
    0x0C, 0xB5, 0x67, 0x46, 0x16, 0x3A, 0x4B, 0x4E, 0xB7, 0xA7, 0xEE, 0x9D, 0x7C, 0x93, 0xAC, 0x90,
    0xB0, 0xA1, 0x8D, 0x56, 0x3C, 0x42, 0x80, 0x53, 0x9C, 0xF1, 0x4F, 0x2E, 0xA8, 0xC6, 0x29, 0xFE,
    0xB2, 0x55, 0xFD, 0xED, 0xFA, 0x9A, 0x85, 0x58, 0x23, 0xCE, 0x5F, 0x74, 0xFC, 0xC0, 0x36, 0xDD,
    0x66, 0xDA, 0xFF, 0xF0, 0x52, 0x6A, 0x9E, 0xC9, 0x3D, 0x03, 0x59, 0x09, 0x2A, 0x9B, 0x9F, 0x5D,
    0xA6, 0x50, 0x32, 0x22, 0xAF, 0xC3, 0x64, 0x63, 0x1A, 0x96, 0x10, 0x91, 0x04, 0x21, 0x08, 0xBD,
    0x79, 0x40, 0x4D, 0x48, 0xD0, 0xF5, 0x82, 0x7A, 0x8F, 0x37, 0x69, 0x86, 0x1D, 0xA4, 0xB9, 0xC2,
    0xC1, 0xEF, 0x65, 0xF2, 0x05, 0xAB, 0x7E, 0x0B, 0x4A, 0x3B, 0x89, 0xE4, 0x6C, 0xBF, 0xE8, 0x8B,
    0x06, 0x18, 0x51, 0x14, 0x7F, 0x11, 0x5B, 0x5C, 0xFB, 0x97, 0xE1, 0xCF, 0x15, 0x62, 0x71, 0x70,
    0x54, 0xE2, 0x12, 0xD6, 0xC7, 0xBB, 0x0D, 0x20, 0x5E, 0xDC, 0xE0, 0xD4, 0xF7, 0xCC, 0xC4, 0x2B,
    0xF9, 0xEC, 0x2D, 0xF4, 0x6F, 0xB6, 0x99, 0x88, 0x81, 0x5A, 0xD9, 0xCA, 0x13, 0xA5, 0xE7, 0x47,
    0xE6, 0x8E, 0x60, 0xE3, 0x3E, 0xB3, 0xF6, 0x72, 0xA2, 0x35, 0xA0, 0xD7, 0xCD, 0xB4, 0x2F, 0x6D,
    0x2C, 0x26, 0x1F, 0x95, 0x87, 0x00, 0xD8, 0x34, 0x3F, 0x17, 0x25, 0x45, 0x27, 0x75, 0x92, 0xB8,
    0xA3, 0xC8, 0xDE, 0xEB, 0xF8, 0xF3, 0xDB, 0x0A, 0x98, 0x83, 0x7B, 0xE5, 0xCB, 0x4C, 0x78, 0xD1,
};
// clang-format on

namespace {

constexpr std::size_t shortestScheme = 2; // a single letter is a drive

bool isSchemeElement(wchar_t ch)
{
    return std::iswalnum(static_cast<std::wint_t>(ch)) || ch == L'+' || ch == L'-' || ch == L'.';
}

URL_SCHEME schemeNumber(std::wstring_view name)
{
    for (const XeUrlScheme& scheme : url_schemes) {
        const std::wstring_view known = scheme.name;
        if (std::equal(name.begin(), name.end(), known.begin(), known.end(), xe::equalFolded))
            return scheme.number;
    }
    return URL_SCHEME_UNKNOWN;
}

bool isOpaque(const wchar_t* url)
{
    tagPARSEDURLW parts{};
    parts.cbSize = sizeof(parts);
    ParseURL_X(url, &parts);
    switch (parts.nScheme) {
    case URL_SCHEME_MAILTO:
    case URL_SCHEME_SHELL:
    case URL_SCHEME_JAVASCRIPT:
    case URL_SCHEME_VBSCRIPT:
    case URL_SCHEME_ABOUT:
        return true;
    default:
        return false;
    }
}

bool endsInSlash(std::wstring_view url) { return !url.empty() && (url.back() == L'/' || url.back() == L'\\'); }

} // namespace

HRESULT ParseURL_X(const wchar_t* url, tagPARSEDURLW* parts)
{
    if (!url || !parts || parts->cbSize != sizeof(*parts))
        return E_INVALIDARG;
    const wchar_t* const end = url + std::wcslen(url);
    const wchar_t* const colon = std::find_if_not(url, end, isSchemeElement);
    const auto length = static_cast<std::size_t>(colon - url);
    if (*colon != L':' || length < shortestScheme) {
        parts->pszProtocol = nullptr;
        return URL_E_INVALID_SYNTAX;
    }
    parts->pszProtocol = url;
    parts->cchProtocol = static_cast<UINT>(length);
    parts->pszSuffix = colon + 1;
    parts->cchSuffix = static_cast<UINT>(end - parts->pszSuffix);
    parts->nScheme = static_cast<UINT>(schemeNumber({url, length}));
    return S_OK;
}

BOOL UrlIs_X(const wchar_t* url, URLIS kind)
{
    if (!url)
        return FALSE;
    switch (kind) {
    case URLIS_URL:
        return PathIsURL_X(url);
    case URLIS_OPAQUE:
        return isOpaque(url);
    case URLIS_FILEURL:
        return StrCmpI_X(url, L"file:") == 0;
    case URLIS_DIRECTORY:
        return endsInSlash(url);
    default:
        return FALSE;
    }
}

BOOL UrlIsOpaque_X(const wchar_t* url) { return UrlIs_X(url, URLIS_OPAQUE); }

BOOL UrlIsNoHistory_X(const wchar_t* url) { return UrlIs_X(url, URLIS_NOHISTORY); }

const wchar_t* UrlGetLocation_X(const wchar_t* url) { return url ? std::wcschr(url, L'#') : nullptr; }

HRESULT UrlFixup_X(const wchar_t* url, wchar_t* buffer, DWORD capacity)
{
    if (!url)
        return E_FAIL;
    if (!buffer)
        return E_INVALIDARG;
    lstrcpyn_X(buffer, url, static_cast<int>(std::min<std::size_t>(std::wcslen(url) + 1, capacity)));
    return S_OK;
}

HRESULT HashData_X(const BYTE* data, DWORD dataLength, BYTE* hash, DWORD hashLength)
{
    if (!data || !hash)
        return E_INVALIDARG;
    for (DWORD i = hashLength; i-- > 0;)
        hash[i] = static_cast<BYTE>(i);
    for (DWORD next = dataLength; next-- > 0;) {
        const BYTE byte = data[next];
        for (DWORD i = hashLength; i-- > 0;)
            hash[i] = HashDataLookup[byte ^ hash[i]];
    }
    return S_OK;
}

BOOL IsInternetESCEnabled_X() { return FALSE; }
