// The viewport of a wrapped scroll area.
#pragma once

#include <QEvent>
#include <QPoint>
#include <QPointer>
#include <QWidget>

#include <memory>

namespace xe {

/// Has a wrapper filter the viewport of its scroll area as well. Qt sends mouse, wheel and context menu to that, where
/// Windows knows one window.
class Viewport
{
public:
    /// Null for a widget that is no scroll area.
    static std::unique_ptr<Viewport> of(QWidget& widget, QObject& wrapper);

    /// The scroll area whose viewport an object is; any other object itself.
    static QObject* windowOf(QObject& object);
    /// Whether an event of a viewport is of a kind that is its area's.
    static bool isOfWindow(const QEvent& event) { return traceOf(event).type != QEvent::None; }

    Viewport(QWidget& viewport, QObject& wrapper);
    ~Viewport();
    Q_DISABLE_COPY_MOVE(Viewport)

    QWidget* widget() const { return m_widget; }

    /// Whether an event of the viewport is one of the area's, which it remembers.
    bool tells(const QEvent& event);

    /// Whether an event of the area is the one that its viewport has had: nobody accepted it there, so Qt goes on to
    /// the parent. It is forgotten.
    bool hasTold(const QEvent& event);

private:
    // What Qt keeps of an event on its way up.
    struct Trace
    {
        QEvent::Type type = QEvent::None;
        QPoint globalPosition;
        ulong timestamp = 0;

        bool operator==(const Trace& other) const;
    };
    static Trace traceOf(const QEvent& event);

    const QPointer<QWidget> m_widget;
    QObject& m_wrapper;
    Trace m_told;
};

} // namespace xe
