// The selection in a line of text, as the edit control and the field of a spin box have it.
#pragma once

#include <QLineEdit>

namespace xe {

/// The ends of the selection, or the caret in both.
inline void selectionOf(const QLineEdit& line, int& start, int& end)
{
    const bool selected = line.hasSelectedText();
    start = selected ? line.selectionStart() : line.cursorPosition();
    end = selected ? line.selectionEnd() : line.cursorPosition();
}

/// Selects from `start` to `end`: 0 and -1 all; a start of -1, or beyond the text, puts the caret to the end. An end of
/// -1 stands for the place ahead of the text otherwise, and a start below -1 for nothing to be done.
inline void selectInLine(QLineEdit& line, int start, int end)
{
    if (start < -1)
        return;
    if (start == -1 || start > line.text().size())
        line.end(false);
    else if (start == 0 && end == -1)
        line.selectAll();
    else
        line.setSelection(start, qMax(end, -1) - start);
}

} // namespace xe
