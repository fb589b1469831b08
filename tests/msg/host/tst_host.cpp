#include "leavenothing.h"
#include "testclass.h"

#include <xeprocess.h>

#include <QLayout>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QSplitter>
#include <QTabWidget>

// The ways to the host's main window, its active view and its cursor function.

namespace {

QStringList cursors;

int setCursor(QWidget* window, int cursor)
{
    cursors += QStringLiteral("%1 %2").arg(window ? window->objectName() : QStringLiteral("null")).arg(cursor);
    return cursor;
}

struct MainFrame : QMainWindow
{
    MainFrame()
    {
        setObjectName(QStringLiteral("CTavoMainFrame"));
        layout()->setSizeConstraint(QLayout::SetNoConstraint); // the offscreen platform warns about size hints
    }
};

QMdiSubWindow* addView(QMdiArea& area)
{
    QMdiSubWindow* const view = area.addSubWindow(new QWidget);
    view->show();
    return view;
}

} // namespace

class tst_Host : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void theMainFrame();
    void onlyATopLevelWidgetIsTheMainFrame();
    void noMainFrameNoView();
    void noAreaNoView();
    void anAreaWithoutViews();
    void theActiveView();
    void anAreaDeepInTheMainFrame();
    void theFirstOfTwoAreas();
    void theCursorFunction();
    void noCursorFunction_data();
    void noCursorFunction();
    void noMainFrameNoCursor();
};

void tst_Host::cleanup()
{
    cursors.clear();
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

void tst_Host::theMainFrame()
{
    QCOMPARE(TavoGetMainFrame(), nullptr);
    const QWidget before;
    const MainFrame frame;
    const QWidget after;
    QCOMPARE(TavoGetMainFrame(), &frame);
}

void tst_Host::onlyATopLevelWidgetIsTheMainFrame()
{
    QWidget window;
    window.setObjectName(QStringLiteral("ctavomainframe"));
    QWidget child(&window);
    child.setObjectName(QStringLiteral("CTavoMainFrame"));
    QCOMPARE(TavoGetMainFrame(), nullptr);
    child.setParent(nullptr);
    QCOMPARE(TavoGetMainFrame(), &child);
}

void tst_Host::noMainFrameNoView()
{
    QMdiArea area;
    addView(area);
    QCOMPARE(TavoGetViewWindow(), nullptr);
}

void tst_Host::noAreaNoView()
{
    MainFrame frame;
    frame.setCentralWidget(new QWidget);
    QCOMPARE(TavoGetViewWindow(), nullptr);
}

void tst_Host::anAreaWithoutViews()
{
    MainFrame frame;
    frame.setCentralWidget(new QMdiArea);
    QCOMPARE(TavoGetViewWindow(), nullptr);
}

void tst_Host::theActiveView()
{
    MainFrame frame;
    auto* const area = new QMdiArea;
    frame.setCentralWidget(area);
    QWidget* const first = addView(*area);
    QMdiSubWindow* const second = addView(*area);
    frame.show();
    area->setActiveSubWindow(second);
    QCOMPARE(TavoGetViewWindow(), second);
    second->close();
    QCOMPARE(TavoGetViewWindow(), first);
}

void tst_Host::anAreaDeepInTheMainFrame()
{
    MainFrame frame;
    auto* const splitter = new QSplitter;
    frame.setCentralWidget(splitter);
    auto* const folder = new QTabWidget;
    splitter->addWidget(folder);
    auto* const area = new QMdiArea;
    folder->addTab(area, QString());
    QWidget* const view = addView(*area);
    QCOMPARE(TavoGetViewWindow(), nullptr); // nothing is active in a hidden window
    frame.show();
    QCOMPARE(TavoGetViewWindow(), view);
}

void tst_Host::theFirstOfTwoAreas()
{
    MainFrame frame;
    auto* const page = new QWidget;
    frame.setCentralWidget(page);
    auto* const first = new QMdiArea(page);
    auto* const second = new QMdiArea(page);
    addView(*second);
    frame.show();
    QCOMPARE(TavoGetViewWindow(), nullptr);
    QMdiSubWindow* const view = addView(*first);
    first->setActiveSubWindow(view);
    QCOMPARE(TavoGetViewWindow(), view);
}

void tst_Host::theCursorFunction()
{
    MainFrame frame;
    frame.setProperty("TavoSetCursor", qlonglong(quintptr(setCursor)));
    TavoSetCurosr(&frame, 3);
    TavoSetCurosr(nullptr, -1);
    QCOMPARE(cursors, QStringList({QStringLiteral("CTavoMainFrame 3"), QStringLiteral("null -1")}));
}

void tst_Host::noCursorFunction_data()
{
    QTest::addColumn<QVariant>("property");
    QTest::newRow("missing") << QVariant();
    QTest::newRow("zero") << QVariant(qlonglong(0));
    QTest::newRow("no number") << QVariant(QStringLiteral("setCursor"));
}

void tst_Host::noCursorFunction()
{
    QFETCH(QVariant, property);
    MainFrame frame;
    frame.setProperty("TavoSetCursor", property);
    TavoSetCurosr(&frame, 3);
    QCOMPARE(cursors, QStringList());
}

void tst_Host::noMainFrameNoCursor()
{
    QWidget window;
    window.setProperty("TavoSetCursor", qlonglong(quintptr(setCursor)));
    TavoSetCurosr(&window, 3);
    QCOMPARE(cursors, QStringList());
}

XE_TEST(tst_Host)
#include "tst_host.moc"
