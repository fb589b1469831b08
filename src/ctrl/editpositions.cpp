// Positions in an edit: the selection, lines and points.

#include "ctrl/lineselection.h"
#include "xeafxctrl.h"

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextLayout>

// ----------------------------------------------------------------------------------------------------------- selection

namespace {

// The document ends in a paragraph mark, which is not of the text.
int lengthOf(const QTextEdit& edit) { return edit.document()->characterCount() - 1; }

void selectWord(QTextEdit& edit, int start)
{
    QTextCursor caret = edit.textCursor();
    if (start >= 0 && start < lengthOf(edit)) {
        caret.setPosition(start);
        caret.select(QTextCursor::WordUnderCursor);
    } else {
        caret.movePosition(QTextCursor::End);
    }
    edit.setTextCursor(caret);
}

} // namespace

bool CEdit_X::mayShowSelection() const { return GetStyle() & ES_NOHIDESEL || GetFocus() == GetSafeHwnd(); }

void CEdit_X::SetSel(int start, int end, int)
{
    if (!mayShowSelection())
        return;
    if (auto* const edit = Imp<QTextEdit>())
        selectWord(*edit, start);
    else if (auto* const line = Imp<QLineEdit>())
        xe::selectInLine(*line, start, end);
}

void CEdit_X::GetSel(int& start, int& end) const
{
    if (const auto* const edit = Imp<QTextEdit>()) {
        start = edit->textCursor().selectionStart();
        end = edit->textCursor().selectionEnd();
    } else if (const auto* const line = Imp<QLineEdit>()) {
        xe::selectionOf(*line, start, end);
    } else {
        start = end = 0;
    }
}

// --------------------------------------------------------------------------------------------------------------- lines

namespace {

// Lines are laid out when they are shown, unless somebody asks for the size of all, and none before the field is first
// shown.
void layOut(QTextEdit& edit)
{
    if (edit.document()->pageSize().isNull())
        edit.setLineWrapColumnOrWidth(edit.lineWrapColumnOrWidth());
    edit.document()->documentLayout()->documentSize();
}

int linesOf(const QTextBlock& block) { return block.isVisible() ? block.layout()->lineCount() : 0; }

int linesBefore(const QTextDocument& document, const QTextBlock& end)
{
    int lines = 0;
    for (QTextBlock block = document.begin(); block.isValid() && block != end; block = block.next())
        lines += linesOf(block);
    return lines;
}

} // namespace

int CEdit_X::LineLength(int) const
{
    if (const auto* const edit = Imp<QTextEdit>())
        return lengthOf(*edit);
    return Imp<QLineEdit>() ? Imp<QLineEdit>()->text().size() : 0;
}

int CEdit_X::GetLineCount() const
{
    auto* const edit = Imp<QTextEdit>();
    if (!edit)
        return GetSafeHwnd() ? 1 : 0;
    layOut(*edit);
    return qMax(1, linesBefore(*edit->document(), {}));
}

int CEdit_X::LineFromChar(int index) const
{
    auto* const edit = Imp<QTextEdit>();
    if (!edit)
        return 0;
    if (index < 0 || index > lengthOf(*edit))
        return edit->textCursor().blockNumber();
    layOut(*edit);
    const QTextBlock block = edit->document()->findBlock(index);
    const QTextLine line = block.layout()->lineForTextPosition(index - block.position());
    return linesBefore(*edit->document(), block) + (line.isValid() ? line.lineNumber() : 0);
}

int CEdit_X::CharFromPos(CPoint point) const
{
    const QPoint place(point.x, point.y);
    if (const auto* const edit = Imp<QTextEdit>()) {
        const QTextCursor caret = edit->cursorForPosition(place);
        return MAKELONG(static_cast<DWORD_PTR>(caret.position()), static_cast<DWORD_PTR>(caret.blockNumber()));
    }
    auto* const line = Imp<QLineEdit>();
    return line ? LOWORD(static_cast<DWORD_PTR>(line->cursorPositionAt(place))) : 0;
}
