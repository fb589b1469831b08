// Mouse, wheel and context menu of a scroll area: Qt sends them to its viewport, and the wrapper has them once.

#include "leavenothing.h"
#include "messagetrace.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QContextMenuEvent>
#include <QGraphicsView>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTableWidget>
#include <QTreeWidget>
#include <QWheelEvent>

namespace {

using Maker = QAbstractScrollArea* (*)();

QAbstractScrollArea* makeTable()
{
    auto* const table = new QTableWidget(100, 3); // its headers move the viewport
    table->setFrameShape(QFrame::Box);
    return table;
}

QAbstractScrollArea* makeList()
{
    auto* const list = new QListWidget;
    for (int i = 0; i < 100; ++i)
        list->addItem(QString::number(i));
    return list;
}

const QVector<QPair<const char*, Maker>> areas = {
    {"table", makeTable},
    {"list", makeList},
    {"tree", [] { return static_cast<QAbstractScrollArea*>(new QTreeWidget); }},
    {"text", [] { return static_cast<QAbstractScrollArea*>(new QTextEdit(QString(200, QLatin1Char('\n')))); }},
    {"plain text", [] { return static_cast<QAbstractScrollArea*>(new QPlainTextEdit); }},
    {"graphics", [] { return static_cast<QAbstractScrollArea*>(new QGraphicsView); }},
    {"form that scrolls", [] { return static_cast<QAbstractScrollArea*>(new QScrollArea); }},
};

using Answer = std::function<LRESULT(UINT message)>;

class Control : public CWnd_X
{
public:
    int PreTranslateMessage(tagMSG* message) override
    {
        if (watched.contains(message->message))
            trace.add(GetSafeHwnd(), message->message, message->wParam, message->lParam);
        return refuses && watched.contains(message->message);
    }
    void OnMessageMap() override
    {
        using ThisClass = Control;
        CWnd_X::OnMessageMap();
        ON_WM_LBUTTONDOWN_X()
        ON_WM_MOUSEWHEEL_X()
    }
    void OnLButtonDown(UINT flags, CPoint point)
    {
        ++presses;
        const QPointer<Control> living(this);
        const auto act = onPress; // which may be the end of this
        if (act)
            act();
        if (living && passesOn)
            CWnd_X::OnLButtonDown(flags, point);
    }
    BOOL OnMouseWheel(UINT, short, CPoint) { return !passesOn; }

    QVector<UINT> watched{WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_MOUSEMOVE,
                          WM_RBUTTONDOWN, WM_RBUTTONUP, WM_MOUSEWHEEL,    WM_CONTEXTMENU};
    MessageTrace trace;
    std::function<void()> onPress;
    int presses = 0;
    bool passesOn = true;
    bool refuses = false;
};

// A wrapped area in a window that counts what climbs up to it.
struct Stage
{
    explicit Stage(Maker make) : area(make())
    {
        area->setParent(&window);
        area->setGeometry(20, 30, 160, 120);
        window.resize(200, 200);
        outer.SubclassWindow(&window);
        control.SubclassWindow(area);
        window.show();
        control.trace.clear();
        outer.trace.clear();
    }

    QWidget* viewport() const { return area->viewport(); }

    QWidget window;
    QAbstractScrollArea* area;
    Control outer;
    Control control;
};

void sendWheel(QWidget* widget, QPoint place, int delta)
{
    QWheelEvent event(place, widget->mapToGlobal(place), {}, {0, delta}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(widget, &event);
}

void sendContextMenu(QWidget* widget, QPoint place)
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, widget->mapToGlobal(place));
    QCoreApplication::sendEvent(widget, &event);
}

using Deed = void (*)(QWidget* viewport);

struct DeedRow
{
    const char* name;
    Deed deed;
    const char* messages; // of a widget without anything of its own
};

const DeedRow deeds[] = {
    {"left press",
     [](QWidget* viewport) {
         QTest::mousePress(viewport, Qt::LeftButton, {}, {10, 5});
     },
     "WM_LBUTTONDOWN(0x1, 0x5000a)"},
    {"left release",
     [](QWidget* viewport) {
         QTest::mouseRelease(viewport, Qt::LeftButton, {}, {10, 5});
     },
     "WM_LBUTTONUP(0x0, 0x5000a)"},
    {"right press",
     [](QWidget* viewport) {
         QTest::mousePress(viewport, Qt::RightButton, {}, {1, 2});
     },
     "WM_RBUTTONDOWN(0x2, 0x20001)"},
    {"double click",
     [](QWidget* viewport) {
         QTest::mouseDClick(viewport, Qt::LeftButton, {}, {3, 4});
     },
     "WM_LBUTTONDBLCLK(0x1, 0x40003)"},
    {"wheel",
     [](QWidget* viewport) {
         sendWheel(viewport, {7, 8}, -120);
     },
     "WM_MOUSEWHEEL(0xff880000, 0x80007)"},
    {"context menu",
     [](QWidget* viewport) {
         sendContextMenu(viewport, {6, 7});
     },
     "WM_CONTEXTMENU(self, 0x70006)"},
};

} // namespace

Q_DECLARE_METATYPE(Maker)
Q_DECLARE_METATYPE(Deed)

class tst_Viewport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void eventsOfTheViewportAreTheControlsOwnOnce_data();
    void eventsOfTheViewportAreTheControlsOwnOnce();
    void whatNobodyAcceptsIsToldOnceToEach();
    void aHandlerConsumesAtTheViewport();
    void preTranslateMessageStopsTheEvent();
    void sentMessagesComeToTheControl();
    void theSameEventTwiceIsToldTwice();
    void otherEventsOfTheViewportAreNotTold();

    void handlersMayEndTheControl_data();
    void handlersMayEndTheControl();
    void detachingLeavesTheViewportAlone();
    void attachedToAnother();

    void pointsAreTheViewports_data();
    void pointsAreTheViewports();
    void pointsOfAnotherWidgetAreItsOwn();
};

void tst_Viewport::eventsOfTheViewportAreTheControlsOwnOnce_data()
{
    QTest::addColumn<Maker>("make");
    QTest::addColumn<Deed>("deed");
    QTest::addColumn<QString>("messages");
    for (const auto& [areaName, make] : areas) {
        for (const DeedRow& row : deeds)
            QTest::addRow("%s, %s", areaName, row.name) << make << row.deed << QString::fromLatin1(row.messages);
    }
}

void tst_Viewport::eventsOfTheViewportAreTheControlsOwnOnce()
{
    QFETCH(Maker, make);
    QFETCH(Deed, deed);
    Stage stage(make);
    stage.area->setContextMenuPolicy(Qt::NoContextMenu); // a menu would wait for the user
    deed(stage.viewport());
    QTEST(stage.control.trace.text(), "messages");
}

// A right press means nothing to a scroll area of no class of its own: it climbs to the area and on to the window.
void tst_Viewport::whatNobodyAcceptsIsToldOnceToEach()
{
    Stage stage([] { return static_cast<QAbstractScrollArea*>(new QScrollArea); });
    const QPoint origin = stage.viewport()->mapTo(&stage.window, {0, 0});
    QTest::mousePress(stage.viewport(), Qt::RightButton, {}, {1, 2});
    QCOMPARE(stage.control.trace.take(), QStringLiteral("WM_RBUTTONDOWN(0x2, 0x20001)"));
    QCOMPARE(stage.outer.trace.take(),
             QStringLiteral("WM_RBUTTONDOWN(0x2, 0x%1)").arg((origin.y() + 2) << 16 | (origin.x() + 1), 0, 16));
}

void tst_Viewport::aHandlerConsumesAtTheViewport()
{
    Stage stage(makeList);
    auto* const list = qobject_cast<QListWidget*>(stage.area);
    const QPoint third = list->visualItemRect(list->item(2)).center();

    stage.control.passesOn = false;
    QTest::mousePress(stage.viewport(), Qt::LeftButton, {}, third);
    sendWheel(stage.viewport(), third, -120);
    QCOMPARE(stage.control.presses, 1);
    QCOMPARE(list->currentRow(), -1);
    QCOMPARE(list->verticalScrollBar()->value(), 0);
    QVERIFY(stage.outer.trace.isEmpty());

    stage.control.passesOn = true;
    QTest::mousePress(stage.viewport(), Qt::LeftButton, {}, third);
    QCOMPARE(list->currentRow(), 2);
    QVERIFY(stage.outer.trace.isEmpty());
    sendWheel(stage.viewport(), third, -120);
    QVERIFY(list->verticalScrollBar()->value() > 0);
}

void tst_Viewport::preTranslateMessageStopsTheEvent()
{
    Stage stage(makeList);
    stage.control.refuses = true;
    QTest::mousePress(stage.viewport(), Qt::LeftButton, {}, {5, 5});
    QCOMPARE(stage.control.trace.text(), QStringLiteral("WM_LBUTTONDOWN(0x1, 0x50005)"));
    QCOMPARE(stage.control.presses, 0);
    QCOMPARE(qobject_cast<QListWidget*>(stage.area)->currentRow(), -1);
}

void tst_Viewport::sentMessagesComeToTheControl()
{
    Stage stage(makeList);
    stage.control.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    QCOMPARE(stage.control.trace.take(), QStringLiteral("WM_LBUTTONDOWN(0x1, 0x50005)"));
    stage.control.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    QCOMPARE(stage.control.trace.take(), QStringLiteral("WM_LBUTTONDOWN(0x1, 0x50005)"));
}

void tst_Viewport::theSameEventTwiceIsToldTwice()
{
    Stage stage([] { return static_cast<QAbstractScrollArea*>(new QScrollArea); });
    for (int i = 0; i < 2; ++i) {
        sendContextMenu(stage.viewport(), {6, 7});
        QCOMPARE(stage.control.trace.take(), QStringLiteral("WM_CONTEXTMENU(self, 0x70006)"));
    }
    sendContextMenu(stage.area, {6, 7});
    QCOMPARE(stage.control.trace.take(), QStringLiteral("WM_CONTEXTMENU(self, 0x70006)"));
}

void tst_Viewport::otherEventsOfTheViewportAreNotTold()
{
    Stage stage(makeTable);
    stage.control.watched = {WM_PAINT, WM_SIZE, WM_MOUSELEAVE, WM_SHOWWINDOW, WM_TIMER, WM_KEYDOWN};
    stage.control.trace.clear();
    for (const auto type : {QEvent::Leave, QEvent::ShowToParent}) {
        QEvent event(type);
        QCoreApplication::sendEvent(stage.viewport(), &event);
    }
    stage.viewport()->resize(50, 50);
    stage.viewport()->repaint();
    QCOMPARE(stage.control.trace.text(), QString());
}

// ------------------------------------------------------------------------------------------------------ life

void tst_Viewport::handlersMayEndTheControl_data()
{
    QTest::addColumn<QString>("what");
    for (const char* const what : {"detach", "destroy", "delete widget", "delete wrapper", "delete both"})
        QTest::newRow(what) << QString::fromLatin1(what);
}

void tst_Viewport::handlersMayEndTheControl()
{
    QFETCH(QString, what);
    const QPointer<QListWidget> list = new QListWidget;
    QPointer<Control> control = new Control;
    list->resize(100, 100);
    control->SubclassWindow(list);
    control->onPress = [&] {
        control->passesOn = false;
        if (what == QLatin1String("detach"))
            control->Detach();
        else if (what == QLatin1String("destroy"))
            control->DestroyWindow();
        if (what == QLatin1String("delete widget") || what == QLatin1String("delete both"))
            delete list.data();
    };
    if (what == QLatin1String("delete wrapper") || what == QLatin1String("delete both")) {
        class Suicidal : public Control
        {
        public:
            void PostNcDestroy() override { delete this; }
        };
        delete control.data();
        control = new Suicidal;
        control->SubclassWindow(list);
        control->onPress = [&] {
            CWnd_X* const dying = control;
            if (what == QLatin1String("delete both"))
                delete list.data();
            dying->PostNcDestroy();
        };
        control->passesOn = false;
    }
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(list->viewport(), &press);
    QVERIFY(press.isAccepted());
    delete control.data();
    QCoreApplication::sendPostedEvents();
    delete list.data();
}

void tst_Viewport::detachingLeavesTheViewportAlone()
{
    Stage stage(makeList);
    stage.control.Detach();
    QTest::mousePress(stage.viewport(), Qt::LeftButton, {}, {5, 5});
    QCOMPARE(stage.control.trace.text(), QString());
    QCOMPARE(qobject_cast<QListWidget*>(stage.area)->currentRow(), 0);
}

void tst_Viewport::attachedToAnother()
{
    Stage stage(makeList);
    QTextEdit text(&stage.window);
    stage.control.SubclassWindow(&text);
    QTest::mousePress(stage.viewport(), Qt::LeftButton, {}, {5, 5});
    QCOMPARE(stage.control.trace.take(), QString());
    QTest::mousePress(text.viewport(), Qt::LeftButton, {}, {5, 5});
    QCOMPARE(stage.control.trace.take(), QStringLiteral("WM_LBUTTONDOWN(0x1, 0x50005)"));
    QLineEdit line(&stage.window);
    stage.control.SubclassWindow(&line);
    QTest::mousePress(text.viewport(), Qt::LeftButton, {}, {5, 5});
    QCOMPARE(stage.control.trace.take(), QString());
    QTest::mousePress(&line, Qt::LeftButton, {}, {5, 5});
    QCOMPARE(stage.control.trace.take(), QStringLiteral("WM_LBUTTONDOWN(0x1, 0x50005)"));
    stage.control.Detach();
}

// ---------------------------------------------------------------------------------------------------- points

void tst_Viewport::pointsAreTheViewports_data()
{
    QTest::addColumn<Maker>("make");
    for (const auto& [name, make] : areas)
        QTest::newRow(name) << make;
}

void tst_Viewport::pointsAreTheViewports()
{
    QFETCH(Maker, make);
    Stage stage(make);
    const QPoint expected = stage.viewport()->mapToGlobal({3, 4});
    tagPOINT point{3, 4};
    stage.control.ClientToScreen(&point);
    QCOMPARE(QPoint(point.x, point.y), expected);
    stage.control.ScreenToClient(&point);
    QCOMPARE(QPoint(point.x, point.y), QPoint(3, 4));
    tagRECT rect{3, 4, 3, 4};
    stage.control.ClientToScreen(&rect);
    QCOMPARE(QPoint(rect.right, rect.bottom), expected);
    stage.control.ScreenToClient(&rect);
    QCOMPARE(QPoint(rect.left, rect.top), QPoint(3, 4));
}

void tst_Viewport::pointsOfAnotherWidgetAreItsOwn()
{
    Stage stage(makeTable);
    tagPOINT point{3, 4};
    stage.outer.ClientToScreen(&point);
    QCOMPARE(QPoint(point.x, point.y), stage.window.mapToGlobal({3, 4}));
    point = {3, 4};
    ClientToScreen_X(stage.area, &point); // knows the widget alone
    QCOMPARE(QPoint(point.x, point.y), stage.area->mapToGlobal({3, 4}));
    stage.control.Detach();
    point = {3, 4};
    stage.control.ClientToScreen(&point);
    QCOMPARE(QPoint(point.x, point.y), QPoint(3, 4));
}

XE_TEST(tst_Viewport)
#include "tst_viewport.moc"
