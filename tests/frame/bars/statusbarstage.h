#pragma once

#include "bars/bartext.h"

#include <XeMFCEmu.h>

/// A status bar in a window of 640 x 480.
struct StatusBarStage
{
    void makeBar()
    {
        m_parent = std::make_unique<QWidget>();
        m_parent->resize(640, 480);
        m_bar = std::make_unique<CStatusBar_X>();
        m_bar->Create(m_parent.get());
    }

    void endBar()
    {
        m_bar.reset();
        m_parent.reset();
    }

    void show()
    {
        m_bar->setGeometry({0, 450, 640, 30});
        m_parent->show();
    }

    /// The labels from left to right, once the layout has placed them.
    QString onScreen()
    {
        m_parent->show();
        m_bar->setGeometry({0, 450, 640, 30});
        deleteLaterObjects();
        QCoreApplication::processEvents();
        return barText(*m_bar);
    }

    std::unique_ptr<QWidget> m_parent;
    std::unique_ptr<CStatusBar_X> m_bar;
};

/// "0 'Ready', 2 ''": the panes in the map.
inline QString panesText(const CStatusBar_X& bar)
{
    QStringList words;
    for (const auto& [index, pane] : bar.m_mapPanes) {
        const auto* const label = qobject_cast<const QLabel*>(pane);
        words += QStringLiteral("%1 %2").arg(index).arg(label ? QLatin1Char('\'') + label->text() + QLatin1Char('\'')
                                                              : QStringLiteral("none"));
    }
    return words.join(QStringLiteral(", "));
}

inline int widthOf(const CStatusBar_X& bar, unsigned index) { return bar.m_mapPanes.at(index)->width(); }
