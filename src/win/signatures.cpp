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

using Caller = bool (*)(CWnd_X&, const DispatchFrame&, const AFX_MSGMAP_ENTRY_X&, WPARAM, LPARAM, LRESULT&);

// A handler may belong to another base of the window's class than CWnd_X, and its entry carries the way to it: the
// sanitizer's idea of the object's type does not hold here.
template <class Result, class... Args>
__attribute__((no_sanitize("vptr"))) bool invoke(CWnd_X& window, AFX_PMSG_X handler, LRESULT& result, Args... args)
{
    const auto typed = xeHandlerCast<typename Result::Type (CWnd_X::*)(Args...)>(handler);
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
bool single(CWnd_X& window, const DispatchFrame&, const AFX_MSGMAP_ENTRY_X& entry, [[maybe_unused]] WPARAM p,
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
bool both(CWnd_X& window, const DispatchFrame& frame, const AFX_MSGMAP_ENTRY_X& entry, WPARAM p, LPARAM l,
          LRESULT& result)
{
    QWidget* named = nullptr;
    if (entry.secondHandler)
        ((named = named ? named : windowOf<Args>(p, l)), ...);
    const QPointer<QWidget> living(named);
    if (!single<Result, Args...>(window, frame, entry, p, l, result))
        return false;
    const bool nobodyToTell = !frame.isAlive() || (named && !living);
    if (!entry.secondHandler || nobodyToTell)
        return true;
    LRESULT value = initialResult<Result>();
    if (!invoke<Result, typename Args::Second...>(window, entry.secondHandler, value, Args::second(p, l)...))
        return false;
    result = value;
    return true;
}

struct Row
{
    unsigned long code;
    Caller call;
};

constexpr Row rows[] = {
    {2, single<I32, P>},
    {3, single<I32, P>},
    {4, single<I32, P>},
    {5, both<I32, WndP, LL, LH>},
    {6, both<I32, WndP, L>},
    {7, single<I32, L>},
    {10, both<I32, PL, WndL, PH>},
    {11, single<I32, PL, PH>},
    {12, both<I32, WndP, LL, LH>},
    {13, single<I32, L>},
    {14, single<I64, P, L>},
    {16, single<Zero, P, L>},
    {17, single<Zero, P>},
    {18, single<Zero, P, L>},
    {19, single<Zero>},
    {20, single<Zero, P32>},
    {21, single<Zero, P>},
    {22, single<Zero, P, L32>},
    {23, single<Zero, PL, PH>},
    {24, single<Zero, LL, LH>},
    {25, single<Zero, P32, LL, LH>},
    {26, single<Zero, P32, LL, LH>},
    {27, both<Zero, P, WndL>},
    {28, single<I32, P>},
    {29, single<U32, P>},
    {30, single<I32>},
    {31, single<Zero, P, L>},
    {36, both<Zero, WndP>},
    {37, both<Zero, WndL>},
    {38, both<Zero, WndP, LL, LH>},
    {39, both<Zero, WndP, pt>},
    {40, both<Zero, WndP, L>},
    {41, single<I64>},
    {42, both<Zero, PL, WndL, PH>},
    {43, both<Zero, sPL, sPH, WndL>},
    {44, single<Zero, sPL, sPH>},
    {45, single<Zero, L>},
    {46, single<Zero, P, L>},
    {47, single<One, P, L>},
    {48, single<I32, P32, L>},
    {49, single<U32, pt>},
    {50, single<U32>},
    {51, single<Zero, P, L>},
    {52, single<Zero, L>},
    {53, single<Zero, PL, PH, L>},
    {54, single<Zero, P, pt>},
    {55, single<One, P, L>},
    {56, single<WheelResult, PL, Wheel, upt>},
    {57, single<Zero, PL, Wheel, upt>},
    {70, single<ClaimResult>},
    {71, single<I64, pt>},
    {72, both<U32, WndP, L32>},
    {75, single<U32, L>},
    {77, single<Zero, P, L>},
    {78, both<One, WndP, LH12, LHDevice, LL>},
    {79, single<Zero, P8, L>},
    {80, single<U32, P, L32>},
    {81, single<One, PL, PH, upt>},
    {82, single<One, PL, PH, upt>},
    {83, single<One, P, L32>},
    {84, single<Zero, P, L>},
    {85, single<Zero, P, L>},
    {87, single<I32, L>},
    {89, single<I64>},
    {90, single<I64, P, L>},
    {91, single<I32, LH, LL>},
    {92, single<I64, P, L>},
    {93, both<Zero, WndP, L32>},
    {94, single<U32, P, L>},
    {95, single<Zero, P, pt>},
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

} // namespace

bool xe::callHandlers(CWnd_X& window, const DispatchFrame& frame, const AFX_MSGMAP_ENTRY_X& entry, WPARAM wParam,
                      LPARAM lParam, LRESULT& result)
{
    const Caller call = entry.signature < codeCount ? callers[entry.signature] : nullptr;
    if (call)
        return call(window, frame, entry, wParam, lParam, result);
    result = 0;
    return true;
}
