// How a window ends: what it is told, in which order, and what its handlers may do meanwhile.

#include "deletelater.h"
#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

namespace {

// Writes into one list for all windows what it is told of its end, and how many scroll bars it has then.
template <class Base>
class Mortal : public Base
{
public:
    Mortal(QString windowName, QStringList& record) : name(std::move(windowName)), m_record(record) {}

    int OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override
    {
        if (message == WM_DESTROY || message == WM_NCDESTROY) {
            m_record += QStringLiteral("%1 %2 (%3)")
                            .arg(name, message == WM_DESTROY ? "WM_DESTROY" : "WM_NCDESTROY")
                            .arg(bool(this->GetScrollBarCtrl(SB_HORZ)) + bool(this->GetScrollBarCtrl(SB_VERT)));
            if (message == WM_DESTROY && atDestroy)
                atDestroy();
        }
        return Base::OnWndMsg(message, wParam, lParam, result);
    }
    void PostNcDestroy() override
    {
        m_record += name + QStringLiteral(" PostNcDestroy");
        if (deletesItself)
            delete this;
    }

    const QString name;
    std::function<void()> atDestroy;
    bool deletesItself = false;

private:
    QStringList& m_record;
};

using MortalWindow = Mortal<CWnd_X>;
using MortalDialog = Mortal<CDialog_X>;

// Destroys itself, and is deleted by that, when this message arrives, and knows no other.
class Lemming : public CWnd_X
{
public:
    explicit Lemming(UINT message) : m_message(message) {}
    void PostNcDestroy() override { delete this; }

protected:
    LRESULT endAt(UINT message) { return message == m_message && DestroyWindow(); }

private:
    const UINT m_message;
};

class OnWndMsgLemming : public Lemming
{
public:
    using Lemming::Lemming;

    int OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override
    {
        // When this is true nothing of the object may be touched any more.
        return endAt(message) || CWnd_X::OnWndMsg(message, wParam, lParam, result);
    }
};

class HandlerLemming : public Lemming
{
public:
    using Lemming::Lemming;

    void OnMessageMap() override
    {
        using ThisClass = HandlerLemming;
        CWnd_X::OnMessageMap();
        ON_WM_LBUTTONDOWN_X()
        ON_WM_CLOSE_X()
        ON_WM_SIZE_X()
        ON_WM_TIMER_X()
        ON_WM_KEYDOWN_X()
        ON_MESSAGE_X(WM_USER + 1, onUser)
    }
    void OnLButtonDown(UINT, CPoint) { endAt(WM_LBUTTONDOWN); }
    void OnClose() { endAt(WM_CLOSE); }
    void OnSize(UINT, int, int) { endAt(WM_SIZE); }
    void OnTimer(UINT_PTR) { endAt(WM_TIMER); }
    void OnKeyDown(UINT, UINT, UINT) { endAt(WM_KEYDOWN); }
    LRESULT onUser(WPARAM, LPARAM) { return endAt(WM_USER + 1); }
};

using Trigger = void (*)(QWidget& widget);

struct NamedTrigger
{
    const char* name;
    UINT message;
    Trigger trigger;
};

const NamedTrigger triggers[] = {
    {"a click", WM_LBUTTONDOWN, [](QWidget& widget) { QTest::mousePress(&widget, Qt::LeftButton); }},
    {"closing", WM_CLOSE, [](QWidget& widget) { widget.close(); }},
    {"a new size", WM_SIZE, [](QWidget& widget) { widget.resize(widget.size() + QSize(1, 1)); }},
    {"a timer", WM_TIMER,
     [](QWidget& widget) {
         QTimerEvent event(1);
         QCoreApplication::sendEvent(&widget, &event);
     }},
    {"a key", WM_KEYDOWN, [](QWidget& widget) { QTest::keyPress(&widget, Qt::Key_A); }},
    {"a sent message", WM_USER + 1, [](QWidget& widget) { SendMessage_X(&widget, WM_USER + 1, 0, 0); }},
    {"a posted message", WM_USER + 1,
     [](QWidget& widget) {
         PostMessage_X(&widget, WM_USER + 1, 0, 0);
         QCoreApplication::sendPostedEvents(&widget);
     }},
};

QString joined(const QStringList& record) { return record.join(QStringLiteral(", ")); }

} // namespace

Q_DECLARE_METATYPE(Trigger)

class tst_WndDestruction : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void dialogWithAControl();
    void anOwnedWidgetLivesUntilTheLoopRuns();
    void aWindowMayBeMadeAgain();
    void aWindowThatKeepsItsEndFromTheBaseStaysAttached();

    void itsOwnHandlerMayEndIt_data();
    void itsOwnHandlerMayEndIt();
    void wrappersOnTheWayMayGo();
    void widgetsOnTheWayMayGo();

    void wrapperDeletedAlone();
    void widgetDeletedAlone();
};

// ---------------------------------------------------------------------------------------------------------- order

void tst_WndDestruction::dialogWithAControl()
{
    QStringList record;
    QWidget parent;
    QDialog form(&parent);
    auto* const group = new QGroupBox(&form);
    auto* const edit = new QLineEdit(group);
    MortalDialog dialog(QStringLiteral("dialog"), record);
    MortalWindow control(QStringLiteral("control"), record);
    dialog.ModifyStyle(0, WS_HSCROLL | WS_VSCROLL);
    control.ModifyStyle(0, WS_VSCROLL);
    QCOMPARE(dialog.SubclassWindow(&form), 1);
    QCOMPARE(control.SubclassWindow(edit), 1);

    QCOMPARE(dialog.DestroyWindow(), 1);
    // The bars go between the two messages of their window.
    QCOMPARE(joined(record), QStringLiteral("dialog WM_DESTROY (2), control WM_DESTROY (1), control WM_NCDESTROY (0), "
                                            "control PostNcDestroy, dialog WM_NCDESTROY (0), dialog PostNcDestroy"));
    QCOMPARE(control.GetSafeHwnd(), nullptr);
    QVERIFY(form.isHidden() && group->isHidden() && edit->isHidden());
    deleteLaterObjects();
    QCOMPARE(form.children(), QObjectList{group});
    QCOMPARE(group->children(), QObjectList{edit});
    QVERIFY(edit->findChildren<QScrollBar*>().isEmpty());
}

void tst_WndDestruction::anOwnedWidgetLivesUntilTheLoopRuns()
{
    QStringList record;
    QWidget parent;
    MortalWindow window(QStringLiteral("window"), record);
    window.Create(WS_VISIBLE, &parent);
    const QPointer<QWidget> widget = window.GetSafeHwnd();
    QCOMPARE(window.DestroyWindow(), 1);
    QVERIFY(widget && widget->isHidden());
    QCOMPARE(widget->dynamicPropertyNames(), QList<QByteArray>());
    QCOMPARE(window.DestroyWindow(), 0);
    deleteLaterObjects();
    QVERIFY(!widget);
    QCOMPARE(record.size(), 3);
}

void tst_WndDestruction::aWindowMayBeMadeAgain()
{
    QStringList record;
    QWidget parent;
    MortalWindow window(QStringLiteral("window"), record);
    for (int round = 0; round < 2; ++round) {
        QCOMPARE(window.Create(WS_VISIBLE | WS_VSCROLL, &parent), 1);
        QVERIFY(window.IsScrollBarEnabled(SB_VERT));
        QCOMPARE(window.DestroyWindow(), 1);
        QCOMPARE(window.GetScrollBarCtrl(SB_VERT), nullptr);
        QCOMPARE(joined(record),
                 QStringLiteral("window WM_DESTROY (1), window WM_NCDESTROY (0), window PostNcDestroy"));
        record.clear();
    }
}

void tst_WndDestruction::aWindowThatKeepsItsEndFromTheBaseStaysAttached()
{
    class Undead : public CWnd_X
    {
    public:
        void OnMessageMap() override
        {
            using ThisClass = Undead;
            CWnd_X::OnMessageMap();
            ON_WM_NCDESTROY_X()
        }
        void OnNcDestroy() {}
    };
    QWidget widget;
    Undead window;
    window.SubclassWindow(&widget);
    QCOMPARE(window.DestroyWindow(), 1);
    QCOMPARE(window.GetSafeHwnd(), &widget);
}

// ------------------------------------------------------------------------------------- what happens on the way

void tst_WndDestruction::itsOwnHandlerMayEndIt_data()
{
    QTest::addColumn<UINT>("message");
    QTest::addColumn<Trigger>("trigger");
    for (const NamedTrigger& row : triggers)
        QTest::newRow(row.name) << row.message << row.trigger;
}

void tst_WndDestruction::itsOwnHandlerMayEndIt()
{
    QFETCH(UINT, message);
    QFETCH(Trigger, trigger);
    QWidget parent;
    parent.show();
    const auto adopt = [&](CWnd_X* window) {
        auto* const widget = new QWidget(&parent);
        widget->resize(100, 100);
        widget->show();
        window->SubclassWindow(widget);
        return widget;
    };
    const auto create = [&](CWnd_X* window) {
        window->Create(WS_VISIBLE, CRect(0, 0, 100, 100), &parent);
        return window->GetSafeHwnd();
    };

    const QPointer<CWnd_X> windows[] = {new OnWndMsgLemming(message), new HandlerLemming(message),
                                        new HandlerLemming(message)};
    QWidget* const adopted[] = {adopt(windows[0]), adopt(windows[1])};
    for (int i = 0; i < 2; ++i) {
        trigger(*adopted[i]);
        QVERIFY(!windows[i]);
        QVERIFY(adopted[i]->isHidden());
        QCOMPARE(CWnd_X::FromHandlePermanent(adopted[i]), nullptr);
    }

    if (message == WM_SIZE)
        return delete windows[2]; // its end would come while it is created
    const QPointer<QWidget> created = create(windows[2]);
    trigger(*created);
    QVERIFY(!windows[2]);
    deleteLaterObjects();
    QVERIFY(!created);
}

void tst_WndDestruction::wrappersOnTheWayMayGo()
{
    QStringList record;
    QWidget widget;
    auto* const first = new QWidget(&widget);
    auto* const second = new QWidget(&widget);
    MortalWindow window(QStringLiteral("window"), record);
    auto* firstWindow = new MortalWindow(QStringLiteral("first"), record);
    auto* secondWindow = new MortalWindow(QStringLiteral("second"), record);
    window.SubclassWindow(&widget);
    firstWindow->SubclassWindow(first);
    secondWindow->SubclassWindow(second);
    firstWindow->deletesItself = true;
    firstWindow->atDestroy = [=] { delete secondWindow; };

    QCOMPARE(window.DestroyWindow(), 1);
    QCOMPARE(joined(record),
             QStringLiteral("window WM_DESTROY (0), first WM_DESTROY (0), first WM_NCDESTROY (0), first PostNcDestroy, "
                            "window WM_NCDESTROY (0), window PostNcDestroy"));
    QVERIFY(second->isHidden());
}

void tst_WndDestruction::widgetsOnTheWayMayGo()
{
    QStringList record;
    QPointer<QWidget> widget = new QWidget;
    auto* const first = new QWidget(widget);
    QPointer<QWidget> second = new QWidget(widget);
    MortalWindow window(QStringLiteral("window"), record);
    MortalWindow firstWindow(QStringLiteral("first"), record);
    MortalWindow secondWindow(QStringLiteral("second"), record);
    window.SubclassWindow(widget);
    firstWindow.SubclassWindow(first);
    secondWindow.SubclassWindow(second);

    firstWindow.atDestroy = [&] { delete second; };
    QCOMPARE(window.DestroyWindow(), 1);
    QCOMPARE(joined(record), QStringLiteral("window WM_DESTROY (0), first WM_DESTROY (0), first WM_NCDESTROY (0), "
                                            "first PostNcDestroy, window WM_NCDESTROY (0), window PostNcDestroy"));
    QCOMPARE(secondWindow.GetSafeHwnd(), nullptr);

    record.clear();
    window.SubclassWindow(widget);
    window.atDestroy = [&] { delete widget; };
    QCOMPARE(window.DestroyWindow(), 1);
    QCOMPARE(joined(record), QStringLiteral("window WM_DESTROY (0)"));
    QCOMPARE(window.GetSafeHwnd(), nullptr);
}

// ----------------------------------------------------------------------------------------------- one without the other

void tst_WndDestruction::wrapperDeletedAlone()
{
    QStringList record;
    QPointer<QWidget> widget;
    {
        MortalWindow window(QStringLiteral("window"), record);
        window.Create(WS_VISIBLE | WS_HSCROLL | WS_VSCROLL, static_cast<QWidget*>(nullptr));
        widget = window.GetSafeHwnd();
        QVERIFY(widget->isVisible());
    }
    QVERIFY(widget && widget->isVisible());
    for (const QScrollBar* bar : widget->findChildren<QScrollBar*>())
        QVERIFY(bar->isHidden());
    deleteLaterObjects();
    QVERIFY(!widget);
    QCOMPARE(record, QStringList());
}

void tst_WndDestruction::widgetDeletedAlone()
{
    QStringList record;
    MortalWindow window(QStringLiteral("window"), record);
    {
        QWidget parent;
        window.Create(WS_VISIBLE | WS_VSCROLL, &parent);
    }
    QCOMPARE(window.GetSafeHwnd(), nullptr);
    QCOMPARE(window.GetScrollBarCtrl(SB_VERT), nullptr);
    QVERIFY(!window.IsExternalImpObj());
    QCOMPARE(window.DestroyWindow(), 0);
    QCOMPARE(window.SetMenu(nullptr), 0);
    QCOMPARE(record, QStringList());
}

XE_TEST(tst_WndDestruction)
#include "tst_wnddestruction.moc"
