// Where dialog bars and dock bars go by their style.
#pragma once

#include <xeafxbar.h>

#include <QTest>

/// "shown top left", "bottom", "floating", "right fixed": the corner that a bar touches in a parent of 400 x 300.
inline QString dockPlace(const CControlBar_X& bar)
{
    const auto* const widget = bar.Imp<QDockWidget>();
    QStringList words;
    if (widget->isVisible())
        words += QStringLiteral("shown");
    if (widget->isFloating())
        words += QStringLiteral("floating");
    else if (widget->pos() == QPoint(0, 0))
        words += QStringLiteral("top left");
    else if (widget->pos() == QPoint(400 - widget->width(), 0))
        words += QStringLiteral("right");
    else if (widget->pos() == QPoint(0, 300 - widget->height()))
        words += QStringLiteral("bottom");
    else
        words += QStringLiteral("elsewhere");
    if (widget->minimumSize() == widget->size() && widget->maximumSize() == widget->size())
        words += QStringLiteral("fixed");
    return words.join(QLatin1Char(' '));
}

/// What the offscreen platform says of a bar that becomes a window, and of one whose size is fixed besides.
inline void expectWarnings(bool floating, bool fixed)
{
    const auto expect = [](const char* what) {
        QTest::ignoreMessage(QtWarningMsg,
                             qPrintable(QStringLiteral("This plugin does not support %1()").arg(QLatin1String(what))));
    };
    if (!floating)
        return;
    expect("propagateSizeHints");
    expect("raise");
    if (fixed)
        expect("propagateSizeHints");
}

/// Rows of `style` and `place`.
inline void addPlaces()
{
    QTest::addColumn<UINT>("style");
    QTest::addColumn<QString>("place");
    const UINT visible = 0x10000000;
    QTest::newRow("no bits") << 0u << "top left";
    QTest::newRow("visible") << visible << "shown top left";
    QTest::newRow("left") << (visible | 0x1400) << "shown top left";
    QTest::newRow("top") << (visible | 0x2800) << "shown top left";
    QTest::newRow("right") << (visible | 0x4100) << "shown right";
    QTest::newRow("bottom") << (visible | 0x8200) << "shown bottom";
    QTest::newRow("right, not visible") << 0x4100u << "right";
    QTest::newRow("aligned right") << (visible | 0x4000) << "shown right";
    QTest::newRow("border at the left") << (visible | 0x100) << "shown right";
    QTest::newRow("aligned at the bottom") << (visible | 0x8000) << "shown bottom";
    QTest::newRow("border at the top") << (visible | 0x200) << "shown bottom";
    QTest::newRow("of right and bottom the last") << (visible | 0xC000) << "shown bottom";
    QTest::newRow("of top and right the last") << (visible | 0x6000) << "shown right";
    QTest::newRow("any side") << (visible | 0xF000) << "shown bottom";
    QTest::newRow("floating") << (visible | 1) << "shown floating";
    QTest::newRow("floating at the right") << (visible | 0x4101) << "shown floating";
    QTest::newRow("of fixed size") << (visible | 2) << "shown top left fixed";
    QTest::newRow("at the bottom, of fixed size") << (visible | 0x8202) << "shown bottom fixed";
    QTest::newRow("floating, of fixed size") << (visible | 3) << "shown floating fixed";
    QTest::newRow("bits without effect") << (visible | 0x4000FC) << "shown top left";
}
