// A tree control over a tree.
#pragma once

#include <xetreectrl.h>

#include <QTest>
#include <QTreeWidget>

Q_DECLARE_METATYPE(QTreeWidgetItem*)

/// A wrapped tree of the host's: tools (drill (bit), saw), paint (red, blue), glue.
struct TreeFixture
{
    TreeFixture()
    {
        qRegisterMetaType<QTreeWidgetItem*>("QTreeWidgetItem*"); // for QSignalSpy
        tree.setHeaderHidden(true);
        tree.resize(300, 300);
        control.SubclassWindow(&tree);
        tools = control.InsertItem(L"tools");
        drill = control.InsertItem(L"drill", tools);
        bit = control.InsertItem(L"bit", drill);
        saw = control.InsertItem(L"saw", tools);
        paint = control.InsertItem(L"paint");
        red = control.InsertItem(L"red", paint);
        blue = control.InsertItem(L"blue", paint);
        glue = control.InsertItem(L"glue");
    }

    /// The texts, children in brackets: "tools (drill (bit) saw) glue".
    QString text() const { return textBelow(*tree.invisibleRootItem()); }

    static QString textBelow(const QTreeWidgetItem& level)
    {
        QStringList texts;
        for (int i = 0; i < level.childCount(); ++i) {
            const QTreeWidgetItem& item = *level.child(i);
            texts += item.text(0);
            if (item.childCount() > 0)
                texts += QStringLiteral("(%1)").arg(textBelow(item));
        }
        return texts.join(QLatin1Char(' '));
    }

    QTreeWidget tree;
    CTreeCtrl_X control;
    HTREEITEM tools;
    HTREEITEM drill;
    HTREEITEM bit;
    HTREEITEM saw;
    HTREEITEM paint;
    HTREEITEM red;
    HTREEITEM blue;
    HTREEITEM glue;
};

inline QString textOf(const CString_X& text) { return XeQString(text); }

/// One of 8 x 8 pixels.
inline QPixmap picture(const QColor& color)
{
    QPixmap pixmap(8, 8);
    pixmap.fill(color);
    return pixmap;
}
