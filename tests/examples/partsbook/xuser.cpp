#include "xuser.h"

#include <QStringList>

#include <X11/Xlib.h>
#include <X11/Xutil.h>

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

QString XUser::titleOf(WId window) const
{
    Display* const display = toDisplay(m_display);
    Atom type = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long bytesLeft = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(display, window, atom(display, "_NET_WM_NAME"), 0, 1024, False, atom(display, "UTF8_STRING"),
                       &type, &format, &count, &bytesLeft, &data);
    const QString title = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<int>(count));
    if (data)
        XFree(data);
    return title;
}

WId XUser::windowOfProcess(qint64 pid, const QString& title) const
{
    const std::vector<unsigned long> owner{static_cast<unsigned long>(pid)};
    for (const WId window : property(DefaultRootWindow(toDisplay(m_display)), "_NET_CLIENT_LIST")) {
        if (property(window, "_NET_WM_PID") == owner && titleOf(window).startsWith(title))
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

unsigned long XUser::pixelAt(QPoint position) const
{
    Display* const display = toDisplay(m_display);
    XImage* const image =
        XGetImage(display, DefaultRootWindow(display), position.x(), position.y(), 1, 1, AllPlanes, ZPixmap);
    if (!image)
        return 0;
    const unsigned long pixel = XGetPixel(image, 0, 0);
    XDestroyImage(image);
    return pixel;
}

void XUser::setNamedKey(const char* name, bool down) { setKey(XStringToKeysym(name), down); }

void XUser::press(const QString& names)
{
    const QStringList keys = names.split(' ');
    for (const QString& key : keys)
        setNamedKey(qPrintable(key), true);
    for (int i = keys.size(); i-- > 0;)
        setNamedKey(qPrintable(keys.at(i)), false);
}

void XUser::type(const QString& text)
{
    for (const QChar character : text)
        typeKey(character.unicode());
}

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
