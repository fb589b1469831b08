// The commands of the main window: parts are made, changed, deleted and found, the book is saved and closed.

#include "answer.h"
#include "bookframe.h"
#include "modaldriver.h"
#include "resource.h"
#include "samplelines.h"
#include "testclass.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

class tst_PartsbookCommands : public QObject, BookFrame
{
    Q_OBJECT

private slots:
    void init() { comeUp(); }
    void cleanup() { goAway(); }

    void commandsThatHaveNothingToDo();
    void newPart();
    void editPart();
    void deleteAfterYes();
    void noDeletionAfterNo();
    void findAtTheBottom();
    void findAgain();

    void saves();
    void savesUnderTheSuffixOfTheType_data();
    void savesUnderTheSuffixOfTheType();
    void aFileThatCannotBeWritten();
    void closesWithoutAQuestion();
    void closesAfterAQuestion_data();
    void closesAfterAQuestion();
};

// --------------------------------------------------------------------------------------------------------------- parts

void tst_PartsbookCommands::commandsThatHaveNothingToDo()
{
    QVERIFY(open(headingLine));
    QVERIFY(!command(ID_PART_EDIT)->isEnabled());
    QVERIFY(!command(ID_PART_DELETE)->isEnabled());
    QVERIFY(!command(ID_FILE_SAVE)->isEnabled());
    QVERIFY(open(headingLine + screw));
    QVERIFY(command(ID_PART_EDIT)->isEnabled());
    QVERIFY(command(ID_PART_DELETE)->isEnabled());
    QVERIFY(!command(ID_FILE_SAVE)->isEnabled());
    deleteRow(0, "是");
    QVERIFY(!command(ID_PART_EDIT)->isEnabled());
    QVERIFY(command(ID_FILE_SAVE)->isEnabled());
}

void tst_PartsbookCommands::newPart()
{
    QVERIFY(open(headingLine + screw));
    const ModalDriver<QDialog> driver([](QDialog* dialog) {
        QCOMPARE(dialog->windowTitle(), QString("New Part 新建零件"));
        dialog->findChild<QLineEdit*>("IDC_NUMBER")->setText("N-1");
        dialog->findChild<QListWidget*>()->setCurrentRow(0);
        dialog->findChild<QPushButton*>("OK")->click();
    });
    command(ID_PART_NEW)->trigger();
    QVERIFY(driver.hasActed());
    updateCommands();
    QCOMPARE(table().rowCount(), 2);
    QCOMPARE(cell(1, 0), QString("N-1"));
    QCOMPARE(cell(1, 3), QString("华丰"));
    QCOMPARE(table().currentRow(), 1);
    QVERIFY(window()->isWindowModified());
}

void tst_PartsbookCommands::editPart()
{
    QVERIFY(open(headingLine + screw + bearing));
    table().setCurrentCell(1, 3);
    const ModalDriver<QDialog> driver([](QDialog* dialog) {
        QCOMPARE(dialog->findChild<QListWidget*>()->count(), 2);
        dialog->findChild<QLineEdit*>("IDC_STOCK")->setText("7");
        dialog->findChild<QPushButton*>("OK")->click();
    });
    QTest::keyClick(table().widget(), Qt::Key_Return);
    QVERIFY(driver.hasActed());
    updateCommands();
    QCOMPARE(cell(1, 5), QString("7"));
    QCOMPARE(status(), QString("Changed BE-2 已修改|2 parts 零件|0 short 缺货|Modified 已修改"));
    QVERIFY(window()->isWindowModified());
}

void tst_PartsbookCommands::deleteAfterYes()
{
    QVERIFY(open(headingLine + screw + bearing));
    deleteRow(0, "是");
    QCOMPARE(table().rowCount(), 1);
    QCOMPARE(cell(0, 0), QString("BE-2"));
    QVERIFY(window()->isWindowModified());
}

void tst_PartsbookCommands::noDeletionAfterNo()
{
    QVERIFY(open(headingLine + screw + bearing));
    deleteRow(0, "否");
    QCOMPARE(table().rowCount(), 2);
    QVERIFY(!window()->isWindowModified());
}

void tst_PartsbookCommands::findAtTheBottom()
{
    QVERIFY(open(headingLine + screw + bearing + idleMotor));
    QVERIFY(!window()->findChild<QDockWidget*>());
    command(ID_EDIT_FIND)->trigger();
    auto* const bar = window()->findChild<QDockWidget*>();
    QVERIFY(bar && bar->isVisible());
    QTRY_VERIFY(bar->geometry().top() > table().widget()->parentWidget()->geometry().bottom());
    const auto find = [bar](const char* text) {
        bar->findChild<QLineEdit*>()->setText(text);
        bar->findChild<QPushButton*>("IDC_FIND_NEXT")->click();
        return bar->findChild<QLabel*>("IDC_FIND_RESULT")->text();
    };
    QCOMPARE(find("mot"), QString("1 found 条结果"));
    QCOMPARE(table().currentRow(), 2);
    QCOMPARE(status(), QString("Found EL-3 已找到|3 parts 零件|1 short 缺货|"));
    QCOMPARE(find("轴"), QString("1 found 条结果"));
    QCOMPARE(table().currentRow(), 1);
    QCOMPARE(find("nothing"), QString("No match 未找到"));
    QCOMPARE(table().currentRow(), 1);
    bar->findChild<QCheckBox*>()->setChecked(true);
    QCOMPARE(find("mot"), QString("No match 未找到"));
    QCOMPARE(find(""), QString());
    QVERIFY(bar->isVisible());
    bar->findChild<QPushButton*>("IDC_FIND_CLOSE")->click();
    QVERIFY(!bar->isVisible());
    command(ID_EDIT_FIND)->trigger();
    QVERIFY(bar->isVisible());
    QCOMPARE(window()->findChildren<QDockWidget*>().size(), 1);
}

void tst_PartsbookCommands::findAgain()
{
    QVERIFY(open(headingLine + screw + bearing + idleMotor));
    table().widget()->setFocus();
    command(ID_EDIT_REPEAT)->trigger(); // opens the search, as there is nothing to look for yet
    auto* const bar = window()->findChild<QDockWidget*>();
    QVERIFY(bar && bar->isVisible());
    auto* const text = bar->findChild<QLineEdit*>();
    QCOMPARE(window()->focusWidget(), text);
    QTest::keyClicks(text, "r");
    QTest::keyClick(text, Qt::Key_Return);
    QCOMPARE(table().currentRow(), 1);
    QTest::keyClick(text, Qt::Key_Escape);
    QVERIFY(!bar->isVisible());
    QCOMPARE(window()->focusWidget(), table().widget());
    command(ID_EDIT_REPEAT)->trigger();
    QCOMPARE(table().currentRow(), 2);
    command(ID_EDIT_REPEAT)->trigger();
    QCOMPARE(table().currentRow(), 0);
    QVERIFY(!bar->isVisible());
}

// -------------------------------------------------------------------------------------------------- saving and closing

void tst_PartsbookCommands::saves()
{
    QVERIFY(open(headingLine + screw + bearing));
    deleteRow(0, "是");
    command(ID_FILE_SAVE)->trigger();
    updateCommands();
    QCOMPARE(content(), headingLine + bearing);
    QCOMPARE(status(), QString("Saved parts.csv 已保存|1 parts 零件|1 short 缺货|"));
    QVERIFY(!window()->isWindowModified());
    QVERIFY(!command(ID_FILE_SAVE)->isEnabled());
}

void tst_PartsbookCommands::savesUnderTheSuffixOfTheType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("name");
    QTest::newRow("CSV") << 0 << "copy.csv";
    QTest::newRow("an archive") << 1 << "copy.parts";
}

void tst_PartsbookCommands::savesUnderTheSuffixOfTheType()
{
    QVERIFY(open(headingLine + screw));
    QFETCH(const int, type);
    const ModalDriver<QFileDialog> driver([type](QFileDialog* dialog) {
        auto* const types = dialog->findChild<QComboBox*>("fileTypeCombo");
        for (int i = 0; i < type; ++i)
            QTest::keyClick(types, Qt::Key_Down);
        dialog->findChild<QLineEdit*>("fileNameEdit")->setText("copy");
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    command(ID_FILE_SAVE_AS)->trigger();
    QVERIFY(driver.hasActed());
    QFETCH(const QString, name);
    QVERIFY(QFile::exists(m_folder->filePath(name)));
    QCOMPARE(window()->windowTitle(), "Parts Book 零件簿 - " + name + "[*]");
}

void tst_PartsbookCommands::aFileThatCannotBeWritten()
{
    QVERIFY(open(headingLine + screw));
    deleteRow(0, "是");
    const QString file = path();
    m_folder.reset(new QTemporaryDir); // the old one has gone
    const Answer answer("确定");
    command(ID_FILE_SAVE)->trigger();
    updateCommands();
    QVERIFY(answer.text().startsWith(file + " could not be saved: "));
    QVERIFY(window()->isWindowModified());
}

void tst_PartsbookCommands::closesWithoutAQuestion()
{
    QVERIFY(open(headingLine + screw));
    const QPointer<QWidget> closed(window());
    command(ID_APP_EXIT)->trigger();
    QVERIFY(!m_frame->GetSafeHwnd());
    QVERIFY(!closed->isVisible());
}

void tst_PartsbookCommands::closesAfterAQuestion_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<QByteArray>("saved");

    QTest::newRow("yes saves and closes") << "Yes" << true << headingLine + bearing;
    QTest::newRow("no closes") << "No" << true << headingLine + screw + bearing;
    QTest::newRow("cancel does neither") << "取消" << false << headingLine + screw + bearing;
}

void tst_PartsbookCommands::closesAfterAQuestion()
{
    QFETCH(const QString, answer);
    QFETCH(const bool, closes);
    QVERIFY(open(headingLine + screw + bearing));
    deleteRow(0, "是");
    const Answer given(answer);
    QCOMPARE(window()->close(), closes);
    QCOMPARE(given.text(), QString("The parts have been changed. Save them to parts.csv?\n零件已修改，是否保存？"));
    QCOMPARE(!m_frame->GetSafeHwnd(), closes);
    QTEST(content(), "saved");
}

XE_TEST(tst_PartsbookCommands)
#include "tst_partsbookcommands.moc"
