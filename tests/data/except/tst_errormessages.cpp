#include "errormessage.h"
#include "testclass.h"

// The messages of all but the automation exceptions, in buffers around the limits.

class tst_ErrorMessages : public QObject
{
    Q_OBJECT

private slots:
    void noMessage_data();
    void noMessage();
    void simple_data();
    void simple();
    void simpleMessagesAreTheSame();
    void simpleWithoutABuffer();
    void aTextSetBeforehandStays();
    void aLoadedTextIsNotTheOnlyAnswer();
    void archive_data();
    void archive();
    void file_data();
    void file();
    void names_data();
    void names();
    void withoutABuffer();
    void theBufferIsUnchangedWhenTheTextDoesNotFit();
    void throughTheBaseClass();
    void aHostsOwnMessage();
};

void tst_ErrorMessages::noMessage_data()
{
    QTest::addColumn<unsigned>("size");
    QTest::addColumn<QString>("expected");
    QTest::newRow("one element is cleared") << 4u << "0 '.xxx' help 0";
    QTest::newRow("in the smallest buffer too") << 1u << "0 '.xxx' help 0";
    QTest::newRow("a size of 0 does not matter") << 0u << "0 '.xxx' help 0";
}

void tst_ErrorMessages::noMessage()
{
    QFETCH(unsigned, size);
    const CException_X exception;
    QTEST(errorMessage(exception, size, 4), "expected");
    unsigned help = 5;
    QCOMPARE(exception.GetErrorMessage(nullptr, size, &help), 0);
    QCOMPARE(help, 0u);
    wchar_t buffer[] = L"xxxx";
    QCOMPARE(exception.GetErrorMessage(buffer, size, nullptr), 0);
    QCOMPARE(buffer[0], L'\0');
}

// -------------------------------------------------------------------------------------------------- simple exceptions

void tst_ErrorMessages::simple_data()
{
    QTest::addColumn<unsigned>("size");
    QTest::addColumn<QString>("expected");
    QTest::newRow("the rest is cleared") << 13u << "1 'CException...x' help 99";
    QTest::newRow("text and terminator") << 11u << "1 'CException.xxx' help 99";
    QTest::newRow("the text alone has no terminator") << 10u << "1 'CExceptionxxxx' help 99";
    QTest::newRow("cut") << 3u << "1 'CExxxxxxxxxxxx' help 99";
    QTest::newRow("one") << 1u << "1 'Cxxxxxxxxxxxxx' help 99";
    QTest::newRow("no room") << 0u << "0 'xxxxxxxxxxxxxx' help 99";
}

void tst_ErrorMessages::simple()
{
    QFETCH(unsigned, size);
    const CUserException_X exception(1, 4711);
    QTEST(errorMessage(exception, size, 14), "expected");
    QCOMPARE(exception.initialized, size > 0 ? 1 : 0);
    QCOMPARE(exception.loaded, size > 0 ? 1 : 0);
}

void tst_ErrorMessages::simpleMessagesAreTheSame()
{
    CSimpleException_X plain;
    CSimpleException_X* const exceptions[] = {
        &plain,
        &_simpleMemoryException,
        &_simpleNotSupportedException,
        &_simpleInvalidArgException,
        &_simpleResourceException,
        &_simpleUserException,
    };
    for (CSimpleException_X* exception : exceptions) {
        QCOMPARE(wholeMessage(*exception), QStringLiteral("CException"));
        QCOMPARE(std::wstring(exception->message), std::wstring(L"CException"));
    }
}

void tst_ErrorMessages::simpleWithoutABuffer()
{
    const CUserException_X exception;
    unsigned help = 5;
    QCOMPARE(exception.GetErrorMessage(nullptr, 10, &help), 0);
    QCOMPARE(exception.initialized, 0);
    QCOMPARE(help, 5u);
    wchar_t buffer[16];
    QCOMPARE(exception.GetErrorMessage(buffer, 16), 1);
}

void tst_ErrorMessages::aTextSetBeforehandStays()
{
    CUserException_X exception;
    exception.initialized = 1;
    exception.loaded = 1;
    wcscpy(exception.message, L"mine");
    QCOMPARE(wholeMessage(exception), QStringLiteral("mine"));
    exception.InitString();
    QCOMPARE(wholeMessage(exception), QStringLiteral("CException"));
}

void tst_ErrorMessages::aLoadedTextIsNotTheOnlyAnswer()
{
    CUserException_X exception;
    exception.initialized = 1;
    wcscpy(exception.message, L"mine");
    QCOMPARE(errorMessage(exception, 8, 8), QStringLiteral("0 'mine....' help 99"));
    exception.loaded = 7;
    QCOMPARE(errorMessage(exception, 8, 8), QStringLiteral("7 'mine....' help 99"));
}

// -------------------------------------------------------------------------------------------------- files and archives

void tst_ErrorMessages::archive_data()
{
    QTest::addColumn<unsigned>("size");
    QTest::addColumn<QString>("expected");
    const QString left = QString(22, QLatin1Char('x'));
    QTest::newRow("the rest is cleared") << 22u << "1 'cause: -3, file: a\n...' help 99";
    QTest::newRow("text and terminator") << 20u << "1 'cause: -3, file: a\n.xx' help 99";
    QTest::newRow("the text alone has no terminator") << 19u << "1 'cause: -3, file: a\nxxx' help 99";
    QTest::newRow("one less than the text") << 18u << QStringLiteral("0 '%1' help 99").arg(left);
    QTest::newRow("three") << 3u << QStringLiteral("0 '%1' help 99").arg(left);
    QTest::newRow("no room") << 0u << QStringLiteral("0 '%1' help 99").arg(left);
}

void tst_ErrorMessages::archive()
{
    QFETCH(unsigned, size);
    const CArchiveException_X exception(-3, L"a");
    QTEST(errorMessage(exception, size, 22), "expected");
}

void tst_ErrorMessages::file_data()
{
    QTest::addColumn<unsigned>("size");
    QTest::addColumn<QString>("expected");
    const QString left = QString(31, QLatin1Char('x'));
    QTest::newRow("the rest is cleared") << 31u << "1 'cause: 2, error: -1, file: a\n..' help 99";
    QTest::newRow("text and terminator") << 30u << "1 'cause: 2, error: -1, file: a\n.x' help 99";
    QTest::newRow("the text alone has no terminator") << 29u << "1 'cause: 2, error: -1, file: a\nxx' help 99";
    QTest::newRow("one less than the text") << 28u << QStringLiteral("0 '%1' help 99").arg(left);
    QTest::newRow("three") << 3u << QStringLiteral("0 '%1' help 99").arg(left);
    QTest::newRow("no room") << 0u << QStringLiteral("0 '%1' help 99").arg(left);
}

void tst_ErrorMessages::file()
{
    QFETCH(unsigned, size);
    const CFileException_X exception(2, -1, L"a");
    QTEST(errorMessage(exception, size, 31), "expected");
}

void tst_ErrorMessages::names_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("shown");
    QTest::newRow("empty") << QString() << "AFX_IDS_UNNAMED_FILE";
    QTest::newRow("conversions are no conversions") << "50%s %n"
                                                    << "50%s %n";
    const QString gear = QString::fromUtf8("/opt/\xE9\xBD\xBF\xE8\xBD\xAE \xF0\x9F\x94\xA9");
    QTest::newRow("other letters") << gear << gear;
    const QString longName(400, QLatin1Char('n'));
    QTest::newRow("long") << longName << longName;
}

void tst_ErrorMessages::names()
{
    QFETCH(QString, name);
    QFETCH(QString, shown);
    CArchiveException_X archive(3, name.toStdWString().c_str());
    QCOMPARE(wholeMessage(archive), QStringLiteral("cause: 3, file: %1\n").arg(shown));
    CFileException_X file(3, 4, name.toStdWString().c_str());
    QCOMPARE(wholeMessage(file), QStringLiteral("cause: 3, error: 4, file: %1\n").arg(shown));
}

void tst_ErrorMessages::withoutABuffer()
{
    unsigned help = 5;
    QCOMPARE(CArchiveException_X(3).GetErrorMessage(nullptr, 100, &help), 0);
    QCOMPARE(CFileException_X(3).GetErrorMessage(nullptr, 100, &help), 0);
    QCOMPARE(help, 5u);
    wchar_t buffer[64];
    QCOMPARE(CArchiveException_X(3).GetErrorMessage(buffer, 64, nullptr), 1);
    QCOMPARE(CFileException_X(3).GetErrorMessage(buffer, 64, nullptr), 1);
}

void tst_ErrorMessages::theBufferIsUnchangedWhenTheTextDoesNotFit()
{
    wchar_t buffer[] = L"abc";
    QCOMPARE(CFileException_X(2, 3, L"parts").GetErrorMessage(buffer, 3), 0);
    QCOMPARE(std::wstring(buffer), std::wstring(L"abc"));
}

// ---------------------------------------------------------------------------------------------------------- both forms

void tst_ErrorMessages::throughTheBaseClass()
{
    CArchiveException_X exception(3, L"a");
    CException_X& changeable = exception;
    const CException_X& constant = exception;
    wchar_t one[32], other[32];
    QCOMPARE(changeable.GetErrorMessage(one, 32), 1);
    QCOMPARE(constant.GetErrorMessage(other, 32), 1);
    QCOMPARE(std::wstring(one), std::wstring(L"cause: 3, file: a\n"));
    QCOMPARE(std::wstring(other), std::wstring(one));
}

// A host overrides the constant form; the other one goes there.
void tst_ErrorMessages::aHostsOwnMessage()
{
    class Own : public CException_X
    {
    public:
        using CException_X::GetErrorMessage;
        int GetErrorMessage(wchar_t* buffer, unsigned size, unsigned*) const override
        {
            wcsncpy(buffer, L"own", size);
            return 1;
        }
    };
    Own own;
    CException_X& exception = own;
    QCOMPARE(wholeMessage(exception), QStringLiteral("own"));
}

XE_APPLESS_TEST(tst_ErrorMessages)
#include "tst_errormessages.moc"
