// What the two editors with a list have in common.
#pragma once

#include "grid/editorlife.h"
#include "xeafxctrl.h"

#include <QPointer>

#include <array>
#include <functional>

class QMouseEvent;

namespace xe {

constexpr DWORD listKind(DWORD style) { return style & CBS_DROPDOWNLIST; }

/// How many of the items count as lines of the list.
int linesOf(const CStringArray_X& items);

bool isListOpen(const CComboBox_X& list);

/// What a box does not hear of its open list.
///
/// A press that opens the list by openByPress() is not seen by Qt: its release, which would close the list again, is
/// kept from it. Return and Esc close the list, and their release may go with it: `closedByKey` is called behind that.
class ListWatch : public QObject
{
public:
    ListWatch(CComboBox_X& list, std::function<void(UINT)> closedByKey);

    /// The box has its widget.
    void enter();
    void openByPress();
    bool eventFilter(QObject* target, QEvent* event) override;

private:
    void noteKey(const QKeyEvent& event);
    bool takesRelease(const QMouseEvent& event);
    void forgetPress();

    CComboBox_X& m_list;
    const std::function<void(UINT)> m_closedByKey;
    std::array<QPointer<QWidget>, 2> m_watched; // while the button is down
    QPoint m_press;
};

/// Keys that have come up. A list may be opened by a key that is still down: that its release is the first thing that
/// it hears of it does not end it.
class Releases
{
public:
    explicit Releases(UINT openedBy)
        : m_awaited(openedBy == VK_TAB || openedBy == VK_RETURN || openedBy == VK_ESCAPE ? openedBy : 0)
    {}

    void notePress(UINT vk) { m_awaited = vk == m_awaited ? 0 : m_awaited; }
    /// Whether the release of a key ends the edit.
    bool endsEdit(UINT vk);

private:
    UINT m_awaited;
};

/// An edit in a box with a list.
class ListEditing
{
public:
    /// Works on two fields of the editor: its text at the start, and the key that ends the edit. `end` is its
    /// EndEdit().
    ListEditing(CComboBox_X& list, UINT openedBy, const CString_X& startText, unsigned& lastKey,
                std::function<void()> end);

    /// The box has its widget: gives it the font of its parent and the items, widens its list to them beyond `width`,
    /// and selects or types the text.
    void enter(QWidget& parent, int row, int col, const CStringArray_X& items, int width);
    /// Gives the box the focus. With a field, the key that opened it selects the text, and is typed.
    void begin(DWORD style, unsigned openedBy);
    /// A key ends the edit; Esc brings the text of the start back first.
    void endBy(UINT vk, UINT modifiers);
    /// Whether the release of a key has ended the edit.
    bool endByRelease(UINT vk, UINT modifiers);

    EditorLife life;
    ListWatch watch;
    Releases releases;

private:
    CComboBox_X& m_list;
    const CString_X& m_startText;
    unsigned& m_lastKey;
};

} // namespace xe
