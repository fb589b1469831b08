#include "dialog/droppedprinter.h"

#include <QAbstractEventDispatcher>
#include <QPrinter>

#include <memory>

namespace {

// A QPainter that goes tells nobody, so the printer is looked at whenever the program is idle. One that is painted on
// for ever is never deleted: its painter would be left with an address that is gone.
class DroppedPrinter : public QObject
{
public:
    explicit DroppedPrinter(QPrinter* printer) : m_printer(printer)
    {
        if (const auto* const dispatcher = QAbstractEventDispatcher::instance())
            connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, &DroppedPrinter::look);
    }

private:
    void look()
    {
        if (!m_printer->paintingActive())
            delete this;
    }

    const std::unique_ptr<QPrinter> m_printer;
};

} // namespace

void xe::dropPrinter(QPrinter* printer)
{
    if (printer && printer->paintingActive())
        new DroppedPrinter(printer);
    else
        delete printer;
}
