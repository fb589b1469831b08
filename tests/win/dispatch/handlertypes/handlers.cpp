// A window whose message map names handlers of other types than the entries ask for. Only check-handler-types compiles
// this, once with each of the macros below as the entry; without one it stands for a map that is right.

#include <xeafxwin.h>

class CRightView : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CRightView)

public:
    void OnLButtonDown(UINT flags, CPoint point);
    void OnPaint();
    void OnSetFocus(QWidget* other);
    LRESULT OnPartChanged(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP_X()
};

class CWrongView : public CWnd_X
{
    Q_OBJECT

public:
    void OnLButtonDown(UINT flags, int point);
    void OnLButtonUp(UINT flags, const CPoint& point);
    int OnPaint();
    void OnClose() const;
    static void OnFontChange();
    void OnSetFocus(CWnd_X* other);
    BOOL OnMouseWheel(UINT flags, int delta, CPoint point);
    int OnPartChanged(int wParam, int lParam);
    LRESULT OnPartRemoved(WPARAM wParam);
    DECLARE_MESSAGE_MAP_X()
};

#ifdef WRONG_ENTRY
BEGIN_MESSAGE_MAP_X(CWrongView, CWnd_X)
    WRONG_ENTRY
END_MESSAGE_MAP_X()
#else
BEGIN_MESSAGE_MAP_X(CRightView, CWnd_X)
    ON_WM_LBUTTONDOWN_X()
    ON_WM_LBUTTONUP_X() // the inherited handler
    ON_WM_PAINT_X()
    ON_WM_SETFOCUS_X()
    ON_MESSAGE_X(WM_USER + 1, OnPartChanged)
END_MESSAGE_MAP_X()
#endif
