#include "dialog/filetypes.h"

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QListView>
#include <QPointer>
#include <QRegularExpression>

namespace {

bool hasWildcard(const QString& suffix)
{
    return suffix.contains(QLatin1Char('*')) || suffix.contains(QLatin1Char('?')) || suffix.contains(QLatin1Char('['));
}

QString suffixOf(const QString& name) { return QFileInfo(name).suffix(); }

// With the suffix of the first pattern, if that has one and the name has another.
QString renamed(const QString& name, const QStringList& patterns)
{
    const QString old = suffixOf(name);
    const QString suffix = suffixOf(patterns.value(0));
    if (old.isEmpty() || suffix.isEmpty() || hasWildcard(suffix) || QDir::match(patterns, QFileInfo(name).fileName()))
        return name;
    return name.chopped(old.size()) + suffix;
}

// The box of types in a file dialog, with what it works on.
class TypeBox
{
public:
    explicit TypeBox(const QFileDialog& dialog)
        : m_dialog(dialog),
          m_box(dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"))),
          m_name(dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))),
          m_list(dialog.findChild<QListView*>(QStringLiteral("listView"))),
          m_files(dialog.findChild<QFileSystemModel*>(QStringLiteral("qt_filesystem_model")))
    {}

    bool isComplete() const { return m_box && m_name && m_list && m_files; }
    QComboBox* box() const { return m_box; }
    QString name() const { return m_name->text(); }
    bool hasWildcardName() const { return hasWildcard(suffixOf(name())); }

    void setName(const QString& name) const
    {
        if (name == m_name->text())
            return;
        m_list->clearSelection();
        m_name->setText(name);
    }

    void showFiles() const
    {
        if (m_box->count())
            m_files->setNameFilters(patterns());
    }

    void adoptSuffix() const
    {
        if (m_dialog.acceptMode() == QFileDialog::AcceptSave)
            setName(renamed(name(), patterns()));
    }

private:
    QStringList patterns() const { return xe::typePatterns(m_box->currentText()); }

    const QFileDialog& m_dialog;
    QComboBox* m_box;
    QLineEdit* m_name;
    QListView* m_list;
    QFileSystemModel* m_files;
};

// A host that selects a type by QFileDialog::selectNameFilter() has Qt filter by it, and rename, behind this signal.
void mendLater(const TypeBox& types, QFileDialog& dialog)
{
    const auto mend = [types, name = types.name()] {
        types.showFiles();
        if (types.hasWildcardName())
            types.setName(name);
    };
    QMetaObject::invokeMethod(&dialog, mend, Qt::QueuedConnection);
}

} // namespace

namespace xe {

QStringList typeLabels(const QString& filter)
{
    QStringList labels;
    const QVector<QStringRef> parts = filter.splitRef(QLatin1Char('|'));
    for (const QStringRef& part : parts) {
        if (part.endsWith(QLatin1Char(')')))
            labels += part.toString();
    }
    return labels;
}

QStringList typePatterns(const QString& label)
{
    static const QRegularExpression divider(QStringLiteral("[;\\s]+"));
    const int open = label.lastIndexOf(QLatin1Char('('));
    const int close = label.lastIndexOf(QLatin1Char(')'));
    QStringList patterns = label.mid(open + 1, close - open - 1).split(divider, Qt::SkipEmptyParts);
    patterns.replaceInStrings(QRegularExpression(QStringLiteral("^\\*\\.\\*$")), QStringLiteral("*"));
    return patterns;
}

void offerTypes(QFileDialog& dialog, const QStringList& labels)
{
    dialog.setNameFilters(labels);
    const TypeBox types(dialog);
    if (!types.isComplete())
        return;
    types.showFiles();
    QObject::disconnect(types.box(), SIGNAL(activated(int)), &dialog, nullptr); // Qt's own handler too
    QObject::disconnect(types.box(), SIGNAL(currentIndexChanged(int)), &dialog, nullptr);
    QObject::connect(types.box(), QOverload<int>::of(&QComboBox::activated), &dialog, [types] {
        types.showFiles();
        types.adoptSuffix();
    });
    QObject::connect(types.box(), QOverload<int>::of(&QComboBox::currentIndexChanged), &dialog,
                     [types, &dialog] { mendLater(types, dialog); });
}

} // namespace xe
