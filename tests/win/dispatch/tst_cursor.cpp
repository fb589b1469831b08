#include "scriptwindow.h"
#include "testclass.h"

#include <leavenothing.h>

#include <QPointer>

// The road of WM_SETCURSOR: the outermost window has the first word, the window under the mouse the last.

namespace {

// A window in a window in a window, each wrapped. Each writes down that it was asked, and about which widget.
struct Tree
{
    Tree()
    {
        top->setObjectName(QStringLiteral("top"));
        middle->setObjectName(QStringLiteral("middle"));
        child->setObjectName(QStringLiteral("child"));
        answer(*topWindow, 0);
        answer(*middleWindow, 0);
        answer(*childWindow, 0);
    }

    void answer(ScriptWindow& window, LRESULT result)
    {
        const QString name = window.GetSafeHwnd()->objectName();
        window.on<WM_SETCURSOR>([this, name, result](WPARAM wParam, LPARAM lParam) {
            const auto* about = reinterpret_cast<QWidget*>(wParam);
            asked += QStringLiteral("%1(%2, %3)").arg(name, about->objectName()).arg(lParam);
            return result;
        });
    }

    LRESULT send(QWidget* target) const { return SendMessage_X(target, WM_SETCURSOR, WPARAM(target), 0x200); }
    QString order() const { return asked.join(QLatin1Char(' ')); }

    const std::unique_ptr<QWidget> top = std::make_unique<QWidget>();
    const QPointer<QWidget> middle = new QWidget(top.get());
    const QPointer<QWidget> child = new QWidget(middle);
    std::unique_ptr<ScriptWindow> topWindow = std::make_unique<ScriptWindow>(top.get());
    std::unique_ptr<ScriptWindow> middleWindow = std::make_unique<ScriptWindow>(middle);
    std::unique_ptr<ScriptWindow> childWindow = std::make_unique<ScriptWindow>(child);
    QStringList asked;
};

} // namespace

class tst_Cursor : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void firstWordThatCounts_data();
    void firstWordThatCounts();
    void topLevelWindowAsksNobody();
    void ancestorWithoutEntryIsPassedBy();
    void ancestorThatSwallowsHasNoWord();
    void plainAncestorStaysPlain();
    void walkEndsAtTheWindow();
    void otherWidgetGoesStraightToTheMap();
    void nobodyHasAnEntry();
    void nullResultPointer();
    void childWithoutEntryIsClaimed();
    void mouseMoveSetsTheCursorOfTheTopLevelWindow();
    void wrapperWithoutWidget();
    void parentlessWidgetWithoutWindowFlag();

    void ancestorDeletesTheChildsWrapper();
    void ancestorDeletesTheChild();
    void ancestorDeletesTheChildAndClaims();
    void ancestorDeletesTheNextAncestorsWrapper();
    void ancestorDeletesItsOwnWrapper();
    void ancestorDeletesTheWholeTree();
};

void tst_Cursor::firstWordThatCounts_data()
{
    QTest::addColumn<QVector<int>>("answers");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("asked");
    const QString top = QStringLiteral("top(child, 512)"), middle = QStringLiteral(" middle(child, 512)"),
                  child = QStringLiteral(" child(child, 512)");
    QTest::newRow("nobody claims it") << QVector<int>{0, 0, 0} << 0 << top + middle + child;
    QTest::newRow("the child itself") << QVector<int>{0, 0, 3} << 3 << top + middle + child;
    QTest::newRow("the parent before the child") << QVector<int>{0, 2, 3} << 2 << top + middle;
    QTest::newRow("the top-level window before all") << QVector<int>{1, 2, 3} << 1 << top;
    QTest::newRow("a negative result claims too") << QVector<int>{-1, 2, 3} << -1 << top;
}

void tst_Cursor::firstWordThatCounts()
{
    QFETCH(QVector<int>, answers);
    QFETCH(int, result);
    QFETCH(QString, asked);
    Tree tree;
    tree.answer(*tree.topWindow, answers.at(0));
    tree.answer(*tree.middleWindow, answers.at(1));
    tree.answer(*tree.childWindow, answers.at(2));
    QCOMPARE(tree.send(tree.child), result);
    QCOMPARE(tree.order(), asked);
}

void tst_Cursor::topLevelWindowAsksNobody()
{
    Tree tree;
    tree.answer(*tree.topWindow, 4);
    QCOMPARE(tree.send(tree.top.get()), 4);
    QCOMPARE(tree.order(), QStringLiteral("top(top, 512)"));
}

void tst_Cursor::ancestorWithoutEntryIsPassedBy()
{
    Tree tree;
    tree.topWindow.reset();
    tree.topWindow = std::make_unique<ScriptWindow>(tree.top.get());
    QCOMPARE(tree.send(tree.child), 0);
    QCOMPARE(tree.order(), QStringLiteral("middle(child, 512) child(child, 512)"));
    QVERIFY(tree.topWindow->trace.text().contains(QLatin1String("WM_SETCURSOR"))); // it was asked nevertheless
}

void tst_Cursor::ancestorThatSwallowsHasNoWord()
{
    Tree tree;
    tree.topWindow->AddMsgMapEntry(WM_SETCURSOR, AfxSig_b_D_v, nullptr, nullptr);
    tree.answer(*tree.childWindow, 3);
    QCOMPARE(tree.send(tree.child), 3);
}

void tst_Cursor::plainAncestorStaysPlain()
{
    Tree tree;
    tree.middleWindow.reset();
    QCOMPARE(tree.send(tree.child), 0);
    QCOMPARE(tree.order(), QStringLiteral("top(child, 512) child(child, 512)"));
    QVERIFY(!CWnd_X::FromHandlePermanent(tree.middle));
}

void tst_Cursor::walkEndsAtTheWindow()
{
    Tree tree;
    tree.middle->setWindowFlag(Qt::Dialog);
    QVERIFY(tree.middle->isWindow());
    tree.answer(*tree.topWindow, 1);
    QCOMPARE(tree.send(tree.child), 0);
    QCOMPARE(tree.order(), QStringLiteral("middle(child, 512) child(child, 512)"));
}

void tst_Cursor::otherWidgetGoesStraightToTheMap()
{
    Tree tree;
    QWidget other;
    other.setObjectName(QStringLiteral("other"));
    tree.answer(*tree.topWindow, 1);
    tree.answer(*tree.childWindow, 3);
    QCOMPARE(tree.childWindow->SendMessage(WM_SETCURSOR, WPARAM(&other), 1), 3);
    QCOMPARE(tree.childWindow->SendMessage(WM_SETCURSOR, WPARAM(tree.middle.data()), 2), 3);
    QCOMPARE(tree.order(), QStringLiteral("child(other, 1) child(middle, 2)"));
}

void tst_Cursor::nobodyHasAnEntry()
{
    QWidget top;
    QWidget child(&top);
    ScriptWindow topWindow(&top), childWindow(&child);
    LRESULT result = 77;
    QCOMPARE(childWindow.OnWndMsg(WM_SETCURSOR, WPARAM(&child), 0, &result), 0);
    QCOMPARE(result, 77);
}

void tst_Cursor::nullResultPointer()
{
    Tree tree;
    tree.answer(*tree.middleWindow, 2);
    QCOMPARE(tree.childWindow->OnWndMsg(WM_SETCURSOR, WPARAM(tree.child.data()), 0, nullptr), 1);
    QCOMPARE(tree.order(), QStringLiteral("top(child, 0) middle(child, 0)"));
}

void tst_Cursor::childWithoutEntryIsClaimed()
{
    Tree tree;
    tree.childWindow.reset();
    tree.childWindow = std::make_unique<ScriptWindow>(tree.child);
    tree.answer(*tree.topWindow, 6);
    QCOMPARE(tree.send(tree.child), 6);
}

void tst_Cursor::mouseMoveSetsTheCursorOfTheTopLevelWindow()
{
    Tree tree;
    tree.answer(*tree.topWindow, 1);
    QMouseEvent move(QEvent::MouseMove, {2, 3}, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    tree.child->setMouseTracking(true);
    tree.childWindow->on<WM_MOUSEMOVE>([] {});
    QCoreApplication::sendEvent(tree.child, &move);
    QCOMPARE(tree.order(), QString());
    QCoreApplication::processEvents();
    QCOMPARE(tree.order(), QStringLiteral("top(child, 33554432)"));
}

// Zero names no widget, and it is not the widget of a wrapper without one either.
void tst_Cursor::wrapperWithoutWidget()
{
    ScriptWindow window;
    window.on<WM_SETCURSOR>([](WPARAM, LPARAM) { return 3; });
    LRESULT result = 0;
    QCOMPARE(window.OnWndMsg(WM_SETCURSOR, 0, 0, &result), 1);
    QCOMPARE(result, 3);
}

void tst_Cursor::parentlessWidgetWithoutWindowFlag()
{
    QWidget widget;
    ScriptWindow window(&widget);
    window.on<WM_SETCURSOR>([](WPARAM, LPARAM) { return 3; });
    const Qt::WindowFlags flags = widget.windowFlags();
    widget.overrideWindowFlags(Qt::Widget);
    QVERIFY(!widget.isWindow());
    const LRESULT result = window.SendMessage(WM_SETCURSOR, WPARAM(&widget), 0);
    widget.overrideWindowFlags(flags);
    QCOMPARE(result, 3);
}

// ----------------------------------------------------------------------------------------------------- lifetime

void tst_Cursor::ancestorDeletesTheChildsWrapper()
{
    Tree tree;
    tree.topWindow->on<WM_SETCURSOR>([&] { tree.childWindow.reset(); });
    QCOMPARE(tree.send(tree.child), 0);
    QCOMPARE(tree.order(), QString());
}

void tst_Cursor::ancestorDeletesTheChild()
{
    Tree tree;
    tree.topWindow->on<WM_SETCURSOR>([&] { delete tree.child; });
    QCOMPARE(tree.send(tree.child), 0);
    QCOMPARE(tree.order(), QString());
    QVERIFY(!tree.childWindow->GetSafeHwnd());
}

void tst_Cursor::ancestorDeletesTheChildAndClaims()
{
    Tree tree;
    tree.topWindow->on<WM_SETCURSOR>([&](WPARAM, LPARAM) {
        tree.childWindow.reset();
        delete tree.child;
        return 1;
    });
    const auto widget = WPARAM(tree.child.data());
    LRESULT result = 0;
    QCOMPARE(tree.childWindow->OnWndMsg(WM_SETCURSOR, widget, 0, &result), 1);
    QCOMPARE(result, 1);
}

void tst_Cursor::ancestorDeletesTheNextAncestorsWrapper()
{
    Tree tree;
    tree.topWindow->on<WM_SETCURSOR>([&] { tree.middleWindow.reset(); });
    tree.answer(*tree.childWindow, 3);
    QCOMPARE(tree.send(tree.child), 3);
    QCOMPARE(tree.order(), QStringLiteral("child(child, 512)"));
}

void tst_Cursor::ancestorDeletesItsOwnWrapper()
{
    Tree tree;
    tree.topWindow->on<WM_SETCURSOR>([&] { tree.topWindow.reset(); });
    tree.answer(*tree.childWindow, 3);
    QCOMPARE(tree.send(tree.child), 3);
    QCOMPARE(tree.order(), QStringLiteral("middle(child, 512) child(child, 512)"));
}

void tst_Cursor::ancestorDeletesTheWholeTree()
{
    auto* top = new QWidget;
    auto* child = new QWidget(top);
    ScriptWindow topWindow(top), childWindow(child);
    topWindow.on<WM_SETCURSOR>([&] { delete top; });
    childWindow.on<WM_SETCURSOR>([](WPARAM, LPARAM) { return 3; });
    QCOMPARE(SendMessage_X(child, WM_SETCURSOR, WPARAM(child), 0), 0);
    QVERIFY(!topWindow.GetSafeHwnd());
    QVERIFY(!childWindow.GetSafeHwnd());
}

XE_TEST(tst_Cursor)
#include "tst_cursor.moc"
