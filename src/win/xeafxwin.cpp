#include "xeafxwin.h"

#include "core/nullobject.h"
#include "win/columns.h"
#include "win/combolists.h"
#include "win/dispatchframe.h"
#include "win/going.h"
#include "win/menubar.h"
#include "win/viewport.h"
#include "xehost.h"

#include <QMenuBar>

IMPLEMENT_DYNCREATE_X(CWnd_X, CCmdTarget_X)

CWnd_X::CWnd_X() = default;

CWnd_X::CWnd_X(Control) : m_isControl(true) {}

CWnd_X::~CWnd_X()
{
    xe::DispatchFrame::abandon(m_dispatch);
    deleteBars();
}

QWidget* CWnd_X::GetSafeHwnd() const
{
    const CWnd_X* const window = xe::maybeNull(this);
    QObject* const imp = window ? window->GetImpQObject() : nullptr;
    return imp && imp->isWidgetType() ? static_cast<QWidget*>(imp) : nullptr;
}

CWnd_X* CWnd_X::FromHandlePermanent(QWidget* widget) { return qobject_cast<CWnd_X*>(GetOwner(widget)); }

CWnd_X* CWnd_X::FromHandle(QWidget* widget)
{
    if (!widget)
        return nullptr;
    if (CWnd_X* permanent = FromHandlePermanent(widget))
        return permanent;
    CObject_X* object = FromImpMetaObject(widget->metaObject());
    auto* window = qobject_cast<CWnd_X*>(object);
    if (!window) {
        delete object;
        return nullptr;
    }
    window->SetTemporary();
    window->SubclassWindow(widget);
    return window;
}

int CWnd_X::SubclassWindow(QWidget* widget)
{
    if (!widget || !Attach(widget, widget->parent(), true))
        return 0;
    PreSubclassWindow();
    return 1;
}

int CWnd_X::SubclassDlgItem(const char* name, CWnd_X* parent)
{
    return parent ? SubclassWindow(parent->GetChildWidget(name)) : 0;
}

bool CWnd_X::OnAttach() { return CreateContents() && ConnectContents(); }

bool CWnd_X::CreateContents()
{
    m_pendingEvents.clear(); // whatever was queued was for another widget
    xe::DispatchFrame::keepTargets(m_dispatch);
    m_attached = GetImpQObject();
    tagCREATESTRUCTW createStruct{};
    createStruct.style = static_cast<LONG>(m_dwStyle);
    return !OnCreate(&createStruct);
}

bool CWnd_X::ConnectContents()
{
    QWidget* const widget = GetSafeHwnd();
    if (!widget)
        return false;
    ConnectSlotsFrom(widget, false);
    OnMessageMap();
    m_viewport = xe::Viewport::of(*widget, *this);
    xe::showWholeTextsBelow(*widget);
    return true;
}

void CWnd_X::OnDetach()
{
    m_viewport.reset();
    deleteBars();
}

bool CWnd_X::AttachDefault(QWidget* parent)
{
    auto* widget = new QWidget(parent);
    widget->setAttribute(Qt::WA_Hover);
    widget->setMouseTracking(true);
    return Attach(widget, parent, false);
}

int CWnd_X::Create(QWidget* parent) { return AttachDefault(parent ? parent : TavoGetMainFrame()); }

// What comes up may call handlers, and these may delete the wrapper: each step looks whether it is still there.

int CWnd_X::Create(DWORD style, QWidget* parent)
{
    const QPointer<CWnd_X> living(this);
    m_dwStyle = style;
    if (!AttachDefault(parent ? parent : TavoGetMainFrame()))
        return 0;
    if (living)
        showByStyle();
    return 1;
}

int CWnd_X::Create(DWORD style, const tagRECT& rect, QWidget* parent)
{
    const QPointer<CWnd_X> living(this);
    m_dwStyle = style;
    if (!Create(parent))
        return 0;
    if (living)
        MoveWindow(&rect, FALSE);
    if (living)
        showByStyle();
    return 1;
}

void CWnd_X::showByStyle()
{
    const QPointer<CWnd_X> living(this);
    if (m_dwStyle & WS_VISIBLE)
        ShowWindow(SW_SHOW);
    if (living && m_dwStyle & WS_VSCROLL)
        ShowScrollBar(SB_VERT, TRUE);
    if (living && m_dwStyle & WS_HSCROLL)
        ShowScrollBar(SB_HORZ, TRUE);
}

BOOL CWnd_X::ModifyStyle(DWORD remove, DWORD add, UINT)
{
    m_dwStyle = (m_dwStyle & ~remove) | add;
    return TRUE;
}

int CWnd_X::DestroyWindow() { return DestroyWindow_X(GetSafeHwnd()); }

int CWnd_X::OnCreate(tagCREATESTRUCTW* createStruct)
{
    SetupUI();
    QWidget* const widget = GetSafeHwnd();
    if (!widget || xe::makesColumns(*widget) || xe::isGoing(*widget))
        return 0;
    const DWORD style = createStruct ? static_cast<DWORD>(createStruct->style) : 0;
    if (style & WS_HSCROLL)
        m_horizontalBar = new QScrollBar(Qt::Horizontal, widget);
    if (style & WS_VSCROLL)
        m_verticalBar = new QScrollBar(Qt::Vertical, widget);
    if (!m_isControl) {
        m_menuBar = xe::makeMenuBar(*widget);
        widget->installEventFilter(this); // again, which closes the gap of the bar's filter in the list
    }
    return 0;
}

QMenuBar* CWnd_X::menuBar()
{
    QWidget* const widget = GetSafeHwnd();
    if (!m_menuBar && m_isControl && widget && !xe::isGoing(*widget))
        m_menuBar = xe::makeMenuBar(*widget);
    return xe::menuBarOf(widget, m_menuBar);
}

// Later: a menu item or a scroll bar may be what destroys the window.
void CWnd_X::deleteBars()
{
    const auto drop = [](auto& bar) {
        if (bar) {
            bar->hide();
            bar->deleteLater();
        }
        bar = nullptr;
    };
    drop(m_horizontalBar);
    drop(m_verticalBar);
    drop(m_menuBar);
}

void CWnd_X::SetupUI() {}
void CWnd_X::PostNcDestroy() {}
void CWnd_X::PreSubclassWindow() {}
void CWnd_X::DoDataExchange(CDataExchange_X*) {}
