// A book whose saving fails: the old file is there or the new one, whole, and the book says which.

#include "failingcall.h"
#include "partsbook.h"
#include "samplelines.h"
#include "smalldisk.h"
#include "testclass.h"

#include <QTemporaryDir>

namespace {

void addPart(PartsBook& book)
{
    Part part;
    part.number.Format(L"NEW-%d", book.count());
    part.name = L"Screw";
    part.kind = L"Fastener";
    book.add(part);
}

// What the file of a book is to hold.
QByteArray savedForm(PartsBook book, const QString& extension)
{
    const QTemporaryDir folder;
    const QString name = folder.filePath("book." + extension);
    return book.saveAs(name) ? contentOf(name) : QByteArray("cannot be saved");
}

} // namespace

class tst_PartsbookFaults : public QObject
{
    Q_OBJECT

private slots:
    void failingCalls_data();
    void failingCalls();
    void aDiskOf16Kilobytes_data();
    void aDiskOf16Kilobytes();
};

void tst_PartsbookFaults::failingCalls_data()
{
    QTest::addColumn<QString>("extension");
    QTest::newRow("CSV") << "csv";
    QTest::newRow("archive") << "parts";
}

void tst_PartsbookFaults::failingCalls()
{
    QFETCH(QString, extension);
    const QTemporaryDir folder;
    const QString name = folder.filePath("book." + extension);
    PartsBook book;
    QVERIFY(book.load(qEnvironmentVariable("PARTS")));
    QVERIFY(book.saveAs(name));
    for (const auto kind : {FailingCall::Write, FailingCall::Sync, FailingCall::Rename, FailingCall::Link,
                            FailingCall::Open, FailingCall::Read}) {
        bool wasReached = true;
        for (int number = 1; wasReached; ++number) {
            const QByteArray before = contentOf(name);
            addPart(book);
            const QByteArray after = savedForm(book, extension);
            FailingCall call(kind, number);
            const bool isSaved = book.save();
            wasReached = call.end();
            QVERIFY(isSaved || wasReached);
            QVERIFY(contentOf(name) == (isSaved ? after : before));
            QCOMPARE(book.isModified(), !isSaved);
            QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList("book." + extension));
            QVERIFY(book.save());
        }
    }
}

void tst_PartsbookFaults::aDiskOf16Kilobytes_data() { failingCalls_data(); }

void tst_PartsbookFaults::aDiskOf16Kilobytes()
{
    QFETCH(QString, extension);
    SmallDisk disk;
    const QString name = disk.path() + "/book." + extension;
    PartsBook book;
    for (int parts = 0; parts < 20; ++parts)
        addPart(book);
    QVERIFY(book.saveAs(name));
    for (int free = 0; free <= SmallDisk::blocks; ++free) {
        const QByteArray before = contentOf(name);
        addPart(book);
        const QByteArray after = savedForm(book, extension);
        disk.leave(free);
        const bool isSaved = book.save();
        QVERIFY(contentOf(name) == (isSaved ? after : before));
        disk.makeRoom();
        QVERIFY(book.save());
        QVERIFY(contentOf(name) == after);
    }
}

XE_GUILESS_TEST(tst_PartsbookFaults)
#include "tst_partsbookfaults.moc"
