#include "xehook.h"

#include "msg/keymap.h"
#include "xeafxmsg.h"

#include <QChar>
#include <QKeyEvent>

#include <X11/Xlib.h>

#include <algorithm>
#include <memory>

namespace {

constexpr int down = 0x8000;

struct DisplayCloser
{
    void operator()(Display* display) const { XCloseDisplay(display); }
};
using DisplayPointer = std::unique_ptr<Display, DisplayCloser>;

DisplayPointer openDisplay() { return DisplayPointer(XOpenDisplay(nullptr)); }

unsigned buttonMask(int button) { return button == 1 ? Button1Mask : button == 2 ? Button3Mask : 0; }

} // namespace

int GetMouseStateByX11(int button)
{
    const DisplayPointer display = openDisplay();
    if (!display)
        return 0;
    Window root = 0;
    Window child = 0;
    int rootX = 0;
    int rootY = 0;
    int x = 0;
    int y = 0;
    unsigned mask = 0;
    XQueryPointer(display.get(), DefaultRootWindow(display.get()), &root, &child, &rootX, &rootY, &x, &y, &mask);
    return mask & buttonMask(button) ? down : 0;
}

int GetKeyStateByX11(int vk)
{
    const std::vector<unsigned long>* const keysyms = xe::keysymsOf(vk);
    const DisplayPointer display = keysyms ? openDisplay() : nullptr;
    if (!display)
        return 0;
    char keys[32] = {};
    XQueryKeymap(display.get(), keys);
    const auto isDown = [&](unsigned long keysym) {
        const KeyCode code = XKeysymToKeycode(display.get(), keysym);
        return (keys[code >> 3] >> (code & 7)) & 1;
    };
    return std::any_of(keysyms->begin(), keysyms->end(), isDown) ? down : 0;
}

int GetKeyState_X(int vk)
{
    return vk == VK_LBUTTON || vk == VK_RBUTTON ? GetMouseStateByX11(vk) : GetKeyStateByX11(vk);
}

unsigned VkKeyScan_X(wchar_t character) { return QChar(static_cast<ushort>(character)).toUpper().unicode(); }

bool IsRepeatFilterKeyEvent(QKeyEvent* event)
{
    struct Remembered
    {
        int type = 0;
        int key = Qt::Key_unknown;
        Qt::KeyboardModifiers modifiers = Qt::NoModifier;

        bool operator==(const Remembered& other) const
        {
            return type == other.type && key == other.key && modifiers == other.modifiers;
        }
    };
    static Remembered last;
    if (!event)
        return true;
    const Remembered now{event->type(), event->key(), event->modifiers()};
    if (now == last)
        return true;
    last = now;
    return false;
}
