// Menus to build on.
#pragma once

#include "deletelater.h"
#include "menutext.h"

#include <XeMFCEmu.h>

inline constexpr auto idProperty = "MenuItemIdx";
inline constexpr auto positionFarBehind = 0xFFFFFFFFu;

inline UINT_PTR addressOf(const QMenu* menu) { return reinterpret_cast<UINT_PTR>(menu); }

inline QVariant idOf(const QAction* action) { return action->property(idProperty); }

inline QVariant number(unsigned long long id) { return id; }

inline QIcon redIcon()
{
    QPixmap picture(4, 4);
    picture.fill(Qt::red);
    return picture;
}

// A menu with the items "A", "B" and so on, whose identifiers are 1, 2 and so on.
class Letters : public CMenu_X
{
public:
    explicit Letters(int count = 2)
    {
        CreatePopupMenu();
        for (int i = 0; i < count; ++i)
            AppendMenu(MF_STRING, static_cast<UINT_PTR>(i + 1), CString_X(static_cast<wchar_t>(L'A' + i)));
    }

    QString text() const { return menuText(*this); }
    QAction* at(int index) const { return GetMenuItemAction(index); }
};

// "A", a submenu with "C" (3) and "D" (4) whose own identifier is 9, "B".
class Nested : public Letters
{
public:
    Nested()
    {
        inner.CreatePopupMenu();
        inner.AppendMenu(MF_STRING, 3, L"C");
        inner.AppendMenu(MF_STRING, 4, L"D");
        InsertMenu(&inner, L"S", 9, 2);
    }

    Letters inner{0};
};

using SubMaker = std::function<CMenu_X*(Letters& menu, Letters& other)>;

Q_DECLARE_METATYPE(SubMaker)
