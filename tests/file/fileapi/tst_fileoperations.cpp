// SHFileOperation_X: one file at a time, with 0 for success and for nothing to do.

#include "folder.h"
#include "testclass.h"

#include <xefileapi.h>

#include <memory>

class tst_FileOperations : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void operations_data();
    void operations();
    void overAnExistingFile();
    void ontoItself_data();
    void ontoItself();
    void ofAFolder_data();
    void ofAFolder();
    void nullTexts();
    void nullOperation();

private:
    int run(UINT function, const QString& from, const QString& to);

    std::unique_ptr<Folder> m_folder;
};

void tst_FileOperations::init()
{
    m_folder = std::make_unique<Folder>();
    m_folder->write("a", "one");
    m_folder->makeFolder("folder");
}

int tst_FileOperations::run(UINT function, const QString& from, const QString& to)
{
    const std::wstring source = from.isEmpty() ? std::wstring() : m_folder->wide(from);
    const std::wstring target = to.isEmpty() ? std::wstring() : m_folder->wide(to);
    _SHFILEOPSTRUCT_X operation{};
    operation.wFunc = function;
    operation.pFrom = source.c_str();
    operation.pTo = target.c_str();
    operation.fAnyOperationsAborted = 77;
    const int result = SHFileOperation_X(&operation);
    return operation.fAnyOperationsAborted == 0 ? result : 77;
}

void tst_FileOperations::operations_data()
{
    QTest::addColumn<unsigned>("function");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("hasA");
    QTest::addColumn<QString>("made");
    QTest::newRow("move") << FO_MOVE << "a"
                          << "folder" << 0 << ""
                          << "folder/a";
    QTest::newRow("move, with a slash") << FO_MOVE << "a"
                                        << "folder/" << 0 << ""
                                        << "folder/a";
    QTest::newRow("copy") << FO_COPY << "a"
                          << "folder" << 0 << "a"
                          << "folder/a";
    QTest::newRow("delete") << FO_DELETE << "a"
                            << "" << 0 << ""
                            << "";
    QTest::newRow("rename") << FO_RENAME << "a"
                            << "b" << 0 << ""
                            << "b";
    QTest::newRow("rename into a folder") << FO_RENAME << "a"
                                          << "folder/b" << 0 << ""
                                          << "folder/b";
    QTest::newRow("rename over a file fails") << FO_RENAME << "a"
                                              << "taken" << -1 << "a"
                                              << "";
    QTest::newRow("move to a missing target does nothing") << FO_MOVE << "a"
                                                           << "missing" << 0 << "a"
                                                           << "";
    QTest::newRow("copy to a missing target does nothing") << FO_COPY << "a"
                                                           << "missing" << 0 << "a"
                                                           << "";
    QTest::newRow("copy without a target does nothing") << FO_COPY << "a"
                                                        << "" << 0 << "a"
                                                        << "";
    QTest::newRow("rename without a target does nothing") << FO_RENAME << "a"
                                                          << "" << 0 << "a"
                                                          << "";
    QTest::newRow("delete of a missing file does nothing") << FO_DELETE << "missing"
                                                           << "" << 0 << "a"
                                                           << "";
    QTest::newRow("copy without a source does nothing") << FO_COPY << ""
                                                        << "folder" << 0 << "a"
                                                        << "";
    QTest::newRow("copy to a file fails") << FO_COPY << "a"
                                          << "taken" << -1 << "a"
                                          << "";
    QTest::newRow("no function") << 0U << "a"
                                 << "folder" << 0 << "a"
                                 << "";
    QTest::newRow("an unknown function") << 5U << "a"
                                         << "folder" << 0 << "a"
                                         << "";
}

void tst_FileOperations::operations()
{
    QFETCH(unsigned, function);
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QString, hasA);
    QFETCH(QString, made);
    m_folder->write("taken", "two");
    QTEST(run(function, from, to), "result");
    QCOMPARE(m_folder->has("a"), !hasA.isEmpty());
    QCOMPARE(m_folder->read("taken"), QByteArray("two"));
    const QStringList inFolder = QDir(m_folder->path("folder")).entryList(QDir::Files);
    QCOMPARE(inFolder, made.startsWith("folder/") ? QStringList{made.mid(7)} : QStringList{});
    if (!made.isEmpty())
        QCOMPARE(m_folder->read(made), QByteArray("one"));
}

void tst_FileOperations::overAnExistingFile()
{
    m_folder->write("folder/a", "old");
    QCOMPARE(run(FO_COPY, "a", "folder"), 0);
    QCOMPARE(m_folder->read("folder/a"), QByteArray("one"));
    m_folder->write("folder/a", "old");
    QCOMPARE(run(FO_MOVE, "a", "folder"), 0);
    QCOMPARE(m_folder->read("folder/a"), QByteArray("one"));
    QVERIFY(!m_folder->has("a"));
    m_folder->write("b", "two");
    m_folder->makeFolder("folder/b/below"); // cannot be removed
    QCOMPARE(run(FO_MOVE, "b", "folder"), -1);
    QCOMPARE(m_folder->read("b"), QByteArray("two"));
}

void tst_FileOperations::ontoItself_data()
{
    QTest::addColumn<unsigned>("function");
    QTest::newRow("move") << FO_MOVE;
    QTest::newRow("copy") << FO_COPY;
}

void tst_FileOperations::ontoItself()
{
    QFETCH(unsigned, function);
    QCOMPARE(run(function, "a", "."), -1);
    QCOMPARE(m_folder->read("a"), QByteArray("one"));
    QVERIFY(QFile::link(m_folder->root(), m_folder->path("again")));
    QCOMPARE(run(function, "a", "again"), -1);
    QCOMPARE(m_folder->read("a"), QByteArray("one"));
}

void tst_FileOperations::ofAFolder_data()
{
    QTest::addColumn<unsigned>("function");
    QTest::addColumn<QString>("to");
    QTest::newRow("move") << FO_MOVE << "other";
    QTest::newRow("copy") << FO_COPY << "other";
    QTest::newRow("delete") << FO_DELETE << "";
}

void tst_FileOperations::ofAFolder()
{
    QFETCH(unsigned, function);
    QFETCH(QString, to);
    m_folder->makeFolder("other");
    m_folder->write("folder/file", "x");
    QCOMPARE(run(function, "folder", to), -1);
    QCOMPARE(m_folder->read("folder/file"), QByteArray("x"));
    QVERIFY(QDir(m_folder->path("other")).isEmpty());
}

void tst_FileOperations::nullTexts()
{
    const std::wstring path = m_folder->wide("a");
    for (UINT function = 0; function <= 5; ++function) {
        _SHFILEOPSTRUCT_X operation{};
        operation.wFunc = function;
        QCOMPARE(SHFileOperation_X(&operation), 0);
        if (function == FO_DELETE)
            continue;
        operation.pFrom = path.c_str();
        QCOMPARE(SHFileOperation_X(&operation), 0);
    }
    QCOMPARE(m_folder->read("a"), QByteArray("one"));
}

void tst_FileOperations::nullOperation() { QCOMPARE(SHFileOperation_X(nullptr), -1); }

XE_APPLESS_TEST(tst_FileOperations)
#include "tst_fileoperations.moc"
