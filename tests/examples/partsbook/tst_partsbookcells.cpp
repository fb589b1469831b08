// Parts are edited in the cells of the list, under a user's hands: what is typed, chosen and clicked goes into the
// file, and what is refused does not.

#include "cellsuser.h"
#include "modaldriver.h"
#include "samplelines.h"
#include "testclass.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QMessageBox>

class tst_PartsbookCells : public QObject, CellsUser
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_input.isUsable()); }
    void init() { comeUp(); }
    void cleanup() { goAway(); }

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
};

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

XE_TEST(tst_PartsbookCells)

#include "tst_partsbookcells.moc"
