#pragma once

#include <QByteArray>
#include <QMetaType>

#include <cerrno>

/// While it lives, one call of the system fails, in whatever thread or library it is made: of the calls of one kind,
/// the one with this number, from 1 on. A test counts up until the number is not reached any more:
/// @code
/// for (int number = 1, wasReached = true; wasReached; ++number) {
///     FailingCall call(FailingCall::Write, number);
///     save();
///     wasReached = call.end();
///     QVERIFY(isWhole());
/// }
/// @endcode
/// The program is linked with failingcall.cpp, which stands in front of the C library. A program that is started with
/// what inEnvironment() gives fails in the same way from its first call on.
class FailingCall
{
public:
    enum Kind { Write, Sync, Rename, Link, Open, Read };

    explicit FailingCall(Kind kind, int number, int error = ENOSPC);
    ~FailingCall() { end(); }
    Q_DISABLE_COPY_MOVE(FailingCall)

    /// Nothing fails any more. Whether something has failed.
    bool end();

    /// "FAILING_CALL=0:3:28". The program writes `announcement` to its standard error when the call fails.
    static QByteArray inEnvironment(Kind kind, int number, int error = ENOSPC);
    static constexpr char announcement[] = "a call fails\n";

    /// Columns "kind" and "error" of a test's data, with a row for each kind.
    static void addRows();
};

Q_DECLARE_METATYPE(FailingCall::Kind)
