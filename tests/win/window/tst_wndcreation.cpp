// How a window comes to life: the forms of Create, and what an attachment makes of bars, lists and slots.

#include "creationwitness.h"
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

    void onCreateMakesTheBars_data();
    void onCreateMakesTheBars();
    void comboBoxesBelowShowWholeTexts();
    void listsOfComboBoxesAreMadeWhenAskedFor();
    void laterModesOfListsStay_data();
    void laterModesOfListsStay();
    void slotsMoveToTheWrapper();
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

// ------------------------------------------------------------------------------------------ bars, lists and slots

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

XE_TEST(tst_WndCreation)
#include "tst_wndcreation.moc"
