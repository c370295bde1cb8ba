// The hotkey registry as widgets use it: the tabbing entries, handlers by action name, and key
// events dispatched until a handler takes them.
#include "uiHotkeyRegistry.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace Zr;

namespace {
EvKeyPressEvent press(int key, unsigned modifiers = 0) {
    EvKeyPressEvent e;
    e.setTriggerKey(key);
    e.setKeyboardState(EvKeyboardState(modifiers));
    return e;
}
} // namespace

TEST(HotkeyRegistry, KnowsTheTabbingEntries) {
    UiHotkeyRegistry& registry = UiHotkeyRegistry::getInstance();
    int const next = registry.getEntry("Next Control");
    int const previous = registry.getEntry("Previous Control");
    ASSERT_GT(next, 0);
    ASSERT_GT(previous, 0);
    EXPECT_EQ(registry.getHotkey(next), UiHotkey(EvKeyCode::Tab, EvKeyboardState()));
    EXPECT_EQ(*registry.getHotkey(LiString("Previous Control")),
              UiHotkey(EvKeyCode::Tab, EvKeyboardState(EvKeyboardState::Shift)));
    EXPECT_GT(registry.getEntry("Toggle Stencil Mode"), 0);
    EXPECT_EQ(registry.getPath(next), "/Global/Next Control");
    EXPECT_EQ(registry.getEntry("No Such Action"), 0);
    EXPECT_EQ(registry.getHotkey(LiString("No Such Action")), nullptr);
    EXPECT_TRUE(registry.getHotkey(0).isEmpty());
}

TEST(HotkeyRegistry, PathOfAnUnknownEntryFailsAnAssertion) {
    try {
        UiHotkeyRegistry::getInstance().getPath(99999);
        FAIL() << "no assertion";
    } catch (ExAssertionFailed const& e) {
        EXPECT_EQ(e.getReason(), "entryIt != reverseEntryMap.end()");
    }
}

TEST(HotkeyRegistry, HandlersRunInOrderUntilOneTakesTheKey) {
    UiHotkeyRegistry& registry = UiHotkeyRegistry::getInstance();
    int const entry = registry.addEntry("/Local/Test", "Shout", UiHotkey::fromString("ctrl+S"));
    std::vector<std::string> log;
    CbFunction<EvEvent> first([&](EvEvent& e) {
        log.push_back("first " + std::to_string(dynamic_cast<EvHotkeyEvent&>(e).getEntry()));
    });
    CbFunction<EvEvent> taker([&](EvEvent& e) {
        log.push_back("taker");
        e.setProcessed();
    });
    CbFunction<EvEvent> last([&](EvEvent&) { log.push_back("last"); });
    registry.registerHandler("Shout", &first);
    registry.registerHandler("Shout", &taker);
    registry.registerHandler("Shout", &last);

    EvKeyPressEvent other = press(EvKeyCode::letter('s'));
    registry.processEvent(other);
    EXPECT_TRUE(log.empty());
    EXPECT_FALSE(other.isProcessed());

    EvKeyPressEvent shout = press(EvKeyCode::letter('s'), EvKeyboardState::Control);
    registry.processEvent(shout);
    EXPECT_EQ(log, (std::vector<std::string>{"first " + std::to_string(entry), "taker"}));
    EXPECT_TRUE(shout.isProcessed());

    log.clear();
    registry.unregisterHandler("Shout", &taker);
    EvKeyPressEvent again = press(EvKeyCode::letter('s'), EvKeyboardState::Control);
    registry.processEvent(again);
    EXPECT_EQ(log, (std::vector<std::string>{"first " + std::to_string(entry), "last"}));
    EXPECT_FALSE(again.isProcessed());

    // Switched off, nothing is offered.
    log.clear();
    registry.processHotkeyEvents(false);
    EvKeyPressEvent off = press(EvKeyCode::letter('s'), EvKeyboardState::Control);
    registry.processEvent(off);
    registry.processHotkeyEvents(true);
    EXPECT_TRUE(log.empty());
    registry.removeHotkeyHandler(&first);
    registry.removeHotkeyHandler(&last);
}

TEST(HotkeyRegistry, DestroyedHandlerLeavesByItself) {
    UiHotkeyRegistry& registry = UiHotkeyRegistry::getInstance();
    int const entry = registry.getEntry("Toggle Stencil Mode");
    int const before = registry.getNbHandlers(entry);
    {
        CbFunction<EvEvent> temporary([](EvEvent&) {});
        registry.addHotkeyHandler(entry, &temporary);
        EXPECT_EQ(registry.getNbHandlers(entry), before + 1);
    }
    EXPECT_EQ(registry.getNbHandlers(entry), before);
    EvKeyPressEvent key =
        press(EvKeyCode::functionKey(12), EvKeyboardState::Control | EvKeyboardState::Alt);
    registry.processEvent(key);
    EXPECT_FALSE(key.isProcessed());
}

TEST(HotkeyRegistry, KeypadKeysCanBeLeftToTheWidgets) {
    UiHotkeyRegistry& registry = UiHotkeyRegistry::getInstance();
    registry.addEntry("/Local/Test", "Keypad Plus", UiHotkey(EvKeyCode::KP_Add, EvKeyboardState()));
    int calls = 0;
    CbFunction<EvEvent> handler([&calls](EvEvent& e) {
        ++calls;
        e.setProcessed();
    });
    registry.registerHandler("Keypad Plus", &handler);
    registry.processKPHotkeyEvents(false);
    EvKeyPressEvent key = press(EvKeyCode::KP_Add);
    registry.processEvent(key);
    registry.processKPHotkeyEvents(true);
    EXPECT_EQ(calls, 0);
    EXPECT_FALSE(key.isProcessed());
    registry.processEvent(key);
    EXPECT_EQ(calls, 1);
    registry.unregisterHandler("Keypad Plus", &handler);
}
