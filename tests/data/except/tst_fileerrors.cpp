#include "testclass.h"

#include <xeexcept.h>

// The causes of error numbers: both tables, and the functions that throw by them.

namespace {

// The published numbers of the causes.
enum Cause {
    None,
    Generic,
    FileNotFound,
    BadPath,
    TooManyOpenFiles,
    AccessDenied,
    InvalidFile,
    RemoveCurrentDir,
    DirectoryFull,
    BadSeek,
    HardIO,
    SharingViolation,
    LockViolation,
    DiskFull,
    EndOfFile
};

void row(int error, int cause) { QTest::newRow(qPrintable(QString::number(error))) << error << cause; }

template <class Throw>
QString thrown(Throw doThrow)
{
    try {
        doThrow();
    } catch (CFileException_X* exception) {
        const QString text = QStringLiteral("cause %1, error %2, file '%3', auto-delete %4")
                                 .arg(exception->m_cause)
                                 .arg(exception->m_lOsError)
                                 .arg(XeQString(exception->m_strFileName))
                                 .arg(exception->autoDelete);
        exception->Delete();
        return text;
    }
    return QStringLiteral("nothing");
}

} // namespace

class tst_FileErrors : public QObject
{
    Q_OBJECT

private slots:
    void causeNumbers();
    void errnoCauses_data();
    void errnoCauses();
    void osErrorCauses_data();
    void osErrorCauses();
    void osErrorsWithoutACause();
    void throwingByNumber();
    void theExceptionKeepsItsArguments();
};

void tst_FileErrors::causeNumbers()
{
    QCOMPARE(int(CFileException_X::none), 0);
    QCOMPARE(int(CFileException_X::genericException), 1);
    QCOMPARE(int(CFileException_X::accessDenied), 5);
    QCOMPARE(int(CFileException_X::endOfFile), 14);
    QCOMPARE(int(CArchiveException_X::endOfFile), 3);
    QCOMPARE(int(CArchiveException_X::badSchema), 7);
}

void tst_FileErrors::errnoCauses_data()
{
    QTest::addColumn<int>("error");
    QTest::addColumn<int>("cause");

    // From 1 on.
    const int causes[] = {5, 2, 1, 1,  10, 1, 1, 1, 6, 1,  1, 1, 5, 1, 1, 1, 1, 1,
                          1, 1, 1, 10, 2,  4, 1, 1, 1, 13, 1, 1, 1, 1, 1, 1, 1, 11};
    static_assert(std::size(causes) == 36);
    for (int i = 0; i < 36; ++i)
        row(i + 1, causes[i]);
    row(0, Generic);
    row(-1, Generic);
    row(37, Generic);
    row(112, Generic);
    row(INT_MAX, Generic);
    row(INT_MIN, Generic);
}

void tst_FileErrors::errnoCauses()
{
    QFETCH(int, error);
    QTEST(CFileException_X::ErrnoToException(error), "cause");
}

void tst_FileErrors::osErrorCauses_data()
{
    QTest::addColumn<int>("error");
    QTest::addColumn<int>("cause");

    row(0, None);
    row(2, FileNotFound);
    row(3, BadPath);
    row(4, TooManyOpenFiles);
    row(5, AccessDenied);
    row(6, FileNotFound);
    row(11, InvalidFile);
    row(12, AccessDenied);
    row(15, BadPath);
    row(16, RemoveCurrentDir);
    row(17, BadPath);
    row(18, FileNotFound);
    row(19, AccessDenied);
    row(20, HardIO);
    row(21, HardIO);
    row(22, HardIO);
    row(23, HardIO);
    row(24, BadSeek);
    row(25, BadSeek);
    row(26, InvalidFile);
    row(27, BadSeek);
    row(29, AccessDenied);
    row(30, BadSeek);
    row(32, SharingViolation);
    row(33, LockViolation);
    row(34, BadPath);
    row(36, TooManyOpenFiles);
    row(38, EndOfFile);
    row(39, DiskFull);
    row(52, BadPath);
    row(53, BadPath);
    row(54, AccessDenied);
    row(55, BadPath);
    row(57, HardIO);
    row(58, AccessDenied);
    row(59, HardIO);
    row(60, InvalidFile);
    row(62, DirectoryFull);
    row(64, AccessDenied);
    row(65, AccessDenied);
    row(66, InvalidFile);
    row(67, BadPath);
    row(68, TooManyOpenFiles);
    row(70, BadPath);
    row(71, AccessDenied);
    row(80, AccessDenied);
    row(82, AccessDenied);
    row(85, BadPath);
    row(86, AccessDenied);
    row(88, HardIO);
    row(107, FileNotFound);
    row(108, LockViolation);
    row(111, BadPath);
    row(112, DiskFull);
    row(113, TooManyOpenFiles);
    row(114, InvalidFile);
    row(117, HardIO);
    row(123, BadPath);
    row(124, BadPath);
    row(125, BadPath);
    row(131, BadSeek);
    row(132, BadSeek);
    row(144, BadPath);
    row(145, RemoveCurrentDir);
    row(154, BadPath);
    row(161, BadPath);
    row(167, LockViolation);
    row(170, AccessDenied);
    row(182, InvalidFile);
    row(183, AccessDenied);
    row(191, InvalidFile);
    row(193, InvalidFile);
    row(206, BadPath);
    row(208, BadPath);
    row(267, BadPath);
    row(995, HardIO);
    row(996, HardIO);
    row(997, HardIO);
    row(999, AccessDenied);
    row(-1, Generic);
    row(INT_MAX, Generic);
    row(INT_MIN, Generic);
}

void tst_FileErrors::osErrorCauses()
{
    QFETCH(int, error);
    QTEST(CFileException_X::OsErrorToException(error), "cause");
}

// Together with the rows above this is every number up to 2000.
void tst_FileErrors::osErrorsWithoutACause()
{
    int known = 0;
    for (int error = 1; error <= 2000; ++error)
        known += CFileException_X::OsErrorToException(error) != Generic;
    QCOMPARE(known, 78);
    for (int error : {1, 7, 8, 9, 10, 13, 14, 28, 31, 35, 37, 50, 87, 110, 122, 998, 1000})
        QCOMPARE(CFileException_X::OsErrorToException(error), int(Generic));
}

void tst_FileErrors::throwingByNumber()
{
    QCOMPARE(thrown([] { CFileException_X::ThrowOsError(0, L"a"); }), QStringLiteral("nothing"));
    QCOMPARE(thrown([] { CFileException_X::ThrowErrno(0, L"a"); }), QStringLiteral("nothing"));
    QCOMPARE(thrown([] { CFileException_X::ThrowOsError(112, L"parts"); }),
             QStringLiteral("cause 13, error 112, file 'parts', auto-delete 1"));
    QCOMPARE(thrown([] { CFileException_X::ThrowOsError(-7); }),
             QStringLiteral("cause 1, error -7, file '', auto-delete 1"));
    QCOMPARE(thrown([] { CFileException_X::ThrowErrno(ENOSPC, L"parts"); }),
             QStringLiteral("cause 13, error 0, file 'parts', auto-delete 1"));
    QCOMPARE(thrown([] { CFileException_X::ThrowErrno(-7); }),
             QStringLiteral("cause 1, error 0, file '', auto-delete 1"));
}

void tst_FileErrors::theExceptionKeepsItsArguments()
{
    QCOMPARE(thrown([] { AfxThrowFileException_X(77, -5, L"\x9F7F\x8F6E"); }),
             QString::fromUtf8("cause 77, error -5, file '\xE9\xBD\xBF\xE8\xBD\xAE', auto-delete 1"));
    QCOMPARE(thrown([] { AfxThrowFileException_X(3, 4, nullptr); }),
             QStringLiteral("cause 3, error 4, file '', auto-delete 1"));
    QCOMPARE(thrown([] { AfxThrowFileException_X(3); }), QStringLiteral("cause 3, error -1, file '', auto-delete 1"));
}

XE_APPLESS_TEST(tst_FileErrors)
#include "tst_fileerrors.moc"
