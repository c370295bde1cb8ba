// Widget types: what getNodeType answers for each kind of widget and the derivation queries a
// client asks; the toolkit's exit step that empties the type registry, which asserts that it is
// empty when it goes; the registry's failures and dump.
#include "uiTestSupport.h"

#include "support/exceptionReason.h"
#include "zrUi.h"

#include <gtest/gtest.h>

#include <sstream>

namespace Zr {
namespace {

using TestSupport::reasonOf;

TEST(WidgetType, EachKindAnswersItsTypeAndItsAncestors) {
    auto root = UiTest::TestRoot::make();
    UiContainer* p = root.get();
    // The widget, its type, a type it is (itself or an ancestor) and one it is not.
    struct Row {
        RCShdPtr<UiWidget> widget;
        char const *type, *is, *isNot;
    } const rows[] = {
        {UiWidget::create(p, "w"), "UiWidget", "UiWidget", "UiContainer"},
        {UiContainer::create(p, "c"), "UiContainer", "UiWidget", "UiWindow"},
        {UiTopLevel::create("top"), "UiWindow", "UiWidget", "UiRange"},
        {UiToggleButton::create(p, "t"), "UiDualState", "UiWidget", "UiContainer"},
        {UiProgressBar::create(p, "r"), "UiRange", "UiWidget", "UiDualState"},
        {UiTextField::create(p, "f"), "UiTextField", "UiWidget", "UiRange"},
        {UiValueEditor::create(p, "v"), "UiValueEditor", "UiRange", "UiTextField"},
    };
    UiWidgetTypeRegistry const& registry = UiWidgetTypeRegistry::getInstance();
    for (Row const& row : rows) {
        SCOPED_TRACE(row.type);
        RttiType<WidgetRttiType> const& type = row.widget->getNodeType();
        EXPECT_EQ(&registry.findType(row.type), &type);
        EXPECT_TRUE(type.isA(registry.findType(row.is)));
        EXPECT_FALSE(type.isA(registry.findType(row.isNot)));
    }
    root->removeChildren();
}

struct ShapeTag {};

TEST(WidgetType, TheExitStepEmptiesTheRegistryWhichAssertsItIsEmptyWhenItGoes) {
    UiWidgetTypes::deregisterTypes();
    EXPECT_EQ(UiWidgetTypeRegistry::getInstance().getNbTypes(), 0);
    EXPECT_EQ(reasonOf<ExAssertionFailed>([] { UiWidgetTypes::Widget::getType(); }), "_type != 0");
    UiWidgetTypes::registerTypes();

    // A registry of another family, destroyed with its types still in it.
    auto* shapes = new RttiTypeRegistryImp<ShapeTag>;
    auto const& shape = shapes->registerType("Shape", nullptr);
    shapes->registerType("Square", &shapes->registerType("Polygon", &shape));
    EXPECT_EQ(reasonOf<RttiEx::ExAlreadyExists>([&] { shapes->registerType("Shape", nullptr); }),
              "Type already registered: Shape");
    EXPECT_EQ(reasonOf<RttiEx::ExNotFound>([&] { shapes->findType("Cube"); }),
              "Type not registered: Cube");
    std::ostringstream dump;
    shapes->dump(dump);
    EXPECT_EQ(dump.str(), "RttiTypeRegistry of Zr::(anonymous namespace)::ShapeTag\nNext type Id: "
                          "4\nRegistered  types:\n------------------------\n1 Shape\n2 Polygon "
                          "Shape\n3 Square Polygon Shape\n");
    EXPECT_EQ(reasonOf<ExAssertionFailed>([&] { delete shapes; }), "_types.empty()");
}

} // namespace
} // namespace Zr
