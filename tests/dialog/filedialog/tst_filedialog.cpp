// What a file dialog looks like, by the fields of its wrapper.

#include "shownfiledialog.h"
#include "testclass.h"

#include <leavenothing.h>
#include <xeafxddx.h>

#include <QLabel>

namespace {

using Shown = ShownFileDialog;

} // namespace

class tst_FileDialog : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void fieldsOfTheForms();
    void parentsOfTheForms();
    void isQtsOwnDialog();

    void title_data();
    void title();
    void folder_data();
    void folder();
    void proposedName_data();
    void proposedName();
    void mode_data();
    void mode();
    void chineseTexts_data();
    void chineseTexts();

    void textOfTheNameBox();
    void titleAndFolderAreForTheNextRun();
    void eachRunHasADialogOfItsOwn();
    void refusals();
    void accessorsBeforeARun();
    void wrapperWithoutAFileDialog();
};

void tst_FileDialog::fieldsOfTheForms()
{
    const auto fields = [](const CFileDialog_X& dialog) {
        return XeQString(dialog.m_strCaption + L"|" + dialog.m_strInitialDir + L"|" + dialog.m_strFilter + L"|"
                         + dialog.m_strFileName + L"|" + dialog.m_strDefExt + L"|" + dialog.m_strCurrentPath)
               + QStringLiteral(" %1 0x%2").arg(dialog.m_bOpenFileDialog).arg(dialog.m_dwFlags, 0, 16);
    };
    QCOMPARE(fields(CFileDialog_X(nullptr, Qt::WindowFlags(), 1)), QStringLiteral("||||| 1 0x0"));
    QCOMPARE(fields(CFileDialog_X(nullptr, Qt::Tool, 0)), QStringLiteral("||||| 0 0x0"));
    QCOMPARE(fields(CFileDialog_X(nullptr, L"标题", L"/tmp", L"A (*.a)|*.a||", 0x200, 1)),
             QStringLiteral("标题|/tmp|A (*.a)|*.a||||| 1 0x200"));
    QCOMPARE(fields(CFileDialog_X(FALSE, L"csv", L"零件", 0x800, L"A (*.a)|*.a||", nullptr)),
             QStringLiteral("||A (*.a)|*.a|||零件|csv| 0 0x800"));
    QCOMPARE(fields(CFileDialog_X(TRUE)), QStringLiteral("||||| 1 0x6"));
    QCOMPARE(fields(CFileDialog_X(TRUE, nullptr, nullptr, 0, nullptr, nullptr)), QStringLiteral("||||| 1 0x0"));
}

void tst_FileDialog::parentsOfTheForms()
{
    QWidget widget;
    CWnd_X window;
    QVERIFY(window.SubclassWindow(&widget));
    const std::unique_ptr<CFileDialog_X> dialogs[] = {
        std::make_unique<CFileDialog_X>(&widget, Qt::WindowFlags(), 1),
        std::make_unique<CFileDialog_X>(&window, Qt::WindowFlags(), 1),
        std::make_unique<CFileDialog_X>(&widget, L"", L"", L"", 0u, 1),
        std::make_unique<CFileDialog_X>(&window, L"", L"", L"", 0u, 1),
        std::make_unique<CFileDialog_X>(TRUE, nullptr, nullptr, 0u, nullptr, &widget),
        std::make_unique<CFileDialog_X>(TRUE, nullptr, nullptr, 0u, nullptr, &window),
    };
    for (const auto& dialog : dialogs) {
        const QWidget* parent = nullptr;
        QCOMPARE(runFileDialog(*dialog, [&](Shown shown) { parent = shown.dialog.parentWidget(); }), IDCANCEL);
        QCOMPARE(parent, &widget);
    }
}

void tst_FileDialog::isQtsOwnDialog()
{
    CFileDialog_X dialog(TRUE);
    QVERIFY(dialog.IsKindOf(RUNTIME_CLASS_X(CCommonDialog_X)));
    QVERIFY(!CFileDialog_X::s_classInfo.CreateObject());
    runFileDialog(dialog, [&](Shown shown) {
        QCOMPARE(&shown.dialog, dialog.GetSafeHwnd());
        QVERIFY(shown.dialog.testOption(QFileDialog::DontUseNativeDialog));
        QVERIFY(!dialog.IsExternalImpObj());
    });
}

// ------------------------------------------------------------------------------------------------------------ set-up

void tst_FileDialog::title_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<int>("open");
    QTest::addColumn<QString>("title");
    QTest::newRow("as given") << QStringLiteral("打开零件簿") << 1 << QStringLiteral("打开零件簿");
    QTest::newRow("Qt's own to open") << QString() << 1 << QStringLiteral("Open");
    QTest::newRow("Qt's own to save") << QString() << 0 << QStringLiteral("Save As");
}

void tst_FileDialog::title()
{
    QFETCH(const QString, caption);
    QFETCH(const int, open);
    CFileDialog_X dialog(nullptr, caption, L"", L"", 0, open);
    QString title;
    runFileDialog(dialog, [&](Shown shown) { title = shown.dialog.windowTitle(); });
    QTEST(title, "title");
}

void tst_FileDialog::folder_data()
{
    QTest::addColumn<QString>("initial");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("name");
    QTest::newRow("a folder") << QStringLiteral("sub") << QStringLiteral("sub") << QString();
    QTest::newRow("a file is proposed in its folder")
        << QStringLiteral("sub/零件.csv") << QStringLiteral("sub") << QStringLiteral("零件.csv");
    QTest::newRow("the folder visited last") << QString() << QStringLiteral("last") << QString();
}

void tst_FileDialog::folder()
{
    const FileFolder files({"sub/", "last/", "sub/零件.csv"});
    {
        CFileDialog_X before(nullptr, L"", files.path("last"), L"", 0, 1);
        runFileDialog(before, [](Shown) {});
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QFETCH(const QString, initial);
    CFileDialog_X dialog(nullptr, L"", initial.isEmpty() ? QString() : files.path(initial), L"", 0, 1);
    QString folder;
    QString name;
    runFileDialog(dialog, [&](Shown shown) {
        folder = shown.dialog.directory().dirName();
        name = shown.name().text();
    });
    QTEST(folder, "folder");
    QTEST(name, "name");
}

void tst_FileDialog::proposedName_data()
{
    QTest::addColumn<QString>("proposed");
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("path");
    QTest::newRow("a name") << QStringLiteral("零件.txt") << QString() << QStringLiteral("零件.txt");
    QTest::newRow("the suffix comes behind a name without one")
        << QStringLiteral("零件") << QStringLiteral("csv") << QStringLiteral("零件.csv");
    QTest::newRow("a name with a suffix keeps it")
        << QStringLiteral("零件.txt") << QStringLiteral("csv") << QStringLiteral("零件.txt");
}

void tst_FileDialog::proposedName()
{
    const FileFolder files;
    QFETCH(const QString, proposed);
    QFETCH(const QString, suffix);
    CFileDialog_X dialog(FALSE, CString_X(suffix), CString_X(proposed));
    dialog.SetInitialDir(files.path());
    QString shownName;
    QCOMPARE(runFileDialog(dialog,
                           [&](Shown shown) {
                               shownName = shown.name().text();
                               shown.button(QDialogButtonBox::Save)->click();
                           }),
             IDOK);
    QCOMPARE(shownName, proposed);
    QFETCH(const QString, path);
    QCOMPARE(XeQString(dialog.GetPathName()), files.path(path));
}

void tst_FileDialog::mode_data()
{
    QTest::addColumn<int>("open");
    QTest::addColumn<unsigned>("flags");
    QTest::addColumn<QFileDialog::AcceptMode>("accept");
    QTest::addColumn<QFileDialog::FileMode>("mode");
    QTest::newRow("open one") << 1 << 0u << QFileDialog::AcceptOpen << QFileDialog::AnyFile;
    QTest::newRow("open several") << 1 << 0x200u << QFileDialog::AcceptOpen << QFileDialog::ExistingFiles;
    QTest::newRow("save") << 0 << 0u << QFileDialog::AcceptSave << QFileDialog::AnyFile;
    QTest::newRow("save gives one name also with the flag for several")
        << 0 << 0x200u << QFileDialog::AcceptSave << QFileDialog::AnyFile;
    QTest::newRow("any other number than 0 opens") << -1 << 0u << QFileDialog::AcceptOpen << QFileDialog::AnyFile;
    QTest::newRow("other flags have no effect") << 1 << ~0x200u << QFileDialog::AcceptOpen << QFileDialog::AnyFile;
}

void tst_FileDialog::mode()
{
    QFETCH(const int, open);
    QFETCH(const unsigned, flags);
    CFileDialog_X dialog(open, nullptr, nullptr, flags);
    runFileDialog(dialog, [&](Shown shown) {
        QTEST(shown.dialog.acceptMode(), "accept");
        QTEST(shown.dialog.fileMode(), "mode");
    });
}

void tst_FileDialog::chineseTexts_data()
{
    QTest::addColumn<int>("open");
    QTest::newRow("open") << 1;
    QTest::newRow("save") << 0;
}

void tst_FileDialog::chineseTexts()
{
    QFETCH(const int, open);
    CFileDialog_X dialog(open);
    runFileDialog(dialog, [&](Shown shown) {
        const auto* const label = shown.dialog.findChild<QLabel*>(QStringLiteral("fileTypeLabel"));
        QCOMPARE(label->text(), QStringLiteral("文件类型(T):"));
        QCOMPARE(shown.button(QDialogButtonBox::Cancel)->text(), QStringLiteral("取消"));
    });
}

// --------------------------------------------------------------------------------------------------------- operations

void tst_FileDialog::textOfTheNameBox()
{
    CFileDialog_X dialog(TRUE);
    dialog.SetControlText(L"IDOK", L"nobody hears it");
    runFileDialog(dialog, [&](Shown shown) {
        QCOMPARE(shown.name().text(), QString());
        dialog.SetControlText(L"IDOK", L"零件.csv");
        QCOMPARE(shown.name().text(), QStringLiteral("零件.csv"));
        dialog.SetControlText(L"", nullptr);
        QCOMPARE(shown.name().text(), QString());
    });
    dialog.SetControlText(L"IDOK", L"nobody hears it");
}

void tst_FileDialog::titleAndFolderAreForTheNextRun()
{
    const FileFolder files({"sub/"});
    CFileDialog_X dialog(nullptr, L"first", files.path(), L"", 0, 1);
    const auto look = [](Shown shown) {
        return shown.dialog.windowTitle() + QLatin1Char(' ') + shown.dialog.directory().dirName();
    };
    QString first;
    QString second;
    runFileDialog(dialog, [&](Shown shown) {
        dialog.SetCaptionText(L"second");
        dialog.SetInitialDir(files.path("sub"));
        first = look(shown);
    });
    runFileDialog(dialog, [&](Shown shown) { second = look(shown); });
    QCOMPARE(first, QStringLiteral("first ") + QFileInfo(files.path()).fileName());
    QCOMPARE(second, QStringLiteral("second sub"));
}

void tst_FileDialog::eachRunHasADialogOfItsOwn()
{
    CFileDialog_X dialog(TRUE, nullptr, nullptr, 0, L"A (*.a)|*.a||");
    QVector<QPointer<QFileDialog>> shown;
    for (int round = 0; round < 2; ++round)
        runFileDialog(dialog, [&](Shown one) {
            shown += &one.dialog;
            QCOMPARE(one.types().count(), 1);
        });
    QVERIFY(!dialog.GetSafeHwnd());
    QVERIFY(shown[0] != shown[1]);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!shown[0] && !shown[1]);
}

void tst_FileDialog::refusals()
{
    struct Refusing : CFileDialog_X
    {
        Refusing() : CFileDialog_X(TRUE) {}
        int OnCreate(tagCREATESTRUCTW* createStruct) override
        {
            return created ? 7 : CFileDialog_X::OnCreate(createStruct);
        }
        void DoDataExchange(CDataExchange_X* exchange) override
        {
            if (!exchange->m_bSaveAndValidate)
                exchange->Fail();
        }
        bool created = false;
    } dialog;
    for (const bool created : {true, false}) {
        dialog.created = created;
        QCOMPARE(dialog.DoModal(), 3);
        QVERIFY(!dialog.GetSafeHwnd());
    }
}

void tst_FileDialog::accessorsBeforeARun()
{
    CFileDialog_X dialog(TRUE, nullptr, L"proposed", OFN_ALLOWMULTISELECT);
    const auto isEmpty = [&] {
        return dialog.GetPathName().IsEmpty() && dialog.GetFileName().IsEmpty() && dialog.GetFolderPath().IsEmpty()
               && dialog.GetFileNames().isEmpty() && !dialog.GetStartPosition();
    };
    QVERIFY(isEmpty());
    QCOMPARE(runFileDialog(dialog, [&](Shown) { QVERIFY(isEmpty()); }), IDCANCEL);
    QVERIFY(isEmpty());
}

void tst_FileDialog::wrapperWithoutAFileDialog()
{
    CFileDialog_X dialog(TRUE);
    QVERIFY(dialog.OnInitDialog());
    dialog.OnOK();
    dialog.onDoubleClicked({});
    dialog.ConnectSlotsFrom(nullptr, false);
    QObject nothingInIt;
    dialog.ConnectSlotsFrom(&nothingInIt, false);
    QDialog stranger;
    QVERIFY(!dialog.SubclassWindow(&stranger));
    QVERIFY(dialog.GetPathName().IsEmpty());
}

XE_TEST(tst_FileDialog)
#include "tst_filedialog.moc"
