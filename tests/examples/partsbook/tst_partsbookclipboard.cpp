// The Edit menu and its keys: what is copied, cut and pasted in the list of parts, the list of hits and in text fields.

#include "hitsview.h"
#include "leavenothing.h"
#include "mainframe.h"
#include "modaldriver.h"
#include "partsview.h"
#include "resource.h"
#include "settings.h"
#include "testclass.h"

#include <QAction>
#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QTemporaryDir>
#include <xeresource.h>

namespace {

const QByteArray bookToCopy = "number,name,kind,supplier,source,stock,minimum,price,in use,remark\n"
                              "FA-1,Screw,Fastener,A,bought,10,5,0.06,yes,\n"
                              "BE-2,Bearing,Bearing,B,made,20,6,12.50,yes,steel\n"
                              "EL-4,Motor,Electrical,C,customer,30,0,0.50,yes,\n"
                              "FA-3,Nut,Fastener,A & Co,bought,40,15,7.00,yes,steel\n";

constexpr int nameColumn = 1;
constexpr int stockColumn = 5;

QClipboard& clipboard() { return *QGuiApplication::clipboard(); }

} // namespace

class tst_PartsbookClipboard : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void menuOfTheList();
    void menuOfTheHits();
    void menuOfATextField();
    void menuWithoutAny();

    void copiesTheSelection();
    void copiesAll();
    void copiesHits();
    void pastesStockCounts();
    void pastesInTheOrderOfTheList();
    void pastesByTheMenu();
    void refusesWhatTypingWould();
    void saysOnceWhatItRefuses();
    void cutsWhatMayBeEmpty();
    void theWindowGoesMeanwhile_data();
    void theWindowGoesMeanwhile();
    void keysOfAnOpenEditor();
    void keysOfTheSearchField();

private:
    QWidget* window() const { return m_frame->GetSafeHwnd(); }
    PartsView parts() const { return PartsView(*window()); }
    HitsView hits() const { return HitsView(*window()); }
    QLineEdit* searchField() const { return window()->findChild<QLineEdit*>("IDC_FIND_TEXT"); }
    QAction* command(unsigned id) const { return window()->findChild<QAction*>(ToStringId(id)); }
    void find(const QString& text) const;
    /// What is not grey in the Edit menu when it is opened.
    QString editMenu() const;
    void select(int row, int column, int lastRow, int lastColumn) const;
    void press(char key) const { QTest::keyClick(window()->focusWidget(), key, Qt::ControlModifier); }
    QString column(int column) const;

    QTemporaryDir m_folder;
    QScopedPointer<CMainFrame> m_frame;
};

void tst_PartsbookClipboard::init()
{
    clipboard().clear();
    QFile file(m_folder.filePath("parts.csv"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bookToCopy);
    file.close();
    settings::setHiddenColumns(0);
    m_frame.reset(new CMainFrame);
    QCOMPARE(m_frame->Create(nullptr), 1);
    m_frame->ShowWindow(SW_SHOW);
    QVERIFY(m_frame->OpenBook(file.fileName()));
    QTRY_VERIFY((window()->activateWindow(), window()->isActiveWindow()));
    parts().widget()->setFocus();
}

void tst_PartsbookClipboard::cleanup()
{
    m_frame->DestroyWindow();
    m_frame.reset();
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

void tst_PartsbookClipboard::find(const QString& text) const
{
    command(ID_EDIT_FIND)->trigger();
    QTest::keyClicks(searchField(), text);
    QTest::keyClick(searchField(), Qt::Key_Return);
}

QString tst_PartsbookClipboard::editMenu() const
{
    auto* const menu = window()->findChild<QMenu*>("editMenu");
    menu->popup({0, 0});
    QStringList enabled;
    for (const QAction* item : menu->actions())
        enabled += item->isEnabled() && !item->isSeparator() ? QStringList(item->text().remove('&')) : QStringList();
    menu->hide();
    return enabled.join(", ");
}

// By a drag with the mouse.
void tst_PartsbookClipboard::select(int row, int column, int lastRow, int lastColumn) const
{
    QWidget* const list = parts().widget();
    const QPoint to = parts().center(lastRow, lastColumn);
    QTest::mousePress(list, Qt::LeftButton, {}, parts().center(row, column));
    QMouseEvent move(QEvent::MouseMove, to, list->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(list, &move);
    QTest::mouseRelease(list, Qt::LeftButton, {}, to);
}

QString tst_PartsbookClipboard::column(int column) const
{
    QStringList texts;
    for (int row = 0; row < parts().rowCount(); ++row)
        texts += parts().text(row, column);
    return texts.join(' ');
}

// ------------------------------------------------------------------------------------------------------------ the menu

void tst_PartsbookClipboard::menuOfTheList()
{
    select(0, nameColumn, 1, nameColumn);
    QCOMPARE(editMenu(), QString("Cut 剪切\tCtrl+X, Copy 复制\tCtrl+C, Select all 全选\tCtrl+A"));
    clipboard().setText("7");
    QCOMPARE(editMenu(), QString("Cut 剪切\tCtrl+X, Copy 复制\tCtrl+C, Paste 粘贴\tCtrl+V, Select all 全选\tCtrl+A"));
    clipboard().setImage(QImage(2, 2, QImage::Format_RGB32));
    parts().setCurrentCell(-3, -2);
    m_frame->SendMessage(WM_SELECT_ROW, static_cast<WPARAM>(-1));
    QCOMPARE(editMenu(), QString("Select all 全选\tCtrl+A"));
}

void tst_PartsbookClipboard::menuOfTheHits()
{
    find("fa");
    hits().click(0);
    clipboard().setText("7");
    QCOMPARE(editMenu(), QString("Copy 复制\tCtrl+C, Select all 全选\tCtrl+A"));
}

void tst_PartsbookClipboard::menuOfATextField()
{
    command(ID_EDIT_FIND)->trigger();
    QCOMPARE(editMenu(), QString());
    QTest::keyClicks(searchField(), "abc");
    QCOMPARE(editMenu(), QString("Select all 全选\tCtrl+A"));
    command(ID_EDIT_SELECT_ALL)->trigger();
    QCOMPARE(editMenu(), QString("Cut 剪切\tCtrl+X, Copy 复制\tCtrl+C, Select all 全选\tCtrl+A"));
    command(ID_EDIT_COPY)->trigger();
    QCOMPARE(clipboard().text(), QString("abc"));
    command(ID_EDIT_CUT)->trigger();
    QCOMPARE(searchField()->text(), QString());
    QCOMPARE(editMenu(), QString("Paste 粘贴\tCtrl+V"));
    command(ID_EDIT_PASTE)->trigger();
    QCOMPARE(searchField()->text(), QString("abc"));
}

void tst_PartsbookClipboard::menuWithoutAny()
{
    clipboard().setText("7");
    window()->findChild<QWidget*>("IDC_TREE")->setFocus();
    QCOMPARE(editMenu(), QString());
    command(ID_EDIT_PASTE)->trigger(); // grey: nothing
    QCOMPARE(column(stockColumn), QString("10 20 30 40"));
}

// ------------------------------------------------------------------------------------------------------------- copying

void tst_PartsbookClipboard::copiesTheSelection()
{
    select(0, stockColumn, 2, stockColumn + 1);
    press('C');
    QCOMPARE(clipboard().text(), QString("10\t5\n20\t6\n30\t0"));
}

void tst_PartsbookClipboard::copiesAll()
{
    select(0, 0, 0, 0);
    press('A');
    press('C');
    const QStringList lines = clipboard().text().split('\n');
    QCOMPARE(lines.size(), 4);
    QCOMPARE(lines.at(1), QString("BE-2\tBearing\tBearing\tB\tmade\t20\t6\t12.50\tyes\tsteel\t"));
}

void tst_PartsbookClipboard::copiesHits()
{
    find("fa");
    hits().click(0);
    command(ID_EDIT_COPY)->trigger();
    QCOMPARE(clipboard().text(), QString("FA-1\tScrew\tFastener\tA\t"));
    press('A');
    press('C');
    QCOMPARE(clipboard().text(), QString("FA-1\tScrew\tFastener\tA\t\nFA-3\tNut\tFastener\tA & Co\tsteel"));
}

// ------------------------------------------------------------------------------------------------------------- pasting

void tst_PartsbookClipboard::pastesStockCounts()
{
    select(1, stockColumn, 1, stockColumn);
    clipboard().setText("21\t7\r\n31\t8\r\n");
    press('V');
    QCOMPARE(column(stockColumn), QString("10 21 31 40"));
    QCOMPARE(column(stockColumn + 1), QString("5 7 8 15"));
    QVERIFY(window()->isWindowModified() || (m_frame->OnEnterIdle(), window()->isWindowModified()));
    command(ID_FILE_SAVE)->trigger();
    PartsBook saved;
    QVERIFY(saved.load(m_folder.filePath("parts.csv")));
    QCOMPARE(saved.part(1).stock, 21);
    QCOMPARE(saved.part(2).stock, 31);
    QCOMPARE(saved.part(2).minimum, 8);
    QCOMPARE(saved.part(3).stock, 40);
}

void tst_PartsbookClipboard::pastesInTheOrderOfTheList()
{
    auto* const list = static_cast<CPartsGrid*>(CWnd_X::FromHandlePermanent(parts().widget()));
    list->SortBy(nameColumn + 1, true);
    QCOMPARE(column(0), QString("BE-2 EL-4 FA-3 FA-1"));
    select(2, stockColumn, 2, stockColumn);
    clipboard().setText("41\n11");
    press('V');
    QCOMPARE(column(stockColumn), QString("20 30 41 11"));
    command(ID_FILE_SAVE)->trigger();
    PartsBook saved;
    QVERIFY(saved.load(m_folder.filePath("parts.csv")));
    QCOMPARE(saved.part(0).stock, 11);
    QCOMPARE(saved.part(3).stock, 41);
}

void tst_PartsbookClipboard::pastesByTheMenu()
{
    select(3, stockColumn, 3, stockColumn);
    clipboard().setText("41");
    editMenu();
    command(ID_EDIT_PASTE)->trigger();
    QCOMPARE(column(stockColumn), QString("10 20 30 41"));
}

void tst_PartsbookClipboard::refusesWhatTypingWould()
{
    const ModalDriver<QMessageBox> box([](QMessageBox* open) {
        QCOMPARE(open->text(), QString("stock: no whole number from 0 to 99999"));
        open->accept();
    });
    select(1, stockColumn, 1, stockColumn);
    clipboard().setText("100000");
    press('V');
    QVERIFY(box.hasActed());
    QCOMPARE(column(stockColumn), QString("10 20 30 40"));
    QVERIFY(!window()->isWindowModified());
}

// What is good is taken all the same.
void tst_PartsbookClipboard::saysOnceWhatItRefuses()
{
    int boxes = 0;
    const ModalDriver<QMessageBox> box([&](QMessageBox* open) {
        ++boxes;
        QCOMPARE(open->text(), QString("2 fields are as they were. The first: stock: no whole number from 0 to 99999"));
        open->accept();
    });
    select(0, stockColumn, 0, stockColumn);
    clipboard().setText("11\nmany\n31\n-1");
    press('V');
    QCOMPARE(boxes, 1);
    QCOMPARE(column(stockColumn), QString("11 20 31 40"));
}

void tst_PartsbookClipboard::cutsWhatMayBeEmpty()
{
    select(1, nameColumn, 2, nameColumn);
    press('X');
    QCOMPARE(clipboard().text(), QString("Bearing\nMotor"));
    QCOMPARE(column(nameColumn), QString("Screw   Nut"));
    const ModalDriver<QMessageBox> box([](QMessageBox* open) { open->accept(); });
    select(1, stockColumn, 2, stockColumn);
    press('X');
    QVERIFY(box.hasActed());
    QCOMPARE(clipboard().text(), QString("20\n30"));
    QCOMPARE(column(stockColumn), QString("10 20 30 40"));
}

void tst_PartsbookClipboard::theWindowGoesMeanwhile_data()
{
    QTest::addColumn<char>("key");

    QTest::newRow("cut") << 'x';
    QTest::newRow("paste") << 'v';
}

void tst_PartsbookClipboard::theWindowGoesMeanwhile()
{
    struct Closing : QObject
    {
        explicit Closing(CWnd_X& window) : frame(window) { frame.GetSafeHwnd()->installEventFilter(this); }
        bool eventFilter(QObject*, QEvent* event) override
        {
            const bool isSent = event->type() == XeWinMsgEvent::EventType;
            if (isSent && static_cast<XeWinMsgEvent*>(event)->message == WM_NOTIFY)
                frame.DestroyWindow();
            return false;
        }
        CWnd_X& frame;
    };
    QFETCH(char, key);
    clipboard().setText("7\n8");
    select(1, stockColumn, 2, stockColumn);
    Closing closing(*m_frame);
    press(key);
    QVERIFY(!m_frame->GetSafeHwnd());
}

// --------------------------------------------------------------------------------------------------------- the fields

void tst_PartsbookClipboard::keysOfAnOpenEditor()
{
    select(1, nameColumn, 1, nameColumn);
    QTest::keyClick(parts().widget(), Qt::Key_F2);
    auto* const editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    QVERIFY(editor);
    press('A');
    press('C');
    QCOMPARE(clipboard().text(), QString("Bearing"));
    press('X');
    QCOMPARE(editor->text(), QString());
    press('V');
    press('V');
    QCOMPARE(editor->text(), QString("BearingBearing"));
    QCOMPARE(column(nameColumn), QString("Screw Bearing Motor Nut"));
    QTest::keyClick(editor, Qt::Key_Return);
    QCOMPARE(column(nameColumn), QString("Screw BearingBearing Motor Nut"));
}

void tst_PartsbookClipboard::keysOfTheSearchField()
{
    select(0, stockColumn, 3, stockColumn);
    find("steel");
    press('A');
    press('X');
    QCOMPARE(clipboard().text(), QString("steel"));
    QCOMPARE(searchField()->text(), QString());
    press('V');
    QCOMPARE(searchField()->text(), QString("steel"));
    QCOMPARE(column(stockColumn), QString("10 20 30 40"));
}

XE_TEST(tst_PartsbookClipboard)
#include "tst_partsbookclipboard.moc"
