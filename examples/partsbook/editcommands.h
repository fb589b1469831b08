#pragma once

class CWnd_X;
class QObject;

/// The commands of the Edit menu work on what has the keyboard in a frame: a grid, by the grid's own handlers, or a
/// text field. They have no shortcuts: both know the keys that stand beside them in the menu.

/// Enables the commands that can do anything now.
void updateEditCommands(const CWnd_X& frame);
/// Carries out the command of an action.
void runEditCommand(const CWnd_X& frame, const QObject* action);
