#pragma once

#include "findbar.h"
#include "messageview.h"
#include "partsbook.h"
#include "partsgrid.h"
#include "statusbar.h"
#include "stockchart.h"
#include "toolbar.h"
#include "treesplitter.h"

#include <QMainWindow>

/// The widget of the main window, by its class and its name the one that the library knows as such.
class CTavoMainFrame : public QMainWindow
{
    Q_OBJECT

public:
    explicit CTavoMainFrame(QWidget* parent);
};

/// The main window: shows a book of parts and carries out the commands of its menu.
class CMainFrame : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CMainFrame)
    DECLARE_IMP_CLASS_X(CTavoMainFrame)

    /// Shows the parts of a file, and tells of its bad lines. False, after a message, if it cannot be read.
    bool OpenBook(const QString& fileName);
    /// Shows the message window and has it write each message to a file. False if that cannot be written.
    bool TraceTo(const QString& fileName);

    bool AttachDefault(QWidget* parent) override;
    int OnCreate(tagCREATESTRUCTW* createStruct) override;

    void OnClose();
    void OnContextMenu(QWidget* widget, CPoint point);
    void OnTimer(UINT_PTR id);
    LRESULT OnGridNotified(WPARAM grid, LPARAM record);
    LRESULT OnFieldsChanged(WPARAM, LPARAM);
    LRESULT OnFindPart(WPARAM matchCase, LPARAM text);
    LRESULT OnSelectRow(WPARAM row, LPARAM hasKeyboard);
    LRESULT OnRenamed(WPARAM, LPARAM renaming);

    DECLARE_MESSAGE_MAP_X()
    void SetupUI() override;

private Q_SLOTS:
    void OnFileNewTest();
    void OnFileOpen();
    void OnFileSave() { Save(); }
    void OnFileSaveAs() { SaveAs(); }
    void OnFileImport();
    void OnFilePrint();
    void OnFileBackUp();
    void OnFileRecent();
    void OnAppExit();
    void OnEditMenu();
    void OnEditCommand();
    void OnPartNew();
    void OnPartEdit();
    void OnPartDelete();
    void OnPartInUse();
    void OnNameEdit();
    void OnEditFind();
    void OnEditRepeat();
    void OnViewMessages();
    void OnViewShortColor();
    void OnViewColumns();
    void OnViewFitColumns();
    void OnPartSelected();
    void OnNameSelected();
    void OnUpdateCommands();

private:
    void ConnectCommands();
    bool LoadBook(const QString& fileName);
    void ShowBook();
    bool Save();
    bool SaveAs();
    bool SaveBook(const QString& fileName);
    void ShowName();
    void ShowRecentFiles();
    void RestorePlace();
    bool MayClose();
    void ReportBadLines(const PartsBook& book);
    void ReportUnread(const QString& fileName, const CString_X& error);
    void ReportUnwritten(const QString& fileName, const CString_X& error);
    bool Import(const QString& fileName);
    void OpenMenu();
    void RunPartMenu(CPoint screen);
    void SortByMenu(int column, CPoint screen);
    void ShowParts();
    void ShowPart(int row);
    void TakeField(int row, int column);
    void ShowChart();
    int SelectedRow() const;
    void SelectRow(int row);
    void ShowStatus(const CString_X& text);
    void ShowStatus(unsigned format, const CString_X& text);
    void ClearStatus();

    /// How many fields it is, and what there is to say of the first.
    struct Tally
    {
        int count = 0;
        CString_X first;

        void add(const CString_X& text) { first = count++ == 0 ? text : first; }
    };

    PartsBook m_book;
    CPartPictures m_pictures;
    CPartsGrid m_parts{m_pictures};
    CStockChart m_chart;
    CTreeSplitter m_splitter;
    CPartsToolBar m_toolBar;
    CPartsStatusBar m_statusBar;
    CFindBar m_findBar{m_book, m_pictures};
    CMessageView m_messages;
    Tally m_changes;  // of fields in the list, with the number of the part
    Tally m_refusals; // with what is wrong
};
