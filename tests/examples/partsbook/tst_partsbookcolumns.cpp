// The columns of the list of parts: which of them are shown is chosen in a check list, and remembered.

#include "columnsdialog.h"
#include "leavenothing.h"
#include "mainframe.h"
#include "modaldriver.h"
#include "partsgrid.h"
#include "partsview.h"
#include "resource.h"
#include "settings.h"
#include "testclass.h"

#include <QAction>
#include <QListWidget>
#include <QPushButton>
#include <xeresource.h>

#include <functional>

namespace {

constexpr unsigned second = 2;
constexpr unsigned third = 4;

} // namespace

class tst_PartsbookColumns : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void showsWhatIsShown();
    void aClickOnABox();
    void theSpaceBar();
    void theFirstColumnStays();
    void cancelChangesNothing();
    void theListOfPartsFollows();
    void theHeadingOfAGroupIsThatOfItsFirstColumn();

private:
    using Action = std::function<void(QListWidget*)>;
    /// Runs the dialog for three columns, of which the second is hidden. Gives those that are hidden then.
    static unsigned run(const Action& action, const char* button = "OK");
    static void clickBox(QListWidget* list, int row);
};

unsigned tst_PartsbookColumns::run(const Action& action, const char* button)
{
    CColumnsDialog dialog({L"Number", L"Name", L"Kind 种类"}, nullptr);
    dialog.m_hidden = second;
    const ModalDriver<QDialog> driver([&](QDialog* window) {
        action(window->findChild<QListWidget*>());
        QTest::mouseClick(window->findChild<QPushButton*>(button), Qt::LeftButton);
    });
    dialog.DoModal();
    return dialog.m_hidden;
}

void tst_PartsbookColumns::clickBox(QListWidget* list, int row)
{
    const QRect item = list->visualItemRect(list->item(row));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, {item.left() + 10, item.center().y()});
}

void tst_PartsbookColumns::showsWhatIsShown()
{
    QStringList shown;
    const unsigned hidden = run([&](QListWidget* list) {
        for (int row = 0; row < list->count(); ++row)
            shown += list->item(row)->text() + (list->item(row)->checkState() == Qt::Checked ? " on" : " off");
    });
    QCOMPARE(shown, (QStringList{"Number on", "Name off", "Kind 种类 on"}));
    QCOMPARE(hidden, second);
}

void tst_PartsbookColumns::aClickOnABox()
{
    QCOMPARE(run([](QListWidget* list) { clickBox(list, 1); }), 0u);
    QCOMPARE(run([](QListWidget* list) { clickBox(list, 2); }), second | third);
}

void tst_PartsbookColumns::theSpaceBar()
{
    QCOMPARE(run([](QListWidget* list) {
                 list->setCurrentRow(2);
                 QTest::keyClick(list, Qt::Key_Space);
             }),
             second | third);
}

void tst_PartsbookColumns::theFirstColumnStays()
{
    QCOMPARE(run([](QListWidget* list) { clickBox(list, 0); }), second);
}

void tst_PartsbookColumns::cancelChangesNothing()
{
    QCOMPARE(run([](QListWidget* list) { clickBox(list, 2); }, "Cancel"), second);
}

void tst_PartsbookColumns::theListOfPartsFollows()
{
    CMainFrame frame;
    QCOMPARE(frame.Create(nullptr), 1);
    frame.ShowWindow(SW_SHOW);
    const PartsView table(*frame.GetSafeHwnd());
    constexpr int delivered = 10;
    QVERIFY(table.isColumnHidden(delivered));
    QVERIFY(!table.isColumnHidden(2));
    const ModalDriver<QDialog> driver([&](QDialog* window) {
        auto* const list = window->findChild<QListWidget*>();
        QCOMPARE(list->count(), table.columnCount());
        clickBox(list, delivered);
        clickBox(list, 2);
        QTest::mouseClick(window->findChild<QPushButton*>("OK"), Qt::LeftButton);
    });
    frame.GetSafeHwnd()->findChild<QAction*>(ToStringId(ID_VIEW_COLUMNS))->trigger();
    QVERIFY(!table.isColumnHidden(delivered));
    QVERIFY(table.isColumnHidden(2));
    frame.DestroyWindow();

    CMainFrame later; // as in the next run
    QCOMPARE(later.Create(nullptr), 1);
    QVERIFY(PartsView(*later.GetSafeHwnd()).isColumnHidden(2));
    later.DestroyWindow();
}

void tst_PartsbookColumns::theHeadingOfAGroupIsThatOfItsFirstColumn()
{
    CPartPictures pictures;
    CPartsGrid grid(pictures);
    QWidget widget;
    QVERIFY(grid.Open(&widget));
    const auto supply = [&] {
        return XeQString(grid.GetItemText(0, CPartsGrid::Supplier)) + "|"
               + XeQString(grid.GetItemText(0, CPartsGrid::Source));
    };
    constexpr unsigned supplierBit = 1u << (CPartsGrid::Supplier - 1);
    constexpr unsigned sourceBit = 1u << (CPartsGrid::Source - 1);
    QCOMPARE(supply(), QString("Supply 供应|"));
    grid.ShowColumns(supplierBit);
    QCOMPARE(supply(), QString("|Supply 供应"));
    grid.ShowColumns(supplierBit | sourceBit);
    QCOMPARE(supply(), QString("|"));
    grid.ShowColumns(0);
    QCOMPARE(supply(), QString("Supply 供应|"));
    grid.DestroyWindow();
}

XE_TEST(tst_PartsbookColumns)
#include "tst_partsbookcolumns.moc"
