// The field for rich text.

#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

class tst_RichEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void createdWithOneSetOfBars();
    void theTextIsPlain();
};

void tst_RichEdit::createdWithOneSetOfBars()
{
    QWidget form;
    CRichEditCtrl_X edit;
    QCOMPARE(edit.Create(WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE, CRect(1, 2, 101, 52), &form), 1);
    QCOMPARE(QString::fromLatin1(edit.GetSafeHwnd()->metaObject()->className()), QStringLiteral("QTextEdit"));
    QCOMPARE(edit.GetSafeHwnd()->geometry(), QRect(1, 2, 100, 50));
    QVERIFY(!edit.GetScrollBarCtrl(SB_VERT));
    QVERIFY(!edit.GetScrollBarCtrl(SB_HORZ));
    QCOMPARE(edit.Imp<QTextEdit>()->lineWrapMode(), QTextEdit::WidgetWidth);
    QVERIFY(edit.Imp<QTextEdit>()->verticalScrollBar()->isEnabled());
}

void tst_RichEdit::theTextIsPlain()
{
    QTextEdit widget(QStringLiteral("<b>bold</b>"));
    CRichEditCtrl_X edit;
    CString_X text(L"untouched");
    edit.GetWindowText(text);
    QCOMPARE(text, CString_X(L"untouched"));
    QCOMPARE(edit.SubclassWindow(&widget), 1);
    edit.GetWindowText(text);
    QCOMPARE(text, CString_X(L"bold"));
    edit.SetWindowText(L"<b>bold</b>");
    QCOMPARE(widget.toPlainText(), QStringLiteral("<b>bold</b>"));
    QLineEdit line;
    QCOMPARE(edit.SubclassWindow(&line), 0);
}

XE_TEST(tst_RichEdit)
#include "tst_richedit.moc"
