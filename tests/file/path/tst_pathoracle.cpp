// Every path function that only reads a text, against the plain reading of its rules, on many random texts.

#include "pathrows.h"
#include "plainpath.h"
#include "testclass.h"

#include <random>

using namespace std::string_literals;

namespace {

using plain::Text;

/// A text in a buffer that has room for what a function may make of it, and for no more than is promised.
class TightBuffer
{
public:
    TightBuffer(const Text& text, std::size_t spare)
        : m_length(text.size()),
          m_size(std::max<std::size_t>(text.size() + 1, std::min<std::size_t>(text.size() + spare, XE_MAX_PATH)))
    {
        Text elements = text + L'\0';
        elements.resize(m_size, L'#');
        m_elements = exactBlock(elements);
    }

    wchar_t* data() { return m_elements.get(); }

    /// The text, and a remark if anything changed behind both the old and the new text.
    Text text() const
    {
        const Text elements(m_elements.get(), m_size);
        const Text now = elements.substr(0, elements.find(L'\0'));
        const std::size_t used = std::max(now.size(), m_length) + 1;
        const bool overran = used < m_size && elements.find_first_not_of(L'#', used) != elements.npos;
        return overran ? now + L" (and more was written)" : now;
    }

private:
    std::size_t m_length;
    std::size_t m_size;
    std::unique_ptr<wchar_t[]> m_elements;
};

Text shown(long long result) { return std::to_wstring(result); }
Text shown(const plain::Changed& changed) { return shown(changed.result) + L": " + changed.text; }

/// What a function gives for a text, and for another one if it takes two, as a text to compare.
using Outcome = Text (*)(const Text& text, const Text& other);

template <Question question>
Text asked(const Text& text, const Text&)
{
    return shown(question(exactBlock(text + L'\0').get()));
}

template <Search search>
Text found(const Text& text, const Text&)
{
    const auto block = exactBlock(text + L'\0');
    return shown(placeOf(search(block.get()), block.get()));
}

template <Change change>
Text changed(const Text& text, const Text&)
{
    TightBuffer buffer(text, 3); // for two quotes and the terminator
    const long long result = change(buffer.data());
    return shown({result, buffer.text()});
}

template <BOOL (*change)(wchar_t*, const wchar_t*)>
Text changedBy(const Text& text, const Text& other)
{
    TightBuffer buffer(text, other.size() + 4); // for a separator, the one behind a drive, the terminator
    const long long result = change(buffer.data(), exactBlock(other + L'\0').get());
    return shown({result, buffer.text()});
}

template <BOOL (*question)(const wchar_t*, const wchar_t*)>
Text askedBoth(const Text& text, const Text& other)
{
    return shown(question(exactBlock(text + L'\0').get(), exactBlock(other + L'\0').get()));
}

template <auto rule>
Text ruled(const Text& text, const Text& other)
{
    if constexpr (std::is_invocable_v<decltype(rule), Text, Text>)
        return shown(rule(text, other));
    else
        return shown(rule(text));
}

template <wchar_t* (*function)(wchar_t*)>
BOOL returnsArgument(wchar_t* path)
{
    return function(path) == path;
}

BOOL parsesIcon(wchar_t* path) { return PathParseIconLocation_X(path); }

Text canonicalInPlace(const Text& text, const Text&)
{
    TightBuffer buffer(text, 3);
    const long long result = PathCanonicalize_X(buffer.data(), buffer.data());
    return shown({result, buffer.text()});
}

Text canonicalElsewhere(const Text& text, const Text&)
{
    TightBuffer buffer({}, text.size() + 3);
    const long long result = PathCanonicalize_X(buffer.data(), exactBlock(text + L'\0').get());
    return shown({result, buffer.text()});
}

Text combined(const Text& text, const Text& other)
{
    TightBuffer buffer({}, text.size() + other.size() + 4);
    const bool succeeds = PathCombine_X(buffer.data(), text.c_str(), other.c_str()) == buffer.data();
    return shown({succeeds, buffer.text()});
}

Text commonPrefix(const Text& text, const Text& other)
{
    TightBuffer buffer({}, text.size() + 4);
    const long long length = PathCommonPrefix_X(text.c_str(), other.c_str(), buffer.data());
    return shown({length, buffer.text()});
}

Text commonLength(const Text& text, const Text& other)
{
    return shown(PathCommonPrefix_X(text.c_str(), other.c_str(), nullptr));
}

Text split(const Text& text, const Text&)
{
    TightBuffer parts[] = {{{}, 1}, {{}, text.size() + 1}, {{}, text.size() + 1}, {{}, text.size() + 1}};
    _tsplitpath(text.c_str(), parts[0].data(), parts[1].data(), parts[2].data(), parts[3].data());
    return parts[0].text() + L"|" + parts[1].text() + L"|" + parts[2].text() + L"|" + parts[3].text();
}

Text splitByRule(const Text& text, const Text&) { return plain::split(text); }

struct Check
{
    const char* name;
    Outcome library;
    Outcome rule;
};

constexpr Check checks[] = {
    {"RemoveFileSpec", changed<PathRemoveFileSpec_X>, ruled<plain::removeFileSpec>},
    {"StripToRoot", changed<PathStripToRoot_X>, ruled<plain::stripToRoot>},
    {"StripPath", changed<silent<PathStripPath_X>>, ruled<plain::stripPath>},
    {"FindFileName", found<PathFindFileName_X>, ruled<plain::findFileName>},
    {"FindNextComponent", found<PathFindNextComponent_X>, ruled<plain::findNextComponent>},
    {"SkipRoot", found<PathSkipRoot_X>, ruled<plain::skipRoot>},
    {"IsNetworkPath", asked<PathIsNetworkPath_X>, ruled<plain::isNetworkPath>},
    {"AddBackslash", changed<returnsArgument<PathAddBackslash_X>>, ruled<plain::addBackslash>},
    {"RemoveBackslash", changed<returnsArgument<PathRemoveBackslash_X>>, ruled<plain::removeBackslash>},
    {"IsUNC", asked<PathIsUNC_X>, ruled<plain::isUnc>},
    {"IsFileSpec", asked<PathIsFileSpec_X>, ruled<plain::isFileSpec>},
    {"IsRelative", asked<PathIsRelative_X>, ruled<plain::isRelative>},
    {"IsUNCServer", asked<PathIsUNCServer_X>, ruled<plain::isUncServer>},
    {"IsUNCServerShare", asked<PathIsUNCServerShare_X>, ruled<plain::isUncServerShare>},
    {"IsLFNFileSpec", asked<PathIsLFNFileSpec_X>, ruled<plain::isLfnFileSpec>},
    {"FindExtension", found<PathFindExtension_X>, ruled<plain::findExtension>},
    {"RemoveExtension", changed<silent<PathRemoveExtension_X>>, ruled<plain::removeExtension>},
    {"AddExtension", changedBy<PathAddExtension_X>, ruled<plain::addExtension>},
    {"RenameExtension", changedBy<PathRenameExtension_X>, ruled<plain::renameExtension>},
    {"Undecorate", changed<silent<PathUndecorate_X>>, ruled<plain::undecorate>},
    {"GetArgs", found<PathGetArgs_X>, ruled<plain::getArgs>},
    {"RemoveArgs", changed<silent<PathRemoveArgs_X>>, ruled<plain::removeArgs>},
    {"RemoveBlanks", changed<silent<PathRemoveBlanks_X>>, ruled<plain::removeBlanks>},
    {"QuoteSpaces", changed<PathQuoteSpaces_X>, ruled<plain::quoteSpaces>},
    {"UnquoteSpaces", changed<PathUnquoteSpaces_X>, ruled<plain::unquoteSpaces>},
    {"ParseIconLocation", changed<parsesIcon>, ruled<plain::parseIconLocation>},
    {"_tsplitpath", split, splitByRule},
    {"Canonicalize in place", canonicalInPlace, ruled<plain::canonicalize>},
    {"Canonicalize", canonicalElsewhere, ruled<plain::canonicalize>},
    {"Combine", combined, ruled<plain::combine>},
    {"Append", changedBy<PathAppend_X>, ruled<plain::append>},
    {"CommonPrefix", commonPrefix, ruled<plain::commonPrefix>},
    {"CommonPrefix without a buffer", commonLength, ruled<plain::commonLength>},
    {"IsPrefix", askedBoth<PathIsPrefix_X>, ruled<plain::isPrefix>},
    {"IsSameRoot", askedBoth<PathIsSameRoot_X>, ruled<plain::isSameRoot>},
};

/// Texts of the elements that matter to these functions.
class RandomTexts
{
public:
    Text shortText() { return below(2) ? elements() : pieces(); }

    /// Near the limit, mostly of one letter.
    Text longText()
    {
        Text text(2040 + below(14), L'a');
        for (wchar_t& ch : text)
            ch = below(300) ? ch : element();
        for (std::size_t place = text.size() - 6; place < text.size(); ++place)
            text[place] = below(2) ? text[place] : element();
        return text;
    }

    /// One that has something in common with a text.
    Text relatedTo(const Text& text)
    {
        if (below(2))
            return shortText();
        Text related = text.substr(0, below(text.size() + 1)) + shortText().substr(0, 6);
        for (wchar_t& ch : related)
            ch = static_cast<wchar_t>(below(8) ? ch : std::towupper(static_cast<std::wint_t>(ch)));
        return related;
    }

    std::size_t below(std::size_t limit) { return m_random() % limit; }

private:
    Text elements()
    {
        Text text;
        for (std::size_t length = below(25); length > 0; --length)
            text += element();
        return text;
    }

    /// What elements alone seldom make.
    Text pieces()
    {
        static const Text starts[] = {L"", L"", L"\\", L"\\\\", L"c:", L"c:\\", L"/", L"//", L"\"", L".\\", L"http://"};
        static const Text parts[] = {L"a", L"B", L"ab.c", L".", L"..", L"...", L"c:", L"a b", L"n[12]", L".[1].d", L""};
        Text text = starts[below(std::size(starts))];
        for (std::size_t count = below(7); count > 0; --count)
            text += parts[below(std::size(parts))] + (below(4) ? L'\\' : element());
        return below(2) ? text : text + parts[below(std::size(parts))];
    }

    wchar_t element()
    {
        static const Text elements = L"aaB...\\\\\\\\//:;\"\" [[]]1,?\xE9\x1F600";
        return elements[below(elements.size())];
    }

    std::mt19937_64 m_random{20240607};
};

struct Trial
{
    Text text;
    Text other;
};

std::vector<Trial> trials()
{
    RandomTexts texts;
    std::vector<Trial> trials(50000);
    for (Trial& trial : trials) {
        trial.text = texts.below(400) ? texts.shortText() : texts.longText();
        trial.other = texts.relatedTo(trial.text);
    }
    return trials;
}

} // namespace

class tst_PathOracle : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void agrees_data();
    void agrees();
    void charTypeAgrees();
    void canonicalTextsStayCanonical();

private:
    std::vector<Trial> m_trials;
};

void tst_PathOracle::initTestCase()
{
    QVERIFY(setUtf8Locale());
    m_trials = trials();
}

void tst_PathOracle::agrees_data()
{
    QTest::addColumn<int>("index");
    for (std::size_t index = 0; index < std::size(checks); ++index)
        QTest::newRow(checks[index].name) << int(index);
}

void tst_PathOracle::agrees()
{
    QFETCH(int, index);
    const Check& check = checks[index];
    int differsFromTheOneBefore = 0;
    Text before;
    for (const Trial& trial : m_trials) {
        const Text expected = check.rule(trial.text, trial.other);
        const Text actual = check.library(trial.text, trial.other);
        if (actual != expected) {
            qInfo() << "text" << QString::fromStdWString(trial.text) << "other" << QString::fromStdWString(trial.other);
            QCOMPARE(actual, expected);
        }
        differsFromTheOneBefore += actual != before;
        before = actual;
    }
    QVERIFY2(differsFromTheOneBefore > 100, "the texts are all alike to this function: the comparison proves nothing");
}

void tst_PathOracle::charTypeAgrees()
{
    for (wchar_t character = -3; character < 0x30000; ++character) {
        if (PathGetCharType_X(character) != plain::charType(character))
            QCOMPARE(int(PathGetCharType_X(character)), int(plain::charType(character)));
    }
}

void tst_PathOracle::canonicalTextsStayCanonical()
{
    for (const Trial& trial : m_trials) {
        const plain::Changed once = plain::canonicalize(trial.text);
        if (once.result == 1)
            QCOMPARE(canonicalElsewhere(once.text, {}), shown(once));
    }
}

XE_GUILESS_TEST(tst_PathOracle)
#include "tst_pathoracle.moc"
