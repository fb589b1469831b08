#pragma once

#include <XeMFCEmu.h>

#include <QAction>

/// What a plug-in offers to the tests: the lookups, called from the plug-in's code.
class Plugin
{
public:
    virtual ~Plugin() = default;

    virtual QString module() const = 0;
    virtual QString objectName(int id) const = 0;
    virtual QString stringId(unsigned id) const = 0;
    virtual int ctrlId(const QString& name) const = 0;
    virtual QString text(unsigned id) const = 0;
    virtual int loadString(unsigned id, wchar_t* buffer, int capacity) const = 0;
    virtual BOOL loadString(CString_X& text, unsigned id) const = 0;
    virtual const QMap<unsigned, QString>& ids() const = 0;
    virtual const QMap<QString, QString>& texts() const = 0;

    /// Connects triggered() of the child of `root` with that identifier to trigger() of an action.
    virtual bool connectById(unsigned id, QObject* root, QAction* receiver) const = 0;

    /// The widget of an InquiryWindow of the plug-in's own.
    virtual QWidget* window() = 0;
};

/// The one function that a plug-in exports, as createPlugin. The caller deletes the plug-in, then unloads the library.
using CreatePlugin = Plugin* (*)();
