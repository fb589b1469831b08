#include "partsbook.h"

#include "text.h"

#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <utility>

namespace {

constexpr qint64 largestFile = 64 << 20;
constexpr char byteOrderMark[] = "\xEF\xBB\xBF";

bool isHeading(const CsvRecord& record)
{
    return record.line == 1 && !record.fields.empty()
           && partColumns().front().CompareNoCase(record.fields.front()) == 0;
}

// Why it cannot be read; empty if it can.
CString_X readFile(const QString& fileName, QByteArray& text)
{
    const QFileInfo info(fileName);
    QFile file(fileName);
    if (info.exists() && !info.isFile())
        return loadText(IDS_NO_FILE);
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();
    if (file.size() > largestFile)
        return loadText(IDS_TOO_LARGE);
    text = file.readAll();
    return file.error() == QFile::NoError ? CString_X() : file.errorString();
}

} // namespace

// ---------------------------------------------------------------------------------------------------------- the file

bool PartsBook::load(const QString& fileName)
{
    QByteArray text;
    m_error = readFile(fileName, text);
    if (!m_error.IsEmpty())
        return false;

    *this = PartsBook();
    m_fileName = fileName;
    if (text.startsWith(byteOrderMark)) {
        m_mark = byteOrderMark;
        text.remove(0, m_mark.size());
    }
    const std::vector<CsvRecord> records = readCsv(text);
    if (!records.empty() && !lineEndOf(records.front().text).isEmpty())
        m_lineEnd = lineEndOf(records.front().text);
    for (const CsvRecord& record : records)
        take(record);
    return true;
}

void PartsBook::take(const CsvRecord& record)
{
    Part part;
    CString_X problem;
    const bool isData = !record.isBlank() && !isHeading(record);
    if (isData)
        problem = record.problem ? loadText(record.problem) : readPart(record.fields, part);
    if (isData && problem.IsEmpty()) {
        m_entries.push_back({std::exchange(m_rest, {}), record.text, part});
        return;
    }
    m_rest += record.text;
    if (isData)
        m_badLines.push_back({record.line, problem});
}

bool PartsBook::save()
{
    QSaveFile file(m_fileName);
    const QByteArray text = contents();
    // commit() does not notice that what was still in the buffer could not be written; flush() does.
    const bool saved =
        file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush() && file.commit();
    if (saved)
        m_modified = false;
    else
        m_error = file.errorString();
    return saved;
}

QByteArray PartsBook::contents() const
{
    QByteArray text = m_mark;
    for (const Entry& one : m_entries)
        text += one.before + one.text;
    return text + m_rest;
}

// --------------------------------------------------------------------------------------------------------- the parts

void PartsBook::change(int row, const Part& part)
{
    Entry& changed = entry(row);
    if (changed.part == part)
        return;
    changed.part = part;
    changed.text = csvLine(fieldsOf(part)) + lineEndOf(changed.text);
    m_modified = true;
}

void PartsBook::add(const Part& part)
{
    endLastLine();
    m_entries.push_back({std::exchange(m_rest, {}), csvLine(fieldsOf(part)) + m_lineEnd, part});
    m_modified = true;
}

void PartsBook::endLastLine()
{
    QByteArray& last = m_rest.isEmpty() && !m_entries.empty() ? m_entries.back().text : m_rest;
    if (!last.isEmpty() && lineEndOf(last).isEmpty())
        last += m_lineEnd;
}

void PartsBook::remove(int row)
{
    QByteArray& follower = row + 1 < count() ? entry(row + 1).before : m_rest;
    follower.prepend(entry(row).before);
    m_entries.erase(m_entries.begin() + row);
    m_modified = true;
}

int PartsBook::find(const CString_X& text, bool matchCase, int row) const
{
    for (int i = 1; i <= count(); ++i) {
        const int next = (row + i) % count();
        if (hasText(part(next), text, matchCase))
            return next;
    }
    return -1;
}

int PartsBook::countShort() const
{
    return static_cast<int>(
        std::count_if(m_entries.begin(), m_entries.end(), [](const Entry& one) { return one.part.isShort(); }));
}
