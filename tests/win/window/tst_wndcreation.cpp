// How a window comes to life: the forms of Create, the order of an attachment, and what undoes it.

#include "deletelater.h"
#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QAbstractItemView>
#include <QLabel>
#include <QListView>
#include <QMenuBar>
#include <QPushButton>
#include <QStyledItemDelegate>

namespace {

constexpr UINT question = WM_USER + 1;

// Writes down the steps of its attachment, and refuses at one of them if told so.
template <class Base>
class Witness : public Base
{
public:
    using Base::Base;

    void SetupUI() override
    {
        log += QStringLiteral("SetupUI");
        if (setup)
            setup();
    }
    int OnCreate(tagCREATESTRUCTW* createStruct) override
    {
        log += QStringLiteral("OnCreate");
        createStructs.append(*createStruct);
        answers += this->SendMessage(question);
        const int base = Base::OnCreate(createStruct);
        answers += this->SendMessage(question);
        return createAnswer ? createAnswer : base;
    }
    void ConnectSlotsFrom(QObject* from, bool keep) override
    {
        log += QStringLiteral("ConnectSlotsFrom(%1, %2)").arg(from == this->GetSafeHwnd() ? "imp" : "?").arg(keep);
        answers += this->SendMessage(question);
        Base::ConnectSlotsFrom(from, keep);
    }
    void OnMessageMap() override
    {
        log += QStringLiteral("OnMessageMap");
        Base::OnMessageMap();
        using ThisClass = Witness;
        ON_MESSAGE_X(question, onQuestion)
    }
    void PreSubclassWindow() override { log += QStringLiteral("PreSubclassWindow"); }
    LRESULT onQuestion(WPARAM, LPARAM) { return 7; }

    QString take() { return std::exchange(log, {}).join(QLatin1Char(' ')); }

    QStringList log;
    QVector<tagCREATESTRUCTW> createStructs;
    QVector<LRESULT> answers;
    std::function<void()> setup;
    int createAnswer = 0;
};

using WitnessWindow = Witness<CWnd_X>;

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

// The three forms of Create.
using CreateForm = int (*)(CWnd_X& window, QWidget* parent);
const QVector<QPair<const char*, CreateForm>> forms = {
    {"parent", [](CWnd_X& window, QWidget* parent) { return window.Create(parent); }},
    {"style", [](CWnd_X& window, QWidget* parent) { return window.Create(WS_CHILD, parent); }},
    {"rectangle",
     [](CWnd_X& window, QWidget* parent) { return window.Create(WS_CHILD, CRect(10, 20, 110, 70), parent); }},
};

// What a window has been given by its style, such as "shown vertical".
QString appearance(const CWnd_X& window)
{
    QStringList words;
    if (!window.GetSafeHwnd()->isHidden())
        words += QStringLiteral("shown");
    for (const int bar : {SB_VERT, SB_HORZ}) {
        if (window.GetScrollBarCtrl(bar))
            words += bar == SB_VERT ? QStringLiteral("vertical") : QStringLiteral("horizontal");
        if (window.GetScrollBarCtrl(bar) && !window.IsScrollBarEnabled(bar))
            words += QStringLiteral("(hidden)");
    }
    if (!window.GetSafeHwnd()->isEnabled())
        words += QStringLiteral("disabled");
    if (window.GetSafeHwnd()->windowState() != Qt::WindowNoState)
        words += QStringLiteral("state");
    return words.join(QLatin1Char(' '));
}

template <class Creation>
QString appearanceOf(DWORD style, Creation create)
{
    CWnd_X window;
    if (create(window) != 1 || window.GetStyle() != style)
        return QStringLiteral("not created");
    const QString seen = appearance(window);
    window.DestroyWindow();
    return seen;
}

} // namespace

Q_DECLARE_METATYPE(CreateForm)

class FormWidget : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;
    int heard = 0;

public Q_SLOTS:
    void onClicked() { ++heard; }
};

class FormWindow : public CWnd_X
{
    Q_OBJECT

public:
    int heard = 0;

public Q_SLOTS:
    void onClicked() { ++heard; }
};

class tst_WndCreation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void styleDecidesWhatIsShown_data();
    void styleDecidesWhatIsShown();
    void nullParent_data();
    void nullParent();
    void aRectangleIsAPlaceInTheParent();
    void aClassMayMakeAnotherWidget();

    void orderOfAnAttachment();
    void createStructHoldsTheStyleAlone();
    void messagesFindNoEntryBeforeTheMapIsFilled();
    void onCreateMakesTheBars_data();
    void onCreateMakesTheBars();
    void comboBoxesBelowShowWholeTexts();
    void listsOfComboBoxesAreMadeWhenAskedFor();
    void laterModesOfListsStay_data();
    void laterModesOfListsStay();
    void slotsMoveToTheWrapper();

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

// ---------------------------------------------------------------------------------------------------------- forms

void tst_WndCreation::styleDecidesWhatIsShown_data()
{
    QTest::addColumn<DWORD>("style");
    QTest::addColumn<QString>("expected");
    QTest::newRow("none") << DWORD(0) << "";
    QTest::newRow("visible") << WS_VISIBLE << "shown";
    QTest::newRow("vertical bar") << WS_VSCROLL << "vertical";
    QTest::newRow("horizontal bar") << WS_HSCROLL << "horizontal";
    QTest::newRow("both bars") << (WS_HSCROLL | WS_VSCROLL) << "vertical horizontal";
    QTest::newRow("all three") << (WS_VISIBLE | WS_HSCROLL | WS_VSCROLL) << "shown vertical horizontal";
    QTest::newRow("all the other bits do nothing") << ~(WS_VISIBLE | WS_HSCROLL | WS_VSCROLL) << "";
}

void tst_WndCreation::styleDecidesWhatIsShown()
{
    QFETCH(DWORD, style);
    QTEST(appearanceOf(style, [=](CWnd_X& window) { return window.Create(style, nullptr); }), "expected");
    QTEST(appearanceOf(style, [=](CWnd_X& window) { return window.Create(style, CRect(0, 0, 50, 50), nullptr); }),
          "expected");
}

void tst_WndCreation::nullParent_data()
{
    QTest::addColumn<CreateForm>("form");
    for (const auto& form : forms)
        QTest::newRow(form.first) << form.second;
}

void tst_WndCreation::nullParent()
{
    QFETCH(CreateForm, form);
    CWnd_X alone;
    QCOMPARE(form(alone, nullptr), 1);
    QCOMPARE(alone.GetSafeHwnd()->parentWidget(), nullptr);
    QVERIFY(alone.GetSafeHwnd()->isWindow());
    alone.DestroyWindow();
    deleteLaterObjects();

    QWidget frame;
    frame.setObjectName(QStringLiteral("CTavoMainFrame"));
    QWidget parent;
    CWnd_X inFrame;
    CWnd_X inParent;
    QCOMPARE(form(inFrame, nullptr), 1);
    QCOMPARE(inFrame.GetSafeHwnd()->parentWidget(), &frame);
    QCOMPARE(form(inParent, &parent), 1);
    QCOMPARE(inParent.GetSafeHwnd()->parentWidget(), &parent);
}

void tst_WndCreation::aRectangleIsAPlaceInTheParent()
{
    QWidget parent;
    CWnd_X window;
    window.Create(WS_CHILD, CRect(10, 20, 110, 70), &parent);
    QCOMPARE(window.GetSafeHwnd()->geometry(), QRect(10, 20, 100, 50));
    CWnd_X swapped;
    swapped.Create(WS_CHILD, CRect(110, 70, 10, 20), &parent);
    QCOMPARE(swapped.GetSafeHwnd()->geometry(), QRect(110, 70, 100, 50));
}

void tst_WndCreation::aClassMayMakeAnotherWidget()
{
    class LabelWindow : public CWnd_X
    {
    public:
        bool AttachDefault(QWidget* parent) override { return Attach(new QLabel(parent), parent, false); }
    };
    QWidget parent;
    for (const auto& form : forms) {
        LabelWindow window;
        QCOMPARE(form.second(window, &parent), 1);
        QVERIFY(window.Imp<QLabel>());
    }
}

// ---------------------------------------------------------------------------------------------------------- order

void tst_WndCreation::orderOfAnAttachment()
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

void tst_WndCreation::createStructHoldsTheStyleAlone()
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

void tst_WndCreation::messagesFindNoEntryBeforeTheMapIsFilled()
{
    QWidget parent;
    WitnessDialog dialog;
    dialog.CWnd_X::Create(&parent);
    QCOMPARE(dialog.answers, (QVector<LRESULT>{0, 0, 0, 0})); // OnCreate twice, OnInitDialog, ConnectSlotsFrom
    QCOMPARE(dialog.SendMessage(question), 7LL);
}

void tst_WndCreation::onCreateMakesTheBars_data()
{
    QTest::addColumn<DWORD>("style");
    QTest::addColumn<QString>("children");
    QTest::newRow("menu bar alone") << WS_VISIBLE << "menu";
    QTest::newRow("horizontal bar") << WS_HSCROLL << "horizontal menu";
    QTest::newRow("vertical bar") << WS_VSCROLL << "vertical menu";
    QTest::newRow("both") << (WS_HSCROLL | WS_VSCROLL) << "horizontal vertical menu";
}

void tst_WndCreation::onCreateMakesTheBars()
{
    QFETCH(DWORD, style);
    QWidget widget;
    CWnd_X window;
    window.ModifyStyle(0, style);
    window.SubclassWindow(&widget);

    QStringList children;
    for (const QObject* child : widget.children()) {
        if (const auto* bar = qobject_cast<const QScrollBar*>(child))
            children +=
                bar->orientation() == Qt::Horizontal ? QStringLiteral("horizontal") : QStringLiteral("vertical");
        if (const auto* bar = qobject_cast<const QMenuBar*>(child))
            children += bar->isHidden() ? QStringLiteral("menu") : QStringLiteral("shown menu");
    }
    QTEST(children.join(QLatin1Char(' ')), "children");
    QCOMPARE(widget.children().size(), children.size());
}

void tst_WndCreation::comboBoxesBelowShowWholeTexts()
{
    QWidget parent;
    QComboBox beside(&parent);
    QComboBox itself(&parent);
    QComboBox below(&itself);
    QPointer<QComboBox> built;
    QCOMPARE(below.view()->textElideMode(), Qt::ElideMiddle);

    WitnessWindow window;
    window.setup = [&] { built = new QComboBox(new QWidget(window.GetSafeHwnd())); };
    window.SubclassWindow(&itself);
    QCOMPARE(below.view()->textElideMode(), Qt::ElideNone);
    QCOMPARE(built->view()->textElideMode(), Qt::ElideNone);
    QCOMPARE(beside.view()->textElideMode(), Qt::ElideMiddle);
    QCOMPARE(itself.view()->textElideMode(), Qt::ElideMiddle);
}

void tst_WndCreation::listsOfComboBoxesAreMadeWhenAskedFor()
{
    QWidget widget;
    QComboBox opened(&widget);
    opened.addItems({QStringLiteral("one"), QStringLiteral("two")});
    QComboBox edited(&widget);
    QComboBox replaced(&widget);
    CWnd_X window;
    window.SubclassWindow(&widget);
    QVERIFY(widget.findChildren<QAbstractItemView*>().isEmpty());

    widget.show();
    QTest::ignoreMessage(QtWarningMsg, "This plugin does not support raise()");
    QTest::ignoreMessage(QtWarningMsg, "This plugin does not support grabbing the keyboard");
    opened.showPopup();
    QCOMPARE(opened.view()->textElideMode(), Qt::ElideNone);
    opened.hidePopup();
    edited.setEditable(true); // brings children that are no list
    QCOMPARE(edited.view()->textElideMode(), Qt::ElideNone);
    auto* const view = new QListView;
    view->setTextElideMode(Qt::ElideMiddle);
    replaced.setView(view);
    QCOMPARE(replaced.view()->textElideMode(), Qt::ElideMiddle);
}

void tst_WndCreation::laterModesOfListsStay_data()
{
    QTest::addColumn<bool>("isMadeBefore");
    QTest::newRow("list made before") << true;
    QTest::newRow("list made by the host's call") << false;
}

void tst_WndCreation::laterModesOfListsStay()
{
    QFETCH(bool, isMadeBefore);
    QWidget widget;
    QComboBox box(&widget);
    if (isMadeBefore)
        box.view();
    CWnd_X window;
    window.SubclassWindow(&widget);
    QCOMPARE(box.view()->textElideMode(), Qt::ElideNone);
    box.view()->setTextElideMode(Qt::ElideMiddle);
    box.setItemDelegate(new QStyledItemDelegate(box.view())); // another child of the list
    QCOMPARE(box.view()->textElideMode(), Qt::ElideMiddle);
    window.Detach();
    window.SubclassWindow(&widget);
    QCOMPARE(box.view()->textElideMode(), Qt::ElideNone);
}

void tst_WndCreation::slotsMoveToTheWrapper()
{
    FormWidget form;
    QPushButton button(&form);
    connect(&button, SIGNAL(clicked()), &form, SLOT(onClicked()));
    FormWindow window;
    window.SubclassWindow(&form);
    button.click();
    QCOMPARE(form.heard, 0);
    QCOMPARE(window.heard, 1);
}

// -------------------------------------------------------------------------------------------------------- refusals

void tst_WndCreation::aRefusalUndoesTheCreation_data()
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

void tst_WndCreation::aRefusalUndoesTheCreation()
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

void tst_WndCreation::aRefusalLeavesAnAdoptedWidgetAlone()
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

void tst_WndCreation::onCreateMayLetGo()
{
    QWidget parent;
    WitnessWindow window;
    window.setup = [&] { window.Detach(); };
    QCOMPARE(window.Create(WS_VISIBLE, &parent), 0);
    deleteLaterObjects();
    QVERIFY(parent.children().isEmpty());
}

void tst_WndCreation::onCreateMayDeleteTheWidget()
{
    QWidget parent;
    WitnessWindow window;
    window.setup = [&] { delete window.GetSafeHwnd(); };
    QCOMPARE(window.Create(WS_VISIBLE, CRect(0, 0, 10, 10), &parent), 0);
    QCOMPARE(window.GetSafeHwnd(), nullptr);
}

// --------------------------------------------------------------------------------------------------- attached again

void tst_WndCreation::attachedAgain()
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

void tst_WndCreation::theNextWidgetTakesTheRoomOfTheFirst()
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

void tst_WndCreation::widgetOfTheWrongKind()
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

void tst_WndCreation::dialogItemIsFoundByName()
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

XE_TEST(tst_WndCreation)
#include "tst_wndcreation.moc"
