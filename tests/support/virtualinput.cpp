#include "virtualinput.h"

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

#include <algorithm>

namespace {

Display* toDisplay(void* display) { return static_cast<Display*>(display); }

} // namespace

VirtualInput::VirtualInput() : m_display(XOpenDisplay(nullptr))
{
    int unused = 0;
    if (m_display && !XTestQueryExtension(toDisplay(m_display), &unused, &unused, &unused, &unused)) {
        XCloseDisplay(toDisplay(m_display));
        m_display = nullptr;
    }
    if (!m_display)
        return;
    XAutoRepeatOff(toDisplay(m_display));
    m_lentCode = freeCode();
}

VirtualInput::~VirtualInput()
{
    if (!m_display)
        return;
    releaseAll();
    XAutoRepeatOn(toDisplay(m_display));
    XCloseDisplay(toDisplay(m_display));
}

void VirtualInput::typeKey(unsigned long keysym)
{
    pressKey(keysym);
    releaseKey(keysym);
}

bool VirtualInput::provideKey(unsigned long keysym)
{
    return XKeysymToKeycode(toDisplay(m_display), keysym) || mapCode(freeCode(), keysym);
}

bool VirtualInput::lendKey(unsigned long keysym) { return mapCode(m_lentCode, keysym); }

bool VirtualInput::mapCode(unsigned code, unsigned long keysym)
{
    if (!code)
        return false;
    Display* const display = toDisplay(m_display);
    KeySym symbol = keysym;
    XChangeKeyboardMapping(display, static_cast<int>(code), 1, &symbol, 1);
    XSync(display, False);
    // Xlib learns of the change by this event alone.
    for (XEvent event; XCheckTypedEvent(display, MappingNotify, &event);)
        XRefreshKeyboardMapping(&event.xmapping);
    return XKeysymToKeycode(display, keysym) == code;
}

unsigned VirtualInput::freeCode() const
{
    Display* const display = toDisplay(m_display);
    int first = 0;
    int last = 0;
    XDisplayKeycodes(display, &first, &last);
    int width = 0;
    KeySym* const symbols = XGetKeyboardMapping(display, static_cast<KeyCode>(first), last - first + 1, &width);
    const auto isFree = [&](int code) {
        if (code == static_cast<int>(m_lentCode))
            return false;
        const KeySym* const row = symbols + (code - first) * width;
        return std::all_of(row, row + width, [](KeySym symbol) { return symbol == NoSymbol; });
    };
    int code = first;
    while (code <= last && !isFree(code))
        ++code;
    XFree(symbols);
    return code > last ? 0 : static_cast<unsigned>(code);
}

void VirtualInput::clickButton(unsigned button)
{
    pressButton(button);
    releaseButton(button);
}

void VirtualInput::movePointer(QPoint position)
{
    Display* const display = toDisplay(m_display);
    XTestFakeMotionEvent(display, -1, position.x(), position.y(), CurrentTime);
    XSync(display, False);
}

QPoint VirtualInput::windowOrigin(WId window) const
{
    Display* const display = toDisplay(m_display);
    int x = 0;
    int y = 0;
    Window child = 0;
    XTranslateCoordinates(display, window, DefaultRootWindow(display), 0, 0, &x, &y, &child);
    return {x, y};
}

void VirtualInput::releaseAll()
{
    const QSet<unsigned> codes = m_codesDown;
    for (const unsigned code : codes)
        setCode(code, false);
    const QSet<unsigned> buttons = m_buttonsDown;
    for (const unsigned button : buttons)
        setButton(button, false);
}

void VirtualInput::setKey(unsigned long keysym, bool down)
{
    setCode(XKeysymToKeycode(toDisplay(m_display), keysym), down);
}

void VirtualInput::setCode(unsigned code, bool down)
{
    if (!code)
        return;
    Display* const display = toDisplay(m_display);
    XTestFakeKeyEvent(display, code, down, CurrentTime);
    XSync(display, False);
    if (down)
        m_codesDown.insert(code);
    else
        m_codesDown.remove(code);
}

void VirtualInput::setButton(unsigned button, bool down)
{
    Display* const display = toDisplay(m_display);
    XTestFakeButtonEvent(display, button, down, CurrentTime);
    XSync(display, False);
    if (down)
        m_buttonsDown.insert(button);
    else
        m_buttonsDown.remove(button);
}
