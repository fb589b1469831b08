// The window object: creation, adoption, destruction, and the ways between handle and wrapper.

#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QPushButton>

namespace {

// Writes down, in one list for all windows, what it is told of its end.
class RecordedWindow : public CWnd_X
{
public:
    explicit RecordedWindow(QString windowName, QStringList& record) : name(std::move(windowName)), m_record(record) {}

    void OnMessageMap() override
    {
        using ThisClass = RecordedWindow;
        CWnd_X::OnMessageMap();
        ON_WM_DESTROY_X()
        ON_WM_NCDESTROY_X()
    }
    void OnDestroy()
    {
        m_record.append(name + QStringLiteral(" WM_DESTROY"));
        CWnd_X::OnDestroy();
    }
    void OnNcDestroy()
    {
        m_record.append(name + QStringLiteral(" WM_NCDESTROY"));
        CWnd_X::OnNcDestroy();
    }
    void PostNcDestroy() override { m_record.append(name + QStringLiteral(" PostNcDestroy")); }

    const QString name;

private:
    QStringList& m_record;
};

class SelfDeletingWindow : public CWnd_X
{
public:
    void PostNcDestroy() override { delete this; }
};

class RefusingWindow : public CWnd_X
{
public:
    int OnCreate(tagCREATESTRUCTW*) override { return m_answer; }
    explicit RefusingWindow(int answer) : m_answer(answer) {}

private:
    int m_answer;
};

// Declares its scroll bars in the two ways that a host may.
class ScrolledWindow : public CWnd_X
{
public:
    void OnMessageMap() override
    {
        using ThisClass = ScrolledWindow;
        CWnd_X::OnMessageMap();
        ON_WM_HSCROLL_X()
        ON_WM_VSCROLL_X()
    }
    LRESULT CALLBACK plainFunction() { return 1; }
    afx_msg void OnHScroll(UINT code, UINT position, QWidget* bar)
    {
        CWnd_X::OnHScroll(code, position, bar);
        horizontal = bar;
    }
    afx_msg void OnVScroll(UINT code, UINT position, QAbstractSlider* bar)
    {
        CWnd_X::OnVScroll(code, position, bar);
        vertical = bar;
    }

    QWidget* horizontal = nullptr;
    QAbstractSlider* vertical = nullptr;
};

// A call through a null pointer is what host code does; the sanitizer is not asked about it.
__attribute__((no_sanitize("undefined"))) QWidget* handleOf(const CWnd_X* window) { return window->GetSafeHwnd(); }

} // namespace

class tst_Window : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void handleOfANullWindowIsNull()
    {
        const CWnd_X* volatile nothing = nullptr;
        QCOMPARE(handleOf(nothing), nullptr);
    }

    void handleOfAWindowWithoutWidgetIsNull()
    {
        const CWnd_X window;
        QCOMPARE(window.GetSafeHwnd(), nullptr);
    }

    void createdWindowHasHoverAndMouseTracking()
    {
        QWidget parent;
        CWnd_X window;
        QCOMPARE(window.Create(&parent), 1);
        QCOMPARE(window.GetSafeHwnd()->parentWidget(), &parent);
        QVERIFY(window.GetSafeHwnd()->testAttribute(Qt::WA_Hover));
        QVERIFY(window.GetSafeHwnd()->hasMouseTracking());
        QVERIFY(!window.IsExternalImpObj());
    }

    void nullParentStandsForTheMainFrame()
    {
        QWidget frame;
        frame.setObjectName(QStringLiteral("CTavoMainFrame"));
        CWnd_X window;
        QCOMPARE(window.Create(nullptr), 1);
        QCOMPARE(window.GetSafeHwnd()->parentWidget(), &frame);
    }

    void nullParentWithoutMainFrameGivesATopLevelWindow()
    {
        CWnd_X window;
        QCOMPARE(window.Create(nullptr), 1);
        const QPointer<QWidget> widget = window.GetSafeHwnd();
        QCOMPARE(widget->parentWidget(), nullptr);
        window.DestroyWindow();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!widget);
    }

    void refusedCreationDeletesTheWidget_data()
    {
        QTest::addColumn<int>("answer");
        QTest::newRow("-1") << -1;
        QTest::newRow("a positive answer refuses too") << 1;
    }

    void refusedCreationDeletesTheWidget()
    {
        QFETCH(int, answer);
        QWidget parent;
        RefusingWindow window(answer);
        QCOMPARE(window.Create(&parent), 0);
        QCOMPARE(window.GetSafeHwnd(), nullptr);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(parent.children().isEmpty());
    }

    void adoptedWidgetStaysItsOwners()
    {
        QWidget parent;
        auto* widget = new QWidget(&parent);
        {
            CWnd_X window;
            QCOMPARE(window.SubclassWindow(widget), 1);
            QVERIFY(window.IsExternalImpObj());
            QCOMPARE(CWnd_X::FromHandlePermanent(widget), &window);
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(parent.children(), QObjectList{widget});
        QCOMPARE(CWnd_X::FromHandlePermanent(widget), nullptr);
    }

    void nothingToAdoptGivesZero()
    {
        CWnd_X window;
        QCOMPARE(window.SubclassWindow(nullptr), 0);
    }

    void fromHandleOfNullIsNull()
    {
        QCOMPARE(CWnd_X::FromHandle(nullptr), nullptr);
        QCOMPARE(CWnd_X::FromHandlePermanent(nullptr), nullptr);
    }

    void fromHandleFindsThePermanentWrapper()
    {
        QWidget widget;
        CWnd_X window;
        window.SubclassWindow(&widget);
        QCOMPARE(CWnd_X::FromHandle(&widget), &window);
        QVERIFY(!window.IsTemporary());
    }

    void fromHandleMakesOneTemporaryWrapper()
    {
        QPushButton button;
        CWnd_X* window = CWnd_X::FromHandle(&button);
        QVERIFY(window->IsTemporary());
        QVERIFY(window->IsExternalImpObj());
        QCOMPARE(QByteArray(window->GetClassName()), QByteArray("CWnd_X"));
        QCOMPARE(CWnd_X::FromHandle(&button), window);
        ClearTempObjectPool();
        QCOMPARE(CWnd_X::FromHandlePermanent(&button), nullptr);
    }

    void destructionRunsFromTheWindowToItsChildrenAndBack()
    {
        QStringList record;
        QWidget widget;
        auto* plain = new QWidget(&widget);
        auto* first = new QWidget(plain);
        auto* second = new QWidget(&widget);
        RecordedWindow window(QStringLiteral("window"), record);
        RecordedWindow firstChild(QStringLiteral("first"), record);
        RecordedWindow secondChild(QStringLiteral("second"), record);
        window.SubclassWindow(&widget);
        firstChild.SubclassWindow(first);
        secondChild.SubclassWindow(second);
        widget.show();

        QCOMPARE(window.DestroyWindow(), 1);

        QCOMPARE(record.join(QStringLiteral(", ")),
                 QStringLiteral("window WM_DESTROY, "
                                "first WM_DESTROY, first WM_NCDESTROY, first PostNcDestroy, "
                                "second WM_DESTROY, second WM_NCDESTROY, second PostNcDestroy, "
                                "window WM_NCDESTROY, window PostNcDestroy"));
        QVERIFY(widget.isHidden() && plain->isHidden());
        QCOMPARE(window.GetSafeHwnd(), nullptr);
        QCOMPARE(window.DestroyWindow(), 0);
    }

    void wrapperMayDeleteItselfAtTheEnd()
    {
        QWidget widget;
        const QPointer<SelfDeletingWindow> window = new SelfDeletingWindow;
        window->SubclassWindow(&widget);
        QCOMPARE(DestroyWindow_X(&widget), 1);
        QVERIFY(!window);
    }

    void scrollHandlersTakeTheBarAsWidgetOrSlider()
    {
        QWidget widget;
        QScrollBar bar;
        ScrolledWindow window;
        window.SubclassWindow(&widget);
        window.SendMessage(WM_HSCROLL, 0, reinterpret_cast<LPARAM>(static_cast<QWidget*>(&bar)));
        window.SendMessage(WM_VSCROLL, 0, reinterpret_cast<LPARAM>(static_cast<QWidget*>(&bar)));
        QCOMPARE(window.horizontal, static_cast<QWidget*>(&bar));
        QCOMPARE(window.vertical, static_cast<QAbstractSlider*>(&bar));
        QCOMPARE(window.plainFunction(), 1LL);
    }

    void destroyingNothingGivesZero()
    {
        QCOMPARE(DestroyWindow_X(nullptr), 0);
        CWnd_X window;
        QCOMPARE(window.DestroyWindow(), 0);
    }

    void wrapperDeletedWithoutDestroyWindowGetsNoMessages()
    {
        QStringList record;
        QWidget parent;
        {
            RecordedWindow window(QStringLiteral("window"), record);
            QCOMPARE(window.Create(&parent), 1);
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(record, QStringList());
        QVERIFY(parent.children().isEmpty());
    }
};

XE_TEST(tst_Window)
#include "tst_window.moc"
