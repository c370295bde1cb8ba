// Reading a hotkey domain the way a hotkey file is read: a bad Hotkey element is handed over and
// skipped, and the other bindings are kept.
#include "uiResDomain.h"

#include "xmlDocument.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace Zr {
namespace {

TEST(HotkeyDomain, BadHotkeysAreHandedOverAndTheRestIsRead) {
    XmlDocument document("<Domain Name='Viewers'>\n"
                         "<Hotkey Action='Zoom In' Key='Equal' Type='Press'/>\n"
                         "<Hotkey Action='Broken' Key='NoSuchKey' Type='Press'/>\n"
                         "<Hotkey Action='Half' Key='Tab'/>\n"
                         "<Hotkey Action='Unbound' Key='' Type='Press'/>\n"
                         "<Hotkey Action='Zoom Out' Key='Minus' Type='Press'/>\n"
                         "</Domain>",
                         "viewers");
    UiResDomain domain("/Local/Viewers", "Viewers");
    std::vector<std::string> bad;
    domain.read(document.getRoot(), [&bad](XmlElement const& hotkey, ExBase const& error) {
        bad.push_back(hotkey.getAttribute("Action") + " line " + std::to_string(hotkey.getLine()) +
                      ": " + error.getClassName());
    });
    EXPECT_EQ(bad, (std::vector<std::string>{"Broken line 3: EvUndefinedRelation",
                                             "Half line 4: UiExIncompleteHotkey"}));
    UiResDomain::Bindings const expected{
        {"Zoom In", UiHotkey::fromString("Equal")},
        {"Zoom Out", UiHotkey::fromString("Minus")},
    };
    EXPECT_EQ(domain.getHotkeys(), expected);
}

TEST(HotkeyDomain, AsAResourceOneBadHotkeyFailsTheDomainAndKeepsItsBindings) {
    UiResDomain domain("/Global", "Global");
    domain.addHotkey("Copy", UiHotkey::fromString("ctrl+C"));
    XmlDocument document("<Keys><Domain Name='Global'>"
                         "<Hotkey Action='Paste' Key='V' State='ctrl' Type='Press'/>"
                         "<Hotkey Action='Cut' Key='X' State='ctrl' Type='Hold'/>"
                         "</Domain></Keys>",
                         "table");
    try {
        domain.read(document.getRoot());
        FAIL() << "no exception";
    } catch (UiResourceEx::ExIncompleteResource const& e) {
        EXPECT_EQ(e.getReason(), "Error, wrong resource specification for resource 'Global'.");
    }
    EXPECT_EQ(domain.getHotkeys().size(), 1u);
    EXPECT_EQ(domain.getHotkeys().count({"Copy", UiHotkey::fromString("ctrl+C")}), 1u);

    std::istringstream badStream("Global Copy ctrl+C Hold");
    EXPECT_THROW(domain.read(badStream), UiResourceEx::ExIncompleteResource);
}

} // namespace
} // namespace Zr
