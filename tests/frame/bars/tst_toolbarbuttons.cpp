// What is on a tool bar: its buttons, their indices and their state.

#include "bars/bartext.h"
#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QActionGroup>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolButton>

namespace {

QIcon redIcon()
{
    QPixmap picture(16, 15);
    picture.fill(Qt::red);
    return picture;
}

} // namespace

class tst_ToolBarButtons : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void actionsTakeThePlaceOfOthers();
    void numbersDoNothing();
    void actionsAreAdded_data();
    void actionsAreAdded();
    void actionsStayTheirOwners();
    void filesBecomeCheckButtons();
    void filesThatAreNoPictures();

    void buttonTriggersTheAction();
    void buttonShowsTheActionsState();
    void checkButtonFollowsTheAction();
    void checkedActionOfAGroupStaysChecked();
    void buttonOutlivesTheAction();
    void handlerDeletesActionAndBar();
    void buttonWithoutAction();
    void iconsWithoutAPicture_data();
    void iconsWithoutAPicture();
    void buttonByPath();
    void separators();
    void buttonIsTakenOff();

    void checkedAndEnabled_data();
    void checkedAndEnabled();
    void indices_data();
    void indices();
    void itemIds();
    void commandToIndex();
    void commandToIndexOfAnEmptyBar();
    void itemRectangles();
    void texts();
    void withoutWidget();

private:
    std::unique_ptr<QWidget> m_parent;
    std::unique_ptr<CToolBar_X> m_bar;
    std::unique_ptr<Commands> m_commands;
};

void tst_ToolBarButtons::init()
{
    m_parent = std::make_unique<QWidget>();
    m_bar = std::make_unique<CToolBar_X>();
    m_commands = std::make_unique<Commands>();
    m_bar->Create(m_parent.get());
}

void tst_ToolBarButtons::cleanup()
{
    m_bar.reset();
    m_commands.reset();
    m_parent.reset();
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

// ----------------------------------------------------------------------------------------------------------- filling

void tst_ToolBarButtons::actionsTakeThePlaceOfOthers()
{
    QCOMPARE(m_bar->SetButtons(m_commands->all()), 1);
    QCOMPARE(barText(*m_bar), QStringLiteral("New|Edit|-|Find"));
    QCOMPARE(m_bar->SetButtons({&m_commands->find, nullptr, &m_commands->create}), 1);
    QCOMPARE(barText(*m_bar), QStringLiteral("Find|New"));
    QCOMPARE(m_bar->SetButtons(QList<QAction*>()), 1);
    QCOMPARE(barText(*m_bar), QString());
}

void tst_ToolBarButtons::numbersDoNothing()
{
    m_bar->SetButtons(m_commands->all());
    const UINT ids[] = {1, 2};
    QCOMPARE(m_bar->SetButtons(ids, 2), 1);
    QCOMPARE(m_bar->SetButtons(nullptr, 0), 1);
    QCOMPARE(barText(*m_bar), QStringLiteral("New|Edit|-|Find"));
}

void tst_ToolBarButtons::actionsAreAdded_data()
{
    QTest::addColumn<int>("checkable");
    QTest::addColumn<QString>("expected");
    QTest::newRow("plain buttons") << 0 << "New|Edit|-|Find";
    QTest::newRow("check buttons") << 1 << "New.|Edit.|-|Find.";
    QTest::newRow("check buttons by another number") << -2 << "New.|Edit.|-|Find.";
}

void tst_ToolBarButtons::actionsAreAdded()
{
    QFETCH(int, checkable);
    QCOMPARE(m_bar->LoadToolBar(m_commands->all(), checkable), 1);
    QTEST(barText(*m_bar), "expected");
    QCOMPARE(m_commands->separator.isCheckable(), false);
    QCOMPARE(m_bar->LoadToolBar(QList<QAction*>(), checkable), 0);
    QCOMPARE(m_bar->LoadToolBar({nullptr, nullptr}, checkable), 0);
    QTEST(barText(*m_bar), "expected");
    QAction more(QStringLiteral("More"));
    QCOMPARE(m_bar->LoadToolBar({nullptr, &more}, 0), 1);
    QCOMPARE(barText(*m_bar).section(QLatin1Char('|'), -1), QStringLiteral("More"));
}

void tst_ToolBarButtons::actionsStayTheirOwners()
{
    m_bar->LoadToolBar(m_commands->all(), 0);
    QSignalSpy gone(&m_commands->edit, &QObject::destroyed);
    m_bar.reset();
    deleteLaterObjects();
    QCOMPARE(gone.size(), 0);
    QCOMPARE(m_commands->edit.parent(), nullptr);
}

void tst_ToolBarButtons::filesBecomeCheckButtons()
{
    const QTemporaryDir folder;
    const QString red = folder.filePath(QStringLiteral("red.png"));
    QVERIFY(stripOf({Qt::red}, 16, 15).save(red));
    QCOMPARE(m_bar->LoadToolBar({red, folder.filePath(QStringLiteral("none.png")), red}), 1);
    QCOMPARE(barText(*m_bar), QStringLiteral(".|."));
    const QList<QAction*> actions = m_bar->GetListActions();
    QCOMPARE(actions[0]->parent(), m_bar->GetSafeHwnd());
    QCOMPARE(actions[0]->icon().pixmap(16, 15).toImage().pixelColor(3, 3), QColor(Qt::red));
}

void tst_ToolBarButtons::filesThatAreNoPictures()
{
    QCOMPARE(m_bar->LoadToolBar(QList<QString>()), 0);
    QCOMPARE(m_bar->LoadToolBar({QStringLiteral("/nowhere/a.png"), QString(), QStringLiteral("/proc/self/exe")}), 0);
    QCOMPARE(barText(*m_bar), QString());
}

// --------------------------------------------------------------------------------------------------------- AddButton

void tst_ToolBarButtons::buttonTriggersTheAction()
{
    QCOMPARE(m_bar->AddButton(redIcon(), &m_commands->create), 1);
    QCOMPARE(m_bar->GetButtonCount(), 1);
    QAction* const button = m_bar->GetListActions()[0];
    QVERIFY(button != &m_commands->create);
    QCOMPARE(button->text(), QString());
    QCOMPARE(button->parent(), m_bar->GetSafeHwnd());
    m_parent->show();
    QSignalSpy triggered(&m_commands->create, &QAction::triggered);
    m_bar->DockBar(CBRS_TOP);
    auto* const widget = m_bar->Imp<QToolBar>()->widgetForAction(button);
    QTRY_VERIFY(widget->isVisible());
    QTest::mouseClick(widget, Qt::LeftButton);
    QCOMPARE(triggered.size(), 1);
}

void tst_ToolBarButtons::buttonShowsTheActionsState()
{
    m_commands->create.setEnabled(false);
    m_commands->create.setToolTip(QStringLiteral("Makes one"));
    m_bar->AddButton(redIcon(), &m_commands->create);
    const QAction* const button = m_bar->GetListActions()[0];
    QCOMPARE(button->isEnabled(), false);
    QCOMPARE(button->toolTip(), QStringLiteral("Makes one"));
    m_commands->create.setEnabled(true);
    m_commands->create.setToolTip(QStringLiteral("Makes two"));
    QCOMPARE(button->isEnabled(), true);
    QCOMPARE(button->toolTip(), QStringLiteral("Makes two"));
}

void tst_ToolBarButtons::checkButtonFollowsTheAction()
{
    m_commands->edit.setCheckable(true);
    m_bar->AddButton(redIcon(), &m_commands->edit);
    QAction* const button = m_bar->GetListActions()[0];
    QCOMPARE(barText(*m_bar), QStringLiteral("."));
    m_commands->edit.setChecked(true);
    QCOMPARE(barText(*m_bar), QStringLiteral("*"));
    button->trigger();
    QCOMPARE(m_commands->edit.isChecked(), false);
    QCOMPARE(barText(*m_bar), QStringLiteral("."));
}

void tst_ToolBarButtons::checkedActionOfAGroupStaysChecked()
{
    QActionGroup group(nullptr);
    for (QAction* action : {&m_commands->create, &m_commands->edit}) {
        group.addAction(action);
        action->setCheckable(true);
        m_bar->AddButton(redIcon(), action);
    }
    QAction* const button = m_bar->GetListActions()[0];
    button->trigger();
    QCOMPARE(barText(*m_bar), QStringLiteral("*|."));
    button->trigger();
    QCOMPARE(m_commands->create.isChecked(), true);
    QCOMPARE(barText(*m_bar), QStringLiteral("*|."));
    m_bar->GetListActions()[1]->trigger();
    QCOMPARE(barText(*m_bar), QStringLiteral(".|*"));
}

void tst_ToolBarButtons::buttonOutlivesTheAction()
{
    auto action = std::make_unique<QAction>(QStringLiteral("Short"));
    m_bar->AddButton(redIcon(), action.get());
    action.reset();
    QCOMPARE(barText(*m_bar), QStringLiteral("()"));
    m_bar->GetListActions()[0]->trigger();
}

void tst_ToolBarButtons::handlerDeletesActionAndBar()
{
    auto* const action = new QAction(QStringLiteral("Short"));
    m_bar->AddButton(redIcon(), action);
    QAction* const button = m_bar->GetListActions()[0];
    connect(action, &QAction::triggered, action, [&] {
        delete action;
        delete m_bar->GetSafeHwnd();
        m_bar.reset();
    });
    button->trigger();
    QVERIFY(!m_bar);
}

void tst_ToolBarButtons::buttonWithoutAction()
{
    QCOMPARE(m_bar->AddButton(redIcon(), nullptr), 0);
    QCOMPARE(m_bar->GetButtonCount(), 1);
    QCOMPARE(m_bar->GetListActions()[0]->icon().isNull(), false);
    QCOMPARE(m_bar->GetListActions()[0]->parent(), m_bar->GetSafeHwnd());
}

void tst_ToolBarButtons::iconsWithoutAPicture_data()
{
    QTest::addColumn<QIcon>("icon");
    QTest::newRow("null icon") << QIcon();
    QTest::newRow("missing file") << QIcon(QStringLiteral("/nowhere/a.png"));
    QTest::newRow("no picture in the file") << QIcon(QStringLiteral("/proc/self/exe"));
}

void tst_ToolBarButtons::iconsWithoutAPicture()
{
    QFETCH(QIcon, icon);
    QCOMPARE(m_bar->AddButton(icon, &m_commands->create), 0);
    QCOMPARE(m_bar->AddButton(icon, nullptr), 0);
    QCOMPARE(m_bar->GetButtonCount(), 0);
}

void tst_ToolBarButtons::buttonByPath()
{
    const QTemporaryDir folder;
    const QString red = folder.filePath(QStringLiteral("红.png"));
    QVERIFY(stripOf({Qt::red}, 16, 15).save(red));
    QCOMPARE(m_bar->AddButton(red, &m_commands->create), 1);
    QCOMPARE(m_bar->AddButton(red.toStdWString().c_str(), &m_commands->create), 1);
    QCOMPARE(m_bar->AddButton(L"/nowhere/a.png", &m_commands->create), 0);
    QCOMPARE(m_bar->AddButton(static_cast<const wchar_t*>(nullptr), &m_commands->create), 0);
    QCOMPARE(m_bar->AddButton(QString(), nullptr), 0);
    QCOMPARE(m_bar->GetButtonCount(), 2);
    m_bar->GetListActions()[1]->trigger();
}

void tst_ToolBarButtons::separators()
{
    QCOMPARE(m_bar->AddSeparator(nullptr), 1);
    QCOMPARE(m_bar->AddSeparator(&m_commands->create), 1);
    QCOMPARE(barText(*m_bar), QStringLiteral("-|-"));
    QCOMPARE(m_bar->GetButtonCount(), 0);
}

void tst_ToolBarButtons::buttonIsTakenOff()
{
    m_bar->LoadToolBar(m_commands->all(), 0);
    QCOMPARE(m_bar->DeleteButton(&m_commands->edit), 1);
    QCOMPARE(barText(*m_bar), QStringLiteral("New|-|Find"));
    QCOMPARE(m_bar->DeleteButton(&m_commands->edit), 1);
    QCOMPARE(m_bar->DeleteButton(&m_commands->separator), 1);
    QCOMPARE(m_bar->DeleteButton(nullptr), 0);
    QCOMPARE(barText(*m_bar), QStringLiteral("New|Find"));
    QCOMPARE(m_commands->edit.text(), QStringLiteral("Edit"));
}

// --------------------------------------------------------------------------------------------------------- one button

void tst_ToolBarButtons::checkedAndEnabled_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("checked"); // of a check button that was off, one that was on, and a plain one
    QTest::addColumn<bool>("enabled");
    QTest::newRow("1") << 1 << "New*|Edit*|-|Find*" << true;
    QTest::newRow("0") << 0 << "New.|Edit.|-|Find" << false;
    QTest::newRow("2, which is not 1") << 2 << "New.|Edit.|-|Find" << false;
    QTest::newRow("-1") << -1 << "New.|Edit.|-|Find" << false;
}

void tst_ToolBarButtons::checkedAndEnabled()
{
    QFETCH(int, value);
    QFETCH(bool, enabled);
    m_bar->LoadToolBar({&m_commands->create, &m_commands->edit}, 1);
    m_bar->LoadToolBar({&m_commands->separator, &m_commands->find}, 0);
    m_commands->edit.setChecked(true);
    for (QAction* action : m_bar->GetListActions())
        QCOMPARE(m_bar->CheckButton(action, value), 1);
    QTEST(barText(*m_bar), "checked");
    for (const bool before : {true, false}) {
        m_commands->create.setEnabled(before);
        QCOMPARE(m_bar->EnableButton(&m_commands->create, value), 1);
        QCOMPARE(m_commands->create.isEnabled(), enabled);
    }
    QCOMPARE(m_bar->CheckButton(nullptr, value), 0);
    QCOMPARE(m_bar->EnableButton(nullptr, value), 0);
}

void tst_ToolBarButtons::indices_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("text"); // without the separators
    QTest::addColumn<QString>("id");   // with them
    QTest::newRow("negative") << -1 << ""
                              << "";
    QTest::newRow("first") << 0 << "New"
                           << "New";
    QTest::newRow("ahead of the separator") << 1 << "Edit"
                                            << "Edit";
    QTest::newRow("behind the separator") << 2 << "Find"
                                          << "-";
    QTest::newRow("as many as buttons") << 3 << ""
                                        << "Find";
    QTest::newRow("beyond the end") << 4 << ""
                                    << "";
}

void tst_ToolBarButtons::indices()
{
    QFETCH(int, index);
    m_bar->LoadToolBar(m_commands->all(), 0);
    m_commands->separator.setText(QStringLiteral("-"));
    QTEST(m_bar->GetButtonText(index), "text");
    QString text = QStringLiteral("before");
    m_bar->GetButtonText(index, text);
    QTEST(text, "text");
    const auto* const action = reinterpret_cast<const QAction*>(m_bar->GetItemID(index));
    QTEST(action ? action->text() : QString(), "id");
}

void tst_ToolBarButtons::itemIds()
{
    QCOMPARE(m_bar->GetItemID(0), UINT_PTR(0));
    m_bar->LoadToolBar(m_commands->all(), 0);
    QCOMPARE(m_bar->GetItemID(3), reinterpret_cast<UINT_PTR>(&m_commands->find));
    QCOMPARE(m_bar->GetListActions(), (QList<QAction*>{&m_commands->create, &m_commands->edit, &m_commands->find}));
    QCOMPARE(m_bar->GetButtonCount(), 3);
}

void tst_ToolBarButtons::commandToIndex()
{
    m_bar->LoadToolBar(m_commands->all(), 0);
    QCOMPARE(m_bar->CommandToIndex(&m_commands->create), 0);
    QCOMPARE(m_bar->CommandToIndex(&m_commands->find), 2);
    QAction stranger;
    QCOMPARE(m_bar->CommandToIndex(&stranger), 3);
    QCOMPARE(m_bar->CommandToIndex(&m_commands->separator), 3);
    QCOMPARE(m_bar->CommandToIndex(nullptr), 3);
}

void tst_ToolBarButtons::commandToIndexOfAnEmptyBar()
{
    QCOMPARE(m_bar->CommandToIndex(&m_commands->create), -1);
    m_bar->AddSeparator(nullptr);
    QCOMPARE(m_bar->CommandToIndex(&m_commands->create), 0);
}

void tst_ToolBarButtons::itemRectangles()
{
    m_bar->LoadToolBar(m_commands->all(), 0);
    m_parent->resize(300, 100);
    m_bar->DockBar(CBRS_TOP);
    m_parent->show();
    const auto* const bar = m_bar->Imp<QToolBar>();
    QTRY_VERIFY(bar->widgetForAction(&m_commands->find)->isVisible());
    const QRect place = bar->widgetForAction(&m_commands->find)->geometry();
    CRect rect;
    m_bar->GetItemRect(m_bar->CommandToIndex(&m_commands->find), &rect);
    QCOMPARE(rect.left, place.left());
    QCOMPARE(rect.top, place.top());
    QCOMPARE(rect.right, place.left() + place.width() - 1);
    QCOMPARE(rect.bottom, place.top() + place.height() - 1);
    const CRect untouched(1, 2, 3, 4);
    for (const int index : {-1, 3, 100}) {
        rect = untouched;
        m_bar->GetItemRect(index, &rect);
        QCOMPARE(rect == untouched, TRUE);
    }
    m_bar->GetItemRect(0, nullptr);
}

void tst_ToolBarButtons::texts()
{
    m_bar->LoadToolBar(m_commands->all(), 0);
    QCOMPARE(m_bar->SetButtonText(2, L"查找"), 1);
    QCOMPARE(m_commands->find.iconText(), QStringLiteral("查找"));
    QCOMPARE(m_bar->GetButtonText(2), QStringLiteral("Find"));
    QCOMPARE(m_bar->SetButtonText(2, nullptr), 1);
    QCOMPARE(m_commands->find.iconText(), QStringLiteral("Find")); // Qt's own for none
    QCOMPARE(m_bar->SetButtonText(3, L"x"), 0);
    QCOMPARE(m_bar->SetButtonText(-1, L"x"), 0);
}

void tst_ToolBarButtons::withoutWidget()
{
    CToolBar_X bar;
    QAction* const action = &m_commands->create;
    QCOMPARE(bar.SetButtons(nullptr, 0), 1);
    QCOMPARE(bar.SetButtons({action}), 0);
    QCOMPARE(bar.LoadToolBar({action}, 1), 0);
    QCOMPARE(bar.LoadToolBar({QStringLiteral("a.png")}), 0);
    QCOMPARE(bar.AddButton(redIcon(), action), 0);
    QCOMPARE(bar.AddSeparator(action), 0);
    QCOMPARE(bar.DeleteButton(action), 0);
    QCOMPARE(bar.CheckButton(action, 1), 0);
    QCOMPARE(bar.EnableButton(action, 0), 0);
    QVERIFY(!action->isCheckable() && action->isEnabled());
    QCOMPARE(bar.GetListActions(), {});
    QCOMPARE(bar.GetButtonCount(), 0);
    QCOMPARE(bar.GetItemID(0), UINT_PTR(0));
    QCOMPARE(bar.CommandToIndex(action), -1);
    CRect rect(1, 2, 3, 4);
    bar.GetItemRect(0, &rect);
    QCOMPARE(rect == CRect(1, 2, 3, 4), TRUE);
    QCOMPARE(bar.GetButtonText(0), QString());
    QCOMPARE(bar.SetButtonText(0, L"x"), 0);
}

XE_TEST(tst_ToolBarButtons)
#include "tst_toolbarbuttons.moc"
