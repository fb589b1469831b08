// The question for a folder.

#include "testclass.h"

#include <leavenothing.h>
#include <modaldriver.h>

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTemporaryDir>
#include <xeafxdlgs.h>

namespace {

// Asks, and acts on the dialog.
template <class Action>
BOOL ask(const wchar_t* title, CString_X& result, Action action)
{
    const ModalDriver<QFileDialog> driver([&](QFileDialog* shown) {
        action(*shown);
        if (shown->isVisible())
            shown->reject();
    });
    return SHBrowseForFolder_X(title, result);
}

void choose(QFileDialog& dialog) { dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)->click(); }

void type(const QFileDialog& dialog, const QString& text)
{
    dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(text);
}

} // namespace

class tst_BrowseForFolder : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void setUp();
    void title_data();
    void title();
    void folder_data();
    void folder();
    void folderThatIsNotThere();
    void cancelledLeavesTheResult();

private:
    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_BrowseForFolder::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QDir(m_folder->path()).mkpath(QStringLiteral("备份"));
    QFile(m_folder->filePath(QStringLiteral("file"))).open(QIODevice::WriteOnly);
}

void tst_BrowseForFolder::setUp()
{
    CString_X result;
    ask(nullptr, result, [&](QFileDialog& shown) {
        QVERIFY(shown.testOption(QFileDialog::DontUseNativeDialog));
        QVERIFY(shown.testOption(QFileDialog::HideNameFilterDetails));
        QVERIFY(!shown.parent());
        QCOMPARE(shown.viewMode(), QFileDialog::List);
        QCOMPARE(shown.acceptMode(), QFileDialog::AcceptOpen);
        QCOMPARE(int(shown.fileMode()), 4);
        shown.setDirectory(m_folder->path());
        const auto* const list = shown.findChild<QListView*>(QStringLiteral("listView"));
        QTRY_COMPARE(list->model()->rowCount(list->rootIndex()), 1); // the folder, and not the file
    });
}

void tst_BrowseForFolder::title_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("title");
    QTest::newRow("as given") << QStringLiteral("选择文件夹") << QStringLiteral("选择文件夹");
    QTest::newRow("null") << QString() << QString();
}

void tst_BrowseForFolder::title()
{
    QFETCH(const QString, text);
    const CString_X given(text);
    CString_X result;
    QString title;
    ask(text.isNull() ? nullptr : given.GetString(), result, [&](QFileDialog& shown) { title = shown.windowTitle(); });
    QTEST(title, "title");
}

void tst_BrowseForFolder::folder_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("folder");
    QTest::newRow("the one named") << QStringLiteral("备份") << QStringLiteral("/备份");
    QTest::newRow("the one shown") << QString() << QString();
}

void tst_BrowseForFolder::folder()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, folder);
    CString_X result = L"before";
    QCOMPARE(ask(L"", result,
                 [&](QFileDialog& shown) {
                     shown.setDirectory(m_folder->path());
                     type(shown, typed);
                     choose(shown);
                 }),
             1);
    QCOMPARE(XeQString(result), m_folder->path() + folder);
}

void tst_BrowseForFolder::folderThatIsNotThere()
{
    CString_X result = L"before";
    QCOMPARE(ask(L"", result,
                 [&](QFileDialog& shown) {
                     shown.setDirectory(m_folder->path());
                     type(shown, QStringLiteral("missing"));
                     choose(shown);
                     QVERIFY(shown.isVisible());
                 }),
             0);
    QCOMPARE(XeQString(result), QStringLiteral("before"));
}

void tst_BrowseForFolder::cancelledLeavesTheResult()
{
    CString_X result = L"before";
    QCOMPARE(ask(L"", result, [](QFileDialog&) {}), 0);
    QCOMPARE(XeQString(result), QStringLiteral("before"));
}

XE_TEST(tst_BrowseForFolder)
#include "tst_browseforfolder.moc"
