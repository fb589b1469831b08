#include "XeGridBtnCellBase.h"

#include "XeGridCtrl.h"
#include "XeInPlaceEdit.h"
#include "grid/editorlife.h"
#include "xeafxdc.h"

#include <algorithm>

IMPLEMENT_DYNCREATE_X(CGridBtnCellBase_X, CGridCellBase_X)

CString_X CGridBtnCellBase_X::m_strTipText;

CGridBtnCellBase_X::~CGridBtnCellBase_X()
{
    CWnd_X* const editor = m_bBtnEditing && m_pBtnDataBase ? m_pBtnDataBase->GetEditWnd() : nullptr;
    if (!editor)
        return;
    m_pBtnDataBase->SetEditWnd(nullptr);
    xe::EditorLife::dismiss(*editor);
}

void CGridBtnCellBase_X::Reset()
{
    if (m_bBtnEditing)
        SetEditWnd(nullptr);
    CGridCellBase_X::Reset();
    m_nLastCtlClicked = -1;
    m_nDrawCtlNbr = 0;
    m_nBtnRow = -1;
    m_nBtnCol = -1;
    m_bBtnEditing = 0;
    m_pBtnDataBase = nullptr;
}

// --------------------------------------------------------------------------------------------------------------- items

void CGridBtnCellBase_X::SetText(const wchar_t* text)
{
    if (m_pBtnDataBase)
        m_pBtnDataBase->SetText(m_nBtnRow, m_nBtnCol, text);
}

void CGridBtnCellBase_X::SetImage(int image)
{
    if (m_pBtnDataBase)
        m_pBtnDataBase->SetImage(m_nBtnRow, m_nBtnCol, image);
}

void CGridBtnCellBase_X::SetTile(int tile)
{
    if (m_pBtnDataBase)
        m_pBtnDataBase->SetTile(m_nBtnRow, m_nBtnCol, tile);
}

void CGridBtnCellBase_X::SetData(long long data)
{
    if (m_pBtnDataBase)
        m_pBtnDataBase->SetData(m_nBtnRow, m_nBtnCol, data);
}

void CGridBtnCellBase_X::SetFormat(unsigned int format)
{
    if (m_pBtnDataBase)
        m_pBtnDataBase->SetFormat(m_nBtnRow, m_nBtnCol, format);
}

void CGridBtnCellBase_X::SetTextClr(unsigned int colour)
{
    if (m_pBtnDataBase)
        m_pBtnDataBase->SetTextClr(m_nBtnRow, m_nBtnCol, colour);
}

void CGridBtnCellBase_X::SetBackClr(unsigned int colour)
{
    if (m_pBtnDataBase)
        m_pBtnDataBase->SetBackClr(m_nBtnRow, m_nBtnCol, colour);
}

void CGridBtnCellBase_X::SetFont(const CFont_X* font)
{
    if (m_pBtnDataBase)
        m_pBtnDataBase->SetFont(m_nBtnRow, m_nBtnCol, font);
}

void CGridBtnCellBase_X::SetMargin(unsigned int margin)
{
    if (m_pBtnDataBase)
        m_pBtnDataBase->SetMargin(m_nBtnRow, m_nBtnCol, margin);
}

void CGridBtnCellBase_X::SetGrid(CGridCtrl_X* grid)
{
    if (m_pBtnDataBase)
        m_pBtnDataBase->SetGrid(grid);
}

void CGridBtnCellBase_X::SetCoords(int row, int col)
{
    m_nBtnRow = row;
    m_nBtnCol = col;
}

const wchar_t* CGridBtnCellBase_X::GetText() const
{
    return m_pBtnDataBase ? m_pBtnDataBase->GetText(m_nBtnRow, m_nBtnCol) : nullptr;
}

int CGridBtnCellBase_X::GetImage() const { return m_pBtnDataBase ? m_pBtnDataBase->GetImage(m_nBtnRow, m_nBtnCol) : 0; }

int CGridBtnCellBase_X::GetTile() const { return m_pBtnDataBase ? m_pBtnDataBase->GetTile(m_nBtnRow, m_nBtnCol) : 0; }

long long CGridBtnCellBase_X::GetData() const
{
    return m_pBtnDataBase ? m_pBtnDataBase->GetData(m_nBtnRow, m_nBtnCol) : 0;
}

unsigned int CGridBtnCellBase_X::GetFormat() const
{
    return m_pBtnDataBase ? m_pBtnDataBase->GetFormat(m_nBtnRow, m_nBtnCol) : 0;
}

unsigned int CGridBtnCellBase_X::GetTextClr() const
{
    return m_pBtnDataBase ? m_pBtnDataBase->GetTextClr(m_nBtnRow, m_nBtnCol) : 0;
}

unsigned int CGridBtnCellBase_X::GetBackClr() const
{
    return m_pBtnDataBase ? m_pBtnDataBase->GetBackClr(m_nBtnRow, m_nBtnCol) : 0;
}

const QFont* CGridBtnCellBase_X::GetFont() const
{
    return m_pBtnDataBase ? m_pBtnDataBase->GetFont(m_nBtnRow, m_nBtnCol) : nullptr;
}

unsigned int CGridBtnCellBase_X::GetMargin() const
{
    return m_pBtnDataBase ? m_pBtnDataBase->GetMargin(m_nBtnRow, m_nBtnCol) : 0;
}

CGridCtrl_X* CGridBtnCellBase_X::GetGrid() const { return m_pBtnDataBase ? m_pBtnDataBase->GetGrid() : nullptr; }
CWnd_X* CGridBtnCellBase_X::GetEditWnd() const { return m_pBtnDataBase ? m_pBtnDataBase->GetEditWnd() : nullptr; }

void CGridBtnCellBase_X::SetEditWnd(CWnd_X* editor)
{
    if (m_pBtnDataBase)
        m_pBtnDataBase->SetEditWnd(editor);
}

int CGridBtnCellBase_X::IsEditing() const { return m_bBtnEditing; }
CCellID_X CGridBtnCellBase_X::GetCoords() const { return {m_nBtnRow, m_nBtnCol}; }

// ------------------------------------------------------------------------------------------------------------ controls

short CGridBtnCellBase_X::GetDrawCtlNbr() const { return m_nDrawCtlNbr; }
short CGridBtnCellBase_X::GetLastCtlClicked() const { return m_nLastCtlClicked; }
short CGridBtnCellBase_X::GetDrawCtlNbrMax() const { return 0; }
unsigned int CGridBtnCellBase_X::GetDrawCtlType(int) const { return 0; }
void CGridBtnCellBase_X::SetDrawCtlType(int, unsigned int) {}
unsigned int CGridBtnCellBase_X::GetDrawCtlState(int) const { return 0; }
void CGridBtnCellBase_X::SetDrawCtlState(int, unsigned int) {}
int CGridBtnCellBase_X::GetDrawCtlWidth(int) const { return 0; }
void CGridBtnCellBase_X::SetDrawCtlWidth(int, int) {}
CTL_ALIGN CGridBtnCellBase_X::GetDrawCtlAlign(int) const { return CTL_ALIGN_FULLCELL; }
void CGridBtnCellBase_X::SetDrawCtlAlign(int, CTL_ALIGN) {}
const wchar_t* CGridBtnCellBase_X::GetDrawCtlBtnText(int) const { return nullptr; }
void CGridBtnCellBase_X::SetDrawCtlBtnText(int, const wchar_t*) {}
int CGridBtnCellBase_X::GetDrawCtlIsMbrRadioGrp(int) const { return 0; }
void CGridBtnCellBase_X::SetDrawCtlIsMbrRadioGrp(int, int) {}
void CGridBtnCellBase_X::SetDrawCtlNbr(short) {}

int CGridBtnCellBase_X::SetupBtns(int index, unsigned int type, unsigned int state, CTL_ALIGN align, int width,
                                  int isRadio, const wchar_t* text)
{
    const bool isAlignment = align >= CTL_ALIGN_FULLCELL && align <= CTL_ALIGN_RIGHT;
    if (index < 0 || index >= GetDrawCtlNbrMax() || !isAlignment || (align == CTL_ALIGN_FULLCELL && index > 0))
        return 0;
    if (index >= GetDrawCtlNbr())
        SetDrawCtlNbr(static_cast<short>(index + 1));
    SetDrawCtlAlign(index, align);
    SetDrawCtlWidth(index, width);
    SetDrawCtlType(index, type);
    SetDrawCtlState(index, state);
    SetDrawCtlBtnText(index, text);
    SetDrawCtlIsMbrRadioGrp(index, isRadio);
    return 1;
}
