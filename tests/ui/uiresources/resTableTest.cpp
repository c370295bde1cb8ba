// Tests of UiResSet and UiResTable: merge semantics by level and position, reading tables with
// every reported error, and writing a table back.
#include "resourcesTestSupport.h"

#include "uiColorRegistry.h"
#include "uiResColor.h"
#include "uiResCoord.h"
#include "uiResInt.h"
#include "uiResSet.h"
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

} // namespace
} // namespace Zr
