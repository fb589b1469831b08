/// @file XeEaseInPlaceList.h
/// The ease combo box as the editor of a cell.
#pragma once

#include "XeEaseComboBox.h"
#include "XeInPlaceEdit.h"

/// A CInPlaceList_X that is an ease combo box: what the user erases from the list is gone from the cell's items too.
///
/// It ends by Return, Esc, Tab, by a scrolled or resized grid and by the next editor; a loss of the focus ends it with
/// the style CBS_DROPDOWNLIST alone.
class XE_EXPORT CEaseInPlaceList_X : public CEaseComboBox_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CEaseInPlaceList_X)

    /// As CInPlaceList_X. `rect` grows by the height of the list; the box itself keeps the height that it had.
    CEaseInPlaceList_X(CWnd_X* parent, CRect& rect, unsigned int style, unsigned int id, int row, int col,
                       CStringArray_X& items, CString_X text, unsigned int ch);
    ~CEaseInPlaceList_X() override;

    /// CInPlaceList_X::EndEdit().
    void EndEdit();

    void PostNcDestroy() override;
    bool eventFilter(QObject* target, QEvent* event) override;

    void OnKillFocus(QWidget* other);
    /// The arrow and page keys end the edit, if `m_bExitOnArrows` or Ctrl says so; Return and Esc do it when they come
    /// up.
    void OnKeyDown(UINT vk, UINT repeatCount, UINT modifiers);
    /// CInPlaceList_X::OnKeyUp().
    void OnKeyUp(UINT vk, UINT repeatCount, UINT modifiers);

public Q_SLOTS:
    void OnSelendcancel();

public:
    CComboEdit_X m_edit; ///< the field, if there is one
    int m_nNumLines;     ///< of items, 20 at most
    CString_X m_sInitText;
    int m_nRow;
    int m_nCol;
    unsigned int m_nLastChar;
    int m_bExitOnArrows; ///< 0: arrow and page keys need Ctrl

    DECLARE_MESSAGE_MAP_X()

private:
    std::unique_ptr<xe::ListEditing> m_editing;
};
