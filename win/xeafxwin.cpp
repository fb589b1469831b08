#include "xeafxwin.h"

#include "msg/dispatchframe.h"
#include "xeprocess.h"
#include "xewinuser.h"

IMPLEMENT_DYNCREATE_X(CWnd_X, CCmdTarget_X)

CWnd_X::CWnd_X() = default;

CWnd_X::~CWnd_X() { XeDispatchFrame::abandon(m_dispatch); }

QWidget* CWnd_X::GetSafeHwnd() const
{
    // Hosts ask null objects too. Read through a volatile, `this` is not taken for non-null.
    const CWnd_X* const volatile self = this;
    const CWnd_X* const window = self;
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

QWidget* CWnd_X::GetCapture() { return QWidget::mouseGrabber(); }

bool CWnd_X::OnAttach()
{
    m_pendingEvents.clear(); // whatever was queued was for another widget
    tagCREATESTRUCTW createStruct{};
    if (OnCreate(&createStruct))
        return false;
    ConnectSlotsFrom(GetImpQObject(), false);
    OnMessageMap();
    return true;
}

bool CWnd_X::AttachDefault(QWidget* parent)
{
    auto* widget = new QWidget(parent);
    widget->setAttribute(Qt::WA_Hover);
    widget->setMouseTracking(true);
    return Attach(widget, parent, false);
}

int CWnd_X::Create(QWidget* parent) { return AttachDefault(parent ? parent : TavoGetMainFrame()); }

int CWnd_X::DestroyWindow() { return DestroyWindow_X(GetSafeHwnd()); }

int CWnd_X::OnCreate(tagCREATESTRUCTW*)
{
    SetupUI();
    return 0;
}

void CWnd_X::SetupUI() {}
void CWnd_X::RecalcLayout() {}
void CWnd_X::PostNcDestroy() {}
void CWnd_X::PreSubclassWindow() {}
