#pragma once

#include "messagelog.h"

#include <xeafxwin.h>
#include <xehook.h>

/// The widget of the message window. Keyboard hooks see its input because of its class name.
class CTavoView : public QWidget
{
    Q_OBJECT

public:
    explicit CTavoView(QWidget* parent);
};

/// A window of its own that shows each message it receives, what the list of parts tells the main window as well, and
/// counts the keys that a keyboard hook sees.
class CMessageView : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CMessageView)
    DECLARE_IMP_CLASS_X(CTavoView)

    /// Shows the window, which is made when there is none.
    void Open(CWnd_X* frame);
    MessageLog& Log() { return m_log; }
    int Keys() const { return m_keys; }
    /// From the keyboard hook: a key has gone down.
    void CountKey();
    /// Shows a message that another window has received, once this one has been opened.
    void Show(const MessageLine& line);

    bool AttachDefault(QWidget* parent) override;
    int OnCreate(tagCREATESTRUCTW* createStruct) override;

    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnRButtonDown(UINT flags, CPoint point);
    void OnRButtonUp(UINT flags, CPoint point);
    void OnRButtonDblClk(UINT flags, CPoint point);
    void OnMButtonDown(UINT flags, CPoint point);
    void OnMButtonUp(UINT flags, CPoint point);
    void OnMButtonDblClk(UINT flags, CPoint point);
    void OnMouseMove(UINT flags, CPoint point);
    BOOL OnMouseWheel(UINT flags, short delta, CPoint point);

    void OnKeyDown(UINT vk, UINT repeatCount, UINT modifiers);
    void OnKeyUp(UINT vk, UINT repeatCount, UINT modifiers);
    void OnChar(UINT character, UINT repeatCount, UINT modifiers);
    void OnSysKeyDown(UINT vk, UINT repeatCount, UINT modifiers);
    void OnSysKeyUp(UINT vk, UINT repeatCount, UINT modifiers);
    void OnSysChar(UINT character, UINT repeatCount, UINT modifiers);

    void OnTimer(UINT_PTR id);
    void OnSize(UINT type, int width, int height);
    void OnPaint();
    void OnDestroy();

    DECLARE_MESSAGE_MAP_X()

private:
    void report(const MessageLine& line);

    MessageLog m_log;
    HHOOK m_hook = nullptr;
    int m_keys = 0;
};
