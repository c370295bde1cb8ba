// The gallery as a person uses it, in its own process under the display: the window manager's
// close button, the keyboard and the Cancel button each end it with status 0 and no X error;
// its window may be resized. Skipped without a display, XTest or the gallery program.
#include "xinputDriver.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace {

using Zr::XInputTest::XInputDriver;
using namespace std::chrono_literals;

// The test's environment for the gallery. A gallery of a sanitized build checks for leaks at
// exit as the test binaries do, and like them must not follow __tls_get_addr, whose dynamic TLS
// blocks (Mesa's) LeakSanitizer can misread and crash on (see testMain.cpp).
std::vector<std::string> galleryEnvironment() {
    std::vector<std::string> env;
    std::string asan;
    for (char** e = environ; *e; ++e) {
        std::string_view const entry(*e);
        if (entry.starts_with("ASAN_OPTIONS="))
            asan = entry.substr(13);
        else
            env.emplace_back(entry);
    }
    env.push_back("ASAN_OPTIONS=" + asan + (asan.empty() ? "" : ":") + "intercept_tls_get_addr=0");
    return env;
}

// One run of the gallery: started on construction, its window found, its exit awaited.
class GalleryRun {
public:
    explicit GalleryRun(XInputDriver& x) : _x(x) {
        _log = "/tmp/zrui-gallery-test-" + std::to_string(getpid()) + ".log";
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, 1, _log.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                         0644);
        posix_spawn_file_actions_adddup2(&actions, 1, 2);
        char const* argv[] = {ZR_GALLERY_PATH, nullptr};
        std::vector<std::string> env = galleryEnvironment();
        std::vector<char*> envp;
        for (std::string& e : env)
            envp.push_back(e.data());
        envp.push_back(nullptr);
        if (posix_spawn(&_pid, ZR_GALLERY_PATH, &actions, nullptr, const_cast<char**>(argv),
                        envp.data()) != 0)
            _pid = -1;
        posix_spawn_file_actions_destroy(&actions);
        for (int i = 0; i < 300 && _pid > 0 && !_window; ++i) {
            std::this_thread::sleep_for(50ms);
            _window = _x.findWindow("ZRui gallery", _left, _top);
        }
        std::this_thread::sleep_for(300ms); // its first frame
    }
    ~GalleryRun() {
        if (_pid > 0 && !_done) {
            kill(_pid, SIGKILL);
            waitpid(_pid, nullptr, 0);
        }
        std::remove(_log.c_str());
    }

    unsigned long window() const { return _window; }
    // A point of the window in its own coordinates (y up from the bottom, as the toolkit's).
    void click(int x, int yUp, int height) {
        _x.moveTo(_left + x, _top + height - 1 - yUp);
        _x.button(1, true);
        _x.button(1, false);
        _x.sync();
    }
    // A press at one point of the window, moved sideways in steps to another, and released.
    void drag(int x1, int x2, int yUp, int height) {
        auto to = [&](int x) {
            _x.moveTo(_left + x, _top + height - 1 - yUp);
            _x.sync();
            std::this_thread::sleep_for(20ms);
        };
        to(x1);
        _x.button(1, true);
        for (int x = x1; x != x2; x += x2 > x1 ? 5 : -5)
            to(x);
        to(x2);
        _x.button(1, false);
        _x.sync();
    }
    // The pixels of a rectangle of the window (left, bottom, width, height, y up), once the
    // pointer is out of the way and the window had time to repaint.
    std::vector<unsigned> capture(int x, int yUp, int w, int h, int height) {
        _x.moveTo(_left + 300, _top + 30);
        _x.sync();
        std::this_thread::sleep_for(400ms);
        return _x.capture(_left + x, _top + height - yUp - h, w, h);
    }
    // The exit status, or -1 if it has not ended within 20 s.
    int waitForExit() {
        for (int i = 0; i < 400; ++i) {
            int status = 0;
            if (waitpid(_pid, &status, WNOHANG) == _pid) {
                _done = true;
                return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
            }
            std::this_thread::sleep_for(50ms);
        }
        return -1;
    }
    std::string output() const {
        std::ifstream in(_log);
        std::stringstream text;
        text << in.rdbuf();
        return text.str();
    }

private:
    XInputDriver& _x;
    std::string _log;
    pid_t _pid = -1;
    unsigned long _window = 0;
    int _left = 0, _top = 0;
    bool _done = false;
};

class Gallery : public ::testing::Test {
protected:
    void SetUp() override {
        if (!_x.isUsable())
            GTEST_SKIP() << "No XTest: " << _x.getProblem();
        if (access(ZR_GALLERY_PATH, X_OK) != 0)
            GTEST_SKIP() << "No gallery program at " << ZR_GALLERY_PATH;
    }
    XInputDriver _x;
};

// Ways to quit, each run three times: a race at the end (a wake-up sent to a window being
// destroyed) used to end one run in several with "BadWindow" and status 1.
TEST_F(Gallery, EveryWayToQuitEndsWithStatusZero) {
    int const height = 938; // the gallery's first size
    struct Way {
        char const* name;
        std::function<void(GalleryRun&)> quit;
    };
    Way const ways[] = {
        {"close button", [&](GalleryRun& run) { _x.askToClose(run.window()); }},
        // The keyboard focus starts on the first field in reading order; Shift+Tab wraps round
        // to the last, Cancel.
        {"Shift+Tab, Return",
         [&](GalleryRun& run) {
             _x.focus(run.window());
             _x.key("Shift_L", true);
             _x.key("Tab", true);
             _x.key("Tab", false);
             _x.key("Shift_L", false);
             _x.key("Return", true);
             _x.key("Return", false);
             _x.sync();
         }},
        {"Cancel", [&](GalleryRun& run) { run.click(168, 31, height); }},
    };
    for (Way const& way : ways) {
        for (int i = 0; i < 3; ++i) {
            SCOPED_TRACE(std::string(way.name) + ", run " + std::to_string(i + 1));
            GalleryRun run(_x);
            ASSERT_NE(run.window(), 0u) << run.output();
            if (i == 0 && &way == &ways[0]) {
                EXPECT_TRUE(_x.isResizable(run.window()));
            }
            way.quit(run);
            EXPECT_EQ(run.waitForExit(), 0) << run.output();
            EXPECT_EQ(run.output().find("X Error"), std::string::npos) << run.output();
        }
    }
}

// The node panel follows an edit of its Radius (a drag: 10 becomes 11), the undo of it (Ctrl+Z)
// and the redo (the Redo button): the editor's pixels go back and forth with the value.
TEST_F(Gallery, NodePanelFollowsUndoAndRedo) {
    int const height = 938;
    GalleryRun run(_x);
    ASSERT_NE(run.window(), 0u) << run.output();
    // The inside of the Radius editor, on the node panel's top row.
    auto radius = [&] { return run.capture(180, 131, 250, 14, height); };
    auto const before = radius();
    run.drag(300, 380, 136, height);
    auto const edited = radius();
    _x.focus(run.window());
    _x.key("Control_L", true);
    _x.key("z", true);
    _x.key("z", false);
    _x.key("Control_L", false);
    _x.sync();
    auto const undone = radius();
    run.click(588, 119, height);
    auto const redone = radius();
    ASSERT_FALSE(before.empty());
    EXPECT_NE(edited, before);
    EXPECT_EQ(undone, before);
    EXPECT_EQ(redone, edited);
    _x.askToClose(run.window());
    EXPECT_EQ(run.waitForExit(), 0) << run.output();
}

} // namespace
