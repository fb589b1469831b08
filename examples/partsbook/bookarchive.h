#pragma once

#include "part.h"

#include <QByteArray>

/// A book as an archive: a name and a version, a count, the parts field by field, and a mark at the end.
QByteArray archiveOf(const std::vector<Part>& parts);

/// Takes the parts of an archive. Gives what is wrong with it, with `parts` as they were; empty if nothing is.
CString_X readArchive(QByteArray archive, std::vector<Part>& parts);
