#include "bookframe.h"

#include "answer.h"
#include "leavenothing.h"
#include "resource.h"
#include "samplelines.h"

#include <QLabel>
#include <QStatusBar>
#include <QTest>

void BookFrame::comeUp(const QString& fileName)
{
    m_folder.reset(new QTemporaryDir);
    m_path = m_folder->filePath(fileName);
    m_frame.reset(new CMainFrame);
    QCOMPARE(m_frame->Create(nullptr), 1);
    m_frame->ShowWindow(SW_SHOW);
}

void BookFrame::goAway()
{
    m_frame->DestroyWindow();
    updateCommands(); // nothing to be updated any more
    m_frame.reset();
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

// The texts of the panes of the status bar: "Saved parts.csv|2 parts|1 short|".
QString BookFrame::status() const
{
    QStringList texts;
    const auto* const bar = qobject_cast<CStatusBar_X*>(CWnd_X::FromHandle(window()->findChild<QStatusBar*>()));
    for (const QWidget* pane : bar->GetListQWidgets())
        texts += static_cast<const QLabel*>(pane)->text();
    texts.removeAt(1); // the place in the list
    return texts.join('|');
}

QByteArray BookFrame::content() const { return contentOf(path()); }

void BookFrame::write(const QByteArray& text) const
{
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

bool BookFrame::open(const QByteArray& text)
{
    write(text);
    const bool opened = m_frame->OpenBook(path());
    updateCommands();
    return opened;
}

void BookFrame::deleteRow(int row, const QString& answer)
{
    table().setCurrentCell(row, 0);
    const Answer given(answer);
    command(ID_PART_DELETE)->trigger();
    updateCommands();
    QVERIFY(given.text() != "no box");
}
