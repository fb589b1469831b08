#include "testclass.h"
#include "textresult.h"

#include <climits>
#include <cstdlib>
#include <cwchar>

/// The raw buffer: room for a caller to write into, and the length afterwards.
class tst_StringBuffer : public QObject
{
    Q_OBJECT

private slots:
    void bufferIsTheLiveText();
    void bufferMakesRoom_data();
    void bufferMakesRoom();
    void badBufferSizes();
    void releaseAfterWriting_data();
    void releaseAfterWriting();
    void release_data();
    void release();
    void releaseCutsAtTheFirstZero_data();
    void releaseCutsAtTheFirstZero();
    void releaseOfAFullBuffer();
    void setLengthWithinTheRoom();
    void setLengthBeyondTheRoom();
    void setLengthShrinks();
    void badSetLength();
    void anIgnoredCountLeavesATerminator();
    void setAtLeavesATerminator();
    void setAtWritesBehindTheText();
    void setAtOutsideWritesNothing_data();
    void setAtOutsideWritesNothing();
    void preallocate();
    void narrowCopyStays();
    void sysString_data();
    void sysString();
    void aMillionElements();
};

void tst_StringBuffer::bufferIsTheLiveText()
{
    CString_X text = L"abc";
    wchar_t* const buffer = text.GetBuffer();
    QCOMPARE(static_cast<const wchar_t*>(buffer), text.GetString());
    QCOMPARE(text.GetBuffer(0), buffer);
    QCOMPARE(text.GetBuffer(3), buffer);
    QCOMPARE(text.GetLength(), 3);
    buffer[1] = L'X';
    QCOMPARE(text, CString_X(L"aXc"));
}

void tst_StringBuffer::bufferMakesRoom_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {0, 1, 3, 4, 5, 100, 100000})
        QTest::addRow("%d", size) << size;
}

void tst_StringBuffer::bufferMakesRoom()
{
    QFETCH(int, size);
    CString_X text = L"ab";
    wchar_t* const buffer = text.GetBuffer(size);
    QCOMPARE(static_cast<const wchar_t*>(buffer), text.GetString());
    QVERIFY(text.capacity() >= static_cast<std::size_t>(size));
    QCOMPARE(text, CString_X(L"ab"));
    QCOMPARE(text.GetBuffer(size), buffer); // fits now
    std::wmemset(buffer, L'x', static_cast<std::size_t>(size));
    buffer[size] = L'\0';
    text.ReleaseBuffer();
    QCOMPARE(text, CString_X(L'x', size));
}

void tst_StringBuffer::badBufferSizes()
{
    CString_X text = L"abc";
    QCOMPARE(thrownBy([&] { text.GetBuffer(-1); }), QStringLiteral("length_error"));
    QCOMPARE(thrownBy([&] { text.GetBuffer(INT_MIN); }), QStringLiteral("length_error"));
    QCOMPARE(thrownBy([&] { text.Preallocate(-1); }), QStringLiteral("length_error"));
    QCOMPARE(text, CString_X(L"abc"));
}

void tst_StringBuffer::releaseAfterWriting_data()
{
    QTest::addColumn<QString>("old");
    QTest::addColumn<int>("size");
    QTest::addColumn<QString>("written");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("expected");
    QTest::newRow("-1 grows an empty text") << "" << 10 << "abcde" << -1 << "abcde";
    QTest::newRow("a count above the old length does nothing") << "" << 10 << "abcde" << 5 << "";
    QTest::newRow("-1 grows within the object") << "a" << 3 << "xyz" << -1 << "xyz";
    QTest::newRow("-1 grows on the heap") << "abcdefgh" << 100 << "0123456789abcdef" << -1 << "0123456789abcdef";
    QTest::newRow("a count above the old length on the heap") << "abcdefgh" << 100 << "0123456789" << 10 << "01234567";
    QTest::newRow("the old length") << "abcdefgh" << 100 << "0123456789" << 8 << "01234567";
    QTest::newRow("a count within the old length") << "abcdefgh" << 100 << "0123456789" << 5 << "01234";
    QTest::newRow("-1 shrinks") << "abcdefgh" << 8 << "xy" << -1 << "xy";
    QTest::newRow("-1 keeps the length") << "abc" << 3 << "xyz" << -1 << "xyz";
    QTest::newRow("-1 of an emptied text") << "abc" << 3 << "" << -1 << "";
}

void tst_StringBuffer::releaseAfterWriting()
{
    QFETCH(QString, old);
    QFETCH(int, size);
    QFETCH(QString, written);
    QFETCH(int, count);
    CString_X text = old;
    std::wcscpy(text.GetBuffer(size), written.toStdWString().c_str());
    text.ReleaseBuffer(count);
    QTEST(shown(text), "expected");
}

void tst_StringBuffer::release_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("expected");
    QTest::newRow("0") << 0 << "";
    QTest::newRow("1") << 1 << "a";
    QTest::newRow("the length") << 3 << "abc";
    QTest::newRow("above the length does nothing") << 4 << "abc";
    QTest::newRow("the highest does nothing") << INT_MAX << "abc";
    QTest::newRow("-1") << -1 << "abc";
    QTest::newRow("-2 does nothing") << -2 << "abc";
    QTest::newRow("the lowest does nothing") << INT_MIN << "abc";
}

void tst_StringBuffer::release()
{
    QFETCH(int, count);
    CString_X text = L"abc";
    const wchar_t* const address = text.GetBuffer(0);
    text.ReleaseBuffer(count);
    QTEST(shown(text), "expected");
    QCOMPARE(text.GetString(), address);
    QCOMPARE(address[text.GetLength()], L'\0');
}

void tst_StringBuffer::releaseCutsAtTheFirstZero_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("expected");
    QTest::newRow("-1") << -1 << "ab";
    QTest::newRow("the length") << 5 << "ab";
    QTest::newRow("behind the 0") << 4 << "ab";
    QTest::newRow("at the 0") << 2 << "ab";
    QTest::newRow("before the 0") << 1 << "a";
    QTest::newRow("above the length does nothing") << 6 << QString::fromLatin1("ab\0cd", 5);
    QTest::newRow("-2 does nothing") << -2 << QString::fromLatin1("ab\0cd", 5);
}

void tst_StringBuffer::releaseCutsAtTheFirstZero()
{
    QFETCH(int, count);
    CString_X text(L"ab\0cd", 5);
    text.ReleaseBuffer(count);
    QTEST(shown(text), "expected");
}

// Room that is full to its last element ends with the terminator that the text keeps there.
void tst_StringBuffer::releaseOfAFullBuffer()
{
    CString_X text;
    text.GetBuffer(50);
    const int room = static_cast<int>(text.capacity());
    std::wmemset(text.GetBuffer(room), L'x', static_cast<std::size_t>(room));
    text.GetBuffer()[room] = L'\0';
    text.ReleaseBuffer();
    QCOMPARE(text, CString_X(L'x', room));
}

void tst_StringBuffer::setLengthWithinTheRoom()
{
    CString_X text = L"abc";
    text.GetBuffer(10);
    wchar_t* const buffer = text.GetBufferSetLength(5);
    QCOMPARE(static_cast<const wchar_t*>(buffer), text.GetString());
    QCOMPARE(text, CString_X(L"abc\0\0", 5));
    buffer[3] = L'd';
    buffer[4] = L'e';
    QCOMPARE(text, CString_X(L"abcde"));
}

void tst_StringBuffer::setLengthBeyondTheRoom()
{
    CString_X text(L'a', 20);
    const wchar_t* const before = text.GetString();
    const int beyond = static_cast<int>(text.capacity()) + 1;
    const wchar_t* const returned = text.GetBufferSetLength(beyond);
    QCOMPARE(returned, before);
    QVERIFY(returned != text.GetString());
    QCOMPARE(text, CString_X(L'a', 20) + std::wstring(static_cast<std::size_t>(beyond - 20), L'\0'));
}

void tst_StringBuffer::setLengthShrinks()
{
    CString_X text = L"abcdef";
    const wchar_t* const before = text.GetString();
    QCOMPARE(static_cast<const wchar_t*>(text.GetBufferSetLength(2)), before);
    QCOMPARE(text, CString_X(L"ab"));
    QCOMPARE(before[2], L'\0');
    text.GetBufferSetLength(0);
    QVERIFY(text.IsEmpty());
}

void tst_StringBuffer::badSetLength()
{
    CString_X text = L"abc";
    QCOMPARE(thrownBy([&] { text.GetBufferSetLength(-1); }), QStringLiteral("length_error"));
    QCOMPARE(text, CString_X(L"abc"));
}

// The caller wrote over the terminator of the text, and of the room.
void tst_StringBuffer::anIgnoredCountLeavesATerminator()
{
    for (const int count : {100, INT_MAX, -2}) {
        CString_X text;
        wchar_t* const buffer = text.GetBuffer(100);
        const std::size_t room = text.capacity();
        QCOMPARE(buffer[room], L'\0');
        std::wmemset(buffer, L'x', room + 1);
        text.ReleaseBuffer(count);
        QCOMPARE(text.GetLength(), 0);
        QCOMPARE(std::wcslen(text.GetString()), room);
    }
}

void tst_StringBuffer::setAtLeavesATerminator()
{
    for (const CString_X& start : {CString_X(L"ab"), CString_X(L'a', 50)}) {
        CString_X text = start;
        const std::size_t room = text.capacity();
        const_cast<wchar_t*>(text.GetString())[room] = L'x';
        for (std::size_t i = 0; i < room; ++i)
            text.SetAt(static_cast<int>(i), L'x');
        if (room > start.length())
            QCOMPARE(std::wcslen(text.GetString()), room);
    }
}

void tst_StringBuffer::setAtWritesBehindTheText()
{
    CString_X text = L"ab";
    text.GetBuffer(10);
    text.SetAt(2, L'c');
    text.SetAt(3, L'd');
    text.SetAt(4, L'\0');
    QCOMPARE(text.GetLength(), 2);
    text.ReleaseBuffer();
    QCOMPARE(text, CString_X(L"abcd"));
}

void tst_StringBuffer::setAtOutsideWritesNothing_data()
{
    QTest::addColumn<int>("index");
    for (const int index : {-1, INT_MIN, 1000, INT_MAX})
        QTest::addRow("%d", index) << index;
}

void tst_StringBuffer::setAtOutsideWritesNothing()
{
    QFETCH(int, index);
    CString_X text = L"abcdefgh";
    text.SetAt(index, L'X');
    QCOMPARE(text, CString_X(L"abcdefgh"));
    CString_X nothing;
    nothing.SetAt(index, L'X');
    QVERIFY(nothing.IsEmpty());
}

void tst_StringBuffer::preallocate()
{
    CString_X text = L"abc";
    text.Preallocate(1000);
    QVERIFY(text.capacity() >= 1000);
    QCOMPARE(text, CString_X(L"abc"));
    const wchar_t* const address = text.GetString();
    text += CString_X(L'x', 900);
    QCOMPARE(text.GetString(), address);
    text.Preallocate(0);
    QCOMPARE(text.GetString(), address);
}

void tst_StringBuffer::narrowCopyStays()
{
    CString_X text = L"abc";
    const char* const narrow = text;
    std::wcscpy(text.GetBuffer(100), L"other");
    text.ReleaseBuffer();
    text.GetBufferSetLength(2);
    QCOMPARE(narrow, "abc");
    QCOMPARE(static_cast<const char*>(text.utf8Cache), narrow);
}

void tst_StringBuffer::sysString_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << "";
    QTest::newRow("text") << QStringLiteral("é日😀");
    QTest::newRow("long") << QString(10000, QLatin1Char('x'));
}

void tst_StringBuffer::sysString()
{
    QFETCH(QString, text);
    const CString_X object = text;
    const std::unique_ptr<wchar_t, decltype(&std::free)> copy(object.AllocSysString(), &std::free);
    QVERIFY(copy);
    QVERIFY(copy.get() != object.GetString());
    QCOMPARE(shown(copy.get()), text);
}

void tst_StringBuffer::aMillionElements()
{
    constexpr int million = 1000000;
    CString_X text = L"abc";
    wchar_t* const buffer = text.GetBuffer(million);
    std::wmemset(buffer, L'日', million);
    buffer[million] = L'\0';
    text.ReleaseBuffer();
    QVERIFY(text == std::wstring(million, L'日'));
    text.ReleaseBuffer(3);
    QCOMPARE(text, CString_X(L"日日日"));
}

XE_APPLESS_TEST(tst_StringBuffer)
#include "tst_stringbuffer.moc"
