// Hotkey files and widget definitions nested on purpose far deeper than any real one: they are
// refused past a stated depth with a report, never by running out of stack.
#include "uiTestSupport.h"

#include "uiHotkeyRegistry.h"
#include "uiWidgetFactory.h"

#include "xmlDocument.h"

#include <gtest/gtest.h>

namespace Zr {
namespace {

// `depth` elements opened by `open` and closed by `close`, around `inner`.
std::string nested(int depth, std::string const& open, std::string const& inner,
                   std::string const& close) {
    std::string text;
    text.reserve(static_cast<std::size_t>(depth) * (open.size() + close.size()) + inner.size());
    for (int i = 0; i < depth; ++i)
        text += open;
    text += inner;
    for (int i = 0; i < depth; ++i)
        text += close;
    return text;
}

TEST(HostileNesting, DeepHotkeyDomainsAreSkippedWithOneReport) {
    for (int depth : {32, 33, 20000}) {
        SCOPED_TRACE(depth);
        UiTest::Reports reports;
        UiHotkeyRegistry registry;
        XmlDocument document("<Hotkeys>" +
                                 nested(depth, "<Domain Name='d'>",
                                        "<Hotkey Action='Deep' Key='F' Type='Press'/>",
                                        "</Domain>") +
                                 "</Hotkeys>",
                             "deep.xml");
        int const problems = registry.registerHotkeys(document);
        std::string path;
        for (int i = 0; i < std::min(depth, 32); ++i)
            path += "/d";
        if (depth <= 32) {
            EXPECT_EQ(problems, 0);
            EXPECT_GT(registry.getEntry(path, "Deep"), 0);
        } else {
            EXPECT_EQ(problems, 1);
            EXPECT_NE(reports.log().find("Hotkey error in deep.xml: line 1, domain \"" + path +
                                         "/d\": domains nest at most 32 deep; it and its inner "
                                         "domains are skipped"),
                      std::string::npos)
                << reports.log().substr(0, 300);
        }
    }
}

TEST(HostileNesting, DeepWidgetDefinitionsAreRefused) {
    UiWidgetFactory::registerToolkitFactories();
    RCShdPtr<UiTest::TestRoot> root = UiTest::TestRoot::make({0, 400, 0, 300});
    std::string const container = "<Container><Widget Name='c'/><Group Type='Children'>";
    // The outer container is one element deep, and each inner one two more.
    for (int depth : {128, 129, 20000}) {
        SCOPED_TRACE(depth);
        std::string const text = nested(depth, container, "", "</Group></Container>");
        if (depth <= 128) {
            EXPECT_TRUE(UiWidgetFactory::createWidgetFromText(RCShdPtr<UiContainer>(root), text,
                                                              "deep.xml"));
            continue;
        }
        try {
            UiWidgetFactory::createWidgetFromText(RCShdPtr<UiContainer>(root), text, "deep.xml");
            ADD_FAILURE() << "built";
        } catch (UiWidgetDefinitionEx const& ex) {
            EXPECT_EQ(ex.getReason(), "definition nested deeper than 256 elements");
            EXPECT_EQ(ex.getWhere(), "deep.xml:1");
        }
    }
    EXPECT_EQ(root->getChildrenList().size(), 1u); // what was built of the refused ones is gone
}

} // namespace
} // namespace Zr
