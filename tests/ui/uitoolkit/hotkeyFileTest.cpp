// Hotkey files: the shipped defaults, bad files and bad bindings among good ones, the domain and
// action filters, rebinding and reset, and which bindings conflict.
#include "uiHotkeyRegistry.h"
#include "uiResTable.h"
#include "uiTestSupport.h"

#include "inPaths.h"
#include "xmlDocument.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

using namespace Zr;
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
    EXPECT_EQ(hotkey("/Global", "Cut"), "ctrl+X");
    EXPECT_EQ(hotkey("/Global", "Copy"), "ctrl+C");
    EXPECT_EQ(hotkey("/Global", "Paste"), "ctrl+V");
    EXPECT_EQ(hotkey("/Global", "Select All"), "ctrl+A");
    EXPECT_EQ(hotkey("/Global", "Cancel"), "Escape");
    EXPECT_EQ(hotkey("/Global", "Next Control"), "Tab");
    EXPECT_EQ(hotkey("/Global", "Previous Control"), "shift+Tab");
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

TEST(HotkeyFile, OneBadBindingIsReportedAndTheOthersLoad) {
    Reports reports;
    UiHotkeyRegistry registry;
    int const problems = registry.registerHotkeys(
        document("<Hotkeys>\n"
                 "<Domain Name='Local'>\n"
                 "  <Domain Name='Viewers'>\n"
                 "    <Hotkey Action='Zoom In' Key='Equal' Type='Press'/>\n"
                 "    <Hotkey Action='Zoom Out' Key='NoSuchKey' Type='Press'/>\n"
                 "    <Hotkey Action='Zoom All' Key='F' Type='Press'/>\n"
                 "  </Domain>\n"
                 "</Domain>\n"
                 "</Hotkeys>"));
    EXPECT_EQ(problems, 1);
    EXPECT_GT(registry.getEntry("/Local/Viewers", "Zoom In"), 0);
    EXPECT_GT(registry.getEntry("/Local/Viewers", "Zoom All"), 0);
    EXPECT_EQ(registry.getEntry("/Local/Viewers", "Zoom Out"), 0);
    EXPECT_EQ(reports.ids(), std::vector<std::string>{"MSG_RESOURCE_RES_ERROR"});
    std::string const log = reports.log();
    EXPECT_NE(log.find("Hotkey error in keys.xml: line 5, domain \"/Local/Viewers\", action "
                       "\"Zoom Out\": Undefined key name \"NoSuchKey\""),
              std::string::npos)
        << log;
}

TEST(HotkeyFile, EveryKindOfBadElementIsReportedOnce) {
    Reports reports;
    UiHotkeyRegistry registry;
    int const problems = registry.registerHotkeys(
        document("<Hotkeys>"
                 "<Domain Name='Local'>"
                 "  <Hotkey Action='No Key' Type='Press'/>"
                 "  <Hotkey Action='No Type' Key='A'/>"
                 "  <Hotkey Action='Bad Type' Key='A' Type='Hold'/>"
                 "  <Hotkey Action='Bad State' Key='A' State='hyper' Type='Press'/>"
                 "  <Hotkey Key='B' Type='Press'/>"
                 "  <Hotkey Action='Twice' Key='C' Type='Press'/>"
                 "  <Hotkey Action='Twice' Key='D' Type='Press'/>"
                 "  <Hotkey Action='Unbound' Key='' Type='Press'/>"
                 "  <Hotkey Action='Good' Key='E' Type='Press'/>"
                 "  <Domain><Hotkey Action='Lost' Key='F' Type='Press'/></Domain>"
                 "  <Domain Name='a/b'><Hotkey Action='Lost' Key='F' Type='Press'/></Domain>"
                 "</Domain>"
                 "</Hotkeys>"));
    EXPECT_EQ(problems, 8);
    EXPECT_EQ(reports.ids().size(), 1u); // one warning for the file
    std::string const log = reports.log();
    EXPECT_EQ(countOf(log, "Hotkey error in keys.xml"), 8) << log;
    EXPECT_EQ(countOf(log, "Error, wrong resource specification for resource ''."), 2) << log;
    EXPECT_NE(log.find("\"Twice\": bound more than once; D is skipped"), std::string::npos) << log;
    // What is left: the good binding and the first of the doubled one; nothing unbound.
    std::vector<std::string> paths;
    for (auto const& [path, entry] : registry.getEntryMap())
        if (path.first != "/Global")
            paths.push_back(registry.getPath(entry) + "=" + registry.getHotkey(entry).toString());
    EXPECT_EQ(paths, (std::vector<std::string>{"/Local/Good=E", "/Local/Twice=C"}));
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
    std::string const xml = "<Hotkeys>"
                            "<Domain Name='Local'>"
                            "  <Domain Name='Viewers'>"
                            "    <Domain Name='Player'><Hotkey Action='Play' Key='Space' "
                            "Type='Press'/></Domain>"
                            "    <Hotkey Action='Zoom In' Key='Equal' Type='Press'/>"
                            "    <Hotkey Action='Zoom Out' Key='Minus' Type='Press'/>"
                            "  </Domain>"
                            "  <Hotkey Action='Local Thing' Key='L' Type='Press'/>"
                            "</Domain>"
                            "</Hotkeys>";
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
    EvKeyPressEvent oldKey;
    oldKey.setTriggerKey(EvKeyCode::letter('c'));
    oldKey.setKeyboardState(EvKeyboardState(EvKeyboardState::Control));
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
