#pragma once

#include <xeafxdlg.h>

/// Sent to the parent of the search dialog: select the next part. wParam is TRUE where upper and lower case differ,
/// lParam the address of the text, a CString_X. The result is TRUE if there is such a part.
constexpr UINT WM_FIND_PART = WM_USER + 1;

/// Searches the parts, beside the window that it searches.
class CFindDialog : public CDialog_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CFindDialog)

    /// Shows the dialog, which is made when there is none.
    void Open(CWnd_X* frame);
    /// Has the parent search for the text used last.
    void FindNext();

    void OnOK() override;

protected:
    void SetupUI() override;
    void DoDataExchange(CDataExchange_X* exchange) override;

private:
    CString_X m_text;
    BOOL m_matchCase = FALSE;
};
