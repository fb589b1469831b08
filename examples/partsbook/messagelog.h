#pragma once

#include <QFile>
#include <QList>
#include <QTime>
#include <xeafxwin.h>

enum class MessageKind { Mouse, Move, Wheel, Key, Character, Timer, Size, Notification };

/// One message as a person reads it.
struct MessageLine
{
    UINT message;
    MessageKind kind;
    QString name;       ///< WM_LBUTTONDOWN
    QString parameters; ///< MK_LBUTTON | MK_SHIFT
    QString point;      ///< (120, 80); of a notification row and column
    QTime time;         ///< when the log took it
    int count = 1;      ///< messages in a row that this line stands for

    /// The message without time and count, two spaces between its parts.
    QString text() const;
};

// What a handler was called with, as a line.
MessageLine mouseLine(UINT message, UINT flags, CPoint point);
MessageLine wheelLine(UINT flags, short delta, CPoint point);
MessageLine keyLine(UINT message, UINT vk, UINT modifiers);
MessageLine characterLine(UINT message, UINT character, UINT modifiers);
MessageLine timerLine(UINT_PTR id);
MessageLine sizeLine(int width, int height);
/// What a grid notifies its window of.
MessageLine notificationLine(UINT code, int row, int column);

/// A VK code: "VK 'A'", "VK_RETURN".
QString keyText(UINT vk);

/// The messages that windows have received, the newest last. Mouse moves in a row become one line, and so do timer
/// messages.
class MessageLog
{
public:
    static constexpr int capacity = 500;

    /// From now on appends the text of each message to a file as it comes. False if the file cannot be written.
    bool traceTo(const QString& fileName);

    void append(MessageLine line);

    /// The last lines, at most `capacity`.
    const QList<MessageLine>& lines() const { return m_lines; }
    /// All messages so far.
    int total() const { return m_total; }

private:
    QList<MessageLine> m_lines;
    QFile m_trace;
    int m_total = 0;
};
