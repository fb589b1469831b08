// The Windows styles of a form, given as text in the property "mfcStyle".

#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QScreen>
#include <QTimer>

namespace {

// Writes down what happens to it, in order.
class Witness : public QWidget
{
public:
    using QWidget::QWidget;
    QStringList log;

    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::EnabledChange)
            log += QStringLiteral("disabled");
        else if (event->type() == QEvent::ShowToParent)
            log += QStringLiteral("shown%1%2").arg(windowModality() ? "-modal" : "", pos().isNull() ? "" : "-centred");
        else if (event->type() == QEvent::WindowStateChange)
            log += isMinimized() ? QStringLiteral("minimised") : QStringLiteral("maximised");
        else if (event->type() == QEvent::StyleChange)
            log += QStringLiteral("border");
        return QWidget::event(event);
    }
};

void setStyle(QWidget& widget, const char* style) { widget.setProperty("mfcStyle", QString::fromLatin1(style)); }

// Such as "disabled maximised": what else than window flags a style has brought.
QString effects(const QWidget& widget)
{
    QStringList words;
    if (!widget.isEnabled())
        words += QStringLiteral("disabled");
    if (!widget.isHidden())
        words += QStringLiteral("visible");
    if (widget.isMaximized())
        words += QStringLiteral("maximised");
    if (widget.isMinimized())
        words += QStringLiteral("minimised");
    if (!widget.styleSheet().isEmpty())
        words += widget.styleSheet();
    if (widget.windowModality() == Qt::ApplicationModal)
        words += QStringLiteral("modal");
    return words.join(QLatin1Char(' '));
}

using Flags = QVector<int>;

constexpr int maximizeButton = 0x8000;
constexpr int minimizeButton = 0x4000;
constexpr int window = 0x1;
constexpr int subWindow = 0x12;
constexpr int frameless = 0x800;
constexpr int popupWindow = 0x2003; // a dialog with a system menu

// The window flags of a child after each value has been added by a setWindowFlags() of its own.
Qt::WindowFlags flagsAfter(const Flags& steps)
{
    QWidget parent;
    QWidget child(&parent);
    for (const int value : steps)
        child.setWindowFlags(child.windowFlags() | Qt::WindowFlags(value));
    return child.windowFlags();
}

} // namespace

class tst_SetupStyle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void windowStyle_data();
    void windowStyle();
    void orderOfTheEffects_data();
    void orderOfTheEffects();

    void formAndItsDirectChildren();
    void formWithoutAStyle();
    void nothingToStyle();
    void dialogStyle();
    void centredInTheParent();
    void centredOnTheScreen();
};

// ------------------------------------------------------------------------------------------------- what a style does

void tst_SetupStyle::windowStyle_data()
{
    QTest::addColumn<QString>("effects");
    QTest::addColumn<Flags>("flags");
    const auto row = [](const char* style, const char* effects, const Flags& flags) {
        QTest::newRow(style) << effects << flags; // the name of a row is the style itself
    };
    row("", "", {});
    row("WS_DISABLED", "disabled", {});
    row("WS_VISIBLE", "visible", {});
    row("WS_MAXIMIZE", "maximised", {});
    row("WS_MINIMIZE", "minimised", {});
    row("WS_ICONIC", "minimised", {});
    row("WS_MAXIMIZE|WS_ICONIC", "minimised", {});
    row("WS_BORDER", "border: 1px solid black;", {});
    row("WS_THICKFRAME", "", {window});
    row("WS_SIZEBOX", "", {window});
    row("WS_CHILD", "", {subWindow});
    row("WS_DLGFRAME", "", {window});
    row("WS_POPUP", "", {frameless});

    // Names are parts of longer names.
    row("WS_MAXIMIZEBOX", "maximised", {maximizeButton});
    row("WS_MINIMIZEBOX", "minimised", {minimizeButton});
    row("WS_MAXIMIZEBOX|WS_MINIMIZEBOX", "minimised", {maximizeButton, minimizeButton});
    row("WS_CHILDWINDOW", "", {subWindow});
    row("WS_POPUPWINDOW", "", {frameless, popupWindow});
    row("XWS_DISABLEDX", "disabled", {});
    row("WS_VISIBLEWS_DISABLED", "disabled visible", {});

    row("WS_CHILD|WS_POPUP", "", {});
    row("WS_CHILD|WS_POPUPWINDOW", "", {popupWindow});
    row("WS_CHILDWINDOW | WS_POPUP", "", {});
    row("WS_POPUP|WS_CAPTION", "", {});
    row("WS_POPUPWINDOW|WS_CAPTION", "", {popupWindow});
    row("WS_CHILD|WS_CAPTION", "", {subWindow});
    row("WS_CAPTION|WS_SYSMENU|WS_GROUP|WS_TABSTOP|WS_VSCROLL|WS_HSCROLL|WS_OVERLAPPED", "", {});
    row("WS_THICKFRAME|WS_DLGFRAME|WS_CHILD", "", {window, subWindow, window});
    row("WS_POPUP|WS_DLGFRAME|WS_MAXIMIZEBOX", "maximised", {maximizeButton, window, frameless});

    // Turned into a window it is hidden again.
    row("WS_VISIBLE|WS_THICKFRAME", "", {window});
    row("WS_VISIBLE|WS_CHILD", "visible", {subWindow});
    row("WS_DISABLED,WS_BORDER", "disabled border: 1px solid black;", {});

    row("ws_disabled", "", {});
    row("WS_ DISABLED", "", {});
    row("DS_MODALFRAME", "modal", {});
    row("DS_MODALFRAME|WS_DISABLED", "disabled modal", {});
    row("ds_modalframe", "", {});
}

void tst_SetupStyle::windowStyle()
{
    QFETCH(Flags, flags);
    QWidget parent;
    QWidget widget(&parent);
    widget.hide();
    setStyle(widget, QTest::currentDataTag());
    setupStyle(&widget);
    QTEST(effects(widget), "effects");
    QCOMPARE(widget.windowFlags(), flagsAfter(flags));
}

void tst_SetupStyle::orderOfTheEffects_data()
{
    QTest::addColumn<QString>("log");
    QTest::newRow("WS_BORDER|WS_ICONIC|WS_VISIBLE|WS_DISABLED") << "disabled shown minimised border";
    QTest::newRow("WS_VISIBLE|WS_DISABLED|WS_MAXIMIZE") << "disabled shown maximised";
    QTest::newRow("WS_ICONIC|WS_MAXIMIZE") << "maximised minimised";
    QTest::newRow("WS_VISIBLE|DS_CENTER|DS_MODALFRAME") << "shown-modal-centred"; // the dialog styles come first
}

void tst_SetupStyle::orderOfTheEffects()
{
    QWidget parent;
    parent.resize(300, 200);
    Witness widget(&parent);
    widget.resize(20, 10);
    widget.hide();
    widget.log.clear();
    setStyle(widget, QTest::currentDataTag());
    setupStyle(&widget);
    QTEST(widget.log.join(QLatin1Char(' ')), "log");
}

// ------------------------------------------------------------------------------------------------- who gets a style

void tst_SetupStyle::formAndItsDirectChildren()
{
    QWidget form;
    QWidget child(&form);
    QWidget grandchild(&child);
    QWidget plain(&form);
    QTimer noWidget(&form);
    for (QWidget* widget : {&form, &child, &grandchild})
        setStyle(*widget, "WS_BORDER");
    noWidget.setProperty("mfcStyle", QStringLiteral("WS_DISABLED"));
    setupStyle(&form);
    QVERIFY(!form.styleSheet().isEmpty());
    QVERIFY(!child.styleSheet().isEmpty());
    QVERIFY(grandchild.styleSheet().isEmpty());
    QVERIFY(plain.styleSheet().isEmpty());
}

void tst_SetupStyle::formWithoutAStyle()
{
    QWidget form;
    QWidget child(&form);
    form.setProperty("mfcStyle", QString());
    child.setProperty("mfcStyle", QByteArray("WS_DISABLED"));
    setupStyle(&form);
    QVERIFY(form.isEnabled());
    QVERIFY(!child.isEnabled());
}

void tst_SetupStyle::nothingToStyle()
{
    setupStyle(nullptr);
    setupWindowStyleData(QStringLiteral("WS_VISIBLE"), nullptr);
    setupDialogStyleData(QStringLiteral("DS_CENTER"), nullptr);
}

// ----------------------------------------------------------------------------------------------------- dialog styles

void tst_SetupStyle::dialogStyle()
{
    QWidget widget;
    setupDialogStyleData(QStringLiteral("WS_DISABLED|DS_MODALFRAME"), &widget);
    QCOMPARE(widget.windowModality(), Qt::ApplicationModal);
    QVERIFY(widget.isEnabled());
    setupWindowStyleData(QStringLiteral("WS_DISABLED|DS_CENTER"), &widget);
    QVERIFY(!widget.isEnabled());
    QCOMPARE(widget.pos(), QPoint(0, 0));
}

void tst_SetupStyle::centredInTheParent()
{
    QWidget parent;
    parent.setGeometry(200, 100, 100, 80);
    QDialog dialog(&parent);
    dialog.resize(20, 10);
    setStyle(dialog, "DS_MODALFRAME|DS_CENTER|WS_POPUP|WS_CAPTION");
    setupStyle(&dialog);
    QCOMPARE(dialog.pos(), QPoint((200 + 299) / 2 - 9, (100 + 179) / 2 - 4));
    QCOMPARE(dialog.windowModality(), Qt::ApplicationModal);
}

void tst_SetupStyle::centredOnTheScreen()
{
    QDialog dialog;
    dialog.resize(20, 10);
    setStyle(dialog, "DS_CENTER");
    setupStyle(&dialog);
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    QCOMPARE(dialog.pos(), QPoint((screen.left() + screen.right()) / 2 - 9, (screen.top() + screen.bottom()) / 2 - 4));
}

XE_TEST(tst_SetupStyle)
#include "tst_setupstyle.moc"
