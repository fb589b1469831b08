// A walk of random steps over windows, wrappers and what is theirs.
#pragma once

#include <xeafxmenu.h>
#include <xeafxwin.h>
#include <xeatltypes.h>

#include <QPointer>
#include <QVector>

#include <memory>
#include <random>

/// Where a step is made: between events, in a handler, or in one in which Qt goes on with the widget afterwards, and
/// nobody may delete it, give it another parent or run an event loop (paint, resize, move, show, activation, focus).
enum class Place { Outside, Handler, TightHandler };

/// Windows of a class whose handlers make steps, and widgets of the class whose input hooks and message functions see.
CWnd_X* newWalkingWindow();
QWidget* newTavoView(QWidget* parent);

class Walk
{
public:
    explicit Walk(unsigned seed) : m_random(seed) {}

    void live(int steps);
    void disturb(Place place);

    static Walk* current;

private:
    using Step = void (Walk::*)();
    void step(Place place);
    int below(int end) { return static_cast<int>(m_random() % static_cast<unsigned>(end)); }
    void tidy();

    CWnd_X* window();
    QWidget* widget();
    HWND widgetOfAny();
    QWidget* parentOrNone();
    bool mayShow() const;
    auto tighten();
    CRect rect() { return {below(50), below(50), 60 + below(200), 60 + below(200)}; }

    void createWindow();
    void createWidget();
    void createControl();
    void changeItemsOfAny();
    void subclass();
    void attach();
    void detach();
    void destroyWindow();
    void deleteWrapper();
    void changeState();
    void setParent();
    void focus();
    void scroll();
    void send();
    void post();
    void sendEvent();
    void postEvent();
    void timer();
    void hook();
    void messageFunction();
    void temporary();
    void clearTemporary();
    void processEvents();
    void deleteWidget();
    void deleteWidgetLater();
    void setMenu();
    void changeMenu();
    void putIntoSplitter();
    void runDialog();

    std::unique_ptr<QEvent> event();

    std::mt19937 m_random;
    QVector<QPointer<CWnd_X>> m_windows;
    QVector<QPointer<QWidget>> m_widgets;
    Place m_place = Place::Outside; // the tightest on the stack
    int m_depth = 0;
    bool m_inDialog = false;
    std::unique_ptr<CMenu_X> m_menu;
};
