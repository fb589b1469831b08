#include "core/objectlinks.h"

#include <QVariant>

namespace xe {

namespace {

constexpr char ownerProperty[] = "owner";
constexpr char parentProperty[] = "parent";

// An address is kept as a 64-bit number, 0 for null.
void writeAddress(QObject& object, const char* property, const QObject* value)
{
    object.setProperty(property, static_cast<qlonglong>(reinterpret_cast<qintptr>(value)));
}

void* readAddress(const QObject& object, const char* property)
{
    return reinterpret_cast<void*>(static_cast<qintptr>(object.property(property).toLongLong()));
}

} // namespace

void* linkedOwner(const QObject& imp) { return readAddress(imp, ownerProperty); }

void* linkedParent(const QObject& imp) { return readAddress(imp, parentProperty); }

void link(QObject& imp, const QObject& owner, const QObject* parent)
{
    writeAddress(imp, ownerProperty, &owner);
    writeAddress(imp, parentProperty, parent);
}

void unlink(QObject& imp)
{
    imp.setProperty(ownerProperty, QVariant());
    imp.setProperty(parentProperty, QVariant());
}

void setLinkedParent(QObject& imp, const QObject* parent) { writeAddress(imp, parentProperty, parent); }

} // namespace xe
