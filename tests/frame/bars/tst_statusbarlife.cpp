// A status bar: who goes when.

#include "bars/statusbarstage.h"
#include "leavenothing.h"
#include "testclass.h"

class tst_StatusBarLife : public QObject, private StatusBarStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { makeBar(); }
    void cleanup()
    {
        endBar();
        QCOMPARE(LeaveNothing::leftovers(), QString());
    }

    void paneDeletedByTheHost();
    void blankDeletedByTheHost();
    void destroyedAndMadeAgain();
    void paneReplacedFromItsOwnEvent();
    void wrapperGoesFirst();
    void temporaryWrapperForgetsThePanes();
    void handlerDeletesTheBar();
    void withoutWidget();
};

void tst_StatusBarLife::paneDeletedByTheHost()
{
    for (const int index : {0, 1, 2})
        m_bar->SetPaneText(index, L"x");
    delete m_bar->m_mapPanes[1];
    QCOMPARE(panesText(*m_bar), QStringLiteral("0 'x', 2 'x'"));
    m_bar->UpdateStatusBarWidth(0);
    QCOMPARE(m_bar->SetPaneText(1, L"again"), 1);
    QCOMPARE(panesText(*m_bar), QStringLiteral("0 'x', 1 'again', 2 'x'"));
}

void tst_StatusBarLife::blankDeletedByTheHost()
{
    m_bar->SetPaneText(0, L"x");
    m_bar->SetPaneInfo(0, 0, SBPS_NORMAL, 20);
    deleteLaterObjects();
    delete m_bar->GetSafeHwnd()->findChild<QLabel*>();
    m_bar->SetPaneText(1, L"b");
    m_bar->SetPaneText(0, L"a");
    m_bar->SetPaneInfo(0, 0, SBPS_NORMAL, 20);
    QCOMPARE(panesText(*m_bar), QStringLiteral("1 'b'"));
}

void tst_StatusBarLife::destroyedAndMadeAgain()
{
    for (int i = 0; i < 3; ++i) {
        m_bar->SetPaneText(0, L"x");
        m_bar->SetPaneText(1, L"y");
        m_bar->SetPaneInfo(0, 0, SBPS_NORMAL, 20);
        m_bar->DestroyWindow();
        QCOMPARE(panesText(*m_bar), QString());
        if (i % 2)
            deleteLaterObjects();
        QCOMPARE(m_bar->Create(m_parent.get()), 1);
    }
    deleteLaterObjects();
    QCOMPARE(m_bar->SetPaneText(1, L"y"), 1);
    QCOMPARE(panesText(*m_bar), QStringLiteral("1 'y'"));
    QCOMPARE(m_bar->GetSafeHwnd()->findChildren<QLabel*>().size(), 1);
    m_parent.reset(); // takes the bar along
    QCOMPARE(panesText(*m_bar), QString());
    QCOMPARE(m_bar->SetPaneText(1, L"y"), 0);
}

class ReplacingOnPress : public QObject
{
public:
    explicit ReplacingOnPress(CStatusBar_X& bar) : m_bar(bar) {}

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::MouseButtonPress)
            m_bar.SetPaneText(0, L"pressed");
        return false;
    }

private:
    CStatusBar_X& m_bar;
};

void tst_StatusBarLife::paneReplacedFromItsOwnEvent()
{
    m_bar->SetPaneText(0, L"press");
    show();
    ReplacingOnPress filter(*m_bar);
    m_bar->m_mapPanes[0]->installEventFilter(&filter);
    QTest::mouseClick(m_bar->m_mapPanes[0], Qt::LeftButton);
    QCOMPARE(panesText(*m_bar), QStringLiteral("0 'pressed'"));
}

void tst_StatusBarLife::wrapperGoesFirst()
{
    m_bar->SetPaneText(0, L"x");
    const QPointer<QWidget> pane = m_bar->m_mapPanes[0];
    m_bar.reset();
    QVERIFY(pane);
    deleteLaterObjects();
    QVERIFY(!pane);
}

void tst_StatusBarLife::temporaryWrapperForgetsThePanes()
{
    QStatusBar widget(m_parent.get());
    auto* const bar = static_cast<CStatusBar_X*>(CWnd_X::FromHandle(&widget));
    bar->SetPaneText(0, L"stays");
    const QPointer<QWidget> pane = bar->m_mapPanes[0];
    ClearTempObjectPool();
    QVERIFY(pane && pane->parentWidget() == &widget);
    delete pane;
}

void tst_StatusBarLife::handlerDeletesTheBar()
{
    class GoneWhenResized : public CStatusBar_X
    {
    public:
        int PreTranslateMessage(tagMSG* message) override
        {
            const bool goes = message->message == WM_SIZE && armed;
            if (goes)
                delete this;
            return goes;
        }
        bool armed = false;
    };
    m_parent->show();
    const QPointer<GoneWhenResized> bar(new GoneWhenResized);
    bar->Create(m_parent.get());
    bar->armed = true;
    QCOMPARE(bar->SetPaneText(0, L"x"), 1); // which sets the bar's width
    QVERIFY(!bar);
}

void tst_StatusBarLife::withoutWidget()
{
    CStatusBar_X bar;
    QCOMPARE(bar.SetPaneText(0, L"x"), 0);
    bar.SetPaneInfo(0, 0, SBPS_NORMAL, 10);
    QCOMPARE(bar.m_mapPanes.empty(), true);
    QCOMPARE(bar.CommandToIndex(m_parent.get()), -1);
    QCOMPARE(bar.GetItemID(0), UINT_PTR(0));
    CRect rect(1, 2, 3, 4);
    bar.GetItemRect(0, &rect);
    QCOMPARE(rect == CRect(1, 2, 3, 4), TRUE);
    QCOMPARE(bar.GetListQWidgets(), {});
    bar.setGeometry({1, 2, 3, 4});
    bar.UpdateStatusBarWidth(0);
    QCOMPARE(bar.GetSafeHwnd(), nullptr);
}

XE_TEST(tst_StatusBarLife)
#include "tst_statusbarlife.moc"
