// Log groups, the routing of log lines and the ordered log queue.
#include "lgLog.h"
#include "exBase.h"
#include "lgMajorGroup.h"
#include "lgMinorGroup.h"
#include "osEnv.h"

#include "support/testSupport.h"

#include <gtest/gtest.h>

#include <sstream>
#include <thread>

using namespace Zr;

namespace {

// Restores the routing flags and output stream that a test changes.
struct LgRoutingFixture : ::testing::Test {
    void SetUp() override {
        _initialized = LgLog::_initialized.load();
        _active = LgLog::_loggerActive.load();
        LgLog::getQueue().drain();
    }
    void TearDown() override {
        LgLog::_initialized = _initialized;
        LgLog::_loggerActive = _active;
        LgLog::setOutputStream(&std::clog);
        LgLog::getQueue().drain();
    }
    bool _initialized = false;
    bool _active = false;
};

} // namespace

TEST(LgGroupTest, MajorGroupsAreOnePerNameAndKnowTheirMinorsAndFormattedNamesPadOrCut) {
    LgMajorGroup& gfx = LgMajorGroup::getInstanceForName("LgTestGfx");
    EXPECT_EQ(&gfx, &LgMajorGroup::getInstanceForName("LgTestGfx"));
    EXPECT_NE(&gfx, &LgMajorGroup::getInstanceForName("LgTestOther"));
    EXPECT_EQ("LgTestGfx", gfx.getName());
    {
        LgMinorGroup events(gfx, "UiEvents");
        EXPECT_EQ(&events, gfx.findMinor("UiEvents"));
        EXPECT_EQ(nullptr, gfx.findMinor("UiResources"));
    }
    EXPECT_EQ(nullptr, gfx.findMinor("UiEvents"));
    LgMinorGroup g(gfx, "UiEvents");
    EXPECT_EQ("UiEvents       ", g.getFormattedName(15));
    EXPECT_EQ("UiEv", g.getFormattedName(4));
    EXPECT_EQ("", g.getFormattedName(0));
}

TEST(LgGroupTest, MajorGroupCreationIsThreadSafe) {
    LgMajorGroup* seen[8] = {};
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i)
        threads.emplace_back([&seen, i] { seen[i] = &LgMajorGroup::getInstanceForName("LgRace"); });
    for (auto& t : threads)
        t.join();
    for (LgMajorGroup* g : seen)
        EXPECT_EQ(seen[0], g);
}

TEST(LgGroupTest, FlagsComeFromTheEnvironment) {
    LgMajorGroup& major = LgMajorGroup::getInstanceForName("LgTestGfx");
    OsEnv::set("ZR_LOG_LgFlagsHex", "0x12");
    OsEnv::set("ZR_LOG_LgFlagsBad", "lots");
    LgMinorGroup hex(major, "LgFlagsHex");
    LgMinorGroup bad(major, "LgFlagsBad");
    LgMinorGroup unset(major, "LgFlagsUnset");
    OsEnv::unset("ZR_LOG_LgFlagsHex");
    OsEnv::unset("ZR_LOG_LgFlagsBad");
    EXPECT_EQ(0x12u, hex.getFlags());
    EXPECT_TRUE(hex.isActive(0x2));
    EXPECT_FALSE(hex.isActive(0x1));
    EXPECT_TRUE(Trace::isEnabled(hex, 0x10));
    EXPECT_EQ(0u, bad.getFlags());
    EXPECT_EQ(0u, unset.getFlags());
    unset.setFlags(4);
    EXPECT_TRUE(unset.isActive(6));
}

TEST_F(LgRoutingFixture, LineGoesToStandardOutputThenTheOutputStreamThenTheQueue) {
    LgMinorGroup g(LgMajorGroup::getInstanceForName("Gfx"), "UiEvents");
    LgMinorGroup res(LgMajorGroup::getInstanceForName("Gfx"), "UiResources");
    // Before initialisation: standard output.
    LgLog::_initialized = false;
    LgLog::_loggerActive = false;
    EXPECT_EQ("[UiEvents       ] text\n[UiEvents       ] second\n", TestSupport::printed([&] {
                  LgLog::writeLine(g, "text");
                  Trace::log(g, "second");
              }));
    EXPECT_EQ(0u, LgLog::getQueue().getPendingCount());
    // Initialised: the output stream, with the entry's name.
    std::ostringstream os;
    LgLog::setOutputStream(&os);
    LgLog::_initialized = true;
    LgLog::writeLine(res, "loaded", "res");
    LgLog::writeLine(res, "again");
    EXPECT_EQ("res: [UiResources    ] loaded\nmain: [UiResources    ] again\n", os.str());
    std::ostringstream prefix;
    LgLog::printPrefix(prefix, res);
    EXPECT_EQ("[UiResources    ] ", prefix.str());
    // While the logger is active: the queue.
    LgLog::_loggerActive = true;
    EXPECT_EQ("", TestSupport::printed([&] { LgLog::writeLine(g, "queued"); }));
    EXPECT_EQ("res: [UiResources    ] loaded\nmain: [UiResources    ] again\n", os.str());
    auto lines = LgLog::getQueue().drain();
    ASSERT_EQ(1u, lines.size());
    EXPECT_EQ("[UiEvents       ] queued", lines[0]._text);
    EXPECT_EQ(TraceLevel::Info, lines[0]._level);
}

TEST(LgQueueTest, LinesKeepReservationOrder) {
    LgQueue queue;
    LgQueue::Entry first = queue.reserveEntry(TraceLevel::Warning);
    LgQueue::Entry second = queue.reserveEntry(TraceLevel::Debug);
    queue.getStream(second) << "second " << 2;
    queue.addEntry(second);
    EXPECT_TRUE(queue.drain().empty()); // held back by the unfinished first entry
    EXPECT_FALSE(queue.waitForLines(std::chrono::milliseconds(1)));
    queue.getStream(first) << "first " << 1.5;
    EXPECT_EQ("first 1.5", queue.getStream(first).completeString());
    queue.addEntry(first);
    EXPECT_TRUE(queue.waitForLines(std::chrono::milliseconds(1)));
    auto lines = queue.drain();
    ASSERT_EQ(2u, lines.size());
    EXPECT_EQ("first 1.5", lines[0]._text);
    EXPECT_EQ(TraceLevel::Warning, lines[0]._level);
    EXPECT_EQ("second 2", lines[1]._text);
    EXPECT_EQ(0u, queue.getPendingCount());
    EXPECT_THROW(queue.getStream(first), ExAssertionFailed);
    EXPECT_THROW(queue.addEntry(99), ExAssertionFailed);
}

TEST(LgQueueTest, ConcurrentWritersLoseNoLine) {
    LgQueue queue;
    std::vector<std::thread> writers;
    for (int t = 0; t < 4; ++t)
        writers.emplace_back([&queue, t] {
            for (int i = 0; i < 200; ++i) {
                LgQueue::Entry e = queue.reserveEntry(TraceLevel::Info);
                queue.getStream(e) << t << ':' << i;
                queue.addEntry(e);
            }
        });
    std::size_t drained = 0;
    int lastOfThread[4] = {-1, -1, -1, -1};
    bool inOrder = true;
    auto take = [&] {
        for (auto const& line : queue.drain()) {
            int t = line._text[0] - '0';
            int i = std::stoi(line._text.substr(2));
            inOrder = inOrder && i == lastOfThread[t] + 1;
            lastOfThread[t] = i;
            ++drained;
        }
    };
    while (drained < 800 && queue.waitForLines(std::chrono::milliseconds(1000)))
        take();
    for (auto& w : writers)
        w.join();
    take();
    EXPECT_EQ(800u, drained);
    EXPECT_TRUE(inOrder);
}
