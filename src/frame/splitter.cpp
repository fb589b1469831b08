#include "xeafxframe.h"

#include "msg/eventtranslation.h"
#include "win/dispatchframe.h"
#include "win/screening.h"

#include <QChildEvent>
#include <QMouseEvent>
#include <QPointer>

#include <algorithm>

IMPLEMENT_DYNCREATE_X(CSplitterWnd_X, CWnd_X)
IMPLEMENT_DYNCREATE_X(CSplitterWndEx_X, CSplitterWnd_X)

namespace {

// The pane in a column; null without a splitter or pane.
QWidget* paneAt(const QSplitter* splitter, int column) { return splitter ? splitter->widget(column) : nullptr; }

// The sizes of the columns for QSplitter::setSizes(), which collapses a column for good that it is given 0 for: only
// one that was collapsed before stays so. What a hidden one had is not known any more; it comes back with an equal
// share.
QList<int> lastingSizes(const QSplitter& splitter, const QList<int>& before)
{
    const bool wasLaidOut = std::any_of(before.begin(), before.end(), [](int size) { return size > 0; });
    QList<int> sizes = splitter.sizes();
    for (int i = 0; i < sizes.size(); ++i) {
        if (splitter.widget(i)->isHidden())
            sizes[i] = splitter.width() / sizes.size();
        else if (sizes[i] == 0 && !(wasLaidOut && before[i] == 0))
            sizes[i] = 1;
    }
    return sizes;
}

} // namespace

bool CSplitterWnd_X::AttachDefault(QWidget* parent) { return Attach(new QSplitter(parent), parent, false); }

int CSplitterWnd_X::CreateStatic(CWnd_X* parent, int rows, int columns)
{
    if (rows < 1 || columns < 1 || !parent || !CWnd_X::Create(parent->GetSafeHwnd()))
        return 0;
    Imp<QSplitter>()->setOrientation(Qt::Horizontal);
    m_nCols = columns;
    return 1;
}

int CSplitterWnd_X::CreateView(int row, int column, CWnd_X* view)
{
    const QPointer<QSplitter> splitter = Imp<QSplitter>();
    if (!splitter || !view || row < 0 || row >= m_nRows || column < 0 || column >= m_nCols)
        return 0;
    if (!view->GetSafeHwnd() && !view->Create(splitter))
        return 0;
    QWidget* const pane = view->GetSafeHwnd();
    if (!pane || !splitter)
        return 0;
    SetParent_X(pane, splitter);
    if (pane->parentWidget() != splitter)
        return 0;
    if (pane->isWindow())
        pane->setWindowFlags(pane->windowFlags() & ~Qt::WindowType_Mask);
    splitter->insertWidget(column, pane);
    return 1;
}

void CSplitterWnd_X::GetColumnInfo(int column, int& current, int& minimum) const
{
    const QWidget* const pane = paneAt(Imp<QSplitter>(), column);
    if (!pane)
        return;
    current = pane->width();
    minimum = pane->minimumWidth();
}

void CSplitterWnd_X::SetColumnInfo(int column, int ideal, int minimum)
{
    auto* const splitter = Imp<QSplitter>();
    QWidget* const pane = paneAt(splitter, column);
    if (!pane)
        return;
    const int width = qBound(0, ideal, QWIDGETSIZE_MAX);
    const QList<int> before = splitter->sizes();
    pane->setFixedWidth(width);
    splitter->refresh(); // gives the column this width, and the others what is left
    pane->setMinimumWidth(qBound(0, minimum, QWIDGETSIZE_MAX));
    QList<int> sizes = lastingSizes(*splitter, before);
    sizes[column] = width;
    splitter->setSizes(sizes);
}

CWnd_X* CSplitterWnd_X::GetPane(int row, int column) const
{
    return row < 0 || row >= m_nRows ? nullptr : FromHandle(paneAt(Imp<QSplitter>(), column));
}

// -------------------------------------------------------------------------------------------------------- dividers

void CSplitterWndEx_X::OnMessageMap()
{
    using ThisClass = CSplitterWndEx_X;
    CWnd_X::OnMessageMap();
    ON_WM_MOUSEMOVE_X()
}

void CSplitterWndEx_X::OnMouseMove(UINT flags, CPoint point) { CWnd_X::OnMouseMove(flags, point); }

bool CSplitterWndEx_X::OnAttach()
{
    if (!CSplitterWnd_X::OnAttach())
        return false;
    const auto* const splitter = Imp<QSplitter>();
    for (int i = 0; splitter && i < splitter->count(); ++i)
        splitter->handle(i)->installEventFilter(this);
    return true;
}

// A divider is new with its pane, and known as one once it has been polished.
bool CSplitterWndEx_X::eventFilter(QObject* target, QEvent* event)
{
    if (event && target && target != GetImpQObject()) {
        if (const auto* const divider = qobject_cast<QSplitterHandle*>(target))
            return event->type() == QEvent::MouseMove && keepsDivider(*divider, static_cast<QMouseEvent&>(*event));
    } else if (event && event->type() == QEvent::ChildPolished) {
        if (auto* const divider = qobject_cast<QSplitterHandle*>(static_cast<QChildEvent*>(event)->child()))
            divider->installEventFilter(this);
    }
    return CSplitterWnd_X::eventFilter(target, event);
}

// The same way to the handler as an event of the splitter's, but for the question of the cursor: a divider has its own,
// and the question would take longer than all the rest. The wrapper may be gone at the end. A divider of a splitter
// that it was attached to before moves freely.
bool CSplitterWndEx_X::keepsDivider(const QSplitterHandle& divider, QMouseEvent& move)
{
    QObject* const splitter = GetImpQObject();
    if (divider.splitter() != splitter || !(move.buttons() & Qt::LeftButton))
        return false;
    QMouseEvent inSplitter(move.type(), move.localPos() + divider.pos(), move.windowPos(), move.screenPos(),
                           move.button(), move.buttons(), move.modifiers(), move.source());
    const xe::DispatchFrame frame(*this, splitter, &inSplitter);
    xe::PointerPosition pointer;
    xe::MessageParameters message = xe::translateMouseMove(*splitter, inSplitter, pointer);
    bool keeps = xe::looksAtMessages(*this) && xe::screenMessage(*this, *splitter, message, pointer);
    if (!keeps && frame.isAlive() && frame.hasTarget()) {
        LRESULT result = 0;
        keeps = OnWndMsg(message.message, message.wParam, message.lParam, &result) && inSplitter.isAccepted();
    }
    keeps = keeps || !frame.hasTarget();
    if (keeps)
        move.accept();
    return keeps;
}
