// Volumes, as the mount table tells them.

#include "folder.h"
#include "testclass.h"

#include <xefileapi.h>

#include <QStorageInfo>

namespace {

QString upToMark(const std::wstring& buffer)
{
    return QString::fromStdWString(buffer.substr(0, buffer.find_last_not_of(L'#') + 1));
}

} // namespace

class tst_Volumes : public QObject
{
    Q_OBJECT

private slots:
    void pathName();
    void information();
    void informationOfNothing();
    void drives();
};

void tst_Volumes::pathName()
{
    const Folder folder;
    const QString root = QStorageInfo(folder.root()).rootPath();
    std::wstring buffer(1000, L'#');
    QCOMPARE(GetVolumePathName_X(folder.wide("").c_str(), &buffer[0], 1000), 1);
    QCOMPARE(upToMark(buffer), root);
    buffer.assign(1000, L'#');
    QCOMPARE(GetVolumePathName_X(folder.wide("").c_str(), &buffer[0], 1), 1);
    QCOMPARE(upToMark(buffer), QString("/"));
    QCOMPARE(GetVolumePathName_X(L"/", nullptr, 100), 1);
    QCOMPARE(GetVolumePathName_X(nullptr, &buffer[0], 100), 1);
}

void tst_Volumes::information()
{
    const QStorageInfo root("/");
    std::wstring name(1000, L'#'), fileSystem(1000, L'#');
    DWORD serial = 77, component = 77, flags = 77;
    QCOMPARE(GetVolumeInformation_X(L"/", &name[0], 1, &serial, &component, &flags, &fileSystem[0], 1), 1);
    QCOMPARE(upToMark(name), root.name());
    QCOMPARE(upToMark(fileSystem), QString(root.fileSystemType()));
    QVERIFY(serial == 0 && component == 0 && flags == 0);
    QCOMPARE(GetVolumeInformation_X(L"/", nullptr, 0, nullptr, nullptr, nullptr, nullptr, 0), 1);
}

void tst_Volumes::informationOfNothing()
{
    std::wstring name(10, L'#');
    DWORD serial = 77, component = 77, flags = 77;
    QCOMPARE(GetVolumeInformation_X(L"/nowhere/at/all", &name[0], 10, &serial, &component, &flags, &name[0], 10), 1);
    QCOMPARE(upToMark(name), QString());
    QVERIFY(serial == 0 && component == 0 && flags == 0);
    serial = 77;
    QCOMPARE(GetVolumeInformation_X(nullptr, &name[0], 10, &serial, &component, &flags, &name[0], 10), 0);
    QCOMPARE(serial, 77U);
}

void tst_Volumes::drives()
{
    QCOMPARE(GetLogicalDrives_X(), 0U);
    QString all;
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes())
        all += volume.rootPath();
    std::wstring buffer(100000, L'#');
    QCOMPARE(GetLogicalDriveStrings_X(100000, &buffer[0]), static_cast<DWORD>(all.size()));
    QCOMPARE(upToMark(buffer), all);
    QVERIFY(all.startsWith("/") || all.contains("/"));
    buffer.assign(100, L'#');
    QCOMPARE(GetLogicalDriveStrings_X(1, &buffer[0]), static_cast<DWORD>(all.size()));
    QCOMPARE(upToMark(buffer), all.left(1));
    QCOMPARE(GetLogicalDriveStrings_X(100, nullptr), 0U);
}

XE_APPLESS_TEST(tst_Volumes)
#include "tst_volumes.moc"
