#include "messagelog.h"

#include <QStringList>
#include <XeGridCellBase.h>

namespace {

// ---------------------------------------------------------------------------------------------------------- names

struct Name
{
    UINT number;
    const char* text;
};

constexpr Name messageNames[]{
    {WM_SIZE, "WM_SIZE"},
    {WM_NOTIFY, "WM_NOTIFY"},
    {WM_KEYDOWN, "WM_KEYDOWN"},
    {WM_KEYUP, "WM_KEYUP"},
    {WM_CHAR, "WM_CHAR"},
    {WM_SYSKEYDOWN, "WM_SYSKEYDOWN"},
    {WM_SYSKEYUP, "WM_SYSKEYUP"},
    {WM_SYSCHAR, "WM_SYSCHAR"},
    {WM_TIMER, "WM_TIMER"},
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
};

constexpr Name flagNames[]{
    {MK_LBUTTON, "MK_LBUTTON"}, {MK_RBUTTON, "MK_RBUTTON"}, {MK_MBUTTON, "MK_MBUTTON"},
    {MK_SHIFT, "MK_SHIFT"},     {MK_CONTROL, "MK_CONTROL"}, {MK_ALT, "MK_ALT"},
};

constexpr Name codeNames[]{
    {NM_CLICK, "NM_CLICK"},
    {NM_DBLCLK, "NM_DBLCLK"},
    {NM_RCLICK, "NM_RCLICK"},
    {LVN_ITEMCHANGING, "LVN_ITEMCHANGING"},
    {LVN_ITEMCHANGED, "LVN_ITEMCHANGED"},
    {LVN_BEGINLABELEDITW, "LVN_BEGINLABELEDIT"},
    {LVN_ENDLABELEDITW, "LVN_ENDLABELEDIT"},
};

constexpr Name keyNames[]{
    {VK_BACK, "VK_BACK"},
    {VK_TAB, "VK_TAB"},
    {VK_CLEAR, "VK_CLEAR"},
    {VK_RETURN, "VK_RETURN"},
    {VK_SHIFT, "VK_SHIFT"},
    {VK_CONTROL, "VK_CONTROL"},
    {VK_MENU, "VK_MENU"},
    {VK_PAUSE, "VK_PAUSE"},
    {VK_CAPITAL, "VK_CAPITAL"},
    {VK_ESCAPE, "VK_ESCAPE"},
    {VK_SPACE, "VK_SPACE"},
    {VK_PRIOR, "VK_PRIOR"},
    {VK_NEXT, "VK_NEXT"},
    {VK_END, "VK_END"},
    {VK_HOME, "VK_HOME"},
    {VK_LEFT, "VK_LEFT"},
    {VK_UP, "VK_UP"},
    {VK_RIGHT, "VK_RIGHT"},
    {VK_DOWN, "VK_DOWN"},
    {VK_SELECT, "VK_SELECT"},
    {VK_PRINT, "VK_PRINT"},
    {VK_EXECUTE, "VK_EXECUTE"},
    {VK_SNAPSHOT, "VK_SNAPSHOT"},
    {VK_INSERT, "VK_INSERT"},
    {VK_DELETE, "VK_DELETE"},
    {VK_HELP, "VK_HELP"},
    {VK_MULTIPLY, "VK_MULTIPLY"},
    {VK_NUMLOCK, "VK_NUMLOCK"},
    {VK_SCROLL, "VK_SCROLL"},
    {VK_VOLUME_MUTE, "VK_VOLUME_MUTE"},
    {VK_VOLUME_DOWN, "VK_VOLUME_DOWN"},
    {VK_VOLUME_UP, "VK_VOLUME_UP"},
    {VK_MEDIA_STOP, "VK_MEDIA_STOP"},
    {VK_MEDIA_PLAY_PAUSE, "VK_MEDIA_PLAY_PAUSE"},
    {VK_OEM_1, "VK_OEM_1"},
    {VK_OEM_PLUS, "VK_OEM_PLUS"},
    {VK_OEM_COMMA, "VK_OEM_COMMA"},
    {VK_OEM_MINUS, "VK_OEM_MINUS"},
    {VK_OEM_PERIOD, "VK_OEM_PERIOD"},
    {VK_OEM_2, "VK_OEM_2"},
    {VK_OEM_3, "VK_OEM_3"},
    {VK_OEM_4, "VK_OEM_4"},
    {VK_OEM_5, "VK_OEM_5"},
    {VK_OEM_6, "VK_OEM_6"},
    {VK_OEM_7, "VK_OEM_7"},
};

// --------------------------------------------------------------------------------------------------- texts of parts

QString hexadecimal(UINT number) { return "0x" + QString("%1").arg(number, 2, 16, QChar('0')).toUpper(); }

template <std::size_t size>
QString nameOf(UINT number, const Name (&names)[size], const QString& prefix)
{
    for (const Name& name : names) {
        if (name.number == number)
            return name.text;
    }
    return prefix + hexadecimal(number);
}

QString flagsText(UINT flags)
{
    QStringList names;
    for (const Name& flag : flagNames) {
        if (flags & flag.number)
            names += flag.text;
    }
    return names.join(" | ");
}

QString pointText(CPoint point) { return QString("(%1, %2)").arg(point.x).arg(point.y); }

QString characterText(UINT character)
{
    return QChar::isPrint(character) ? '\'' + QString::fromUcs4(&character, 1) + '\'' : hexadecimal(character);
}

QString columns(QStringList parts)
{
    parts.removeAll(QString());
    return parts.join("  ");
}

MessageLine line(UINT message, MessageKind kind, const QString& parameters, const QString& point = {})
{
    return {message, kind, nameOf(message, messageNames, "WM "), parameters, point, {}};
}

bool isRepetition(const MessageLine& line, const MessageLine& previous)
{
    const bool mayRepeat = line.kind == MessageKind::Move || line.kind == MessageKind::Timer;
    return mayRepeat && line.message == previous.message;
}

} // namespace

// ------------------------------------------------------------------------------------------------------- one line

QString MessageLine::text() const { return columns({name, parameters, point}); }

MessageLine mouseLine(UINT message, UINT flags, CPoint point)
{
    const MessageKind kind = message == WM_MOUSEMOVE ? MessageKind::Move : MessageKind::Mouse;
    return line(message, kind, flagsText(flags), pointText(point));
}

MessageLine wheelLine(UINT flags, short delta, CPoint point)
{
    const QString turn = (delta > 0 ? "+" : "") + QString::number(delta);
    return line(WM_MOUSEWHEEL, MessageKind::Wheel, columns({turn, flagsText(flags)}), pointText(point));
}

MessageLine keyLine(UINT message, UINT vk, UINT modifiers)
{
    return line(message, MessageKind::Key, columns({keyText(vk), flagsText(modifiers)}));
}

MessageLine characterLine(UINT message, UINT character, UINT modifiers)
{
    return line(message, MessageKind::Character, columns({characterText(character), flagsText(modifiers)}));
}

MessageLine timerLine(UINT_PTR id) { return line(WM_TIMER, MessageKind::Timer, QString("id %1").arg(id)); }

MessageLine sizeLine(int width, int height)
{
    return line(WM_SIZE, MessageKind::Size, QString("%1 x %2").arg(width).arg(height));
}

MessageLine notificationLine(UINT code, int row, int column)
{
    const QString cell = QString("(%1, %2)").arg(row).arg(column);
    return line(WM_NOTIFY, MessageKind::Notification, nameOf(code, codeNames, "code "), cell);
}

QString keyText(UINT vk)
{
    constexpr UINT none = ~0u;
    if (vk == none)
        return "no VK";
    if ((vk >= 'A' && vk <= 'Z') || (vk >= '0' && vk <= '9'))
        return QString("VK '%1'").arg(QChar(vk));
    if (vk >= VK_F1 && vk <= VK_F24)
        return QString("VK_F%1").arg(vk - VK_F1 + 1);
    return nameOf(vk, keyNames, "VK ");
}

// ------------------------------------------------------------------------------------------------------ all lines

bool MessageLog::traceTo(const QString& fileName)
{
    m_trace.close();
    m_trace.setFileName(fileName);
    return m_trace.open(QIODevice::Append | QIODevice::Unbuffered);
}

void MessageLog::append(MessageLine line)
{
    ++m_total;
    if (m_trace.isOpen())
        m_trace.write(line.text().toUtf8() + '\n');

    line.time = QTime::currentTime();
    if (!m_lines.isEmpty() && isRepetition(line, m_lines.last()))
        line.count = m_lines.takeLast().count + 1;
    m_lines.append(line);
    if (m_lines.size() > capacity)
        m_lines.removeFirst();
}
