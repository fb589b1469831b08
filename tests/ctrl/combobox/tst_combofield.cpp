// Combo boxes: what is found and selected, the text and the field.

#include "combobox/combostage.h"
#include "leavenothing.h"
#include "testclass.h"

#include <XeCustomUI.h>
#include <XeMFCEmu.h>

#include <QSortFilterProxyModel>
#include <QStandardItemModel>

#include <climits>

class tst_ComboField : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void finding_data();
    void finding();
    void findingFoldsAsQtDoes();
    void findingInAnotherModel();
    void selecting_data();
    void selecting();
    void programsAreSilentUsersAreHeard();
    void windowText_data();
    void windowText();
    void editSelection_data();
    void editSelection();
    void readingTheEditSelection();
};

// ------------------------------------------------------------------------------------------------------- finding

void tst_ComboField::finding_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<CString_X>("text");
    QTest::addColumn<int>("byBeginning");
    QTest::addColumn<int>("whole");
    const auto row = [](const char* name, int start, const wchar_t* text, int byBeginning, int whole) {
        QTest::newRow(name) << start << CString_X(text) << byBeginning << whole;
    };
    row("from the beginning", 0, L"pear", 1, 1);
    row("upper and lower case alike", 0, L"PEAR", 1, 1);
    row("start below 0", -1, L"pear", 1, 1);
    row("far below 0", INT_MIN, L"apple", 0, 0);
    row("start counts itself", 1, L"pear", 1, 1);
    row("behind it", 2, L"pear", 3, 3);
    row("does not go round", 2, L"apple", -1, -1);
    row("beginning", 0, L"p", 1, -1);
    row("the middle is none", 0, L"lum", -1, -1);
    row("longer than any", 0, L"pears", -1, -1);
    row("empty text", 0, L"", 0, -1);
    row("start behind all", 4, L"pear", -1, -1);
    row("start at the limit of numbers", INT_MAX, L"pear", -1, -1);
}

void tst_ComboField::finding()
{
    QFETCH(int, start);
    QFETCH(CString_X, text);
    const Stage stage(fruit);
    QTEST(stage.combo.FindString(start, text), "byBeginning");
    QTEST(stage.combo.FindStringExact(start, text), "whole");
}

// Letters whose other case is one of ASCII, letters beyond the first plane, and one text longer than the other.
void tst_ComboField::findingFoldsAsQtDoes()
{
    const QStringList texts{QStringLiteral("ÄPFEL"), QStringLiteral("äpfel"), QStringLiteral("\u212A1"), // Kelvin
                            QStringLiteral("k1"),    QStringLiteral("ſ"),     QStringLiteral("S"),
                            QStringLiteral("𐐀x"),    QStringLiteral("𐐨X"),    QStringLiteral("ΣΊΣ"),
                            QStringLiteral("σίς"),   QStringLiteral("[{@`"),  QStringLiteral("{[`@"),
                            QStringLiteral("ß"),     QStringLiteral("SS"),    QString()};
    for (const QString& item : texts) {
        const Stage stage({item});
        for (const QString& text : texts) {
            QCOMPARE(stage.combo.FindString(0, CString_X(text)), item.startsWith(text, Qt::CaseInsensitive) ? 0 : -1);
            QCOMPARE(stage.combo.FindStringExact(0, CString_X(text)),
                     item.compare(text, Qt::CaseInsensitive) == 0 ? 0 : -1);
        }
    }
}

// A model of the host's, or a column of it.
void tst_ComboField::findingInAnotherModel()
{
    QStandardItemModel model(2, 2);
    model.setItem(0, 1, new QStandardItem(QStringLiteral("apple")));
    model.setItem(1, 1, new QStandardItem(QStringLiteral("pear")));
    QSortFilterProxyModel sorted;
    sorted.setSourceModel(&model);
    sorted.sort(1, Qt::DescendingOrder);
    Stage stage;
    stage.box.setModel(&model);
    stage.box.setModelColumn(1);
    QCOMPARE(stage.combo.FindString(0, L"PE"), 1);
    stage.box.setModel(&sorted);
    stage.box.setModelColumn(1);
    QCOMPARE(stage.combo.FindString(0, L"PE"), 0);
    delete model.takeItem(0, 1);
    QCOMPARE(stage.combo.FindString(0, L"apple"), -1);
}

void tst_ComboField::selecting_data()
{
    QTest::addColumn<QString>("items");
    QTest::addColumn<CString_X>("text");
    QTest::addColumn<int>("index");
    const auto row = [](const char* name, const char* items, const wchar_t* text, int index) {
        QTest::newRow(name) << QString::fromLatin1(items) << CString_X(text) << index;
    };
    row("the text", "a b c", L"b", 1);
    row("upper and lower case alike", "a b c", L"B", 1);
    row("a beginning is not enough", "alpha beta", L"al", -1);
    row("a number less than 1 away", "7 2.25 9", L"1.5", 1);
    row("exactly 1 away", "2.5 7", L"1.5", -1);
    row("a number in front of the exact one", "10 10.5 10.75", L"10.75", 0);
    row("numbers and texts", "x 3 y", L"3.0", 1);
    row("a text that is no number", "3", L"3 pieces", -1);
    row("huge numbers", "1e300 -1e300", L"2e300", -1);
    row("a huge number itself", "5 1e300", L"1e300", 1);
    row("not a number", "nan 1", L"NaN", 0);
    row("nan is near to nothing", "1 2", L"nan", -1);
    row("infinite", "inf -inf", L"-inf", 1);
    row("nothing", "a", L"", -1);
}

void tst_ComboField::selecting()
{
    QFETCH(QString, items);
    QFETCH(CString_X, text);
    QFETCH(int, index);
    for (const int start : {-1, 0, 99}) { // which has no meaning
        Stage stage(items.split(QLatin1Char(' ')));
        stage.combo.SetCurSel(-1);
        const Signals heard(stage.box);
        QCOMPARE(stage.combo.SelectString(start, text), index);
        QCOMPARE(stage.combo.GetCurSel(), index);
        QCOMPARE(heard.count(), 0);
    }
}

void tst_ComboField::programsAreSilentUsersAreHeard()
{
    Stage stage(fruit, false);
    const Signals heard(stage.box);
    QCOMPARE(stage.combo.SetCurSel(2), 2);
    QCOMPARE(stage.combo.SetCurSel(9), -1);
    QCOMPARE(stage.combo.SetCurSel(-1), -1);
    stage.combo.SetWindowText(L"Pear");
    stage.combo.SetItemData(0, 5);
    QCOMPARE(heard.count(), 0);
    stage.box.show();
    QTest::keyClick(&stage.box, Qt::Key_Down);
    QCOMPARE(stage.combo.GetCurSel(), 2);
    QCOMPARE(heard.index.count(), 1);

    stage.box.blockSignals(true); // by the host
    stage.combo.AddString(L"x");
    QVERIFY(stage.box.signalsBlocked());
    stage.box.blockSignals(false);
}

// --------------------------------------------------------------------------------------------- text and the field

void tst_ComboField::windowText_data()
{
    QTest::addColumn<bool>("editable");
    QTest::addColumn<CString_X>("text");
    QTest::addColumn<CString_X>("shown");
    QTest::addColumn<int>("current");
    QTest::newRow("an item") << true << CString_X(L"plum") << CString_X(L"plum") << 2;
    QTest::newRow("exactly equal to it") << true << CString_X(L"pear") << CString_X(L"pear") << 3;
    QTest::newRow("another case is no item") << true << CString_X(L"PLUM") << CString_X(L"PLUM") << 0;
    QTest::newRow("typed") << true << CString_X(L"kiwi") << CString_X(L"kiwi") << 0;
    QTest::newRow("nothing") << true << CString_X() << CString_X() << 0;
    QTest::newRow("drop list: an item") << false << CString_X(L"plum") << CString_X(L"plum") << 2;
    QTest::newRow("drop list: no item") << false << CString_X(L"kiwi") << CString_X(L"apple") << 0;
}

void tst_ComboField::windowText()
{
    QFETCH(bool, editable);
    QFETCH(CString_X, text);
    Stage stage(fruit, editable);
    const Signals heard(stage.box);
    SetWindowText_X(&stage.box, text);
    QTEST(textOf(stage.combo), "shown");
    QTEST(stage.combo.GetCurSel(), "current");
    QCOMPARE(heard.count(), 0);
    if (editable)
        QCOMPARE(stage.box.lineEdit()->cursorPosition(), 0);
}

void tst_ComboField::editSelection_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<int>("caret");
    const auto row = [](const char* name, int start, int end, const char* selected, int caret) {
        QTest::newRow(name) << start << end << QString::fromLatin1(selected) << caret;
    };
    row("the second number is a length", 2, 3, "cde", 5);
    row("nothing", -1, 3, "", 0);
    row("start -1 goes before end -1", -1, -1, "", 0);
    row("all", 0, -1, "abcdefg", 7);
    row("all from anywhere", 4, -1, "abcdefg", 7);
    row("a length behind the text", 5, 9, "fg", 7);
    row("a length at the limit of numbers", 5, INT_MAX, "fg", 7);
    row("start behind the text", 8, 2, "", 7);
    row("start below -1", -2, 2, "", 4);
}

void tst_ComboField::editSelection()
{
    QFETCH(int, start);
    QFETCH(int, end);
    Stage stage;
    stage.box.setEditText(QStringLiteral("abcdefg"));
    stage.box.lineEdit()->setCursorPosition(4);
    QCOMPARE(stage.combo.SetEditSel(start, end), TRUE);
    QTEST(stage.box.lineEdit()->selectedText(), "selected");
    QTEST(stage.box.lineEdit()->cursorPosition(), "caret");
}

void tst_ComboField::readingTheEditSelection()
{
    int start = 7;
    int end = 8;
    Stage stage({QStringLiteral("abcdefg")});
    QCOMPARE(stage.combo.SetEditSel(2, 3), TRUE);
    QCOMPARE(stage.combo.GetEditSel(start, end), TRUE);
    QCOMPARE(start, 2);
    QCOMPARE(end, 5);
    stage.box.lineEdit()->end(false);
    stage.combo.GetEditSel(start, end);
    QCOMPARE(start, 7);
    QCOMPARE(end, 7);
    Stage dropList({QStringLiteral("abcdefg")}, false);
    start = 1;
    QCOMPARE(dropList.combo.GetEditSel(start, end), FALSE);
    QCOMPARE(start, 1);
    QCOMPARE(dropList.combo.SetEditSel(0, -1), FALSE);
}

XE_TEST(tst_ComboField)
#include "tst_combofield.moc"
