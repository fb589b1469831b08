// Tool tips: what a window sees of the widgets that it has tips for, and what is shown.

#include "leavenothing.h"
#include "testclass.h"
#include "tooltip/tipowner.h"

#include <XeMFCEmu.h>

#include <QListWidget>
#include <QSignalSpy>
#include <QToolTip>
#include <QVBoxLayout>

Q_DECLARE_METATYPE(UINT)

namespace {

/// Counts the changes of a widget's tip.
class TipWatch : public QObject
{
public:
    explicit TipWatch(QWidget* widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        changes += event->type() == QEvent::ToolTipChange;
        return false;
    }
    int changes = 0;
};

// The platform of the tests puts no window in front.
void showTip(QWidget& window, const char* text)
{
    QTest::ignoreMessage(QtWarningMsg, "This plugin does not support raise()");
    QToolTip::showText(window.mapToGlobal({5, 5}), QLatin1String(text), &window);
}

// A field of its own with its own handler.
class CField : public CWnd_X
{
public:
    void OnMessageMap() override
    {
        using ThisClass = CField;
        CWnd_X::OnMessageMap();
        ON_WM_LBUTTONDOWN_X()
        ON_WM_CHAR_X()
    }
    void OnLButtonDown(UINT flags, CPoint point)
    {
        ++presses;
        CWnd_X::OnLButtonDown(flags, point);
    }
    void OnChar(UINT, UINT, UINT) { ++characters; }
    int presses = 0;
    int characters = 0;
};

} // namespace

class tst_TipRelay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_palette = QToolTip::palette(); }
    void cleanup()
    {
        QToolTip::hideText();
        QTRY_VERIFY(!QToolTip::isVisible());
        QToolTip::setPalette(m_palette);
        QCOMPARE(LeaveNothing::leftovers(), QString());
    }

    void relays_data();
    void relays();
    void relayGivesTipAndDuration();
    void relaySetsATipOnce();
    void relayComparesAnyText_data();
    void relayComparesAnyText();
    void relayOfAChangedText();
    void relayOfOtherObjects();
    void inactiveHides();
    void activateFalseTakesTipsBack();
    void delToolTakesTheTipBack();
    void update();
    void updateWithoutTool();
    void pop();
    void ownerSeesTheToolsMessages();
    void ownersHandlersAreNotCalled();
    void ownerMayStopTheToolsMessages();
    void scrollAreas();
    void ownersOwnWidget();
    void filterGoesWithTheLastTool();
    void twoControlsOfOneOwner();
    void wrappedToolGetsItsOwnMessagesOnce();
    void keysOfToolsInAnEmbeddedDialog();

private:
    QPalette m_palette;
};

void tst_TipRelay::relays_data()
{
    QTest::addColumn<UINT>("message");
    QTest::addColumn<bool>("relayed");
    QTest::newRow("move") << 0x200u << true;
    QTest::newRow("left down") << 0x201u << true;
    QTest::newRow("left up") << 0x202u << true;
    QTest::newRow("left double click") << 0x203u << false;
    QTest::newRow("right down") << 0x204u << true;
    QTest::newRow("right up") << 0x205u << true;
    QTest::newRow("right double click") << 0x206u << false;
    QTest::newRow("middle down") << 0x207u << false;
    QTest::newRow("middle up") << 0x208u << true;
    QTest::newRow("wheel") << 0x20Au << false;
    QTest::newRow("key") << 0x100u << false;
}

void tst_TipRelay::relays()
{
    QFETCH(UINT, message);
    QFETCH(bool, relayed);
    TipFixture f;
    f.tips.AddTool(f.name, L"tip");
    f.tips.Activate(TRUE);
    tagMSG one = moveOver(f.name);
    one.message = message;
    f.tips.RelayEvent(&one);
    QCOMPARE(f.name->toolTip(), relayed ? QStringLiteral("tip") : QString());
    QCOMPARE(f.tips.lastMessage.message, relayed ? message : 0u);
}

void tst_TipRelay::relayGivesTipAndDuration()
{
    TipFixture f;
    f.tips.AddTool(f.name, L"Name of the part");
    f.tips.Activate(TRUE);
    tagMSG message = moveOver(f.name);
    message.pt = {7, 8};
    f.tips.RelayEvent(&message);
    QCOMPARE(f.name->toolTip(), QStringLiteral("Name of the part"));
    QCOMPARE(f.name->toolTipDuration(), 1'700'000'000); // a time for a span
    QCOMPARE(f.tips.lastMessage.hwnd, f.name);
    QCOMPARE(f.tips.lastMessage.pt.y, 8);
    tagTOOLINFOW info{};
    QCOMPARE(f.tips.GetCurrentTool(&info), TRUE);
    QCOMPARE(info.hwnd, f.name);
}

void tst_TipRelay::relaySetsATipOnce()
{
    TipFixture f;
    f.tips.AddTool(f.name, L"tip");
    f.tips.Activate(TRUE);
    TipWatch watch(f.name);
    tagMSG message = moveOver(f.name);
    for (int i = 0; i < 5; ++i)
        f.tips.RelayEvent(&message);
    QCOMPARE(watch.changes, 1);
}

void tst_TipRelay::relayComparesAnyText_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("latin") << QStringLiteral("tip");
    QTest::newRow("wide") << QStringLiteral("世界 €");
    QTest::newRow("beyond the BMP") << QStringLiteral("a 😀 b 😁");
}

void tst_TipRelay::relayComparesAnyText()
{
    QFETCH(QString, text);
    TipFixture f;
    const CString_X wide(text);
    f.tips.AddTool(f.name, wide);
    f.tips.Activate(TRUE);
    tagMSG message = moveOver(f.name);
    f.tips.RelayEvent(&message);
    QCOMPARE(f.name->toolTip(), text);
    TipWatch watch(f.name);
    f.tips.RelayEvent(&message);
    QCOMPARE(watch.changes, 0);
    for (const QString& other : {text + QLatin1Char('x'), text.left(text.size() - 1), QStringLiteral("x") + text}) {
        if (other == text)
            continue;
        f.name->setToolTip(other);
        f.tips.RelayEvent(&message);
        QCOMPARE(f.name->toolTip(), text);
    }
}

void tst_TipRelay::relayOfAChangedText()
{
    TipFixture f;
    wchar_t text[] = L"100 pieces";
    f.tips.AddTool(f.name, text);
    f.tips.Activate(TRUE);
    tagMSG message = moveOver(f.name);
    f.tips.RelayEvent(&message);
    text[0] = L'2';
    f.tips.RelayEvent(&message);
    QCOMPARE(f.name->toolTip(), QStringLiteral("200 pieces"));
}

void tst_TipRelay::relayOfOtherObjects()
{
    TipFixture f;
    f.tips.AddTool(f.name, L"tip");
    f.tips.Activate(TRUE);
    QObject object;
    for (QObject* from : {static_cast<QObject*>(f.stock), &object, static_cast<QObject*>(nullptr)}) {
        tagMSG message = moveOver(from);
        f.tips.RelayEvent(&message);
    }
    f.tips.RelayEvent(nullptr);
    QCOMPARE(f.tips.lastMessage.hwnd, nullptr);
    QCOMPARE(f.stock->toolTip(), QString());
}

void tst_TipRelay::inactiveHides()
{
    TipFixture f;
    f.tips.AddTool(f.name, L"tip");
    f.window.show();
    showTip(f.window, "some other");
    QVERIFY(QToolTip::isVisible());
    tagMSG message = moveOver(f.stock); // whatever the widget
    f.tips.RelayEvent(&message);
    QTRY_VERIFY(!QToolTip::isVisible());
    message = moveOver(f.name);
    f.tips.RelayEvent(&message);
    QCOMPARE(f.name->toolTip(), QString());
}

void tst_TipRelay::activateFalseTakesTipsBack()
{
    TipFixture f;
    f.tips.AddTool(f.name, L"one");
    f.tips.AddTool(f.stock, L"two");
    f.tips.Activate(TRUE);
    tagMSG message = moveOver(f.name);
    f.tips.RelayEvent(&message);
    f.stock->setToolTip(QStringLiteral("the host's own"));
    f.tips.Activate(FALSE);
    QCOMPARE(f.name->toolTip(), QString());
    QCOMPARE(f.name->toolTipDuration(), -1);
    QCOMPARE(f.stock->toolTip(), QStringLiteral("the host's own"));
}

void tst_TipRelay::delToolTakesTheTipBack()
{
    TipFixture f;
    f.tips.AddTool(f.name, L"one");
    f.tips.Activate(TRUE);
    tagMSG message = moveOver(f.name);
    f.tips.RelayEvent(&message);
    f.tips.DelTool(f.name);
    QCOMPARE(f.name->toolTip(), QString());
}

void tst_TipRelay::update()
{
    TipFixture f;
    f.window.show();
    f.tips.AddTool(f.name, L"shown at once");
    f.tips.Activate(TRUE);
    tagMSG message = moveOver(f.name);
    const QPoint place = f.name->mapToGlobal(QPoint(5, 5));
    message.pt = {place.x(), place.y()};
    f.tips.RelayEvent(&message);
    QVERIFY(!QToolTip::isVisible());
    QTest::ignoreMessage(QtWarningMsg, "This plugin does not support raise()");
    f.tips.Update();
    QVERIFY(QToolTip::isVisible());
    QCOMPARE(QToolTip::text(), QStringLiteral("shown at once"));
    QCOMPARE(f.tips.GetTipBkColor(), RGB(255, 255, 255));
    QCOMPARE(f.tips.GetTipTextColor(), RGB(0, 0, 0));
    QCOMPARE(QToolTip::palette().color(QPalette::Disabled, QPalette::ToolTipBase), QColor(Qt::white));
}

void tst_TipRelay::updateWithoutTool()
{
    TipFixture f;
    f.window.show();
    f.tips.AddTool(f.name, L"tip");
    f.tips.Activate(TRUE);
    f.tips.Update(); // nothing has been relayed
    QVERIFY(!QToolTip::isVisible());
    tagMSG message = moveOver(f.name);
    f.tips.RelayEvent(&message);
    f.tips.Activate(FALSE);
    f.tips.Update();
    QVERIFY(!QToolTip::isVisible());
}

void tst_TipRelay::pop()
{
    TipFixture f;
    f.window.show();
    showTip(f.window, "tip");
    f.tips.Pop();
    QTRY_VERIFY(!QToolTip::isVisible());
    showTip(f.window, "tip");
    CWnd_X::CancelToolTips();
    QTRY_VERIFY(!QToolTip::isVisible());
    showTip(f.window, "tip");
    f.owner.EnableToolTips(TRUE);
    QVERIFY(QToolTip::isVisible());
    f.owner.EnableToolTips(FALSE);
    QTRY_VERIFY(!QToolTip::isVisible());
}

void tst_TipRelay::ownerSeesTheToolsMessages()
{
    TipFixture f;
    f.tips.AddTool(f.name, L"tip");
    f.tips.Activate(TRUE);
    f.window.show();
    QTest::mouseMove(f.name, QPoint(20, 10));
    QCOMPARE(f.owner.count(f.name, WM_MOUSEMOVE), 1);
    QCOMPARE(f.name->toolTip(), QStringLiteral("tip")); // nothing else was needed
    const auto& last = f.owner.seen.last();
    QVERIFY(last.time > 1'600'000'000); // stamped
    QTest::keyClick(f.name, Qt::Key_A);
    QCOMPARE(f.owner.count(f.name, WM_KEYDOWN), 1);
    QCOMPARE(f.name->text(), QStringLiteral("a"));
    QTest::mouseMove(f.stock, QPoint(20, 10));
    QCOMPARE(f.owner.count(f.stock, WM_MOUSEMOVE), 0); // no tool
}

void tst_TipRelay::ownersHandlersAreNotCalled()
{
    TipFixture f;
    f.tips.AddTool(f.name, L"tip");
    f.window.show();
    QCoreApplication::processEvents();
    f.owner.paints = 0;
    f.owner.seen.clear();
    f.name->repaint();
    QTest::mouseClick(f.name, Qt::LeftButton, {}, QPoint(20, 10));
    QCOMPARE(f.owner.presses, 0);
    QCOMPARE(f.owner.paints, f.owner.count(&f.window, WM_PAINT));
    QVERIFY(f.owner.count(f.name, WM_PAINT) >= 1);
    QVERIFY(f.name->hasFocus()); // the press has reached the field
    QVERIFY(f.owner.count(f.name, WM_LBUTTONDOWN) == 1);
}

void tst_TipRelay::ownerMayStopTheToolsMessages()
{
    TipFixture f;
    f.tips.AddTool(f.name, L"tip");
    f.window.show();
    f.stock->setFocus();
    f.owner.stops = true;
    QTest::mouseClick(f.name, Qt::LeftButton, {}, QPoint(20, 10));
    QVERIFY(f.owner.count(f.name, WM_LBUTTONDOWN) == 1);
    QCOMPARE(f.name->cursorPosition(), 0);
}

void tst_TipRelay::scrollAreas()
{
    TipFixture f;
    QListWidget list(&f.window);
    list.setGeometry(150, 10, 100, 100);
    list.addItem(QStringLiteral("one"));
    f.tips.AddTool(&list, L"tip of the list");
    f.tips.Activate(TRUE);
    f.window.show();
    QVERIFY(list.viewport()->hasMouseTracking());
    QTest::mouseMove(list.viewport(), QPoint(30, 30));
    QCOMPARE(list.toolTip(), QStringLiteral("tip of the list"));
    QVERIFY(f.owner.count(&list, WM_MOUSEMOVE) >= 1);
    QCOMPARE(f.owner.count(list.viewport(), WM_MOUSEMOVE), 0);
    f.owner.seen.clear();
    list.viewport()->repaint();
    QCOMPARE(f.owner.count(&list, WM_PAINT), 0); // its own affair
    f.tips.DelTool(&list);
    f.owner.seen.clear();
    QTest::mouseMove(list.viewport(), QPoint(35, 30));
    QCOMPARE(f.owner.count(&list, WM_MOUSEMOVE), 0);
}

void tst_TipRelay::ownersOwnWidget()
{
    TipFixture f;
    f.tips.AddTool(&f.window, L"the window");
    f.tips.Activate(TRUE);
    f.window.show();
    QTest::mouseClick(&f.window, Qt::LeftButton, {}, QPoint(250, 150));
    QCOMPARE(f.owner.presses, 1); // its handlers work as ever
    QCOMPARE(f.owner.count(&f.window, WM_LBUTTONDOWN), 1);
    QCOMPARE(f.window.toolTip(), QStringLiteral("the window"));
    f.tips.DelTool(&f.window);
    QTest::mouseClick(&f.window, Qt::LeftButton, {}, QPoint(250, 150));
    QCOMPARE(f.owner.presses, 2);
}

void tst_TipRelay::filterGoesWithTheLastTool()
{
    TipFixture f;
    f.tips.AddTool(f.name, L"one");
    f.tips.AddTool(f.name, L"two");
    f.window.show();
    f.tips.DelTool(f.name);
    QTest::mouseMove(f.name, QPoint(20, 10));
    QCOMPARE(f.owner.count(f.name, WM_MOUSEMOVE), 1);
    f.tips.DelTool(f.name);
    QTest::mouseMove(f.name, QPoint(22, 10));
    QCOMPARE(f.owner.count(f.name, WM_MOUSEMOVE), 1);
    f.tips.AddTool(f.stock, L"one"); // a key in use elsewhere moves on
    f.tips.AddTool(f.name, L"one");
    QTest::mouseMove(f.stock, QPoint(22, 10));
    QCOMPARE(f.owner.count(f.stock, WM_MOUSEMOVE), 0);
}

void tst_TipRelay::twoControlsOfOneOwner()
{
    TipFixture f;
    f.tips.AddTool(f.name, L"one");
    f.window.show();
    {
        CToolTipCtrl_X other;
        other.Create(&f.owner);
        other.AddTool(f.name, L"two");
        QTest::mouseMove(f.name, QPoint(20, 10));
        QCOMPARE(f.owner.count(f.name, WM_MOUSEMOVE), 1); // one filter
        f.tips.DelTool(f.name);
        QTest::mouseMove(f.name, QPoint(22, 10));
        QCOMPARE(f.owner.count(f.name, WM_MOUSEMOVE), 2);
    }
    QTest::mouseMove(f.name, QPoint(24, 10));
    QCOMPARE(f.owner.count(f.name, WM_MOUSEMOVE), 2);
}

void tst_TipRelay::wrappedToolGetsItsOwnMessagesOnce()
{
    TipFixture f;
    CField field;
    field.SubclassWindow(f.name);
    f.tips.AddTool(&field, L"tip");
    f.window.show();
    QTest::mouseClick(f.name, Qt::LeftButton, {}, QPoint(20, 10));
    QCOMPARE(field.presses, 1);
    QTest::keyClick(f.name, Qt::Key_A);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(field.characters, 1); // posted by the field's wrapper alone
}

// A dialog inside a window lets keys that nobody takes go on to that; its tools' keys are theirs.
void tst_TipRelay::keysOfToolsInAnEmbeddedDialog()
{
    QWidget outer;
    CWnd_X pane;
    pane.SubclassWindow(&outer);
    CDialog_X dialog;
    dialog.Create(0u, &pane);
    auto* const field = new QLineEdit(dialog.GetSafeHwnd());
    CToolTipCtrl_X tips;
    tips.Create(&dialog);
    tips.AddTool(field, L"tip");
    QKeyEvent key(QEvent::KeyPress, Qt::Key_F9, Qt::NoModifier);
    key.setAccepted(true);
    dialog.eventFilter(field, &key);
    QVERIFY(key.isAccepted());
}

XE_TEST(tst_TipRelay)

#include "tst_tiprelay.moc"
