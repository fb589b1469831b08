// The main window: what opens and saves the book, and the other commands of the file menu.

#include "bookdialogs.h"
#include "bookprinter.h"
#include "loadprogress.h"
#include "mainframe.h"
#include "recentmenu.h"
#include "settings.h"
#include "testparts.h"
#include "text.h"

#include <QAction>
#include <QDate>
#include <QFileInfo>
#include <QMenu>
#include <QPainter>
#include <xeafxdc.h>
#include <xeafxdlgs.h>

#include <algorithm>

namespace {

constexpr int mostBadLinesShown = 12;
constexpr int testBookSize = 100'000;

} // namespace

bool CMainFrame::OpenBook(const QString& fileName)
{
    if (!LoadBook(fileName)) {
        ReportUnread(fileName, m_book.error());
        return false;
    }
    logText(IDS_LOG_OPENED, CString_X(fileName), m_book.count());
    ShowBook();
    ReportBadLines(m_book);
    return true;
}

void CMainFrame::ShowBook()
{
    m_parts.DeleteNonFixedRows(); // and with them the order of the last book
    ShowParts();
    SelectRow(0);
    ClearStatus();
    ShowName();
}

bool CMainFrame::LoadBook(const QString& fileName)
{
    m_parts.EndEditing(); // belongs to the book that goes
    CLoadProgress progress(*this, m_statusBar);
    return m_book.load(fileName, [&](int percent) { progress.Show(percent); });
}

void CMainFrame::ReportUnread(const QString& fileName, const CString_X& error)
{
    logText(IDS_LOG_NOT_READ, CString_X(fileName), error);
    MessageBox(formatText(loadText(IDS_CANNOT_READ), CString_X(fileName), error), nullptr, MB_OK | MB_ICONERROR);
}

void CMainFrame::ReportUnwritten(const QString& fileName, const CString_X& error)
{
    logText(IDS_LOG_NOT_SAVED, CString_X(fileName), error);
    MessageBox(formatText(loadText(IDS_CANNOT_WRITE), CString_X(fileName), error), nullptr, MB_OK | MB_ICONERROR);
}

void CMainFrame::ReportBadLines(const PartsBook& book)
{
    if (book.badLines().empty())
        return;
    const int count = static_cast<int>(book.badLines().size());
    const int shown = std::min(count, mostBadLinesShown);
    CString_X report = formatText(loadText(IDS_BAD_LINES), count, book.shortName());
    for (int i = 0; i < shown; ++i) {
        const PartsBook::BadLine& bad = book.badLines()[static_cast<std::size_t>(i)];
        report += formatText(loadText(IDS_BAD_LINE), bad.line, bad.problem);
    }
    if (shown < count)
        report += formatText(loadText(IDS_MORE_BAD_LINES), count - shown);
    MessageBox(report);
}

bool CMainFrame::Save() { return m_book.hasFile() ? SaveBook(m_book.fileName()) : SaveAs(); }

bool CMainFrame::SaveAs()
{
    const QString name = askForNewBook(*this, m_book.fileName());
    return !name.isEmpty() && SaveBook(name);
}

bool CMainFrame::SaveBook(const QString& fileName)
{
    m_parts.EndEditing();
    if (!m_book.saveAs(fileName)) {
        ReportUnwritten(fileName, m_book.error());
        return false;
    }
    logText(IDS_LOG_SAVED, CString_X(fileName), m_book.count());
    ShowName();
    ShowStatus(IDS_SAVED, m_book.shortName());
    return true;
}

void CMainFrame::ShowName()
{
    SetWindowText(formatText(loadText(IDS_TITLE), m_book.shortName()));
    if (m_book.hasFile())
        settings::addRecentFile(QFileInfo(m_book.fileName()).absoluteFilePath());
    ShowRecentFiles();
}

void CMainFrame::ShowRecentFiles()
{
    const QList<QAction*> items =
        showRecentFiles(GetSafeHwnd()->findChild<QMenu*>("fileMenu"), settings::recentFiles());
    for (const QAction* item : items)
        Connect(item, SIGNAL(triggered()), this, SLOT(OnFileRecent()));
}

// So many parts that the list shows what it is made of.
void CMainFrame::OnFileNewTest()
{
    if (!MayClose())
        return;
    m_parts.EndEditing();
    BeginWaitCursor();
    m_book = PartsBook(testParts(testBookSize));
    ShowBook();
    EndWaitCursor();
}

void CMainFrame::OnFileOpen()
{
    const QString name = askForBook(*this, m_book.fileName());
    if (!name.isEmpty() && MayClose())
        OpenBook(name);
}

// Adds the parts of other books to this one.
void CMainFrame::OnFileImport()
{
    const int before = m_book.count();
    const QStringList names = askForBooks(*this, QFileInfo(m_book.fileName()).absolutePath());
    const auto isImported = [this](const QString& name) { return Import(name); };
    if (std::count_if(names.begin(), names.end(), isImported) == 0)
        return;
    ShowParts();
    if (m_book.count() > before)
        SelectRow(before);
    ShowStatus(formatText(loadText(IDS_IMPORTED), m_book.count() - before));
}

bool CMainFrame::Import(const QString& fileName)
{
    PartsBook other;
    if (!other.load(fileName)) {
        ReportUnread(fileName, other.error());
        return false;
    }
    for (int row = 0; row < other.count(); ++row)
        m_book.add(other.part(row));
    ReportBadLines(other);
    return true;
}

void CMainFrame::OnFilePrint()
{
    CPrintDialog_X dialog(FALSE, PD_ALLPAGES | PD_NOSELECTION | PD_NOPAGENUMS, this);
    auto* const painter = dialog.DoModal() == IDOK ? static_cast<QPainter*>(dialog.GetPrinterDC()) : nullptr;
    if (!painter)
        return;
    printBook(*painter, m_book, m_book.shortName());
    DeleteDC_X(painter);
    const CString_X target = dialog.GetPortName().IsEmpty() ? dialog.GetDeviceName() : dialog.GetPortName();
    ShowStatus(IDS_PRINTED, CString_X(QFileInfo(XeQString(target)).fileName()));
}

// A copy of the book as it is shown, saved or not, with the day in its name.
void CMainFrame::OnFileBackUp()
{
    const QString folder = askForFolder();
    if (folder.isEmpty())
        return;
    const QFileInfo book(m_book.fileName());
    const QString name =
        QStringLiteral("%1/%2 %3.%4")
            .arg(folder, book.completeBaseName(), QDate::currentDate().toString(Qt::ISODate), book.suffix());
    if (m_book.copyTo(name))
        ShowStatus(IDS_BACKED_UP, CString_X(folder));
    else
        ReportUnwritten(name, m_book.error());
}

void CMainFrame::OnFileRecent()
{
    const QString name = static_cast<const QAction*>(sender())->data().toString();
    if (MayClose())
        OpenBook(name);
}

bool CMainFrame::MayClose()
{
    m_parts.EndEditing();
    if (!m_book.isModified())
        return true;
    const CString_X question = formatText(loadText(IDS_ASK_SAVE), m_book.shortName());
    switch (MessageBox(question, nullptr, MB_YESNOCANCEL | MB_ICONQUESTION)) {
    case IDYES:
        return Save();
    case IDNO:
        return true;
    default:
        return false;
    }
}
