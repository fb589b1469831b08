// Tool tip controls: tools, colours, the shared control.

#include "leavenothing.h"
#include "testclass.h"
#include "tooltip/tipowner.h"

#include <XeMFCEmu.h>

#include <QToolTip>

namespace {

CToolTipCtrl_X* shared() { return AfxGetModuleThreadState_X()->m_pToolTip; }

// What the shared control has under a name.
tagTOOLINFOW* sharedRecord(const wchar_t* name)
{
    void* record = nullptr;
    return shared() && shared()->tools.Lookup(name, record) ? static_cast<tagTOOLINFOW*>(record) : nullptr;
}

QString tipOf(const CToolTipCtrl_X& tips, QWidget* widget)
{
    CString_X text(L"before");
    tips.GetText(text, widget);
    return XeQString(text);
}

} // namespace

class tst_ToolTip : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_palette = QToolTip::palette(); }
    void cleanup()
    {
        QToolTip::setPalette(m_palette);
        QCOMPARE(LeaveNothing::leftovers(), QString());
    }

    void defaults();
    void createHidesItsWidget();
    void createNeedsAWindow();
    void createEntersTheSharedControl();
    void sharedRecordsGo();
    void ownerThatGoes();
    void addTool();
    void addToolNeedsWidgetAndText();
    void addToolByIdDoesNothing();
    void equalTextsShareAKey();
    void firstToolOfAWidgetCounts();
    void textIsNotCopied();
    void delTool();
    void toolsGoWithTheirWidget();
    void stubsChangeNothing();
    void bubbleSize();
    void hitTest_data();
    void hitTest();
    void delays();
    void colors();
    void withoutEffect();
    void windowFunctions();
    void endOfTheSharedControl();

private:
    QPalette m_palette;
};

void tst_ToolTip::defaults()
{
    const CToolTipCtrl_X tips;
    QCOMPARE(tips.active, BYTE(0));
    QCOMPARE(tips.delayTime, 1000);
    QCOMPARE(tips.style, 0u);
    QCOMPARE(tips.owner, nullptr);
    QCOMPARE(tips.GetToolCount(), 0);
    QCOMPARE(tips.lastMessage.hwnd, nullptr);
}

void tst_ToolTip::createHidesItsWidget()
{
    TipFixture f;
    QWidget* const widget = f.tips.GetSafeHwnd();
    QVERIFY(widget);
    QCOMPARE(widget->parentWidget(), &f.window);
    f.window.show();
    QVERIFY(widget->isHidden());
    QCOMPARE(f.tips.owner, &f.owner);
    CToolTipCtrl_X other;
    QCOMPARE(other.CreateEx(&f.owner, TTS_ALWAYSTIP, 0x20), TRUE);
    QCOMPARE(other.style, TTS_ALWAYSTIP);
    QCOMPARE(other.GetStyle(), 0u);
}

void tst_ToolTip::createNeedsAWindow()
{
    CToolTipCtrl_X tips;
    CWnd_X withoutWidget;
    QCOMPARE(tips.Create(static_cast<CWnd_X*>(nullptr)), FALSE);
    QCOMPARE(tips.Create(&withoutWidget), FALSE);
    QCOMPARE(tips.GetSafeHwnd(), nullptr);
    QCOMPARE(tips.owner, nullptr);
}

void tst_ToolTip::createEntersTheSharedControl()
{
    QWidget window;
    const QString name(2000, QLatin1Char('n')); // longer than any buffer
    window.setObjectName(name);
    CWnd_X owner;
    owner.SubclassWindow(&window);
    CToolTipCtrl_X tips;
    tips.Create(&owner);
    QVERIFY(shared() && shared() != &tips);
    const tagTOOLINFOW* const record = sharedRecord(CString_X(name));
    QVERIFY(record);
    QCOMPARE(record->cbSize, 8u);
    QCOMPARE(record->hwnd, &window);
    QCOMPARE(record->uId, reinterpret_cast<UINT_PTR>(&tips));

    CToolTipCtrl_X* const first = shared();
    TipFixture nameless;
    QCOMPARE(shared(), first); // one for all
    QCOMPARE(shared()->GetToolCount(), 1);
    QCOMPARE(tips.GetToolCount(), 0);
}

void tst_ToolTip::sharedRecordsGo()
{
    CToolTipCtrl_X early;
    {
        QWidget window;
        window.setObjectName(QStringLiteral("pane"));
        CWnd_X owner;
        owner.SubclassWindow(&window);
        early.Create(&owner);
        {
            CToolTipCtrl_X late;
            late.Create(&owner);
            QCOMPARE(sharedRecord(L"pane")->uId, reinterpret_cast<UINT_PTR>(&late));
        }
        QVERIFY(!sharedRecord(L"pane"));
        early.Create(&owner);
        QVERIFY(sharedRecord(L"pane"));
    }
    QVERIFY(!sharedRecord(L"pane")); // the window has gone
}

void tst_ToolTip::ownerThatGoes()
{
    QWidget window;
    QLineEdit field(&window);
    CToolTipCtrl_X tips;
    {
        CWnd_X owner;
        owner.SubclassWindow(&window);
        tips.Create(&owner);
        tips.AddTool(&field, L"one");
    }
    QCOMPARE(tips.owner, nullptr);
    tips.AddTool(&field, L"two");
    tips.DelTool(&field);
    QCOMPARE(tips.GetToolCount(), 1);
}

void tst_ToolTip::addTool()
{
    TipFixture f;
    const CRect rect(1, 2, 31, 22);
    QCOMPARE(f.tips.AddTool(f.name, L"Name of the part", rect, 7), TRUE);
    QVERIFY(f.name->hasMouseTracking());
    QCOMPARE(f.tips.GetToolCount(), 1);
    CToolInfo_X info{};
    QCOMPARE(f.tips.GetToolInfo(info, f.name, 99), TRUE); // the id does not count
    QCOMPARE(info.cbSize, 8u);
    QCOMPARE(info.hwnd, f.name);
    QCOMPARE(info.uId, UINT_PTR(7));
    QCOMPARE(CRect(info.rect), rect);
    QCOMPARE(std::wstring(info.lpszText), std::wstring(L"Name of the part"));
    QCOMPARE(tipOf(f.tips, f.name), QStringLiteral("Name of the part"));
    QCOMPARE(tipOf(f.tips, f.stock), QString());
    QCOMPARE(f.tips.GetToolInfo(info, f.stock), FALSE);
    QCOMPARE(f.tips.GetToolInfo(info, nullptr), FALSE);
    void* record = nullptr;
    QVERIFY(f.tips.tools.Lookup(L"Name of the part", record));
    QCOMPARE(static_cast<tagTOOLINFOW*>(record)->hwnd, f.name);

    CWnd_X wrapper;
    wrapper.SubclassWindow(f.stock);
    QCOMPARE(f.tips.AddTool(&wrapper, L"Pieces in stock"), TRUE);
    QCOMPARE(f.tips.GetToolInfo(info, f.stock), TRUE);
    QVERIFY(CRect(info.rect).IsRectNull());
}

void tst_ToolTip::addToolNeedsWidgetAndText()
{
    TipFixture f;
    QCOMPARE(f.tips.AddTool(static_cast<QWidget*>(nullptr), L"x"), FALSE);
    QCOMPARE(f.tips.AddTool(f.name, static_cast<const wchar_t*>(nullptr)), FALSE);
    QVERIFY(!f.name->hasMouseTracking() || QLineEdit().hasMouseTracking());
    QCOMPARE(f.tips.GetToolCount(), 0);
}

void tst_ToolTip::addToolByIdDoesNothing()
{
    TipFixture f;
    QWidget plain(&f.window);
    QCOMPARE(f.tips.AddTool(&plain, 17u), FALSE);
    QVERIFY(!plain.hasMouseTracking());
    QCOMPARE(f.tips.GetToolCount(), 0);
}

void tst_ToolTip::equalTextsShareAKey()
{
    TipFixture f;
    f.tips.AddTool(f.name, L"field");
    const std::wstring same = L"field";
    f.tips.AddTool(f.stock, same.c_str());
    QCOMPARE(f.tips.GetToolCount(), 1);
    CToolInfo_X info{};
    QCOMPARE(f.tips.GetToolInfo(info, f.name), FALSE);
    QCOMPARE(f.tips.GetToolInfo(info, f.stock), TRUE);
    f.tips.AddTool(f.stock, L"field", CRect(0, 0, 5, 6));
    QCOMPARE(f.tips.GetToolCount(), 1);
    QCOMPARE(f.tips.GetToolInfo(info, f.stock), TRUE);
    QCOMPARE(info.rect.right, 5);
}

void tst_ToolTip::firstToolOfAWidgetCounts()
{
    TipFixture f;
    f.tips.AddTool(f.name, L"z, the first");
    f.tips.AddTool(f.name, L"a, the second");
    QCOMPARE(f.tips.GetToolCount(), 2);
    QCOMPARE(tipOf(f.tips, f.name), QStringLiteral("z, the first"));
    f.tips.DelTool(f.name);
    QCOMPARE(tipOf(f.tips, f.name), QStringLiteral("a, the second"));
    f.tips.DelTool(f.name);
    QCOMPARE(f.tips.GetToolCount(), 0);
}

void tst_ToolTip::textIsNotCopied()
{
    TipFixture f;
    wchar_t text[] = L"100 pieces";
    f.tips.AddTool(f.name, text);
    text[0] = L'2';
    QCOMPARE(tipOf(f.tips, f.name), QStringLiteral("200 pieces"));
    f.tips.DelTool(f.name); // found by its old key
    QCOMPARE(f.tips.GetToolCount(), 0);
}

void tst_ToolTip::delTool()
{
    TipFixture f;
    f.tips.AddTool(f.name, L"one");
    f.tips.AddTool(f.stock, L"two");
    f.tips.DelTool(static_cast<QWidget*>(nullptr));
    f.tips.DelTool(&f.window);
    QCOMPARE(f.tips.GetToolCount(), 2);
    f.tips.DelTool(f.name, 5);
    QCOMPARE(f.tips.GetToolCount(), 1);
    QCOMPARE(tipOf(f.tips, f.stock), QStringLiteral("two"));
}

void tst_ToolTip::toolsGoWithTheirWidget()
{
    TipFixture f;
    f.tips.AddTool(f.stock, L"stock");
    {
        QLineEdit field(&f.window);
        f.tips.AddTool(&field, L"one");
        f.tips.AddTool(&field, L"two");
        f.tips.Activate(TRUE);
        tagMSG message = moveOver(&field);
        f.tips.RelayEvent(&message);
        QCOMPARE(f.tips.GetCurrentTool(nullptr), TRUE);
    }
    QCOMPARE(f.tips.GetToolCount(), 1);
    QCOMPARE(f.tips.GetCurrentTool(nullptr), FALSE);
    f.tips.Activate(FALSE);
}

void tst_ToolTip::stubsChangeNothing()
{
    TipFixture f;
    f.tips.AddTool(f.name, L"one");
    tagTOOLINFOW info{};
    info.hwnd = f.name;
    wchar_t other[] = L"other";
    info.lpszText = other;
    f.tips.SetToolInfo(&info);
    f.tips.SetToolRect(f.name, 0, CRect(1, 2, 3, 4));
    f.tips.UpdateTipText(L"other", f.name);
    f.tips.UpdateTipText(3u, f.name);
    QCOMPARE(tipOf(f.tips, f.name), QStringLiteral("one"));
    QCOMPARE(f.tips.GetBubbleSize(&info), CSize(0, 0));
}

void tst_ToolTip::bubbleSize()
{
    TipFixture f;
    f.tips.AddTool(f.name, L"one", CRect(10, 20, 110, 50));
    tagTOOLINFOW info{};
    info.hwnd = f.name;
    QCOMPARE(f.tips.GetBubbleSize(&info), CSize(100, 30));
    info.hwnd = f.stock;
    QCOMPARE(f.tips.GetBubbleSize(&info), CSize(0, 0));
    QCOMPARE(f.tips.GetBubbleSize(nullptr), CSize(0, 0));
}

void tst_ToolTip::hitTest_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("y");
    QTest::addColumn<BOOL>("hit");
    QTest::newRow("top left") << 0 << 0 << TRUE;
    QTest::newRow("last pixel") << 99 << 29 << TRUE;
    QTest::newRow("at the width") << 100 << 5 << FALSE;
    QTest::newRow("at the height") << 5 << 30 << FALSE;
    QTest::newRow("left of it") << -1 << 5 << FALSE;
}

void tst_ToolTip::hitTest()
{
    QFETCH(int, x);
    QFETCH(int, y);
    QFETCH(BOOL, hit);
    TipFixture f; // the field is 100 x 30
    f.tips.AddTool(f.name, L"one", CRect(0, 0, 1, 1), 7);
    tagTOOLINFOW info{};
    QCOMPARE(f.tips.HitTest(f.name, CPoint(x, y), &info), hit);
    QCOMPARE(info.uId, UINT_PTR(hit ? 7 : 0));
    QCOMPARE(f.tips.HitTest(f.name, CPoint(x, y), nullptr), hit);
    QCOMPARE(f.tips.HitTest(f.stock, CPoint(x, y), &info), FALSE);
}

void tst_ToolTip::delays()
{
    CToolTipCtrl_X tips;
    tips.SetDelayTime(TTDT_INITIAL, 250);
    QCOMPARE(tips.GetDelayTime(TTDT_AUTOPOP), 250);
    tips.SetDelayTime(400u);
    QCOMPARE(tips.GetDelayTime(TTDT_INITIAL), 400);
    QCOMPARE(tips.delayTime, 400);
}

void tst_ToolTip::colors()
{
    CToolTipCtrl_X tips;
    tips.SetTipBkColor(RGB(10, 20, 30));
    tips.SetTipTextColor(RGB(200, 100, 50));
    QCOMPARE(tips.GetTipBkColor(), RGB(10, 20, 30));
    QCOMPARE(tips.GetTipTextColor(), RGB(200, 100, 50));
    const QPalette palette = QToolTip::palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        QCOMPARE(palette.color(group, QPalette::Window), QColor(10, 20, 30));
        QCOMPARE(palette.color(group, QPalette::ToolTipBase), QColor(10, 20, 30)); // what Qt paints with
        QCOMPARE(palette.color(group, QPalette::Text), QColor(200, 100, 50));
        QCOMPARE(palette.color(group, QPalette::ToolTipText), QColor(200, 100, 50));
    }
    const CToolTipCtrl_X other;
    QCOMPARE(other.GetTipBkColor(), RGB(10, 20, 30)); // of all tips
}

void tst_ToolTip::withoutEffect()
{
    CToolTipCtrl_X tips;
    tagRECT rect{1, 2, 3, 4};
    wchar_t text[] = L"##";
    _TTGETTITLE title{sizeof title, 5, 2, text};
    tips.GetMargin(&rect);
    tips.SetMargin(&rect);
    tips.Popup();
    tips.GetTitle(&title);
    QCOMPARE(rect.right, 3);
    QCOMPARE(std::wstring(text), std::wstring(L"##"));
    QCOMPARE(tips.AdjustRect(&rect), FALSE);
    QCOMPARE(tips.SetTitle(1, L"x"), FALSE);
    QCOMPARE(tips.GetMaxTipWidth(), -1);
    QCOMPARE(tips.SetMaxTipWidth(100), -1);
    QCOMPARE(tips.SetWindowTheme(L"x"), -1);
}

void tst_ToolTip::windowFunctions()
{
    CWnd_X window;
    QCOMPARE(window.EnableToolTips(), FALSE);
    QWidget widget;
    window.SubclassWindow(&widget);
    QCOMPARE(window.EnableToolTips(), TRUE);
    QCOMPARE(window.EnableToolTips(FALSE), TRUE);
    CWnd_X::CancelToolTips();
    TipFixture f;
    CWnd_X::CancelToolTips(TRUE);
}

void tst_ToolTip::endOfTheSharedControl()
{
    QWidget window;
    window.setObjectName(QStringLiteral("pane"));
    CWnd_X owner;
    owner.SubclassWindow(&window);
    CToolTipCtrl_X tips;
    tips.Create(&owner);
    shared()->DestroyToolTipCtrl(); // deletes it
    QCOMPARE(shared(), nullptr);
    CWnd_X::CancelToolTips();
    CToolTipCtrl_X other;
    other.Create(&owner);
    QVERIFY(sharedRecord(L"pane"));

    AFX_MODULE_THREAD_STATE_X state;
    state.m_pToolTip = new CToolTipCtrl_X; // goes with the state
}

XE_TEST(tst_ToolTip)

#include "tst_tooltip.moc"
