#include "XeGridCell.h"

IMPLEMENT_DYNCREATE_X(CGridCell_X, CGridCellBase_X)

void CGridCell_X::SetText(const wchar_t* text) { m_strText = text ? text : L""; }
void CGridCell_X::SetImage(int image) { m_nImage = image; }
void CGridCell_X::SetTile(int tile) { m_nTile = tile; }
void CGridCell_X::SetData(long long data) { m_lParam = data; }
void CGridCell_X::SetFormat(unsigned int format) { m_nFormat = format; }
void CGridCell_X::SetTextClr(unsigned int colour) { m_crFgClr = colour; }
void CGridCell_X::SetBackClr(unsigned int colour) { m_crBkClr = colour; }
void CGridCell_X::SetMargin(unsigned int margin) { m_nMargin = margin; }
void CGridCell_X::SetGrid(CGridCtrl_X* grid) { m_pGrid = grid; }
void CGridCell_X::SetCoords(int, int) {}

void CGridCell_X::SetFont(const CFont_X* font)
{
    if (font)
        m_Font = *reinterpret_cast<const QFont*>(font);
}

const wchar_t* CGridCell_X::GetText() const { return m_strText.IsEmpty() ? L"" : m_strText.GetString(); }
int CGridCell_X::GetImage() const { return m_nImage; }
int CGridCell_X::GetTile() const { return m_nTile; }
long long CGridCell_X::GetData() const { return m_lParam; }
unsigned int CGridCell_X::GetFormat() const { return m_nFormat; }
unsigned int CGridCell_X::GetTextClr() const { return m_crFgClr; }
unsigned int CGridCell_X::GetBackClr() const { return m_crBkClr; }
const QFont* CGridCell_X::GetFont() const { return &m_Font; }
CGridCtrl_X* CGridCell_X::GetGrid() const { return m_pGrid; }
unsigned int CGridCell_X::GetMargin() const { return m_nMargin; }
int CGridCell_X::IsEditing() const { return m_bEditing; }

void CGridCell_X::Reset()
{
    CGridCellBase_X::Reset();
    m_nFormat = 0x8824;
    m_strText.Empty();
    m_nImage = -1;
    m_nTile = 0;
    m_crBkClr = 0xFF000000;
    m_crFgClr = 0xFF000000;
    m_lParam = 0;
    m_Font = QFont();
    m_nMargin = 3;
    m_bEditing = 0;
    m_pGrid = nullptr;
    m_pEditWnd = nullptr;
}
