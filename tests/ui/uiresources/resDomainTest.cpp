// Tests of UiResDomain: the hotkeys of a domain in XML and text, and the bindings set.
#include "uiResDomain.h"
#include "uiResRegistry.h"

#include "xmlDocument.h"
#include "xmlWriter.h"

#include <gtest/gtest.h>

#include <sstream>

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

TEST(ResDomain, MissingDomainOrKeyIsAResourceError) {
    UiResDomain domain("/Global", "Global");
    XmlDocument noDomain("<Keys><Int>1</Int></Keys>", "domain");
    EXPECT_THROW(domain.read(noDomain.getRoot()), UiResourceEx::ExIncompleteResource);
    XmlDocument badKey("<Keys><Domain Name='Global'><Hotkey Action='x' Key='NoSuchKey'/></Domain>"
                       "</Keys>",
                       "domain");
    EXPECT_THROW(domain.read(badKey.getRoot()), UiResourceEx::ExIncompleteResource);
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

} // namespace
} // namespace Zr
