#include "win/signatures.h"

#include "win/dispatchframe.h"

#include <QPointer>

#include <array>
#include <type_traits>

// A handler is called through the function type that its signature code stands for, which agrees with its own type in
// the registers that the arguments travel in, not to the letter: one code serves UINT, int and BOOL, or any pointer.

namespace {

using xe::DispatchFrame;

// ---- What an argument is made of. `second` differs where the second handler takes a CWnd_X* for a QWidget*.

template <class T, T (*unpack)(WPARAM, LPARAM)>
struct Argument
{
    using First = T;
    using Second = T;
    static First first(WPARAM p, LPARAM l) { return unpack(p, l); }
    static Second second(WPARAM p, LPARAM l) { return unpack(p, l); }
};

template <class T, T (*unpack)(WPARAM, LPARAM)>
struct WindowArgument
{
    using First = QWidget*;
    using Second = CWnd_X*;
    static First first(WPARAM p, LPARAM l) { return reinterpret_cast<QWidget*>(unpack(p, l)); }
    static Second second(WPARAM p, LPARAM l) { return CWnd_X::FromHandle(first(p, l)); }
};

WPARAM wholeW(WPARAM p, LPARAM) { return p; }
LPARAM wholeL(WPARAM, LPARAM l) { return l; }
UINT low32OfW(WPARAM p, LPARAM) { return static_cast<UINT>(p); }
UINT low32OfL(WPARAM, LPARAM l) { return static_cast<UINT>(l); }
UINT low8OfW(WPARAM p, LPARAM) { return static_cast<UINT>(p & 0xFF); }
UINT lowOfW(WPARAM p, LPARAM) { return static_cast<UINT>(p & 0xFFFF); }
UINT highOfW(WPARAM p, LPARAM) { return static_cast<UINT>((p >> 16) & 0xFFFF); }
UINT lowOfL(WPARAM, LPARAM l) { return static_cast<UINT>(l & 0xFFFF); }
UINT highOfL(WPARAM, LPARAM l) { return static_cast<UINT>((l >> 16) & 0xFFFF); }
UINT high12OfL(WPARAM p, LPARAM l) { return highOfL(p, l) & 0x0FFF; }
UINT deviceOfL(WPARAM p, LPARAM l) { return highOfL(p, l) & 0xF000; }
short signedLowOfW(WPARAM p, LPARAM l) { return static_cast<short>(lowOfW(p, l)); }
short signedHighOfW(WPARAM p, LPARAM l) { return static_cast<short>(highOfW(p, l)); }
int extendedLowOfW(WPARAM p, LPARAM l) { return signedLowOfW(p, l); }
int extendedHighOfW(WPARAM p, LPARAM l) { return signedHighOfW(p, l); }

CPoint signedPoint(WPARAM p, LPARAM l) { return {static_cast<short>(lowOfL(p, l)), static_cast<short>(highOfL(p, l))}; }

CPoint unsignedPoint(WPARAM p, LPARAM l) { return {static_cast<int>(lowOfL(p, l)), static_cast<int>(highOfL(p, l))}; }

// Short names, so that the table below reads as one.
using P = Argument<WPARAM, wholeW>;
using L = Argument<LPARAM, wholeL>;
using P32 = Argument<UINT, low32OfW>;
using L32 = Argument<UINT, low32OfL>;
using P8 = Argument<UINT, low8OfW>;
using PL = Argument<UINT, lowOfW>;
using PH = Argument<UINT, highOfW>;
using LL = Argument<UINT, lowOfL>;
using LH = Argument<UINT, highOfL>;
using LH12 = Argument<UINT, high12OfL>;
using LHDevice = Argument<UINT, deviceOfL>;
using sPL = Argument<int, extendedLowOfW>;
using sPH = Argument<int, extendedHighOfW>;
using Wheel = Argument<short, signedHighOfW>;
using pt = Argument<CPoint, signedPoint>;
using upt = Argument<CPoint, unsignedPoint>;
using WndP = WindowArgument<WPARAM, wholeW>;
using WndL = WindowArgument<LPARAM, wholeL>;

static_assert(sizeof(CPoint) == 8 && std::is_trivially_copyable_v<CPoint>, "a point travels in one register");

// ---- What becomes of a handler's result.

enum class Verdict { Store, PassUpIfZero, PassUpUnlessZero };

template <class T, Verdict verdict = Verdict::Store>
struct Returns
{
    using Type = T;
    static bool store(T value, LRESULT& result)
    {
        if (verdict == Verdict::PassUpIfZero && !value)
            return false;
        if (verdict == Verdict::PassUpUnlessZero && value)
            return false;
        result = value;
        return true;
    }
};

template <LRESULT constant>
struct Gives
{
    using Type = void;
    static constexpr LRESULT value = constant;
};

using I32 = Returns<int>;
using U32 = Returns<UINT>;
using I64 = Returns<LRESULT>;
using WheelResult = Returns<int, Verdict::PassUpIfZero>;
using ClaimResult = Returns<LRESULT, Verdict::PassUpUnlessZero>;
using Zero = Gives<0>;
using One = Gives<1>;

// ---- The call.

using Caller = xe::MessageCaller;

// A handler may belong to another base of the window's class than CWnd_X, and its entry carries the way to it: the
// sanitizer's idea of the object's type does not hold here.
template <class Result, class... Args>
__attribute__((no_sanitize("vptr"))) bool invoke(CWnd_X& window, AFX_PMSG_X handler, LRESULT& result, Args... args)
{
    const auto typed = xe::detail::handlerCast<typename Result::Type (CWnd_X::*)(Args...)>(handler);
    if constexpr (std::is_void_v<typename Result::Type>) {
        (window.*typed)(args...);
        return true;
    } else {
        return Result::store((window.*typed)(args...), result);
    }
}

template <class Result>
LRESULT initialResult()
{
    if constexpr (std::is_void_v<typename Result::Type>)
        return Result::value;
    else
        return 0;
}

// One handler; a second one in the entry is not called.
template <class Result, class... Args>
int single(CWnd_X& window, const DispatchFrame&, const AFX_MSGMAP_ENTRY_X& entry, [[maybe_unused]] WPARAM p,
           [[maybe_unused]] LPARAM l, LRESULT& result)
{
    LRESULT value = initialResult<Result>();
    if (entry.handler && !invoke<Result, typename Args::First...>(window, entry.handler, value, Args::first(p, l)...))
        return false;
    result = value;
    return true;
}

// The widget that an argument names, if it is of that kind.
template <class Arg>
QWidget* windowOf([[maybe_unused]] WPARAM p, [[maybe_unused]] LPARAM l)
{
    if constexpr (std::is_same_v<typename Arg::First, QWidget*>)
        return Arg::first(p, l);
    else
        return nullptr;
}

// Two handlers, the second with CWnd_X* for windows. What the last one called says counts.
template <class Result, class... Args>
int both(CWnd_X& window, const DispatchFrame& frame, const AFX_MSGMAP_ENTRY_X& entry, WPARAM p, LPARAM l,
         LRESULT& result)
{
    const AFX_PMSG_X secondHandler = entry.secondHandler; // the first may replace the entry
    QWidget* named = nullptr;
    if (secondHandler)
        ((named = named ? named : windowOf<Args>(p, l)), ...);
    const QPointer<QWidget> living(named);
    const QObject* const attached = window.GetImpQObject();
    if (!single<Result, Args...>(window, frame, entry, p, l, result))
        return false;
    const auto hasLetGo = [&] { return attached && window.GetImpQObject() != attached; };
    const bool nobodyToTell = !frame.isAlive() || (named && !living) || hasLetGo();
    if (!secondHandler || nobodyToTell)
        return true;
    LRESULT value = initialResult<Result>();
    if (!invoke<Result, typename Args::Second...>(window, secondHandler, value, Args::second(p, l)...))
        return false;
    result = value;
    return true;
}

struct Row
{
    AfxSig_X code;
    Caller call;
};

constexpr Row rows[] = {
    {AfxSig_b_b_v, single<I32, P>},
    {AfxSig_b_u_v, single<I32, P>},
    {AfxSig_b_h_v, single<I32, P>},
    {AfxSig_b_W_uu, both<I32, WndP, LL, LH>},
    {AfxSig_b_W_COPYDATASTRUCT, both<I32, WndP, L>},
    {AfxSig_b_v_HELPINFO, single<I32, L>},
    {AfxSig_i_u_W_u, both<I32, PL, WndL, PH>},
    {AfxSig_i_uu_v, single<I32, PL, PH>},
    {AfxSig_i_W_uu, both<I32, WndP, LL, LH>},
    {AfxSig_i_v_s, single<I32, L>},
    {AfxSig_l_w_l, single<I64, P, L>},
    {AfxSig_v_b_h, single<Zero, P, L>},
    {AfxSig_v_h_v, single<Zero, P>},
    {AfxSig_v_h_h, single<Zero, P, L>},
    {AfxSig_v_v_v, single<Zero>},
    {AfxSig_v_u_v, single<Zero, P32>},
    {AfxSig_v_up_v, single<Zero, P>},
    {AfxSig_v_u_u, single<Zero, P, L32>},
    {AfxSig_v_uu_v, single<Zero, PL, PH>},
    {AfxSig_v_v_ii, single<Zero, LL, LH>},
    {AfxSig_v_u_uu, single<Zero, P32, LL, LH>},
    {AfxSig_v_u_ii, single<Zero, P32, LL, LH>},
    {AfxSig_v_u_W, both<Zero, P, WndL>},
    {AfxSig_i_u_v, single<I32, P>},
    {AfxSig_u_u_v, single<U32, P>},
    {AfxSig_b_v_v, single<I32>},
    {AfxSig_v_w_l, single<Zero, P, L>},
    {AfxSig_v_W_v, both<Zero, WndP>},
    {AfxSig_v_v_W, both<Zero, WndL>},
    {AfxSig_v_W_uu, both<Zero, WndP, LL, LH>},
    {AfxSig_v_W_p, both<Zero, WndP, pt>},
    {AfxSig_v_W_h, both<Zero, WndP, L>},
    {AfxSig_C_v_v, single<I64>},
    {AfxSig_ACTIVATE, both<Zero, PL, WndL, PH>},
    {AfxSig_SCROLL, both<Zero, sPL, sPH, WndL>},
    {AfxSig_SCROLL_REFLECT, single<Zero, sPL, sPH>},
    {AfxSig_v_v_s, single<Zero, L>},
    {AfxSig_v_u_cs, single<Zero, P, L>},
    {AfxSig_OWNERDRAW, single<One, P, L>},
    {AfxSig_i_i_s, single<I32, P32, L>},
    {AfxSig_u_v_p, single<U32, pt>},
    {AfxSig_u_v_v, single<U32>},
    {AfxSig_v_b_NCCALCSIZEPARAMS, single<Zero, P, L>},
    {AfxSig_v_v_WINDOWPOS, single<Zero, L>},
    {AfxSig_v_uu_M, single<Zero, PL, PH, L>},
    {AfxSig_v_u_p, single<Zero, P, pt>},
    {AfxSig_SIZING, single<One, P, L>},
    {AfxSig_MOUSEWHEEL, single<WheelResult, PL, Wheel, upt>},
    {AfxSig_MOUSEHWHEEL, single<Zero, PL, Wheel, upt>},
    {AfxSig_l, single<ClaimResult>},
    {AfxSig_l_p, single<I64, pt>},
    {AfxSig_u_W_u, both<U32, WndP, L32>},
    {AfxSig_u_v_MENUGETOBJECTINFO, single<U32, L>},
    {AfxSig_v_u_LPMDINEXTMENU, single<Zero, P, L>},
    {AfxSig_APPCOMMAND, both<One, WndP, LH12, LHDevice, LL>},
    {AfxSig_RAWINPUT, single<Zero, P8, L>},
    {AfxSig_u_u_u, single<U32, P, L32>},
    {AfxSig_MOUSE_XBUTTON, single<One, PL, PH, upt>},
    {AfxSig_MOUSE_NCXBUTTON, single<One, PL, PH, upt>},
    {AfxSig_INPUTLANGCHANGE, single<One, P, L32>},
    {AfxSig_v_u_h, single<Zero, P, L>},
    {AfxSig_INPUTDEVICECHANGE, single<Zero, P, L>},
    {AfxSig_i_v_S, single<I32, L>},
    {AfxSig_h_v_v, single<I64>},
    {AfxSig_h_b_h, single<I64, P, L>},
    {AfxSig_b_v_ii, single<I32, LH, LL>},
    {AfxSig_h_h_h, single<I64, P, L>},
    {AfxSig_MDINext, both<Zero, WndP, L32>},
    {AfxSig_u_u_l, single<U32, P, L>},
    {AfxSig_v_w_p, single<Zero, P, pt>},
};

constexpr std::size_t codeCount = 96;

constexpr std::array<Caller, codeCount> callersByCode()
{
    std::array<Caller, codeCount> callers{};
    for (const Row& row : rows)
        callers[row.code] = row.call;
    return callers;
}

constexpr std::array<Caller, codeCount> callers = callersByCode();

// Whether a number is a code with a name. A name that is missing here draws a compiler warning.
constexpr bool isNamed(std::size_t code)
{
    switch (static_cast<AfxSig_X>(code)) {
    case AfxSig_b_D_v:
    case AfxSig_b_b_v:
    case AfxSig_b_u_v:
    case AfxSig_b_h_v:
    case AfxSig_b_W_uu:
    case AfxSig_b_W_COPYDATASTRUCT:
    case AfxSig_b_v_HELPINFO:
    case AfxSig_CTLCOLOR:
    case AfxSig_i_u_W_u:
    case AfxSig_i_uu_v:
    case AfxSig_i_W_uu:
    case AfxSig_i_v_s:
    case AfxSig_l_w_l:
    case AfxSig_v_b_h:
    case AfxSig_v_h_v:
    case AfxSig_v_h_h:
    case AfxSig_v_v_v:
    case AfxSig_v_u_v:
    case AfxSig_v_up_v:
    case AfxSig_v_u_u:
    case AfxSig_v_uu_v:
    case AfxSig_v_v_ii:
    case AfxSig_v_u_uu:
    case AfxSig_v_u_ii:
    case AfxSig_v_u_W:
    case AfxSig_i_u_v:
    case AfxSig_u_u_v:
    case AfxSig_b_v_v:
    case AfxSig_v_w_l:
    case AfxSig_v_W_v:
    case AfxSig_v_v_W:
    case AfxSig_v_W_uu:
    case AfxSig_v_W_p:
    case AfxSig_v_W_h:
    case AfxSig_C_v_v:
    case AfxSig_ACTIVATE:
    case AfxSig_SCROLL:
    case AfxSig_SCROLL_REFLECT:
    case AfxSig_v_v_s:
    case AfxSig_v_u_cs:
    case AfxSig_OWNERDRAW:
    case AfxSig_i_i_s:
    case AfxSig_u_v_p:
    case AfxSig_u_v_v:
    case AfxSig_v_b_NCCALCSIZEPARAMS:
    case AfxSig_v_v_WINDOWPOS:
    case AfxSig_v_uu_M:
    case AfxSig_v_u_p:
    case AfxSig_SIZING:
    case AfxSig_MOUSEWHEEL:
    case AfxSig_MOUSEHWHEEL:
    case AfxSig_l:
    case AfxSig_l_p:
    case AfxSig_u_W_u:
    case AfxSig_u_v_MENUGETOBJECTINFO:
    case AfxSig_v_u_LPMDINEXTMENU:
    case AfxSig_APPCOMMAND:
    case AfxSig_RAWINPUT:
    case AfxSig_u_u_u:
    case AfxSig_MOUSE_XBUTTON:
    case AfxSig_MOUSE_NCXBUTTON:
    case AfxSig_INPUTLANGCHANGE:
    case AfxSig_v_u_h:
    case AfxSig_INPUTDEVICECHANGE:
    case AfxSig_i_v_S:
    case AfxSig_h_v_v:
    case AfxSig_h_b_h:
    case AfxSig_b_v_ii:
    case AfxSig_h_h_h:
    case AfxSig_MDINext:
    case AfxSig_u_u_l:
    case AfxSig_v_w_p:
        return true;
    }
    return false;
}

// There is no device context outside a paint event.
constexpr bool isNeverCalled(std::size_t code) { return code == AfxSig_b_D_v || code == AfxSig_CTLCOLOR; }

constexpr bool namedCodesHaveRows()
{
    for (std::size_t code = 0; code < codeCount; ++code) {
        if (isNamed(code) && bool(callers[code]) == isNeverCalled(code))
            return false;
    }
    return true;
}
#if !defined(__SANITIZE_ADDRESS__) // under which gcc does not take a comparison with a function for a constant
static_assert(namedCodesHaveRows(), "each code with a name has a row, but for those that are never called");
#endif

int swallow(CWnd_X&, const DispatchFrame&, const AFX_MSGMAP_ENTRY_X&, WPARAM, LPARAM, LRESULT& result)
{
    result = 0;
    return true;
}

} // namespace

xe::MessageCaller xe::callerOf(unsigned long signature)
{
    const Caller caller = signature < codeCount ? callers[signature] : nullptr;
    return caller ? caller : swallow;
}
