// The kinds at the left of the list: what they show of it, and the divider between the two, under a user's hands.

#include "leavenothing.h"
#include "mainframe.h"
#include "modaldriver.h"
#include "resource.h"
#include "testclass.h"
#include "virtualinput.h"

#include <QAction>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <xeresource.h>

namespace {

const QByteArray heading = "number,name,kind,supplier,source,stock,minimum,price,in use,remark\n";
const QByteArray screw = "FA-1,Screw 螺钉,Fastener,华丰,bought,10,5,0.06,yes,\n";
const QByteArray bearing = "BE-2,Bearing,Bearing,瓦轴,made,3,6,12.50,yes,\n";
const QByteArray nut = "FA-3,Nut,Fastener,华丰,bought,20,15,0.06,yes,\n";
const QByteArray motor = "EL-4,Motor,Electrical,Kessler,customer,2,0,0.00,yes,heavy\n";

} // namespace

class tst_PartsbookKinds : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_input.isUsable()); }
    void init() { open(); }
    void cleanup();

    void showsTheParts();
    void aClickShowsTheKind();
    void aPartOfAnotherKindBringsAllBack();
    void theKindsFollowTheBook();

    void theDividerIsDragged();
    void theDividerStopsAtItsLimits();
    void theKindsKeepTheirWidth();

private:
    void open();
    QWidget* window() const { return m_frame->GetSafeHwnd(); }
    QTableWidget* table() const { return window()->findChild<QTableWidget*>("IDC_PARTS"); }
    QListWidget* kinds() const { return window()->findChild<QListWidget*>("IDC_KINDS"); }
    QSplitter* splitter() const { return window()->findChild<QSplitter*>(); }
    QString kindsText() const;
    QString rowsText() const;
    QPoint onScreen(const QWidget* widget, QPoint place) const;
    void click(QPoint place);
    void clickKind(int row);
    void drag(int distance);
    void close();

    VirtualInput m_input;
    QTemporaryDir m_folder;
    QScopedPointer<CMainFrame> m_frame;
};

void tst_PartsbookKinds::open()
{
    QFile file(m_folder.filePath("parts.csv"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(heading + screw + bearing + nut + motor);
    file.close();
    m_frame.reset(new CMainFrame);
    QCOMPARE(m_frame->Create(nullptr), 1);
    m_frame->ShowWindow(SW_SHOW);
    QVERIFY(m_frame->OpenBook(file.fileName()));
    QVERIFY(QTest::qWaitForWindowExposed(window()));
    const auto isActive = [this] {
        window()->activateWindow();
        return window()->isActiveWindow();
    };
    QVERIFY(QTest::qWaitFor(isActive));
    QTRY_COMPARE(window()->mapToGlobal({0, 0}), m_input.windowOrigin(window()->winId()));
}

void tst_PartsbookKinds::cleanup()
{
    m_input.releaseAll();
    if (m_frame->GetSafeHwnd())
        m_frame->DestroyWindow();
    m_frame.reset();
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

void tst_PartsbookKinds::close()
{
    window()->close();
    QVERIFY(!m_frame->GetSafeHwnd());
    m_frame.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QString tst_PartsbookKinds::kindsText() const
{
    QStringList texts;
    for (int row = 0; row < kinds()->count(); ++row)
        texts += (row == kinds()->currentRow() ? "*" : "") + kinds()->item(row)->text();
    return texts.join(", ");
}

// The parts that are shown, the current one with a star.
QString tst_PartsbookKinds::rowsText() const
{
    QStringList texts;
    for (int row = 0; row < table()->rowCount(); ++row) {
        if (!table()->isRowHidden(row))
            texts += (row == table()->currentRow() ? "*" : "") + table()->item(row, 0)->text();
    }
    return texts.join(", ");
}

QPoint tst_PartsbookKinds::onScreen(const QWidget* widget, QPoint place) const
{
    return m_input.windowOrigin(window()->winId()) + widget->mapTo(window(), place);
}

void tst_PartsbookKinds::click(QPoint place)
{
    m_input.movePointer(place);
    m_input.clickButton(1);
}

void tst_PartsbookKinds::clickKind(int row)
{
    const QListWidget* const list = kinds();
    click(onScreen(list->viewport(), list->visualItemRect(list->item(row)).center()));
    QTRY_COMPARE(list->currentRow(), row);
}

// In steps, as a hand does it.
void tst_PartsbookKinds::drag(int distance)
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

// ------------------------------------------------------------------------------------------------------ the kinds

void tst_PartsbookKinds::showsTheParts()
{
    QCOMPARE(kindsText(), QString("*All kinds 全部, Fastener, Bearing, Electrical"));
    QCOMPARE(rowsText(), QString("*FA-1, BE-2, FA-3, EL-4"));
    QCOMPARE(splitter()->count(), 2);
    QCOMPARE(splitter()->indexOf(kinds()), 0);
    QCOMPARE(splitter()->indexOf(table()), 1);
}

void tst_PartsbookKinds::aClickShowsTheKind()
{
    clickKind(1);
    QCOMPARE(rowsText(), QString("*FA-1, FA-3"));
    clickKind(2);
    QCOMPARE(rowsText(), QString("*BE-2"));
    clickKind(0);
    QCOMPARE(rowsText(), QString("FA-1, *BE-2, FA-3, EL-4"));
}

void tst_PartsbookKinds::aPartOfAnotherKindBringsAllBack()
{
    clickKind(1);
    m_frame->SendMessage(WM_SELECT_ROW, 3); // as a click on a bar of the chart does
    QCOMPARE(kindsText(), QString("*All kinds 全部, Fastener, Bearing, Electrical"));
    QCOMPARE(rowsText(), QString("FA-1, BE-2, FA-3, *EL-4"));
    clickKind(3);
    m_frame->SendMessage(WM_SELECT_ROW, 3);
    QCOMPARE(rowsText(), QString("*EL-4"));
}

void tst_PartsbookKinds::theKindsFollowTheBook()
{
    clickKind(2);
    const ModalDriver<QDialog> driver([](QDialog* dialog) {
        dialog->findChild<QLineEdit*>("IDC_STOCK")->setText("7");
        dialog->findChild<QPushButton*>("OK")->click();
    });
    window()->findChild<QAction*>(ToStringId(ID_PART_EDIT))->trigger();
    QVERIFY(driver.hasActed());
    QCOMPARE(kindsText(), QString("All kinds 全部, Fastener, *Bearing, Electrical"));
    QCOMPARE(rowsText(), QString("*BE-2"));

    const ModalDriver<QDialog> yes([](QDialog* box) {
        for (QPushButton* button : box->findChildren<QPushButton*>()) {
            if (button->text().remove('&') == "是")
                button->click();
        }
    });
    window()->findChild<QAction*>(ToStringId(ID_PART_DELETE))->trigger();
    QCOMPARE(kindsText(), QString("*All kinds 全部, Fastener, Electrical"));
    QCOMPARE(rowsText(), QString("*FA-1, FA-3, EL-4"));
}

// ---------------------------------------------------------------------------------------------------- the divider

void tst_PartsbookKinds::theDividerIsDragged()
{
    const int width = kinds()->width();
    drag(60);
    QTRY_COMPARE(kinds()->width(), width + 60);
    QCOMPARE(table()->mapTo(splitter(), QPoint()).x(), width + 60 + splitter()->handleWidth());
    drag(-40);
    QTRY_COMPARE(kinds()->width(), width + 20);
}

void tst_PartsbookKinds::theDividerStopsAtItsLimits()
{
    drag(-kinds()->width());
    QTRY_COMPARE(kinds()->width(), 80);
    drag(600);
    QTRY_COMPARE(kinds()->width(), 400);
}

void tst_PartsbookKinds::theKindsKeepTheirWidth()
{
    drag(600);
    QTRY_COMPARE(kinds()->width(), 400);
    drag(-150);
    QTRY_COMPARE(kinds()->width(), 250);
    window()->resize(window()->size() - QSize(100, 50));
    QCoreApplication::processEvents();
    QCOMPARE(kinds()->width(), 250);
    close();
    open();
    QCOMPARE(kinds()->width(), 250);
}

XE_TEST(tst_PartsbookKinds)
#include "tst_partsbookkinds.moc"
