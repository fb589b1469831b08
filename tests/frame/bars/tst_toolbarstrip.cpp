// A strip of pictures over the buttons of a tool bar.

#include "bars/bartext.h"
#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QTemporaryDir>

namespace {

// The colour in the middle of each button's icon: "red|none|blue".
QString colors(const CToolBar_X& bar)
{
    QStringList words;
    for (const QAction* action : bar.GetListActions()) {
        const QImage picture = action->icon().pixmap(64, 64).toImage();
        const QColor color = picture.isNull() ? QColor() : picture.pixelColor(picture.rect().center());
        words += picture.isNull()     ? QStringLiteral("none")
                 : color.alpha() == 0 ? QStringLiteral("clear")
                 : color == Qt::red   ? QStringLiteral("red")
                 : color == Qt::green ? QStringLiteral("green")
                 : color == Qt::blue  ? QStringLiteral("blue")
                                      : color.name(QColor::HexArgb);
    }
    return words.join(QLatin1Char('|'));
}

QSize sizeOf(const QAction& action) { return action.icon().availableSizes().value(0); }

} // namespace

class tst_ToolBarStrip : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void slicesGoToTheButtonsInTurn_data();
    void slicesGoToTheButtonsInTurn();
    void separatorsTakeNoSlice();
    void hiddenButtonsUseTheirSliceUp();
    void lightGreyIsTransparent();
    void widthOfASlice_data();
    void widthOfASlice();
    void noPicture();
    void noButtons();
    void noIconWidth();
    void handlerDeletesTheOtherButtons();
    void handlerDeletesTheBar();

    void iconOfAFileKeepsItsColours();
    void iconOfNoPicture();
    void withoutWidget();

private:
    QString save(const QImage& picture);
    BOOL load(const QImage& picture) { return m_bar->LoadBitmap(save(picture).toStdWString().c_str()); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QWidget> m_parent;
    std::unique_ptr<CToolBar_X> m_bar;
    std::unique_ptr<Commands> m_commands;
};

void tst_ToolBarStrip::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_parent = std::make_unique<QWidget>();
    m_bar = std::make_unique<CToolBar_X>();
    m_commands = std::make_unique<Commands>();
    m_bar->Create(m_parent.get());
    m_bar->LoadToolBar({&m_commands->create, &m_commands->edit, &m_commands->find}, 0);
}

void tst_ToolBarStrip::cleanup()
{
    m_bar.reset();
    m_commands.reset();
    m_parent.reset();
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

QString tst_ToolBarStrip::save(const QImage& picture)
{
    const QString path = m_folder->filePath(QStringLiteral("条.png"));
    return picture.save(path) ? path : QString();
}

void tst_ToolBarStrip::slicesGoToTheButtonsInTurn_data()
{
    QTest::addColumn<QVector<QColor>>("slices");
    QTest::addColumn<QString>("expected");
    const QColor red = Qt::red;
    const QColor green = Qt::green;
    const QColor blue = Qt::blue;
    QTest::newRow("one each") << QVector<QColor>{red, green, blue} << "red|green|blue";
    QTest::newRow("fewer slices") << QVector<QColor>{red, green} << "red|green|none";
    QTest::newRow("more slices") << QVector<QColor>{red, red, green, blue, blue} << "red|red|green";
    QTest::newRow("one") << QVector<QColor>{blue} << "blue|none|none";
}

void tst_ToolBarStrip::slicesGoToTheButtonsInTurn()
{
    QFETCH(QVector<QColor>, slices);
    QCOMPARE(load(stripOf(slices, 16, 15)), 1);
    QTEST(colors(*m_bar), "expected");
    QCOMPARE(sizeOf(m_commands->create), QSize(16, 15));
}

void tst_ToolBarStrip::separatorsTakeNoSlice()
{
    m_bar->SetButtons(m_commands->all());
    QCOMPARE(load(stripOf({Qt::red, Qt::green, Qt::blue}, 16, 15)), 1);
    QCOMPARE(colors(*m_bar), QStringLiteral("red|green|blue"));
    QVERIFY(m_commands->separator.icon().isNull());
}

void tst_ToolBarStrip::hiddenButtonsUseTheirSliceUp()
{
    m_commands->edit.setVisible(false);
    QCOMPARE(load(stripOf({Qt::red, Qt::green, Qt::blue}, 16, 15)), 1);
    QCOMPARE(colors(*m_bar), QStringLiteral("red|none|blue"));
}

void tst_ToolBarStrip::lightGreyIsTransparent()
{
    QImage strip = stripOf({QColor(192, 192, 192), QColor(192, 192, 191), QColor(192, 192, 192)}, 16, 15);
    strip.setPixelColor(0, 0, Qt::red);
    QCOMPARE(load(strip), 1);
    QCOMPARE(colors(*m_bar), QStringLiteral("clear|#ffc0c0bf|clear"));
    const QImage first = m_commands->create.icon().pixmap(16, 15).toImage();
    QCOMPARE(first.pixelColor(0, 0), QColor(Qt::red));
    QCOMPARE(first.pixelColor(1, 0).alpha(), 0);
}

void tst_ToolBarStrip::widthOfASlice_data()
{
    QTest::addColumn<int>("stripWidth");
    QTest::addColumn<int>("result");
    QTest::addColumn<int>("buttons"); // that get a picture
    QTest::addColumn<QSize>("slice");
    QTest::newRow("narrower than an icon") << 15 << 0 << 0 << QSize();
    QTest::newRow("an icon") << 16 << 1 << 1 << QSize(16, 10);
    QTest::newRow("an icon and a bit") << 31 << 1 << 1 << QSize(31, 10);
    QTest::newRow("two, shared out") << 46 << 1 << 2 << QSize(23, 10);
    QTest::newRow("what is left on the right is dropped") << 50 << 1 << 3 << QSize(16, 10);
}

void tst_ToolBarStrip::widthOfASlice()
{
    QFETCH(int, stripWidth);
    QFETCH(int, buttons);
    QTEST(load(stripOf({Qt::red}, stripWidth, 10)), "result");
    QCOMPARE(colors(*m_bar).count(QStringLiteral("red")), buttons);
    QTEST(sizeOf(m_commands->create), "slice");
}

void tst_ToolBarStrip::noPicture()
{
    QCOMPARE(m_bar->LoadBitmap(L"/nowhere/strip.png"), 0);
    QCOMPARE(m_bar->LoadBitmap(L"/proc/self/exe"), 0);
    QCOMPARE(m_bar->LoadBitmap(L""), 0);
    QCOMPARE(m_bar->LoadBitmap(nullptr), 0);
    QCOMPARE(colors(*m_bar), QStringLiteral("none|none|none"));
}

void tst_ToolBarStrip::noButtons()
{
    m_bar->SetButtons(QList<QAction*>{&m_commands->separator});
    QCOMPARE(load(stripOf({Qt::red}, 16, 15)), 0);
}

void tst_ToolBarStrip::noIconWidth()
{
    m_bar->SetSizes({0, 0}, {0, 0});
    QCOMPARE(m_bar->Imp<QToolBar>()->iconSize(), QSize(0, 0));
    QCOMPARE(load(stripOf({Qt::red}, 16, 15)), 0);
}

void tst_ToolBarStrip::handlerDeletesTheOtherButtons()
{
    auto* const last = new QAction(QStringLiteral("Last"));
    m_bar->LoadToolBar({last}, 0);
    connect(&m_commands->create, &QAction::changed, last, [last] { delete last; });
    QCOMPARE(load(stripOf({Qt::red, Qt::green, Qt::blue, Qt::red}, 16, 15)), 1);
    QCOMPARE(colors(*m_bar), QStringLiteral("red|green|blue"));
}

void tst_ToolBarStrip::handlerDeletesTheBar()
{
    connect(&m_commands->create, &QAction::changed, m_bar.get(), [this] {
        delete m_bar->GetSafeHwnd();
        m_bar.reset();
    });
    QCOMPARE(load(stripOf({Qt::red, Qt::green, Qt::blue}, 16, 15)), 1);
    QVERIFY(!m_bar);
}

// ------------------------------------------------------------------------------------------------------------- icons

void tst_ToolBarStrip::iconOfAFileKeepsItsColours()
{
    const QString path = save(stripOf({QColor(192, 192, 192)}, 16, 15));
    const QImage picture = m_bar->LoadIcon(path).pixmap(16, 15).toImage();
    QCOMPARE(picture.size(), QSize(16, 15));
    QCOMPARE(picture.pixelColor(8, 8), QColor(192, 192, 192));
}

void tst_ToolBarStrip::iconOfNoPicture()
{
    QVERIFY(m_bar->LoadIcon(QStringLiteral("/nowhere/a.png")).isNull());
    QVERIFY(m_bar->LoadIcon(QStringLiteral("/proc/self/exe")).isNull());
    QVERIFY(m_bar->LoadIcon(QString()).isNull());
}

void tst_ToolBarStrip::withoutWidget()
{
    CToolBar_X bar;
    const QString path = save(stripOf({Qt::red}, 16, 15));
    QCOMPARE(bar.LoadBitmap(path.toStdWString().c_str()), 0);
    QCOMPARE(bar.LoadIcon(path).isNull(), false);
}

XE_TEST(tst_ToolBarStrip)
#include "tst_toolbarstrip.moc"
