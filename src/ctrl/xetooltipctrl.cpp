#include "xetooltipctrl.h"

#include "ctrl/tiptools.h"
#include "geometry/colorref.h"
#include "geometry/rectangle.h"
#include "xeafxstat.h"

#include <QAbstractScrollArea>
#include <QToolTip>

#include <utility>

IMPLEMENT_DYNCREATE_X(CToolTipCtrl_X, CWnd_X)

namespace {

CToolTipCtrl_X* firstControl = nullptr;

CToolTipCtrl_X*& sharedControl() { return AfxGetModuleThreadState_X()->m_pToolTip; }

bool isRelayed(UINT message)
{
    switch (message) {
    case WM_MOUSEMOVE:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
    case WM_MBUTTONUP:
        return true;
    default:
        return false;
    }
}

// Makes no text as long as the host has not written another one where its text is: this is done for each move of the
// mouse.
bool showsTip(const xe::TipTool& tool)
{
    const QString shown = tool.hwnd->toolTip();
    if (!tool.hasItsText())
        return shown == XeQString(tool.lpszText);
    return shown.isSharedWith(tool.tip) || shown == tool.tip;
}

void takeTipBack(const xe::TipTool& tool)
{
    QWidget* const widget = tool.hwnd;
    if (!showsTip(tool))
        return;
    widget->setToolTipDuration(-1);
    widget->setToolTip(QString());
}

// The part of a widget that gets the mouse; null for a widget that gets it itself.
QWidget* viewportOf(const QWidget& widget)
{
    const auto* const area = qobject_cast<const QAbstractScrollArea*>(&widget);
    return area ? area->viewport() : nullptr;
}

// Two roles each: the one that the functions for colours go by, and the one that Qt paints tips with.
constexpr QPalette::ColorRole groundRoles[] = {QPalette::Window, QPalette::ToolTipBase};
constexpr QPalette::ColorRole textRoles[] = {QPalette::Text, QPalette::ToolTipText};

template <std::size_t count>
void setTipColor(const QPalette::ColorRole (&roles)[count], const QColor& color)
{
    QPalette palette = QToolTip::palette();
    for (const QPalette::ColorRole role : roles)
        palette.setColor(QPalette::All, role, color);
    QToolTip::setPalette(palette);
}

COLORREF tipColor(QPalette::ColorRole role)
{
    return xe::toColorRef(QToolTip::palette().color(QPalette::Current, role));
}

} // namespace

void xe::destroyToolTip(CToolTipCtrl_X& control) { control.DestroyToolTipCtrl(); }

// ---------------------------------------------------------------------------------------------------------- a window's

BOOL CWnd_X::EnableToolTips(BOOL enable)
{
    if (!GetSafeHwnd())
        return FALSE;
    if (!enable)
        QToolTip::hideText();
    return TRUE;
}

void CWnd_X::CancelToolTips(BOOL)
{
    if (CToolTipCtrl_X* const control = sharedControl())
        control->Pop();
}

// --------------------------------------------------------------------------------------------------------------- life

CToolTipCtrl_X::CToolTipCtrl_X()
    : CWnd_X(Control()),
      m_tools(std::make_unique<xe::TipTools>()),
      m_nextControl(std::exchange(firstControl, this))
{}

CToolTipCtrl_X::~CToolTipCtrl_X()
{
    leaveShared();
    if (sharedControl() == this)
        sharedControl() = nullptr;
    CToolTipCtrl_X** link = &firstControl;
    while (*link != this)
        link = &(*link)->m_nextControl;
    *link = m_nextControl;
    for (xe::TipTool* tool : m_tools->all())
        removeTool(*tool);
}

BOOL CToolTipCtrl_X::Create(CWnd_X* parent, DWORD newStyle)
{
    QWidget* const window = parent ? parent->GetSafeHwnd() : nullptr;
    if (!window || !CWnd_X::Create(window))
        return FALSE;
    ShowWindow(SW_HIDE);
    style = newStyle;
    setOwner(parent);
    enterShared(*window);
    return TRUE;
}

BOOL CToolTipCtrl_X::CreateEx(CWnd_X* parent, DWORD newStyle, DWORD) { return Create(parent, newStyle); }

void CToolTipCtrl_X::DestroyToolTipCtrl()
{
    DestroyWindow();
    delete this;
}

void CToolTipCtrl_X::setOwner(CWnd_X* window)
{
    disconnect(m_ownerGone);
    owner = window;
    m_ownerGone = connect(window, &QObject::destroyed, this, [this] { owner = nullptr; });
}

void CToolTipCtrl_X::enterShared(QWidget& window)
{
    leaveShared();
    if (!sharedControl())
        sharedControl() = new CToolTipCtrl_X;
    if (window.objectName().isEmpty())
        return;
    m_sharedRecord = std::make_unique<tagTOOLINFOW>();
    m_sharedRecord->cbSize = xe::toolSize;
    m_sharedRecord->hwnd = &window;
    m_sharedRecord->uId = reinterpret_cast<UINT_PTR>(this);
    m_sharedName = window.objectName();
    sharedControl()->tools.SetAt(m_sharedName, m_sharedRecord.get());
    m_windowGone = connect(&window, &QObject::destroyed, this, [this] { leaveShared(); });
}

void CToolTipCtrl_X::leaveShared()
{
    void* record = nullptr;
    CToolTipCtrl_X* const shared = sharedControl();
    if (m_sharedRecord && shared && shared->tools.Lookup(m_sharedName, record) && record == m_sharedRecord.get())
        shared->tools.RemoveKey(m_sharedName);
    m_sharedRecord.reset();
    disconnect(m_windowGone);
}

// -------------------------------------------------------------------------------------------------------------- tools

BOOL CToolTipCtrl_X::AddTool(QWidget* widget, const wchar_t* text, const tagRECT* rect, UINT_PTR id)
{
    if (!widget || !text)
        return FALSE;
    if (xe::TipTool* const same = m_tools->withKey(text))
        removeTool(*same);
    if (!m_tools->first(widget))
        connect(widget, &QObject::destroyed, this, [this](QObject* gone) { forgetWidget(gone); });
    xe::TipTool& tool = m_tools->add(*widget, text);
    tool.uId = id;
    if (rect)
        tool.rect = *rect;
    tools.SetAt(text, &tool);
    watchMessages(*widget);
    return TRUE;
}

BOOL CToolTipCtrl_X::AddTool(QWidget*, UINT, const tagRECT*, UINT_PTR) { return FALSE; }

void CToolTipCtrl_X::DelTool(QWidget* widget, UINT_PTR)
{
    xe::TipTool* const tool = m_tools->first(widget);
    if (!tool)
        return;
    takeTipBack(*tool);
    removeTool(*tool);
}

void CToolTipCtrl_X::removeTool(xe::TipTool& tool)
{
    QWidget& widget = *tool.hwnd;
    tools.RemoveKey(tool.key.c_str());
    m_tools->remove(tool);
    if (!m_tools->first(&widget))
        unwatchMessages(widget);
}

void CToolTipCtrl_X::forgetWidget(const QObject* widget)
{
    const auto gone = m_tools->of(widget);
    for (xe::TipTool* tool : gone) {
        tools.RemoveKey(tool->key.c_str());
        m_tools->remove(*tool);
    }
    if (lastMessage.hwnd == widget)
        lastMessage.hwnd = nullptr; // another widget may come to stand there
}

BOOL CToolTipCtrl_X::tell(const xe::TipTool* tool, tagTOOLINFOW* info) const
{
    if (tool && info)
        *info = *tool;
    return tool != nullptr;
}

BOOL CToolTipCtrl_X::GetToolInfo(CToolInfo_X& info, QWidget* widget, UINT_PTR) const
{
    return tell(m_tools->first(widget), &info);
}

void CToolTipCtrl_X::GetText(CString_X& text, QWidget* widget, UINT_PTR) const
{
    const xe::TipTool* const tool = m_tools->first(widget);
    text = tool ? tool->lpszText : L"";
}

void CToolTipCtrl_X::SetToolInfo(tagTOOLINFOW*) {}

void CToolTipCtrl_X::SetToolRect(QWidget*, UINT_PTR, const tagRECT*) {}

void CToolTipCtrl_X::UpdateTipText(const wchar_t*, QWidget*, UINT_PTR) {}

void CToolTipCtrl_X::UpdateTipText(UINT, QWidget*, UINT_PTR) {}

int CToolTipCtrl_X::GetToolCount() const { return static_cast<int>(tools.GetCount()); }

BOOL CToolTipCtrl_X::GetCurrentTool(tagTOOLINFOW* info) const { return tell(m_tools->first(lastMessage.hwnd), info); }

CSize CToolTipCtrl_X::GetBubbleSize(tagTOOLINFOW* info) const
{
    const xe::TipTool* const tool = info ? m_tools->first(info->hwnd) : nullptr;
    return tool ? CRect(tool->rect).Size() : CSize();
}

BOOL CToolTipCtrl_X::HitTest(QWidget* widget, CPoint point, tagTOOLINFOW* info) const
{
    const xe::TipTool* const tool = m_tools->first(widget);
    return tool && QRect(QPoint(), widget->size()).contains(xe::toQPoint(point)) && tell(tool, info);
}

// ------------------------------------------------------------------------------------------- the messages of a widget

bool CToolTipCtrl_X::isOwners(const QWidget& widget) const
{
    const QWidget* const window = owner->GetSafeHwnd();
    return window && (&widget == window || &widget == viewportOf(*window));
}

void CToolTipCtrl_X::watchMessages(QWidget& widget)
{
    for (QWidget* const part : {&widget, viewportOf(widget)}) {
        if (part)
            part->setMouseTracking(true);
        if (part && owner && !isOwners(*part))
            part->installEventFilter(owner);
    }
}

void CToolTipCtrl_X::unwatchMessages(QWidget& widget)
{
    for (const CToolTipCtrl_X* other = firstControl; other; other = other->m_nextControl) {
        if (other != this && other->owner == owner && other->m_tools->first(&widget))
            return;
    }
    for (QWidget* const part : {&widget, viewportOf(widget)}) {
        if (part && owner && !isOwners(*part))
            part->removeEventFilter(owner);
    }
}

// ----------------------------------------------------------------------------------------------------------- behaviour

void CToolTipCtrl_X::Activate(BOOL activate)
{
    active = activate != 0;
    if (active)
        return;
    const auto all = m_tools->all();
    for (const xe::TipTool* tool : all)
        takeTipBack(*tool);
}

void CToolTipCtrl_X::RelayEvent(tagMSG* message)
{
    if (!message || !message->hwnd || !isRelayed(message->message))
        return;
    if (!active) {
        Pop();
        return;
    }
    const xe::TipTool* const tool = m_tools->first(message->hwnd);
    if (!tool)
        return;
    lastMessage = *message;
    tool->hwnd->setToolTipDuration(static_cast<int>(message->time));
    if (!showsTip(*tool))
        tool->hwnd->setToolTip(tool->hasItsText() ? tool->tip : XeQString(tool->lpszText));
}

void CToolTipCtrl_X::Update()
{
    const xe::TipTool* const tool = active ? m_tools->first(lastMessage.hwnd) : nullptr;
    if (!tool)
        return;
    setTipColor(groundRoles, Qt::white);
    setTipColor(textRoles, Qt::black);
    QToolTip::showText(xe::toQPoint(lastMessage.pt), XeQString(tool->lpszText), tool->hwnd, xe::toQRect(tool->rect),
                       static_cast<int>(lastMessage.time));
}

void CToolTipCtrl_X::Pop() { QToolTip::hideText(); }

int CToolTipCtrl_X::GetDelayTime(UINT) const { return delayTime; }

void CToolTipCtrl_X::SetDelayTime(UINT, int milliseconds) { delayTime = milliseconds; }

void CToolTipCtrl_X::SetDelayTime(UINT milliseconds) { delayTime = static_cast<int>(milliseconds); }

COLORREF CToolTipCtrl_X::GetTipBkColor() const { return tipColor(QPalette::Window); }

COLORREF CToolTipCtrl_X::GetTipTextColor() const { return tipColor(QPalette::Text); }

void CToolTipCtrl_X::SetTipBkColor(COLORREF color) { setTipColor(groundRoles, xe::toQColor(color)); }

void CToolTipCtrl_X::SetTipTextColor(COLORREF color) { setTipColor(textRoles, xe::toQColor(color)); }

// ------------------------------------------------------------------------------------------------------ without effect

void CToolTipCtrl_X::GetMargin(tagRECT*) const {}

void CToolTipCtrl_X::SetMargin(const tagRECT*) {}

void CToolTipCtrl_X::Popup() {}

void CToolTipCtrl_X::GetTitle(_TTGETTITLE*) const {}

BOOL CToolTipCtrl_X::AdjustRect(tagRECT*, BOOL) { return FALSE; }

BOOL CToolTipCtrl_X::SetTitle(UINT, const wchar_t*) { return FALSE; }

int CToolTipCtrl_X::GetMaxTipWidth() const { return -1; }

int CToolTipCtrl_X::SetMaxTipWidth(int) { return -1; }

HRESULT CToolTipCtrl_X::SetWindowTheme(const wchar_t*) { return -1; }
