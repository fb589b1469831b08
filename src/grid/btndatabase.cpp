#include "XeGridBtnCellBase.h"
#include "XeGridCtrl.h"

CBtnDataBase_X::CBtnDataBase_X() = default;
CBtnDataBase_X::~CBtnDataBase_X() = default;

void CBtnDataBase_X::SetText(int, int, const wchar_t* text) { m_strText = text ? text : L""; }
void CBtnDataBase_X::SetImage(int, int, int image) { m_nImage = image; }
void CBtnDataBase_X::SetTile(int, int, int tile) { m_nTile = tile; }
void CBtnDataBase_X::SetData(int, int, long long data) { m_lParam = data; }
void CBtnDataBase_X::SetFormat(int, int, unsigned int format) { m_nFormat = format; }
void CBtnDataBase_X::SetTextClr(int, int, unsigned int colour) { m_crFgClr = colour; }
void CBtnDataBase_X::SetBackClr(int, int, unsigned int colour) { m_crBkClr = colour; }
void CBtnDataBase_X::SetMargin(int, int, unsigned int margin) { m_nMargin = margin; }
void CBtnDataBase_X::SetGrid(CGridCtrl_X* grid) { m_pGrid = grid; }
void CBtnDataBase_X::SetEditWnd(CWnd_X* editor) { m_pEditWnd = editor; }

void CBtnDataBase_X::SetFont(int, int, const CFont_X* font)
{
    if (font)
        m_Font = *reinterpret_cast<const QFont*>(font);
}

const wchar_t* CBtnDataBase_X::GetText(int, int) const { return m_strText.IsEmpty() ? L"" : m_strText.GetString(); }
int CBtnDataBase_X::GetImage(int, int) const { return m_nImage; }
int CBtnDataBase_X::GetTile(int, int) const { return m_nTile; }
long long CBtnDataBase_X::GetData(int, int) const { return m_lParam; }
unsigned int CBtnDataBase_X::GetFormat(int, int) const { return m_nFormat; }
unsigned int CBtnDataBase_X::GetTextClr(int, int) const { return m_crFgClr; }
unsigned int CBtnDataBase_X::GetBackClr(int, int) const { return m_crBkClr; }
const QFont* CBtnDataBase_X::GetFont(int, int) const { return &m_Font; }
unsigned int CBtnDataBase_X::GetMargin(int, int) const { return m_nMargin; }
CGridCtrl_X* CBtnDataBase_X::GetGrid() const { return m_pGrid; }
CWnd_X* CBtnDataBase_X::GetEditWnd() const { return m_pEditWnd; }
