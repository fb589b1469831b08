/// @file xeformstyle.h
/// The Windows styles of a Qt Designer form.
///
/// The style of a form or of a control is its dynamic property "mfcStyle", a text of style names. A name counts
/// wherever it stands in the text, also inside of a longer one: "WS_MAXIMIZEBOX" holds "WS_MAXIMIZE" too,
/// "WS_CHILDWINDOW" holds "WS_CHILD" and "WS_POPUPWINDOW" holds "WS_POPUP". Case counts. In the order in which they are
/// applied:
///
/// | name in the text                         | effect on the widget                                  |
/// | ---------------------------------------- | ----------------------------------------------------- |
/// | DS_MODALFRAME                            | application-modal                                     |
/// | DS_CENTER                                | in the middle of the Qt parent's frame, or the screen |
/// | WS_DISABLED, WS_VISIBLE                  | disabled; shown                                       |
/// | WS_MAXIMIZE; WS_MINIMIZE or WS_ICONIC    | maximised; minimised                                  |
/// | WS_MAXIMIZEBOX, WS_MINIMIZEBOX           | with that button (a Qt window flag, as below)         |
/// | WS_BORDER                                | style sheet with a black border of 1 pixel            |
/// | WS_THICKFRAME or WS_SIZEBOX              | Qt::Window                                            |
/// | WS_CHILD without WS_POPUP                | Qt::SubWindow                                         |
/// | WS_DLGFRAME                              | Qt::Window                                            |
/// | WS_POPUP without WS_CHILD and WS_CAPTION | Qt::FramelessWindowHint                               |
/// | WS_POPUPWINDOW                           | Qt::Dialog with Qt::WindowSystemMenuHint              |
///
/// Any other name has no effect. A change of window flags hides a widget that is shown, as in Qt.
#pragma once

#include "xedef.h"

class QString;

/// Applies the styles of a form and of each of its direct children; deeper ones are left alone. The code of a form
/// calls it when the form is built. Nothing for null and for an empty style.
XE_EXPORT void setupStyle(QWidget* form);

/// Applies the window styles (WS_) in `style` to the widget. Nothing for null.
XE_EXPORT void setupWindowStyleData(const QString& style, QWidget* widget);

/// Applies the dialog styles (DS_) in `style` to the widget. Nothing for null.
XE_EXPORT void setupDialogStyleData(const QString& style, QWidget* widget);
