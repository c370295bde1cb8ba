// Entries made at run time: internal hotkeys (debugging ones only with ZR_USE_DEBUG_HOTKEYS),
// and dynamic hotkeys added, renamed and removed with their observer notifications.
#include "uiHotkeyRegistry.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

using namespace Zr;

namespace {

// Sets an environment variable for the scope, restoring what was there.
class EnvScope {
public:
    EnvScope(char const* name, char const* value) : _name(name) {
        if (char const* old = std::getenv(name))
            _old = old;
        if (value)
            ::setenv(name, value, 1);
        else
            ::unsetenv(name);
    }
    ~EnvScope() {
        if (_old.empty())
            ::unsetenv(_name);
        else
            ::setenv(_name, _old.c_str(), 1);
    }
    EnvScope(EnvScope const&) = delete;
    EnvScope& operator=(EnvScope const&) = delete;

private:
    char const* _name;
    std::string _old;
};

// Logs each notification's hints, and what the registry answers for them at that moment.
class HintLog : public ObObserver<UiHotkeyRegistry> {
public:
    void update(UiHotkeyRegistry& registry, ObHints const& hints) override {
        std::string line;
        for (auto const& hint : hints.getHints()) {
            auto const* named =
                dynamic_cast<UiHotkeyRegistry::DynamicHotkeyHint const*>(hint.get());
            ASSERT_NE(named, nullptr);
            bool const added = dynamic_cast<UiHotkeyRegistry::DynamicHotkeyAdded const*>(named);
            int const entry = registry.getEntry(named->getDomainPath(), named->getHotkeyAction());
            line += std::string(line.empty() ? "" : "; ") + (added ? "added " : "removed ") +
                    named->getDomainPath() + "/" + named->getHotkeyAction() +
                    (entry ? " (entry " + registry.getHotkey(entry).toString() + ")" : " (none)");
        }
        lines.push_back(line);
    }
    std::vector<std::string> lines;
};

} // namespace

TEST(HotkeyInternal, DebugHotkeysNeedTheVariable) {
    UiHotkey const f9 = UiHotkey::fromString("ctrl+F9");
    {
        EnvScope unset("ZR_USE_DEBUG_HOTKEYS", nullptr);
        UiHotkeyRegistry registry;
        std::size_t const before = registry.getEntryMap().size();
        EXPECT_EQ(
            registry.addInternalHotkey("/Global", "Dump", f9, UiHotkeyRegistry::InternalDebug), 0);
        EXPECT_TRUE(registry.getHotkey(0).isEmpty());
        EXPECT_EQ(registry.getEntryMap().size(), before);
        EXPECT_TRUE(registry.getHotkeyMap().find(f9) == registry.getHotkeyMap().end());
    }
    {
        EnvScope zero("ZR_USE_DEBUG_HOTKEYS", "0");
        UiHotkeyRegistry registry;
        EXPECT_EQ(
            registry.addInternalHotkey("/Global", "Dump", f9, UiHotkeyRegistry::InternalDebug), 0);
    }
    EnvScope on("ZR_USE_DEBUG_HOTKEYS", "1");
    UiHotkeyRegistry registry;
    int const dump =
        registry.addInternalHotkey("/Global", "Dump", f9, UiHotkeyRegistry::InternalDebug);
    ASSERT_GT(dump, 0);
    EXPECT_TRUE(registry.isInternal(dump));
    EXPECT_FALSE(registry.isDynamic(dump));
    EXPECT_EQ(registry.getHotkey(dump), f9);
    // The same pair again is the same entry, as it was.
    EXPECT_EQ(registry.addInternalHotkey("/Global", "Dump", UiHotkey::fromString("F8"),
                                         UiHotkeyRegistry::InternalDebug),
              dump);
    EXPECT_EQ(registry.getHotkey(dump), f9);
}

TEST(HotkeyInternal, ToolHotkeysAlwaysRegister) {
    EnvScope unset("ZR_USE_DEBUG_HOTKEYS", nullptr);
    UiHotkeyRegistry registry;
    int const editor = registry.addInternalHotkey("/Global", "Tooltip Editor",
                                                  UiHotkey::fromString("shift+ctrl+alt+F7"),
                                                  UiHotkeyRegistry::InternalTool);
    ASSERT_GT(editor, 0);
    EXPECT_TRUE(registry.isInternal(editor));
    EXPECT_FALSE(registry.isInternal(registry.getEntry("/Global", "Next Control")));
    EXPECT_FALSE(registry.isInternal(0));
}

TEST(HotkeyDynamic, AddRenameRemoveNotifyOnceTheMapsAreConsistent) {
    UiHotkeyRegistry registry;
    HintLog log;
    registry.attach(&log);
    UiHotkey const f6 = UiHotkey::fromString("F6");
    int const entry = registry.addDynamicHotkey("/Local/Tools/Paint", "Brush 1", f6);
    ASSERT_GT(entry, 0);
    EXPECT_TRUE(registry.isDynamic(entry));
    EXPECT_FALSE(registry.isInternal(entry));
    EXPECT_EQ(registry.getDynamicHotkeyUiName(entry), "Brush 1");
    EXPECT_EQ(registry.getDynamicHotkeyUiName(registry.getEntry("/Global", "Next Control")), "");
    EXPECT_EQ(log.lines, std::vector<std::string>{"added /Local/Tools/Paint/Brush 1 (entry F6)"});

    // Adding the pair again tells nobody.
    EXPECT_EQ(registry.addDynamicHotkey("/Local/Tools/Paint", "Brush 1", f6), entry);
    EXPECT_EQ(log.lines.size(), 1u);

    int calls = 0;
    CbFunction<EvEvent> handler([&calls](EvEvent& e) {
        ++calls;
        e.setProcessed();
    });
    registry.addHotkeyHandler(entry, &handler);

    log.lines.clear();
    EXPECT_TRUE(registry.renameDynamicHotkey("/Local/Tools/Paint", "Brush 1", "Soft Brush"));
    EXPECT_EQ(log.lines,
              std::vector<std::string>{"removed /Local/Tools/Paint/Brush 1 (none); "
                                       "added /Local/Tools/Paint/Soft Brush (entry F6)"});
    EXPECT_EQ(registry.getEntry("/Local/Tools/Paint", "Soft Brush"), entry);
    EXPECT_EQ(registry.getPath(entry), "/Local/Tools/Paint/Soft Brush");
    EvKeyPressEvent key;
    key.setTriggerKey(EvKeyCode::functionKey(6));
    registry.processEvent(key);
    EXPECT_EQ(calls, 1); // the handler stayed with the entry

    log.lines.clear();
    EXPECT_TRUE(registry.removeDynamicHotkey("/Local/Tools/Paint", "Soft Brush"));
    EXPECT_EQ(log.lines, std::vector<std::string>{"removed /Local/Tools/Paint/Soft Brush (none)"});
    EXPECT_EQ(registry.getEntry("/Local/Tools/Paint", "Soft Brush"), 0);
    EXPECT_TRUE(registry.getHotkey(entry).isEmpty());
    EXPECT_EQ(registry.getHotkeyMap().count(f6), 0u);
    EXPECT_EQ(registry.getReverseEntryMap().count(entry), 0u);
    EXPECT_EQ(handler.getNbDispatchers(), 0);
    EvKeyPressEvent after;
    after.setTriggerKey(EvKeyCode::functionKey(6));
    registry.processEvent(after);
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(after.isProcessed());

    // A new entry never reuses a number.
    EXPECT_GT(registry.addDynamicHotkey("/Local/Tools/Paint", "Soft Brush", f6), entry);
    registry.detach(&log);
}

TEST(HotkeyDynamic, OnlyKnownDynamicPairsAreRemovedOrRenamed) {
    UiHotkeyRegistry registry;
    HintLog log;
    registry.attach(&log);
    int const a = registry.addDynamicHotkey("/Local/Browser", "A", UiHotkey::fromString("alt+1"));
    registry.addDynamicHotkey("/Local/Browser", "B", UiHotkey::fromString("alt+2"));
    log.lines.clear();

    EXPECT_FALSE(registry.removeDynamicHotkey("/Local/Browser", "Nothing"));
    EXPECT_FALSE(registry.removeDynamicHotkey("/Local", "A"));
    EXPECT_FALSE(registry.removeDynamicHotkey("/Global", "Next Control")); // from the start-up
    EXPECT_GT(registry.getEntry("/Global", "Next Control"), 0);
    EXPECT_FALSE(registry.renameDynamicHotkey("/Local/Browser", "Nothing", "C"));
    EXPECT_FALSE(registry.renameDynamicHotkey("/Global", "Next Control", "Onwards"));
    EXPECT_FALSE(registry.renameDynamicHotkey("/Local/Browser", "A", "B")); // taken
    EXPECT_TRUE(registry.renameDynamicHotkey("/Local/Browser", "A", "A"));
    EXPECT_TRUE(log.lines.empty());
    EXPECT_EQ(registry.getEntry("/Local/Browser", "A"), a);
    registry.detach(&log);
}

TEST(HotkeyDynamic, AHandlerMayRemoveItsEntryWhileAKeyIsDispatched) {
    UiHotkeyRegistry registry;
    UiHotkey const f4 = UiHotkey::fromString("F4");
    registry.addDynamicHotkey("/Local/Browser", "Once", f4);
    int const other = registry.addEntry("/Local/Viewers", "Also", f4);
    std::vector<std::string> calls;
    CbFunction<EvEvent> remover([&](EvEvent&) {
        calls.push_back("remover");
        registry.removeDynamicHotkey("/Local/Browser", "Once");
    });
    CbFunction<EvEvent> after([&](EvEvent&) { calls.push_back("after"); });
    CbFunction<EvEvent> otherHandler([&](EvEvent&) { calls.push_back("other"); });
    registry.addHotkeyHandler(registry.getEntry("/Local/Browser", "Once"), &remover);
    registry.addHotkeyHandler(registry.getEntry("/Local/Browser", "Once"), &after);
    registry.addHotkeyHandler(other, &otherHandler);
    EvKeyPressEvent key;
    key.setTriggerKey(EvKeyCode::functionKey(4));
    registry.processEvent(key);
    EXPECT_EQ(calls, (std::vector<std::string>{"remover", "other"}));
}
