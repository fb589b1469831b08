#include "testclass.h"
#include "virtualinput.h"

#include <xeafxmsg.h>
#include <xehook.h>

#include <climits>
#include <map>
#include <vector>

namespace {

constexpr int isDown = 0x8000;

/// The X keysyms that count as the key of a VK code.
using KeyTable = std::map<int, std::vector<unsigned long>>;

KeyTable namedKeys()
{
    return {{VK_BACK, {0xFF08}},
            {VK_TAB, {0xFF09}},
            {VK_CLEAR, {0xFF0B}},
            {VK_RETURN, {0xFF0D}},
            {VK_SHIFT, {0xFFE1, 0xFFE2}},
            {VK_CONTROL, {0xFFE3, 0xFFE4}},
            {VK_MENU, {0xFFE9, 0xFFEA}},
            {VK_PAUSE, {0xFF13}},
            {VK_CAPITAL, {0xFFE5}},
            {VK_ESCAPE, {0xFF1B}},
            {VK_SPACE, {0x20}},
            {VK_PRIOR, {0xFF55}},
            {VK_NEXT, {0xFF56}},
            {VK_END, {0xFF57}},
            {VK_HOME, {0xFF50}},
            {VK_LEFT, {0xFF51}},
            {VK_UP, {0xFF52}},
            {VK_RIGHT, {0xFF53}},
            {VK_DOWN, {0xFF54}},
            {VK_SELECT, {0xFF60}},
            {VK_PRINT, {0xFF61}},
            {VK_EXECUTE, {0xFF62}},
            {VK_INSERT, {0xFF63}},
            {VK_DELETE, {0xFFFF}},
            {VK_HELP, {0xFF6A}},
            {VK_MULTIPLY, {0xD7}},
            {VK_NUMLOCK, {0xFF7F}},
            {VK_SCROLL, {0xFF14}}};
}

KeyTable punctuation()
{
    return {{VK_OEM_1, {';', ':'}},     {VK_OEM_PLUS, {'+', '='}},   {VK_OEM_COMMA, {',', '<'}},
            {VK_OEM_MINUS, {'-', '_'}}, {VK_OEM_PERIOD, {'.', '>'}}, {VK_OEM_2, {'/', '?'}},
            {VK_OEM_3, {'`', '~'}},     {VK_OEM_4, {'[', '{'}},      {VK_OEM_5, {'|', '\\'}},
            {VK_OEM_6, {']', '}'}},     {VK_OEM_7, {'\'', '"'}}};
}

KeyTable allKeys()
{
    KeyTable keys = namedKeys();
    keys.merge(punctuation());
    for (int digit = '0'; digit <= '9'; ++digit)
        keys[digit] = {static_cast<unsigned long>(digit)};
    for (int letter = 'A'; letter <= 'Z'; ++letter)
        keys[letter] = {static_cast<unsigned long>(letter == 'Q' ? 'G' : letter)};
    for (int n = 0; n < 24; ++n)
        keys[VK_F1 + n] = {0xFFBEul + n};
    return keys;
}

bool isModifier(int vk) { return vk == VK_SHIFT || vk == VK_CONTROL || vk == VK_MENU; }

QString hex(unsigned long number) { return QStringLiteral("0x%1").arg(number, 0, 16); }

/// The codes from 0 to 255 that are said to be down, as one line.
QString codesDown()
{
    QStringList codes;
    for (int vk = 0; vk < 256; ++vk) {
        const int state = GetKeyState_X(vk);
        if (state)
            codes += state == isDown ? hex(vk) : hex(vk) + QStringLiteral(" has the state ") + hex(state);
    }
    return codes.join(' ');
}

/// Names another X server, or none, for a while.
class OtherDisplay
{
public:
    explicit OtherDisplay(const QByteArray& name) : m_before(qgetenv("DISPLAY"))
    {
        if (name.isNull())
            qunsetenv("DISPLAY");
        else
            qputenv("DISPLAY", name);
    }
    ~OtherDisplay() { qputenv("DISPLAY", m_before); }
    Q_DISABLE_COPY_MOVE(OtherDisplay)

private:
    QByteArray m_before;
};

} // namespace

/// State of keys and buttons, held down at the X server itself.
class tst_KeyState : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void nothingIsDownAtFirst();
    void keys_data();
    void keys();
    void allKeysAtOnce();
    void bothKeysOfAModifier_data();
    void bothKeysOfAModifier();
    void theLetterQ();
    void codesWithoutAKey_data();
    void codesWithoutAKey();
    void aLockThatIsOnIsNotReported();
    void buttons_data();
    void buttons();
    void bothButtonsAtOnce();
    void withoutAServerNothingIsDown_data();
    void withoutAServerNothingIsDown();
    void shiftedCharactersOnAKeyOfTheirOwn_data();
    void shiftedCharactersOnAKeyOfTheirOwn();

private:
    VirtualInput m_input;
};

void tst_KeyState::initTestCase()
{
    QVERIFY(m_input.isUsable());
    const KeyTable keys = allKeys();
    QCOMPARE(keys.size(), size_t(99));
    for (const auto& key : keys) {
        for (const unsigned long keysym : key.second)
            QVERIFY2(m_input.provideKey(keysym), qPrintable(hex(keysym)));
    }
}

void tst_KeyState::cleanup() { m_input.releaseAll(); }

void tst_KeyState::nothingIsDownAtFirst() { QCOMPARE(codesDown(), QString()); }

void tst_KeyState::keys_data()
{
    QTest::addColumn<int>("vk");
    QTest::addColumn<qulonglong>("keysym");
    const KeyTable keys = allKeys();
    for (const auto& key : keys) {
        for (const unsigned long keysym : key.second)
            QTest::addRow("code 0x%02X is the key 0x%04lX", key.first, keysym) << key.first << qulonglong(keysym);
    }
}

void tst_KeyState::keys()
{
    QFETCH(int, vk);
    QFETCH(qulonglong, keysym);
    m_input.pressKey(keysym);
    QCOMPARE(GetKeyState_X(vk), isDown);
    QCOMPARE(GetKeyStateByX11(vk), isDown);
    m_input.releaseKey(keysym);
    QCOMPARE(GetKeyState_X(vk), 0);
    QCOMPARE(GetKeyStateByX11(vk), 0);
}

void tst_KeyState::allKeysAtOnce()
{
    QStringList expected;
    const KeyTable keys = allKeys();
    for (const auto& key : keys) {
        if (isModifier(key.first))
            continue;
        m_input.pressKey(key.second.front());
        expected += hex(key.first);
    }
    QCOMPARE(codesDown(), expected.join(' '));
    m_input.releaseAll();
    QCOMPARE(codesDown(), QString());
}

void tst_KeyState::bothKeysOfAModifier_data()
{
    QTest::addColumn<int>("vk");
    QTest::addColumn<qulonglong>("left");
    QTest::addColumn<qulonglong>("right");
    QTest::newRow("Shift") << VK_SHIFT << 0xFFE1ull << 0xFFE2ull;
    QTest::newRow("Control") << VK_CONTROL << 0xFFE3ull << 0xFFE4ull;
    QTest::newRow("Alt") << VK_MENU << 0xFFE9ull << 0xFFEAull;
}

void tst_KeyState::bothKeysOfAModifier()
{
    QFETCH(int, vk);
    QFETCH(qulonglong, left);
    QFETCH(qulonglong, right);
    m_input.pressKey(left);
    QCOMPARE(codesDown(), hex(vk));
    m_input.pressKey(right);
    QCOMPARE(codesDown(), hex(vk));
    m_input.releaseKey(left);
    QCOMPARE(codesDown(), hex(vk));
    m_input.releaseKey(right);
    QCOMPARE(codesDown(), QString());
}

void tst_KeyState::theLetterQ()
{
    m_input.pressKey('Q');
    QCOMPARE(codesDown(), QString());
    m_input.releaseKey('Q');
    m_input.pressKey('G');
    QCOMPARE(codesDown(), QString("0x47 0x51"));
}

void tst_KeyState::codesWithoutAKey_data()
{
    QTest::addColumn<qulonglong>("keysym");
    QTest::addColumn<int>("vk");
    QTest::newRow("0x2C is not the Print key") << 0xFF61ull << 0x2C;
    QTest::newRow("0x5B is not the left Super key") << 0xFFEBull << 0x5B;
    QTest::newRow("0x5C is not the right Super key") << 0xFFECull << 0x5C;
    QTest::newRow("0x5D is not the Menu key") << 0xFF67ull << 0x5D;
    QTest::newRow("0x60 is not the keypad's 0") << 0xFFB0ull << 0x60;
    QTest::newRow("0x69 is not the keypad's 9") << 0xFFB9ull << 0x69;
    QTest::newRow("0x6A is not the keypad's asterisk") << 0xFFAAull << 0x6A;
    QTest::newRow("0x6B is not the keypad's plus") << 0xFFABull << 0x6B;
    QTest::newRow("0x0D is not the keypad's Enter") << 0xFF8Dull << 0x0D;
    QTest::newRow("0x88 is not F25") << 0xFFD6ull << 0x88;
    QTest::newRow("0xA0 is not the left Shift key") << 0xFFE1ull << 0xA0;
    QTest::newRow("0xA3 is not the right Control key") << 0xFFE4ull << 0xA3;
    QTest::newRow("0 is no key") << qulonglong('A') << 0;
    QTest::newRow("3 is no key") << qulonglong('A') << 3;
    QTest::newRow("a small letter is no code") << qulonglong('A') << int('a');
    QTest::newRow("-1 is no code") << qulonglong('A') << -1;
    QTest::newRow("256 above a code is no code") << qulonglong('A') << 256 + 'A';
    QTest::newRow("the smallest number is no code") << qulonglong('A') << INT_MIN;
    QTest::newRow("the largest number is no code") << qulonglong('A') << INT_MAX;
}

void tst_KeyState::codesWithoutAKey()
{
    QFETCH(qulonglong, keysym);
    QFETCH(int, vk);
    QVERIFY(m_input.provideKey(keysym));
    m_input.pressKey(keysym);
    QCOMPARE(GetKeyState_X(vk), 0);
    QCOMPARE(GetKeyStateByX11(vk), 0);
}

void tst_KeyState::aLockThatIsOnIsNotReported()
{
    const unsigned long capsLock = 0xFFE5;
    m_input.typeKey(capsLock);
    QCOMPARE(codesDown(), QString());
    m_input.pressKey('A');
    QCOMPARE(codesDown(), QString("0x41"));
    m_input.releaseKey('A');
    m_input.typeKey(capsLock);
}

void tst_KeyState::buttons_data()
{
    QTest::addColumn<uint>("button"); // as the X server counts
    QTest::addColumn<QString>("codes");
    QTest::addColumn<QString>("buttons");
    QTest::newRow("the left button") << 1u << "0x1"
                                     << "1";
    QTest::newRow("the middle button has no state") << 2u << ""
                                                    << "";
    QTest::newRow("the right button") << 3u << "0x2"
                                      << "2";
}

void tst_KeyState::buttons()
{
    QFETCH(uint, button);
    m_input.pressButton(button);
    QTEST(codesDown(), "codes");
    QStringList buttons;
    for (int i = -1; i <= 8; ++i) {
        if (GetMouseStateByX11(i) == isDown)
            buttons += QString::number(i);
        else
            QCOMPARE(GetMouseStateByX11(i), 0);
    }
    QTEST(buttons.join(' '), "buttons");
    QCOMPARE(GetKeyStateByX11(VK_LBUTTON), 0);
    QCOMPARE(GetKeyStateByX11(VK_RBUTTON), 0);
    QCOMPARE(GetKeyState_X(VK_MBUTTON), 0);
    QCOMPARE(GetMouseStateByX11(INT_MIN), 0);
    QCOMPARE(GetMouseStateByX11(INT_MAX), 0);

    m_input.releaseButton(button);
    QCOMPARE(codesDown(), QString());
    QCOMPARE(GetMouseStateByX11(1), 0);
    QCOMPARE(GetMouseStateByX11(2), 0);
}

void tst_KeyState::bothButtonsAtOnce()
{
    m_input.pressButton(1);
    m_input.pressButton(3);
    QCOMPARE(codesDown(), QString("0x1 0x2"));
    m_input.releaseButton(1);
    QCOMPARE(codesDown(), QString("0x2"));
}

void tst_KeyState::withoutAServerNothingIsDown_data()
{
    QTest::addColumn<QByteArray>("display");
    QTest::newRow("no display is named") << QByteArray();
    QTest::newRow("the name is empty") << QByteArray("");
    QTest::newRow("nobody answers under the name") << QByteArray(":4711");
    QTest::newRow("the name makes no sense") << QByteArray("no display");
}

void tst_KeyState::withoutAServerNothingIsDown()
{
    QFETCH(QByteArray, display);
    m_input.pressKey('A');
    m_input.pressButton(1);
    m_input.pressButton(3);
    {
        const OtherDisplay other(display);
        QCOMPARE(codesDown(), QString());
        QCOMPARE(GetMouseStateByX11(1), 0);
        QCOMPARE(GetMouseStateByX11(2), 0);
    }
    QCOMPARE(GetKeyState_X('A'), isDown);
    QCOMPARE(GetMouseStateByX11(1), isDown);
}

void tst_KeyState::shiftedCharactersOnAKeyOfTheirOwn_data()
{
    QTest::addColumn<int>("vk");
    QTest::addColumn<qulonglong>("keysym");
    const std::map<int, char> shifted{{VK_OEM_1, ':'},     {VK_OEM_PLUS, '+'},   {VK_OEM_COMMA, '<'},
                                      {VK_OEM_MINUS, '_'}, {VK_OEM_PERIOD, '>'}, {VK_OEM_2, '?'},
                                      {VK_OEM_3, '~'},     {VK_OEM_4, '{'},      {VK_OEM_5, '|'},
                                      {VK_OEM_6, '}'},     {VK_OEM_7, '"'}};
    for (const auto& key : shifted)
        QTest::addRow("code 0x%02X is the character %c", key.first, key.second) << key.first << qulonglong(key.second);
}

// On a US keyboard the two characters of such a code share a key. The last test, as it changes the keyboard.
void tst_KeyState::shiftedCharactersOnAKeyOfTheirOwn()
{
    QFETCH(int, vk);
    QFETCH(qulonglong, keysym);
    QVERIFY(m_input.lendKey(keysym));
    m_input.pressKey(keysym);
    QCOMPARE(codesDown(), hex(vk));
}

XE_GUILESS_TEST(tst_KeyState)
#include "tst_keystate.moc"
