// A large archive is loaded: the bar in the status bar moves, the windows live, and what the user does has to wait.

#include "leavenothing.h"
#include "mainframe.h"
#include "partsview.h"
#include "testclass.h"

#include <QProgressBar>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QWindow>

#include <functional>

namespace {

// Acts on each value of the progress bar.
class BarWatch : public QObject
{
    Q_OBJECT

public:
    explicit BarWatch(std::function<void(QProgressBar*)> action) : m_action(std::move(action))
    {
        qApp->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* object, QEvent* event) override
    {
        auto* const bar = event->type() == QEvent::Paint ? qobject_cast<QProgressBar*>(object) : nullptr;
        if (bar)
            m_action(bar);
        return false;
    }

private:
    std::function<void(QProgressBar*)> m_action;
};

} // namespace

class tst_PartsbookLoading : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void theBarMoves();
    void aSmallArchiveShowsNoBar();
    void theUserHasToWait();
    void aDamagedArchive();
    void aBookOfAHundredThousandParts();

private:
    QWidget* window() const { return m_frame->GetSafeHwnd(); }
    PartsView table() const { return PartsView(*window()); }
    QString path(const char* name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
    QScopedPointer<CMainFrame> m_frame;
};

void tst_PartsbookLoading::initTestCase()
{
    PartsBook book;
    Part part;
    for (int i = 0; i < 10000; ++i) {
        part.number.Format(L"P-%d", i);
        book.add(part);
        if (i == 9)
            QVERIFY(book.saveAs(path("small.parts")));
    }
    QVERIFY(book.saveAs(path("large.parts")));
}

void tst_PartsbookLoading::init()
{
    m_frame.reset(new CMainFrame);
    QCOMPARE(m_frame->Create(nullptr), 1);
    m_frame->ShowWindow(SW_SHOW);
    QVERIFY(QTest::qWaitForWindowExposed(window()));
}

void tst_PartsbookLoading::cleanup()
{
    m_frame->DestroyWindow();
    m_frame.reset();
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

void tst_PartsbookLoading::theBarMoves()
{
    QList<int> values;
    const BarWatch watch([&](QProgressBar* bar) {
        if (values.isEmpty() || values.last() != bar->value())
            values += bar->value();
        QCOMPARE(bar->parentWidget(), window()->findChild<QStatusBar*>());
    });
    QVERIFY(m_frame->OpenBook(path("large.parts")));
    QVERIFY2(values.size() > 20, qPrintable(QString::number(values.size())));
    QVERIFY(std::is_sorted(values.cbegin(), values.cend()));
    QVERIFY(values.last() >= 90);
    QCOMPARE(table().rowCount(), 10000);
    QTRY_VERIFY(!window()->findChild<QProgressBar*>());
}

void tst_PartsbookLoading::aSmallArchiveShowsNoBar()
{
    bool shown = false;
    const BarWatch watch([&](QProgressBar*) { shown = true; });
    QVERIFY(m_frame->OpenBook(path("small.parts")));
    QCOMPARE(table().rowCount(), 10);
    QVERIFY(!shown);
    QVERIFY(!window()->findChild<QProgressBar*>());
}

void tst_PartsbookLoading::theUserHasToWait()
{
    QVERIFY(m_frame->OpenBook(path("small.parts")));
    table().widget()->setFocus();
    bool acted = false;
    QTimer::singleShot(0, window(), [&] { // the loading has events handled
        acted = true;
        QVERIFY(!window()->isEnabled());
        QVERIFY(!window()->close());
        QTest::keyClick(window()->windowHandle(), Qt::Key_Delete);
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(table().rowCount(), 10);
    });
    QVERIFY(m_frame->OpenBook(path("large.parts")));
    QVERIFY(acted);
    QVERIFY(window()->isVisible());
    QVERIFY(window()->isEnabled());
    QCOMPARE(window()->focusWidget(), table().widget());
}

void tst_PartsbookLoading::aDamagedArchive()
{
    QFile file(path("large.parts"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QByteArray bytes = file.readAll();
    bytes.truncate(bytes.size() / 2);
    std::vector<Part> parts;
    QList<int> told;
    QVERIFY(!readArchive(bytes, parts, [&](int percent) { told += percent; }).IsEmpty());
    QCOMPARE(told.first(), 0);
    QVERIFY(told.last() >= 45 && told.last() <= 55);
}

void tst_PartsbookLoading::aBookOfAHundredThousandParts()
{
    constexpr int count = 100000;
    PartsBook book;
    Part part;
    part.supplier = L"Kessler & Sohn";
    for (int i = 0; i < count; ++i) {
        part.number.Format(L"P-%d", i);
        book.add(part);
    }
    QVERIFY(book.saveAs(path("huge.csv")));
    QVERIFY(m_frame->OpenBook(path("huge.csv")));

    const PartsView shown = table();
    QCOMPARE(shown.rowCount(), count);
    QCOMPARE(shown.text(count - 1, 0), QStringLiteral("P-99999"));
    QCOMPARE(shown.text(count - 1, 3), QStringLiteral("Kessler & Sohn"));

    QTest::keyClick(shown.widget(), Qt::Key_End, Qt::ControlModifier);
    QCOMPARE(shown.currentRow(), count - 1);
    QVERIFY(shown.widget()->rect().contains(shown.center(count - 1, 0)));
    QTest::keyClick(shown.widget(), Qt::Key_PageUp);
    const int page = count - 1 - shown.currentRow();
    QVERIFY2(page >= 5 && page < 100, qPrintable(QString::number(page)));
    for (int i = 1; i <= 500; ++i) {
        QTest::keyClick(shown.widget(), Qt::Key_PageUp);
        shown.widget()->repaint();
    }
    QVERIFY(shown.currentRow() < count - 1 - 400 * page);
    QTest::keyClick(shown.widget(), Qt::Key_Home, Qt::ControlModifier);
    QCOMPARE(shown.currentRow(), 0);
}

XE_TEST(tst_PartsbookLoading)
#include "tst_partsbookloading.moc"
