// Making, closing and abandoning an archive, and the direction that it has.

#include "archivefiles.h"
#include "leavenothing.h"
#include "testclass.h"

#include "data/archivelimits.h"

#include <limits>

class tst_Archive : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void direction();
    void bufferSizes_data();
    void bufferSizes();
    void aSmallUserBufferIsDropped();
    void aUserBufferIsUsed();
    void aUserBufferForAMemoryFile();
    void blockingIsAskedOfTheFile();
    void theNameOfTheFile();
    void withoutAFile();
    void closeCompletesTheFile_data();
    void closeCompletesTheFile();
    void theDestructorCompletesTheFile_data();
    void theDestructorCompletesTheFile();
    void noFlushOnDelete_data();
    void noFlushOnDelete();
    void abortDropsTheBuffer_data();
    void abortDropsTheBuffer();
    void usedAfterTheEnd_data();
    void usedAfterTheEnd();
    void theOtherDirectionDoesNothing_data();
    void theOtherDirectionDoesNothing();
    void flushGivesBackWhatWasReadAhead_data();
    void flushGivesBackWhatWasReadAhead();
    void flushStoresInBetween();
    void theFileIsNotFlushed();
    void nullBuffers();
    void bytesLeft_data();
    void bytesLeft();
    void bytesLeftOfOtherArchives();
};

void tst_Archive::direction()
{
    SlowFile file;
    for (const unsigned mode : {1U, 3U, 0xFFFFFFFFU}) {
        const CArchive_X archive(&file, mode);
        QVERIFY(archive.IsLoading());
        QVERIFY(!archive.IsStoring());
    }
    for (const unsigned mode : {0U, 2U, 4U}) {
        const CArchive_X archive(&file, mode);
        QVERIFY(!archive.IsLoading());
        QVERIFY(archive.IsStoring());
    }
}

void tst_Archive::bufferSizes_data()
{
    QTest::addColumn<int>("asked");
    QTest::addColumn<int>("made");
    QTest::newRow("the smallest number") << std::numeric_limits<int>::min() << 128;
    QTest::newRow("negative") << -5 << 128;
    QTest::newRow("0") << 0 << 128;
    QTest::newRow("127") << 127 << 128;
    QTest::newRow("128") << 128 << 128;
    QTest::newRow("129") << 129 << 129;
    QTest::newRow("a million") << 1000000 << 1000000;
}

void tst_Archive::bufferSizes()
{
    QFETCH(int, asked);
    SlowFile file;
    OpenArchive archive(&file, CArchive_X::store, asked);
    QTEST(archive.bufferSize, "made");
    QCOMPARE(archive.bufferEnd - archive.bufferStart, std::ptrdiff_t(archive.bufferSize));
    QCOMPARE(archive.cursor, archive.bufferStart);
    QVERIFY(!archive.userBuffer);
    OpenArchive loading(&file, CArchive_X::load, asked);
    QCOMPARE(loading.cursor, loading.bufferEnd);
}

void tst_Archive::aSmallUserBufferIsDropped()
{
    SlowFile file;
    const QByteArray untouched(64, '#');
    QByteArray buffer = untouched;
    OpenArchive archive(&file, CArchive_X::store, 64, buffer.data());
    for (int i = 0; i < 200; ++i)
        archive << 'x';
    QCOMPARE(buffer, untouched);
    QCOMPARE(archive.bufferSize, 128);
    QVERIFY(!archive.userBuffer);
    archive.Close();
    QCOMPARE(file.content, QByteArray(200, 'x'));
}

void tst_Archive::aUserBufferIsUsed()
{
    SlowFile file;
    unsigned char buffer[130] = {};
    {
        OpenArchive archive(&file, CArchive_X::store, 130, buffer);
        QVERIFY(archive.userBuffer);
        QCOMPARE(archive.bufferStart, static_cast<unsigned char*>(buffer));
        archive << 'x' << 'y';
        QCOMPARE(buffer[1], static_cast<unsigned char>('y'));
    }
    QCOMPARE(file.content, QByteArray("xy"));
}

void tst_Archive::aUserBufferForAMemoryFile()
{
    unsigned char buffer[200] = {};
    CMemFile_X file;
    OpenArchive archive(&file, CArchive_X::store, 200, buffer);
    QVERIFY(!archive.directBuffer);
    archive << 'x';
    QCOMPARE(buffer[0], static_cast<unsigned char>('x'));
    archive.Close();
    QCOMPARE(file.GetLength(), 1ULL);

    OpenArchive direct(&file, CArchive_X::store, 64, buffer);
    QVERIFY(direct.directBuffer);
    QCOMPARE(direct.bufferStart, static_cast<unsigned char*>(nullptr));
    QCOMPARE(direct.bufferEnd, static_cast<unsigned char*>(nullptr));
}

void tst_Archive::blockingIsAskedOfTheFile()
{
    SlowFile blocking({}, ~0U, true);
    SlowFile other;
    CMemFile_X memory;
    QCOMPARE(OpenArchive(&blocking, CArchive_X::load).blocking, 2);
    QCOMPARE(OpenArchive(&other, CArchive_X::load).blocking, 0);
    QCOMPARE(OpenArchive(&memory, CArchive_X::load).blocking, 0);
}

void tst_Archive::theNameOfTheFile()
{
    SlowFile file;
    CMemFile_X memory;
    const CArchive_X archive(&file, CArchive_X::store);
    QCOMPARE(archive.fileName, CString_X(L"/slow"));
    QCOMPARE(archive.GetFile(), &file);
    QCOMPARE(CArchive_X(&memory, CArchive_X::store).fileName, CString_X());
}

void tst_Archive::withoutAFile()
{
    for (const unsigned mode : {CArchive_X::store, CArchive_X::load}) {
        CArchive_X archive(nullptr, mode);
        int number = 7;
        CString_X text = L"old";
        char bytes[4] = {'o'};
        wchar_t wide[4] = L"old";
        archive << number << text;
        archive >> number >> text;
        archive.Write(bytes, 4);
        archive.WriteString(L"abc");
        archive.WriteCount(70000);
        QCOMPARE(archive.Read(bytes, 4), 0U);
        QCOMPARE(bytes[0], 'o');
        QCOMPARE(archive.ReadCount(), 0ULL);
        QCOMPARE(archive.ReadString(wide, 3), static_cast<wchar_t*>(nullptr));
        QCOMPARE(archive.ReadString(text), 0);
        QCOMPARE(number, mode == CArchive_X::load ? 0 : 7);
        QCOMPARE(xe::bytesLeft(archive), 0ULL);
        archive.Flush();
        archive.Close();
        archive.Abort();
        QCOMPARE(archive.GetFile(), static_cast<CFile_X*>(nullptr));
    }
}

void tst_Archive::closeCompletesTheFile_data() { addKinds(Stage::storingKinds()); }

void tst_Archive::closeCompletesTheFile()
{
    QFETCH(QString, kind);
    Stage stage(kind);
    const auto archive = stage.archive(CArchive_X::store);
    *archive << 1;
    archive->Close();
    QCOMPARE(archive->GetFile(), static_cast<CFile_X*>(nullptr));
    archive->Close();
    QCOMPARE(hex(stage.content()), QStringLiteral("01 00 00 00"));
}

void tst_Archive::theDestructorCompletesTheFile_data() { addKinds(Stage::storingKinds()); }

void tst_Archive::theDestructorCompletesTheFile()
{
    QFETCH(QString, kind);
    Stage stage(kind);
    auto archive = stage.archive(CArchive_X::store);
    *archive << 1;
    archive.reset();
    QCOMPARE(hex(stage.content()), QStringLiteral("01 00 00 00"));
}

void tst_Archive::noFlushOnDelete_data() { addKinds(Stage::storingKinds()); }

void tst_Archive::noFlushOnDelete()
{
    QFETCH(QString, kind);
    Stage stage(kind);
    auto archive = stage.archive(CArchive_X::store | CArchive_X::bNoFlushOnDelete);
    *archive << 1;
    archive->Flush();
    *archive << 2;
    archive.reset();
    QCOMPARE(hex(stage.content()), QStringLiteral("01 00 00 00"));

    Stage closed(kind);
    archive = closed.archive(CArchive_X::store | CArchive_X::bNoFlushOnDelete);
    *archive << 3;
    archive->Close();
    QCOMPARE(hex(closed.content()), QStringLiteral("03 00 00 00"));
}

void tst_Archive::abortDropsTheBuffer_data() { addKinds(Stage::storingKinds()); }

void tst_Archive::abortDropsTheBuffer()
{
    QFETCH(QString, kind);
    Stage stage(kind);
    auto archive = stage.archive(CArchive_X::store);
    *archive << 1;
    archive->Flush();
    *archive << 2;
    archive->Abort();
    QCOMPARE(archive->GetFile(), static_cast<CFile_X*>(nullptr));
    archive->Abort();
    archive.reset();
    QCOMPARE(hex(stage.content()), QStringLiteral("01 00 00 00"));
}

void tst_Archive::usedAfterTheEnd_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("abort");
    for (const QString& kind : Stage::storingKinds()) {
        QTest::newRow((kind + " closed").toUtf8().constData()) << kind << false;
        QTest::newRow((kind + " aborted").toUtf8().constData()) << kind << true;
    }
}

// Also when the file is gone, and its memory with it.
void tst_Archive::usedAfterTheEnd()
{
    QFETCH(QString, kind);
    QFETCH(bool, abort);

    for (const unsigned mode : {CArchive_X::store, CArchive_X::load}) {
        Stage stage(kind, pattern(300));
        const auto archive = stage.archive(mode);
        char byte = 'x';
        *archive << byte;
        *archive >> byte;
        abort ? archive->Abort() : archive->Close();
        stage.file.reset();

        int number = 7;
        CString_X text = L"old";
        char bytes[300] = {};
        for (int i = 0; i < 100; ++i) {
            *archive << number << CString_X(L"text");
            archive->Write(bytes, sizeof(bytes));
            archive->Flush();
        }
        *archive >> number >> text;
        QCOMPARE(number, mode == CArchive_X::load ? 0 : 7);
        QCOMPARE(archive->Read(bytes, sizeof(bytes)), 0U);
        QCOMPARE(archive->ReadString(text), 0);
    }
}

void tst_Archive::theOtherDirectionDoesNothing_data() { addKinds(Stage::storingKinds()); }

void tst_Archive::theOtherDirectionDoesNothing()
{
    QFETCH(QString, kind);

    const QByteArray content = pattern(300);
    Stage stage(kind, content);
    {
        const auto archive = stage.archive(CArchive_X::load);
        char first = 0;
        *archive >> first;
        *archive << 'x' << 1 << 2.0 << L'x' << true << CString_X(L"text");
        archive->Write("bytes", 5);
        archive->WriteString(L"text");
        archive->WriteCount(70000);
        char second = 0;
        *archive >> second;
        QCOMPARE(second, content[1]);
    }
    QCOMPARE(stage.content(), content);

    Stage other(kind);
    const auto archive = other.archive(CArchive_X::store);
    int number = 7;
    bool truth = true;
    CString_X text = L"old";
    char bytes[4] = {'o'};
    wchar_t wide[4] = L"old";
    *archive << 'a';
    *archive >> number >> truth >> text;
    QCOMPARE(archive->Read(bytes, 4), 0U);
    QCOMPARE(archive->EnsureRead(bytes, 4), 0U);
    QCOMPARE(archive->ReadCount(), 0ULL);
    QCOMPARE(archive->ReadString(wide, 3), static_cast<wchar_t*>(nullptr));
    QVERIFY(number == 7 && truth && text == CString_X(L"old") && bytes[0] == 'o');
    QCOMPARE(archive->ReadString(text), 0);
    *archive << 'b';
    archive->Close();
    QCOMPARE(other.content(), QByteArray("ab"));
}

void tst_Archive::flushGivesBackWhatWasReadAhead_data() { addKinds(Stage::loadingKinds()); }

void tst_Archive::flushGivesBackWhatWasReadAhead()
{
    QFETCH(QString, kind);

    const QByteArray content = pattern(400);
    Stage stage(kind, content);
    const auto archive = stage.archive(CArchive_X::load);
    int number = 0;
    for (int i = 0; i < 70; ++i) {
        *archive >> number;
        if (i % 3 == 0) {
            archive->Flush();
            QCOMPARE(stage.file->GetPosition(), static_cast<unsigned long long>(i * 4 + 4));
            archive->Flush();
        }
        QCOMPARE(std::memcmp(&number, content.constData() + i * 4, 4), 0);
    }
    *archive >> number;
    archive->Close();
    QCOMPARE(stage.file->GetPosition(), 284ULL);
}

void tst_Archive::flushStoresInBetween()
{
    SlowFile file;
    CArchive_X archive(&file, CArchive_X::store);
    archive.Flush();
    archive << 'a';
    archive.Flush();
    archive.Flush();
    archive << 'b' << 'c';
    archive.Close();
    QCOMPARE(file.content, QByteArray("abc"));
    QCOMPARE(file.takeCalls(), QStringLiteral("Write 1, Write 2"));
}

void tst_Archive::theFileIsNotFlushed()
{
    SlowFile file(pattern(10));
    CArchive_X storing(&file, CArchive_X::store);
    storing << 1;
    storing.Flush();
    storing.Close();
    CArchive_X loading(&file, CArchive_X::load);
    loading.Flush();
    loading.Close();
    QVERIFY(!file.calls.contains(QStringLiteral("Flush")));
}

void tst_Archive::nullBuffers()
{
    SlowFile file(pattern(10));
    CArchive_X loading(&file, CArchive_X::load);
    QCOMPARE(loading.Read(nullptr, 5), 0U);
    QCOMPARE(loading.EnsureRead(nullptr, 5), 0U);
    QCOMPARE(loading.ReadString(nullptr, 5), static_cast<wchar_t*>(nullptr));
    char byte = 0;
    QCOMPARE(loading.Read(&byte, 0), 0U);
    CArchive_X storing(&file, CArchive_X::store);
    storing.Write(nullptr, 5);
    storing.Write("abc", 0);
    storing.WriteString(nullptr);
    storing.Close();
    QCOMPARE(file.takeCalls(), QString());
}

void tst_Archive::bytesLeft_data() { addKinds(Stage::loadingKinds()); }

void tst_Archive::bytesLeft()
{
    QFETCH(QString, kind);

    Stage stage(kind, pattern(300));
    const auto archive = stage.archive(CArchive_X::load);
    QCOMPARE(xe::bytesLeft(*archive), 300ULL);
    unsigned char byte = 0;
    for (unsigned long long left = 300; left > 0; --left) {
        QCOMPARE(xe::bytesLeft(*archive), left);
        *archive >> byte;
    }
    QCOMPARE(xe::bytesLeft(*archive), 0ULL);
    *archive >> byte;
    QCOMPARE(xe::bytesLeft(*archive), 0ULL);
}

void tst_Archive::bytesLeftOfOtherArchives()
{
    SlowFile file(pattern(10));
    file.position = 4;
    CArchive_X loading(&file, CArchive_X::load);
    QCOMPARE(xe::bytesLeft(loading), 6ULL);
    file.position = 40;
    QCOMPARE(xe::bytesLeft(loading), 0ULL);
    CArchive_X storing(&file, CArchive_X::store);
    storing << 1;
    QCOMPARE(xe::bytesLeft(storing), 0ULL);
    loading.Close();
    QCOMPARE(xe::bytesLeft(loading), 0ULL);
}

XE_TEST(tst_Archive)
#include "tst_archive.moc"
