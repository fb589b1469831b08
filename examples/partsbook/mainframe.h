#pragma once

#include "partsview.h"

#include <QMainWindow>
#include <xehook.h>

class MessageLog;
class QLabel;

/// The widget of the main window. The library finds it by its object name and calls back through two of its properties.
class CTavoMainFrame : public QMainWindow
{
    Q_OBJECT

public:
    explicit CTavoMainFrame(QWidget* parent);
};

/// The main window: holds the view and counts the keys that a keyboard hook sees.
class CMainFrame : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CMainFrame)
    DECLARE_IMP_CLASS_X(CTavoMainFrame)

    explicit CMainFrame(MessageLog& log);

    bool AttachDefault(QWidget* parent) override;
    int OnCreate(tagCREATESTRUCTW* createStruct) override;

    /// From the keyboard hook: a key has gone down.
    void CountKey(UINT vk);

    void OnClose();
    void OnDestroy();

    DECLARE_MESSAGE_MAP_X()

private:
    CPartsView m_view;
    QLabel* m_status = nullptr; // the window's
    HHOOK m_hook = nullptr;
    int m_keys = 0;
};
