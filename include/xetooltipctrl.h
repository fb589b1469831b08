/// @file xetooltipctrl.h
/// The tool tip control.
#pragma once

#include "xeafxmap.h"
#include "xeafxwin.h"

#include <memory>

namespace xe {
struct TipTool;
class TipTools;
} // namespace xe

// ------------------------------------------------------------------------------------------------- numbers and records

inline constexpr UINT TTF_IDISHWND = 0x1;
inline constexpr UINT TTF_SUBCLASS = 0x10;
inline constexpr DWORD TTS_ALWAYSTIP = 0x1;
inline constexpr DWORD TTS_NOPREFIX = 0x2;
inline constexpr DWORD TTS_BALLOON = 0x40;
inline constexpr UINT TTDT_AUTOMATIC = 0;
inline constexpr UINT TTDT_RESHOW = 1;
inline constexpr UINT TTDT_AUTOPOP = 2;
inline constexpr UINT TTDT_INITIAL = 3;

/// A tool: a widget with a tip.
struct tagTOOLINFOW
{
    UINT cbSize; ///< 8
    UINT uFlags;
    HWND hwnd;    ///< the widget
    UINT_PTR uId; ///< what AddTool() was given
    RECT rect;
    HINSTANCE hinst;
    LPWSTR lpszText; ///< the host's text, which is not copied
    LPARAM lParam;
};

struct _TTGETTITLE
{
    DWORD dwSize;
    UINT uTitleBitmap;
    UINT cch;
    LPWSTR pszTitle;
};

using TOOLINFO = tagTOOLINFOW;
using LPTOOLINFO = tagTOOLINFOW*;
using TTGETTITLE = _TTGETTITLE;
using PTTGETTITLE = _TTGETTITLE*;

/// A tool as CToolTipCtrl_X::GetToolInfo() tells it.
class CToolInfo_X : public tagTOOLINFOW
{
public:
    wchar_t szText[256]; ///< the host's: the library does not write it
};

// ------------------------------------------------------------------------------------------------------------ the tips

/// The tips of a window's controls, which Qt shows: a tip becomes the QWidget::toolTip() of its widget when a message
/// of the widget is relayed.
///
///     class CPlanDialog : public CDialog_X
///     {
///         CToolTipCtrl_X m_tips;
///
///         int OnInitDialog() override
///         {
///             m_tips.Create(this);
///             m_tips.AddTool(GetChildWidget("IDC_SCALE"), L"Units of the drawing in one of the paper");
///             m_tips.Activate(TRUE);
///             return CDialog_X::OnInitDialog();
///         }
///         int PreTranslateMessage(tagMSG* message) override
///         {
///             m_tips.RelayEvent(message);
///             return CDialog_X::PreTranslateMessage(message);
///         }
///     };
///
/// AddTool() has the owner's PreTranslateMessage() see the messages of the tool's widget: nothing else of the owner is
/// called for them.
///
/// **The text of a tool is not copied.** It must live as long as the tool, in a string literal or a member. A text is
/// the key of its tool: a tool of the same text takes the place of the one before. A tool goes when its widget does.
///
/// The control sends no notification, and it has a hidden widget of no use. Null widgets and null records give the
/// value for failure. Times are one number for all kinds of delays, and Qt goes by its own.
class XE_EXPORT CToolTipCtrl_X : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CToolTipCtrl_X)

    CToolTipCtrl_X();
    /// The tools go. Widgets keep the tips that they show.
    ~CToolTipCtrl_X() override;

    using CWnd_X::Create;
    /// Makes the control for the controls of `parent`, its owner, and enters it in the control that all share, under
    /// the object name of the owner's widget. 0 for an owner without a widget and for null, otherwise 1. The base's
    /// forms of the name make the widget alone.
    virtual BOOL Create(CWnd_X* parent, DWORD style = 0);
    /// The same. `exStyle` is ignored.
    virtual BOOL CreateEx(CWnd_X* parent, DWORD style = 0, DWORD exStyle = 0);

    // ----------------------------------------------------------------------------------------------------------- tools

    /// Gives a widget a tip. `rect` may be null; `id` is only kept. 1; 0 for a null text too.
    BOOL AddTool(QWidget* widget, const wchar_t* text, const tagRECT* rect = nullptr, UINT_PTR id = 0);
    /// Does nothing and gives 0: load the text first.
    BOOL AddTool(QWidget* widget, UINT textId, const tagRECT* rect = nullptr, UINT_PTR id = 0);
    template <class Window, xe::detail::IfWindow<Window> = 0>
    BOOL AddTool(const Window* window, const wchar_t* text, const tagRECT* rect = nullptr, UINT_PTR id = 0)
    {
        return AddTool(window ? window->GetSafeHwnd() : nullptr, text, rect, id);
    }
    /// Takes the first tool of a widget away, and its tip from the widget. In this and what follows a widget's first
    /// tool counts, whatever the id.
    void DelTool(QWidget* widget, UINT_PTR id = 0);
    template <class Window, xe::detail::IfWindow<Window> = 0>
    void DelTool(const Window* window, UINT_PTR id = 0)
    {
        DelTool(window ? window->GetSafeHwnd() : nullptr, id);
    }
    /// Copies the tool of a widget. Whether there is one.
    BOOL GetToolInfo(CToolInfo_X& info, QWidget* widget, UINT_PTR id = 0) const;
    /// Fills in the tip of a widget; the empty text if there is none.
    void GetText(CString_X& text, QWidget* widget, UINT_PTR id = 0) const;
    /// Change nothing, unlike the published functions: delete the tool and add it anew.
    void SetToolInfo(tagTOOLINFOW* info);
    void SetToolRect(QWidget* widget, UINT_PTR id, const tagRECT* rect);
    void UpdateTipText(const wchar_t* text, QWidget* widget, UINT_PTR id = 0);
    void UpdateTipText(UINT textId, QWidget* widget, UINT_PTR id = 0);
    int GetToolCount() const;
    /// The tool of the last message relayed, into the record unless that is null. Whether there is one.
    BOOL GetCurrentTool(tagTOOLINFOW* info) const;
    /// The size of the rectangle of the tool of the record's widget; (0, 0) without one.
    CSize GetBubbleSize(tagTOOLINFOW* info) const;
    /// Whether the widget has a tool and the point, in the widget's coordinates, lies in the widget. The tool goes into
    /// the record then, unless that is null.
    BOOL HitTest(QWidget* widget, CPoint point, tagTOOLINFOW* info) const;

    // ------------------------------------------------------------------------------------------------------- behaviour

    /// Without this RelayEvent() shows no tip. With 0 widgets lose the tips that they have from here.
    void Activate(BOOL activate);
    /// To be called by the owner's PreTranslateMessage(). For moves and clicks of mouse buttons over a widget with a
    /// tool it gives the widget the tip, and the message's time as the tip's duration in milliseconds. That is a time
    /// since the epoch: a tip stays until the mouse goes. Inactive, it hides whatever tip is on the screen.
    void RelayEvent(tagMSG* message);
    /// Shows the tip of the last message relayed at once, in black on white, which becomes the look of all tips.
    void Update();
    /// Hides the tip that is on the screen, whosever it is.
    void Pop();
    /// In milliseconds; the kind is ignored.
    int GetDelayTime(UINT kind) const;
    void SetDelayTime(UINT kind, int milliseconds);
    void SetDelayTime(UINT milliseconds);
    /// The colours of all tips of the program, unlike by the published functions.
    COLORREF GetTipBkColor() const;
    COLORREF GetTipTextColor() const;
    void SetTipBkColor(COLORREF color);
    void SetTipTextColor(COLORREF color);

    // ------------------------------------------------------------------------------------------------- without effect

    void GetMargin(tagRECT* margin) const;
    void SetMargin(const tagRECT* margin);
    void Popup();
    void GetTitle(_TTGETTITLE* title) const;
    /// 0.
    BOOL AdjustRect(tagRECT* rect, BOOL larger = TRUE);
    BOOL SetTitle(UINT icon, const wchar_t* title);
    /// -1.
    int GetMaxTipWidth() const;
    int SetMaxTipWidth(int width);
    HRESULT SetWindowTheme(const wchar_t* name);

    /// Ends the widget and deletes this object, which must be on the heap: what becomes of the control that all share
    /// at the end of the program.
    virtual void DestroyToolTipCtrl();

    CMapStringToPtr_X tools{10}; ///< texts to tagTOOLINFOW*, which belong to the control: for reading
    BYTE active = 0;             ///< what Activate() has set
    int delayTime = 1000;        ///< in milliseconds
    tagMSG lastMessage{};        ///< the last one of a widget with a tool
    DWORD style = 0;             ///< what Create() was given
    CWnd_X* owner = nullptr;     ///< likewise; null when it has gone

private:
    void setOwner(CWnd_X* window);
    void enterShared(QWidget& window);
    void leaveShared();
    BOOL tell(const xe::TipTool* tool, tagTOOLINFOW* info) const;
    void removeTool(xe::TipTool& tool);
    void forgetWidget(const QObject* widget);
    void watchMessages(QWidget& widget);
    void unwatchMessages(QWidget& widget);
    bool isOwners(const QWidget& widget) const;

    const std::unique_ptr<xe::TipTools> m_tools;
    std::unique_ptr<tagTOOLINFOW> m_sharedRecord; // in the shared control, under this name:
    CString_X m_sharedName;
    QMetaObject::Connection m_ownerGone;
    QMetaObject::Connection m_windowGone;
    CToolTipCtrl_X* m_nextControl = nullptr; // of all there are
};
