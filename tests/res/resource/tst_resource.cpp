// The lookups, each called by a module with tables of its own: this program.

#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

namespace {

// What LoadString_X has left of a buffer of twelve '#', as a text with its result: "4 0123########".
QString loaded(unsigned id, int capacity)
{
    std::wstring buffer(12, L'#');
    const int count = LoadString_X(nullptr, id, &buffer[0], capacity);
    return QStringLiteral("%1 %2").arg(count).arg(QString::fromStdWString(buffer));
}

QRgb pixelOf(const QPixmap& pixmap, int x)
{
    return pixmap.toImage().convertToFormat(QImage::Format_ARGB32).pixel(x, 0);
}

} // namespace

class tst_Resource : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void moduleIsTheProgram() { QCOMPARE(GetPlxResourceName(), QStringLiteral("test_res")); }
    void ownModules_data();
    void ownModules();

    void wholeTables();
    void tableStaysInTheCache();
    void nameOfAnId_data();
    void nameOfAnId();
    void idOfAName_data();
    void idOfAName();
    void textOfAnId_data();
    void textOfAnId();

    void loadString_data();
    void loadString();
    void loadStringWithoutABuffer();
    void loadStringIgnoresTheModule();
    void stringObject();
    void stringObjectKeepsItsTextWithoutAnother_data();
    void stringObjectKeepsItsTextWithoutAnother();

    void bitmapIsTransparentWhereItIsLightGrey();
    void bitmapOfAnyFormat();
    void bitmapThatCannotBeRead_data();
    void bitmapThatCannotBeRead();
    void bitmapWithoutAPath();

    void thereIsNoResourceHandle();
};

void tst_Resource::ownModules_data()
{
    QTest::addColumn<bool>("own");
    for (const char* name : {"XeMFCEmu", "XeHostEmu", "XeCustomUI", "libXeMFCEmu", "libXeHostEmu", "libXeCustomUI"})
        QTest::newRow(name) << true;
    for (const char* name :
         {"", "libxemfcemu", "XEMFCEMU", "libXeMFCEmu.so", "XeMFCEm", "XeMFCEmu2", " XeMFCEmu", "liblibXeMFCEmu"})
        QTest::newRow(name) << false;
}

void tst_Resource::ownModules() { QTEST(isCurrentLibrary(QString::fromLatin1(QTest::currentDataTag())), "own"); }

void tst_Resource::wholeTables()
{
    const QMap<unsigned, QString> ids{{1001, "IDC_PART"},         {1002, "IDS_TEN"},   {1003, "IDS_EMOJI"},
                                      {1004, "IDC_WITHOUT_TEXT"}, {1005, "IDS_EMPTY"}, {1006, "IDC_part"},
                                      {4294967295, "IDC_STATIC"}};
    const QMap<QString, QString> texts{{"IDC_STATIC", "every label"},
                                       {"IDC_PART", "part of the host"},
                                       {"IDS_TEN", "0123456789"},
                                       {"IDS_EMOJI", "😀螺栓😀😀"},
                                       {"IDS_EMPTY", ""}};
    QCOMPARE(GetResourceIDMap(), ids);
    QCOMPARE(GetStringResourceTable(), texts);
}

void tst_Resource::tableStaysInTheCache()
{
    auto* const ids = &GetResourceIDMap();
    auto* const texts = &GetStringResourceTable();
    ids->insert(5000, QStringLiteral("IDC_ADDED"));
    texts->insert(QStringLiteral("IDC_ADDED"), QStringLiteral("added"));
    QCOMPARE(&GetResourceIDMap(), ids);
    QCOMPARE(&GetStringResourceTable(), texts);
    QCOMPARE(GetObjectNameById(5000), QStringLiteral("IDC_ADDED"));
    QCOMPARE(GetResourceStringById(5000), QStringLiteral("added"));
    ids->remove(5000);
    texts->remove(QStringLiteral("IDC_ADDED"));
    QCOMPARE(GetObjectNameById(5000), QString());
}

void tst_Resource::nameOfAnId_data()
{
    QTest::addColumn<unsigned>("id");
    QTest::addColumn<QString>("name");
    QTest::newRow("known") << 1001u << "IDC_PART";
    QTest::newRow("without a text") << 1004u << "IDC_WITHOUT_TEXT";
    QTest::newRow("negative") << static_cast<unsigned>(-1) << "IDC_STATIC";
    QTest::newRow("unknown") << 4711u << "";
    QTest::newRow("zero") << 0u << "";
}

void tst_Resource::nameOfAnId()
{
    QFETCH(const unsigned, id);
    QTEST(GetObjectNameById(static_cast<int>(id)), "name");
    QTEST(ToStringId(id), "name");
}

void tst_Resource::idOfAName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("id");
    QTest::newRow("known") << "IDS_TEN" << 1002;
    QTest::newRow("case counts") << "IDC_part" << 1006;
    QTest::newRow("no name in another case") << "ids_ten" << 0;
    QTest::newRow("highest number") << "IDC_STATIC" << -1;
    QTest::newRow("unknown") << "IDC_NOWHERE" << 0;
    QTest::newRow("part of a name") << "IDS_TE" << 0;
    QTest::newRow("empty") << "" << 0;
    QTest::newRow("a text") << "0123456789" << 0;
}

void tst_Resource::idOfAName()
{
    QFETCH(const QString, name);
    QTEST(ToCtrlId(name), "id");
}

void tst_Resource::textOfAnId_data()
{
    QTest::addColumn<unsigned>("id");
    QTest::addColumn<QString>("text");
    QTest::newRow("known") << 1001u << "part of the host";
    QTest::newRow("beyond ASCII and beyond 16 bits") << 1003u << "😀螺栓😀😀";
    QTest::newRow("negative") << static_cast<unsigned>(-1) << "every label";
    QTest::newRow("a name without a text") << 1004u << "";
    QTest::newRow("an empty text") << 1005u << "";
    QTest::newRow("unknown") << 4711u << "";
}

void tst_Resource::textOfAnId()
{
    QFETCH(const unsigned, id);
    QTEST(GetResourceStringById(id), "text");
}

void tst_Resource::loadString_data()
{
    QTest::addColumn<unsigned>("id");
    QTest::addColumn<int>("capacity");
    QTest::addColumn<QString>("result");
    QTest::newRow("with room to spare, no terminator") << 1002u << 12 << "10 0123456789##";
    QTest::newRow("just fitting") << 1002u << 10 << "10 0123456789##";
    QTest::newRow("cut") << 1002u << 4 << "4 0123########";
    QTest::newRow("cut to one") << 1002u << 1 << "1 0###########";
    QTest::newRow("no capacity") << 1002u << 0 << "0 ############";
    QTest::newRow("negative capacity") << 1002u << -1 << "0 ############";
    QTest::newRow("most negative capacity") << 1002u << INT_MIN << "0 ############";
    QTest::newRow("an emoji is one element") << 1003u << 12 << "5 😀螺栓😀😀#######";
    QTest::newRow("cut behind an emoji") << 1003u << 1 << "1 😀###########";
    QTest::newRow("cut between two emoji") << 1003u << 4 << "4 😀螺栓😀########";
    QTest::newRow("a name without a text") << 1004u << 12 << "0 ############";
    QTest::newRow("an empty text") << 1005u << 12 << "0 ############";
    QTest::newRow("unknown id") << 4711u << 12 << "0 ############";
}

void tst_Resource::loadString()
{
    QFETCH(const unsigned, id);
    QFETCH(const int, capacity);
    QTEST(loaded(id, capacity), "result");
}

void tst_Resource::loadStringWithoutABuffer() { QCOMPARE(LoadString_X(nullptr, 1002, nullptr, 12), 0); }

void tst_Resource::loadStringIgnoresTheModule()
{
    wchar_t element = 0;
    int noModule = 0;
    QCOMPARE(LoadString_X(&noModule, 1002, &element, 1), 1);
    QCOMPARE(element, L'0');
}

void tst_Resource::stringObject()
{
    CString_X text = L"before";
    QCOMPARE(text.LoadString(1003), 1);
    QVERIFY(text == L"😀螺栓😀😀");
    QCOMPARE(text.GetLength(), 5);
    QCOMPARE(text.LoadString(&text, 1002), 1);
    QVERIFY(text == L"0123456789");
    QCOMPARE(text.LoadString(nullptr, 1001, 0x0804), 1);
    QVERIFY(text == L"part of the host");
}

void tst_Resource::stringObjectKeepsItsTextWithoutAnother_data()
{
    QTest::addColumn<unsigned>("id");
    QTest::newRow("unknown id") << 4711u;
    QTest::newRow("a name without a text") << 1004u;
    QTest::newRow("an empty text") << 1005u;
}

void tst_Resource::stringObjectKeepsItsTextWithoutAnother()
{
    QFETCH(const unsigned, id);
    CString_X text = L"before";
    QCOMPARE(text.LoadString(id), 0);
    QCOMPARE(text.LoadString(nullptr, id), 0);
    QCOMPARE(text.LoadString(nullptr, id, 0x0409), 0);
    QVERIFY(text == L"before");
}

void tst_Resource::bitmapIsTransparentWhereItIsLightGrey()
{
    const QVector<QRgb> opaque{qRgb(191, 192, 192), qRgb(192, 193, 192), qRgb(192, 192, 128),
                               qRgb(0, 0, 0),       qRgb(255, 255, 255), qRgb(255, 0, 0)};
    QImage image(opaque.size() + 1, 1, QImage::Format_RGB32);
    image.setPixel(0, 0, qRgb(192, 192, 192));
    for (int i = 0; i < opaque.size(); ++i)
        image.setPixel(i + 1, 0, opaque.at(i));
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("图 标.bmp"));
    QVERIFY(image.save(path));

    const QPixmap pixmap = LoadBitmap_X(path.toStdWString().c_str());
    QCOMPARE(pixmap.size(), image.size());
    QCOMPARE(qAlpha(pixelOf(pixmap, 0)), 0);
    for (int i = 0; i < opaque.size(); ++i)
        QCOMPARE(pixelOf(pixmap, i + 1), opaque.at(i));
}

void tst_Resource::bitmapOfAnyFormat()
{
    QImage image(2, 1, QImage::Format_Indexed8);
    image.setColorTable({qRgb(192, 192, 192), qRgb(10, 20, 30)});
    image.setPixel(0, 0, 1);
    image.setPixel(1, 0, 0);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("indexed.png"));
    QVERIFY(image.save(path));

    const QPixmap pixmap = LoadBitmap_X(path.toStdWString().c_str());
    QCOMPARE(pixelOf(pixmap, 0), qRgb(10, 20, 30));
    QCOMPARE(qAlpha(pixelOf(pixmap, 1)), 0);
}

void tst_Resource::bitmapThatCannotBeRead_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("no such file") << "/nowhere/part.bmp";
    QTest::newRow("a folder") << "/";
    QTest::newRow("no image") << "/proc/self/status";
    QTest::newRow("no path but a text of the table") << "IDC_PART";
}

void tst_Resource::bitmapThatCannotBeRead()
{
    QFETCH(const QString, path);
    QVERIFY(LoadBitmap_X(path.toStdWString().c_str()).isNull());
}

void tst_Resource::bitmapWithoutAPath()
{
    for (const wchar_t* const path : {static_cast<const wchar_t*>(nullptr), L""}) {
        QTest::ignoreMessage(QtWarningMsg, "QFSFileEngine::open: No file name specified");
        QVERIFY(LoadBitmap_X(path).isNull());
    }
}

void tst_Resource::thereIsNoResourceHandle()
{
    int module = 0;
    QVERIFY(!AfxGetResourceHandle_X());
    AfxSetResourceHandle_X(&module);
    QVERIFY(!AfxGetResourceHandle_X());
    AfxSetResourceHandle_X(nullptr);
    QVERIFY(!AfxGetResourceHandle_X());
}

XE_TEST(tst_Resource)
#include "tst_resource.moc"
