#pragma once

#include "partpictures.h"
#include "partsbook.h"
#include "parttips.h"

#include <xeafxcmn.h>
#include <xeafxctrl.h>
#include <xeafxdlg.h>
#include <xeafxdtctl.h>

/// Shows a part on three pages and lets the user change it.
class CPartDialog : public CDialog_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CPartDialog)

    /// The user can choose from the suppliers of the book, besides the part's own.
    CPartDialog(const CString_X& title, const PartsBook& book, const CPartPictures& pictures, CWnd_X* parent);

    Part m_part; ///< shown at the beginning, and changed when DoModal() gives IDOK

    BOOL OnInitDialog() override;
    /// Brings what is refused to the front.
    void OnOK() override;
    int PreTranslateMessage(tagMSG* message) override;

protected:
    void SetupUI() override;
    void DoDataExchange(CDataExchange_X* exchange) override;

private Q_SLOTS:
    void OnMinimumSlid(int minimum) { m_minimumSpin.SetPos(minimum); }
    void OnMinimumSpun(int minimum) { m_minimum.SetPos(minimum); }
    void OnDeliveredChanged();
    void OnDaySelected();
    void OnPictureChanged();
    void OnChoosePicture();

private:
    void ConnectControls();
    void ExchangePart(CDataExchange_X* exchange, Part& part);
    void ExchangeSupply(CDataExchange_X* exchange, Part& part);
    void ExchangeHistory(CDataExchange_X* exchange, Part& part);
    QString Folder() const;

    CString_X m_title;
    const PartsBook& m_book;
    const CPartPictures& m_pictures;

    CTabCtrl_X m_tabs;
    CButton_X m_inUse;
    CStatic_X m_picture;
    CSliderCtrl_X m_minimum;
    CSpinButtonCtrl_X m_minimumSpin;
    CDateTimeCtrl_X m_delivered;
    CMonthCalCtrl_X m_calendar;
    CPartTips m_tips;
};
