// The types of files that a file dialog offers.
#pragma once

#include <QStringList>

class QFileDialog;

namespace xe {

/// The labels in a filter of the published form, as "Text (*.txt)|*.txt|All (*.*)|*.*||": the parts that end in ")".
QStringList typeLabels(const QString& filter);

/// The patterns in the brackets at the end of a label, divided by ";" or blanks. "*.*" becomes "*": in the published
/// dialog it shows the names without a dot too.
QStringList typePatterns(const QString& label);

/// Offers these types in a dialog of Qt's own. The labels stay as they are, and each shows the files of its patterns:
/// by itself Qt divides patterns at blanks only.
void offerTypes(QFileDialog& dialog, const QStringList& labels);

} // namespace xe
