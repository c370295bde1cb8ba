// Callbacks: dispatch order, snapshot semantics, handlers and dispatchers outliving each other,
// and callbacks called by name.
#include "cbNamedCallbacks.h"
#include "zrBase.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace Zr {
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

TEST(CbDispatcher, OrderDuplicatesNullAndChangesDuringTheCall) {
    std::vector<int> log;
    Recorder a(log, 1), b(log, 2), c(log, 3), d(log, 4);
    CbDispatcher<int> disp;
    disp.addHandler(&a);
    disp.addHandler(&b);
    disp.addHandler(&a);
    disp.addHandler(nullptr);
    disp.prependHandler(&c);
    int v = 0;
    disp.call(v);
    EXPECT_EQ(log, (std::vector<int>{3, 1, 2}));
    EXPECT_EQ(a.getNbDispatchers(), 1);
    // A handler removed during the call is skipped; one added is not reached until next time.
    a.onCall = [&](int&) {
        disp.removeHandler(&b);
        disp.addHandler(&d);
    };
    log.clear();
    disp.call(v);
    EXPECT_EQ(log, (std::vector<int>{3, 1}));
    a.onCall = nullptr;
    log.clear();
    disp.call(v);
    EXPECT_EQ(log, (std::vector<int>{3, 1, 4}));
}

TEST(CbDispatcher, WhicheverDiesFirstLeavesTheOtherClean) {
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

    Recorder a(log, 1), b(log, 2);
    auto d = std::make_unique<CbDispatcher<int>>();
    d->addHandler(&a);
    d->addHandler(&b);
    a.onCall = [&](int&) { d.reset(); }; // destroyed by its own handler: stops calling
    int v = 0;
    d->call(v);
    EXPECT_EQ(log, (std::vector<int>{1}));
    EXPECT_EQ(a.getNbDispatchers() + b.getNbDispatchers(), 0);
}

TEST(CbNamedCallbacksTest, CallsByNameInOrderAndForgetsRemovedAndDeadHandlers) {
    CbNamedCallbacks& named = CbNamedCallbacks::getInstance();
    std::vector<std::string> log;
    CbFunction<std::string> first([&](std::string& arg) { log.push_back("first " + arg); });
    CbFunction<std::string> second([&](std::string& arg) { log.push_back("second " + arg); });
    named.add("test.reload", &first);
    named.add("test.reload", &second);
    named.add("test.reload", &first); // already there: ignored
    named.add("test.reload", nullptr);
    EXPECT_EQ(named.getNbHandlers("test.reload"), 2);
    EXPECT_TRUE(named.call("test.reload", "colors"));
    EXPECT_FALSE(named.call("test.nobody", "x"));
    EXPECT_EQ(log, (std::vector<std::string>{"first colors", "second colors"}));

    EXPECT_TRUE(named.remove("test.reload", &first));
    EXPECT_FALSE(named.remove("test.reload", &first));
    EXPECT_FALSE(named.remove("test.unknown", &first));
    log.clear();
    named.call("test.reload");
    EXPECT_EQ(log, (std::vector<std::string>{"second "}));
    named.remove("test.reload", &second);
    EXPECT_FALSE(named.hasCallback("test.reload"));

    int calls = 0;
    auto dying = std::make_unique<CbFunction<std::string>>([&](std::string&) { ++calls; });
    named.add("test.dying", dying.get());
    dying.reset();
    EXPECT_FALSE(named.call("test.dying"));
    // A handler removed during the call is skipped.
    CbFunction<std::string> later([&](std::string&) { ++calls; });
    CbFunction<std::string> remover([&](std::string&) { named.remove("test.remove", &later); });
    named.add("test.remove", &remover);
    named.add("test.remove", &later);
    named.call("test.remove");
    EXPECT_EQ(calls, 0);
    named.remove("test.remove", &remover);
    EXPECT_TRUE(named.getNames().empty());
}

} // namespace
} // namespace Zr
