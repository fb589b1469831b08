#pragma once

#include <modaldriver.h>

#include <xeafxdlgs.h>

#include <QDialogButtonBox>
#include <QFile>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPushButton>
#include <QTemporaryDir>

#include <functional>
#include <memory>

/// What a test does with the dialog that is shown.
using Action = std::function<void(QPrintDialog&)>;

Q_DECLARE_METATYPE(Action)

template <class Widget>
Widget& part(const QPrintDialog& dialog, const char* name)
{
    return *dialog.findChild<Widget*>(QLatin1String(name));
}

inline void click(const QPrintDialog& dialog, QDialogButtonBox::StandardButton which)
{
    dialog.findChild<QDialogButtonBox*>()->button(which)->click();
}

/// Runs the dialog, acts on it, and cancels it if it has not ended. Gives the result.
inline int run(CPrintDialog_X& dialog, const Action& action)
{
    const ModalDriver<QPrintDialog> driver([&](QPrintDialog* shown) {
        action(*shown);
        if (shown->isVisible())
            click(*shown, QDialogButtonBox::Cancel);
    });
    return dialog.DoModal();
}

inline void nothing(QPrintDialog&) {}

/// Prints to a file.
inline Action print(const QString& file, const Action& settings = nothing)
{
    return [=](QPrintDialog& shown) {
        part<QLineEdit>(shown, "filename").setText(file);
        settings(shown);
        click(shown, QDialogButtonBox::Ok);
    };
}

inline QPainter* painterOf(const CPrintDialog_X& dialog) { return static_cast<QPainter*>(dialog.GetPrinterDC()); }

inline QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// "2 pages" of a whole PDF file, else what is wrong with it.
inline QString pages(const QString& path)
{
    const QByteArray content = contentOf(path);
    if (!content.startsWith("%PDF-1."))
        return QStringLiteral("no PDF");
    if (!content.trimmed().endsWith("%%EOF"))
        return QStringLiteral("no end");
    return QStringLiteral("%1 pages").arg(content.count("/Type /Page\n"));
}

/// A folder for what is printed.
struct PrintFolder
{
    QString file(const char* name = "out.pdf") const { return m_folder->filePath(QLatin1String(name)); }

    std::unique_ptr<QTemporaryDir> m_folder;
};
