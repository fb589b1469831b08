// What the editors of cells have in common: which cell they belong to, how they end, and which events they keep.
#pragma once

#include "XeGridCtrl.h"
#include "xeafxarray.h"

#include <QPointer>

#include <functional>

class CComboBox_X;
class QFocusEvent;
class QKeyEvent;
class QLineEdit;

namespace xe {

class EditorLife
{
public:
    using BaseFilter = std::function<bool(QObject*, QEvent*)>;

    /// `end` is the editor's EndEdit().
    EditorLife(CWnd_X& editor, std::function<void()> end);
    ~EditorLife();
    Q_DISABLE_COPY_MOVE(EditorLife)

    // ---- How it begins.

    /// The editor has its window: finds the cell, and sees to it that the editor goes with its widget.
    void enter(QWidget& parent, int row, int col);
    /// The constructor is over: from now on the editor may be deleted.
    void setBuilt() { m_isBuilt = true; }

    // ---- How it ends.

    bool isBuilt() const { return m_isBuilt; }
    bool isEnding() const { return m_isEnding; }
    bool isOf(const CWnd_X& editor) const { return &m_editor == &editor; }
    bool isOf(const CGridCellBase_X* cell) const { return m_cell == cell; }
    CWnd_X& editor() const { return m_editor; }
    void end();
    /// The body of EndEdit(): reports, gives the focus back, hides, goes later.
    void report(int row, int col, const CString_X& text, unsigned lastKey);
    /// A key ends the edit: the grid gets the focus, which does it, and if not, whatever is needed.
    void endByKey(UINT modifiers);
    /// A loss of the focus could not be heeded because another editor was ending: looks again later.
    void catchUp();
    /// Deletes an editor whose cell or grid goes. It reports nothing.
    static void dismiss(CWnd_X& editor);
    /// Makes the cell forget the editor, if it has not been told.
    void releaseCell();

    /// MK_ flags of the key that has ended the edit that reports to this grid at the moment; 0 without one.
    static UINT endingModifiers();
    /// releaseCell() of that editor.
    static void releaseEndingCell();

    // ---- What it hears.

    bool filter(QObject* target, QEvent* event, const BaseFilter& base);
    /// Whether Ctrl is down: as the message says, and, outside a real key event, as the keyboard says.
    bool isControlHeld(UINT modifiers) const;

private:
    struct Ending;

    bool loseFocus(QObject& target, QFocusEvent& event, const BaseFilter& base);
    bool filterKey(QObject& target, QKeyEvent& event, const BaseFilter& base);
    void leaveGrid();
    void killFocus(QWidget* other);

    CWnd_X& m_editor;
    const std::function<void()> m_end;
    QPointer<CGridCtrl_X> m_grid;
    QPointer<CGridCellBase_X> m_cell;
    UINT m_endModifiers = 0;
    bool m_isBuilt = false;
    bool m_isEnding = false;
    bool m_isMovingFocus = false;
    bool m_hasRealKey = false;
};

/// Arrow and page keys, which take an edit to another cell.
bool isWayOut(UINT vk);

/// What a new editor selects, by the key that opened it, and whether that key is typed then.
struct Opening
{
    bool selectsAll;
    bool types;
};
/// Selects, and types `ch` into the field, which may be null; `editor` is the window that it is sent to.
void open(CWnd_X& editor, QLineEdit* field, unsigned ch, Opening opening);

/// Whether a widget is the other itself or a part of it, its list too.
bool isPartOf(const QWidget* widget, const QWidget* whole);

/// What a cell does with the editor that it has just made: true if it is to keep it. An editor is no use, and gone, if
/// its window could not be made or the cell has not outlived the opening; what ended meanwhile goes by itself.
bool mayKeep(CWnd_X& editor, const CGridCellBase_X* cell);

} // namespace xe
