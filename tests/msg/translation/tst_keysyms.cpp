// The table of X11 keysyms is private to the library, so its source is part of this program.

#include "testclass.h"

#include "msg/keymap.h"

using Keysyms = std::vector<unsigned long>;
Q_DECLARE_METATYPE(Keysyms)

namespace {

// The rows that follow no rule.
const std::map<int, Keysyms> singleRows{
    {0x08, {0xFF08}},    {0x09, {0xFF09}},         {0x0C, {0xFF0B}},         {0x0D, {0xFF0D}},
    {0x13, {0xFF13}},    {0x14, {0xFFE5}},         {0x1B, {0xFF1B}},         {0x20, {' '}},
    {0x21, {0xFF55}},    {0x22, {0xFF56}},         {0x23, {0xFF57}},         {0x24, {0xFF50}},
    {0x25, {0xFF51}},    {0x26, {0xFF52}},         {0x27, {0xFF53}},         {0x28, {0xFF54}},
    {0x29, {0xFF60}},    {0x2A, {0xFF61}},         {0x2B, {0xFF62}},         {0x2D, {0xFF63}},
    {0x2E, {0xFFFF}},    {0x2F, {0xFF6A}},         {0x6A, {0xD7}},           {0x90, {0xFF7F}},
    {0x91, {0xFF14}},    {0x10, {0xFFE1, 0xFFE2}}, {0x11, {0xFFE3, 0xFFE4}}, {0x12, {0xFFE9, 0xFFEA}},
    {0xBA, {';', ':'}},  {0xBB, {'+', '='}},       {0xBC, {',', '<'}},       {0xBD, {'-', '_'}},
    {0xBE, {'.', '>'}},  {0xBF, {'/', '?'}},       {0xC0, {'`', '~'}},       {0xDB, {'[', '{'}},
    {0xDC, {'|', '\\'}}, {0xDD, {']', '}'}},       {0xDE, {'\'', '"'}},
};

Keysyms expectedKeysyms(int vk)
{
    if (vk == 'Q')
        return {'G'}; // hosts live with it: the Q key has no code
    if ((vk >= '0' && vk <= '9') || (vk >= 'A' && vk <= 'Z'))
        return {static_cast<unsigned long>(vk)};
    if (vk >= 0x70 && vk <= 0x87)
        return {0xFFBEul + static_cast<unsigned long>(vk - 0x70)};
    const auto found = singleRows.find(vk);
    return found == singleRows.end() ? Keysyms() : found->second;
}

} // namespace

class tst_Keysyms : public QObject
{
    Q_OBJECT

private slots:
    void keysymsOfACode_data();
    void keysymsOfACode();
    void theTableHas99Codes();
};

void tst_Keysyms::keysymsOfACode_data()
{
    QTest::addColumn<int>("vk");
    QTest::addColumn<Keysyms>("keysyms");
    for (int vk = -1; vk <= 0x100; ++vk)
        QTest::addRow("%d", vk) << vk << expectedKeysyms(vk);
}

void tst_Keysyms::keysymsOfACode()
{
    QFETCH(int, vk);
    QFETCH(Keysyms, keysyms);

    const Keysyms* const found = xe::keysymsOf(vk);
    QCOMPARE(found != nullptr, !keysyms.empty());
    if (found)
        QCOMPARE(*found, keysyms);
}

void tst_Keysyms::theTableHas99Codes()
{
    int count = 0;
    for (int vk = -0x1000; vk < 0x20000; ++vk)
        count += xe::keysymsOf(vk) != nullptr;
    QCOMPARE(count, 99);
}

XE_APPLESS_TEST(tst_Keysyms)
#include "tst_keysyms.moc"
