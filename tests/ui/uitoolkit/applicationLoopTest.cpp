// The event loop as clients see it: events from other threads, requests, exit handling, the
// slice, window bookkeeping and cursors.
#include "loopTestSupport.h"

#include "tmGfxMsc.h"
#include "wsCursorRegistry.h"
#include "wsHeadlessWindow.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace Zr {
namespace {

using namespace LoopTest;

// A plain event carrying who posted it and its number in that poster's sequence.
class SeqEvent : public EvEvent {
public:
    ZR_EVENT_CLASS(SeqEvent)
    SeqEvent(int thread, int seq) : _thread(thread), _seq(seq) {}
    int _thread;
    int _seq;
};

class RunRequest : public EvRequestEvent {
public:
    ZR_EVENT_CLASS(RunRequest)
    explicit RunRequest(std::function<void()> f) : _f(std::move(f)) {}
    void execute() override { _f(); }

private:
    std::function<void()> _f;
};

class AppLoop : public LoopFixture {};

TEST_F(AppLoop, EventsFromFourThreadsAreEachDispatchedOnceInPostingOrder) {
    constexpr int Threads = 4;
    constexpr int PerThread = 25000;
    UiApplication& app = UiApplication::getInstance();
    std::vector<std::vector<int>> seen(Threads);
    std::thread::id loopThread = std::this_thread::get_id();
    bool offThread = false;
    CbFunction<EvEvent> recorder([&](EvEvent& e) {
        if (auto* s = dynamic_cast<SeqEvent*>(&e))
            seen[s->_thread].push_back(s->_seq);
        offThread = offThread || std::this_thread::get_id() != loopThread;
    });
    app.addMainHandler(&recorder);

    std::atomic<int> running{Threads};
    std::vector<std::thread> posters;
    for (int t = 0; t < Threads; ++t) {
        posters.emplace_back([&, t] {
            for (int i = 0; i < PerThread; ++i)
                app.postEvent(std::make_unique<SeqEvent>(t, i));
            // The last poster ends the loop: every event is queued ahead of the exit.
            if (running.fetch_sub(1) == 1)
                app.exitLoop();
        });
    }
    app.messageLoop();
    for (auto& p : posters)
        p.join();
    app.removeMainHandler(&recorder);

    EXPECT_FALSE(offThread);
    for (int t = 0; t < Threads; ++t) {
        ASSERT_EQ(seen[t].size(), static_cast<std::size_t>(PerThread)) << "thread " << t;
        for (int i = 0; i < PerThread; ++i)
            ASSERT_EQ(seen[t][i], i) << "thread " << t;
    }
    EXPECT_TRUE(app.isExitRequested());
}

TEST_F(AppLoop, RequestsRunOnTheLoopThread) {
    UiApplication& app = UiApplication::getInstance();
    std::thread::id ranOn;
    std::thread poster([&] {
        app.postRequest(std::make_unique<RunRequest>([&] {
            ranOn = std::this_thread::get_id();
            UiApplication::getInstance().exitLoop();
        }));
    });
    app.messageLoop();
    poster.join();
    EXPECT_EQ(ranOn, std::this_thread::get_id());
}

TEST_F(AppLoop, EventPostedDuringDispatchIsSeenBeforeTheWindowsRepaint) {
    UiApplication& app = UiApplication::getInstance();
    // A slow display gives a slice long enough that a busy machine can't end it early.
    TmGfxMsc::setRate(1.0);
    RCShdPtr<UiTopLevel> top = UiTopLevel::create("slice");
    top->show();
    ASSERT_TRUE(top->redraw());
    int swapsAtFirst = -1;
    int swapsAtSecond = -1;
    CbFunction<EvEvent> handler([&](EvEvent& e) {
        auto* s = dynamic_cast<SeqEvent*>(&e);
        if (!s)
            return;
        if (s->_seq == 0) {
            swapsAtFirst = top->getSwapCount();
            top->markForUpdate();
            app.postEvent(std::make_unique<SeqEvent>(0, 1));
        } else {
            swapsAtSecond = top->getSwapCount();
            app.exitLoop();
        }
    });
    app.addMainHandler(&handler);
    app.postEvent(std::make_unique<SeqEvent>(0, 0));
    app.messageLoop();
    app.removeMainHandler(&handler);
    TmGfxMsc::setRate(TmGfxMsc::DEFAULT_RATE);
    EXPECT_GE(swapsAtFirst, 0);
    EXPECT_EQ(swapsAtSecond, swapsAtFirst);
}

struct CountingExitHandler : UiApplication::ExitHandler {
    explicit CountingExitHandler(bool answer) : _answer(answer) {}
    bool canExit() override {
        ++_asked;
        return _answer;
    }
    bool _answer;
    int _asked = 0;
};

TEST_F(AppLoop, RefusedExitChangesNothingAndTheLoopGoesOn) {
    UiApplication& app = UiApplication::getInstance();
    CountingExitHandler refuse(false);
    UiApplication::addExitHandler(&refuse);
    std::vector<std::pair<int, bool>> seen;
    CbFunction<EvEvent> handler([&](EvEvent& e) {
        if (auto* s = dynamic_cast<SeqEvent*>(&e))
            seen.emplace_back(s->_seq, app.isExitRequested());
    });
    app.addMainHandler(&handler);
    app.postEvent(std::make_unique<WsExitEvent>(WsExitEvent::AskExitHandlers));
    app.postEvent(std::make_unique<SeqEvent>(0, 7));
    app.postEvent(std::make_unique<WsExitEvent>(1)); // mode 1 doesn't ask
    app.postEvent(std::make_unique<SeqEvent>(0, 8));
    app.messageLoop();
    app.removeMainHandler(&handler);
    UiApplication::removeExitHandler(&refuse);

    EXPECT_EQ(refuse._asked, 1);
    // The refused exit left the flag alone; the forced one set it. Events already taken from
    // the queue in that slice are still dispatched: nothing is lost.
    EXPECT_EQ(seen, (std::vector<std::pair<int, bool>>{{7, false}, {8, true}}));
    EXPECT_EQ(WsEventQ::getInstance().getNbWaitingEvents(), 0);
}

TEST_F(AppLoop, LocalLoopRejectsNullFlags) {
    UiApplication& app = UiApplication::getInstance();
    bool flag = false;
    try {
        app.localMessageLoop(nullptr, &flag);
        FAIL() << "no assertion";
    } catch (ExAssertionFailed const& ex) {
        EXPECT_EQ(ex.getReason(), "exitLoopFlag != 0");
    }
    try {
        app.localMessageLoop(&flag, nullptr);
        FAIL() << "no assertion";
    } catch (ExAssertionFailed const& ex) {
        EXPECT_EQ(ex.getReason(), "exitApp != 0");
    }
}

TEST_F(AppLoop, NestedLoopEndsOnItsOwnFlagAndOnTheApplicationsExit) {
    UiApplication& app = UiApplication::getInstance();
    std::vector<std::string> log;
    app.postRequest(std::make_unique<RunRequest>([&] {
        // A modal box: a nested loop until its own flag is set.
        bool volatile done = false;
        bool volatile appExit = false;
        app.postRequest(std::make_unique<RunRequest>([&] { done = true; }));
        app.localMessageLoop(&done, &appExit);
        log.push_back(std::string("first modal ended") + (appExit ? " by exit" : ""));
        // A second one sees the application's exit and ends too.
        bool volatile never = false;
        app.exitLoop();
        app.localMessageLoop(&never, &appExit);
        log.push_back(std::string("second modal ended") + (appExit ? " by exit" : ""));
        // That exit was the modal's: the outer loop needs its own.
        app.exitLoop();
    }));
    app.messageLoop();
    EXPECT_EQ(log, (std::vector<std::string>{"first modal ended", "second modal ended by exit"}));
    // The exit event set the nested loop's flag only; the outer loop ended on its own turn.
    EXPECT_FALSE(app.isExitDone());
}

TEST_F(AppLoop, ClosingASecondaryWindowReturnsToTheMainWindow) {
    UiApplication& app = UiApplication::getInstance();
    RCShdPtr<UiTopLevel> main = UiTopLevel::create("main");
    ASSERT_EQ(app.getMainWindow(), main.get());
    EXPECT_EQ(main->getWindowName(), "MainWindow");
    RCShdPtr<UiTopLevel> second = UiTopLevel::create("second");
    EXPECT_EQ(second->getWindowName(), "SecondaryWindow");
    EXPECT_EQ(app.getCurrentWindow().get(), second.get());
    second->show();

    std::vector<WsWindowId> closed;
    CbFunction<EvEvent> onClose(
        [&](EvEvent& e) { closed.push_back(static_cast<WsWindowCloseEvent&>(e).getWindowId()); });
    app.addWindowCloseHandler(&onClose);
    WsWindowId secondId = second->getOSWindow()->getId();
    // The user closes the second window: the event goes through the loop's dispatch.
    WsWindowCloseEvent close(secondId);
    app.processEvent(close);
    app.removeWindowCloseHandle(&onClose);

    EXPECT_EQ(closed, std::vector<WsWindowId>{secondId});
    EXPECT_EQ(app.getCurrentWindow().get(), main.get());
    EXPECT_EQ(app.getWindowRef(secondId), nullptr);
    EXPECT_EQ(app.getWindowRef(main->getOSWindow()->getId()), main.get());
    EXPECT_FALSE(second->isDisplayed());
}

TEST_F(AppLoop, ClosingTheMainWindowAsksExitHandlersThenEndsTheLoop) {
    UiApplication& app = UiApplication::getInstance();
    RCShdPtr<UiTopLevel> main = UiTopLevel::create("main");
    CountingExitHandler refuse(false);
    UiApplication::addExitHandler(&refuse);
    app.closeWindow(main->getOSWindow().get());
    EXPECT_EQ(refuse._asked, 1);
    EXPECT_EQ(WsEventQ::getInstance().getNbWaitingEvents(), 0);
    UiApplication::removeExitHandler(&refuse);

    CountingExitHandler accept(true);
    UiApplication::addExitHandler(&accept);
    app.closeWindow(main->getOSWindow().get());
    UiApplication::removeExitHandler(&accept);
    EXPECT_EQ(accept._asked, 1);
    // The posted exit has mode 1: the loop doesn't ask again, and ends.
    app.messageLoop();
    EXPECT_EQ(accept._asked, 1);
    EXPECT_TRUE(app.isExitRequested());
}

// The first call of resetCursor in the process is special, so the test runs in a new process
// of this program, where no call has happened yet: it holds in any order and when repeated.
TEST_F(AppLoop, ResetCursorShowsDanceFirstAndNormalAfter) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            UiApplication& app = UiApplication::getInstance();
            RCShdPtr<UiTopLevel> top = UiTopLevel::create("cursors");
            auto* window = dynamic_cast<WsHeadlessWindow*>(top->getOSWindow().get());
            ASSERT_NE(window, nullptr);
            app.resetCursor();
            ASSERT_TRUE(window->getCursor());
            EXPECT_EQ(window->getCursor()->getName(), WsCursorRegistry::Dance);
            EXPECT_TRUE(app.hasOverrideCursor());
            app.resetCursor();
            EXPECT_EQ(window->getCursor()->getName(), WsCursorRegistry::Normal);
            EXPECT_FALSE(app.hasOverrideCursor());

            app.pushOverrideCursor(
                WsCursorRegistry::getInstance().getCursor(WsCursorRegistry::Busy));
            app.replaceOverrideCursor(
                WsCursorRegistry::getInstance().getCursor(WsCursorRegistry::Pick));
            EXPECT_EQ(window->getCursor()->getName(), WsCursorRegistry::Pick);
            app.popOverrideCursor();
            EXPECT_EQ(window->getCursor()->getName(), WsCursorRegistry::Normal);
            app.popOverrideCursor(); // on an empty stack: harmless
            EXPECT_FALSE(app.hasOverrideCursor());
            // Ends here, with the window still open: nothing of the process's teardown is
            // under test.
            std::fflush(nullptr);
            std::_Exit(::testing::Test::HasFailure() ? 1 : 0);
        },
        ::testing::ExitedWithCode(0), "");
}

TEST_F(AppLoop, EventsOfUnknownWindowsAreDroppedSilently) {
    UiApplication& app = UiApplication::getInstance();
    int before = app.getProcessedEvents();
    WsExposeEvent expose(987654, {0, 10, 0, 10});
    EXPECT_NO_THROW(app.processEvent(expose));
    EXPECT_EQ(app.getProcessedEvents(), before + 1);
    EXPECT_EQ(app.getWindowRef(WsWindowId(987654)), nullptr);
    EXPECT_EQ(app.getWindowRef(WsWindowId(0)), nullptr);
}

TEST_F(AppLoop, AfterRedrawCallbacksRunOnlyWhenAWindowDrew) {
    UiApplication& app = UiApplication::getInstance();
    RCShdPtr<UiTopLevel> top = UiTopLevel::create("callbacks");
    top->show();
    int calls = 0;
    CbFunction<DtTimeIndex const> callback([&](DtTimeIndex const&) {
        if (++calls == 1)
            app.exitLoop();
    });
    app.addCallback(&callback);
    app.messageLoop(); // the window was damaged by show: it draws, the callback ends the loop
    app.removeCallback(&callback);
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(top->needsRedraw());
}

} // namespace
} // namespace Zr
