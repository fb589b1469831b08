// Printers whose owner has gone.
#pragma once

class QPrinter;

namespace xe {

/// Deletes the printer; one that is painted on, not before that has ended and the event loop is about to wait.
void dropPrinter(QPrinter* printer);

} // namespace xe
