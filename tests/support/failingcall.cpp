#include "failingcall.h"

#include <QtTest>

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr int nothing = -1;

std::atomic<int> failingKind{nothing};
std::atomic<int> callsToGo{0};
std::atomic<int> givenError{0};
std::atomic<bool> wasReached{false};
bool isAnnounced = false;

void startFromEnvironment()
{
    int kind = 0;
    int number = 0;
    int error = 0;
    const char* const text = std::getenv("FAILING_CALL");
    if (!text || std::sscanf(text, "%d:%d:%d", &kind, &number, &error) != 3)
        return;
    callsToGo = number;
    givenError = error;
    failingKind = kind;
    isAnnounced = true;
}

// The first call may come ahead of every static object.
bool mustFail(FailingCall::Kind kind)
{
    static const bool hasStarted = (startFromEnvironment(), true);
    if (!hasStarted || failingKind != kind || --callsToGo != 0)
        return false;
    wasReached = true;
    if (isAnnounced)
        syscall(SYS_write, STDERR_FILENO, FailingCall::announcement, sizeof FailingCall::announcement - 1);
    errno = givenError;
    return true;
}

template <class Function>
Function inLibrary(const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

bool makesFile(int flags) { return (flags & O_CREAT) || (flags & O_TMPFILE) == O_TMPFILE; }

} // namespace

FailingCall::FailingCall(Kind kind, int number, int error)
{
    wasReached = false;
    callsToGo = number;
    givenError = error;
    failingKind = kind;
}

bool FailingCall::end()
{
    failingKind = nothing;
    return wasReached;
}

QByteArray FailingCall::inEnvironment(Kind kind, int number, int error)
{
    return "FAILING_CALL=" + QByteArray::number(kind) + ':' + QByteArray::number(number) + ':'
           + QByteArray::number(error);
}

void FailingCall::addRows()
{
    QTest::addColumn<FailingCall::Kind>("kind");
    QTest::addColumn<int>("error");
    QTest::newRow("write") << Write << ENOSPC;
    QTest::newRow("sync") << Sync << EIO;
    QTest::newRow("rename") << Rename << EIO;
    QTest::newRow("link") << Link << ENOSPC;
    QTest::newRow("open") << Open << EMFILE;
    QTest::newRow("read") << Read << EIO;
}

// ------------------------------------------------------------------------------- in place of the C library's functions

// Defines a function of the C library that fails when it has to: the result on failure, the kind, and the signature.
#define FAILING(failure, kind, result, name, parameters, ...)                 \
    extern "C" Q_DECL_EXPORT result name parameters                           \
    {                                                                         \
        static const auto original = inLibrary<result(*) parameters>(#name);  \
        return mustFail(FailingCall::kind) ? failure : original(__VA_ARGS__); \
    }

FAILING(-1, Write, ssize_t, write, (int file, const void* bytes, size_t count), file, bytes, count)
FAILING(-1, Read, ssize_t, read, (int file, void* bytes, size_t count), file, bytes, count)
FAILING(-1, Sync, int, fsync, (int file), file)
FAILING(-1, Sync, int, fdatasync, (int file), file)
FAILING(-1, Rename, int, rename, (const char* from, const char* to), from, to)
FAILING(-1, Rename, int, renameat, (int a, const char* from, int b, const char* to), a, from, b, to)
FAILING(-1, Rename, int, renameat2, (int a, const char* from, int b, const char* to, unsigned flags), a, from, b, to,
        flags)
FAILING(-1, Link, int, link, (const char* from, const char* to), from, to)
FAILING(-1, Link, int, linkat, (int a, const char* from, int b, const char* to, int flags), a, from, b, to, flags)
FAILING(nullptr, Open, FILE*, fopen, (const char* path, const char* mode), path, mode)
FAILING(nullptr, Open, FILE*, fopen64, (const char* path, const char* mode), path, mode)

// The same for those that take the mode of a file only if they make one.
#define FAILING_OPEN(name, parameters, ...)                                    \
    extern "C" Q_DECL_EXPORT int name parameters                               \
    {                                                                          \
        static const auto original = inLibrary<int(*) parameters>(#name);      \
        va_list rest;                                                          \
        va_start(rest, flags);                                                 \
        const mode_t mode = makesFile(flags) ? va_arg(rest, mode_t) : 0;       \
        va_end(rest);                                                          \
        return mustFail(FailingCall::Open) ? -1 : original(__VA_ARGS__, mode); \
    }

FAILING_OPEN(open, (const char* path, int flags, ...), path, flags)
FAILING_OPEN(open64, (const char* path, int flags, ...), path, flags)
FAILING_OPEN(openat, (int folder, const char* path, int flags, ...), folder, path, flags)
FAILING_OPEN(openat64, (int folder, const char* path, int flags, ...), folder, path, flags)
