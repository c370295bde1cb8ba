// UiResDomain: the hotkeys of a domain in XML and text, and the bindings set; read the way a
// hotkey file is read, a bad Hotkey element is handed over and skipped and the other bindings
// are kept, while read as a resource one bad hotkey fails the domain.
#include "support/exceptionReason.h"
#include "uiResDomain.h"
#include "uiResRegistry.h"
#include "xmlDocument.h"
#include "xmlWriter.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace Zr {
namespace {

TEST(ResDomain, ReadsHotkeysAndSkipsThoseWithoutKey) {
    UiResDomain domain("/Local/Viewers", "Viewers");
    XmlDocument document("<Domain Name='Viewers'>"
                         "<Hotkey Action='Next Control' Key='Tab' Type='Press'/>"
                         "<Hotkey Action='Previous Control' Key='Tab' State='shift' Type='Press'/>"
                         "</Domain>",
                         "domain");
    domain.read(document.getRoot());
    EXPECT_EQ(domain.getPath(), "/Local/Viewers");
    ASSERT_EQ(domain.getHotkeys().size(), 2u);
    EXPECT_EQ(domain.getHotkeys().count({"Next Control", UiHotkey::fromString("Tab")}), 1u);

    domain.addHotkey("Next Control", UiHotkey::fromString("Tab"));
    domain.addHotkey("Nothing", UiHotkey());
    EXPECT_EQ(domain.getHotkeys().size(), 2u);
    domain.removeHotkey("Next Control", UiHotkey::fromString("Tab"));
    EXPECT_EQ(domain.getHotkeys().size(), 1u);
}

TEST(ResDomain, MissingDomainIsAResourceErrorAndAnEmptyOneIsNot) {
    UiResDomain domain("/Global", "Global");
    XmlDocument noDomain("<Keys><Int>1</Int></Keys>", "domain");
    EXPECT_THROW(domain.read(noDomain.getRoot()), UiResourceEx::ExIncompleteResource);
    XmlDocument empty("<Keys><Domain Name='Global'/></Keys>", "domain");
    EXPECT_NO_THROW(domain.read(empty.getRoot()));
    EXPECT_TRUE(domain.getHotkeys().empty());
}

TEST(ResDomain, TextAndXmlRoundTrips) {
    UiResDomain domain("/Global", "Global");
    domain.addHotkey("Select All", UiHotkey::fromString("ctrl+A"));
    domain.addHotkey("Cancel", UiHotkey::fromString("Escape", UiHotkey::Release));
    std::ostringstream text;
    domain.write(text, false);
    UiResDomain fromText("/Global", "", text.str().c_str());
    EXPECT_EQ(fromText.getName(), "Global");
    EXPECT_EQ(fromText.getHotkeys(), domain.getHotkeys());

    std::ostringstream xml;
    {
        XmlWriter writer(xml);
        XmlWriter::ElementGuard guard(writer, "Keys");
        domain.write(writer, true);
    }
    XmlDocument document(xml.str(), "domain");
    RCShdPtr<UiResource> back = UiResRegistry::getInstance().getResource("Domain");
    ASSERT_TRUE(back);
    back->read(document.getRoot());
    EXPECT_EQ(dynamicCast<UiResDomain>(back)->getHotkeys(), domain.getHotkeys());
}

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
    EXPECT_EQ(TestSupport::reasonOf<UiResourceEx::ExIncompleteResource>(
                  [&] { domain.read(document.getRoot()); }),
              "Error, wrong resource specification for resource 'Global'.");
    EXPECT_EQ(domain.getHotkeys().size(), 1u);
    EXPECT_EQ(domain.getHotkeys().count({"Copy", UiHotkey::fromString("ctrl+C")}), 1u);

    std::istringstream badStream("Global Copy ctrl+C Hold");
    EXPECT_THROW(domain.read(badStream), UiResourceEx::ExIncompleteResource);
}

} // namespace
} // namespace Zr
