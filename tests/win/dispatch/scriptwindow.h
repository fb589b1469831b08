#pragma once

#include <messagetrace.h>

#include <QCoreApplication>

#include <functional>
#include <map>

/// A traced window whose handlers are written in the test.
class ScriptWindow : public Traced<>
{
public:
    using Handler = std::function<LRESULT(WPARAM, LPARAM)>;

    ScriptWindow() = default;
    explicit ScriptWindow(QWidget* widget) { SubclassWindow(widget); }

    /// Enters a handler that gives the message's result.
    template <UINT message>
    void on(Handler handler)
    {
        m_handlers[message] = std::move(handler);
        AddMsgMapEntry(message, AfxSig_l_w_l, XeHandler<LRESULT(WPARAM, LPARAM)>::of(&ScriptWindow::run<message>),
                       nullptr);
    }

    /// Enters one that only acts.
    template <UINT message>
    void on(std::function<void()> handler)
    {
        on<message>(Handler([handler = std::move(handler)](WPARAM, LPARAM) {
            handler();
            return 0;
        }));
    }

private:
    template <UINT message>
    LRESULT run(WPARAM wParam, LPARAM lParam)
    {
        const Handler handler = m_handlers[message]; // it may delete this window
        return handler(wParam, lParam);
    }

    std::map<UINT, Handler> m_handlers;
};

/// One that looks at messages first.
class ScreeningWindow : public ScriptWindow
{
public:
    using ScriptWindow::ScriptWindow;

    int PreTranslateMessage(tagMSG* message) override
    {
        const std::function<int(tagMSG*)> look = screen; // it may delete this window
        return look ? look(message) : 0;
    }

    std::function<int(tagMSG*)> screen;
};

/// A widget that keeps a list of the event types it is given.
class ListeningWidget : public QWidget
{
public:
    using QWidget::QWidget;

    /// How many events of this type have come.
    int count(int type) const { return static_cast<int>(std::count(types.begin(), types.end(), type)); }

    QVector<int> types;

protected:
    bool event(QEvent* event) override
    {
        types += event->type();
        return QWidget::event(event);
    }
};

/// Delivers what has been posted.
inline void deliverPosted() { QCoreApplication::sendPostedEvents(); }
