// What the program remembers from one run to the next.

#include "mainframe.h"
#include "resource.h"
#include "settings.h"
#include "testclass.h"

#include <QAction>
#include <QMenu>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <xeafxmenu.h>
#include <xeprocess.h>
#include <xewinreg.h>

namespace {

QStringList recentFiles()
{
    QStringList names;
    for (const CString_X& name : settings::recentFiles())
        names += XeQString(name);
    return names;
}

// As a number of an earlier run comes: by its digits.
void setDigits(const wchar_t* name, const wchar_t* digits)
{
    HKEY key = nullptr;
    RegOpenKeyW_X(HKEY_CURRENT_USER, L"Software\\PartsBook\\Window", &key);
    RegSetValueExW_X(key, name, 0, REG_SZ, digits, 0);
    RegCloseKey_X(key);
}

} // namespace

class tst_PartsbookSettings : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void nothingYet();
    void placeOfTheWindow();
    void placeOfAnEarlierRun();
    void recentFilesInOrder();
    void fileNamesOfAnyKind();
    void theWindowComesBack();
    void aPlaceThatNoScreenShows();
    void openedFilesAreRecent();
    void theLogTellsWhatWasDone();
};

void tst_PartsbookSettings::init()
{
    HKEY key = nullptr;
    RegOpenKeyW_X(HKEY_CURRENT_USER, L"Software\\PartsBook", &key);
    RegDeleteTree_X(key, nullptr);
    RegCloseKey_X(key);
}

void tst_PartsbookSettings::nothingYet()
{
    QVERIFY(!settings::windowPlace().isValid());
    QVERIFY(settings::recentFiles().empty());
    QCOMPARE(settings::treeWidth(), 168);
}

void tst_PartsbookSettings::placeOfTheWindow()
{
    const QRect place(-5, 20, 300, 400);
    settings::setWindowPlace(place);
    QCOMPARE(settings::windowPlace(), place);
    settings::setTreeWidth(210);
    QCOMPARE(settings::treeWidth(), 210);
}

void tst_PartsbookSettings::placeOfAnEarlierRun()
{
    settings::setWindowPlace(QRect(1, 2, 3, 4));
    setDigits(L"Left", L"4294967291"); // as the file has -5
    setDigits(L"Top", L"20");
    QCOMPARE(settings::windowPlace(), QRect(-5, 20, 3, 4));
    setDigits(L"Width", L"many");
    QVERIFY(!settings::windowPlace().isValid());
}

void tst_PartsbookSettings::recentFilesInOrder()
{
    for (const wchar_t* name : {L"/a", L"/b", L"/c"})
        settings::addRecentFile(name);
    QCOMPARE(recentFiles(), QStringList({"/c", "/b", "/a"}));
    settings::addRecentFile(L"/a");
    QCOMPARE(recentFiles(), QStringList({"/a", "/c", "/b"}));
    settings::addRecentFile(L"/d");
    settings::addRecentFile(L"/e");
    QCOMPARE(recentFiles(), QStringList({"/e", "/d", "/a", "/c"}));
}

void tst_PartsbookSettings::fileNamesOfAnyKind()
{
    const CString_X name = CString_X(L"/零件, \"new\"\\old;%20=1 😀.csv");
    settings::addRecentFile(name);
    QCOMPARE(recentFiles(), QStringList({XeQString(name)}));
}

void tst_PartsbookSettings::theWindowComesBack()
{
    const QRect place(40, 60, 720, 420);
    CMainFrame first;
    first.Create(nullptr);
    first.GetSafeHwnd()->setGeometry(place);
    first.ShowWindow(SW_SHOW);
    first.GetSafeHwnd()->close();
    QVERIFY(!first.GetSafeHwnd());
    CMainFrame second;
    second.Create(nullptr);
    QCOMPARE(second.GetSafeHwnd()->geometry(), place);
    second.DestroyWindow();
}

void tst_PartsbookSettings::aPlaceThatNoScreenShows()
{
    settings::setWindowPlace(QRect(-9000, -9000, 640, 420));
    CMainFrame frame;
    frame.Create(nullptr);
    QVERIFY(frame.GetSafeHwnd()->x() > -9000);
    frame.DestroyWindow();
}

void tst_PartsbookSettings::openedFilesAreRecent()
{
    const QTemporaryDir folder;
    PartsBook book;
    QVERIFY(book.saveAs(folder.filePath("one.csv")));
    QVERIFY(book.saveAs(folder.filePath("two & more.parts")));
    CMainFrame frame;
    frame.Create(nullptr);
    QVERIFY(frame.OpenBook(folder.filePath("one.csv")));
    QVERIFY(frame.OpenBook(folder.filePath("two & more.parts")));
    QCOMPARE(recentFiles(), QStringList({folder.filePath("two & more.parts"), folder.filePath("one.csv")}));

    auto* const menu = frame.GetSafeHwnd()->findChild<QMenu*>("fileMenu");
    const int items = menu->actions().size();
    QCOMPARE(CMenu_X::findAction(ID_FILE_MRU_FILE1, menu), menu->actions().at(items - 4)); // above separator and Exit
    QCOMPARE(menu->actions().at(items - 4)->text(), folder.filePath("two && more.parts"));
    QCOMPARE(CMenu_X::findAction(ID_FILE_MRU_FILE2, menu), menu->actions().at(items - 3));
    QCOMPARE(CMenu_X::findAction(ID_FILE_MRU_FILE3, menu), nullptr);
    menu->actions().at(items - 3)->trigger();
    QCOMPARE(menu->actions().size(), items);
    QCOMPARE(menu->actions().at(items - 4)->text(), folder.filePath("one.csv"));
    QCOMPARE(recentFiles(), QStringList({folder.filePath("one.csv"), folder.filePath("two & more.parts")}));
    QVERIFY(frame.GetSafeHwnd()->windowTitle().contains("one.csv"));
    frame.DestroyWindow();
}

void tst_PartsbookSettings::theLogTellsWhatWasDone()
{
    QDir common(XeQString(GetMainDirectory() + L"/Common"));
    QVERIFY(common.mkpath("."));
    const QTemporaryDir folder;
    const QString name = folder.filePath(QString::fromUtf8("零件.csv"));
    PartsBook book;
    QVERIFY(book.saveAs(name));
    CMainFrame frame;
    frame.Create(nullptr);
    frame.ShowWindow(SW_SHOW);
    QVERIFY(frame.OpenBook(name));
    frame.GetSafeHwnd()->close();

    QFile log(common.filePath("IKev.log"));
    QVERIFY(log.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(log.readAll());
    QVERIFY(common.removeRecursively());
    const QString time = "\\[\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d \\w+\\] ";
    const QRegularExpression lines(time + "opened " + QRegularExpression::escape(name) + ", 0 parts\n" + time
                                   + "closed\n$");
    QVERIFY2(lines.match(text).hasMatch(), qPrintable(text));
}

XE_TEST(tst_PartsbookSettings)
#include "tst_partsbooksettings.moc"
