// Tests of the icon registry and the font and icon resources: one image per file, the traced
// path, the written forms, unknown handles and the font definitions of resource tables.
#include "resourcesTestSupport.h"
#include "support/exceptionReason.h"

#include "uiIconRegistry.h"
#include "uiResFont.h"
#include "uiResIcon.h"
#include "uiResRegistry.h"
#include "uiResTable.h"

#include "ixTile.h"
#include "osFilePath.h"
#include "wsFontRegistry.h"
#include "wsManagedImage.h"
#include "xmlDocument.h"
#include "xmlElement.h"
#include "xmlWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

namespace Zr {
namespace {

// A directory of two small icons, set as the icon directory for the test; the previous
// directory comes back afterwards.
class IconResource : public ResourceReportTest {
protected:
    void SetUp() override {
        ResourceReportTest::SetUp();
        _previous = UiIconRegistry::getInstance().getIconDirectory();
        _dir =
            std::filesystem::temp_directory_path() /
            ("zrIconResource" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) +
             ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(_dir);
        writeIcon("dot.tif", 3, 2);
        writeIcon("bar.tif", 5, 1);
        UiIconRegistry::getInstance().setIconDirectory(OsFilePath(_dir));
    }
    void TearDown() override {
        UiIconRegistry::getInstance().setIconDirectory(_previous);
        std::filesystem::remove_all(_dir);
        ResourceReportTest::TearDown();
    }
    void writeIcon(char const* name, int width, int height) {
        IxTile tile(width, height, 4);
        tile.fill(200);
        WsManagedImage::writeTiff(tile, OsFilePath(_dir / name));
    }
    OsFilePath path(char const* name) const { return OsFilePath(_dir / name); }

    std::filesystem::path _dir;
    OsFilePath _previous;
};

TEST_F(IconResource, OneImagePerFileWhateverPathReachedIt) {
    UiIconRegistry& icons = UiIconRegistry::getInstance();
    int const before = icons.getNbImages();
    RCShdPtr<WsManagedImage> relative = icons.loadImage(OsFilePath("dot.tif"));
    RCShdPtr<WsManagedImage> absolute = icons.loadImage(path("dot.tif"));
    RCShdPtr<WsManagedImage> dotted = icons.loadImage(OsFilePath(_dir / "." / "dot.tif"));
    ASSERT_TRUE(relative);
    EXPECT_EQ(relative.get(), absolute.get());
    EXPECT_EQ(relative.get(), dotted.get());
    EXPECT_EQ(icons.getNbImages(), before + 1);
    EXPECT_EQ(icons.getImagePath(relative), path("dot.tif"));
    EXPECT_EQ(relative->getWidth(), 3);

    // A second file is a second image, and each traces back to its own path.
    RCShdPtr<WsManagedImage> bar = icons.loadImage(OsFilePath("bar.tif"));
    EXPECT_NE(bar.get(), relative.get());
    EXPECT_EQ(icons.getImagePath(bar), path("bar.tif"));
    EXPECT_EQ(icons.getNbImages(), before + 2);
}

TEST_F(IconResource, ImagesNotLoadedThroughTheRegistryFailTheAssertion) {
    RCShdPtr<WsManagedImage> inMemory(new WsManagedImage(RCShdPtr<IxTile>(new IxTile(2, 2, 4))));
    EXPECT_EQ(TestSupport::reasonOf<ExBase>(
                  [&] { UiIconRegistry::getInstance().getImagePath(inMemory); }),
              "it != reverseCache.end()");
    UiResIcon resource(LiString("Icon"), inMemory);
    EXPECT_THROW(resource.getIconPath(), ExBase);
}

TEST_F(IconResource, UnreadableFilesRaiseAndAreNotCached) {
    UiIconRegistry& icons = UiIconRegistry::getInstance();
    int const before = icons.getNbImages();
    EXPECT_THROW(icons.loadImage(OsFilePath("missing.tif")), WsImageEx::ExUnreadable);
    EXPECT_EQ(icons.getNbImages(), before);
    // Before the directory is set, relative paths stand under "<IconDir>" and fail to load.
    icons.setIconDirectory(OsFilePath("<IconDir>"));
    EXPECT_THAT(TestSupport::reasonOf<WsImageEx::ExUnreadable>(
                    [&] { icons.loadImage(OsFilePath("dot.tif")); }),
                ::testing::HasSubstr("<IconDir>"));
    EXPECT_EQ(icons.getNbImages(), before);
}

TEST_F(IconResource, NullImageWritesNoFileAndReadingThatBackAsksForSuchAFile) {
    UiResIcon resource(LiString("Icon"));
    std::ostringstream text;
    resource.write(text, false);
    EXPECT_EQ(text.str(), "\"<no file>\"");
    std::ostringstream xml;
    {
        XmlWriter writer(xml);
        resource.write(writer, true);
    }
    EXPECT_NE(xml.str().find("<IconFile>&lt;no file&gt;</IconFile>"), std::string::npos)
        << xml.str();
    std::istringstream back(text.str());
    EXPECT_THAT(TestSupport::reasonOf<WsImageEx::ExUnreadable>([&] { resource.read(back); }),
                ::testing::HasSubstr("<no file>"));
    EXPECT_FALSE(resource.getImage());
}

TEST_F(IconResource, WrittenFormsReadBackToTheSameImage) {
    UiResIcon resource(LiString("Icon"), "dot.tif");
    ASSERT_TRUE(resource.getImage());
    std::ostringstream text;
    resource.write(text, false);
    EXPECT_EQ(text.str(), path("dot.tif").toString());

    std::ostringstream xml;
    {
        XmlWriter writer(xml);
        XmlWriter::ElementGuard icon(writer, "Icon");
        resource.write(writer, true);
    }
    EXPECT_NE(xml.str().find("<IconFile>dot.tif</IconFile>"), std::string::npos) << xml.str();
    XmlDocument document(xml.str(), "icon");
    UiResIcon fromXml(LiString("Icon"));
    fromXml.read(document.getRoot());
    EXPECT_EQ(fromXml.getImage().get(), resource.getImage().get());

    // A clone shares the image; an empty token leaves it as it was.
    RCShdPtr<UiResource> clone = resource.clone();
    EXPECT_EQ(static_cast<UiResIcon&>(*clone).getImage().get(), resource.getImage().get());
    std::istringstream empty("");
    resource.read(empty);
    EXPECT_TRUE(resource.getImage());
}

TEST_F(IconResource, EmptyIconFileIsIncomplete) {
    XmlDocument document("<Icon><IconFile></IconFile></Icon>", "icon");
    UiResIcon resource(LiString("Icon"), "dot.tif");
    EXPECT_THROW(resource.read(document.getRoot()), UiResourceEx::ExIncompleteResource);
    EXPECT_TRUE(resource.getImage());
}

TEST_F(IconResource, TableReadsIconsAndReportsMissingOnesPerResource) {
    UiResTable t;
    t.readTable(LiString("<ResourceTable><Widget Name='w'>"
                         "<Icon><IconFile>dot.tif</IconFile></Icon>"
                         "<Other><IconFile></IconFile></Other>"
                         "<Missing><IconFile>gone.tif</IconFile></Missing>"
                         "<After><IconFile>bar.tif</IconFile></After>"
                         "</Widget></ResourceTable>"),
                UiResource::LevelApplication);
    ASSERT_TRUE(t.find("w", "Icon"));
    auto const* icon = dynamic_cast<UiResIcon const*>(t.find("w", "Icon").get());
    ASSERT_NE(icon, nullptr);
    EXPECT_EQ(icon->getIconPath(), path("dot.tif"));
    EXPECT_FALSE(t.find("w", "Other"));
    EXPECT_FALSE(t.find("w", "Missing"));
    EXPECT_TRUE(t.find("w", "After"));
    EXPECT_EQ(shown().size(), 2u);
    EXPECT_NE(logText().find("Error in resource 'Missing' for widget 'w' (in internal resource "
                             "string):\nCannot read image \""),
              std::string::npos)
        << logText();

    // The text form drops only the bad line too.
    std::istringstream text("Widget v\n  Missing IconFile gone.tif\n  After IconFile dot.tif\n");
    t.readTableText(text, UiResource::LevelApplication, "icons.txt");
    EXPECT_FALSE(t.find("v", "Missing"));
    EXPECT_TRUE(t.find("v", "After"));
    EXPECT_EQ(shown().size(), 3u);
}

using FontResource = ResourceReportTest;

TEST_F(FontResource, KnownHandleGivesTheRegistrysDescription) {
    UiResFont font(LiString("Font"), "Bold12Font");
    EXPECT_EQ(font.getFontHandle(), LiString("Bold12Font"));
    EXPECT_EQ(font.getFontName(), LiString("DejaVu Sans:Bold:12"));
    std::ostringstream text;
    font.write(text, false);
    EXPECT_EQ(text.str(), "Bold12Font");
    EXPECT_TRUE(UiResRegistry::getInstance().getResource("FontHandle"));
    EXPECT_STREQ(UiResRegistry::getInstance().getResource("IconFile")->getType(), "IconFile");
}

TEST_F(FontResource, UnknownOrEmptyHandlesRaiseAndLeaveTheResource) {
    UiResFont font(LiString("Font"), "Normal10Font");
    std::istringstream unknown("NoSuchFont");
    EXPECT_EQ(TestSupport::reasonOf<UiResourceEx::UiInvalidFontEx>([&] { font.read(unknown); }),
              "Error, invalid font handle NoSuchFont");
    EXPECT_EQ(font.getFontHandle(), LiString("Normal10Font"));
    std::istringstream empty("");
    EXPECT_THROW(font.read(empty), UiResourceEx::ExInvalidStream);
    XmlDocument document("<Font><FontHandle/></Font>", "font");
    EXPECT_THROW(font.read(document.getRoot()), UiResourceEx::ExIncompleteResource);
    EXPECT_EQ(font.getFontName(), LiString("DejaVu Sans:Regular:10"));
}

TEST_F(FontResource, FontDefinitionRegistersScaledAndWidgetsOfTheFileFindIt) {
    UiResTable t(2.0f);
    t.readTable(LiString("<ResourceTable>"
                         "<Widget Name='w'><Font><FontHandle>IconTestSmall</FontHandle></Font>"
                         "</Widget>"
                         "<FontDefinition Handle='IconTestSmall' Name='DejaVu Sans:Bold:9'/>"
                         "</ResourceTable>"),
                UiResource::LevelApplication);
    EXPECT_TRUE(shown().empty()) << logText();
    WsFontRegistry& fonts = WsFontRegistry::getInstance();
    ASSERT_TRUE(fonts.isRegisteredFont(LiString("IconTestSmall")));
    EXPECT_EQ(fonts.getFontName(LiString("IconTestSmall")), "DejaVu Sans:Bold:18");
    auto const* font = dynamic_cast<UiResFont const*>(t.find("w", "Font").get());
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(font->getFontName(), LiString("DejaVu Sans:Bold:18"));
}

TEST_F(FontResource, BadDescriptionIsReportedPerDefinition) {
    UiResTable t;
    t.readTable(LiString("<ResourceTable>"
                         "<FontDefinition Handle='IconTestBad' Name='DejaVu Sans 9'/>"
                         "<FontDefinition Handle='IconTestGood' Name='DejaVu Sans:Regular:9'/>"
                         "</ResourceTable>"),
                UiResource::LevelApplication);
    ASSERT_EQ(shown().size(), 1u);
    EXPECT_EQ(shown()[0].id, "MSG_RESOURCE_RES_ERROR");
    EXPECT_NE(logText().find("Font resource error in internal resource string:\nBad font "
                             "description \"DejaVu Sans 9\""),
              std::string::npos)
        << logText();
    WsFontRegistry& fonts = WsFontRegistry::getInstance();
    EXPECT_FALSE(fonts.isRegisteredFont(LiString("IconTestBad")));
    EXPECT_TRUE(fonts.isRegisteredFont(LiString("IconTestGood")));

    // The text form reports the same way.
    std::istringstream text("FontDefinition IconTestBad2 \"Sans:Heavy:9\"\n");
    t.readTableText(text, UiResource::LevelApplication, "fonts.txt");
    EXPECT_EQ(shown().size(), 2u);
    EXPECT_FALSE(fonts.isRegisteredFont(LiString("IconTestBad2")));
}

} // namespace
} // namespace Zr
