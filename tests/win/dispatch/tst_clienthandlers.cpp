#include "handlerprobe.h"
#include "testclass.h"

#include <leavenothing.h>

// Handlers as clients write them: of narrower types, virtual, of a second base, and with a window for an argument.

Q_DECLARE_METATYPE(AFX_PMSG_X)

class tst_ClientHandlers : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void windowArguments();
    void wrapperIsMadeForTheSecondHandlerAlone();
    void narrowClientTypes_data();
    void narrowClientTypes();
    void absentEntry();
    void virtualHandler();
    void handlerOfSecondBase();
    void virtualHandlerOfSecondBase();
    void macroTakesHandlersOfASecondBase();
};

void tst_ClientHandlers::windowArguments()
{
    HandlerProbe probe;
    const Handlers pair = handlers<void(QWidget*), void(CWnd_X*)>();
    probe.AddMsgMapEntry(codedMessage, AfxSig_v_W_v, pair.first, pair.second);
    probe.OnWndMsg(codedMessage, 0, 0, nullptr);
    QCOMPARE(probe.calls(), QStringLiteral("first[@0] second[W(null)]"));
}

void tst_ClientHandlers::wrapperIsMadeForTheSecondHandlerAlone()
{
    QWidget widget;
    HandlerProbe probe;
    const auto address = reinterpret_cast<WPARAM>(&widget);
    const Handlers pair = handlers<void(QWidget*), void(CWnd_X*)>();

    probe.AddMsgMapEntry(codedMessage, AfxSig_v_W_v, pair.first, nullptr);
    probe.OnWndMsg(codedMessage, address, 0, nullptr);
    QVERIFY(!CWnd_X::FromHandlePermanent(&widget));

    probe.AddMsgMapEntry(codedMessage, AfxSig_v_W_v, pair.first, pair.second);
    probe.OnWndMsg(codedMessage, address, 0, nullptr);
    QVERIFY(CWnd_X::FromHandlePermanent(&widget));
    QVERIFY(CWnd_X::FromHandlePermanent(&widget)->IsTemporary());
}

// The types of the published handlers, where they are narrower than what the code hands over.
void tst_ClientHandlers::narrowClientTypes_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<AFX_PMSG_X>("handler");
    QTest::addColumn<QString>("call");

    const auto row = [](const char* name, int code, AFX_PMSG_X handler, const char* call) {
        QTest::newRow(name) << code << handler << QString::fromLatin1(call);
    };
    // wParam 0xF1E2D3C4B5A69788, lParam 0x8F9EADBCCBDAE9F8
    row("UINT for all of wParam", 54, handlers<void(UINT, CPoint)>().first, "first[3047593864, (-5640 -13350)]");
    row("int for all of wParam", 46, handlers<void(int, UINT)>().first, "first[-1247373432, 3420121592]");
    row("BOOL for low 32 bits of wParam", 20, handlers<void(BOOL)>().first, "first[-1247373432]");
    row("DWORD for low 32 bits of lParam", 22, handlers<void(BOOL, DWORD)>().first, "first[-1247373432, 3420121592]");
    row("int for an unsigned word", 24, handlers<void(int, int)>().first, "first[59896, 52186]");
    row("short for a signed word", 44, handlers<void(short, int)>().first, "first[-26744, -19034]");
    row("UINT for a signed word", 44, handlers<void(UINT, UINT)>().first, "first[4294940552, 4294948262]");
    row("fewer arguments than are given", 25, handlers<void(UINT)>().first, "first[3047593864]");
}

void tst_ClientHandlers::narrowClientTypes()
{
    QFETCH(int, code);
    QFETCH(AFX_PMSG_X, handler);
    QFETCH(QString, call);
    HandlerProbe probe;
    probe.AddMsgMapEntry(codedMessage, static_cast<unsigned long>(code), handler, nullptr);
    probe.OnWndMsg(codedMessage, 0xF1E2D3C4B5A69788, signed64(0x8F9EADBCCBDAE9F8), nullptr);
    QCOMPARE(probe.calls(), call);
}

void tst_ClientHandlers::absentEntry()
{
    HandlerProbe probe;
    QCOMPARE(dispatch(probe, 1, 2), QStringLiteral("passed up"));
    QCOMPARE(probe.OnWndMsg(codedMessage, 1, 2, nullptr), 0);
}

namespace {

class CGauge : public CWnd_X
{
public:
    virtual LRESULT onProbed(WPARAM wParam, LPARAM lParam) { return static_cast<LRESULT>(wParam) + lParam; }
};

class CFineGauge : public CGauge
{
public:
    LRESULT onProbed(WPARAM wParam, LPARAM lParam) override { return 100 * CGauge::onProbed(wParam, lParam); }
};

struct Scale
{
    virtual ~Scale() = default;
    LRESULT onScaled(WPARAM wParam, LPARAM) { return factor * static_cast<LRESULT>(wParam); }
    virtual LRESULT onScaledVirtually(WPARAM wParam, LPARAM) { return factor * static_cast<LRESULT>(wParam); }

    LRESULT factor = 3;
};

class CScaledGauge : public CGauge, public Scale
{
public:
    LRESULT onScaledVirtually(WPARAM wParam, LPARAM lParam) override
    {
        return -Scale::onScaledVirtually(wParam, lParam);
    }

    DECLARE_MESSAGE_MAP_X()
};

BEGIN_MESSAGE_MAP_X(CScaledGauge, CGauge)
    ON_MESSAGE_X(WM_USER + 1, onScaled)
    ON_MESSAGE_X(WM_USER + 2, onScaledVirtually)
END_MESSAGE_MAP_X()

// As a client writes it that has no macro for the purpose.
template <class Class>
AFX_PMSG_X rawHandler(LRESULT (Class::*handler)(WPARAM, LPARAM))
{
    return XeHandler<LRESULT(WPARAM, LPARAM)>::of(handler);
}

} // namespace

void tst_ClientHandlers::virtualHandler()
{
    CGauge coarse;
    CFineGauge fine;
    for (CWnd_X* window : {static_cast<CWnd_X*>(&coarse), static_cast<CWnd_X*>(&fine)})
        window->AddMsgMapEntry(codedMessage, AfxSig_l_w_l, rawHandler(&CGauge::onProbed), nullptr);
    QCOMPARE(dispatch(coarse, 4, 5), QStringLiteral("handled 9"));
    QCOMPARE(dispatch(fine, 4, 5), QStringLiteral("handled 900"));
}

void tst_ClientHandlers::handlerOfSecondBase()
{
    CScaledGauge gauge;
    gauge.factor = 7;
    gauge.AddMsgMapEntry(codedMessage, AfxSig_l_w_l, rawHandler<CScaledGauge>(&CScaledGauge::onScaled), nullptr);
    QCOMPARE(dispatch(gauge, 6, 0), QStringLiteral("handled 42"));
}

void tst_ClientHandlers::virtualHandlerOfSecondBase()
{
    CScaledGauge gauge;
    gauge.factor = 7;
    // Named through the base, so that the call goes through the base's own table.
    const auto named = static_cast<LRESULT (CScaledGauge::*)(WPARAM, LPARAM)>(&Scale::onScaledVirtually);
    gauge.AddMsgMapEntry(codedMessage, AfxSig_l_w_l, rawHandler(named), nullptr);
    QCOMPARE(dispatch(gauge, 6, 0), QStringLiteral("handled -42"));
}

void tst_ClientHandlers::macroTakesHandlersOfASecondBase()
{
    QWidget widget;
    CScaledGauge gauge;
    gauge.factor = 7;
    QCOMPARE(gauge.SubclassWindow(&widget), 1);
    QCOMPARE(gauge.SendMessage(WM_USER + 1, 6), 42LL);
    QCOMPARE(gauge.SendMessage(WM_USER + 2, 6), -42LL);
}

XE_TEST(tst_ClientHandlers)
#include "tst_clienthandlers.moc"
