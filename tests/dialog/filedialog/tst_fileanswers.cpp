// What a file dialog answers, and when: after acceptance, and not before.

#include "shownfiledialog.h"
#include "testclass.h"

#include <boxwatch.h>
#include <leavenothing.h>
#include <xeafxddx.h>

namespace {

using Shown = ShownFileDialog;
using Act = std::function<void(const Shown&)>;

// "path, name, folder, names"; "-" if there is no answer.
QString answers(const CFileDialog_X& dialog)
{
    const QStringList texts({XeQString(dialog.GetPathName()), XeQString(dialog.GetFileName()),
                             XeQString(dialog.GetFolderPath()), dialog.GetFileNames().join(QLatin1Char('+'))});
    return texts.join(QString()).isEmpty() ? QStringLiteral("-") : texts.join(QStringLiteral(", "));
}

QString answers(const FileFolder& files, const char* first, const QStringList& names)
{
    const QString name = QString::fromUtf8(first);
    return QStringList({files.path(name), name, files.path(), files.paths(names).join(QLatin1Char('+'))})
        .join(QStringLiteral(", "));
}

void accept(const Shown& shown)
{
    const auto which =
        shown.dialog.acceptMode() == QFileDialog::AcceptSave ? QDialogButtonBox::Save : QDialogButtonBox::Open;
    shown.button(which)->click();
}

// Types a name and accepts.
Act typed(const char* name)
{
    return [name = QString::fromUtf8(name)](const Shown& shown) {
        shown.name().setText(name);
        accept(shown);
    };
}

// Answers the next message box.
class BoxAnswer
{
public:
    explicit BoxAnswer(QMessageBox::StandardButton button)
        : m_driver([button](QMessageBox* box) { box->button(button)->click(); })
    {}
    bool wasAsked() const { return m_driver.hasActed(); }

private:
    ModalDriver<QMessageBox> m_driver;
};

// What GetNextPathName() gives until it gives no position, but twenty at most.
QStringList walk(CFileDialog_X& dialog)
{
    QStringList paths;
    POSITION position = dialog.GetStartPosition();
    while (position && paths.size() < 20)
        paths += XeQString(dialog.GetNextPathName(position));
    return paths;
}

class Listed : public CFileDialog_X
{
public:
    explicit Listed(const QStringList& paths) : CFileDialog_X(TRUE, nullptr, nullptr, OFN_ALLOWMULTISELECT)
    {
        setProperty("selectedFiles", paths);
    }
};

} // namespace
Q_DECLARE_METATYPE(Act)

class tst_FileAnswers : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void accepted_data();
    void accepted();
    void propertiesOfTheWrapper();
    void answersAreThereDuringTheExchange();

    void notAccepted_data();
    void notAccepted();
    void refusedToReplace();
    void missingFile();
    void failedExchange();
    void cancelledRunKeepsTheAnswersOfTheLast();
    void refusedRunKeepsTheAnswersOfTheLast();

    void wrapperGoesWhileTheDialogIsOpen();
    void dialogGoesWhileTheBoxIsOpen();

    void walkOfSeveral();
    void walkOfTheSameNameTwice();
    void walks_data();
    void walks();
    void walkNeedsTheFlag();
    void walkGoesByTheTextAtThePosition();
    void walkOfAListThatChanges();
    void positionOfNobody();
    void walkOfTenThousand();
};

// ---------------------------------------------------------------------------------------------------------- acceptance

void tst_FileAnswers::accepted_data()
{
    QTest::addColumn<int>("open");
    QTest::addColumn<Act>("act");
    QTest::addColumn<QString>("name");
    QTest::newRow("open a file") << 1 << typed("零件.csv") << QStringLiteral("零件.csv");
    QTest::newRow("open a file by its whole path") << 1 << Act([](const Shown& shown) {
        shown.name().setText(shown.dialog.directory().filePath(QStringLiteral("零件.csv")));
        accept(shown);
    }) << QStringLiteral("零件.csv");
    QTest::newRow("open may name a file that does not exist") << 1 << typed("new.csv") << QStringLiteral("new.csv");
    QTest::newRow("save a new file") << 0 << typed("new.csv") << QStringLiteral("new.csv");
    QTest::newRow("save without a suffix") << 0 << typed("new") << QStringLiteral("new.parts");
    QTest::newRow("by the wrapper's accept()") << 1 << Act([](const Shown& shown) {
        shown.name().setText(QStringLiteral("零件.csv"));
        static_cast<CFileDialog_X*>(CWnd_X::FromHandlePermanent(&shown.dialog))->accept();
    }) << QStringLiteral("零件.csv");
    QTest::newRow("by Return in the name") << 1 << Act([](const Shown& shown) {
        shown.name().setText(QStringLiteral("零件.csv"));
        QTest::keyClick(&shown.name(), Qt::Key_Return);
    }) << QStringLiteral("零件.csv");
}

void tst_FileAnswers::accepted()
{
    const FileFolder files({"零件.csv", "b.csv"});
    QFETCH(const int, open);
    QFETCH(const Act, act);
    CFileDialog_X dialog(open, L"parts");
    dialog.SetInitialDir(files.path());
    QCOMPARE(runFileDialog(dialog, act), IDOK);
    QFETCH(const QString, name);
    QCOMPARE(answers(dialog), answers(files, name.toUtf8(), {name}));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(answers(dialog), answers(files, name.toUtf8(), {name}));
}

void tst_FileAnswers::propertiesOfTheWrapper()
{
    const FileFolder files({"a", "b"});
    CFileDialog_X dialog(TRUE, nullptr, nullptr, OFN_ALLOWMULTISELECT);
    dialog.SetInitialDir(files.path());
    QCOMPARE(runFileDialog(dialog, typed("\"b\" \"a\"")), IDOK);
    QCOMPARE(dialog.property("pathName"), QVariant(files.path("b")));
    QCOMPARE(dialog.property("fileName"), QVariant("b"));
    QCOMPARE(dialog.property("folderPath"), QVariant(files.path()));
    QCOMPARE(dialog.property("selectedFiles"), QVariant(files.paths({"b", "a"})));
}

void tst_FileAnswers::answersAreThereDuringTheExchange()
{
    struct Exchanging : CFileDialog_X
    {
        Exchanging() : CFileDialog_X(TRUE) {}
        void DoDataExchange(CDataExchange_X* exchange) override
        {
            if (exchange->m_bSaveAndValidate)
                seen = XeQString(GetFileName());
        }
        QString seen;
    } dialog;
    QCOMPARE(runFileDialog(dialog, typed("零件.csv")), IDOK);
    QCOMPARE(dialog.seen, QStringLiteral("零件.csv"));
}

// ------------------------------------------------------------------------------------------------------ no acceptance

void tst_FileAnswers::notAccepted_data()
{
    QTest::addColumn<int>("open");
    QTest::addColumn<unsigned>("flags");
    QTest::addColumn<Act>("act");
    const auto row = [](const char* name, int open, unsigned flags, const Act& act) {
        QTest::newRow(name) << open << flags << act;
    };
    row("nothing named", 1, 0, typed(""));
    row("nothing named of several", 1, OFN_ALLOWMULTISELECT, typed(""));
    row("nothing named to save", 0, 0, typed(""));
    row("a folder to open is entered", 1, 0, typed("sub"));
    row("a folder to save in is entered", 0, 0, typed("sub"));
    row("a folder among several is entered", 1, OFN_ALLOWMULTISELECT, typed("sub"));
    row("the folder above", 1, 0, typed(".."));
}

void tst_FileAnswers::notAccepted()
{
    const FileFolder files({"sub/", "a.csv"});
    QFETCH(const int, open);
    QFETCH(const unsigned, flags);
    QFETCH(const Act, act);
    CFileDialog_X dialog(open, nullptr, nullptr, flags);
    dialog.SetInitialDir(files.path());
    bool stays = false;
    QString meanwhile;
    QCOMPARE(runFileDialog(dialog,
                           [&](const Shown& shown) {
                               act(shown);
                               stays = shown.dialog.isVisible();
                               meanwhile = answers(dialog);
                           }),
             IDCANCEL);
    QVERIFY(stays);
    QCOMPARE(meanwhile, QStringLiteral("-"));
    QCOMPARE(answers(dialog), QStringLiteral("-"));
    QVERIFY(!dialog.property("pathName").isValid());
}

void tst_FileAnswers::refusedToReplace()
{
    const FileFolder files({"a.csv"});
    CFileDialog_X dialog(FALSE, nullptr, nullptr, 0);
    dialog.SetInitialDir(files.path());
    QString refused;
    QCOMPARE(runFileDialog(dialog,
                           [&](const Shown& shown) {
                               const BoxAnswer no(QMessageBox::No);
                               typed("a.csv")(shown);
                               QVERIFY(no.wasAsked());
                               refused = answers(dialog);
                               const BoxAnswer yes(QMessageBox::Yes);
                               accept(shown);
                           }),
             IDOK);
    QCOMPARE(refused, QStringLiteral("-"));
    QCOMPARE(answers(dialog), answers(files, "a.csv", {"a.csv"}));
}

void tst_FileAnswers::missingFile()
{
    const FileFolder files({"a"});
    CFileDialog_X dialog(TRUE, nullptr, nullptr, OFN_ALLOWMULTISELECT);
    dialog.SetInitialDir(files.path());
    QCOMPARE(runFileDialog(dialog,
                           [&](const Shown& shown) {
                               const BoxAnswer ok(QMessageBox::Ok);
                               shown.name().setText(QStringLiteral("missing"));
                               QTest::keyClick(&shown.name(), Qt::Key_Return);
                               QVERIFY(ok.wasAsked());
                           }),
             IDCANCEL);
    QCOMPARE(answers(dialog), QStringLiteral("-"));
}

void tst_FileAnswers::failedExchange()
{
    struct Failing : CFileDialog_X
    {
        Failing() : CFileDialog_X(TRUE) {}
        void DoDataExchange(CDataExchange_X* exchange) override
        {
            if (exchange->m_bSaveAndValidate && fails)
                exchange->Fail();
        }
        bool fails = true;
    } dialog;
    BoxWatch watch;
    QString meanwhile;
    QCOMPARE(runFileDialog(dialog,
                           [&](const Shown& shown) {
                               typed("a")(shown);
                               meanwhile = answers(dialog);
                               watch.take();
                               dialog.fails = false;
                               accept(shown);
                           }),
             IDOK);
    QCOMPARE(meanwhile, QStringLiteral("-"));
    QCOMPARE(XeQString(dialog.GetFileName()), QStringLiteral("a"));
}

void tst_FileAnswers::cancelledRunKeepsTheAnswersOfTheLast()
{
    const FileFolder files({"a", "b"});
    CFileDialog_X dialog(TRUE);
    dialog.SetInitialDir(files.path());
    QCOMPARE(runFileDialog(dialog, typed("a")), IDOK);
    QCOMPARE(runFileDialog(dialog, [](const Shown& shown) { shown.name().setText(QStringLiteral("b")); }), IDCANCEL);
    QCOMPARE(answers(dialog), answers(files, "a", {"a"}));
    QCOMPARE(runFileDialog(dialog, typed("b")), IDOK);
    QCOMPARE(answers(dialog), answers(files, "b", {"b"}));
}

void tst_FileAnswers::refusedRunKeepsTheAnswersOfTheLast()
{
    const FileFolder files({"a", "sub/"});
    CFileDialog_X dialog(TRUE);
    dialog.SetInitialDir(files.path());
    QCOMPARE(runFileDialog(dialog, typed("a")), IDOK);
    QCOMPARE(runFileDialog(dialog, typed("sub")), IDCANCEL);
    QCOMPARE(answers(dialog), answers(files, "a", {"a"}));
}

// ------------------------------------------------------------------------------------------------------- early ends

void tst_FileAnswers::wrapperGoesWhileTheDialogIsOpen()
{
    struct Fleeting : CFileDialog_X
    {
        Fleeting() : CFileDialog_X(TRUE) {}
        void DoDataExchange(CDataExchange_X* exchange) override
        {
            if (exchange->m_bSaveAndValidate)
                delete this;
        }
    };
    for (const bool inItsOwnHandler : {false, true}) {
        auto* const dialog = new Fleeting;
        const QPointer<QObject> wrapper(dialog);
        const int result = runFileDialog(*dialog, [&](const Shown& shown) {
            if (inItsOwnHandler)
                typed("a")(shown);
            else
                delete dialog;
        });
        QVERIFY(!wrapper);
        QVERIFY(result == IDCANCEL || result == IDOK);
    }
}

void tst_FileAnswers::dialogGoesWhileTheBoxIsOpen()
{
    const FileFolder files({"a"});
    CFileDialog_X dialog(FALSE);
    dialog.SetInitialDir(files.path());
    QCOMPARE(runFileDialog(dialog,
                           [&](const Shown& shown) {
                               const ModalDriver<QMessageBox> driver([&](QMessageBox* box) {
                                   dialog.DestroyWindow();
                                   box->reject();
                               });
                               typed("a")(shown);
                           }),
             IDCANCEL);
    QVERIFY(!dialog.GetSafeHwnd());
    QCOMPARE(answers(dialog), QStringLiteral("-"));
}

// -------------------------------------------------------------------------------------------------------------- walk

void tst_FileAnswers::walkOfSeveral()
{
    const FileFolder files({"a", "零件 1", "零件 2"});
    CFileDialog_X dialog(TRUE, nullptr, nullptr, OFN_ALLOWMULTISELECT);
    dialog.SetInitialDir(files.path());
    QVERIFY(!dialog.GetStartPosition());
    QCOMPARE(runFileDialog(dialog, typed("\"零件 2\" \"a\" \"零件 1\"")), IDOK);
    QCOMPARE(walk(dialog), files.paths({"零件 2", "a", "零件 1"}));
    QCOMPARE(walk(dialog), files.paths({"零件 2", "a", "零件 1"}));
    QCOMPARE(answers(dialog), answers(files, "零件 2", {"零件 2", "a", "零件 1"}));
}

void tst_FileAnswers::walkOfTheSameNameTwice()
{
    const FileFolder files({"a", "b"});
    CFileDialog_X dialog(TRUE, nullptr, nullptr, OFN_ALLOWMULTISELECT);
    dialog.SetInitialDir(files.path());
    QCOMPARE(runFileDialog(dialog, typed("\"a\" \"b\" \"a\"")), IDOK);
    QCOMPARE(walk(dialog), files.paths({"a", "b"}));
}

void tst_FileAnswers::walks_data()
{
    QTest::addColumn<QStringList>("paths");
    QTest::addColumn<QStringList>("walk");
    QTest::newRow("none") << QStringList() << QStringList();
    QTest::newRow("one") << QStringList("/a") << QStringList("/a");
    QTest::newRow("two") << QStringList({"/a", "/b"}) << QStringList({"/a", "/b"});
    QTest::newRow("beyond the BMP") << QStringList({"/😀", "/😀😀"}) << QStringList({"/😀", "/😀😀"});
    QTest::newRow("an empty one ends it") << QStringList({"/a", "", "/b"}) << QStringList({"/a"});
    QTest::newRow("an empty one first") << QStringList({"", "/b"}) << QStringList();
}

void tst_FileAnswers::walks()
{
    QFETCH(const QStringList, paths);
    Listed dialog(paths);
    dialog.m_strCurrentPath = L"from before";
    QTEST(walk(dialog), "walk");
    if (paths.isEmpty())
        QVERIFY(dialog.m_strCurrentPath.IsEmpty());
}

void tst_FileAnswers::walkNeedsTheFlag()
{
    Listed dialog({"/a", "/b"});
    POSITION position = dialog.GetStartPosition();
    QCOMPARE(static_cast<void*>(position), static_cast<void*>(&dialog.m_strCurrentPath));
    dialog.m_dwFlags = 0;
    QVERIFY(!dialog.GetStartPosition());
    QVERIFY(dialog.GetNextPathName(position).IsEmpty());
    QVERIFY(!position);
}

void tst_FileAnswers::walkGoesByTheTextAtThePosition()
{
    Listed dialog({"/a", "/b", "/c", "/d"});
    POSITION position = dialog.GetStartPosition();
    QCOMPARE(XeQString(dialog.m_strCurrentPath), QStringLiteral("/a"));
    dialog.m_strCurrentPath = L"/c";
    QCOMPARE(XeQString(dialog.GetNextPathName(position)), QStringLiteral("/c"));
    QCOMPARE(XeQString(dialog.m_strCurrentPath), QStringLiteral("/d"));
    dialog.m_strCurrentPath = L"/a";
    QCOMPARE(XeQString(dialog.GetNextPathName(position)), QStringLiteral("/a"));
    QCOMPARE(XeQString(dialog.m_strCurrentPath), QStringLiteral("/b"));
    dialog.m_strCurrentPath = L"/elsewhere";
    QCOMPARE(XeQString(dialog.GetNextPathName(position)), QStringLiteral("/elsewhere"));
    QVERIFY(!position);
}

void tst_FileAnswers::walkOfAListThatChanges()
{
    Listed dialog({"/a", "/b", "/c"});
    POSITION position = dialog.GetStartPosition();
    dialog.GetNextPathName(position);
    dialog.setProperty("selectedFiles", QStringList({"/b"}));
    QCOMPARE(XeQString(dialog.GetNextPathName(position)), QStringLiteral("/b"));
    QVERIFY(!position);
    position = dialog.GetStartPosition();
    dialog.setProperty("selectedFiles", QStringList());
    QCOMPARE(XeQString(dialog.GetNextPathName(position)), QStringLiteral("/b"));
    QVERIFY(!position);
}

void tst_FileAnswers::positionOfNobody()
{
    Listed dialog({"/a", "/b"});
    Listed other({"/a", "/b"});
    POSITION positions[] = {nullptr, other.GetStartPosition(), reinterpret_cast<POSITION>(quintptr(16))};
    for (POSITION& position : positions) {
        QVERIFY(dialog.GetNextPathName(position).IsEmpty());
        QVERIFY(!position);
    }
}

void tst_FileAnswers::walkOfTenThousand()
{
    QStringList paths;
    for (int i = 0; i < 10000; ++i)
        paths += QStringLiteral("/parts/%1").arg(i);
    Listed dialog(paths);
    QStringList seen;
    for (POSITION position = dialog.GetStartPosition(); position;)
        seen += XeQString(dialog.GetNextPathName(position));
    QCOMPARE(seen, paths);
}

XE_TEST(tst_FileAnswers)
#include "tst_fileanswers.moc"
