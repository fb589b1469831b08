#include "partsbook.h"

#include "bookfile.h"
#include "text.h"

#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <utility>

namespace {

constexpr char byteOrderMark[] = "\xEF\xBB\xBF";

bool isHeading(const CsvRecord& record)
{
    return record.line == 1 && !record.fields.empty()
           && partColumns().front().CompareNoCase(record.fields.front()) == 0;
}

bool isArchive(const QString& fileName) { return fileName.endsWith(QLatin1String(".parts"), Qt::CaseInsensitive); }

} // namespace

// ---------------------------------------------------------------------------------------------------------- the file

bool PartsBook::load(const QString& fileName, const Progress& progress)
{
    QByteArray content;
    if (!readWhole(fileName, content, m_error))
        return false;
    PartsBook book;
    if (isArchive(fileName))
        m_error = book.takeArchive(content, progress);
    else
        book.takeCsv(content);
    if (!m_error.IsEmpty())
        return false;
    *this = book;
    m_fileName = fileName;
    return true;
}

CString_X PartsBook::shortName() const
{
    return hasFile() ? CString_X(QFileInfo(m_fileName).fileName()) : loadText(IDS_UNTITLED);
}

void PartsBook::takeCsv(QByteArray text)
{
    if (text.startsWith(byteOrderMark)) {
        m_mark = byteOrderMark;
        text.remove(0, m_mark.size());
    }
    const std::vector<CsvRecord> records = readCsv(text);
    if (!records.empty() && !lineEndOf(records.front().text).isEmpty())
        m_lineEnd = lineEndOf(records.front().text);
    for (const CsvRecord& record : records)
        take(record);
}

CString_X PartsBook::takeArchive(const QByteArray& archive, const Progress& progress)
{
    std::vector<Part> parts;
    CString_X problem = readArchive(archive, parts, progress);
    takeParts(parts);
    return problem;
}

// The lines are those that a CSV file would have.
void PartsBook::takeParts(const std::vector<Part>& parts)
{
    m_rest = csvLine(partColumns()) + m_lineEnd;
    for (const Part& part : parts)
        m_entries.push_back({std::exchange(m_rest, {}), csvLine(fieldsOf(part)) + m_lineEnd, part});
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

bool PartsBook::copyTo(const QString& fileName)
{
    return writeWhole(fileName, isArchive(fileName) ? archive() : csv(), m_error);
}

bool PartsBook::saveAs(const QString& fileName)
{
    if (!copyTo(fileName))
        return false;
    m_fileName = fileName;
    m_modified = false;
    return true;
}

QByteArray PartsBook::csv() const
{
    QByteArray text = m_mark;
    for (const Entry& one : m_entries)
        text += one.before + one.text;
    return text + m_rest;
}

QByteArray PartsBook::archive() const
{
    std::vector<Part> parts;
    for (const Entry& one : m_entries)
        parts.push_back(one.part);
    return archiveOf(parts);
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

void PartsBook::rename(CString_X Part::*field, const CString_X& from, const CString_X& to)
{
    for (int row = 0; row < count(); ++row) {
        if (part(row).*field != from)
            continue;
        Part renamed = part(row);
        renamed.*field = to;
        change(row, renamed);
    }
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

std::vector<int> PartsBook::findAll(const CString_X& text, bool matchCase) const
{
    std::vector<int> rows;
    for (int row = 0; row < count(); ++row) {
        if (hasText(part(row), text, matchCase))
            rows.push_back(row);
    }
    return rows;
}

int PartsBook::countShort() const
{
    return static_cast<int>(
        std::count_if(m_entries.begin(), m_entries.end(), [](const Entry& one) { return one.part.isShort(); }));
}

std::vector<CString_X> PartsBook::namesOf(CString_X Part::*field) const
{
    std::vector<CString_X> names;
    QSet<QString> known{QString()}; // so that the empty one is none
    for (const Entry& one : m_entries) {
        const CString_X& name = one.part.*field;
        const int before = known.size();
        known.insert(XeQString(name));
        if (known.size() > before)
            names.push_back(name);
    }
    return names;
}

QStringList PartsBook::suppliers() const
{
    QStringList names;
    for (const CString_X& supplier : namesOf(&Part::supplier))
        names += XeQString(supplier);
    names.sort(Qt::CaseInsensitive);
    return names;
}
