// The types of a file dialog: which labels a filter has, which files each shows, and what it does to a name.

#include "shownfiledialog.h"
#include "testclass.h"

#include <leavenothing.h>

namespace {

using Shown = ShownFileDialog;

const char* const someFiles[] = {"a.png", "b.JPG", "c.txt", "Makefile", "图.图纸"};

} // namespace

class tst_FileTypes : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void labels_data();
    void labels();
    void patterns_data();
    void patterns();

    void shownFiles_data();
    void shownFiles();
    void shownFilesOfTheHostsChoice();
    void labelsInTheBox();

    void suffix_data();
    void suffix();
    void suffixIsForSavingOnly();
    void suffixOfTheHostsChoice_data();
    void suffixOfTheHostsChoice();
    void nameThatTheHostSetsStays();

    void changesOfTheType();
};

void tst_FileTypes::labels_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QStringList>("labels");
    QTest::newRow("pairs") << QStringLiteral("Text (*.txt)|*.txt|All (*.*)|*.*||")
                           << QStringList({"Text (*.txt)", "All (*.*)"});
    QTest::newRow("without the last bars") << QStringLiteral("Text (*.txt)|*.txt") << QStringList("Text (*.txt)");
    QTest::newRow("a label without brackets is dropped")
        << QStringLiteral("Text|*.txt|All (*.*)|*.*||") << QStringList("All (*.*)");
    QTest::newRow("no brackets at all") << QStringLiteral("Text|*.txt||") << QStringList();
    QTest::newRow("empty") << QString() << QStringList();
    QTest::newRow("several patterns") << QStringLiteral("图片 (*.png;*.jpg)|*.png;*.jpg||")
                                      << QStringList("图片 (*.png;*.jpg)");
    QTest::newRow("the same twice") << QStringLiteral("A (*.a)|*.a|A (*.a)|*.a||")
                                    << QStringList({"A (*.a)", "A (*.a)"});
    QTest::newRow("a blank behind the bracket") << QStringLiteral("A (*.a) |*.a||") << QStringList();
}

void tst_FileTypes::labels()
{
    QFETCH(const QString, filter);
    CFileDialog_X dialog(nullptr, L"", L"", filter, 0, 1);
    runFileDialog(dialog, [&](Shown shown) { QTEST(shown.dialog.nameFilters(), "labels"); });
}

void tst_FileTypes::patterns_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QStringList>("patterns");
    QTest::newRow("one") << QStringLiteral("Text (*.txt)") << QStringList("*.txt");
    QTest::newRow("by semicolons") << QStringLiteral("(*.png;*.jpg)") << QStringList({"*.png", "*.jpg"});
    QTest::newRow("by blanks") << QStringLiteral("(*.png *.jpg)") << QStringList({"*.png", "*.jpg"});
    QTest::newRow("by both") << QStringLiteral("(*.png; *.jpg ;*.gif)") << QStringList({"*.png", "*.jpg", "*.gif"});
    QTest::newRow("all") << QStringLiteral("All (*.*)") << QStringList("*");
    QTest::newRow("all among others") << QStringLiteral("(*.txt;*.*)") << QStringList({"*.txt", "*"});
    QTest::newRow("only all is all") << QStringLiteral("(*.*x;a*.*)") << QStringList({"*.*x", "a*.*"});
    QTest::newRow("the last brackets") << QStringLiteral("Old (97) (*.doc)") << QStringList("*.doc");
    QTest::newRow("not Latin") << QStringLiteral("图纸 (*.图纸)") << QStringList("*.图纸");
    QTest::newRow("nothing in them") << QStringLiteral("None ()") << QStringList();
}

void tst_FileTypes::patterns()
{
    QFETCH(const QString, label);
    CFileDialog_X dialog(nullptr, L"", L"", label, 0, 1);
    runFileDialog(dialog, [&](Shown shown) { QTEST(shown.model().nameFilters(), "patterns"); });
}

// ------------------------------------------------------------------------------------------------------------- showing

void tst_FileTypes::shownFiles_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QStringList>("names");
    const QStringList all({"Makefile", "a.png", "b.JPG", "c.txt", "图.图纸"});
    QTest::newRow("one pattern") << QStringLiteral("Text (*.txt)|*.txt||") << QStringList("c.txt");
    QTest::newRow("several, whatever their case")
        << QStringLiteral("Pictures (*.png;*.jpg)|*.png;*.jpg||") << QStringList({"a.png", "b.JPG"});
    QTest::newRow("all shows a name without a dot") << QStringLiteral("All (*.*)|*.*||") << all;
    QTest::newRow("not Latin") << QStringLiteral("图纸 (*.图纸)|*.图纸||") << QStringList("图.图纸");
    QTest::newRow("no types show all") << QString() << all;
    QTest::newRow("labels without brackets show all") << QStringLiteral("Text|*.txt||") << all;
}

void tst_FileTypes::shownFiles()
{
    FileFolder files;
    for (const char* name : someFiles)
        files.add(QString::fromUtf8(name));
    QFETCH(const QString, filter);
    QFETCH(const QStringList, names);
    CFileDialog_X dialog(nullptr, L"", files.path(), filter, 0, 1);
    runFileDialog(dialog, [&](Shown shown) { QVERIFY2(shown.shows(names), qPrintable(shown.names().join(' '))); });
}

void tst_FileTypes::shownFilesOfTheHostsChoice()
{
    const FileFolder files({"a.png", "b.jpg", "c.txt"});
    CFileDialog_X dialog(nullptr, L"", files.path(), L"T (*.txt)|*.txt|P (*.png;*.jpg)|*.png;*.jpg||", 0, 1);
    runFileDialog(dialog, [&](Shown shown) {
        QVERIFY(shown.shows({"c.txt"}));
        shown.dialog.selectNameFilter(QStringLiteral("P (*.png;*.jpg)"));
        QVERIFY(shown.shows({"a.png", "b.jpg"}));
        QTest::keyClick(&shown.types(), Qt::Key_Up);
        QVERIFY(shown.shows({"c.txt"}));
        QTest::keyClick(&shown.types(), Qt::Key_Down);
        QVERIFY(shown.shows({"a.png", "b.jpg"}));
    });
}

void tst_FileTypes::labelsInTheBox()
{
    CFileDialog_X dialog(TRUE, nullptr, nullptr, 0, L"图片 (*.png;*.jpg)|*.png;*.jpg|All (*.*)|*.*||");
    runFileDialog(dialog, [&](Shown shown) {
        QCOMPARE(shown.types().count(), 2);
        QCOMPARE(shown.types().currentText(), QStringLiteral("图片 (*.png;*.jpg)"));
        QTest::keyClick(&shown.types(), Qt::Key_Down);
        QCOMPARE(shown.dialog.selectedNameFilter(), QStringLiteral("All (*.*)"));
    });
}

// ----------------------------------------------------------------------------------------------------- name and suffix

void tst_FileTypes::suffix_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("result");
    const auto row = [](const char* what, const char* name, const char* type, const char* result) {
        QTest::newRow(what) << QString::fromUtf8(name) << QString::fromUtf8(type) << QString::fromUtf8(result);
    };
    row("the type's own", "report.dat", "Text (*.txt)", "report.txt");
    row("the first of several", "report.dat", "Pictures (*.png;*.jpg)", "report.png");
    row("a name of the type already", "report.jpg", "Pictures (*.png;*.jpg)", "report.jpg");
    row("all leave it", "report.dat", "All (*.*)", "report.dat");
    row("any leaves it", "report.dat", "Any (*)", "report.dat");
    row("a pattern with a wildcard leaves it", "report.dat", "Old (*.x?)", "report.dat");
    row("a name without one", "report", "Text (*.txt)", "report");
    row("only the last one", "report.tar.dat", "Text (*.txt)", "report.tar.txt");
    row("not Latin", "报告.dat", "图纸 (*.图纸)", "报告.图纸");
}

void tst_FileTypes::suffix()
{
    QFETCH(const QString, name);
    QFETCH(const QString, type);
    CFileDialog_X dialog(FALSE, nullptr, CString_X(name), 0,
                         CString_X(QStringLiteral("Begin (*.begin)|x|%1|x||").arg(type)));
    runFileDialog(dialog, [&](Shown shown) {
        QCOMPARE(shown.name().text(), name);
        QTest::keyClick(&shown.types(), Qt::Key_Down);
        QTEST(shown.name().text(), "result");
        QCoreApplication::processEvents();
        QTEST(shown.name().text(), "result");
    });
}

void tst_FileTypes::suffixIsForSavingOnly()
{
    CFileDialog_X dialog(TRUE, nullptr, L"report.dat", 0, L"A (*.a)|*.a|B (*.b)|*.b||");
    runFileDialog(dialog, [&](Shown shown) {
        QTest::keyClick(&shown.types(), Qt::Key_Down);
        QCOMPARE(shown.types().currentIndex(), 1);
        QCOMPARE(shown.name().text(), QStringLiteral("report.dat"));
    });
}

void tst_FileTypes::suffixOfTheHostsChoice_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("result");
    QTest::newRow("the type's own") << QStringLiteral("Text (*.txt)") << QStringLiteral("report.txt");
    QTest::newRow("all leave it") << QStringLiteral("All (*.*)") << QStringLiteral("report.dat");
}

void tst_FileTypes::suffixOfTheHostsChoice()
{
    QFETCH(const QString, type);
    CFileDialog_X dialog(FALSE, nullptr, L"report.dat", 0, L"B (*.b)|*.b|Text (*.txt)|*.txt|All (*.*)|*.*||");
    runFileDialog(dialog, [&](Shown shown) {
        shown.dialog.selectNameFilter(type);
        QCoreApplication::processEvents();
        QTEST(shown.name().text(), "result");
    });
}

void tst_FileTypes::nameThatTheHostSetsStays()
{
    CFileDialog_X dialog(FALSE, nullptr, L"report.dat", 0, L"B (*.b)|*.b|All (*.*)|*.*||");
    runFileDialog(dialog, [&](Shown shown) {
        shown.dialog.selectNameFilter(QStringLiteral("All (*.*)"));
        dialog.SetControlText(L"", L"other.doc");
        QCoreApplication::processEvents();
        QCOMPARE(shown.name().text(), QStringLiteral("other.doc"));
    });
}

// ------------------------------------------------------------------------------------------------------- notification

void tst_FileTypes::changesOfTheType()
{
    class Noting : public CFileDialog_X
    {
    public:
        Noting() : CFileDialog_X(TRUE, nullptr, nullptr, 0, L"A (*.a)|*.a|B (*.b)|*.b|B (*.b)|*.b||") {}
        void OnTypeChange() override { seen += Imp<QFileDialog>()->selectedNameFilter(); }
        QStringList seen;
    } dialog;
    for (int round = 0; round < 2; ++round) {
        runFileDialog(dialog, [&](Shown shown) {
            QCOMPARE(dialog.seen, QStringList());
            QTest::keyClick(&shown.types(), Qt::Key_Down);
            QCOMPARE(std::exchange(dialog.seen, {}), QStringList("B (*.b)"));
            QTest::keyClick(&shown.types(), Qt::Key_Up);
            QCOMPARE(std::exchange(dialog.seen, {}), QStringList("A (*.a)"));
            QTest::ignoreMessage(QtWarningMsg, "This plugin does not support propagateSizeHints()");
            dialog.OnInitDialog();
            dialog.seen.clear();
            QTest::keyClick(&shown.types(), Qt::Key_Down);
            QCOMPARE(std::exchange(dialog.seen, {}), QStringList("B (*.b)"));
        });
    }
}

XE_TEST(tst_FileTypes)
#include "tst_filetypes.moc"
