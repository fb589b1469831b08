#include "commands.h"

#include "registrytext.h"

#include <cstdio>

namespace {

template <class Number>
void writeNumber(HKEY key, const QStringList& words, DWORD type)
{
    const auto number = static_cast<Number>(words.value(3).toULongLong());
    RegSetValueExA_X(key, words.value(2).toLatin1(), 0, type, &number, sizeof number);
}

// What the command prints; null for an unknown command.
QString carriedOut(const QStringList& words)
{
    const QString& verb = words.first();
    const Key key(words.value(1).toLatin1());
    const QByteArray name = words.value(2).toLatin1();
    if (verb == "create")
        RegCreateKeyExA_X(HKEY_CURRENT_USER, name, 0, nullptr, 0, 0, nullptr, nullptr, nullptr);
    else if (verb == "flush")
        RegFlushKey_X(key);
    else if (verb == "dword")
        writeNumber<DWORD>(key, words, REG_DWORD);
    else if (verb == "qword")
        writeNumber<quint64>(key, words, REG_QWORD);
    else if (verb == "text")
        RegSetValueExA_X(key, name, 0, REG_SZ, words.value(3).toLatin1().constData(), 0);
    else if (verb == "delete")
        RegDeleteKey_X(key, words.value(2).toStdWString().c_str());
    else if (verb == "query")
        return queried(key, name) + '\n';
    else if (verb == "entries")
        return entriesOf(key).join(' ') + '\n';
    else if (verb == "texts")
        return textsOf(key).join(' ') + '\n';
    else
        return {};
    return QLatin1String("");
}

} // namespace

int runCommands(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        const QString output = carriedOut(QString::fromUtf8(argv[i]).split('|'));
        if (output.isNull())
            return 2;
        std::fputs(output.toUtf8(), stdout);
    }
    return 0;
}
