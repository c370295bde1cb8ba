// XInputDriver over Xlib and XTest; without XTest at build time the driver is never usable.
#include "xinputDriver.h"

#ifdef ZR_HAVE_XTEST
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#endif

namespace Zr::XInputTest {

#ifdef ZR_HAVE_XTEST

namespace {
Display* dpy(void* d) {
    return static_cast<Display*>(d);
}
} // namespace

XInputDriver::XInputDriver() {
    Display* display = XOpenDisplay(nullptr);
    if (!display) {
        _problem = "no X display";
        return;
    }
    _display = display;
    int eventBase = 0, errorBase = 0, major = 0, minor = 0;
    if (!XTestQueryExtension(display, &eventBase, &errorBase, &major, &minor)) {
        _problem = "the X server has no XTest extension";
        return;
    }
    _usable = true;
}

XInputDriver::~XInputDriver() {
    if (_display)
        XCloseDisplay(dpy(_display));
}

void XInputDriver::moveTo(int x, int y) {
    XTestFakeMotionEvent(dpy(_display), -1, x, y, CurrentTime);
    XFlush(dpy(_display));
}

void XInputDriver::button(int button, bool down) {
    XTestFakeButtonEvent(dpy(_display), static_cast<unsigned>(button), down ? True : False,
                         CurrentTime);
    XFlush(dpy(_display));
}

void XInputDriver::key(char const* keysymName, bool down) {
    KeySym sym = XStringToKeysym(keysymName);
    KeyCode code = XKeysymToKeycode(dpy(_display), sym);
    if (code == 0)
        return;
    XTestFakeKeyEvent(dpy(_display), code, down ? True : False, CurrentTime);
    XFlush(dpy(_display));
}

void XInputDriver::sync() {
    XSync(dpy(_display), False);
}

bool XInputDriver::queryPointer(int& x, int& y, unsigned long& window) {
    Display* d = dpy(_display);
    Window root = 0, child = 0;
    int wx = 0, wy = 0;
    unsigned mask = 0;
    if (!XQueryPointer(d, DefaultRootWindow(d), &root, &child, &x, &y, &wx, &wy, &mask))
        return false;
    window = child;
    return true;
}

void XInputDriver::focus(unsigned long window) {
    XSetInputFocus(dpy(_display), static_cast<Window>(window), RevertToParent, CurrentTime);
    XSync(dpy(_display), False);
}

void XInputDriver::askToClose(unsigned long window) {
    Display* d = dpy(_display);
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = static_cast<Window>(window);
    event.xclient.message_type = XInternAtom(d, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(d, "WM_DELETE_WINDOW", False));
    event.xclient.data.l[1] = CurrentTime;
    XSendEvent(d, static_cast<Window>(window), False, NoEventMask, &event);
    XSync(d, False);
}

void XInputDriver::destroy(unsigned long window) {
    XDestroyWindow(dpy(_display), static_cast<Window>(window));
    XSync(dpy(_display), False);
}

unsigned long XInputDriver::findWindow(std::string const& title, int& x, int& y) {
    Display* d = dpy(_display);
    Window root = DefaultRootWindow(d), parent = 0, *children = nullptr;
    unsigned count = 0;
    if (!XQueryTree(d, root, &root, &parent, &children, &count))
        return 0;
    unsigned long found = 0;
    for (unsigned i = 0; i < count && !found; ++i) {
        char* name = nullptr;
        if (XFetchName(d, children[i], &name) && name) {
            if (title == name) {
                Window child = 0;
                XTranslateCoordinates(d, children[i], root, 0, 0, &x, &y, &child);
                found = children[i];
            }
            XFree(name);
        }
    }
    if (children)
        XFree(children);
    return found;
}

bool XInputDriver::isResizable(unsigned long window) {
    XSizeHints hints{};
    long supplied = 0;
    if (!XGetWMNormalHints(dpy(_display), static_cast<Window>(window), &hints, &supplied))
        return true;
    bool const fixed = (hints.flags & PMinSize) && (hints.flags & PMaxSize) &&
                       hints.min_width == hints.max_width && hints.min_height == hints.max_height;
    return !fixed;
}

std::vector<unsigned> XInputDriver::capture(int x, int y, int width, int height) {
    Display* display = dpy(_display);
    XImage* image =
        XGetImage(display, DefaultRootWindow(display), x, y, static_cast<unsigned>(width),
                  static_cast<unsigned>(height), AllPlanes, ZPixmap);
    if (!image)
        return {};
    std::vector<unsigned> pixels;
    for (int row = 0; row < height; ++row)
        for (int column = 0; column < width; ++column)
            pixels.push_back(static_cast<unsigned>(XGetPixel(image, column, row) & 0xffffff));
    XDestroyImage(image);
    return pixels;
}

#else

XInputDriver::XInputDriver() : _problem("built without XTest") {}
XInputDriver::~XInputDriver() = default;
void XInputDriver::moveTo(int, int) {}
void XInputDriver::button(int, bool) {}
void XInputDriver::key(char const*, bool) {}
void XInputDriver::sync() {}
bool XInputDriver::queryPointer(int&, int&, unsigned long&) {
    return false;
}
void XInputDriver::focus(unsigned long) {}
void XInputDriver::askToClose(unsigned long) {}
void XInputDriver::destroy(unsigned long) {}
unsigned long XInputDriver::findWindow(std::string const&, int&, int&) {
    return 0;
}
bool XInputDriver::isResizable(unsigned long) {
    return false;
}
std::vector<unsigned> XInputDriver::capture(int, int, int, int) {
    return {};
}

#endif

} // namespace Zr::XInputTest
