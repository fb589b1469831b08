#include "XeGridCtrl.h"

#include "grid/gridstate.h"
#include "xecolor.h"

#include <QImage>

#include <algorithm>
#include <iterator>

IMPLEMENT_DYNCREATE_X(CGridCtrl_X, CWnd_X)

BEGIN_MESSAGE_MAP_X(CGridCtrl_X, CWnd_X)
    ON_WM_PAINT_X()
    ON_WM_CREATE_X()
    ON_WM_SIZE_X()
    ON_WM_LBUTTONUP_X()
    ON_WM_LBUTTONDOWN_X()
    ON_WM_MOUSEMOVE_X()
    ON_WM_TIMER_X()
    ON_WM_KEYDOWN_X()
    ON_WM_CHAR_X()
    ON_WM_LBUTTONDBLCLK_X()
    ON_WM_ERASEBKGND_X()
    ON_WM_SYSKEYDOWN_X()
    ON_WM_RBUTTONDOWN_X()
    ON_WM_RBUTTONUP_X()
    // Without the second handler, which would set the arrow and overrule the first.
    XE_MSG_ENTRY(WM_SETCURSOR, AfxSig_b_W_uu, OnSetCursor, BOOL(QWidget*, UINT, UINT))
    ON_WM_SYSCOLORCHANGE_X()
    ON_WM_MOUSEWHEEL_X()
    ON_MESSAGE_X(WM_SETFONT, OnSetFont)
    ON_MESSAGE_X(WM_GETFONT, OnGetFont)
    ON_MESSAGE_X(XE_WM_ENDEDIT, OnEndInPlaceEdit)
    // What the grid sends itself.
    ON_WM_VSCROLL_X()
    ON_WM_HSCROLL_X()
    connectBar(SB_HORZ);
    connectBar(SB_VERT);
END_MESSAGE_MAP_X()

CGridCtrl_X::CGridCtrl_X(int nRows, int nCols, int nFixedRows, int nFixedCols)
    : CWnd_X(Control()),
      m_crTextColour(GetSysColor_X(COLOR_WINDOWTEXT)),
      m_crTextBkColour(GetSysColor_X(COLOR_WINDOW)),
      m_crBkColour(GetSysColor_X(COLOR_BTNSHADOW)),
      m_crFixedTextColour(GetSysColor_X(COLOR_WINDOWTEXT)),
      m_crFixedBkColour(GetSysColor_X(COLOR_BTNFACE)),
      m_crWindowText(GetSysColor_X(COLOR_WINDOWTEXT)),
      m_crWindowColour(GetSysColor_X(COLOR_WINDOW)),
      m_cr3DFace(GetSysColor_X(COLOR_BTNFACE)),
      m_crShadow(GetSysColor_X(COLOR_BTNSHADOW)),
      m_pRtcDefault(RUNTIME_CLASS_X(CGridCell_X)),
      m_state(std::make_unique<xe::GridState>(*this))
{
    SetRowCount(nRows);
    SetColumnCount(nCols);
    SetFixedRowCount(nFixedRows);
    SetFixedColumnCount(nFixedCols);
    m_bModified = FALSE;
}

CGridCtrl_X::~CGridCtrl_X()
{
    m_state->isDestroyed = true;
    m_idCurrentCell = CCellID_X();
    DeleteAllItems();
    if (!m_state->isPainting)
        delete m_pImage;
    m_TitleTip.DestroyWindow();
}

int CGridCtrl_X::Create(CWnd_X*, QWidget* widget, unsigned int)
{
    if (!SubclassWindow(widget))
        return 0;
    m_arRowHeights.SetSize(m_nRows);
    m_arColWidths.SetSize(m_nCols);
    std::fill_n(m_arRowHeights.GetData(), m_nRows, static_cast<unsigned>(m_nDefCellHeight));
    std::fill_n(m_arColWidths.GetData(), m_nCols, static_cast<unsigned>(m_nDefCellWidth));
    m_state->rows.reset();
    m_state->columns.reset();
    return 1;
}

int CGridCtrl_X::SubclassWindow(QWidget* widget) { return CWnd_X::SubclassWindow(widget); }

void CGridCtrl_X::PreSubclassWindow()
{
    SetupUI();
    attachTip();
}

int CGridCtrl_X::OnCreate(tagCREATESTRUCTW* createStruct)
{
    if (const int refused = CWnd_X::OnCreate(createStruct))
        return refused;
    QWidget* const widget = GetSafeHwnd();
    if (!widget)
        return 0;
    widget->setMouseTracking(true);
    widget->setAttribute(Qt::WA_OpaquePaintEvent);
    widget->setAttribute(Qt::WA_InputMethodEnabled);
    if (widget->focusPolicy() == Qt::NoFocus)
        widget->setFocusPolicy(Qt::StrongFocus);
    EnableScrollBars(SB_BOTH, TRUE);
    attachTip();
    return 0;
}

void CGridCtrl_X::attachTip()
{
    if (m_bTitleTips && !m_TitleTip.GetSafeHwnd())
        m_TitleTip.Create(this);
}

long long CGridCtrl_X::SendMessageToParent(int row, int col, int code)
{
    QWidget* const widget = GetSafeHwnd();
    const CWnd_X* const parent = widget ? FromHandlePermanent(widget->window()) : nullptr;
    if (!parent || m_state->isDestroyed)
        return 0;
    XeGridNotification record{{widget, 0, static_cast<UINT>(code)}, row, col};
    return parent->SendMessage(WM_NOTIFY, reinterpret_cast<WPARAM>(widget), reinterpret_cast<LPARAM>(&record));
}

void CGridCtrl_X::SetRedraw(int allow, int resetScrollBars)
{
    if (allow && !m_bAllowDraw)
        Invalidate();
    m_bAllowDraw = allow;
    if (resetScrollBars)
        ResetScrollBars();
}

void CGridCtrl_X::Refresh()
{
    if (GetSafeHwnd() && m_bAllowDraw)
        Invalidate();
}

void CGridCtrl_X::OnSysColorChange()
{
    const auto follow = [](COLORREF& colour, COLORREF& seen, int index) {
        if (colour == seen)
            colour = GetSysColor_X(index);
    };
    follow(m_crTextColour, m_crWindowText, COLOR_WINDOWTEXT);
    follow(m_crFixedTextColour, m_crWindowText, COLOR_WINDOWTEXT);
    follow(m_crTextBkColour, m_crWindowColour, COLOR_WINDOW);
    follow(m_crFixedBkColour, m_cr3DFace, COLOR_BTNFACE);
    follow(m_crBkColour, m_crShadow, COLOR_BTNSHADOW);
    m_crWindowText = GetSysColor_X(COLOR_WINDOWTEXT);
    m_crWindowColour = GetSysColor_X(COLOR_WINDOW);
    m_cr3DFace = GetSysColor_X(COLOR_BTNFACE);
    m_crShadow = GetSysColor_X(COLOR_BTNSHADOW);
    CWnd_X::OnSysColorChange();
}

BOOL CGridCtrl_X::OnEraseBkgnd(CDC_X*) { return FALSE; }
LRESULT CGridCtrl_X::OnSetFont(WPARAM, LPARAM) { return 0; }
LRESULT CGridCtrl_X::OnGetFont(WPARAM, LPARAM) { return 0; }
CImageList_X* CGridCtrl_X::CreateDragImage(CPoint*) { return nullptr; }

void CGridCtrl_X::SetPrintMarginInfo(int header, int footer, int left, int right, int top, int bottom, int gap)
{
    const int given[] = {header, footer, left, right, top, bottom, gap};
    for (std::size_t i = 0; i < std::size(given); ++i) {
        if (given[i] >= 0)
            m_nPrintMargins[i] = given[i];
    }
}

void CGridCtrl_X::GetPrintMarginInfo(int* header, int* footer, int* left, int* right, int* top, int* bottom,
                                     int* gap) const
{
    int* const wanted[] = {header, footer, left, right, top, bottom, gap};
    for (std::size_t i = 0; i < std::size(wanted); ++i) {
        if (wanted[i])
            *wanted[i] = m_nPrintMargins[i];
    }
}
