#pragma once

#include "chartlayout.h"

#include <xeafxwin.h>

/// Sent to the main window: select the part of a row, which is wParam. lParam is TRUE to give its list the keyboard.
constexpr UINT WM_SELECT_ROW = WM_USER + 2;

/// The pane beside the list: a bar for each kind of part, the one of the selected part inverted. A click on a bar
/// selects the first part of the kind.
class CStockChart : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CStockChart)

    void Show(std::vector<KindStock> stock);
    /// Marks the bar of a kind; none for a kind that has no bar.
    void SelectKind(const CString_X& kind);
    /// The bar that is marked, -1 for none.
    int SelectedBar() const { return m_selected; }
    /// Where everything stands in the pane as it is now.
    ChartLayout Layout() const;

    void OnPaint();
    void OnLButtonDown(UINT flags, CPoint point);

    DECLARE_MESSAGE_MAP_X()

private:
    std::vector<KindStock> m_stock;
    int m_selected = -1;
};
