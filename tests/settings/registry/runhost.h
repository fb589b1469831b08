#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

/// Runs a host program with its settings below a folder, and with one more setting of its environment ("NAME=value");
/// what it prints, or how it ended if it did not end well.
class HostRun
{
public:
    HostRun(const char* programVariable, const QString& configFolder, const QStringList& commands,
            const QByteArray& setting = "NOTHING=else")
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), configFolder);
        environment.insert(setting.split('=').first(), setting.split('=').last());
        m_process.setProcessEnvironment(environment);
        m_process.start(qEnvironmentVariable(programVariable), commands);
        m_process.waitForFinished(60000);
        m_errors = m_process.readAllStandardError();
    }

    QByteArray errors() const { return m_errors; }
    bool endedWell() const { return m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0; }

    QString answer()
    {
        if (m_process.error() != QProcess::UnknownError)
            return m_process.errorString();
        if (!endedWell())
            return QStringLiteral("exit code %1: ").arg(m_process.exitCode()) + m_errors;
        return QString::fromUtf8(m_process.readAllStandardOutput()).trimmed();
    }

private:
    QProcess m_process;
    QByteArray m_errors;
};

inline QString runProgram(const char* programVariable, const QString& configFolder, const QStringList& commands)
{
    return HostRun(programVariable, configFolder, commands).answer();
}

inline QString runHost(const QString& configFolder, const QStringList& commands)
{
    return runProgram("HOST", configFolder, commands);
}
