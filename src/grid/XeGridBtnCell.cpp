#include "XeGridBtnCell.h"

#include <algorithm>

IMPLEMENT_DYNCREATE_X(CGridBtnCell_X, CGridBtnCellBase_X)

namespace {

constexpr unsigned defaultFormat = 0x8026;

constexpr bool isControl(int index) { return index >= 0 && index < CGridBtnCell_X::maxControls; }

constexpr const wchar_t* textOf(const wchar_t* text) { return text ? text : L""; }

} // namespace

void CGridBtnCell_X::SetText(const wchar_t* text) { m_strBtnText = textOf(text); }
void CGridBtnCell_X::SetFormat(unsigned int format) { m_nBtnFormat = format; }
const wchar_t* CGridBtnCell_X::GetText() const { return m_strBtnText.IsEmpty() ? L"" : m_strBtnText.GetString(); }
unsigned int CGridBtnCell_X::GetFormat() const { return m_nBtnFormat; }

void CGridBtnCell_X::Reset()
{
    CGridBtnCellBase_X::Reset();
    m_strBtnText.Empty();
    m_nBtnFormat = defaultFormat;
    std::fill(std::begin(m_DrawCtls), std::end(m_DrawCtls), DrawCtl());
    std::fill(std::begin(m_strBtnTexts), std::end(m_strBtnTexts), CString_X());
}

short CGridBtnCell_X::GetDrawCtlNbrMax() const { return maxControls; }

void CGridBtnCell_X::SetDrawCtlNbr(short count) { m_nDrawCtlNbr = std::clamp(count, short(0), short(maxControls)); }

unsigned int CGridBtnCell_X::GetDrawCtlType(int index) const { return isControl(index) ? m_DrawCtls[index].type : 0; }

void CGridBtnCell_X::SetDrawCtlType(int index, unsigned int type)
{
    if (isControl(index))
        m_DrawCtls[index].type = static_cast<unsigned char>(type);
}

unsigned int CGridBtnCell_X::GetDrawCtlState(int index) const { return isControl(index) ? m_DrawCtls[index].state : 0; }

void CGridBtnCell_X::SetDrawCtlState(int index, unsigned int state)
{
    if (isControl(index))
        m_DrawCtls[index].state = static_cast<unsigned short>(state);
}

int CGridBtnCell_X::GetDrawCtlWidth(int index) const { return isControl(index) ? m_DrawCtls[index].width : 0; }

void CGridBtnCell_X::SetDrawCtlWidth(int index, int width)
{
    if (isControl(index))
        m_DrawCtls[index].width = width;
}

CTL_ALIGN CGridBtnCell_X::GetDrawCtlAlign(int index) const
{
    return isControl(index) ? static_cast<CTL_ALIGN>(m_DrawCtls[index].align) : CTL_ALIGN_FULLCELL;
}

void CGridBtnCell_X::SetDrawCtlAlign(int index, CTL_ALIGN align)
{
    if (isControl(index))
        m_DrawCtls[index].align = align & 0x7F;
}

const wchar_t* CGridBtnCell_X::GetDrawCtlBtnText(int index) const
{
    return isControl(index) && !m_strBtnTexts[index].IsEmpty() ? m_strBtnTexts[index].GetString() : L"";
}

void CGridBtnCell_X::SetDrawCtlBtnText(int index, const wchar_t* text)
{
    if (isControl(index))
        m_strBtnTexts[index] = textOf(text);
}

int CGridBtnCell_X::GetDrawCtlIsMbrRadioGrp(int index) const { return isControl(index) && m_DrawCtls[index].isMember; }

void CGridBtnCell_X::SetDrawCtlIsMbrRadioGrp(int index, int isMember)
{
    if (isControl(index))
        m_DrawCtls[index].isMember = isMember != 0;
}
