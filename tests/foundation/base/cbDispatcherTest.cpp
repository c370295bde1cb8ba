// Callback dispatch: order, snapshot semantics, and handlers and dispatchers outliving each other.
#include "zrBase.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

using namespace Zr;

namespace {
struct Recorder : CbHandler<int> {
    Recorder(std::vector<int>& log, int id) : log(log), id(id) {}
    void call(int& v) override {
        log.push_back(id);
        if (onCall)
            onCall(v);
    }
    std::vector<int>& log;
    int id;
    std::function<void(int&)> onCall;
};
} // namespace

TEST(CbDispatcher, CallsHandlersInOrderAndIgnoresDuplicatesAndNull) {
    std::vector<int> log;
    Recorder a(log, 1), b(log, 2), c(log, 3);
    CbDispatcher<int> d;
    d.addHandler(&a);
    d.addHandler(&b);
    d.addHandler(&a);
    d.addHandler(nullptr);
    d.prependHandler(&c);
    int v = 0;
    d.call(v);
    EXPECT_EQ(log, (std::vector<int>{3, 1, 2}));
    EXPECT_EQ(d.getNbHandlers(), 3);
    EXPECT_EQ(a.getNbDispatchers(), 1);
}

TEST(CbDispatcher, HandlerRemovedDuringCallIsSkippedAndAddedOneIsNotReached) {
    std::vector<int> log;
    Recorder a(log, 1), b(log, 2), c(log, 3);
    CbDispatcher<int> d;
    d.addHandler(&a);
    d.addHandler(&b);
    a.onCall = [&](int&) {
        d.removeHandler(&b);
        d.addHandler(&c);
    };
    int v = 0;
    d.call(v);
    EXPECT_EQ(log, (std::vector<int>{1}));
    log.clear();
    d.call(v);
    EXPECT_EQ(log, (std::vector<int>{1, 3}));
}

TEST(CbDispatcher, DestroyedHandlerLeavesItsDispatchers) {
    std::vector<int> log;
    CbDispatcher<int> d1, d2;
    {
        Recorder a(log, 1);
        d1.addHandler(&a);
        d2.addHandler(&a);
        EXPECT_EQ(a.getNbDispatchers(), 2);
    }
    EXPECT_TRUE(d1.isEmpty());
    EXPECT_TRUE(d2.isEmpty());
}

TEST(CbDispatcher, DispatcherDestroyedByItsOwnHandlerStopsCalling) {
    std::vector<int> log;
    Recorder a(log, 1), b(log, 2);
    auto d = std::make_unique<CbDispatcher<int>>();
    d->addHandler(&a);
    d->addHandler(&b);
    a.onCall = [&](int&) { d.reset(); };
    int v = 0;
    d->call(v);
    EXPECT_EQ(log, (std::vector<int>{1}));
    EXPECT_EQ(a.getNbDispatchers(), 0);
    EXPECT_EQ(b.getNbDispatchers(), 0);
}
