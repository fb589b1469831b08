#pragma once

#include <xeafxwin.h>

#include <QStringList>

#include <utility>

/// The messages that a window got, as a text that a test can compare.
///
/// A message reads `WM_LBUTTONDOWN(0x1, 0x14000a)`; one without a name `WM_USER+7(...)` or `0x0313(...)`. A parameter
/// that is the window's own widget reads `self`.
class MessageTrace
{
public:
    void add(const QWidget* self, UINT message, WPARAM wParam, LPARAM lParam)
    {
        m_lines += QStringLiteral("%1(%2, %3)")
                       .arg(nameOf(message), parameter(self, wParam), parameter(self, static_cast<quint64>(lParam)));
    }
    /// A line of the test's own between the messages.
    void note(const QString& line) { m_lines += line; }

    bool isEmpty() const { return m_lines.isEmpty(); }
    /// All lines, separated by a space.
    QString text() const { return m_lines.join(QLatin1Char(' ')); }
    /// The same, and starts anew.
    QString take() { return std::exchange(m_lines, {}).join(QLatin1Char(' ')); }
    void clear() { m_lines.clear(); }

    static QString nameOf(UINT message)
    {
        for (const Name& row : names()) {
            if (row.message == message)
                return QLatin1String(row.name);
        }
        if (message >= WM_USER && message < WM_APP)
            return QStringLiteral("WM_USER+%1").arg(message - WM_USER);
        return QStringLiteral("0x%1").arg(message, 4, 16, QLatin1Char('0'));
    }

private:
    struct Name
    {
        UINT message;
        const char* name;
    };

    static QString parameter(const QWidget* self, quint64 value)
    {
        return self && value == reinterpret_cast<quintptr>(self) ? QStringLiteral("self")
                                                                 : QStringLiteral("0x%1").arg(value, 0, 16);
    }

    static const QVector<Name>& names()
    {
        static const QVector<Name> table = {
            {WM_DESTROY, "WM_DESTROY"},
            {WM_SIZE, "WM_SIZE"},
            {WM_ACTIVATE, "WM_ACTIVATE"},
            {WM_PAINT, "WM_PAINT"},
            {WM_CLOSE, "WM_CLOSE"},
            {WM_SHOWWINDOW, "WM_SHOWWINDOW"},
            {WM_SETCURSOR, "WM_SETCURSOR"},
            {WM_NOTIFY, "WM_NOTIFY"},
            {WM_CONTEXTMENU, "WM_CONTEXTMENU"},
            {WM_NCDESTROY, "WM_NCDESTROY"},
            {WM_NCLBUTTONUP, "WM_NCLBUTTONUP"},
            {WM_KEYDOWN, "WM_KEYDOWN"},
            {WM_KEYUP, "WM_KEYUP"},
            {WM_CHAR, "WM_CHAR"},
            {WM_SYSKEYDOWN, "WM_SYSKEYDOWN"},
            {WM_SYSKEYUP, "WM_SYSKEYUP"},
            {WM_SYSCHAR, "WM_SYSCHAR"},
            {WM_COMMAND, "WM_COMMAND"},
            {WM_TIMER, "WM_TIMER"},
            {WM_HSCROLL, "WM_HSCROLL"},
            {WM_VSCROLL, "WM_VSCROLL"},
            {WM_MOUSEMOVE, "WM_MOUSEMOVE"},
            {WM_LBUTTONDOWN, "WM_LBUTTONDOWN"},
            {WM_LBUTTONUP, "WM_LBUTTONUP"},
            {WM_LBUTTONDBLCLK, "WM_LBUTTONDBLCLK"},
            {WM_RBUTTONDOWN, "WM_RBUTTONDOWN"},
            {WM_RBUTTONUP, "WM_RBUTTONUP"},
            {WM_RBUTTONDBLCLK, "WM_RBUTTONDBLCLK"},
            {WM_MBUTTONDOWN, "WM_MBUTTONDOWN"},
            {WM_MBUTTONUP, "WM_MBUTTONUP"},
            {WM_MBUTTONDBLCLK, "WM_MBUTTONDBLCLK"},
            {WM_MOUSEWHEEL, "WM_MOUSEWHEEL"},
            {WM_MOUSEHOVER, "WM_MOUSEHOVER"},
            {WM_MOUSELEAVE, "WM_MOUSELEAVE"},
            {XE_WM_NONE, "XE_WM_NONE"},
        };
        return table;
    }

    QStringList m_lines;
};

/// A wrapper class that writes down each message on its way to the message map, and then goes on as its base does.
template <class Window = CWnd_X>
class Traced : public Window
{
public:
    using Window::Window;

    int OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override
    {
        trace.add(this->GetSafeHwnd(), message, wParam, lParam);
        return Window::OnWndMsg(message, wParam, lParam, result);
    }

    MessageTrace trace;
};
