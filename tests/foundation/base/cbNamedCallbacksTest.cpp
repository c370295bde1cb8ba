// Named callbacks: calling by name, order, removal and handlers that leave by dying.
#include "cbNamedCallbacks.h"

#include <gtest/gtest.h>

#include <memory>

namespace Zr {
namespace {

TEST(CbNamedCallbacksTest, CallsTheHandlersOfANameInOrder) {
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
    EXPECT_FALSE(named.call("test.reload"));
}

TEST(CbNamedCallbacksTest, DestroyedHandlerLeavesItsName) {
    CbNamedCallbacks& named = CbNamedCallbacks::getInstance();
    int calls = 0;
    auto handler = std::make_unique<CbFunction<std::string>>([&](std::string&) { ++calls; });
    named.add("test.dying", handler.get());
    EXPECT_EQ(named.getNames().size(), 1u + (named.hasCallback("test.reload") ? 1u : 0u));
    handler.reset();
    EXPECT_FALSE(named.call("test.dying"));
    EXPECT_EQ(calls, 0);
}

TEST(CbNamedCallbacksTest, HandlerRemovedDuringTheCallIsSkipped) {
    CbNamedCallbacks& named = CbNamedCallbacks::getInstance();
    int laterCalls = 0;
    CbFunction<std::string> later([&](std::string&) { ++laterCalls; });
    CbFunction<std::string> remover(
        [&](std::string&) { CbNamedCallbacks::getInstance().remove("test.remove", &later); });
    named.add("test.remove", &remover);
    named.add("test.remove", &later);
    named.call("test.remove");
    EXPECT_EQ(laterCalls, 0);
    named.remove("test.remove", &remover);
}

} // namespace
} // namespace Zr
