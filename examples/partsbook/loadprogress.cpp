#include "loadprogress.h"

void CLoadProgress::Begin()
{
    m_focus = m_frame.GetSafeHwnd()->focusWidget();
    m_frame.EnableWindow(FALSE);
    m_bar.Create(WS_CHILD | WS_VISIBLE, m_statusBar.MessageRect(), &m_statusBar);
    m_bar.SetRange(0, 100);
}

void CLoadProgress::Show(int percent)
{
    if (!m_bar.GetSafeHwnd())
        Begin();
    m_bar.SetPos(percent);
}

CLoadProgress::~CLoadProgress()
{
    if (!m_bar.GetSafeHwnd())
        return;
    m_bar.DestroyWindow();
    m_frame.EnableWindow(TRUE);
    if (m_focus)
        m_focus->setFocus();
}
