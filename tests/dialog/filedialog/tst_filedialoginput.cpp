// A file dialog under the user's hands: keyboard and mouse of a real X server.

#include "shownfiledialog.h"
#include "testclass.h"

#include <leavenothing.h>
#include <virtualinput.h>

#include <QListView>

namespace {

using Shown = ShownFileDialog;

constexpr unsigned long returnKey = 0xff0d;
constexpr unsigned long escapeKey = 0xff1b;
constexpr unsigned long downKey = 0xff54;
constexpr unsigned long controlKey = 0xffe3;

class TracedDialog : public CFileDialog_X
{
public:
    explicit TracedDialog(int open, unsigned flags = 0, const wchar_t* filter = nullptr)
        : CFileDialog_X(open, nullptr, nullptr, flags, filter)
    {}
    void OnOK() override
    {
        asked += QStringLiteral("OnOK ");
        CFileDialog_X::OnOK();
    }
    void OnCancel() override
    {
        asked += QStringLiteral("OnCancel ");
        CFileDialog_X::OnCancel();
    }
    QString asked;
};

} // namespace

class tst_FileDialogInput : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void nameAndReturn();
    void newNameToSave();
    void doubleClickOnAFile();
    void doubleClickOnAFolder();
    void returnOnAFolder();
    void severalWithControl();
    void anotherType();
    void escapeInTheName();
    void escapeInTheList();
    void cancelButton();
    void closeOfTheWindow();

private:
    // Runs the dialog in the list view, with the keyboard; acts when the folder's entries are there.
    template <class Action>
    int run(TracedDialog& dialog, const QStringList& entries, Action action);
    void type(const char* text);
    void moveTo(const QWidget& widget, QPoint place);
    void click(const QWidget& widget, QPoint place);
    void click(const Shown& shown, const QString& name);
    template <class Effect>
    bool doubleClick(const Shown& shown, const QString& name, Effect hasEffect);
    static bool hasEnded(const Shown& shown)
    {
        return QTest::qWaitFor([&] { return !shown.dialog.isVisible(); });
    }

    VirtualInput m_input;
    std::unique_ptr<FileFolder> m_files;
};

void tst_FileDialogInput::initTestCase()
{
    QVERIFY(m_input.isUsable());
    QApplication::setDoubleClickInterval(3000); // on a busy machine the second click comes late
}

void tst_FileDialogInput::init()
{
    m_files = std::make_unique<FileFolder>(QStringList({"a.csv", "b.csv", "sub/", "sub/c.csv"}));
    m_input.movePointer({1200, 1000});
}

void tst_FileDialogInput::cleanup()
{
    m_input.releaseAll();
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

template <class Action>
int tst_FileDialogInput::run(TracedDialog& dialog, const QStringList& entries, Action action)
{
    dialog.SetInitialDir(m_files->path());
    return runFileDialog(dialog, [&](Shown shown) {
        shown.dialog.setViewMode(QFileDialog::List);
        QVERIFY(shown.shows(entries));
        QVERIFY(QTest::qWaitForWindowExposed(&shown.dialog));
        QVERIFY(QTest::qWaitFor([&] {
            shown.dialog.activateWindow();
            return shown.dialog.isActiveWindow();
        }));
        QVERIFY(QTest::qWaitFor([&] {
            return shown.dialog.mapToGlobal({0, 0}) == m_input.windowOrigin(shown.dialog.winId());
        }));
        action(shown);
    });
}

void tst_FileDialogInput::type(const char* text)
{
    for (; *text; ++text)
        m_input.typeKey(static_cast<unsigned char>(*text));
}

void tst_FileDialogInput::moveTo(const QWidget& widget, QPoint place)
{
    m_input.movePointer(m_input.windowOrigin(widget.window()->winId()) + widget.mapTo(widget.window(), place));
}

void tst_FileDialogInput::click(const QWidget& widget, QPoint place)
{
    moveTo(widget, place);
    m_input.clickButton(1);
}

void tst_FileDialogInput::click(const Shown& shown, const QString& name)
{
    const auto place = [&] { return shown.list().visualRect(shown.entry(name)).center(); };
    QVERIFY(QTest::qWaitFor([&] { return shown.list().indexAt(place()) == shown.entry(name); }));
    click(*shown.list().viewport(), place());
}

// As a user does it: again, when the entries have just been read anew between the clicks.
template <class Effect>
bool tst_FileDialogInput::doubleClick(const Shown& shown, const QString& name, Effect hasEffect)
{
    constexpr int times = 3;
    constexpr int patience = 1500; // milliseconds
    bool done = false;
    for (int i = 0; i < times && !done; ++i) {
        click(shown, name);
        m_input.clickButton(1);
        done = QTest::qWaitFor(hasEffect, patience);
    }
    return done;
}

// --------------------------------------------------------------------------------------------------------------- files

void tst_FileDialogInput::nameAndReturn()
{
    TracedDialog dialog(TRUE);
    QCOMPARE(run(dialog, {"a.csv", "b.csv", "sub"},
                 [&](const Shown& shown) {
                     type("b.csv");
                     m_input.typeKey(returnKey);
                     QVERIFY(hasEnded(shown));
                 }),
             IDOK);
    QCOMPARE(dialog.asked, QStringLiteral("OnOK "));
    QCOMPARE(XeQString(dialog.GetPathName()), m_files->path("b.csv"));
}

void tst_FileDialogInput::newNameToSave()
{
    TracedDialog dialog(FALSE, OFN_ALLOWMULTISELECT);
    dialog.m_strDefExt = L"csv";
    QCOMPARE(run(dialog, {"a.csv", "b.csv", "sub"},
                 [&](const Shown& shown) {
                     type("new");
                     m_input.typeKey(returnKey);
                     QVERIFY(hasEnded(shown));
                 }),
             IDOK);
    QCOMPARE(XeQString(dialog.GetPathName()), m_files->path("new.csv"));
}

void tst_FileDialogInput::doubleClickOnAFile()
{
    TracedDialog dialog(TRUE);
    QCOMPARE(run(dialog, {"a.csv", "b.csv", "sub"},
                 [&](const Shown& shown) {
                     QVERIFY(doubleClick(shown, "b.csv", [&] { return !shown.dialog.isVisible(); }));
                 }),
             IDOK);
    QCOMPARE(dialog.asked, QStringLiteral("OnOK "));
    QCOMPARE(XeQString(dialog.GetPathName()), m_files->path("b.csv"));
}

void tst_FileDialogInput::doubleClickOnAFolder()
{
    TracedDialog dialog(TRUE);
    run(dialog, {"a.csv", "b.csv", "sub"}, [&](const Shown& shown) {
        QVERIFY(doubleClick(shown, "sub", [&] { return shown.names() == QStringList("c.csv"); }));
        QCOMPARE(shown.dialog.directory().path(), m_files->path("sub"));
        QCOMPARE(dialog.asked, QString());
    });
}

void tst_FileDialogInput::returnOnAFolder()
{
    TracedDialog dialog(TRUE);
    QCOMPARE(run(dialog, {"a.csv", "b.csv", "sub"},
                 [&](const Shown& shown) {
                     click(shown, "sub");
                     QVERIFY(QTest::qWaitFor([&] { return shown.list().hasFocus(); }));
                     m_input.typeKey(returnKey);
                     QVERIFY(shown.shows({"c.csv"}));
                     m_input.typeKey(downKey);
                     QVERIFY(QTest::qWaitFor([&] { return shown.name().text() == "c.csv"; }));
                     m_input.typeKey(returnKey);
                     QVERIFY(hasEnded(shown));
                 }),
             IDOK);
    QCOMPARE(XeQString(dialog.GetPathName()), m_files->path("sub/c.csv"));
}

void tst_FileDialogInput::severalWithControl()
{
    TracedDialog dialog(TRUE, OFN_ALLOWMULTISELECT);
    QCOMPARE(run(dialog, {"a.csv", "b.csv", "sub"},
                 [&](const Shown& shown) {
                     click(shown, "a.csv");
                     QVERIFY(QTest::qWaitFor([&] { return shown.name().text() == "a.csv"; }));
                     m_input.pressKey(controlKey);
                     click(shown, "b.csv");
                     m_input.releaseKey(controlKey);
                     QVERIFY(QTest::qWaitFor([&] { return shown.dialog.selectedFiles().size() == 2; }));
                     QVERIFY(shown.dialog.isVisible());
                     shown.button(QDialogButtonBox::Open)->click();
                 }),
             IDOK);
    QCOMPARE(dialog.GetFileNames(), m_files->paths({"a.csv", "b.csv"}));
}

void tst_FileDialogInput::anotherType()
{
    m_files->add("d.txt");
    TracedDialog dialog(TRUE, 0, L"CSV (*.csv;*.tsv)|*.csv;*.tsv|All (*.*)|*.*||");
    run(dialog, {"a.csv", "b.csv", "sub"}, [&](const Shown& shown) {
        click(shown.types(), shown.types().rect().center());
        QVERIFY(QTest::qWaitFor([&] { return shown.types().view()->isVisible(); }));
        m_input.typeKey(downKey);
        m_input.typeKey(returnKey);
        QVERIFY(shown.shows({"a.csv", "b.csv", "d.txt", "sub"}));
        QCOMPARE(shown.types().currentText(), QStringLiteral("All (*.*)"));
    });
}

// ---------------------------------------------------------------------------------------------------------------- ends

void tst_FileDialogInput::escapeInTheName()
{
    TracedDialog dialog(TRUE);
    QCOMPARE(run(dialog, {"a.csv", "b.csv", "sub"},
                 [&](const Shown& shown) {
                     type("a");
                     QVERIFY(QTest::qWaitFor([&] { return shown.name().text().startsWith('a'); }));
                     shown.name().setFocus();
                     QVERIFY(QTest::qWaitFor([&] { return QApplication::activePopupWidget() != nullptr; }));
                     m_input.typeKey(escapeKey); // for the list of suggestions
                     QVERIFY(QTest::qWaitFor([&] { return !QApplication::activePopupWidget(); }));
                     m_input.typeKey(escapeKey);
                     QVERIFY(hasEnded(shown));
                 }),
             IDCANCEL);
    QCOMPARE(dialog.asked, QStringLiteral("OnCancel "));
    QVERIFY(dialog.GetPathName().IsEmpty());
}

void tst_FileDialogInput::escapeInTheList()
{
    TracedDialog dialog(TRUE);
    QCOMPARE(run(dialog, {"a.csv", "b.csv", "sub"},
                 [&](const Shown& shown) {
                     click(shown, "a.csv");
                     QVERIFY(QTest::qWaitFor([&] { return shown.list().hasFocus(); }));
                     m_input.typeKey(escapeKey);
                     QVERIFY(hasEnded(shown));
                 }),
             IDCANCEL);
    QVERIFY(dialog.GetPathName().IsEmpty());
}

void tst_FileDialogInput::cancelButton()
{
    TracedDialog dialog(TRUE);
    QCOMPARE(run(dialog, {"a.csv", "b.csv", "sub"},
                 [&](const Shown& shown) {
                     const QPushButton* const cancel = shown.button(QDialogButtonBox::Cancel);
                     click(*cancel, cancel->rect().center());
                     QVERIFY(hasEnded(shown));
                 }),
             IDCANCEL);
    QCOMPARE(dialog.asked, QStringLiteral("OnCancel "));
}

void tst_FileDialogInput::closeOfTheWindow()
{
    TracedDialog dialog(TRUE);
    QCOMPARE(run(dialog, {"a.csv", "b.csv", "sub"},
                 [&](const Shown& shown) {
                     const auto titleHeight = [&] {
                         return shown.dialog.geometry().top() - shown.dialog.frameGeometry().top();
                     };
                     QVERIFY(QTest::qWaitFor([&] { return titleHeight() > 0; }));
                     m_input.movePointer(shown.dialog.frameGeometry().topRight()
                                         + QPoint(-titleHeight() / 2, titleHeight() / 2));
                     m_input.clickButton(1);
                     QVERIFY(hasEnded(shown));
                 }),
             IDCANCEL);
}

XE_TEST(tst_FileDialogInput)
#include "tst_filedialoginput.moc"
