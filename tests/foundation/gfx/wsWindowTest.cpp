// Windows without a window system: creation and look-up by id, the headless window's
// callbacks and counters, window styles, and the small services next to windows.
#include "support/testSupport.h"
#include "wsClipboard.h"
#include "wsCursorRegistry.h"
#include "wsDrawable.h"
#include "wsHeadlessWindow.h"
#include "wsScreen.h"
#include "wsTestGfx.h"
#include "wsWinMgr.h"

#include <gtest/gtest.h>

#include <cstdlib>

using namespace Zr;

namespace {

RCShdPtr<WsHeadlessWindow> makeWindow(GeRectangle<int> const& rect = {10, 110, 20, 80}) {
    auto w = WsWinMgr::getInstance().createWindow("main", "icon",
                                                  WsWindowStyleUtils::getNormalWindowStyle(rect));
    return dynamicCast<WsHeadlessWindow>(w);
}

// The whole screen: 1920 by 1080 headless, the display's size once a window system has run in
// this process (the SDL tests may have run first).
GeRectangle<int> screenRect() {
    GeVector2<int> size = WsScreen::getInstance().getSize();
    return {0, size.x, 0, size.y};
}

struct RectLog : CbHandler<GeRectangle<int> const> {
    std::vector<GeRectangle<int>> rects;
    void call(GeRectangle<int> const& r) override { rects.push_back(r); }
};

} // namespace

TEST(WsWindowTest, WindowsHaveUniqueIdsAndAreFoundWhileAlive) {
    WsWinMgr& mgr = WsWinMgr::getInstance();
    int before = mgr.getNbWindows();
    auto a = makeWindow();
    auto b = makeWindow();
    ASSERT_TRUE(a && b);
    EXPECT_NE(0u, a->getId());
    EXPECT_NE(a->getId(), b->getId());
    EXPECT_EQ(a.get(), mgr.findWindow(a->getId()));
    EXPECT_EQ(before + 2, mgr.getNbWindows());
    auto windows = mgr.getWindows();
    ASSERT_GE(windows.size(), 2u);
    EXPECT_EQ(b.get(), windows.back());
    WsWindowId id = a->getId();
    a = nullptr;
    EXPECT_EQ(nullptr, mgr.findWindow(id));
    EXPECT_EQ(nullptr, mgr.findWindow(0));
    EXPECT_EQ(before + 1, mgr.getNbWindows());
}

TEST(WsWindowTest, HeadlessWindowKeepsStateAndCounts) {
    auto w = makeWindow();
    EXPECT_EQ("main", w->getName());
    EXPECT_EQ((GeRectangle<int>{10, 110, 20, 80}), w->getGeometry());
    EXPECT_FALSE(w->isMapped());
    w->map();
    EXPECT_TRUE(w->isMapped());
    w->unmap();
    EXPECT_FALSE(w->isMapped());
    w->swap();
    w->swap();
    w->makeCurrent();
    EXPECT_EQ(2, w->getNbSwaps());
    EXPECT_EQ(1, w->getNbMakeCurrent());
    w->setTitle("Compositor");
    w->warpPointer(5, 6);
    auto busy = WsCursorRegistry::getInstance().getCursor(WsCursorRegistry::Busy);
    w->setCursor(busy);
    EXPECT_EQ("Compositor", w->getTitle());
    EXPECT_EQ((GePoint2<int>{5, 6}), w->getWarpPosition());
    EXPECT_EQ(busy, w->getCursor());
    EXPECT_FALSE(w->isMainWindow());
    w->setMainWindow(true);
    EXPECT_TRUE(w->isMainWindow());
    w->iconify();
    EXPECT_TRUE(w->isIconified());
}

TEST(WsWindowTest, CallbacksFireWithTheRectangleUntilRemoved) {
    auto w = makeWindow();
    RectLog resized, exposed;
    int redraws = 0;
    CbFunction<CbEmptyType> redraw([&redraws] { ++redraws; });
    w->addResizeCb(&resized);
    w->addExposeCb(&exposed);
    w->addRedrawCb(&redraw);

    w->setSize({0, 50, 0, 40});
    w->setSize({0, 50, 0, 40}); // no change, no call
    w->simulateExpose({1, 2, 3, 4});
    w->simulateRedraw();
    EXPECT_EQ((std::vector<GeRectangle<int>>{{0, 50, 0, 40}}), resized.rects);
    EXPECT_EQ((GeRectangle<int>{0, 50, 0, 40}), w->getGeometry());
    EXPECT_EQ((std::vector<GeRectangle<int>>{{1, 2, 3, 4}}), exposed.rects);
    EXPECT_EQ(1, redraws);

    w->removeResizeCb(&resized);
    w->removeExposeCb(&exposed);
    w->removeRedrawCb(&redraw);
    w->simulateResize({0, 10, 0, 10});
    w->simulateExpose({0, 1, 0, 1});
    w->simulateRedraw();
    EXPECT_EQ(1u, resized.rects.size());
    EXPECT_EQ(1u, exposed.rects.size());
    EXPECT_EQ(1, redraws);
    EXPECT_EQ((GeRectangle<int>{0, 10, 0, 10}), w->getGeometry());
}

TEST(WsWindowTest, FullscreenCoversTheScreenAndRestores) {
    auto w = makeWindow();
    RectLog resized;
    w->addResizeCb(&resized);
    w->setFullscreen(true);
    w->setFullscreen(true);
    EXPECT_EQ(screenRect(), w->getGeometry());
    w->setFullscreen(false);
    EXPECT_EQ((GeRectangle<int>{10, 110, 20, 80}), w->getGeometry());
    EXPECT_EQ(2u, resized.rects.size());
}

TEST(WsWindowTest, StylesForTheToolkitsWindows) {
    auto normal = WsWindowStyleUtils::getNormalWindowStyle({0, 10, 0, 10}, 24, false, true, false,
                                                           WsWindowStyle::StackAlwaysOnTop, false);
    EXPECT_FALSE(normal.hasBorder());
    EXPECT_TRUE(normal.hasTitleBar());
    EXPECT_FALSE(normal.hasTaskBar());
    EXPECT_EQ(WsWindowStyle::StackAlwaysOnTop, normal.getStacking());
    EXPECT_FALSE(normal.hasCloseButton());
    EXPECT_FALSE(normal.isMainWindow());
    normal.setMainWindow(true);
    EXPECT_TRUE(normal.isMainWindow());

    auto full = WsWindowStyleUtils::getFullscreenWindowStyle(24, false);
    EXPECT_TRUE(full.isFullscreen());
    EXPECT_EQ(screenRect(), full.getRect());

    auto splash = WsWindowStyleUtils::getSplashWindowStyle({400, 200}, 24);
    EXPECT_TRUE(splash.isSplash());
    GeRectangle<int> screen = screenRect();
    int x1 = (screen.x2 - 400) / 2, y1 = (screen.y2 - 200) / 2; // centred
    EXPECT_EQ((GeRectangle<int>{x1, x1 + 400, y1, y1 + 200}), splash.getRect());

    auto parent = makeWindow();
    auto sub = WsWindowStyleUtils::getSubWindowStyle(parent.get(), {1, 5, 1, 5}, true);
    EXPECT_EQ(parent.get(), sub.getParent());
    auto child = WsWinMgr::getInstance().createWindow("sub", "sub", sub);
    EXPECT_EQ(parent.get(), child->getParent());
}

TEST(WsWindowTest, BadStylesAreRefused) {
    EXPECT_THROW(WsWindowStyleUtils::getSubWindowStyle(nullptr, {0, 1, 0, 1}), ExAssertionFailed);
    int before = WsWinMgr::getInstance().getNbWindows();
    EXPECT_THROW(WsWinMgr::getInstance().createWindow(
                     "bad", "bad", WsWindowStyleUtils::getNormalWindowStyle({10, 0, 0, 10})),
                 ExAssertionFailed);
    EXPECT_EQ(before, WsWinMgr::getInstance().getNbWindows());
}

namespace {
struct CountingBackend : WsWinMgrBackend {
    int* created;
    bool* autoRepeat;
    CountingBackend(int* c, bool* a) : created(c), autoRepeat(a) {}
    RCShdPtr<WsWindow> createWindow(LiString const& name, LiString const& icon,
                                    WsWindowStyle const& style) override {
        ++*created;
        return makeShared<WsHeadlessWindow>(name, icon, style);
    }
    void setKeyAutoRepeat(bool on) override { *autoRepeat = on; }
};
} // namespace

TEST(WsWindowTest, InstalledBackendMakesTheWindowsAndHearsAutoRepeat) {
    WsWinMgr& mgr = WsWinMgr::getInstance();
    int created = 0;
    bool autoRepeat = false;
    mgr.setBackend(std::make_unique<CountingBackend>(&created, &autoRepeat));
    EXPECT_TRUE(autoRepeat); // told the present setting when installed
    auto w = makeWindow();
    mgr.setKeyAutoRepeat(false);
    EXPECT_FALSE(mgr.getKeyAutoRepeat());
    EXPECT_FALSE(autoRepeat);
    mgr.setKeyAutoRepeat(true);
    mgr.setBackend(nullptr);
    EXPECT_EQ(1, created);
    EXPECT_FALSE(mgr.hasBackend());
    EXPECT_EQ(w.get(), mgr.findWindow(w->getId()));
}

TEST(WsWindowTest, CursorsAreSharedByName) {
    auto& reg = WsCursorRegistry::getInstance();
    for (char const* name :
         {WsCursorRegistry::Normal, WsCursorRegistry::Busy, WsCursorRegistry::Dance,
          WsCursorRegistry::Drag, WsCursorRegistry::Drop, WsCursorRegistry::Move,
          WsCursorRegistry::MoveXY, WsCursorRegistry::Pan, WsCursorRegistry::Pick,
          WsCursorRegistry::Zoom}) {
        auto c = reg.getCursor(name);
        ASSERT_TRUE(c);
        EXPECT_EQ(name, c->getName());
        EXPECT_EQ(c, reg.getCursor(LiString(name)));
    }
    try {
        reg.getCursor("Spinner");
        FAIL() << "no exception";
    } catch (WsCursorRegistry::ExUnknownCursor const& ex) {
        EXPECT_EQ("Unknown cursor \"Spinner\"", ex.getReason());
    }
    EXPECT_EQ(10u, reg.getNames().size());
}

TEST(WsWindowTest, HeadlessServices) {
    WsScreen& screen = WsScreen::getInstance();
    GeVector2<int> size = screen.getSize();
    screen.setSize({1280, 1024}); // as a window system would
    EXPECT_EQ((GeVector2<int>{1280, 1024}), screen.getSize());
    screen.setSize(size);
    EXPECT_EQ(8, WsDrawable::getPixelFormat().stencilBits);

    WsClipboard::getInstance().setText("node1");
    EXPECT_EQ("node1", WsClipboard::getInstance().getText());
    EXPECT_TRUE(WsClipboard::getInstance().hasText());

    for (char const* value : {"1", "0", "", static_cast<char const*>(nullptr)}) {
        TestSupport::EnvScope noGraphics("ZR_NO_GRAPHICS", value);
        EXPECT_EQ(WsTestGfx::isNoGraphicsRequested(), value && value == std::string("1"))
            << (value ? value : "unset");
    }
}
