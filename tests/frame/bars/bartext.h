// Bars as texts, and the actions that the tests put on them.
#pragma once

#include "deletelater.h"

#include <xeafxbar.h>

#include <QAction>
#include <QLabel>
#include <QStringList>

/// What a host would put on a tool bar.
struct Commands
{
    Commands() { separator.setSeparator(true); }

    QAction create{QStringLiteral("New"), nullptr};
    QAction edit{QStringLiteral("Edit"), nullptr};
    QAction separator{nullptr};
    QAction find{QStringLiteral("Find"), nullptr};

    QList<QAction*> all() { return {&create, &edit, &separator, &find}; }
};

/// What is on the tool bar, as "New|-|Edit*|(Find)": a separator is a dash, a check button in its two states ends in a
/// "*" or a "." and a disabled one is in brackets.
inline QString barText(const CToolBar_X& bar)
{
    QStringList words;
    const QList<QAction*> actions = bar.Imp<QToolBar>()->actions();
    for (const QAction* action : actions) {
        const QString state = !action->isCheckable() ? QString() : QLatin1String(action->isChecked() ? "*" : ".");
        const QString word = action->isSeparator() ? QStringLiteral("-") : action->text() + state;
        words += action->isEnabled() ? word : QStringLiteral("(%1)").arg(word);
    }
    return words.join(QLatin1Char('|'));
}

/// The labels on a shown status bar from left to right, as "Ready 40|120".
inline QString barText(const CStatusBar_X& bar)
{
    QList<QLabel*> labels = bar.GetSafeHwnd()->findChildren<QLabel*>();
    const auto isHidden = [](const QLabel* label) { return label->isHidden(); };
    labels.erase(std::remove_if(labels.begin(), labels.end(), isHidden), labels.end());
    std::sort(labels.begin(), labels.end(), [](const QLabel* a, const QLabel* b) { return a->x() < b->x(); });
    QStringList words;
    for (const QLabel* label : qAsConst(labels))
        words += QStringLiteral("%1 %2").arg(label->text()).arg(label->width()).trimmed();
    return words.join(QLatin1Char('|'));
}

/// A picture of some pictures of one colour each, side by side.
inline QImage stripOf(const QVector<QColor>& colors, int width, int height)
{
    QImage strip(width * colors.size(), height, QImage::Format_RGB32);
    for (int x = 0; x < strip.width(); ++x) {
        for (int y = 0; y < height; ++y)
            strip.setPixelColor(x, y, colors[x / width]);
    }
    return strip;
}
