/// @file xeafxdlgs.h
/// The common dialogs: files, colour, printing, folders. GUI thread only.
///
/// They are Qt's own dialogs, never those of the desktop, so they look and answer alike everywhere. The texts that the
/// library sets are Chinese, whatever the locale; Qt's own questions (may the file be replaced, a file is not there)
/// stay in the application's Qt language. A dialog's accessors answer for the last run that was accepted: before it,
/// and after runs that were all cancelled, they give an empty text or 0.
#pragma once

#include "xeafxdlg.h"
#include "xeafxplex.h"
#include "xeafxstr.h"
#include "xecolor.h"
#include "xedef.h"

#include <QColorDialog>
#include <QFileDialog>
#include <QPrintDialog>
#include <QStringList>

#include <memory>

class QModelIndex;
class QPrinter;

// ------------------------------------------------------------------------------------------------------------- numbers

// For CFileDialog_X, which goes by OFN_ALLOWMULTISELECT alone.
inline constexpr DWORD OFN_READONLY = 0x00000001;
inline constexpr DWORD OFN_OVERWRITEPROMPT = 0x00000002;
inline constexpr DWORD OFN_HIDEREADONLY = 0x00000004;
inline constexpr DWORD OFN_NOCHANGEDIR = 0x00000008;
inline constexpr DWORD OFN_SHOWHELP = 0x00000010;
inline constexpr DWORD OFN_ENABLEHOOK = 0x00000020;
inline constexpr DWORD OFN_ENABLETEMPLATE = 0x00000040;
inline constexpr DWORD OFN_ENABLETEMPLATEHANDLE = 0x00000080;
inline constexpr DWORD OFN_NOVALIDATE = 0x00000100;
inline constexpr DWORD OFN_ALLOWMULTISELECT = 0x00000200;
inline constexpr DWORD OFN_EXTENSIONDIFFERENT = 0x00000400;
inline constexpr DWORD OFN_PATHMUSTEXIST = 0x00000800;
inline constexpr DWORD OFN_FILEMUSTEXIST = 0x00001000;
inline constexpr DWORD OFN_CREATEPROMPT = 0x00002000;
inline constexpr DWORD OFN_SHAREAWARE = 0x00004000;
inline constexpr DWORD OFN_NOREADONLYRETURN = 0x00008000;
inline constexpr DWORD OFN_NOTESTFILECREATE = 0x00010000;
inline constexpr DWORD OFN_NONETWORKBUTTON = 0x00020000;
inline constexpr DWORD OFN_NOLONGNAMES = 0x00040000;
inline constexpr DWORD OFN_EXPLORER = 0x00080000;
inline constexpr DWORD OFN_NODEREFERENCELINKS = 0x00100000;
inline constexpr DWORD OFN_LONGNAMES = 0x00200000;
inline constexpr DWORD OFN_ENABLEINCLUDENOTIFY = 0x00400000;
inline constexpr DWORD OFN_ENABLESIZING = 0x00800000;
inline constexpr DWORD OFN_DONTADDTORECENT = 0x02000000;
inline constexpr DWORD OFN_FORCESHOWHIDDEN = 0x10000000;

// For CColorDialog_X, which stores them.
inline constexpr DWORD CC_RGBINIT = 0x0001;
inline constexpr DWORD CC_FULLOPEN = 0x0002;
inline constexpr DWORD CC_PREVENTFULLOPEN = 0x0004;
inline constexpr DWORD CC_SHOWHELP = 0x0008;
inline constexpr DWORD CC_ENABLEHOOK = 0x0010;
inline constexpr DWORD CC_ENABLETEMPLATE = 0x0020;
inline constexpr DWORD CC_ENABLETEMPLATEHANDLE = 0x0040;
inline constexpr DWORD CC_SOLIDCOLOR = 0x0080;
inline constexpr DWORD CC_ANYCOLOR = 0x0100;

// For CPrintDialog_X, which goes by PD_PRINTSETUP alone.
inline constexpr DWORD PD_ALLPAGES = 0x00000000;
inline constexpr DWORD PD_SELECTION = 0x00000001;
inline constexpr DWORD PD_PAGENUMS = 0x00000002;
inline constexpr DWORD PD_NOSELECTION = 0x00000004;
inline constexpr DWORD PD_NOPAGENUMS = 0x00000008;
inline constexpr DWORD PD_COLLATE = 0x00000010;
inline constexpr DWORD PD_PRINTTOFILE = 0x00000020;
inline constexpr DWORD PD_PRINTSETUP = 0x00000040;
inline constexpr DWORD PD_NOWARNING = 0x00000080;
inline constexpr DWORD PD_RETURNDC = 0x00000100;
inline constexpr DWORD PD_RETURNIC = 0x00000200;
inline constexpr DWORD PD_RETURNDEFAULT = 0x00000400;
inline constexpr DWORD PD_SHOWHELP = 0x00000800;
inline constexpr DWORD PD_ENABLEPRINTHOOK = 0x00001000;
inline constexpr DWORD PD_ENABLESETUPHOOK = 0x00002000;
inline constexpr DWORD PD_ENABLEPRINTTEMPLATE = 0x00004000;
inline constexpr DWORD PD_ENABLESETUPTEMPLATE = 0x00008000;
inline constexpr DWORD PD_ENABLEPRINTTEMPLATEHANDLE = 0x00010000;
inline constexpr DWORD PD_ENABLESETUPTEMPLATEHANDLE = 0x00020000;
inline constexpr DWORD PD_USEDEVMODECOPIES = 0x00040000;
inline constexpr DWORD PD_USEDEVMODECOPIESANDCOLLATE = PD_USEDEVMODECOPIES;
inline constexpr DWORD PD_DISABLEPRINTTOFILE = 0x00080000;
inline constexpr DWORD PD_HIDEPRINTTOFILE = 0x00100000;
inline constexpr DWORD PD_NONETWORKBUTTON = 0x00200000;
inline constexpr DWORD PD_CURRENTPAGE = 0x00400000;
inline constexpr DWORD PD_NOCURRENTPAGE = 0x00800000;

// ------------------------------------------------------------------------------------------------------------- records

using LPPRINTHOOKPROC = UINT_PTR (*)(HWND, UINT, WPARAM, LPARAM);
using LPSETUPHOOKPROC = UINT_PTR (*)(HWND, UINT, WPARAM, LPARAM);

/// What CPrintDialog_X keeps of its making. Of the published fields the library fills in `lStructSize` and `Flags`, and
/// reads `Flags`; the others are the host's.
struct tagPDW
{
    DWORD lStructSize;
    HWND hwndOwner;
    void* hDevMode;
    void* hDevNames;
    HDC hDC;
    DWORD Flags;
    WORD nFromPage;
    WORD nToPage;
    WORD nMinPage;
    WORD nMaxPage;
    WORD nCopies;
    HINSTANCE hInstance;
    LPARAM lCustData;
    LPPRINTHOOKPROC lpfnPrintHook;
    LPSETUPHOOKPROC lpfnSetupHook;
    LPCWSTR lpPrintTemplateName;
    LPCWSTR lpSetupTemplateName;
    void* hPrintTemplate;
    void* hSetupTemplate;
};
static_assert(sizeof(tagPDW) == 120, "the layout is the published one");

using PRINTDLG = tagPDW;
using PRINTDLGW = tagPDW;
using LPPRINTDLG = tagPDW*;
using LPPRINTDLGW = tagPDW*;

// --------------------------------------------------------------------------------------------------------- common base

/// The base of the common dialogs: a dialog without anything of its own.
class XE_EXPORT CCommonDialog_X : public CDialog_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CCommonDialog_X)

    /// Remembers the parent for DoModal(); null stands for the host's main window.
    explicit CCommonDialog_X(QWidget* parent = nullptr);
    template <class Window, xe::detail::IfWindow<Window> = 0>
    explicit CCommonDialog_X(const Window* parent) : CCommonDialog_X(widgetOf(parent))
    {}

protected:
    static QWidget* widgetOf(const CWnd_X* window) { return window ? window->GetSafeHwnd() : nullptr; }
};

// --------------------------------------------------------------------------------------------------------------- files

/// Asks for a file to open or to save, or with OFN_ALLOWMULTISELECT for several to open. The wrapper of a QFileDialog.
///
/// @code
/// CFileDialog_X dialog(TRUE, L"csv", nullptr, OFN_HIDEREADONLY, L"CSV (*.csv)|*.csv|All (*.*)|*.*||", this);
/// if (dialog.DoModal() == IDOK)
///     load(dialog.GetPathName());
/// @endcode
///
/// A filter is text of pairs, each a label and its patterns, with "|" behind each. Unlike with the published class the
/// patterns are those in the brackets at the end of the label, divided by ";" or blanks, and what stands between the
/// labels is dropped; a label that does not end in ")" is dropped too. "*.*" shows every file. When the user chooses
/// another type in a save dialog, the suffix of the name becomes that of the type's first pattern, unless the name is
/// of that type already or the pattern has no suffix to give.
///
/// Flags other than OFN_ALLOWMULTISELECT have no effect: a save dialog always asks before a file is replaced, and an
/// open dialog for one file may give the name of one that does not exist. A save dialog gives one name, with the flag
/// too. `m_ofn` and the extension's accessors of the published class do not exist.
class XE_EXPORT CFileDialog_X : public CCommonDialog_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CFileDialog_X)
    DECLARE_IMP_CLASS_X(QFileDialog)

    /// To open a file if `open` is not 0, else to save one; all texts are empty. `flags` are not used.
    CFileDialog_X(QWidget* parent, QFlags<Qt::WindowType> flags, int open);
    /// With a window title, the folder to begin in (or a file, which is proposed in its folder), and a filter. An empty
    /// title or folder leaves Qt's own: its default title, and the folder visited last.
    CFileDialog_X(QWidget* parent, const CString_X& caption, const CString_X& directory, const CString_X& filter,
                  unsigned flags, int open);
    /// The published form. `defExt` is put behind a name without a suffix; `fileName` is proposed. A null text is an
    /// empty one.
    explicit CFileDialog_X(int open, const wchar_t* defExt = nullptr, const wchar_t* fileName = nullptr,
                           unsigned flags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, const wchar_t* filter = nullptr,
                           QWidget* parent = nullptr);
    /// The three forms with the parent's wrapper.
    template <class Window, xe::detail::IfWindow<Window> = 0>
    CFileDialog_X(const Window* parent, QFlags<Qt::WindowType> flags, int open)
        : CFileDialog_X(widgetOf(parent), flags, open)
    {}
    template <class Window, xe::detail::IfWindow<Window> = 0>
    CFileDialog_X(const Window* parent, const CString_X& caption, const CString_X& directory, const CString_X& filter,
                  unsigned flags, int open)
        : CFileDialog_X(widgetOf(parent), caption, directory, filter, flags, open)
    {}
    template <class Window, xe::detail::IfWindow<Window> = 0>
    CFileDialog_X(int open, const wchar_t* defExt, const wchar_t* fileName, unsigned flags, const wchar_t* filter,
                  const Window* parent)
        : CFileDialog_X(open, defExt, fileName, flags, filter, widgetOf(parent))
    {}

    /// The path of the file, of several the first; empty before acceptance.
    CString_X GetPathName() const;
    /// That path's last part, with the suffix; empty before acceptance.
    CString_X GetFileName() const;
    /// The folder that was shown, without a slash at its end; empty before acceptance.
    CString_X GetFolderPath() const;
    /// The paths of all files, each once; empty before acceptance.
    QStringList GetFileNames() const;

    /// Where GetNextPathName() begins; null without OFN_ALLOWMULTISELECT and without a file. There is one walk at a
    /// time: a position is the address of `m_strCurrentPath`, which holds the path that comes next.
    POSITION GetStartPosition();
    /// The path at `position`, which goes on to the next one, and becomes null behind the last one, or when the path in
    /// `m_strCurrentPath` is not among the files. Empty, with `position` null, for a null position, without
    /// OFN_ALLOWMULTISELECT, and for a position of another dialog's.
    CString_X GetNextPathName(POSITION& position);

    /// Sets the text of the box for the file's name, whichever control is named. Nothing while no dialog is open.
    void SetControlText(CString_X control, const wchar_t* text);
    /// Stores the title for the next run; a dialog that is open keeps its own.
    void SetCaptionText(const CString_X& caption) { m_strCaption = caption; }
    /// Stores the folder for the next run; a dialog that is open stays where it is.
    void SetInitialDir(const CString_X& directory) { m_strInitialDir = directory; }

    /// Makes a QFileDialog with this Qt parent, not the desktop's own, and attaches it as an owned one.
    bool AttachDefault(QWidget* parent) override;
    /// As a window's, with a Chinese label for the box of file types. A result that is not 0 refuses the attachment.
    int OnCreate(tagCREATESTRUCTW* createStruct) override;
    /// Loads the controls, then sets the dialog up by the fields below. A false result of the base is passed on.
    BOOL OnInitDialog() override;
    /// Keeps what is selected for the accessors, saves the controls and ends the dialog with IDOK. Nothing is kept when
    /// the dialog stays open: when nothing is selected, a folder is entered, the user does not want a file replaced, or
    /// the exchange fails.
    void OnOK() override;
    /// Has onDoubleClicked() take the place of Qt's reaction to an activated entry.
    void ConnectSlotsFrom(QObject* from, bool keep) override;
    /// Sees that the files of a walk have changed.
    bool event(QEvent* event) override;
    /// Called when the user, or the host, has chosen another entry of the box of file types. Here nothing.
    virtual void OnTypeChange();

public Q_SLOTS:
    /// An entry has been activated: a folder is entered, and a file accepted by OnOK(), unless several may be selected
    /// and Control is down. Nothing for an index without a path.
    void onDoubleClicked(const QModelIndex& index);

public:
    CString_X m_strCaption;     ///< window title; empty for Qt's own
    CString_X m_strInitialDir;  ///< the folder shown first; empty for the one visited last
    CString_X m_strFilter;      ///< the types of files, in the published form
    CString_X m_strFileName;    ///< the proposed name
    int m_bOpenFileDialog;      ///< not 0: open; 0: save
    CString_X m_strDefExt;      ///< the suffix of a name without one
    unsigned m_dwFlags = 0;     ///< OFN_ flags
    CString_X m_strCurrentPath; ///< what a position points at

private:
    QStringList m_files; // GetFileNames(), for a walk
    int m_walked = 0;    // where m_strCurrentPath was in them
};

// -------------------------------------------------------------------------------------------------------------- colour

/// Asks for a colour. The wrapper of a QColorDialog, with Chinese buttons.
///
/// @code
/// CColorDialog_X dialog(m_textColor, 0, this);
/// if (dialog.DoModal() == IDOK)
///     m_textColor = dialog.GetColor();
/// @endcode
class XE_EXPORT CColorDialog_X : public CCommonDialog_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CColorDialog_X)
    DECLARE_IMP_CLASS_X(QColorDialog)

    /// Begins with this colour, 0x00BBGGRR, whose highest byte is not looked at. `flags` are stored only.
    explicit CColorDialog_X(COLORREF initial = 0, unsigned flags = 0, QWidget* parent = nullptr);
    template <class Window, xe::detail::IfWindow<Window> = 0>
    CColorDialog_X(COLORREF initial, unsigned flags, const Window* parent)
        : CColorDialog_X(initial, flags, widgetOf(parent))
    {}

    /// The colour chosen last; before a run was accepted the initial one, as it was given.
    COLORREF GetColor() const { return m_color; }

    /// Makes a QColorDialog with this Qt parent, not the desktop's own, and attaches it as an owned one.
    bool AttachDefault(QWidget* parent) override;
    /// Loads the controls, then shows `m_color`.
    BOOL OnInitDialog() override;
    /// Takes over the colour shown, without its transparency, saves the controls and ends the dialog with IDOK.
    void OnOK() override;

    COLORREF m_color;   ///< 0x00BBGGRR
    unsigned m_dwFlags; ///< CC_ flags, not used
};

// --------------------------------------------------------------------------------------------------------------- print

/// Asks where and what to print, and hands out a painter. The wrapper of a QPrintDialog.
///
/// @code
/// CPrintDialog_X dialog(FALSE, PD_ALLPAGES | PD_USEDEVMODECOPIES, this);
/// if (dialog.DoModal() != IDOK)
///     return;
/// if (auto* const painter = static_cast<QPainter*>(dialog.GetPrinterDC())) {
///     auto& printer = *static_cast<QPrinter*>(painter->device());
///     paintPage(*painter, 1);
///     printer.newPage();
///     paintPage(*painter, 2);
///     DeleteDC_X(painter);
/// }
/// @endcode
///
/// Where no printer is set up, the user can print to a PDF file. Unlike with the published class the flags do not
/// change the dialog, the record is not written back, and the painter is no device context: it goes into no CDC_X.
///
/// The Print button asks Qt about a file that exists already and does not come by OnOK(), unlike the Cancel button,
/// which comes by OnCancel(). OnPrintBtnClicked() is where a host can hook in.
class XE_EXPORT CPrintDialog_X : public CCommonDialog_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CPrintDialog_X)
    DECLARE_IMP_CLASS_X(QPrintDialog)

    /// With a record of its own: `Flags` are `flags` and PD_RETURNDC, PD_ENABLEPRINTHOOK and PD_ENABLESETUPHOOK, for a
    /// set-up PD_PRINTSETUP in place of PD_RETURNDC, and in both cases not PD_RETURNIC.
    explicit CPrintDialog_X(int bPrintSetupOnly,
                            unsigned flags = PD_ALLPAGES | PD_USEDEVMODECOPIES | PD_NOPAGENUMS | PD_HIDEPRINTTOFILE
                                             | PD_NOSELECTION,
                            QWidget* parent = nullptr);
    template <class Window, xe::detail::IfWindow<Window> = 0>
    CPrintDialog_X(int bPrintSetupOnly, unsigned flags, const Window* parent)
        : CPrintDialog_X(bPrintSetupOnly, flags, widgetOf(parent))
    {}
    /// With the record of another, which it does not change and which must live as long as this object. No parent.
    explicit CPrintDialog_X(tagPDW& record);
    /// A painter that GetPrinterDC() has handed out goes on, and so does its printer, until the painter is deleted. One
    /// that nobody has asked for is dropped.
    ~CPrintDialog_X() override;

    /// How many copies; 1 before acceptance.
    int GetCopies() const;
    /// Name of the printer; empty before acceptance, and when the output goes to a file.
    CString_X GetDeviceName() const;
    /// The file that the output goes to; empty before acceptance, and when it goes to a printer.
    CString_X GetPortName() const;
    /// What the system says about that printer; empty if it knows none of that name.
    CString_X GetDriverName() const;
    /// Which pages: all, also before acceptance; the selection; or those from GetFromPage() to GetToPage(). For the
    /// current page alone all three are false.
    BOOL PrintAll() const;
    BOOL PrintSelection() const;
    BOOL PrintRange() const;
    /// Whether copies are sorted into sets; false before acceptance.
    BOOL PrintCollate() const;
    /// The first and last page, from 1; 0 before acceptance, and unless PrintRange().
    int GetFromPage() const;
    int GetToPage() const;
    /// The QPainter on the printer, in which the job has begun. It is the caller's, who ends the job by deleting it,
    /// say with DeleteDC_X(). Null before acceptance, when the painter is gone or could not begin, and with
    /// PD_PRINTSETUP in `Flags`, where a painter would begin a job that nobody wants.
    HDC GetPrinterDC() const;
    /// Null: the painter comes from the dialog.
    HDC CreatePrinterDC() { return nullptr; }
    /// 0: there are no defaults without a dialog.
    BOOL GetDefaults() { return FALSE; }

    /// Runs the dialog of AttachOnSetup() and deletes it. What is chosen there does not reach this dialog. Nothing if
    /// there is none.
    void OnPrintSetup();

    /// Makes a QPrintDialog on a printer of its own with this Qt parent, and attaches it as an owned one. A host that
    /// attaches another dialog sees to it that its printer outlives the painter.
    bool AttachDefault(QWidget* parent) override;
    /// As a window's; also has the dialog's acceptance call OnPrintBtnClicked().
    void OnMessageMap() override;
    int DoModal() override;
    /// The dialog for OnPrintSetup(), on the heap: another one on the same record.
    virtual CPrintDialog_X* AttachOnSetup();

public Q_SLOTS:
    /// The dialog has been accepted: keeps what the printer is set to for the accessors, and begins the job.
    void OnPrintBtnClicked();

public:
    tagPDW& m_pd;           ///< the record in use
    tagPDW m_pdActual = {}; ///< the record of its own

private:
    void beginJob(QPrinter& printer);
    void dropPainter();

    std::shared_ptr<QPrinter> m_printer; // the present dialog's, also held by that
    std::shared_ptr<QPrinter> m_painted; // the one that "painter" paints on, if it is one of the dialog's own
    mutable bool m_painterGiven = false;
};

// ------------------------------------------------------------------------------------------------------------- folders

/// Asks for a folder, with `title` as the window's title (null for Qt's own), and fills in its path, without a slash at
/// its end. 1, or 0 with `result` as it was when the dialog is cancelled. The published function takes a record and
/// gives a list of items.
XE_EXPORT BOOL SHBrowseForFolder_X(const wchar_t* title, CString_X& result);
