// Parts are edited in the cells of the list, under a user's hands: what is typed, chosen and clicked goes into the file,
// and what is refused does not.

#include "leavenothing.h"
#include "mainframe.h"
#include "modaldriver.h"
#include "partsview.h"
#include "resource.h"
#include "samplelines.h"
#include "testclass.h"
#include "virtualinput.h"

#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <xeresource.h>

class tst_PartsbookCells : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void aTypedField_data();
    void aTypedField();
    void tabEditsTheNextField();
    void shiftTabEditsTheFieldBefore();
    void escapeLeavesTheFieldAsItWas();
    void aRefusedField_data();
    void aRefusedField();
    void aFieldThatIsLeftIsRefusedOnce();
    void anAmpersandIsEditedAsItIs();

    void theSourceByTheMouse();
    void theSourceByTheKeys();
    void theSupplierFromTheList();
    void theSupplierTyped();
    void theListHasTheSuppliersOfTheBook();
    void escapeLeavesTheChoiceAsItWas();

    void aClickOnACheckBox();
    void theSpaceBarOnACheckBox();
    void aPartWhoseUseEnds();

    void theDialogOpens_data();
    void theDialogOpens();
    void aDoubleClickEditsAnyOtherField();
    void f2EditsTheCellWithTheFocus();
    void theMenuKey();

    void everythingFollowsTheChange();
    void theStatusBarTellsThePlace();
    void theMessageWindowTellsWhatIsNotified();
    void aPartThatTheTreeDoesNotShowAnyMore();
    void savingEndsTheEdit();
    void closingEndsTheEdit();

private:
    // Others than the samples: an ampersand, and a use that ends.
    static inline const QByteArray screw = "FA-1,Screw,Fastener,Hua & Feng,bought,10,5,0.06,yes,\n";
    static inline const QByteArray bearing = "BE-2,Bearing,Bearing,Wafang,made,3,6,12.50,yes,\n";
    static inline const QByteArray nut = "FA-3,Nut,Fastener,Hua & Feng,bought,20,15,0.06,ending,\n";
    static inline const QByteArray motor = "EL-4,Motor,Electrical,Kessler,customer,2,0,0.00,yes,heavy\n";

    // The columns, as a PartsView counts them.
    enum Column { Number, Name, Kind, Supplier, Source, Stock, Minimum, Price, InUse, Remark, Delivered };

    static constexpr unsigned long keyTab = 0xFF09;
    static constexpr unsigned long keyReturn = 0xFF0D;
    static constexpr unsigned long keyEscape = 0xFF1B;
    static constexpr unsigned long keyBackspace = 0xFF08;
    static constexpr unsigned long keyDown = 0xFF54;
    static constexpr unsigned long keyF2 = 0xFFBF;
    static constexpr unsigned long keyMenu = 0xFF67;
    static constexpr unsigned long keyShift = 0xFFE1;

    QWidget* window() const { return m_frame->GetSafeHwnd(); }
    PartsView table() const { return PartsView(*window()); }
    QString cell(int row, int column) const { return table().text(row, column); }
    bool isModified() const;
    QWidget* editor() const { return QApplication::focusWidget(); }
    bool isEditing() const
    {
        return editor() && editor() != table().widget() && table().widget()->isAncestorOf(editor());
    }
    QString paneText(int pane) const;
    QPoint placeOf(int row, int column) const;
    QPoint onScreen(const QWidget* widget, QPoint place) const;
    void clickAt(QPoint place);
    void click(int row, int column);
    void doubleClick(int row, int column);
    void chord(unsigned long held, unsigned long key);
    void type(const QString& text);
    void type(unsigned long key) { m_input.typeKey(key); }
    void open(int row, int column);
    void clickItem(const QComboBox* box, int item);
    QByteArray saved();
    QString path() const { return m_folder->filePath("parts.csv"); }

    VirtualInput m_input;
    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<CMainFrame> m_frame;
};

void tst_PartsbookCells::initTestCase() { QVERIFY(m_input.isUsable()); }

void tst_PartsbookCells::init()
{
    QApplication::setDoubleClickInterval(100); // less to wait for between two clicks
    m_folder.reset(new QTemporaryDir);
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(headingLine + screw + bearing + nut + motor);
    file.close();
    m_frame.reset(new CMainFrame);
    QCOMPARE(m_frame->Create(nullptr), 1);
    m_frame->ShowWindow(SW_SHOW);
    QVERIFY(m_frame->OpenBook(path()));
    table().showAllColumns();
    QVERIFY(QTest::qWaitForWindowExposed(window()));
    const auto isActive = [this] {
        window()->activateWindow();
        return window()->isActiveWindow();
    };
    QVERIFY(QTest::qWaitFor(isActive));
    QTRY_COMPARE(window()->mapToGlobal({0, 0}), m_input.windowOrigin(window()->winId()));
}

void tst_PartsbookCells::cleanup()
{
    m_input.releaseAll();
    if (m_frame->GetSafeHwnd())
        m_frame->DestroyWindow();
    m_frame.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

bool tst_PartsbookCells::isModified() const
{
    m_frame->OnEnterIdle();
    return window()->isWindowModified();
}

QString tst_PartsbookCells::paneText(int pane) const
{
    const auto* const bar = qobject_cast<CStatusBar_X*>(CWnd_X::FromHandle(window()->findChild<QStatusBar*>()));
    return static_cast<const QLabel*>(bar->GetListQWidgets().at(pane))->text();
}

QPoint tst_PartsbookCells::onScreen(const QWidget* widget, QPoint place) const
{
    return m_input.windowOrigin(widget->window()->winId()) + widget->mapTo(widget->window(), place);
}

QPoint tst_PartsbookCells::placeOf(int row, int column) const
{
    if (column >= 0)
        table().scrollTo(row, column);
    return onScreen(table().widget(), table().center(row, column));
}

void tst_PartsbookCells::clickAt(QPoint place)
{
    m_input.movePointer(place);
    m_input.clickButton(1);
}

void tst_PartsbookCells::click(int row, int column)
{
    clickAt(placeOf(row, column));
    QTRY_COMPARE(table().currentRow(), row);
    QTRY_COMPARE(table().currentColumn(), column);
    QTest::qWait(QApplication::doubleClickInterval() + 20); // the next one is no double click
}

void tst_PartsbookCells::doubleClick(int row, int column)
{
    QApplication::setDoubleClickInterval(5000);
    clickAt(placeOf(row, column));
    QTRY_COMPARE(table().currentRow(), row); // the window manager loses clicks that follow each other faster
    QTest::qWait(50);
    m_input.clickButton(1);
}

void tst_PartsbookCells::chord(unsigned long held, unsigned long key)
{
    m_input.pressKey(held);
    m_input.typeKey(key);
    m_input.releaseKey(held);
}

// What the keyboard has without Shift.
void tst_PartsbookCells::type(const QString& text)
{
    for (const QChar ch : text)
        m_input.typeKey(ch.unicode());
}

// A click moves the focus there, another one edits.
void tst_PartsbookCells::open(int row, int column)
{
    click(row, column);
    clickAt(placeOf(row, column));
    QTRY_VERIFY(isEditing() || QApplication::activePopupWidget());
}

void tst_PartsbookCells::clickItem(const QComboBox* box, int item)
{
    QTRY_VERIFY(box->view()->isVisible());
    const QRect place = box->view()->visualRect(box->model()->index(item, 0));
    QTest::qWait(QApplication::doubleClickInterval()); // Qt takes a release that follows at once for that of the press
    clickAt(onScreen(box->view()->viewport(), {place.left() + 10, place.center().y()}));
}

QByteArray tst_PartsbookCells::saved()
{
    window()->findChild<QAction*>(ToStringId(ID_FILE_SAVE))->trigger();
    return contentOf(path());
}

// --------------------------------------------------------------------------------------------------------- the fields

void tst_PartsbookCells::aTypedField_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QByteArray>("line");

    QTest::newRow("number") << int(Number) << "be-7" << QByteArray(bearing).replace("BE-2", "be-7");
    QTest::newRow("name") << int(Name) << "ball, small"
                          << QByteArray(bearing).replace("Bearing,B", "\"ball, small\",B");
    QTest::newRow("kind") << int(Kind) << "roller" << QByteArray(bearing).replace(",Bearing,W", ",roller,W");
    QTest::newRow("supplier") << int(Supplier) << "luoyang" << QByteArray(bearing).replace("Wafang", "luoyang");
    QTest::newRow("stock") << int(Stock) << "250" << QByteArray(bearing).replace(",3,", ",250,");
    QTest::newRow("stock with a leading zero") << int(Stock) << "07" << QByteArray(bearing).replace(",3,", ",7,");
    QTest::newRow("minimum") << int(Minimum) << "0" << QByteArray(bearing).replace(",6,", ",0,");
    QTest::newRow("price") << int(Price) << "4" << QByteArray(bearing).replace(",12.50,", ",4.00,");
    QTest::newRow("remark") << int(Remark) << "left" << QByteArray(bearing).replace("yes,", "yes,left");
}

void tst_PartsbookCells::aTypedField()
{
    QFETCH(const int, column);
    QFETCH(const QString, typed);
    click(1, column);
    type(typed);
    QTRY_VERIFY(isEditing());
    QTRY_COMPARE(editor()->property("text").isValid() ? editor()->property("text").toString()
                                                      : editor()->property("currentText").toString(),
                 typed);
    type(keyReturn);
    QTRY_VERIFY(!isEditing());
    QTRY_VERIFY(isModified());
    QFETCH(const QByteArray, line);
    QCOMPARE(saved(), headingLine + screw + line + nut + motor);
    QCOMPARE(table().currentRow(), 1);
    QCOMPARE(QApplication::focusWidget(), table().widget());
}

void tst_PartsbookCells::tabEditsTheNextField()
{
    click(0, Stock);
    type("250");
    type(keyTab);
    QTRY_COMPARE(table().currentColumn(), int(Minimum));
    QTRY_VERIFY(isEditing());
    type("60");
    type(keyReturn);
    QTRY_COMPARE(cell(0, Minimum), QString("60"));
    QTRY_VERIFY(!isEditing());
    QCOMPARE(saved(), headingLine + QByteArray(screw).replace(",10,5,", ",250,60,") + bearing + nut + motor);
}

void tst_PartsbookCells::shiftTabEditsTheFieldBefore()
{
    click(0, Minimum);
    type("60");
    chord(keyShift, keyTab);
    QTRY_COMPARE(table().currentColumn(), int(Stock));
    QTRY_VERIFY(isEditing());
    type("250");
    type(keyReturn);
    QTRY_COMPARE(cell(0, Stock), QString("250"));
    QCOMPARE(saved(), headingLine + QByteArray(screw).replace(",10,5,", ",250,60,") + bearing + nut + motor);
}

void tst_PartsbookCells::escapeLeavesTheFieldAsItWas()
{
    click(0, Stock);
    type("777");
    QTRY_VERIFY(isEditing());
    type(keyEscape);
    QTRY_VERIFY(!isEditing());
    QCOMPARE(cell(0, Stock), QString("10"));
    QCOMPARE(QApplication::focusWidget(), table().widget());
    QVERIFY(!isModified());
    QCOMPARE(saved(), headingLine + screw + bearing + nut + motor);
}

void tst_PartsbookCells::aRefusedField_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("told");

    QTest::newRow("large stock") << int(Stock) << "100000"
                                 << "stock: no whole number from 0 to 99999";
    QTest::newRow("stock that is no number") << int(Stock) << "many"
                                             << "stock: no whole number from 0 to 99999";
    QTest::newRow("large minimum") << int(Minimum) << "501"
                                   << "minimum: no whole number from 0 to 500";
    QTest::newRow("negative price") << int(Price) << "-1"
                                    << "price: no number from 0 to 9999.99";
    QTest::newRow("long number") << int(Number) << "12345678901234567"
                                 << "number: more than 16 characters";
    QTest::newRow("long kind") << int(Kind) << "123456789012345678901"
                               << "kind: more than 20 characters";
}

void tst_PartsbookCells::aRefusedField()
{
    QFETCH(const int, column);
    QFETCH(const QString, typed);
    QFETCH(const QString, told);
    const QString before = cell(1, column);
    QStringList texts;
    click(1, column);
    type(typed);
    const ModalDriver<QMessageBox> driver([&](QMessageBox* box) {
        texts += box->text();
        QCOMPARE(cell(1, column), before); // already
        QTRY_VERIFY(box->isActiveWindow());
        type(keyReturn);
    });
    type(keyReturn);
    QTRY_VERIFY(driver.hasActed());
    QTRY_VERIFY(!isEditing());
    QTRY_COMPARE(QApplication::focusWidget(), table().widget());
    QVERIFY2(texts.value(0).startsWith(told), qPrintable(texts.value(0)));
    QCOMPARE(cell(1, column), before);

    type(column == Kind || column == Number ? "x" : "1"); // the cell can be edited as before
    QTRY_VERIFY(isEditing());
    type(keyReturn);
    QTRY_VERIFY(isModified());
    QVERIFY(!isEditing());
}

// The focus goes to another cell by a click, while the message takes it away as well.
void tst_PartsbookCells::aFieldThatIsLeftIsRefusedOnce()
{
    click(0, Stock);
    type("100000");
    QTRY_VERIFY(isEditing());
    int boxes = 0;
    QTimer watch;
    connect(&watch, &QTimer::timeout, this, [&] {
        if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            ++boxes;
            box->accept();
        }
    });
    watch.start(10);
    clickAt(placeOf(2, Name));
    QTRY_COMPARE(boxes, 1);
    QTRY_VERIFY(!QApplication::activeModalWidget());
    QTRY_COMPARE(QApplication::focusWidget(), table().widget());
    QTest::qWait(50);
    QCOMPARE(boxes, 1);
    QVERIFY(!isEditing());
    QCOMPARE(cell(0, Stock), QString("10"));
    QCOMPARE(saved(), headingLine + screw + bearing + nut + motor);
}

void tst_PartsbookCells::anAmpersandIsEditedAsItIs()
{
    QCOMPARE(cell(0, Supplier), QString("Hua & Feng"));
    open(0, Supplier);
    auto* const box = qobject_cast<QComboBox*>(editor());
    QVERIFY(box);
    QCOMPARE(box->currentText(), QString("Hua & Feng"));
    type(keyBackspace);
    type(keyReturn);
    QTRY_COMPARE(cell(0, Supplier), QString("Hua & Fen"));
    QCOMPARE(saved(), headingLine + QByteArray(screw).replace("Feng", "Fen") + bearing + nut + motor);
}

// ----------------------------------------------------------------------------------------------------------- the lists

void tst_PartsbookCells::theSourceByTheMouse()
{
    open(0, Source);
    const auto* const box = table().widget()->findChild<QComboBox*>(); // its list has the focus
    QVERIFY(box);
    QVERIFY(!box->isEditable());
    clickItem(box, 2);
    QTRY_VERIFY(!box->view()->isVisible());
    QCOMPARE(box->currentText(), QString("customer"));
    click(2, Name); // away from it
    QCOMPARE(cell(0, Source), QString("customer"));
    QCOMPARE(saved(), headingLine + QByteArray(screw).replace("bought", "customer") + bearing + nut + motor);
}

void tst_PartsbookCells::theSourceByTheKeys()
{
    click(0, Source);
    type(keyF2);
    QTRY_VERIFY(isEditing());
    type(keyDown);
    type(keyReturn);
    QTRY_COMPARE(cell(0, Source), QString("made"));
    QTRY_COMPARE(QApplication::focusWidget(), table().widget());
    QCOMPARE(saved(), headingLine + QByteArray(screw).replace("bought", "made") + bearing + nut + motor);
}

void tst_PartsbookCells::theSupplierFromTheList()
{
    open(1, Supplier);
    auto* const box = qobject_cast<QComboBox*>(editor());
    QVERIFY(box);
    QVERIFY(box->isEditable());
    clickAt(onScreen(box, {box->width() - 6, box->height() / 2})); // its arrow
    clickItem(box, 1);
    QTRY_COMPARE(box->currentText(), QString("Kessler"));
    type(keyReturn);
    QTRY_COMPARE(cell(1, Supplier), QString("Kessler"));
    QCOMPARE(saved(), headingLine + screw + QByteArray(bearing).replace("Wafang", "Kessler") + nut + motor);
}

void tst_PartsbookCells::theSupplierTyped()
{
    click(1, Supplier);
    type("new one");
    QTRY_VERIFY(isEditing());
    type(keyTab);
    QTRY_COMPARE(cell(1, Supplier), QString("new one"));
    QTRY_COMPARE(table().currentColumn(), int(Source));
    QTRY_VERIFY(isEditing()); // the next list, which Return closes without a change
    type(keyReturn);
    QTRY_VERIFY(!isEditing());
    QCOMPARE(saved(), headingLine + screw + QByteArray(bearing).replace("Wafang", "new one") + nut + motor);
    const QTreeWidget* const tree = window()->findChild<QTreeWidget*>();
    QCOMPARE(tree->findItems("new one", Qt::MatchExactly | Qt::MatchRecursive).size(), 1);
    QCOMPARE(tree->findItems("Wafang", Qt::MatchExactly | Qt::MatchRecursive).size(), 0);
}

void tst_PartsbookCells::theListHasTheSuppliersOfTheBook()
{
    const auto items = [this] {
        const auto* const box = qobject_cast<QComboBox*>(editor());
        QStringList texts;
        for (int i = 0; box && i < box->count(); ++i)
            texts += box->itemText(i);
        return texts.join(", ");
    };
    open(1, Supplier);
    QCOMPARE(items(), QString("Hua & Feng, Kessler, Wafang"));
    type("x");
    type(keyReturn);
    QTRY_VERIFY(!isEditing());
    open(0, Supplier);
    QCOMPARE(items(), QString("Hua & Feng, Kessler, Wafangx"));
    type(keyEscape);
}

void tst_PartsbookCells::escapeLeavesTheChoiceAsItWas()
{
    click(0, Source);
    type(keyF2);
    QTRY_VERIFY(isEditing());
    type(keyDown);
    type(keyEscape);
    QTRY_VERIFY(!isEditing());
    QCOMPARE(cell(0, Source), QString("bought"));
    QCOMPARE(saved(), headingLine + screw + bearing + nut + motor);
}

// ---------------------------------------------------------------------------------------------------------- the boxes

void tst_PartsbookCells::aClickOnACheckBox()
{
    clickAt(placeOf(0, InUse));
    QTRY_COMPARE(cell(0, InUse), QString("no"));
    QTRY_VERIFY(isModified());
    QCOMPARE(saved(), headingLine + QByteArray(screw).replace("yes", "no") + bearing + nut + motor);
    QTest::qWait(QApplication::doubleClickInterval() + 20);
    clickAt(placeOf(0, InUse)); // the cell has the focus now
    QTRY_COMPARE(cell(0, InUse), QString("yes"));
    QCOMPARE(saved(), headingLine + screw + bearing + nut + motor);
    QVERIFY(!isEditing());
}

void tst_PartsbookCells::theSpaceBarOnACheckBox()
{
    click(0, Remark);
    chord(keyShift, keyTab);
    QTRY_COMPARE(table().currentColumn(), int(InUse));
    type(" ");
    QTRY_COMPARE(cell(0, InUse), QString("no"));
    QTRY_VERIFY(isModified());
    QCOMPARE(saved(), headingLine + QByteArray(screw).replace("yes", "no") + bearing + nut + motor);
}

// Its box is checked, and says so beside it. A click takes it out of use, another one brings it back.
void tst_PartsbookCells::aPartWhoseUseEnds()
{
    QCOMPARE(cell(2, InUse), QString("ending"));
    QCOMPARE(table().boxText(2, InUse), QString("x ending"));
    QCOMPARE(table().boxText(0, InUse), QString("x "));
    click(2, InUse);
    QCOMPARE(table().boxText(2, InUse), QString("- "));
    QCOMPARE(saved(), headingLine + screw + bearing + QByteArray(nut).replace("ending", "no") + motor);
    clickAt(placeOf(2, InUse));
    QTRY_COMPARE(cell(2, InUse), QString("yes"));
    QCOMPARE(table().boxText(2, InUse), QString("x "));
}

// ------------------------------------------------------------------------------------------ the whole part, and others

void tst_PartsbookCells::theDialogOpens_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<bool>("byKey");
    QTest::newRow("by a double click on the number") << int(Number) << false;
    QTest::newRow("by a double click on the number of the row") << -1 << false;
    QTest::newRow("by Return on any field") << int(Price) << true;
}

void tst_PartsbookCells::theDialogOpens()
{
    QFETCH(const int, column);
    QFETCH(const bool, byKey);
    const ModalDriver<QDialog> driver([&](QDialog* dialog) {
        QCOMPARE(dialog->findChild<QLineEdit*>("IDC_NUMBER")->text(), QString("FA-3"));
        dialog->findChild<QLineEdit*>("IDC_STOCK")->setText("7");
        dialog->accept();
    });
    if (byKey) {
        click(2, column);
        type(keyReturn);
    } else {
        doubleClick(2, column);
    }
    QTRY_VERIFY(driver.hasActed());
    QVERIFY(!isEditing());
}

void tst_PartsbookCells::aDoubleClickEditsAnyOtherField()
{
    doubleClick(1, Name);
    QTRY_VERIFY(isEditing());
    QVERIFY(!QApplication::activeModalWidget());
    type("s");
    type(keyReturn);
    QTRY_COMPARE(cell(1, Name), QString("Bearings"));
}

// Also while the tree has a name that could be changed.
void tst_PartsbookCells::f2EditsTheCellWithTheFocus()
{
    auto* const tree = window()->findChild<QTreeWidget*>();
    tree->setCurrentItem(tree->findItems("Fastener", Qt::MatchExactly | Qt::MatchRecursive).constFirst());
    m_frame->OnEnterIdle();
    click(0, Number);
    type(keyF2);
    QTRY_VERIFY(isEditing());
    type("x");
    type(keyReturn);
    QTRY_COMPARE(cell(0, Number), QString("FA-1x"));
}

void tst_PartsbookCells::theMenuKey()
{
    click(1, Name);
    QString first;
    QTimer watch; // the menu has a loop of its own
    connect(&watch, &QTimer::timeout, this, [&] {
        if (const auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
            first = menu->actions().constFirst()->text();
            watch.stop();
            type(keyEscape);
        }
    });
    watch.start(10);
    type(keyMenu);
    QTRY_VERIFY(!QApplication::activePopupWidget() && !first.isEmpty());
    QVERIFY2(first.startsWith("&New..."), qPrintable(first));
    QCOMPARE(table().currentRow(), 1);
}

// ----------------------------------------------------------------------------------------------------- what else changes

void tst_PartsbookCells::everythingFollowsTheChange()
{
    QCOMPARE(paneText(3), QString("1 short 缺货"));
    const COLORREF before = table().color(0, Name);
    QVERIFY(table().color(1, Name) != before); // it is short
    click(0, Stock);
    type("4");
    type(keyReturn);
    QTRY_COMPARE(table().color(0, Name), table().color(1, Name));
    QTRY_COMPARE(table().color(0, Supplier), table().color(1, Name));
    QCOMPARE(paneText(0), QString("Changed FA-1 已修改"));
    QCOMPARE(paneText(3), QString("2 short 缺货"));
    QTRY_VERIFY(isModified());
    clickAt(placeOf(1, InUse));
    QTRY_COMPARE(paneText(3), QString("1 short 缺货"));
    QVERIFY(table().color(1, Name) != before);
    QVERIFY(table().color(1, Name) != table().color(0, Name));
}

void tst_PartsbookCells::theStatusBarTellsThePlace()
{
    click(1, Stock);
    QCOMPARE(paneText(1), QString("BE-2, Stock 库存"));
    type(keyDown);
    QTRY_COMPARE(paneText(1), QString("FA-3, Stock 库存"));
}

void tst_PartsbookCells::theMessageWindowTellsWhatIsNotified()
{
    const QString trace = m_folder->filePath("trace");
    click(0, Stock);
    QVERIFY(m_frame->TraceTo(trace));
    window()->activateWindow();
    QTRY_VERIFY(window()->isActiveWindow());
    type("7");
    type(keyReturn);
    QTRY_COMPARE(cell(0, Stock), QString("7"));
    const QStringList told = QString::fromUtf8(contentOf(trace)).split('\n').filter("WM_NOTIFY");
    QCOMPARE(told.join('\n'), QString("WM_NOTIFY  LVN_BEGINLABELEDIT  (2, 6)\n"
                                      "WM_NOTIFY  LVN_ENDLABELEDIT  (2, 6)"));
}

void tst_PartsbookCells::aPartThatTheTreeDoesNotShowAnyMore()
{
    auto* const tree = window()->findChild<QTreeWidget*>();
    tree->setCurrentItem(tree->findItems("Fastener", Qt::MatchExactly | Qt::MatchRecursive).constFirst());
    QVERIFY(table().isRowHidden(1));
    click(0, Kind);
    type("bolts");
    type(keyReturn);
    QTRY_VERIFY(table().isRowHidden(0));
    QCOMPARE(table().currentRow(), 2);
    QVERIFY(!isEditing());
    QCOMPARE(saved(), headingLine + QByteArray(screw).replace("Fastener", "bolts") + bearing + nut + motor);
}

void tst_PartsbookCells::savingEndsTheEdit()
{
    click(0, Stock);
    type("33");
    QTRY_VERIFY(isEditing());
    m_frame->OnEnterIdle();
    QCOMPARE(saved(), headingLine + QByteArray(screw).replace(",10,", ",33,") + bearing + nut + motor);
    QTRY_VERIFY(!isEditing());
}

void tst_PartsbookCells::closingEndsTheEdit()
{
    click(0, Stock);
    type("33");
    QTRY_VERIFY(isEditing());
    const ModalDriver<QMessageBox> driver([](QMessageBox* box) {
        QVERIFY(box->text().startsWith("The parts have been changed."));
        box->button(QMessageBox::Yes)->click();
    });
    window()->close();
    QTRY_VERIFY(driver.hasActed());
    QTRY_VERIFY(!m_frame->GetSafeHwnd());
    QCOMPARE(contentOf(path()), headingLine + QByteArray(screw).replace(",10,", ",33,") + bearing + nut + motor);
}

XE_TEST(tst_PartsbookCells)
#include "tst_partsbookcells.moc"
