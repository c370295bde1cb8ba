// Package variables from defaults, definitions, environment and command line; EnvIntVar.
#include "inVariable.h"
#include "envIntVar.h"
#include "inInitGuard.h"
#include "osEnv.h"

#include "support/testSupport.h"

#include <gtest/gtest.h>

#include <sstream>
#include <thread>

using namespace Zr;

namespace {

// Clears the command line, definitions and test environment variables around each test.
struct VariableFixture : ::testing::Test {
    void SetUp() override { clear(); }
    void TearDown() override { clear(); }
    void clear() {
        InVariableBase::setCommandLine(std::vector<std::string>());
        InVariableBase::setDefinitions({});
        for (char const* v : {"ZR_VT_BOOL", "ZR_VT_INT", "ZR_VT_DOUBLE", "ZR_VT_STRING"})
            OsEnv::unset(v);
    }
};

} // namespace

TEST_F(VariableFixture, DefaultThenEnvironmentThenCommandLineWin) {
    OsEnv::set("ZR_VT_BOOL", "1");
    OsEnv::set("ZR_VT_STRING", "from env");
    InVariable<bool> flag("vt::bool", false, {InEnvAlias("ZR_VT_BOOL"), InArgAlias("vtflag")});
    InVariable<std::string> text("vt::string", "def",
                                 {InEnvAlias("ZR_VT_STRING"), InArgAlias("vttext")});
    InVariable<int> unset("vt::int", 7, {InEnvAlias("ZR_VT_INT"), InArgAlias("vtint")});
    EXPECT_EQ(7, unset.getValue());
    EXPECT_FALSE(unset.isSet());
    EXPECT_EQ("7", unset.getValueText());
    EXPECT_TRUE(flag.getValue());
    EXPECT_EQ(InValueSource::Environment, flag.getSource());
    EXPECT_EQ("from env", text.getValue());

    char const* argv[] = {"prog", "--vtflag=off", "-vttext", "from args", "-other"};
    InVariableBase::setCommandLine(5, argv);
    EXPECT_FALSE(flag.getValue());
    EXPECT_EQ(InValueSource::CommandLine, flag.getSource());
    EXPECT_EQ("from args", text.getValue());

    InVariableBase::setCommandLine(std::vector<std::string>());
    EXPECT_TRUE(flag.getValue()); // back to the environment's value
}

TEST_F(VariableFixture, CommandLineFormsAndTheGuardsCommandLine) {
    InVariable<bool> a("vt::a", false, {InArgAlias("fa")});
    InVariable<bool> b("vt::b", false, {InArgAlias("fb")});
    InVariable<int> n("vt::n", 0, {InArgAlias("num")});
    InVariable<double> d("vt::d", 0.0, {InArgAlias("dbl")});
    InVariable<std::string> s("vt::s", "", {InArgAlias("str")});
    InVariable<bool> after("vt::after", false, {InArgAlias("after")});
    InVariableBase::setCommandLine(
        {"-fa", "--fb", "--num", "3", "-num=0x10", "--dbl=2.5", "-str", "-x", "--", "-after"});
    EXPECT_TRUE(a.getValue());
    EXPECT_TRUE(b.getValue());
    EXPECT_EQ(16, n.getValue()); // the last occurrence wins
    EXPECT_EQ(2.5, d.getValue());
    EXPECT_EQ("-x", s.getValue());
    EXPECT_FALSE(after.getValue()); // after "--"

    // The start-up guard applies its command line.
    char arg0[] = "prog";
    char arg1[] = "-after";
    char* argv[] = {arg0, arg1, nullptr};
    InInitGuard guard(2, argv);
    EXPECT_TRUE(after.getValue());
}

TEST_F(VariableFixture, BadValuesAreReportedAndKeepTheLowerSource) {
    OsEnv::set("ZR_VT_INT", "12");
    InVariable<int> v("vt::bad", 1, {InEnvAlias("ZR_VT_INT"), InArgAlias("vtbad")});
    std::optional<InVariable<int>> missing;
    std::string out = TestSupport::printed([&] {
        InVariableBase::setCommandLine({"--vtbad=twelve", "--vtmissing"});
        missing.emplace("vt::missing", 5, std::vector<InAlias>{InArgAlias("vtmissing")});
    });
    EXPECT_EQ(12, v.getValue());
    EXPECT_EQ(InValueSource::Environment, v.getSource());
    EXPECT_EQ(5, missing->getValue());
    EXPECT_EQ("Invalid value \"twelve\" for vtbad (command line) of vt::bad: expected type int; "
              "keeping 12\n"
              "Missing value for command-line option --vtmissing\n",
              out);
}

TEST_F(VariableFixture, DefinitionsFileIsTheWeakestSource) {
    TestSupport::TempFile defs("zr_inVariableTest.defs",
                               "# defaults of the site\nvt.width = 640\nnot a "
                               "definition\n\nvt.name = site name \n");
    InVariable<int> width("vt::width", 1, {InDefAlias("vt.width"), InEnvAlias("ZR_VT_INT")});
    InVariable<std::string> name("vt::name", "", {InDefAlias("vt.name")});
    EXPECT_EQ(defs.path.toString() + ":3: expected key = value\n", TestSupport::printed([&] {
                  EXPECT_TRUE(InVariableBase::loadDefinitionsFile(defs.path));
              }));
    EXPECT_EQ(640, width.getValue());
    EXPECT_EQ(InValueSource::Definitions, width.getSource());
    EXPECT_EQ("site name", name.getValue());
    OsEnv::set("ZR_VT_INT", "800");
    width.refresh();
    EXPECT_EQ(800, width.getValue());
}

TEST_F(VariableFixture, ProgramValueWinsOverEverything) {
    InVariable<double> v("vt::prog", 1.0, {InArgAlias("vtprog")});
    v.setValue(3.25);
    InVariableBase::setCommandLine({"--vtprog=9"});
    EXPECT_EQ(3.25, v.getValue());
    EXPECT_TRUE(v.isSet());
    EXPECT_FALSE(v.setValueText("abc"));
    EXPECT_TRUE(v.setValueText("0.5"));
    EXPECT_EQ(0.5, v.getValue());
}

TEST_F(VariableFixture, RegistryListsLiveVariablesAndPrintsHelp) {
    std::size_t before = InVariableBase::getAll().size();
    {
        InVariable<bool> v("kelvar::test::nosplash", false,
                           {InEnvAlias("ZR_VT_BOOL", "When set to 1, disable the splash screen"),
                            InArgAlias("vtsplash", "Disable the splash screen.")},
                           "Start without the splash screen");
        EXPECT_EQ(before + 1, InVariableBase::getAll().size());
        EXPECT_EQ(&v, InVariableBase::find("kelvar::test::nosplash"));
        std::ostringstream os;
        InVariableBase::printHelp(os);
        EXPECT_NE(std::string::npos,
                  os.str().find("kelvar::test::nosplash (bool, default 0): Start without the "
                                "splash screen\n"
                                "    ZR_VT_BOOL (environment): When set to 1, disable the splash "
                                "screen\n"
                                "    -vtsplash (command line): Disable the splash screen.\n"))
            << os.str();
    }
    EXPECT_EQ(before, InVariableBase::getAll().size());
    EXPECT_EQ(nullptr, InVariableBase::find("kelvar::test::nosplash"));
}

TEST(EnvIntVarTest, ReadsOnceAndFallsBackToTheDefault) {
    OsEnv::set("ZR_VT_DELAY", "0x20");
    EnvIntVar delay(__FILE__, "ZR_VT_DELAY", 500);
    EXPECT_EQ(32, delay.getValue());
    OsEnv::set("ZR_VT_DELAY", "64");
    EXPECT_EQ(32, delay.getValue()); // read once

    OsEnv::set("ZR_VT_DELAY", "soon");
    EnvIntVar bad(__FILE__, "ZR_VT_DELAY", 500);
    EXPECT_EQ("Invalid value \"soon\" for ZR_VT_DELAY: expected an integer; using 500\n",
              TestSupport::printed([&] { EXPECT_EQ(500, bad.getValue()); }));
    OsEnv::unset("ZR_VT_DELAY");

    EnvIntVar unset(__FILE__, "ZR_VT_DELAY", -3);
    int seen[4] = {};
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&seen, &unset, i] { seen[i] = unset.getValue(); });
    for (auto& t : threads)
        t.join();
    for (int v : seen)
        EXPECT_EQ(-3, v);
}
