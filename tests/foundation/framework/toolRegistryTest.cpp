// The tool registry: the shipped tools load cleanly; bad files and bad entries are reported by
// file and entry while everything else loads.
#include "msgProtocol.h"
#include "piGraph.h"
#include "piToolRegistry.h"
#include "piUserInterface.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace Zr {
namespace {

// Collects the messages shown while it lives.
struct MessageCapture {
    MessageCapture() {
        _previous = MsgProtocol::setDisplayHandler([this](MsgBase const& m) {
            texts.push_back(m.getSeverityName() + std::string(": ") + m.getText());
        });
    }
    ~MessageCapture() { MsgProtocol::setDisplayHandler(_previous); }
    std::vector<std::string> texts;

private:
    MsgProtocol::DisplayHandler _previous;
};

struct ToolDirectory {
    ToolDirectory() {
        path = std::filesystem::temp_directory_path() /
               ("zrToolRegistryTest" + std::to_string(::getpid()));
        std::filesystem::remove_all(path);
        std::filesystem::create_directories(path / "ui");
    }
    ~ToolDirectory() { std::filesystem::remove_all(path); }
    std::string write(std::string const& name, std::string const& text) const {
        std::ofstream(path / name) << text;
        return (path / name).string();
    }
    std::filesystem::path path;
};

TEST(ToolRegistry, ShippedToolsLoadWithoutReports) {
    PiToolRegistry& registry = PiToolRegistry::getInstance();
    for (char const* name : {"Blur", "ColorCorrect", "Transform"})
        EXPECT_FALSE(registry.findTool(name).isNull()) << name;
    EXPECT_EQ(registry.getLoadErrors(), std::vector<std::string>{});
    auto blur = registry.findTool("Blur");
    EXPECT_EQ(registry.findToolByUuid(blur->getUuid()), blur);
    EXPECT_FALSE(blur->getXmlDescription().empty());
    EXPECT_EQ(blur->getStoredDeclarations().at(0).name, "passes");
}

TEST(ToolRegistry, BadFilesAndEntriesAreReportedAndTheRestLoads) {
    ToolDirectory dir;
    std::string const good =
        dir.write("a_good.xml", R"(<Tool name="Good" uuid="11111111-2222-4333-8444-555555555555">
  <Input name="size" type="double" min="0" max="10" default="1"/>
  <Input name="mode" type="float"/>
  <Input name="level" type="int" min="5" max="1"/>
  <Input name="size" type="int"/>
  <Input name="flag" type="bool"><Label>only one</Label></Input>
  <Stored name="count" type="int32" default="many"/>
  <Stored name="ratio" type="double" default="0.5"/>
  <Widget/>
  <UserInterface file="ui/missing.xml"/>
</Tool>)");
    std::string const broken = dir.write("b_broken.xml", "<Tool name=\"Broken\" uuid=\"");
    std::string const badUuid = dir.write("c_uuid.xml", "<Tool name=\"Odd\" uuid=\"xyz\"/>");
    std::string const noName =
        dir.write("d_noname.xml", "<Tool uuid=\"11111111-2222-4333-8444-555555555556\"/>");
    std::string const twice = dir.write(
        "e_twice.xml", "<Tool name=\"Good\" uuid=\"11111111-2222-4333-8444-555555555557\"/>");
    std::string const other = dir.write("f_other.xml", "<Node name=\"X\"/>");
    dir.write("ui/notATool.xml", "<Items/>");
    dir.write("readme.txt", "not a tool");

    PiToolRegistry registry;
    MessageCapture messages;
    EXPECT_EQ(registry.loadDirectory(OsFilePath(dir.path)), 1);

    std::vector<std::string> const expected = {
        "Tool file " + good + ", entry Input \"mode\" (line 3): unknown type \"float\"",
        "Tool file " + good + ", entry Input \"level\" (line 4): min above max",
        "Tool file " + good + ", entry Input \"size\" (line 5): name in use",
        "Tool file " + good + ", entry Input \"flag\" (line 6): a bool input takes two labels",
        "Tool file " + good + ", entry Stored \"count\" (line 7): default \"many\" is no int32",
        "Tool file " + good + ", entry Widget (line 9): unknown entry",
        "Tool file " + good + ", entry UserInterface (line 10): file not found: " +
            (dir.path / "ui/missing.xml").string(),
    };
    ASSERT_GE(registry.getLoadErrors().size(), expected.size() + 5);
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_EQ(registry.getLoadErrors()[i], expected[i]);
    auto const& errors = registry.getLoadErrors();
    auto fileReport = [&errors](std::string const& file) {
        for (auto const& e : errors)
            if (e.starts_with("Tool file " + file + " not loaded: "))
                return e;
        return std::string();
    };
    EXPECT_NE(fileReport(broken), "");
    EXPECT_NE(fileReport(badUuid).find("xyz"), std::string::npos);
    EXPECT_EQ(fileReport(noName), "Tool file " + noName + " not loaded: the tool has no name");
    EXPECT_EQ(fileReport(other),
              "Tool file " + other + " not loaded: the root element is <Node>, not <Tool>");
    EXPECT_NE(std::find(errors.begin(), errors.end(), "Tool name in use: Good (" + twice + ")"),
              errors.end());
    // Every report was shown as a warning.
    ASSERT_EQ(messages.texts.size(), errors.size());
    EXPECT_EQ(messages.texts[0], "Warning: " + errors[0]);

    // The good parts of the good file are there.
    auto tool = registry.findTool("Good");
    ASSERT_FALSE(tool.isNull());
    ASSERT_EQ(tool->getInputDeclarations().size(), 1u);
    EXPECT_EQ(tool->getInputDeclarations()[0].name, "size");
    ASSERT_EQ(tool->getStoredDeclarations().size(), 1u);
    EXPECT_EQ(tool->getStoredDeclarations()[0].name, "ratio");
    EXPECT_EQ(tool->getXmlDescription(), "");
    EXPECT_EQ(registry.getTools().size(), 1u);

    // A missing directory is reported too.
    EXPECT_EQ(registry.loadDirectory(OsFilePath(dir.path / "nowhere")), 0);
    EXPECT_EQ(registry.getLoadErrors().back(),
              "Tool directory not found: " + (dir.path / "nowhere").string());
}

TEST(ToolRegistry, ToolsRegisteredInCodeMakeNodes) {
    PiToolRegistry& registry = PiToolRegistry::getInstance();
    auto tool = makeShared<PiTool>("Macro", Uuid::generate(), true);
    PiTool::InputDeclaration offset;
    offset.name = "offset";
    offset.type = PiInput::Type::Int;
    offset.minimum = -5;
    offset.maximum = 5;
    offset.defaultValue = -2;
    tool->addInputDeclaration(offset);
    tool->setXmlDescription("<Items/>");
    ASSERT_TRUE(registry.registerTool(tool));
    {
        MessageCapture messages;
        EXPECT_FALSE(registry.registerTool(makeShared<PiTool>("Macro", Uuid::generate())));
        EXPECT_EQ(messages.texts, std::vector<std::string>{"Warning: Tool name in use: Macro"});
    }
    registry.clearLoadErrors();

    auto graph = makeShared<PiGraph>();
    auto node = graph->createNode("Macro");
    EXPECT_EQ(node->getName(), "Macro1");
    EXPECT_TRUE(node->getTool()->isSuperTool());
    EXPECT_EQ(node->findInput("offset")->getStaticValue(), -2.0);
    RCWeakAccessor<PiNodeController> ctrl(node->getController());
    EXPECT_EQ(dynamic_cast<PiUserInterface*>(ctrl.get())->getXmlDescription(), "<Items/>");
    EXPECT_TRUE(registry.unregisterTool("Macro"));
    EXPECT_THROW(graph->createNode("Macro"), PiGraphEx::ExUnknownTool);
}

} // namespace
} // namespace Zr
