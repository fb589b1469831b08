#pragma once

#include "hitlist.h"

#include <xeafxbar.h>

/// Sent to the parent of the search bar: select the next part. wParam is TRUE where upper and lower case differ, lParam
/// the address of the text, a CString_X. The result is the number of the part, from 1 on, or 0 if there is none.
constexpr UINT WM_FIND_PART = WM_USER + 1;

/// Searches the parts, at the bottom of the window that it searches, and lists what it has found. A click in the list
/// selects the part in the window.
class CFindBar : public CDialogBar_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CFindBar)

    CFindBar(const PartsBook& book, const CPartPictures& pictures) : m_book(book), m_pictures(pictures) {}

    /// Shows the bar, which is made when there is none, and gives it the keyboard.
    void Open(CWnd_X& frame);
    /// Has the parent search for the text used last.
    void FindNext();
    /// Lists what is found in the book as it is now.
    void ShowHits();

    /// Escape closes the bar.
    void OnKeyDown(UINT vk, UINT repeatCount, UINT modifiers);

    DECLARE_MESSAGE_MAP_X()

protected:
    void SetupUI() override;
    void DoDataExchange(CDataExchange_X* exchange) override;

private Q_SLOTS:
    void OnFindNext();
    void OnFindClose();
    void OnHitSelected();

private:
    const PartsBook& m_book;
    const CPartPictures& m_pictures;
    CHitList m_hits;
    QPointer<QWidget> m_focusBefore; // what had the keyboard when the bar was opened
    CString_X m_text;
    BOOL m_matchCase = FALSE;
};
