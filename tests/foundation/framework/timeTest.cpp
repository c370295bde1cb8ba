// Time paths through groups, the time client and frame conversions, and graph paths.
#include "piPath.h"
#include "piTimePath.h"
#include "tmTimeClient.h"
#include "tmTimeUtil.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace Zr;

namespace {

class Group : public PiGraphObject {
public:
    explicit Group(std::string name) : PiGraphObject(std::move(name)) {}
    OPtr<CmMemento> snapshotState() const override { return nullptr; }
    void restoreState(CmMemento const&) override {}
};

} // namespace

TEST(TimePath, MapsThroughEveryGroupBothWays) {
    auto client = makeShared<TmTimeClient>();
    // local = ((global - 10) * 2 - 1) * 0.5
    auto path =
        makeShared<PiTimePath>(client, nullptr, std::vector<PiTimeStep>{{10.0, 2.0}, {1.0, 0.5}});
    EXPECT_DOUBLE_EQ(path->getTime(15.0), 4.5);
    double global = -1.0;
    ASSERT_TRUE(path->getHeadTime(4.5, global));
    EXPECT_DOUBLE_EQ(global, 15.0);

    client->setTime(12.0);
    EXPECT_DOUBLE_EQ(path->getTime(), 1.5);
}

TEST(TimePath, TopLevelIsTheIdentityAndScaleZeroHasNoHeadTime) {
    auto client = makeShared<TmTimeClient>(3.5);
    RCShdPtr<PiTimePath const> top = PiTimePath::create(client);
    EXPECT_EQ(top->getTime(), 3.5);
    double global = 0.0;
    EXPECT_TRUE(top->getHeadTime(7.25, global));
    EXPECT_EQ(global, 7.25);

    auto frozen = makeShared<PiTimePath>(client, nullptr, std::vector<PiTimeStep>{{2.0, 0.0}});
    EXPECT_EQ(frozen->getTime(100.0), 0.0);
    global = 42.0;
    EXPECT_FALSE(frozen->getHeadTime(0.0, global));
    EXPECT_EQ(global, 42.0);

    // With no client the time is that of time 0.
    auto detached = makeShared<PiTimePath>(nullptr, nullptr, std::vector<PiTimeStep>{{1.0, 1.0}});
    EXPECT_EQ(detached->getTime(), -1.0);
}

TEST(TimePath, ClientTellsObserversOncePerChange) {
    TmTimeClient client;
    int calls = 0;
    CbFunction<CbEmptyType> cb([&] { ++calls; });
    client.addTimeChangeCb(&cb);
    client.setTime(1.0);
    client.setTime(1.0);
    client.setTime(2.0);
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(client.getTime(), 2.0);
    client.removeTimeChangeCb(&cb);
    client.setTime(3.0);
    EXPECT_EQ(calls, 2);
    EXPECT_THROW(client.setRate(Rational(0)), ExAssertionFailed);
}

TEST(TimePath, SecondsToNearestFrameAndBack) {
    Rational const pal(25);
    Rational const ntsc(30000, 1001);
    std::tuple<Rational, double, int> const rows[] = {
        {pal, 1.0, 25},    {pal, 0.039, 1}, {pal, 0.019, 0},
        {pal, -0.041, -1}, {ntsc, 1.0, 30}, {ntsc, 1001.0, 30000},
    };
    for (auto const& [rate, seconds, frame] : rows)
        EXPECT_EQ(TmTimeUtil::getDtTimeFromSeconds(rate, seconds).getTicks(), frame) << seconds;
    EXPECT_DOUBLE_EQ(TmTimeUtil::getSecondsFromDtTime(ntsc, DtTimeIndex(30)), 1.001);
    for (int f : {0, 1, 7, 24, 1000, -3})
        EXPECT_EQ(TmTimeUtil::getDtTimeFromSeconds(
                      ntsc, TmTimeUtil::getSecondsFromDtTime(ntsc, DtTimeIndex(f)))
                      .getTicks(),
                  f);
    EXPECT_THROW(TmTimeUtil::getDtTimeFromSeconds(Rational(0), 1.0), ExAssertionFailed);
}

TEST(GraphPath, CopyIsIndependentAndComparesByObject) {
    RCShdPtr<PiGraphObject const> g1 = makeShared<Group>("Group1");
    RCShdPtr<PiGraphObject const> g2 = makeShared<Group>("Group2");
    auto path = makeShared<PiPath>();
    path->append(g1);
    RCShdPtr<PiPath> copy = path->copy();
    EXPECT_TRUE(*copy == *path);
    copy->append(g2);
    EXPECT_EQ(path->getLength(), 1);
    EXPECT_EQ(copy->getLength(), 2);
    EXPECT_FALSE(*copy == *path);
    EXPECT_EQ(copy->getElement(1)->getName(), "Group2");
    EXPECT_THROW(copy->getElement(2), ExAssertionFailed);
    EXPECT_THROW(copy->getElement(-1), ExAssertionFailed);

    // Same names, other objects: not the same path.
    PiPath other(PiPath::Elements{makeShared<Group>("Group1")});
    EXPECT_FALSE(other == *path);
}
