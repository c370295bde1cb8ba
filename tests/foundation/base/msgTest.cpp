// Message files, message texts with arguments, display handlers and message exceptions.
#include "inPaths.h"
#include "msgException.h"
#include "msgFileGuard.h"
#include "msgProtocol.h"

#include "support/testSupport.h"

#include <gtest/gtest.h>

using namespace Zr;

namespace {

// Points the resources directory at the temporary directory, where the message files are.
struct MsgFileFixture : ::testing::Test {
    void SetUp() override { InPaths::setResourcesDir(OsFilePath::getTempDir()); }
    void TearDown() override { InPaths::setResourcesDir(OsFilePath()); }
    static std::string pathOf(std::string const& name) {
        return (OsFilePath::getTempDir() + OsFilePath(name)).toString();
    }
};

} // namespace

TEST(MsgServerTest, ParsesEscapesCommentsAndReportsBadLines) {
    std::vector<std::string> problems;
    auto messages = MsgServer::parse("\xEF\xBB\xBF# header\n"
                                     "MSG_A = \"plain\"\r\n"
                                     "\n"
                                     "  MSG_B=\"say \\\"hi\\\"\\n\\tand \\\\ done\"  # trailing\n"
                                     "MSG_C \"no equals\"\n"
                                     "MSG_D = \"unterminated\n"
                                     "MSG_E = \"bad \\q escape\"\n"
                                     "9BAD = \"x\"\n"
                                     "MSG_A = \"again\"\n"
                                     "MSG_F = \"x\" junk\n"
                                     "MSG_G = \"last, no newline\"",
                                     "test.msg", problems);
    EXPECT_EQ(3u, messages.size());
    EXPECT_EQ("plain", messages["MSG_A"]);
    EXPECT_EQ("say \"hi\"\n\tand \\ done", messages["MSG_B"]);
    EXPECT_EQ("last, no newline", messages["MSG_G"]);
    std::vector<std::string> expected = {
        "test.msg:5: expected '=' after MSG_C",
        "test.msg:6: missing closing quote",
        "test.msg:7: unknown escape \\q",
        "test.msg:8: expected a message identifier",
        "test.msg:9: duplicate message MSG_A, the first one is kept",
        "test.msg:10: unexpected text after the closing quote",
    };
    EXPECT_EQ(expected, problems);
}

TEST_F(MsgFileFixture, GuardLoadsKeepsGoodLinesUnloadsAndLaterFilesWin) {
    TestSupport::TempFile a("zr_msgTest_a.msg",
                            "MSG_X = \"Cannot read %1 at line %2\"\nbroken line\nMSG_Y = \"y\"\n");
    TestSupport::TempFile b("zr_msgTest_b.msg", "MSG_Y = \"second\"\n");
    std::size_t before = MsgServer::getInstance().getNbFiles();
    std::optional<MsgFileGuard> guardA;
    EXPECT_EQ(pathOf("zr_msgTest_a.msg") + ":2: expected '=' after broken\n",
              TestSupport::printed([&] { guardA.emplace("zr_msgTest_a.msg"); }));
    MsgWarning w(MsgSubscription("MSG_X"), {"file.xml", 3});
    EXPECT_EQ("Cannot read file.xml at line 3", w.getText());
    EXPECT_EQ("MSG_X", w.getId());
    {
        MsgFileGuard guardB("zr_msgTest_b.msg");
        EXPECT_EQ("second", MsgInformation(MsgSubscription("MSG_Y")).getText());
    }
    EXPECT_EQ("y", MsgServer::getInstance().lookup("MSG_Y").value_or(""));
    guardA.reset();
    EXPECT_EQ(before, MsgServer::getInstance().getNbFiles());
    EXPECT_FALSE(MsgServer::getInstance().lookup("MSG_Y"));

    EXPECT_EQ(pathOf("zr_msgTest_missing.msg") + ": cannot read the message file\n",
              TestSupport::printed([] { MsgFileGuard guard("zr_msgTest_missing.msg"); }));
}

TEST(MsgBaseTest, SubstitutionOfArgumentsAndUnknownSubscriptions) {
    EXPECT_EQ("a=x b=y a=x", MsgError("a=%1 b=%2 a=%1", {"x", "y"}).getText());
    EXPECT_EQ("100% of %3 and %x%", MsgError("%1%% of %3 and %x%", {100}).getText());
    // Arguments are inserted verbatim, never scanned again.
    EXPECT_EQ("expr %2 ok", MsgError("expr %1 ok", {MsgProtocol::substitute("%2"), "z"}).getText());
    EXPECT_EQ("1.5 and true", MsgWarning("%1 and %2").arg(1.5).arg(true).getText());
    EXPECT_EQ("p%12", MsgError("%1%12", {"p"}).getText()); // %12 has no argument
    // An unknown subscription shows its identifier.
    EXPECT_EQ("MSG_NOT_LOADED_ANYWHERE",
              MsgError(MsgSubscription("MSG_NOT_LOADED_ANYWHERE"), {"arg"}).getText());
}

TEST(MsgProtocolTest, DefaultHandlerWritesSeverityAndTextAndAReplacedOneSeesMessages) {
    EXPECT_EQ("Warning: careful now\nError: broken\nInformation: fyi\n",
              TestSupport::printed(
                  [] {
                      MsgProtocol::display(MsgWarning("careful %1", {"now"}));
                      MsgProtocol::display(MsgError("broken"));
                      MsgProtocol::display(MsgInformation("fyi"));
                  },
                  true));
    std::vector<std::string> seen;
    auto previous = MsgProtocol::setDisplayHandler([&seen](MsgBase const& m) {
        seen.push_back(std::string(m.getSeverityName()) + "|" + m.getText());
    });
    EXPECT_TRUE(static_cast<bool>(previous));
    MsgProtocol::display(MsgInformation(MsgSubscription("MSG_NODEUI_VALID_EXPR"),
                                        {MsgProtocol::substitute("frame * 2")}));
    MsgProtocol::display(MsgError("e"));
    EXPECT_TRUE(static_cast<bool>(MsgProtocol::setDisplayHandler(nullptr))); // the default again
    EXPECT_EQ((std::vector<std::string>{"Information|MSG_NODEUI_VALID_EXPR", "Error|e"}), seen);
    EXPECT_EQ("Error: default again\n",
              TestSupport::printed([] { MsgProtocol::display(MsgError("default again")); }, true));
}

TEST(MsgExceptionTest, CarriesTheMessageThroughCopiesAndClones) {
    try {
        throw MsgException<>(__FILE__, __LINE__, MsgWarning("bad %1", {"value"}));
    } catch (ExBase const& e) {
        EXPECT_EQ("bad value", e.getReason());
        EXPECT_STREQ("MsgException", e.getClassName());
        std::unique_ptr<ExBase> copy = e.clone();
        auto const* m = dynamic_cast<MsgException<> const*>(copy.get());
        ASSERT_NE(nullptr, m);
        EXPECT_EQ(MsgSeverity::Warning, m->getMessage().getSeverity());
        EXPECT_EQ("bad value", m->getMessage().getText());
    }
}
