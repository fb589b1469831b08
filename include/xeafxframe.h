/// @file xeafxframe.h
/// Frames and splitters. GUI thread only.
#pragma once

#include "xeafxmsg.h"
#include "xeafxwin.h"

#include <QSplitter>

/// A window that hosts know as a frame.
///
/// It has nothing that a window has not: unlike the published frame it knows no documents, loads no menu, docks no bars
/// and has no title of its own. The application's main window does that, a plain widget (xehost.h).
class XE_EXPORT CFrameWnd_X : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CFrameWnd_X)

    using CWnd_X::Create;
    /// Makes the window as CWnd_X::Create(style, rect, parent) does, for a parent without a widget as a child of the
    /// host's main window. `className`, `title` and what follows `parent` are not looked at. 0 for a null parent, and
    /// when the attachment fails, otherwise 1. An override repeats the ellipsis.
    virtual int Create(const wchar_t* className, const wchar_t* title, unsigned style, const tagRECT& rect,
                       CWnd_X* parent, ...);
};

/// A small frame. Unlike the published one it is a child widget, without a caption, and no tool window.
class XE_EXPORT CMiniFrameWnd_X : public CFrameWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CMiniFrameWnd_X)

    using CFrameWnd_X::Create;
    /// CreateEx() with an extended style of 0: in a visible parent the frame is hidden until ShowWindow(), whatever
    /// `style` says.
    int Create(const wchar_t* className, const wchar_t* title, unsigned style, const tagRECT& rect, CWnd_X* parent,
               ...) override;
    /// As CFrameWnd_X::Create(), but the extended style stands in the place of the style, and `style` is not looked at.
    int CreateEx(unsigned exStyle, const wchar_t* className, const wchar_t* title, unsigned style, const tagRECT& rect,
                 CWnd_X* parent, ...);
};

/// A mini frame under the name of one that docks; it does not.
class XE_EXPORT CMiniDockFrameWnd_X : public CMiniFrameWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CMiniDockFrameWnd_X)
};

/// The wrapper of a QSplitter: panes beside each other, with dividers that the user drags.
///
/// @code
/// m_splitter.CreateStatic(this, 1, 2);
/// m_splitter.CreateView(0, 0, &m_tree);
/// m_splitter.CreateView(0, 1, &m_list);
/// m_splitter.SetColumnInfo(0, 120, 50);
/// m_splitter.MoveWindow(CRect(0, 0, 600, 400));
/// m_splitter.ShowWindow(SW_SHOW);
/// @endcode
///
/// There are columns and no rows, unlike in the published class. Every child widget of a QSplitter becomes a column, so
/// the window has no menu bar (SetMenu() gives 0) and no scroll bars, whatever its style says. The views' widgets are
/// the splitter's Qt children and go with it; the wrappers stay their owners'.
///
/// CSplitterWndEx_X sees its dividers being dragged.
class XE_EXPORT CSplitterWnd_X : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CSplitterWnd_X)
    DECLARE_IMP_CLASS_X(QSplitter)

    /// The width of a column and its least one, in pixels. Both stay as they are without the column.
    void GetColumnInfo(int column, int& current, int& minimum) const;
    /// Gives a column this width and this least one; negative ones count as 0, and nothing happens without the column.
    /// Unlike in the published class the user cannot drag the column any wider from then on.
    void SetColumnInfo(int column, int ideal, int minimum);

    /// The wrapper, made by FromHandle(), of the pane in a column; null if there is none, and for another row than 0.
    CWnd_X* GetPane(int row, int column) const;

    /// Makes a QSplitter with this Qt parent and attaches it as an owned one.
    bool AttachDefault(QWidget* parent) override;

    /// Makes the splitter as a child of `parent`, in a visible one hidden until ShowWindow(); its size is the host's to
    /// give. 0 when a number is below 1, the parent null, or the attachment fails, otherwise 1. `rows` is not kept:
    /// there is one row.
    virtual int CreateStatic(CWnd_X* parent, int rows, int columns);
    /// Puts a view into a column, as a child of the splitter, and moves what stands there and behind it to the right.
    /// A column past the last pane is the one behind it. A view without a widget is made by its Create(QWidget*); a
    /// dialog becomes a part of the splitter. 1; 0 for a row other than 0, a column that CreateStatic() was not told
    /// of, a null view, one that cannot be made, and one that is or contains the splitter.
    virtual int CreateView(int row, int column, CWnd_X* view);

    int m_nRows = 1; ///< stays 1
    int m_nCols = 1; ///< the columns that CreateStatic() was told of, however many panes there are
};

/// A splitter that sees its dividers being dragged: each move of the mouse with the left button down on a divider comes
/// to the splitter's message map as WM_MOUSEMOVE first, in the splitter's coordinates. A handler that does not pass it
/// on to its base keeps the divider where it is:
///
/// @code
/// void CTreeSplitter::OnMouseMove(UINT flags, CPoint point) // entered by ON_WM_MOUSEMOVE_X()
/// {
///     if (point.x >= m_nXMin && point.x <= m_nXMax)
///         CSplitterWndEx_X::OnMouseMove(flags, point);
/// }
/// @endcode
///
/// That is for a QSplitter with opaque resizing, the usual one; without it the end of a drag moves the divider unseen.
class XE_EXPORT CSplitterWndEx_X : public CSplitterWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CSplitterWndEx_X)

    /// Sets `m_nXMax` and `m_nXMin`.
    void SetXMax(int x) { m_nXMax = x; }
    void SetXMIn(int x) { m_nXMin = x; }

    bool eventFilter(QObject* target, QEvent* event) override;
    bool OnAttach() override;
    /// Enters OnMouseMove().
    void OnMessageMap() override;

    /// Passes the move on.
    void OnMouseMove(UINT flags, CPoint point);

    // Limits for a host's own OnMouseMove(), in pixels. The library does not look at them.

    int m_nXMax = 500;
    int m_nXMin = 50;

private:
    bool keepsDivider(const QSplitterHandle& divider, QMouseEvent& move);
};
