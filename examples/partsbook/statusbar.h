#pragma once

#include <xeafxbar.h>

/// The status bar of the main window: a message, the place in the list, the number of parts, how many of them are
/// short, and whether the book has been changed.
class CPartsStatusBar : public CStatusBar_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CPartsStatusBar)

    /// Makes the bar at the bottom of the main window.
    void Open(CWnd_X& frame);
    /// An empty text takes the message away.
    void ShowMessage(const CString_X& text) { ShowText(Message, text); }
    /// The place of the message in the bar, for what is shown there instead.
    CRect MessageRect() const;
    /// The part and the column that have the focus in the list, empty for none.
    void ShowPlace(const CString_X& text) { ShowText(Place, text); }
    void ShowCounts(int parts, int shortParts);
    void ShowModified(bool modified);

private:
    enum Pane { Message, Place, Count, Short, Modified, paneCount };

    void ShowText(Pane pane, const CString_X& text);

    CString_X m_texts[paneCount];
};
