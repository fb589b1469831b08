// Files that are no profiles, or huge ones: every call comes back, and a write leaves a profile.

#include "profilefile.h"
#include "testclass.h"

#include <thread>
#include <vector>

namespace {

// All readers, in buffers of exactly the size that they are told.
void readAll(const wchar_t* file, std::size_t room)
{
    const auto size = static_cast<DWORD>(room);
    for (const wchar_t* section : {L"s", L"", L"General"}) {
        std::vector<wchar_t> text(room);
        std::vector<char> bytes(room);
        GetPrivateProfileInt_X(section, L"k", 1, file);
        QVERIFY(GetPrivateProfileString_X(section, L"k", L"", text.data(), size, file) < room);
        QVERIFY(GetPrivateProfileSection_X(section, text.data(), size, file) <= room);
        QVERIFY(GetPrivateProfileSectionNames_X(text.data(), size, file) <= room);
        GetPrivateProfileStruct_X(section, L"k", bytes.data(), size, file);
    }
}

// A number as the escape sequences of its four bytes.
QByteArray number(quint32 value)
{
    QByteArray escaped;
    for (int shift = 24; shift >= 0; shift -= 8)
        escaped += "\\x" + QByteArray::number(value >> shift & 0xFF, 16);
    return escaped;
}

// A value that Qt reads from a stream: its type, and what follows.
QByteArray variant(quint32 type, const QByteArray& content)
{
    return "[s]\nk=@Variant(" + number(type) + content + ")\n";
}

// Qt warns of streams, more or less.
class Silence
{
public:
    Silence() : m_previous(qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {})) {}
    ~Silence() { qInstallMessageHandler(m_previous); }
    Q_DISABLE_COPY_MOVE(Silence)

private:
    const QtMessageHandler m_previous;
};

void survives(const QByteArray& bytes)
{
    const ProfileFile file(bytes);
    for (const std::size_t room : {std::size_t(200000), std::size_t(bytes.size() + 1)})
        readAll(file, room);
    QCOMPARE(file.bytes(), bytes);

    QCOMPARE(WritePrivateProfileString_X(L"new", L"k", L"v", file), TRUE);
    QCOMPARE(textOf(L"new", L"k", file), L"v"s);
    QCOMPARE(file.folder(), QStringList("profile.ini"));
}

} // namespace

class tst_ProfileHostile : public QObject
{
    Q_OBJECT

private slots:
    void garbage_data();
    void garbage();
    void streams_data();
    void streams();
    void countsBeyondMemory_data();
    void countsBeyondMemory();
    void listsBeyondTheStack();
    void harmfulLines_data();
    void harmfulLines();
    void aLineOfAMebibyte();
    void manyEntries();
    void manySections();
    void threads();
};

void tst_ProfileHostile::garbage_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const auto addValue = [](const char* name, const QByteArray& value) {
        QTest::newRow(name) << QByteArray("[s]\nk=" + value + '\n');
    };

    QTest::newRow("zeros") << QByteArray(1000, '\0');
    QTest::newRow("zeros in names and values") << QByteArray("[s\0]\n\0k\0=\0v\0\n[s]\nk=a\0b\n", 24);
    QTest::newRow("high bytes") << QByteArray(1000, '\xff');
    QTest::newRow("open section") << QByteArray("[s");
    QTest::newRow("open section, then entries") << QByteArray("[s\nk=v\n");
    QTest::newRow("brackets alone") << QByteArray("[\n]\n[]\n[[]]\n[][]k=v\n");
    QTest::newRow("slashes for names") << QByteArray("[/]\n/=v\n[//s//]\n//k//=v\n");
    QTest::newRow("no names") << QByteArray("[]\n=v\n==\n=\n");
    QTest::newRow("no equals sign") << QByteArray("[s]\nk\nk\nk\n");
    QTest::newRow("line ends alone") << QByteArray(1000, '\r') + QByteArray(1000, '\n');
    QTest::newRow("unfinished escapes in names") << QByteArray("[%]\n%=v\n[%U]\n%U12=v\n[%4]\n%zz=v\n");
    QTest::newRow("backslash at the end of the file") << QByteArray("[s]\nk=v\\");
    addValue("hexadecimal escape without digits", "\\x");
    addValue("hexadecimal escape with too many digits", "\\x123456789abcdef");
    addValue("octal escape with too many digits", "\\7777777777777");
    addValue("unknown escapes", "\\q\\8\\U0001\\%");
    addValue("open quotes", "\"v");
    addValue("commas", QByteArray(100000, ','));
    addValue("quotes", QByteArray(100001, '"'));
    addValue("lone surrogates", "\\xd800\\xdc00\\xdc00\\xd800");
    addValue("at sign", "@");
    addValue("unknown kind of value", "@Nothing(1)");
    addValue("no value", "@Invalid()");
    addValue("byte array without an end", "@ByteArray(abc");
    addValue("rectangle with one number", "@Rect(1)");
    addValue("size with text", "@Size(a b)");
    addValue("point without an end", "@Point(1 ");
    addValue("stream without content", "@Variant()");
    addValue("stream without an end", "@Variant(\\0\\0\\0\\n");
    addValue("date without content", "@DateTime()");
    addValue("list of byte arrays", "@ByteArray(a), @ByteArray(b), @Variant(");
}

void tst_ProfileHostile::garbage()
{
    QFETCH(QByteArray, bytes);
    survives(bytes);
}

void tst_ProfileHostile::streams_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("text of 4 GiB") << variant(10, number(0xFFFFFFFE));
    QTest::newRow("byte array of 2 GiB") << variant(12, number(0x7FFFFFFF));
    QTest::newRow("bits of 512 MiB") << variant(13, number(0xFFFFFFFF));
    QTest::newRow("map of 2 G entries") << variant(8, number(0x7FFFFFFF));
    QTest::newRow("unknown type") << variant(0x7FFFFFFF, number(1));
    QTest::newRow("own type without a name") << variant(127, number(0));
    QTest::newRow("lists in lists") << QByteArray("[s]\nk=@Variant(" + (number(9) + number(1)).repeated(100) + ")\n");
}

void tst_ProfileHostile::streams()
{
    QFETCH(QByteArray, bytes);
    const Silence silence;
    survives(bytes);
}

void tst_ProfileHostile::countsBeyondMemory_data()
{
    QTest::addColumn<quint32>("type");
    QTest::newRow("list") << 9u;
    QTest::newRow("list of texts") << 11u;
}

void tst_ProfileHostile::countsBeyondMemory()
{
    QFETCH(quint32, type);
    const QByteArray bytes = variant(type, number(0x7FFFFFFF));
    const ProfileFile file(bytes);
    readAll(file, 100);
    wchar_t buffer[100] = L"";
    QCOMPARE(GetPrivateProfileString_X(L"s", L"k", L"", buffer, 100, file), 0u);

    QCOMPARE(WritePrivateProfileString_X(L"new", L"k", L"v", file), TRUE);
    const QByteArray written = type == 9 ? "\\t" : "\\v";
    QCOMPARE(file.bytes(), "[new]\nk=v\n\n[s]\nk=@Variant(\\0\\0\\0" + written + "\\x7f\\xff\\xff\\xff)\n");
    QCOMPARE(file.folder(), QStringList("profile.ini"));
}

void tst_ProfileHostile::listsBeyondTheStack()
{
    const QByteArray lists = (number(9) + number(1)).repeated(100000);
    const QByteArray bytes = "[s]\nbefore=1\nk=@Variant(" + lists + ")\nbehind=2\n";
    const ProfileFile file(bytes);
    readAll(file, 100);
    QCOMPARE(GetPrivateProfileInt_X(L"s", L"before", 9, file), 1u);
    QCOMPARE(GetPrivateProfileInt_X(L"s", L"behind", 9, file), 2u);
    QCOMPARE(GetPrivateProfileInt_X(L"s", L"k", 9, file), 9u);
    QCOMPARE(WritePrivateProfileString_X(L"s", L"before", L"v", file), TRUE);
    const QByteArray sameLists = QByteArray("\\0\\0\\0\\t\\0\\0\\0\\x1").repeated(100000);
    QVERIFY(file.bytes() == "[s]\nbefore=v\nbehind=2\nk=@Variant(" + sameLists + ")\n");
}

// Where the line of a harmful value ends, by the rules of QSettings.
void tst_ProfileHostile::harmfulLines_data()
{
    QTest::addColumn<QByteArray>("front");
    QTest::addColumn<QByteArray>("between");
    QTest::newRow("one line") << QByteArray("@Variant(") << QByteArray();
    QTest::newRow("a date") << QByteArray("@DateTime(") << QByteArray();
    QTest::newRow("continued lines") << QByteArray("@Variant(") << QByteArray("\\\n");
    QTest::newRow("continued lines of Windows") << QByteArray("@Variant(") << QByteArray("\\\r\n");
    QTest::newRow("lines in quotation marks") << QByteArray("\"@Variant(") << QByteArray("\n");
    QTest::newRow("behind a comment with a quotation mark") << QByteArray("1\n;\"\nl=@Variant(") << QByteArray();
    QTest::newRow("behind a quotation mark that is escaped") << QByteArray("\\\"\nl=@Variant(") << QByteArray();
}

void tst_ProfileHostile::harmfulLines()
{
    QFETCH(QByteArray, front);
    QFETCH(QByteArray, between);
    const QByteArray lists = ((number(9) + number(1)).repeated(50) + between).repeated(2000);
    const QByteArray end = front.startsWith('"') ? ")\"\n" : ")\n";
    const ProfileFile file("[s]\nbefore=1\nk=" + front + lists + end);
    const Silence silence;
    readAll(file, 100);
    QCOMPARE(GetPrivateProfileInt_X(L"s", L"before", 9, file), 1u);
}

void tst_ProfileHostile::aLineOfAMebibyte()
{
    const std::wstring value(mebibyte, L'v');
    const ProfileFile file("[s]\nk=" + QByteArray(int(mebibyte), 'v') + '\n');
    QVERIFY(textOf(L"s", L"k", file, mebibyte + 1) == value);
    readAll(file, mebibyte + 1);
    QCOMPARE(WritePrivateProfileString_X(L"s", L"l", value.c_str(), file), TRUE);
    QVERIFY(textOf(L"s", L"l", file, mebibyte + 1) == value);

    const std::wstring name(100000, L'n');
    QCOMPARE(WritePrivateProfileString_X(name.c_str(), name.c_str(), L"v", file), TRUE);
    QCOMPARE(textOf(name.c_str(), name.c_str(), file), L"v"s);
}

void tst_ProfileHostile::manyEntries()
{
    constexpr int count = 100000;
    QByteArray bytes("[s]\n");
    std::wstring expected;
    for (int i = count; i < 2 * count; ++i) { // all keys of one length, so already sorted
        bytes += 'k' + QByteArray::number(i) + "=1\n";
        expected += L'k' + std::to_wstring(i) + L"=1\r";
    }
    const ProfileFile file(bytes);
    std::wstring buffer(expected.size(), L'#');
    QCOMPARE(GetPrivateProfileSection_X(L"s", buffer.data(), DWORD(buffer.size()), file), DWORD(expected.size()));
    QVERIFY(buffer == expected);

    const ProfileFile other("");
    QCOMPARE(WritePrivateProfileSection_X(L"s", expected.c_str(), other), TRUE);
    QVERIFY(other.bytes() == bytes);
}

void tst_ProfileHostile::manySections()
{
    constexpr int count = 10000;
    QByteArray bytes;
    std::wstring expected;
    for (int i = count; i < 2 * count; ++i) {
        bytes += '[' + QByteArray::number(i) + "]\nk=1\n";
        expected += std::to_wstring(i) + L'\0';
    }
    const ProfileFile file(bytes);
    std::wstring buffer(expected.size(), L'\0');
    QCOMPARE(GetPrivateProfileSectionNames_X(buffer.data(), DWORD(buffer.size()), file), DWORD(expected.size()));
    QVERIFY(buffer == expected);
}

void tst_ProfileHostile::threads()
{
    constexpr int threads = 4;
    constexpr int rounds = 20;
    const ProfileFile shared("[s]\nk=v\n");
    std::vector<std::unique_ptr<ProfileFile>> own;
    std::vector<int> right(threads);
    std::vector<std::thread> running;
    for (std::size_t i = 0; i < threads; ++i) {
        own.push_back(std::make_unique<ProfileFile>(""));
        running.emplace_back([&shared, &file = *own.back(), &count = right[i]] {
            for (int round = 0; round < rounds; ++round) {
                const std::wstring value = std::to_wstring(round);
                WritePrivateProfileString_X(L"s", value.c_str(), value.c_str(), file);
                count += textOf(L"s", value.c_str(), file) == value && textOf(L"s", L"k", shared) == L"v";
            }
        });
    }
    for (std::thread& thread : running)
        thread.join();
    QCOMPARE(right, std::vector<int>(threads, rounds));
}

XE_GUILESS_TEST(tst_ProfileHostile)
#include "tst_profilehostile.moc"
