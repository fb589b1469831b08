#include "ctrl/barcoupling.h"

#include <QEvent>
#include <QScrollBar>

namespace xe {

namespace {

// A hidden bar is disabled, so the wheel would do nothing there.
class WheelGuide : public QObject
{
public:
    explicit WheelGuide(QScrollBar& shown) : QObject(&shown), m_shown(shown) {}

    bool eventFilter(QObject*, QEvent* event) override
    {
        return event->type() == QEvent::Wheel && static_cast<QObject&>(m_shown).event(event);
    }

private:
    QScrollBar& m_shown;
};

void takeRange(const QScrollBar& from, QScrollBar& to)
{
    to.setRange(from.minimum(), from.maximum());
    to.setPageStep(from.pageStep());
    to.setSingleStep(from.singleStep());
}

} // namespace

void coupleBars(QScrollBar& own, QScrollBar* shown)
{
    if (!shown)
        return;
    takeRange(own, *shown);
    for (const auto when : {Qt::DirectConnection, Qt::QueuedConnection}) // the page is set behind the range
        QObject::connect(
            &own, &QScrollBar::rangeChanged, shown, [&own, shown] { takeRange(own, *shown); }, when);
    QObject::connect(&own, &QScrollBar::valueChanged, shown, &QScrollBar::setValue);
    QObject::connect(shown, &QScrollBar::valueChanged, &own, &QScrollBar::setValue);
    own.installEventFilter(new WheelGuide(*shown));
}

} // namespace xe
