/// @file XeGridBtnCell.h
/// The cell with buttons.
#pragma once

#include "XeGridBtnCellBase.h"

/// A cell with up to four controls and a text of its own; CGridBtnCellBase_X tells how they work.
class XE_EXPORT CGridBtnCell_X : public CGridBtnCellBase_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CGridBtnCell_X)

    CGridBtnCell_X() = default;
    using CGridCellBase_X::operator=;

    void SetText(const wchar_t* text) override; ///< the cell's own, also without shared data
    void SetFormat(unsigned int format) override;
    const wchar_t* GetText() const override; ///< never null
    unsigned int GetFormat() const override;
    void Reset() override;

    short GetDrawCtlNbrMax() const override; ///< 4
    unsigned int GetDrawCtlType(int index) const override;
    void SetDrawCtlType(int index, unsigned int type) override;
    unsigned int GetDrawCtlState(int index) const override;
    void SetDrawCtlState(int index, unsigned int state) override;
    int GetDrawCtlWidth(int index) const override;
    void SetDrawCtlWidth(int index, int width) override;
    CTL_ALIGN GetDrawCtlAlign(int index) const override;
    void SetDrawCtlAlign(int index, CTL_ALIGN align) override;
    const wchar_t* GetDrawCtlBtnText(int index) const override; ///< never null
    void SetDrawCtlBtnText(int index, const wchar_t* text) override;
    int GetDrawCtlIsMbrRadioGrp(int index) const override;
    void SetDrawCtlIsMbrRadioGrp(int index, int isMember) override;
    void SetDrawCtlNbr(short count) override;

    /// One control.
    struct DrawCtl
    {
        int width = 0;              ///< pixels; 0 or less: as there is room
        unsigned short state = 0;   ///< DFCS_
        unsigned char isMember : 1; ///< of the radio group
        unsigned char align : 7;    ///< CTL_ALIGN
        unsigned char type = 0;     ///< DFC_

        DrawCtl() : isMember(0), align(0) {}
    };
    static_assert(sizeof(DrawCtl) == 8, "there are four in each cell");

    static constexpr int maxControls = 4;

    CString_X m_strBtnText;
    unsigned int m_nBtnFormat = 0x8026; ///< DT_RIGHT, DT_VCENTER, DT_SINGLELINE, DT_END_ELLIPSIS
    DrawCtl m_DrawCtls[maxControls];
    CString_X m_strBtnTexts[maxControls]; ///< the texts of the controls
};
