#include "grid/editorlife.h"

#include "XeGridBtnCellBase.h"
#include "XeInPlaceEdit.h"
#include "grid/gridstate.h"
#include "xehook.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>

#include <utility>

namespace xe {

/// An end that is being reported. They nest: what the grid does about one may end another.
struct EditorLife::Ending
{
    explicit Ending(EditorLife& itsLife) : life(&itsLife), outer(std::exchange(innermost, this)) {}
    ~Ending() { innermost = outer; }
    Q_DISABLE_COPY_MOVE(Ending)

    static EditorLife* current() { return innermost ? innermost->life : nullptr; }
    static void forget(const EditorLife& gone)
    {
        for (Ending* ending = innermost; ending; ending = ending->outer) {
            if (ending->life == &gone)
                ending->life = nullptr;
        }
    }

private:
    EditorLife* life;
    Ending* const outer;
    static inline Ending* innermost = nullptr;
};

EditorLife::EditorLife(CWnd_X& editor, std::function<void()> end) : m_editor(editor), m_end(std::move(end)) {}

EditorLife::~EditorLife()
{
    leaveGrid();
    releaseCell();
    Ending::forget(*this);
}

void EditorLife::enter(QWidget& parent, int row, int col)
{
    m_grid = qobject_cast<CGridCtrl_X*>(CWnd_X::FromHandlePermanent(&parent));
    if (m_grid) {
        m_cell = m_grid->cellAt(row, col);
        GridState::of(*m_grid).editor = this;
    }
    QObject::connect(m_editor.GetSafeHwnd(), &QObject::destroyed, &m_editor, [this] {
        if (m_isBuilt)
            delete &m_editor;
    });
}

void EditorLife::leaveGrid()
{
    if (m_grid && GridState::of(*m_grid).editor == this)
        GridState::of(*m_grid).editor = nullptr;
}

// ------------------------------------------------------------------------------------------------------------- the end

namespace {

// Else Qt gives the focus to the next widget when the editor goes.
void giveFocusBack(QWidget& editor)
{
    QWidget* const parent = GetParent_X(&editor);
    if (parent && isPartOf(editor.window()->focusWidget(), &editor))
        parent->setFocus(Qt::OtherFocusReason);
}

} // namespace

void EditorLife::end()
{
    const auto end = m_end; // this may be gone before it returns
    end();
}

void EditorLife::report(int row, int col, const CString_X& text, unsigned lastKey)
{
    m_isEnding = true;
    leaveGrid();
    const QPointer<QWidget> widget = m_editor.GetSafeHwnd();
    if (!widget)
        return;
    XeGridEditEnd record{{widget, 0, LVN_ENDLABELEDITW}, {}};
    record.item.row = row;
    record.item.col = col;
    record.item.mask = _GV_ITEM_X::Text | _GV_ITEM_X::Data;
    record.item.strText = text;
    record.item.lParam = lastKey;
    {
        const Ending ending(*this);
        SendMessage_X(GetParent_X(widget), XE_WM_ENDEDIT, 8, reinterpret_cast<LPARAM>(&record));
    }
    if (widget)
        giveFocusBack(*widget);
    if (widget)
        widget->hide();
    PostMessage_X(widget, WM_NCDESTROY, 0, 0);
}

void EditorLife::killFocus(QWidget* other)
{
    LRESULT result = 0;
    m_editor.OnWndMsg(WM_KILLFOCUS, reinterpret_cast<WPARAM>(other), 0, &result);
}

// The report comes when the focus has moved, not while Qt moves it: what the grid is told may delete it.
void EditorLife::endByKey(UINT modifiers)
{
    m_endModifiers = modifiers & (MK_SHIFT | MK_CONTROL);
    const QPointer<CWnd_X> living(&m_editor);
    const QPointer<QWidget> grid = GetParent_X(m_editor.GetSafeHwnd());
    m_isMovingFocus = true;
    SetFocus_X(grid);
    if (!living)
        return;
    m_isMovingFocus = false;
    if (!m_isEnding)
        killFocus(grid);
    if (living && !m_isEnding)
        end();
}

void EditorLife::catchUp()
{
    QMetaObject::invokeMethod(
        &m_editor,
        [this] {
            if (!m_isEnding && !isPartOf(QApplication::focusWidget(), m_editor.GetSafeHwnd()))
                end();
        },
        Qt::QueuedConnection);
}

void EditorLife::dismiss(CWnd_X& editor)
{
    if (QWidget* const widget = editor.GetSafeHwnd()) {
        const auto leave = [widget] {
            giveFocusBack(*widget);
            widget->hide();
        };
        QMetaObject::invokeMethod(widget, leave, Qt::QueuedConnection); // the cell may be in its destructor
    }
    delete &editor;
}

namespace {

void release(CGridCell_X& released, const QObject& editor)
{
    const QPointer<CGridCell_X> cell(&released);
    if (static_cast<const QObject*>(cell->m_pEditWnd) != &editor)
        return;
    cell->OnEndEdit();
    if (cell) {
        cell->m_bEditing = 0;
        cell->m_pEditWnd = nullptr;
    }
}

// Its own end would read the editor, which may be half gone.
void release(CGridBtnCellBase_X& cell, const QObject& editor)
{
    if (!cell.m_bBtnEditing || static_cast<const QObject*>(cell.GetEditWnd()) != &editor)
        return;
    cell.m_bBtnEditing = 0;
    cell.SetEditWnd(nullptr);
}

} // namespace

void EditorLife::releaseCell()
{
    if (auto* const cell = qobject_cast<CGridCell_X*>(m_cell))
        release(*cell, m_editor);
    else if (auto* const button = qobject_cast<CGridBtnCellBase_X*>(m_cell))
        release(*button, m_editor);
}

UINT EditorLife::endingModifiers()
{
    const EditorLife* const life = Ending::current();
    return life ? life->m_endModifiers : 0;
}

void EditorLife::releaseEndingCell()
{
    if (EditorLife* const life = Ending::current())
        life->releaseCell();
}

// ---------------------------------------------------------------------------------------------------------- the events

bool EditorLife::isControlHeld(UINT modifiers) const
{
    return (modifiers & MK_CONTROL) || (!m_hasRealKey && GetKeyState_X(VK_CONTROL));
}

namespace {

// The keys that are the editor's and no shortcut's.
bool isOwnKey(const QKeyEvent& event)
{
    if (event.modifiers() & (Qt::AltModifier | Qt::MetaModifier))
        return false;
    switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return !(event.modifiers() & Qt::ControlModifier);
    default:
        return false;
    }
}

} // namespace

bool EditorLife::filter(QObject* target, QEvent* event, const BaseFilter& base)
{
    if (!event || !target || target != m_editor.GetImpQObject())
        return base(target, event);
    switch (event->type()) {
    case QEvent::FocusOut:
        return loseFocus(*target, static_cast<QFocusEvent&>(*event), base);
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return filterKey(*target, static_cast<QKeyEvent&>(*event), base);
    case QEvent::ShortcutOverride:
        if (!isOwnKey(static_cast<const QKeyEvent&>(*event)))
            return base(target, event);
        event->accept();
        return true;
    case QEvent::Wheel: // the grid's, also over a box, which would change its item
        if (!base(target, event))
            event->ignore();
        return true;
    default:
        return base(target, event);
    }
}

// A menu that opens takes the focus for a while.
bool EditorLife::loseFocus(QObject& target, QFocusEvent& event, const BaseFilter& base)
{
    const bool isBorrowed = event.reason() == Qt::PopupFocusReason || event.reason() == Qt::MenuBarFocusReason;
    if (isBorrowed || m_isEnding || m_isMovingFocus)
        return base(&target, &event);
    const QPointer<QObject> widget(&target);
    killFocus(QApplication::focusWidget());
    return !widget;
}

// The editor has its keys delivered itself, and says that it has taken them: what Qt's fields leave alone would go on
// to the grid, and to a dialog. Qt's key for Shift and Tab has no VK code.
bool EditorLife::filterKey(QObject& target, QKeyEvent& event, const BaseFilter& base)
{
    event.accept();
    if (m_isEnding)
        return true;
    const bool isBacktab = event.key() == Qt::Key_Backtab;
    QKeyEvent tab(event.type(), Qt::Key_Tab, event.modifiers() | Qt::ShiftModifier, QStringLiteral("\t"),
                  event.isAutoRepeat(), static_cast<ushort>(event.count()));
    const QPointer<CWnd_X> living(&m_editor);
    const QPointer<QObject> widget(&target);
    const bool hadRealKey = std::exchange(m_hasRealKey, true);
    const bool isStopped = base(&target, isBacktab ? &tab : &event);
    if (living)
        m_hasRealKey = hadRealKey;
    const bool movesFocus = event.type() == QEvent::KeyPress && (isBacktab || event.key() == Qt::Key_Tab);
    if (living && widget && !isStopped && !movesFocus && !m_isEnding)
        target.event(&event);
    event.accept();
    if (widget && movesFocus) // its character ends the edit, before the next key comes to the field
        QCoreApplication::sendPostedEvents(widget, XeWinMsgEvent::EventType);
    return true;
}

// ------------------------------------------------------------------------------------------------------------- helpers

bool isWayOut(UINT vk) { return vk == VK_PRIOR || vk == VK_NEXT || (vk >= VK_LEFT && vk <= VK_DOWN); }

void open(CWnd_X& editor, QLineEdit* field, unsigned ch, Opening opening)
{
    if (field && opening.selectsAll)
        field->selectAll();
    else if (field)
        field->end(false);
    if (!opening.types)
        return;
    if (field && ch == VK_BACK)
        field->backspace(); // the character that is sent is none that a field takes
    if (ch <= 0xFFFF)
        editor.SendMessage(WM_CHAR, ch);
    else if (field)
        field->insert(QString::fromUcs4(&ch, 1));
}

bool isPartOf(const QWidget* widget, const QWidget* whole)
{
    while (widget && widget != whole)
        widget = widget->parentWidget();
    return widget;
}

bool mayKeep(CWnd_X& editor, const CGridCellBase_X* cell)
{
    CGridCtrl_X* const grid = cell ? cell->GetGrid() : nullptr;
    if (!grid || !editor.GetSafeHwnd()) {
        EditorLife::dismiss(editor);
        return false;
    }
    const EditorLife* const open = GridState::of(*grid).editor;
    return open && open->isOf(editor);
}

} // namespace xe
