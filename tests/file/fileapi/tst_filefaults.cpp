// Copies and moves that fail: the file at the target stays until its successor is whole, the source until then too.

#include "failingcall.h"
#include "folder.h"
#include "smalldisk.h"
#include "testclass.h"
#include "widevalue.h"

#include <xefileapi.h>

#include <QtTest>

#include <functional>

namespace {

const QByteArray oldContent(5000, 'o');
const QByteArray newContent(70000, 'n'); // more than one block

void fill(const Folder& folder, const QByteArray& content)
{
    folder.write("source", content);
    folder.write("target", oldContent);
    folder.makeFolder("folder");
    folder.write("folder/source", oldContent);
}

int shellOperation(UINT function, const std::wstring& from, const std::wstring& to)
{
    _SHFILEOPSTRUCT_X operation{};
    operation.wFunc = function;
    operation.pFrom = from.c_str();
    operation.pTo = to.c_str();
    return SHFileOperation_X(&operation);
}

// Whether the call says that it has succeeded.
using Operation = std::function<bool(const Folder&)>;

const Operation copyOver = [](const Folder& folder) {
    return CopyFile(folder.wide("source").c_str(), folder.wide("target").c_str(), FALSE) != 0;
};
const Operation copy = [](const Folder& folder) {
    return CopyFile(folder.wide("source").c_str(), folder.wide("new").c_str(), TRUE) != 0;
};
const Operation move = [](const Folder& folder) {
    return MoveFile_X(folder.wide("source").c_str(), folder.wide("new").c_str()) != 0;
};
const Operation renaming = [](const Folder& folder) {
    return _wrename(folder.wide("source").c_str(), folder.wide("new").c_str()) == 0;
};
const Operation shellCopy = [](const Folder& folder) {
    return shellOperation(FO_COPY, folder.wide("source"), folder.wide("folder")) == 0;
};
const Operation shellMove = [](const Folder& folder) {
    return shellOperation(FO_MOVE, folder.wide("source"), folder.wide("folder")) == 0;
};

} // namespace

Q_DECLARE_METATYPE(Operation)

class tst_FileFaults : public QObject
{
    Q_OBJECT

private slots:
    void failingCalls_data();
    void failingCalls();
    void aFullDisk_data();
    void aFullDisk();
    void aFolderIsNoSource();
    void toAnotherDisk_data() { FailingCall::addRows(); }
    void toAnotherDisk();
    void toAFullDisk();
    void aLinkIsReplaced();
    void permissionsAreCopied();
    void namesWithoutUtf8_data();
    void namesWithoutUtf8();
};

void tst_FileFaults::failingCalls_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QString>("target");
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<bool>("isMove");
    const QByteArray nothing("no such file");
    QTest::newRow("copy over a file") << copyOver << "target" << oldContent << false;
    QTest::newRow("copy") << copy << "new" << nothing << false;
    QTest::newRow("move") << move << "new" << nothing << true;
    QTest::newRow("rename") << renaming << "new" << nothing << true;
    QTest::newRow("shell's copy") << shellCopy << "folder/source" << oldContent << false;
    QTest::newRow("shell's move") << shellMove << "folder/source" << oldContent << true;
}

void tst_FileFaults::failingCalls()
{
    QFETCH(Operation, operation);
    QFETCH(QString, target);
    QFETCH(QByteArray, before);
    QFETCH(bool, isMove);
    for (const auto kind : {FailingCall::Write, FailingCall::Sync, FailingCall::Rename, FailingCall::Link,
                            FailingCall::Open, FailingCall::Read}) {
        bool wasReached = true;
        for (int number = 1; wasReached; ++number) {
            const Folder folder;
            fill(folder, newContent);
            FailingCall call(kind, number);
            const bool result = operation(folder);
            wasReached = call.end();
            QVERIFY(result || wasReached);
            QVERIFY(folder.read(target) == (result ? newContent : before));
            QVERIFY(folder.has("source") == !(result && isMove));
            const int files = folder.entries().size();
            QCOMPARE(files, 3 + (result && target == "new" ? 1 : 0) - (result && isMove ? 1 : 0));
        }
    }
}

void tst_FileFaults::aFullDisk_data()
{
    QTest::addColumn<int>("free");
    for (int free = 0; free < SmallDisk::blocks - 1; ++free)
        QTest::addRow("%d free blocks", free) << free;
}

void tst_FileFaults::aFullDisk()
{
    QFETCH(int, free);
    const QByteArray content((free + 1) * SmallDisk::block, 'n');
    const Folder folder;
    folder.write("source", content);
    SmallDisk disk;
    const QString target = disk.path() + "/source";
    QFile file(target);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("old") == 3 && file.flush());
    const auto read = [&target] {
        QFile written(target);
        return written.open(QIODevice::ReadOnly) ? written.readAll() : QByteArray("no such file");
    };

    disk.leave(free);
    QCOMPARE(CopyFile(folder.wide("source").c_str(), target.toStdWString().c_str(), FALSE), FALSE);
    QCOMPARE(shellOperation(FO_MOVE, folder.wide("source"), disk.path().toStdWString()), -1);
    QCOMPARE(read(), QByteArray("old"));
    QVERIFY(folder.read("source") == content);
    disk.makeRoom();
    QCOMPARE(CopyFile(folder.wide("source").c_str(), target.toStdWString().c_str(), FALSE), TRUE);
    QVERIFY(read() == content);
}

void tst_FileFaults::aFolderIsNoSource()
{
    const Folder folder;
    fill(folder, newContent);
    folder.makeFolder("folder/inner");
    folder.write("inner", oldContent);
    QCOMPARE(CopyFile(folder.wide("folder").c_str(), folder.wide("target").c_str(), FALSE), FALSE);
    QCOMPARE(shellOperation(FO_COPY, folder.wide("folder/inner"), folder.root().toStdWString()), -1);
    QVERIFY(folder.read("target") == oldContent);
    QVERIFY(folder.read("inner") == oldContent);
}

// Where the machine has no disk for it, within the one, on which the same holds.
void tst_FileFaults::toAnotherDisk()
{
    QFETCH(FailingCall::Kind, kind);
    QFETCH(int, error);
    SmallDisk disk;
    const QByteArray content(6000, 'n');
    const QString target = disk.path() + "/new";
    bool wasReached = true;
    for (int number = 1; wasReached; ++number) {
        const Folder folder;
        folder.write("source", content);
        QFile::remove(target);
        FailingCall call(kind, number, error);
        const BOOL result = MoveFile_X(folder.wide("source").c_str(), target.toStdWString().c_str());
        wasReached = call.end();
        QVERIFY(result || wasReached);
        QVERIFY(folder.has("source") == !result);
        QFile file(target);
        QCOMPARE(file.exists(), result == TRUE);
        QVERIFY(!result || (file.open(QIODevice::ReadOnly) && file.readAll() == content));
    }
}

void tst_FileFaults::toAFullDisk()
{
    SmallDisk disk;
    const Folder folder;
    folder.write("source", QByteArray(2 * SmallDisk::block, 'n'));
    const std::wstring target = (disk.path() + "/new").toStdWString();
    disk.leave(1);
    if (disk.isMounted()) {
        QCOMPARE(MoveFile_X(folder.wide("source").c_str(), target.c_str()), FALSE);
        QCOMPARE(_wrename(folder.wide("source").c_str(), target.c_str()), -1);
        QCOMPARE(shellOperation(FO_RENAME, folder.wide("source"), target), -1);
    }
    QCOMPARE(CopyFile(folder.wide("source").c_str(), target.c_str(), FALSE), FALSE);
    QVERIFY(folder.has("source"));
    QVERIFY(!QFile::exists(disk.path() + "/new"));
    disk.makeRoom();
    QCOMPARE(CopyFile(folder.wide("source").c_str(), target.c_str(), FALSE), TRUE);
}

void tst_FileFaults::aLinkIsReplaced()
{
    const Folder folder;
    fill(folder, newContent);
    QVERIFY(QFile::link(folder.path("target"), folder.path("link")));
    QCOMPARE(CopyFile(folder.wide("source").c_str(), folder.wide("link").c_str(), FALSE), TRUE);
    QVERIFY(!QFileInfo(folder.path("link")).isSymLink());
    QVERIFY(folder.read("link") == newContent);
    QVERIFY(folder.read("target") == oldContent);
}

// As QFile does it.
void tst_FileFaults::permissionsAreCopied()
{
    const Folder folder;
    fill(folder, newContent);
    QVERIFY(QFile::setPermissions(folder.path("source"), QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther));
    QVERIFY(QFile::copy(folder.path("source"), folder.path("oracle")));
    QCOMPARE(CopyFile(folder.wide("source").c_str(), folder.wide("target").c_str(), FALSE), TRUE);
    QCOMPARE(QFile::permissions(folder.path("target")), QFile::permissions(folder.path("oracle")));
}

void tst_FileFaults::namesWithoutUtf8_data()
{
    QTest::addColumn<std::wstring>("name");
    QTest::newRow("half of a character above U+FFFF") << std::wstring(L"a\xD800");
    QTest::newRow("above U+10FFFF") << std::wstring(L"a\x110000");
}

void tst_FileFaults::namesWithoutUtf8()
{
    QFETCH(std::wstring, name);
    const Folder folder;
    QCOMPARE(CreateDirectory((folder.root().toStdWString() + L'/' + name).c_str()), FALSE);
    QCOMPARE(folder.entries(), QStringList());
}

XE_GUILESS_TEST(tst_FileFaults)
#include "tst_filefaults.moc"
