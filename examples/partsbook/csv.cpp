#include "csv.h"

#include "resource.h"

#include <stdexcept>

namespace {

class CsvReader
{
public:
    explicit CsvReader(const QByteArray& file) : m_file(file) {}

    bool atEnd() const { return m_position == m_file.size(); }
    CsvRecord next();

private:
    char peek() const { return atEnd() ? '\0' : m_file.at(m_position); }
    bool isAt(char c) const { return !atEnd() && peek() == c; }
    bool atLineEnd() const { return atEnd() || isAt('\n') || isAt('\r'); }
    bool take(char c);
    bool takeLineEnd();

    unsigned readFields(CsvFields& fields);
    unsigned readField(QByteArray& field);
    unsigned readQuoted(QByteArray& field);
    void skipLine();
    void countLines(const QByteArray& text);

    const QByteArray& m_file;
    int m_position = 0;
    int m_line = 1;
};

bool CsvReader::take(char c)
{
    if (!isAt(c))
        return false;
    ++m_position;
    return true;
}

bool CsvReader::takeLineEnd()
{
    const bool cr = take('\r');
    return take('\n') || cr;
}

// The problem, and so is the result of the functions below.
unsigned CsvReader::readQuoted(QByteArray& field)
{
    for (; !atEnd(); ++m_position) {
        if (take('"') && !isAt('"'))
            return isAt(',') || atLineEnd() ? 0 : IDS_BEHIND_QUOTE;
        field += peek();
    }
    return IDS_OPEN_QUOTE;
}

unsigned CsvReader::readField(QByteArray& field)
{
    if (take('"'))
        return readQuoted(field);
    for (; !isAt(',') && !atLineEnd(); ++m_position)
        field += peek();
    return 0;
}

unsigned CsvReader::readFields(CsvFields& fields)
{
    do {
        QByteArray field;
        if (const unsigned problem = readField(field))
            return problem;
        if (field.contains('\0'))
            return IDS_NO_TEXT;
        fields.emplace_back(field.constData());
    } while (take(','));
    takeLineEnd();
    return 0;
}

void CsvReader::skipLine()
{
    while (!atLineEnd())
        ++m_position;
    takeLineEnd();
}

void CsvReader::countLines(const QByteArray& text)
{
    m_line += text.count('\n') + text.count('\r') - text.count("\r\n");
}

CsvRecord CsvReader::next()
{
    const int begin = m_position;
    CsvRecord record;
    record.line = m_line;
    try {
        record.problem = readFields(record.fields);
    } catch (const std::range_error&) {
        record.problem = IDS_NO_TEXT; // no UTF-8
    }
    if (record.problem) {
        record.fields.clear();
        m_position = begin;
        skipLine();
    }
    record.text = m_file.mid(begin, m_position - begin);
    countLines(record.text);
    return record;
}

QByteArray csvField(CString_X field)
{
    if (field.FindOneOf(L",\"\r\n") < 0)
        return field.Utf8Ptr();
    field.Replace(L"\"", L"\"\"");
    return '"' + QByteArray(field.Utf8Ptr()) + '"';
}

} // namespace

bool CsvRecord::isBlank() const { return text.trimmed().isEmpty(); }

std::vector<CsvRecord> readCsv(const QByteArray& file)
{
    std::vector<CsvRecord> records;
    CsvReader reader(file);
    while (!reader.atEnd())
        records.push_back(reader.next());
    return records;
}

QByteArray csvLine(const CsvFields& fields)
{
    QByteArray line;
    for (const CString_X& field : fields)
        line += csvField(field) + ',';
    line.chop(1);
    return line;
}

QByteArray lineEndOf(const QByteArray& text)
{
    for (const char* end : {"\r\n", "\n", "\r"}) {
        if (text.endsWith(end))
            return end;
    }
    return {};
}
