// WsX11Errors: a non-fatal handler for X protocol errors.
#include "wsX11Errors.h"

#include <SDL.h>
#include <SDL_syswm.h>

#include <atomic>
#include <cstdio>
#include <mutex>

namespace Zr {

namespace {

using Handler = int (*)(Display*, XErrorEvent*);

Handler previous = nullptr;
bool installed = false;
std::atomic<int> count{0};
std::mutex lostMutex;
std::vector<std::uint32_t> lost;

// Runs inside Xlib with the display locked: it must not make requests, so it only records.
int onError(Display* display, XErrorEvent* error) {
    ++count;
    if (error->error_code == BadWindow || error->error_code == BadDrawable) {
        // A request named a window that has gone: expected when windows close while another
        // thread wakes the loop, or when another client destroys one of ours.
        std::lock_guard<std::mutex> lock(lostMutex);
        lost.push_back(static_cast<std::uint32_t>(error->resourceid));
        return 0;
    }
    char text[160] = {};
    XGetErrorText(display, error->error_code, text, sizeof text);
    std::fprintf(stderr, "zrui: X error ignored: %s (request %d.%d, resource 0x%lx)\n", text,
                 error->request_code, error->minor_code, error->resourceid);
    return 0;
}

} // namespace

void WsX11Errors::install() {
    if (installed)
        return;
    previous = XSetErrorHandler(onError);
    installed = true;
}

void WsX11Errors::uninstall() {
    if (!installed)
        return;
    XSetErrorHandler(previous);
    previous = nullptr;
    installed = false;
}

int WsX11Errors::getCount() {
    return count;
}

std::vector<std::uint32_t> WsX11Errors::takeLostResources() {
    std::lock_guard<std::mutex> lock(lostMutex);
    std::vector<std::uint32_t> taken;
    taken.swap(lost);
    return taken;
}

bool WsX11Errors::windowExists(void* display, std::uint32_t window) {
    XWindowAttributes attributes;
    return XGetWindowAttributes(static_cast<Display*>(display), window, &attributes) != 0;
}

bool WsX11Errors::nativeWindow(void* sdlWindow, std::uint32_t& window, void*& display) {
    SDL_SysWMinfo info;
    SDL_VERSION(&info.version);
    if (!SDL_GetWindowWMInfo(static_cast<SDL_Window*>(sdlWindow), &info) ||
        info.subsystem != SDL_SYSWM_X11)
        return false;
    window = static_cast<std::uint32_t>(info.info.x11.window);
    display = info.info.x11.display;
    return true;
}

} // namespace Zr
