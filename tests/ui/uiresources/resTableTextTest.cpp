// Tests of the text form of resource tables: statements, quoting, every value type written and
// read back, each reported error with the good statements around it kept, and files.
#include "resourcesTestSupport.h"

#include "uiColorRegistry.h"
#include "uiResAlign.h"
#include "uiResColor.h"
#include "uiResConstraint.h"
#include "uiResCoord.h"
#include "uiResDomain.h"
#include "uiResDouble.h"
#include "uiResFrame.h"
#include "uiResInt.h"
#include "uiResMinMax.h"
#include "uiResTable.h"
#include "uiResText.h"

#include "osFilePath.h"
#include "xmlWriter.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <unistd.h>

namespace Zr {
namespace {

std::vector<std::string> names(UiResSet const& set) {
    std::vector<std::string> result;
    for (RCShdPtr<UiResource> const& r : set)
        result.push_back(r->getName());
    return result;
}

std::string textForm(UiResTable const& table) {
    std::ostringstream os;
    table.writeTableText(os);
    return os.str();
}

std::string xmlForm(UiResTable const& table) {
    std::ostringstream os;
    {
        XmlWriter writer(os);
        table.writeTable(writer);
    }
    return os.str();
}

template <class T>
RCShdPtr<UiResource> make(T* resource) {
    return RCShdPtr<UiResource>(resource);
}

// One widget with a resource of every type, with the awkward cases of each text form; with
// `oddNames`, resource names that only the text form can hold.
UiResTable everyType(bool oddNames) {
    UiResTable t;
    t.set("panel", make(new UiResInt("Values", "1 -2 2147483647")));
    t.set("panel", make(new UiResDouble("Scales", "0.1 -1e-300 3")));
    RCShdPtr<UiResText> text(new UiResText("Label"));
    for (char const* s : {"plain", "two words", "", "say \"hi\"", "back\\slash\\", "\"lead",
                          "line\nbreak", "tab\there"})
        text->append(s);
    t.set("panel", text);
    t.set("panel", make(new UiResAlign("Align", UiResAlign::Right, UiResAlign::Top, 3, -2)));
    t.set("panel", make(new UiResMinMax("Range", -0.1, 1e10, 1.0 / 3.0)));
    t.set("panel", make(new UiResCoord("Rectangle", GeRectangle<int>::fromSize(-5, 7, 20, 30))));
    t.set("panel",
          make(new UiResConstraint("Layout", "0.7 u s left 1 % b 10 uu w -3.25 p so top")));
    t.set("panel", make(new UiResColor("Background", CoRgbColorTyped<float>(0.1f, 0.5f, 1.f))));
    t.set("panel", make(new UiResFrame("DefaultFrame", "Border")));
    t.set("panel", make(new UiResDomain("", "Keys",
                                        "Keys \"Zoom In\" ctrl+Return Press "
                                        "Next Tab Release")));
    if (oddNames) {
        // Names a reader would otherwise take for a keyword or a comment.
        t.set("panel", make(new UiResInt("Widget", "1")));
        t.set("panel", make(new UiResInt("#hash", "2")));
    }
    t.set("two words", make(new UiResText("Label", "x")));
    t.addResourceSet("empty", nullptr);
    return t;
}

class ResTableText : public ResourceReportTest {
protected:
    void expectReports(std::vector<std::string> const& lines,
                       std::string const& file = "internal resource string") {
        ASSERT_EQ(shown().size(), lines.size()) << logText();
        std::string expected;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            EXPECT_EQ(shown()[i].id, "MSG_RESOURCE_RES_ERROR");
            EXPECT_EQ(shown()[i].arguments, std::vector<std::string>{file});
            expected += logLine(lines[i]);
        }
        EXPECT_EQ(logText(), expected);
    }
};

TEST_F(ResTableText, StatementsCommentsQuotesAndTooltips) {
    UiResTable t;
    t.readTableText(LiString("# a panel\n"
                             "\n"
                             "Widget ok okTip \"Accept the changes\"\n"
                             "    Rectangle Coord 1 2 60 20\n"
                             "    Label Text \"first line\n"
                             "second line\" \"a \\\"quoted\\\" word\" C:\\dir\n"
                             "  # indented comment\n"
                             "    Values Int 4 5 6\n"
                             "Widget \"cancel button\"\n"
                             "    \"Widget\" Int 7\n"),
                    UiResource::LevelSystem);
    EXPECT_TRUE(shown().empty()) << logText();
    ASSERT_EQ(t.getNbEntries(), 2);
    UiResSet const& ok = *t.getResourceSet("ok");
    EXPECT_EQ(names(ok), (std::vector<std::string>{"TooltipId", "DefaultTooltip", "Rectangle",
                                                   "Label", "Values"}));
    EXPECT_STREQ(dynamicCast<UiResText>(ok.find("DefaultTooltip"))->getString(0),
                 "Accept the changes");
    EXPECT_EQ(dynamicCast<UiResCoord>(ok.find("Rectangle"))->getCoord(),
              GeRectangle<int>(1, 61, 2, 22));
    auto label = dynamicCast<UiResText>(ok.find("Label"));
    ASSERT_EQ(label->getNbStrings(), 3);
    EXPECT_STREQ(label->getString(0), "first line\nsecond line");
    EXPECT_STREQ(label->getString(1), "a \"quoted\" word");
    EXPECT_STREQ(label->getString(2), "C:\\dir");
    EXPECT_EQ(dynamicCast<UiResInt>(ok.find("Values"))->getNbValues(), 3);
    for (RCShdPtr<UiResource> const& r : ok)
        EXPECT_EQ(r->getLevel(), UiResource::LevelSystem);
    EXPECT_EQ(dynamicCast<UiResInt>(t.find("cancel button", "Widget"))->getValue(0), 7);
}

TEST_F(ResTableText, EveryTypeReadsBackEqualInBothForms) {
    UiResTable const first = everyType(true);
    std::string const text = textForm(first);
    UiResTable second;
    second.readTableText(LiString(text), UiResource::LevelApplication);
    EXPECT_TRUE(shown().empty()) << logText() << text;
    EXPECT_EQ(textForm(second), text);
    ASSERT_EQ(second.getNbEntries(), first.getNbEntries());
    for (auto const& [name, set] : first.getTable()) {
        UiResSet const* other = second.getResourceSet(name);
        ASSERT_NE(other, nullptr) << name;
        EXPECT_EQ(names(*other), names(*set));
    }
    auto label = dynamicCast<UiResText>(second.find("panel", "Label"));
    ASSERT_EQ(label->getNbStrings(), 8);
    EXPECT_STREQ(label->getString(2), "");
    EXPECT_STREQ(label->getString(4), "back\\slash\\");
    EXPECT_STREQ(label->getString(6), "line\nbreak");
    EXPECT_EQ(dynamicCast<UiResMinMax>(second.find("panel", "Range"))->getStep(), 1.0 / 3.0);
    EXPECT_EQ(dynamicCast<UiResConstraint>(second.find("panel", "Layout"))->getConstraint(),
              dynamicCast<UiResConstraint>(first.find("panel", "Layout"))->getConstraint());
    EXPECT_EQ(dynamicCast<UiResDomain>(second.find("panel", "Keys"))->getHotkeys().size(), 2u);

    // The XML form, which keeps neither empty sets nor names that are not XML names.
    UiResTable const plain = everyType(false);
    std::string const xml = xmlForm(plain);
    UiResTable third;
    third.readTable(LiString(xml), UiResource::LevelApplication);
    EXPECT_TRUE(shown().empty()) << logText();
    EXPECT_EQ(third.getResourceSet("empty"), nullptr);
    third.addResourceSet("empty", nullptr);
    EXPECT_EQ(xmlForm(third), xml);
    EXPECT_EQ(textForm(third), textForm(plain));
}

TEST_F(ResTableText, ResourceErrorsAreReportedAndNeighboursKept) {
    UiResTable t;
    t.readTableText(LiString("Widget w\n"
                             "    Foo Bar 1\n"
                             "    Bare\n"
                             "    Rectangle Coord 1 2 3\n"
                             "    Background Color NoSuchColour\n"
                             "    Layout Constraint 0 p l 0 p b 0 q r 0 p t\n"
                             "    \"\" Int 9\n"
                             "    Good Int 1\n"),
                    UiResource::LevelApplication);
    expectReports({"Error in resource 'Foo' for widget 'w' (in internal resource string):\n"
                   "unknown resource type for widget `w` resource `Foo`.",
                   "Error in resource 'Bare' for widget 'w' (in internal resource string):\n"
                   "no resource type for widget `w` resource `Bare`.",
                   "Error in resource 'Rectangle' for widget 'w' (in internal resource string):\n"
                   "Error, unexpected end of resource specification.",
                   "Error in resource 'Background' for widget 'w' (in internal resource "
                   "string):\nError, Unknown color type NoSuchColour",
                   "Error in resource 'Layout' for widget 'w' (in internal resource string):\n"
                   "Error, Unknown constraint type q (line ends with \"r 0 p t\")",
                   "Error in resource '' for widget 'w' (in internal resource string):\n"
                   "no resource name given for widget `w`."});
    EXPECT_EQ(names(*t.getResourceSet("w")), std::vector<std::string>{"Good"});
}

TEST_F(ResTableText, WidgetAndDefinitionErrors) {
    UiResTable t;
    t.readTableText(LiString("Orphan Int 1\n"
                             "Orphan2 Int 2\n"
                             "Widget\n"
                             "    Lost Int 3\n"
                             "ColorDefinition TextLate 0 255\n"
                             "ColorDefinition\n"
                             "FontDefinition Small\n"
                             "FontDefinition\n"
                             "Widget w\n"
                             "    Kept Int 4\n"),
                    UiResource::LevelApplication);
    expectReports({"Font resource error in internal resource string:\n"
                   "no resource parameter given `Small`.",
                   "Font resource error in internal resource string:\n"
                   "no resource name given for widget `FontDefinition`.",
                   "Color resource error in internal resource string:\n"
                   "no resource parameter given `TextLate`.",
                   "Color resource error in internal resource string:\n"
                   "no resource name given for widget `ColorDefinition`.",
                   "Widget resource error in internal resource string:\n"
                   "Resource Table parsing error - no widget name in \"Orphan\"",
                   "Widget resource error in internal resource string:\n"
                   "Widget without a name attribute."});
    EXPECT_EQ(t.getNbEntries(), 1);
    EXPECT_EQ(names(*t.getResourceSet("w")), std::vector<std::string>{"Kept"});
    EXPECT_FALSE(UiColorRegistry::getInstance().isRegisteredColor("TextLate"));
}

TEST_F(ResTableText, DefinitionsComeFirstAndLevelsHold) {
    UiResTable t;
    t.readTable(LiString("<ResourceTable><Widget Name='w'><A><Int>1</Int></A></Widget>"
                         "</ResourceTable>"),
                UiResource::LevelApplication);
    t.readTableText(LiString("Widget w\n"
                             "    A Int 2\n"
                             "    Background Color TextFormLate\n"
                             "ColorDefinition TextFormLate 0 51 255\n"),
                    UiResource::LevelSystem);
    EXPECT_TRUE(shown().empty()) << logText();
    EXPECT_EQ(dynamicCast<UiResInt>(t.find("w", "A"))->getValue(0), 1);
    EXPECT_EQ(dynamicCast<UiResColor>(t.find("w", "Background"))->getColor(),
              CoRgbColorTyped<float>(0.f, 0.2f, 1.f));
    EXPECT_EQ(t.find("w", "Background")->getLevel(), UiResource::LevelSystem);
}

TEST_F(ResTableText, StrayQuoteHoldsOnlyToItsLineEnd) {
    UiResTable t;
    t.readTableText(LiString("Widget w\n"
                             "    Label Text \"never closed\n"
                             "    After Int 5\n"),
                    UiResource::LevelApplication);
    EXPECT_TRUE(shown().empty()) << logText();
    EXPECT_STREQ(dynamicCast<UiResText>(t.find("w", "Label"))->getString(0), "never closed");
    EXPECT_EQ(dynamicCast<UiResInt>(t.find("w", "After"))->getValue(0), 5);
}

TEST_F(ResTableText, FilesNameTheTableAndMissingOnesAreNoError) {
    std::filesystem::path const dir =
        std::filesystem::temp_directory_path() / ("zrResTableText" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir);
    std::ofstream(dir / "panel.rtx") << "Widget w\n    Bad Coord\n    A Int 1\n";
    UiResTable t;
    t.readTableText(OsFilePath(dir / "panel.rtx"), UiResource::LevelApplication);
    EXPECT_EQ(t.getResTableName(), "panel");
    std::string const path = OsFilePath(dir / "panel.rtx").toString();
    expectReports({"Error in resource 'Bad' for widget 'w' (in " + path +
                   ":2):\nError, unexpected end of resource specification."},
                  path);
    t.readTableText(OsFilePath(dir / "absent.rtx"), UiResource::LevelApplication);
    EXPECT_EQ(t.getResTableName(), "absent");
    EXPECT_TRUE(t.find("w", "A"));
    std::filesystem::remove_all(dir);
}

} // namespace
} // namespace Zr
