#include "settings/iniread.h"

#include "settings/inivalue.h"
#include "text/ascii.h"

#include <QMap>
#include <QTextCodec>
#include <QVector>

#include <algorithm>
#include <cstring>

namespace xe {

namespace {

const QByteArray byteOrderMark("\xEF\xBB\xBF");

bool isBlank(char ch) { return ch == ' ' || ch == '\t'; }

bool endsLine(char ch) { return ch == '\n' || ch == '\r'; }

bool isPlain(char ch) { return ch != '\\' && ch != '"' && ch != ','; }

uint digitOf(char ch)
{
    if (ch >= '0' && ch <= '9')
        return static_cast<uint>(ch - '0');
    const char letter = toLower(ch);
    return letter >= 'a' && letter <= 'f' ? static_cast<uint>(letter - 'a' + 10) : 16;
}

// -------------------------------------------------------------------------------------------------------------- lines

// A line without the blanks and the comments in front of it. In quotation marks and behind a backslash it goes on.
struct Line
{
    int start;
    int end;
    int equals; // the first outside quotation marks; -1 if there is none
};

// The lines of a text, one after the other. A comment may also stand behind a value.
class Lines
{
public:
    explicit Lines(const QByteArray& text) : m_text(text), m_place(text.startsWith(byteOrderMark) ? 3 : 0) {}

    // False at the end of the text.
    bool next(Line& line)
    {
        skipToLine();
        line = {m_place, m_place, -1};
        bool isQuoted = false;
        for (; m_place < m_text.size(); ++m_place) {
            const char ch = m_text.at(m_place);
            if (!isQuoted && (endsLine(ch) || ch == ';'))
                break;
            if (ch == '"')
                isQuoted = !isQuoted;
            else if (ch == '\\')
                m_place += endsLineInTwo(m_place + 1) ? 2 : 1;
            else if (ch == '=' && !isQuoted && line.equals < 0)
                line.equals = m_place;
        }
        m_place = line.end = qMin(m_place, m_text.size());
        return line.end > line.start;
    }

private:
    void skipToLine()
    {
        bool isComment = false;
        for (; m_place < m_text.size(); ++m_place) {
            const char ch = m_text.at(m_place);
            isComment = (isComment || ch == ';') && !endsLine(ch);
            if (!isComment && !isBlank(ch) && !endsLine(ch))
                return;
        }
    }

    bool endsLineInTwo(int place) const
    {
        const QByteArray two = m_text.mid(place, 2);
        return two == "\r\n" || two == "\n\r";
    }

    const QByteArray& m_text;
    int m_place;
};

// ---------------------------------------------------------------------------------------------------- names of entries

// The letter that an escape sequence stands for ("%20", "%U4E2D"), and the place behind it; a percent sign that starts
// none stands for itself.
QChar percentLetter(const QByteArray& name, int& place)
{
    const bool isLong = name.at(place + 1) == 'U';
    const int digits = place + (isLong ? 2 : 1);
    const int count = isLong ? 4 : 2;
    bool isNumber = false;
    const int letter = name.mid(digits, count).toInt(&isNumber, 16);
    if (!isNumber || digits + count > name.size()) {
        ++place;
        return QLatin1Char('%');
    }
    place = digits + count;
    return QChar(letter);
}

QString unescapedName(const QByteArray& name)
{
    QString text;
    text.reserve(name.size());
    for (int place = 0; place < name.size();) {
        const char ch = name.at(place);
        if (ch == '%' && place + 1 < name.size()) {
            text += percentLetter(name, place);
        } else {
            text += ch == '\\' ? QLatin1Char('/') : QLatin1Char(ch);
            ++place;
        }
    }
    return text;
}

// The section that a line begins, as it stands in front of the names in it.
QString sectionOf(const QByteArray& line)
{
    const int close = line.indexOf(']');
    const QByteArray name = line.mid(1, close < 0 ? -1 : close - 1).trimmed();
    if (name.compare("general", Qt::CaseInsensitive) == 0)
        return {};
    if (name.compare("%general", Qt::CaseInsensitive) == 0)
        return QString::fromLatin1(name.mid(1)) + QLatin1Char('/');
    return unescapedName(name) + QLatin1Char('/');
}

// ------------------------------------------------------------------------------------------------------------- values

// The texts of a value, which commas separate.
class ValueReader
{
public:
    ValueReader(const QByteArray& bytes, QTextCodec* codec) : m_bytes(bytes), m_codec(codec) {}

    QStringList texts()
    {
        skipBlanks();
        while (m_place < m_bytes.size())
            readPart();
        endText();
        return m_texts;
    }

private:
    void readPart()
    {
        const char ch = m_bytes.at(m_place);
        if (ch == '\\') {
            readEscape();
        } else if (ch == '"') {
            ++m_place;
            m_wasQuoted = true;
            m_isQuoted = !m_isQuoted;
            if (!m_isQuoted)
                skipBlanks();
        } else if (ch == ',' && !m_isQuoted) {
            ++m_place;
            endText();
            skipBlanks();
        } else {
            readPlain();
        }
    }

    void readPlain()
    {
        const int start = m_place++;
        while (m_place < m_bytes.size() && isPlain(m_bytes.at(m_place)))
            ++m_place;
        const char* const bytes = m_bytes.constData() + start;
        m_text += m_codec ? m_codec->toUnicode(bytes, m_place - start) : QString::fromLatin1(bytes, m_place - start);
    }

    void readEscape()
    {
        constexpr char letters[] = "abfnrtv\"?'\\";
        constexpr char characters[] = "\a\b\f\n\r\t\v\"?'\\";
        const char ch = at(++m_place);
        ++m_place;
        if (const char* const letter = ch ? std::strchr(letters, ch) : nullptr)
            m_text += QLatin1Char(characters[letter - letters]);
        else if (ch == 'x')
            readNumber(16, m_place);
        else if (digitOf(ch) < 8)
            readNumber(8, m_place - 1);
        else if (endsLine(ch) && endsLine(at(m_place)) && at(m_place) != ch)
            ++m_place;
        m_escaped = m_text.size();
    }

    // A character by its number, if there is a digit; of a longer number the lower half counts.
    void readNumber(uint base, int start)
    {
        uint number = 0;
        for (m_place = start; digitOf(at(m_place)) < base; ++m_place)
            number = number * base + digitOf(at(m_place));
        if (m_place > start)
            m_text += QChar(static_cast<ushort>(number));
    }

    char at(int place) const { return place < m_bytes.size() ? m_bytes.at(place) : '\0'; }

    void skipBlanks()
    {
        while (m_place < m_bytes.size() && isBlank(m_bytes.at(m_place)))
            ++m_place;
    }

    void endText()
    {
        int size = m_text.size();
        while (!m_wasQuoted && size > m_escaped && (m_text.at(size - 1) == ' ' || m_text.at(size - 1) == '\t'))
            --size;
        m_texts += m_text.left(size);
        m_text.clear();
        m_escaped = 0;
        m_wasQuoted = false;
    }

    const QByteArray m_bytes;
    QTextCodec* const m_codec;
    int m_place = 0;
    QStringList m_texts;
    QString m_text;
    int m_escaped = 0; // the end of the last escape sequence in the text
    bool m_isQuoted = false;
    bool m_wasQuoted = false;
};

QByteArray valueOf(const QByteArray& text, const Line& line)
{
    return text.mid(line.equals + 1, line.end - line.equals - 1);
}

QString nameOf(const QByteArray& text, const Line& line)
{
    int end = line.equals;
    while (end > line.start && isBlank(text.at(end - 1)))
        --end;
    return unescapedName(text.mid(line.start, end - line.start));
}

bool isEntryWith(IniStream stream, const QByteArray& text, const Line& line)
{
    if (line.equals < 0)
        return false;
    const QByteArray value = valueOf(text, line);
    if (!value.contains('@') && !value.contains('\\')) // most values: there is no stream without either
        return false;
    const QStringList texts = ValueReader(value, nullptr).texts();
    return std::any_of(texts.begin(), texts.end(),
                       [stream](const QString& part) { return iniStreamOf(part) == stream; });
}

} // namespace

QSettings::SettingsMap parsedIni(const QByteArray& text, QTextCodec* codec)
{
    if (text.startsWith(byteOrderMark))
        codec = QTextCodec::codecForName("UTF-8");
    QMap<QString, QVector<Line>> sections; // sorted: of one path in two of them, QSettings takes the entry of the later
    QString section;
    Lines lines(text);
    for (Line line{}; lines.next(line);) {
        if (text.at(line.start) == '[')
            section = sectionOf(text.mid(line.start, line.end - line.start));
        else if (line.equals >= 0)
            sections[section] += line;
    }
    QSettings::SettingsMap entries;
    for (auto entriesOf = sections.cbegin(); entriesOf != sections.cend(); ++entriesOf) {
        for (const Line& line : entriesOf.value())
            entries[entriesOf.key() + nameOf(text, line)] = iniValue(ValueReader(valueOf(text, line), codec).texts());
    }
    return entries;
}

QByteArray withoutHarmfulEntries(const QByteArray& text)
{
    QByteArray harmless;
    int kept = 0; // the end of what has been looked at and kept
    Lines lines(text);
    for (Line line{}; lines.next(line);) {
        if (isEntryWith(IniStream::Harmful, text, line)) {
            harmless += text.mid(kept, line.start - kept);
            kept = line.end;
            while (kept < text.size() && endsLine(text.at(kept)))
                ++kept;
        }
    }
    return kept ? harmless + text.mid(kept) : text;
}

bool hasUnknownEntry(const QByteArray& text)
{
    Lines lines(text);
    for (Line line{}; lines.next(line);) {
        if (isEntryWith(IniStream::Unknown, text, line))
            return true;
    }
    return false;
}

} // namespace xe
