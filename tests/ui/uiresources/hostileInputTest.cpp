// Resource tables given on purpose bad input: numbers that don't parse whole or lie out of
// range, images that declare more pixels than they could hold, icon paths that are no regular
// file or climb out of the icon directory. Each bad resource is reported, with its file and
// line where known, and the rest of the table is read.
#include "resourcesTestSupport.h"

#include "uiColorRegistry.h"
#include "uiIconRegistry.h"
#include "uiResTable.h"
#include "uiResText.h"

#include "osFilePath.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <fstream>

namespace Zr {
namespace {

// A little-endian TIFF of one 8-bit grey strip whose header declares width x height pixels,
// followed by only 16 bytes of pixels: about 150 bytes, whatever it declares.
std::string tiffDeclaring(std::uint32_t width, std::uint32_t height) {
    std::string out("II\x2a\0\x08\0\0\0", 8);
    auto put = [&out](std::uint32_t value, int bytes) {
        for (int i = 0; i < bytes; ++i)
            out += static_cast<char>((value >> (8 * i)) & 0xff);
    };
    struct Entry {
        std::uint16_t tag, type;
        std::uint32_t value;
    } const entries[] = {{256, 4, width}, {257, 4, height}, {258, 3, 8},
                         {259, 3, 1},     {262, 3, 1},      {273, 4, 122},
                         {277, 3, 1},     {278, 4, height}, {279, 4, 16}};
    put(9, 2);
    for (Entry const& e : entries) {
        put(e.tag, 2);
        put(e.type, 2);
        put(1, 4);
        put(e.value, 4);
    }
    put(0, 4);
    out.append(16, '\x80');
    return out;
}

class HostileTable : public ResourceReportTest {
protected:
    void SetUp() override {
        ResourceReportTest::SetUp();
        _previous = UiIconRegistry::getInstance().getIconDirectory();
        _dir = std::filesystem::temp_directory_path() /
               ("zrHostile" + std::to_string(::getpid()) +
                ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(_dir / "icons");
        UiIconRegistry::getInstance().setIconDirectory(OsFilePath(_dir / "icons"));
    }
    void TearDown() override {
        UiIconRegistry::getInstance().setIconDirectory(_previous);
        std::filesystem::remove_all(_dir);
        ResourceReportTest::TearDown();
    }
    void write(std::filesystem::path const& name, std::string const& bytes) {
        std::ofstream(_dir / name, std::ios::binary) << bytes;
    }

    std::filesystem::path _dir;
    OsFilePath _previous;
};

struct Row {
    char const* table;  // the widget "w"'s resources, in the text form
    char const* report; // the reason reported for resource "Bad"
};

TEST_F(HostileTable, BadNumbersAndFilesAreReportedAndTheRestIsRead) {
    write("icons/huge.tif", tiffDeclaring(65536, 65536));
    write("icons/big.tif", tiffDeclaring(8000, 8000));
    write("outside.tif", tiffDeclaring(1, 1));
    ASSERT_EQ(::mkfifo((_dir / "icons/fifo.tif").c_str(), 0600), 0);
    std::string const icons = (_dir / "icons").string();
    Row const rows[] = {
        {"Bad Int 12abc", "Bad number \"12abc\" for Int: not a number."},
        {"Bad Int 1 99999999999", "Bad number \"99999999999\" for Int: not between -2147483648 "
                                  "and 2147483647."},
        {"Bad Double 0.5 x", "Bad number \"x\" for Double: not a number."},
        {"Bad Coord 2147483000 0 1000 10",
         "Bad number \"2147483000\" for coordinate X: not between -1000000 and 1000000."},
        {"Bad Coord 0 0 -5e3 10", "Bad number \"-5e3\" for coordinate W: not a number."},
        {"Bad MinMax 0 1 x", "Bad number \"x\" for Step: not a number."},
        {"Bad Align Left Top 5000000",
         "Bad number \"5000000\" for margin MH: not between -1000000 and 1000000."},
        {"Bad Constraint 1 u l 2x u b 3 u r 4 u t", "Bad number \"2x\" for edge Y1: not a number."},
        {"Bad Color 0.5 2 0", "Bad number \"2\" for component G: not between 0 and 1."},
        {"Bad Color 0.5 nan 0", "Bad number \"nan\" for component G: not between 0 and 1."},
        {"Bad IconFile huge.tif",
         "image size 65536x65536 is larger than the limit of 16384 pixels a "
         "side"},
        {"Bad IconFile big.tif", "image size 8000x8000 does not fit a file of 138 bytes"},
        {"Bad IconFile fifo.tif", "not a regular file"},
        {"Bad IconFile ../outside.tif", "a relative icon path may not leave the icon directory"},
        {"Bad IconFile a/../../outside.tif",
         "a relative icon path may not leave the icon directory"},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.table);
        UiResTable table;
        table.readTableText(
            LiString(std::string("Widget w\n  Before Int 1\n  ") + row.table + "\n  After Int 2\n"),
            UiResource::LevelApplication);
        EXPECT_NE(logText().find("Error in resource 'Bad' for widget 'w'"), std::string::npos)
            << logText();
        EXPECT_NE(logText().find(row.report), std::string::npos) << logText();
        EXPECT_TRUE(table.find("w", "Before") && table.find("w", "After"));
        EXPECT_FALSE(table.find("w", "Bad"));
    }
}

TEST_F(HostileTable, ColourComponentsMustBeWholeBytes) {
    char const* const components[] = {"abc", "300", "-5", "1e3", "0x10"};
    char const* const reasons[] = {"not a number", "not between 0 and 255", "not between 0 and 255",
                                   "not a number", "not a number"};
    for (int i = 0; i < 5; ++i) {
        SCOPED_TRACE(components[i]);
        UiResTable table;
        table.readTable(LiString(std::string("<ResourceTable><ColorDefinition Handle='Hostile"
                                             "Shade' R='1' G='") +
                                 components[i] + "' B='2'/></ResourceTable>"),
                        UiResource::LevelApplication);
        EXPECT_NE(logText().find("Bad number \"" + std::string(components[i]) +
                                 "\" for component G of colour 'HostileShade': " + reasons[i]),
                  std::string::npos)
            << logText();
        EXPECT_FALSE(UiColorRegistry::getInstance().isRegisteredColor("HostileShade"));
    }
    UiResTable table; // the same as a <Color> resource, 0 to 255 with Format="Byte"
    table.readTable(LiString("<ResourceTable><Widget Name='w'><Bad><Color R='256' G='0' B='0' "
                             "Format='Byte'/></Bad></Widget></ResourceTable>"),
                    UiResource::LevelApplication);
    EXPECT_NE(logText().find("Bad number \"256\" for component R: not between 0 and 255."),
              std::string::npos);
}

TEST_F(HostileTable, ReportsOfAFileNameItsLine) {
    write("panel.xml", "<ResourceTable>\n<Widget Name='w'>\n  <A><Int>1</Int></A>\n"
                       "  <Bad><Coord X='1' Y='1' W='1e9' H='1'/></Bad>\n</Widget>\n"
                       "</ResourceTable>\n");
    write("panel.rtx", "Widget w\n\n  A Int 1\n  Bad Int 1 two\n");
    for (char const* name : {"panel.xml", "panel.rtx"}) {
        UiResTable table;
        std::string const path = OsFilePath(_dir / name).toString();
        if (std::string(name).ends_with(".xml"))
            table.readTable(OsFilePath(_dir / name), UiResource::LevelApplication);
        else
            table.readTableText(OsFilePath(_dir / name), UiResource::LevelApplication);
        EXPECT_NE(logText().find("Error in resource 'Bad' for widget 'w' (in " + path + ":4)"),
                  std::string::npos)
            << logText();
        EXPECT_TRUE(table.find("w", "A"));
    }
}

// Names and labels hold valid UTF-8: each malformed sequence becomes U+FFFD when read.
TEST_F(HostileTable, InvalidUtf8InNamesAndLabelsBecomesTheReplacementCharacter) {
    std::string const replacement = "\xEF\xBF\xBD";
    UiResTable table;
    table.readTableText(LiString("Widget w\xC3\n  Label Text \"caf\xE9 \xF0\x9F\x98\x80\"\n"),
                        UiResource::LevelApplication);
    table.readTable(LiString("<ResourceTable><Widget Name='x\xFF'><Label><Text>\xFF!</Text>"
                             "</Label></Widget></ResourceTable>"),
                    UiResource::LevelApplication);
    auto text = [&table](char const* widget) {
        RCShdPtr<UiResource> const found = table.find(LiString(widget), "Label");
        auto const* label = dynamic_cast<UiResText const*>(found.get());
        return label ? std::string(label->getString(0)) : std::string("(none)");
    };
    EXPECT_EQ(text(("w" + replacement).c_str()), "caf" + replacement + " \xF0\x9F\x98\x80");
    EXPECT_EQ(text(("x" + replacement).c_str()), replacement + "!");
}

} // namespace
} // namespace Zr
