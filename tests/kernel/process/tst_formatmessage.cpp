#include "testclass.h"

#include <xeprocess.h>

// The texts of error numbers.

namespace {

std::wstring repeated(int count) { return std::wstring(size_t(count), L'm'); }

} // namespace

class tst_FormatMessage : public QObject
{
    Q_OBJECT

private slots:
    void theNumber();
    void aNumberWithItsTopBitSetIsNegative();
    void aTextOfTheCallersOwn_data();
    void aTextOfTheCallersOwn();
    void aTextThatDoesNotFitIsCut_data();
    void aTextThatDoesNotFitIsCut();
    void aTextFromItsOwnBuffer();
    void noRoom();
    void theAllocatingFlagNeedsAnAddress();
    void allocated();
    void allocatedTextsAreCut_data();
    void allocatedTextsAreCut();
    void withoutTheAllocatingFlagNothingIsAllocated();
};

void tst_FormatMessage::theNumber()
{
    wchar_t buffer[64];
    QCOMPARE(FormatMessage_X(0, NULL, 5, 0, buffer, 64, NULL), 29U);
    QCOMPARE(QString::fromWCharArray(buffer), QStringLiteral("system error! error number: 5"));
}

void tst_FormatMessage::aNumberWithItsTopBitSetIsNegative()
{
    wchar_t buffer[64];
    QCOMPARE(FormatMessage_X(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, 0x80004005, 2048, buffer, 64, nullptr), 39U);
    QCOMPARE(QString::fromWCharArray(buffer), QStringLiteral("system error! error number: -2147467259"));
}

void tst_FormatMessage::aTextOfTheCallersOwn_data()
{
    QTest::addColumn<uint>("flags");
    QTest::addColumn<QString>("source");
    QTest::newRow("no flags") << 0U << "door open";
    QTest::newRow("inserts are not expanded") << FORMAT_MESSAGE_FROM_STRING << "door %1 of %2 %u";
    QTest::newRow("whatever the flags") << (FORMAT_MESSAGE_FROM_HMODULE | FORMAT_MESSAGE_IGNORE_INSERTS) << "door";
    QTest::newRow("empty") << 0U << "";
}

void tst_FormatMessage::aTextOfTheCallersOwn()
{
    QFETCH(uint, flags);
    QFETCH(QString, source);
    wchar_t buffer[64];
    QCOMPARE(FormatMessage_X(flags, source.toStdWString().c_str(), 5, 0, buffer, 64, nullptr), DWORD(source.size()));
    QCOMPARE(QString::fromWCharArray(buffer), source);
}

void tst_FormatMessage::aTextThatDoesNotFitIsCut_data()
{
    QTest::addColumn<int>("capacity");
    QTest::addColumn<QString>("result");
    QTest::newRow("one more than the text") << 5 << "door";
    QTest::newRow("exactly the text: its terminator has to fit too") << 4 << "doo";
    QTest::newRow("one less than the text") << 3 << "do";
    QTest::newRow("two") << 2 << "d";
    QTest::newRow("one") << 1 << "";
}

void tst_FormatMessage::aTextThatDoesNotFitIsCut()
{
    QFETCH(int, capacity);
    QFETCH(QString, result);
    std::wstring buffer(8, L'x');
    QCOMPARE(FormatMessage_X(0, L"door", 5, 0, buffer.data(), DWORD(capacity), nullptr), DWORD(result.size()));
    QCOMPARE(QString::fromWCharArray(buffer.c_str()), result);
    QCOMPARE(buffer[size_t(capacity)], L'x');
}

void tst_FormatMessage::aTextFromItsOwnBuffer()
{
    wchar_t buffer[] = L"the door";
    QCOMPARE(FormatMessage_X(0, buffer + 4, 5, 0, buffer, 9, nullptr), 4U);
    QCOMPARE(QString::fromWCharArray(buffer), QStringLiteral("door"));
}

void tst_FormatMessage::noRoom()
{
    wchar_t buffer[] = L"x";
    QCOMPARE(FormatMessage_X(0, L"door", 5, 0, buffer, 0, nullptr), 0U);
    QCOMPARE(buffer[0], L'x');
    QCOMPARE(FormatMessage_X(0, L"door", 5, 0, static_cast<wchar_t*>(nullptr), 64, nullptr), 0U);
}

void tst_FormatMessage::theAllocatingFlagNeedsAnAddress()
{
    wchar_t buffer[] = L"xxxx";
    QCOMPARE(FormatMessage_X(FORMAT_MESSAGE_ALLOCATE_BUFFER, L"a", 5, 0, buffer, 4, nullptr), 0U);
    QCOMPARE(QString::fromWCharArray(buffer), QStringLiteral("xxxx"));
    QCOMPARE(FormatMessage_X(FORMAT_MESSAGE_ALLOCATE_BUFFER, L"a", 5, 0, static_cast<wchar_t**>(nullptr), 0, nullptr),
             0U);
}

void tst_FormatMessage::allocated()
{
    wchar_t* out = nullptr;
    QCOMPARE(FormatMessage_X(0x100, NULL, 5, 0, &out, 0, NULL), 29U);
    QCOMPARE(QString::fromWCharArray(out), QStringLiteral("system error! error number: 5"));
    LocalFree_X(out);
}

void tst_FormatMessage::allocatedTextsAreCut_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("result");
    QTest::newRow("empty") << 0 << 0;
    QTest::newRow("the longest that fits") << 1023 << 1023;
    QTest::newRow("its terminator does not fit") << 1024 << 1023;
    QTest::newRow("longer") << 5000 << 1023;
}

void tst_FormatMessage::allocatedTextsAreCut()
{
    QFETCH(int, length);
    QFETCH(int, result);
    wchar_t* out = nullptr;
    QCOMPARE(FormatMessage_X(0x1100, repeated(length).c_str(), 5, 0, &out, 7, nullptr), DWORD(result));
    QCOMPARE(std::wstring(out), repeated(result));
    LocalFree_X(out);
}

void tst_FormatMessage::withoutTheAllocatingFlagNothingIsAllocated()
{
    wchar_t mine;
    wchar_t* out = &mine;
    QCOMPARE(FormatMessage_X(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, 5, 0, &out, 0, nullptr), 0U);
    QCOMPARE(out, &mine);
}

XE_APPLESS_TEST(tst_FormatMessage)
#include "tst_formatmessage.moc"
