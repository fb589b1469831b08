// A status bar: the texts of its panes, its blanks, and where they are.

#include "bars/statusbarstage.h"
#include "leavenothing.h"
#include "testclass.h"

#include <QPushButton>

class tst_StatusBar : public QObject, private StatusBarStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { makeBar(); }
    void cleanup()
    {
        endBar();
        QCOMPARE(LeaveNothing::leftovers(), QString());
    }

    void classes();
    void isMadeByItsStyle();
    void parentByItsWrapper();
    void stubs();

    void firstTextMakesAPane();
    void nextTextReplacesIt();
    void oddIndices_data();
    void oddIndices();
    void oddTexts();
    void textOfANullPane();
    void textOfAHostsPane();
    void panesStandInTheOrderOfTheirIndices();
    void replacedPaneKeepsItsPlace();
    void panesStandBehindAHostsWidget();
    void growthEndsAtTheParentsWidth();

    void infoMakesAPane();
    void infoTakesAPaneOutOfTheMap();
    void textBesideABlank();
    void oneBlankAnIndex();
    void oddWidths_data();
    void oddWidths();

    void lookups();
    void itemRectangles();
    void barWidth_data();
    void barWidth();
    void geometry();
};

// ----------------------------------------------------------------------------------------------------------- the bar

void tst_StatusBar::classes()
{
    const std::unique_ptr<CObject_X> made(RUNTIME_CLASS_X(CStatusBar_X)->CreateObject());
    QVERIFY(made->IsKindOf(RUNTIME_CLASS_X(CControlBar_X)));
    QStatusBar widget;
    QVERIFY(CWnd_X::FromHandle(&widget)->IsKindOf("CStatusBar_X"));
    QLabel other;
    QCOMPARE(CStatusBar_X().SubclassWindow(&other), 0);
}

void tst_StatusBar::isMadeByItsStyle()
{
    QCOMPARE(m_bar->GetStyle(), DWORD(0x50008200));
    const auto* const widget = m_bar->Imp<QStatusBar>();
    QCOMPARE(widget->parentWidget(), m_parent.get());
    QCOMPARE(widget->isSizeGripEnabled(), false);
    m_parent->show();
    QVERIFY(widget->isVisible());
    CStatusBar_X hidden;
    QCOMPARE(hidden.Create(m_parent.get(), WS_CHILD), 1);
    QVERIFY(!hidden.GetSafeHwnd()->isVisible());
    QCOMPARE(hidden.GetStyle(), WS_CHILD);
}

void tst_StatusBar::parentByItsWrapper()
{
    CWnd_X frame;
    frame.Create(0, static_cast<QWidget*>(nullptr));
    CStatusBar_X bar;
    QCOMPARE(bar.Create(&frame), 1);
    QCOMPARE(bar.GetSafeHwnd()->parentWidget(), frame.GetSafeHwnd());
}

void tst_StatusBar::stubs()
{
    const UINT ids[] = {1, 2};
    QCOMPARE(m_bar->SetIndicators(ids, 2), 1);
    m_bar->SetPaneStyle(0, SBPS_STRETCH);
    QCOMPARE(panesText(*m_bar), QString());
    QCOMPARE(CStatusBar_X().SetIndicators(nullptr, 0), 1);
}

// ------------------------------------------------------------------------------------------------------ texts of panes

void tst_StatusBar::firstTextMakesAPane()
{
    QCOMPARE(m_bar->SetPaneText(0, L"就绪", TRUE), 1);
    QCOMPARE(panesText(*m_bar), QStringLiteral("0 '就绪'"));
    QLabel sample(QStringLiteral("就绪"));
    QCOMPARE(widthOf(*m_bar, 0), sample.sizeHint().width());
    QVERIFY(m_bar->m_mapPanes[0]->parentWidget() == m_bar->GetSafeHwnd());
    QCOMPARE(m_bar->GetSafeHwnd()->width(), widthOf(*m_bar, 0) + 7);
}

void tst_StatusBar::nextTextReplacesIt()
{
    m_bar->SetPaneText(0, L"Ready");
    const int width = widthOf(*m_bar, 0);
    const QPointer<QWidget> first = m_bar->m_mapPanes[0];
    QCOMPARE(m_bar->SetPaneText(0, L"a text that is much longer than the first"), 1);
    QVERIFY(m_bar->m_mapPanes[0] != first);
    QCOMPARE(widthOf(*m_bar, 0), width + 1);
    m_bar->SetPaneText(0, L"");
    QCOMPARE(widthOf(*m_bar, 0), width + 2);
    QCOMPARE(m_bar->m_mapPanes[0]->minimumWidth(), width + 2);
    QCOMPARE(m_bar->m_mapPanes[0]->maximumWidth(), width + 2);
    QCOMPARE(onScreen(), QString::number(width + 2));
    QVERIFY(!first);
    QCOMPARE(m_bar->GetSafeHwnd()->findChildren<QLabel*>().size(), 1);
}

void tst_StatusBar::oddIndices_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("panes");
    QTest::newRow("negative") << -1 << 0 << "";
    QTest::newRow("lowest") << INT_MIN << 0 << "";
    QTest::newRow("far from the others") << 1000000 << 1 << "1000000 'x'";
    QTest::newRow("highest") << INT_MAX << 1 << "2147483647 'x'";
}

void tst_StatusBar::oddIndices()
{
    QFETCH(int, index);
    QTEST(m_bar->SetPaneText(index, L"x"), "result");
    QTEST(panesText(*m_bar), "panes");
    m_bar->SetPaneText(index, L"x");
    QTEST(panesText(*m_bar), "panes");
}

void tst_StatusBar::oddTexts()
{
    QCOMPARE(m_bar->SetPaneText(0, nullptr), 1);
    QCOMPARE(panesText(*m_bar), QStringLiteral("0 ''"));
    QCOMPARE(m_bar->SetPaneText(0, L"a & b", FALSE), 1);
    QCOMPARE(m_bar->SetPaneText(1, CString_X(L"one\ntwo")), 1);
    QCOMPARE(panesText(*m_bar), QStringLiteral("0 'a & b', 1 'one\ntwo'"));
}

void tst_StatusBar::textOfANullPane()
{
    m_bar->m_mapPanes[3] = nullptr;
    QCOMPARE(m_bar->SetPaneText(3, L"x"), 1);
    m_bar->SetPaneInfo(3, 0, SBPS_NORMAL, 50);
    QCOMPARE(panesText(*m_bar), QStringLiteral("3 none"));
    QCOMPARE(m_bar->GetSafeHwnd()->findChildren<QLabel*>().size(), 0);
    m_bar->SetPaneText(4, L"y");
    QCOMPARE(m_bar->GetListQWidgets(), QList<QWidget*>{m_bar->m_mapPanes[4]});
}

void tst_StatusBar::textOfAHostsPane()
{
    const QPointer<QPushButton> button = new QPushButton(QStringLiteral("host's"));
    button->setFixedWidth(70);
    m_bar->Imp<QStatusBar>()->addWidget(button);
    m_bar->m_mapPanes[0] = button;
    QCOMPARE(m_bar->SetPaneText(0, L"text"), 1);
    QCOMPARE(panesText(*m_bar), QStringLiteral("0 'text'"));
    QCOMPARE(onScreen(), QStringLiteral("text 71"));
    QVERIFY(!button);
}

void tst_StatusBar::panesStandInTheOrderOfTheirIndices()
{
    for (const int index : {5, 2, 9, 0, 7}) {
        m_bar->SetPaneText(index, QString::number(index).toStdWString().c_str());
        m_bar->SetPaneInfo(index + 100, 0, SBPS_NORMAL, 10);
    }
    const QString shown = onScreen();
    QString order;
    for (const QString& word : shown.split(QLatin1Char('|')))
        order += word.section(QLatin1Char(' '), 0, 0) + QLatin1Char(' ');
    QCOMPARE(order, QStringLiteral("0 2 5 7 9 10 10 10 10 10 "));
}

void tst_StatusBar::replacedPaneKeepsItsPlace()
{
    for (const int index : {10, 20, 30})
        m_bar->SetPaneInfo(index, 0, SBPS_NORMAL, index);
    m_bar->SetPaneText(20, L"b");
    QCOMPARE(onScreen(), QStringLiteral("10|b 21|30"));
    m_bar->SetPaneText(30, L"c");
    m_bar->SetPaneText(10, L"a");
    QCOMPARE(onScreen(), QStringLiteral("a 11|b 21|c 31"));
}

void tst_StatusBar::panesStandBehindAHostsWidget()
{
    auto* const host = new QLabel(QStringLiteral("host"));
    host->setFixedWidth(40);
    m_bar->Imp<QStatusBar>()->addWidget(host);
    m_bar->SetPaneInfo(0, 0, SBPS_NORMAL, 50);
    m_bar->SetPaneInfo(1, 0, SBPS_NORMAL, 60);
    QCOMPARE(onScreen(), QStringLiteral("host 40|50|60"));
}

void tst_StatusBar::growthEndsAtTheParentsWidth()
{
    m_parent->resize(200, 100);
    m_bar->SetPaneInfo(0, 0, SBPS_NORMAL, 90);
    m_bar->SetPaneInfo(1, 0, SBPS_NORMAL, 80);
    for (int i = 0; i < 40; ++i)
        m_bar->SetPaneText(0, L"text");
    QCOMPARE(widthOf(*m_bar, 0), 106); // 106 + 7 + 80 + 7 is the parent's width
    m_bar->SetPaneText(1, L"text");
    QCOMPARE(widthOf(*m_bar, 1), 80);
    m_bar->SetPaneInfo(1, 0, SBPS_NORMAL, 0);
    m_bar->SetPaneText(0, L"text");
    QCOMPARE(widthOf(*m_bar, 0), 107);
}

// ------------------------------------------------------------------------------------------------------- blank panes

void tst_StatusBar::infoMakesAPane()
{
    m_bar->SetPaneInfo(2, 77, SBPS_POPOUT, 55);
    QCOMPARE(panesText(*m_bar), QStringLiteral("2 ''"));
    QCOMPARE(widthOf(*m_bar, 2), 55);
    QCOMPARE(m_bar->GetSafeHwnd()->width(), 62);
    m_bar->SetPaneText(2, L"x");
    QCOMPARE(widthOf(*m_bar, 2), 56);
    QCOMPARE(onScreen(), QStringLiteral("x 56"));
}

void tst_StatusBar::infoTakesAPaneOutOfTheMap()
{
    for (const int index : {0, 1, 2})
        m_bar->SetPaneText(index, L"x");
    const int barWidth = m_bar->GetSafeHwnd()->width();
    m_bar->SetPaneInfo(1, 0, SBPS_NORMAL, 33);
    QCOMPARE(panesText(*m_bar), QStringLiteral("0 'x', 2 'x'"));
    QCOMPARE(m_bar->GetSafeHwnd()->width(), barWidth);
    const QString x = QStringLiteral("x %1").arg(widthOf(*m_bar, 0));
    QCOMPARE(onScreen(), x + QStringLiteral("|33|") + x);
}

void tst_StatusBar::textBesideABlank()
{
    for (const int index : {0, 1, 2})
        m_bar->SetPaneInfo(index, 0, SBPS_NORMAL, 10 + index);
    m_bar->SetPaneInfo(0, 0, SBPS_NORMAL, 30);
    m_bar->SetPaneText(1, L"b"); // keeps its place behind the blank
    QCOMPARE(onScreen(), QStringLiteral("30|b 12|12"));
    m_bar->SetPaneText(0, L"a");
    QCOMPARE(panesText(*m_bar), QStringLiteral("0 'a', 1 'b', 2 ''"));
    QCOMPARE(onScreen(), QStringLiteral("a %1|30|b 12|12").arg(widthOf(*m_bar, 0)));
}

void tst_StatusBar::oneBlankAnIndex()
{
    m_bar->SetPaneText(1, L"behind");
    const QString behind = QStringLiteral("|behind %1").arg(widthOf(*m_bar, 1));
    for (int i = 0; i < 5; ++i) {
        m_bar->SetPaneInfo(0, 0, SBPS_NORMAL, 20); // a pane, in place of the blank
        QCOMPARE(onScreen(), QStringLiteral("20") + behind);
        QCOMPARE(panesText(*m_bar), QStringLiteral("0 '', 1 'behind'"));
        m_bar->SetPaneInfo(0, 0, SBPS_NORMAL, 30); // a blank
        QCOMPARE(onScreen(), QStringLiteral("30") + behind);
        QCOMPARE(panesText(*m_bar), QStringLiteral("1 'behind'"));
    }
    m_bar->SetPaneText(0, L"");
    m_bar->SetPaneInfo(0, 0, SBPS_NORMAL, 40);
    QCOMPARE(onScreen(), QStringLiteral("40") + behind);
}

void tst_StatusBar::oddWidths_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("expected");
    QTest::newRow("negative") << -20 << 0;
    QTest::newRow("none") << 0 << 0;
}

void tst_StatusBar::oddWidths()
{
    QFETCH(int, width);
    for (int i = 0; i < 2; ++i)
        m_bar->SetPaneInfo(0, 0, SBPS_NORMAL, width);
    m_bar->SetPaneInfo(0, 0, SBPS_NORMAL, width);
    QTEST(widthOf(*m_bar, 0), "expected");
    m_bar->SetPaneInfo(-1, 0, SBPS_NORMAL, width);
    QCOMPARE(panesText(*m_bar), QStringLiteral("0 ''"));
}

// ----------------------------------------------------------------------------------------------------------- look-up

void tst_StatusBar::lookups()
{
    m_bar->SetPaneText(4, L"four");
    m_bar->SetPaneText(1, L"one");
    QWidget* const one = m_bar->m_mapPanes[1];
    QWidget* const four = m_bar->m_mapPanes[4];
    QCOMPARE(m_bar->CommandToIndex(one), 1);
    QCOMPARE(m_bar->CommandToIndex(four), 4);
    QCOMPARE(m_bar->CommandToIndex(m_parent.get()), -1);
    QCOMPARE(m_bar->CommandToIndex(nullptr), -1);
    QCOMPARE(m_bar->GetItemID(4), reinterpret_cast<UINT_PTR>(four));
    for (const int index : {-1, 0, 2, 5})
        QCOMPARE(m_bar->GetItemID(index), UINT_PTR(0));
    QCOMPARE(m_bar->GetListQWidgets(), (QList<QWidget*>{one, four}));
    m_bar->m_mapPanes[0] = nullptr;
    QCOMPARE(m_bar->CommandToIndex(nullptr), -1);
    QCOMPARE(m_bar->GetListQWidgets(), (QList<QWidget*>{one, four}));
    m_bar->m_mapPanes.erase(0);
}

void tst_StatusBar::itemRectangles()
{
    m_bar->SetPaneInfo(0, 0, SBPS_NORMAL, 25);
    m_bar->SetPaneInfo(1, 0, SBPS_NORMAL, 45);
    onScreen();
    CRect rect(7, 8, 9, 10);
    m_bar->GetItemRect(1, &rect);
    QCOMPARE(rect == CRect(0, 0, 44, m_bar->m_mapPanes[1]->height() - 1), TRUE);
    m_bar->m_mapPanes[3] = nullptr;
    for (const int index : {-1, 2, 3}) {
        rect = CRect(7, 8, 9, 10);
        m_bar->GetItemRect(index, &rect);
        QCOMPARE(rect == CRect(7, 8, 9, 10), TRUE);
    }
    m_bar->GetItemRect(0, nullptr);
    m_bar->m_mapPanes.erase(3);
}

void tst_StatusBar::barWidth_data()
{
    QTest::addColumn<QVector<int>>("panes");
    QTest::addColumn<int>("width"); // of a bar that was 300 wide
    QTest::newRow("no panes") << QVector<int>{} << 300;
    QTest::newRow("one empty pane") << QVector<int>{0} << 300; // 7, which is below 8
    QTest::newRow("one pixel") << QVector<int>{1} << 8;
    QTest::newRow("two empty panes") << QVector<int>{0, 0} << 14;
    QTest::newRow("three panes") << QVector<int>{40, 50, 60} << 171;
}

void tst_StatusBar::barWidth()
{
    QFETCH(QVector<int>, panes);
    for (int i = 0; i < panes.size(); ++i)
        m_bar->SetPaneInfo(i, 0, SBPS_NORMAL, panes[i]);
    m_bar->setGeometry({20, 30, 300, 40});
    m_bar->UpdateStatusBarWidth(12345);
    const QRect place = m_bar->GetSafeHwnd()->geometry();
    QCOMPARE(place.topLeft(), QPoint(20, 30));
    QCOMPARE(place.height(), 40);
    QTEST(place.width(), "width");
}

void tst_StatusBar::geometry()
{
    m_bar->setGeometry({3, 4, 50, 25});
    QCOMPARE(m_bar->GetSafeHwnd()->geometry(), QRect(3, 4, 50, 25));
}

XE_TEST(tst_StatusBar)
#include "tst_statusbar.moc"
