// The mouse pointer: its shape, which the host sets, its place, and the time of a double click.

#include "leavenothing.h"
#include "testclass.h"

#include <QDesktopWidget>

#include <XeMFCEmu.h>

namespace {

QVector<QPair<QWidget*, int>> calls;
int answer = 0;

int setByHost(QWidget* window, int code)
{
    calls.append({window, code});
    return answer;
}

// The host's main window.
struct MainFrame : QWidget
{
    explicit MainFrame(const QVariant& function = static_cast<qlonglong>(reinterpret_cast<qintptr>(setByHost)))
    {
        setObjectName(QStringLiteral("CTavoMainFrame"));
        setProperty("TavoSetCursor", function);
    }
};

} // namespace

class tst_Cursors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void codes_data();
    void codes();
    void loadingByText();
    void allCursorsShareOneHandle();
    void hostSetsTheCursor();
    void lastLoadWins();
    void hostsAnswerIsRemembered();
    void handleOfTheCallers();
    void nullHandle();
    void withoutAFunctionNothingHappens_data();
    void withoutAFunctionNothingHappens();
    void withoutAMainFrameNothingHappens();

    void showingHidesThePointer();
    void showingIsCounted();
    void clippingHasNoEffect();
    void place();
    void physicalPlace();
    void doubleClickTime();
};

void tst_Cursors::cleanup()
{
    calls.clear();
    answer = 0;
    QVERIFY(!QGuiApplication::overrideCursor());
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

// --------------------------------------------------------------------------------------------------------------- shape

void tst_Cursors::codes_data()
{
    QTest::addColumn<quint64>("id");
    QTest::addColumn<int>("code");
    QTest::newRow("IDC_ARROW") << quint64(32512) << 256;
    QTest::newRow("IDC_IBEAM") << quint64(32513) << 257;
    QTest::newRow("IDC_CROSS") << quint64(32515) << 258;
    QTest::newRow("IDC_WAIT") << quint64(32514) << 259;
    QTest::newRow("IDC_SIZENS") << quint64(32645) << 260;
    QTest::newRow("IDC_SIZEWE") << quint64(32644) << 261;
    QTest::newRow("IDC_SIZENESW") << quint64(32643) << 262;
    QTest::newRow("IDC_SIZENWSE") << quint64(32642) << 263;
    QTest::newRow("IDC_SIZEALL") << quint64(32646) << 264;
    QTest::newRow("IDC_HAND") << quint64(32649) << 268;
    for (const quint64 id : {0, 1, 102, 256, 32511, 32516, 32640, 32641, 32647, 32648, 32650, 32651})
        QTest::addRow("%llu is the arrow", id) << id << 256;
}

void tst_Cursors::codes()
{
    QFETCH(quint64, id);
    QFETCH(int, code);
    LoadCursor_X(nullptr, code == 256 ? IDC_HAND : IDC_ARROW);
    QCOMPARE(*LoadCursor_X(nullptr, ULONG_PTR(id)), code);
    LoadCursor_X(nullptr, code == 256 ? IDC_HAND : IDC_ARROW);
    QCOMPARE(*LoadCursor_X(nullptr, MAKEINTRESOURCE(id)), code);
}

void tst_Cursors::loadingByText()
{
    LoadCursor_X(nullptr, IDC_HAND);
    QCOMPARE(*LoadCursor_X(nullptr, L"IDC_WAIT"), 256);
    LoadCursor_X(nullptr, IDC_HAND);
    QCOMPARE(*LoadCursor_X(nullptr, static_cast<LPCWSTR>(nullptr)), 256);
}

void tst_Cursors::allCursorsShareOneHandle()
{
    const HCURSOR wait = LoadCursor_X(nullptr, IDC_WAIT);
    const HCURSOR hand = LoadCursor_X(nullptr, IDC_HAND);
    QVERIFY(wait);
    QCOMPARE(hand, wait);
    QCOMPARE(*wait, 268);
}

void tst_Cursors::hostSetsTheCursor()
{
    const MainFrame frame;
    const HCURSOR wait = LoadCursor_X(nullptr, IDC_WAIT);
    QCOMPARE(SetCursor_X(wait), wait);
    QCOMPARE(calls.size(), 1);
    QCOMPARE(calls[0].first, nullptr);
    QCOMPARE(calls[0].second, 259);
}

void tst_Cursors::lastLoadWins()
{
    const MainFrame frame;
    const HCURSOR wait = LoadCursor_X(nullptr, IDC_WAIT);
    LoadCursor_X(nullptr, IDC_CROSS);
    SetCursor_X(wait);
    QCOMPARE(calls.size(), 1);
    QCOMPARE(calls[0].second, 258);
}

void tst_Cursors::hostsAnswerIsRemembered()
{
    const MainFrame frame;
    answer = 4711;
    const HCURSOR cursor = SetCursor_X(LoadCursor_X(nullptr, IDC_WAIT));
    QCOMPARE(*cursor, 4711);
    answer = 0;
    SetCursor_X(cursor);
    QCOMPARE(calls.size(), 2);
    QCOMPARE(calls[1].second, 4711);
    QCOMPARE(*cursor, 0);
}

void tst_Cursors::handleOfTheCallers()
{
    const MainFrame frame;
    const HCURSOR shared = LoadCursor_X(nullptr, IDC_WAIT);
    int own = 300;
    answer = 301;
    QCOMPARE(SetCursor_X(&own), shared);
    QCOMPARE(calls.size(), 1);
    QCOMPARE(calls[0].second, 300);
    QCOMPARE(own, 300);
    QCOMPARE(*shared, 301);
}

void tst_Cursors::nullHandle()
{
    const MainFrame frame;
    const HCURSOR shared = LoadCursor_X(nullptr, IDC_WAIT);
    QCOMPARE(SetCursor_X(nullptr), shared);
    QCOMPARE(calls.size(), 0);
    QCOMPARE(*shared, 259);
}

void tst_Cursors::withoutAFunctionNothingHappens_data()
{
    QTest::addColumn<QVariant>("function");
    QTest::newRow("no property") << QVariant();
    QTest::newRow("null") << QVariant(0LL);
    QTest::newRow("no address") << QVariant(QStringLiteral("setCursor"));
}

void tst_Cursors::withoutAFunctionNothingHappens()
{
    QFETCH(QVariant, function);
    const MainFrame frame(function);
    const HCURSOR shared = LoadCursor_X(nullptr, IDC_WAIT);
    QCOMPARE(SetCursor_X(shared), shared);
    QCOMPARE(*shared, 259);
}

void tst_Cursors::withoutAMainFrameNothingHappens()
{
    const HCURSOR shared = LoadCursor_X(nullptr, IDC_WAIT);
    QCOMPARE(SetCursor_X(shared), shared);
    QCOMPARE(*shared, 259);
}

// ------------------------------------------------------------------------------------------------------ the rest of it

void tst_Cursors::showingHidesThePointer()
{
    QCOMPARE(ShowCursor_X(TRUE), 1);
    QVERIFY(QGuiApplication::overrideCursor());
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::BlankCursor);
    QCOMPARE(ShowCursor_X(FALSE), 1);
    QVERIFY(!QGuiApplication::overrideCursor());
    QCOMPARE(ShowCursor_X(FALSE), 1); // nothing to be shown again
    QVERIFY(!QGuiApplication::overrideCursor());
}

void tst_Cursors::showingIsCounted()
{
    ShowCursor_X(1);
    ShowCursor_X(-1);
    ShowCursor_X(0);
    QVERIFY(QGuiApplication::overrideCursor());
    ShowCursor_X(0);
    QVERIFY(!QGuiApplication::overrideCursor());
}

void tst_Cursors::clippingHasNoEffect()
{
    const tagRECT rect{0, 0, 5, 5};
    QCOMPARE(ClipCursor_X(&rect), 0);
    QCOMPARE(ClipCursor_X(nullptr), 0);
    SetCursorPos_X(50, 60);
    QCOMPARE(QCursor::pos(), QPoint(50, 60));
}

void tst_Cursors::place()
{
    QCOMPARE(SetCursorPos_X(120, 90), 1);
    QCOMPARE(QCursor::pos(), QPoint(120, 90));
    QCursor::setPos(33, 44);
    tagPOINT point{};
    QCOMPARE(GetCursorPos_X(&point), 1);
    QCOMPARE(QPoint(point.x, point.y), QPoint(33, 44));
    QCOMPARE(GetCursorPos_X(nullptr), 0);
}

void tst_Cursors::physicalPlace()
{
    const QWidget* const desktop = QApplication::desktop();
    QCOMPARE(SetPhysicalCursorPos_X(120, 90), 1);
    QCOMPARE(QCursor::pos(), desktop->mapToGlobal({120, 90}));
    QCursor::setPos(33, 44);
    tagPOINT point{};
    QCOMPARE(GetPhysicalCursorPos_X(&point), 1);
    QCOMPARE(QPoint(point.x, point.y), desktop->mapFromGlobal({33, 44}));
    QCOMPARE(GetPhysicalCursorPos_X(nullptr), 0);
}

void tst_Cursors::doubleClickTime()
{
    const int before = QApplication::doubleClickInterval();
    QCOMPARE(GetDoubleClickTime_X(), static_cast<UINT>(before));
    QCOMPARE(SetDoubleClickTime_X(777), 1);
    QCOMPARE(QApplication::doubleClickInterval(), 777);
    QCOMPARE(GetDoubleClickTime_X(), 777u);
    SetDoubleClickTime_X(static_cast<UINT>(before));
}

XE_TEST(tst_Cursors)
#include "tst_cursors.moc"
