// The hits of the search: a list with pictures below the question, from which a part is selected.

#include "leavenothing.h"
#include "mainframe.h"
#include "partsview.h"
#include "resource.h"
#include "testclass.h"

#include <QAction>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>
#include <QTemporaryDir>
#include <xeresource.h>

namespace {

const QByteArray book = "number,name,kind,supplier,source,stock,minimum,price,in use,remark\n"
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
    void theListFollowsTheBook();
    void aHitOfAnotherKindBringsAllBack();
    void whatIsBroughtBackIsSeen();

private:
    QWidget* window() const { return m_frame->GetSafeHwnd(); }
    PartsView parts() const { return PartsView(*window()); }
    QTableWidget* hits() const { return window()->findChild<QTableWidget*>("IDC_FIND_HITS"); }
    void find(const QString& text) const;
    QString hitsText() const;
    void clickHit(int row) const;

    QTemporaryDir m_folder;
    QScopedPointer<CMainFrame> m_frame;
};

void tst_PartsbookFind::init()
{
    QFile file(m_folder.filePath("parts.csv"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(book);
    file.close();
    m_frame.reset(new CMainFrame);
    QCOMPARE(m_frame->Create(nullptr), 1);
    m_frame->ShowWindow(SW_SHOW);
    QVERIFY(m_frame->OpenBook(file.fileName()));
    window()->findChild<QAction*>(ToStringId(ID_EDIT_FIND))->trigger();
    QVERIFY(!hits()->isVisible());
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

// The numbers of the hits, the selected one with a star.
QString tst_PartsbookFind::hitsText() const
{
    QStringList texts;
    for (int row = 0; row < hits()->rowCount(); ++row)
        texts += (hits()->item(row, 0)->isSelected() ? "*" : "") + hits()->item(row, 0)->text();
    return texts.join(", ");
}

void tst_PartsbookFind::clickHit(int row) const
{
    QTest::mouseClick(hits()->viewport(), Qt::LeftButton, {}, hits()->visualItemRect(hits()->item(row, 1)).center());
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
    QTEST(hitsText(), "hits");
    QTEST(window()->findChild<QLabel*>("IDC_FIND_RESULT")->text(), "result");
    QCOMPARE(hits()->isVisible(), hits()->rowCount() > 0);
}

void tst_PartsbookFind::hasThePictureOfTheKind()
{
    find("e");
    const auto picture = [this](int row) { return hits()->item(row, 0)->icon().pixmap(96).toImage(); };
    QVERIFY(!picture(0).isNull());
    QCOMPARE(picture(2), picture(0));
    QVERIFY(picture(1) != picture(0));
    QCOMPARE(hits()->columnCount(), 5);
    QCOMPARE(hits()->item(1, 3)->text(), QString("瓦轴"));
    QCOMPARE(hits()->item(1, 4)->text(), QString("steel"));
}

void tst_PartsbookFind::theNextOneIsSelected()
{
    find("fa");
    QCOMPARE(hitsText(), QString("FA-1, *FA-3"));
    window()->findChild<QAction*>(ToStringId(ID_EDIT_REPEAT))->trigger();
    QCOMPARE(hitsText(), QString("*FA-1, FA-3"));
    QCOMPARE(parts().currentRow(), 0);
}

void tst_PartsbookFind::aClickSelectsThePart()
{
    find("e");
    clickHit(3);
    QCOMPARE(hitsText(), QString("FA-1, BE-2, FA-3, *EL-4"));
    QCOMPARE(parts().currentRow(), 3);
    clickHit(0);
    QCOMPARE(parts().currentRow(), 0);
}

void tst_PartsbookFind::keysSelectTheParts()
{
    find("e");
    clickHit(0);
    QTest::keyClick(hits(), Qt::Key_Down);
    QCOMPARE(parts().currentRow(), 1);
    QTest::keyClick(hits(), Qt::Key_End);
    QTest::keyClick(hits(), Qt::Key_Down, Qt::ControlModifier);
    QTest::keyClick(hits(), Qt::Key_Escape);
    QVERIFY(!window()->findChild<QDockWidget*>()->isVisible());
}

void tst_PartsbookFind::theListFollowsTheBook()
{
    find("fa");
    m_frame->SendMessage(WM_SELECT_ROW, 0);
    window()->findChild<QAction*>(ToStringId(ID_PART_IN_USE))->trigger();
    QCOMPARE(hits()->rowCount(), 2);
    QFile file(m_folder.filePath("other.csv"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("FA-9,Washer,Fastener,,bought,1,1,1.00,yes,\n");
    file.close();
    QVERIFY(m_frame->OpenBook(file.fileName()));
    QCOMPARE(hitsText(), QString("FA-9"));
}

void tst_PartsbookFind::aHitOfAnotherKindBringsAllBack()
{
    auto* const tree = window()->findChild<QTreeWidget*>("IDC_TREE");
    tree->setCurrentItem(tree->findItems("Bearing", Qt::MatchExactly | Qt::MatchRecursive).constFirst());
    QVERIFY(parts().isRowHidden(0));
    find("e");
    clickHit(0);
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
