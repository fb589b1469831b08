#include "grid/listediting.h"

#include "xesysinfo.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>

#include <algorithm>
#include <utility>

namespace xe {

int linesOf(const CStringArray_X& items)
{
    constexpr long long most = 20;
    return static_cast<int>(std::min(items.GetSize(), most));
}

bool isListOpen(const CComboBox_X& list)
{
    const auto* const box = list.Imp<QComboBox>();
    return box && box->view()->isVisible();
}

// ------------------------------------------------------------------------------------------------- the mouse and keys

ListWatch::ListWatch(CComboBox_X& list, std::function<void(UINT)> closedByKey)
    : m_list(list),
      m_closedByKey(std::move(closedByKey))
{}

void ListWatch::enter() { m_list.Imp<QComboBox>()->view()->installEventFilter(this); }

void ListWatch::openByPress()
{
    forgetPress();
    if (QApplication::mouseButtons() & Qt::LeftButton) {
        const QAbstractItemView* const view = m_list.Imp<QComboBox>()->view();
        m_press = QCursor::pos();
        m_watched = {view->window(), view->viewport()};
        for (QWidget* part : m_watched)
            part->installEventFilter(this);
    }
    m_list.ShowDropDown(TRUE);
}

void ListWatch::forgetPress()
{
    for (QWidget* part : m_watched) {
        if (part)
            part->removeEventFilter(this);
    }
    m_watched = {};
}

bool ListWatch::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::KeyPress)
        noteKey(static_cast<const QKeyEvent&>(*event));
    return event->type() == QEvent::MouseButtonRelease && takesRelease(static_cast<const QMouseEvent&>(*event));
}

bool ListWatch::takesRelease(const QMouseEvent& event)
{
    if (!m_watched[0])
        return false;
    forgetPress();
    return (event.globalPos() - m_press).manhattanLength() < QApplication::startDragDistance();
}

void ListWatch::noteKey(const QKeyEvent& event)
{
    const auto vk = static_cast<UINT>(qt_key_to_ansi_vk(event.key()));
    if (vk != VK_RETURN && vk != VK_ESCAPE)
        return;
    const auto look = [this, vk] {
        if (!isListOpen(m_list))
            m_closedByKey(vk);
    };
    QMetaObject::invokeMethod(this, look, Qt::QueuedConnection);
}

bool Releases::endsEdit(UINT vk)
{
    if (vk != VK_TAB && vk != VK_RETURN && vk != VK_ESCAPE)
        return false;
    const bool isOpeners = vk == m_awaited;
    notePress(vk);
    return !isOpeners;
}

// ------------------------------------------------------------------------------------------------------------ the edit

namespace {

void fillList(CComboBox_X& list, const QWidget& parent, const CStringArray_X& items, const CString_X& text, int width)
{
    QComboBox& box = *list.Imp<QComboBox>();
    box.setFont(parent.font());
    box.setFrame(false); // else a row of the usual height cuts the text off
    box.setInsertPolicy(QComboBox::NoInsert);
    if (box.isEditable())
        box.setCompleter(nullptr); // completes what is typed, so that it would be typed twice
    const QFontMetrics metrics(parent.font());
    int widest = 0;
    for (long long i = 0; i < items.GetSize(); ++i) {
        const CString_X item = items[i];
        list.AddString(item);
        widest = std::max(widest, metrics.horizontalAdvance(XeQString(item)));
    }
    widest += GetSystemMetrics_X(SM_CXVSCROLL) + 2 * metrics.horizontalAdvance(QLatin1Char(' '));
    if (widest > width)
        box.view()->setFixedWidth(widest);
    if (list.SelectString(-1, text) == CB_ERR)
        list.SetWindowText(text);
}

// What a list selects and types by the key that opened it.
Opening listOpening(unsigned ch)
{
    constexpr unsigned openedByHost = 1;
    if (ch == openedByHost || ch == VK_RETURN)
        return {false, false};
    if (ch >= VK_PRIOR && ch <= VK_DOWN)
        return {true, false};
    return {ch != VK_BACK, true};
}

} // namespace

ListEditing::ListEditing(CComboBox_X& list, UINT openedBy, const CString_X& startText, unsigned& lastKey,
                         std::function<void()> end)
    : life(list, std::move(end)),
      watch(list, [this](UINT vk) { endBy(vk, 0); }),
      releases(openedBy),
      m_list(list),
      m_startText(startText),
      m_lastKey(lastKey)
{}

void ListEditing::enter(QWidget& parent, int row, int col, const CStringArray_X& items, int width)
{
    life.enter(parent, row, col);
    fillList(m_list, parent, items, m_startText, width);
    watch.enter();
}

void ListEditing::begin(DWORD style, unsigned openedBy)
{
    m_list.SetFocus();
    if (m_list.GetSafeHwnd() && listKind(style) != CBS_DROPDOWNLIST)
        open(m_list, m_list.GetEditBox(), openedBy, listOpening(openedBy));
}

void ListEditing::endBy(UINT vk, UINT modifiers)
{
    if (life.isEnding())
        return;
    if (vk == VK_ESCAPE)
        m_list.SetWindowText(m_startText);
    m_lastKey = vk;
    life.endByKey(modifiers);
}

bool ListEditing::endByRelease(UINT vk, UINT modifiers)
{
    if (!releases.endsEdit(vk))
        return false;
    endBy(vk, modifiers);
    return true;
}

} // namespace xe
