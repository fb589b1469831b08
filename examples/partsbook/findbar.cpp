#include "findbar.h"
#include "ui_findbar.h" // ahead of resource.h, whose macros have the names of its members

#include "control.h"
#include "stockchart.h"
#include "text.h"

#include <QMainWindow>
#include <xeafxddx.h>

IMPLEMENT_DYNAMIC_X(CFindBar, CDialogBar_X)

BEGIN_MESSAGE_MAP_X(CFindBar, CDialogBar_X)
    ON_WM_KEYDOWN_X()
    ON_MESSAGE_X(WM_NOTIFY, OnHitNotified)
END_MESSAGE_MAP_X()

void CFindBar::SetupUI()
{
    auto* const bar = Imp<QDockWidget>();
    auto* const form = new QWidget;
    Ui::CFindBar().setupUi(form);
    bar->setWidget(form);
    bar->setTitleBarWidget(new QWidget); // none
    Connect(IDC_FIND_TEXT, SIGNAL(returnPressed()), this, SLOT(OnFindNext()), bar);
    Connect(IDC_FIND_NEXT, SIGNAL(clicked()), this, SLOT(OnFindNext()), bar);
    Connect(IDC_FIND_CLOSE, SIGNAL(clicked()), this, SLOT(OnFindClose()), bar);
}

void CFindBar::DoDataExchange(CDataExchange_X* exchange)
{
    CDialogBar_X::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_FIND_HITS, m_hits);
    DDX_Text(exchange, IDC_FIND_TEXT, m_text);
    DDX_Check(exchange, IDC_MATCH_CASE, m_matchCase);
}

void CFindBar::Open(CWnd_X& frame)
{
    if (!GetSafeHwnd()) {
        if (!Create(&frame, IDD_FIND, WS_CHILD | CBRS_BOTTOM, IDD_FIND))
            return;
        UpdateData(FALSE); // connects the list
        m_hits.SetUp();
        ShowHits();
        frame.Imp<QMainWindow>()->addDockWidget(Qt::BottomDockWidgetArea, Imp<QDockWidget>());
    }
    QWidget* const focus = frame.GetSafeHwnd()->focusWidget(); // also while another program is active
    if (!IsChild(focus))
        m_focusBefore = focus;
    ShowWindow(SW_SHOW);
    auto& text = control<QLineEdit>(*this, IDC_FIND_TEXT);
    text.setFocus();
    text.selectAll();
}

void CFindBar::OnFindNext()
{
    if (!UpdateData(TRUE))
        return;
    ShowHits();
    FindNext();
}

void CFindBar::FindNext()
{
    const auto matchCase = static_cast<WPARAM>(m_matchCase);
    const auto text = reinterpret_cast<LPARAM>(&m_text);
    if (m_text.IsEmpty())
        return;
    m_hits.Select(static_cast<int>(GetParent()->SendMessage(WM_FIND_PART, matchCase, text)) - 1);
}

void CFindBar::ShowHits()
{
    if (!GetSafeHwnd())
        return;
    const std::vector<int> rows = m_text.IsEmpty() ? std::vector<int>() : m_book.findAll(m_text, m_matchCase);
    m_hits.Show(m_book, rows);
    CString_X result;
    if (!m_text.IsEmpty())
        result = rows.empty() ? loadText(IDS_NOT_FOUND) : formatText(loadText(IDS_HITS), static_cast<int>(rows.size()));
    SetDlgItemText(IDC_FIND_RESULT, result);
}

// A part that is selected here is selected in the window as well; a double click goes there.
LRESULT CFindBar::OnHitNotified(WPARAM, LPARAM record)
{
    const auto& told = *reinterpret_cast<const XeGridNotification*>(record);
    const bool isDoubleClick = told.hdr.code == NM_DBLCLK;
    const bool isSelection = told.hdr.code == LVN_ITEMCHANGED && !m_hits.IsHeadingPressed();
    if ((isSelection || isDoubleClick) && !m_hits.IsCellFixed(told.iRow, told.iColumn))
        GetParent()->SendMessage(WM_SELECT_ROW, static_cast<WPARAM>(m_hits.SelectedPart()), isDoubleClick);
    return 0;
}

void CFindBar::OnFindClose()
{
    ShowWindow(SW_HIDE);
    if (m_focusBefore)
        m_focusBefore->setFocus();
}

void CFindBar::OnKeyDown(UINT vk, UINT repeatCount, UINT modifiers)
{
    if (vk == VK_ESCAPE)
        OnFindClose();
    else
        CDialogBar_X::OnKeyDown(vk, repeatCount, modifiers);
}
