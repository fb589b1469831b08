#include "dumpedtext.h"
#include "testclass.h"

#include <xeafxstr.h>
#include <xeexcept.h>

#include <clocale>
#include <limits>

// The dump stream: what each type is written as.

namespace {

template <class Value>
QString text(const Value& value)
{
    return dumped([&](CDumpContext_X& context) { context << value; });
}

template <class Value>
QString hex(Value value)
{
    return dumped([&](CDumpContext_X& context) { context.DumpAsHex(value); });
}

// Puts the C locale back.
class LocaleGuard
{
public:
    explicit LocaleGuard(const char* name) { std::setlocale(LC_ALL, name); }
    ~LocaleGuard() { std::setlocale(LC_ALL, before.c_str()); }
    const std::string before = std::setlocale(LC_ALL, nullptr);
};

// Counts the calls of the virtual functions.
class WatchedFile : public CMemFile_X
{
public:
    void Flush() override { ++flushed; }
    void Write(const void*, unsigned count) override { written += QString::number(count) + QLatin1Char(' '); }
    int flushed = 0;
    QString written;
};

} // namespace

class tst_DumpContext : public QObject
{
    Q_OBJECT

private slots:
    void construction();
    void integers();
    void smallIntegersAsTheyPromote();
    void floatingNumbers();
    void addresses();
    void wideTexts();
    void narrowTexts();
    void narrowTextsByTheLocale();
    void stringObjects();
    void objects();
    void hexadecimal();
    void chained();
    void rawElements();
    void oneWriteAText();
    void flushing();
    void aNullTextRaises();
    void withoutAFileEverythingIsLost();
    void dumpOfAnObject();
};

void tst_DumpContext::construction()
{
    const CDumpContext_X without;
    QCOMPARE(without.file, nullptr);
    QCOMPARE(without.depth, 0);
    CMemFile_X file;
    const CDumpContext_X with(&file);
    QCOMPARE(with.file, &file);
    QCOMPARE(with.depth, 0);
    QCOMPARE(offsetof(CDumpContext_X, depth), size_t(0));
    QCOMPARE(offsetof(CDumpContext_X, file), sizeof(void*));
}

void tst_DumpContext::integers()
{
    QCOMPARE(text(static_cast<unsigned char>(0)), QStringLiteral("0"));
    QCOMPARE(text(static_cast<unsigned char>(255)), QStringLiteral("255"));
    QCOMPARE(text(std::numeric_limits<int>::min()), QStringLiteral("-2147483648"));
    QCOMPARE(text(std::numeric_limits<int>::max()), QStringLiteral("2147483647"));
    QCOMPARE(text(static_cast<unsigned short>(65535)), QStringLiteral("65535"));
    QCOMPARE(text(4294967295u), QStringLiteral("4294967295"));
    QCOMPARE(text(-5LL), QStringLiteral("-5"));
    QCOMPARE(text(std::numeric_limits<long long>::min()), QStringLiteral("-9223372036854775808"));
    QCOMPARE(text(std::numeric_limits<long long>::max()), QStringLiteral("9223372036854775807"));
    QCOMPARE(text(std::numeric_limits<unsigned long long>::max()), QStringLiteral("18446744073709551615"));
}

void tst_DumpContext::smallIntegersAsTheyPromote()
{
    QCOMPARE(text(true), QStringLiteral("1"));
    QCOMPARE(text('A'), QStringLiteral("65"));
    QCOMPARE(text(L'A'), QStringLiteral("65"));
    QCOMPARE(text(short(-7)), QStringLiteral("-7"));
    QCOMPARE(text(DWORD(7)), QStringLiteral("7"));
    QCOMPARE(text(LPARAM(-7)), QStringLiteral("-7"));
}

void tst_DumpContext::floatingNumbers()
{
    QCOMPARE(text(1.5f), QStringLiteral("1.500000"));
    QCOMPARE(text(-0.1f), QStringLiteral("-0.100000"));
    QCOMPARE(text(1.5), QStringLiteral("1.500000000000000"));
    QCOMPARE(text(-2.0), QStringLiteral("-2.000000000000000"));
    QCOMPARE(text(std::numeric_limits<float>::infinity()), QStringLiteral("inf"));
    QCOMPARE(text(std::numeric_limits<float>::max()),
             QString::number(double(std::numeric_limits<float>::max()), 'f', 6));
    const QString widest = text(std::numeric_limits<double>::lowest());
    QCOMPARE(widest.size(), 1 + 309 + 1 + 15);
    QVERIFY(widest.startsWith(QLatin1String("-17976931348623157"))
            && widest.endsWith(QLatin1String(".000000000000000")));
}

void tst_DumpContext::addresses()
{
    const auto address = reinterpret_cast<void*>(0xFEDCBA9876543210);
    QCOMPARE(text(address), QStringLiteral("$0xfedcba9876543210"));
    QCOMPARE(text(static_cast<const void*>(address)), QStringLiteral("$0xfedcba9876543210"));
    QCOMPARE(text(static_cast<void*>(nullptr)), QStringLiteral("$(nil)"));
}

void tst_DumpContext::wideTexts()
{
    QCOMPARE(text(L""), QString());
    QCOMPARE(text(L"line\nand\r\nline"), QStringLiteral("line\nand\r\nline"));
    QCOMPARE(text(L"50%d \x9F7F\x1F529"), QString::fromUtf8("50%d \xE9\xBD\xBF\xF0\x9F\x94\xA9"));
    QCOMPARE(text(static_cast<const wchar_t*>(nullptr)), QStringLiteral("NULL"));
    const std::wstring longText(5000, L'w');
    QCOMPARE(text(longText.c_str()), QString(5000, QLatin1Char('w')));
}

void tst_DumpContext::narrowTexts()
{
    QCOMPARE(text(""), QString());
    QCOMPARE(text("50%d\n"), QStringLiteral("50%d\n"));
    QCOMPARE(text(static_cast<const char*>(nullptr)), QStringLiteral("(NULL)"));
    for (int length : {511, 512})
        QCOMPARE(text(std::string(size_t(length), 'n').c_str()), QString(length, QLatin1Char('n')));
    QCOMPARE(text(std::string(5000, 'n').c_str()), QString(512, QLatin1Char('n')));
}

void tst_DumpContext::narrowTextsByTheLocale()
{
    {
        const LocaleGuard utf8("C.UTF-8");
        QCOMPARE(text("\xE9\xBD\xBF and \xF0\x9F\x94\xA9"), QString::fromUtf8("\xE9\xBD\xBF and \xF0\x9F\x94\xA9"));
        QCOMPARE(text("up to \xFF here"), QStringLiteral("up to "));
        std::string many;
        for (int i = 0; i < 600; ++i)
            many += "\xE9\xBD\xBF"; // the limit counts elements, not bytes
        QCOMPARE(text(many.c_str()), QString(512, QChar(0x9F7F)));
    }
    const LocaleGuard ascii("C");
    QCOMPARE(text("up to \xE9 here"), QStringLiteral("up to "));
}

void tst_DumpContext::stringObjects()
{
    const CString_X member = L"bolt"; // as in an override of Dump(), which is const
    QCOMPARE(text(member), QStringLiteral("bolt"));
}

void tst_DumpContext::objects()
{
    const QString fixed = QStringLiteral("Unable to dump object in static release builds");
    CObject_X object;
    CUserException_X exception;
    QCOMPARE(text(object), fixed);
    QCOMPARE(text(&object), fixed);
    QCOMPARE(text(exception), fixed);
    QCOMPARE(text(&exception), fixed);
    QCOMPARE(text(static_cast<const CObject_X*>(nullptr)), QStringLiteral("NULL"));
}

void tst_DumpContext::hexadecimal()
{
    QCOMPARE(hex(static_cast<unsigned char>(0x0A)), QStringLiteral("0x0a"));
    QCOMPARE(hex(static_cast<unsigned char>(0xFF)), QStringLiteral("0xff"));
    QCOMPARE(hex(static_cast<unsigned short>(0x1A)), QStringLiteral("0x001a"));
    QCOMPARE(hex(static_cast<unsigned short>(0xFFFF)), QStringLiteral("0xffff"));
    QCOMPARE(hex(0x1A), QStringLiteral("0x0000001a"));
    QCOMPARE(hex(-1), QStringLiteral("0xffffffff"));
    QCOMPARE(hex(0xFFFFFFFEu), QStringLiteral("0xfffffffe"));
    QCOMPARE(hex(0x1ALL), QStringLiteral("0x000000000000001a"));
    QCOMPARE(hex(-1LL), QStringLiteral("0xffffffffffffffff"));
    QCOMPARE(hex(0xFEDCBA9876543210ULL), QStringLiteral("0xfedcba9876543210"));
}

void tst_DumpContext::chained()
{
    const QString line = dumped([](CDumpContext_X& context) {
        (context << "a " << 1 << L" b ").DumpAsHex(2u).DumpAsHex(static_cast<unsigned char>(3)) << "\n";
    });
    QCOMPARE(line, QStringLiteral("a 1 b 0x000000020x03\n"));
}

void tst_DumpContext::rawElements()
{
    CMemFile_X file;
    CDumpContext_X context(&file);
    context.OutputString(L"a\x1F529");
    QCOMPARE(file.GetLength(), 8ULL);
    file.Seek(0, CFile_X::begin);
    quint32 elements[2] = {};
    QCOMPARE(file.Read(elements, 8), 8u);
    QCOMPARE(elements[0], 0x61u);
    QCOMPARE(elements[1], 0x1F529u);
}

void tst_DumpContext::oneWriteAText()
{
    WatchedFile file;
    CDumpContext_X context(&file);
    context.OutputString(L"abc");
    context << L"ab" << 5 << "a";
    context.OutputString(L"");
    QCOMPARE(file.written, QStringLiteral("12 8 4 4 0 "));
}

void tst_DumpContext::flushing()
{
    WatchedFile file;
    CDumpContext_X context(&file);
    context.Flush();
    QCOMPARE(file.flushed, 1);
}

void tst_DumpContext::aNullTextRaises()
{
    CMemFile_X file;
    CDumpContext_X context(&file);
    try {
        context.OutputString(nullptr);
    } catch (CUserException_X* exception) {
        QCOMPARE(exception, &_simpleUserException);
        QCOMPARE(file.GetLength(), 0ULL);
        return;
    }
    QFAIL("nothing raised");
}

void tst_DumpContext::withoutAFileEverythingIsLost()
{
    CDumpContext_X context;
    CObject_X object;
    context.OutputString(nullptr);
    context.OutputString(L"a");
    context.Flush();
    context << 1 << 2u << 3LL << 4ULL << static_cast<unsigned char>(5) << static_cast<unsigned short>(6) << 7.0f << 8.0;
    context << "a" << static_cast<const char*>(nullptr) << L"b" << static_cast<const wchar_t*>(nullptr);
    context << &object << object << static_cast<void*>(&object);
    context.DumpAsHex(1).DumpAsHex(2ULL);
    unsigned char byte = 0;
    context.HexDump(L"", &byte, 1, 1);
    QCOMPARE(context.depth, 0);
    QCOMPARE(context.file, nullptr);
}

void tst_DumpContext::dumpOfAnObject()
{
    const CCmdTarget_X target;
    QCOMPARE(dumped([&](CDumpContext_X& context) { target.Dump(context); }),
             QString::asprintf("a CCmdTarget_X at $%p\n", static_cast<const void*>(&target)));
}

XE_APPLESS_TEST(tst_DumpContext)
#include "tst_dumpcontext.moc"
