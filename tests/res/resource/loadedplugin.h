#pragma once

#include "plugin.h"

#include <QTemporaryDir>

#include <dlfcn.h>

#include <memory>

/// A plug-in's library, loaded as long as the object lives.
class LoadedPlugin
{
public:
    explicit LoadedPlugin(const QString& file) : m_library(dlopen(QFile::encodeName(file), RTLD_NOW | RTLD_LOCAL))
    {
        if (!m_library)
            qFatal("%s", dlerror());
        m_create = reinterpret_cast<CreatePlugin>(dlsym(m_library, "createPlugin"));
        m_plugin.reset(m_create());
    }
    ~LoadedPlugin()
    {
        m_plugin.reset();
        dlclose(m_library);
    }
    Q_DISABLE_COPY_MOVE(LoadedPlugin)

    Plugin* operator->() const { return m_plugin.get(); }

    /// Where in memory the library's code lies.
    quintptr address() const { return reinterpret_cast<quintptr>(m_create); }

private:
    void* m_library;
    CreatePlugin m_create = nullptr;
    std::unique_ptr<Plugin> m_plugin;
};

/// The plug-in without tables.
inline QString barePlugin() { return qEnvironmentVariable("BARE"); }

/// Copies of a plug-in under other file names, hence other module names.
class PluginCopies
{
public:
    /// The path of the copy, which is made when it is asked for first.
    QString copyOf(const QString& file, const QString& name)
    {
        const QString path = m_folder.filePath(name);
        if (!QFile::exists(path) && !QFile::copy(file, path))
            qFatal("cannot copy %s to %s", qPrintable(file), qPrintable(path));
        return path;
    }

private:
    QTemporaryDir m_folder;
};
