// Tests of UiColorRegistry's defaults and look-up, the shipped colorDefs.xml, and the colour
// event.
#include "resourcesTestSupport.h"

#include "uiColorRegistry.h"
#include "uiColorValueChanged.h"
#include "uiResTable.h"

#include "inPaths.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

namespace Zr {
namespace {

CoRgbColorTyped<float> bytes(int r, int g, int b) {
    return {static_cast<float>(r / 255.0), static_cast<float>(g / 255.0),
            static_cast<float>(b / 255.0)};
}

TEST(ColorRegistry, DefaultsByConstantName) {
    UiColorRegistry const& registry = UiColorRegistry::getInstance();
    EXPECT_EQ(UiColorRegistry::Background, LiString("Background"));
    EXPECT_EQ(registry.getColor(UiColorRegistry::Background), bytes(80, 80, 80));
    EXPECT_EQ(registry.getColor(UiColorRegistry::FocusKeyboard), bytes(105, 130, 238));
    EXPECT_EQ(registry.getColor(UiColorRegistry::TL3DObject), bytes(66, 73, 88));
    EXPECT_EQ(registry.getColor(UiColorRegistry::Animated), bytes(179, 25, 25));
    EXPECT_EQ(registry.getColor(UiColorRegistry::White), bytes(255, 255, 255));
    EXPECT_EQ(registry.getColor(UiColorRegistry::Information), bytes(255, 255, 225));
}

TEST(ColorRegistry, GreysFollowTheirNumber) {
    UiColorRegistry const& registry = UiColorRegistry::getInstance();
    for (int n : {15, 25,  30,  35,  40,  45,  50,  60,  65,  70,  75,  80,  85,
                  90, 100, 107, 115, 120, 125, 128, 130, 145, 150, 175, 190, 200}) {
        LiString name("Grey" + std::to_string(n));
        EXPECT_TRUE(registry.isRegisteredColor(name)) << name;
        EXPECT_EQ(registry.getColor(name), bytes(n, n, n)) << name;
    }
    EXPECT_EQ(UiColorRegistry::Grey107, LiString("Grey107"));
    EXPECT_FALSE(registry.isRegisteredColor("Grey20"));
}

TEST(ColorRegistry, UnknownNameIsBlackAndStaysUnknown) {
    UiColorRegistry& registry = UiColorRegistry::getInstance();
    int before = registry.getNbColors();
    EXPECT_EQ(registry.getColor("NoSuchColour"), CoRgbColorTyped<float>(0.f, 0.f, 0.f));
    EXPECT_FALSE(registry.isRegisteredColor("NoSuchColour"));
    EXPECT_EQ(registry.getNbColors(), before);
}

TEST(ColorRegistry, RegisterReplacesWithoutClamping) {
    UiColorRegistry& registry = UiColorRegistry::getInstance();
    EXPECT_EQ(registry.registerColor("RegistryTestColor", 510, 0, -255),
              CoRgbColorTyped<float>(2.f, 0.f, -1.f));
    registry.registerColor("RegistryTestColor", 0, 51, 0);
    EXPECT_EQ(registry.getColor("RegistryTestColor"), bytes(0, 51, 0));
}

class ColorDefsFile : public ResourceReportTest {};

// The shipped file reads without a report and sets the defaults it lists.
TEST_F(ColorDefsFile, ShippedFileReadsCleanly) {
    OsFilePath path =
        InPaths::getResourcesDir() + UiResTable::getResTableDir() + OsFilePath("colorDefs.xml");
    ASSERT_TRUE(std::filesystem::exists(path.getPath())) << path;
    UiResTable table(path, UiResource::LevelApplication);
    EXPECT_TRUE(shown().empty()) << logText();
    EXPECT_EQ(table.getNbEntries(), 0);
    EXPECT_EQ(table.getResTableName(), "colorDefs");
    EXPECT_EQ(UiColorRegistry::getInstance().getColor(UiColorRegistry::Selection),
              bytes(220, 199, 0));
}

TEST(ColorValueChanged, FieldsAndTextForm) {
    UiColorValueChanged event(CoRgbColorTyped<float>(0.25f, 0.5f, 1.f), true);
    EXPECT_STREQ(event.getClassName(), "UiColorValueChanged");
    std::ostringstream os;
    event.dump(os);
    UiColorValueChanged back;
    std::istringstream is(os.str());
    back.read(is);
    EXPECT_EQ(back.getValue(), event.getValue());
    EXPECT_TRUE(back.getConnected());
    OPtr<EvEvent> copy = event.clone();
    auto* typed = dynamic_cast<UiColorValueChanged*>(copy.get());
    ASSERT_NE(typed, nullptr);
    typed->setColorValue({0.f, 0.f, 0.f});
    typed->setConnected(false);
    EXPECT_EQ(event.getValue(), CoRgbColorTyped<float>(0.25f, 0.5f, 1.f));
}

} // namespace
} // namespace Zr
