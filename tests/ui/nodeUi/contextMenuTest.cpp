// The context menu of bound input widgets: a right click lists the registry's actions for the
// input in group order with separators, a chosen row acts on the input, and an action that
// throws is reported while the menu keeps working.
#include "foundation/framework/inputValueTestGraph.h"
#include "ui/uitoolkit/loopTestSupport.h"
#include "ui/uitoolkit/uiTestSupport.h"

#include "actTypedAction.h"
#include "drClipboard.h"
#include "inputDualStateData.h"
#include "msgProtocol.h"
#include "piExpressionServices.h"
#include "piKeyframingUtil.h"
#include "piSnItem.h"
#include "uiInputValueEditor.h"
#include "uiLabel.h"
#include "uiLabelSink.h"
#include "uiPopupMenu.h"
#include "uiPopupMenuHandler.h"
#include "uiRowSeparator.h"
#include "uiToggleButton.h"
#include "uiTopLevel.h"

#include <functional>
#include <sstream>
#include <stdexcept>

namespace Zr {
namespace {

using Rows = std::vector<std::string>;
using TimePathPtr = RCShdPtr<PiTimePath const>;

// An action of another package on the input, named by its text, in the given group; "Fail"
// throws.
struct ForeignAction : ActTypedAction<RCShdPtr<PiInput>, TimePathPtr> {
    ForeignAction(std::string text, std::string group)
        : text(std::move(text)), group(std::move(group)) {}
    std::string getCompositeName() const override { return "contextMenuTest." + text; }
    std::string getDisplayString() const override { return text; }
    std::string getGroup() const override { return group; }
    bool test(RCShdPtr<PiInput> const&, TimePathPtr const&) override { return true; }
    void perform(RCShdPtr<PiInput> const&, TimePathPtr const&) override {
        if (text == "Fail")
            throw std::runtime_error("no curve");
    }
    std::string text, group;
};

class ContextMenu : public LoopTest::LoopFixture {
protected:
    void registerAction(OPtr<ActAction> action) {
        registered.push_back(action->getCompositeName());
        ActRegistry::getInstance().registerAction(std::move(action), ActRegistry::Dynamic);
    }
    void SetUp() override {
        LoopFixture::SetUp();
        WsWindowStyle style = WsWindowStyleUtils::getNormalWindowStyle({0, 400, 0, 700});
        style.setMainWindow(false);
        top = UiTopLevel::create("panel", nullptr, style);
        top->show();
        id = top->getOSWindow()->getId();
        root = top->getRootContainer().get();
        editor = UiValueEditor::create(root, "radius");
        editor->setRect({14, 84, 600, 621}, false);
        UiInputValueEditor::setInput(*editor, g.input("radius"), g.timePath, true);
        toggle = UiToggleButton::create(root, "flag");
        toggle->setRect({100, 160, 600, 621}, false);
        toggle->addClientData(RCShdPtr<RCObject>(new InputDualStateData(
            toggle.get(), g.input("flag"), g.input("flag"), g.timePath, true)));
    }
    void TearDown() override {
        for (std::string const& name : registered)
            ActRegistry::getInstance().unregisterAction(name);
        if (auto menu = openMenu())
            menu->close();
        editor = nullptr;
        toggle = nullptr;
        root->removeChildren();
        top = nullptr;
        LoopFixture::TearDown();
    }
    // Right-clicks the widget; returns the rows of the menu that opened, "-" for a separator,
    // or nothing when no menu opened.
    Rows rightClick(UiWidget& widget) {
        GePoint2<int> const at{widget.getRect().getXMin() + 5, widget.getRect().getYMin() + 5};
        send(LoopTest::makeDown(id, at, 4, 4));
        send(LoopTest::makeUp(id, at, 4, 0));
        Rows rows;
        RCShdPtr<UiPopupMenu> menu = openMenu();
        for (int i = 0; menu && i < menu->getNbOptions(); ++i) {
            auto row = menu->getRow(i);
            rows.push_back(dynamicCast<UiRowSeparator>(row) ? "-" : row->getString().str());
        }
        return rows;
    }
    // The menu of either widget that is open now.
    RCShdPtr<UiPopupMenu> openMenu() const {
        for (char const* name : {"radiusContextMenu", "flagContextMenu"})
            if (auto menu = dynamicCast<UiPopupMenu>(root->findWidget(LiString(name))))
                if (menu->isOpen())
                    return menu;
        return nullptr;
    }
    // Chooses the row of the open menu that shows `text`.
    void choose(std::string const& text) {
        RCShdPtr<UiPopupMenu> menu = openMenu();
        ASSERT_TRUE(menu);
        for (int i = 0; i < menu->getNbOptions(); ++i)
            if (menu->getRow(i)->getString().str() == text) {
                menu->setSelection(i);
                menu->selectCurrentRow(menu->getCoordOfRow(i).getMin());
                return;
            }
        ADD_FAILURE() << "no row " << text;
    }

    test::InputTestGraph g;
    RCShdPtr<UiTopLevel> top;
    WsWindowId id{};
    UiContainer* root = nullptr;
    RCShdPtr<UiValueEditor> editor;
    RCShdPtr<UiToggleButton> toggle;
    Rows registered;
};

// No entry opens no menu; two entries of different groups get no separator.
TEST_F(ContextMenu, TwoRowsOfTwoGroupsHaveNoSeparator) {
    ActRegistry registry;
    UiPopupMenuHandler<double> handler(editor.get(), g.input("radius"), g.input("radius"),
                                       g.timePath, registry);
    handler.popupContextMenuCb(nullptr);
    ASSERT_NE(handler.getMenu(), nullptr);
    EXPECT_FALSE(handler.getMenu()->isOpen());
    for (auto [text, group] : {std::pair{"Reset", "r"}, {"Copy Path", "f"}})
        registry.registerAction(std::make_unique<ForeignAction>(text, group), ActRegistry::Static);
    handler.popupContextMenuCb(nullptr);
    EXPECT_TRUE(handler.getMenu()->isOpen());
    EXPECT_EQ(handler.getMenu()->getNbOptions(), 2);
    handler.getMenu()->close();
}

// The input's states the tests start from: plain, animated with keys at 0 and 1 (the time is 0),
// driven by an expression.
enum class Start { Plain, Animated, Expression };

class ContextMenuOn : public ContextMenu {
protected:
    // Actions of other packages: one that throws, one whose description keeps it off this menu.
    void addForeignActions() {
        registerAction(std::make_unique<ForeignAction>("Fail", "zFail"));
        registerAction(std::make_unique<ForeignAction>("Disconnect", "bConnect"));
    }
    void start(Start state) {
        DrClipboard::getInstance().clear();
        RCShdPtr<PiInput> radius = g.input("radius");
        if (state == Start::Animated) {
            radius->setKey(0, 5);
            radius->setKey(1, 7);
        }
        if (state == Start::Expression)
            radius->setExpression("3");
        g.stack()->clear();
    }
};

Rows const moveKeys{"First Keyframe", "Previous Keyframe", "Next Keyframe", "Last Keyframe"};

Rows join(std::initializer_list<Rows> parts) {
    Rows all;
    for (Rows const& part : parts) {
        if (!all.empty())
            all.push_back("-");
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

// Rows in group order whatever the order of registration, a separator between groups, and
// "Disconnect" never shown, for each state of the input; the toggle has no calculator row.
TEST_F(ContextMenuOn, RowsFollowTheInputsState) {
    addForeignActions();
    struct Case {
        Start state;
        UiWidget* widget;
        Rows rows;
    };
    Rows const tail{"Copy Path"};
    Case const cases[] = {
        {Start::Plain, editor.get(),
         join({{"Set Expression"},
               {"Set Keyframe"},
               moveKeys,
               {"Mark", "Mark Tool"},
               {"Create Animation"},
               tail,
               {"Reset"},
               {"Fail"}})},
        {Start::Animated, editor.get(),
         join({{"Set Expression"},
               {"Set Keyframe", "Delete Keyframe", "Cut Keyframe ", "Copy Keyframe "},
               moveKeys,
               {"Mark", "Mark Tool"},
               {"Remove Animation", "Cut Animation", "Copy Animation"},
               tail,
               {"Reset"},
               {"Fail"}})},
        {Start::Expression, editor.get(),
         join({{"Edit Expression", "Remove Expression", "Copy Expression", "Cut Expression",
                "Convert Expression"},
               moveKeys,
               {"Create Animation"},
               tail,
               {"Reset"},
               {"Fail"}})},
        {Start::Plain, toggle.get(),
         join({{"Set Keyframe"},
               moveKeys,
               {"Mark", "Mark Tool"},
               {"Create Animation"},
               tail,
               {"Reset"},
               {"Fail"}})},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(&c - cases);
        start(c.state);
        EXPECT_EQ(rightClick(*c.widget), c.rows);
        openMenu()->close();
        g.input("radius")->reset();
    }
}

// Each choice changes the input as its row says and leaves one undo entry of its label (marks
// and moves in time none); undo brings the input back. A failing action is reported, changes
// nothing, and the menu opens and works again.
TEST_F(ContextMenuOn, ChoicesActOnTheInputAsOneUndoEntry) {
    addForeignActions();
    UiTest::Reports reports;
    RCShdPtr<PiInput> radius = g.input("radius");
    auto const describe = [&] {
        std::ostringstream out;
        out << radius->evaluate(0) << (radius->hasAnimation() ? " anim" : "")
            << (radius->hasKeyAt(0) ? " key0" : "") << (radius->hasExpression() ? " expr" : "")
            << (radius->isMarked() ? " marked" : "") << " t" << g.graph->getTimeClient()->getTime();
        return out.str();
    };
    struct Case {
        Start state;
        Rows choices;
        std::string after;
        Rows undo; // the labels of the entries made, oldest first
    };
    Case const cases[] = {
        {Start::Plain, {"Set Keyframe"}, "2 anim key0 t0", {"Set Keyframe"}},
        {Start::Animated, {"Delete Keyframe"}, "7 anim t0", {"Delete Keyframe"}},
        {Start::Animated,
         {"Cut Keyframe ", "Next Keyframe", "Paste Keyframe"},
         "5 anim t1",
         {"Cut Keyframe ", "Paste Keyframe"}},
        {Start::Animated, {"Remove Animation"}, "5 t0", {"Remove Expression"}},
        {Start::Animated, {"Cut Animation"}, "2 t0", {"Cut Animation"}},
        {Start::Plain, {"Create Animation"}, "2 anim key0 t0", {"Create Animation"}},
        {Start::Animated, {"Reset"}, "2 t0", {"Reset Radius"}},
        {Start::Animated,
         {"Next Keyframe", "Last Keyframe", "First Keyframe"},
         "5 anim key0 t0",
         {}},
        {Start::Plain, {"Mark"}, "2 marked t0", {}},
        {Start::Expression, {"Remove Expression"}, "3 t0", {"Remove Expression"}},
        {Start::Expression,
         {"Cut Expression", "Paste Expression"},
         "3 expr t0",
         {"Cut Expression", "Paste Expression"}},
        {Start::Expression, {"Convert Expression"}, "3 anim key0 t0", {"Convert Expression"}},
        {Start::Plain, {"Fail", "Set Keyframe"}, "2 anim key0 t0", {"Set Keyframe"}},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(&c - cases);
        start(c.state);
        g.setTime(0);
        std::string const before = describe();
        std::size_t const reported = reports.ids().size();
        for (std::string const& choice : c.choices) {
            rightClick(*editor);
            choose(choice);
            EXPECT_FALSE(openMenu());
        }
        EXPECT_EQ(describe(), c.after);
        Rows undo;
        while (g.stack()->getNbUndo() > 0) {
            undo.insert(undo.begin(), g.stack()->getUndoLabel());
            g.stack()->undo();
        }
        EXPECT_EQ(undo, c.undo);
        g.setTime(0);
        if (!c.undo.empty()) {
            EXPECT_EQ(describe(), before);
        }
        EXPECT_EQ(Rows(reports.ids().begin() + long(reported), reports.ids().end()),
                  c.choices[0] == "Fail" ? Rows{"UITOOLKIT_MENU_ACTION_FAILED"} : Rows{});
        g.graph->getKeyframingUtil()->unmarkAll();
        radius->reset();
    }
}

// A label dragged onto another input's label links that input to the first by an expression: one
// undo entry and a message, a warning when the expression doesn't evaluate (it stays set).
// Drops that name no input, the target itself or one of its parts are refused while dragging.
TEST_F(ContextMenuOn, LabelDropLinksInputsByExpression) {
    Rows shown;
    auto const previous = MsgProtocol::setDisplayHandler([&](MsgBase const& message) {
        shown.push_back(std::string(message.getSeverityName()) + ": " + message.getText());
    });
    auto sinkOf = [&](char const* input) {
        auto label = UiLabel::create(root, LiString(std::string(input) + "Label"));
        return makeShared<UiLabelSink>(label.get(), g.input(input));
    };
    RCShdPtr<UiLabelSink> radius = sinkOf("radius"), count = sinkOf("count"), gain = sinkOf("gain");
    auto carrierOf = [](std::string const& text, RCShdPtr<PiInput> const& input) {
        RCShdPtr<SnSelection> selection = SnSelection::create();
        selection->addItem(SnItemConvert<std::string>::createItem(text));
        if (!input.isNull())
            selection->addItem(PiSnItem<PiInput>::create(input));
        return DrCarrier::create(selection);
    };
    std::string const token = PiExpressionServices::getTisaneToken();
    struct Case {
        RCShdPtr<DrCarrier> carrier;
        UiLabelSink* target;
        char const* input;
        bool accepted;
        char const* expression; // set by the drop
        char const* message;    // shown after the drop
    };
    RCShdPtr<DrCarrier> dragged = DrCarrier::create(SnSelection::create());
    radius->populateSelection(*dragged);
    Case const cases[] = {
        {dragged, count.get(), "count", true, "Node1.radius",
         "Information: The input now follows the expression Node1.radius."},
        {dragged, radius.get(), "radius", false, "", ""},
        {carrierOf(token + "Node1.nothing", g.input("radius")), count.get(), "count", true,
         "Node1.nothing", "Warning: Unknown input: Node1.nothing"},
        {carrierOf("Node1.radius", g.input("radius")), count.get(), "count", false, "", ""},
        {carrierOf(token + "Node1.radius", nullptr), count.get(), "count", false, "", ""},
        {carrierOf(token + "Node1.gain.Red", g.input("gain.Red")), gain.get(), "gain", false, "",
         ""},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(&c - cases);
        g.stack()->clear();
        EXPECT_EQ(c.target->willConsumeSelection(*c.carrier), c.accepted);
        if (!c.accepted)
            continue;
        shown.clear();
        EXPECT_TRUE(c.target->consumeSelection(*c.carrier));
        EXPECT_EQ(g.input(c.input)->getExpression(), c.expression);
        EXPECT_EQ(g.stack()->getNbUndo(), 1);
        EXPECT_EQ(g.stack()->getUndoLabel(), "Set Expression String");
        EXPECT_EQ(shown, Rows{c.message});
        g.input(c.input)->reset();
    }
    MsgProtocol::setDisplayHandler(previous);
}

} // namespace
} // namespace Zr
