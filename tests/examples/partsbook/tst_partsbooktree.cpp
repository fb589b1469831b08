// The tree at the left of the list: which parts it shows, how kinds and suppliers are renamed in it, and the divider
// between the two, under a user's hands.

#include "bookuser.h"
#include "modaldriver.h"
#include "resource.h"
#include "samplelines.h"
#include "testclass.h"

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

class tst_PartsbookTree : public QObject, BookUser
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_input.isUsable()); }
    void init() { open(); }
    void cleanup() { goAway(); }

    void showsTheParts();
    void hasPictures();
    void aClickShowsTheParts();
    void anotherPartBringsAllBack();
    void theTreeFollowsTheBook();

    void aKindIsRenamed();
    void theNameOfAnotherJoinsTheTwo();
    void namesThatAreRefused_data();
    void namesThatAreRefused();
    void headingsAreNotRenamed();

    void theDividerIsDragged();
    void theDividerStopsAtItsLimits();
    void theTreeKeepsItsWidth();

private:
    void open() { comeUp(headingLine + screw + bearing + nut + motor); }
    QTreeWidget* tree() const { return window()->findChild<QTreeWidget*>("IDC_TREE"); }
    QTreeWidgetItem* item(const QString& text) const
    {
        return tree()->findItems(text, Qt::MatchExactly | Qt::MatchRecursive).value(0);
    }
    QSplitter* splitter() const { return window()->findChild<QSplitter*>(); }
    QString treeText() const;
    QString rowsText() const;
    void click(const QString& name);
    void drag(int distance);
    void close();
};

void tst_PartsbookTree::close()
{
    window()->close();
    QVERIFY(!m_frame->GetSafeHwnd());
    m_frame.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// The entries that have no others below them, the current one with a star.
QString tst_PartsbookTree::treeText() const
{
    QStringList texts;
    for (QTreeWidgetItemIterator it(tree()); *it; ++it) {
        if ((*it)->childCount() == 0)
            texts += (*it == tree()->currentItem() ? "*" : "") + (*it)->text(0);
    }
    return texts.join(", ");
}

// The parts that are shown, the current one with a star.
QString tst_PartsbookTree::rowsText() const
{
    QStringList texts;
    for (int row = 0; row < table().rowCount(); ++row) {
        if (!table().isRowHidden(row))
            texts += (row == table().currentRow() ? "*" : "") + table().text(row, 0);
    }
    return texts.join(", ");
}

void tst_PartsbookTree::click(const QString& name)
{
    clickAt(onScreen(tree()->viewport(), tree()->visualItemRect(item(name)).center()));
    QTRY_COMPARE(tree()->currentItem(), item(name));
}

// In steps, as a hand does it.
void tst_PartsbookTree::drag(int distance)
{
    QSplitterHandle* const divider = splitter()->handle(1);
    const QPoint grip = onScreen(divider, {2, 200});
    m_input.movePointer(grip);
    m_input.pressButton(1);
    for (int step = 1; step <= 4; ++step) {
        m_input.movePointer(grip + QPoint(distance * step / 4, 0));
        QTest::qWait(10); // else the server tells of the last place alone
    }
    m_input.releaseButton(1);
}

// ------------------------------------------------------------------------------------------------------- the tree

void tst_PartsbookTree::showsTheParts()
{
    QCOMPARE(treeText(), QString("*All parts 全部, Fastener, Bearing, Electrical, 华丰, 瓦轴, Kessler"));
    QCOMPARE(rowsText(), QString("*FA-1, BE-2, FA-3, EL-4"));
    QCOMPARE(item("Fastener")->parent(), item("Kinds 种类"));
    QCOMPARE(item("Kessler")->parent(), item("Suppliers 供应商"));
    QCOMPARE(splitter()->count(), 2);
    QCOMPARE(splitter()->indexOf(tree()), 0);
    QCOMPARE(splitter()->indexOf(table().widget()), 1);
}

// Each kind has a picture of its own, suppliers have the same one.
void tst_PartsbookTree::hasPictures()
{
    const auto picture = [this](const QString& name) { return item(name)->icon(0).pixmap(96).toImage(); };
    QVERIFY(!picture("All parts 全部").isNull());
    QVERIFY(!picture("Fastener").isNull());
    QVERIFY(picture("Fastener") != picture("Bearing"));
    QVERIFY(picture("Fastener") != picture("Kessler"));
    QCOMPARE(picture("Kessler"), picture("华丰"));
}

void tst_PartsbookTree::aClickShowsTheParts()
{
    click("Fastener");
    QCOMPARE(rowsText(), QString("*FA-1, FA-3"));
    click("瓦轴");
    QCOMPARE(rowsText(), QString("*BE-2"));
    click("Suppliers 供应商");
    QCOMPARE(rowsText(), QString("FA-1, *BE-2, FA-3, EL-4"));
    click("Bearing");
    click("All parts 全部");
    QCOMPARE(rowsText(), QString("FA-1, *BE-2, FA-3, EL-4"));
}

void tst_PartsbookTree::anotherPartBringsAllBack()
{
    click("Fastener");
    m_frame->SendMessage(WM_SELECT_ROW, 3); // as a click on a bar of the chart does
    QCOMPARE(tree()->currentItem(), item("All parts 全部"));
    QCOMPARE(rowsText(), QString("FA-1, BE-2, FA-3, *EL-4"));
    click("Electrical");
    m_frame->SendMessage(WM_SELECT_ROW, 3);
    QCOMPARE(rowsText(), QString("*EL-4"));
}

void tst_PartsbookTree::theTreeFollowsTheBook()
{
    click("Bearing");
    const ModalDriver<QDialog> driver([](QDialog* dialog) {
        dialog->findChild<QLineEdit*>("IDC_STOCK")->setText("7");
        dialog->findChild<QPushButton*>("OK")->click();
    });
    command(ID_PART_EDIT)->trigger();
    QVERIFY(driver.hasActed());
    QCOMPARE(treeText(), QString("All parts 全部, Fastener, *Bearing, Electrical, 华丰, 瓦轴, Kessler"));
    QCOMPARE(rowsText(), QString("*BE-2"));

    const ModalDriver<QDialog> yes([](QDialog* box) {
        for (QPushButton* button : box->findChildren<QPushButton*>()) {
            if (button->text().remove('&') == "是")
                button->click();
        }
    });
    command(ID_PART_DELETE)->trigger();
    QCOMPARE(treeText(), QString("*All parts 全部, Fastener, Electrical, 华丰, Kessler"));
    QCOMPARE(rowsText(), QString("*FA-1, FA-3, EL-4"));
}

// ------------------------------------------------------------------------------------------------------- renaming

void tst_PartsbookTree::aKindIsRenamed()
{
    click("Fastener");
    type(keyF2);
    QTRY_VERIFY(tree()->findChild<QLineEdit*>());
    type("bolts");
    type(keyReturn);
    QTRY_COMPARE(treeText(), QString("All parts 全部, *bolts, Bearing, Electrical, 华丰, 瓦轴, Kessler"));
    QCOMPARE(rowsText(), QString("*FA-1, FA-3"));
    QCOMPARE(saved(), headingLine + QByteArray(screw).replace("Fastener", "bolts") + bearing
                          + QByteArray(nut).replace("Fastener", "bolts") + motor);
}

void tst_PartsbookTree::theNameOfAnotherJoinsTheTwo()
{
    click("瓦轴");
    type(keyF2);
    QTRY_VERIFY(tree()->findChild<QLineEdit*>());
    tree()->findChild<QLineEdit*>()->setText("Kessler");
    type(keyReturn);
    QTRY_COMPARE(treeText(), QString("All parts 全部, Fastener, Bearing, Electrical, 华丰, *Kessler"));
    QCOMPARE(rowsText(), QString("*BE-2, EL-4"));
    QCOMPARE(saved(), headingLine + screw + QByteArray(bearing).replace("瓦轴", "Kessler") + nut + motor);
}

void tst_PartsbookTree::namesThatAreRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<unsigned long>("key");
    QTest::newRow("an empty one") << QString() << keyReturn;
    QTest::newRow("one that is too long") << QString(21, 'x') << keyReturn;
    QTest::newRow("any, by Escape") << "bolts" << keyEscape;
}

void tst_PartsbookTree::namesThatAreRefused()
{
    QFETCH(const QString, name);
    QFETCH(const unsigned long, key);
    click("Fastener");
    type(keyF2);
    QTRY_VERIFY(tree()->findChild<QLineEdit*>());
    tree()->findChild<QLineEdit*>()->setText(name);
    type(key);
    QTRY_VERIFY(!tree()->findChild<QLineEdit*>());
    QCOMPARE(treeText(), QString("All parts 全部, *Fastener, Bearing, Electrical, 华丰, 瓦轴, Kessler"));
    QVERIFY(!window()->isWindowModified());
}

void tst_PartsbookTree::headingsAreNotRenamed()
{
    const QAction* const rename = command(ID_NAME_EDIT);
    for (const char* name : {"Kinds 种类", "All parts 全部"}) {
        click(name);
        m_frame->OnEnterIdle();
        QVERIFY2(!rename->isEnabled(), name);
    }
    click("Kessler");
    m_frame->OnEnterIdle();
    QVERIFY(rename->isEnabled());
}

// ---------------------------------------------------------------------------------------------------- the divider

void tst_PartsbookTree::theDividerIsDragged()
{
    const int width = tree()->width();
    drag(60);
    QTRY_COMPARE(tree()->width(), width + 60);
    QCOMPARE(table().widget()->mapTo(splitter(), QPoint()).x(), width + 60 + splitter()->handleWidth());
    drag(-40);
    QTRY_COMPARE(tree()->width(), width + 20);
}

void tst_PartsbookTree::theDividerStopsAtItsLimits()
{
    drag(-tree()->width());
    QTRY_COMPARE(tree()->width(), 80);
    drag(600);
    QTRY_COMPARE(tree()->width(), 400);
}

void tst_PartsbookTree::theTreeKeepsItsWidth()
{
    drag(600);
    QTRY_COMPARE(tree()->width(), 400);
    drag(-150);
    QTRY_COMPARE(tree()->width(), 250);
    window()->resize(window()->size() - QSize(100, 50));
    QCoreApplication::processEvents();
    QCOMPARE(tree()->width(), 250);
    close();
    open();
    QCOMPARE(tree()->width(), 250);
}

XE_TEST(tst_PartsbookTree)
#include "tst_partsbooktree.moc"
