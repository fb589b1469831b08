// The hits of the search: a list with pictures below the question, which is sorted by its headings, and from which a
// part is selected.

#include "hitsview.h"
#include "leavenothing.h"
#include "mainframe.h"
#include "partsview.h"
#include "resource.h"
#include "testclass.h"

#include <QAction>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <xeresource.h>

namespace {

const QByteArray bookToSearch = "number,name,kind,supplier,source,stock,minimum,price,in use,remark\n"
                                "FA-1,Screw 螺钉,Fastener,华丰,bought,10,5,0.06,yes,\n"
                                "BE-2,Bearing,Bearing,瓦轴,made,3,6,12.50,yes,steel\n"
                                "FA-3,Nut,Fastener,华丰,bought,20,15,0.06,yes,\n"
                                "EL-4,Motor,Electrical,Kessler,customer,2,0,0.00,yes,heavy\n";

} // namespace

class tst_PartsbookFind : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void listsWhatIsFound_data();
    void listsWhatIsFound();
    void hasThePictureOfTheKind();
    void theNextOneIsSelected();
    void aClickSelectsThePart();
    void keysSelectTheParts();
    void escapeClosesTheBar();
    void aDoubleClickGoesToThePart();
    void returnGoesToThePart();
    void aClickOnAHeadingSorts_data();
    void aClickOnAHeadingSorts();
    void sortingSelectsNoOther();
    void theOrderStays();
    void theListFollowsTheBook();
    void aHitOfAnotherKindBringsAllBack();
    void whatIsBroughtBackIsSeen();

private:
    QWidget* window() const { return m_frame->GetSafeHwnd(); }
    PartsView parts() const { return PartsView(*window()); }
    HitsView hits() const { return HitsView(*window()); }
    void find(const QString& text) const;

    QTemporaryDir m_folder;
    QScopedPointer<CMainFrame> m_frame;
};

void tst_PartsbookFind::init()
{
    QFile file(m_folder.filePath("parts.csv"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bookToSearch);
    file.close();
    m_frame.reset(new CMainFrame);
    QCOMPARE(m_frame->Create(nullptr), 1);
    m_frame->ShowWindow(SW_SHOW);
    QVERIFY(m_frame->OpenBook(file.fileName()));
    window()->findChild<QAction*>(ToStringId(ID_EDIT_FIND))->trigger();
    QVERIFY(!hits().widget()->isVisible());
}

void tst_PartsbookFind::cleanup()
{
    m_frame->DestroyWindow();
    m_frame.reset();
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

void tst_PartsbookFind::find(const QString& text) const
{
    auto* const question = window()->findChild<QLineEdit*>("IDC_FIND_TEXT");
    question->selectAll();
    QTest::keyClick(question, Qt::Key_Delete);
    QTest::keyClicks(question, text);
    QTest::keyClick(question, Qt::Key_Return);
}

void tst_PartsbookFind::listsWhatIsFound_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("hits");
    QTest::addColumn<QString>("result");
    QTest::newRow("in numbers") << "fa-"
                                << "FA-1, *FA-3"
                                << "2 found 条结果";
    QTest::newRow("in names and kinds") << "ear"
                                        << "*BE-2"
                                        << "1 found 条结果";
    QTest::newRow("in remarks") << "steel"
                                << "*BE-2"
                                << "1 found 条结果";
    QTest::newRow("everywhere") << "e"
                                << "FA-1, *BE-2, FA-3, EL-4"
                                << "4 found 条结果";
    QTest::newRow("nowhere") << "nothing"
                             << ""
                             << "No match 未找到";
    QTest::newRow("no text") << ""
                             << ""
                             << "";
}

void tst_PartsbookFind::listsWhatIsFound()
{
    QFETCH(const QString, text);
    find(text);
    QTEST(hits().text(), "hits");
    QTEST(window()->findChild<QLabel*>("IDC_FIND_RESULT")->text(), "result");
    QCOMPARE(hits().widget()->isVisible(), hits().rowCount() > 0);
}

void tst_PartsbookFind::hasThePictureOfTheKind()
{
    find("e");
    QVERIFY(!hits().picture(0).isNull());
    QCOMPARE(hits().picture(2), hits().picture(0));
    QVERIFY(hits().picture(1) != hits().picture(0));
    QCOMPARE(hits().rowText(-1), QString("Number 编号, Name 名称, Kind 种类, Supplier 供应商, Remark 备注"));
    QCOMPARE(hits().rowText(1), QString("BE-2, Bearing, Bearing, 瓦轴, steel"));
}

void tst_PartsbookFind::theNextOneIsSelected()
{
    find("fa");
    QCOMPARE(hits().text(), QString("FA-1, *FA-3"));
    window()->findChild<QAction*>(ToStringId(ID_EDIT_REPEAT))->trigger();
    QCOMPARE(hits().text(), QString("*FA-1, FA-3"));
    QCOMPARE(parts().currentRow(), 0);
}

void tst_PartsbookFind::aClickSelectsThePart()
{
    find("e");
    hits().click(3);
    QCOMPARE(hits().text(), QString("FA-1, BE-2, FA-3, *EL-4"));
    QCOMPARE(parts().currentRow(), 3);
    hits().click(0);
    QCOMPARE(parts().currentRow(), 0);
}

void tst_PartsbookFind::keysSelectTheParts()
{
    find("e");
    hits().click(0);
    QTest::keyClick(hits().widget(), Qt::Key_Down);
    QCOMPARE(parts().currentRow(), 1);
    QTest::keyClick(hits().widget(), Qt::Key_End, Qt::ControlModifier);
    QCOMPARE(hits().text(), QString("FA-1, BE-2, FA-3, *EL-4"));
    QCOMPARE(parts().currentRow(), 3);
    QTest::keyClick(hits().widget(), Qt::Key_Down);
    QCOMPARE(parts().currentRow(), 3);
}

void tst_PartsbookFind::escapeClosesTheBar()
{
    find("e");
    hits().click(0);
    QTest::keyClick(hits().widget(), Qt::Key_Escape);
    QVERIFY(!window()->findChild<QDockWidget*>()->isVisible());
}

void tst_PartsbookFind::aDoubleClickGoesToThePart()
{
    find("e");
    hits().click(2);
    QCOMPARE(window()->focusWidget(), hits().widget());
    QTest::mouseDClick(hits().widget(), Qt::LeftButton, {}, hits().center(2, 1));
    QCOMPARE(parts().currentRow(), 2);
    QCOMPARE(window()->focusWidget(), parts().widget());
}

void tst_PartsbookFind::returnGoesToThePart()
{
    find("e");
    hits().click(2);
    QTest::keyClick(hits().widget(), Qt::Key_Down);
    QTest::keyClick(hits().widget(), Qt::Key_Return);
    QCOMPARE(parts().currentRow(), 3);
    QCOMPARE(window()->focusWidget(), parts().widget());
}

void tst_PartsbookFind::aClickOnAHeadingSorts_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("once");
    QTest::addColumn<QString>("twice");
    QTest::newRow("by number") << 0 << "BE-2, EL-4, FA-1, FA-3"
                               << "FA-3, FA-1, EL-4, BE-2";
    QTest::newRow("by name") << 1 << "BE-2, EL-4, FA-3, FA-1"
                             << "FA-1, FA-3, EL-4, BE-2";
}

void tst_PartsbookFind::aClickOnAHeadingSorts()
{
    QFETCH(const int, column);
    find("e");
    hits().clickHeading(column);
    QTEST(hits().numbers(), "once");
    QCOMPARE(hits().sortColumn(), column);
    QCOMPARE(hits().isAscending(), true);
    hits().clickHeading(column);
    QTEST(hits().numbers(), "twice");
    QCOMPARE(hits().isAscending(), false);
}

// The hit that was selected is found in its new place, and the book keeps its order.
void tst_PartsbookFind::sortingSelectsNoOther()
{
    find("e");
    QCOMPARE(hits().text(), QString("FA-1, *BE-2, FA-3, EL-4"));
    hits().clickHeading(1);
    QCOMPARE(hits().text(), QString("*BE-2, EL-4, FA-3, FA-1"));
    hits().clickHeading(1);
    QCOMPARE(hits().text(), QString("FA-1, FA-3, EL-4, *BE-2"));
    QCOMPARE(parts().currentRow(), 1);
    QCOMPARE(parts().text(0, 0), QString("FA-1"));
    hits().click(1);
    QCOMPARE(parts().currentRow(), 2);
    QTest::keyClick(hits().widget(), Qt::Key_Down);
    QCOMPARE(parts().currentRow(), 3);
    QVERIFY(!window()->isWindowModified());
}

void tst_PartsbookFind::theOrderStays()
{
    find("e");
    hits().clickHeading(1);
    hits().clickHeading(1);
    find("fa");
    QCOMPARE(hits().text(), QString("FA-1, *FA-3"));
    find("e");
    QCOMPARE(hits().text(), QString("FA-1, FA-3, *EL-4, BE-2"));
    QCOMPARE(hits().sortColumn(), 1);
}

void tst_PartsbookFind::theListFollowsTheBook()
{
    find("fa");
    m_frame->SendMessage(WM_SELECT_ROW, 0);
    window()->findChild<QAction*>(ToStringId(ID_PART_IN_USE))->trigger();
    QCOMPARE(hits().rowCount(), 2);
    QFile file(m_folder.filePath("other.csv"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("FA-9,Washer,Fastener,,bought,1,1,1.00,yes,\n");
    file.close();
    QVERIFY(m_frame->OpenBook(file.fileName()));
    QCOMPARE(hits().text(), QString("FA-9"));
}

void tst_PartsbookFind::aHitOfAnotherKindBringsAllBack()
{
    auto* const tree = window()->findChild<QTreeWidget*>("IDC_TREE");
    tree->setCurrentItem(tree->findItems("Bearing", Qt::MatchExactly | Qt::MatchRecursive).constFirst());
    QVERIFY(parts().isRowHidden(0));
    find("e");
    hits().click(0);
    QVERIFY(!parts().isRowHidden(0));
    QCOMPARE(parts().currentRow(), 0);
}

void tst_PartsbookFind::whatIsBroughtBackIsSeen()
{
    PartsBook large;
    Part part;
    for (int i = 0; i < 200; ++i) {
        part.number.Format(L"P-%d", i);
        part.kind = i < 3 ? L"Few" : L"Many";
        large.add(part);
    }
    QVERIFY(large.saveAs(m_folder.filePath("large.csv")));
    QVERIFY(m_frame->OpenBook(large.fileName()));
    auto* const tree = window()->findChild<QTreeWidget*>("IDC_TREE");
    tree->setCurrentItem(tree->findItems("Few", Qt::MatchExactly | Qt::MatchRecursive).constFirst());
    QCoreApplication::processEvents();
    find("p-150");
    QCOMPARE(parts().currentRow(), 150);
    QVERIFY(parts().widget()->rect().contains(parts().center(150, 0)));
}

XE_TEST(tst_PartsbookFind)
#include "tst_partsbookfind.moc"
