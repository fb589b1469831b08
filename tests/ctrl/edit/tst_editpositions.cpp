// Positions in a field: the selection, lines and points.

#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QTextBlock>

#include <climits>

namespace {

constexpr DWORD oneShownLine = ES_NOHIDESEL;
constexpr DWORD manyShownLines = ES_NOHIDESEL | ES_MULTILINE;

// "start-end" of the selection, or the caret's position twice.
QString selectionOf(const CEdit_X& edit)
{
    int start = 0;
    int end = 0;
    edit.GetSel(start, end);
    return QStringLiteral("%1-%2").arg(start).arg(end);
}

} // namespace

class tst_EditPositions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void selecting_data();
    void selecting();
    void selectingNeedsTheFocus_data();
    void selectingNeedsTheFocus();
    void linesAreThoseOfTheLayout();
    void wrappedLines();
    void aFieldThatWasNeverShownHasLines();
    void oneLineIsOneLine();
    void points();
    void pointsOfOneLine();
};

void tst_EditPositions::selecting_data()
{
    QTest::addColumn<DWORD>("style");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::addColumn<QString>("selection");
    const auto row = [](const char* name, DWORD style, int start, int end, const char* selection) {
        QTest::newRow(name) << style << start << end << QString::fromLatin1(selection);
    };
    // "one two three", with the caret at 5
    row("a part", oneShownLine, 4, 7, "4-7");
    row("all", oneShownLine, 0, -1, "0-13");
    row("backwards", oneShownLine, 7, 4, "4-7");
    row("from a position backwards to the start", oneShownLine, 4, -1, "0-4");
    row("nothing puts the caret", oneShownLine, 4, 4, "4-4");
    row("an end behind the text", oneShownLine, 4, 99, "4-13");
    row("an end at the limit of numbers", oneShownLine, 4, INT_MAX, "4-13");
    row("an end below all", oneShownLine, 4, INT_MIN, "0-4");
    row("start -1 is the end of the text", oneShownLine, -1, 3, "13-13");
    row("start behind the text", oneShownLine, 14, 20, "13-13");
    row("start at the end", oneShownLine, 13, 13, "13-13");
    row("start below -1", oneShownLine, -2, 3, "5-5");
    row("many lines: the word", manyShownLines, 4, 5, "4-7");
    row("many lines: the word around", manyShownLines, 9, 9, "8-13");
    row("many lines: not all", manyShownLines, 0, -1, "0-3");
    row("many lines: start -1", manyShownLines, -1, 3, "13-13");
    row("many lines: start behind the text", manyShownLines, 13, 2, "13-13");
    row("many lines: start below -1", manyShownLines, -2, 3, "13-13");
}

void tst_EditPositions::selecting()
{
    QFETCH(DWORD, style);
    QFETCH(int, start);
    QFETCH(int, end);
    QWidget form;
    CEdit_X edit;
    edit.Create(style, CRect(0, 0, 200, 100), &form);
    edit.SetWindowText(L"one two three");
    if (auto* line = edit.Imp<QLineEdit>())
        line->setCursorPosition(5);
    edit.SetSel(start, end);
    QTEST(selectionOf(edit), "selection");
}

void tst_EditPositions::selectingNeedsTheFocus_data()
{
    QTest::addColumn<DWORD>("style");
    QTest::newRow("one line") << DWORD(0);
    QTest::newRow("many lines") << DWORD(ES_MULTILINE);
}

void tst_EditPositions::selectingNeedsTheFocus()
{
    QFETCH(DWORD, style);
    QWidget form;
    CEdit_X edit;
    QLineEdit other(&form);
    edit.Create(style | WS_VISIBLE, CRect(0, 30, 200, 100), &form);
    edit.SetWindowText(L"text");
    form.show();
    form.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&form));
    other.setFocus();
    const QString before = selectionOf(edit);
    edit.SetSel(0, -1);
    QCOMPARE(selectionOf(edit), before);
    edit.SetFocus();
    edit.SetSel(0, -1);
    QCOMPARE(selectionOf(edit), QStringLiteral("0-4"));
}

// --------------------------------------------------------------------------------------------------------- lines

void tst_EditPositions::linesAreThoseOfTheLayout()
{
    QWidget form;
    CEdit_X edit;
    edit.Create(WS_VISIBLE | manyShownLines, CRect(0, 0, 200, 100), &form);
    form.show();
    QCOMPARE(edit.GetLineCount(), 1);
    edit.SetWindowText(L"one\ntwo\n\nfour"); // 0-3, 4-7, 8, 9-13
    QCOMPARE(edit.GetLineCount(), 4);
    const QVector<int> lines{0, 0, 0, 0, 1, 1, 1, 1, 2, 3, 3, 3, 3, 3};
    for (int i = 0; i < lines.size(); ++i)
        QCOMPARE(edit.LineFromChar(i), lines[i]);
    QTextCursor caret = edit.Imp<QTextEdit>()->textCursor();
    caret.setPosition(5);
    edit.Imp<QTextEdit>()->setTextCursor(caret);
    QCOMPARE(edit.LineFromChar(14), 1); // the caret's
    QCOMPARE(edit.LineFromChar(), 1);
    QCOMPARE(edit.LineFromChar(INT_MIN), 1);
}

void tst_EditPositions::wrappedLines()
{
    QTextEdit lines;
    lines.setLineWrapMode(QTextEdit::FixedColumnWidth);
    lines.setLineWrapColumnOrWidth(10);
    lines.setWordWrapMode(QTextOption::WrapAnywhere);
    lines.setPlainText(QString(25, QLatin1Char('x')) + QStringLiteral("\nlast"));
    CEdit_X edit;
    edit.SubclassWindow(&lines);
    lines.show();
    const QTextBlock first = lines.document()->begin();
    const int wrapped = first.layout()->lineCount();
    QVERIFY(wrapped > 1);
    QCOMPARE(edit.GetLineCount(), wrapped + 1);
    QCOMPARE(edit.LineFromChar(0), 0);
    QCOMPARE(edit.LineFromChar(first.layout()->lineAt(1).textStart()), 1);
    QCOMPARE(edit.LineFromChar(24), wrapped - 1);
    QCOMPARE(edit.LineFromChar(26), wrapped);
    QCOMPARE(edit.LineFromChar(30), wrapped);
}

void tst_EditPositions::aFieldThatWasNeverShownHasLines()
{
    QTextEdit lines;
    lines.setPlainText(QStringLiteral("one\ntwo\nthree"));
    CEdit_X edit;
    edit.SubclassWindow(&lines);
    QCOMPARE(edit.LineFromChar(5), 1);
    QCOMPARE(edit.GetLineCount(), 3);
}

void tst_EditPositions::oneLineIsOneLine()
{
    QLineEdit line(QStringLiteral("one two"));
    CEdit_X edit;
    edit.SubclassWindow(&line);
    QCOMPARE(edit.GetLineCount(), 1);
    QCOMPARE(edit.LineFromChar(4), 0);
    QCOMPARE(edit.LineFromChar(99), 0);
}

// -------------------------------------------------------------------------------------------------------- points

void tst_EditPositions::points()
{
    QWidget form;
    CEdit_X edit;
    edit.Create(WS_VISIBLE | manyShownLines, CRect(0, 0, 200, 100), &form);
    edit.SetWindowText(L"one\ntwo\nthree");
    form.show();
    auto* const lines = edit.Imp<QTextEdit>();
    for (const int position : {0, 2, 5, 9}) {
        QTextCursor caret(lines->document());
        caret.setPosition(position);
        const QPoint place = lines->cursorRect(caret).center();
        QCOMPARE(edit.CharFromPos(CPoint(place.x(), place.y())), position | caret.blockNumber() << 16);
    }
    QCOMPARE(edit.CharFromPos(CPoint(190, 95)), 13 | 2 << 16);
}

void tst_EditPositions::pointsOfOneLine()
{
    QLineEdit line(QStringLiteral("one two"));
    CEdit_X edit;
    edit.SubclassWindow(&line);
    QCOMPARE(edit.CharFromPos(CPoint(0, 5)), 0);
    QCOMPARE(edit.CharFromPos(CPoint(9999, 5)), 7);
}

XE_TEST(tst_EditPositions)
#include "tst_editpositions.moc"
