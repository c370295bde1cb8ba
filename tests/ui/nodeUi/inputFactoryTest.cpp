// Input widgets made from a node panel's description: the input found by name, the label row
// and its mark, read-only panels, and descriptions naming inputs the node lacks or can't show.
#include "foundation/framework/inputValueTestGraph.h"
#include "ui/uitoolkit/buttonTestSupport.h"

#include "msgProtocol.h"
#include "piKeyframingUtil.h"
#include "uiInputDualState.h"
#include "uiInputLabelHandler.h"
#include "uiInputTextField.h"
#include "uiInputValueEditor.h"
#include "uiLabel.h"
#include "uiNodeWidgetFactory.h"
#include "xmlDocument.h"

namespace Zr {
namespace {

class InputFactory : public UiTest::ButtonFixture {
protected:
    // A container of one widget of `type` named "w", with `extra` elements in its definition.
    RCShdPtr<UiWidget> make(std::string const& type, std::string const& extra,
                            bool readOnly = false) {
        std::string const text =
            "<Container><Widget Name=\"panel\"><Rectangle><Coord X=\"0\" Y=\"0\" W=\"200\" "
            "H=\"30\"/></Rectangle></Widget><Group Type=\"Children\"><" +
            type + "><Widget Name=\"w\"><Rectangle><Coord X=\"0\" Y=\"0\" W=\"200\" H=\"21\"/>" +
            "</Rectangle></Widget>" + extra + "</" + type + "></Group></Container>";
        XmlDocument const doc(text, "test panel");
        auto items =
            readOnly
                ? UiNodeWidgetFactory::createAuxiliaryUi(RCShdPtr<PiNode const>(g.node), g.timePath,
                                                         doc)
                : UiNodeWidgetFactory::createAuxiliaryUi(RCShdPtr<PiNode>(g.node), g.timePath, doc);
        EXPECT_EQ(items.getCardinality(), 1);
        RCShdPtr<UiWidget> panel = items->getWidget();
        root->addChild(panel);
        // With a label, "w" is the row; the widget is its child of the same name.
        RCShdPtr<UiWidget> w = static_cast<UiContainer&>(*panel).findWidget(LiString("w"));
        if (auto* row = dynamic_cast<UiContainer*>(w.get()))
            return row->findWidget(LiString("w"));
        return w;
    }

    test::InputTestGraph g;
};

// A Label puts the widget in a row beside a label whose state is the input's mark.
TEST_F(InputFactory, LabelTogglesTheMark) {
    RCShdPtr<UiWidget> editor =
        make("InputValueEditor", "<Input>radius</Input><Label><Text>Size</Text></Label>");
    ASSERT_NE(UiInputValueEditor::getData(*editor), nullptr);
    auto* handler = editor->findClientData<UiInputLabelHandler>();
    ASSERT_NE(handler, nullptr);
    UiLabel* label = handler->getLabel();
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->getName().str(), "_label");
    EXPECT_EQ(label->getText().str(), "Size");
    EXPECT_FALSE(label->isLocked());
    auto util = g.graph->getKeyframingUtil();
    UiTest::clickOn(*label);
    EXPECT_TRUE(util->isAttributeMarked(g.input("radius")));
    EXPECT_EQ(UiInputValueEditor::getData(*editor)->getUnderline(),
              InputDataCommon::UnderlineMarked);
    UiTest::clickOn(*label);
    EXPECT_FALSE(util->isAttributeMarked(g.input("radius")));
    // Rebound to no input, the label stays locked.
    UiInputValueEditor::setInput(*editor, nullptr, g.timePath);
    EXPECT_TRUE(label->isLocked());
    EXPECT_TRUE(editor->isLocked());
}

// Each widget type finds its input by name, read-only panels lock it, Undoable is read.
TEST_F(InputFactory, WidgetsFindTheirInput) {
    struct Row {
        char const* type;
        char const* extra;
        bool readOnly, undoable;
    } const rows[] = {
        {"InputValueEditor", "<Input>count</Input><Undoable>false</Undoable>", false, false},
        {"InputValueEditor", "<Input>radius</Input>", true, true},
        {"InputToggleButton", "<Input>flag</Input>", false, true},
        {"InputPushedToggle", "<Input>flag</Input>", true, true},
        {"InputPushedToggleIcon", "<Input>flag</Input>", false, true},
        {"InputTextField", "<Input>mode</Input>", false, true},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(std::string(row.type) + row.extra + (row.readOnly ? " read-only" : ""));
        RCShdPtr<UiWidget> w = make(row.type, row.extra, row.readOnly);
        ASSERT_FALSE(w.isNull());
        InputDataCommon* data = w->findClientData<InputDataCommon>();
        ASSERT_NE(data, nullptr);
        EXPECT_EQ(w->isLocked(), row.readOnly);
        EXPECT_EQ(data->isUndoable(), row.undoable);
        root->removeChildren();
    }
}

// An input the node lacks, or one the widget can't show: one report each, the widget unbound and
// locked, the rest of the panel made.
TEST_F(InputFactory, BadInputsAreReportedOnce) {
    struct Row {
        char const* type;
        char const* input;
        char const* message;
    } const rows[] = {
        {"InputValueEditor", "nope",
         "The panel of InputTestTool names the input nope, which the node does not have (test "
         "panel:1)."},
        {"InputTextField", "radius",
         "The panel of InputTestTool binds the widget w to the input "
         "radius, which it can't show: "},
        {"InputValueEditor", "mode",
         "The panel of InputTestTool binds the widget w to the input "
         "mode, which it can't show: "},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(std::string(row.type) + " " + row.input);
        std::vector<std::string> shown;
        auto previous = MsgProtocol::setDisplayHandler(
            [&shown](MsgBase const& m) { shown.push_back(m.getText()); });
        RCShdPtr<UiWidget> w = make(row.type, std::string("<Input>") + row.input + "</Input>");
        MsgProtocol::setDisplayHandler(previous);
        ASSERT_FALSE(w.isNull());
        EXPECT_EQ(w->findClientData<InputDataCommon>(), nullptr);
        EXPECT_TRUE(w->isLocked());
        ASSERT_EQ(shown.size(), 1u);
        EXPECT_EQ(shown[0].substr(0, std::string(row.message).size()), row.message);
        root->removeChildren();
    }
}

} // namespace
} // namespace Zr
