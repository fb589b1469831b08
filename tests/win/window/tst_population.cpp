// A whole population of windows comes and goes, and leaves everything as it was: memory, widgets, wrappers, timers, and
// the connections that tell windows of idle moments.

#include "testclass.h"

#include <XeMFCEmu.h>

#include <QAbstractEventDispatcher>
#include <QPushButton>

#include <malloc.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <vector>

#if defined(__SANITIZE_ADDRESS__)
extern "C" size_t __sanitizer_get_current_allocated_bytes(); // gcc does not install the header that declares it
#endif

namespace {

constexpr int population = 20000;
constexpr int lessThanABlock = 16; // of memory: the smallest one takes 32 bytes

qint64 allocatedBytes()
{
#if defined(__SANITIZE_ADDRESS__)
    return static_cast<qint64>(__sanitizer_get_current_allocated_bytes());
#else
    const auto info = mallinfo2();
    return static_cast<qint64>(info.uordblks + info.hblkhd);
#endif
}

// What the event loop does in its next round. Posted events that pile up are searched by each object that goes.
void settle()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void attachAndDetachAll(const std::vector<std::unique_ptr<QWidget>>& widgets)
{
    std::vector<std::unique_ptr<CWnd_X>> windows;
    for (const auto& widget : widgets) {
        windows.push_back(std::make_unique<CWnd_X>());
        QCOMPARE(windows.back()->SubclassWindow(widget.get()), 1);
    }
    settle();
    for (const auto& window : windows)
        window->Detach();
    settle();
}

// ----------------------------------------------------------------------------------------------- made and destroyed

int wrappers = 0;

template <class Base>
class Counted : public Base
{
public:
    Counted() { ++wrappers; }
    ~Counted() override { --wrappers; }
};

class SelfDeleting : public Counted<CWnd_X>
{
public:
    void PostNcDestroy() override { delete this; }
};

class FormDialog : public Counted<CDialog_X>
{
public:
    void SetupUI() override
    {
        new QLineEdit(GetSafeHwnd());
        (new QPushButton(GetSafeHwnd()))->setObjectName(QStringLiteral("OK"));
    }
};

class ComboDialog : public Counted<CDialog_X>
{
public:
    void SetupUI() override { new QComboBox(GetSafeHwnd()); }
};

template <class Window>
void createAll(int count, DWORD style, QWidget* parent)
{
    std::vector<std::unique_ptr<Window>> windows;
    for (int i = 0; i < count; ++i) {
        windows.push_back(std::make_unique<Window>());
        QCOMPARE(windows.back()->CWnd_X::Create(style, parent), 1);
    }
    settle();
    for (const auto& window : windows)
        QCOMPARE(window->DestroyWindow(), 1);
    settle();
}

// One after the other.
template <class Once>
void repeat(int count, Once once)
{
    for (int i = 0; i < count; ++i) {
        once();
        settle();
    }
}

using Life = void (*)(int count, QWidget* parent);

struct Population
{
    const char* name;
    Life life;
    int count = 1000;
};

const Population populations[] = {
    {"windows", [](int count, QWidget*) { createAll<Counted<CWnd_X>>(count, 0, nullptr); }},
    {"windows in a parent, with bars",
     [](int count, QWidget* parent) {
         createAll<Counted<CWnd_X>>(count, WS_VISIBLE | WS_HSCROLL | WS_VSCROLL, parent);
     }},
    {"windows that delete themselves",
     [](int count, QWidget*) {
         repeat(count, [] {
             auto* const window = new SelfDeleting;
             window->Create(nullptr);
             window->DestroyWindow();
         });
     }},
    {"windows with a timer",
     [](int count, QWidget*) {
         repeat(count, [] {
             Counted<CWnd_X> window;
             window.Create(nullptr);
             window.SetTimer(77, 60000);
             window.DestroyWindow();
         });
     }},
    {"wrappers deleted without DestroyWindow",
     [](int count, QWidget*) { repeat(count, [] { Counted<CWnd_X>().Create(nullptr); }); }},
    {"widgets deleted before their wrappers",
     [](int count, QWidget*) {
         repeat(count, [] {
             Counted<CWnd_X> window;
             window.Create(nullptr);
             delete window.GetSafeHwnd();
         });
     }},
    {"dialogs", [](int count, QWidget*) { repeat(count, [] { createAll<FormDialog>(1, 0, nullptr); }); }},
    {"dialogs with combo boxes", // whose lists are made, which takes its time
     [](int count, QWidget*) { repeat(count, [] { createAll<ComboDialog>(1, 0, nullptr); }); }, 100},
    {"dialogs of a parent, with wrapped controls",
     [](int count, QWidget* parent) {
         repeat(count, [=] {
             FormDialog dialog;
             dialog.CWnd_X::Create(parent);
             Counted<CWnd_X> edit;
             edit.SubclassWindow(dialog.GetSafeHwnd()->findChild<QLineEdit*>());
             dialog.DestroyWindow();
         });
     }},
    {"dialogs that refuse",
     [](int count, QWidget*) {
         class Refusing : public Counted<CDialog_X>
         {
         public:
             BOOL OnInitDialog() override { return FALSE; }
         };
         repeat(count, [] { QCOMPARE(Refusing().CWnd_X::Create(nullptr), 0); });
     }},
    {"temporary wrappers",
     [](int count, QWidget* parent) {
         repeat(count, [=] {
             CWnd_X::FromHandle(parent);
             ClearTempObjectPool();
         });
     }},
};

// The least that a round keeps: lists of Qt's grow now and then, what is lost is lost each time.
template <class Round>
qint64 bytesKept(Round round)
{
    round();
    qint64 least = std::numeric_limits<qint64>::max();
    for (int i = 0; i < 3; ++i) {
        const qint64 before = allocatedBytes();
        round();
        least = std::min(least, allocatedBytes() - before);
    }
    return least;
}

// How many objects of each kind there are, as one line.
QString census()
{
    struct Dispatcher : QAbstractEventDispatcher
    {
        using QObject::receivers;
    };
    const int idle = (QAbstractEventDispatcher::instance()->*&Dispatcher::receivers)(SIGNAL(aboutToBlock()));
    return QStringLiteral("%1 windows, %2 widgets, %3 wrappers, %4 timers, %5 idle slots")
        .arg(QApplication::topLevelWidgets().size())
        .arg(QApplication::allWidgets().size())
        .arg(wrappers)
        .arg(GetGlobalEventHandler()->timers.size())
        .arg(idle);
}

} // namespace

Q_DECLARE_METATYPE(Life)

class tst_Population : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void memoryIsBackWhereItWas()
    {
        std::vector<std::unique_ptr<QWidget>> widgets;
        for (int i = 0; i < population; ++i)
            widgets.push_back(std::make_unique<QWidget>());
        settle();
        const qint64 kept = bytesKept([&] { attachAndDetachAll(widgets); });
        QVERIFY2(kept < population * lessThanABlock, qPrintable(QStringLiteral("%1 bytes kept").arg(kept)));
    }

    void nobodyIsLeft_data()
    {
        QTest::addColumn<Life>("life");
        QTest::addColumn<int>("count");
        for (const Population& row : populations)
            QTest::newRow(row.name) << row.life << row.count;
    }

    void nobodyIsLeft()
    {
        QFETCH(Life, life);
        QFETCH(int, count);
        QWidget parent;
        const QString before = census();
        const qint64 kept = bytesKept([&] { life(count, &parent); });
        QCOMPARE(census(), before);
        QCOMPARE(wrappers, 0);
        QVERIFY2(kept < count * lessThanABlock, qPrintable(QStringLiteral("%1 bytes kept").arg(kept)));
    }
};

XE_TEST(tst_Population)
#include "tst_population.moc"
