#pragma once

class QWidget;

namespace xe {

/// Has the lists of all combo boxes below a widget show their texts whole, where Qt cuts them short in the middle.
///
/// Qt makes the list of a box when somebody first asks for it, which takes longer than the box itself: one that is not
/// there yet is left unmade, and gets the mode as soon as Qt has given it its own.
void showWholeTextsBelow(const QWidget& window);

} // namespace xe
