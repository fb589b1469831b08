#include "settings/inivalue.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QIODevice>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QtEndian>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <new>
#include <optional>

namespace xe {

namespace {

const QLatin1String variantForm("@Variant(");
const QLatin1String dateForm("@DateTime(");

QString latin1(const QByteArray& bytes) { return QString::fromLatin1(bytes.constData(), bytes.size()); }

// ------------------------------------------------------------------------------------------------------------ streams

constexpr std::uintptr_t stackForStreams = 256 * 1024; // 800 lists in lists

// The bytes of a stream, which end when reading them has taken too much of the stack.
class StreamDevice : public QIODevice
{
public:
    explicit StreamDevice(const QByteArray& bytes) : m_bytes(bytes), m_stack(stackHere())
    {
        open(ReadOnly | Unbuffered);
    }

    bool isSequential() const override { return true; }
    bool isTooDeep() const { return m_isTooDeep; }

    // Whether the number that was read last, taken for a count, is more than there are bytes.
    bool promisesTooMuch() const { return m_lastNumber > static_cast<quint32>(m_bytes.size() - m_place); }

protected:
    qint64 readData(char* data, qint64 count) override
    {
        m_isTooDeep = m_isTooDeep || m_stack - stackHere() > stackForStreams;
        if (m_isTooDeep)
            return -1;
        count = std::min<qint64>(count, m_bytes.size() - m_place);
        std::memcpy(data, m_bytes.constData() + m_place, static_cast<std::size_t>(count));
        m_place += static_cast<int>(count);
        m_lastNumber = count == sizeof m_lastNumber ? qFromBigEndian<quint32>(data) : 0;
        return count;
    }

    qint64 writeData(const char*, qint64) override { return -1; }

private:
    static std::uintptr_t stackHere() { return reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0)); }

    const QByteArray m_bytes;
    const std::uintptr_t m_stack;
    int m_place = 0;
    quint32 m_lastNumber = 0;
    bool m_isTooDeep = false;
};

// Types that are pictures or hold some, as streams number them. Qt ends a process that makes one ahead of its
// application.
constexpr char pictureTypes[] = {65, 66, 68, 69, 73, 74, 77};

bool mustWait(const QByteArray& stream)
{
    return !QCoreApplication::instance()
           && std::any_of(std::begin(pictureTypes), std::end(pictureTypes), [&stream](char type) {
                  const char number[] = {0, 0, 0, type};
                  return stream.contains(QByteArray::fromRawData(number, sizeof number));
              });
}

bool isStream(const QString& text)
{
    return (text.startsWith(variantForm) || text.startsWith(dateForm)) && text.endsWith(QLatin1Char(')'));
}

IniStream readStream(const QString& text, QVariant& value)
{
    if (!isStream(text))
        return IniStream::None;
    const bool isDate = text.startsWith(dateForm);
    const QByteArray bytes = text.midRef(isDate ? dateForm.size() : variantForm.size()).toLatin1();
    if (mustWait(bytes))
        return IniStream::Unknown;
    StreamDevice device(bytes);
    QDataStream stream(&device);
    stream.setVersion(isDate ? QDataStream::Qt_5_6 : QDataStream::Qt_4_0);
    try {
        stream >> value;
    } catch (const std::bad_alloc&) {
        if (!device.promisesTooMuch())
            throw;
        return IniStream::Harmful;
    }
    if (device.isTooDeep())
        return IniStream::Harmful;
    return stream.status() == QDataStream::Ok ? IniStream::Read : IniStream::Unknown;
}

QString streamOf(const QVariant& value)
{
    const bool isDate = value.userType() == QMetaType::QDateTime;
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(isDate ? QDataStream::Qt_5_6 : QDataStream::Qt_4_0);
    stream << value;
    return (isDate ? dateForm : variantForm) + latin1(bytes) + QLatin1Char(')');
}

// -------------------------------------------------------------------------------------------------------- other forms

// What stands between the parentheses of a form, if the text has this form.
std::optional<QString> contentOf(const QString& text, const char* form)
{
    const QLatin1String start(form);
    if (!text.startsWith(start) || !text.endsWith(QLatin1Char(')')))
        return {};
    return text.mid(start.size(), text.size() - start.size() - 1);
}

// The numbers of a form, for which Qt writes "@Point(1 2)"; none if there are not as many. Each ")" ends one.
QVector<int> numbersOf(const QString& text, const char* form, int count)
{
    QVector<int> numbers;
    QString digits;
    for (const QChar ch : contentOf(text, form).value_or(QString()) + QLatin1Char(')')) {
        const bool endsNumber = ch == QLatin1Char(' ') || ch == QLatin1Char(')');
        if (endsNumber)
            numbers += digits.toInt();
        else
            digits += ch;
        if (ch == QLatin1Char(' '))
            digits.clear();
    }
    return numbers.size() == count ? numbers : QVector<int>();
}

QVariant valueOfNumbers(const QString& text)
{
    if (const auto numbers = numbersOf(text, "@Rect(", 4); !numbers.isEmpty())
        return QRect(numbers[0], numbers[1], numbers[2], numbers[3]);
    if (const auto numbers = numbersOf(text, "@Size(", 2); !numbers.isEmpty())
        return QSize(numbers[0], numbers[1]);
    if (const auto numbers = numbersOf(text, "@Point(", 2); !numbers.isEmpty())
        return QPoint(numbers[0], numbers[1]);
    return text;
}

QString plainText(const QString& text)
{
    if (text.contains(QChar::Null))
        return QLatin1String("@String(") + text + QLatin1Char(')');
    return text.startsWith(QLatin1Char('@')) ? QLatin1Char('@') + text : text;
}

QString iniText(const QVariant& value)
{
    switch (static_cast<int>(value.type())) {
    case QMetaType::UnknownType:
        return QStringLiteral("@Invalid()");
    case QMetaType::QByteArray:
        return QLatin1String("@ByteArray(") + latin1(value.toByteArray()) + QLatin1Char(')');
    case QMetaType::QString:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Bool:
    case QMetaType::Double:
    case QMetaType::QKeySequence:
        return plainText(value.toString());
    case QMetaType::QRect: {
        const QRect rect = value.toRect();
        return QStringLiteral("@Rect(%1 %2 %3 %4)").arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height());
    }
    case QMetaType::QSize:
        return QStringLiteral("@Size(%1 %2)").arg(value.toSize().width()).arg(value.toSize().height());
    case QMetaType::QPoint:
        return QStringLiteral("@Point(%1 %2)").arg(value.toPoint().x()).arg(value.toPoint().y());
    default:
        return value.userType() == qMetaTypeId<SealedValue>() ? value.value<SealedValue>().text : streamOf(value);
    }
}

} // namespace

IniStream iniStreamOf(const QString& text)
{
    QVariant value;
    return readStream(text, value);
}

QVariant iniValue(const QString& text)
{
    if (!text.startsWith(QLatin1Char('@')))
        return text;
    if (text.startsWith(QLatin1String("@@")))
        return text.mid(1);
    QVariant value;
    const IniStream stream = readStream(text, value);
    if (stream == IniStream::Unknown || stream == IniStream::Harmful)
        return QVariant::fromValue(SealedValue{text, stream == IniStream::Harmful});
    if (stream == IniStream::Read)
        return value;
    if (const auto bytes = contentOf(text, "@ByteArray("))
        return bytes->toLatin1();
    if (const auto plain = contentOf(text, "@String("))
        return *plain;
    return text == QLatin1String("@Invalid()") ? QVariant() : valueOfNumbers(text);
}

QVariant iniValue(const QStringList& texts)
{
    if (texts.size() == 1)
        return iniValue(texts.first());
    QStringList plain;
    QVariantList values;
    for (const QString& text : texts) {
        values += iniValue(text);
        plain += values.last().toString();
    }
    const bool isPlain = std::all_of(texts.begin(), texts.end(), [](const QString& text) {
        return !text.startsWith(QLatin1Char('@')) || text.startsWith(QLatin1String("@@"));
    });
    return isPlain ? QVariant(plain) : QVariant(values);
}

QStringList iniTexts(const QVariant& value)
{
    const int type = static_cast<int>(value.type());
    if (type == QMetaType::QString || type == QMetaType::UInt) // most values
        return {iniText(value)};
    const QVariantList values = value.toList();
    if (type != QMetaType::QStringList && (type != QMetaType::QVariantList || values.size() == 1))
        return {iniText(value)};
    if (values.isEmpty())
        return {QStringLiteral("@Invalid()")};
    QStringList texts;
    std::transform(values.begin(), values.end(), std::back_inserter(texts), iniText);
    return texts;
}

} // namespace xe
