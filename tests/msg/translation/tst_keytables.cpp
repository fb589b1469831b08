#include "leavenothing.h"
#include "testclass.h"

#include <xeafxmsg.h>

namespace {

struct KeyRow
{
    int key;
    int vk;
};

// Several Qt keys on one VK code each: both characters of each key on a US keyboard.
struct CharacterRow
{
    int vk;
    const char* characters;
};

constexpr CharacterRow characterKeys[] = {
    {0x20, " "},   {0x30, "0)"}, {0x31, "1!"}, {0x32, "2@"}, {0x33, "3#"}, {0x34, "4$"},  {0x35, "5%"},
    {0x36, "6^"},  {0x37, "7&"}, {0x38, "8*"}, {0x39, "9("}, {0xBA, ";:"}, {0xBB, "=+"},  {0xBC, ",<"},
    {0xBD, "-_"},  {0xBE, ".>"}, {0xBF, "/?"}, {0xC0, "`~"}, {0xDB, "[{"}, {0xDC, "\\|"}, {0xDD, "]}"},
    {0xDE, "'\""}, {0x41, "A"},  {0x42, "B"},  {0x43, "C"},  {0x44, "D"},  {0x45, "E"},   {0x46, "F"},
    {0x47, "G"},   {0x48, "H"},  {0x49, "I"},  {0x4A, "J"},  {0x4B, "K"},  {0x4C, "L"},   {0x4D, "M"},
    {0x4E, "N"},   {0x4F, "O"},  {0x50, "P"},  {0x51, "Q"},  {0x52, "R"},  {0x53, "S"},   {0x54, "T"},
    {0x55, "U"},   {0x56, "V"},  {0x57, "W"},  {0x58, "X"},  {0x59, "Y"},  {0x5A, "Z"},   {0x6A, "\xD7"},
};

// Keys without a character, by their Qt codes.
constexpr KeyRow namedKeys[] = {
    {0x01000012, 0x25}, // Left
    {0x01000013, 0x26}, // Up
    {0x01000014, 0x27}, // Right
    {0x01000015, 0x28}, // Down
    {0x01000003, 0x08}, // Backspace
    {0x01000001, 0x09}, // Tab
    {0x0100000b, 0x0C}, // Clear
    {0x01000004, 0x0D}, // Return
    {0x01000005, 0x0D}, // Enter
    {0x01000020, 0x10}, // Shift
    {0x01000021, 0x11}, // Control
    {0x01000023, 0x12}, // Alt
    {0x01000008, 0x13}, // Pause
    {0x01000024, 0x14}, // CapsLock
    {0x01000000, 0x1B}, // Escape
    {0x01000016, 0x21}, // PageUp
    {0x01000017, 0x22}, // PageDown
    {0x01000011, 0x23}, // End
    {0x01000010, 0x24}, // Home
    {0x01010000, 0x29}, // Select
    {0x01000009, 0x2A}, // Print
    {0x01020003, 0x2B}, // Execute
    {0x01020002, 0x2C}, // Printer
    {0x01000006, 0x2D}, // Insert
    {0x01000007, 0x2E}, // Delete
    {0x01000058, 0x2F}, // Help
    {0x01000025, 0x90}, // NumLock
    {0x01000026, 0x91}, // ScrollLock
    {0x01000071, 0xAD}, // VolumeMute
    {0x01000070, 0xAE}, // VolumeDown
    {0x01000072, 0xAF}, // VolumeUp
    {0x01000081, 0xB2}, // MediaStop
    {0x01000080, 0xB3}, // MediaPlay
};

constexpr int firstFunctionKey = 0x01000030;
constexpr int functionKeys = 24;

QVector<KeyRow> allKeys()
{
    QVector<KeyRow> rows;
    for (const CharacterRow& row : characterKeys) {
        for (const char* c = row.characters; *c; ++c)
            rows.append({static_cast<unsigned char>(*c), row.vk});
    }
    for (const KeyRow& row : namedKeys)
        rows.append(row);
    for (int i = 0; i < functionKeys; ++i)
        rows.append({firstFunctionKey + i, 0x70 + i});
    return rows;
}

QByteArray nameOf(int key)
{
    const char* const name = QMetaEnum::fromType<Qt::Key>().valueToKey(key);
    return name ? QByteArray(name) : QByteArray("key ") + QByteArray::number(key, 16);
}

// The VK code of a key by the rows above, -1 for a key without one.
int expectedVk(int key)
{
    static const QMap<int, int> table = [] {
        QMap<int, int> map;
        for (const KeyRow& row : allKeys())
            map[row.key] = row.vk;
        return map;
    }();
    return table.value(key, -1);
}

// The lowest of the keys with this VK code, -1 if there is none.
int lowestKey(int vk)
{
    int lowest = -1;
    for (const KeyRow& row : allKeys()) {
        if (row.vk == vk && (lowest == -1 || row.key < lowest))
            lowest = row.key;
    }
    return lowest;
}

} // namespace

class tst_KeyTables : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void theTableHas127Keys();
    void keyToVk_data();
    void keyToVk();
    void noOtherKeyHasAVk();
    void vkToKey_data();
    void vkToKey();
    void everyVkGivesItsLowestKey();
    void thereAndBack();

    void modifierFlags_data();
    void modifierFlags();
    void buttonFlags_data();
    void buttonFlags();
    void noFlagsComeBack();
};

void tst_KeyTables::theTableHas127Keys()
{
    QSet<int> keys;
    for (const KeyRow& row : allKeys())
        keys.insert(row.key);
    QCOMPARE(keys.size(), 127);
}

void tst_KeyTables::keyToVk_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("vk");

    for (const KeyRow& row : allKeys())
        QTest::newRow(nameOf(row.key)) << row.key << row.vk;
    QTest::newRow("a small letter is no key") << int('a') << -1;
    QTest::newRow("the Windows key has none") << int(Qt::Key_Meta) << -1;
    QTest::newRow("the menu key has none") << int(Qt::Key_Menu) << -1;
    QTest::newRow("the backward tab has none") << int(Qt::Key_Backtab) << -1;
    QTest::newRow("the function key after the last") << int(Qt::Key_F25) << -1;
    QTest::newRow("a dead key") << int(Qt::Key_Dead_Grave) << -1;
    QTest::newRow("no key") << 0 << -1;
    QTest::newRow("the unknown key") << int(Qt::Key_unknown) << -1;
    QTest::newRow("-1") << -1 << -1;
}

void tst_KeyTables::keyToVk()
{
    QFETCH(int, key);
    QFETCH(int, vk);
    QCOMPARE(qt_key_to_ansi_vk(key), vk);
}

void tst_KeyTables::noOtherKeyHasAVk()
{
    int known = 0;
    const auto checkRange = [&known](int from, int to) {
        for (int key = from; key < to; ++key) {
            const int vk = qt_key_to_ansi_vk(key);
            if (vk != expectedVk(key))
                QFAIL(qPrintable(QStringLiteral("key %1 has the VK code %2").arg(key, 0, 16).arg(vk)));
            known += vk != -1;
        }
    };
    checkRange(-0x100, 0x20000);
    checkRange(0x01000000, 0x01030000);
    QCOMPARE(known, 127);
}

void tst_KeyTables::vkToKey_data()
{
    QTest::addColumn<int>("vk");
    QTest::addColumn<int>("key");

    const auto row = [](int vk, int key) {
        QTest::addRow("%02X gives %s", unsigned(vk), nameOf(key).constData()) << vk << key;
    };
    row(0x30, ')');
    row(0x31, '!');
    row(0x32, '2');
    row(0x33, '#');
    row(0x34, '$');
    row(0x35, '%');
    row(0x36, '6');
    row(0x37, '&');
    row(0x38, '*');
    row(0x39, '(');
    row(0x0D, Qt::Key_Return);
    row(0xBA, ':');
    row(0xBB, '+');
    row(0xBC, ',');
    row(0xBD, '-');
    row(0xBE, '.');
    row(0xBF, '/');
    row(0xC0, '`');
    row(0xDB, '[');
    row(0xDC, '\\');
    row(0xDD, ']');
    row(0xDE, '"');
    row(0x41, Qt::Key_A);
    row(0x6A, 0xD7);
    row(0x2C, Qt::Key_Printer);
    row(0x87, Qt::Key_F24);
    QTest::newRow("a code without a key") << 0x07 << -1;
    QTest::newRow("the left mouse button") << 0x01 << -1;
    QTest::newRow("0") << 0 << -1;
    QTest::newRow("-1") << -1 << -1;
    QTest::newRow("a key code is no VK code") << int(Qt::Key_Return) << -1;
}

void tst_KeyTables::vkToKey()
{
    QFETCH(int, vk);
    QFETCH(int, key);
    QCOMPARE(ansi_vk_to_qt_key(vk), key);
}

void tst_KeyTables::everyVkGivesItsLowestKey()
{
    QMap<int, int> expected;
    QMap<int, int> actual;
    for (int vk = -2; vk < 0x400; ++vk) {
        expected[vk] = lowestKey(vk);
        actual[vk] = ansi_vk_to_qt_key(vk);
    }
    QCOMPARE(actual, expected);
}

void tst_KeyTables::thereAndBack()
{
    for (const KeyRow& row : allKeys())
        QCOMPARE(qt_key_to_ansi_vk(ansi_vk_to_qt_key(row.vk)), row.vk);
}

void tst_KeyTables::modifierFlags_data()
{
    QTest::addColumn<unsigned>("modifiers");
    QTest::addColumn<int>("flags");

    QTest::newRow("none") << 0u << 0;
    QTest::newRow("Shift") << unsigned(Qt::ShiftModifier) << 4;
    QTest::newRow("Control") << unsigned(Qt::ControlModifier) << 8;
    QTest::newRow("Alt") << unsigned(Qt::AltModifier) << 32;
    QTest::newRow("all three") << unsigned(Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier) << 44;
    QTest::newRow("Meta is dropped") << unsigned(Qt::MetaModifier) << 0;
    QTest::newRow("the keypad is dropped") << unsigned(Qt::KeypadModifier | Qt::ShiftModifier) << 4;
    QTest::newRow("group switch is dropped") << unsigned(Qt::GroupSwitchModifier) << 0;
    QTest::newRow("all bits") << ~0u << 44;
    QTest::newRow("bits that are no modifier") << 0x1FFu << 0;
}

void tst_KeyTables::modifierFlags()
{
    QFETCH(unsigned, modifiers);
    QFETCH(int, flags);
    QCOMPARE(qt_kb_flag_2_flag(modifiers), flags);
}

void tst_KeyTables::buttonFlags_data()
{
    QTest::addColumn<unsigned>("buttons");
    QTest::addColumn<int>("flags");

    QTest::newRow("none") << 0u << 0;
    QTest::newRow("left") << unsigned(Qt::LeftButton) << 1;
    QTest::newRow("right") << unsigned(Qt::RightButton) << 2;
    QTest::newRow("middle") << unsigned(Qt::MiddleButton) << 16;
    QTest::newRow("all three") << unsigned(Qt::LeftButton | Qt::RightButton | Qt::MiddleButton) << 19;
    QTest::newRow("first extra button is dropped") << unsigned(Qt::XButton1) << 0;
    QTest::newRow("second extra button is dropped") << unsigned(Qt::XButton2 | Qt::LeftButton) << 1;
    QTest::newRow("all bits") << ~0u << 19;
}

void tst_KeyTables::buttonFlags()
{
    QFETCH(unsigned, buttons);
    QFETCH(int, flags);
    QCOMPARE(qt_mouse_flag_2_flag(buttons), flags);
}

void tst_KeyTables::noFlagsComeBack()
{
    for (const unsigned flags : {0u, 1u, 2u, 4u, 8u, 16u, 32u, 63u, ~0u}) {
        QCOMPARE(mfc_flag_2_qt_kb_flag(flags), 0);
        QCOMPARE(mfc_flag_2_qt_mouse_flag(flags), 0);
    }
}

XE_TEST(tst_KeyTables)
#include "tst_keytables.moc"
