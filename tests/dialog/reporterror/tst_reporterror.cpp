#include "resource.h"
#include "testclass.h"

#include <leavenothing.h>
#include <modaldriver.h>
#include <xeafxdlg.h>
#include <xeexcept.h>

#include <QAbstractButton>
#include <QMessageBox>

// Exceptions shown in a message box.

namespace {

// The box that an exception puts up, and its answer, as "critical 'text': 4".
QString reported(CException_X& exception, unsigned type, unsigned messageId, QMessageBox::StandardButton pressed)
{
    QString shown;
    const ModalDriver<QMessageBox> driver([&](QMessageBox* box) {
        shown = QStringLiteral("%1 '%2': ").arg(QVariant::fromValue(box->icon()).toString(), box->text());
        box->button(pressed)->click();
    });
    const int answer = exception.ReportError(type, messageId);
    return shown + QString::number(answer);
}

class Talkative : public CException_X
{
public:
    using CException_X::GetErrorMessage;
    int GetErrorMessage(wchar_t* buffer, unsigned size, unsigned* help) const override
    {
        *help = 1;
        std::fill_n(buffer, size, L'm');
        return 1;
    }
};

} // namespace

class tst_ReportError : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void theMessage();
    void styleAndAnswer();
    void theResourceWithoutAMessage();
    void theResourceWhenTheMessageIsTooLong();
    void aMessageThatFillsTheBuffer();
    void apiExamples();
};

void tst_ReportError::theMessage()
{
    QCOMPARE(reported(_simpleUserException, 0, IDS_NOT_SAVED, QMessageBox::Ok),
             QStringLiteral("Warning 'CException': 1"));
    CFileException_X file(2, 3, L"parts.csv");
    QCOMPARE(reported(file, 0, 0, QMessageBox::Ok),
             QStringLiteral("Warning 'cause: 2, error: 3, file: parts.csv\n': 1"));
}

void tst_ReportError::styleAndAnswer()
{
    COleDispatchException_X exception(L"stuck", 1, 2);
    QCOMPARE(reported(exception, MB_RETRYCANCEL | MB_ICONHAND, 0, QMessageBox::Retry),
             QStringLiteral("Critical 'stuck': 4"));
    CException_X silent;
    QCOMPARE(reported(silent, MB_RETRYCANCEL | MB_ICONHAND, IDS_NOT_SAVED, QMessageBox::Cancel),
             QStringLiteral("Critical 'The parts have not been saved.': 2"));
}

void tst_ReportError::theResourceWithoutAMessage()
{
    CException_X exception;
    QCOMPARE(reported(exception, 0, IDS_NOT_SAVED, QMessageBox::Ok),
             QStringLiteral("Warning 'The parts have not been saved.': 1"));
    QCOMPARE(reported(exception, 0, 0, QMessageBox::Ok), QStringLiteral("Warning 'No error message is available.': 1"));
    QCOMPARE(reported(exception, 0, 4711, QMessageBox::Ok), QStringLiteral("Warning '': 1"));
}

void tst_ReportError::theResourceWhenTheMessageIsTooLong()
{
    // 27 elements and the name.
    CFileException_X fits(2, 3, std::wstring(512 - 27, L'n').c_str());
    QCOMPARE(reported(fits, 0, 0, QMessageBox::Ok),
             QStringLiteral("Warning 'cause: 2, error: 3, file: %1\n': 1").arg(QString(485, QLatin1Char('n'))));
    CFileException_X tooLong(2, 3, std::wstring(512 - 26, L'n').c_str());
    QCOMPARE(reported(tooLong, 0, IDS_NOT_SAVED, QMessageBox::Ok),
             QStringLiteral("Warning 'The parts have not been saved.': 1"));
}

void tst_ReportError::aMessageThatFillsTheBuffer()
{
    Talkative exception;
    QCOMPARE(reported(exception, 0, 0, QMessageBox::Ok),
             QStringLiteral("Warning '%1': 1").arg(QString(512, QLatin1Char('m'))));
}

void tst_ReportError::apiExamples()
{
    QString shown;
    const ModalDriver<QMessageBox> driver([&shown](QMessageBox* box) {
        shown = box->text();
        box->accept();
    });
    errno = ENOENT;

    try {
        CFileException_X::ThrowErrno(errno, L"parts.csv");
    } catch (CFileException_X* exception) {
        exception->ReportError();
        exception->Delete();
    }

    QCOMPARE(shown, QStringLiteral("cause: 2, error: 0, file: parts.csv\n"));
}

XE_TEST(tst_ReportError)
#include "tst_reporterror.moc"
