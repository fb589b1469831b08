#include "mainframe.h"
#include "ui_mainframe.h" // ahead of resource.h, whose macros have the names of its members

#include "bookdialogs.h"
#include "bookprinter.h"
#include "columnsdialog.h"
#include "commandupdates.h"
#include "control.h"
#include "hostservices.h"
#include "loadprogress.h"
#include "partdialog.h"
#include "partmenu.h"
#include "recentmenu.h"
#include "settings.h"
#include "text.h"

#include <QDate>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <xeafxdc.h>
#include <xeafxdlgs.h>
#include <xeafxdump.h>

#include <algorithm>

namespace {

constexpr UINT_PTR statusTimer = 1001;
constexpr UINT statusTime = 4000; // milliseconds
constexpr int mostBadLinesShown = 12;

template <class... Arguments>
void log(unsigned format, const Arguments&... arguments)
{
    xeLogPrintf(L"%s", formatText(loadText(format), arguments...).GetString());
}

CString_X shortName(const PartsBook& book) { return QFileInfo(book.fileName()).fileName(); }

} // namespace

CTavoMainFrame::CTavoMainFrame(QWidget* parent) : QMainWindow(parent) { offerHostServices(this); }

IMPLEMENT_DYNAMIC_X(CMainFrame, CWnd_X)

BEGIN_MESSAGE_MAP_X(CMainFrame, CWnd_X)
    ON_WM_CLOSE_X()
    ON_WM_CONTEXTMENU_X()
    ON_WM_TIMER_X()
    ON_MESSAGE_X(WM_NOTIFY, OnGridNotified)
    ON_MESSAGE_X(WM_FIND_PART, OnFindPart)
    ON_MESSAGE_X(WM_SELECT_ROW, OnSelectRow)
    ON_MESSAGE_X(WM_RENAMED, OnRenamed)
END_MESSAGE_MAP_X()

// ------------------------------------------------------------------------------------------------------- the window

bool CMainFrame::AttachDefault(QWidget* parent) { return Attach(new CTavoMainFrame(parent), parent, false); }

void CMainFrame::SetupUI() { Ui::CTavoMainFrame().setupUi(Imp<QMainWindow>()); }

int CMainFrame::OnCreate(tagCREATESTRUCTW* createStruct)
{
    if (CWnd_X::OnCreate(createStruct))
        return -1;
    m_chart.SubclassWindow(&control<QWidget>(*this, IDC_CHART));
    auto& list = control<QWidget>(*this, IDC_PARTS);
    if (!m_parts.Open(&list) || !m_splitter.Surround(&list))
        return -1;
    m_parts.ShowColumns(settings::hiddenColumns());
    m_splitter.Tree().SetPictures(m_pictures);
    m_toolBar.Open(*this);
    m_statusBar.Open(*this);
    ConnectCommands();
    ShowRecentFiles();
    RestorePlace();
    return 0;
}

void CMainFrame::ConnectCommands()
{
    QWidget* const window = GetSafeHwnd();
    Connect(ID_FILE_OPEN, SIGNAL(triggered()), this, SLOT(OnFileOpen()), window);
    Connect(ID_FILE_SAVE_AS, SIGNAL(triggered()), this, SLOT(OnFileSaveAs()), window);
    Connect(ID_FILE_IMPORT, SIGNAL(triggered()), this, SLOT(OnFileImport()), window);
    Connect(ID_FILE_PRINT, SIGNAL(triggered()), this, SLOT(OnFilePrint()), window);
    Connect(ID_FILE_BACK_UP, SIGNAL(triggered()), this, SLOT(OnFileBackUp()), window);
    Connect(ID_FILE_SAVE, SIGNAL(triggered()), this, SLOT(OnFileSave()), window);
    Connect(ID_APP_EXIT, SIGNAL(triggered()), this, SLOT(OnAppExit()), window);
    Connect(ID_PART_NEW, SIGNAL(triggered()), this, SLOT(OnPartNew()), window);
    Connect(ID_PART_EDIT, SIGNAL(triggered()), this, SLOT(OnPartEdit()), window);
    Connect(ID_PART_DELETE, SIGNAL(triggered()), this, SLOT(OnPartDelete()), window);
    Connect(ID_PART_IN_USE, SIGNAL(triggered()), this, SLOT(OnPartInUse()), window);
    Connect(ID_NAME_EDIT, SIGNAL(triggered()), this, SLOT(OnNameEdit()), window);
    Connect(ID_EDIT_FIND, SIGNAL(triggered()), this, SLOT(OnEditFind()), window);
    Connect(ID_EDIT_REPEAT, SIGNAL(triggered()), this, SLOT(OnEditRepeat()), window);
    Connect(ID_VIEW_MESSAGES, SIGNAL(triggered()), this, SLOT(OnViewMessages()), window);
    Connect(ID_VIEW_SHORT_COLOR, SIGNAL(triggered()), this, SLOT(OnViewShortColor()), window);
    Connect(ID_VIEW_COLUMNS, SIGNAL(triggered()), this, SLOT(OnViewColumns()), window);
    Connect(IDC_TREE, SIGNAL(currentItemChanged(QTreeWidgetItem*, QTreeWidgetItem*)), this, SLOT(OnNameSelected()),
            window);
    Connect(this, SIGNAL(updateCmdUi()), this, SLOT(OnUpdateCommands()));
}

// Each time the program is about to wait, also when the window has been closed.
void CMainFrame::OnUpdateCommands()
{
    if (!GetSafeHwnd())
        return;
    CommandStates states;
    states.hasPart = SelectedRow() >= 0;
    states.isPartInUse = states.hasPart && m_book.part(SelectedRow()).inUse;
    states.hasName = m_splitter.Tree().CanRename();
    states.isModified = m_book.isModified();
    states.showsMessages = m_messages.IsWindowVisible();
    updateCommands(*this, states);
    m_statusBar.ShowModified(states.isModified);
    // A title that is set again, though it is the same, makes work for the window manager, and then for this program.
    if (GetSafeHwnd()->isWindowModified() != m_book.isModified())
        GetSafeHwnd()->setWindowModified(m_book.isModified());
}

void CMainFrame::OnAppExit() { GetSafeHwnd()->close(); }

void CMainFrame::OnClose()
{
    const bool isLoading = !IsWindowEnabled();
    if (isLoading || !MayClose()) {
        SetCurrentEventAccepted(false);
        return;
    }
    settings::setWindowPlace(GetSafeHwnd()->normalGeometry());
    settings::setTreeWidth(m_splitter.Width());
    log(IDS_LOG_CLOSED);
    DestroyWindow();
}

// Where it was when it was closed, unless no screen shows that place any more.
void CMainFrame::RestorePlace()
{
    const QRect place = settings::windowPlace();
    const QList<QScreen*> screens = QGuiApplication::screens();
    const auto shows = [place](const QScreen* screen) { return screen->availableGeometry().contains(place.center()); };
    if (place.isValid() && std::any_of(screens.begin(), screens.end(), shows))
        GetSafeHwnd()->setGeometry(place);
    m_splitter.SetWidth(settings::treeWidth());
}

bool CMainFrame::MayClose()
{
    if (!m_book.isModified())
        return true;
    const CString_X question = formatText(loadText(IDS_ASK_SAVE), shortName(m_book));
    switch (MessageBox(question, nullptr, MB_YESNOCANCEL | MB_ICONQUESTION)) {
    case IDYES:
        return SaveBook(m_book.fileName());
    case IDNO:
        return true;
    default:
        return false;
    }
}

// --------------------------------------------------------------------------------------------------------- the file

bool CMainFrame::OpenBook(const QString& fileName)
{
    if (!LoadBook(fileName)) {
        ReportUnread(fileName, m_book.error());
        return false;
    }
    log(IDS_LOG_OPENED, CString_X(fileName), m_book.count());
    ShowName();
    ShowParts();
    SelectRow(0);
    OnTimer(statusTimer);
    ReportBadLines(m_book);
    return true;
}

bool CMainFrame::LoadBook(const QString& fileName)
{
    CLoadProgress progress(*this, m_statusBar);
    return m_book.load(fileName, [&](int percent) { progress.Show(percent); });
}

void CMainFrame::ReportUnread(const QString& fileName, const CString_X& error)
{
    log(IDS_LOG_NOT_READ, CString_X(fileName), error);
    MessageBox(formatText(loadText(IDS_CANNOT_READ), CString_X(fileName), error), nullptr, MB_OK | MB_ICONERROR);
}

void CMainFrame::ReportUnwritten(const QString& fileName, const CString_X& error)
{
    log(IDS_LOG_NOT_SAVED, CString_X(fileName), error);
    MessageBox(formatText(loadText(IDS_CANNOT_WRITE), CString_X(fileName), error), nullptr, MB_OK | MB_ICONERROR);
}

void CMainFrame::ReportBadLines(const PartsBook& book)
{
    if (book.badLines().empty())
        return;
    const int count = static_cast<int>(book.badLines().size());
    const int shown = std::min(count, mostBadLinesShown);
    CString_X report = formatText(loadText(IDS_BAD_LINES), count, shortName(book));
    for (int i = 0; i < shown; ++i) {
        const PartsBook::BadLine& bad = book.badLines()[static_cast<std::size_t>(i)];
        report += formatText(loadText(IDS_BAD_LINE), bad.line, bad.problem);
    }
    if (shown < count)
        report += formatText(loadText(IDS_MORE_BAD_LINES), count - shown);
    MessageBox(report);
}

bool CMainFrame::SaveBook(const QString& fileName)
{
    if (!m_book.saveAs(fileName)) {
        ReportUnwritten(fileName, m_book.error());
        return false;
    }
    log(IDS_LOG_SAVED, CString_X(fileName), m_book.count());
    ShowName();
    ShowStatus(IDS_SAVED, shortName(m_book));
    return true;
}

void CMainFrame::ShowName()
{
    SetWindowText(formatText(loadText(IDS_TITLE), shortName(m_book)));
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

void CMainFrame::OnFileOpen()
{
    const QString name = askForBook(*this, m_book.fileName());
    if (!name.isEmpty() && MayClose())
        OpenBook(name);
}

void CMainFrame::OnFileSaveAs()
{
    const QString name = askForNewBook(*this, m_book.fileName());
    if (!name.isEmpty())
        SaveBook(name);
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
    printBook(*painter, m_book, shortName(m_book));
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

// -------------------------------------------------------------------------------------------------------- the parts

void CMainFrame::OnPartNew()
{
    CPartDialog dialog(loadText(IDS_NEW_PART), m_book, m_pictures, this);
    if (dialog.DoModal() != IDOK)
        return;
    m_book.add(dialog.m_part);
    ShowPart(m_book.count() - 1);
    ShowStatus(IDS_ADDED, dialog.m_part.number);
}

void CMainFrame::OnPartEdit()
{
    const int row = SelectedRow();
    if (row < 0)
        return;
    CPartDialog dialog(loadText(IDS_EDIT_PART), m_book, m_pictures, this);
    dialog.m_part = m_book.part(row);
    if (dialog.DoModal() != IDOK || dialog.m_part == m_book.part(row))
        return;
    m_book.change(row, dialog.m_part);
    ShowPart(row);
    ShowStatus(IDS_CHANGED, dialog.m_part.number);
}

void CMainFrame::OnPartDelete()
{
    const int row = SelectedRow();
    if (row < 0)
        return;
    const Part part = m_book.part(row);
    const CString_X question = formatText(loadText(IDS_ASK_DELETE), part.number, part.name);
    if (MessageBox(question, nullptr, MB_YESNO | MB_ICONQUESTION) != IDYES)
        return;
    m_book.remove(row);
    m_parts.RemovePart(row);
    const int next = std::min(row, m_book.count() - 1);
    if (next >= 0 && !m_parts.IsHidden(next))
        SelectRow(next);
    ShowChart();
    ShowStatus(IDS_DELETED, part.number);
}

void CMainFrame::OnPartInUse()
{
    const int row = SelectedRow();
    if (row < 0)
        return;
    Part part = m_book.part(row);
    part.inUse = !part.inUse;
    m_book.change(row, part);
    ShowPart(row);
    ShowStatus(IDS_CHANGED, part.number);
}

void CMainFrame::OnNameEdit() { m_splitter.Tree().Rename(); }

LRESULT CMainFrame::OnRenamed(WPARAM, LPARAM lParam)
{
    const Renaming renaming = *reinterpret_cast<const Renaming*>(lParam);
    m_book.rename(renaming.field, renaming.from, renaming.to);
    ShowParts();
    ShowStatus(IDS_CHANGED, renaming.to);
    return 0;
}

// The menu of the list; elsewhere the main window shows its own.
void CMainFrame::OnContextMenu(QWidget*, CPoint point)
{
    ClientToScreen(&point);
    const QWidget& list = *m_parts.GetSafeHwnd();
    if (!list.rect().contains(list.mapFromGlobal({point.x, point.y}))) {
        SetCurrentEventAccepted(false);
        return;
    }
    OnUpdateCommands(); // the click may have selected another part
    const int command = openPartMenu(*this, point);
    if (command > 0)
        control<QAction>(*this, static_cast<unsigned>(command)).trigger();
}

void CMainFrame::ShowParts()
{
    m_parts.Show(m_book, settings::shortColor());
    ShowChart();
}

void CMainFrame::ShowPart(int row)
{
    m_parts.ShowPart(row, m_book.part(row), settings::shortColor());
    ShowChart();
    SelectRow(row);
}

void CMainFrame::ShowChart()
{
    const std::vector<KindStock> stock = stockByKind(m_book);
    m_chart.Show(stock);
    m_splitter.Tree().Show(m_book);
    m_findBar.ShowHits();
    m_statusBar.ShowCounts(m_book.count(), m_book.countShort());
    OnNameSelected();
    OnPartSelected();
}

// Parts of other kinds or suppliers are hidden, and the list keeps a selected one that can be seen.
void CMainFrame::OnNameSelected()
{
    int first = -1;
    m_parts.ShowOnly([&](int row) {
        const bool included = m_splitter.Tree().Includes(m_book.part(row));
        first = included && first < 0 ? row : first;
        return included;
    });
    if (SelectedRow() < 0 || m_parts.IsHidden(SelectedRow()))
        SelectRow(first);
}

// Any grid in the window tells the window; what the list of hits has to say is for the search bar.
LRESULT CMainFrame::OnGridNotified(WPARAM grid, LPARAM record)
{
    const NMHDR& header = *reinterpret_cast<const NMHDR*>(record);
    if (header.hwndFrom != m_parts.GetSafeHwnd())
        return m_findBar.SendMessage(WM_NOTIFY, grid, record);
    if (header.code == LVN_ITEMCHANGED)
        OnPartSelected();
    else if (header.code == NM_DBLCLK)
        OnPartEdit();
    return 0;
}

// While a row is being removed, the list may still name one that the book has no more.
void CMainFrame::OnPartSelected()
{
    const int row = SelectedRow();
    m_chart.SelectKind(row >= 0 && row < m_book.count() ? m_book.part(row).kind : CString_X());
}

LRESULT CMainFrame::OnSelectRow(WPARAM row, LPARAM hasKeyboard)
{
    SelectRow(static_cast<int>(row));
    if (hasKeyboard)
        m_parts.SetFocus();
    return TRUE;
}

int CMainFrame::SelectedRow() const { return m_parts.SelectedPart(); }

// A part of another kind or supplier brings all parts back.
void CMainFrame::SelectRow(int row)
{
    if (row >= 0 && m_parts.IsHidden(row))
        m_splitter.Tree().SelectAll();
    m_parts.SelectPart(row);
    OnPartSelected();
}

// ------------------------------------------------------------------------------------------------------- the search

void CMainFrame::OnEditFind() { m_findBar.Open(*this); }

void CMainFrame::OnEditRepeat()
{
    if (m_findBar.GetSafeHwnd())
        m_findBar.FindNext();
    else
        OnEditFind();
}

LRESULT CMainFrame::OnFindPart(WPARAM matchCase, LPARAM text)
{
    const auto& wanted = *reinterpret_cast<const CString_X*>(text);
    const int row = m_book.find(wanted, matchCase != 0, SelectedRow());
    if (row < 0)
        return 0;
    SelectRow(row);
    ShowStatus(IDS_FOUND, m_book.part(row).number);
    return row + 1;
}

// ----------------------------------------------------------------------------------------------- status and messages

void CMainFrame::ShowStatus(unsigned format, const CString_X& text) { ShowStatus(formatText(loadText(format), text)); }

// Shows a text until the timer takes it away.
void CMainFrame::ShowStatus(const CString_X& text)
{
    m_statusBar.ShowMessage(text);
    KillTimer(statusTimer);
    SetTimer(statusTimer, statusTime);
}

void CMainFrame::OnTimer(UINT_PTR id)
{
    CWnd_X::OnTimer(id);
    if (id != statusTimer)
        return;
    KillTimer(statusTimer);
    m_statusBar.ShowMessage(CString_X());
}

void CMainFrame::OnViewMessages()
{
    if (m_messages.IsWindowVisible())
        m_messages.ShowWindow(SW_HIDE);
    else
        m_messages.Open(this);
}

void CMainFrame::OnViewShortColor()
{
    COLORREF color = settings::shortColor();
    if (!askForColor(*this, color))
        return;
    settings::setShortColor(color);
    ShowParts();
}

void CMainFrame::OnViewColumns()
{
    CColumnsDialog dialog(CPartsGrid::Headings(), this);
    dialog.m_hidden = settings::hiddenColumns();
    if (dialog.DoModal() != IDOK)
        return;
    settings::setHiddenColumns(dialog.m_hidden);
    m_parts.ShowColumns(dialog.m_hidden);
}

bool CMainFrame::TraceTo(const QString& fileName)
{
    if (!m_messages.Log().traceTo(fileName))
        return false;
    m_messages.Open(this);
    return true;
}
