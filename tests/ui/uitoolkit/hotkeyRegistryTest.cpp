// The hotkey registry as widgets use it: entries by name, handlers, and key events dispatched
// until a handler takes them, with the switches for all hotkeys and for the keypad.
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

constexpr unsigned Shift = EvKeyboardState::Shift;
constexpr unsigned Ctrl = EvKeyboardState::Control;

// A handler that logs its name with the entry of the hotkey event, and takes it if asked.
class Logger : public CbHandler<EvEvent> {
public:
    Logger(std::vector<std::string>& log, std::string name, bool takes = false)
        : _log(log), _name(std::move(name)), _takes(takes) {}
    void call(EvEvent& e) override {
        auto& hotkey = dynamic_cast<EvHotkeyEvent&>(e);
        _log.push_back(_name + " " + std::to_string(hotkey.getEntry()));
        if (_takes)
            e.setProcessed();
    }

private:
    std::vector<std::string>& _log;
    std::string _name;
    bool _takes;
};
} // namespace

TEST(HotkeyRegistry, TheProcessWideRegistryKnowsTheTabbingEntries) {
    UiHotkeyRegistry& registry = UiHotkeyRegistry::getInstance();
    int const next = registry.getEntry(UiHotkeyRegistry::GlobalDomain, "Next Control");
    int const previous = registry.getEntry(LiString("Previous Control"));
    ASSERT_GT(next, 0);
    ASSERT_GT(previous, 0);
    EXPECT_EQ(registry.getEntry(LiString("Next Control")), next);
    EXPECT_EQ(registry.getHotkey(next), UiHotkey(EvKeyCode::Tab, EvKeyboardState()));
    EXPECT_EQ(*registry.getHotkey(LiString("Previous Control")),
              UiHotkey(EvKeyCode::Tab, EvKeyboardState(Shift)));
    EXPECT_GT(registry.getEntry("/Global", "Toggle Stencil Mode"), 0);
    EXPECT_EQ(registry.getPath(next), "/Global/Next Control");
    EXPECT_EQ(registry.getDomainPath(next), "/Global");
    EXPECT_EQ(registry.getEntry(LiString("No Such Action")), 0);
    EXPECT_EQ(registry.getEntry("/Local", "Next Control"), 0);
    EXPECT_EQ(registry.getHotkey(LiString("No Such Action")), nullptr);
    EXPECT_TRUE(registry.getHotkey(0).isEmpty());
}

TEST(HotkeyRegistry, PathOfAnUnknownEntryFailsAnAssertion) {
    UiHotkeyRegistry registry;
    for (int entry : {0, 99999}) {
        try {
            registry.getPath(entry);
            FAIL() << "no assertion";
        } catch (ExAssertionFailed const& e) {
            EXPECT_EQ(e.getReason(), "entryIt != reverseEntryMap.end()");
        }
        EXPECT_THROW(registry.getDomainPath(entry), ExAssertionFailed);
    }
}

TEST(HotkeyRegistry, HandlersRunInOrderUntilOneTakesTheKey) {
    UiHotkeyRegistry registry;
    int const entry = registry.addEntry("/Local/Test", "Shout", UiHotkey::fromString("ctrl+S"));
    std::vector<std::string> log;
    Logger first(log, "first"), taker(log, "taker", true), last(log, "last");
    registry.addHotkeyHandler(entry, &first);
    registry.addHotkeyHandler(entry, &taker);
    registry.addHotkeyHandler(entry, &last);
    registry.addHotkeyHandler(entry, &first); // once only
    EXPECT_EQ(registry.getNbHandlers(entry), 3);
    std::string const n = std::to_string(entry);

    EvKeyPressEvent other = press(EvKeyCode::letter('s'));
    registry.processEvent(other);
    EXPECT_TRUE(log.empty());
    EXPECT_FALSE(other.isProcessed());

    EvKeyPressEvent shout = press(EvKeyCode::letter('s'), Ctrl);
    registry.processEvent(shout);
    EXPECT_EQ(log, (std::vector<std::string>{"first " + n, "taker " + n}));
    EXPECT_TRUE(shout.isProcessed());

    log.clear();
    registry.removeHotkeyHandler(entry, &taker);
    EvKeyPressEvent again = press(EvKeyCode::letter('s'), Ctrl);
    registry.processEvent(again);
    EXPECT_EQ(log, (std::vector<std::string>{"first " + n, "last " + n}));
    EXPECT_FALSE(again.isProcessed());

    // Switched off, nothing is offered.
    log.clear();
    registry.processHotkeyEvents(false);
    EvKeyPressEvent off = press(EvKeyCode::letter('s'), Ctrl);
    registry.processEvent(off);
    EXPECT_TRUE(log.empty());
    registry.processHotkeyEvents(true);

    // A release is not the press hotkey.
    EvKeyReleaseEvent release;
    release.setTriggerKey(EvKeyCode::letter('s'));
    release.setKeyboardState(EvKeyboardState(Ctrl));
    registry.processEvent(release);
    EXPECT_TRUE(log.empty());

    registry.removeHotkeyHandler(&first);
    registry.removeHotkeyHandler(&last);
    EXPECT_EQ(registry.getNbHandlers(entry), 0);
}

TEST(HotkeyRegistry, AKeyOfTwoEntriesGoesToBothUntilOneTakesIt) {
    UiHotkeyRegistry registry;
    UiHotkey const f2 = UiHotkey::fromString("F2");
    int const viewer = registry.addEntry("/Local/Viewers", "Rename", f2);
    int const browser = registry.addEntry("/Local/Browser", "Rename", f2);
    std::vector<std::string> log;
    Logger viewerHandler(log, "viewer"), browserHandler(log, "browser");
    registry.addHotkeyHandler(viewer, &viewerHandler);
    registry.addHotkeyHandler(browser, &browserHandler);
    EvKeyPressEvent key = press(EvKeyCode::functionKey(2));
    registry.processEvent(key);
    EXPECT_EQ(log, (std::vector<std::string>{"viewer " + std::to_string(viewer),
                                             "browser " + std::to_string(browser)}));
    EXPECT_FALSE(key.isProcessed());

    // The first to take it ends the search.
    log.clear();
    Logger taker(log, "taker", true);
    registry.addHotkeyHandler(viewer, &taker);
    EvKeyPressEvent again = press(EvKeyCode::functionKey(2));
    registry.processEvent(again);
    EXPECT_EQ(log, (std::vector<std::string>{"viewer " + std::to_string(viewer),
                                             "taker " + std::to_string(viewer)}));
    EXPECT_TRUE(again.isProcessed());

    // Rebinding puts the entry behind the others of its new hotkey.
    log.clear();
    registry.replaceHotkey(viewer, UiHotkey::fromString("F3"));
    registry.replaceHotkey(viewer, f2);
    EvKeyPressEvent third = press(EvKeyCode::functionKey(2));
    registry.processEvent(third);
    EXPECT_EQ(log, (std::vector<std::string>{"browser " + std::to_string(browser),
                                             "viewer " + std::to_string(viewer),
                                             "taker " + std::to_string(viewer)}));
}

TEST(HotkeyRegistry, DestroyedHandlerLeavesByItself) {
    UiHotkeyRegistry registry;
    int const entry = registry.getEntry("/Global", "Toggle Stencil Mode");
    {
        CbFunction<EvEvent> temporary([](EvEvent& e) { e.setProcessed(); });
        registry.addHotkeyHandler(entry, &temporary);
        EXPECT_EQ(registry.getNbHandlers(entry), 1);
    }
    EXPECT_EQ(registry.getNbHandlers(entry), 0);
    EvKeyPressEvent key = press(EvKeyCode::functionKey(12), Ctrl | EvKeyboardState::Alt);
    registry.processEvent(key);
    EXPECT_FALSE(key.isProcessed());
}

TEST(HotkeyRegistry, KeypadKeysCanBeLeftToTheWidgets) {
    UiHotkeyRegistry registry;
    int const plus = registry.addEntry("/Local/Test", "Keypad Plus", UiHotkey::fromString("+"));
    int const enter = registry.addEntry("/Local/Test", "Keypad Enter",
                                        UiHotkey(EvKeyCode::KP_Enter, EvKeyboardState(Ctrl)));
    int const digit = registry.addEntry("/Local/Test", "Digit", UiHotkey::fromString("ctrl+7"));
    // The keypad's range is 40 to 67, named keys or not; 39 and 68 are outside it.
    int const lastOfPad =
        registry.addEntry("/Local/Test", "67", UiHotkey(EvKeyCode::KeyCode(67), EvKeyboardState()));
    int const below =
        registry.addEntry("/Local/Test", "39", UiHotkey(EvKeyCode::KeyCode(39), EvKeyboardState()));
    int const above =
        registry.addEntry("/Local/Test", "68", UiHotkey(EvKeyCode::KeyCode(68), EvKeyboardState()));
    int calls = 0;
    CbFunction<EvEvent> handler([&calls](EvEvent& e) {
        ++calls;
        e.setProcessed();
    });
    for (int entry : {plus, enter, digit, lastOfPad, below, above})
        registry.addHotkeyHandler(entry, &handler);

    registry.processKPHotkeyEvents(false);
    EXPECT_FALSE(registry.isProcessingKPHotkeyEvents());
    EvKeyPressEvent key = press(EvKeyCode::KP_Add);
    registry.processEvent(key);
    EvKeyPressEvent ctrlEnter = press(EvKeyCode::KP_Enter, Ctrl);
    registry.processEvent(ctrlEnter);
    EvKeyPressEvent sixtySeven = press(67);
    registry.processEvent(sixtySeven);
    EXPECT_EQ(calls, 0);
    EXPECT_FALSE(key.isProcessed());
    EXPECT_FALSE(ctrlEnter.isProcessed());
    EXPECT_FALSE(sixtySeven.isProcessed());
    // Keys off the keypad still go to their hotkeys.
    EvKeyPressEvent seven = press(EvKeyCode::digit(7), Ctrl);
    registry.processEvent(seven);
    EXPECT_EQ(calls, 1);
    EXPECT_TRUE(seven.isProcessed());
    EvKeyPressEvent thirtyNine = press(39);
    registry.processEvent(thirtyNine);
    EvKeyPressEvent sixtyEight = press(68);
    registry.processEvent(sixtyEight);
    EXPECT_EQ(calls, 3);

    registry.processKPHotkeyEvents(true);
    registry.processEvent(key);
    EXPECT_EQ(calls, 4);
    EXPECT_TRUE(key.isProcessed());
}

TEST(HotkeyRegistry, TellsWhetherAnEventIsAnEntrysHotkey) {
    UiHotkeyRegistry registry;
    int const copy = registry.addEntry("/Global", "Copy", UiHotkey::fromString("ctrl+C"));
    int const duplicate =
        registry.addEntry("/Local/Viewers", "Duplicate", UiHotkey::fromString("ctrl+C"));
    int const end =
        registry.addEntry("/Local/Test", "End", UiHotkey::fromString("Up", UiHotkey::Release));
    EvKeyPressEvent ctrlC = press(EvKeyCode::letter('c'), Ctrl);
    EXPECT_TRUE(registry.isHotkeyActivated(copy, ctrlC));
    EXPECT_TRUE(registry.isHotkeyActivated("/Global", "Copy", ctrlC));
    EXPECT_FALSE(registry.isHotkeyActivated("/Global", "Paste", ctrlC));
    EXPECT_FALSE(registry.isHotkeyActivated(end, ctrlC));
    EvKeyPressEvent plainC = press(EvKeyCode::letter('c'));
    EXPECT_FALSE(registry.isHotkeyActivated(copy, plainC));
    EvDefaultEvent notAKey;
    EXPECT_FALSE(registry.isHotkeyActivated(copy, notAKey));

    EvHotkeyEvent asHotkey(ctrlC, duplicate);
    EXPECT_TRUE(registry.isHotkeyActivated(duplicate, asHotkey));
    EXPECT_TRUE(registry.isHotkeyActivated(copy, asHotkey));
    EXPECT_FALSE(registry.isHotkeyActivated(end, asHotkey));

    EvKeyReleaseEvent upReleased;
    upReleased.setTriggerKey(EvKeyCode::Up);
    EXPECT_TRUE(registry.isHotkeyActivated(end, upReleased));
    EXPECT_FALSE(registry.isHotkeyActivated(end, press(EvKeyCode::Up)));
}

TEST(HotkeyRegistry, RendersAnEntryForMenus) {
    UiHotkeyRegistry registry;
    int const copy = registry.addEntry("/Global", "Copy", UiHotkey::fromString("ctrl+C"));
    int const end =
        registry.addEntry("/Local/Test", "End", UiHotkey::fromString("Up", UiHotkey::Release));
    EXPECT_EQ(registry.toString(copy, UiHotkeyRegistry::WholeHotkey), "ctrl+C");
    EXPECT_EQ(registry.toString(copy, UiHotkeyRegistry::TypeWord), "Press");
    EXPECT_EQ(registry.toString(end, UiHotkeyRegistry::TypeWord), "Release");
    EXPECT_EQ(registry.toString(end, static_cast<UiHotkeyRegistry::StringElement>(7)), "Up");
    registry.replaceHotkey(copy, UiHotkey());
    EXPECT_EQ(registry.toString(copy, UiHotkeyRegistry::WholeHotkey), "");
    EXPECT_EQ(registry.toString(4711, UiHotkeyRegistry::WholeHotkey), "");
}

TEST(HotkeyRegistry, TheFrameworkReachesTheProcessWideRegistryThroughItsInterface) {
    UiHotkeyRegistry& registry = UiHotkeyRegistry::getInstance();
    MfHotkeyRegistry* framework = MfHotkeyRegistry::getInstance();
    ASSERT_EQ(framework, &registry);

    int const entry = framework->getEntry("/Global", "Toggle Stencil Mode");
    ASSERT_NE(entry, 0);
    std::vector<std::string> log;
    Logger handler(log, "tool", true);
    framework->addHotkeyHandler(entry, &handler);
    EvKeyPressEvent key = press(EvKeyCode::functionKey(12), Ctrl | EvKeyboardState::Alt);
    EXPECT_TRUE(framework->isHotkeyActivated(entry, key));
    registry.processEvent(key);
    framework->removeHotkeyHandler(entry, &handler);
    EXPECT_TRUE(key.isProcessed());
    EXPECT_EQ(log, std::vector<std::string>{"tool " + std::to_string(entry)});
}
