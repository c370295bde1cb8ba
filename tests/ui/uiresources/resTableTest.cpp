// Tests of UiResSet and UiResTable: merge semantics by level and position, reading tables with
// every reported error, and writing a table back; and of the text form of resource tables:
// statements, quoting, every value type written and read back, each reported error with the
// good statements around it kept, and files.
#include "osFilePath.h"
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
#include "uiResSet.h"
#include "uiResTable.h"
#include "uiResText.h"
#include "xmlWriter.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <unistd.h>

namespace Zr {
namespace {

RCShdPtr<UiResource> intRes(char const* name, char const* values, UiResource::Level level) {
    RCShdPtr<UiResource> r(new UiResInt(name, values));
    r->setLevel(level);
    return r;
}

std::vector<std::string> names(UiResSet const& set) {
    std::vector<std::string> result;
    for (RCShdPtr<UiResource> const& r : set)
        result.push_back(r->getName());
    return result;
}

int firstInt(UiResSet const& set, char const* name) {
    return dynamicCast<UiResInt>(set.find(name))->getValue(0);
}

TEST(ResSet, SetReplacesInPlaceUnlessTheHeldLevelIsHigher) {
    UiResSet set;
    set.set(intRes("a", "1", UiResource::LevelSystem));
    set.set(intRes("b", "2", UiResource::LevelDefault));
    set.set(RCShdPtr<UiResource>());
    set.set(intRes("a", "3", UiResource::LevelSystem));
    set.set(intRes("b", "4", UiResource::LevelApplication));
    set.set(intRes("a", "5", UiResource::LevelDefault));
    EXPECT_EQ(names(set), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(firstInt(set, "a"), 3);
    EXPECT_EQ(firstInt(set, "b"), 4);
    set.add(intRes("b", "6", UiResource::LevelApplication));
    set.add(intRes("c", "7", UiResource::LevelDefault));
    EXPECT_EQ(firstInt(set, "b"), 4);
    EXPECT_EQ(set.size(), 3);
    EXPECT_FALSE(set.find("missing"));
}

TEST(ResSet, MergeKeepsMineMergeReplaceFollowsLevels) {
    UiResSet mine;
    mine.set(intRes("x", "0", UiResource::LevelDefault));
    UiResSet other;
    other.set(intRes("x", "2", UiResource::LevelApplication));
    other.set(intRes("y", "9", UiResource::LevelDefault));

    UiResSet merged = mine;
    merged.merge(other);
    EXPECT_EQ(firstInt(merged, "x"), 0);
    EXPECT_EQ(names(merged), (std::vector<std::string>{"x", "y"}));

    UiResSet replaced = mine;
    replaced.mergeReplace(other);
    EXPECT_EQ(firstInt(replaced, "x"), 2);
    // Shared, not copied.
    EXPECT_EQ(replaced.find("x").get(), other.find("x").get());

    UiResSet high;
    high.set(intRes("x", "5", UiResource::LevelApplication));
    UiResSet low;
    low.set(intRes("x", "6", UiResource::LevelDefault));
    high.mergeReplace(low);
    EXPECT_EQ(firstInt(high, "x"), 5);
}

class ResTableRead : public ResourceReportTest {
protected:
    static std::string table(std::string const& body) {
        return "<ResourceTable>" + body + "</ResourceTable>";
    }
    void expectOneReport(std::string const& file, std::string const& text) {
        ASSERT_EQ(shown().size(), 1u);
        EXPECT_EQ(shown()[0].id, "MSG_RESOURCE_RES_ERROR");
        EXPECT_EQ(shown()[0].arguments, std::vector<std::string>{file});
        EXPECT_EQ(logText(), logLine(text));
    }
};

// A table body, the log lines its faults write (one message each), and the resources of
// widget "w" that survive them.
struct ReportRow {
    char const* body;
    std::vector<std::string> reports;
    std::vector<std::string> kept;
};

TEST_F(ResTableRead, EachFaultIsReportedAndTheRestOfTheTableRead) {
    std::string const in = " (in internal resource string):\n";
    ReportRow const rows[] = {
        {"<Widget Name='w'><Foo><Bar>1</Bar></Foo><Value><Int>4</Int></Value></Widget>",
         {"Error in resource 'Foo' for widget 'w'" + in +
          "unknown resource type for widget `w` resource `Foo`."},
         {"Value"}},
        {"<Widget Name='w'><Value>4</Value><Other><Int>1</Int></Other></Widget>",
         {"Error in resource 'Value' for widget 'w'" + in +
          "no resource type for widget `w` resource `Value`."},
         {"Other"}},
        {"<Widget Name='w'><Background><Color>Nope</Color></Background>"
         "<Rectangle><Coord X='1' Y='1' W='0' H='3'/></Rectangle>"
         "<Foreground><Color>White</Color></Foreground></Widget>",
         {"Error in resource 'Background' for widget 'w'" + in + "Error, Unknown color type Nope",
          "Error in resource 'Rectangle' for widget 'w'" + in +
              "Error, wrong resource specification for resource ''."},
         {"Foreground"}},
        {"<Widget><Value><Int>1</Int></Value></Widget>"
         "<Widget Name='w'><Value><Int>2</Int></Value></Widget>",
         {"Widget resource error in internal resource string:\nWidget without a name attribute."},
         {"Value"}},
        {"<ColorDefinition R='1' G='1' B='1'/><FontDefinition Handle='Small' Name=''/>",
         {"Font resource error in internal resource string:\nno resource parameter given "
          "`Small`.",
          "Color resource error in internal resource string:\nno resource name given for "
          "widget `ColorDefinition`."},
         {}},
    };
    for (ReportRow const& row : rows) {
        SCOPED_TRACE(row.body);
        clearReports();
        UiResTable t;
        t.readTable(LiString(table(row.body)), UiResource::LevelApplication);
        std::string expected;
        for (std::string const& line : row.reports)
            expected += logLine(line);
        EXPECT_EQ(logText(), expected);
        ASSERT_EQ(shown().size(), row.reports.size());
        EXPECT_EQ(shown()[0].id, "MSG_RESOURCE_RES_ERROR");
        EXPECT_EQ(shown()[0].arguments, std::vector<std::string>{"internal resource string"});
        UiResSet const* w = t.getResourceSet("w");
        EXPECT_EQ(w ? names(*w) : std::vector<std::string>{}, row.kept);
        EXPECT_EQ(t.getNbEntries(), w ? 1 : 0);
        for (std::string const& name : row.kept)
            EXPECT_EQ(t.find("w", name.c_str())->getLevel(), UiResource::LevelApplication);
    }
}

TEST_F(ResTableRead, ColorDefinitionErrorsAndLateDefinitions) {
    UiResTable t;
    // The widget names a colour defined below it: definitions are read first.
    t.readTable(LiString(table("<Group><Widget Name='w'><Background><Color>ResTableLate</Color>"
                               "</Background></Widget></Group>"
                               "<ColorDefinition Handle='ResTableLate' R='255' G='0' B='51'/>"
                               "<ColorDefinition Handle='ResTableBad' R='1' B='2'/>")),
                UiResource::LevelApplication);
    expectOneReport("internal resource string",
                    "Color resource error in internal resource string:\n"
                    "no resource parameter given `ResTableBad`.");
    auto color = dynamicCast<UiResColor>(t.find("w", "Background"));
    ASSERT_TRUE(color);
    EXPECT_EQ(color->getColor(), CoRgbColorTyped<float>(1.f, 0.f, 0.2f));
    EXPECT_FALSE(UiColorRegistry::getInstance().isRegisteredColor("ResTableBad"));
}

TEST_F(ResTableRead, SyntaxErrorOfAStringIsReported) {
    UiResTable t;
    t.set("keep", intRes("Value", "1", UiResource::LevelDefault));
    std::string const text = "<ResourceTable><Widget Name='w'></ResourceTable>";
    t.readTable(LiString(text), UiResource::LevelApplication);
    ASSERT_EQ(shown().size(), 1u);
    EXPECT_EQ(shown()[0].arguments, std::vector<std::string>{"internal resource string"});
    std::string const prefix =
        logLine("Error while parsing the following XML resource string:\n" + text);
    EXPECT_EQ(logText().substr(0, prefix.size() - 1), prefix.substr(0, prefix.size() - 1));
    EXPECT_GT(logText().size(), prefix.size());
    EXPECT_TRUE(t.find("keep", "Value"));
}

TEST_F(ResTableRead, SameWidgetTwiceLaterWinsAtFirstPosition) {
    UiResTable t;
    t.readTable(LiString(table("<Widget Name='w'><A><Int>1</Int></A><B><Int>2</Int></B></Widget>"
                               "<Widget Name='w'><B><Int>3</Int></B><A><Int>4</Int></A>"
                               "<C><Int>5</Int></C></Widget>")),
                UiResource::LevelApplication);
    UiResSet const& set = *t.getResourceSet("w");
    EXPECT_EQ(names(set), (std::vector<std::string>{"A", "B", "C"}));
    EXPECT_EQ(firstInt(set, "A"), 4);
    EXPECT_EQ(firstInt(set, "B"), 3);
    EXPECT_TRUE(shown().empty());
}

TEST_F(ResTableRead, LowerLevelReadDoesNotReplaceHigher) {
    UiResTable t;
    t.readTable(LiString(table("<Widget Name='w'><A><Int>1</Int></A></Widget>")),
                UiResource::LevelApplication);
    t.readTable(LiString(table("<Widget Name='w'><A><Int>2</Int></A><B><Int>3</Int></B></Widget>")),
                UiResource::LevelSystem);
    EXPECT_EQ(firstInt(*t.getResourceSet("w"), "A"), 1);
    EXPECT_EQ(firstInt(*t.getResourceSet("w"), "B"), 3);
}

TEST_F(ResTableRead, TooltipAttributesBecomeTextResources) {
    UiResTable t;
    t.readTable(LiString(table("<Widget Name='w' TooltipId='ok' DefaultTooltip='Accept it'/>"
                               "<Widget Name='quiet' DefaultTooltip='ignored'/>")),
                UiResource::LevelApplication);
    auto id = dynamicCast<UiResText>(t.find("w", "TooltipId"));
    auto text = dynamicCast<UiResText>(t.find("w", "DefaultTooltip"));
    ASSERT_TRUE(id && text);
    EXPECT_STREQ(id->getString(0), "ok");
    ASSERT_EQ(text->getNbStrings(), 1);
    EXPECT_STREQ(text->getString(0), "Accept it");
    EXPECT_EQ(text->getLevel(), UiResource::LevelApplication);
    // No children and no tooltip: no entry.
    EXPECT_EQ(t.getResourceSet("quiet"), nullptr);
}

TEST_F(ResTableRead, WidgetFragmentForChangeResource) {
    UiResTable t;
    LiString name = t.readWidgetCatchErrors(
        LiString("<Widget Name='b'><Foreground><Color>White</Color></Foreground></Widget>"),
        UiResource::LevelApplication);
    EXPECT_EQ(name, LiString("b"));
    EXPECT_TRUE(t.find("b", "Foreground"));

    std::string const bad = "<Widget Name='b'>";
    EXPECT_TRUE(t.readWidgetCatchErrors(LiString(bad), UiResource::LevelApplication).empty());
    ASSERT_EQ(shown().size(), 1u);
    EXPECT_EQ(shown()[0].arguments, std::vector<std::string>{"resource string"});
    EXPECT_EQ(logText().rfind("main: [UiResources    ] Error while parsing the following XML "
                              "resource string:\n" +
                                  bad,
                              0),
              0u);
}

TEST_F(ResTableRead, AddResourceSetKeepsWhatIsThere) {
    UiResTable t;
    t.set("w", intRes("A", "1", UiResource::LevelDefault));
    UiResSet more;
    more.set(intRes("A", "2", UiResource::LevelApplication));
    more.set(intRes("B", "3", UiResource::LevelApplication));
    t.addResourceSet("w", &more);
    t.addResourceSet("empty", nullptr);
    EXPECT_EQ(firstInt(*t.getResourceSet("w"), "A"), 1);
    EXPECT_EQ(firstInt(*t.getResourceSet("w"), "B"), 3);
    ASSERT_NE(t.getResourceSet("empty"), nullptr);
    EXPECT_EQ(t.getResourceSet("empty")->size(), 0);
    EXPECT_FALSE(t.find("nobody", "A"));
}

class ResTableFile : public ResTableRead {
protected:
    void SetUp() override {
        ResTableRead::SetUp();
        _dir = std::filesystem::temp_directory_path() /
               ("zrResTableTest" + std::to_string(::getpid()));
        std::filesystem::create_directories(_dir);
    }
    void TearDown() override {
        std::filesystem::remove_all(_dir);
        ResTableRead::TearDown();
    }
    OsFilePath write(std::string const& name, std::string const& text) {
        std::filesystem::path path = _dir / name;
        std::ofstream(path) << text;
        return OsFilePath(path);
    }
    std::filesystem::path _dir;
};

TEST_F(ResTableFile, MissingFileChangesOnlyTheName) {
    UiResTable t;
    t.set("w", intRes("A", "1", UiResource::LevelDefault));
    t.readTable(OsFilePath(_dir / "absent.xml"), UiResource::LevelApplication);
    EXPECT_EQ(t.getResTableName(), "absent");
    EXPECT_TRUE(t.find("w", "A"));
    EXPECT_TRUE(shown().empty());
}

TEST_F(ResTableFile, FileSyntaxErrorNamesThePath) {
    OsFilePath path = write("broken.xml", "<ResourceTable><Widget Name='w'>\n");
    UiResTable t(path, UiResource::LevelApplication);
    EXPECT_EQ(t.getResTableName(), "broken");
    ASSERT_EQ(shown().size(), 1u);
    EXPECT_EQ(shown()[0].arguments, std::vector<std::string>{path.toString()});
    EXPECT_EQ(logText().rfind("main: [UiResources    ] Error while parsing the following XML "
                              "resource file:\n" +
                                  path.toString() + "\n",
                              0),
              0u);
}

TEST_F(ResTableFile, WrittenTableReadsBackEqual) {
    OsFilePath path =
        write("panel.xml", table("<Widget Name='b' TooltipId='tip' DefaultTooltip='Say it'>"
                                 "<Rectangle><Coord X='10' Y='5' W='20' H='30'/></Rectangle>"
                                 "<Layout><Constraint><X1 Value='0' Type='u' Target='l'/>"
                                 "<Y1 Value='0' Type='p' Target='b'/>"
                                 "<X2 Value='3' Type='u' Target='w'/>"
                                 "<Y2 Value='2' Type='p' Target='s' Sibling='a'/>"
                                 "</Constraint></Layout>"
                                 "<Label><Text>two words</Text><Text>x</Text></Label>"
                                 "<Background><Color>Red</Color></Background></Widget>"
                                 "<Widget Name='a'><Value><Int>1</Int><Int>2</Int></Value>"
                                 "<Frame><Frame>Border</Frame></Frame></Widget>"));
    UiResTable first(path, UiResource::LevelApplication);
    EXPECT_TRUE(shown().empty()) << logText();
    std::ostringstream os;
    {
        XmlWriter writer(os);
        first.writeTable(writer);
    }
    OsFilePath again = write("again.xml", os.str());
    UiResTable second(again, UiResource::LevelApplication);
    EXPECT_TRUE(shown().empty()) << logText();
    ASSERT_EQ(second.getNbEntries(), first.getNbEntries());
    for (auto const& [name, set] : first.getTable()) {
        UiResSet const* other = second.getResourceSet(name);
        ASSERT_NE(other, nullptr) << name;
        EXPECT_EQ(names(*other), names(*set));
        for (int i = 0; i < set->size(); ++i) {
            std::ostringstream a, b;
            a << *set->getResources()[i];
            b << *other->getResources()[i];
            EXPECT_EQ(a.str(), b.str()) << set->getResources()[i]->getName();
        }
    }
}

TEST(ResTableNames, DirectoryAndTag) {
    EXPECT_EQ(UiResTable::getResTableDir().toString(), "resTables");
    EXPECT_EQ(UiResTable::getResTableNameTag(), "ResTableName");
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
