// The hotkey registry as widgets use it: entries by name, handlers, and key events dispatched
// until a handler takes them, with the switches for all hotkeys and for the keypad; entries made
// at run time (internal hotkeys, debugging ones only with ZR_USE_DEBUG_HOTKEYS, and dynamic
// hotkeys with their observer notifications); and hotkey files: the shipped defaults, bad files
// and bad bindings among good ones, the domain and action filters, rebinding and reset, and
// which bindings conflict.
#include "inPaths.h"
#include "support/exceptionReason.h"
#include "support/testSupport.h"
#include "uiHotkeyRegistry.h"
#include "uiResTable.h"
#include "uiTestSupport.h"
#include "xmlDocument.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

using namespace Zr;

namespace {
template <class Event = EvKeyPressEvent>
Event press(int key, unsigned modifiers = 0) {
    Event e;
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
        EXPECT_EQ(TestSupport::reasonOf<ExAssertionFailed>([&] { registry.getPath(entry); }),
                  "entryIt != reverseEntryMap.end()");
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
    EvKeyReleaseEvent release = press<EvKeyReleaseEvent>(EvKeyCode::letter('s'), Ctrl);
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
    // Keys off the keypad still go to their hotkeys.
    std::pair<int, unsigned> const keys[] = {{EvKeyCode::KP_Add, 0},
                                             {EvKeyCode::KP_Enter, Ctrl},
                                             {67, 0},
                                             {EvKeyCode::digit(7), Ctrl},
                                             {39, 0},
                                             {68, 0}};
    for (auto const& [code, modifiers] : keys) {
        EvKeyPressEvent key = press(code, modifiers);
        registry.processEvent(key);
        EXPECT_EQ(key.isProcessed(), code < 40 || code > 67) << code;
    }
    EXPECT_EQ(calls, 3);
    EvKeyPressEvent key = press(EvKeyCode::KP_Add);

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

    EXPECT_TRUE(registry.isHotkeyActivated(end, press<EvKeyReleaseEvent>(EvKeyCode::Up)));
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

namespace {

using TestSupport::EnvScope;

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
    for (char const* value : {static_cast<char const*>(nullptr), "0"}) {
        EnvScope off("ZR_USE_DEBUG_HOTKEYS", value);
        UiHotkeyRegistry registry;
        std::size_t const before = registry.getEntryMap().size();
        EXPECT_EQ(
            registry.addInternalHotkey("/Global", "Dump", f9, UiHotkeyRegistry::InternalDebug), 0);
        EXPECT_EQ(registry.getEntryMap().size(), before);
        EXPECT_EQ(registry.getHotkeyMap().count(f9), 0u);
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
    EvKeyPressEvent key = press(EvKeyCode::functionKey(6));
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
    EvKeyPressEvent after = press(EvKeyCode::functionKey(6));
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
    EvKeyPressEvent key = press(EvKeyCode::functionKey(4));
    registry.processEvent(key);
    EXPECT_EQ(calls, (std::vector<std::string>{"remover", "other"}));
}

using Zr::UiTest::Reports;

namespace {

XmlDocument document(std::string const& xml) {
    return XmlDocument(xml, "keys.xml");
}

int countOf(std::string const& text, std::string const& part) {
    int n = 0;
    for (auto pos = text.find(part); pos != std::string::npos; pos = text.find(part, pos + 1))
        ++n;
    return n;
}

} // namespace

TEST(HotkeyFile, TheShippedDefaultsLoadWithoutAReport) {
    Reports reports;
    UiHotkeyRegistry registry;
    EXPECT_EQ(registry.registerDefaultHotkeys(), 0);
    EXPECT_TRUE(reports.ids().empty());
    EXPECT_EQ(reports.log(), "");

    auto hotkey = [&registry](char const* domain, char const* action) {
        int const entry = registry.getEntry(domain, action);
        EXPECT_GT(entry, 0) << domain << "/" << action;
        return registry.getHotkey(entry).toString();
    };
    std::string keys;
    for (char const* action :
         {"Cut", "Copy", "Paste", "Select All", "Cancel", "Next Control", "Previous Control"})
        keys += hotkey("/Global", action) + " ";
    EXPECT_EQ(keys, "ctrl+X ctrl+C ctrl+V ctrl+A Escape Tab shift+Tab ");
    for (char const* action : {"Refresh", "Delete", "Reset", "Edit", "Full Screen", "Add Keyframe",
                               "Remove Keyframe", "Toggle Tooltip", "Toggle Stencil Mode"})
        EXPECT_NE(hotkey("/Global", action), "Unknown") << action;
    EXPECT_EQ(
        registry.getHotkey(registry.getEntry("/Local/UI Components/Value Editor", "Increment End")),
        UiHotkey::fromString("Up", UiHotkey::Release));
    for (char const* action : {"Left", "Escape", "Auto Complete", "Highlight Line End"})
        hotkey("/Local/UI Components/Text Components/Text Editor", action);
    hotkey("/Local/UI Components/Popup Message Box", "Accept");
    hotkey("/Local/UI Components/Scrolled List", "Down");

    // Every domain of a binding is known, and no default clashes with another.
    for (auto const& [path, entry] : registry.getEntryMap()) {
        EXPECT_EQ(registry.getDomainPaths().count(path.first), 1u) << path.first;
        std::string message;
        EXPECT_FALSE(registry.isConflicting(entry, registry.getHotkey(entry), message)) << message;
    }
}

TEST(HotkeyFile, TheStartUpCachedTheGlobalEntries) {
    UiHotkeyRegistry const& registry = UiHotkeyRegistry::getInstance();
    EXPECT_GT(UiGlobalHotkeys::Copy, 0);
    EXPECT_EQ(UiGlobalHotkeys::Copy, registry.getEntry("/Global", "Copy"));
    EXPECT_EQ(UiGlobalHotkeys::SelectAll, registry.getEntry("/Global", "Select All"));
    EXPECT_EQ(UiGlobalHotkeys::ToggleTooltip, registry.getEntry("/Global", "Toggle Tooltip"));
    EXPECT_EQ(registry.getHotkey(UiGlobalHotkeys::Cancel).toString(), "Escape");
}

TEST(HotkeyFile, EveryKindOfBadElementIsReportedOnceAndTheOthersLoad) {
    Reports reports;
    UiHotkeyRegistry registry;
    int const problems = registry.registerHotkeys(document(R"(<Hotkeys>
<Domain Name='Local'>
  <Hotkey Action='No Key' Type='Press'/>
  <Hotkey Action='No Type' Key='A'/>
  <Hotkey Action='Bad Type' Key='A' Type='Hold'/>
  <Hotkey Action='Bad State' Key='A' State='hyper' Type='Press'/>
  <Hotkey Key='B' Type='Press'/>
  <Hotkey Action='Twice' Key='C' Type='Press'/>
  <Hotkey Action='Twice' Key='D' Type='Press'/>
  <Hotkey Action='Unbound' Key='' Type='Press'/>
  <Hotkey Action='Good' Key='E' Type='Press'/>
  <Domain><Hotkey Action='Lost' Key='F' Type='Press'/></Domain>
  <Domain Name='a/b'><Hotkey Action='Lost' Key='F' Type='Press'/></Domain>
  <Domain Name='Viewers'>
    <Hotkey Action='Zoom In' Key='Equal' Type='Press'/>
    <Hotkey Action='Zoom Out' Key='NoSuchKey' Type='Press'/>
  </Domain>
</Domain>
</Hotkeys>)"));
    EXPECT_EQ(problems, 9);
    EXPECT_EQ(reports.ids(),
              std::vector<std::string>{"MSG_RESOURCE_RES_ERROR"}); // one for the file
    std::string const log = reports.log();
    EXPECT_EQ(countOf(log, "Hotkey error in keys.xml"), 9) << log;
    EXPECT_EQ(countOf(log, "Error, wrong resource specification for resource ''."), 2) << log;
    EXPECT_NE(log.find("\"Twice\": bound more than once; D is skipped"), std::string::npos) << log;
    EXPECT_NE(log.find("Hotkey error in keys.xml: line 16, domain \"/Local/Viewers\", action "
                       "\"Zoom Out\": Undefined key name \"NoSuchKey\""),
              std::string::npos)
        << log;
    // What is left: the good bindings and the first of the doubled one; nothing unbound.
    std::vector<std::string> paths;
    for (auto const& [path, entry] : registry.getEntryMap())
        if (path.first != "/Global")
            paths.push_back(registry.getPath(entry) + "=" + registry.getHotkey(entry).toString());
    EXPECT_EQ(paths, (std::vector<std::string>{"/Local/Good=E", "/Local/Twice=C",
                                               "/Local/Viewers/Zoom In=Equal"}));
}

TEST(HotkeyFile, UnreadableFilesAreReportedByName) {
    Reports reports;
    UiHotkeyRegistry registry;
    std::size_t const before = registry.getEntryMap().size();
    std::filesystem::path const dir = std::filesystem::temp_directory_path() / "zrHotkeyFileTest";
    std::filesystem::create_directories(dir);
    std::filesystem::path const broken = dir / "broken.xml";
    std::ofstream(broken) << "<Hotkeys><Domain Name='Global'>";
    EXPECT_EQ(registry.registerHotkeys(OsFilePath(broken)), 1);
    EXPECT_EQ(registry.registerHotkeys(OsFilePath(dir / "missing.xml")), 1);
    std::filesystem::remove_all(dir);
    EXPECT_EQ(reports.ids().size(), 2u);
    EXPECT_NE(
        reports.log().find("Hotkey error in " + broken.string() + ": the file could not be read"),
        std::string::npos)
        << reports.log();
    EXPECT_NE(reports.log().find("missing.xml: the file could not be read"), std::string::npos);
    EXPECT_EQ(registry.getEntryMap().size(), before);
}

TEST(HotkeyFile, FiltersKeepOneDomainOrOneAction) {
    std::string const xml = R"(<Hotkeys><Domain Name='Local'><Domain Name='Viewers'>
      <Domain Name='Player'><Hotkey Action='Play' Key='Space' Type='Press'/></Domain>
      <Hotkey Action='Zoom In' Key='Equal' Type='Press'/>
      <Hotkey Action='Zoom Out' Key='Minus' Type='Press'/></Domain>
    <Hotkey Action='Local Thing' Key='L' Type='Press'/></Domain></Hotkeys>)";
    Reports reports;
    UiHotkeyRegistry byDomain;
    byDomain.registerHotkeys(document(xml), "/Local/Viewers", "");
    EXPECT_GT(byDomain.getEntry("/Local/Viewers", "Zoom In"), 0);
    EXPECT_GT(byDomain.getEntry("/Local/Viewers", "Zoom Out"), 0);
    EXPECT_EQ(byDomain.getEntry("/Local/Viewers/Player", "Play"), 0); // inner, filtered too
    EXPECT_EQ(byDomain.getEntry("/Local", "Local Thing"), 0);

    UiHotkeyRegistry inner;
    inner.registerHotkeys(document(xml), "/Local/Viewers/Player", "");
    EXPECT_GT(inner.getEntry("/Local/Viewers/Player", "Play"), 0);
    EXPECT_EQ(inner.getEntry("/Local/Viewers", "Zoom In"), 0);

    UiHotkeyRegistry byAction;
    byAction.registerHotkeys(document(xml), "", "Zoom Out");
    EXPECT_GT(byAction.getEntry("/Local/Viewers", "Zoom Out"), 0);
    EXPECT_EQ(byAction.getEntry("/Local/Viewers", "Zoom In"), 0);
    EXPECT_EQ(byAction.getEntry("/Local/Viewers/Player", "Play"), 0);

    UiHotkeyRegistry all;
    all.registerHotkeys(document(xml));
    // Inner domains register before outer ones.
    EXPECT_LT(all.getEntry("/Local/Viewers/Player", "Play"),
              all.getEntry("/Local/Viewers", "Zoom In"));
    EXPECT_LT(all.getEntry("/Local/Viewers", "Zoom Out"), all.getEntry("/Local", "Local Thing"));
    EXPECT_TRUE(reports.ids().empty());
}

TEST(HotkeyFile, ResetReturnsTheFilesHotkey) {
    UiHotkeyRegistry registry;
    registry.registerHotkeys(document("<Hotkeys><Domain Name='Global'>"
                                      "<Hotkey Action='Copy' Key='C' State='ctrl' Type='Press'/>"
                                      "</Domain></Hotkeys>"));
    int const copy = registry.getEntry("/Global", "Copy");
    registry.replaceHotkey(copy, UiHotkey::fromString("alt+C"));
    EXPECT_EQ(registry.getHotkey(copy).toString(), "alt+C");
    EXPECT_EQ(registry.getDefaultHotkey(copy).toString(), "ctrl+C");
    EvKeyPressEvent oldKey = press(EvKeyCode::letter('c'), Ctrl);
    EXPECT_FALSE(registry.isHotkeyActivated(copy, oldKey));
    registry.reset(copy);
    EXPECT_EQ(registry.getHotkey(copy).toString(), "ctrl+C");
    EXPECT_TRUE(registry.isHotkeyActivated(copy, oldKey));
    EXPECT_EQ(registry.getHotkeyMap().count(UiHotkey::fromString("alt+C")), 0u);

    // A second file rebinds the known entry, keeping its number; that becomes the default.
    registry.registerHotkeys(document("<Hotkeys><Domain Name='Global'>"
                                      "<Hotkey Action='Copy' Key='Insert' State='ctrl' "
                                      "Type='Press'/></Domain></Hotkeys>"));
    EXPECT_EQ(registry.getEntry("/Global", "Copy"), copy);
    registry.replaceHotkey(copy, UiHotkey());
    registry.reset(copy);
    EXPECT_EQ(registry.getHotkey(copy).toString(), "ctrl+Insert");
    EXPECT_EQ(registry.getHotkeyMap().count(UiHotkey::fromString("ctrl+C")), 0u);

    // An entry made without a key has no default: reset leaves it unbound.
    int const bare = registry.addEntry("/Local", "Bare", UiHotkey());
    registry.replaceHotkey(bare, UiHotkey::fromString("B"));
    registry.reset(bare);
    EXPECT_TRUE(registry.getHotkey(bare).isEmpty());
    EXPECT_EQ(registry.getHotkeyMap().count(UiHotkey::fromString("B")), 0u);
}

TEST(HotkeyConflicts, OverlappingDomainsConflictAndNameTheOtherEntry) {
    UiHotkeyRegistry registry;
    UiHotkey const ctrlJ = UiHotkey::fromString("ctrl+J");
    int const viewers = registry.addEntry("/Local/Viewers", "Jump", ctrlJ);
    int const player = registry.addEntry("/Local/Viewers/Player", "Nothing Yet", UiHotkey());
    int const sibling = registry.addEntry("/Local/Viewers2", "Other", UiHotkey());
    int const global = registry.addEntry("/Global", "Other", UiHotkey());
    int const local = registry.addEntry("/Local", "Other", UiHotkey());
    int const same = registry.addEntry("/Local/Viewers", "Second", UiHotkey());

    std::string message;
    EXPECT_TRUE(registry.isConflicting(same, ctrlJ, message));
    EXPECT_EQ(message, "The hotkey \"ctrl+J\" is already bound to \"/Local/Viewers/Jump\".");
    EXPECT_TRUE(registry.isConflicting(player, ctrlJ, message)); // below
    EXPECT_TRUE(registry.isConflicting(local, ctrlJ, message));  // above
    EXPECT_FALSE(registry.isConflicting(sibling, ctrlJ, message));
    EXPECT_EQ(message, "");
    EXPECT_FALSE(registry.isConflicting(global, ctrlJ, message));
    EXPECT_FALSE(registry.isConflicting(viewers, ctrlJ, message)); // itself
    EXPECT_FALSE(registry.isConflicting(same, UiHotkey::fromString("ctrl+K"), message));
    EXPECT_FALSE(
        registry.isConflicting(same, UiHotkey::fromString("ctrl+J", UiHotkey::Release), message));
}

TEST(HotkeyConflicts, SharedKeysAndClicksNeverConflict) {
    UiHotkeyRegistry registry;
    int const a = registry.addEntry("/Local", "A", UiHotkey());
    for (char const* text : {"Escape", "Space", "Tab", "LeftClick", "MiddleClick", "RightClick",
                             "shift+Tab", "ctrl+LeftClick"})
        registry.addEntry("/Local/Inner", text, UiHotkey::fromString(text));
    std::string message;
    for (char const* text : {"Esc", "Space", "Tab", "LeftClick", "MiddleClick", "RightClick"})
        EXPECT_FALSE(registry.isConflicting(a, UiHotkey::fromString(text), message)) << text;
    EXPECT_TRUE(registry.isConflicting(a, UiHotkey::fromString("shift+Tab"), message));
    EXPECT_TRUE(registry.isConflicting(a, UiHotkey::fromString("ctrl+LeftClick"), message));

    EXPECT_TRUE(registry.isClickHotkey(UiHotkey::fromString("RightClick")));
    EXPECT_FALSE(registry.isClickHotkey(UiHotkey::fromString("ctrl+RightClick")));
    EXPECT_FALSE(registry.isClickHotkey(UiHotkey::fromString("F1")));
}
