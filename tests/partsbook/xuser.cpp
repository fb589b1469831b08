#include "xuser.h"

#include <algorithm>

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

namespace {

// A window may go while it is being asked about.
int ignoreError(Display*, XErrorEvent*) { return 0; }

} // namespace

XUser::XUser() : m_display(XOpenDisplay(nullptr))
{
    XSetErrorHandler(ignoreError);
    if (!m_display)
        return;
    XAutoRepeatOff(m_display); // a key may be held for as long as a slow machine takes
    XSync(m_display, False);
}

XUser::~XUser()
{
    if (!m_display)
        return;
    XAutoRepeatOn(m_display);
    XCloseDisplay(m_display);
}

unsigned long XUser::atom(const char* name) const { return XInternAtom(m_display, name, False); }

std::unique_ptr<unsigned long[]> XUser::property(Window window, const char* name, unsigned long& count) const
{
    Atom type = 0;
    int format = 0;
    unsigned long bytesLeft = 0;
    unsigned char* data = nullptr;
    count = 0;
    XGetWindowProperty(m_display, window, atom(name), 0, 1024, False, AnyPropertyType, &type, &format, &count,
                       &bytesLeft, &data);
    if (!data || format != 32)
        count = 0;
    auto values = std::make_unique<unsigned long[]>(count);
    std::copy_n(reinterpret_cast<unsigned long*>(data), count, values.get());
    if (data)
        XFree(data);
    return values;
}

XUser::Window XUser::windowOfProcess(qint64 pid) const
{
    unsigned long count = 0;
    const auto windows = property(DefaultRootWindow(m_display), "_NET_CLIENT_LIST", count);
    for (unsigned long i = 0; i < count; ++i) {
        unsigned long pids = 0;
        const auto owner = property(windows[i], "_NET_WM_PID", pids);
        if (pids == 1 && owner[0] == static_cast<unsigned long>(pid))
            return windows[i];
    }
    return 0;
}

bool XUser::hasFocus(Window window) const
{
    Window focused = 0;
    int revertTo = 0;
    XGetInputFocus(m_display, &focused, &revertTo);
    return focused == window;
}

QPoint XUser::positionOnScreen(Window window) const
{
    int x = 0;
    int y = 0;
    Window child = 0;
    XTranslateCoordinates(m_display, window, DefaultRootWindow(m_display), 0, 0, &x, &y, &child);
    return {x, y};
}

QSize XUser::sizeOf(Window window) const
{
    XWindowAttributes attributes{};
    XGetWindowAttributes(m_display, window, &attributes);
    return {attributes.width, attributes.height};
}

void XUser::moveTo(QPoint screenPoint)
{
    XTestFakeMotionEvent(m_display, DefaultScreen(m_display), screenPoint.x(), screenPoint.y(), CurrentTime);
    XSync(m_display, False);
}

void XUser::setKey(const char* name, bool down)
{
    if (const unsigned code = XKeysymToKeycode(m_display, XStringToKeysym(name)))
        setKey(code, down);
}

void XUser::releaseEverything()
{
    while (!m_buttonsDown.empty())
        setButton(*m_buttonsDown.begin(), false);
    while (!m_keysDown.empty())
        setKey(*m_keysDown.begin(), false);
}

void XUser::setButton(unsigned button, bool down)
{
    m_buttonsDown.erase(button);
    if (down)
        m_buttonsDown.insert(button);
    XTestFakeButtonEvent(m_display, button, down, CurrentTime);
    XSync(m_display, False);
}

void XUser::setKey(unsigned keyCode, bool down)
{
    m_keysDown.erase(keyCode);
    if (down)
        m_keysDown.insert(keyCode);
    XTestFakeKeyEvent(m_display, keyCode, down, CurrentTime);
    XSync(m_display, False);
}

void XUser::resize(Window window, QSize size)
{
    XResizeWindow(m_display, window, size.width(), size.height());
    XSync(m_display, False);
}

void XUser::close(Window window)
{
    XEvent message{};
    message.xclient.type = ClientMessage;
    message.xclient.window = window;
    message.xclient.message_type = atom("_NET_CLOSE_WINDOW");
    message.xclient.format = 32;
    message.xclient.data.l[0] = CurrentTime;
    message.xclient.data.l[1] = 2; // the wish of a user
    XSendEvent(m_display, DefaultRootWindow(m_display), False, SubstructureRedirectMask | SubstructureNotifyMask,
               &message);
    XSync(m_display, False);
}
