#pragma once

#include "virtualinput.h"

#include <QList>
#include <QObject>
#include <QPoint>

class QWidget;

/// What test classes with a real keyboard and a real pointer derive from: each of their functions begins with the
/// pointer far from all windows; in the end all keys and buttons are let go of, and nothing may be left behind.
class RealInputTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

protected:
    using Keys = QList<unsigned long>;

    /// All but the last key are held.
    void typeChord(const Keys& keys);
    /// The place is one of the window, in pixels.
    void clickAt(const QWidget& window, QPoint place, unsigned button = 1);

    VirtualInput m_input;
};
