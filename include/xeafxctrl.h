/// @file xeafxctrl.h
/// The plain controls: button, static text, edit, combo box and list box, each the wrapper of one Qt widget.
///
/// A control is made by Create(), and the style word chooses the widget; or it wraps a widget of a form, by
/// SubclassDlgItem() or DDX_Control(), and the style word takes after the widget. In the style word only the kind of
/// control counts, and WS_VISIBLE, WS_VSCROLL and WS_HSCROLL as CWnd_X::Create() says: alignment, borders and the like
/// are for the form or its style sheet.
///
/// Unlike the published controls these send no WM_COMMAND: connect to the signals of the widget, by
/// CObject_X::Connect() or by slots of the right names. Qt's own timers of a widget arrive as WM_TIMER: a handler that
/// does not end in CWnd_X::OnTimer() stops the scrolling of a text edit, or the layout of a list.
///
/// Texts are measured in UTF-16 units, as Qt counts. Without a widget the members do nothing and give 0, an empty
/// value, or what they say. GUI thread only.
#pragma once

#include "xeafximg.h"
#include "xeafxwin.h"

#include <QComboBox>
#include <QIcon>
#include <QLabel>
#include <QList>
#include <QListWidget>
#include <QPixmap>
#include <QTextEdit>

class QLineEdit;

// ------------------------------------------------------------------------------------------------------------- numbers

// Kinds of a button: the low four bits of the style. BS_3STATE and BS_AUTO3STATE stand in xewinuser.h.
inline constexpr DWORD BS_PUSHBUTTON = 0;
inline constexpr DWORD BS_DEFPUSHBUTTON = 1;
inline constexpr DWORD BS_CHECKBOX = 2;
inline constexpr DWORD BS_AUTOCHECKBOX = 3;
inline constexpr DWORD BS_RADIOBUTTON = 4;
inline constexpr DWORD BS_GROUPBOX = 7;
inline constexpr DWORD BS_USERBUTTON = 8;
inline constexpr DWORD BS_AUTORADIOBUTTON = 9;
inline constexpr DWORD BS_OWNERDRAW = 0xB;
inline constexpr DWORD BS_TYPEMASK = 0xF;

inline constexpr UINT BST_PUSHED = 4;
inline constexpr UINT BST_FOCUS = 8;

// Styles of an edit: of these ES_MULTILINE and ES_NOHIDESEL count.
inline constexpr DWORD ES_LEFT = 0;
inline constexpr DWORD ES_CENTER = 1;
inline constexpr DWORD ES_RIGHT = 2;
inline constexpr DWORD ES_MULTILINE = 4;
inline constexpr DWORD ES_UPPERCASE = 8;
inline constexpr DWORD ES_LOWERCASE = 0x10;
inline constexpr DWORD ES_PASSWORD = 0x20;
inline constexpr DWORD ES_AUTOVSCROLL = 0x40;
inline constexpr DWORD ES_AUTOHSCROLL = 0x80;
inline constexpr DWORD ES_NOHIDESEL = 0x100;
inline constexpr DWORD ES_READONLY = 0x800;
inline constexpr DWORD ES_WANTRETURN = 0x1000;
inline constexpr DWORD ES_NUMBER = 0x2000;

// Styles of a static control: none counts.
inline constexpr DWORD SS_LEFT = 0;
inline constexpr DWORD SS_CENTER = 1;
inline constexpr DWORD SS_RIGHT = 2;
inline constexpr DWORD SS_ICON = 3;
inline constexpr DWORD SS_BITMAP = 0xE;
inline constexpr DWORD SS_NOTIFY = 0x100;

// Styles of a combo box: the low two bits count.
inline constexpr DWORD CBS_SIMPLE = 1;
inline constexpr DWORD CBS_DROPDOWN = 2;
inline constexpr DWORD CBS_DROPDOWNLIST = 3;
inline constexpr DWORD CBS_AUTOHSCROLL = 0x40;
inline constexpr DWORD CBS_SORT = 0x100;
inline constexpr DWORD CBS_HASSTRINGS = 0x200;

inline constexpr int CB_OKAY = 0;
inline constexpr int CB_ERR = -1;

// Styles of a list box: of these LBS_MULTIPLESEL counts.
inline constexpr DWORD LBS_NOTIFY = 1;
inline constexpr DWORD LBS_SORT = 2;
inline constexpr DWORD LBS_MULTIPLESEL = 8;
inline constexpr DWORD LBS_HASSTRINGS = 0x40;
inline constexpr DWORD LBS_USETABSTOPS = 0x80;
inline constexpr DWORD LBS_EXTENDEDSEL = 0x800;

inline constexpr int LB_OKAY = 0;
inline constexpr int LB_ERR = -1;

// ------------------------------------------------------------------------------------------------------------- buttons

/// A push button, check box, radio button or group box.
///
/// The low four bits of the style and the widget go together: BS_CHECKBOX and BS_AUTOCHECKBOX are a QCheckBox,
/// BS_3STATE and BS_AUTO3STATE one with three states, BS_RADIOBUTTON and BS_AUTORADIOBUTTON a QRadioButton, BS_GROUPBOX
/// a QGroupBox, all others a QPushButton. A widget that is wrapped sets them. Other widgets may be wrapped too: they
/// have the texts of a window and nothing else of a button.
///
///     CButton_X inUse;
///     inUse.Create(L"In use", WS_CHILD | WS_VISIBLE | BS_AUTO3STATE, CRect(10, 10, 110, 30), this);
///     inUse.SetCheck(BST_INDETERMINATE);
///
/// WS_GROUP does not matter: the radio buttons of one parent are one group. A widget without a wrapper gives a CWnd_X
/// by CWnd_X::FromHandle(), also when it is a button.
class XE_EXPORT CButton_X : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CButton_X)

    CButton_X() : CWnd_X(Control()) {}

    /// Makes a button in a place of the parent's, with this text. `id` has no meaning. 0 if the attachment fails,
    /// otherwise 1.
    int Create(const wchar_t* text, DWORD style, const tagRECT& rect, xe::detail::ParentWindow parent, UINT id = 0);
    /// CWnd_X::Create(): without a text, of the kind that ModifyStyle() has set.
    int Create(QWidget* parent) override { return CWnd_X::Create(parent); }

    /// BST_UNCHECKED, BST_CHECKED or, of three states, BST_INDETERMINATE. Of a group box whether it is checkable and
    /// checked.
    int GetCheck() const;
    /// Of three states any other value is ignored; of two any value but 0 checks. A group box must be checkable.
    void SetCheck(int check);
    /// BST_FOCUS if the button has the focus, otherwise 0: unlike the published function it tells nothing else.
    UINT GetState() const;
    /// Gives the button the focus, or takes it away for 0: unlike the published function it does not show the button as
    /// pressed.
    void SetState(int highlight);
    /// The icon in the button; a group box has none.
    QIcon GetIcon() const;
    void SetIcon(const QIcon& icon);

    bool AttachDefault(QWidget* parent) override;
    bool OnAttach() override;
    /// The text in the button, or the title of a group box.
    void GetWindowText(CString_X& text) const override;
    void SetWindowText(const wchar_t* text) override;

private:
    bool hasThreeStates() const;
};

// -------------------------------------------------------------------------------------------------------- static texts

/// A text or a picture that cannot be edited: a QLabel, by Create() an XeCUILabel.
///
/// SetIcon() and GetIcon() are those of CWnd_X: unlike in the published class the icon does not appear in the label.
class XE_EXPORT CStatic_X : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CStatic_X)
    DECLARE_IMP_CLASS_X(QLabel)

    CStatic_X() : CWnd_X(Control()) {}

    /// Makes a label in a place of the parent's, with this text. `id` has no meaning. 0 if the attachment fails,
    /// otherwise 1.
    int Create(const wchar_t* text, DWORD style, const tagRECT& rect, xe::detail::ParentWindow parent, UINT id = 0);
    int Create(QWidget* parent) override { return CWnd_X::Create(parent); }

    /// A copy of the picture; a null one if there is none.
    QPixmap GetBitmap() const;
    /// Shows a picture in place of the text.
    void SetBitmap(const QPixmap& bitmap);

    bool AttachDefault(QWidget* parent) override;
    void GetWindowText(CString_X& text) const override;
    void SetWindowText(const wchar_t* text) override;
};

// --------------------------------------------------------------------------------------------------------------- edits

/// A field for one line or for many: a QLineEdit or, with ES_MULTILINE, a QTextEdit; by Create() an XeCUILineEdit or an
/// XeCUITextEdit. A widget that is wrapped sets ES_MULTILINE or clears it.
///
/// One of many lines that Create() makes does not wrap its lines, has no context menu and no scroll bars of its own.
/// With WS_VSCROLL or WS_HSCROLL a bar of the window (CWnd_X::GetScrollBarCtrl()) scrolls it. A widget that exists
/// stays as it is.
///
/// By CWnd_X::FromHandle() a QLineEdit and a QTextEdit give a CEdit_X.
class XE_EXPORT CEdit_X : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CEdit_X)

    CEdit_X() : CWnd_X(Control()) {}

    static CRuntimeClass_X::MetaList* GetImpMetaList();

    /// Makes a field in a place of the parent's. `id` has no meaning. 0 if the attachment fails, otherwise 1.
    int Create(DWORD style, const tagRECT& rect, xe::detail::ParentWindow parent, UINT id = 0);
    int Create(QWidget* parent) override { return CWnd_X::Create(parent); }

    /// (0, 0, width, height) of the field; nothing for null.
    void GetRect(tagRECT* rect) const;
    /// Moves the field, unlike the published function: there is no margin round the text. Nothing for null.
    void SetRect(const tagRECT* rect);
    /// The ends of the selection; without one both are the caret's position.
    void GetSel(int& start, int& end) const;
    /// Selects what lies between two positions. Without ES_NOHIDESEL it does nothing unless the field has the focus.
    /// `noScroll` has no meaning.
    ///
    /// In one line: (0, -1) selects all, `start` -1 or behind the text puts the caret at the end, and below that
    /// nothing happens. In many lines, unlike the published function, the *word* at `start` is selected, wherever `end`
    /// is; a `start` outside the text puts the caret at the end. Hosts that mean the whole text call
    /// SetEditSelectAll_X().
    void SetSel(int start, int end, int noScroll = FALSE);
    /// Whether the text has been changed since SetModify() or SetWindowText().
    int GetModify() const;
    void SetModify(int modified = TRUE);
    /// 1.
    BOOL SetReadOnly(int readOnly = TRUE);

    /// The length of the whole text, unlike the published function: `line` has no meaning.
    int LineLength(int line = -1) const;
    /// The number of lines as they are laid out, wrapped ones too; 1 for one line.
    int GetLineCount() const;
    /// The line, from 0, that a position is in; the length of the text is in the last one. A position outside the text
    /// gives the paragraph of the caret. 0 for one line.
    int LineFromChar(int index = -1) const;
    /// The position at a point of the client area in the low 16 bits, its paragraph in the high 16.
    int CharFromPos(CPoint point) const;

    /// Puts a text in the place of the selection. It can be undone, whatever `canUndo` says.
    void ReplaceSel(const wchar_t* text, int canUndo = FALSE);
    /// Takes back the last change. 1, also when there is none.
    BOOL Undo();
    /// Empties the whole field, unlike the published function, which deletes the selection.
    void Clear();
    void Copy();
    void Cut();
    void Paste();

    /// Sets the text that an empty field shows. `showWithFocus` has no meaning: it is shown with the focus too. 1.
    BOOL SetCueBanner(const wchar_t* text, int showWithFocus = FALSE);
    /// Writes that text whole and *without a terminator*: `size` is not looked at, so the buffer has to be large
    /// enough. Nothing for null. 1.
    BOOL GetCueBanner(wchar_t* buffer, int size) const;

    bool AttachDefault(QWidget* parent) override;
    bool OnAttach() override;
    int OnCreate(tagCREATESTRUCTW* createStruct) override;
    void GetWindowText(CString_X& text) const override;
    /// A text that looks like HTML is taken as such by a field of many lines.
    void SetWindowText(const wchar_t* text) override;

private:
    bool mayShowSelection() const;
};

/// A field for rich text: a QTextEdit as Qt makes it. It has the text and nothing else of the published class.
///
/// Create() gives it no second scroll bars: it scrolls by its own.
class XE_EXPORT CRichEditCtrl_X : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CRichEditCtrl_X)
    DECLARE_IMP_CLASS_X(QTextEdit)

    CRichEditCtrl_X() : CWnd_X(Control()) {}

    /// Makes a field in a place of the parent's. `id` has no meaning. 0 if the attachment fails, otherwise 1.
    int Create(DWORD style, const tagRECT& rect, xe::detail::ParentWindow parent, UINT id = 0);
    int Create(QWidget* parent) override { return CWnd_X::Create(parent); }

    bool AttachDefault(QWidget* parent) override;
    /// The text without its formats.
    void GetWindowText(CString_X& text) const override;
    void SetWindowText(const wchar_t* text) override;
};

// --------------------------------------------------------------------------------------------------------- combo boxes

/// A box with a list to choose from, with or without a field: a QComboBox, by Create() an XeCUIComboBox.
///
/// The signals of the widget are blocked while the members change it, all but Clear(): a slot of the host runs for what
/// the user does. Nothing is sorted. Indices count from 0; without a widget the results are CB_ERR.
class XE_EXPORT CComboBox_X : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CComboBox_X)
    DECLARE_IMP_CLASS_X(QComboBox)

    CComboBox_X() : CWnd_X(Control()) {}

    /// Makes a box without a field.
    int Create(QWidget* parent) override { return CWnd_X::Create(parent); }
    /// Makes a box in a place of the parent's. CBS_DROPDOWNLIST has no field, every other kind has one and drops down.
    /// WS_VSCROLL is taken away; WS_HSCROLL is not and lays a scroll bar over the box. The height of the rectangle is
    /// the height of the box, unlike the published one, which includes the list. `id` has no meaning. 0 if the
    /// attachment fails, otherwise 1.
    int Create(DWORD style, const tagRECT& rect, xe::detail::ParentWindow parent, UINT id = 0);

    /// The number of items, and CB_ERR for an *empty* box, unlike the published function.
    int GetCount() const;
    int GetCurSel() const;
    /// Makes an item current, with -1 none. The index that is current then.
    int SetCurSel(int index);

    /// Appends an item. What is current or typed stays so: the first item does not become current. The new item's
    /// index.
    int AddString(const wchar_t* text);
    /// The same in front of an item; an index of -1 or behind the end appends.
    int InsertString(int index, const wchar_t* text);
    /// Removes an item. If it is the current one, a neighbour becomes current. The number of items left, 0 too; an
    /// index without an item changes nothing.
    int DeleteString(UINT index);
    void ResetContent();
    /// Removes all items, with signals: unlike the published function it is not about the selection in the field.
    void Clear();

    /// The first item from `start` on that begins with the text, or is equal to it, upper and lower case alike.
    /// CB_ERR if there is none: unlike the published functions these do not go round, and `start` is looked at too.
    int FindString(int start, const wchar_t* text) const;
    int FindStringExact(int start, const wchar_t* text) const;
    /// Makes the first item of all current that is equal to the text, upper and lower case alike, or, where both are
    /// numbers, less than 1 away from it: "1.5" finds "2.25". Unlike in the published function `start` has no meaning
    /// and the beginning of an item is not enough. The index, CB_ERR if there is none.
    int SelectString(int start, const wchar_t* text);
    /// Fills in the text of an item, an empty one for an index without. Its length.
    int GetLBText(int index, CString_X& text) const;

    /// The field; null in a box without.
    QLineEdit* GetEditBox() const;
    /// The ends of the selection in the field; without one both are the caret's position. Without a field nothing is
    /// written. 1, or 0 without a field.
    BOOL GetEditSel(int& start, int& end) const;
    /// Selects in the field: nothing for a `start` of -1, all for an `end` of -1, otherwise *`end` characters* from
    /// `start` on, unlike the published function. A `start` behind the text puts the caret at the end. 1, or 0 without
    /// a field.
    BOOL SetEditSel(int start, int end);
    /// With index -1 gives the field of a box this height in pixels; any other index does nothing. 0; CB_ERR without a
    /// field.
    int SetItemHeight(int index, UINT height);
    void ShowDropDown(int show = TRUE);
    /// Gives the list this width in pixels, which is the result.
    int SetDroppedWidth(UINT width);
    int GetDroppedWidth() const;

    /// Stores a number with an item, under Qt::UserRole. Its low 32 bits.
    int SetItemData(int index, unsigned long long data);
    /// That number; 0 if there is none.
    DWORD_PTR GetItemData(int index) const;
    /// Stores a pointer with an item, in the place of the number. 0.
    int SetItemDataPtr(int index, void* data);
    /// That pointer; null if there is none, also when there is a number.
    void* GetItemDataPtr(int index) const;

    bool AttachDefault(QWidget* parent) override;
    /// The current text, or what is typed.
    void GetWindowText(CString_X& text) const override;
    /// Types a text into the field and makes the item current that is exactly equal to it. A box without a field takes
    /// only such a text.
    void SetWindowText(const wchar_t* text) override;
};

/// What CComboBoxEx_X::InsertItem() takes.
struct tagCOMBOBOXEXITEMW_X
{
    UINT mask; ///< has no meaning: all fields count
    INT_PTR iItem;
    LPWSTR pszText;
    int cchTextMax;
    int iImage;
};

using COMBOBOXEXITEM = tagCOMBOBOXEXITEMW_X;

/// A combo box whose items have pictures.
class XE_EXPORT CComboBoxEx_X : public CComboBox_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CComboBoxEx_X)

    /// InsertString() of the record's item and text, with the picture of the list of this index, if there is one. The
    /// new item's index; -1 for null.
    int InsertItem(const tagCOMBOBOXEXITEMW_X* item);
    /// Takes a list of pictures for the items to come, whose bitmaps stay the caller's. A copy of the old one.
    CImageList_X SetImageList(const CImageList_X& list);

    CImageList_X imageList;
    /// Pictures that go before those of the list, by the same indices. They belong to whoever puts them in.
    QList<CBitmap_X*> itemImages;
};

// ---------------------------------------------------------------------------------------------------------- list boxes

/// A list of texts: a QListWidget.
///
/// The signals of the widget are blocked while the members change it. Nothing is sorted. Indices count from 0; without
/// a widget the results are LB_ERR. Create() gives it no second scroll bars: it scrolls by its own.
///
/// Mouse, wheel and context menu come with points in the viewport, as the places of the items are: see CWnd_X.
class XE_EXPORT CListBox_X : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CListBox_X)
    DECLARE_IMP_CLASS_X(QListWidget)

    CListBox_X() : CWnd_X(Control()) {}

    /// Makes a list in a place of the parent's, with LBS_MULTIPLESEL one of which many items can be selected. `id` has
    /// no meaning. 0 if the attachment fails, otherwise 1.
    int Create(DWORD style, const tagRECT& rect, xe::detail::ParentWindow parent, UINT id = 0);
    int Create(QWidget* parent) override { return CWnd_X::Create(parent); }

    /// The number of items, 0 for an empty list and without a widget.
    int GetCount() const;
    int GetCurSel() const;
    /// Makes an item current, with -1 none. The index, LB_ERR if there is no such item.
    int SetCurSel(int index);

    /// Appends an item. Its index.
    int AddString(const wchar_t* text);
    /// The same in front of an item; an index of -1 or behind the end appends.
    int InsertString(int index, const wchar_t* text);
    /// Removes an item. The number of items left, LB_ERR if there is no such item.
    int DeleteString(UINT index);
    void ResetContent();

    /// Fills in the text of an item, and leaves `text` alone if there is none. Its length; LB_ERR.
    int GetText(int index, CString_X& text) const;
    /// The number that the widget's item holds under Qt::UserRole, which the widget alone can set: there is no
    /// SetItemData(). All ones if there is no such item.
    DWORD_PTR GetItemData(int index) const;
    /// Where an item is in the viewport. 0; LB_ERR, with `rect` untouched, if there is no such item, and for null.
    int GetItemRect(int index, tagRECT* rect) const;
    /// The item at a point of the viewport, LB_ERR if there is none. `outside` is not written, unlike in the published
    /// function.
    int ItemFromPoint(CPoint point, int& outside) const;

    /// The number of selected items, LB_ERR where only one can be selected.
    int GetSelCount() const;
    /// Writes the indices of the selected items, at most `max`, in the order in which Qt keeps them. How many it has
    /// written; LB_ERR where only one can be selected.
    int GetSelItems(int max, int* rows) const;

    /// Makes the first item current that is at `start` or behind it and equal to the text, upper and lower case apart,
    /// unlike in the published function. Its index, LB_ERR if there is none.
    int SelectString(int start, const wchar_t* text);
    /// The first item *behind* `start` that begins with the text, upper and lower case alike. LB_ERR if there is none:
    /// it does not go round, unlike the published function.
    int FindString(int start, const wchar_t* text) const;

    /// Do nothing; those with a result give 0.
    void SetTabStops() {}
    BOOL SetTabStops(const int&) { return FALSE; }
    BOOL SetTabStops(int, int*) { return FALSE; }
    /// GetListBoxInfo_X(): the number of items, unlike the published function.
    DWORD GetListBoxInfo() const { return GetListBoxInfo_X(GetSafeHwnd()); }

    bool AttachDefault(QWidget* parent) override;
};

/// A list box whose items have check boxes.
class XE_EXPORT CCheckListBox_X : public CListBox_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CCheckListBox_X)

    /// CListBox_X::AddString() and InsertString(), with a check box that is not checked. The items that a wrapped
    /// widget has already get none before SetCheck().
    int AddString(const wchar_t* text);
    int InsertString(int index, const wchar_t* text);

    /// BST_CHECKED and BST_UNCHECKED, any other value is the third state. Nothing if there is no such item.
    void SetCheck(int index, int check);
    /// BST_UNCHECKED, BST_CHECKED or BST_INDETERMINATE; the last if there is no such item, and without a widget.
    int GetCheck(int index) const;
    /// Whether the user can select and check an item.
    void Enable(int index, int enable = TRUE);
};
