#include "XeEaseComboBox.h"

#include "xehook.h"
#include "xesysinfo.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QStyle>
#include <QTimer>

IMPLEMENT_DYNCREATE_X(CEaseComboBox_X, CComboBox_X)

BEGIN_MESSAGE_MAP_X(CEaseComboBox_X, CComboBox_X)
    ON_WM_TIMER_X()
END_MESSAGE_MAP_X()

namespace {

constexpr UINT_PTR signTimer = 1;
constexpr UINT signInterval = 10;

QIcon errorSign()
{
    const bool hasStyle = qobject_cast<QApplication*>(QCoreApplication::instance());
    return hasStyle ? QApplication::style()->standardIcon(QStyle::SP_MessageBoxCritical) : QIcon();
}

} // namespace

CEaseComboBox_X::CEaseComboBox_X()
    : m_nSignWidth(GetSystemMetrics_X(SM_CXSMICON)),
      m_nSignHeight(GetSystemMetrics_X(SM_CYSMICON)),
      m_iconSign(errorSign())
{}

void CEaseComboBox_X::DrawItem(tagDRAWITEMSTRUCT*) {}
int CEaseComboBox_X::DrawHighlightSign(tagRECT*) { return 1; }

int CEaseComboBox_X::DestroyWindow()
{
    stopTimer();
    return CComboBox_X::DestroyWindow();
}

// ----------------------------------------------------------------------------------------------------------- the timer

// Another window may have a timer of this number, which is the process's.
bool CEaseComboBox_X::mayHaveTimer() const
{
    const auto entry = g_appEventHandler.timers.find(static_cast<int>(signTimer));
    return entry == g_appEventHandler.timers.end() || entry->second->parent() == GetSafeHwnd();
}

void CEaseComboBox_X::stopTimer()
{
    if (mayHaveTimer())
        KillTimer(signTimer);
}

bool CEaseComboBox_X::isOverSign() const
{
    tagPOINT pointer{};
    tagRECT rect{};
    return GetWindowRect_X(GetCapture(), &rect) && GetCursorPos_X(&pointer) && pointer.x >= rect.left
           && pointer.x <= rect.left + m_nSignWidth && pointer.y >= rect.top && pointer.y < rect.bottom;
}

void CEaseComboBox_X::OnTimer(UINT_PTR id)
{
    if (m_nHotItem < 0 || m_nHotItem >= GetCount()) {
        SetCursor(Qt::ArrowCursor);
        if (id != signTimer)
            CComboBox_X::OnTimer(id);
        return;
    }
    m_bOverSign = isOverSign();
    if (!m_bOverSign)
        SetCursor(Qt::ArrowCursor);
    CComboBox_X::OnTimer(id);
}

// ------------------------------------------------------------------------------------------------------------ the list

void CEaseComboBox_X::OnDropdown()
{
    if (mayHaveTimer())
        SetTimer(signTimer, signInterval);
    m_nDropSel = GetCurSel();
}

void CEaseComboBox_X::OnSelchange() { stopTimer(); }
void CEaseComboBox_X::OnCloseupComboEase() { stopTimer(); }

void CEaseComboBox_X::OnSelendcancel()
{
    stopTimer();
    m_bOverSign = 0;
    m_nHotItem = -1;
    SetCursor(Qt::ArrowCursor);
}

int CEaseComboBox_X::PreTranslateMessage(tagMSG* message)
{
    const bool isKey = message && (message->message == WM_KEYDOWN || message->message == WM_KEYUP);
    if (!isKey || !m_bOverSign)
        return CComboBox_X::PreTranslateMessage(message);
    m_bOverSign = 0;
    ShowDropDown(FALSE);
    return 1;
}

bool CEaseComboBox_X::OnAttach()
{
    auto* const box = Imp<QComboBox>();
    if (!CComboBox_X::OnAttach() || !box || box != Imp<QComboBox>())
        return false;
    m_listState = ListState::Closed;
    m_listWindow = box->view()->window();
    m_listWindow->installEventFilter(this);
    connect(box, QOverload<int>::of(&QComboBox::activated), this, [this] { decide(true); });
    return true;
}

void CEaseComboBox_X::OnDetach()
{
    if (m_listWindow)
        m_listWindow->removeEventFilter(this);
    if (m_list)
        m_list->removeEventFilter(this);
    m_listWindow.clear();
    m_list.clear();
    CComboBox_X::OnDetach();
}

bool CEaseComboBox_X::eventFilter(QObject* target, QEvent* event)
{
    const auto* const box = Imp<QComboBox>();
    if (!event || !target || !box || (target != m_listWindow && target != m_list))
        return CComboBox_X::eventFilter(target, event);
    if (target == m_list)
        return offerKey(*event);
    if (event->type() == QEvent::Show)
        listShown();
    else if (event->type() == QEvent::Hide)
        listHidden();
    return false;
}

// An open list has the keys: they come to the view.
bool CEaseComboBox_X::offerKey(QEvent& event)
{
    if (event.type() != QEvent::KeyPress && event.type() != QEvent::KeyRelease)
        return false;
    tagMSG message{};
    return m_bOverSign && xeQEventToMsg(GetSafeHwnd(), &event, &message) && PreTranslateMessage(&message);
}

void CEaseComboBox_X::listShown()
{
    decide(false);
    m_listState = ListState::Open;
    m_list = Imp<QComboBox>()->view();
    m_list->installEventFilter(this);
    OnDropdown();
}

// Qt tells of a choice behind the closing: what has not been told of by the next turn of the event loop is none.
void CEaseComboBox_X::listHidden()
{
    if (m_listState != ListState::Open)
        return;
    m_listState = ListState::Deciding;
    OnCloseupComboEase();
    QTimer::singleShot(0, this, [this] { decide(false); });
}

void CEaseComboBox_X::decide(bool isChosen)
{
    if (m_listState != ListState::Deciding)
        return;
    m_listState = ListState::Closed;
    if (isChosen)
        OnSelchange();
    else
        OnSelendcancel();
}
