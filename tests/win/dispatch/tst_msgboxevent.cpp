#include "scriptwindow.h"
#include "testclass.h"

#include <leavenothing.h>
#include <modaldriver.h>
#include <xeafxdlg.h>

#include <QAbstractButton>
#include <QMessageBox>

// The event that puts up a message box.

namespace {

using BoxDriver = ModalDriver<QMessageBox>;

QString describe(const QMessageBox& box)
{
    const QStringList icons{QStringLiteral("none"), QStringLiteral("information"), QStringLiteral("warning"),
                            QStringLiteral("critical"), QStringLiteral("question")};
    const QString owner = box.parentWidget() ? box.parentWidget()->objectName() : QStringLiteral("nobody");
    QStringList buttons;
    for (const QAbstractButton* button : box.buttons())
        buttons += button->text();
    return QStringLiteral("%1 '%2': '%3' [%4] of %5")
        .arg(icons.value(box.icon()), box.windowTitle(), box.text(), buttons.join(QLatin1Char(' ')), owner);
}

class BoxWidget : public ListeningWidget
{
public:
    BoxWidget() { setObjectName(QStringLiteral("widget")); }
};

} // namespace

class tst_MsgBoxEvent : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void fields();
    void box_data();
    void box();
    void eventIsConsumed();
    void plainWidgetIgnoresIt();
    void nullTargetHasNoOwner();
    void objectTargetHasNoOwner();
    void uniqueWhileTheBoxIsUp();
    void handlersRunWhileTheBoxIsUp();
    void widgetGoesWhileTheBoxIsUp();
    void wrapperGoesWhileTheBoxIsUp();
    void bothGoWhileTheBoxIsUp();
};

void tst_MsgBoxEvent::fields()
{
    const XeMsgBoxEvent event(L"text", L"caption");
    QCOMPARE(int(event.type()), 1129);
    QCOMPARE(int(XeWinMsgEvent(WM_USER, 0, 0).type()), 1128);
    QCOMPARE(event.style, 0u);
}

void tst_MsgBoxEvent::box_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<unsigned>("style");
    QTest::addColumn<QString>("box");
    QTest::newRow("text and caption") << QStringLiteral("值 is too big") << QStringLiteral("检查") << 0u
                                      << QStringLiteral("warning '检查': '值 is too big' [确定] of widget");
    QTest::newRow("without a caption") << QStringLiteral("text") << QString() << 0u
                                       << QStringLiteral("warning '警告': 'text' [确定] of widget");
    QTest::newRow("without a text") << QString() << QStringLiteral("c") << 0u
                                    << QStringLiteral("warning 'c': '' [确定] of widget");
    QTest::newRow("a style is not read") << QStringLiteral("text") << QStringLiteral("c") << 0x24u
                                         << QStringLiteral("warning 'c': 'text' [确定] of widget");
}

void tst_MsgBoxEvent::box()
{
    QFETCH(QString, text);
    QFETCH(QString, caption);
    QFETCH(unsigned, style);
    QFETCH(QString, box);
    BoxWidget widget;
    ScriptWindow window(&widget);
    QString shown;
    const BoxDriver driver([&](QMessageBox* messageBox) {
        shown = describe(*messageBox);
        messageBox->accept();
    });
    auto* event = new XeMsgBoxEvent(text.toStdWString(), caption.toStdWString());
    event->style = style;
    QVERIFY(window.PostEvent(event, 0, true));
    QVERIFY(!QApplication::activeModalWidget());
    QTRY_COMPARE(shown, box);
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(widget.count(XeMsgBoxEvent::EventType), 0);
}

void tst_MsgBoxEvent::eventIsConsumed()
{
    BoxWidget widget;
    ScriptWindow window(&widget);
    const BoxDriver driver([](QMessageBox* box) { box->reject(); });
    XeMsgBoxEvent event(L"text", L"caption");
    event.setAccepted(false);
    QVERIFY(window.eventFilter(&widget, &event));
    QVERIFY(event.isAccepted());
    QVERIFY(driver.hasActed());
}

void tst_MsgBoxEvent::plainWidgetIgnoresIt()
{
    BoxWidget widget;
    XeMsgBoxEvent event(L"text", L"caption");
    QCoreApplication::sendEvent(&widget, &event);
    QCOMPARE(widget.count(XeMsgBoxEvent::EventType), 1);
}

void tst_MsgBoxEvent::nullTargetHasNoOwner()
{
    ScriptWindow window;
    QString shown;
    const BoxDriver driver([&](QMessageBox* box) {
        shown = describe(*box);
        box->accept();
    });
    XeMsgBoxEvent event(L"text", L"caption");
    QVERIFY(window.eventFilter(nullptr, &event));
    QCOMPARE(shown, QStringLiteral("warning 'caption': 'text' [确定] of nobody"));
}

void tst_MsgBoxEvent::objectTargetHasNoOwner()
{
    QObject object;
    ScriptWindow window;
    QString shown;
    const BoxDriver driver([&](QMessageBox* box) {
        shown = describe(*box);
        box->accept();
    });
    XeMsgBoxEvent event(L"text", L"caption");
    QVERIFY(window.eventFilter(&object, &event));
    QCOMPARE(shown, QStringLiteral("warning 'caption': 'text' [确定] of nobody"));
}

// However many checks fail in one pass, there is one box.
void tst_MsgBoxEvent::uniqueWhileTheBoxIsUp()
{
    BoxWidget widget;
    ScriptWindow window(&widget);
    const auto post = [&window] { return window.PostEvent(new XeMsgBoxEvent(L"text", L"caption"), 0, true); };
    QVector<bool> accepted;
    const BoxDriver driver([&](QMessageBox* box) {
        accepted += post();
        box->accept();
    });
    accepted += post();
    accepted += post();
    QTRY_VERIFY(driver.hasActed());
    QCOMPARE(accepted, QVector<bool>({true, false, false}));

    int boxes = 0;
    const BoxDriver next([&](QMessageBox* box) {
        ++boxes;
        box->accept();
    });
    QVERIFY(post());
    QTRY_COMPARE(boxes, 1);
}

void tst_MsgBoxEvent::handlersRunWhileTheBoxIsUp()
{
    BoxWidget widget;
    ScriptWindow window(&widget);
    window.on<WM_USER>([&](WPARAM, LPARAM) {
        window.SetCurrentEventAccepted(true);
        return 5;
    });
    LRESULT result = 0;
    const BoxDriver driver([&](QMessageBox* box) {
        result = window.SendMessage(WM_USER, 0, 0);
        box->accept();
    });
    XeMsgBoxEvent event(L"text", L"caption");
    QVERIFY(window.SendEvent(&event));
    QCOMPARE(result, 5);
}

void tst_MsgBoxEvent::widgetGoesWhileTheBoxIsUp()
{
    auto* widget = new BoxWidget;
    ScriptWindow window(widget);
    const BoxDriver driver([&](QMessageBox*) { delete widget; });
    QVERIFY(window.PostEvent(new XeMsgBoxEvent(L"text", L"caption"), 0, true));
    QTRY_VERIFY(driver.hasActed());
    QVERIFY(!window.GetImpQObject());
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_MsgBoxEvent::wrapperGoesWhileTheBoxIsUp()
{
    BoxWidget widget;
    auto* window = new ScriptWindow(&widget);
    const BoxDriver driver([&](QMessageBox* box) {
        delete window;
        box->accept();
    });
    QVERIFY(window->PostEvent(new XeMsgBoxEvent(L"text", L"caption"), 0, true));
    QTRY_VERIFY(driver.hasActed());
    QVERIFY(!CWnd_X::FromHandlePermanent(&widget));
    QCOMPARE(widget.count(XeMsgBoxEvent::EventType), 0);
}

void tst_MsgBoxEvent::bothGoWhileTheBoxIsUp()
{
    auto* widget = new BoxWidget;
    auto* window = new ScriptWindow(widget);
    const BoxDriver driver([&](QMessageBox*) {
        delete window;
        delete widget;
    });
    QVERIFY(window->PostEvent(new XeMsgBoxEvent(L"text", L"caption"), 0, true));
    QTRY_VERIFY(driver.hasActed());
    QVERIFY(!QApplication::activeModalWidget());
}

XE_TEST(tst_MsgBoxEvent)
#include "tst_msgboxevent.moc"
