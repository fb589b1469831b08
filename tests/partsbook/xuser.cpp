#include "xuser.h"

#include <X11/Xlib.h>

namespace {

// A window may go while it is being asked about.
int ignoreError(Display*, XErrorEvent*) { return 0; }

Display* toDisplay(void* display) { return static_cast<Display*>(display); }

Atom atom(Display* display, const char* name) { return XInternAtom(display, name, False); }

} // namespace

XUser::XUser() { XSetErrorHandler(ignoreError); }

std::vector<unsigned long> XUser::property(WId window, const char* name) const
{
    Display* const display = toDisplay(m_display);
    Atom type = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long bytesLeft = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(display, window, atom(display, name), 0, 1024, False, AnyPropertyType, &type, &format, &count,
                       &bytesLeft, &data);
    std::vector<unsigned long> values;
    if (data && format == 32) {
        const auto* const first = reinterpret_cast<const unsigned long*>(data);
        values.assign(first, first + count);
    }
    if (data)
        XFree(data);
    return values;
}

WId XUser::windowOfProcess(qint64 pid) const
{
    const std::vector<unsigned long> owner{static_cast<unsigned long>(pid)};
    for (const WId window : property(DefaultRootWindow(toDisplay(m_display)), "_NET_CLIENT_LIST")) {
        if (property(window, "_NET_WM_PID") == owner)
            return window;
    }
    return 0;
}

bool XUser::hasFocus(WId window) const
{
    Window focused = 0;
    int revertTo = 0;
    XGetInputFocus(toDisplay(m_display), &focused, &revertTo);
    return focused == window;
}

QSize XUser::sizeOf(WId window) const
{
    XWindowAttributes attributes{};
    XGetWindowAttributes(toDisplay(m_display), window, &attributes);
    return {attributes.width, attributes.height};
}

void XUser::setNamedKey(const char* name, bool down) { setKey(XStringToKeysym(name), down); }

void XUser::resize(WId window, QSize size)
{
    XResizeWindow(toDisplay(m_display), window, static_cast<unsigned>(size.width()),
                  static_cast<unsigned>(size.height()));
    XSync(toDisplay(m_display), False);
}

void XUser::close(WId window)
{
    Display* const display = toDisplay(m_display);
    XEvent message{};
    message.xclient.type = ClientMessage;
    message.xclient.window = window;
    message.xclient.message_type = atom(display, "_NET_CLOSE_WINDOW");
    message.xclient.format = 32;
    message.xclient.data.l[0] = CurrentTime;
    message.xclient.data.l[1] = 2; // the wish of a user
    XSendEvent(display, DefaultRootWindow(display), False, SubstructureNotifyMask | SubstructureRedirectMask, &message);
    XSync(display, False);
}
