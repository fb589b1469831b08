#pragma once

#include "statusbar.h"

#include <xerangectrl.h>

/// A progress bar in the status bar, from the first call of Show() on, as long as this object lives.
///
/// Whatever waits is handled at each step, so that the windows are painted. Meanwhile the frame is disabled: what the
/// user does has to wait.
class CLoadProgress
{
public:
    CLoadProgress(CWnd_X& frame, CPartsStatusBar& statusBar) : m_frame(frame), m_statusBar(statusBar) {}
    ~CLoadProgress();
    CLoadProgress(const CLoadProgress&) = delete;
    CLoadProgress& operator=(const CLoadProgress&) = delete;

    void Show(int percent);

private:
    void Begin();

    CWnd_X& m_frame;
    CPartsStatusBar& m_statusBar;
    CProgressCtrl_X m_bar;
    QPointer<QWidget> m_focus; // what had the keyboard before
};
