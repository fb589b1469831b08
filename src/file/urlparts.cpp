#include "xeurl.h"

#include "text/ascii.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <cwctype>
#include <optional>
#include <string>
#include <string_view>

namespace {

using Pieces = std::array<std::wstring_view, URL_PART_QUERY + 1>; // by URL_PART; empty for an absent one

bool isIn(wchar_t ch, std::wstring_view set) { return set.find(ch) != std::wstring_view::npos; }

bool isLetterOrDigit(wchar_t ch) { return std::iswalnum(static_cast<std::wint_t>(ch)); }

bool isHexDigit(wchar_t ch) { return std::iswxdigit(static_cast<std::wint_t>(ch)); }

bool isSchemeElement(const wchar_t* place)
{
    const wchar_t ch = *place;
    return (ch >= L'a' && ch <= L'z') || xe::isDigit(ch) || (ch > 127 && isLetterOrDigit(ch)) || isIn(ch, L"+-.");
}

bool isUserElement(const wchar_t* place)
{
    return isLetterOrDigit(*place) || isIn(*place, L" !$&'()*+,-.;=?_")
           || (*place == L'%' && isHexDigit(place[1]) && isHexDigit(place[2]));
}

bool isHostElement(const wchar_t* place) { return isLetterOrDigit(*place) || isIn(*place, L" *-."); }

bool isPortElement(const wchar_t* place) { return xe::isDigit(*place); }

std::wstring_view takeRun(const wchar_t*& place, bool (*isElement)(const wchar_t*))
{
    const wchar_t* const start = place;
    while (isElement(place))
        ++place;
    return {start, static_cast<std::size_t>(place - start)};
}

bool takeIf(const wchar_t*& place, wchar_t ch)
{
    const bool found = *place == ch;
    place += found;
    return found;
}

// User name and password count only if "@" ends them; otherwise the same text is the host.
void takeUser(const wchar_t*& place, Pieces& pieces)
{
    const wchar_t* end = place;
    const std::wstring_view user = takeRun(end, isUserElement);
    const std::wstring_view password = takeIf(end, L':') ? takeRun(end, isUserElement) : std::wstring_view();
    if (!takeIf(end, L'@'))
        return;
    pieces[URL_PART_USERNAME] = user;
    pieces[URL_PART_PASSWORD] = password;
    place = end;
}

// Nothing for a text without a scheme.
std::optional<Pieces> piecesOf(const wchar_t* place)
{
    Pieces pieces;
    pieces[URL_PART_SCHEME] = takeRun(place, isSchemeElement);
    if (!takeIf(place, L':'))
        return std::nullopt;
    if (!takeIf(place, L'/') || !takeIf(place, L'/'))
        return pieces;
    takeUser(place, pieces);
    pieces[URL_PART_HOSTNAME] = takeRun(place, isHostElement);
    if (takeIf(place, L':'))
        pieces[URL_PART_PORT] = takeRun(place, isPortElement);
    const wchar_t* const query = *place == L'/' ? std::wcschr(place, L'?') : nullptr;
    if (query)
        pieces[URL_PART_QUERY] = query;
    return pieces;
}

UINT schemeOf(const wchar_t* url)
{
    tagPARSEDURLW parts{};
    parts.cbSize = sizeof(parts);
    ParseURL_X(url, &parts);
    return parts.nScheme;
}

bool hasParts(UINT scheme)
{
    constexpr std::array<UINT, 6> schemes = {URL_SCHEME_FTP,    URL_SCHEME_HTTP, URL_SCHEME_GOPHER,
                                             URL_SCHEME_TELNET, URL_SCHEME_FILE, URL_SCHEME_HTTPS};
    return std::find(schemes.begin(), schemes.end(), scheme) != schemes.end();
}

bool isDrive(std::wstring_view host) { return host.size() == 1 && host.data()[1] == L':'; }

HRESULT write(const std::wstring& text, wchar_t* buffer, DWORD* size)
{
    const auto length = static_cast<DWORD>(text.size());
    if (length >= *size) {
        *size = length + 1;
        return E_POINTER;
    }
    std::wmemcpy(buffer, text.c_str(), text.size() + 1);
    *size = length;
    return S_OK;
}

} // namespace

HRESULT UrlGetPart_X(const wchar_t* url, wchar_t* buffer, DWORD* size, DWORD part, DWORD flags)
{
    if (!url || !buffer || !size || *size == 0)
        return E_INVALIDARG;
    *buffer = L'\0';
    if (part < URL_PART_SCHEME || part > URL_PART_QUERY)
        return E_INVALIDARG;

    const std::optional<Pieces> pieces = piecesOf(url);
    if (!pieces)
        return part == URL_PART_SCHEME || part == URL_PART_QUERY ? S_FALSE : E_INVALIDARG;
    const UINT scheme = schemeOf(url);
    if (part != URL_PART_SCHEME && !hasParts(scheme))
        return E_FAIL;
    const std::wstring piece((*pieces)[part]);
    if (piece.empty() || (part == URL_PART_HOSTNAME && scheme == URL_SCHEME_FILE && isDrive((*pieces)[part])))
        return S_FALSE;
    const bool keepScheme = flags & URL_PARTFLAG_KEEPSCHEME;
    return write(keepScheme ? std::wstring((*pieces)[URL_PART_SCHEME]) + L':' + piece : piece, buffer, size);
}
