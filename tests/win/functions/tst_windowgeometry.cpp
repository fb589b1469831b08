// Places and sizes: rectangles, the ways between window and screen, moving, and the order of windows.

#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

namespace {

QString text(const tagRECT& rect)
{
    return QStringLiteral("%1 %2 %3 %4").arg(rect.left).arg(rect.top).arg(rect.right).arg(rect.bottom);
}

QString text(const tagPOINT& point) { return QStringLiteral("%1 %2").arg(point.x).arg(point.y); }

// Left, top, and one past the last pixel.
QString edges(QPoint corner, QSize size)
{
    return text(tagRECT{corner.x(), corner.y(), corner.x() + size.width(), corner.y() + size.height()});
}

// Writes down what becomes of it, in order.
class RecordingWidget : public QWidget
{
public:
    using QWidget::QWidget;
    QString take() { return std::exchange(m_lines, {}).join(QLatin1Char(' ')); }

protected:
    void resizeEvent(QResizeEvent*) override { m_lines += QStringLiteral("resized"); }
    void moveEvent(QMoveEvent*) override { m_lines += QStringLiteral("moved"); }
    void focusOutEvent(QFocusEvent*) override { m_lines += QStringLiteral("unfocused"); }
    void showEvent(QShowEvent*) override { m_lines += QStringLiteral("shown"); }
    void hideEvent(QHideEvent*) override { m_lines += QStringLiteral("hidden"); }

private:
    QStringList m_lines;
};

} // namespace

class tst_WindowGeometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void nothingIsWrittenForNull();
    void windowRectOfATopLevelWindowIsItsFrame();
    void windowRectOfAChildIsOnTheScreen();
    void windowRectOfADialogIsItsOwnFrame();
    void clientRectTakesNoScrollBarsOff();
    void toTheScreenAndBack();
    void pointsAreMappedBetweenWindows();
    void noPointsToMap();
    void dialogRectIsOverwritten();
    void moveWindow_data();
    void moveWindow();

    void setWindowPosFlags_data();
    void setWindowPosFlags();
    void withoutFocusNothingIsCleared();
    void setWindowPosStacking_data();
    void setWindowPosStacking();
};

void tst_WindowGeometry::nothingIsWrittenForNull()
{
    QWidget widget;
    tagRECT rect{1, 2, 3, 4};
    tagPOINT point{5, 6};
    QCOMPARE(GetWindowRect_X(nullptr, &rect), 0);
    QCOMPARE(GetClientRect_X(nullptr, &rect), 0);
    QCOMPARE(MapDialogRect_X(nullptr, &rect), 0);
    QCOMPARE(ClientToScreen_X(nullptr, &point), 0);
    QCOMPARE(ScreenToClient_X(nullptr, &point), 0);
    QCOMPARE(MapWindowPoints_X(nullptr, &widget, &point, 1), 0); // null does not stand for the screen
    QCOMPARE(MapWindowPoints_X(&widget, nullptr, &point, 1), 0);
    QCOMPARE(MapWindowPoints_X(nullptr, nullptr, &point, 0), 0);
    QCOMPARE(text(rect), QStringLiteral("1 2 3 4"));
    QCOMPARE(text(point), QStringLiteral("5 6"));

    QCOMPARE(GetWindowRect_X(&widget, nullptr), 0);
    QCOMPARE(GetClientRect_X(&widget, nullptr), 0);
    QCOMPARE(MapDialogRect_X(&widget, nullptr), 0);
    QCOMPARE(ClientToScreen_X(&widget, nullptr), 0);
    QCOMPARE(ScreenToClient_X(&widget, nullptr), 0);
    QCOMPARE(MapWindowPoints_X(&widget, &widget, nullptr, 1), 0);
    QCOMPARE(MoveWindow_X(nullptr, 1, 2, 3, 4, TRUE), 0);
    QCOMPARE(SetWindowPos_X(nullptr, &widget, 1, 2, 3, 4, 0), 0);
}

void tst_WindowGeometry::windowRectOfATopLevelWindowIsItsFrame()
{
    QWidget window;
    window.setGeometry(100, 80, 300, 200);
    window.show();
    QVERIFY(window.frameGeometry() != window.geometry());
    tagRECT rect{};
    QCOMPARE(GetWindowRect_X(&window, &rect), 1);
    QCOMPARE(text(rect), edges(window.frameGeometry().topLeft(), window.frameGeometry().size()));
}

void tst_WindowGeometry::windowRectOfAChildIsOnTheScreen()
{
    QWidget window;
    window.setGeometry(100, 80, 300, 200);
    auto* const child = new QWidget(&window);
    child->setGeometry(10, 20, 150, 100);
    auto* const grandchild = new QWidget(child);
    grandchild->setGeometry(3, 4, 30, 40);
    window.show();
    const QPoint origin = window.geometry().topLeft();

    tagRECT rect{};
    QCOMPARE(GetWindowRect_X(child, &rect), 1);
    QCOMPARE(text(rect), edges(origin + QPoint(10, 20), {150, 100}));
    QCOMPARE(GetWindowRect_X(grandchild, &rect), 1);
    QCOMPARE(text(rect), edges(origin + QPoint(13, 24), {30, 40}));
}

void tst_WindowGeometry::windowRectOfADialogIsItsOwnFrame()
{
    QWidget window;
    window.setGeometry(100, 80, 300, 200);
    QWidget dialog(&window, Qt::Dialog);
    dialog.setGeometry(30, 40, 50, 60);
    tagRECT rect{};
    QCOMPARE(GetWindowRect_X(&dialog, &rect), 1);
    QCOMPARE(text(rect), QStringLiteral("30 40 80 100"));
}

void tst_WindowGeometry::clientRectTakesNoScrollBarsOff()
{
    QWidget parent;
    CWnd_X window;
    window.Create(WS_VISIBLE | WS_VSCROLL | WS_HSCROLL, {10, 20, 110, 70}, &parent);
    const QSize size = window.GetSafeHwnd()->size();
    tagRECT rect{1, 2, 3, 4};
    QCOMPARE(GetClientRect_X(window.GetSafeHwnd(), &rect), 1);
    QCOMPARE(text(rect), edges({0, 0}, size));
    window.GetClientRect(&rect);
    QCOMPARE(text(rect), edges({0, 0}, size - QSize(17, 17)));
}

void tst_WindowGeometry::toTheScreenAndBack()
{
    QWidget window;
    window.setGeometry(100, 80, 300, 200);
    auto* const child = new QWidget(&window);
    child->setGeometry(10, 20, 30, 40);
    tagPOINT point{-3, 7};
    QCOMPARE(ClientToScreen_X(child, &point), 1);
    QCOMPARE(text(point), QStringLiteral("107 107"));
    QCOMPARE(ScreenToClient_X(&window, &point), 1);
    QCOMPARE(text(point), QStringLiteral("7 27"));
}

void tst_WindowGeometry::pointsAreMappedBetweenWindows()
{
    QWidget from;
    from.setGeometry(100, 80, 30, 20);
    QWidget to;
    to.setGeometry(300, 10, 30, 20);
    tagPOINT points[] = {{0, 0}, {1, 2}, {-5, 1000}, {7, 7}};
    QCOMPARE(MapWindowPoints_X(&from, &to, points, 3), 1);
    QCOMPARE(text(points[0]), QStringLiteral("-200 70"));
    QCOMPARE(text(points[1]), QStringLiteral("-199 72"));
    QCOMPARE(text(points[2]), QStringLiteral("-205 1070"));
    QCOMPARE(text(points[3]), QStringLiteral("7 7")); // beyond the count
}

void tst_WindowGeometry::noPointsToMap()
{
    QWidget from;
    QWidget to;
    tagPOINT point{5, 6};
    QCOMPARE(MapWindowPoints_X(&from, &to, &point, 0), 1);
    QCOMPARE(MapWindowPoints_X(&from, &to, nullptr, 0), 1);
    QCOMPARE(text(point), QStringLiteral("5 6"));
}

void tst_WindowGeometry::dialogRectIsOverwritten()
{
    QWidget window;
    window.setGeometry(100, 80, 300, 200);
    auto* const child = new QWidget(&window);
    child->setGeometry(10, 20, 30, 40);
    tagRECT rect{4, 8, 12, 16};
    QCOMPARE(MapDialogRect_X(child, &rect), 1);
    QCOMPARE(text(rect), QStringLiteral("10 20 40 60"));
    QCOMPARE(MapDialogRect_X(&window, &rect), 1);
    QCOMPARE(text(rect), QStringLiteral("100 80 400 280"));
}

void tst_WindowGeometry::moveWindow_data()
{
    QTest::addColumn<bool>("topLevel");
    QTest::addColumn<int>("repaint");
    QTest::newRow("child") << false << 1;
    QTest::newRow("child, not to be repainted") << false << 0;
    QTest::newRow("top-level window: the size is the one inside the frame") << true << 1;
}

void tst_WindowGeometry::moveWindow()
{
    QFETCH(bool, topLevel);
    QFETCH(int, repaint);
    QWidget parent;
    QWidget window(topLevel ? nullptr : &parent);
    window.show();
    QCOMPARE(MoveWindow_X(&window, 30, 40, 250, 160, repaint), 1);
    QCOMPARE(window.pos(), QPoint(30, 40));
    QCOMPARE(window.size(), QSize(250, 160));
}

// -------------------------------------------------------------------------------------------------------- SetWindowPos

void tst_WindowGeometry::setWindowPosFlags_data()
{
    QTest::addColumn<bool>("visible");
    QTest::addColumn<unsigned>("flags");
    QTest::addColumn<QString>("events");
    const auto row = [](const char* name, bool visible, unsigned flags, const char* events) {
        QTest::newRow(name) << visible << flags << QString::fromLatin1(events);
    };
    row("no flags: the size comes before the place", true, 0, "resized moved");
    row("SWP_NOSIZE", true, 0x1, "moved");
    row("SWP_NOMOVE", true, 0x2, "resized");
    row("SWP_NOSIZE, SWP_NOMOVE", true, 0x3, "");
    row("SWP_NOACTIVATE takes the focus away after the move", true, 0x10, "resized moved unfocused");
    row("SWP_NOACTIVATE alone", true, 0x13, "unfocused");
    row("SWP_SHOWWINDOW, visible before", true, 0x43, "");
    row("SWP_SHOWWINDOW, hidden before", false, 0x43, "shown");
    row("SWP_HIDEWINDOW, visible before", true, 0x83, "hidden");
    row("SWP_HIDEWINDOW, hidden before", false, 0x83, "");
    row("to be shown and hidden: shown, then hidden", false, 0xC3, "shown hidden");
    row("all of it", true, 0x90, "resized moved unfocused hidden");
    row("other flags", true, 0x2F, "");
}

void tst_WindowGeometry::setWindowPosFlags()
{
    QFETCH(bool, visible);
    QFETCH(unsigned, flags);
    QWidget parent;
    parent.resize(400, 300);
    RecordingWidget widget(&parent);
    widget.setGeometry(5, 6, 7, 8);
    parent.show();
    parent.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&parent));
    widget.setFocus();
    QVERIFY(widget.hasFocus());
    widget.setVisible(visible);
    widget.take();

    QCOMPARE(SetWindowPos_X(&widget, nullptr, 10, 20, 30, 40, flags), 1);
    QTEST(widget.take(), "events");
    QCOMPARE(widget.size(), flags & 1 ? QSize(7, 8) : QSize(30, 40));
    QCOMPARE(widget.pos(), flags & 2 ? QPoint(5, 6) : QPoint(10, 20));
    QCOMPARE(widget.isHidden(), flags & 0x80 || (!visible && !(flags & 0x40)));
    if (flags & 0x10)
        QVERIFY(!widget.hasFocus());
}

void tst_WindowGeometry::withoutFocusNothingIsCleared()
{
    QWidget parent;
    auto* const focused = new QLineEdit(&parent);
    auto* const other = new QWidget(&parent);
    parent.show();
    parent.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&parent));
    focused->setFocus();
    QCOMPARE(SetWindowPos_X(other, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE), 1);
    QVERIFY(focused->hasFocus());
    SetWindowPos_X(&parent, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE);
    QVERIFY(focused->hasFocus()); // the window holds it, and is not the one that has it

    QWidget hidden;
    auto* const waiting = new QLineEdit(&hidden);
    waiting->setFocus();
    SetWindowPos_X(waiting, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE);
    QCOMPARE(hidden.focusWidget(), waiting); // it will have the focus when the window is active
}

void tst_WindowGeometry::setWindowPosStacking_data()
{
    QTest::addColumn<int>("after");
    QTest::addColumn<unsigned>("flags");
    QTest::addColumn<QString>("order"); // bottom first
    QTest::newRow("under a lower sibling") << 0 << 0u << "2 0 1 3";
    QTest::newRow("under a higher sibling") << 3 << 0u << "0 1 2 3";
    QTest::newRow("under the lowest but one") << 1 << 0u << "0 2 1 3";
    QTest::newRow("null") << -1 << 0u << "0 1 2 3";
    QTest::newRow("SWP_NOZORDER") << 0 << 0x4u << "0 1 2 3";
    QTest::newRow("SWP_NOOWNERZORDER") << 0 << 0x200u << "0 1 2 3";
    QTest::newRow("itself") << 2 << 0u << "0 1 2 3";
    QTest::newRow("no sibling") << 4 << 0u << "0 1 2 3";
}

void tst_WindowGeometry::setWindowPosStacking()
{
    QFETCH(int, after);
    QFETCH(unsigned, flags);
    QWidget parent;
    QWidget stranger;
    QVector<QWidget*> widgets;
    for (int i = 0; i < 4; ++i) {
        widgets += new QWidget(&parent);
        widgets.last()->setObjectName(QString::number(i));
    }
    widgets += &stranger;
    QCOMPARE(SetWindowPos_X(widgets[2], after < 0 ? nullptr : widgets[after], 1, 2, 3, 4, flags), 1);
    QCOMPARE(widgets[2]->geometry(), QRect(1, 2, 3, 4));
    QStringList order;
    for (const QObject* child : parent.children())
        order += child->objectName();
    QTEST(order.join(QLatin1Char(' ')), "order");
}

XE_TEST(tst_WindowGeometry)
#include "tst_windowgeometry.moc"
