#include "xeformstyle.h"

#include "win/centering.h"

#include <QVariant>
#include <QWidget>

namespace {

constexpr char styleProperty[] = "mfcStyle";

class StyleText
{
public:
    explicit StyleText(const QString& text) : m_text(text) {}
    bool has(const char* name) const { return m_text.contains(QLatin1String(name)); }

private:
    const QString& m_text;
};

void addFlags(QWidget* widget, Qt::WindowFlags flags) { widget->setWindowFlags(widget->windowFlags() | flags); }

void setupOne(QWidget* widget)
{
    const QString style = widget->property(styleProperty).toString();
    if (style.isEmpty())
        return;
    setupDialogStyleData(style, widget);
    setupWindowStyleData(style, widget);
}

} // namespace

void setupStyle(QWidget* form)
{
    if (!form)
        return;
    setupOne(form);
    const QObjectList children = form->children();
    for (QObject* child : children) {
        if (child->isWidgetType())
            setupOne(static_cast<QWidget*>(child));
    }
}

void setupWindowStyleData(const QString& style, QWidget* widget)
{
    if (!widget)
        return;
    const StyleText text(style);
    if (text.has("WS_DISABLED"))
        widget->setDisabled(true);
    if (text.has("WS_VISIBLE"))
        widget->setVisible(true);
    if (text.has("WS_MAXIMIZE"))
        widget->setWindowState(Qt::WindowMaximized);
    if (text.has("WS_MINIMIZE") || text.has("WS_ICONIC"))
        widget->setWindowState(Qt::WindowMinimized);
    if (text.has("WS_MAXIMIZEBOX"))
        addFlags(widget, Qt::WindowMaximizeButtonHint);
    if (text.has("WS_MINIMIZEBOX"))
        addFlags(widget, Qt::WindowMinimizeButtonHint);
    if (text.has("WS_BORDER"))
        widget->setStyleSheet(QStringLiteral("border: 1px solid black;"));
    if (text.has("WS_THICKFRAME") || text.has("WS_SIZEBOX"))
        addFlags(widget, Qt::Window);
    if (text.has("WS_CHILD") && !text.has("WS_POPUP"))
        addFlags(widget, Qt::SubWindow);
    if (text.has("WS_DLGFRAME"))
        addFlags(widget, Qt::Window);
    if (text.has("WS_POPUP") && !text.has("WS_CHILD") && !text.has("WS_CAPTION"))
        addFlags(widget, Qt::FramelessWindowHint);
    if (text.has("WS_POPUPWINDOW"))
        addFlags(widget, Qt::Dialog | Qt::WindowSystemMenuHint);
}

void setupDialogStyleData(const QString& style, QWidget* widget)
{
    if (!widget)
        return;
    const StyleText text(style);
    if (text.has("DS_MODALFRAME"))
        widget->setWindowModality(Qt::ApplicationModal);
    if (text.has("DS_CENTER"))
        xe::centerWidget(*widget, widget->parentWidget());
}
