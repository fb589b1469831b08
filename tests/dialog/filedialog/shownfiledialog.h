#pragma once

#include <modaldriver.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QTemporaryDir>
#include <xeafxdlgs.h>

/// A folder of its own, with empty files.
class FileFolder
{
public:
    /// A name with a "/" at its end makes a folder.
    explicit FileFolder(const QStringList& names = {})
    {
        for (const QString& name : names)
            add(name);
    }

    void add(const QString& name) const
    {
        if (name.endsWith(QLatin1Char('/')))
            QDir(path()).mkpath(name);
        else
            QFile(path(name)).open(QIODevice::WriteOnly);
    }
    QString path() const { return m_folder.path(); }
    QString path(const QString& name) const { return m_folder.filePath(name); }
    QStringList paths(const QStringList& names) const
    {
        QStringList paths;
        for (const QString& name : names)
            paths += path(name);
        return paths;
    }

private:
    QTemporaryDir m_folder;
};

/// A QFileDialog with its parts.
struct ShownFileDialog
{
    explicit ShownFileDialog(QFileDialog& fileDialog) : dialog(fileDialog) {}

    QLineEdit& name() const { return *part<QLineEdit>("fileNameEdit"); }
    QComboBox& types() const { return *part<QComboBox>("fileTypeCombo"); }
    QAbstractItemView& list() const { return *part<QAbstractItemView>("listView"); }
    QAbstractItemView& tree() const { return *part<QAbstractItemView>("treeView"); }
    QFileSystemModel& model() const { return *part<QFileSystemModel>("qt_filesystem_model"); }
    QPushButton* button(QDialogButtonBox::StandardButton which) const
    {
        return dialog.findChild<QDialogButtonBox*>()->button(which);
    }

    /// The entry of the folder shown as the views have it.
    QModelIndex entry(const QString& entryName) const
    {
        const QModelIndex index = model().index(dialog.directory().filePath(entryName));
        const auto* const proxy = qobject_cast<QAbstractProxyModel*>(dialog.proxyModel());
        return proxy ? proxy->mapFromSource(index) : index;
    }

    /// The names shown, in alphabetical order.
    QStringList names() const
    {
        QStringList names;
        const QModelIndex root = model().index(dialog.directory().path());
        for (int row = 0; row < model().rowCount(root); ++row)
            names += model().index(row, 0, root).data().toString();
        names.sort();
        return names;
    }
    /// Waits for these names, in alphabetical order, to be those shown.
    bool shows(const QStringList& expected) const
    {
        return QTest::qWaitFor([&] { return names() == expected; });
    }

    QFileDialog& dialog;

private:
    template <class Widget>
    Widget* part(const char* objectName) const
    {
        return dialog.findChild<Widget*>(QLatin1String(objectName));
    }
};

/// Runs the dialog, and acts on it when it is shown. It is cancelled then, if it has not ended. Gives the result.
template <class Action>
int runFileDialog(CFileDialog_X& dialog, Action action)
{
    const ModalDriver<QFileDialog> driver([&](QFileDialog* shown) {
        action(ShownFileDialog(*shown));
        if (shown->isVisible())
            shown->reject();
    });
    // Of the dialog and of the size that it takes, the platform complains about both.
    if (QGuiApplication::platformName() == QLatin1String("offscreen"))
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support propagateSizeHints()");
    return dialog.DoModal();
}
