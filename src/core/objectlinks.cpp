#include "win/logicalparent.h"

#include <QApplication>
#include <QVariant>
#include <QWidget>

namespace xe {

namespace {

constexpr char parentProperty[] = "parent";

} // namespace

QWidget* logicalParent(const QWidget& window)
{
    auto* const parent = reinterpret_cast<QWidget*>(window.property(parentProperty).toLongLong());
    if (!parent || parent == window.parentWidget())
        return parent;
    // Nothing keeps a parent alive that is not the Qt parent.
    return QApplication::allWidgets().contains(parent) ? parent : nullptr;
}

void setLogicalParent(QWidget& window, QWidget* parent)
{
    window.setProperty(parentProperty, static_cast<qlonglong>(reinterpret_cast<qintptr>(parent)));
}

} // namespace xe
