// What becomes of an entry that is activated in one of the two views of a file dialog.

#include "shownfiledialog.h"
#include "testclass.h"

#include <leavenothing.h>

#include <QSignalSpy>

namespace {

using Shown = ShownFileDialog;

class NotingDialog : public CFileDialog_X
{
public:
    explicit NotingDialog(unsigned flags = 0) : CFileDialog_X(TRUE, nullptr, nullptr, flags) {}
    void OnOK() override
    {
        ++oks;
        CFileDialog_X::OnOK();
    }
    int oks = 0;
};

// The view of this kind, in which the entry can be seen.
QAbstractItemView& viewOf(const Shown& shown, bool isList, const QModelIndex& entry)
{
    shown.dialog.setViewMode(isList ? QFileDialog::List : QFileDialog::Detail);
    QAbstractItemView& view = isList ? shown.list() : shown.tree();
    view.scrollTo(entry);
    return view;
}

void doubleClick(QAbstractItemView& view, const QModelIndex& entry, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    const QPoint place = view.visualRect(entry).center();
    QTest::mouseClick(view.viewport(), Qt::LeftButton, modifiers, place);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, modifiers, place);
}

} // namespace

class tst_FileActivation : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void views_data();
    void doubleClickOnAFile_data() { views_data(); }
    void doubleClickOnAFile();
    void doubleClickOnAFolder_data() { views_data(); }
    void doubleClickOnAFolder();
    void returnOnAFolderThenOnAFile_data() { views_data(); }
    void returnOnAFolderThenOnAFile();
    void aClickInAnotherColumn();

    void controlGoesOnWithASelection_data();
    void controlGoesOnWithASelection();
    void fileOfAProxy();
    void folderWhereFoldersAreWanted_data();
    void folderWhereFoldersAreWanted();
    void indexWithoutAPath();
    void oneConnectionHoweverOften();
};

void tst_FileActivation::views_data()
{
    QTest::addColumn<bool>("isList");
    QTest::newRow("list") << true;
    QTest::newRow("tree") << false;
}

void tst_FileActivation::doubleClickOnAFile()
{
    const FileFolder files({"a.csv", "零件.csv"});
    QFETCH(const bool, isList);
    NotingDialog dialog;
    dialog.SetInitialDir(files.path());
    QCOMPARE(runFileDialog(dialog,
                           [&](Shown shown) {
                               QVERIFY(shown.shows({"a.csv", "零件.csv"}));
                               const QModelIndex entry = shown.entry("零件.csv");
                               doubleClick(viewOf(shown, isList, entry), entry);
                           }),
             IDOK);
    QCOMPARE(dialog.oks, 1);
    QCOMPARE(XeQString(dialog.GetPathName()), files.path("零件.csv"));
}

void tst_FileActivation::doubleClickOnAFolder()
{
    const FileFolder files({"sub/", "sub/a.csv"});
    QFETCH(const bool, isList);
    NotingDialog dialog;
    dialog.SetInitialDir(files.path());
    runFileDialog(dialog, [&](Shown shown) {
        QVERIFY(shown.shows({"sub"}));
        QSignalSpy entered(&shown.dialog, &QFileDialog::directoryEntered);
        const QModelIndex entry = shown.entry("sub");
        doubleClick(viewOf(shown, isList, entry), entry);
        QCOMPARE(shown.dialog.directory().path(), files.path("sub"));
        QCOMPARE(entered.size(), 1);
        QCOMPARE(entered[0][0].toString(), files.path("sub"));
        QCOMPARE(shown.name().text(), QString());
        QVERIFY(shown.dialog.isVisible());
    });
    QCOMPARE(dialog.oks, 0);
}

void tst_FileActivation::returnOnAFolderThenOnAFile()
{
    const FileFolder files({"sub/", "sub/a.csv"});
    QFETCH(const bool, isList);
    NotingDialog dialog;
    dialog.SetInitialDir(files.path());
    QCOMPARE(runFileDialog(dialog,
                           [&](Shown shown) {
                               const auto pressReturn = [&](const char* name) {
                                   QVERIFY(shown.shows({name}));
                                   const QModelIndex entry = shown.entry(name);
                                   QAbstractItemView& view = viewOf(shown, isList, entry);
                                   view.setCurrentIndex(entry);
                                   QTest::keyClick(&view, Qt::Key_Return);
                               };
                               pressReturn("sub");
                               QCOMPARE(shown.dialog.directory().path(), files.path("sub"));
                               pressReturn("a.csv");
                           }),
             IDOK);
    QCOMPARE(XeQString(dialog.GetPathName()), files.path("sub/a.csv"));
}

void tst_FileActivation::aClickInAnotherColumn()
{
    const FileFolder files({"sub/"});
    NotingDialog dialog;
    dialog.SetInitialDir(files.path());
    runFileDialog(dialog, [&](Shown shown) {
        QVERIFY(shown.shows({"sub"}));
        const QModelIndex name = shown.entry("sub");
        const QModelIndex date = name.sibling(name.row(), 3);
        doubleClick(viewOf(shown, false, date), date);
        QCOMPARE(shown.dialog.directory().path(), files.path("sub"));
    });
}

// ------------------------------------------------------------------------------------------------------------- modes

void tst_FileActivation::controlGoesOnWithASelection_data()
{
    QTest::addColumn<unsigned>("flags");
    QTest::addColumn<int>("modifier");
    QTest::addColumn<int>("oks");
    QTest::newRow("several, with Control") << 0x200u << int(Qt::ControlModifier) << 0;
    QTest::newRow("several") << 0x200u << 0 << 1;
    QTest::newRow("one, with Control") << 0u << int(Qt::ControlModifier) << 1;
}

void tst_FileActivation::controlGoesOnWithASelection()
{
    const FileFolder files({"a", "b"});
    QFETCH(const unsigned, flags);
    QFETCH(const int, modifier);
    NotingDialog dialog(flags);
    dialog.SetInitialDir(files.path());
    runFileDialog(dialog, [&](Shown shown) {
        QVERIFY(shown.shows({"a", "b"}));
        QAbstractItemView& view = viewOf(shown, true, shown.entry("b"));
        view.setCurrentIndex(shown.entry("b"));
        // The modifiers of the moment are those of the last event.
        QTest::keyPress(&view, Qt::Key_Control, Qt::KeyboardModifiers(modifier));
        dialog.onDoubleClicked(shown.entry("b"));
        QTest::keyRelease(&view, Qt::Key_Control);
    });
    QTEST(dialog.oks, "oks");
}

void tst_FileActivation::fileOfAProxy()
{
    const FileFolder files({"a", "sub/", "sub/b"});
    NotingDialog dialog;
    dialog.SetInitialDir(files.path());
    QCOMPARE(runFileDialog(dialog,
                           [&](Shown shown) {
                               shown.dialog.setProxyModel(new QSortFilterProxyModel(&shown.dialog));
                               QVERIFY(shown.shows({"a", "sub"}));
                               dialog.onDoubleClicked(shown.entry("sub"));
                               QCOMPARE(shown.dialog.directory().path(), files.path("sub"));
                               QVERIFY(shown.shows({"b"}));
                               const QModelIndex entry = shown.entry("b");
                               doubleClick(viewOf(shown, true, entry), entry);
                           }),
             IDOK);
    QCOMPARE(XeQString(dialog.GetPathName()), files.path("sub/b"));
}

void tst_FileActivation::folderWhereFoldersAreWanted_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("name");
    QTest::newRow("files are wanted") << int(QFileDialog::AnyFile) << 0 << QString();
    QTest::newRow("several files are wanted") << int(QFileDialog::ExistingFiles) << 0 << QString();
    QTest::newRow("folders are wanted") << int(QFileDialog::Directory) << 0 << QStringLiteral("文件夹");
    QTest::newRow("only folders are wanted") << 4 << 0 << QStringLiteral("文件夹");
    QTest::newRow("by its date") << int(QFileDialog::Directory) << 3 << QStringLiteral("文件夹");
}

void tst_FileActivation::folderWhereFoldersAreWanted()
{
    const FileFolder files({"文件夹/"});
    QFETCH(const int, mode);
    QFETCH(const int, column);
    NotingDialog dialog;
    dialog.SetInitialDir(files.path());
    runFileDialog(dialog, [&](Shown shown) {
        shown.dialog.setFileMode(static_cast<QFileDialog::FileMode>(mode));
        QVERIFY(shown.shows({"文件夹"}));
        shown.name().setText(QStringLiteral("typed"));
        const QModelIndex entry = shown.entry("文件夹");
        dialog.onDoubleClicked(entry.sibling(entry.row(), column));
        QCOMPARE(shown.dialog.directory().path(), files.path("文件夹"));
        QTEST(shown.name().text(), "name");
    });
}

void tst_FileActivation::indexWithoutAPath()
{
    const FileFolder files({"a"});
    NotingDialog dialog;
    dialog.SetInitialDir(files.path());
    runFileDialog(dialog, [&](Shown shown) {
        shown.name().setText(QStringLiteral("a"));
        dialog.onDoubleClicked({});
        dialog.onDoubleClicked(shown.types().model()->index(0, 0));
        QCOMPARE(shown.dialog.directory().path(), files.path());
    });
    QCOMPARE(dialog.oks, 0);
}

void tst_FileActivation::oneConnectionHoweverOften()
{
    const FileFolder files({"sub/"});
    NotingDialog dialog;
    dialog.SetInitialDir(files.path());
    runFileDialog(dialog, [&](Shown shown) {
        dialog.ConnectSlotsFrom(&shown.dialog, false);
        dialog.ConnectSlotsFrom(&shown.dialog, true);
        QSignalSpy entered(&shown.dialog, &QFileDialog::directoryEntered);
        QVERIFY(shown.shows({"sub"}));
        for (QAbstractItemView* view : {&shown.list(), &shown.tree()}) {
            shown.dialog.setDirectory(files.path());
            entered.clear();
            emit view->activated(shown.entry("sub"));
            QCOMPARE(entered.size(), 1);
        }
    });
}

XE_TEST(tst_FileActivation)
#include "tst_fileactivation.moc"
