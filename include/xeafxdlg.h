/// @file xeafxdlg.h
/// Dialogs and message boxes. GUI thread only.
#pragma once

#include "xeafxstr.h"
#include "xeafxwin.h"
#include "xedef.h"
#include "xeformstyle.h"

#include <QDialog>
#include <QEvent>
#include <QPointer>

#include <cstddef>

inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;
inline constexpr int IDABORT = 3;
inline constexpr int IDRETRY = 4;
inline constexpr int IDIGNORE = 5;
inline constexpr int IDYES = 6;
inline constexpr int IDNO = 7;
inline constexpr int IDCLOSE = 8;

inline constexpr UINT MB_OK = 0;
inline constexpr UINT MB_OKCANCEL = 1;
inline constexpr UINT MB_ABORTRETRYIGNORE = 2;
inline constexpr UINT MB_YESNOCANCEL = 3;
inline constexpr UINT MB_YESNO = 4;
inline constexpr UINT MB_RETRYCANCEL = 5;
inline constexpr UINT MB_CANCELTRYCONTINUE = 6;
inline constexpr UINT MB_ICONHAND = 0x10;
inline constexpr UINT MB_ICONERROR = MB_ICONHAND;
inline constexpr UINT MB_ICONSTOP = MB_ICONHAND;
inline constexpr UINT MB_ICONQUESTION = 0x20;
inline constexpr UINT MB_ICONEXCLAMATION = 0x30;
inline constexpr UINT MB_ICONWARNING = MB_ICONEXCLAMATION;
inline constexpr UINT MB_ICONASTERISK = 0x40;
inline constexpr UINT MB_ICONINFORMATION = MB_ICONASTERISK;
inline constexpr UINT MB_DEFBUTTON1 = 0;
inline constexpr UINT MB_DEFBUTTON2 = 0x100;
inline constexpr UINT MB_DEFBUTTON3 = 0x200;

/// Shows a message box over `owner` (the host's main window if null) and waits for the answer. `style` holds one of
/// MB_OK to MB_CANCELTRYCONTINUE, an icon and a default button. An empty or null caption becomes one that fits the
/// icon, in Chinese, as most buttons are, whatever the locale.
///
/// Unlike with the published function a box without an icon in `style` is a warning, and one with Yes and No has no
/// default button. The result is the id of the button, IDYES also for "continue", and IDCLOSE for a box that was closed
/// without an answer; also when the owner is deleted while the box is up, which takes the box along.
XE_EXPORT int MessageBox_X(QWidget* owner, const wchar_t* text, const wchar_t* caption, unsigned style);

/// A message box over the active window, with the caption of its icon; otherwise as MessageBox_X(). `help` is ignored.
XE_EXPORT int AfxMessageBox_X(const wchar_t* text, unsigned style = MB_OK, unsigned help = 0);
/// The same with the text of a resource id (empty for an unknown one), over the widget with the focus.
XE_EXPORT int AfxMessageBox_X(unsigned id, unsigned style = MB_OK, unsigned help = 0);

struct AFX_CMDHANDLERINFO_X;

/// The wrapper of a QDialog: a host derives a class, builds its form in SetupUI(), names controls and variables in
/// DoDataExchange(), and runs it by DoModal(), or shows it by Create() and ShowWindow().
///
/// @code
/// class CPartDialog : public CDialog_X
/// {
///     Q_OBJECT
///     DECLARE_DYNAMIC_X(CPartDialog)
/// public:
///     explicit CPartDialog(CWnd_X* parent = nullptr) : CDialog_X(IDD_PART, parent) {}
///     CString_X m_name;
/// protected:
///     void SetupUI() override { m_form.setupUi(Imp<QDialog>()); }   // a form of Qt Designer
///     void DoDataExchange(CDataExchange_X* exchange) override { DDX_Text(exchange, IDC_NAME, m_name); }
/// };
/// ...
/// CPartDialog dialog(this);
/// if (dialog.DoModal() == IDOK)
///     use(dialog.m_name);
/// @endcode
///
/// The form is the host's: unlike in the published class a template's name or id is stored and loads nothing. Buttons
/// with the object names "OK" and "Cancel" end the dialog by OnOK() and OnCancel(); the window's close button ends it
/// with OnCancel()'s result. After DoModal() the wrapper can be read and run again.
class XE_EXPORT CDialog_X : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CDialog_X)
    DECLARE_IMP_CLASS_X(QDialog)

    /// Remembers the parent for DoModal(); null stands for the host's main window. Nothing is made yet.
    explicit CDialog_X(QWidget* parent = nullptr);
    explicit CDialog_X(std::nullptr_t);
    /// Remembers the template's name as well, or the name of its id. The parent's widget is looked at now.
    explicit CDialog_X(const wchar_t* templateName, CWnd_X* parent = nullptr);
    explicit CDialog_X(unsigned templateId, CWnd_X* parent = nullptr);

    QT_WARNING_PUSH
    QT_WARNING_DISABLE_CLANG("-Woverloaded-virtual")
    QT_WARNING_DISABLE_GCC("-Woverloaded-virtual")
    /// Makes a modeless dialog, not yet shown. A null parent stands for the host's main window. 1, or 0 if OnCreate()
    /// or OnInitDialog() refuses.
    virtual int Create(unsigned templateId, CWnd_X* parent = nullptr);
    virtual int Create(const wchar_t* templateName, CWnd_X* parent = nullptr);
    QT_WARNING_POP

    /// Makes the dialog, shows it until it is ended, and destroys it. The result is IDOK or IDCANCEL, or what
    /// EndDialog() was given; 3 when the dialog could not be made. A wait cursor gives way to the arrow meanwhile.
    virtual int DoModal();

    /// Called at attachment, before the message map is filled: loads the controls by UpdateData(FALSE). A false result
    /// refuses the attachment.
    virtual BOOL OnInitDialog();
    /// Saves the controls by UpdateData(TRUE) and ends the dialog with IDOK; it stays open when that fails.
    virtual void OnOK();
    /// Ends the dialog with IDCANCEL.
    virtual void OnCancel();
    /// 0: commands are not routed.
    virtual BOOL OnCmdMsg(unsigned id, int code, void* extra, AFX_CMDHANDLERINFO_X* info);

    /// Ends the dialog; DoModal() gives `result`, but IDCANCEL for 0. Called from OnInitDialog() it keeps the dialog
    /// from being shown. Nothing without a QDialog.
    void EndDialog(int result);

    /// Makes a QDialog with this Qt parent and attaches it as an owned one.
    bool AttachDefault(QWidget* parent) override;
    /// As a window's, with OnInitDialog() between the building and the message map.
    bool OnAttach() override;
    /// Escape ends a top-level dialog by reject(); a dialog that is part of another window passes it on.
    int PreTranslateMessage(tagMSG* message) override;
    /// A key that a dialog inside another window does not take goes up to its parent.
    bool eventFilter(QObject* target, QEvent* event) override;
    /// Connects the buttons "OK" and "Cancel" as well.
    void ConnectSlotsFrom(QObject* from, bool keep) override;

public Q_SLOTS:
    /// OnOK().
    void accept();
    /// OnCancel().
    void reject();

private:
    QPointer<QWidget> m_parent;
    CString_X m_templateName;
    bool m_ended = false; // by EndDialog(), since DoModal() was called
    int m_result = 0;
};
