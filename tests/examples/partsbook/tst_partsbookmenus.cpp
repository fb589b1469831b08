// The menus of the main window under a real mouse: the context menu of the list, check marks, the recent files.

#include "bookuser.h"
#include "modaldriver.h"
#include "resource.h"
#include "samplelines.h"
#include "testclass.h"

#include <QAbstractButton>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QTimer>
#include <QWindow>
#include <xeafxmenu.h>

namespace {

// What is seen of a menu: "*" a check mark, "(gray)" a disabled item, "-" a separator.
QString textOf(const QMenu& menu)
{
    QStringList items;
    for (const QAction* action : menu.actions()) {
        QString item = action->isSeparator() ? "-" : action->text();
        item += action->isChecked() ? "*" : "";
        items += item + (action->isEnabled() ? "" : "(gray)");
    }
    return items.join(", ");
}

} // namespace

class tst_PartsbookMenus : public QObject, BookUser
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_input.isUsable()); }
    void init();
    void cleanup() { goAway(); }

    void contextMenu();
    void contextMenuWithoutAPart();
    void contextMenuElsewhere();
    void commandsFromTheContextMenu();
    void menuOfAHeading();
    void partInUse();
    void checkMarkOfTheMessageWindow();
    void recentFiles();

private:
    bool isMessageWindowVisible() const;
    void rightClick(const QWidget* widget, QPoint point);
    void rightClickRow(int row);
    /// Waits for the context menu; gives its text and clicks the item, or leaves it by Escape.
    QString choose(int item);
};

void tst_PartsbookMenus::init()
{
    m_input.movePointer({1, 1});
    comeUp(headingLine + "FA-1,Screw,Fastener,A,bought,10,5,0.06,yes,\n"
               + "BE-2,Bearing,Bearing,B,made,3,5,12.50,no,\n",
           "a & b.csv");
}

bool tst_PartsbookMenus::isMessageWindowVisible() const
{
    const auto* const messages = window()->findChild<CTavoView*>();
    return messages && messages->isVisible();
}

void tst_PartsbookMenus::rightClick(const QWidget* widget, QPoint point) { clickAt(onScreen(widget, point), 3); }

void tst_PartsbookMenus::rightClickRow(int row) { rightClick(table().widget(), table().center(row, 1)); }

QString tst_PartsbookMenus::choose(int item)
{
    QString text;
    QTimer timer;
    connect(&timer, &QTimer::timeout, &timer, [&] {
        const auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu || !menu->windowHandle()->isExposed())
            return;
        timer.stop();
        text = textOf(*menu);
        if (item < 0) {
            type(keyEscape);
            return;
        }
        const QPoint place = menu->actionGeometry(menu->actions().at(item)).center();
        m_input.movePointer(m_input.windowOrigin(menu->winId()) + place);
        QGuiApplication::sync();
        QCoreApplication::processEvents();
        m_input.clickButton(1);
    });
    timer.start(1);
    (void)QTest::qWaitFor([&] { return !text.isEmpty() && !QApplication::activePopupWidget(); });
    return text;
}

void tst_PartsbookMenus::contextMenu()
{
    rightClickRow(0);
    QCOMPARE(choose(-1), QString("&New... 新建\tCtrl+N, &Edit... 编辑\tCtrl+E, &Delete 删除\tDel, -, "
                                 "In &use 在用\tCtrl+U*"));
    QCOMPARE(table().currentRow(), 0);
    rightClickRow(1); // the menu is that of the part under the mouse
    QCOMPARE(choose(-1), QString("&New... 新建\tCtrl+N, &Edit... 编辑\tCtrl+E, &Delete 删除\tDel, -, "
                                 "In &use 在用\tCtrl+U"));
    QCOMPARE(table().currentRow(), 1);
    QVERIFY(!window()->isWindowModified());
}

void tst_PartsbookMenus::contextMenuWithoutAPart()
{
    table().setCurrentCell(-3, -2); // none
    rightClick(table().widget(), QPoint(150, table().widget()->height() - 40));
    QCOMPARE(choose(-1), QString("&New... 新建\tCtrl+N, &Edit... 编辑\tCtrl+E(gray), &Delete 删除\tDel(gray), -, "
                                 "In &use 在用\tCtrl+U(gray)"));
}

void tst_PartsbookMenus::contextMenuElsewhere()
{
    const auto* const chart = window()->findChild<QWidget*>(ToStringId(IDC_CHART));
    rightClick(chart, QPoint(20, 20));
    QGuiApplication::sync();
    QTest::qWait(20);
    const auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(!menu || !textOf(*menu).contains("在用"));
    if (menu) // Qt's own, of the bars
        type(keyEscape);
    QTRY_VERIFY(!QApplication::activePopupWidget());
}

void tst_PartsbookMenus::commandsFromTheContextMenu()
{
    const ModalDriver<QMessageBox> question([](QMessageBox* box) {
        QVERIFY(box->text().startsWith("Delete BE-2, Bearing?"));
        box->buttons().constFirst()->click();
    });
    rightClickRow(1);
    choose(2);
    QTRY_VERIFY(question.hasActed());
    QCOMPARE(table().rowCount(), 1);

    const ModalDriver<QDialog> dialog([](QDialog* open) {
        QCOMPARE(open->windowTitle(), QString("Edit Part 编辑零件"));
        open->reject();
    });
    rightClickRow(0);
    choose(1);
    QTRY_VERIFY(dialog.hasActed());
}

void tst_PartsbookMenus::menuOfAHeading()
{
    const QPoint stock = table().center(-1, 5);
    rightClick(table().widget(), stock);
    QCOMPARE(choose(0), QString("&Sort by this column 按此列排序, &Order of the book 簿中顺序"));
    QTRY_COMPARE(table().text(0, 0), QString("BE-2"));
    rightClick(table().widget(), stock);
    QCOMPARE(choose(0), QString("&Sort by this column 按此列排序*, &Order of the book 簿中顺序"));
    QTRY_COMPARE(table().text(0, 0), QString("FA-1"));   // the other way round
    rightClick(table().widget(), table().center(-2, 0)); // the heading of three columns
    QVERIFY(choose(0).startsWith("&Sort by this column 按此列排序,"));
    QTRY_COMPARE(table().text(0, 0), QString("BE-2"));
    rightClick(table().widget(), stock);
    choose(1);
    QTRY_COMPARE(table().text(0, 0), QString("FA-1"));
    QVERIFY(!window()->isWindowModified());
}

void tst_PartsbookMenus::partInUse()
{
    rightClickRow(0);
    choose(4);
    QCOMPARE(table().text(0, 8), QString("no"));
    m_frame->OnEnterIdle();
    QVERIFY(!command(ID_PART_IN_USE)->isChecked());
    QVERIFY(window()->isWindowModified());
    rightClickRow(0);
    QVERIFY(choose(4).endsWith("Ctrl+U"));
    QCOMPARE(table().text(0, 8), QString("yes"));
    m_frame->OnEnterIdle();
    QVERIFY(command(ID_PART_IN_USE)->isChecked());
    command(ID_PART_IN_USE)->trigger(); // from the menu bar
    QCOMPARE(table().text(0, 8), QString("no"));
}

void tst_PartsbookMenus::checkMarkOfTheMessageWindow()
{
    QAction* const messages = command(ID_VIEW_MESSAGES);
    m_frame->OnEnterIdle();
    QVERIFY(!messages->isChecked());
    messages->trigger();
    QVERIFY(isMessageWindowVisible());
    m_frame->OnEnterIdle();
    QVERIFY(messages->isChecked());
    messages->trigger();
    QVERIFY(!isMessageWindowVisible());
    m_frame->OnEnterIdle();
    QVERIFY(!messages->isChecked());
    messages->trigger();
    window()->findChild<CTavoView*>()->close(); // by its frame
    m_frame->OnEnterIdle();
    QVERIFY(!messages->isChecked());
}

void tst_PartsbookMenus::recentFiles()
{
    auto* const menu = window()->findChild<QMenu*>("fileMenu");
    const QString name = m_folder->filePath("a && b.csv");
    const QAction* const recent = CMenu_X::findAction(ID_FILE_MRU_FILE1, menu);
    QVERIFY(recent);
    QCOMPARE(recent->text(), name);
    command(ID_PART_IN_USE)->trigger();
    QCOMPARE(table().text(0, 8), QString("no"));

    const ModalDriver<QMessageBox> question([](QMessageBox* box) {
        for (QAbstractButton* button : box->buttons()) {
            if (button->text().remove('&') == "No")
                button->click();
        }
    });
    const auto* const bar = window()->findChild<QMenuBar*>();
    m_input.movePointer(onScreen(bar, bar->actionGeometry(menu->menuAction()).center()));
    QGuiApplication::sync();
    m_input.clickButton(1);
    QTRY_VERIFY(menu->isVisible() && menu->windowHandle()->isExposed());
    m_input.movePointer(m_input.windowOrigin(menu->winId())
                        + menu->actionGeometry(const_cast<QAction*>(recent)).center());
    QGuiApplication::sync();
    QCoreApplication::processEvents();
    m_input.clickButton(1);
    QTRY_VERIFY(question.hasActed());
    QTRY_COMPARE(table().text(0, 8), QString("yes"));
    QVERIFY(CMenu_X::findAction(ID_FILE_MRU_FILE1, menu));
}

XE_TEST(tst_PartsbookMenus)
#include "tst_partsbookmenus.moc"
