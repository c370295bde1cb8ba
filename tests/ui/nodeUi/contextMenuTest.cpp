// The context menu of bound input widgets: a right click lists the registry's actions for the
// input in group order with separators, a chosen row acts on the input, and an action that
// throws is reported while the menu keeps working.
#include "foundation/framework/inputValueTestGraph.h"
#include "ui/uitoolkit/loopTestSupport.h"
#include "ui/uitoolkit/uiTestSupport.h"

#include "actTypedAction.h"
#include "inputDualStateData.h"
#include "uiInputValueEditor.h"
#include "uiPopupMenu.h"
#include "uiRowSeparator.h"
#include "uiToggleButton.h"
#include "uiTopLevel.h"

#include <functional>
#include <stdexcept>

namespace Zr {
namespace {

using Rows = std::vector<std::string>;
using TimePathPtr = RCShdPtr<PiTimePath const>;

// An action on the input named by its text, in the given group, that logs or throws.
struct LoggedAction : ActTypedAction<RCShdPtr<PiInput>, TimePathPtr> {
    LoggedAction(std::string text, std::string group, Rows* log)
        : text(std::move(text)), group(std::move(group)), log(log) {}
    std::string getCompositeName() const override { return "contextMenuTest." + text; }
    std::string getDisplayString() const override { return text; }
    std::string getGroup() const override { return group; }
    bool test(RCShdPtr<PiInput> const&, TimePathPtr const&) override { return true; }
    void perform(RCShdPtr<PiInput> const& input, TimePathPtr const&) override {
        if (text == "Fail")
            throw std::runtime_error("no curve");
        log->push_back(text + " " + input->getName());
    }
    std::string text, group;
    Rows* log;
};

class ContextMenu : public LoopTest::LoopFixture {
protected:
    void SetUp() override {
        LoopFixture::SetUp();
        WsWindowStyle style = WsWindowStyleUtils::getNormalWindowStyle({0, 400, 0, 300});
        style.setMainWindow(false);
        top = UiTopLevel::create("panel", nullptr, style);
        top->show();
        id = top->getOSWindow()->getId();
        root = top->getRootContainer().get();
        editor = UiValueEditor::create(root, "radius");
        editor->setRect({14, 84, 200, 221}, false);
        UiInputValueEditor::setInput(*editor, g.input("radius"), g.timePath, true);
        toggle = UiToggleButton::create(root, "flag");
        toggle->setRect({100, 160, 200, 221}, false);
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
    void registerAction(OPtr<ActAction> action) {
        registered.push_back(action->getCompositeName());
        ActRegistry::getInstance().registerAction(std::move(action), ActRegistry::Dynamic);
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

// Rows come in group order whatever the order of registration, with a separator between groups
// only past two rows; "Disconnect" never shows; no action, no menu. A chosen row acts on the
// widget's input, and an action that throws is reported and the menu opens and works again.
TEST_F(ContextMenu, RowsFollowTheRegistryAndChoicesActOnTheInput) {
    Rows log;
    UiTest::Reports reports;
    EXPECT_EQ(rightClick(*editor), Rows{});
    struct Case {
        std::vector<std::pair<char const*, char const*>> add; // text, group
        Rows rows;
        char const* choice;
        Rows log;
        Rows reports;
    };
    Case const cases[] = {
        {{{"Reset", "r"}, {"Copy Path", "f"}},
         {"Copy Path", "Reset"},
         "Reset",
         {"Reset radius"},
         {}},
        {{{"Disconnect", "b"}, {"Fail", "f"}},
         {"Copy Path", "Fail", "-", "Reset"},
         "Fail",
         {},
         {"UITOOLKIT_MENU_ACTION_FAILED"}},
        {{{"Set Keyframe", "a"}},
         {"Set Keyframe", "-", "Copy Path", "Fail", "-", "Reset"},
         "Copy Path",
         {"Copy Path radius"},
         {}},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(c.choice);
        for (auto [text, group] : c.add)
            registerAction(std::make_unique<LoggedAction>(text, group, &log));
        log.clear();
        std::size_t const before = reports.ids().size();
        EXPECT_EQ(rightClick(*editor), c.rows);
        choose(c.choice);
        EXPECT_EQ(log, c.log);
        EXPECT_EQ(Rows(reports.ids().begin() + long(before), reports.ids().end()), c.reports);
        EXPECT_FALSE(openMenu());
    }
    // The toggle's menu lists the same actions for its own input.
    log.clear();
    EXPECT_EQ(rightClick(*toggle), cases[2].rows);
    choose("Reset");
    EXPECT_EQ(log, Rows{"Reset flag"});
}

} // namespace
} // namespace Zr
