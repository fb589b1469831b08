// What the tests of the path functions share: kinds of functions, and rows of a function, a text and what comes out.
#pragma once

#include "textsupport.h"

#include <xepath.h>

#include <algorithm>

using Question = BOOL (*)(const wchar_t*);
using Search = wchar_t* (*)(const wchar_t*);
using Change = BOOL (*)(wchar_t*);

Q_DECLARE_METATYPE(Question)
Q_DECLARE_METATYPE(Search)
Q_DECLARE_METATYPE(Change)

/// The form of Change for a function without a result.
template <void (*function)(wchar_t*)>
BOOL silent(wchar_t* path)
{
    function(path);
    return -1;
}

/// A buffer as the functions are promised it: a text, its terminator, and "#" up to the full size; nothing behind that.
class PathBuffer
{
public:
    explicit PathBuffer(const std::wstring& text) : m_elements(exactBlock(filled(text))) {}

    wchar_t* data() { return m_elements.get(); }
    std::wstring elements() const { return {m_elements.get(), XE_MAX_PATH}; }

    /// Up to the terminator, or all if there is none.
    std::wstring text() const { return elements().substr(0, elements().find(L'\0')); }

    /// All that was ever written, with "|" for 0.
    std::wstring shown() const
    {
        std::wstring written = elements();
        written.erase(written.find_last_not_of(L'#') + 1);
        std::replace(written.begin(), written.end(), L'\0', L'|');
        return written;
    }

private:
    static std::wstring filled(std::wstring text)
    {
        text += L'\0';
        text.resize(XE_MAX_PATH, L'#');
        return text;
    }

    std::unique_ptr<wchar_t[]> m_elements;
};

struct QuestionRows
{
    static void columns()
    {
        QTest::addColumn<Question>("question");
        QTest::addColumn<std::wstring>("text");
        QTest::addColumn<BOOL>("expected");
    }

    static void add(const char* name, Question question, const std::wstring& text, BOOL expected)
    {
        QTest::newRow(name) << question << text << expected;
    }

    static void compare()
    {
        QFETCH(Question, question);
        QFETCH(std::wstring, text);
        QTEST(question(exactBlock(text + L'\0').get()), "expected");
        QCOMPARE(question(nullptr), question == PathIsRelative_X ? 1 : 0);
    }
};

struct SearchRows
{
    static void columns()
    {
        QTest::addColumn<Search>("search");
        QTest::addColumn<std::wstring>("text");
        QTest::addColumn<long long>("place");
    }

    /// The place -1 stands for null.
    static void add(const char* name, Search search, const std::wstring& text, long long place)
    {
        QTest::newRow(name) << search << text << place;
    }

    static void compare()
    {
        QFETCH(Search, search);
        QFETCH(std::wstring, text);
        const auto block = exactBlock(text + L'\0');
        QTEST(placeOf(search(block.get()), block.get()), "place");
        QVERIFY(!search(nullptr));
    }
};

struct ChangeRows
{
    static void columns()
    {
        QTest::addColumn<Change>("change");
        QTest::addColumn<std::wstring>("text");
        QTest::addColumn<BOOL>("result");
        QTest::addColumn<std::wstring>("shown");
    }

    /// The result -1 stands for none, `shown` is that of PathBuffer.
    static void add(const char* name, Change change, const std::wstring& text, BOOL result, const std::wstring& shown)
    {
        QTest::newRow(name) << change << text << result << shown;
    }

    static void compare()
    {
        QFETCH(Change, change);
        QFETCH(std::wstring, text);
        PathBuffer buffer(text);
        QTEST(change(buffer.data()), "result");
        QTEST(buffer.shown(), "shown");
        QVERIFY(change(nullptr) <= 0);
    }
};
