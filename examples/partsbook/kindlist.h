#pragma once

#include "kindstock.h"

#include <QListWidget>
#include <xeafxwin.h>

/// The list of the kinds of parts, with all of them as its first entry. The current entry says which parts are shown.
class CKindList : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CKindList)
    DECLARE_IMP_CLASS_X(QListWidget)

    /// Lists the kinds of a book. The current kind stays so; one that there is no more gives way to all kinds.
    void Show(const std::vector<KindStock>& stock);
    /// Whether the current entry is for parts of this kind.
    bool Includes(const CString_X& kind) const;
    void SelectAll();

    bool AttachDefault(QWidget* parent) override;
};
