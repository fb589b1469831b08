// Components by "/" and "\" alike, and the "/" at the end of a text.

#include "pathrows.h"
#include "testclass.h"

using namespace std::string_literals;

class tst_PathComponents : public QObject
{
    Q_OBJECT

private slots:
    void changes_data();
    void changes() { ChangeRows::compare(); }
    void searches_data();
    void searches() { SearchRows::compare(); }
    void networkPath_data();
    void networkPath() { QuestionRows::compare(); }
    void slashAtTheEnd_data();
    void slashAtTheEnd();
};

void tst_PathComponents::changes_data()
{
    ChangeRows::columns();
    const auto add = ChangeRows::add;

    const Change spec = PathRemoveFileSpec_X;
    add("RemoveFileSpec cuts at the first separator", spec, L"a/b/c", 1, L"a|b/c|");
    add("RemoveFileSpec passes over the first element", spec, L"/a/b", 1, L"/a|b|");
    add("RemoveFileSpec knows a backslash", spec, L"c:\\a/b", 1, L"c:|a/b|");
    add("RemoveFileSpec keeps one of two leading separators", spec, L"\\\\srv\\x", 1, L"\\|srv\\x|");
    add("RemoveFileSpec takes a separator at the end", spec, L"a/", 1, L"a||");
    add("RemoveFileSpec without a separator changes nothing", spec, L"abc", 0, L"abc|");
    add("RemoveFileSpec leaves a lone separator", spec, L"/", 0, L"/|");
    add("RemoveFileSpec leaves a separator at the start", spec, L"\\abc", 0, L"\\abc|");
    add("RemoveFileSpec of an empty text", spec, L"", 0, L"|");
    add("RemoveFileSpec counts wide elements as one", spec, L"\x1F600\x1F600/b", 1, L"\x1F600\x1F600|b|");

    const Change root = PathStripToRoot_X;
    add("StripToRoot cuts behind the first separator", root, L"a/b/c", 1, L"a/|/c|");
    add("StripToRoot passes over the first element", root, L"/a/b", 1, L"/a/||");
    add("StripToRoot knows a backslash", root, L"c:\\a/b", 1, L"c:\\|/b|");
    add("StripToRoot leaves what ends there", root, L"c:\\", 0, L"c:\\|");
    add("StripToRoot without a separator leaves nothing", root, L"abc", 1, L"|bc|");
    add("StripToRoot passes over a separator at the start", root, L"/abc", 1, L"|abc|");
    add("StripToRoot of an empty text", root, L"", 0, L"|");
    add("StripToRoot counts wide elements as one", root, L"\x1F600\\b", 1, L"\x1F600\\||");

    const Change strip = silent<PathStripPath_X>;
    add("StripPath keeps what follows the last separator", strip, L"c:\\a\\b.txt", -1, L"b.txt|.txt|");
    add("StripPath takes the later of both separators", strip, L"a\\b/c", -1, L"c|b/c|");
    add("StripPath leaves nothing of a folder", strip, L"a/b/", -1, L"|/b/|");
    add("StripPath leaves a bare name", strip, L"abc", -1, L"abc|");
    add("StripPath of an empty text", strip, L"", -1, L"|");
    add("StripPath counts wide elements as one", strip, L"\x1F600/\x1F600x", -1, L"\x1F600x|x|");
}

void tst_PathComponents::searches_data()
{
    SearchRows::columns();
    const auto add = SearchRows::add;

    add("FindFileName behind the last slash", PathFindFileName_X, L"a/b/c", 4);
    add("FindFileName behind the last backslash", PathFindFileName_X, L"a/b\\c", 4);
    add("FindFileName of a folder is empty", PathFindFileName_X, L"a/", 2);
    add("FindFileName behind a leading separator", PathFindFileName_X, L"/abc", 1);
    add("FindFileName of a bare name", PathFindFileName_X, L"abc", 0);
    add("FindFileName does not know a drive", PathFindFileName_X, L"c:abc", 0);
    add("FindFileName of an empty text", PathFindFileName_X, L"", 0);
    add("FindFileName counts wide elements as one", PathFindFileName_X, L"\x1F600\x1F600/b", 3);

    add("FindNextComponent behind the first slash", PathFindNextComponent_X, L"a/b/c", 2);
    add("FindNextComponent behind the first backslash", PathFindNextComponent_X, L"a\\b/c", 2);
    add("FindNextComponent behind a leading separator", PathFindNextComponent_X, L"/a/b", 1);
    add("FindNextComponent at the end", PathFindNextComponent_X, L"a/", 2);
    add("FindNextComponent without a separator", PathFindNextComponent_X, L"abc", 0);
    add("FindNextComponent of an empty text", PathFindNextComponent_X, L"", 0);
    add("FindNextComponent counts wide elements as one", PathFindNextComponent_X, L"\x1F600/b", 2);

    add("SkipRoot behind a drive", PathSkipRoot_X, L"c:\\a\\b", 3);
    add("SkipRoot behind a drive with a slash", PathSkipRoot_X, L"c:/a", 3);
    add("SkipRoot passes over the first element", PathSkipRoot_X, L"/usr/bin", 5);
    add("SkipRoot behind two slashes", PathSkipRoot_X, L"//srv/share", 2);
    add("SkipRoot at the end", PathSkipRoot_X, L"c:\\", 3);
    add("SkipRoot behind the share", PathSkipRoot_X, L"\\\\srv\\share\\a", 12);
    add("SkipRoot takes an empty share for one", PathSkipRoot_X, L"\\\\srv\\\\a", 7);
    add("SkipRoot of a share without an end", PathSkipRoot_X, L"\\\\srv\\share", -1);
    add("SkipRoot of a server alone", PathSkipRoot_X, L"\\\\srv", -1);
    add("SkipRoot does not end a share at a slash", PathSkipRoot_X, L"\\\\srv/share/a\\b", -1);
    add("SkipRoot of a name", PathSkipRoot_X, L"abc", -1);
    add("SkipRoot of a name in the root", PathSkipRoot_X, L"/abc", -1);
    add("SkipRoot of an empty text", PathSkipRoot_X, L"", -1);
    add("SkipRoot counts wide elements as one", PathSkipRoot_X, L"\x1F600\\b", 2);
}

void tst_PathComponents::networkPath_data()
{
    QuestionRows::columns();
    const auto add = [](const char* name, const wchar_t* text, BOOL expected) {
        QuestionRows::add(name, PathIsNetworkPath_X, text, expected);
    };

    add("two slashes", L"//srv", 1);
    add("two backslashes", L"\\\\srv", 1);
    add("one of each", L"\\/srv", 1);
    add("two and no more", L"//", 1);
    add("one slash", L"/srv", 0);
    add("one and no more", L"\\", 0);
    add("two behind a name", L"a//", 0);
    add("a scheme", L"http://srv", 0);
    add("an empty text", L"", 0);
}

void tst_PathComponents::slashAtTheEnd_data()
{
    QTest::addColumn<bool>("adds");
    QTest::addColumn<std::wstring>("text");
    QTest::addColumn<std::wstring>("shown");
    const auto add = [](const char* name, bool adds, const wchar_t* text, const wchar_t* shown) {
        QTest::newRow(name) << adds << std::wstring(text) << std::wstring(shown);
    };

    add("a slash is added", true, L"a/b", L"a/b/|");
    add("a slash that is there stays alone", true, L"a/b/", L"a/b/|");
    add("a backslash is no slash", true, L"c:\\", L"c:\\/|");
    add("an empty text becomes a slash", true, L"", L"/|");
    add("a wide element stays", true, L"\x1F600\xD800", L"\x1F600\xD800/|");

    add("all slashes go, and the old tail stays", false, L"a/b/", L"abb/|");
    add("a long tail stays", false, L"/usr/lib/", L"usrlibib/|");
    add("slashes alone stay as the tail", false, L"//", L"//|");
    add("a slash elsewhere stays", false, L"a/b", L"a/b|");
    add("a backslash at the end stays", false, L"a/b\\", L"a/b\\|");
    add("a backslash before the end stays", false, L"a\\b/", L"a\\b/|");
    add("an empty text stays", false, L"", L"|");
}

void tst_PathComponents::slashAtTheEnd()
{
    QFETCH(bool, adds);
    QFETCH(std::wstring, text);
    const auto change = adds ? PathAddBackslash_X : PathRemoveBackslash_X;
    PathBuffer buffer(text);
    QCOMPARE(change(buffer.data()), buffer.data());
    QTEST(buffer.shown(), "shown");
    QVERIFY(!change(nullptr));
}

XE_GUILESS_TEST(tst_PathComponents)
#include "tst_pathcomponents.moc"
