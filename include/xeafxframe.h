/// @file xeafxframe.h
/// Frames. GUI thread only.
#pragma once

#include "xeafxmsg.h"
#include "xeafxwin.h"

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
