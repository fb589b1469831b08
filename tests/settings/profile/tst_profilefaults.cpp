// Writes that fail: the old profile or the new one is there, whole, and the next write that can has it all.

#include "failingcall.h"
#include "profilefile.h"
#include "smalldisk.h"
#include "testclass.h"

namespace {

QByteArray contentWith(int n, const QByteArray& rest = {})
{
    QByteArray content;
    for (int i = 10; i < 90; ++i)
        content += "[s" + QByteArray::number(i) + "]\nkey=" + QByteArray(80, 'x') + "\n\n";
    return content + "[t]\nn=" + QByteArray::number(n) + '\n' + rest;
}

BOOL writeNumber(const wchar_t* key, int n, const wchar_t* file)
{
    return WritePrivateProfileString_X(L"t", key, std::to_wstring(n).c_str(), file);
}

} // namespace

class tst_ProfileFaults : public QObject
{
    Q_OBJECT

private slots:
    void write_data() { FailingCall::addRows(); }
    void write();
    void firstWrite_data() { FailingCall::addRows(); }
    void firstWrite();
    void read_data() { FailingCall::addRows(); }
    void read();
    void aDiskOf16Kilobytes();
};

// QSettings knows the file from one round to the next.
void tst_ProfileFaults::write()
{
    QFETCH(FailingCall::Kind, kind);
    QFETCH(int, error);
    const ProfileFile file(contentWith(0));
    bool wasReached = true;
    for (int number = 1; wasReached; ++number) {
        FailingCall call(kind, number, error);
        const BOOL result = writeNumber(L"n", number, file);
        wasReached = call.end();
        QCOMPARE(result, TRUE);
        const QByteArray bytes = file.bytes();
        QVERIFY(bytes.startsWith(contentWith(number)) || (wasReached && bytes.startsWith(contentWith(number - 1))));

        QCOMPARE(writeNumber(L"o", number, file), TRUE);
        QCOMPARE(file.bytes(), contentWith(number, "o=" + QByteArray::number(number) + '\n'));
    }
}

void tst_ProfileFaults::firstWrite()
{
    QFETCH(FailingCall::Kind, kind);
    QFETCH(int, error);
    bool wasReached = true;
    for (int number = 1; wasReached; ++number) {
        const ProfileFile file(contentWith(0));
        FailingCall call(kind, number, error);
        writeNumber(L"n", 1, file);
        wasReached = call.end();
        const QByteArray bytes = file.bytes();
        QVERIFY(bytes == contentWith(1) || (wasReached && bytes == contentWith(0)));
        QCOMPARE(GetPrivateProfileInt_X(L"t", L"n", 9, file), 1u);
        QCOMPARE(file.bytes(), contentWith(1));
    }
}

// What could not be read is read by the next call.
void tst_ProfileFaults::read()
{
    QFETCH(FailingCall::Kind, kind);
    QFETCH(int, error);
    bool wasReached = true;
    for (int number = 1; wasReached; ++number) {
        const ProfileFile file(contentWith(5));
        FailingCall call(kind, number, error);
        const UINT value = GetPrivateProfileInt_X(L"t", L"n", 9, file);
        wasReached = call.end();
        QVERIFY(value == 5 || (wasReached && value == 9));
        QCOMPARE(GetPrivateProfileInt_X(L"t", L"n", 9, file), 5u);
        QCOMPARE(file.bytes(), contentWith(5));
    }
}

void tst_ProfileFaults::aDiskOf16Kilobytes()
{
    SmallDisk disk;
    for (int free = 0; free <= SmallDisk::blocks; ++free) {
        const std::wstring file = disk.path().toStdWString() + L"/" + std::to_wstring(free) + L".ini";
        const QString name = QString::fromStdWString(file);
        const auto bytes = [&name] {
            QFile profile(name);
            return profile.open(QIODevice::ReadOnly) ? profile.readAll() : QByteArray("(unreadable)");
        };
        const QByteArray before = "[s]\nk=" + QByteArray(3000, 'x') + "\n\n[t]\nn=0\n";
        const QByteArray after = "[s]\nk=" + QByteArray(3000, 'x') + "\n\n[t]\nn=1\n";
        QFile profile(name);
        QVERIFY(profile.open(QIODevice::WriteOnly) && profile.write(before) == before.size() && profile.flush());
        disk.leave(free);
        QCOMPARE(writeNumber(L"n", 1, file.c_str()), TRUE);
        QVERIFY(bytes() == before || bytes() == after);
        disk.makeRoom();
        QCOMPARE(writeNumber(L"n", 1, file.c_str()), TRUE);
        QVERIFY(bytes() == after);
        QVERIFY(QFile::remove(name));
    }
}

XE_GUILESS_TEST(tst_ProfileFaults)
#include "tst_profilefaults.moc"
