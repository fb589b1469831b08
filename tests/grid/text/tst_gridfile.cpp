#include "gridwindow.h"
#include "leavenothing.h"
#include "testclass.h"

#include <QFile>
#include <QTemporaryDir>

class tst_GridFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void saves();
    void loads_data();
    void loads();
    void roundTrip();
    void longLines();
    void pathsThatCannotBe();
    void headingsAreCentred();
    void columnsFit();
    void loadsIntoAGrid();
    void drawsOnceWhenLoaded();
    void fills();
    void fillsOnlyAWindow();

private:
    CString_X path(const char* name) const { return CString_X(m_folder.filePath(QLatin1String(name))); }
    void write(const char* name, const QByteArray& text) const;
    QByteArray read(const char* name) const;

    QTemporaryDir m_folder;
};

namespace {

QString rowsOf(const CGridCtrl_X& grid)
{
    QStringList rows;
    for (int row = 0; row < grid.GetRowCount(); ++row) {
        QStringList fields;
        for (int col = 0; col < grid.GetColumnCount(); ++col)
            fields += XeQString(grid.GetItemText(row, col));
        rows += fields.join(QLatin1Char('|'));
    }
    return rows.join(QLatin1Char(';'));
}

} // namespace

void tst_GridFile::write(const char* name, const QByteArray& text) const
{
    QFile file(m_folder.filePath(QLatin1String(name)));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

QByteArray tst_GridFile::read(const char* name) const
{
    QFile file(m_folder.filePath(QLatin1String(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
}

void tst_GridFile::saves()
{
    CGridCtrl_X grid(2, 3, 1, 0);
    grid.SetItemText(0, 0, L"a");
    grid.SetItemText(0, 2, CString_X(QString::fromUtf8("世")));
    grid.SetItemText(1, 1, L"b,c");
    QCOMPARE(grid.Save(path("saved")), 1);
    QCOMPARE(read("saved"), QByteArray("a,,\xE4\xB8\x96\n,b,c,\n"));
    CGridCtrl_X empty;
    QCOMPARE(empty.Save(path("empty")), 1);
    QCOMPARE(read("empty"), QByteArray());
}

void tst_GridFile::loads_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("rows");

    QTest::newRow("headings and a row") << QByteArray("a,b\n1,2\n") << "a|b;1|2";
    QTest::newRow("without the last line end") << QByteArray("a,b\n1,2") << "a|b;1|2";
    QTest::newRow("headings alone") << QByteArray("a,b\n") << "a|b";
    QTest::newRow("empty fields") << QByteArray("a,,b\n,,3\n") << "a||b;||3";
    QTest::newRow("an empty field at the end") << QByteArray("a,b,\n1,2,\n") << "a|b|;1|2|";
    QTest::newRow("fewer fields") << QByteArray("a,b\n1\n") << "a|b;1|";
    QTest::newRow("more fields") << QByteArray("a,b\n1,2,3\n") << "a|b;1|2";
    QTest::newRow("an empty line is a row") << QByteArray("a\n1\n\n2\n") << "a;1;;2";
    QTest::newRow("lines of another system") << QByteArray("a,b\r\n1,2\r\n") << "a|b;1|2";
    QTest::newRow("bytes stay elements") << QByteArray("\xC3\xA4\n") << QString::fromUtf8("Ã¤");
    QTest::newRow("an empty heading") << QByteArray("\n1\n") << ";1";
    QTest::newRow("nothing") << QByteArray() << "";
}

void tst_GridFile::loads()
{
    QFETCH(QByteArray, text);
    write("loaded", text);
    CGridCtrl_X grid(3, 3, 1, 1);
    QCOMPARE(grid.Load(path("loaded")), 1);
    QTEST(rowsOf(grid), "rows");
    QCOMPARE(grid.GetFixedRowCount(), 0);
    QCOMPARE(grid.GetColumnCount() == 0, text.isEmpty());
}

void tst_GridFile::roundTrip()
{
    CGridCtrl_X grid(4, 2, 1, 0);
    const wchar_t* const texts[] = {L"name", L"count", L"", L"", L"nut", L"7", L"a,b", L"9"};
    for (int i = 0; i < 8; ++i)
        grid.SetItemText(i / 2, i % 2, texts[i]);
    grid.Save(path("trip"));
    CGridCtrl_X other;
    QCOMPARE(other.Load(path("trip")), 1);
    QCOMPARE(rowsOf(other), QStringLiteral("name|count;|;nut|7;a|b")); // the comma has made a field, 9 has none
}

void tst_GridFile::longLines()
{
    const QByteArray line(1023, 'x');
    write("long", "h\n" + line + "\n" + line + "y\nz\n");
    CGridCtrl_X grid;
    grid.Load(path("long"));
    QCOMPARE(grid.GetRowCount(), 5);
    QCOMPARE(grid.GetItemText(1, 0).GetLength(), 1023);
    QCOMPARE(grid.GetItemText(2, 0).GetLength(), 1023);
    QVERIFY(grid.GetItemText(3, 0) == L"y");
    QVERIFY(grid.GetItemText(4, 0) == L"z");
}

void tst_GridFile::pathsThatCannotBe()
{
    CGridCtrl_X grid(2, 2, 1, 1);
    grid.SetItemText(1, 1, L"stays");
    QCOMPARE(grid.Load(path("none/at/all")), 0);
    QCOMPARE(grid.Save(path("none/at/all")), 0);
    QCOMPARE(grid.Load(nullptr), 0);
    QCOMPARE(grid.Save(nullptr), 0);
    QVERIFY(grid.GetItemText(1, 1) == L"stays");
}

void tst_GridFile::headingsAreCentred()
{
    write("centred", "a,b\n1,2\n");
    CGridCtrl_X grid;
    grid.Load(path("centred"));
    QCOMPARE(grid.GetItemFormat(0, 0), 37u);
    QCOMPARE(grid.GetItemFormat(1, 1), 37u); // as the cell above
}

void tst_GridFile::columnsFit()
{
    write("fitting", "a,b\na much longer text than that,2\n");
    GridWindow<> host(2, 2);
    host.grid->Load(path("fitting"));
    QCOMPARE(host.grid->GetColumnWidth(0), static_cast<int>(host.grid->cellAt(1, 0)->GetCellExtent().cx));
    QCOMPARE(host.grid->GetColumnWidth(1), static_cast<int>(host.grid->cellAt(1, 1)->GetCellExtent().cx));
}

void tst_GridFile::loadsIntoAGrid()
{
    write("into", "a,b\n1,2\n");
    GridWindow<> host(50, 50, 2, 2);
    host.grid->SetFocusCell(3, 3);
    host.grid->SelectAllCells();
    host.grid->SetFixedCellCombine(0, 0, 1, 1);
    host.window.take();
    host.grid->Load(path("into"));
    QCOMPARE(rowsOf(*host.grid), QStringLiteral("a|b;1|2"));
    QCOMPARE(host.focus(), QStringLiteral("-1,-1"));
    QVERIFY(host.grid->m_SelectedCellMap.IsEmpty());
    host.grid->SetFocusCell(1, 1);
    host.window.onNotice = [&host](const XeGridNotification&) { host.grid.reset(); };
    QCOMPARE(host.grid->Load(path("into")), 1); // a notice has taken the grid away
    QVERIFY(!host.grid);
}

void tst_GridFile::drawsOnceWhenLoaded()
{
    write("drawn", "a,b\n" + QByteArray("1,2\n").repeated(100));
    GridWindow<> host(2, 2);
    host.grid->Load(path("drawn"));
    QCOMPARE(host.grid->m_bAllowDraw, 1);
    QVERIFY(host.grid->m_nVScrollMax > 0);
    QVERIFY(host.grid->IsScrollBarEnabled(SB_VERT));
    host.grid->SetRedraw(FALSE);
    host.grid->Load(path("drawn"));
    QCOMPARE(host.grid->m_bAllowDraw, 0);
}

void tst_GridFile::fills()
{
    GridWindow<> host(0, 0, 0, 0);
    host.grid->AutoFill();
    QCOMPARE(host.grid->GetColumnCount(), 300 / 50 + 1);
    QCOMPARE(host.grid->GetRowCount(), 200 / 20 + 1);
    QCOMPARE(host.grid->GetFixedRowCount(), 1);
    QCOMPARE(host.grid->GetFixedColumnCount(), 1);
    QCOMPARE(host.grid->GetVirtualWidth(), 300);
    QCOMPARE(host.grid->GetVirtualHeight(), 200);
    host.grid->m_nDefCellWidth = 0;
    host.grid->m_nDefCellHeight = 0;
    host.grid->AutoFill();
    QCOMPARE(host.grid->GetColumnCount(), 301);
}

void tst_GridFile::fillsOnlyAWindow()
{
    CGridCtrl_X grid(2, 2, 1, 1);
    grid.AutoFill();
    QCOMPARE(grid.GetColumnCount(), 2);
}

XE_TEST(tst_GridFile)

#include "tst_gridfile.moc"
