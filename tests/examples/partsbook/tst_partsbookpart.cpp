// A part and the fields of its line: what is read, what is refused and what is written.

#include "part.h"
#include "testclass.h"

namespace {

const QStringList good{"BE-6204", "Ball bearing 轴承", "Bearing", "瓦轴", "bought", "126", "60", "3.65", "yes",
                       "shelf 2"};

CsvFields fieldsFrom(const QStringList& texts) { return {texts.begin(), texts.end()}; }

QString complaintAbout(const QStringList& texts)
{
    Part part;
    return XeQString(readPart(fieldsFrom(texts), part));
}

} // namespace

class tst_PartsbookPart : public QObject
{
    Q_OBJECT

private slots:
    void readsAllFields();
    void wordsInAnyCase();
    void acceptsTheLimits();
    void refuses_data();
    void refuses();
    void numberOfFields();
    void theFirstWrongFieldIsTold();
    void writesWhatItReads();
    void lastFieldsMayBeMissing_data();
    void lastFieldsMayBeMissing();
    void prices_data();
    void prices();
    void shortOfStock();
    void search_data();
    void search();
};

void tst_PartsbookPart::readsAllFields()
{
    Part part;
    QCOMPARE(readPart(fieldsFrom(good), part), CString_X());
    QCOMPARE(part.number, CString_X(L"BE-6204"));
    QCOMPARE(part.name, CString_X(L"Ball bearing 轴承"));
    QCOMPARE(part.kind, CString_X(L"Bearing"));
    QCOMPARE(part.supplier, CString_X(L"瓦轴"));
    QCOMPARE(part.source, static_cast<int>(Part::Bought));
    QCOMPARE(part.stock, 126);
    QCOMPARE(part.minimum, 60);
    QCOMPARE(part.price, 3.65);
    QCOMPARE(part.inUse, static_cast<int>(Part::InUse));
    QCOMPARE(part.remark, CString_X(L"shelf 2"));
}

void tst_PartsbookPart::wordsInAnyCase()
{
    QStringList texts = good;
    texts[4] = "Customer";
    texts[8] = "NO";
    Part part;
    QCOMPARE(readPart(fieldsFrom(texts), part), CString_X());
    QCOMPARE(part.source, static_cast<int>(Part::FromCustomer));
    QCOMPARE(part.inUse, static_cast<int>(Part::OutOfUse));
    texts[8] = "Ending";
    QCOMPARE(readPart(fieldsFrom(texts), part), CString_X());
    QCOMPARE(part.inUse, static_cast<int>(Part::EndingUse));
}

void tst_PartsbookPart::acceptsTheLimits()
{
    const QString sixteen(16, 'x');
    const QString forty(40, QChar(0x8F74));
    const QString twenty(20, 'x');
    const QString sixty(60, 'x');
    QCOMPARE(complaintAbout({sixteen, forty, twenty, forty, "made", "99999", "500", "9999.99", "no", sixty}),
             QString());
    QCOMPARE(complaintAbout({"1", "", "", "", "made", "0", "0", "0", "no", ""}), QString());
}

void tst_PartsbookPart::refuses_data()
{
    QTest::addColumn<int>("field");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("complaint");
    const auto row = [](const char* name, int field, const QString& text, const char* complaint) {
        QTest::newRow(name) << field << text << QString(complaint);
    };
    row("no number", 0, "", "the part has no number");
    row("long number", 0, QString(17, 'x'), "number: more than 16 characters");
    row("long name", 1, QString(41, 'x'), "name: more than 40 characters");
    row("long name of wide characters", 1, QString("😀").repeated(21), "name: more than 40 characters");
    row("long kind", 2, QString(21, 'x'), "kind: more than 20 characters");
    row("long supplier", 3, QString(41, 'x'), "supplier: more than 40 characters");
    row("unknown source", 4, "stolen", "source: \"stolen\" is none of the words for it");
    row("no source", 4, "", "source: \"\" is none of the words for it");
    row("no stock", 5, "", "stock: no whole number from 0 to 99999");
    row("stock in words", 5, "many", "stock: no whole number from 0 to 99999");
    row("broken stock", 5, "1.5", "stock: no whole number from 0 to 99999");
    row("negative stock", 5, "-1", "stock: no whole number from 0 to 99999");
    row("large stock", 5, "100000", "stock: no whole number from 0 to 99999");
    row("stock beyond 32 bits", 5, "99999999999999999999", "stock: no whole number from 0 to 99999");
    row("large minimum", 6, "501", "minimum: no whole number from 0 to 500");
    row("price in words", 7, "cheap", "price: no number from 0 to 9999.99");
    row("price with a comma", 7, "3,65", "price: no number from 0 to 9999.99");
    row("negative price", 7, "-0.01", "price: no number from 0 to 9999.99");
    row("large price", 7, "10000", "price: no number from 0 to 9999.99");
    row("price that is no number", 7, "nan", "price: no number from 0 to 9999.99");
    row("infinite price", 7, "inf", "price: no number from 0 to 9999.99");
    row("unknown use", 8, "perhaps", "in use: \"perhaps\" is none of the words for it");
    row("percent signs", 8, "%s%n", "in use: \"%s%n\" is none of the words for it");
    row("long remark", 9, QString(61, 'x'), "remark: more than 60 characters");
    row("a day that is none", 10, "2026-02-29", "delivered: \"2026-02-29\" is no day, such as 2026-03-31");
    row("a day in another form", 10, "3/31/2026", "delivered: \"3/31/2026\" is no day, such as 2026-03-31");
    row("a long name of a picture", 11, QString(201, 'x'), "picture: more than 200 characters");
}

void tst_PartsbookPart::refuses()
{
    QFETCH(const int, field);
    QFETCH(const QString, text);
    QStringList texts = good + QStringList{"", ""};
    texts[field] = text;
    QTEST(complaintAbout(texts), "complaint");
}

void tst_PartsbookPart::numberOfFields()
{
    QCOMPARE(complaintAbout(good.mid(1)), QString("9 fields in place of 10 to 12"));
    QCOMPARE(complaintAbout(good + QStringList{"", "", ""}), QString("13 fields in place of 10 to 12"));
    QCOMPARE(complaintAbout({}), QString("0 fields in place of 10 to 12"));
}

void tst_PartsbookPart::theFirstWrongFieldIsTold()
{
    QStringList texts = good;
    texts[5] = "x";
    texts[7] = "y";
    QCOMPARE(complaintAbout(texts), QString("stock: no whole number from 0 to 99999"));
}

void tst_PartsbookPart::writesWhatItReads()
{
    Part part;
    QCOMPARE(readPart(fieldsFrom(good), part), CString_X());
    QVERIFY(fieldsOf(part) == fieldsFrom(good));
    Part same;
    QCOMPARE(readPart(fieldsOf(part), same), CString_X());
    QVERIFY(same == part);
}

// Files of earlier versions end with the remark.
void tst_PartsbookPart::lastFieldsMayBeMissing_data()
{
    QTest::addColumn<QStringList>("read");
    QTest::addColumn<QStringList>("written");
    QTest::newRow("none") << QStringList{} << QStringList{};
    QTest::newRow("empty ones") << QStringList{"", ""} << QStringList{};
    QTest::newRow("a day") << QStringList{"2026-03-31"} << QStringList{"2026-03-31"};
    QTest::newRow("a picture alone") << QStringList{"", "a.png"} << QStringList{"", "a.png"};
    QTest::newRow("both") << QStringList{"2024-02-29", "a.png"} << QStringList{"2024-02-29", "a.png"};
}

void tst_PartsbookPart::lastFieldsMayBeMissing()
{
    QFETCH(const QStringList, read);
    QFETCH(const QStringList, written);
    Part part;
    QCOMPARE(readPart(fieldsFrom(good + read), part), CString_X());
    QCOMPARE(XeQString(part.delivered), read.value(0));
    QCOMPARE(XeQString(part.picture), read.value(1));
    QVERIFY(fieldsOf(part) == fieldsFrom(good + written));
}

void tst_PartsbookPart::prices_data()
{
    QTest::addColumn<double>("price");
    QTest::addColumn<QString>("text");

    QTest::newRow("two decimals") << 3.5 << "3.50";
    QTest::newRow("none") << 0.0 << "0.00";
    QTest::newRow("the largest") << 9999.99 << "9999.99";
    QTest::newRow("less than a cent") << 0.085 << "0.085";
    QTest::newRow("six digits at most") << 1.23456789 << "1.23457";
}

void tst_PartsbookPart::prices()
{
    QFETCH(const double, price);
    QFETCH(const QString, text);
    QCOMPARE(XeQString(priceText(price)), text);
}

void tst_PartsbookPart::shortOfStock()
{
    Part part;
    part.minimum = 10;
    part.stock = 10;
    QVERIFY(!part.isShort());
    part.stock = 9;
    QVERIFY(part.isShort());
    for (const int use : {Part::OutOfUse, Part::EndingUse}) {
        part.inUse = use;
        QVERIFY(!part.isShort());
    }
}

void tst_PartsbookPart::search_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("matchCase");
    QTest::addColumn<bool>("found");

    QTest::newRow("in the number") << "6204" << true << true;
    QTest::newRow("in the name") << "轴承" << true << true;
    QTest::newRow("in the kind") << "Bear" << true << true;
    QTest::newRow("in the supplier") << "瓦" << true << true;
    QTest::newRow("in the remark") << "shelf" << true << true;
    QTest::newRow("in another case") << "SHELF" << false << true;
    QTest::newRow("in another case that differs") << "SHELF" << true << false;
    QTest::newRow("not across two fields") << "6204Ball" << false << false;
    QTest::newRow("not in the numbers") << "3.65" << false << false;
}

void tst_PartsbookPart::search()
{
    QFETCH(const QString, text);
    QFETCH(const bool, matchCase);
    Part part;
    QCOMPARE(readPart(fieldsFrom(good), part), CString_X());
    QTEST(hasText(part, CString_X(text), matchCase), "found");
}

XE_GUILESS_TEST(tst_PartsbookPart)
#include "tst_partsbookpart.moc"
