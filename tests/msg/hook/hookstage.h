#pragma once

#include "leavenothing.h"

#include <xeafxmsg.h>
#include <xehook.h>

#include <functional>

// The three host classes whose input hooks see.

class CTavoView : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;
    QStringList received; ///< what came through to the widget itself

protected:
    void keyPressEvent(QKeyEvent* event) override { note(QStringLiteral("press"), event); }
    void keyReleaseEvent(QKeyEvent* event) override { note(QStringLiteral("release"), event); }
    void mousePressEvent(QMouseEvent*) override { received += QStringLiteral("mouse"); }

private:
    void note(const QString& what, QKeyEvent* event)
    {
        received += what;
        event->ignore(); // as QWidget does: the parent is next
    }
};

class CTavoMainFrame : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;
};

class XeQtCommandBar : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;
};

/// Hooks h0 to h3 and message functions f0 to f3. Each writes its name into `trace` and then does what its body says.
///
/// A script such as "+h0 +f1 -h0" sets and takes away. Tests say what was called as one line: "h1 h0 f0".
namespace HookStage {

inline QStringList trace;
inline std::map<QString, std::function<long long()>> bodies;
inline std::function<void(const tagMSG&)> onMessage;

inline long long enter(const QString& name)
{
    trace += name;
    const auto body = bodies.find(name);
    if (body == bodies.end())
        return 0;
    const std::function<long long()> call = body->second; // the body may replace itself
    return call();
}

inline QString hookCall; ///< arguments of the last call of a hook: "code wParam lParam"

template <int N>
long long hook(int code, unsigned long wParam, long long lParam)
{
    hookCall = QStringLiteral("%1 0x%2 0x%3").arg(code).arg(wParam, 0, 16).arg(lParam, 0, 16);
    return enter(QStringLiteral("h%1").arg(N));
}

template <int N>
bool function(tagMSG* message)
{
    if (onMessage)
        onMessage(*message);
    return enter(QStringLiteral("f%1").arg(N));
}

inline const HOOKPROC hooks[] = {hook<0>, hook<1>, hook<2>, hook<3>};
inline const WinMsgFn functions[] = {function<0>, function<1>, function<2>, function<3>};

/// Sets ('+') or takes away ('-') one hook ('h') or message function ('f').
inline void runStep(const QString& step)
{
    const bool add = step.at(0) == QLatin1Char('+');
    const int index = step.at(2).digitValue();
    const bool isHook = step.at(1) == QLatin1Char('h');
    if (isHook && add)
        QVERIFY2(SetWindowsHookEx_X(WH_KEYBOARD, hooks[index]) != nullptr, qPrintable(step));
    else if (isHook)
        QCOMPARE(UnhookWindowsHookEx_X(reinterpret_cast<HHOOK>(hooks[index])), 1);
    else if (add)
        AppendWinMsgFn(functions[index]);
    else
        RemoveWinMsgFn(functions[index]);
}

inline void run(const QString& script)
{
    const QStringList steps = script.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& step : steps)
        runStep(step);
}

inline void removeAll()
{
    for (int round = 0; round < 8 && !GetGlobalEventHandler()->IsEmptyHookChain(); ++round)
        run(QStringLiteral("-h0 -h1 -h2 -h3 -f0 -f1 -f2 -f3"));
}

/// What has been called since the last question.
inline QString takeTrace()
{
    const QString line = trace.join(QLatin1Char(' '));
    trace.clear();
    return line;
}

/// Whatever key comes next counts as new.
inline void forgetKey()
{
    QKeyEvent other(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier);
    IsRepeatFilterKeyEvent(&other);
}

/// A clean stage at the begin of each test function.
inline void reset()
{
    removeAll();
    trace.clear();
    bodies.clear();
    onMessage = nullptr;
    hookCall.clear();
    forgetKey();
}

/// Sends a key event as the window system would. True if somebody took it.
inline bool sendKey(QObject& target, QEvent::Type type, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                    const QString& text = QString())
{
    QKeyEvent event(type, key, modifiers, text);
    return QCoreApplication::sendEvent(&target, &event);
}

/// Tells whether the handler is a filter of the application: it asks objects for their class then, and nobody else asks
/// this one.
class FilterProbe : public QObject
{
public:
    bool sees(QEvent& event)
    {
        m_questions = 0;
        QCoreApplication::sendEvent(this, &event);
        return m_questions > 0;
    }

    static bool filterStands()
    {
        FilterProbe probe;
        QTimerEvent event(0);
        return probe.sees(event);
    }

    const QMetaObject* metaObject() const override
    {
        ++m_questions;
        return QObject::metaObject();
    }

private:
    mutable int m_questions = 0;
};

} // namespace HookStage
