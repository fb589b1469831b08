/// @file xeafxmenu.h
/// Menus, and what a handler that updates a command is given. GUI thread only.
#pragma once

#include "xeafx.h"
#include "xeafxstr.h"
#include "xeafxwin.h"

#include <QIcon>
#include <QMenu>
#include <QPointer>

#include <memory>

namespace xe {
class MenuIndex;
}

// --------------------------------------------------------------------------------------------------------------- flags
// Those of the first group have an effect; the others are accepted and ignored.

inline constexpr UINT MF_GRAYED = 1;
inline constexpr UINT MF_DISABLED = 2;
inline constexpr UINT MF_CHECKED = 8;
inline constexpr UINT MF_POPUP = 0x10;
inline constexpr UINT MF_BYPOSITION = 0x400;
inline constexpr UINT MF_SEPARATOR = 0x800;

inline constexpr UINT MF_BYCOMMAND = 0;
inline constexpr UINT MF_ENABLED = 0;
inline constexpr UINT MF_STRING = 0;
inline constexpr UINT MF_UNCHECKED = 0;
inline constexpr UINT MF_UNHILITE = 0;
inline constexpr UINT MF_BITMAP = 4;
inline constexpr UINT MF_MENUBARBREAK = 0x20;
inline constexpr UINT MF_MENUBREAK = 0x40;
inline constexpr UINT MF_HILITE = 0x80;
inline constexpr UINT MF_OWNERDRAW = 0x100;
inline constexpr UINT MF_USECHECKBITMAPS = 0x200;
inline constexpr UINT MF_DEFAULT = 0x1000;
inline constexpr UINT MF_SYSMENU = 0x2000;
inline constexpr UINT MF_HELP = 0x4000;
inline constexpr UINT MF_RIGHTJUSTIFY = 0x4000;
inline constexpr UINT MF_MOUSESELECT = 0x8000;

inline constexpr UINT TPM_LEFTBUTTON = 0;
inline constexpr UINT TPM_LEFTALIGN = 0;
inline constexpr UINT TPM_TOPALIGN = 0;
inline constexpr UINT TPM_HORIZONTAL = 0;
inline constexpr UINT TPM_RECURSE = 1;
inline constexpr UINT TPM_RIGHTBUTTON = 2;
inline constexpr UINT TPM_CENTERALIGN = 4;
inline constexpr UINT TPM_RIGHTALIGN = 8;
inline constexpr UINT TPM_VCENTERALIGN = 0x10;
inline constexpr UINT TPM_BOTTOMALIGN = 0x20;
inline constexpr UINT TPM_VERTICAL = 0x40;
inline constexpr UINT TPM_NONOTIFY = 0x80;
inline constexpr UINT TPM_RETURNCMD = 0x100;
inline constexpr UINT TPM_HORPOSANIMATION = 0x400;
inline constexpr UINT TPM_HORNEGANIMATION = 0x800;
inline constexpr UINT TPM_VERPOSANIMATION = 0x1000;
inline constexpr UINT TPM_VERNEGANIMATION = 0x2000;
inline constexpr UINT TPM_NOANIMATION = 0x4000;

// --------------------------------------------------------------------------------------------------------------- menus

/// The wrapper of a QMenu, which is what a menu handle is here. Its items are the QMenu's actions.
///
/// An item's identifier is the action's dynamic property "MenuItemIdx", an `unsigned long long`; that of a popup item
/// stands on the submenu's menuAction(). A separator has none.
///
/// @code
/// void CPartList::OnContextMenu(QWidget*, CPoint point)
/// {
///     CMenu_X menu;
///     menu.CreatePopupMenu();
///     menu.AppendMenu(MF_STRING, ID_PART_EDIT, L"&Edit...");
///     menu.AppendMenu(MF_SEPARATOR);
///     menu.AppendMenu(MF_STRING, ID_PART_IN_USE, L"In &use");
///     menu.CheckMenuItem(ID_PART_IN_USE, MF_CHECKED);
///     ClientToScreen(&point);
///     if (menu.TrackPopupMenu(0, point.x, point.y, this) == ID_PART_EDIT)
///         OnPartEdit();
/// }
/// @endcode
///
/// Nothing is sent to any window when an item is chosen, in a menu bar either, unlike the published menus: connect to
/// the action (GetMenuItemAction(), addAction()), or go by the result of TrackPopupMenu(). CWnd_X::SetMenu() puts menus
/// into a window's menu bar, one drop-down list with a title each. CCmdUI_X changes an item in a handler of
/// CWnd_X::updateCmdUi().
///
/// In what follows `id` is an identifier. An `item` or a `position` is one too, or with MF_BYPOSITION in `flags` an
/// index from 0 among this menu's own actions, separators included. By identifier an item is looked for in submenus
/// too, depth first, and the first of equal ones counts (findAction()). A null text is an empty one. Without a QMenu a
/// function does nothing and gives 0 or null, if it does not say otherwise.
///
/// What is built into a menu here, an action or a separator, is a Qt child of it and goes with it.
class XE_EXPORT CMenu_X : public CObject_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CMenu_X)
    DECLARE_IMP_CLASS_X(QMenu)

    /// With a parent the menu is made at once, by AttachDefault(); without one there is none yet.
    explicit CMenu_X(QWidget* parent = nullptr);
    template <class Window, xe::detail::IfWindow<Window> = 0>
    explicit CMenu_X(const Window* parent) : CMenu_X(parent ? parent->GetSafeHwnd() : nullptr)
    {}
    ~CMenu_X() override;

    /// The QMenu; null while nothing is attached and, as in the published function, for a null object.
    QMenu* GetSafeHmenu() const;
    operator QMenu*() const { return GetSafeHmenu(); }

    /// The wrapper of a menu. One without gets a temporary wrapper of the handle map of menus, which is the same at
    /// each call until DeleteTempMap(), and never owns the menu. Null for null.
    static CMenu_X* FromHandle(QMenu* menu);
    /// Deletes the temporary wrappers of the handle map of menus (CHandleMap_X::DeleteTemp); their menus stay.
    static void DeleteTempMap();

    // ------------------------------------------------------------------------------------------------------- the whole

    /// Makes a new menu without a Qt parent, which the wrapper owns, by AttachDefault(); one that the wrapper has is
    /// let go. Any menu can be a popup, a drop-down list or a submenu: the two functions are one. 1.
    ///
    /// The menu goes with its wrapper, also when it has become a submenu: keep the wrapper as long as the menu.
    int CreateMenu();
    int CreatePopupMenu() { return CreateMenu(); }
    /// Takes the menu off the screen (DestroyWindow_X()) and detaches it: a menu of the wrapper's own is deleted when
    /// control returns to the event loop, any other stays. 1; 0 without a QMenu.
    int DestroyMenu();

    /// Opens the menu on the screen, its corner one pixel to the right of and below (x, y), and returns when it has
    /// closed: the identifier of the item that was chosen, in a submenu too, or -1 when there is none or the item has
    /// no identifier. -1 at once when the menu is open already.
    ///
    /// Flags, window and rectangle are ignored: the identifier is the result as with TPM_RETURNCMD, and nothing is sent
    /// to the window, unlike in the published function. WM_CONTEXTMENU has its point in the widget's coordinates:
    /// CWnd_X::ClientToScreen() comes first. Wrapper, menu and item may go while the menu is open.
    int TrackPopupMenu(UINT flags, int x, int y, QWidget* window, const tagRECT* rect = nullptr);
    template <class Window, xe::detail::IfWindow<Window> = 0>
    int TrackPopupMenu(UINT flags, int x, int y, const Window*, const tagRECT* rect = nullptr)
    {
        return TrackPopupMenu(flags, x, y, static_cast<QWidget*>(nullptr), rect);
    }

    /// What the menu is called in a menu bar or as a submenu.
    void setTitle(const CString_X& title);
    void setIcon(const QIcon& icon);

    // --------------------------------------------------------------------------------------------------- adding items
    // A new item is enabled and not checked: MF_GRAYED, MF_DISABLED and MF_CHECKED mean nothing here, unlike in the
    // published functions. ModifyMenu(), EnableMenuItem() and CheckMenuItem() set a state.

    /// Adds an item at the end. With MF_POPUP `id` is the address of a QMenu that becomes a submenu with this text, and
    /// stays its identifier; otherwise with MF_SEPARATOR a separator. 1; 0 when with MF_POPUP `id` is no living menu.
    ///
    /// A submenu stays its owner's.
    int AppendMenu(UINT flags, UINT_PTR id = 0, const wchar_t* text = nullptr);
    /// The same with an icon. With MF_POPUP the submenu is a new one, a Qt child of this menu, and `id` a plain number.
    int AppendMenu(UINT flags, UINT_PTR id, const wchar_t* text, const QIcon& icon);
    /// Adds a submenu at the end and gives it title and identifier, and the icon. 1; 0, with nothing changed, when the
    /// text is empty, `sub` is null, without a QMenu, this menu or in it already.
    int AppendMenu(CMenu_X* sub, const CString_X& text, UINT_PTR id);
    int AppendMenu(CMenu_X* sub, const CString_X& text, UINT_PTR id, const QIcon& icon);

    /// Inserts an item: by identifier in front of that item, in the submenu that holds it; by position *behind* the
    /// item there, unlike the published function. At the end when there is no such item. With MF_SEPARATOR a separator;
    /// otherwise with MF_POPUP a submenu as in AppendMenu(), and nothing if `id` is no living menu. 1 in any case.
    int InsertMenu(UINT_PTR position, UINT flags, UINT_PTR id = 0, const wchar_t* text = nullptr);
    /// Inserts a submenu in front of the item `before`, or adds it at the end; see AppendMenu() of a submenu.
    int InsertMenu(CMenu_X* sub, const CString_X& text, UINT_PTR id, UINT_PTR before);
    int InsertMenu(CMenu_X* sub, const CString_X& text, UINT_PTR id, UINT_PTR before, const QIcon& icon);

    /// Adds at the end an item, a new submenu or a separator, which belongs to the menu, and gives it.
    QAction* addAction(const QIcon& icon, const QString& text, UINT_PTR id);
    QMenu* addMenu(const QIcon& icon, const QString& text, UINT_PTR id);
    QAction* addSeparator();

    // ------------------------------------------------------------------------------------------------- changing items

    /// Gives an item another identifier, and another text if that is not empty. MF_GRAYED disables the item,
    /// MF_DISABLED makes it checkable as well, MF_CHECKED makes it checkable and checks it; without them the state
    /// stays. 1; 0 if there is no such item.
    ///
    /// What follows a tab in the text is shown as the shortcut. It is shown only (Qt::WidgetShortcut): the host's own
    /// accelerators act. A text without one takes a shortcut away that came about like this.
    int ModifyMenu(UINT_PTR position, UINT flags, UINT_PTR id = 0, const wchar_t* text = nullptr);

    /// Takes an item out of the menu that holds it. One that was made for that menu is deleted when control returns to
    /// the event loop, unless it is in a menu again by then; a submenu stays. 1, also when there is no such item; 0
    /// when this menu is empty. The published DeleteMenu destroys submenus.
    int DeleteMenu(UINT_PTR position, UINT flags);
    int RemoveMenu(UINT_PTR position, UINT flags) { return DeleteMenu(position, flags); }

    /// Disables an item if `flags` are exactly MF_GRAYED or MF_DISABLED, and enables it otherwise. An identifier
    /// always: MF_BYPOSITION enables the item whose identifier is `id`, unlike in the published function. Gives the
    /// previous state, 0 for enabled, 3 for disabled; -1 if there is no such item.
    int EnableMenuItem(UINT_PTR id, UINT flags);
    /// Checks an item with MF_CHECKED, making it checkable, and unchecks it without. 1, not the previous state as in
    /// the published function; 0 if there is no such item.
    int CheckMenuItem(UINT_PTR item, UINT flags);

    // ------------------------------------------------------------------------------------------------ asking for items

    /// MF_GRAYED for a disabled item, MF_CHECKED for a checked one, MF_SEPARATOR, together. 0 if there is no such item,
    /// unlike the published -1.
    UINT GetMenuState(UINT_PTR item, UINT flags) const;
    /// Fills in an item's text as it stands, with & and tab, and gives its length in elements; an empty one if there is
    /// no such item. The bit 4 in `flags` stands for a position, *not* MF_BYPOSITION.
    int GetMenuString(UINT_PTR item, CString_X& text, UINT flags) const;
    /// How many actions the menu has, separators included.
    int GetMenuItemCount() const;
    /// The action at an index from 0; null out of range.
    QAction* GetMenuItemAction(int index) const;
    /// The wrapper, made by FromHandle(), of the submenu at an index from 0; null without one and out of range.
    CMenu_X* GetSubMenu(int index) const;

    /// The first action with this identifier: the menu's own menuAction(), then depth first each item, where the
    /// submenu's menuAction() stands for a popup item. Separators are passed over. Null if there is none.
    static QAction* findAction(unsigned long long id, QMenu* menu);
    /// Whether an action of `menu` has `sub` as its menu. False for null.
    static bool checkExist(const QMenu* menu, const QMenu* sub);

    QT_WARNING_PUSH
    QT_WARNING_DISABLE_CLANG("-Woverloaded-virtual")
    /// Makes a QMenu with this Qt parent, whose separators are 2 pixels high, and attaches it as an owned one.
    virtual bool AttachDefault(QWidget* parent);
    QT_WARNING_POP

    /// Notes the menu. An override calls it.
    bool OnAttach() override;
    /// Forgets the menu, likewise.
    void OnDetach() override;

private:
    // A menu and the item in it that is meant, null for none.
    struct Place
    {
        QMenu* menu;
        QAction* item;
    };

    QAction* itemById(unsigned long long id) const;
    QAction* itemAt(UINT_PTR position) const;
    QAction* item(UINT_PTR item, bool byPosition) const;
    Place placeOf(UINT_PTR position, UINT flags) const;
    Place placeBehind(UINT_PTR position) const;
    bool mayTake(const CMenu_X* sub, const CString_X& text) const;

    QPointer<QMenu> m_menu; // what is attached, also when the handle map has taken it out
    mutable std::unique_ptr<xe::MenuIndex> m_index;
    mutable int m_walks = 0;
};

// ---------------------------------------------------------------------------------------------------------- command UI

/// What a handler that updates a command changes: an item of a menu or a button. The host makes one for each thing to
/// be updated, in a slot connected to CWnd_X::updateCmdUi(), and hands it to the handler; the library makes none.
///
/// @code
/// void CPlanFrame::OnUpdateCommands()
/// {
///     CCmdUI_X command;
///     command.m_pOther = CMenu_X::findAction(ID_PLAN_CLOSE, m_menu);
///     command.Enable(m_plan != nullptr);
/// }
/// @endcode
///
/// Nothing happens while `m_pOther` is null or neither a QAction nor a QAbstractButton.
class XE_EXPORT CCmdUI_X
{
public:
    /// Enables the item or button for 1; any other value disables it.
    void Enable(int on = 1);
    /// Checks the item or button for 1, an item being made checkable; any other value unchecks it. A button has to be
    /// checkable already.
    void SetCheck(int check = 1);
    /// Sets the text, an empty one for null.
    void SetText(const wchar_t* text);

    QObject* m_pOther = nullptr; ///< what is being updated; it stays its owner's
};
