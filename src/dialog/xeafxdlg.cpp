#include "xeafxdlg.h"

#include "win/animationkeeper.h"
#include "xeresource.h"

#include <QApplication>
#include <QKeyEvent>

namespace {

constexpr WPARAM escapeKey = 27;
constexpr int notMade = 3;

QWidget* widgetOf(const CWnd_X* window) { return window ? window->GetSafeHwnd() : nullptr; }

} // namespace

IMPLEMENT_DYNCREATE_X(CDialog_X, CWnd_X)

CDialog_X::CDialog_X(QWidget* parent) : CWnd_X(Control()), m_parent(parent) {}

CDialog_X::CDialog_X(std::nullptr_t) : CWnd_X(Control()) {}

CDialog_X::CDialog_X(const wchar_t* templateName, CWnd_X* parent)
    : CWnd_X(Control()),
      m_parent(widgetOf(parent)),
      m_templateName(templateName)
{}

CDialog_X::CDialog_X(unsigned templateId, CWnd_X* parent)
    : CWnd_X(Control()),
      m_parent(widgetOf(parent)),
      m_templateName(ToStringId(templateId))
{}

int CDialog_X::Create(unsigned templateId, CWnd_X* parent)
{
    m_parent = widgetOf(parent);
    m_templateName = ToStringId(templateId);
    return CWnd_X::Create(m_parent);
}

int CDialog_X::Create(const wchar_t* templateName, CWnd_X* parent)
{
    m_parent = widgetOf(parent);
    m_templateName = templateName;
    return CWnd_X::Create(m_parent);
}

bool CDialog_X::AttachDefault(QWidget* parent) { return Attach(new QDialog(parent), parent, false); }

bool CDialog_X::OnAttach() { return CreateContents() && OnInitDialog() && ConnectContents(); }

int CDialog_X::DoModal()
{
    m_ended = false;
    auto* const dialog = CWnd_X::Create(m_parent) ? Imp<QDialog>() : nullptr;
    if (!dialog)
        return notMade;
    // A handler may delete the dialog's widget, and with it whoever owns the wrapper.
    const QPointer<CDialog_X> living(this);
    int result = m_result;
    if (!m_ended) {
        QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
        const xe::AnimationKeeper keeper;
        result = dialog->exec();
        QGuiApplication::restoreOverrideCursor();
    }
    if (living)
        DestroyWindow();
    return result == QDialog::Accepted ? IDOK : result == QDialog::Rejected ? IDCANCEL : result;
}

void CDialog_X::EndDialog(int result)
{
    auto* const dialog = Imp<QDialog>();
    if (!dialog)
        return;
    m_ended = true;
    m_result = result;
    // A dialog that was never shown counts as shown, so that Qt's hide() ends the loop.
    dialog->setAttribute(Qt::WA_WState_Hidden, false);
    if (result == IDOK)
        dialog->accept();
    else if (result == IDCANCEL)
        dialog->reject();
    else
        dialog->done(result);
}

BOOL CDialog_X::OnInitDialog()
{
    const QPointer<CDialog_X> living(this);
    if (UpdateData(FALSE))
        return TRUE;
    if (living)
        EndDialog(-1);
    return FALSE;
}

void CDialog_X::OnOK()
{
    const QPointer<CDialog_X> living(this); // the exchange may be its end
    if (UpdateData(TRUE) && living)
        EndDialog(IDOK);
}

void CDialog_X::OnCancel() { EndDialog(IDCANCEL); }

BOOL CDialog_X::OnCmdMsg(unsigned, int, void*, AFX_CMDHANDLERINFO_X*) { return FALSE; }

void CDialog_X::accept() { OnOK(); }

void CDialog_X::reject() { OnCancel(); }

int CDialog_X::PreTranslateMessage(tagMSG* message)
{
    const QWidget* const widget = GetSafeHwnd();
    if (!widget)
        return 1;
    if (!widget->isWindow() || !message || message->message != WM_KEYDOWN || message->wParam != escapeKey)
        return 0;
    reject();
    return 1;
}

bool CDialog_X::eventFilter(QObject* target, QEvent* event)
{
    if (!event || event->type() != QEvent::KeyPress)
        return CWnd_X::eventFilter(target, event);
    const QPointer<CDialog_X> living(this);
    const bool stopped = CWnd_X::eventFilter(target, event);
    const QWidget* const widget = living ? GetSafeHwnd() : nullptr;
    if (!stopped && widget && widget == target && !widget->isWindow())
        event->setAccepted(false);
    return stopped;
}

void CDialog_X::ConnectSlotsFrom(QObject* from, bool keep)
{
    CWnd_X::ConnectSlotsFrom(from, keep);
    const auto connectButton = [this](const char* name, const char* slot) {
        // Only a button has the signal; another widget of that name is let be.
        QWidget* const button = GetChildWidget(name);
        if (button && button->metaObject()->indexOfSignal("clicked()") >= 0)
            connect(button, SIGNAL(clicked()), this, slot, Qt::UniqueConnection);
    };
    connectButton("OK", SLOT(accept()));
    connectButton("Cancel", SLOT(reject()));
}
