#pragma once

#include "partspainter.h"

#include <xeafxwin.h>

class MessageLog;
struct MessageLine;

/// The widget of the view. Keyboard hooks see its input because of its class name.
class CTavoView : public QWidget
{
    Q_OBJECT

public:
    explicit CTavoView(QWidget* parent);
};

/// The view: a drawing surface on the left, and on the right each message that it has received.
class CPartsView : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CPartsView)
    DECLARE_IMP_CLASS_X(CTavoView)

    explicit CPartsView(MessageLog& log);

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

    DECLARE_MESSAGE_MAP_X()

private:
    QRect surface() const;
    void placeMarker(CPoint point, const QColor& colour);
    void report(const MessageLine& line);

    MessageLog& m_log;
    Marker m_marker;
};
