// What real sources of hosts do that would compile in silence and mean something else. Only check-traps compiles this:
// as it is, and with TRAP defined each wrong line.

#include <XeMFCEmu.h>

#define PRODUCT_NAME "Parts Book"

static_assert(sizeof _T("text") == 5 * sizeof(wchar_t));
static_assert(sizeof _T(PRODUCT_NAME) == 11 * sizeof(wchar_t), "the argument of _T is a macro");

class CBase : public CObject_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CBase)
};

class CSister : public CBase
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CSister)
};

class CWithoutMetaObject : public CBase
{
    DECLARE_DYNCREATE_X(CWithoutMetaObject)
};

IMPLEMENT_DYNAMIC_X(CBase, CObject_X)
IMPLEMENT_DYNCREATE_X(CSister, CBase)

void log(const wchar_t* format, ...);

void add(const CString_X& text, CString_X changing, char narrow, unsigned char byte)
{
    changing = L' ' + text + L' ' + L"text";
    changing = text + wchar_t(narrow) + wchar_t(byte);
    changing += ' ';
    const wchar_t* const behind = text + 1; // an address, as in the published class
    log(L"%s %s", text.GetString(), behind);
#ifdef TRAP
    TRAP;
#endif
}

#ifdef OUTER_TRAP
OUTER_TRAP
#endif
