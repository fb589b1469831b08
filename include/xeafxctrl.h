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

namespace xe::detail {

/// The parent of a control that is to be made: a widget or its wrapper, null for the host's main window.
class ParentWindow
{
public:
    ParentWindow(QWidget* widget) : m_widget(widget) {}
    template <class Window, IfWindow<Window> = 0>
    ParentWindow(const Window* window) : m_widget(window ? window->GetSafeHwnd() : nullptr)
    {}

    operator QWidget*() const { return m_widget; }

private:
    QWidget* m_widget;
};

} // namespace xe::detail

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
