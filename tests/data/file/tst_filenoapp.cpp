// Files where no event loop will ever run: before there is an application, and on a plain thread.

#include "tempfiles.h"
#include "testclass.h"

#include <xeafxarc.h>
#include <xeafxfile.h>

#include <QPointer>

#include <thread>

class tst_FileNoApp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(!QCoreApplication::instance()); }
    void theQFileGoesAtOnce();
    void onAPlainThread();
    void anArchive();
};

void tst_FileNoApp::theQFileGoesAtOnce()
{
    const TempFiles disk;
    auto* file = new CFile_X(disk.widePath("file"), CFile_X::modeWrite);
    const QPointer<QFile> imp = file->Imp<QFile>();
    file->Write("abc", 3);
    delete file;
    QVERIFY(!imp);
    QCOMPARE(disk.read("file"), QByteArray("abc"));
}

void tst_FileNoApp::onAPlainThread()
{
    const TempFiles disk;
    bool gone = false;
    std::thread worker([&] {
        auto* file = new CMemFile_X;
        const QPointer<QFile> imp = file->Imp<QFile>();
        delete file;
        gone = !imp;
        CStdioFile_X(disk.widePath("file"), CFile_X::modeWrite).WriteString(L"abc");
    });
    worker.join();
    QVERIFY(gone);
    QCOMPARE(disk.read("file"), QByteArray("abc"));
}

void tst_FileNoApp::anArchive()
{
    const TempFiles disk;
    {
        CFile_X file(disk.widePath("file"), CFile_X::modeWrite);
        CArchive_X archive(&file, CArchive_X::store);
        archive << 'x';
    }
    QCOMPARE(disk.read("file"), QByteArray("x"));
}

XE_APPLESS_TEST(tst_FileNoApp)
#include "tst_filenoapp.moc"
