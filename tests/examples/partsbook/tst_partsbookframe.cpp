// The main window: its commands, its questions, and what it gives the library as the host's main window.

#include "leavenothing.h"
#include "mainframe.h"
#include "modaldriver.h"
#include "partsview.h"
#include "resource.h"
#include "samplelines.h"
#include "testclass.h"

#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QToolBar>
#include <xeprocess.h>
#include <xeresource.h>

namespace {

// What is done with a box: its button with this text is pressed. Gives the text of the box.
class Answer
{
public:
    explicit Answer(const QString& button)
        : m_driver([this, button](QMessageBox* box) {
              m_text = box->text();
              for (QAbstractButton* one : box->buttons()) {
                  if (one->text().remove('&') == button)
                      one->click();
              }
          })
    {}
    QString text() const { return m_driver.hasActed() ? m_text : "no box"; }

private:
    QString m_text;
    ModalDriver<QMessageBox> m_driver;
};

} // namespace

class tst_PartsbookFrame : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void isTheMainWindowOfTheHost();
    void runsNoCommand();
    void setsTheCursor_data();
    void setsTheCursor();
    void eachNumberHasItsTextOrControl();

    void showsTheParts();
    void badLinesAreReported();
    void aFileThatCannotBeRead();
    void anotherBookWhileACellIsEdited();
    void commandsThatHaveNothingToDo();

    void newPart();
    void editPart();
    void deleteAfterYes();
    void noDeletionAfterNo();
    void findAtTheBottom();
    void findAgain();

    void toolBarHasACheckButtonForTheMessages();
    void toolBarButtonsAreTheMenusCommands();
    void statusTellsOfChanges();

    void saves();
    void savesUnderTheSuffixOfTheType_data();
    void savesUnderTheSuffixOfTheType();
    void aFileThatCannotBeWritten();
    void statusGoesAway();
    void closesWithoutAQuestion();
    void closesAfterAQuestion_data();
    void closesAfterAQuestion();

private:
    QWidget* window() const { return m_frame->GetSafeHwnd(); }
    PartsView table() const { return PartsView(*window()); }
    QAction* command(unsigned id) const { return window()->findChild<QAction*>(ToStringId(id)); }
    QString cell(int row, int column) const { return table().text(row, column); }
    QString status() const;
    QString path() const { return m_folder->filePath("parts.csv"); }
    QByteArray content() const;
    void write(const QByteArray& text);
    bool open(const QByteArray& text);
    void updateCommands() { m_frame->OnEnterIdle(); }
    void deleteRow(int row, const QString& answer);

    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<CMainFrame> m_frame;
};

void tst_PartsbookFrame::init()
{
    m_folder.reset(new QTemporaryDir);
    m_frame.reset(new CMainFrame);
    QCOMPARE(m_frame->Create(nullptr), 1);
    m_frame->ShowWindow(SW_SHOW);
}

void tst_PartsbookFrame::cleanup()
{
    m_frame->DestroyWindow();
    updateCommands(); // nothing to be updated any more
    m_frame.reset();
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

QByteArray tst_PartsbookFrame::content() const
{
    QFile file(path());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

void tst_PartsbookFrame::write(const QByteArray& text)
{
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

// The texts of the panes of the status bar: "Saved parts.csv|2 parts|1 short|".
QString tst_PartsbookFrame::status() const
{
    QStringList texts;
    const auto* const bar = qobject_cast<CStatusBar_X*>(CWnd_X::FromHandle(window()->findChild<QStatusBar*>()));
    for (const QWidget* pane : bar->GetListQWidgets())
        texts += static_cast<const QLabel*>(pane)->text();
    texts.removeAt(1); // the place in the list
    return texts.join('|');
}

bool tst_PartsbookFrame::open(const QByteArray& text)
{
    write(text);
    const bool opened = m_frame->OpenBook(path());
    updateCommands();
    return opened;
}

void tst_PartsbookFrame::deleteRow(int row, const QString& answer)
{
    table().setCurrentCell(row, 0);
    const Answer given(answer);
    command(ID_PART_DELETE)->trigger();
    updateCommands();
    QVERIFY(given.text() != "no box");
}

// --------------------------------------------------------------------------------------------------- the main window

void tst_PartsbookFrame::isTheMainWindowOfTheHost()
{
    QCOMPARE(TavoGetMainFrame(), window());
    QCOMPARE(CWnd_X::FromHandlePermanent(window()), static_cast<CWnd_X*>(m_frame.data()));
    QCOMPARE(window()->metaObject()->className(), "CTavoMainFrame");
}

void tst_PartsbookFrame::runsNoCommand()
{
    const auto isActive = reinterpret_cast<bool (*)()>(window()->property("IsTavoCmdActive").toLongLong());
    QVERIFY(isActive);
    QCOMPARE(isActive(), false);
}

void tst_PartsbookFrame::setsTheCursor_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<Qt::CursorShape>("shape");

    QTest::newRow("arrow") << 256 << Qt::ArrowCursor;
    QTest::newRow("text") << 257 << Qt::IBeamCursor;
    QTest::newRow("cross") << 258 << Qt::CrossCursor;
    QTest::newRow("wait") << 259 << Qt::WaitCursor;
    QTest::newRow("up and down") << 260 << Qt::SizeVerCursor;
    QTest::newRow("left and right") << 261 << Qt::SizeHorCursor;
    QTest::newRow("rising diagonal") << 262 << Qt::SizeBDiagCursor;
    QTest::newRow("falling diagonal") << 263 << Qt::SizeFDiagCursor;
    QTest::newRow("all directions") << 264 << Qt::SizeAllCursor;
    QTest::newRow("hand") << 268 << Qt::PointingHandCursor;
    QTest::newRow("unknown code") << 265 << Qt::ArrowCursor;
    QTest::newRow("negative code") << -1 << Qt::ArrowCursor;
}

void tst_PartsbookFrame::setsTheCursor()
{
    QFETCH(const int, code);
    const auto setCursor = reinterpret_cast<int (*)(QWidget*, int)>(window()->property("TavoSetCursor").toLongLong());
    QVERIFY(setCursor);
    window()->setCursor(Qt::ForbiddenCursor);
    QCOMPARE(setCursor(nullptr, code), code);
    QTEST(window()->cursor().shape(), "shape");
}

void tst_PartsbookFrame::eachNumberHasItsTextOrControl()
{
    for (const unsigned id : GetResourceIDMap().keys()) {
        const QString name = ToStringId(id);
        if (name.startsWith("IDS_"))
            QVERIFY2(!GetResourceStringById(id).isEmpty(), qPrintable(name));
        else if (name.startsWith("ID_") && !name.startsWith("ID_FILE_MRU_") && !name.startsWith("ID_SORT_"))
            QVERIFY2(command(id), qPrintable(name));
    }
}

// ---------------------------------------------------------------------------------------------------------- the book

void tst_PartsbookFrame::showsTheParts()
{
    QVERIFY(open(headingLine + screw + bearing + idleMotor));
    QCOMPARE(window()->windowTitle(), QString("Parts Book 零件簿 - parts.csv[*]"));
    QCOMPARE(table().rowCount(), 3);
    QCOMPARE(table().columnCount(), 11);
    QCOMPARE(table().currentRow(), 0);
    QCOMPARE(cell(0, 1), QString("Screw 螺钉"));
    QCOMPARE(cell(2, 9), QString("heavy"));
    QCOMPARE(status(), QString("|3 parts 零件|1 short 缺货|"));
    QVERIFY(table().color(0, 0) != table().color(1, 0)); // short
    QVERIFY(table().color(1, 0) != table().color(2, 0)); // not in use
}

void tst_PartsbookFrame::badLinesAreReported()
{
    QByteArray text = headingLine + screw + "a,b\n";
    for (int i = 0; i < 14; ++i)
        text += "x\n";
    const Answer answer("确定");
    QVERIFY(open(text));
    const QStringList told = answer.text().split('\n');
    QCOMPARE(told.size(), 2 + 12 + 1);
    QCOMPARE(told.first(), QString("15 lines of parts.csv could not be read. They stay in the file as they are."));
    QCOMPARE(told.at(2), QString("Line 3: 2 fields in place of 10 to 12."));
    QCOMPARE(told.last(), QString("... and 3 more."));
    QCOMPARE(table().rowCount(), 1);
}

void tst_PartsbookFrame::aFileThatCannotBeRead()
{
    const Answer answer("确定");
    QVERIFY(!m_frame->OpenBook(path()));
    QCOMPARE(answer.text(), path() + " cannot be read: No such file or directory.");
}

// The editor belongs to the book that goes.
void tst_PartsbookFrame::anotherBookWhileACellIsEdited()
{
    constexpr int stock = 5;
    QVERIFY(open(headingLine + screw + bearing));
    QTRY_VERIFY((window()->activateWindow(), window()->isActiveWindow()));
    table().widget()->setFocus();
    table().setCurrentCell(1, stock);
    QTest::keyClick(table().widget(), Qt::Key_7);
    QTRY_VERIFY(qobject_cast<QLineEdit*>(window()->focusWidget()));
    QVERIFY(open(headingLine + motor));
    QCOMPARE(table().rowCount(), 1);
    QCOMPARE(cell(0, stock), QString("2"));
}

void tst_PartsbookFrame::commandsThatHaveNothingToDo()
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

// ---------------------------------------------------------------------------------------------------------- commands

void tst_PartsbookFrame::newPart()
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

void tst_PartsbookFrame::editPart()
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

void tst_PartsbookFrame::deleteAfterYes()
{
    QVERIFY(open(headingLine + screw + bearing));
    deleteRow(0, "是");
    QCOMPARE(table().rowCount(), 1);
    QCOMPARE(cell(0, 0), QString("BE-2"));
    QVERIFY(window()->isWindowModified());
}

void tst_PartsbookFrame::noDeletionAfterNo()
{
    QVERIFY(open(headingLine + screw + bearing));
    deleteRow(0, "否");
    QCOMPARE(table().rowCount(), 2);
    QVERIFY(!window()->isWindowModified());
}

void tst_PartsbookFrame::findAtTheBottom()
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

void tst_PartsbookFrame::findAgain()
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

// --------------------------------------------------------------------------------------------------------------- bars

void tst_PartsbookFrame::toolBarHasACheckButtonForTheMessages()
{
    QVERIFY(open(headingLine + screw));
    auto* const bar = window()->findChild<QToolBar*>();
    QCOMPARE(bar->actions().size(), 9);
    for (const QAction* action : bar->actions())
        QCOMPARE(action->icon().isNull(), action->isSeparator());
    QAction* const messages = command(ID_VIEW_MESSAGES);
    auto* const button = bar->widgetForAction(messages);
    QTest::mouseClick(button, Qt::LeftButton);
    updateCommands();
    QVERIFY(messages->isChecked());
    auto* const view = window()->findChild<CTavoView*>();
    QVERIFY(view && view->isVisible());
    view->close();
    updateCommands();
    QVERIFY(!messages->isChecked());
    QTest::mouseClick(button, Qt::LeftButton);
    QTest::mouseClick(button, Qt::LeftButton);
    updateCommands();
    QVERIFY(!view->isVisible());
    QVERIFY(!messages->isChecked());
}

void tst_PartsbookFrame::toolBarButtonsAreTheMenusCommands()
{
    QVERIFY(open(headingLine + screw));
    auto* const bar = window()->findChild<QToolBar*>();
    QVERIFY(!bar->widgetForAction(command(ID_FILE_SAVE))->isEnabled());
    deleteRow(0, "是");
    QVERIFY(bar->widgetForAction(command(ID_FILE_SAVE))->isEnabled());
    QVERIFY(!bar->widgetForAction(command(ID_PART_EDIT))->isEnabled());
    QTest::mouseClick(bar->widgetForAction(command(ID_FILE_SAVE)), Qt::LeftButton);
    updateCommands();
    QCOMPARE(content(), headingLine);
}

void tst_PartsbookFrame::statusTellsOfChanges()
{
    QVERIFY(open(headingLine + screw + bearing));
    QCOMPARE(status(), QString("|2 parts 零件|1 short 缺货|"));
    deleteRow(1, "是");
    QCOMPARE(status(), QString("Deleted BE-2 已删除|1 parts 零件|0 short 缺货|Modified 已修改"));
    command(ID_FILE_SAVE)->trigger();
    updateCommands();
    QCOMPARE(status(), QString("Saved parts.csv 已保存|1 parts 零件|0 short 缺货|"));
}

// ------------------------------------------------------------------------------------------------- saving and closing

void tst_PartsbookFrame::saves()
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

void tst_PartsbookFrame::savesUnderTheSuffixOfTheType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("name");
    QTest::newRow("CSV") << 0 << "copy.csv";
    QTest::newRow("an archive") << 1 << "copy.parts";
}

void tst_PartsbookFrame::savesUnderTheSuffixOfTheType()
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

void tst_PartsbookFrame::aFileThatCannotBeWritten()
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

void tst_PartsbookFrame::statusGoesAway()
{
    QVERIFY(open(headingLine + screw + bearing));
    deleteRow(0, "是");
    QCOMPARE(status(), QString("Deleted FA-1 已删除|1 parts 零件|1 short 缺货|Modified 已修改"));
    QCOMPARE(GetGlobalEventHandler()->timers.size(), std::size_t(1));
    m_frame->SendMessage(WM_TIMER, 4711);
    QCOMPARE(status(), QString("Deleted FA-1 已删除|1 parts 零件|1 short 缺货|Modified 已修改"));
    m_frame->SendMessage(WM_TIMER, 1001);
    QCOMPARE(status(), QString("|1 parts 零件|1 short 缺货|Modified 已修改"));
    QCOMPARE(GetGlobalEventHandler()->timers.size(), std::size_t(0));
}

void tst_PartsbookFrame::closesWithoutAQuestion()
{
    QVERIFY(open(headingLine + screw));
    const QPointer<QWidget> closed(window());
    command(ID_APP_EXIT)->trigger();
    QVERIFY(!m_frame->GetSafeHwnd());
    QVERIFY(!closed->isVisible());
}

void tst_PartsbookFrame::closesAfterAQuestion_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<QByteArray>("saved");

    QTest::newRow("yes saves and closes") << "Yes" << true << headingLine + bearing;
    QTest::newRow("no closes") << "No" << true << headingLine + screw + bearing;
    QTest::newRow("cancel does neither") << "取消" << false << headingLine + screw + bearing;
}

void tst_PartsbookFrame::closesAfterAQuestion()
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

XE_TEST(tst_PartsbookFrame)
#include "tst_partsbookframe.moc"
