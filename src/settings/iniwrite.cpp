#include "settings/iniwrite.h"

#include "settings/inivalue.h"
#include "text/ascii.h"

#include <QMap>
#include <QTextCodec>

#include <utility>

namespace xe {

namespace {

bool isPlainInName(ushort unit)
{
    const bool isLetter = toLower(unit) >= 'a' && toLower(unit) <= 'z';
    return isLetter || isDigit(unit) || unit == '_' || unit == '-' || unit == '.';
}

QByteArray upperHex(ushort number, int digits)
{
    return QByteArray::number(number, 16).rightJustified(digits, '0').toUpper();
}

QByteArray escapedName(const QString& name)
{
    QByteArray escaped;
    escaped.reserve(name.size());
    for (const QChar ch : name) {
        const ushort unit = ch.unicode();
        if (unit == '/')
            escaped += '\\';
        else if (isPlainInName(unit))
            escaped += static_cast<char>(unit);
        else
            escaped += unit <= 0xFF ? '%' + upperHex(unit, 2) : "%U" + upperHex(unit, 4);
    }
    return escaped;
}

// A section's first line. Entries without a section have one too, so a section of that name bears a mark.
QByteArray headOf(const QString& section)
{
    const QByteArray name = escapedName(section);
    if (name.isEmpty())
        return "[General]\n";
    return (name.compare("general", Qt::CaseInsensitive) == 0 ? "[%" : "[") + name + "]\n";
}

// The letter of a character's escape sequence; 0 if it has none.
char escapeLetter(ushort unit)
{
    switch (unit) {
    case '\a':
        return 'a';
    case '\b':
        return 'b';
    case '\f':
        return 'f';
    case '\n':
        return 'n';
    case '\r':
        return 'r';
    case '\t':
        return 't';
    case '\v':
        return 'v';
    case '"':
    case '\\':
        return static_cast<char>(unit);
    default:
        return 0;
    }
}

bool isHexDigit(ushort unit) { return isDigit(unit) || (toLower(unit) >= 'a' && toLower(unit) <= 'f'); }

QByteArray escapedNumber(ushort unit) { return unit ? "\\x" + QByteArray::number(unit, 16) : QByteArray("\\0"); }

// How many units the codec has to write from a place on: a whole character, none for half of one.
int codedUnits(const QString& text, int place)
{
    if (!text.at(place).isSurrogate())
        return 1;
    const bool isPair =
        text.at(place).isHighSurrogate() && place + 1 < text.size() && text.at(place + 1).isLowSurrogate();
    return isPair ? 2 : 0;
}

QByteArray escapedText(const QString& text, QTextCodec* codec)
{
    QByteArray escaped;
    escaped.reserve(text.size());
    bool isNumber = false; // a digit would belong to the escape sequence in front of it
    for (int place = 0; place < text.size(); ++place) {
        const ushort unit = text.at(place).unicode();
        const bool wasNumber = std::exchange(isNumber, false);
        const int units = codec && unit > 0x7E ? codedUnits(text, place) : 0;
        if (const char letter = escapeLetter(unit)) {
            escaped += '\\';
            escaped += letter;
        } else if (units > 0) {
            escaped += codec->fromUnicode(text.constData() + place, units);
            place += units - 1;
        } else if (unit > 0x1F && unit < 0x7F && !(wasNumber && isHexDigit(unit))) {
            escaped += static_cast<char>(unit);
        } else {
            escaped += escapedNumber(unit);
            isNumber = true;
        }
    }
    return escaped;
}

QByteArray quotedText(const QString& text, QTextCodec* codec)
{
    const bool areBytes = text.startsWith(QLatin1String("@ByteArray(")) || text.startsWith(QLatin1String("@Variant("));
    const QByteArray escaped = escapedText(text, areBytes ? nullptr : codec);
    const bool hasSeparator = escaped.contains(';') || escaped.contains(',') || escaped.contains('=');
    const bool hasOuterBlank = escaped.startsWith(' ') || escaped.endsWith(' ');
    return hasSeparator || hasOuterBlank ? '"' + escaped + '"' : escaped;
}

QByteArray entryOf(const QString& name, const QVariant& value, QTextCodec* codec)
{
    QByteArrayList texts;
    for (const QString& text : iniTexts(value))
        texts += quotedText(text, codec);
    return escapedName(name) + '=' + texts.join(", ") + '\n';
}

} // namespace

QByteArray composedIni(const QSettings::SettingsMap& entries, QTextCodec* codec)
{
    QMap<QString, QMap<QString, QByteArray>> sections;
    for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry) {
        const int slash = entry.key().indexOf(QLatin1Char('/'));
        const QString name = entry.key().mid(slash + 1);
        sections[entry.key().left(qMax(slash, 0))][name] = entryOf(name, entry.value(), codec);
    }
    QByteArray text;
    for (auto section = sections.cbegin(); section != sections.cend(); ++section) {
        text += (text.isEmpty() ? "" : "\n") + headOf(section.key());
        for (const QByteArray& entry : section.value())
            text += entry;
    }
    return text;
}

} // namespace xe
