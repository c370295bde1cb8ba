// SDL windows for real, under the virtual display: pixels drawn through SmGl and read back,
// resizes, SDL input arriving from WsEventQ as the toolkit's events, the loop's wait woken by
// another thread, the clipboard and screenshots. Skipped when no display can be opened.
#include "wsSdl.h"
#include "evKeyCode.h"
#include "evKeyboardState.h"
#include "smGl.h"
#include "support/testSupport.h"
#include "tmGfxMsc.h"
#include "wsClipboard.h"
#include "wsCursorRegistry.h"
#include "wsDrawable.h"
#include "wsEventQ.h"
#include "wsEvents.h"
#include "wsScreen.h"
#include "wsScreenshot.h"
#include "wsSdlCursor.h"
#include "wsSdlEventSource.h"
#include "wsSdlInput.h"
#include "wsSdlWindow.h"
#include "wsWinMgr.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <thread>

using namespace Zr;

namespace {

DtTimeIndex inMs(int ms) {
    return DtRefTimeFactory::now() + std::int64_t(ms) * 1000;
}

struct RectLog : CbHandler<GeRectangle<int> const> {
    std::vector<GeRectangle<int>> rects;
    void call(GeRectangle<int> const& r) override { rects.push_back(r); }
};

class WsSdlFixture : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        graphics.emplace("ZR_NO_GRAPHICS", nullptr);
        WsSdl::initialize();
    }
    static void TearDownTestSuite() {
        WsSdl::shutdown();
        graphics.reset();
    }
    static inline std::optional<TestSupport::EnvScope> graphics;

    void SetUp() override {
        if (!WsSdl::isActive())
            GTEST_SKIP() << "No display: " << WsSdl::getLastError();
        WsEventQ::getInstance().clear();
    }
    void TearDown() override {
        _windows.clear();
        WsEventQ::getInstance().clear();
    }

    // A top-level window, mapped, with the map's events drained.
    WsSdlWindow& open(GeRectangle<int> const& rect = {100, 164, 200, 248}) {
        auto w = WsWinMgr::getInstance().createWindow(
            "test", "test", WsWindowStyleUtils::getNormalWindowStyle(rect));
        auto* sdl = dynamic_cast<WsSdlWindow*>(w.get());
        EXPECT_NE(sdl, nullptr);
        _windows.push_back(w);
        sdl->map();
        drain<WsMapNotifyEvent>();
        settle();
        return *sdl;
    }

    // Reads what SDL still reports (exposes, configures) until it stays quiet for 100 ms.
    void settle() {
        while (WsEventQ::getInstance().getNextEvent(inMs(100))) {
        }
        WsEventQ::getInstance().clear();
    }

    // The first event of type T within `ms`, skipping others; null if none came.
    template <class T>
    std::unique_ptr<T> next(int ms = 2000) {
        DtTimeIndex const until = inMs(ms);
        while (OPtr<EvEvent> e = WsEventQ::getInstance().getNextEvent(until)) {
            if (auto* t = dynamic_cast<T*>(e.get())) {
                e.release();
                return std::unique_ptr<T>(t);
            }
        }
        return nullptr;
    }
    // Whether the next event of type T within two seconds is there and for `w`.
    template <class T>
    bool nextFor(WsWindow const& w) {
        std::unique_ptr<T> e = next<T>();
        return e && e->getWindowId() == w.getId();
    }
    // Waits for an event of type T and drops everything up to it; also lets SDL settle.
    template <class T>
    void drain(int ms = 2000) {
        next<T>(ms);
    }

    std::vector<RCShdPtr<WsWindow>> _windows;
};

using WsSdlWindows = WsSdlFixture;
using WsSdlInputEvents = WsSdlFixture;
using WsSdlServices = WsSdlFixture;

TEST_F(WsSdlWindows, ClearThroughSmGlReadsBackWithYUp) {
    WsSdlWindow& w = open({100, 164, 200, 248});
    EXPECT_EQ(w.getGeometry(), (GeRectangle<int>{100, 164, 200, 248}));
    w.makeCurrent();
    EXPECT_FALSE(SmGl::isNoOpBackend());
    SmGl::viewport(0, 0, 64, 48);
    SmGl::disable(Gl::SCISSOR_TEST);
    SmGl::clearColor(1.f, 0.f, 0.f, 1.f);
    SmGl::clear(Gl::COLOR_BUFFER_BIT);
    // The bottom-left 16 x 8 pixels green: y grows upward from the bottom.
    SmGl::enable(Gl::SCISSOR_TEST);
    SmGl::scissor(0, 0, 16, 8);
    SmGl::clearColor(0.f, 1.f, 0.f, 1.f);
    SmGl::clear(Gl::COLOR_BUFFER_BIT);
    SmGl::disable(Gl::SCISSOR_TEST);
    EXPECT_EQ(SmGl::getError(), Gl::NO_ERROR);

    std::vector<std::uint8_t> px = WsScreenshot::readPixels(w);
    ASSERT_EQ(px.size(), 64u * 48u * 4u);
    EXPECT_EQ(WsScreenshot::pixelAt(px, 64, 48, 0, 0), 0x00FF00FFu);
    EXPECT_EQ(WsScreenshot::pixelAt(px, 64, 48, 15, 7), 0x00FF00FFu);
    EXPECT_EQ(WsScreenshot::pixelAt(px, 64, 48, 16, 7), 0xFF0000FFu);
    EXPECT_EQ(WsScreenshot::pixelAt(px, 64, 48, 0, 8), 0xFF0000FFu);
    EXPECT_EQ(WsScreenshot::pixelAt(px, 64, 48, 63, 47), 0xFF0000FFu);
    // Top row first in the bytes: the first pixel is the top-left one, red.
    EXPECT_EQ(px[0], 255);
    EXPECT_EQ(px[1], 0);

    // The screenshot file holds the same pixels; a bad path is reported, naming it.
    std::filesystem::path file =
        std::filesystem::temp_directory_path() / ("wsSdlTest_" + std::to_string(getpid()) + ".png");
    WsScreenshot::writePng(w, file);
    int width = 0, height = 0;
    std::vector<std::uint8_t> back = WsScreenshot::readPng(file, width, height);
    EXPECT_EQ(width, 64);
    EXPECT_EQ(height, 48);
    EXPECT_EQ(back, px);
    std::filesystem::remove(file);
    try {
        WsScreenshot::writePng(w, OsFilePath("/nonexistent-dir/shot.png"));
        ADD_FAILURE() << "no exception";
    } catch (WsScreenshot::ExWriteFailed const& e) {
        EXPECT_NE(std::string(e.getReason()).find("\"/nonexistent-dir/shot.png\""),
                  std::string::npos);
    }
    EXPECT_THROW(WsScreenshot::readPng(OsFilePath("/nonexistent-dir/shot.png"), width, height),
                 WsScreenshot::ExReadFailed);
}

TEST_F(WsSdlWindows, SwapKeepsTheFrameAndWindowsKeepTheirOwnPixels) {
    WsSdlWindow& a = open({100, 132, 100, 132});
    WsSdlWindow& b = open({300, 340, 100, 140});
    for (auto [w, red] : {std::pair{&a, 1.f}, std::pair{&b, 0.f}}) {
        w->makeCurrent();
        SmGl::clearColor(red, 0.f, 1.f - red, 1.f);
        SmGl::clear(Gl::COLOR_BUFFER_BIT);
        w->swap();
    }
    // Under Xvfb a swap copies: the back buffer still holds the frame.
    std::vector<std::uint8_t> pa = WsScreenshot::readPixels(a);
    std::vector<std::uint8_t> pb = WsScreenshot::readPixels(b);
    EXPECT_EQ(WsScreenshot::pixelAt(pa, 32, 32, 5, 5), 0xFF0000FFu);
    EXPECT_EQ(WsScreenshot::pixelAt(pb, 40, 40, 5, 5), 0x0000FFFFu);
}

TEST_F(WsSdlWindows, SetSizeCallsResizeOnceWithTheNewGeometry) {
    WsSdlWindow& w = open({100, 164, 200, 248});
    RectLog log;
    w.addResizeCb(&log);
    GeRectangle<int> const target{150, 250, 300, 380};
    w.setSize(target);
    ASSERT_EQ(log.rects.size(), 1u);
    EXPECT_EQ(log.rects[0], target);
    EXPECT_EQ(w.getGeometry(), target);
    // What SDL reports afterwards agrees, so no further resize with another geometry.
    while (WsEventQ::getInstance().getNextEvent(inMs(200))) {
    }
    for (auto const& r : log.rects)
        EXPECT_EQ(r, target);
    w.makeCurrent();
    EXPECT_EQ(WsScreenshot::readPixels(w).size(), 100u * 80u * 4u);
    std::size_t const before = log.rects.size();
    w.setSize(target); // the same geometry: nothing happens
    EXPECT_EQ(log.rects.size(), before);
    w.removeResizeCb(&log);
}

TEST_F(WsSdlWindows, MapUnmapCloseAndExposeArriveWithTheWindowId) {
    auto win = WsWinMgr::getInstance().createWindow(
        "m", "m", WsWindowStyleUtils::getNormalWindowStyle({0, 40, 0, 40}));
    _windows.push_back(win);
    EXPECT_FALSE(win->isMapped());
    win->map();
    EXPECT_TRUE(nextFor<WsMapNotifyEvent>(*win));
    EXPECT_TRUE(win->isMapped());

    RectLog exposed;
    win->addExposeCb(&exposed);
    ASSERT_TRUE(WsSdlInput::pushExpose(*win));
    auto expose = next<WsExposeEvent>();
    ASSERT_TRUE(expose);
    EXPECT_EQ(expose->getWindowId(), win->getId());
    EXPECT_EQ(expose->getRegion(), (GeRectangle<int>{0, 40, 0, 40}));
    ASSERT_FALSE(exposed.rects.empty());
    EXPECT_EQ(exposed.rects.back(), (GeRectangle<int>{0, 40, 0, 40}));
    win->removeExposeCb(&exposed);

    ASSERT_TRUE(WsSdlInput::pushCloseRequest(*win));
    EXPECT_TRUE(nextFor<WsWindowCloseEvent>(*win));

    // A terminating signal reaches the loop as an exit that asks nobody.
    ASSERT_TRUE(WsSdlInput::pushQuit());
    auto quit = next<WsExitEvent>();
    ASSERT_TRUE(quit);
    EXPECT_EQ(quit->getExitHandlingMode(), WsExitEvent::DontAskExitHandlers);

    win->unmap();
    EXPECT_TRUE(nextFor<WsUnmapNotifyEvent>(*win));
    EXPECT_FALSE(win->isMapped());
}

TEST_F(WsSdlWindows, SubWindowLiesOverItsParentAndDrawsItsOwnContext) {
    WsSdlWindow& parent = open({200, 300, 200, 300});
    auto sub = WsWinMgr::getInstance().createWindow(
        "sub", "sub", WsWindowStyleUtils::getSubWindowStyle(&parent, {10, 40, 20, 50}));
    _windows.push_back(sub);
    EXPECT_EQ(sub->getParent(), &parent);
    EXPECT_EQ(sub->getGeometry(), (GeRectangle<int>{10, 40, 20, 50}));
    sub->map();
    EXPECT_TRUE(sub->isMapped());
    sub->makeCurrent();
    SmGl::clearColor(0.f, 0.f, 1.f, 1.f);
    SmGl::clear(Gl::COLOR_BUFFER_BIT);
    std::vector<std::uint8_t> px = WsScreenshot::readPixels(*sub);
    EXPECT_EQ(px.size(), 30u * 30u * 4u);
    EXPECT_EQ(WsScreenshot::pixelAt(px, 30, 30, 29, 29), 0x0000FFFFu);
    // Moving the parent keeps the sub-window's place relative to it.
    parent.setSize({250, 350, 150, 250});
    EXPECT_EQ(sub->getGeometry(), (GeRectangle<int>{10, 40, 20, 50}));
    // A sub-window's own resize is in its parent's coordinates.
    RectLog log;
    sub->addResizeCb(&log);
    sub->setSize({0, 10, 0, 10});
    ASSERT_EQ(log.rects.size(), 1u);
    EXPECT_EQ(log.rects[0], (GeRectangle<int>{0, 10, 0, 10}));
    sub->removeResizeCb(&log);
}

TEST_F(WsSdlWindows, DestroyedWindowLeavesNoCurrentContextBehind) {
    {
        auto w = WsWinMgr::getInstance().createWindow(
            "gone", "gone", WsWindowStyleUtils::getNormalWindowStyle({0, 20, 0, 20}));
        w->makeCurrent();
        EXPECT_FALSE(SmGl::isNoOpBackend());
    }
    EXPECT_TRUE(SmGl::isNoOpBackend());
    // Drawing now goes nowhere instead of into a dead context.
    SmGl::clear(Gl::COLOR_BUFFER_BIT);
}

TEST_F(WsSdlWindows, ZeroSizeWindowIsOnePixel) {
    WsSdlWindow& w = open({10, 10, 10, 40});
    EXPECT_EQ(w.getGeometry().width(), 0);
    EXPECT_EQ(WsScreenshot::readPixels(w).size(), 1u * 30u * 4u);
}

TEST_F(WsSdlInputEvents, ButtonsCarryWindowFlippedYButtonsAndState) {
    WsSdlWindow& w = open({100, 164, 200, 248}); // 64 x 48
    // Each button event as "down|up x,y button B held S", " double" for a double click.
    auto button = [&](int which, bool down, int x, int y, int clicks = 1) {
        EXPECT_TRUE(WsSdlInput::pushPointerButton(w, which, down, x, y, clicks));
        auto e = down ? OPtr<EvPointerButtonEvent>(next<EvPointerButtonDownEvent>())
                      : OPtr<EvPointerButtonEvent>(next<EvPointerButtonUpEvent>());
        if (!e)
            return std::string("none");
        EXPECT_EQ(e->getWindowId(), w.getId());
        return std::string(down ? "down " : "up ") + std::to_string(e->getWCoord().x) + "," +
               std::to_string(e->getWCoord().y) + " button " +
               std::to_string(e->getTriggerButton()) + " held " +
               std::to_string(e->getPointerState().getState()) +
               (e->isDoubleClick() ? " double" : "");
    };
    // y grows upward from the bottom row; a button is held from its press to its release.
    EXPECT_EQ(button(WsSdlInput::ButtonLeft, true, 5, 10), "down 5,37 button 1 held 1");
    EXPECT_EQ(button(WsSdlInput::ButtonRight, true, 6, 0), "down 6,47 button 4 held 5");
    EXPECT_EQ(button(WsSdlInput::ButtonRight, false, 6, 0), "up 6,47 button 4 held 1");
    EXPECT_EQ(button(WsSdlInput::ButtonLeft, false, 7, 47), "up 7,0 button 1 held 0");
    EXPECT_EQ(button(WsSdlInput::ButtonMiddle, true, 1, 1, 2), "down 1,46 button 2 held 2 double");
    button(WsSdlInput::ButtonMiddle, false, 1, 1, 2);
}

TEST_F(WsSdlInputEvents, MovesAndScrollsUseThePointerPosition) {
    WsSdlWindow& w = open({100, 164, 200, 248});
    ASSERT_TRUE(WsSdlInput::pushPointerMove(w, 20, 0));
    auto move = next<EvPointerMoveEvent>();
    ASSERT_TRUE(move);
    EXPECT_EQ(move->getWCoord(), (GePoint2<int>{20, 47}));
    EXPECT_EQ(move->getPointerState().getState(), 0u);

    std::vector<int> directions;
    WsSdlInput::pushWheel(w, 0, 1);
    WsSdlInput::pushWheel(w, 0, -2);
    WsSdlInput::pushWheel(w, -1, 0);
    WsSdlInput::pushWheel(w, 3, 0);
    for (int i = 0; i < 4; ++i) {
        auto scroll = next<EvPointerScrollEvent>();
        ASSERT_TRUE(scroll);
        EXPECT_EQ(scroll->getWCoord(), (GePoint2<int>{20, 47}));
        directions.push_back(scroll->getScrollDirection());
    }
    EXPECT_EQ(directions, (std::vector<int>{1, 2, 4, 8}));
}

TEST_F(WsSdlInputEvents, KeysMapToTheToolkitsCodesWithModifiersAndHeldState) {
    WsSdlWindow& w = open();
    struct {
        std::int32_t sdl;
        int code;
    } const keys[] = {{WsSdlInput::KeyTab, 10},        {WsSdlInput::KeyReturn, 11},
                      {WsSdlInput::KeyEscape, 15},     {WsSdlInput::KeyKpEnter, 46},
                      {WsSdlInput::KeyMinus, 79},      {WsSdlInput::KeyKpTab, 108},
                      {WsSdlInput::KeyA, EvKeyCode::A}};
    for (auto const& k : keys) {
        ASSERT_TRUE(WsSdlInput::pushKey(w, k.sdl, true, WsSdlInput::ModShift));
        auto press = next<EvKeyPressEvent>();
        ASSERT_TRUE(press);
        EXPECT_EQ(press->getTriggerKey(), k.code) << EvKeyCode::toString(k.code);
        EXPECT_EQ(press->getWindowId(), w.getId());
        EXPECT_TRUE(press->getKeyboardState().isEnabled(EvKeyboardState::Shift));
        EXPECT_TRUE(EvKeyboardState::isKeyDown(k.code));
        ASSERT_TRUE(WsSdlInput::pushKey(w, k.sdl, false));
        auto release = next<EvKeyReleaseEvent>();
        ASSERT_TRUE(release);
        EXPECT_EQ(release->getTriggerKey(), k.code);
        EXPECT_FALSE(release->getKeyboardState().isEnabled(EvKeyboardState::Shift));
        EXPECT_FALSE(EvKeyboardState::isKeyDown(k.code));
    }
    // Modifiers of the last key event go with pointer events.
    WsSdlInput::pushKey(w, WsSdlInput::KeyLShift, true, WsSdlInput::ModShift | WsSdlInput::ModCtrl);
    WsSdlInput::pushPointerMove(w, 1, 1);
    auto move = next<EvPointerMoveEvent>();
    ASSERT_TRUE(move);
    EXPECT_EQ(move->getKeyboardState().getState(),
              unsigned(EvKeyboardState::Shift | EvKeyboardState::Control));
    WsSdlInput::pushKey(w, WsSdlInput::KeyLShift, false, 0);
    next<EvKeyReleaseEvent>();
}

TEST_F(WsSdlInputEvents, AutoRepeatSwitchDropsRepeatedPresses) {
    WsSdlWindow& w = open();
    for (bool repeat : {false, true}) {
        WsWinMgr::getInstance().setKeyAutoRepeat(repeat);
        WsSdlInput::pushKey(w, WsSdlInput::KeyA, true);
        WsSdlInput::pushKey(w, WsSdlInput::KeyA, true, 0, true);
        WsSdlInput::pushKey(w, WsSdlInput::KeyA, false);
        int presses = 0;
        while (OPtr<EvEvent> e = WsEventQ::getInstance().getNextEvent(inMs(300))) {
            presses += dynamic_cast<EvKeyPressEvent*>(e.get()) != nullptr;
            if (dynamic_cast<EvKeyReleaseEvent*>(e.get()))
                break;
        }
        EXPECT_EQ(presses, repeat ? 2 : 1);
    }
}

TEST_F(WsSdlInputEvents, KeyTableCoversLettersDigitsKeypadAndFunctionKeys) {
    EXPECT_EQ(WsSdlEventSource::toKeyCode('z'), EvKeyCode::Z);
    EXPECT_EQ(WsSdlEventSource::toKeyCode('7'), EvKeyCode::Digit0 + 7);
    EXPECT_EQ(WsSdlEventSource::toKeyCode(0x40000062), EvKeyCode::KP_0);     // SDLK_KP_0
    EXPECT_EQ(WsSdlEventSource::toKeyCode(0x40000061), EvKeyCode::KP_0 + 9); // SDLK_KP_9
    EXPECT_EQ(WsSdlEventSource::toKeyCode(0x4000003A), EvKeyCode::F1);
    EXPECT_EQ(WsSdlEventSource::toKeyCode(0x40000073), EvKeyCode::F24);
    EXPECT_EQ(WsSdlEventSource::toKeyCode(0x40000050), EvKeyCode::Left);
    EXPECT_EQ(WsSdlEventSource::toKeyCode(127), EvKeyCode::Delete);
    EXPECT_EQ(WsSdlEventSource::toKeyCode(0x12345), EvKeyCode::NoKey);
}

TEST_F(WsSdlInputEvents, TextInputGivesOneCharEventPerCodePoint) {
    WsSdlWindow& w = open();
    ASSERT_TRUE(WsSdlInput::pushText(w, "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"));
    std::vector<char32_t> chars;
    for (int i = 0; i < 4; ++i) {
        auto c = next<EvCharEvent>();
        ASSERT_TRUE(c);
        EXPECT_EQ(c->getWindowId(), w.getId());
        chars.push_back(c->getChar());
    }
    EXPECT_EQ(chars, (std::vector<char32_t>{U'a', U'\u00E9', U'\u20AC', U'\U0001F600'}));
    // Malformed bytes are skipped; what is whole still arrives.
    ASSERT_TRUE(WsSdlInput::pushText(w, "\xFFx\xC3"));
    auto c = next<EvCharEvent>();
    ASSERT_TRUE(c);
    EXPECT_EQ(c->getChar(), U'x');
    EXPECT_FALSE(next<EvCharEvent>(200));
}

TEST_F(WsSdlInputEvents, EventsOfUnknownWindowsAreDropped) {
    WsSdlWindow* gone = nullptr;
    {
        auto w = WsWinMgr::getInstance().createWindow(
            "gone", "gone", WsWindowStyleUtils::getNormalWindowStyle({0, 20, 0, 20}));
        gone = dynamic_cast<WsSdlWindow*>(w.get());
        ASSERT_TRUE(gone);
        // Pushed while alive, read after the window is gone.
        WsSdlInput::pushPointerButton(*gone, WsSdlInput::ButtonLeft, true, 1, 1);
    }
    EXPECT_FALSE(next<EvPointerButtonDownEvent>(200));
}

TEST_F(WsSdlInputEvents, PostFromAnotherThreadWakesTheBlockedLoop) {
    open();
    using Clock = std::chrono::steady_clock;
    auto start = Clock::now();
    std::thread poster([] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        WsEventQ::getInstance().postEvent(std::make_unique<EvDefaultEvent>());
    });
    OPtr<EvEvent> e = WsEventQ::getInstance().getNextEvent(inMs(10000));
    auto waited = Clock::now() - start;
    poster.join();
    ASSERT_TRUE(e);
    EXPECT_NE(dynamic_cast<EvDefaultEvent*>(e.get()), nullptr);
    EXPECT_LT(waited, std::chrono::seconds(5));

    // wakeUp from another thread ends a wait with nothing; so does a due request.
    start = Clock::now();
    std::thread waker([] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        WsEventQ::getInstance().wakeUp();
    });
    EXPECT_FALSE(WsEventQ::getInstance().getNextEvent(inMs(10000)));
    waker.join();
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(5));

    auto request = std::make_unique<EvRequestEvent>();
    request->setTargetTime(inMs(100));
    WsEventQ::getInstance().postRequest(std::move(request));
    start = Clock::now();
    EXPECT_TRUE(next<EvRequestEvent>(10000));
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(5));
    EXPECT_GE(Clock::now() - start, std::chrono::milliseconds(50));

    // SDL input pushed from another thread reaches the loop as well.
    WsSdlWindow& w = open();
    std::thread pusher([&w] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        WsSdlInput::pushKey(w, WsSdlInput::KeyEscape, true);
    });
    auto press = next<EvKeyPressEvent>(10000);
    pusher.join();
    ASSERT_TRUE(press);
    EXPECT_EQ(press->getTriggerKey(), EvKeyCode::Escape);
    WsSdlInput::pushKey(w, WsSdlInput::KeyEscape, false);
    next<EvKeyReleaseEvent>();
}

TEST_F(WsSdlInputEvents, WaitWithoutInputTimesOut) {
    using Clock = std::chrono::steady_clock;
    auto start = Clock::now();
    EXPECT_TRUE(WsEventQ::getInstance().isEmptyBefore(inMs(150)));
    EXPECT_GE(Clock::now() - start, std::chrono::milliseconds(140));
    EXPECT_EQ(WsEventQ::getInstance().wait(1, inMs(50)), 0);
}

TEST_F(WsSdlServices, ClipboardRoundTripsThroughTheDesktop) {
    open(); // X11's clipboard needs a window to own the selection
    WsClipboard::getInstance().setText("copied \xC3\xA9 text");
    EXPECT_EQ(WsClipboard::getInstance().getText(), "copied \xC3\xA9 text");
    EXPECT_TRUE(WsClipboard::getInstance().hasText());
}

TEST_F(WsSdlServices, DisplayFactsAndCursors) {
    WsSdlWindow& w = open();
    // The screen is the display's; full-screen windows cover it.
    GeVector2<int> screen = WsScreen::getInstance().getSize();
    EXPECT_GT(screen.x, 0);
    EXPECT_GT(screen.y, 0);
    EXPECT_EQ(WsWindowStyleUtils::getFullscreenWindowStyle().getRect(),
              (GeRectangle<int>{0, screen.x, 0, screen.y}));
    EXPECT_GT(TmGfxMsc::getRate(), 0.0);
    EXPECT_GE(WsDrawable::getPixelFormat().stencilBits, 8);
    if (WsSdl::getDriverName() == "x11") {
        EXPECT_TRUE(WsDrawable::getPixelFormat().doubleBuffered);
    }
    w.makeCurrent();
    int stencil = 0;
    SmGl::getIntegerv(Gl::STENCIL_BITS, &stencil);
    EXPECT_GE(stencil, 8);
    for (LiString const& name : WsCursorRegistry::getInstance().getNames()) {
        auto cursor = WsCursorRegistry::getInstance().getCursor(name);
        EXPECT_NE(dynamic_cast<WsSdlCursor*>(cursor.get()), nullptr) << name.str();
        w.setCursor(cursor);
    }
    EXPECT_EQ(WsCursorRegistry::getInstance().getNames().size(), 10u);
    w.warpPointer(10, 5);
    EXPECT_EQ(w.getPointerPosition(), (GePoint2<int>{10, 5}));
}

TEST(WsSdlNoGraphics, InitializeRefusesWithoutTouchingSdl) {
    if (WsSdl::isActive())
        GTEST_SKIP();
    TestSupport::EnvScope noGraphics("ZR_NO_GRAPHICS", "1");
    EXPECT_FALSE(WsSdl::initialize());
    EXPECT_FALSE(WsSdl::isActive());
    EXPECT_NE(WsSdl::getLastError().find("ZR_NO_GRAPHICS"), std::string::npos);
    EXPECT_FALSE(WsWinMgr::getInstance().hasBackend());
    EXPECT_EQ(WsEventQ::getInstance().getEventSource(), nullptr);
}

} // namespace
