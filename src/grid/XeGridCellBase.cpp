#include "XeGridCtrl.h"

#include "xeafxdc.h"

IMPLEMENT_DYNCREATE_X(CGridCellBase_X, CObject_X)

CGridCellBase_X::~CGridCellBase_X() = default;

void CGridCellBase_X::SetText(const wchar_t*) {}
void CGridCellBase_X::SetImage(int) {}
void CGridCellBase_X::SetTile(int) {}
void CGridCellBase_X::SetData(long long) {}
void CGridCellBase_X::SetState(unsigned int state) { m_nState = state; }
void CGridCellBase_X::SetFormat(unsigned int) {}
void CGridCellBase_X::SetTextClr(unsigned int) {}
void CGridCellBase_X::SetBackClr(unsigned int) {}
void CGridCellBase_X::SetFont(const CFont_X*) {}
void CGridCellBase_X::SetMargin(unsigned int) {}
void CGridCellBase_X::SetGrid(CGridCtrl_X*) {}
void CGridCellBase_X::SetCoords(int, int) {}

const wchar_t* CGridCellBase_X::GetText() const { return nullptr; }
const wchar_t* CGridCellBase_X::GetTipText() const { return GetText(); }
int CGridCellBase_X::GetImage() const { return -1; }
int CGridCellBase_X::GetTile() const { return 0; }
long long CGridCellBase_X::GetData() const { return 0; }
unsigned int CGridCellBase_X::GetState() const { return m_nState; }
unsigned int CGridCellBase_X::GetFormat() const { return 0; }
unsigned int CGridCellBase_X::GetTextClr() const { return 0; }
unsigned int CGridCellBase_X::GetBackClr() const { return 0; }
const QFont* CGridCellBase_X::GetFont() const { return nullptr; }
CGridCtrl_X* CGridCellBase_X::GetGrid() const { return nullptr; }
unsigned int CGridCellBase_X::GetMargin() const { return 0; }
int CGridCellBase_X::IsEditing() const { return 0; }

CGridCellBase_X& CGridCellBase_X::operator=(CGridCellBase_X& other)
{
    if (this == &other)
        return *this;
    SetGrid(other.GetGrid());
    SetText(other.GetText());
    SetImage(other.GetImage());
    SetTile(other.GetTile());
    SetData(other.GetData());
    SetState(other.GetState());
    SetFormat(other.GetFormat());
    SetTextClr(other.GetTextClr());
    SetBackClr(other.GetBackClr());
    SetFont(reinterpret_cast<const CFont_X*>(other.GetFont()));
    SetMargin(other.GetMargin());
    return *this;
}

void CGridCellBase_X::Reset()
{
    m_nState = 0;
    m_bMergeRight = 0;
    m_bMergeBottom = 0;
    m_bMergeSlave = 0;
    m_nMergeStyle = 0;
    m_nMergeRows = 0;
    m_nMergeCols = 0;
    m_nMasterRow = 0;
    m_nMasterCol = 0;
}

int CGridCellBase_X::GetTipTextRect(tagRECT* rect) { return GetTextRect(rect); }
int CGridCellBase_X::Edit(int, int, CRect, CPoint, unsigned int, unsigned int) { return 0; }
void CGridCellBase_X::EndEdit() {}
void CGridCellBase_X::OnEndEdit() {}
void CGridCellBase_X::OnMouseEnter() {}
void CGridCellBase_X::OnMouseOver() {}
void CGridCellBase_X::OnMouseLeave() {}
void CGridCellBase_X::OnClick(CPoint) {}
void CGridCellBase_X::OnClickDown(CPoint) {}
void CGridCellBase_X::OnRClick(CPoint) {}
void CGridCellBase_X::OnDblClick(CPoint) {}
int CGridCellBase_X::OnSetCursor() { return 1; }

long long CGridCellBase_X::SendMessageToParent(int row, int col, int code)
{
    CGridCtrl_X* const grid = GetGrid();
    return grid ? grid->SendMessageToParent(row, col, code) : 0;
}
