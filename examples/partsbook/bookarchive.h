#pragma once

#include "part.h"

#include <QByteArray>

#include <functional>

/// A book as an archive: a name and a version, a count, the parts field by field, and a mark at the end.
QByteArray archiveOf(const std::vector<Part>& parts);

/// Is told how much has been read, in percent.
using Progress = std::function<void(int percent)>;

/// Takes the parts of an archive. Gives what is wrong with it, with `parts` as they were; empty if nothing is. Tells of
/// the progress of a large one.
CString_X readArchive(QByteArray archive, std::vector<Part>& parts, const Progress& progress = {});
