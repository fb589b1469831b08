#pragma once

#include "bookarchive.h"

#include <QStringList>

/// The parts of a file: an archive if its name ends in ".parts", else CSV.
///
/// In a CSV file, a line that is not changed is saved byte for byte as it was read. That holds for the first line with
/// the names of the columns, for blank lines and for lines that cannot be read, which are kept in their places. A
/// changed line keeps its line end, and a new one ends as the first line of the file does. An archive has the parts
/// alone.
class PartsBook
{
public:
    struct BadLine
    {
        int line;
        CString_X problem;
    };

    PartsBook() = default;
    /// A book of these parts, which has no file yet and counts as saved.
    explicit PartsBook(const std::vector<Part>& parts) { takeParts(parts); }

    /// Takes the parts of a file. False, with the book as it was, if it cannot be read, is larger than 64 MiB, or is no
    /// archive though its name says so. Tells of the progress with a large archive.
    bool load(const QString& fileName, const Progress& progress = {});
    /// Writes the file that was read. False if that fails: then the file is as it was.
    bool save() { return saveAs(m_fileName); }
    /// Writes the book to this file, whose name says in which form, and goes on with it. False if that fails: then file
    /// and book are as they were.
    bool saveAs(const QString& fileName);
    /// Writes the book to this file, and goes on with the one that it has. False if that fails.
    bool copyTo(const QString& fileName);
    /// Why the last load(), save() or copyTo() failed.
    const CString_X& error() const { return m_error; }

    const QString& fileName() const { return m_fileName; }
    bool hasFile() const { return !m_fileName.isEmpty(); }
    /// The name of the file without its folder, or what stands for one.
    CString_X shortName() const;
    bool isModified() const { return m_modified; }
    /// The lines of the file that could not be read.
    const std::vector<BadLine>& badLines() const { return m_badLines; }

    int count() const { return static_cast<int>(m_entries.size()); }
    const Part& part(int row) const { return entry(row).part; }
    void change(int row, const Part& part);
    void add(const Part& part);
    void remove(int row);
    /// Gives all parts of a kind or a supplier another one.
    void rename(CString_X Part::*field, const CString_X& from, const CString_X& to);

    /// The row of the next part with this text behind `row`, then from the first one on; -1 if there is none.
    int find(const CString_X& text, bool matchCase, int row) const;
    /// The rows of all parts with this text.
    std::vector<int> findAll(const CString_X& text, bool matchCase) const;
    int countShort() const;
    /// The kinds or the suppliers of all parts, each once, in the order of their first parts. An empty one is left out.
    std::vector<CString_X> namesOf(CString_X Part::*field) const;
    /// The same for the suppliers in the order of the alphabet, whatever their case.
    QStringList suppliers() const;

private:
    struct Entry
    {
        QByteArray before; // lines that are no parts
        QByteArray text;
        Part part;
    };

    const Entry& entry(int row) const { return m_entries.at(static_cast<std::size_t>(row)); }
    Entry& entry(int row) { return m_entries.at(static_cast<std::size_t>(row)); }
    void takeCsv(QByteArray text);
    CString_X takeArchive(const QByteArray& archive, const Progress& progress);
    void take(const CsvRecord& record);
    void takeParts(const std::vector<Part>& parts);
    void endLastLine();
    QByteArray csv() const;
    QByteArray archive() const;

    QString m_fileName;
    CString_X m_error;
    QByteArray m_mark; // the byte order mark, if the file has one
    QByteArray m_lineEnd = "\n";
    std::vector<Entry> m_entries;
    QByteArray m_rest; // lines behind the last part
    std::vector<BadLine> m_badLines;
    bool m_modified = false;
};
