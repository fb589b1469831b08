#pragma once

class QWidget;

/// Makes a widget the host's main window: gives it the name by which the library finds it, and the functions that the
/// library calls back.
void offerHostServices(QWidget* frame);
