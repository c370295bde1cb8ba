// XInputDriver: real input for the tests of the screen binary, made with the XTest extension
// on the X display the windows are on. Kept apart from the tests so that no X header (with
// its macros None, Bool, KeyPress...) meets the toolkit's headers.
#pragma once

#include <string>
#include <vector>

namespace Zr::XInputTest {

class XInputDriver {
public:
    // Opens the display named by DISPLAY; isUsable tells whether it and XTest are there.
    XInputDriver();
    ~XInputDriver();
    XInputDriver(XInputDriver const&) = delete;
    XInputDriver& operator=(XInputDriver const&) = delete;

    bool isUsable() const { return _usable; }
    // Why the driver is not usable.
    std::string const& getProblem() const { return _problem; }

    // Screen coordinates: pixels from the screen's top-left corner, y down.
    void moveTo(int x, int y);
    // Button 1 left, 2 middle, 3 right.
    void button(int button, bool down);
    // A key by its keysym name ("Tab", "Escape"), pressed or released.
    void key(char const* keysymName, bool down);
    // Waits until the server has handled everything sent so far.
    void sync();
    // Where the pointer is on the screen, and the top-level window under it (0 for none).
    bool queryPointer(int& x, int& y, unsigned long& window);
    // Gives the keyboard focus to a window.
    void focus(unsigned long window);
    // Asks a window to close as a window manager's close button does (WM_DELETE_WINDOW).
    void askToClose(unsigned long window);
    // Destroys a window from this client, under the program that made it.
    void destroy(unsigned long window);
    // The first top-level window titled `title`, 0 if none; with its top-left corner on the
    // screen.
    unsigned long findWindow(std::string const& title, int& x, int& y);
    // Whether the window tells the window manager it may be resized (its size hints don't fix
    // the minimum and maximum at one size).
    bool isResizable(unsigned long window);
    // The pixels (0xRRGGBB, rows from the top) of a screen rectangle; empty when unusable.
    std::vector<unsigned> capture(int x, int y, int width, int height);

private:
    void* _display = nullptr;
    bool _usable = false;
    std::string _problem;
};

} // namespace Zr::XInputTest
