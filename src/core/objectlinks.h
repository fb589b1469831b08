// What an imp object knows of its wrapper: two dynamic properties that hold addresses.
#pragma once

#include <QObject>

namespace xe {

/// The wrapper's address; null for an object without a wrapper.
void* linkedOwner(const QObject& imp);

/// The logical parent's address, whatever has become of it.
void* linkedParent(const QObject& imp);

/// Writes the links of an imp object that is being attached.
void link(QObject& imp, const QObject& owner, const QObject* parent);
/// Takes both links away.
void unlink(QObject& imp);
void setLinkedParent(QObject& imp, const QObject* parent);

} // namespace xe
