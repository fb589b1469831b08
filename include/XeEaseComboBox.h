/// @file XeEaseComboBox.h
/// A combo box with a sign in its open list.
#pragma once

#include "xeafxctrl.h"

#include <QIcon>
#include <QPixmap>

struct tagDRAWITEMSTRUCT;

/// A combo box that keeps a narrow column at the left of its open list for a sign: the user erases the item that the
/// pointer is at by a click on it.
///
/// The library has the timer and the test for the place, and neither paints the sign nor erases an item: that is the
/// host's, who overrides DrawItem() and DrawHighlightSign() and sets `m_nHotItem`.
///
/// While the list is open timer 1 runs: SetTimer() has one number for one timer of the whole process, so a host that
/// uses 1 itself keeps its own and the box has none.
///
/// An object is made while there is a QApplication, whose style has the icon.
class XE_EXPORT CEaseComboBox_X : public CComboBox_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CEaseComboBox_X)

    CEaseComboBox_X();

    /// Paints an item. Here nothing: Qt paints it.
    virtual void DrawItem(tagDRAWITEMSTRUCT* item);
    /// Paints the sign, for which an item's rectangle is cut. Here 1, and the rectangle stays as it is.
    virtual int DrawHighlightSign(tagRECT* rect);

    int DestroyWindow() override;
    /// A key while the pointer is over the sign closes the list and goes no further.
    int PreTranslateMessage(tagMSG* message) override;
    /// Sees the window of the list, too: when it comes and goes, and its keys.
    bool eventFilter(QObject* target, QEvent* event) override;
    bool OnAttach() override;
    void OnDetach() override;

    /// Finds out whether the pointer is over the sign, which takes a hot item and a window that has grabbed the mouse:
    /// the sign column is that window's, unlike the published one, which is the list's. Anywhere else the cursor of the
    /// box is the arrow.
    void OnTimer(UINT_PTR id);

public Q_SLOTS:
    /// The list has opened: starts the timer, keeps the current item in `m_nDropSel`.
    void OnDropdown();
    /// An item has been chosen: stops the timer.
    void OnSelchange();
    /// The list has closed and nothing has been chosen: stops the timer, forgets the hot item, sets the arrow. It comes
    /// from the event loop, since Qt closes the list before it tells of a choice.
    void OnSelendcancel();
    /// The list has closed: stops the timer.
    void OnCloseupComboEase();

public:
    int m_bOverSign = 0; ///< whether the pointer is over the sign column of the open list
    int m_nSignWidth;    ///< of the column, in pixels: GetSystemMetrics_X(SM_CXSMICON), which is -1
    int m_nSignHeight;   ///< likewise, SM_CYSMICON
    int m_nHotItem = -1; ///< the item under the pointer, which the host finds out
    int m_nDropSel = -1; ///< what was current when the list opened
    QIcon m_iconSign;    ///< the style's sign for an error
    QPixmap m_pmSign;
    int m_bShowSign = 1;
    COLORREF m_crSign = 0xFA8080;

    DECLARE_MESSAGE_MAP_X()

private:
    enum class ListState { Closed, Open, Deciding };

    bool mayHaveTimer() const;
    void stopTimer();
    bool isOverSign() const;
    void listShown();
    void listHidden();
    void decide(bool isChosen);
    bool offerKey(QEvent& event);

    QPointer<QWidget> m_listWindow;
    QPointer<QWidget> m_list; // where the keys of an open list come to
    ListState m_listState = ListState::Closed;
};
