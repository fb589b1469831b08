// The main window: what it gives the library as that of the host, the book that it shows, and its bars.

#include "answer.h"
#include "bookframe.h"
#include "resource.h"
#include "samplelines.h"
#include "testclass.h"

#include <QLineEdit>
#include <QToolBar>
#include <xeprocess.h>

class tst_PartsbookFrame : public QObject, BookFrame
{
    Q_OBJECT

private slots:
    void init() { comeUp(); }
    void cleanup() { goAway(); }

    void isTheMainWindowOfTheHost();
    void runsNoCommand();
    void setsTheCursor_data();
    void setsTheCursor();
    void eachNumberHasItsTextOrControl();

    void showsTheParts();
    void badLinesAreReported();
    void aFileThatCannotBeRead();
    void anotherBookWhileACellIsEdited();

    void toolBarHasACheckButtonForTheMessages();
    void toolBarButtonsAreTheMenusCommands();
    void statusTellsOfChanges();
    void statusGoesAway();
};

// ----------------------------------------------------------------------------------------------------- the main window

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

// ------------------------------------------------------------------------------------------------------------ the book

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

// ---------------------------------------------------------------------------------------------------------------- bars

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

XE_TEST(tst_PartsbookFrame)
#include "tst_partsbookframe.moc"
