#pragma once

#include <xeafxctrl.h>
#include <xeafxdlg.h>

#include <vector>

/// Lets the user choose the columns that a list shows. The first one is always shown.
class CColumnsDialog : public CDialog_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CColumnsDialog)

    CColumnsDialog(const std::vector<CString_X>& headings, CWnd_X* parent);

    unsigned m_hidden = 0; ///< a bit for each column that is not shown

    BOOL OnInitDialog() override;

protected:
    void SetupUI() override;
    void DoDataExchange(CDataExchange_X* exchange) override;

private:
    std::vector<CString_X> m_headings;
    CCheckListBox_X m_columns;
};
