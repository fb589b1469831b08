/// @file XeInPlaceEdit.h
/// The editors that a grid lays over its cells: a field for text, and a box with a list.
///
/// A cell makes its editor with `new` in CGridCellBase_X::Edit(). From then on the editor looks after itself: when it
/// loses the focus, or a key ends it, it sends XE_WM_ENDEDIT with an XeGridEditEnd to the grid's widget, hides, and
/// deletes itself when control returns to the event loop. If its widget goes first, it goes with it. A menu or a list
/// that opens from it does not end it; another window that becomes active does.
///
/// No key that an editor gets reaches the grid or a dialog's default button. The numbers of the keys that an editor
/// stores and is opened by are characters (1 for an opening by F2 or the mouse) or VK codes: 9, 13, 27, and for the
/// arrow and page keys 33 to 40.
#pragma once

#include "xeafxarray.h"
#include "xeafxctrl.h"

#include <memory>

namespace xe {
class EditorLife;
class ListEditing;
} // namespace xe

/// The editor of a text: a QLineEdit with the font of the grid.
///
/// | opened by `ch`  | what is selected | then                                                    |
/// | --------------- | ---------------- | ------------------------------------------------------- |
/// | 9, 32 to 40     | all              |                                                         |
/// | 1, 13           | caret at the end |                                                         |
/// | 8               | caret at the end | the last character goes                                 |
/// | any other       | all              | the character is typed, so that it replaces the text    |
class XE_EXPORT CInPlaceEdit_X : public CEdit_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CInPlaceEdit_X)

    /// Opens the editor of a cell in a rectangle of `parent`, right-aligned with ES_RIGHT, centred with ES_CENTER. `id`
    /// has no meaning. One that could not be made has no window, and is to be deleted.
    CInPlaceEdit_X(QWidget* parent, CRect& rect, unsigned int style, unsigned int id, int row, int col, CString_X text,
                   unsigned int ch);
    /// One that is still open goes without a report, and its cell is told by OnEndEdit().
    ~CInPlaceEdit_X() override;

    /// Sends the text to the grid, gives that the focus if it has it itself, hides and goes later. While another editor
    /// does so it does nothing. Called again it reports again.
    void EndEdit();

    /// 1 for WM_SYSCHAR, which goes nowhere.
    int PreTranslateMessage(tagMSG* message) override;
    /// Deletes the editor.
    void PostNcDestroy() override;
    bool eventFilter(QObject* target, QEvent* event) override;

    void OnKillFocus(QWidget* other);
    /// Return and Esc end the edit, Esc with the text of the start; so do the arrow and page keys, if `m_bExitOnArrows`
    /// or Ctrl says so.
    void OnKeyDown(UINT vk, UINT repeatCount, UINT modifiers);
    /// Tab, Return and Esc end the edit, but not as characters typed with Ctrl. For any other the field becomes as wide
    /// as its text, as far as the grid goes.
    void OnChar(UINT character, UINT repeatCount, UINT modifiers);

    int m_nRow;
    int m_nCol;
    CString_X m_sInitText;    ///< at the start, for Esc
    unsigned int m_nLastChar; ///< the key that has ended the edit; 0 if none has
    int m_bExitOnArrows;      ///< the arrow and page keys end the edit: not if it was opened by 1
    CRect m_Rect;             ///< where the field is, in the grid's client coordinates

    DECLARE_MESSAGE_MAP_X()

private:
    void setUpField(const QWidget& parent, unsigned int style);
    void begin(unsigned int ch);
    void grow();

    std::unique_ptr<xe::EditorLife> m_life;
};

/// The field of a box with a list: it hands keys that end an edit on to the box.
///
/// In Qt the box has the focus and the keys itself, and tells the field; this class serves fields that get keys of
/// their own.
class XE_EXPORT CComboEdit_X : public CEdit_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CComboEdit_X)

    /// 1 for WM_KEYDOWN, WM_KEYUP and WM_SYSCHAR, which go nowhere.
    int PreTranslateMessage(tagMSG* message) override;

    /// Ends the edit of the box, a CInPlaceList_X or CEaseInPlaceList_X.
    void OnKillFocus(QWidget* other);
    /// With Ctrl an arrow or page key is sent on to the box, as the same message.
    void OnKeyDown(UINT vk, UINT repeatCount, UINT modifiers);
    /// Esc, Tab and Return are sent on, likewise.
    void OnKeyUp(UINT vk, UINT repeatCount, UINT modifiers);

    DECLARE_MESSAGE_MAP_X()
};

/// The editor with a list: a QComboBox, with a field unless its style is CBS_DROPDOWNLIST.
///
/// What it is opened by is typed as into a CInPlaceEdit_X, but for Tab and Space: they are typed like any other
/// character, of which a field takes Space alone.
class XE_EXPORT CInPlaceList_X : public CComboBox_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CInPlaceList_X)

    /// Opens the editor of a cell in a rectangle of the grid's, with these items. A text that is none of them stands in
    /// the field. `id` has no meaning. One that could not be made has no window, and is to be deleted.
    CInPlaceList_X(CWnd_X* parent, CRect& rect, unsigned int style, unsigned int id, int row, int col,
                   CStringArray_X& items, CString_X text, unsigned int ch);
    ~CInPlaceList_X() override;

    /// CInPlaceEdit_X::EndEdit(), also while another editor ends.
    void EndEdit();

    /// In a box whose style is not CBS_DROPDOWN a press of the mouse opens the list: 1 for it and its release.
    int PreTranslateMessage(tagMSG* message) override;
    void PostNcDestroy() override;
    bool eventFilter(QObject* target, QEvent* event) override;

    /// Nothing while the list is open, and nothing if the box or a part of it has the focus now.
    void OnKillFocus(QWidget* other);
    /// CInPlaceEdit_X::OnKeyDown().
    void OnKeyDown(UINT vk, UINT repeatCount, UINT modifiers);
    /// Esc, with the text of the start, Tab and Return end the edit. The release of the key that opened the editor does
    /// not.
    void OnKeyUp(UINT vk, UINT repeatCount, UINT modifiers);

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
