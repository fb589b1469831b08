// The controls, bars, splitters and dialogs of the random walk.
#pragma once

#include <XeMFCEmu.h>

/// Wrappers of controls, bars, splitters and dialogs, without widgets. `kind` counts from 0 to controlKinds - 1.
inline constexpr int controlKinds = 16;
inline CWnd_X* newControl(int kind)
{
    switch (kind) {
    case 0:
        return new CButton_X;
    case 1:
        return new CStatic_X;
    case 2:
        return new CEdit_X;
    case 3:
        return new CComboBox_X;
    case 4:
        return new CListBox_X;
    case 5:
        return new CListCtrl_X;
    case 6:
        return new CTreeCtrl_X;
    case 7:
        return new CTabCtrl_X;
    case 8:
        return new CSliderCtrl_X;
    case 9:
        return new CHeaderCtrl_X;
    case 10:
        return new CDateTimeCtrl_X;
    case 11:
        return new CToolBar_X;
    case 12:
        return new CStatusBar_X;
    case 13:
        return new CFrameWnd_X;
    case 14:
        return new CDialog_X;
    default:
        return new CSplitterWnd_X;
    }
}

/// Puts a row, item, pane or the like into a control, or takes all out for `remove`.
inline void changeItems(CWnd_X& control, bool remove)
{
    if (auto* const combo = dynamic_cast<CComboBox_X*>(&control))
        remove ? combo->ResetContent() : void(combo->AddString(L"entry"));
    else if (auto* const box = dynamic_cast<CListBox_X*>(&control))
        remove ? box->ResetContent() : void(box->AddString(L"entry"));
    else if (auto* const list = dynamic_cast<CListCtrl_X*>(&control))
        remove ? list->DeleteAllItems() : list->InsertColumn(0, L"column") + list->InsertItem(0, L"row");
    else if (auto* const tree = dynamic_cast<CTreeCtrl_X*>(&control))
        remove ? void(tree->DeleteAllItems()) : void(tree->InsertItem(L"item", tree->InsertItem(L"parent")));
    else if (auto* const tabs = dynamic_cast<CTabCtrl_X*>(&control))
        remove ? tabs->DeleteAllItems() : tabs->InsertItem(0, L"page");
    else if (auto* const slider = dynamic_cast<CSliderCtrl_X*>(&control))
        slider->SetPos(remove ? 0 : 5);
    else if (auto* const tools = dynamic_cast<CToolBar_X*>(&control))
        remove ? tools->DeleteButton(tools->GetListActions().value(0)) : tools->AddSeparator(nullptr);
    else if (auto* const panes = dynamic_cast<CStatusBar_X*>(&control))
        panes->SetPaneText(remove ? 0 : 1, L"text");
    else
        control.SetWindowText(remove ? L"" : L"text");
}
