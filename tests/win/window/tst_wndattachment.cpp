// An attachment step by step: the order, what undoes it, and what comes after it.

#include "creationwitness.h"
#include "deletelater.h"
#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QLabel>

namespace {

class WitnessDialog : public Witness<CDialog_X>
{
public:
    using Witness::Witness;

    BOOL OnInitDialog() override
    {
        log += QStringLiteral("OnInitDialog");
        answers += SendMessage(question);
        return initAnswer;
    }

    BOOL initAnswer = TRUE;
};

} // namespace

class tst_WndAttachment : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void orderOfAnAttachment();
    void createStructHoldsTheStyleAlone();
    void messagesFindNoEntryBeforeTheMapIsFilled();

    void aRefusalUndoesTheCreation_data();
    void aRefusalUndoesTheCreation();
    void aRefusalLeavesAnAdoptedWidgetAlone();
    void onCreateMayLetGo();
    void onCreateMayDeleteTheWidget();

    void attachedAgain();
    void theNextWidgetTakesTheRoomOfTheFirst();
    void widgetOfTheWrongKind();
    void dialogItemIsFoundByName();
};

// ---------------------------------------------------------------------------------------------------------- order

void tst_WndAttachment::orderOfAnAttachment()
{
    QWidget parent;
    auto* const widget = new QWidget(&parent);
    const QString order = QStringLiteral("OnCreate SetupUI ConnectSlotsFrom(imp, 0) OnMessageMap");

    for (const auto& form : forms) {
        WitnessWindow window;
        form.second(window, &parent);
        QCOMPARE(window.take(), order);
    }
    WitnessWindow adopting;
    QCOMPARE(adopting.SubclassWindow(widget), 1);
    QCOMPARE(adopting.take(), order + QStringLiteral(" PreSubclassWindow"));

    WitnessDialog dialog;
    const QString dialogOrder = QStringLiteral("OnCreate SetupUI OnInitDialog ConnectSlotsFrom(imp, 0) OnMessageMap");
    QCOMPARE(dialog.CWnd_X::Create(&parent), 1);
    QCOMPARE(dialog.take(), dialogOrder);
    QDialog form(&parent);
    QCOMPARE(dialog.SubclassWindow(&form), 1);
    QCOMPARE(dialog.take(), dialogOrder + QStringLiteral(" PreSubclassWindow"));
}

void tst_WndAttachment::createStructHoldsTheStyleAlone()
{
    QWidget parent;
    WitnessWindow window;
    window.Create(WS_POPUP | WS_VSCROLL, CRect(10, 20, 30, 40), &parent);
    QCOMPARE(window.createStructs.size(), 1);
    const tagCREATESTRUCTW& created = window.createStructs.first();
    QCOMPARE(static_cast<DWORD>(created.style), WS_POPUP | WS_VSCROLL);
    QVERIFY(!created.lpCreateParams && !created.hInstance && !created.hMenu && !created.hwndParent);
    QVERIFY(!created.x && !created.y && !created.cx && !created.cy && !created.dwExStyle);
    QVERIFY(!created.lpszName && !created.lpszClass);
}

void tst_WndAttachment::messagesFindNoEntryBeforeTheMapIsFilled()
{
    QWidget parent;
    WitnessDialog dialog;
    dialog.CWnd_X::Create(&parent);
    QCOMPARE(dialog.answers, (QVector<LRESULT>{0, 0, 0, 0})); // OnCreate twice, OnInitDialog, ConnectSlotsFrom
    QCOMPARE(dialog.SendMessage(question), 7LL);
}

// -------------------------------------------------------------------------------------------------------- refusals

void tst_WndAttachment::aRefusalUndoesTheCreation_data()
{
    QTest::addColumn<CreateForm>("form");
    QTest::addColumn<int>("createAnswer");
    QTest::addColumn<BOOL>("initAnswer");
    QTest::addColumn<QString>("steps");
    for (const auto& form : forms) {
        QTest::addRow("OnCreate -1, by %s", form.first) << form.second << -1 << TRUE << "OnCreate SetupUI";
        QTest::addRow("OnCreate 1, by %s", form.first) << form.second << 1 << TRUE << "OnCreate SetupUI";
        QTest::addRow("OnInitDialog, by %s", form.first)
            << form.second << 0 << FALSE << "OnCreate SetupUI OnInitDialog";
    }
}

void tst_WndAttachment::aRefusalUndoesTheCreation()
{
    QFETCH(CreateForm, form);
    QFETCH(int, createAnswer);
    QFETCH(BOOL, initAnswer);
    QWidget parent;
    WitnessDialog dialog;
    dialog.createAnswer = createAnswer;
    dialog.initAnswer = initAnswer;
    QCOMPARE(form(dialog, &parent), 0);
    QTEST(dialog.take(), "steps");
    QCOMPARE(dialog.GetSafeHwnd(), nullptr);

    const QPointer<QWidget> widget = parent.findChild<QDialog*>();
    QVERIFY(widget); // until the event loop runs
    QCOMPARE(CWnd_X::FromHandlePermanent(widget), nullptr);
    deleteLaterObjects();
    QVERIFY(!widget);

    dialog.createAnswer = 0;
    dialog.initAnswer = TRUE;
    QCOMPARE(form(dialog, &parent), 1);
}

void tst_WndAttachment::aRefusalLeavesAnAdoptedWidgetAlone()
{
    QWidget widget;
    WitnessWindow window;
    window.createAnswer = 1;
    QCOMPARE(window.SubclassWindow(&widget), 0);
    QCOMPARE(window.take(), QStringLiteral("OnCreate SetupUI"));
    QCOMPARE(window.GetSafeHwnd(), nullptr);
    QCOMPARE(widget.dynamicPropertyNames(), QList<QByteArray>());
    deleteLaterObjects();
    QVERIFY(widget.children().isEmpty());
}

void tst_WndAttachment::onCreateMayLetGo()
{
    QWidget parent;
    WitnessWindow window;
    window.setup = [&] { window.Detach(); };
    QCOMPARE(window.Create(WS_VISIBLE, &parent), 0);
    deleteLaterObjects();
    QVERIFY(parent.children().isEmpty());
}

void tst_WndAttachment::onCreateMayDeleteTheWidget()
{
    QWidget parent;
    WitnessWindow window;
    window.setup = [&] { delete window.GetSafeHwnd(); };
    QCOMPARE(window.Create(WS_VISIBLE, CRect(0, 0, 10, 10), &parent), 0);
    QCOMPARE(window.GetSafeHwnd(), nullptr);
}

// --------------------------------------------------------------------------------------------------- attached again

void tst_WndAttachment::attachedAgain()
{
    QWidget first;
    QWidget second;
    WitnessWindow window;
    window.SubclassWindow(&first);
    window.Detach();
    QCOMPARE(first.dynamicPropertyNames(), QList<QByteArray>());
    deleteLaterObjects();
    QVERIFY(first.children().isEmpty());
    QCOMPARE(SendMessage_X(&first, question, 0, 0), 0LL);

    window.take();
    QCOMPARE(window.SubclassWindow(&second), 1);
    QCOMPARE(window.take(), QStringLiteral("OnCreate SetupUI ConnectSlotsFrom(imp, 0) OnMessageMap PreSubclassWindow"));
    QCOMPARE(window.SendMessage(question), 7LL);
    QCOMPARE(second.children().size(), 1);
}

void tst_WndAttachment::theNextWidgetTakesTheRoomOfTheFirst()
{
    QWidget parent;
    QWidget second;
    CWnd_X window;
    window.Create(WS_VISIBLE | WS_HSCROLL | WS_VSCROLL, &parent);
    const QPointer<QWidget> first = window.GetSafeHwnd();
    QCOMPARE(window.SubclassWindow(&second), 1);
    QVERIFY(first);
    QCOMPARE(CWnd_X::FromHandlePermanent(first), nullptr);
    deleteLaterObjects();
    QVERIFY(!first);
    QCOMPARE(window.GetSafeHwnd(), &second);
    QCOMPARE(window.GetScrollBarCtrl(SB_VERT)->parentWidget(), &second); // the style is still the same
}

void tst_WndAttachment::widgetOfTheWrongKind()
{
    QDialog form;
    QLabel label;
    CDialog_X dialog;
    dialog.SubclassWindow(&form);
    QCOMPARE(dialog.SubclassWindow(&label), 0);
    QCOMPARE(label.dynamicPropertyNames(), QList<QByteArray>());
    QVERIFY(label.children().isEmpty());
    QCOMPARE(dialog.GetSafeHwnd(), &form);
}

void tst_WndAttachment::dialogItemIsFoundByName()
{
    QWidget widget;
    QWidget group(&widget);
    QLabel label(&group);
    label.setObjectName(QStringLiteral("Name"));
    CWnd_X parent;
    parent.SubclassWindow(&widget);

    WitnessWindow item;
    QCOMPARE(item.SubclassDlgItem("name", &parent), 0);
    QCOMPARE(item.SubclassDlgItem("Name", nullptr), 0);
    QCOMPARE(item.SubclassDlgItem(nullptr, &parent), 0);
    CWnd_X without;
    QCOMPARE(item.SubclassDlgItem("Name", &without), 0);
    QCOMPARE(item.take(), QString());
    QCOMPARE(item.SubclassDlgItem("Name", &parent), 1);
    QCOMPARE(item.GetSafeHwnd(), &label);
    QVERIFY(item.IsExternalImpObj());
    QVERIFY(item.take().endsWith(QStringLiteral(" PreSubclassWindow")));
}

XE_TEST(tst_WndAttachment)
#include "tst_wndattachment.moc"
