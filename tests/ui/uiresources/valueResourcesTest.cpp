// Tests of the value resources: their XML and text forms, errors, clones and the registry of
// prototypes; and of UiColorRegistry's defaults and look-up, the shipped colorDefs.xml, and the
// colour event.
#include "inPaths.h"
#include "resourcesTestSupport.h"
#include "support/exceptionReason.h"
#include "uiColorRegistry.h"
#include "uiColorValueChanged.h"
#include "uiResAlign.h"
#include "uiResColor.h"
#include "uiResConstraint.h"
#include "uiResCoord.h"
#include "uiResDouble.h"
#include "uiResFrame.h"
#include "uiResInt.h"
#include "uiResMinMax.h"
#include "uiResRegistry.h"
#include "uiResTable.h"
#include "uiResText.h"
#include "xmlDocument.h"
#include "xmlWriter.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>

namespace Zr {
namespace {

// Reads `resource` from a name element holding `inner`, as the table reader does.
void readFrom(UiResource& resource, std::string const& inner) {
    XmlDocument document("<Value>" + inner + "</Value>", "resource");
    resource.read(document.getRoot());
}

std::string xmlOf(UiResource const& resource) {
    std::ostringstream os;
    {
        XmlWriter writer(os);
        XmlWriter::ElementGuard guard(writer, resource.getName());
        resource.write(writer, true);
    }
    return os.str();
}

std::string textOf(UiResource const& resource, bool flag) {
    std::ostringstream os;
    resource.write(os, flag);
    return os.str();
}

TEST(ValueResourceCoord, XmlAndTextForms) {
    UiResCoord coord("Rectangle");
    readFrom(coord, "<Coord X='10' Y='5' W='20' H='30'/>");
    EXPECT_EQ(coord.getCoord(), GeRectangle<int>(10, 30, 5, 35));
    EXPECT_NE(xmlOf(coord).find("<Coord X=\"10\" Y=\"5\" W=\"20\" H=\"30\"/>"), std::string::npos);
    EXPECT_EQ(textOf(coord, false), "10 5 20 30");
    EXPECT_EQ(UiResCoord("r", "1 2 3 4").getCoord(), GeRectangle<int>(1, 4, 2, 6));
}

TEST(ValueResourceCoord, MissingSizeOrElementIsIncomplete) {
    UiResCoord coord("Rectangle", GeRectangle<int>(1, 2, 3, 4));
    EXPECT_EQ(TestSupport::reasonOf<UiResourceEx::ExIncompleteResource>(
                  [&] { readFrom(coord, "<Coord X='10' Y='5' H='30'/>"); }),
              "Error, wrong resource specification for resource ''.");
    EXPECT_EQ(coord.getCoord(), GeRectangle<int>(1, 2, 3, 4));
    EXPECT_THROW(readFrom(coord, "<Int>3</Int>"), UiResourceEx::ExIncompleteResource);
    EXPECT_EQ(TestSupport::reasonOf<UiResourceEx::ExBadNumber>(
                  [&] { UiResCoord bad("r", "1 2 x 4"); }),
              "Bad number \"x\" for coordinate W: not a number.");
}

TEST(ValueResourceNumbers, ReadingReplacesAndTextListsValues) {
    UiResInt values("Value", "1 2 3");
    EXPECT_EQ(values.getNbValues(), 3);
    EXPECT_EQ(values[2], 3);
    readFrom(values, "<Int>7</Int><Int>8</Int>");
    readFrom(values, "<Int>9</Int>");
    EXPECT_EQ(values.getValues(), std::vector<int>{9});
    readFrom(values, "");
    EXPECT_EQ(values.getNbValues(), 0);
    values.setValue(4, 1);
    EXPECT_EQ(textOf(values, false), "0 4 ");
    EXPECT_THROW(readFrom(values, "<Int>nine</Int>"), UiResourceEx::ExBadNumber);
    EXPECT_THROW(values.getValue(5), ExAssertionFailed);

    UiResDouble doubles("Scale", "0.1 2.5");
    EXPECT_EQ(textOf(doubles, false), "0.1 2.5 ");
    readFrom(doubles, "<Double>1.25</Double>");
    EXPECT_EQ(doubles.getValues(), std::vector<double>{1.25});
    EXPECT_NE(xmlOf(doubles).find("<Double>1.25</Double>"), std::string::npos);

    // Every value written as text reads back: shortest exact digits, infinities, subnormals.
    UiResDouble odd("Odd", "0.1 +2 -inf 4.9e-324 1.7976931348623157e308");
    ASSERT_EQ(odd.getNbValues(), 5);
    EXPECT_EQ(odd[1], 2.0);
    EXPECT_EQ(odd[3], 4.9e-324);
    UiResDouble back("Odd", textOf(odd, true).c_str());
    EXPECT_EQ(back.getValues(), odd.getValues());
    // A word that is not wholly a number is reported, not taken as the end of the list.
    EXPECT_THROW(UiResInt("Value", "1 2x 3"), UiResourceEx::ExBadNumber);
}

TEST(ValueResourceText, QuotesStringsWithBlanks) {
    UiResText text("Label", "plain \"two words\"");
    ASSERT_EQ(text.getNbStrings(), 2);
    EXPECT_STREQ(text.getString(1), "two words");
    EXPECT_EQ(textOf(text, true), " plain \"two words\"");
    EXPECT_EQ(textOf(text, false), " plain \\\"two words\\\"");
    UiResText back("Label", textOf(text, true).c_str());
    EXPECT_EQ(back.getStrings(), text.getStrings());
    // The escaped form read inside a quoted phrase gives the quoted form back.
    std::istringstream is("\"" + textOf(text, false) + "\"");
    std::string token;
    ASSERT_TRUE(UiResText::readToken(is, token));
    EXPECT_EQ(token, textOf(text, true));
    readFrom(text, "<Text>a b</Text><Text/>");
    EXPECT_EQ(text.getStrings(), (std::vector<LiString>{"a b", ""}));
    text.removeAll();
    EXPECT_EQ(text.getNbStrings(), 0);
}

TEST(ValueResourceAlign, KeywordsAndOptionalMargins) {
    EXPECT_EQ(UiResAlign::fromString("Middle"), 1);
    EXPECT_STREQ(UiResAlign::toString(1), "Center");
    EXPECT_STREQ(UiResAlign::toString(17), "Center");
    UiResAlign align("Align", UiResAlign::Right, UiResAlign::Top, 0, 3);
    readFrom(align, "<Align H='Left'/>");
    EXPECT_EQ(align.getAlignmentH(), UiResAlign::Left);
    EXPECT_EQ(align.getAlignmentV(), UiResAlign::Top);
    EXPECT_EQ(align.getMarginV(), 3);
    EXPECT_NE(xmlOf(align).find("<Align H=\"Left\" V=\"Top\" MV=\"3\"/>"), std::string::npos);
    UiResAlign fromText("Align", "Bottom Middle 2 1");
    EXPECT_EQ(fromText.getAlignmentH(), UiResAlign::Bottom);
    EXPECT_EQ(fromText.getAlignmentV(), UiResAlign::Center);
    EXPECT_EQ(textOf(fromText, false), "Bottom Center 2 1");
}

TEST(ValueResourceMinMax, ThreeValuesInOrder) {
    UiResMinMax range("Range", "0 100 0.5");
    EXPECT_EQ(range.getMax(), 100.0);
    readFrom(range, "<MinMax Min='-1' Step='2'/>");
    EXPECT_EQ(range.getMin(), -1.0);
    EXPECT_EQ(range.getMax(), 100.0);
    EXPECT_EQ(range.getStep(), 2.0);
    EXPECT_NE(xmlOf(range).find("<MinMax Min=\"-1\" Max=\"100\" Step=\"2\"/>"), std::string::npos);
}

TEST(ValueResourceColor, ByNameByteAndFloat) {
    UiResColor color("Background");
    readFrom(color, "<Color>Selection</Color>");
    EXPECT_EQ(color.getColor(), CoRgbColorTyped<float>(220 / 255.f, 199 / 255.f, 0.f));
    readFrom(color, "<Color R='255' G='0' B='0' Format='Byte'/>");
    EXPECT_NEAR(color.getColor().r, 1.f, 1e-6);
    EXPECT_EQ(color.getColor().g, 0.f);
    readFrom(color, "<Color R='0' G='1' B='0'/>");
    EXPECT_EQ(color.getColor(), CoRgbColorTyped<float>(0.f, 1.f, 0.f));
    EXPECT_NE(xmlOf(color).find("<Color R=\"0\" G=\"1\" B=\"0\"/>"), std::string::npos);
    EXPECT_EQ(textOf(color, false), "0 1 0");
}

TEST(ValueResourceColor, UnknownNameRaisesAndNamesAreCopiedAtReading) {
    UiResColor color("Background");
    EXPECT_EQ(TestSupport::reasonOf<UiResourceEx::UiColorEx::ExUnknownType>(
                  [&] { readFrom(color, "<Color>Selectoin</Color>"); }),
              "Error, Unknown color type Selectoin");
    UiColorRegistry& registry = UiColorRegistry::getInstance();
    registry.registerColor("ValueTestColor", 10, 20, 30);
    readFrom(color, "<Color>ValueTestColor</Color>");
    registry.registerColor("ValueTestColor", 40, 50, 60);
    EXPECT_EQ(color.getColor(), CoRgbColorTyped<float>(10 / 255.f, 20 / 255.f, 30 / 255.f));
}

TEST(ValueResourceFrameAndConstraint, Forms) {
    UiResFrame frame("DefaultFrame", "Border");
    EXPECT_STREQ(frame.getFrameType(), "Border");
    readFrom(frame, "<Frame>Shadow</Frame>");
    EXPECT_STREQ(frame.getFrameType(), "Shadow");
    EXPECT_THROW(readFrom(frame, "<Frame/>"), UiResourceEx::ExIncompleteResource);
    EXPECT_EQ(textOf(frame, false), "Shadow");

    UiResConstraint layout("Layout", "0 u l 0 p b 3 u l 0 p t");
    EXPECT_EQ(layout.getConstraint().calcRect(200, 100), GeRectangle<int>(0, 17, 0, 100));
    EXPECT_EQ(UiResConstraint("Layout").getConstraint().calcRect(200, 100), GeRectangle<int>());
    UiResConstraint back("Layout");
    std::string xml = xmlOf(layout);
    XmlDocument document(xml, "layout");
    back.read(document.getRoot());
    EXPECT_EQ(back.getConstraint(), layout.getConstraint());
    EXPECT_EQ(textOf(layout, false), "0 u l 0 p b 3 u l 0 p t");
    EXPECT_THROW(readFrom(back, "<Int>1</Int>"), UiResourceEx::ExIncompleteResource);
}

TEST(ValueResourceClone, CopiesNameLevelAndPayload) {
    UiResInt original("Value", "1 2");
    original.setLevel(UiResource::LevelApplication);
    RCShdPtr<UiResource> copy = original.clone();
    RCShdPtr<UiResInt> typed = dynamicCast<UiResInt>(copy);
    ASSERT_TRUE(typed);
    typed->setValue(5, 0);
    EXPECT_EQ(typed->getName(), "Value");
    EXPECT_EQ(typed->getLevel(), UiResource::LevelApplication);
    EXPECT_EQ(original[0], 1);
}

TEST(ValueResourceRegistry, PrototypesByTag) {
    UiResRegistry& registry = UiResRegistry::getInstance();
    for (char const* tag :
         {"Int", "Double", "Text", "Align", "MinMax", "Coord", "Constraint", "Color", "Frame"}) {
        RCShdPtr<UiResource> r = registry.getResource(tag);
        ASSERT_TRUE(r) << tag;
        EXPECT_STREQ(r->getType(), tag);
        EXPECT_EQ(r->getName(), "");
        // Each call gives a fresh object.
        EXPECT_NE(r.get(), registry.getResource(tag).get());
    }
    EXPECT_FALSE(registry.getResource("NoSuchType"));
    registry.registerType("ValueTestAlias", RCShdPtr<UiResource>(new UiResInt("", "4")));
    RCShdPtr<UiResInt> alias = dynamicCast<UiResInt>(registry.getResource("ValueTestAlias"));
    ASSERT_TRUE(alias);
    EXPECT_EQ(alias->getNbValues(), 1);
}

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
