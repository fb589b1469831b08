#include "msg/keymap.h"

#include "xeafxmsg.h"

#include <Qt>

#include <algorithm>
#include <map>

namespace {

// Ordered by Qt key: the reverse lookup takes the lowest key with a VK code.
const std::map<int, int> keyMap{
    {Qt::Key_Left, 0x25},
    {Qt::Key_Up, 0x26},
    {Qt::Key_Right, 0x27},
    {Qt::Key_Down, 0x28},
    {Qt::Key_Backspace, 0x08},
    {Qt::Key_Tab, 0x09},
    {Qt::Key_Clear, 0x0C},
    {Qt::Key_Return, 0x0D},
    {Qt::Key_Enter, 0x0D},
    {Qt::Key_Shift, 0x10},
    {Qt::Key_Control, 0x11},
    {Qt::Key_Alt, 0x12},
    {Qt::Key_Pause, 0x13},
    {Qt::Key_CapsLock, 0x14},
    {Qt::Key_Escape, 0x1B},
    {Qt::Key_Space, 0x20},
    {Qt::Key_PageUp, 0x21},
    {Qt::Key_PageDown, 0x22},
    {Qt::Key_End, 0x23},
    {Qt::Key_Home, 0x24},
    {Qt::Key_Select, 0x29},
    {Qt::Key_Print, 0x2A},
    {Qt::Key_Execute, 0x2B},
    {Qt::Key_Printer, 0x2C},
    {Qt::Key_Insert, 0x2D},
    {Qt::Key_Delete, 0x2E},
    {Qt::Key_Help, 0x2F},
    // Digits, each with the character above it on a US keyboard.
    {Qt::Key_0, 0x30},
    {Qt::Key_ParenRight, 0x30},
    {Qt::Key_1, 0x31},
    {Qt::Key_Exclam, 0x31},
    {Qt::Key_2, 0x32},
    {Qt::Key_At, 0x32},
    {Qt::Key_3, 0x33},
    {Qt::Key_NumberSign, 0x33},
    {Qt::Key_4, 0x34},
    {Qt::Key_Dollar, 0x34},
    {Qt::Key_5, 0x35},
    {Qt::Key_Percent, 0x35},
    {Qt::Key_6, 0x36},
    {Qt::Key_AsciiCircum, 0x36},
    {Qt::Key_7, 0x37},
    {Qt::Key_Ampersand, 0x37},
    {Qt::Key_8, 0x38},
    {Qt::Key_Asterisk, 0x38},
    {Qt::Key_9, 0x39},
    {Qt::Key_ParenLeft, 0x39},
    {Qt::Key_A, 0x41},
    {Qt::Key_B, 0x42},
    {Qt::Key_C, 0x43},
    {Qt::Key_D, 0x44},
    {Qt::Key_E, 0x45},
    {Qt::Key_F, 0x46},
    {Qt::Key_G, 0x47},
    {Qt::Key_H, 0x48},
    {Qt::Key_I, 0x49},
    {Qt::Key_J, 0x4A},
    {Qt::Key_K, 0x4B},
    {Qt::Key_L, 0x4C},
    {Qt::Key_M, 0x4D},
    {Qt::Key_N, 0x4E},
    {Qt::Key_O, 0x4F},
    {Qt::Key_P, 0x50},
    {Qt::Key_Q, 0x51},
    {Qt::Key_R, 0x52},
    {Qt::Key_S, 0x53},
    {Qt::Key_T, 0x54},
    {Qt::Key_U, 0x55},
    {Qt::Key_V, 0x56},
    {Qt::Key_W, 0x57},
    {Qt::Key_X, 0x58},
    {Qt::Key_Y, 0x59},
    {Qt::Key_Z, 0x5A},
    {Qt::Key_multiply, 0x6A},
    {Qt::Key_F1, 0x70},
    {Qt::Key_F2, 0x71},
    {Qt::Key_F3, 0x72},
    {Qt::Key_F4, 0x73},
    {Qt::Key_F5, 0x74},
    {Qt::Key_F6, 0x75},
    {Qt::Key_F7, 0x76},
    {Qt::Key_F8, 0x77},
    {Qt::Key_F9, 0x78},
    {Qt::Key_F10, 0x79},
    {Qt::Key_F11, 0x7A},
    {Qt::Key_F12, 0x7B},
    {Qt::Key_F13, 0x7C},
    {Qt::Key_F14, 0x7D},
    {Qt::Key_F15, 0x7E},
    {Qt::Key_F16, 0x7F},
    {Qt::Key_F17, 0x80},
    {Qt::Key_F18, 0x81},
    {Qt::Key_F19, 0x82},
    {Qt::Key_F20, 0x83},
    {Qt::Key_F21, 0x84},
    {Qt::Key_F22, 0x85},
    {Qt::Key_F23, 0x86},
    {Qt::Key_F24, 0x87},
    {Qt::Key_NumLock, 0x90},
    {Qt::Key_ScrollLock, 0x91},
    {Qt::Key_VolumeMute, 0xAD},
    {Qt::Key_VolumeDown, 0xAE},
    {Qt::Key_VolumeUp, 0xAF},
    {Qt::Key_MediaStop, 0xB2},
    {Qt::Key_MediaPlay, 0xB3},
    // Punctuation, both characters of a key.
    {Qt::Key_Semicolon, 0xBA},
    {Qt::Key_Colon, 0xBA},
    {Qt::Key_Equal, 0xBB},
    {Qt::Key_Plus, 0xBB},
    {Qt::Key_Comma, 0xBC},
    {Qt::Key_Less, 0xBC},
    {Qt::Key_Minus, 0xBD},
    {Qt::Key_Underscore, 0xBD},
    {Qt::Key_Period, 0xBE},
    {Qt::Key_Greater, 0xBE},
    {Qt::Key_Slash, 0xBF},
    {Qt::Key_Question, 0xBF},
    {Qt::Key_QuoteLeft, 0xC0},
    {Qt::Key_AsciiTilde, 0xC0},
    {Qt::Key_BracketLeft, 0xDB},
    {Qt::Key_BraceLeft, 0xDB},
    {Qt::Key_Backslash, 0xDC},
    {Qt::Key_Bar, 0xDC},
    {Qt::Key_BracketRight, 0xDD},
    {Qt::Key_BraceRight, 0xDD},
    {Qt::Key_Apostrophe, 0xDE},
    {Qt::Key_QuoteDbl, 0xDE},
};

// As hosts know the keys: Q is the keysym of G, and * is the multiplication sign, not the keypad key.
const std::map<int, std::vector<unsigned long>> g_keyMap{
    {0x08, {0xFF08}},         {0x09, {0xFF09}},         {0x0C, {0xFF0B}},         {0x0D, {0xFF0D}},
    {0x10, {0xFFE1, 0xFFE2}}, {0x11, {0xFFE3, 0xFFE4}}, {0x12, {0xFFE9, 0xFFEA}}, {0x13, {0xFF13}},
    {0x14, {0xFFE5}},         {0x1B, {0xFF1B}},         {0x20, {0x20}},           {0x21, {0xFF55}},
    {0x22, {0xFF56}},         {0x23, {0xFF57}},         {0x24, {0xFF50}},         {0x25, {0xFF51}},
    {0x26, {0xFF52}},         {0x27, {0xFF53}},         {0x28, {0xFF54}},         {0x29, {0xFF60}},
    {0x2A, {0xFF61}},         {0x2B, {0xFF62}},         {0x2D, {0xFF63}},         {0x2E, {0xFFFF}},
    {0x2F, {0xFF6A}},         {0x30, {0x30}},           {0x31, {0x31}},           {0x32, {0x32}},
    {0x33, {0x33}},           {0x34, {0x34}},           {0x35, {0x35}},           {0x36, {0x36}},
    {0x37, {0x37}},           {0x38, {0x38}},           {0x39, {0x39}},           {0x41, {0x41}},
    {0x42, {0x42}},           {0x43, {0x43}},           {0x44, {0x44}},           {0x45, {0x45}},
    {0x46, {0x46}},           {0x47, {0x47}},           {0x48, {0x48}},           {0x49, {0x49}},
    {0x4A, {0x4A}},           {0x4B, {0x4B}},           {0x4C, {0x4C}},           {0x4D, {0x4D}},
    {0x4E, {0x4E}},           {0x4F, {0x4F}},           {0x50, {0x50}},           {0x51, {0x47}},
    {0x52, {0x52}},           {0x53, {0x53}},           {0x54, {0x54}},           {0x55, {0x55}},
    {0x56, {0x56}},           {0x57, {0x57}},           {0x58, {0x58}},           {0x59, {0x59}},
    {0x5A, {0x5A}},           {0x6A, {0xD7}},           {0x70, {0xFFBE}},         {0x71, {0xFFBF}},
    {0x72, {0xFFC0}},         {0x73, {0xFFC1}},         {0x74, {0xFFC2}},         {0x75, {0xFFC3}},
    {0x76, {0xFFC4}},         {0x77, {0xFFC5}},         {0x78, {0xFFC6}},         {0x79, {0xFFC7}},
    {0x7A, {0xFFC8}},         {0x7B, {0xFFC9}},         {0x7C, {0xFFCA}},         {0x7D, {0xFFCB}},
    {0x7E, {0xFFCC}},         {0x7F, {0xFFCD}},         {0x80, {0xFFCE}},         {0x81, {0xFFCF}},
    {0x82, {0xFFD0}},         {0x83, {0xFFD1}},         {0x84, {0xFFD2}},         {0x85, {0xFFD3}},
    {0x86, {0xFFD4}},         {0x87, {0xFFD5}},         {0x90, {0xFF7F}},         {0x91, {0xFF14}},
    {0xBA, {0x3B, 0x3A}},     {0xBB, {0x2B, 0x3D}},     {0xBC, {0x2C, 0x3C}},     {0xBD, {0x2D, 0x5F}},
    {0xBE, {0x2E, 0x3E}},     {0xBF, {0x2F, 0x3F}},     {0xC0, {0x60, 0x7E}},     {0xDB, {0x5B, 0x7B}},
    {0xDC, {0x7C, 0x5C}},     {0xDD, {0x5D, 0x7D}},     {0xDE, {0x27, 0x22}},
};

} // namespace

int qt_key_to_ansi_vk(int key)
{
    const auto found = keyMap.find(key);
    return found == keyMap.end() ? -1 : found->second;
}

int ansi_vk_to_qt_key(int vk)
{
    const auto found = std::find_if(keyMap.begin(), keyMap.end(), [vk](const auto& row) { return row.second == vk; });
    return found == keyMap.end() ? -1 : found->first;
}

const std::vector<unsigned long>* xe::keysymsOf(int vk)
{
    const auto found = g_keyMap.find(vk);
    return found == g_keyMap.end() ? nullptr : &found->second;
}
