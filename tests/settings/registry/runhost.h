#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

/// Runs one of the host programs, named by its environment variable, with its settings below a folder; what it prints,
/// or how it ended if it did not end well.
inline QString runProgram(const char* program, const QString& configFolder, const QStringList& commands)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), configFolder);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(qEnvironmentVariable(program), commands);
    if (!process.waitForFinished(60000))
        return process.errorString();
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        return QStringLiteral("exit code %1: ").arg(process.exitCode()) + process.readAllStandardError();
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

inline QString runHost(const QString& configFolder, const QStringList& commands)
{
    return runProgram("HOST", configFolder, commands);
}
