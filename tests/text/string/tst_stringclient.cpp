#include "testclass.h"
#include "textresult.h"

#include <xeconvert.h>

#include <cstring>
#include <cwchar>
#include <functional>
#include <iostream>
#include <sstream>

namespace {

int lengthOf(const CString_X& text) { return text.GetLength(); }
int wideLengthOf(LPCTSTR text) { return static_cast<int>(std::wcslen(text)); }
int narrowLengthOf(const char* text) { return static_cast<int>(std::strlen(text)); }
int qtLengthOf(const QString& text) { return text.size(); }

CString_X fromLiteral() { return L"literal"; }
CString_X fromSum(const CString_X& name) { return name + L".txt"; }
CString_X fromQt(const QString& text) { return text; }
CString_X fromStandard(const std::wstring& text) { return text; }

enum Colour { Red, Green };

template <class Left, class Right, class = void>
inline constexpr bool isComparable = false;
template <class Left, class Right>
inline constexpr bool isComparable<Left, Right, std::void_t<decltype(std::declval<Left>() == std::declval<Right>())>> =
    true;

// A narrow text would be compared by its address.
static_assert(isComparable<CString_X&, CString_X&> && isComparable<CString_X&, const wchar_t*>);
static_assert(!isComparable<CString_X&, const char*> && !isComparable<const char*, CString_X&>);
static_assert(!isComparable<CString_X&, const char (&)[7]>);

} // namespace

/// What programs write with the string class: it compiles, and means what it says.
class tst_StringClient : public QObject
{
    Q_OBJECT

private slots:
    void making();
    void comparing();
    void joining();
    void choosing();
    void passing();
    void returning();
    void toQt();
    void fromQt();
    void toTheStandardLibrary();
    void toTheCLibrary();
    void indexing();
    void walking();
    void searchingAndChanging();
    void cuttingPaths();
    void formatting();
    void containers();
    void streams();
    void assigningItself();
    void constants();
};

void tst_StringClient::making()
{
    CString_X nothing, literal = L"x", called(L"x"), braced{L"x"}, narrow = "\xC3\xA9", repeated(L'-', 3), letter(L'x');
    CString_X none = nullptr, copied = literal, part(L"abcdef", 3), sum(literal + called);
    CString_X* const dynamic = new CString_X(L"x");
    CString_X array[] = {L"a", L"b"};
    QCOMPARE(*dynamic, literal);
    delete dynamic;
    QVERIFY(nothing.IsEmpty() && none.IsEmpty());
    QVERIFY(called == L"x" && braced == L"x" && narrow == L"é" && repeated == L"---" && letter == L"x");
    QVERIFY(copied == L"x" && part == L"abc" && sum == L"xx" && array[1] == L"b");

    nothing = none = L"y";
    QVERIFY(nothing == L"y" && none == L"y");
    nothing = L'c';
    nothing += L'c';
    nothing += "d";
    QVERIFY(nothing == L"ccd");
    nothing = nullptr;
    QVERIFY(nothing.IsEmpty());
}

void tst_StringClient::comparing()
{
    CString_X s = L"x";
    const CString_X t = L"y";
    QVERIFY(s == L"x" && L"x" == s && s != L"y" && L"y" != s);
    QVERIFY(s != t && s < t && t > s && s <= t && t >= s && !(s == t));
    QVERIFY(s < L"y" && L"a" < s && s + t == L"xy");
    QVERIFY(s.Left(1) == L"x" && L"y" == t.Mid(0));
    QVERIFY(s.Compare(t) < 0 && s.CompareNoCase(L"X") == 0 && t.Compare(L"y") == 0);
    QVERIFY(XeQString(s) == QLatin1String("x") && XeQString(s) != XeQString(t));
    QVERIFY(std::wcscmp(s, t) < 0);
    switch (s[0]) {
    case L'x':
        break;
    default:
        QFAIL("switch");
    }
}

void tst_StringClient::joining()
{
    CString_X s = L"s";
    const CString_X t = L"t";
    const std::wstring w = L"w";
    const wchar_t ch = L'c';
    CString_X r = s + L"x" + t;
    QVERIFY(r == L"sxt");
    r = L"a" + s;
    QVERIFY(r == L"as");
    r = s + L'c' + ch + t + L"b" + w;
    QVERIFY(r == L"scctbw");
    r = L'c' + s;
    QVERIFY(r == L"cs");
    r += s + L"x";
    QVERIFY(r == L"cssx");
    r = s.Left(1) + L"\\" + t.Mid(0) + L".txt";
    QVERIFY(r == L"s\\t.txt");
    r += r;
    r += QStringLiteral("q");
    QVERIFY(r == L"s\\t.txts\\t.txtq");
    r = L"number " + std::to_wstring(5);
    QVERIFY(r == L"number 5");
    r = s + std::to_wstring(5);
    QVERIFY(r == L"s5");
    r = (s + t).c_str();
    QVERIFY(r == L"st");
    QCOMPARE(CString_X(s + t).GetLength(), 2);
}

void tst_StringClient::choosing()
{
    const CString_X s = L"s", t = L"t";
    CString_X r = s.IsEmpty() ? s : t;
    QVERIFY(r == L"t");
    r = t.IsEmpty() ? CString_X() : s + L"x";
    QVERIFY(r == L"sx");
    r = t.IsEmpty() ? L"empty" : t;
    QVERIFY(r == L"t");
    r = s.IsEmpty() ? s : L"literal";
    QVERIFY(r == L"literal");
    r = s.IsEmpty() ? L"a" : L"b";
    QVERIFY(r == L"b");
}

void tst_StringClient::passing()
{
    CString_X s = L"é";
    const CString_X constant = L"abc";
    QCOMPARE(lengthOf(s), 1);
    QCOMPARE(lengthOf(L"literal"), 7);
    QCOMPARE(lengthOf("\xC3\xA9"), 1);
    QCOMPARE(lengthOf(QStringLiteral("😀")), 1);
    QCOMPARE(lengthOf(XeQString(L"x")), 1);
    QCOMPARE(lengthOf(std::wstring(L"ab")), 2);
    QCOMPARE(lengthOf(s + L"x"), 2);
    QCOMPARE(lengthOf(nullptr), 0);
    QCOMPARE(lengthOf(constant.Mid(1)), 2);
    QCOMPARE(wideLengthOf(s), 1);
    QCOMPARE(wideLengthOf(constant), 3);
    QCOMPARE(wideLengthOf(fromLiteral()), 7);
    QCOMPARE(wideLengthOf(CString_X(s + L"x")), 2);
    QCOMPARE(wideLengthOf(static_cast<LPCTSTR>(constant)), 3);
    QCOMPARE(wideLengthOf((LPCTSTR)constant), 3);
    QCOMPARE(wideLengthOf(s.GetBuffer()), 1);
    QCOMPARE(narrowLengthOf(s), 2);
    QCOMPARE(narrowLengthOf((const char*)s), 2);
    QCOMPARE(narrowLengthOf(s.Utf8Ptr()), 2);
}

void tst_StringClient::returning()
{
    QVERIFY(fromLiteral() == L"literal");
    QVERIFY(fromSum(L"name") == L"name.txt");
    QVERIFY(::fromQt(QStringLiteral("é")) == L"é");
    QVERIFY(fromStandard(L"abc") == L"abc");
    const auto byLambda = [s = fromLiteral()] { return s; };
    QVERIFY(byLambda() == L"literal");
    const std::function<CString_X(CString_X)> twice = [](const CString_X& s) { return s + s; };
    QVERIFY(twice(L"x") == L"xx");
    try {
        throw CString_X(L"thrown");
    } catch (const CString_X& thrown) {
        QVERIFY(thrown == L"thrown");
    }
}

void tst_StringClient::toQt()
{
    CString_X s = L"é😀";
    QString q = XeQString(s);
    QCOMPARE(q, QStringLiteral("é😀"));
    q = XeQString(L"y");
    QCOMPARE(q, QStringLiteral("y"));
    q += XeQString(s);
    QCOMPARE(q, QStringLiteral("yé😀"));
    q = QStringLiteral("<%1>").arg(XeQString(s));
    QCOMPARE(q, QStringLiteral("<é😀>"));
    QCOMPARE(qtLengthOf(XeQString(s)), 3);
    QCOMPARE(XeQString(s) + QLatin1String("/x"), QStringLiteral("é😀/x"));
    QStringList list{XeQString(s), XeQString(L"x")};
    list << XeQString(s);
    QCOMPARE(list.size(), 3);
    const QVariant variant = XeQString(s);
    QCOMPARE(variant.toString(), QStringLiteral("é😀"));
    QCOMPARE(QString::fromWCharArray(s), QStringLiteral("é😀"));
    QCOMPARE(QString::fromStdWString(s), QStringLiteral("é😀"));
    QCOMPARE(QString::fromUtf8(s), QStringLiteral("é😀"));
}

void tst_StringClient::fromQt()
{
    const QString q = QStringLiteral("é😀");
    CString_X s = q;
    QVERIFY(s == L"é😀");
    s = q + QLatin1Char('x');
    QVERIFY(s == L"é😀x");
    s = XeQString(L"x") + q;
    QVERIFY(s == L"xé😀");
    s = QStringLiteral("literal");
    s += q.left(1);
    QVERIFY(s == L"literalé");
}

void tst_StringClient::toTheStandardLibrary()
{
    CString_X s = L"text";
    std::wstring w = s;
    QVERIFY(w == L"text");
    w = s;
    w += s;
    w = s + L"x";
    QVERIFY(w == L"textx");
    const std::wstring& same = s;
    QCOMPARE(same.c_str(), s.GetString());
    const std::wstring_view view = s;
    QVERIFY(view == L"text");
    const wchar_t* p = s;
    QCOMPARE(p, s.c_str());
    s = w;
    s += w;
    QVERIFY(s == L"textxtextx" && s.length() == 10 && s.size() == 10 && !s.empty());
    s.append(L"y").insert(0, L"x");
    QVERIFY(s.substr(0, 2) == L"xt" && s.find(L"y") == 11);
    s.swap(w);
    QVERIFY(s == L"textx");
}

void tst_StringClient::toTheCLibrary()
{
    CString_X s = L"3.5";
    QCOMPARE(std::wcslen(s), std::size_t(3));
    QCOMPARE(_wtof(s), 3.5);
    QCOMPARE(std::wcstol(s, nullptr, 10), 3L);
    QCOMPARE(std::atoi(s), 3);
    QCOMPARE(std::strlen(s), std::size_t(3));
    wchar_t copy[8];
    std::wcscpy(copy, s);
    QVERIFY(s == copy);
    QVERIFY(std::wcschr(s, L'.') == s.GetString() + 1);
}

void tst_StringClient::indexing()
{
    CString_X s = L"abc";
    const long longIndex = 1;
    const std::size_t sizeIndex = 1;
    const unsigned unsignedIndex = 1;
    const short shortIndex = 1;
    QVERIFY(s[0] == L'a' && s[longIndex] == L'b' && s[sizeIndex] == L'b' && s[unsignedIndex] == L'b');
    QVERIFY(s[shortIndex] == L'b' && s[s.GetLength() - 1] == L'c' && s.at(1) == L'b' && s.GetAt(longIndex) == L'b');
    const CString_X constant = s;
    QVERIFY(constant[0] == L'a' && constant[sizeIndex] == L'b');
    s.SetAt(longIndex, L'x');
    s.SetAt(2, 'y');
    QVERIFY(s == L"axy");
}

void tst_StringClient::walking()
{
    CString_X s = L"abc";
    CString_X reversed;
    for (const wchar_t ch : s)
        reversed = ch + reversed;
    QVERIFY(reversed == L"cba");
    for (wchar_t& ch : s)
        ch = static_cast<wchar_t>(ch + 1);
    QVERIFY(s == L"bcd");
    int count = 0;
    for (int i = 0; i < s.GetLength(); ++i)
        count += s[i] != L'c';
    QCOMPARE(count, 2);
    QVERIFY(std::find(s.begin(), s.end(), L'd') != s.end());
}

void tst_StringClient::searchingAndChanging()
{
    CString_X s = L"a,b";
    const CString_X t = L",";
    QVERIFY(s.Find(L',') == 1 && s.Find(L",") == 1 && s.Find(t) == 1 && s.Find(',') == 1 && s.Find(t, 1) == 1);
    QVERIFY(s.ReverseFind(',') == 1 && s.FindOneOf(t) == 1);
    QCOMPARE(s.Replace(t, L";"), 1);
    QCOMPARE(s.Replace(L";", t), 1);
    QCOMPARE(s.Replace(',', ';'), 1);
    QCOMPARE(s.Insert(0, t), 4);
    QCOMPARE(s.Insert(0, ' '), 5);
    QVERIFY(s.TrimLeft().TrimRight() == L",a;b");
    QVERIFY(s.Trim(t) == L"a;b");
    QCOMPARE(s.Delete(s.Find(L';')), 1);
    QVERIFY(s == L"ab");
    int position = 0;
    const CString_X list = L"1 2 3";
    int sum = 0;
    for (CString_X token = list.Tokenize(L" ", position); !token.IsEmpty(); token = list.Tokenize(L" ", position))
        sum += static_cast<int>(_wtof(token));
    QCOMPARE(sum, 6);
}

void tst_StringClient::cuttingPaths()
{
    CString_X path = L"C:\\parts\\bolt.m6.prt";
    const int slash = path.ReverseFind(L'\\');
    const int dot = path.ReverseFind(L'.');
    QVERIFY(path.Left(slash) == L"C:\\parts");
    QVERIFY(path.Mid(slash + 1, dot - slash - 1) == L"bolt.m6");
    QVERIFY(path.Right(path.GetLength() - dot - 1) == L"prt");
    path = path.Left(dot) + L".txt";
    QVERIFY(path.ToUnixSeperator() == L"C:/parts/bolt.m6.txt");
    path = path.Mid(path.Find(L'\\'));
    QVERIFY(path == L"\\parts\\bolt.m6.txt");
}

void tst_StringClient::formatting()
{
    CString_X s, part = L"part";
    const std::wstring w = L"standard";
    wchar_t array[] = L"array";
    s.Format(L"%s %s %s %s", part, w, array, L"literal");
    QVERIFY(s == L"part standard array literal");
    s.Format(L"%s %d", part, 5);
    QVERIFY(s == L"part 5");
    s.Format(L"%s %d", (LPCTSTR)part, part.GetLength());
    QVERIFY(s == L"part 4");
    s.Format(L"%d %d %d %d %c %.1f %lld", short(1), true, Green, 'A', 'A', 0.5F, 5LL);
    QVERIFY(s == L"1 1 1 65 A 0.5 5");
    s.Format(L"%s%c%s", part, L'\\', fromLiteral());
    QVERIFY(s == L"part\\literal");
    s.Format(part);
    QVERIFY(s == part);
    s.Format(CString_X(L"%d%%"), 5);
    QVERIFY(s == L"5%");
    s.Format(L"<%s>", s);
    QVERIFY(s == L"<5%>");
    s.AppendFormat(L" %s", part);
    QVERIFY(s == L"<5%> part");
    s.Format(L"%s", part.IsEmpty() ? L"no" : L"yes");
    QVERIFY(s == L"yes");
    s.Format(L"%S", part.Utf8Ptr());
    QVERIFY(s == part);
}

void tst_StringClient::containers()
{
    std::vector<CString_X> names{L"b", L"a", fromLiteral()};
    names.push_back(L"c");
    names.emplace_back(L"d");
    names.insert(names.begin(), L"0");
    std::sort(names.begin(), names.end());
    QVERIFY(names.front() == L"0" && names.back() == L"literal");
    QVERIFY(std::find(names.begin(), names.end(), L"c") != names.end());

    QMap<CString_X, int> ordered;
    ordered[L"x"] = 1;
    QCOMPARE(ordered.value(L"x"), 1);
    QList<CString_X> list;
    list << L"x" << CString_X(L"y");
    QVERIFY(list.contains(L"y"));
    QVector<CString_X> vector(2);
    vector.append(L"x");
    QVERIFY(vector[0].IsEmpty() && vector[2] == L"x");
    const std::pair<CString_X, CString_X> pair(L"a", L"b");
    const auto& [first, second] = pair;
    QVERIFY(first == L"a" && second == L"b");
}

void tst_StringClient::streams()
{
    const CString_X s = L"text";
    std::wostringstream out;
    out << s << L' ' << 5;
    QVERIFY(out.str() == L"text 5");
    std::wistringstream in(L"one two");
    CString_X word;
    in >> word;
    QVERIFY(word == L"one");
    std::getline(in, word);
    QVERIFY(word == L" two");

    const auto written = [](const CString_X& text) {
        QString output;
        QDebug(&output) << text;
        return output.trimmed();
    };
    QCOMPARE(written(s), QStringLiteral("\"text\""));
    QCOMPARE(written(L""), QStringLiteral("\"\""));
    QString quoted;
    QDebug(&quoted) << QStringLiteral("é😀\"");
    QCOMPARE(written(L"é😀\""), quoted.trimmed()); // as a QString
}

void tst_StringClient::assigningItself()
{
    CString_X s = L"abc";
    const CString_X& same = s;
    s = same;
    QVERIFY(s == L"abc");
    s = s.Left(2);
    s = s + s.Right(1);
    s += s.Left(1);
    QVERIFY(s == L"abba");
    CString_X t = L"t";
    std::swap(s, t);
    QVERIFY(s == L"t" && t == L"abba");
    s = std::move(t);
    QVERIFY(s == L"abba");
}

void tst_StringClient::constants()
{
    static const CString_X table[] = {L"a", L"b"};
    constexpr const wchar_t* name = L"name";
    CString_X s = name;
    QVERIFY(s == name && table[1] == L"b" && std::size(table) == 2);
    s = table[0];
    QVERIFY(s == table[0]);
}

XE_APPLESS_TEST(tst_StringClient)
#include "tst_stringclient.moc"
