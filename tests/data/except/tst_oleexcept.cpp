#include "errormessage.h"
#include "testclass.h"

#include <xestrapi.h>

// The exceptions of automation: status codes, messages, and the record that a client gets.

namespace {

constexpr long unexpected = -0x7FFF0001L;  // 0x8000FFFF as an HRESULT
constexpr long outOfMemory = -0x7FF8FFF2L; // 0x8007000E as an HRESULT

template <class Throw>
QString thrownOle(Throw doThrow)
{
    try {
        doThrow();
    } catch (COleException_X* exception) {
        const QString text = QStringLiteral("code %1, auto-delete %2").arg(exception->m_sc).arg(exception->autoDelete);
        exception->Delete();
        return text;
    } catch (COleDispatchException_X* exception) {
        const QString text = QStringLiteral("code %1, '%2', help %3 in '%4', source '%5', status %6, auto-delete %7")
                                 .arg(exception->m_wCode)
                                 .arg(XeQString(exception->m_strDescription))
                                 .arg(exception->m_dwHelpContext, 0, 16)
                                 .arg(XeQString(exception->m_strHelpFile), XeQString(exception->m_strSource))
                                 .arg(exception->m_scError)
                                 .arg(exception->autoDelete);
        exception->Delete();
        return text;
    }
    return QStringLiteral("nothing");
}

QString taken(BSTR text)
{
    if (!text)
        return QStringLiteral("null");
    const QString result = QStringLiteral("'%1'").arg(QString::fromWCharArray(text));
    SysFreeString_X(text);
    return result;
}

// The record that an object gives, as one line. It held something else before.
QString info(const CObject_X* exception)
{
    tagEXCEPINFO info;
    memset(&info, 0xAB, sizeof info);
    COleDispatchException_X::Process(&info, exception);
    QStringList left;
    if (info.wReserved)
        left += QStringLiteral("reserved word");
    if (info.pvReserved)
        left += QStringLiteral("reserved pointer");
    if (info.pfnDeferredFillIn)
        left += QStringLiteral("function");
    return QStringLiteral("code %1, status %2, %3, help %4 in %5, source %6%7")
        .arg(info.wCode)
        .arg(info.scode)
        .arg(taken(info.bstrDescription))
        .arg(info.dwHelpContext, 0, 16)
        .arg(taken(info.bstrHelpFile), taken(info.bstrSource), left.join(QLatin1Char(' ')));
}

} // namespace

class tst_OleExcept : public QObject
{
    Q_OBJECT

private slots:
    void throwing();
    void checking();
    void statusOfAnObject();

    void message_data();
    void message();
    void messageText_data();
    void messageText();
    void descriptionAsMessage_data();
    void descriptionAsMessage();
    void withoutABuffer();

    void throwingForAClient();
    void infoOfADispatchException();
    void infoOfEmptyFields();
    void infoOfOtherExceptions();
    void infoOfOtherObjects();
    void theMissingSourceHasRoomForOneElement();
    void noRecord();
};

// ------------------------------------------------------------------------------------------------------- status codes

void tst_OleExcept::throwing()
{
    QCOMPARE(thrownOle([] { AfxThrowOleException_X(5); }), QStringLiteral("code 5, auto-delete 1"));
    QCOMPARE(thrownOle([] { AfxThrowOleException_X(0); }), QStringLiteral("code 0, auto-delete 1"));
    QCOMPARE(thrownOle([] { AfxThrowOleException_X(-5L); }), QStringLiteral("code -5, auto-delete 1"));
    QCOMPARE(thrownOle([] { AfxThrowOleException_X(E_FAIL); }), QStringLiteral("code -2147467259, auto-delete 1"));
    QCOMPARE(thrownOle([] { AfxThrowOleException_X(0x100000000L); }), QStringLiteral("code 4294967296, auto-delete 1"));
}

void tst_OleExcept::checking()
{
    QCOMPARE(thrownOle([] { AfxCheckError_X(0); }), QStringLiteral("nothing"));
    QCOMPARE(thrownOle([] { AfxCheckError_X(1); }), QStringLiteral("nothing"));
    QCOMPARE(thrownOle([] { AfxCheckError_X(LONG_MAX); }), QStringLiteral("nothing"));
    QCOMPARE(thrownOle([] { AfxCheckError_X(-1); }), QStringLiteral("code -1, auto-delete 1"));
    QCOMPARE(thrownOle([] { AfxCheckError_X(E_FAIL); }), QStringLiteral("code -2147467259, auto-delete 1"));
}

void tst_OleExcept::statusOfAnObject()
{
    const COleException_X ole(77);
    QCOMPARE(COleException_X::Process(&ole), 77L);
    const CFileException_X file;
    QCOMPARE(COleException_X::Process(&file), outOfMemory);
    QCOMPARE(COleException_X::Process(&_simpleMemoryException), outOfMemory);
    QCOMPARE(COleException_X::Process(&_simpleNotSupportedException), outOfMemory);
    const COleDispatchException_X dispatch(L"a", 1, 2);
    QCOMPARE(COleException_X::Process(&dispatch), outOfMemory);
    const CCmdTarget_X target;
    QCOMPARE(COleException_X::Process(&target), unexpected);
    QCOMPARE(COleException_X::Process(nullptr), unexpected);
}

// ------------------------------------------------------------------------------------------------------------ messages

void tst_OleExcept::message_data()
{
    QTest::addColumn<unsigned>("size");
    QTest::addColumn<QString>("expected");
    QTest::newRow("the rest is cleared") << 31u << "1 'system error! error number: 5..x' help 0";
    QTest::newRow("text and terminator") << 30u << "1 'system error! error number: 5.xx' help 0";
    QTest::newRow("the text alone has no terminator") << 29u << "1 'system error! error number: 5xxx' help 0";
    QTest::newRow("cut") << 6u << "1 'systemxxxxxxxxxxxxxxxxxxxxxxxxxx' help 0";
    QTest::newRow("no room") << 0u << "1 'xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx' help 0";
}

void tst_OleExcept::message()
{
    QFETCH(unsigned, size);
    const COleException_X exception(5);
    QTEST(errorMessage(exception, size, 32), "expected");
}

void tst_OleExcept::messageText_data()
{
    QTest::addColumn<long>("code");
    QTest::addColumn<QString>("text");
    QTest::newRow("success") << 0L << "system error! error number: 0";
    QTest::newRow("failure") << long(E_FAIL) << "system error! error number: -2147467259";
    QTest::newRow("failure in the lower half") << 0x80004005L << "system error! error number: -2147467259";
    QTest::newRow("the upper half is left out") << 0x100000007L << "system error! error number: 7";
}

void tst_OleExcept::messageText()
{
    QFETCH(long, code);
    COleException_X exception(code);
    QTEST(wholeMessage(exception), "text");
}

void tst_OleExcept::descriptionAsMessage_data()
{
    QTest::addColumn<unsigned>("size");
    QTest::addColumn<QString>("expected");
    QTest::newRow("the rest is cleared") << 7u << "1 'stuck..x' help 0";
    QTest::newRow("the text alone has no terminator") << 5u << "1 'stuckxxx' help 0";
    QTest::newRow("cut") << 2u << "1 'stxxxxxx' help 0";
    QTest::newRow("no room") << 0u << "1 'xxxxxxxx' help 0";
}

void tst_OleExcept::descriptionAsMessage()
{
    QFETCH(unsigned, size);
    const COleDispatchException_X exception(L"stuck", 3, 4);
    QTEST(errorMessage(exception, size, 8), "expected");
}

void tst_OleExcept::withoutABuffer()
{
    unsigned help = 5;
    QCOMPARE(COleException_X(5).GetErrorMessage(nullptr, 10, &help), 0);
    QCOMPARE(help, 0u);
    help = 5;
    QCOMPARE(COleDispatchException_X(L"a").GetErrorMessage(nullptr, 10, &help), 0);
    QCOMPARE(help, 0u);
    wchar_t buffer[64];
    QCOMPARE(COleException_X(5).GetErrorMessage(buffer, 64, nullptr), 1);
    QCOMPARE(COleDispatchException_X(L"a").GetErrorMessage(buffer, 64, nullptr), 1);
}

// ------------------------------------------------------------------------------------------------- automation clients

void tst_OleExcept::throwingForAClient()
{
    QCOMPARE(thrownOle([] { AfxThrowOleDispatchException_X(3, L"stuck", 0x12); }),
             QStringLiteral("code 3, 'stuck', help 60012 in '', source '', status 0, auto-delete 1"));
    QCOMPARE(thrownOle([] { AfxThrowOleDispatchException_X(3, L"stuck"); }),
             QStringLiteral("code 3, 'stuck', help 0 in '', source '', status 0, auto-delete 1"));
    QCOMPARE(thrownOle([] { AfxThrowOleDispatchException_X(0, static_cast<const wchar_t*>(nullptr), 1); }),
             QStringLiteral("code 0, '', help 60001 in '', source '', status -2147418113, auto-delete 1"));
    QCOMPARE(thrownOle([] { AfxThrowOleDispatchException_X(65535, 4711u, 2); }),
             QStringLiteral("code 65535, 'AfxThrowOleDispatchException', help 60002 in '', source '', status 0, "
                            "auto-delete 1"));
    QCOMPARE(thrownOle([] { AfxThrowOleDispatchException_X(0, 4711u); }),
             QStringLiteral("code 0, 'AfxThrowOleDispatchException', help 0 in '', source '', status -2147418113, "
                            "auto-delete 1"));
}

void tst_OleExcept::infoOfADispatchException()
{
    COleDispatchException_X exception(L"stuck", 0x12, 3);
    exception.m_strHelpFile = L"parts.hlp";
    exception.m_strSource = L"Parts Book";
    exception.m_scError = -5;
    QCOMPARE(info(&exception), QStringLiteral("code 3, status -5, 'stuck', help 60012 in 'parts.hlp', "
                                              "source 'Parts Book'"));
}

void tst_OleExcept::infoOfEmptyFields()
{
    const COleDispatchException_X exception;
    QCOMPARE(info(&exception), QStringLiteral("code 0, status -2147418113, '', help 0 in null, source ''"));
}

void tst_OleExcept::infoOfOtherExceptions()
{
    const COleException_X ole(5);
    QCOMPARE(info(&ole),
             QStringLiteral("code 0, status 5, 'system error! error number: 5', help 0 in null, source ''"));
    QCOMPARE(info(&_simpleUserException),
             QStringLiteral("code 0, status -2147024882, 'CException', help 0 in null, source ''"));
    const CException_X plain;
    QCOMPARE(info(&plain), QStringLiteral("code 0, status -2147024882, '', help 0 in null, source ''"));
    const CFileException_X tooLong(1, 2, std::wstring(600, L'n').c_str());
    QCOMPARE(info(&tooLong), QStringLiteral("code 0, status -2147024882, '', help 0 in null, source ''"));
}

void tst_OleExcept::infoOfOtherObjects()
{
    const CCmdTarget_X target;
    const QString internalFailure =
        QStringLiteral("code 61704, status 0, 'AFX_IDP_INTERNAL_FAILURE', help 0 in null, source ''");
    QCOMPARE(info(&target), internalFailure);
    QCOMPARE(info(nullptr), internalFailure);
    QCOMPARE(61704, int(WORD(-3832)));
}

void tst_OleExcept::theMissingSourceHasRoomForOneElement()
{
    tagEXCEPINFO info;
    COleDispatchException_X::Process(&info, nullptr);
    QCOMPARE(info.bstrSource[0], L'\0');
    QCOMPARE(info.bstrSource[1], L'\0');
    SysFreeString_X(info.bstrSource);
    SysFreeString_X(info.bstrDescription);
}

void tst_OleExcept::noRecord() { COleDispatchException_X::Process(nullptr, &_simpleUserException); }

XE_APPLESS_TEST(tst_OleExcept)
#include "tst_oleexcept.moc"
