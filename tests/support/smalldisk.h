#pragma once

#include <QTemporaryDir>

#include <csignal>

#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>

/// A folder on a disk of 16 KiB, for this process and those that it starts. Where the machine allows no mount, the
/// longest file that these processes can write stands for the room on the disk.
class SmallDisk
{
public:
    static constexpr int block = 4096;
    static constexpr int blocks = 4;

    SmallDisk()
    {
        m_isMounted = unshare(CLONE_NEWNS) == 0 && mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0
                      && mount("tmpfs", path().toUtf8(), "tmpfs", 0, "size=16k") == 0;
        getrlimit(RLIMIT_FSIZE, &m_limit);
        m_signal = std::signal(SIGXFSZ, SIG_IGN);
    }

    ~SmallDisk()
    {
        makeRoom();
        std::signal(SIGXFSZ, m_signal);
        if (m_isMounted)
            umount2(path().toUtf8(), MNT_DETACH);
    }
    Q_DISABLE_COPY_MOVE(SmallDisk)

    QString path() const { return m_folder.path(); }

    /// Whether it is a disk of its own.
    bool isMounted() const { return m_isMounted; }

    /// Leaves so many blocks free; fewer if there are not as many.
    void leave(int free)
    {
        makeRoom();
        const rlimit limit{static_cast<rlim_t>(free) * block, m_limit.rlim_max};
        if (!m_isMounted)
            setrlimit(RLIMIT_FSIZE, &limit);
        QFile ballast(ballastName());
        if (!m_isMounted || !ballast.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            return;
        while (ballast.write(QByteArray(block, 'x')) == block) {
        }
        ballast.resize(qMax<qint64>(0, ballast.size() - free * block));
    }

    /// Gives back what leave() has taken.
    void makeRoom()
    {
        setrlimit(RLIMIT_FSIZE, &m_limit);
        QFile::remove(ballastName());
    }

private:
    QString ballastName() const { return m_folder.filePath(QStringLiteral("ballast")); }

    const QTemporaryDir m_folder;
    bool m_isMounted = false;
    rlimit m_limit{};
    sighandler_t m_signal = SIG_DFL;
};
