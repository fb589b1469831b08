// The keyboard of a grid.

#include "XeGridCtrl.h"
#include "grid/gridinput.h"
#include "grid/gridstate.h"
#include "grid/selectionmaps.h"
#include "xehook.h"

#include <QApplication>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QScopedValueRollback>

namespace {

constexpr int escape = 27;
constexpr UINT firstNavigationKey = VK_PRIOR; // 33 to 40, which are characters as well: from "!" to "("
constexpr UINT lastNavigationKey = VK_DOWN;

bool isHeld(const xe::GridState& state, UINT flags, UINT modifier, int vk, bool isKnown)
{
    return (flags | state.heldKeys) & modifier || (!isKnown && GetKeyState_X(vk) & 0x8000);
}

// --------------------------------------------------------------------------------------------------- one step of a key

// The direction of a step in rows and in columns.
struct Step
{
    int rows;
    int cols;
};

// The nearest shown row from one on, -1 if there is none that way.
int shownRow(const CGridCtrl_X& grid, int row, int step)
{
    while (row >= grid.m_nFixedRows && row < grid.m_nRows && grid.GetRowHeight(row) <= 0)
        row += step;
    return row >= grid.m_nFixedRows && row < grid.m_nRows ? row : -1;
}

int shownColumn(const CGridCtrl_X& grid, int col, int step)
{
    while (col >= grid.m_nFixedCols && col < grid.m_nCols && grid.GetColumnWidth(col) <= 0)
        col += step;
    return col >= grid.m_nFixedCols && col < grid.m_nCols ? col : -1;
}

CCellID_X neighbour(const CGridCtrl_X& grid, const CCellID_X& cell, const Step& step)
{
    const int row = step.rows ? shownRow(grid, cell.row + step.rows, step.rows) : cell.row;
    const int col = step.cols ? shownColumn(grid, cell.col + step.cols, step.cols) : cell.col;
    return row < 0 || col < 0 ? cell : CCellID_X(row, col);
}

// Tab goes on to the next row, with Shift to the row before. The cell itself where there is none.
CCellID_X nextByTab(const CGridCtrl_X& grid, const CCellID_X& cell, int step)
{
    const CCellID_X next = neighbour(grid, cell, {0, step});
    if (next != cell)
        return next;
    const int row = shownRow(grid, cell.row + step, step);
    const int col = shownColumn(grid, step > 0 ? grid.m_nFixedCols : grid.m_nCols - 1, step);
    return row < 0 || col < 0 ? cell : CCellID_X(row, col);
}

// A row that a page leads to; a hidden one goes on to the nearest that is shown, back if there is none.
int landingRow(const CGridCtrl_X& grid, int row, int step)
{
    const int target = qBound(grid.m_nFixedRows, row, grid.m_nRows - 1);
    const int ahead = shownRow(grid, target, step);
    return ahead >= 0 ? ahead : qMax(shownRow(grid, target, -step), grid.m_nFixedRows);
}

// The keys that move the focus. What they send may delete the grid.
class Navigation
{
public:
    Navigation(CGridCtrl_X& grid, UINT key, bool hasShift, bool hasControl)
        : m_grid(&grid),
          m_key(key),
          m_hasShift(hasShift),
          m_hasControl(hasControl),
          m_from(grid.m_idCurrentCell),
          m_to(m_from)
    {}

    bool isOne() const { return m_key == VK_TAB || (m_key >= firstNavigationKey && m_key <= lastNavigationKey); }
    /// Finds the cell. False for a Tab that leads out of the grid.
    bool find();
    void go();

private:
    bool send(UINT message, UINT code);
    void findByPage(UINT code, int step);
    void findByEnd(UINT code, int step);
    bool isUsable() const { return m_grid && m_grid->GetSafeHwnd() && m_grid->IsValid(m_to); }
    void select();
    void scroll();

    QPointer<CGridCtrl_X> m_grid;
    const UINT m_key;
    const bool m_hasShift;
    const bool m_hasControl;
    const CCellID_X m_from;
    CCellID_X m_to;
};

bool Navigation::find()
{
    const CGridCtrl_X& grid = *m_grid;
    switch (m_key) {
    case VK_TAB:
        m_to = nextByTab(grid, m_from, m_hasShift ? -1 : 1);
        return m_to != m_from;
    case VK_PRIOR:
        findByPage(SB_PAGEUP, -1);
        break;
    case VK_NEXT:
        findByPage(SB_PAGEDOWN, 1);
        break;
    case VK_END:
        findByEnd(SB_BOTTOM, -1);
        break;
    case VK_HOME:
        findByEnd(SB_TOP, 1);
        break;
    case VK_LEFT:
        m_to = neighbour(grid, m_from, {0, -1});
        break;
    case VK_UP:
        m_to = neighbour(grid, m_from, {-1, 0});
        break;
    case VK_RIGHT:
        m_to = neighbour(grid, m_from, {0, 1});
        break;
    default:
        m_to = neighbour(grid, m_from, {1, 0});
    }
    return true;
}

bool Navigation::send(UINT message, UINT code)
{
    m_grid->SendMessage(message, code, 0);
    return isUsable();
}

void Navigation::findByPage(UINT code, int step)
{
    const int before = m_grid->GetTopleftNonFixedCell().row;
    if (!send(WM_VSCROLL, code))
        return;
    const int way = m_grid->GetTopleftNonFixedCell().row - before;
    const int end = step < 0 ? m_grid->m_nFixedRows : m_grid->m_nRows - 1;
    m_to.row = landingRow(*m_grid, way ? m_from.row + way : end, step);
}

// To the first or the last cell of the row, with Ctrl of the grid; `step` leads back into the grid.
void Navigation::findByEnd(UINT code, int step)
{
    if ((m_hasControl && !send(WM_VSCROLL, code)) || !send(WM_HSCROLL, code))
        return;
    const CGridCtrl_X& grid = *m_grid;
    const int col = shownColumn(grid, step < 0 ? grid.m_nCols - 1 : grid.m_nFixedCols, step);
    const int row = m_hasControl ? shownRow(grid, step < 0 ? grid.m_nRows - 1 : grid.m_nFixedRows, step) : m_from.row;
    if (row >= 0 && col >= 0)
        m_to = CCellID_X(row, col);
}

void Navigation::go()
{
    if (!isUsable() || m_to == m_from)
        return;
    if (xe::isIdle(*m_grid))
        select();
    m_grid->SetFocusCell(m_to);
    if (isUsable() && m_grid->GetSafeHwnd() && !m_grid->IsCellVisible(m_to))
        scroll();
    if (m_grid)
        m_grid->Invalidate();
}

void Navigation::select()
{
    xe::forgetStaying(*m_grid);
    if (!m_hasShift || m_key == VK_TAB)
        m_grid->m_SelectionStartCell = m_to;
    else if (!m_grid->IsValid(m_grid->m_SelectionStartCell))
        m_grid->m_SelectionStartCell = m_from;
    m_grid->m_MouseMode = m_grid->m_bListMode ? CGridCtrl_X::MOUSE_SELECT_ROW : CGridCtrl_X::MOUSE_SELECT_CELLS;
    m_grid->OnSelecting(m_to);
    m_grid->m_MouseMode = CGridCtrl_X::MOUSE_NOTHING;
}

void Navigation::scroll()
{
    m_grid->EnsureVisible(m_to);
    if (!isUsable())
        return;
    const bool isTab = m_key == VK_TAB;
    const bool goesBack = isTab ? m_hasShift : m_key == VK_LEFT || m_key == VK_UP;
    const bool changesRow = isTab ? m_to.row != m_from.row : m_key == VK_UP || m_key == VK_DOWN;
    if (!isTab && m_key < VK_LEFT)
        return;
    const bool isThere = send(changesRow ? WM_VSCROLL : WM_HSCROLL, goesBack ? SB_LINEUP : SB_LINEDOWN);
    if (isThere && isTab && changesRow)
        m_grid->SetScrollPos32(SB_HORZ, m_hasShift ? m_grid->m_nHScrollMax : 0, TRUE);
}

// --------------------------------------------------------------------------------------------------------- other keys

// Copying and the like. False if the grid has gone.
bool runCommand(CGridCtrl_X& grid, UINT key, bool hasShift, bool hasControl)
{
    const QPointer<CGridCtrl_X> living(&grid);
    if (hasControl && (key == 'C' || key == VK_INSERT))
        grid.OnEditCopy();
    if (living && hasControl && key == 'A')
        grid.OnEditSelectAll();
    if (living && ((hasControl && key == 'V') || (hasShift && key == VK_INSERT)))
        grid.OnEditPaste();
    if (living && hasControl && key == 'X')
        grid.OnEditCut();
    return living && grid.GetSafeHwnd();
}

void clearCell(CGridCtrl_X& grid, const CCellID_X& id)
{
    const QPointer<CGridCtrl_X> living(&grid);
    if (!grid.IsCellEditable(id))
        return;
    grid.SendMessageToParent(id.row, id.col, static_cast<int>(LVN_BEGINLABELEDITW));
    if (!living || !grid.SetItemText(id.row, id.col, L""))
        return;
    grid.SetModified(TRUE, id.row, id.col);
    grid.SendMessageToParent(id.row, id.col, static_cast<int>(LVN_ENDLABELEDITW));
    if (living)
        grid.RedrawCell(id);
}

// Whether a character opens an editor: Delete comes with one as well.
bool opensEditor(UINT character, bool handlesTab)
{
    constexpr UINT deleteCharacter = 127;
    if (character == VK_TAB)
        return !handlesTab;
    return character == VK_BACK || (character >= ' ' && character != deleteCharacter);
}

// Qt delivers all the keys that have come, and only then what they have posted. A key has to stand behind the
// characters of those before it: one of them may open an editor, and then the key is for that. True if it has been
// given to it, and if the widget has gone.
bool passOn(QWidget& grid, QEvent& key)
{
    const QPointer<QWidget> living(&grid);
    const bool hadFocus = grid.hasFocus();
    QCoreApplication::sendPostedEvents(&grid, XeWinMsgEvent::EventType);
    QWidget* const focus = QApplication::focusWidget();
    if (!living || !hadFocus || !focus || focus == living || !living->isAncestorOf(focus))
        return !living;
    QCoreApplication::sendEvent(focus, &key);
    return true;
}

bool isKeyEvent(const QEvent& event)
{
    return event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease
           || event.type() == QEvent::ShortcutOverride;
}

} // namespace

// ------------------------------------------------------------------------------------------------------------ handlers

void CGridCtrl_X::OnKeyDown(UINT vk, UINT repeatCount, UINT modifiers)
{
    constexpr UINT firstKey = 9;
    constexpr UINT lastKey = 113;
    if (!IsWindowEnabled())
        return;
    m_TitleTip.Hide();
    const CCellID_X focus = m_idCurrentCell;
    if (!IsValid(focus)) {
        CWnd_X::OnKeyDown(vk, repeatCount, modifiers);
        return;
    }
    const bool hasControl = isHeld(*m_state, modifiers, MK_CONTROL, VK_CONTROL, m_state->isRealKey);
    const bool hasShift = isHeld(*m_state, modifiers, MK_SHIFT, VK_SHIFT, m_state->isRealKey);
    if (!runCommand(*this, vk, hasShift, hasControl))
        return;
    const bool isLeftToBase = vk == VK_TAB && !m_bHandleTabKey;
    Navigation navigation(*this, vk, hasShift, hasControl);
    if (vk >= firstKey && vk <= lastKey && navigation.isOne() && !isLeftToBase) {
        if (navigation.find())
            navigation.go();
        else
            CWnd_X::OnKeyDown(vk, repeatCount, modifiers);
    } else if (vk == VK_DELETE) {
        clearCell(*this, focus);
    } else if (vk == VK_F2) {
        OnEditCell(focus.row, focus.col, CPoint(-1, -1), 1);
    } else {
        CWnd_X::OnKeyDown(vk, repeatCount, modifiers);
    }
}

void CGridCtrl_X::OnSysKeyDown(UINT vk, UINT repeatCount, UINT modifiers)
{
    CWnd_X::OnSysKeyDown(vk, repeatCount, modifiers);
}

void CGridCtrl_X::OnChar(UINT character, UINT repeatCount, UINT modifiers)
{
    if (!IsWindowEnabled() || GetFocus() != GetSafeHwnd())
        return;
    const bool isTyped = repeatCount > 0; // what a key has posted knows its modifiers
    const bool hasControl = isHeld(*m_state, modifiers, MK_CONTROL, VK_CONTROL, isTyped);
    const QPointer<CGridCtrl_X> living(this);
    if (!hasControl && xe::isIdle(*this) && character != escape && opensEditor(character, m_bHandleTabKey)) {
        OnEditCell(m_idCurrentCell.row, m_idCurrentCell.col, CPoint(-1, -1), character);
        // An editor takes these characters for the keys that moved into it, and leaves them out.
        QWidget* const editor = living ? GetFocus() : nullptr;
        if (editor && character >= firstNavigationKey && character <= lastNavigationKey && editor != GetSafeHwnd()
            && IsChild(editor))
            SendMessage_X(editor, WM_CHAR, character, 0);
    }
    if (living)
        CWnd_X::OnChar(character, repeatCount, modifiers);
}

// Qt makes a key of its own of Tab with Shift, and that has no number here: it comes as what it is.
bool CGridCtrl_X::eventFilter(QObject* target, QEvent* event)
{
    if (event && event->type() == QEvent::InputMethod && target == GetImpQObject())
        return editByInputMethod(*event);
    if (!event || !isKeyEvent(*event) || target != GetImpQObject())
        return CWnd_X::eventFilter(target, event);
    const QPointer<CGridCtrl_X> living(this);
    if (passOn(*GetSafeHwnd(), *event) || !living)
        return true;
    if (event->type() == QEvent::ShortcutOverride)
        return CWnd_X::eventFilter(target, event);
    const bool wasRealKey = std::exchange(m_state->isRealKey, true);
    const auto* const key = static_cast<const QKeyEvent*>(event);
    bool isConsumed = false;
    if (key->key() == Qt::Key_Backtab) {
        QKeyEvent tab(key->type(), Qt::Key_Tab, key->modifiers() | Qt::ShiftModifier, QStringLiteral("\t"));
        isConsumed = CWnd_X::eventFilter(target, &tab);
    } else {
        isConsumed = CWnd_X::eventFilter(target, event);
    }
    if (living)
        m_state->isRealKey = wasRealKey;
    // As a widget gets it: else a Tab that has moved the focus would go on to the parent, and move it again.
    if (!isConsumed)
        event->accept();
    return isConsumed;
}
