/// @file xeafxmenu.h
/// Menus. GUI thread only.
#pragma once

#include "xeafx.h"

#include <QMenu>

/// The wrapper of a QMenu, which is what a menu handle is here. CWnd_X::SetMenu() puts it into a window's menu bar.
///
///     CMenu_X file(mainWindow);
///     file.Imp<QMenu>()->setTitle("File");
///     file.Imp<QMenu>()->addAction(&open);
///     window.SetMenu(&file);
///
/// Its items are the QMenu's actions: it has no functions for them.
class XE_EXPORT CMenu_X : public CObject_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CMenu_X)
    DECLARE_IMP_CLASS_X(QMenu)

    /// With a parent the menu is made at once, by AttachDefault(); without one there is none yet.
    explicit CMenu_X(QWidget* parent = nullptr);

    QT_WARNING_PUSH
    QT_WARNING_DISABLE_CLANG("-Woverloaded-virtual")
    /// Makes a QMenu with this Qt parent and attaches it as an owned one.
    virtual bool AttachDefault(QWidget* parent);
    QT_WARNING_POP

    /// Deletes the temporary wrappers of the handle map of menus (CHandleMap_X::DeleteTemp).
    static void DeleteTempMap();
};
