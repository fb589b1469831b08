#pragma once

#include "part.h"

#include <QStringList>
#include <xeafxdlg.h>

/// Shows a part and lets the user change it.
class CPartDialog : public CDialog_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CPartDialog)

    /// `suppliers` are what the user can choose from, besides the part's own.
    CPartDialog(const CString_X& title, const QStringList& suppliers, CWnd_X* parent);

    Part m_part; ///< shown at the beginning, and changed when DoModal() gives IDOK

    BOOL OnInitDialog() override;

protected:
    void SetupUI() override;
    void DoDataExchange(CDataExchange_X* exchange) override;

private:
    CString_X m_title;
    QStringList m_suppliers;
};
