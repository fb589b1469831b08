// The dialog of a part: each control shows its field and gives it back, and a value out of range keeps the dialog open.

#include "leavenothing.h"
#include "modaldriver.h"
#include "partdialog.h"
#include "resource.h"
#include "testclass.h"

#include <xeresource.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QTabWidget>

#include <functional>

namespace {

Part fullPart()
{
    Part part;
    part.number = L"BE-6204";
    part.name = L"Ball bearing 轴承";
    part.kind = L"Bearing 轴承";
    part.supplier = L"瓦轴";
    part.source = Part::Made;
    part.stock = 126;
    part.minimum = 60;
    part.price = 3.65;
    part.inUse = FALSE;
    part.remark = L"shelf 2";
    return part;
}

const QStringList suppliers{"Kessler", "华丰", "瓦轴"};

PartsBook bookOfSuppliers()
{
    PartsBook book;
    for (const QString& supplier : suppliers) {
        Part part;
        part.supplier = supplier;
        book.add(part);
        book.add(part);
    }
    return book;
}

template <class Object>
Object* child(const QDialog* dialog, unsigned id)
{
    return dialog->findChild<Object*>(ToStringId(id));
}

QLineEdit* edit(const QDialog* dialog, unsigned id) { return child<QLineEdit>(dialog, id); }

void press(const QDialog* dialog, const char* button) { dialog->findChild<QPushButton*>(button)->click(); }

} // namespace

using Change = std::function<void(QDialog*)>;
Q_DECLARE_METATYPE(Change)

class tst_PartsbookDialog : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void showsThePart();
    void showsANewPart();
    void givesTheValuesBack();
    void cancelLeavesThePart();
    void formHasItsStyle();
    void anUnknownSupplierIsAddedToTheList();
    void anUnknownKindIsKept();
    void oneValueThatFailsChangesNothing();
    void refuses_data();
    void refuses();
    void limitsWhatIsTyped();

private:
    int run(const Change& action);

    const PartsBook m_book = bookOfSuppliers();
    const CPartPictures m_pictures;
    QScopedPointer<CPartDialog> m_dialog;
};

void tst_PartsbookDialog::init()
{
    m_dialog.reset(new CPartDialog(L"Part", m_book, m_pictures, nullptr));
    m_dialog->m_part = fullPart();
}

void tst_PartsbookDialog::cleanup()
{
    m_dialog.reset();
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

int tst_PartsbookDialog::run(const Change& action)
{
    QTest::ignoreMessage(QtWarningMsg, "This plugin does not support propagateSizeHints()"); // again, for the pages
    const ModalDriver<QDialog> driver(action);
    const int result = m_dialog->DoModal();
    return driver.hasActed() ? result : -1;
}

void tst_PartsbookDialog::showsThePart()
{
    QStringList shown;
    const int result = run([&](QDialog* dialog) {
        for (const unsigned id : {IDC_NUMBER, IDC_NAME, IDC_STOCK, IDC_PRICE, IDC_REMARK})
            shown += edit(dialog, id)->text();
        shown += child<QComboBox>(dialog, IDC_KIND)->currentText();
        shown += child<QListWidget>(dialog, IDC_SUPPLIER)->currentItem()->text();
        shown += QString::number(child<QSlider>(dialog, IDC_MINIMUM)->value());
        shown += child<QSpinBox>(dialog, IDC_MINIMUM_SPIN)->text();
        for (const unsigned id : {IDC_BOUGHT, IDC_MADE, IDC_CUSTOMER, IDC_IN_USE})
            shown += child<QAbstractButton>(dialog, id)->isChecked() ? "on" : "off";
        shown += dialog->windowTitle();
        press(dialog, "OK");
    });
    QCOMPARE(result, IDOK);
    const QStringList expected{"BE-6204", "Ball bearing 轴承",
                               "126",     "3.65",
                               "shelf 2", "Bearing 轴承",
                               "瓦轴",    "60",
                               "60",      "off",
                               "on",      "off",
                               "off",     "Part"};
    QCOMPARE(shown, expected);
    QVERIFY(m_dialog->m_part == fullPart());
}

void tst_PartsbookDialog::showsANewPart()
{
    m_dialog->m_part = Part();
    m_dialog->m_part.number = L"N-1";
    const int result = run([](QDialog* dialog) {
        QCOMPARE(child<QListWidget>(dialog, IDC_SUPPLIER)->currentRow(), -1);
        child<QListWidget>(dialog, IDC_SUPPLIER)->setCurrentRow(1);
        press(dialog, "OK");
    });
    QCOMPARE(result, IDOK);
    Part expected;
    expected.number = L"N-1";
    expected.supplier = L"华丰";
    QVERIFY(m_dialog->m_part == expected);
}

void tst_PartsbookDialog::givesTheValuesBack()
{
    const int result = run([](QDialog* dialog) {
        edit(dialog, IDC_NUMBER)->setText("N-2");
        edit(dialog, IDC_NAME)->setText("新名称");
        edit(dialog, IDC_STOCK)->setText("99999");
        edit(dialog, IDC_PRICE)->setText("9999.99");
        edit(dialog, IDC_REMARK)->setText("a, \"b\"");
        child<QComboBox>(dialog, IDC_KIND)->setCurrentIndex(2);
        child<QListWidget>(dialog, IDC_SUPPLIER)->setCurrentRow(0);
        child<QSlider>(dialog, IDC_MINIMUM)->setValue(500);
        child<QRadioButton>(dialog, IDC_CUSTOMER)->click();
        child<QCheckBox>(dialog, IDC_IN_USE)->setChecked(true);
        press(dialog, "OK");
    });
    QCOMPARE(result, IDOK);
    Part expected;
    expected.number = L"N-2";
    expected.name = L"新名称";
    expected.kind = L"Seal 密封件";
    expected.supplier = L"Kessler";
    expected.source = Part::FromCustomer;
    expected.stock = 99999;
    expected.minimum = 500;
    expected.price = 9999.99;
    expected.inUse = TRUE;
    expected.remark = L"a, \"b\"";
    QVERIFY(m_dialog->m_part == expected);
}

void tst_PartsbookDialog::cancelLeavesThePart()
{
    const int result = run([](QDialog* dialog) {
        edit(dialog, IDC_NAME)->setText("another");
        press(dialog, "Cancel");
    });
    QCOMPARE(result, IDCANCEL);
    QVERIFY(m_dialog->m_part == fullPart());
}

void tst_PartsbookDialog::formHasItsStyle()
{
    run([](QDialog* dialog) {
        QCOMPARE(dialog->windowModality(), Qt::ApplicationModal);
        QVERIFY(!dialog->windowFlags().testFlag(Qt::FramelessWindowHint));
        press(dialog, "Cancel");
    });
}

void tst_PartsbookDialog::anUnknownSupplierIsAddedToTheList()
{
    m_dialog->m_part.supplier = L"Somebody else";
    run([](QDialog* dialog) {
        QCOMPARE(child<QListWidget>(dialog, IDC_SUPPLIER)->count(), suppliers.size() + 1);
        press(dialog, "OK");
    });
    QCOMPARE(m_dialog->m_part.supplier, CString_X(L"Somebody else"));
}

void tst_PartsbookDialog::anUnknownKindIsKept()
{
    m_dialog->m_part.kind = L"Optics";
    QCOMPARE(run([](QDialog* dialog) { press(dialog, "OK"); }), IDOK);
    QCOMPARE(m_dialog->m_part.kind, CString_X(L"Optics"));
}

void tst_PartsbookDialog::oneValueThatFailsChangesNothing()
{
    run([](QDialog* dialog) {
        edit(dialog, IDC_NAME)->setText("another");
        edit(dialog, IDC_PRICE)->setText("-1");
        const ModalDriver<QMessageBox> driver([](QMessageBox* box) { box->accept(); });
        press(dialog, "OK");
        QTRY_VERIFY(driver.hasActed());
        press(dialog, "Cancel");
    });
    QVERIFY(m_dialog->m_part == fullPart());
}

void tst_PartsbookDialog::refuses_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("message");
    QTest::addColumn<unsigned>("control");
    const auto row = [](const char* name, unsigned control, const char* text, const char* message) {
        const Change change = [control, text](QDialog* dialog) { edit(dialog, control)->setText(text); };
        QTest::newRow(name) << change << QString(message) << control;
    };
    row("no number", IDC_NUMBER, "", "请填入编号。");
    row("no stock", IDC_STOCK, "", "请输入正确的数值！");
    row("stock in words", IDC_STOCK, "many", "请输入正确的数值！");
    row("negative stock", IDC_STOCK, "-1", "请填入一个0和99999之间的整数。");
    row("large stock", IDC_STOCK, "100000", "请填入一个0和99999之间的整数。");
    row("price in words", IDC_PRICE, "cheap", "请输入正确的数值！");
    row("negative price", IDC_PRICE, "-0.5", "请填入一个0和9999.99之间的数字。");
    row("large price", IDC_PRICE, "10000", "请填入一个0和9999.99之间的数字。");
    const Change noSupplier = [](QDialog* dialog) { child<QListWidget>(dialog, IDC_SUPPLIER)->setCurrentRow(-1); };
    QTest::newRow("no supplier") << noSupplier << "请选择供应商。" << unsigned(IDC_SUPPLIER);
}

// A box comes up, and then the control has the keyboard, on the page that is shown.
void tst_PartsbookDialog::refuses()
{
    QFETCH(const Change, change);
    QFETCH(const QString, message);
    QFETCH(const unsigned, control);
    QString told;
    QString focused;
    run([&](QDialog* dialog) {
        change(dialog);
        dialog->findChild<QTabWidget*>()->setCurrentIndex(2);
        const ModalDriver<QMessageBox> driver([&](QMessageBox* box) {
            told = box->text();
            box->accept();
        });
        press(dialog, "OK");
        QTRY_VERIFY(driver.hasActed());
        QVERIFY(dialog->isVisible());
        focused = dialog->focusWidget()->objectName();
        QVERIFY(dialog->focusWidget()->isVisible());
        press(dialog, "Cancel");
    });
    QCOMPARE(told, message);
    QCOMPARE(focused, ToStringId(control));
    QVERIFY(m_dialog->m_part == fullPart());
}

void tst_PartsbookDialog::limitsWhatIsTyped()
{
    run([](QDialog* dialog) {
        QTest::keyClicks(edit(dialog, IDC_NAME), QString(60, 'x'));
        QTest::keyClicks(edit(dialog, IDC_NUMBER), QString(60, 'y'));
        press(dialog, "OK");
    });
    QCOMPARE(m_dialog->m_part.name.GetLength(), partlimit::name);
    QCOMPARE(m_dialog->m_part.number.GetLength(), partlimit::number);
}

XE_TEST(tst_PartsbookDialog)
#include "tst_partsbookdialog.moc"
