#pragma once

#include <xeafxwin.h>

#include <QStringList>

/// The message whose handlers a test enters and calls.
inline constexpr UINT codedMessage = WM_USER + 77;

// How an argument reads. The handler's own type of an argument says whether it has a sign.

inline QString argument(int value) { return QString::number(value); }
inline QString argument(short value) { return QString::number(value); }
inline QString argument(UINT value) { return QString::number(value); }
inline QString argument(WPARAM value) { return QString::number(value); }
inline QString argument(LPARAM value) { return QString::number(value); }
inline QString argument(CPoint value) { return QStringLiteral("(%1 %2)").arg(value.x).arg(value.y); }
inline QString argument(const void* value)
{
    return QStringLiteral("@%1").arg(reinterpret_cast<quintptr>(value), 0, 16);
}
inline QString argument(CWnd_X* value)
{
    return value ? QStringLiteral("W(%1)").arg(argument(static_cast<const void*>(value->GetSafeHwnd())))
                 : QStringLiteral("W(null)");
}

/// A window with two handlers of whatever type, which write down what they are called with.
class HandlerProbe : public CWnd_X
{
public:
    template <class Result, class... Args>
    Result first(Args... args)
    {
        return record<Result>("first", firstAnswer, args...);
    }

    template <class Result, class... Args>
    Result second(Args... args)
    {
        return record<Result>("second", secondAnswer, args...);
    }

    QString calls() { return std::exchange(m_calls, {}).join(QLatin1Char(' ')); }

    LRESULT firstAnswer = 0;
    LRESULT secondAnswer = 0;

private:
    template <class Result, class... Args>
    Result record(const char* which, [[maybe_unused]] LRESULT answer, Args... args)
    {
        const QStringList list{argument(args)...};
        m_calls += QStringLiteral("%1[%2]").arg(QLatin1String(which), list.join(QLatin1String(", ")));
        if constexpr (!std::is_void_v<Result>)
            return static_cast<Result>(answer);
    }

    QStringList m_calls;
};

struct Handlers
{
    AFX_PMSG_X first;
    AFX_PMSG_X second;
};

template <class Function>
struct MakeHandler;

template <class Result, class... Args>
struct MakeHandler<Result(Args...)>
{
    static AFX_PMSG_X first() { return XeHandler<Result(Args...)>::of(&HandlerProbe::first<Result, Args...>); }
    static AFX_PMSG_X second() { return XeHandler<Result(Args...)>::of(&HandlerProbe::second<Result, Args...>); }
};

template <class First, class Second = void()>
Handlers handlers()
{
    return {MakeHandler<First>::first(), MakeHandler<Second>::second()};
}

inline constexpr LRESULT unwritten = 0x5EED5EED5EED;

/// What becomes of the message: "handled" and its result, or "passed up".
inline QString dispatch(CWnd_X& window, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = unwritten;
    if (!window.OnWndMsg(codedMessage, wParam, lParam, &result))
        return result == unwritten ? QStringLiteral("passed up") : QStringLiteral("passed up and written");
    return QStringLiteral("handled %1").arg(result);
}

inline LRESULT signed64(quint64 value) { return static_cast<LRESULT>(value); }
