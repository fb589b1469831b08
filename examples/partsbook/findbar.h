#pragma once

#include "hitlist.h"

#include <xeafxbar.h>

/// Sent to the parent of the search bar: select the next part. wParam is TRUE where upper and lower case differ, lParam
/// the address of the text, a CString_X. The result is the number of the part, from 1 on, or 0 if there is none.
constexpr UINT WM_FIND_PART = WM_USER + 1;

/// Searches the parts, at the bottom of the window that it searches, and lists what it has found. What is
/// selected in the list is selected in the window; a double click or Return gives the keyboard there as well.
class CFindBar : public CDialogBar_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CFindBar)

    CFindBar(const PartsBook& book, const CPartPictures& pictures) : m_book(book), m_hits(pictures) {}

    /// Shows the bar, which is made when there is none, and gives it the keyboard.
    void Open(CWnd_X& frame);
    /// Has the parent search for the text used last.
    void FindNext();
    /// Lists what is found in the book as it is now.
    void ShowHits();

    /// Escape closes the bar.
    void OnKeyDown(UINT vk, UINT repeatCount, UINT modifiers);
    /// What the list of hits tells the window, which hands it on.
    LRESULT OnHitNotified(WPARAM, LPARAM record);

    DECLARE_MESSAGE_MAP_X()

protected:
    void SetupUI() override;
    void DoDataExchange(CDataExchange_X* exchange) override;

private Q_SLOTS:
    void OnFindNext();
    void OnFindClose();

private:
    const PartsBook& m_book;
    CHitList m_hits;
    QPointer<QWidget> m_focusBefore; // what had the keyboard when the bar was opened
    CString_X m_text;
    BOOL m_matchCase = FALSE;
};
