#include "leavenothing.h"
#include "testclass.h"

#include <xeafxframe.h>

namespace {

const CRect place(20, 30, 120, 90);

/// The host's main window, by its class and its name.
class CTavoMainFrame : public QWidget
{
    Q_OBJECT

public:
    CTavoMainFrame() { setObjectName(QStringLiteral("CTavoMainFrame")); }
};

/// A host's frame, which looks at what the library leaves alone.
class TitledFrame : public CFrameWnd_X
{
public:
    int Create(const wchar_t* className, const wchar_t* title, unsigned style, const tagRECT& rect, CWnd_X* parent,
               ...) override
    {
        m_title = title;
        return CFrameWnd_X::Create(className, title, style, rect, parent);
    }

    CString_X m_title;
};

} // namespace

Q_DECLARE_METATYPE(CRuntimeClass_X*)

class tst_Frames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void cleanupTestCase() { m_parent.Detach(); }

    void aFrameIsAWindowInItsPlace();
    void aMiniFrameTakesTheExtendedStyle();
    void aMiniFrameIsHiddenWhateverItsStyle();
    void aFrameNeedsAParent();
    void aParentWithoutAWidgetStandsForTheMainWindow();
    void aHostOverridesCreate();
    void theOtherFormsOfCreateAreThere();

    void classes_data();
    void classes();
    void aPlainWidgetIsNoFrame();

private:
    QWidget m_widget;
    CWnd_X m_parent;
};

void tst_Frames::initTestCase()
{
    m_parent.SubclassWindow(&m_widget);
    m_widget.resize(200, 200);
    m_widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&m_widget));
}

void tst_Frames::cleanup() { QCOMPARE(LeaveNothing::leftovers(), QStringLiteral("window QWidget ''")); } // m_widget

void tst_Frames::aFrameIsAWindowInItsPlace()
{
    CFrameWnd_X frame;
    QCOMPARE(frame.Create(L"class", L"title", WS_VISIBLE, place, &m_parent), 1);
    QCOMPARE(frame.GetSafeHwnd()->parentWidget(), &m_widget);
    QCOMPARE(frame.GetSafeHwnd()->geometry(), QRect(20, 30, 100, 60));
    QCOMPARE(frame.GetSafeHwnd()->windowTitle(), QString());
    QVERIFY(frame.IsWindowVisible());
    QCOMPARE(frame.GetStyle(), WS_VISIBLE);

    CFrameWnd_X second;
    QCOMPARE(second.Create(nullptr, nullptr, 0, place, &m_parent, 1, 2.5, "never read"), 1);
    QVERIFY(!second.IsWindowVisible());
    frame.DestroyWindow();
    second.DestroyWindow();
}

void tst_Frames::aMiniFrameTakesTheExtendedStyle()
{
    CMiniFrameWnd_X frame;
    QCOMPARE(frame.CreateEx(WS_VISIBLE, L"class", L"title", WS_VSCROLL, place, &m_parent), 1);
    QVERIFY(frame.IsWindowVisible());
    QCOMPARE(frame.GetStyle(), WS_VISIBLE);
    QVERIFY(!frame.GetScrollBarCtrl(SB_VERT));
    QCOMPARE(frame.GetSafeHwnd()->geometry(), QRect(20, 30, 100, 60));
    QVERIFY(!frame.GetSafeHwnd()->isWindow());
    frame.DestroyWindow();
}

void tst_Frames::aMiniFrameIsHiddenWhateverItsStyle()
{
    CMiniDockFrameWnd_X frame;
    CFrameWnd_X& base = frame;
    QCOMPARE(base.Create(L"class", L"title", WS_VISIBLE, place, &m_parent), 1);
    QVERIFY(!frame.IsWindowVisible());
    QCOMPARE(frame.GetStyle(), 0u);
    frame.ShowWindow(SW_SHOW);
    QVERIFY(frame.IsWindowVisible());
    frame.DestroyWindow();
}

void tst_Frames::aFrameNeedsAParent()
{
    CFrameWnd_X frame;
    CMiniFrameWnd_X miniFrame;
    QCOMPARE(frame.Create(L"class", L"title", WS_VISIBLE, place, nullptr), 0);
    QCOMPARE(miniFrame.Create(L"class", L"title", WS_VISIBLE, place, nullptr), 0);
    QCOMPARE(miniFrame.CreateEx(0, L"class", L"title", WS_VISIBLE, place, nullptr), 0);
    QCOMPARE(frame.GetSafeHwnd(), nullptr);
    QCOMPARE(miniFrame.GetSafeHwnd(), nullptr);
}

void tst_Frames::aParentWithoutAWidgetStandsForTheMainWindow()
{
    CTavoMainFrame mainFrame;
    CWnd_X empty;
    CFrameWnd_X frame;
    QCOMPARE(frame.Create(L"class", L"title", 0, place, &empty), 1);
    QCOMPARE(frame.GetSafeHwnd()->parentWidget(), &mainFrame);
    frame.DestroyWindow();
}

void tst_Frames::aHostOverridesCreate()
{
    TitledFrame frame;
    CFrameWnd_X& base = frame;
    QCOMPARE(base.Create(L"class", L"title", 0, place, &m_parent), 1);
    QVERIFY(frame.m_title == L"title");
    frame.DestroyWindow();
}

void tst_Frames::theOtherFormsOfCreateAreThere()
{
    CFrameWnd_X frame;
    QCOMPARE(frame.Create(0, place, &m_parent), 1);
    frame.DestroyWindow();
    CMiniFrameWnd_X miniFrame;
    QCOMPARE(miniFrame.Create(&m_widget), 1);
    miniFrame.DestroyWindow();
}

void tst_Frames::classes_data()
{
    QTest::addColumn<CRuntimeClass_X*>("record");
    QTest::addColumn<CRuntimeClass_X*>("base");
    QTest::newRow("CFrameWnd_X") << RUNTIME_CLASS_X(CFrameWnd_X) << RUNTIME_CLASS_X(CWnd_X);
    QTest::newRow("CMiniFrameWnd_X") << RUNTIME_CLASS_X(CMiniFrameWnd_X) << RUNTIME_CLASS_X(CFrameWnd_X);
    QTest::newRow("CMiniDockFrameWnd_X") << RUNTIME_CLASS_X(CMiniDockFrameWnd_X) << RUNTIME_CLASS_X(CMiniFrameWnd_X);
    QTest::newRow("CSplitterWnd_X") << RUNTIME_CLASS_X(CSplitterWnd_X) << RUNTIME_CLASS_X(CWnd_X);
    QTest::newRow("CSplitterWndEx_X") << RUNTIME_CLASS_X(CSplitterWndEx_X) << RUNTIME_CLASS_X(CSplitterWnd_X);
}

void tst_Frames::classes()
{
    QFETCH(CRuntimeClass_X*, record);
    QFETCH(CRuntimeClass_X*, base);
    const std::unique_ptr<CObject_X> object(record->CreateObject());
    QCOMPARE(object->GetRuntimeClass(), record);
    QCOMPARE(object->GetClassName(), QTest::currentDataTag());
    QVERIFY(object->IsKindOf(base));
    QVERIFY(record->IsDerivedFrom(base));
    QVERIFY(!base->IsDerivedFrom(record));
}

void tst_Frames::aPlainWidgetIsNoFrame()
{
    QWidget widget;
    QCOMPARE(CWnd_X::FromHandle(&widget)->GetRuntimeClass(), RUNTIME_CLASS_X(CWnd_X));
}

XE_TEST(tst_Frames)
#include "tst_frames.moc"
