#pragma once

#include <QAction>
#include <QMenu>
#include <QStringList>

/// A menu's items as one line, such as "A,x,-,B*(gray),C{D,E}": "-" is a separator, "*" a check mark, braces hold a
/// submenu.
inline QString menuText(const QMenu* menu)
{
    QStringList items;
    const QList<QAction*> actions = menu ? menu->actions() : QList<QAction*>();
    for (const QAction* action : actions) {
        QString item = action->isSeparator() ? QStringLiteral("-") : action->text();
        if (action->isChecked())
            item += QLatin1Char('*');
        if (!action->isEnabled())
            item += QLatin1String("(gray)");
        if (action->menu())
            item += QLatin1Char('{') + menuText(action->menu()) + QLatin1Char('}');
        items += item;
    }
    return items.join(QLatin1Char(','));
}
