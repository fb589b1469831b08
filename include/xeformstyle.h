/// @file xeformstyle.h
/// The Windows styles of a Qt Designer form.
#pragma once

#include "xedef.h"

class QString;

/// Applies the Windows style of a form, and of each of its direct children, after the form is built: generated form code
/// calls it. The style is the dynamic property "mfcStyle", a text of style names.
XE_EXPORT void setupStyle(QWidget* form);

/// Applies the window styles (WS_) in `style`. The names are looked for as parts of the text: "WS_MAXIMIZEBOX" counts as
/// "WS_MAXIMIZE" too, "WS_CHILDWINDOW" as "WS_CHILD" and "WS_POPUPWINDOW" as "WS_POPUP"; forms rely on it.
XE_EXPORT void setupWindowStyleData(const QString& style, QWidget* widget);

/// Applies the dialog styles in `style`: "DS_MODALFRAME" makes the window application-modal, "DS_CENTER" moves it to the
/// centre of its Qt parent or of the screen.
XE_EXPORT void setupDialogStyleData(const QString& style, QWidget* widget);
