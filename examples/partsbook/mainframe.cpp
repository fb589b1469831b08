#include "mainframe.h"

#include "messagelog.h"
#include "text.h"

#include <QLabel>
#include <QStatusBar>
#include <xeprocess.h>

namespace {

// -------------------------------------------------------------------------------- what the library asks its host for

bool isCommandActive() { return false; }

// The cursor types of the library; every other code is the arrow.
constexpr struct
{
    int code;
    Qt::CursorShape shape;
} cursors[]{
    {257, Qt::IBeamCursor},     {258, Qt::CrossCursor},   {259, Qt::WaitCursor},
    {260, Qt::SizeVerCursor},   {261, Qt::SizeHorCursor}, {262, Qt::SizeBDiagCursor},
    {263, Qt::SizeFDiagCursor}, {264, Qt::SizeAllCursor}, {268, Qt::PointingHandCursor},
};

Qt::CursorShape cursorShape(int code)
{
    for (const auto& cursor : cursors) {
        if (cursor.code == code)
            return cursor.shape;
    }
    return Qt::ArrowCursor;
}

// Gives back the code that the library is to remember.
int setHostCursor(QWidget*, int code)
{
    if (QWidget* frame = TavoGetMainFrame())
        frame->setCursor(cursorShape(code));
    return code;
}

template <class Function>
qlonglong address(Function* function)
{
    return static_cast<qlonglong>(reinterpret_cast<quintptr>(function));
}

// ------------------------------------------------------------------------------------------------- the keyboard hook

long long keyboardHook(int code, unsigned long vk, long long lParam)
{
    const bool released = lParam & 0x80000000;
    auto* frame = qobject_cast<CMainFrame*>(CWnd_X::FromHandlePermanent(TavoGetMainFrame()));
    if (frame && !released)
        frame->CountKey(static_cast<UINT>(vk));
    return CallNextHookEx_X(nullptr, code, vk, lParam);
}

} // namespace

// --------------------------------------------------------------------------------------------------- the main window

CTavoMainFrame::CTavoMainFrame(QWidget* parent) : QMainWindow(parent)
{
    setObjectName("CTavoMainFrame");
    setProperty("IsTavoCmdActive", address(isCommandActive));
    setProperty("TavoSetCursor", address(setHostCursor));
    setWindowTitle(XeQString(loadText(IDS_TITLE)));
    resize(1000, 640);
}

IMPLEMENT_DYNAMIC_X(CMainFrame, CWnd_X)

BEGIN_MESSAGE_MAP_X(CMainFrame, CWnd_X)
    ON_WM_CLOSE_X()
    ON_WM_DESTROY_X()
END_MESSAGE_MAP_X()

CMainFrame::CMainFrame(MessageLog& log) : m_view(log) {}

bool CMainFrame::AttachDefault(QWidget* parent) { return Attach(new CTavoMainFrame(parent), parent, false); }

int CMainFrame::OnCreate(tagCREATESTRUCTW* createStruct)
{
    auto* const window = Imp<CTavoMainFrame>();
    if (CWnd_X::OnCreate(createStruct) || !m_view.Create(window))
        return -1;
    window->setCentralWidget(m_view.GetSafeHwnd());
    m_view.GetSafeHwnd()->setFocus();

    m_status = new QLabel(XeQString(loadText(IDS_NO_KEYS)));
    m_status->setContentsMargins(10, 0, 0, 0);
    window->statusBar()->addWidget(m_status);
    m_hook = SetWindowsHookEx_X(WH_KEYBOARD, keyboardHook);
    return 0;
}

void CMainFrame::CountKey(UINT vk)
{
    m_status->setText(XeQString(formatText(loadText(IDS_KEYS), ++m_keys, CString_X(keyText(vk)))));
}

void CMainFrame::OnClose() { DestroyWindow(); }

void CMainFrame::OnDestroy()
{
    UnhookWindowsHookEx_X(m_hook);
    CWnd_X::OnDestroy();
}
