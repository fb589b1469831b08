// Tool bars.

#include "geometry/lightgrey.h"
#include "geometry/rectangle.h"
#include "xeafxbar.h"

#include <QAction>
#include <QVector>

#include <algorithm>

IMPLEMENT_DYNCREATE_X(CToolBar_X, CControlBar_X)

namespace {

constexpr QSize firstIconSize(16, 15);
constexpr int border = 7; // around an icon, and the width of a separator

constexpr char styleSheet[] = "QToolBar {border:none;}"
                              "\t\tQToolBar QToolButton:hover{background-color:#a4d4ff;}"
                              "\t\tQToolBar QToolButton:selected{background-color:#a4d4ff;}"
                              "\t\tQToolBar QToolButton:checked{background-color:#a4d4ff;}"
                              "\t\tQToolBar QToolButton:pressed{background-color:#a4d4ff;}"
                              "    QToolBar::separator{width:1px;height:23px;background:rgb(54,59,66);}";

// An icon of a file that cannot be read is not null, and has no picture.
bool hasPicture(const QIcon& icon) { return !icon.isNull() && !icon.pixmap(firstIconSize).isNull(); }

// Has the button trigger the action, and show its state.
void follow(QAction* button, QAction* action)
{
    const auto showState = [button, action] {
        button->setEnabled(action->isEnabled());
        button->setCheckable(action->isCheckable());
        button->setChecked(action->isChecked());
        button->setToolTip(action->toolTip());
    };
    showState();
    QObject::connect(button, &QAction::triggered, action, &QAction::trigger);
    QObject::connect(button, &QAction::triggered, action, showState); // the action may have kept its check mark
    QObject::connect(action, &QAction::changed, button, showState);
    QObject::connect(action, &QObject::destroyed, button, [button] { button->setEnabled(false); });
}

QVector<QPointer<QAction>> guarded(const QList<QAction*>& actions)
{
    QVector<QPointer<QAction>> pointers;
    pointers.reserve(actions.size());
    std::copy(actions.begin(), actions.end(), std::back_inserter(pointers));
    return pointers;
}

int cutToWidget(int size) { return std::clamp(size, 0, QWIDGETSIZE_MAX); }

} // namespace

bool CToolBar_X::AttachDefault(QWidget* parent) { return Attach(new QToolBar(parent), parent, false); }

int CToolBar_X::Create(QWidget* parent, DWORD style)
{
    const QPointer<CToolBar_X> living(this);
    if (!CWnd_X::Create(style, parent))
        return 0;
    if (auto* const bar = living ? Imp<QToolBar>() : nullptr) {
        bar->setToolButtonStyle(Qt::ToolButtonIconOnly);
        bar->setIconSize(firstIconSize);
        bar->setStyleSheet(QLatin1String(styleSheet));
    }
    return 1;
}

void CToolBar_X::SetSizes(SIZE, SIZE image)
{
    if (auto* const bar = Imp<QToolBar>())
        bar->setIconSize({image.cx, image.cy});
}

void CToolBar_X::SetHeight(int height)
{
    if (auto* const bar = Imp<QToolBar>())
        bar->setFixedHeight(cutToWidget(height));
}

Qt::ToolButtonStyle CToolBar_X::GetButtonStyle() const
{
    const auto* const bar = Imp<QToolBar>();
    return bar ? bar->toolButtonStyle() : Qt::ToolButtonIconOnly;
}

void CToolBar_X::SetButtonStyle(Qt::ToolButtonStyle style)
{
    if (auto* const bar = Imp<QToolBar>())
        bar->setToolButtonStyle(style);
}

void CToolBar_X::setGeometry(const QRect& geometry)
{
    if (auto* const bar = Imp<QToolBar>())
        bar->setGeometry(geometry);
}

// ----------------------------------------------------------------------------------------------------------- filling

BOOL CToolBar_X::SetButtons(const UINT*, int) { return TRUE; }

BOOL CToolBar_X::SetButtons(QList<QAction*> actions)
{
    auto* const bar = Imp<QToolBar>();
    if (!bar)
        return FALSE;
    actions.removeAll(nullptr);
    bar->clear();
    bar->addActions(actions);
    return TRUE;
}

BOOL CToolBar_X::LoadToolBar(QList<QAction*> actions, int checkable)
{
    auto* const bar = Imp<QToolBar>();
    actions.removeAll(nullptr);
    if (!bar || actions.isEmpty())
        return FALSE;
    for (QAction* action : qAsConst(actions)) {
        if (checkable && !action->isSeparator())
            action->setCheckable(true);
    }
    bar->addActions(actions);
    return TRUE;
}

BOOL CToolBar_X::LoadToolBar(QList<QString> paths)
{
    auto* const bar = Imp<QToolBar>();
    if (!bar)
        return FALSE;
    QList<QAction*> actions;
    for (const QString& path : qAsConst(paths)) {
        const QIcon icon = LoadIcon(path);
        if (!icon.isNull())
            actions += new QAction(icon, QString(), bar);
    }
    return LoadToolBar(actions, TRUE);
}

BOOL CToolBar_X::LoadBitmap(const wchar_t* path)
{
    const auto* const bar = Imp<QToolBar>();
    const auto buttons = guarded(GetListActions()); // a new icon is a signal to the host
    const int iconWidth = bar ? bar->iconSize().width() : 0;
    if (buttons.isEmpty() || iconWidth <= 0)
        return FALSE;
    const QPixmap strip = xe::withoutLightGrey(QPixmap(XeQString(path)));
    const int slices = strip.width() / iconWidth;
    if (slices < 1)
        return FALSE;
    const int width = strip.width() / slices;
    for (int i = 0; i < std::min(slices, buttons.size()); ++i) {
        if (buttons[i] && buttons[i]->isVisible())
            buttons[i]->setIcon(strip.copy(i * width, 0, width, strip.height()));
    }
    return TRUE;
}

QIcon CToolBar_X::LoadIcon(QString path) const { return QPixmap(path).isNull() ? QIcon() : QIcon(path); }

BOOL CToolBar_X::AddButton(const QIcon& icon, QAction* action)
{
    auto* const bar = Imp<QToolBar>();
    if (!bar || !hasPicture(icon))
        return FALSE;
    QAction* const button = bar->addAction(icon, QString());
    if (!action)
        return FALSE;
    follow(button, action);
    return TRUE;
}

BOOL CToolBar_X::AddButton(QString path, QAction* action) { return AddButton(LoadIcon(path), action); }

BOOL CToolBar_X::AddButton(const wchar_t* path, QAction* action) { return AddButton(XeQString(path), action); }

BOOL CToolBar_X::AddSeparator(QAction*)
{
    auto* const bar = Imp<QToolBar>();
    return bar && bar->addSeparator();
}

BOOL CToolBar_X::DeleteButton(QAction* action)
{
    auto* const bar = Imp<QToolBar>();
    if (!bar || !action)
        return FALSE;
    bar->removeAction(action);
    return TRUE;
}

// ------------------------------------------------------------------------------------------------------- the buttons

BOOL CToolBar_X::CheckButton(QAction* action, int check)
{
    if (!Imp<QToolBar>() || !action)
        return FALSE;
    const QPointer<QAction> living(action);
    if (check == TRUE)
        action->setCheckable(true);
    if (living)
        action->setChecked(check == TRUE);
    return TRUE;
}

BOOL CToolBar_X::EnableButton(QAction* action, int enable)
{
    if (!Imp<QToolBar>() || !action)
        return FALSE;
    action->setEnabled(enable == TRUE);
    return TRUE;
}

QList<QAction*> CToolBar_X::GetListActions() const
{
    const auto* const bar = Imp<QToolBar>();
    QList<QAction*> buttons = bar ? bar->actions() : QList<QAction*>();
    const auto isSeparator = [](const QAction* action) { return action->isSeparator(); };
    buttons.erase(std::remove_if(buttons.begin(), buttons.end(), isSeparator), buttons.end());
    return buttons;
}

int CToolBar_X::GetButtonCount() const { return GetListActions().size(); }

UINT_PTR CToolBar_X::GetItemID(int index) const
{
    const auto* const bar = Imp<QToolBar>();
    return bar ? reinterpret_cast<UINT_PTR>(bar->actions().value(index)) : 0;
}

int CToolBar_X::CommandToIndex(QAction* action) const
{
    const auto* const bar = Imp<QToolBar>();
    if (!bar || bar->actions().isEmpty())
        return -1;
    const QList<QAction*> buttons = GetListActions();
    const int index = buttons.indexOf(action);
    return index < 0 ? buttons.size() : index;
}

void CToolBar_X::GetItemRect(int index, tagRECT* rect) const
{
    QAction* const button = GetListActions().value(index);
    if (button && rect)
        *rect = xe::toCorners(Imp<QToolBar>()->actionGeometry(button));
}

QString CToolBar_X::GetButtonText(int index) const
{
    const QAction* const button = GetListActions().value(index);
    return button ? button->text() : QString();
}

void CToolBar_X::GetButtonText(int index, QString& text) const { text = GetButtonText(index); }

BOOL CToolBar_X::SetButtonText(int index, const wchar_t* text)
{
    QAction* const button = GetListActions().value(index);
    if (!button)
        return FALSE;
    button->setIconText(XeQString(text));
    return TRUE;
}

// --------------------------------------------------------------------------------------------------------- placement

void CToolBar_X::DockBar(int side)
{
    const QPointer<QToolBar> bar(Imp<QToolBar>());
    if (!bar || !bar->parentWidget())
        return;
    const QPoint last = bar->parentWidget()->rect().bottomRight();
    const QSize thickness = bar->iconSize() + QSize(border, border);
    const auto lay = [&bar](Qt::Orientation orientation, QPoint from, QPoint to) {
        bar->setOrientation(orientation);
        if (bar)
            bar->setGeometry(QRect(from, to));
    };
    switch (static_cast<DWORD>(side)) {
    case CBRS_LEFT:
        return lay(Qt::Vertical, {0, 0}, {thickness.width(), last.y()});
    case CBRS_TOP:
        return lay(Qt::Horizontal, {0, 0}, {last.x(), thickness.height()});
    case CBRS_RIGHT:
        return lay(Qt::Vertical, {last.x() - thickness.width(), 0}, last);
    case CBRS_BOTTOM:
        return lay(Qt::Horizontal, {0, last.y() - thickness.height()}, last);
    default:
        return;
    }
}

void CToolBar_X::UpdateToolBarSize(int setWidth)
{
    auto* const bar = Imp<QToolBar>();
    if (!bar || bar->toolButtonStyle() != Qt::ToolButtonIconOnly || bar->actions().isEmpty())
        return;
    const QSize icon = bar->iconSize();
    const int buttons = GetButtonCount();
    const int width = bar->actions().size() * border + buttons * icon.width();
    bar->setFixedHeight(cutToWidget(icon.height() + border + 1));
    if (setWidth)
        bar->setFixedWidth(cutToWidget(width + 1));
}
