#include "settings/inifile.h"

#include <QFile>
#include <QSaveFile>
#include <QSettings>
#include <QTemporaryFile>

#include <new>

namespace {

constexpr int longestStream = 4096; // some hundred lists in lists

bool hasStream(const QByteArray& text) { return text.contains("@Variant(") || text.contains("@DateTime("); }

bool endsLine(char ch) { return ch == '\n' || ch == '\r'; }

// The end of the line, as QSettings sees it: in quotation marks and behind a backslash a line goes on. Comments have
// neither.
int endOfLine(const QByteArray& ini, int place)
{
    const bool isComment = ini.at(place) == ';';
    bool isQuoted = false;
    for (; place < ini.size(); ++place) {
        const char ch = ini.at(place);
        if (endsLine(ch) && !isQuoted)
            return place + 1;
        if (ch == '"' && !isComment)
            isQuoted = !isQuoted;
        else if (ch == '\\' && !isComment)
            place += ini.mid(place + 1, 2) == "\r\n" ? 2 : 1;
    }
    return ini.size();
}

bool canBeRead(const QByteArray& line)
{
    QTemporaryFile file;
    if (!file.open() || file.write(line) != line.size() || !file.flush())
        return false;
    try {
        QSettings(file.fileName(), QSettings::IniFormat).allKeys();
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}

bool isHarmful(const QByteArray& line) { return hasStream(line) && (line.size() > longestStream || !canBeRead(line)); }

} // namespace

QByteArray xe::withoutHarmfulEntries(const QByteArray& ini)
{
    if (!hasStream(ini))
        return ini;
    QByteArray harmless;
    for (int place = 0; place < ini.size();) {
        const int end = endOfLine(ini, place);
        const QByteArray line = ini.mid(place, end - place);
        if (!isHarmful(line))
            harmless += line;
        place = end;
    }
    return harmless;
}

QByteArray xe::contentOf(const QString& fileName)
{
    QFile file(fileName);
    return !fileName.isEmpty() && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool xe::disarmIniFile(const QString& fileName)
{
    const QByteArray ini = contentOf(fileName);
    const QByteArray harmless = withoutHarmfulEntries(ini);
    if (harmless.size() == ini.size())
        return false;
    QFile::rename(fileName, fileName + QStringLiteral(".damaged"));
    QSaveFile file(fileName);
    if (file.open(QIODevice::WriteOnly) && file.write(harmless) == harmless.size() && file.flush())
        file.commit();
    return true;
}
