#include "mainframe.h"
#include "ui_mainframe.h" // ahead of resource.h, whose macros have the names of its members

#include "bookdialogs.h"
#include "columnsdialog.h"
#include "commandupdates.h"
#include "control.h"
#include "editcommands.h"
#include "hostservices.h"
#include "settings.h"
#include "text.h"

#include <QAction>
#include <QGuiApplication>
#include <QMenu>
#include <QScreen>
#include <xeafxgdi.h>

#include <algorithm>

namespace {

constexpr UINT_PTR statusTimer = 1001;
constexpr UINT statusTime = 4000; // milliseconds

} // namespace

CTavoMainFrame::CTavoMainFrame(QWidget* parent) : QMainWindow(parent) { offerHostServices(this); }

IMPLEMENT_DYNAMIC_X(CMainFrame, CWnd_X)

BEGIN_MESSAGE_MAP_X(CMainFrame, CWnd_X)
    ON_WM_CLOSE_X()
    ON_WM_CONTEXTMENU_X()
    ON_WM_TIMER_X()
    ON_MESSAGE_X(WM_NOTIFY, OnGridNotified)
    ON_MESSAGE_X(WM_FIELDS_CHANGED, OnFieldsChanged)
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
    m_splitter.Tree().GetSafeHwnd()->addAction(&control<QAction>(*this, ID_NAME_EDIT)); // its key is the tree's alone
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
    Connect(ID_FILE_NEW_TEST, SIGNAL(triggered()), this, SLOT(OnFileNewTest()), window);
    Connect(ID_FILE_OPEN, SIGNAL(triggered()), this, SLOT(OnFileOpen()), window);
    Connect(ID_FILE_SAVE_AS, SIGNAL(triggered()), this, SLOT(OnFileSaveAs()), window);
    Connect(ID_FILE_IMPORT, SIGNAL(triggered()), this, SLOT(OnFileImport()), window);
    Connect(ID_FILE_PRINT, SIGNAL(triggered()), this, SLOT(OnFilePrint()), window);
    Connect(ID_FILE_BACK_UP, SIGNAL(triggered()), this, SLOT(OnFileBackUp()), window);
    Connect(ID_FILE_SAVE, SIGNAL(triggered()), this, SLOT(OnFileSave()), window);
    Connect(ID_APP_EXIT, SIGNAL(triggered()), this, SLOT(OnAppExit()), window);
    Connect(window->findChild<QMenu*>("editMenu"), SIGNAL(aboutToShow()), this, SLOT(OnEditMenu()));
    for (const unsigned id : {ID_EDIT_CUT, ID_EDIT_COPY, ID_EDIT_PASTE, ID_EDIT_SELECT_ALL})
        Connect(id, SIGNAL(triggered()), this, SLOT(OnEditCommand()), window);
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
    Connect(ID_VIEW_FIT_COLUMNS, SIGNAL(triggered()), this, SLOT(OnViewFitColumns()), window);
    Connect(IDC_TREE, SIGNAL(currentItemChanged(QTreeWidgetItem*, QTreeWidgetItem*)), this, SLOT(OnNameSelected()),
            window);
    Connect(this, SIGNAL(updateCmdUi()), this, SLOT(OnUpdateCommands()));
}

// Each time the program is about to wait, also when the window has been closed.
void CMainFrame::OnUpdateCommands()
{
    CGdiObject_X::DeleteTempMap(); // the objects that painting has put back
    if (!GetSafeHwnd())
        return;
    CommandStates states;
    states.hasPart = SelectedRow() >= 0;
    states.isPartInUse = states.hasPart && m_book.part(SelectedRow()).inUse;
    states.hasName = m_splitter.Tree().CanRename();
    states.hasFile = m_book.hasFile();
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
    logText(IDS_LOG_CLOSED);
    DestroyWindow();
}

void CMainFrame::OnEditMenu() { updateEditCommands(*this); }

void CMainFrame::OnEditCommand() { runEditCommand(*this, sender()); }

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
    if (id == statusTimer)
        ClearStatus();
}

void CMainFrame::ClearStatus()
{
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

void CMainFrame::OnViewFitColumns()
{
    BeginWaitCursor();
    m_parts.AutoSizeColumns();
    EndWaitCursor();
}

bool CMainFrame::TraceTo(const QString& fileName)
{
    if (!m_messages.Log().traceTo(fileName))
        return false;
    m_messages.Open(this);
    return true;
}
