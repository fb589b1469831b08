/// @file xeafxbar.h
/// Control bars: tool bars, status bars, dialog bars and dock bars. GUI thread only.
///
/// A bar lies where its own functions put it, in pixels; no frame lays it out. In a QMainWindow the host adds the bar's
/// widget itself, `frame->addToolBar(bar.Imp<QToolBar>())` and the like, and the frame's layout places it from then on.
///
/// Without a widget the functions do nothing and give 0, null or an empty value, unless they say otherwise. A negative
/// index is one that is out of range; a null text is an empty one.
#pragma once

#include "xeafxarray.h"
#include "xeafxwin.h"

#include <QDockWidget>
#include <QIcon>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QStatusBar>
#include <QString>
#include <QToolBar>

#include <map>

class QAction;
class QLabel;

struct _AFX_OCC_DIALOG_INFO_X; ///< stored and never looked at

// ------------------------------------------------------------------------------------------------------ styles of bars

inline constexpr DWORD CBRS_ALIGN_LEFT = 0x1000;
inline constexpr DWORD CBRS_ALIGN_TOP = 0x2000;
inline constexpr DWORD CBRS_ALIGN_RIGHT = 0x4000;
inline constexpr DWORD CBRS_ALIGN_BOTTOM = 0x8000;
inline constexpr DWORD CBRS_ALIGN_ANY = 0xF000;
inline constexpr DWORD CBRS_BORDER_LEFT = 0x0100;
inline constexpr DWORD CBRS_BORDER_TOP = 0x0200;
inline constexpr DWORD CBRS_BORDER_RIGHT = 0x0400;
inline constexpr DWORD CBRS_BORDER_BOTTOM = 0x0800;
inline constexpr DWORD CBRS_BORDER_ANY = 0x0F00;
inline constexpr DWORD CBRS_FLOATING = 0x0001;
inline constexpr DWORD CBRS_SIZE_FIXED = 0x0002;
inline constexpr DWORD CBRS_SIZE_DYNAMIC = 0x0004;
inline constexpr DWORD CBRS_HIDE_INPLACE = 0x0008;
inline constexpr DWORD CBRS_TOOLTIPS = 0x0010;
inline constexpr DWORD CBRS_FLYBY = 0x0020;
inline constexpr DWORD CBRS_FLOAT_MULTI = 0x0040;
inline constexpr DWORD CBRS_BORDER_3D = 0x0080;
inline constexpr DWORD CBRS_GRIPPER = 0x00400000;
inline constexpr DWORD CBRS_ORIENT_HORZ = CBRS_ALIGN_TOP | CBRS_ALIGN_BOTTOM;
inline constexpr DWORD CBRS_ORIENT_VERT = CBRS_ALIGN_LEFT | CBRS_ALIGN_RIGHT;
inline constexpr DWORD CBRS_ORIENT_ANY = CBRS_ORIENT_HORZ | CBRS_ORIENT_VERT;
inline constexpr DWORD CBRS_ALL = 0x0040FFFF;
inline constexpr DWORD CBRS_NOALIGN = 0;
inline constexpr DWORD CBRS_LEFT = CBRS_ALIGN_LEFT | CBRS_BORDER_RIGHT;
inline constexpr DWORD CBRS_TOP = CBRS_ALIGN_TOP | CBRS_BORDER_BOTTOM;
inline constexpr DWORD CBRS_RIGHT = CBRS_ALIGN_RIGHT | CBRS_BORDER_LEFT;
inline constexpr DWORD CBRS_BOTTOM = CBRS_ALIGN_BOTTOM | CBRS_BORDER_TOP;

// Styles of a status bar's panes: CStatusBar_X takes no notice of them.
inline constexpr UINT SBPS_NORMAL = 0;
inline constexpr UINT SBPS_NOBORDERS = 0x0100;
inline constexpr UINT SBPS_POPOUT = 0x0200;
inline constexpr UINT SBPS_OWNERDRAW = 0x1000;
inline constexpr UINT SBPS_DISABLED = 0x04000000;
inline constexpr UINT SBPS_STRETCH = 0x08000000;

// ------------------------------------------------------------------------------------------------------- control bar

/// What all bars are: a window whose style has CBRS_ bits. Like a control it gets a menu bar only with a menu.
class XE_EXPORT CControlBar_X : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CControlBar_X)

    CControlBar_X();

protected:
    static QWidget* WidgetOf(const CWnd_X* window) { return window ? window->GetSafeHwnd() : nullptr; }
};

// ---------------------------------------------------------------------------------------------------------- tool bar

/// The wrapper of a QToolBar. Its buttons are QActions of the host's, and unlike in the published class the action is
/// the button's identifier: there are no numbers. A strip of pictures goes over the buttons that are there.
///
///     CToolBar_X bar;
///     bar.Create(&frame);
///     bar.LoadToolBar({actionNew, actionOpen, separator, actionFind}, FALSE);
///     bar.LoadBitmap(L":/images/toolbar.png"); // three pictures of 16 x 15 pixels, side by side
///     bar.DockBar(CBRS_TOP);
///
/// An index counts the buttons, from 0 and without the separators, except for GetItemID(). Actions stay their owner's;
/// those that the bar makes itself are children of the QToolBar.
class XE_EXPORT CToolBar_X : public CControlBar_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CToolBar_X)
    DECLARE_IMP_CLASS_X(QToolBar)

    /// Makes a QToolBar with this Qt parent and attaches it as an owned one.
    bool AttachDefault(QWidget* parent) override;

    QT_WARNING_PUSH
    QT_WARNING_DISABLE_CLANG("-Woverloaded-virtual")
    QT_WARNING_DISABLE_GCC("-Woverloaded-virtual") // hides the forms of a window, as the published class does
    /// Makes the bar, a child of `parent` or, for null, of the host's main window; WS_VISIBLE shows it. Buttons show
    /// icons of 16 x 15 pixels alone, and turn light blue under the mouse and while they are down. 1; 0 if the
    /// attachment fails. CBRS_ bits are stored only: DockBar() is what places the bar.
    int Create(QWidget* parent, DWORD style = WS_CHILD | WS_VISIBLE | CBRS_TOP);
    QT_WARNING_POP
    /// The same with the parent's wrapper.
    template <class Window, xe::detail::IfWindow<Window> = 0>
    int Create(const Window* parent, DWORD style = WS_CHILD | WS_VISIBLE | CBRS_TOP)
    {
        return Create(WidgetOf(parent), style);
    }

    /// This object.
    CToolBar_X& GetToolBarCtrl() { return *this; }
    /// Sets the size of the icons, in pixels; that of the buttons follows from it, whatever `button` says.
    void SetSizes(SIZE button, SIZE image);
    /// Fixes the height of the bar. From then on it wins over every other, DockBar()'s too.
    void SetHeight(int height);
    Qt::ToolButtonStyle GetButtonStyle() const; ///< without a widget icons alone
    void SetButtonStyle(Qt::ToolButtonStyle style);
    /// The widget's place in its parent.
    void setGeometry(const QRect& geometry);

    // --------------------------------------------------------------------------------------------------------- filling
    // A null action is passed over, and gives 0 where it is the only one.

    /// Does nothing and gives 1, also without a widget: numbers stand for no buttons.
    BOOL SetButtons(const UINT* ids, int count);
    /// Puts these actions in the place of what is on the bar. 1, also for an empty list.
    BOOL SetButtons(QList<QAction*> actions);
    /// Adds these actions; with `checkable` each that is no separator becomes a check button. 1; 0 if there are none.
    BOOL LoadToolBar(QList<QAction*> actions, int checkable);
    /// Adds a check button of the bar's own for each of these files that is a picture. 1; 0 if none is.
    BOOL LoadToolBar(QList<QString> paths);
    /// Lays a strip of pictures over the buttons. It is cut into as many slices of one width as icons fit into it side
    /// by side, and each button in turn gets one as its icon, light grey (192, 192, 192) transparent. A hidden button
    /// uses its slice up; separators have none. 1; 0 without a button, without such a file, and for a strip that is
    /// narrower than an icon.
    BOOL LoadBitmap(const wchar_t* path);
    /// The picture of a file as an icon, with all its colours: nothing becomes transparent. A null one if there is no
    /// such picture.
    QIcon LoadIcon(QString path) const;
    /// Adds a button with the icon and no text that triggers the action, and shows whether that is enabled and checked,
    /// and its tool tip. The button is an action of the bar's own, unlike what GetItemID() of a loaded action is. 1; 0,
    /// and no button, for a null icon.
    ///
    /// For a null action the button is added, does nothing by itself, and the result is 0.
    BOOL AddButton(const QIcon& icon, QAction* action);
    /// The same with LoadIcon() of the path.
    BOOL AddButton(QString path, QAction* action);
    BOOL AddButton(const wchar_t* path, QAction* action);
    /// Adds a separator of the bar's own; the argument is ignored. 1.
    BOOL AddSeparator(QAction* ignored);
    /// Takes the action off the bar, and leaves it alive. 1, also if it is not there.
    BOOL DeleteButton(QAction* action);

    // ----------------------------------------------------------------------------------------------------- the buttons

    /// Checks for 1, and makes the action checkable if need be; unchecks for any other value. 1.
    BOOL CheckButton(QAction* action, int check);
    /// Enables for 1 and disables for any other value. 1.
    BOOL EnableButton(QAction* action, int enable);
    /// The actions without the separators.
    QList<QAction*> GetListActions() const;
    /// How many of them there are.
    int GetButtonCount() const;
    /// The action at an index that counts separators too, as a number; 0 if it is out of range.
    UINT_PTR GetItemID(int index) const;
    /// The button's index. -1 for a bar with nothing on it and without a widget; the number of buttons for an action
    /// that is not on the bar and for null.
    int CommandToIndex(QAction* action) const;
    /// The button's place on the bar. `right` and `bottom` are the last column and row in it, not one past them as in
    /// the published function. Out of range, and for a null rectangle, nothing is written.
    void GetItemRect(int index, tagRECT* rect) const;
    /// The action's text; empty out of range.
    QString GetButtonText(int index) const;
    void GetButtonText(int index, QString& text) const;
    /// Sets the text that a button shows, which is not the one that GetButtonText() gives: that is the menu's. 1, or 0
    /// out of range.
    BOOL SetButtonText(int index, const wchar_t* text);

    // ------------------------------------------------------------------------------------------------------- placement

    /// Lays the bar along a side of its parent, wholly inside, and turns it accordingly: CBRS_LEFT, CBRS_TOP,
    /// CBRS_RIGHT or CBRS_BOTTOM. It is 8 pixels thicker than an icon. Any other value, and a bar without parent:
    /// nothing. It does not follow when the parent's size changes.
    void DockBar(int side);
    /// Makes the bar 8 pixels higher than an icon, and with `setWidth` as wide as its buttons: 7 pixels and an icon
    /// each, 7 for a separator. For bars that lie: one that stands becomes a button high. Nothing for a bar with
    /// nothing on it, or whose buttons do not show icons alone.
    void UpdateToolBarSize(int setWidth);
};

// -------------------------------------------------------------------------------------------------------- status bar

/// The wrapper of a QStatusBar. Its panes are labels, which the first text of an index makes.
///
///     CStatusBar_X bar;
///     bar.Create(&frame);
///     bar.SetPaneText(0, L"Ready");
///     bar.SetPaneInfo(1, 0, SBPS_NORMAL, 80); // an empty pane, 80 pixels wide
///
/// A pane's widget is replaced whenever its text is set, so do not keep what GetListQWidgets() and GetItemID() give.
/// The panes belong to the bar's widget; the wrapper only knows them, and forgets them when it lets go of the widget.
class XE_EXPORT CStatusBar_X : public CControlBar_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CStatusBar_X)
    DECLARE_IMP_CLASS_X(QStatusBar)

    /// Makes a QStatusBar with this Qt parent and attaches it as an owned one.
    bool AttachDefault(QWidget* parent) override;
    /// Forgets the panes.
    void OnDetach() override;

    QT_WARNING_PUSH
    QT_WARNING_DISABLE_CLANG("-Woverloaded-virtual")
    QT_WARNING_DISABLE_GCC("-Woverloaded-virtual")
    /// Makes the bar, without a size grip, a child of `parent` or, for null, of the host's main window; WS_VISIBLE
    /// shows it. 1; 0 if the attachment fails.
    int Create(QWidget* parent, DWORD style = WS_CHILD | WS_VISIBLE | CBRS_BOTTOM);
    QT_WARNING_POP
    /// The same with the parent's wrapper.
    template <class Window, xe::detail::IfWindow<Window> = 0>
    int Create(const Window* parent, DWORD style = WS_CHILD | WS_VISIBLE | CBRS_BOTTOM)
    {
        return Create(WidgetOf(parent), style);
    }

    /// Does nothing and gives 1, also without a widget: panes are made by their texts.
    BOOL SetIndicators(const UINT* ids, int count);
    /// Does nothing.
    void SetPaneStyle(int index, UINT style);
    /// Puts a new label with this text in the pane's place. Of a pane that is there it takes the width and 1 pixel
    /// more, until the panes are as wide as the bar's parent; it does not grow with the text. A new pane gets the width
    /// of its text, behind the panes of lower indices, and UpdateStatusBarWidth() follows. `update` is ignored. 1; 0
    /// for a negative index.
    ///
    /// If m_mapPanes has a null widget at the index, nothing changes and the result is 1.
    BOOL SetPaneText(int index, const wchar_t* text, int update = TRUE);
    /// Puts an empty label of this width, in pixels, in the pane's place. `id` and `style` have no effect.
    ///
    /// Where there was a pane, it is none any more: the empty label only keeps its place, and the next text of that
    /// index makes a new pane beside it. A second call takes away the empty label of the first.
    void SetPaneInfo(int index, UINT id, UINT style, int width);
    /// The pane with this widget; -1 if there is none.
    int CommandToIndex(QWidget* widget) const;
    /// The pane's widget as a number; 0 if there is no such pane.
    UINT_PTR GetItemID(int index) const;
    /// (0, 0), and the last column and row of a pane: its size, not its place, unlike the published function. Nothing
    /// is written without such a pane, and for null.
    void GetItemRect(int index, tagRECT* rect) const;
    /// The widgets of the panes in the order of their indices, without null ones.
    QList<QWidget*> GetListQWidgets() const;
    /// The widget's place in its parent.
    void setGeometry(const QRect& geometry);
    /// Makes the bar as wide as its panes, 7 pixels between them; nothing without panes. The argument is ignored. Where
    /// a layout places the bar, its next pass gives back the width.
    void UpdateStatusBarWidth(UINT ignored);

    std::map<unsigned int, QWidget*> m_mapPanes; ///< by index, in their order on the bar; not owned

private:
    void addPane(unsigned index, QLabel* label);
    void enterPane(unsigned index, QLabel* label);
    bool takeOff(QWidget* widget);
    void forgetPane(const QObject* pane);
    int placeOf(unsigned index) const;
    int widthOfPanes() const;
    int grownWidth(const QWidget& pane) const;

    std::map<unsigned int, QPointer<QLabel>> m_blanks; // the labels of SetPaneInfo() that are no panes
    QObject m_watch;                                   // ends the watch over the panes ahead of the maps
};

// -------------------------------------------------------------------------------------------------------- dialog bar

/// The wrapper of a QDockWidget that holds a form: a host derives a class and builds the form in SetupUI().
///
/// @code
/// void CFindBar::SetupUI()
/// {
///     auto* const form = new QWidget;
///     m_form.setupUi(form);
///     Imp<QDockWidget>()->setWidget(form);
/// }
/// ...
/// bar.Create(this, IDD_FIND, WS_CHILD | WS_VISIBLE | CBRS_BOTTOM, IDW_FIND);
/// frame->addDockWidget(Qt::BottomDockWidgetArea, bar.Imp<QDockWidget>());
/// @endcode
///
/// Unlike in the published class a template loads nothing, and the bar is no dialog: buttons end nothing.
class XE_EXPORT CDialogBar_X : public CControlBar_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CDialogBar_X)
    DECLARE_IMP_CLASS_X(QDockWidget)

    /// Makes a QDockWidget with this Qt parent and attaches it as an owned one.
    bool AttachDefault(QWidget* parent) override;

    QT_WARNING_PUSH
    QT_WARNING_DISABLE_CLANG("-Woverloaded-virtual")
    QT_WARNING_DISABLE_GCC("-Woverloaded-virtual")
    /// Makes the bar, a child of `parent` or, for null, of the host's main window. Template and id are not looked at;
    /// `style` is: WS_VISIBLE shows the bar; CBRS_LEFT and CBRS_TOP move it to the top left corner of its parent,
    /// CBRS_RIGHT to the right edge, CBRS_BOTTOM to the bottom, the last of these that is there; CBRS_FLOATING makes it
    /// a window of its own; CBRS_SIZE_FIXED keeps its size. All of that happens once: the bar does not follow its
    /// parent. m_sizeDefault, if it is (0, 0), becomes the bar's size. 1; 0 if the attachment fails.
    virtual int Create(QWidget* parent, const wchar_t* templateName, unsigned int style, unsigned int id);
    /// The form above, which an override of it gets too, with the low 16 bits of the template's id as the pointer.
    virtual int Create(QWidget* parent, unsigned int templateId, unsigned int style, unsigned int id);
    QT_WARNING_POP
    /// m_sizeDefault; with `stretch` 32767 in one direction, in width if `horizontal` is not 0, else in height.
    virtual CSize CalcFixedLayout(int stretch, int horizontal);
    /// Stores the pointer. 1, also without a widget.
    virtual BOOL SetOccDialogInfo(_AFX_OCC_DIALOG_INFO_X* info);

    /// Create() with the parent's wrapper.
    template <class Window, xe::detail::IfWindow<Window> = 0>
    int Create(const Window* parent, const wchar_t* templateName, unsigned int style, unsigned int id)
    {
        return Create(WidgetOf(parent), templateName, style, id);
    }
    template <class Window, xe::detail::IfWindow<Window> = 0>
    int Create(const Window* parent, unsigned int templateId, unsigned int style, unsigned int id)
    {
        return Create(WidgetOf(parent), templateId, style, id);
    }

    CSize m_sizeDefault;                                ///< of the bar, in pixels
    _AFX_OCC_DIALOG_INFO_X* m_pOccDialogInfo = nullptr; ///< as SetOccDialogInfo() was given it
    const wchar_t* m_lpszTemplateName = nullptr;        ///< stays null
};

// ---------------------------------------------------------------------------------------------------------- dock bar

/// The wrapper of a QDockWidget that keeps a list of bars: where each would go in rows along a side of the frame. It
/// keeps the list alone, and moves no bar.
///
/// m_arrBars holds the bars of each row, with a null behind each row and one ahead of the first. Values from 1 to
/// 0xFFFF are placeholders for bars that are not there. A bar has to be taken out before it is deleted.
class XE_EXPORT CDockBar_X : public CControlBar_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CDockBar_X)
    DECLARE_IMP_CLASS_X(QDockWidget)

    /// Nothing is made yet; `floating` tells what Create() makes.
    explicit CDockBar_X(int floating = FALSE);

    /// Makes a QDockWidget with this Qt parent and attaches it as an owned one.
    bool AttachDefault(QWidget* parent) override;

    QT_WARNING_PUSH
    QT_WARNING_DISABLE_CLANG("-Woverloaded-virtual")
    QT_WARNING_DISABLE_GCC("-Woverloaded-virtual")
    /// Makes the bar as CDialogBar_X::Create() does, as a window of its own if it was constructed as a floating one.
    /// Clears m_rectLayout. Of the style the bits of CBRS_ALL are kept; `id` is not looked at.
    virtual int Create(QWidget* parent, unsigned int style, unsigned int id);
    QT_WARNING_POP
    virtual BOOL IsDockBar() { return TRUE; }
    /// The same as GetDockedCount(), unlike in the published class: bars that are hidden count.
    virtual int GetDockedVisibleCount();

    /// Create() with the parent's wrapper.
    template <class Window, xe::detail::IfWindow<Window> = 0>
    int Create(const Window* parent, unsigned int style, unsigned int id)
    {
        return Create(WidgetOf(parent), style, id);
    }

    /// The entry of m_arrBars; null for the end of a row, for a placeholder and out of range.
    CControlBar_X* GetDockedControlBar(int index) const;
    /// The first index other than `ignore` that holds the bar; -1 if there is none. Null finds the ends of rows.
    int FindBar(CControlBar_X* bar, int ignore = -1) const;
    /// How many entries are bars.
    int GetDockedCount() const;
    /// Shows and hides nothing. The number of entries, of whatever kind.
    int ShowAll(int show);
    /// Enters the bar where it is dropped, and gives its index. `rect` is the bar's rectangle and `point` the drop's
    /// middle, both in this bar's coordinates. The rows lie side by side, each as thick as its thickest bar less 2
    /// pixels; that which ends beyond `point` takes the bar, behind the last of its bars that begins before `rect`.
    /// Beyond all rows the bar opens one of its own. -1, with nothing changed, for a null bar.
    int Insert(CControlBar_X* bar, CRect rect, CPoint point);

    int m_bFloating;       ///< as constructed
    CPtrArray_X m_arrBars; ///< bars, which are not owned, placeholders and ends of rows
    CRect m_rectLayout;    ///< cleared by Create(), and not used
};
