// Combo boxes whose items have pictures.

#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <memory>

namespace {

std::unique_ptr<CBitmap_X> bitmapOf(const QColor& color)
{
    auto bitmap = std::make_unique<CBitmap_X>();
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(color);
    bitmap->CreateCompatibleBitmap(nullptr, 16, 16);
    *static_cast<QImage*>(bitmap->GetSafeHandle()) = image;
    return bitmap;
}

QString colorOf(const QComboBox& box, int index)
{
    const QIcon icon = box.itemIcon(index);
    return icon.isNull() ? QStringLiteral("none") : icon.pixmap(16, 16).toImage().pixelColor(8, 8).name();
}

const QString red = QStringLiteral("#ff0000");
const QString blue = QStringLiteral("#0000ff");
const QString none = QStringLiteral("none");

} // namespace

class tst_ComboBoxEx : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void pictures_data();
    void pictures();
    void ownPicturesGoFirst();
    void inserting_data();
    void inserting();
    void theOldListIsGiven();
    void withoutARecordOrAWidget();
};

void tst_ComboBoxEx::pictures_data()
{
    QTest::addColumn<int>("image");
    QTest::addColumn<QString>("color");
    QTest::newRow("first") << 0 << red;
    QTest::newRow("last") << 1 << blue;
    QTest::newRow("behind the list") << 2 << none;
    QTest::newRow("negative") << -1 << none;
}

void tst_ComboBoxEx::pictures()
{
    QFETCH(int, image);
    const auto first = bitmapOf(Qt::red);
    const auto second = bitmapOf(Qt::blue);
    CImageList_X list;
    list.Add(first.get(), nullptr);
    list.Add(second.get(), nullptr);
    QComboBox box;
    CComboBoxEx_X combo;
    combo.SubclassWindow(&box);
    combo.SetImageList(list);
    wchar_t text[] = L"item";
    const tagCOMBOBOXEXITEMW_X item{0, 0, text, 0, image};
    QCOMPARE(combo.InsertItem(&item), 0);
    QTEST(colorOf(box, 0), "color");
    QCOMPARE(box.itemText(0), QStringLiteral("item"));
    QCOMPARE(combo.GetCurSel(), -1);
}

void tst_ComboBoxEx::ownPicturesGoFirst()
{
    const auto listed = bitmapOf(Qt::red);
    const auto own = bitmapOf(Qt::blue);
    CImageList_X list;
    list.Add(listed.get(), nullptr);
    list.Add(listed.get(), nullptr);
    QComboBox box;
    CComboBoxEx_X combo;
    combo.SubclassWindow(&box);
    combo.itemImages = {nullptr, own.get(), own.get()};
    combo.SetImageList(list);
    for (int i = 0; i < 3; ++i) {
        const tagCOMBOBOXEXITEMW_X item{0, -1, nullptr, 0, i};
        QCOMPARE(combo.InsertItem(&item), i);
    }
    QCOMPARE(colorOf(box, 0), red);
    QCOMPARE(colorOf(box, 1), blue);
    QCOMPARE(colorOf(box, 2), none); // the list has two
}

void tst_ComboBoxEx::inserting_data()
{
    QTest::addColumn<qint64>("index");
    QTest::addColumn<int>("place");
    QTest::newRow("in front") << qint64(0) << 0;
    QTest::newRow("-1 appends") << qint64(-1) << 2;
    QTest::newRow("behind") << qint64(2) << 2;
    QTest::newRow("above the count") << qint64(3) << 2;
    QTest::newRow("more than 32 bits") << qint64(0x100000000) << 2;
    QTest::newRow("less than 32 bits") << -qint64(0x100000000) << 2;
}

void tst_ComboBoxEx::inserting()
{
    QFETCH(qint64, index);
    QComboBox box;
    box.addItems({QStringLiteral("a"), QStringLiteral("b")});
    CComboBoxEx_X combo;
    combo.SubclassWindow(&box);
    const tagCOMBOBOXEXITEMW_X item{0, index, nullptr, 0, -1};
    QTEST(combo.InsertItem(&item), "place");
    QTEST(box.findText(QString()), "place");
}

void tst_ComboBoxEx::theOldListIsGiven()
{
    const auto bitmap = bitmapOf(Qt::red);
    CImageList_X list;
    list.Add(bitmap.get(), nullptr);
    CComboBoxEx_X combo;
    QCOMPARE(combo.SetImageList(list).GetImageCount(), 0);
    QCOMPARE(combo.SetImageList(CImageList_X()).GetImageCount(), 1);
    QCOMPARE(combo.imageList.GetImageCount(), 0);
}

void tst_ComboBoxEx::withoutARecordOrAWidget()
{
    QComboBox box;
    CComboBoxEx_X combo;
    const tagCOMBOBOXEXITEMW_X item{};
    QCOMPARE(combo.InsertItem(&item), -1);
    combo.SubclassWindow(&box);
    QCOMPARE(combo.InsertItem(nullptr), -1);
    QCOMPARE(box.count(), 0);
}

XE_TEST(tst_ComboBoxEx)
#include "tst_comboboxex.moc"
