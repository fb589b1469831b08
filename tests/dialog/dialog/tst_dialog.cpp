// Dialogs outside their modal loop: making, buttons, keys.

#include "scriptdialog.h"
#include "testclass.h"

#include <leavenothing.h>

#include <QDialogButtonBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>

namespace {

// A window with a pane that is a dialog; both write down the keys they are given.
class KeyListener : public QWidget
{
public:
    QVector<int> keys;

protected:
    void keyPressEvent(QKeyEvent* event) override { keys += event->key(); }
};

struct EmbeddedDialog
{
    EmbeddedDialog()
    {
        pane = new QDialog(&window);
        pane->setWindowFlags(Qt::Widget);
        pane->show();
        edit = new QLineEdit(pane);
        dialog.SubclassWindow(pane);
        dialog.steps.clear();
        window.show();
    }

    KeyListener window;
    QPointer<QDialog> pane;
    QPointer<QLineEdit> edit;
    ScriptDialog dialog;
};

QPushButton* addButton(QWidget* parent, const char* name)
{
    auto* const button = new QPushButton(parent);
    button->setObjectName(QString::fromLatin1(name));
    return button;
}

tagMSG keyMessage(UINT message, WPARAM key)
{
    tagMSG result{};
    result.message = message;
    result.wParam = key;
    return result;
}

using Make = std::function<int(CDialog_X&, CWnd_X*)>;

} // namespace
Q_DECLARE_METATYPE(Make)

class tst_Dialog : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void runtimeClass();
    void idsOfTheButtons();
    void commandMessagesAreNotTaken();
    void attachedByDefault();

    void modeless_data();
    void modeless();
    void modelessWithoutParentOrMainFrame();
    void modelessRefused();
    void endedModelessDialogIsHiddenAndStays();
    void withoutAWidget();
    void failingExchangeKeepsAModelessDialogOpen();

    void namedButton_data();
    void namedButton();
    void namedWidgetWithoutClickIsLetBe();
    void connectionsOfTheFormMoveToTheWrapper();
    void buttonIsConnectedOnce();

    void screenedMessage_data();
    void screenedMessage();
    void keyInAnEmbeddedDialog_data();
    void keyInAnEmbeddedDialog();
    void keyTakenInAnEmbeddedDialogEndsThere();
    void keyInATopLevelDialogStaysThere();
};

// -------------------------------------------------------------------------------------------------------------- making

void tst_Dialog::runtimeClass()
{
    const QScopedPointer<CObject_X> made(CDialog_X::CreateObject());
    QCOMPARE(made->GetRuntimeClass(), &CDialog_X::s_classInfo);
    QVERIFY(CDialog_X::s_classInfo.IsDerivedFrom(&CWnd_X::s_classInfo));
    QCOMPARE(CDialog_X::s_classInfo.GetImpMetaObject(), &QDialog::staticMetaObject);

    QDialog dialog;
    CDialog_X wrapper;
    QWidget plain;
    QVERIFY(wrapper.SubclassWindow(&dialog));
    QCOMPARE(wrapper.SubclassWindow(&plain), 0);
    QMessageBox other;
    QCOMPARE(QByteArray(CWnd_X::FromHandle(&other)->GetClassName()), QByteArray("CDialog_X"));
}

void tst_Dialog::idsOfTheButtons()
{
    QCOMPARE((QVector<int>{IDOK, IDCANCEL, IDABORT, IDRETRY, IDIGNORE, IDYES, IDNO, IDCLOSE}),
             (QVector<int>{1, 2, 3, 4, 5, 6, 7, 8}));
}

void tst_Dialog::commandMessagesAreNotTaken()
{
    CDialog_X dialog;
    QCOMPARE(dialog.OnCmdMsg(1, 2, this, nullptr), 0);
}

void tst_Dialog::attachedByDefault()
{
    QWidget parent;
    CDialog_X dialog;
    QVERIFY(dialog.AttachDefault(&parent));
    auto* const widget = dialog.Imp<QDialog>();
    QVERIFY(widget);
    QCOMPARE(widget->parentWidget(), &parent);
    QCOMPARE(GetParent_X(widget), &parent);
    QVERIFY(!dialog.IsExternalImpObj());
    QVERIFY(!widget->testAttribute(Qt::WA_Hover));
    QVERIFY(!widget->hasMouseTracking());
}

void tst_Dialog::modeless_data()
{
    QTest::addColumn<Make>("make");
    QTest::newRow("by id") << Make([](CDialog_X& dialog, CWnd_X* parent) { return dialog.Create(100u, parent); });
    QTest::newRow("by name") << Make([](CDialog_X& dialog, CWnd_X* parent) { return dialog.Create(L"PART", parent); });
    QTest::newRow("by a null name") << Make(
        [](CDialog_X& dialog, CWnd_X* parent) { return dialog.Create(static_cast<const wchar_t*>(nullptr), parent); });
}

// The parent given at construction counts no more.
void tst_Dialog::modeless()
{
    QFETCH(Make, make);
    QWidget frame;
    frame.setObjectName(QStringLiteral("CTavoMainFrame"));
    QWidget first;
    QWidget second;
    CWnd_X window;
    QVERIFY(window.SubclassWindow(&second));
    CWnd_X* const none = nullptr;
    for (CWnd_X* parent : {&window, none}) {
        ScriptDialog dialog(&first);
        QCOMPARE(make(dialog, parent), 1);
        const QPointer<QWidget> widget = dialog.GetSafeHwnd();
        QCOMPARE(widget->parentWidget(), parent ? &second : &frame);
        QVERIFY(widget->isWindow());
        QVERIFY(!widget->isVisible());
        QCOMPARE(dialog.takeSteps(), QStringLiteral("OnCreate SetupUI OnInitDialog ConnectSlotsFrom OnMessageMap"));
        QCOMPARE(dialog.DestroyWindow(), 1);
        QCOMPARE(dialog.takeSteps(), QStringLiteral("DestroyWindow PostNcDestroy"));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!widget);
    }
}

void tst_Dialog::modelessWithoutParentOrMainFrame()
{
    CDialog_X dialog;
    QCOMPARE(dialog.Create(100u, nullptr), 1);
    QVERIFY(!dialog.GetSafeHwnd()->parentWidget());
}

void tst_Dialog::modelessRefused()
{
    QWidget parent;
    CWnd_X window;
    QVERIFY(window.SubclassWindow(&parent));
    ScriptDialog dialog;
    dialog.start = [] { return FALSE; };
    QCOMPARE(dialog.Create(100u, &window), 0);
    QVERIFY(!dialog.GetSafeHwnd());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!parent.findChild<QDialog*>());
}

void tst_Dialog::endedModelessDialogIsHiddenAndStays()
{
    CDialog_X dialog;
    QVERIFY(dialog.Create(100u));
    auto* const widget = dialog.Imp<QDialog>();
    const QSignalSpy ends(widget, &QDialog::finished);
    widget->show();
    dialog.EndDialog(5);
    QVERIFY(!widget->isVisible());
    QCOMPARE(dialog.GetSafeHwnd(), widget);
    QCOMPARE(widget->result(), 5);
    QCOMPARE(ends.size(), 1);
}

void tst_Dialog::withoutAWidget()
{
    ScriptDialog dialog;
    dialog.EndDialog(IDOK);
    dialog.accept();
    dialog.reject();
    QCOMPARE(dialog.takeSteps(), QStringLiteral("OnOK OnCancel"));
    QCOMPARE(dialog.CDialog_X::OnInitDialog(), 1);
    QCOMPARE(dialog.DestroyWindow(), 0);
}

void tst_Dialog::failingExchangeKeepsAModelessDialogOpen()
{
    bool fails = false;
    ScriptDialog dialog;
    dialog.exchange = [&fails](CDataExchange_X* exchange) {
        if (fails)
            exchange->Fail();
    };
    QVERIFY(dialog.Create(100u));
    fails = true;
    dialog.GetSafeHwnd()->show();
    dialog.accept();
    QVERIFY(dialog.GetSafeHwnd()->isVisible());
    fails = false;
    dialog.accept();
    QVERIFY(!dialog.GetSafeHwnd()->isVisible());
}

// ------------------------------------------------------------------------------------------------------------- buttons

void tst_Dialog::namedButton_data()
{
    QTest::addColumn<QString>("asked");
    QTest::newRow("OK") << QStringLiteral("OnOK");
    QTest::newRow("Cancel") << QStringLiteral("OnCancel");
    QTest::newRow("Apply") << QString();
    QTest::newRow("ok") << QString();
    QTest::newRow("cancel") << QString();
    QTest::newRow("IDOK") << QString();
}

// The buttons need not be direct children.
void tst_Dialog::namedButton()
{
    QDialog widget;
    QWidget* const panel = new QWidget(&widget);
    QPushButton* const button = addButton(panel, QTest::currentDataTag());
    ScriptDialog dialog;
    QVERIFY(dialog.SubclassWindow(&widget));
    dialog.steps.clear();
    widget.show();
    QTest::mouseClick(button, Qt::LeftButton);
    QFETCH(const QString, asked);
    QCOMPARE(dialog.takeSteps(), asked);
    QCOMPARE(widget.isVisible(), asked.isEmpty());
}

void tst_Dialog::namedWidgetWithoutClickIsLetBe()
{
    QDialog widget;
    for (const char* name : {"OK", "Cancel"}) {
        auto* const label = new QLabel(&widget);
        label->setObjectName(QString::fromLatin1(name));
    }
    CDialog_X dialog;
    QVERIFY(dialog.SubclassWindow(&widget));
}

void tst_Dialog::connectionsOfTheFormMoveToTheWrapper()
{
    QDialog widget;
    auto* const box = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &widget);
    connect(box, SIGNAL(accepted()), &widget, SLOT(accept()));
    connect(box, SIGNAL(rejected()), &widget, SLOT(reject()));
    bool fails = true;
    ScriptDialog dialog;
    QVERIFY(dialog.SubclassWindow(&widget));
    dialog.exchange = [&fails](CDataExchange_X* exchange) {
        if (fails)
            exchange->Fail();
    };
    dialog.steps.clear();
    widget.show();
    box->button(QDialogButtonBox::Ok)->click();
    QCOMPARE(dialog.takeSteps(), QStringLiteral("OnOK"));
    QVERIFY(widget.isVisible()); // nobody has asked the QDialog
    fails = false;
    box->button(QDialogButtonBox::Cancel)->click();
    QCOMPARE(dialog.takeSteps(), QStringLiteral("OnCancel"));
    QVERIFY(!widget.isVisible());
}

// Connected by the form too, and the wrapper attached twice: one click is one OnOK().
void tst_Dialog::buttonIsConnectedOnce()
{
    QDialog widget;
    QPushButton* const button = addButton(&widget, "OK");
    connect(button, SIGNAL(clicked()), &widget, SLOT(accept()));
    ScriptDialog dialog;
    QVERIFY(dialog.SubclassWindow(&widget));
    dialog.ConnectSlotsFrom(&widget, false);
    dialog.steps.clear();
    button->click();
    QCOMPARE(dialog.takeSteps(), QStringLiteral("OnOK"));
}

// ---------------------------------------------------------------------------------------------------------------- keys

void tst_Dialog::screenedMessage_data()
{
    QTest::addColumn<UINT>("message");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("result");
    QTest::newRow("Esc is taken") << WM_KEYDOWN << 27 << 1;
    QTest::newRow("Enter is not") << WM_KEYDOWN << 13 << 0;
    QTest::newRow("letting go of Esc is not") << WM_KEYUP << 27 << 0;
    QTest::newRow("the character of Esc is not") << WM_CHAR << 27 << 0;
    QTest::newRow("Esc with Alt is not") << WM_SYSKEYDOWN << 27 << 0;
}

void tst_Dialog::screenedMessage()
{
    QFETCH(UINT, message);
    QFETCH(int, key);
    tagMSG screened = keyMessage(message, static_cast<WPARAM>(key));
    ScriptDialog dialog;
    QCOMPARE(dialog.PreTranslateMessage(&screened), 1); // no widget
    QVERIFY(dialog.Create(100u));
    dialog.steps.clear();
    QCOMPARE(dialog.PreTranslateMessage(nullptr), 0);
    QTEST(dialog.PreTranslateMessage(&screened), "result");
    QFETCH(const int, result);
    QCOMPARE(dialog.takeSteps(), result ? QStringLiteral("OnCancel") : QString());

    QWidget window;
    dialog.GetSafeHwnd()->setParent(&window, Qt::Widget);
    QCOMPARE(dialog.PreTranslateMessage(&screened), 0);
    QCOMPARE(dialog.takeSteps(), QString());
}

void tst_Dialog::keyInAnEmbeddedDialog_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Esc") << int(Qt::Key_Escape);
    QTest::newRow("letter") << int(Qt::Key_A);
    QTest::newRow("F5") << int(Qt::Key_F5);
}

void tst_Dialog::keyInAnEmbeddedDialog()
{
    QFETCH(int, key);
    EmbeddedDialog embedded;
    QTest::keyClick(embedded.pane, static_cast<Qt::Key>(key));
    QCOMPARE(embedded.window.keys, QVector<int>{key});
    QCOMPARE(embedded.dialog.takeSteps(), QString());
}

void tst_Dialog::keyTakenInAnEmbeddedDialogEndsThere()
{
    EmbeddedDialog embedded;
    QTest::keyClick(embedded.edit, Qt::Key_A);
    QCOMPARE(embedded.edit->text(), QStringLiteral("a"));
    QCOMPARE(embedded.window.keys, QVector<int>());

    embedded.dialog.AddMsgMapEntry(WM_KEYDOWN, 25, nullptr, nullptr); // handled, whatever it does
    QTest::keyClick(embedded.pane, Qt::Key_F5);
    QCOMPARE(embedded.window.keys, QVector<int>());
}

// QDialog takes Enter for itself; an embedded one lets it go up all the same.
void tst_Dialog::keyInATopLevelDialogStaysThere()
{
    QDialog widget;
    CDialog_X dialog;
    QVERIFY(dialog.SubclassWindow(&widget));
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &enter);
    QVERIFY(enter.isAccepted());

    EmbeddedDialog embedded;
    QTest::keyClick(embedded.pane, Qt::Key_Return);
    QCOMPARE(embedded.window.keys, QVector<int>{Qt::Key_Return});
}

XE_TEST(tst_Dialog)
#include "tst_dialog.moc"
