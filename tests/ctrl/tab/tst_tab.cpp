#include "leavenothing.h"
#include "testclass.h"

#include <xetabctrl.h>

#include <QSignalSpy>
#include <QTabBar>

class tst_Tab : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void classOfTheWidget();
    void insertedTabsHavePages();
    void pagesGoWithTheirTabs();
    void pagesOfTheHostStay();
    void aTabMayRemoveItself();
    void texts();
    void textsBeyondAscii();
    void selection();
    void aClickSelects();
    void placeOfThePage();
    void withoutAWidget();

private:
    QString text() const;
    QTabWidget* imp() const { return m_tabs->Imp<QTabWidget>(); }

    std::unique_ptr<QWidget> m_parent;
    std::unique_ptr<CTabCtrl_X> m_tabs;
};

void tst_Tab::init()
{
    m_parent = std::make_unique<QWidget>();
    m_tabs = std::make_unique<CTabCtrl_X>();
    QCOMPARE(m_tabs->Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 200), m_parent.get()), 1);
    m_parent->resize(300, 200);
    m_parent->show();
}

void tst_Tab::cleanup()
{
    m_tabs.reset();
    m_parent.reset();
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

// The tabs, the current one with a star.
QString tst_Tab::text() const
{
    QStringList texts;
    for (int i = 0; i < imp()->count(); ++i)
        texts += (i == imp()->currentIndex() ? "*" : "") + imp()->tabText(i);
    return texts.join('|');
}

void tst_Tab::classOfTheWidget()
{
    QTabWidget widget;
    QCOMPARE(CWnd_X::FromHandle(&widget)->GetRuntimeClass(), RUNTIME_CLASS_X(CTabCtrl_X));
}

void tst_Tab::insertedTabsHavePages()
{
    QCOMPARE(m_tabs->InsertItem(0, L"Part 零件"), 1);
    QCOMPARE(m_tabs->InsertItem(0, L"Supply"), 1);
    QCOMPARE(m_tabs->InsertItem(99, L"History"), 1);
    QCOMPARE(m_tabs->InsertItem(-1, nullptr), 1);
    QCOMPARE(text(), QString("Supply|*Part 零件|History|"));
    QCOMPARE(m_tabs->GetItemCount(), 4);
    for (int i = 0; i < 4; ++i)
        QVERIFY(imp()->widget(i)->children().isEmpty());
}

void tst_Tab::pagesGoWithTheirTabs()
{
    QVector<QPointer<QWidget>> pages;
    for (int i = 0; i < 4; ++i) {
        m_tabs->InsertItem(i, L"tab");
        pages += imp()->widget(i);
    }
    QCOMPARE(m_tabs->DeleteItem(1), 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(pages[0] && !pages[1] && pages[2]);
    QCOMPARE(m_tabs->DeleteItem(3), 1); // none
    QCOMPARE(m_tabs->DeleteItem(-1), 1);
    QCOMPARE(m_tabs->GetItemCount(), 3);
    QCOMPARE(m_tabs->DeleteAllItems(), 1);
    QCOMPARE(m_tabs->GetItemCount(), 0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!pages[0] && !pages[2] && !pages[3]);
}

void tst_Tab::pagesOfTheHostStay()
{
    const QPointer<QWidget> first(new QWidget);
    const QPointer<QWidget> second(new QWidget);
    imp()->addTab(first, "first");
    imp()->addTab(second, "second");
    m_tabs->DeleteItem(0);
    m_tabs->DeleteAllItems();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(first && second);
    delete first;
    delete second;
}

void tst_Tab::aTabMayRemoveItself()
{
    m_tabs->InsertItem(0, L"first");
    m_tabs->InsertItem(1, L"second");
    connect(imp(), &QTabWidget::currentChanged, this, [this] { m_tabs->DeleteAllItems(); });
    QTest::mouseClick(imp()->tabBar(), Qt::LeftButton, {}, imp()->tabBar()->tabRect(1).center());
    QCOMPARE(m_tabs->GetItemCount(), 0);
}

void tst_Tab::texts()
{
    m_tabs->InsertItem(0, L"Part 零件");
    tagQTCITEM item{0, L"before", 5, 6};
    QCOMPARE(m_tabs->GetItem(0, &item), 1);
    QVERIFY(item.pszText == L"Part 零件");
    QCOMPARE(item.iImage, 5);
    QCOMPARE(m_tabs->GetItem(1, &item), 1);
    QVERIFY(item.pszText.IsEmpty());
    QCOMPARE(m_tabs->GetItem(0, nullptr), 0);
    QCOMPARE(m_tabs->SetItem(0, nullptr), 0);
    item.pszText = L"Supply";
    QCOMPARE(m_tabs->SetItem(0, &item), 1);
    QCOMPARE(text(), QString("*Supply"));
    QCOMPARE(m_tabs->SetItem(7, &item), 1);
}

void tst_Tab::textsBeyondAscii()
{
    m_tabs->InsertItem(0, L"");
    const tagQTCITEM item{TCIF_TEXT, L"a\u00e9零", 0, 0};
    m_tabs->SetItem(0, &item);
    QCOMPARE(imp()->tabText(0), QString("a\u00c3\u00a9\u00e9\u009b\u00b6"));
}

void tst_Tab::selection()
{
    QCOMPARE(m_tabs->GetCurSel(), -1);
    for (int i = 0; i < 3; ++i)
        m_tabs->InsertItem(i, L"tab");
    const QSignalSpy changes(imp(), &QTabWidget::currentChanged);
    QCOMPARE(m_tabs->GetCurSel(), 0);
    QCOMPARE(m_tabs->SetCurSel(2), 2);
    QCOMPARE(m_tabs->SetCurSel(3), -1);
    QCOMPARE(m_tabs->SetCurSel(-1), -1);
    QCOMPARE(m_tabs->GetCurSel(), 2);
    m_tabs->SetCurFocus(1);
    QCOMPARE(m_tabs->GetCurSel(), 1);
    m_tabs->SetCurFocus(17);
    QCOMPARE(m_tabs->GetCurSel(), 1);
    QCOMPARE(changes.size(), 2);
}

void tst_Tab::aClickSelects()
{
    for (const wchar_t* name : {L"Part", L"Supply", L"History"})
        m_tabs->InsertItem(99, name);
    QTest::mouseClick(imp()->tabBar(), Qt::LeftButton, {}, imp()->tabBar()->tabRect(2).center());
    QCOMPARE(m_tabs->GetCurSel(), 2);
    QVERIFY(imp()->widget(2)->isVisible());
}

void tst_Tab::placeOfThePage()
{
    m_tabs->InsertItem(0, L"tab");
    QCoreApplication::sendPostedEvents();
    const QRect page = imp()->widget(0)->geometry();
    CRect rect(1, 2, 3, 4);
    QCOMPARE(m_tabs->GetItemRect(0, &rect), 1);
    QCOMPARE(rect, CRect(page.left(), page.top(), page.right() + 1, page.bottom() + 1));
    rect = CRect(1, 2, 3, 4);
    QCOMPARE(m_tabs->GetItemRect(1, &rect), 0);
    QCOMPARE(rect, CRect(1, 2, 3, 4));
    QCOMPARE(m_tabs->GetItemRect(0, nullptr), 0);
}

void tst_Tab::withoutAWidget()
{
    CTabCtrl_X tabs;
    tagQTCITEM item{0, L"kept", 0, 0};
    CRect rect;
    QCOMPARE(tabs.InsertItem(0, L"tab"), 0);
    QCOMPARE(tabs.DeleteItem(0), 0);
    QCOMPARE(tabs.DeleteAllItems(), 0);
    QCOMPARE(tabs.GetItem(0, &item), 0);
    QCOMPARE(tabs.SetItem(0, &item), 0);
    QVERIFY(item.pszText == L"kept");
    QCOMPARE(tabs.GetCurSel(), -1);
    QCOMPARE(tabs.SetCurSel(0), -1);
    tabs.SetCurFocus(0);
    QCOMPARE(tabs.GetItemCount(), -1);
    QCOMPARE(tabs.GetItemRect(0, &rect), 0);
}

XE_TEST(tst_Tab)
#include "tst_tab.moc"
