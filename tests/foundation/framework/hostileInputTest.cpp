// Inputs given on purpose hostile expressions: long chains of inputs that read each other, and
// values an integer or boolean input can't hold.
#include "piExpression.h"
#include "piGraph.h"
#include "piTool.h"
#include "piToolRegistry.h"

#include "msgProtocol.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <fstream>

namespace Zr {
namespace {

// A chain of inputs, each one's expression reading the next; the last holds a static value.
std::vector<RCShdPtr<PiInput>> makeChain(PiGraph& graph, int length) {
    std::vector<RCShdPtr<PiInput>> chain;
    for (int i = 0; i < length; ++i)
        chain.push_back(graph.createValueNode("Link" + std::to_string(i))
                            ->addInput(makeShared<PiInput>("v", PiInput::Type::Double)));
    chain.back()->setStaticValue(2.5);
    // From the end: a link set earlier would tell all the links that read it, each time.
    for (int i = length - 2; i >= 0; --i)
        chain[static_cast<std::size_t>(i)]->setExpression("Link" + std::to_string(i + 1) +
                                                          ".v + 1");
    return chain;
}

// Each link is computed once, bottom up: the chain costs as much as its length, and no
// evaluation recurses through it.
TEST(HostileInputs, ALongChainEvaluatesToItsEnd) {
    RCShdPtr<PiGraph> graph = makeShared<PiGraph>();
    int const length = 10000;
    std::vector<RCShdPtr<PiInput>> chain = makeChain(*graph, length);
    EXPECT_EQ(chain.front()->evaluate(0.0), 2.5 + (length - 1));
    EXPECT_EQ(chain.front()->getExpressionError(), "");
    chain.back()->setStaticValue(0.5); // every link follows
    EXPECT_EQ(chain[length / 2]->evaluate(0.0), 0.5 + (length - 1 - length / 2));
    // Closed into a cycle longer than evaluation may recurse: the link at the limit reports it
    // and falls back to its own value (0), instead of recursing without end.
    chain.back()->setExpression("Link0.v");
    EXPECT_EQ(chain.front()->evaluate(0.0), 999.0);
    EXPECT_EQ(chain[999]->getExpressionError(), "Expressions read through more than 1000 inputs");
}

// What an integer or boolean input can't hold is reported, and the input keeps its own value;
// a finite value past an int's range is kept at its end.
TEST(HostileInputs, ValuesAnInputCantHoldAreReported) {
    struct Row {
        PiInput::Type type;
        char const* expression;
        double value;
        char const* error;
    } const rows[] = {
        {PiInput::Type::Int, "1/0", 3.0,
         "The value is infinity, which an integer input cannot hold"},
        {PiInput::Type::Int, "-1/0", 3.0,
         "The value is -infinity, which an integer input cannot hold"},
        {PiInput::Type::Int, "sqrt(-1)", 3.0,
         "The value is NaN, which an integer input cannot hold"},
        {PiInput::Type::Bool, "sqrt(-1)", 1.0,
         "The value is NaN, which a boolean input cannot hold"},
        {PiInput::Type::Bool, "1/0", 1.0, ""},
        {PiInput::Type::Int, "1e12", 2147483647.0, ""},
        {PiInput::Type::Int, "-1e12", -2147483648.0, ""},
        {PiInput::Type::Double, "1/0", INFINITY, ""},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.expression);
        RCShdPtr<PiGraph> graph = makeShared<PiGraph>();
        RCShdPtr<PiInput> input =
            graph->createValueNode("N")->addInput(makeShared<PiInput>("v", row.type));
        input->setRange(-1e300, 1e300);
        input->setStaticValue(row.type == PiInput::Type::Bool ? 1.0 : 3.0);
        input->setExpression(row.expression);
        EXPECT_EQ(input->evaluate(0.0), row.value);
        EXPECT_EQ(input->getExpressionError(), row.error);
    }
}

// A tool's interface file lies beside the tool file or below it.
TEST(HostileInputs, AnInterfacePathLeavingTheToolsDirectoryIsRefused) {
    MsgProtocol::DisplayHandler const previous =
        MsgProtocol::setDisplayHandler([](MsgBase const&) {});
    std::filesystem::path const dir =
        std::filesystem::temp_directory_path() / ("zrHostileTool" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir / "nodes");
    std::ofstream(dir / "outside.xml") << "<ui/>";
    std::ofstream(dir / "nodes/climb.xml")
        << "<Tool name=\"Climb\" uuid=\"0123abcd-4567-89ab-cdef-0123456789ab\">\n<UserInterface "
           "file=\"../outside.xml\"/>\n</Tool>\n";
    PiToolRegistry registry;
    RCShdPtr<PiTool> tool = registry.readToolFile(OsFilePath(dir / "nodes/climb.xml"));
    ASSERT_TRUE(tool);
    EXPECT_TRUE(tool->getUiFile().toString().empty());
    ASSERT_EQ(registry.getLoadErrors().size(), 1u);
    EXPECT_EQ(registry.getLoadErrors()[0],
              "Tool file " + (dir / "nodes/climb.xml").string() +
                  ", entry UserInterface (line 2): the file \"../outside.xml\" leaves the tool "
                  "file's directory");
    std::filesystem::remove_all(dir);
    MsgProtocol::setDisplayHandler(previous);
}

} // namespace
} // namespace Zr
