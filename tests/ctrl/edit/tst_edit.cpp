// Fields for one line and for many: made by style, wrapped from a form, and what can be done with their text.

#include "leavenothing.h"
#include "messagetrace.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <XeCustomUI.h>

#include <QClipboard>
#include <QPlainTextEdit>
#include <QTextDocument>
#include <QWheelEvent>

namespace {

constexpr DWORD oneLine = WS_VISIBLE;
constexpr DWORD manyLines = WS_VISIBLE | ES_MULTILINE;

CString_X textOf(const CWnd_X& window)
{
    CString_X text(L"untouched");
    window.GetWindowText(text);
    return text;
}

// A field in a form, made by its style.
struct Stage
{
    explicit Stage(DWORD style, const wchar_t* text = L"")
    {
        form.resize(300, 200);
        edit.Create(style, CRect(10, 20, 210, 120), &form);
        edit.SetWindowText(text);
        form.show();
    }

    QTextEdit* lines() const { return edit.Imp<QTextEdit>(); }
    QLineEdit* line() const { return edit.Imp<QLineEdit>(); }
    QWidget* target() const { return lines() ? lines()->viewport() : edit.GetSafeHwnd(); }

    QWidget form;
    Traced<CEdit_X> edit;
};

void eachKind()
{
    QTest::addColumn<DWORD>("style");
    QTest::newRow("one line") << oneLine;
    QTest::newRow("many lines") << manyLines;
}

} // namespace

class tst_Edit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void styleMakesTheWidget_data() { eachKind(); }
    void styleMakesTheWidget();
    void aFieldOfManyLinesIsPlain();
    void aFormsFieldStaysAsItIs();
    void widgetSetsTheStyle();
    void otherWidgetsAreRefused();
    void aWindowBarScrolls();

    void texts_data() { eachKind(); }
    void texts();
    void manyLinesTakeHtml();
    void cueBanner_data() { eachKind(); }
    void cueBanner();
    void modified_data() { eachKind(); }
    void modified();
    void readOnly_data() { eachKind(); }
    void readOnly();
    void clipboard_data() { eachKind(); }
    void clipboard();
    void replacingCanBeUndone_data() { eachKind(); }
    void replacingCanBeUndone();
    void rectangle_data() { eachKind(); }
    void rectangle();
    void typingIsMessagesAndText_data() { eachKind(); }
    void typingIsMessagesAndText();
    void withoutAWidget();
};

// -------------------------------------------------------------------------------------------------------- kinds

void tst_Edit::styleMakesTheWidget()
{
    QFETCH(DWORD, style);
    const Stage stage(style | ES_NUMBER | ES_PASSWORD | ES_READONLY);
    QCOMPARE(QString::fromLatin1(stage.edit.GetSafeHwnd()->metaObject()->className()),
             style & ES_MULTILINE ? QStringLiteral("XeCUITextEdit") : QStringLiteral("XeCUILineEdit"));
    QCOMPARE(stage.edit.GetSafeHwnd()->geometry(), QRect(10, 20, 200, 100));
    QCOMPARE(stage.edit.GetStyle(), style | ES_NUMBER | ES_PASSWORD | ES_READONLY);
}

void tst_Edit::aFieldOfManyLinesIsPlain()
{
    const Stage stage(manyLines);
    QCOMPARE(stage.lines()->lineWrapMode(), QTextEdit::NoWrap);
    QCOMPARE(stage.lines()->contextMenuPolicy(), Qt::NoContextMenu);
    for (QScrollBar* bar : {stage.lines()->horizontalScrollBar(), stage.lines()->verticalScrollBar()})
        QVERIFY(!bar->isEnabled());
    QCOMPARE(stage.lines()->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(stage.lines()->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
}

void tst_Edit::aFormsFieldStaysAsItIs()
{
    QTextEdit lines;
    CEdit_X edit;
    edit.ModifyStyle(0, ES_MULTILINE);
    QCOMPARE(edit.SubclassWindow(&lines), 1);
    QCOMPARE(lines.lineWrapMode(), QTextEdit::WidgetWidth);
    QCOMPARE(lines.contextMenuPolicy(), Qt::DefaultContextMenu);
    QVERIFY(lines.verticalScrollBar()->isEnabled());
    QCOMPARE(lines.verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
}

void tst_Edit::widgetSetsTheStyle()
{
    QLineEdit line;
    QTextEdit lines;
    CEdit_X edit;
    edit.ModifyStyle(0, ES_NOHIDESEL);
    QCOMPARE(edit.SubclassWindow(&lines), 1);
    QCOMPARE(edit.GetStyle(), ES_MULTILINE | ES_NOHIDESEL);
    QCOMPARE(edit.SubclassWindow(&line), 1);
    QCOMPARE(edit.GetStyle(), ES_NOHIDESEL);
    edit.SetWindowText(L"one");
    QCOMPARE(line.text(), QStringLiteral("one"));
    QCOMPARE(lines.toPlainText(), QString());
}

void tst_Edit::otherWidgetsAreRefused()
{
    QPlainTextEdit plain;
    QLabel label;
    CEdit_X edit;
    QCOMPARE(edit.SubclassWindow(&plain), 0);
    QCOMPARE(edit.SubclassWindow(&label), 0);
    QVERIFY(!edit.GetSafeHwnd());
    QVERIFY(!CWnd_X::FromHandlePermanent(&plain));
}

// The field's own bars are off; those of the window stand for them.
void tst_Edit::aWindowBarScrolls()
{
    const Stage stage(manyLines | WS_VSCROLL, CString_X(QString(100, QLatin1Char('\n'))));
    QScrollBar* const own = stage.lines()->verticalScrollBar();
    QScrollBar* const shown = stage.edit.GetScrollBarCtrl(SB_VERT);
    QVERIFY(shown && shown != own);
    QVERIFY(!own->isEnabled());
    QTRY_VERIFY(own->maximum() > 0);
    QCOMPARE(shown->maximum(), own->maximum());
    QTRY_COMPARE(shown->pageStep(), own->pageStep());
    shown->setValue(30);
    QCOMPARE(own->value(), 30);
    own->setValue(40);
    QCOMPARE(shown->value(), 40);
    QWheelEvent wheel({5, 5}, stage.target()->mapToGlobal({5, 5}), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(stage.target(), &wheel);
    QVERIFY(own->value() > 40);
    QCOMPARE(shown->value(), own->value());
}

// --------------------------------------------------------------------------------------------------------- text

void tst_Edit::texts()
{
    QFETCH(DWORD, style);
    Stage stage(style);
    stage.edit.SetWindowText(L"零件 😀");
    QCOMPARE(textOf(stage.edit), CString_X(L"零件 😀"));
    QCOMPARE(stage.edit.LineLength(0), 5); // the last one takes two
    QCOMPARE(stage.edit.LineLength(7), 5);
    QCOMPARE(stage.edit.LineLength(-1), 5);
    SetWindowText_X(stage.edit.GetSafeHwnd(), L"by the function");
    QCOMPARE(textOf(stage.edit), CString_X(L"by the function"));
    stage.edit.Clear();
    QCOMPARE(textOf(stage.edit), CString_X());
    stage.edit.SetWindowText(L"x");
    stage.edit.SetWindowText(nullptr);
    QCOMPARE(textOf(stage.edit), CString_X());
}

void tst_Edit::manyLinesTakeHtml()
{
    Stage stage(manyLines, L"<b>bold</b>");
    QCOMPARE(textOf(stage.edit), CString_X(L"bold"));
    stage.edit.SetWindowText(L"one\ntwo");
    QCOMPARE(textOf(stage.edit), CString_X(L"one\ntwo"));
    QCOMPARE(stage.edit.LineLength(0), 7);
}

void tst_Edit::cueBanner()
{
    QFETCH(DWORD, style);
    Stage stage(style);
    QCOMPARE(stage.edit.SetCueBanner(L"名称 😀", TRUE), TRUE);
    wchar_t buffer[8] = {L'.', L'.', L'.', L'.', L'.', L'.', L'.', L'\0'};
    QCOMPARE(stage.edit.GetCueBanner(buffer, 0), TRUE); // the size is not looked at, and there is no terminator
    QCOMPARE(CString_X(buffer), CString_X(L"名称 😀..."));
    QCOMPARE(stage.edit.GetCueBanner(nullptr, 8), FALSE);
    QCOMPARE(stage.edit.GetSafeHwnd()->property("placeholderText").toString(), QStringLiteral("名称 😀"));
}

void tst_Edit::modified()
{
    QFETCH(DWORD, style);
    Stage stage(style, L"text");
    QCOMPARE(stage.edit.GetModify(), 0);
    QTest::keyClick(stage.edit.GetSafeHwnd(), Qt::Key_A);
    QCOMPARE(stage.edit.GetModify(), 1);
    stage.edit.SetModify(FALSE);
    QCOMPARE(stage.edit.GetModify(), 0);
    stage.edit.SetModify();
    QCOMPARE(stage.edit.GetModify(), 1);
    stage.edit.SetWindowText(L"new");
    QCOMPARE(stage.edit.GetModify(), 0);
}

void tst_Edit::readOnly()
{
    QFETCH(DWORD, style);
    Stage stage(style, L"text");
    QCOMPARE(stage.edit.SetReadOnly(), TRUE);
    QTest::keyClick(stage.edit.GetSafeHwnd(), Qt::Key_A);
    QCOMPARE(textOf(stage.edit), CString_X(L"text"));
    QCOMPARE(stage.edit.SetReadOnly(FALSE), TRUE);
    QTest::keyClick(stage.edit.GetSafeHwnd(), Qt::Key_End);
    QTest::keyClick(stage.edit.GetSafeHwnd(), Qt::Key_A);
    QCOMPARE(textOf(stage.edit), CString_X(L"texta"));
}

void tst_Edit::clipboard()
{
    QFETCH(DWORD, style);
    Stage stage(style, L"text");
    SetEditSelectAll_X(stage.edit.GetSafeHwnd());
    stage.edit.Copy();
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("text"));
    stage.edit.Cut();
    QCOMPARE(textOf(stage.edit), CString_X());
    stage.edit.Paste();
    stage.edit.Paste();
    QCOMPARE(textOf(stage.edit), CString_X(L"texttext"));
}

void tst_Edit::replacingCanBeUndone()
{
    QFETCH(DWORD, style);
    Stage stage(style, L"text");
    SetEditSelectAll_X(stage.edit.GetSafeHwnd());
    stage.edit.ReplaceSel(L"零件", FALSE);
    QCOMPARE(textOf(stage.edit), CString_X(L"零件"));
    QCOMPARE(stage.edit.Undo(), TRUE);
    QCOMPARE(textOf(stage.edit), CString_X(L"text"));
    QCOMPARE(stage.edit.Undo(), TRUE);
    SetEditSelectAll_X(stage.edit.GetSafeHwnd());
    stage.edit.ReplaceSel(nullptr);
    QCOMPARE(textOf(stage.edit), CString_X());
}

void tst_Edit::rectangle()
{
    QFETCH(DWORD, style);
    Stage stage(style);
    tagRECT rect{1, 2, 3, 4};
    stage.edit.GetRect(&rect);
    QCOMPARE(CRect(rect), CRect(0, 0, 200, 100));
    stage.edit.GetRect(nullptr);
    stage.edit.SetRect(CRect(5, 6, 105, 56));
    QCOMPARE(stage.edit.GetSafeHwnd()->geometry(), QRect(5, 6, 100, 50));
    stage.edit.SetRect(nullptr);
    QCOMPARE(stage.edit.GetSafeHwnd()->geometry(), QRect(5, 6, 100, 50));
}

void tst_Edit::typingIsMessagesAndText()
{
    QFETCH(DWORD, style);
    Stage stage(style);
    stage.edit.trace.clear();
    QTest::keyClick(stage.edit.GetSafeHwnd(), Qt::Key_A);
    QCOMPARE(stage.edit.trace.take(), QStringLiteral("WM_KEYDOWN(0x41, 0x1) WM_KEYUP(0x41, 0x80000001)"));
    QCoreApplication::sendPostedEvents();
    QVERIFY(stage.edit.trace.take().contains(QLatin1String("WM_CHAR(0x61, 0x1)")));
    QCOMPARE(textOf(stage.edit), CString_X(L"a"));
    QTest::mouseClick(stage.target(), Qt::LeftButton, {}, {4, 5});
    QVERIFY(
        stage.edit.trace.take().startsWith(QLatin1String("WM_LBUTTONDOWN(0x1, 0x50004) WM_LBUTTONUP(0x0, 0x50004)")));
}

void tst_Edit::withoutAWidget()
{
    CEdit_X edit;
    int start = 7;
    int end = 8;
    tagRECT rect{1, 2, 3, 4};
    wchar_t buffer[2] = L"x";
    edit.GetSel(start, end);
    edit.GetRect(&rect);
    edit.SetRect(&rect);
    edit.SetSel(0, -1);
    edit.SetModify();
    edit.ReplaceSel(L"x");
    edit.SetWindowText(L"x");
    for (const auto command : {&CEdit_X::Clear, &CEdit_X::Copy, &CEdit_X::Cut, &CEdit_X::Paste})
        (edit.*command)();
    QCOMPARE(start, 0);
    QCOMPARE(end, 0);
    QCOMPARE(CRect(rect), CRect(1, 2, 3, 4));
    QCOMPARE(edit.Undo(), FALSE);
    QCOMPARE(edit.SetReadOnly(), FALSE);
    QCOMPARE(edit.SetCueBanner(L"x"), FALSE);
    QCOMPARE(edit.GetCueBanner(buffer, 2), FALSE);
    QCOMPARE(
        edit.GetModify() + edit.LineLength() + edit.GetLineCount() + edit.LineFromChar() + edit.CharFromPos({1, 1}), 0);
    QCOMPARE(textOf(edit), CString_X(L"untouched"));
}

XE_TEST(tst_Edit)
#include "tst_edit.moc"
