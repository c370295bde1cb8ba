// The event queue as the loop and posting threads see it: order, time limits, held requests,
// waiting with a count, and wake-ups across threads.
#include "wsEventQ.h"

#include "support/exceptionReason.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

using namespace Zr;

namespace {

class NumberedEvent : public EvEvent {
public:
    ZR_EVENT_CLASS(NumberedEvent)
    NumberedEvent(int source, int number) : _source(source), _number(number) {}
    int _source;
    int _number;
};

class NamedRequest : public EvRequestEvent {
public:
    ZR_EVENT_CLASS(NamedRequest)
    NamedRequest(char name, std::int64_t target) : _name(name) {
        setTargetTime(DtTimeIndex(target));
    }
    char _name;
};

std::int64_t nowUst() {
    return DtRefTimeFactory::now().getTicks();
}
DtTimeIndex inMs(int ms) {
    return DtTimeIndex(nowUst() + ms * 1000LL);
}

int numberOf(OPtr<EvEvent> const& e) {
    return dynamic_cast<NumberedEvent&>(*e)._number;
}
char nameOf(EvEvent const& e) {
    return dynamic_cast<NamedRequest const&>(e)._name;
}

void sleepMs(int ms) {
    std::this_thread::sleep_for(std::chrono::milliseconds(ms));
}

class WsEventQTest : public ::testing::Test {
protected:
    void SetUp() override { q.clear(); }
    void TearDown() override { q.clear(); }
    WsEventQ& q = WsEventQ::getInstance();
};

} // namespace

TEST_F(WsEventQTest, EventsFromFourThreadsArriveOnceAndInOrderPerThread) {
    constexpr int threads = 4, perThread = 3000;
    std::vector<std::thread> posters;
    for (int t = 0; t < threads; ++t)
        posters.emplace_back([this, t] {
            for (int i = 0; i < perThread; ++i)
                q.postEvent(std::make_unique<NumberedEvent>(t, i));
        });
    std::vector<int> next(threads, 0);
    int received = 0;
    // Mixes both ways of reading, as the loop does.
    while (received < threads * perThread) {
        std::deque<OPtr<EvEvent>> batch;
        if (received % 2 == 0) {
            if (auto e = q.getNextEvent(inMs(5000)))
                batch.push_back(std::move(e));
        } else {
            q.getAllEvents(batch);
        }
        for (auto const& e : batch) {
            auto const& n = dynamic_cast<NumberedEvent const&>(*e);
            ASSERT_EQ(n._number, next[n._source]) << "source " << n._source;
            ++next[n._source];
            ++received;
        }
    }
    for (auto& p : posters)
        p.join();
    EXPECT_EQ(std::vector<int>(threads, perThread), next);
    EXPECT_EQ(0, q.getNbWaitingEvents());
    EXPECT_EQ(nullptr, q.getNextEvent(DtTimeIndex(0)));
}

TEST_F(WsEventQTest, GetNextEventReturnsNullAtItsLimit) {
    auto start = std::chrono::steady_clock::now();
    DtTimeIndex until = inMs(60);
    EXPECT_EQ(nullptr, q.getNextEvent(until));
    EXPECT_GE(nowUst(), until.getTicks());
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(60));

    // A zero or past limit doesn't wait, but still delivers what is there.
    EXPECT_EQ(nullptr, q.getNextEvent(DtTimeIndex(0)));
    q.postEvent(std::make_unique<NumberedEvent>(0, 7));
    auto e = q.getNextEvent(DtTimeIndex(nowUst() - 1000));
    ASSERT_NE(nullptr, e);
    EXPECT_EQ(7, numberOf(e));
}

TEST_F(WsEventQTest, FutureRequestsAreHeldThenDeliveredInTargetOrder) {
    std::int64_t now = nowUst();
    q.postRequest(std::make_unique<NamedRequest>('a', now + 120000));
    q.postRequest(std::make_unique<NamedRequest>('b', now + 60000));
    q.postRequest(std::make_unique<NamedRequest>('c', now + 60000));
    q.postRequest(std::make_unique<NamedRequest>('d', 0));
    q.postEvent(std::make_unique<NumberedEvent>(0, 1));

    EXPECT_EQ(2, q.getNbWaitingEvents());
    EXPECT_EQ(3, q.getNbHeldRequests());
    std::deque<OPtr<EvEvent>> out;
    q.getAllEvents(out);
    ASSERT_EQ(2u, out.size());
    EXPECT_EQ('d', nameOf(*out[0]));
    EXPECT_EQ(1, numberOf(out[1]));

    std::string order;
    while (order.size() < 3) {
        auto e = q.getNextEvent(inMs(5000));
        ASSERT_NE(nullptr, e);
        auto const& r = dynamic_cast<NamedRequest const&>(*e);
        EXPECT_GE(nowUst(), r.getTargetTime().getTicks()) << "delivered early: " << r._name;
        order += r._name;
    }
    EXPECT_EQ("bca", order);
    EXPECT_EQ(0, q.getNbHeldRequests());
}

TEST_F(WsEventQTest, DueRequestQueuesBehindEarlierEvents) {
    q.postEvent(std::make_unique<NumberedEvent>(0, 1));
    q.postRequest(std::make_unique<NamedRequest>('x', nowUst() - 10));
    q.postEvent(std::make_unique<NumberedEvent>(0, 2));
    std::deque<OPtr<EvEvent>> out;
    out.push_back(std::make_unique<NumberedEvent>(9, 0));
    q.getAllEvents(out);
    ASSERT_EQ(4u, out.size());
    EXPECT_EQ(0, numberOf(out[0])); // what the deque held stays in front
    EXPECT_EQ(1, numberOf(out[1]));
    EXPECT_EQ('x', nameOf(*out[2]));
    EXPECT_EQ(2, numberOf(out[3]));
}

TEST_F(WsEventQTest, WaitReturnsOnceCountEventsAreWaiting) {
    std::thread poster([this] {
        for (int i = 0; i < 5; ++i) {
            sleepMs(15);
            q.postEvent(std::make_unique<NumberedEvent>(1, i));
        }
    });
    auto start = std::chrono::steady_clock::now();
    int n = q.wait(3, inMs(10000));
    EXPECT_GE(n, 3);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    poster.join();
    EXPECT_EQ(5, q.wait(2, DtTimeIndex(0)));
    EXPECT_EQ(5, q.wait(10, inMs(30))); // the limit ends it short of the count
}

TEST_F(WsEventQTest, WaitReturnsWhenAHeldRequestComesDue) {
    q.postRequest(std::make_unique<NamedRequest>('r', nowUst() + 40000));
    EXPECT_EQ(0, q.getNbWaitingEvents());
    EXPECT_EQ(1, q.wait(5, inMs(10000)));
}

TEST_F(WsEventQTest, BlockedReaderWakesOnPostFromAnotherThread) {
    std::thread poster([this] {
        sleepMs(50);
        q.postEvent(std::make_unique<NumberedEvent>(3, 42));
    });
    auto e = q.getNextEvent(DtTimeIndex::MAX);
    poster.join();
    ASSERT_NE(nullptr, e);
    EXPECT_EQ(42, numberOf(e));
}

TEST_F(WsEventQTest, WakeUpEndsOneWaitEarly) {
    std::thread waker([this] {
        sleepMs(50);
        q.wakeUp();
    });
    EXPECT_EQ(nullptr, q.getNextEvent(DtTimeIndex::MAX));
    waker.join();

    // Raised with nobody waiting, it ends the next wait, and only that one.
    q.wakeUp();
    EXPECT_EQ(0, q.wait(1, DtTimeIndex::MAX));
    DtTimeIndex until = inMs(30);
    EXPECT_TRUE(q.isEmptyBefore(until));
    EXPECT_GE(nowUst(), until.getTicks());
}

TEST_F(WsEventQTest, IsEmptyBeforeTellsWhetherAnEventCame) {
    EXPECT_TRUE(q.isEmptyBefore(inMs(20)));
    std::thread poster([this] {
        sleepMs(30);
        q.postEvent(std::make_unique<NumberedEvent>(0, 0));
    });
    EXPECT_FALSE(q.isEmptyBefore(inMs(10000)));
    poster.join();
    EXPECT_EQ(1, q.getNbWaitingEvents()); // looking doesn't take it
}

TEST_F(WsEventQTest, NullPostsAreRefusedAndLoseNothing) {
    q.postEvent(std::make_unique<NumberedEvent>(0, 1));
    EXPECT_EQ("e != nullptr",
              TestSupport::reasonOf<ExAssertionFailed>([this] { q.postEvent(nullptr); }));
    EXPECT_THROW(q.postRequest(nullptr), ExAssertionFailed);
    EXPECT_EQ(1, q.getNbWaitingEvents());
}

TEST_F(WsEventQTest, ClearDropsEventsAndHeldRequests) {
    q.postEvent(std::make_unique<NumberedEvent>(0, 1));
    q.postRequest(std::make_unique<NamedRequest>('z', nowUst() + 60000000));
    q.wakeUp();
    q.clear();
    EXPECT_EQ(0, q.getNbWaitingEvents());
    EXPECT_EQ(0, q.getNbHeldRequests());
    DtTimeIndex until = inMs(30);
    EXPECT_TRUE(q.isEmptyBefore(until));
    EXPECT_GE(nowUst(), until.getTicks()); // the wake-up went too
}
