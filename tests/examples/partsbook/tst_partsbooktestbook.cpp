// The test book: so many parts that the list shows what it is made of.

#include "leavenothing.h"
#include "mainframe.h"
#include "modaldriver.h"
#include "partsview.h"
#include "resource.h"
#include "testclass.h"
#include "testparts.h"

#include <QAbstractButton>
#include <QAction>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <xeresource.h>

#include <set>

class tst_PartsbookTestBook : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void eachPartIsDifferentAndGood();
    void theSameEachTime();
    void isShownWholeAndSavedUnderAName();
    void asksToSaveTheBookBefore();

private:
    QWidget* window() const { return m_frame->GetSafeHwnd(); }
    PartsView parts() const { return PartsView(*window()); }
    QAction* command(unsigned id) const { return window()->findChild<QAction*>(ToStringId(id)); }
    QString fileName() const { return m_folder.filePath("parts.csv"); }

    QTemporaryDir m_folder;
    QScopedPointer<CMainFrame> m_frame;
};

void tst_PartsbookTestBook::init()
{
    QFile file(fileName());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("FA-1,Screw,Fastener,A,bought,10,5,0.06,yes,\n");
    file.close();
    m_frame.reset(new CMainFrame);
    QCOMPARE(m_frame->Create(nullptr), 1);
    m_frame->ShowWindow(SW_SHOW);
    QVERIFY(m_frame->OpenBook(fileName()));
}

void tst_PartsbookTestBook::cleanup()
{
    m_frame->DestroyWindow();
    m_frame.reset();
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

void tst_PartsbookTestBook::eachPartIsDifferentAndGood()
{
    std::set<CString_X> numbers;
    for (const Part& part : testParts(2000)) {
        Part again;
        QCOMPARE(QString(XeQString(readPart(fieldsOf(part), again))), QString());
        QVERIFY(again == part);
        numbers.insert(part.number);
    }
    QCOMPARE(numbers.size(), std::size_t(2000));
}

void tst_PartsbookTestBook::theSameEachTime() { QVERIFY(testParts(50) == testParts(50)); }

void tst_PartsbookTestBook::isShownWholeAndSavedUnderAName()
{
    command(ID_FILE_NEW_TEST)->trigger();
    QCOMPARE(parts().rowCount(), 100'000);
    QCOMPARE(parts().currentRow(), 0);
    QCOMPARE(parts().text(99'999, 0), QString("T-100000"));
    QTest::keyClick(parts().widget(), Qt::Key_End, Qt::ControlModifier);
    QCOMPARE(parts().currentRow(), 99'999);
    m_frame->OnEnterIdle();
    QCOMPARE(window()->windowTitle(), QString("Parts Book 零件簿 - Untitled 未命名[*]"));
    QVERIFY(!window()->isWindowModified());
    QVERIFY(!command(ID_FILE_SAVE)->isEnabled());
    QVERIFY(!command(ID_FILE_BACK_UP)->isEnabled());

    m_frame->SendMessage(WM_SELECT_ROW, 0);
    command(ID_PART_IN_USE)->trigger();
    const QString name = m_folder.filePath("new.csv");
    const ModalDriver<QFileDialog> dialog([&](QFileDialog* open) {
        open->findChild<QLineEdit*>("fileNameEdit")->setText(name);
        QTest::keyClick(open->findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
    });
    command(ID_FILE_SAVE)->trigger();
    QVERIFY(dialog.hasActed());
    PartsBook saved;
    QVERIFY(saved.load(name));
    QCOMPARE(saved.count(), 100'000);
    QVERIFY(saved.part(0).inUse == Part::OutOfUse);
    QVERIFY(saved.part(1) == testParts(2).back());
    m_frame->OnEnterIdle();
    QVERIFY(command(ID_FILE_BACK_UP)->isEnabled());
}

void tst_PartsbookTestBook::asksToSaveTheBookBefore()
{
    command(ID_PART_IN_USE)->trigger();
    {
        const ModalDriver<QMessageBox> cancel([](QMessageBox* box) { box->reject(); });
        command(ID_FILE_NEW_TEST)->trigger();
        QVERIFY(cancel.hasActed());
        QCOMPARE(parts().rowCount(), 1);
    }
    const ModalDriver<QMessageBox> save([](QMessageBox* box) { QTest::keyClick(box, Qt::Key_Return); });
    command(ID_FILE_NEW_TEST)->trigger();
    QVERIFY(save.hasActed());
    QCOMPARE(parts().rowCount(), 100'000);
    QFile file(fileName());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("FA-1,Screw,Fastener,A,bought,10,5,0.06,no,\n"));
}

XE_TEST(tst_PartsbookTestBook)
#include "tst_partsbooktestbook.moc"
