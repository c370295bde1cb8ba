// Tests of the plug-in interfaces of widgets: the null-widget assertion, identity through isSame
// and fromInterface, forwarding of commands and queries, the mapping of plug-in event types to
// the widget's callbacks, a container's children and groups by name, and the lifetime of a
// container's stored interface (no cycle, no dangling pointer).
#include "support/exceptionReason.h"
#include "uiTestSupport.h"

#include "uiColorRegistry.h"
#include "uiContainer.h"
#include "uiContainerAdapter.h"
#include "uiGroup.h"
#include "uiWidget.h"
#include "uiWidgetAdapter.h"
#include "uiWidgetGroupAdapter.h"

#include "piContainer.h"
#include "piWidget.h"
#include "piWidgetGroup.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Zr {
namespace {

using UiTest::TestRoot;

// Appends `label` to a log each time it is called.
class LabelHandler : public CbHandler<EvEvent> {
public:
    LabelHandler(std::vector<std::string>* log, std::string label)
        : _log(log), _label(std::move(label)) {}
    void call(EvEvent&) override { _log->push_back(_label); }

private:
    std::vector<std::string>* _log;
    std::string _label;
};

class AdapterWidget : public ::testing::Test {
protected:
    RCShdPtr<TestRoot> root = TestRoot::make();
    RCShdPtr<UiWidget> button = UiWidget::create(root.get(), "button");

    void TearDown() override { root->removeChildren(); }
};

TEST_F(AdapterWidget, NullWidgetFailsTheAssertion) {
    EXPECT_EQ(TestSupport::reasonOf<ExAssertionFailed>(
                  [&] { RCShdPtr<PiWidget> adapter(new UiWidgetAdapter(RCShdPtr<UiWidget>())); }),
              "!_widget.isNull()");
}

TEST_F(AdapterWidget, IdentityThroughIsSameAndFromInterface) {
    RCShdPtr<UiWidget> other = UiWidget::create(root.get(), "other");
    RCShdPtr<PiWidget> a = button->retrieveInterface();
    RCShdPtr<PiWidget> b = button->retrieveInterface();
    RCShdPtr<PiWidget> c = other->retrieveInterface();
    // A plain widget's adapter is made on each call: two objects, one widget.
    EXPECT_NE(a.get(), b.get());
    EXPECT_TRUE(a->isSame(b));
    EXPECT_TRUE(b->isSame(a));
    EXPECT_FALSE(a->isSame(c));
    EXPECT_FALSE(a->isSame(nullptr));
    EXPECT_FALSE(a->isSame(root->retrieveInterface()));

    EXPECT_EQ(UiWidget::fromInterface(a).get(), button.get());
    EXPECT_EQ(UiWidget::fromInterface(c).get(), other.get());
    EXPECT_EQ(UiWidget::fromInterface(root->retrieveInterface()).get(), root.get());
    EXPECT_EQ(UiWidget::fromInterface(nullptr).get(), nullptr);
}

TEST_F(AdapterWidget, CommandsAndQueriesReachTheWidget) {
    RCShdPtr<PiWidget> piw = button->retrieveInterface();
    EXPECT_EQ(piw->getName(), "button");
    piw->setName("renamed");
    EXPECT_EQ(button->getName(), LiString("renamed"));
    EXPECT_EQ(root->findWidget(LiString("renamed")).get(), button.get());

    EXPECT_TRUE(piw->isDisplayed());
    EXPECT_TRUE(piw->isMapped());
    piw->hide();
    EXPECT_FALSE(button->isDisplayed());
    EXPECT_FALSE(piw->isMapped());
    piw->show();
    EXPECT_TRUE(button->isMapped());
    piw->display(false);
    EXPECT_FALSE(button->isDisplayed());
    piw->display(true);

    piw->enable(false);
    EXPECT_FALSE(button->isEnabled());
    EXPECT_FALSE(piw->isEnabled());
    piw->enable(true);
    EXPECT_TRUE(button->isEnabled());

    piw->lock();
    EXPECT_TRUE(button->isLocked());
    EXPECT_TRUE(piw->isLocked());
    piw->unlock();
    EXPECT_FALSE(button->isLocked());

    button->setRect({10, 80, 5, 35}, false);
    EXPECT_TRUE(piw->isInside({10, 5}));
    EXPECT_FALSE(piw->isInside({80, 5}));
    EXPECT_TRUE(piw->isOpaque());
    button->setOpacity(0.5f);
    EXPECT_FALSE(piw->isOpaque());

    piw->changeResource("<Background><Color>Red</Color></Background>");
    EXPECT_EQ(button->getBackground(), UiColorRegistry::getInstance().getColor("Red"));
}

TEST_F(AdapterWidget, EventTypesReachTheirCallbacksInOrder) {
    std::vector<std::string> log;
    std::vector<std::unique_ptr<LabelHandler>> handlers;
    RCShdPtr<PiWidget> piw = button->retrieveInterface();
    using P = std::pair<PiWidget::EventType, char const*>;
    for (auto [type, label] :
         {P{PiWidget::Destroy, "destroy"}, P{PiWidget::Enable, "enable"},
          P{PiWidget::Disable, "disable"}, P{PiWidget::Lock, "lock"}, P{PiWidget::Unlock, "unlock"},
          P{PiWidget::Arm, "arm"}, P{PiWidget::Disarm, "disarm"}, P{PiWidget::Map, "map"},
          P{PiWidget::UnMap, "unmap"}, P{PiWidget::Resize, "resize"},
          P{PiWidget::Activate, "activate"}}) {
        handlers.push_back(std::make_unique<LabelHandler>(&log, label));
        piw->addCallback(type, handlers.back().get());
    }

    piw->enable(false);
    piw->enable(true);
    piw->lock();
    piw->unlock();
    piw->hide();
    piw->show();
    button->setSize(40, 20);
    auto down = UiTest::makeDown(1);
    button->processEvent(down);
    auto up = UiTest::makeUp(1);
    button->disarm(up);
    EvDefaultEvent activation;
    button->activate(activation);
    piw = nullptr;
    root->removeChild(button);
    button = nullptr;

    // Taking the widget out of the mapped tree unmaps it before it goes.
    EXPECT_EQ(
        log, (std::vector<std::string>{"disable", "enable", "lock", "unlock", "unmap", "map",
                                       "resize", "arm", "disarm", "activate", "unmap", "destroy"}));
}

TEST_F(AdapterWidget, EveryOpenTypeRegistersAndOtherValuesDoNothing) {
    RCShdPtr<PiWidget> piw = button->retrieveInterface();
    for (int type = PiWidget::Destroy; type <= PiWidget::Hotkey; ++type) {
        LabelHandler handler(nullptr, "");
        piw->addCallback(static_cast<PiWidget::EventType>(type), &handler);
        EXPECT_EQ(handler.getNbDispatchers(), 1) << "type " << type;
        piw->removeCallback(static_cast<PiWidget::EventType>(type), &handler);
        EXPECT_EQ(handler.getNbDispatchers(), 0) << "type " << type;
    }
    for (int type : {-1, 23, 24, 25, 99}) {
        LabelHandler handler(nullptr, "");
        piw->addCallback(static_cast<PiWidget::EventType>(type), &handler);
        EXPECT_EQ(handler.getNbDispatchers(), 0) << "type " << type;
        piw->removeCallback(static_cast<PiWidget::EventType>(type), &handler);
    }
}

TEST_F(AdapterWidget, RemovedArmCallbackIsNotCalled) {
    std::vector<std::string> log;
    LabelHandler arm(&log, "arm");
    RCShdPtr<PiWidget> piw = button->retrieveInterface();
    piw->addCallback(PiWidget::Arm, &arm);
    auto down = UiTest::makeDown(1);
    auto up = UiTest::makeUp(1);
    button->processEvent(down);
    button->disarm(up);
    // Removing through another adapter of the same widget works as well.
    button->retrieveInterface()->removeCallback(PiWidget::Arm, &arm);
    button->processEvent(down);
    button->disarm(up);
    EXPECT_EQ(log, std::vector<std::string>{"arm"});
}

TEST_F(AdapterWidget, InterfaceOfAPlainWidgetKeepsItAlive) {
    int destroyed = 0;
    CbFunction<EvEvent> onDestroy([&](EvEvent&) { ++destroyed; });
    RCShdPtr<UiWidget> loose = UiWidget::create(nullptr, "loose");
    loose->addDestroyCb(&onDestroy);
    RCShdPtr<PiWidget> piw = loose->retrieveInterface();
    loose = nullptr;
    EXPECT_EQ(destroyed, 0);
    EXPECT_EQ(piw->getName(), "loose");
    piw = nullptr;
    EXPECT_EQ(destroyed, 1);
}

// --- containers --------------------------------------------------------------------------------

class AdapterContainer : public ::testing::Test {
protected:
    RCShdPtr<TestRoot> root = TestRoot::make();
    RCShdPtr<UiContainer> panel = UiContainer::create(root.get(), "panel");
    RCShdPtr<UiWidget> ok = UiWidget::create(panel.get(), "ok");
    RCShdPtr<UiGroup> choices = UiGroup::create(panel.get(), "choices");
    RCShdPtr<UiWidget> first = UiWidget::create(choices.get(), "first");
    RCShdPtr<UiWidget> second = UiWidget::create(choices.get(), "second");

    void TearDown() override { root->removeChildren(); }
};

TEST_F(AdapterContainer, InterfaceIsStoredAndIsAContainer) {
    int const references = panel->getReferenceCount();
    RCShdPtr<PiWidget> a = panel->retrieveInterface();
    RCShdPtr<PiWidget> b = panel->retrieveInterface();
    EXPECT_EQ(a.get(), b.get());
    EXPECT_EQ(panel->getInterface().get(), a.get());
    EXPECT_NE(dynamic_cast<PiContainer*>(a.get()), nullptr);
    EXPECT_NE(dynamic_cast<UiContainerAdapter*>(a.get()), nullptr);
    // The stored adapter doesn't count as a holder of its container.
    EXPECT_EQ(panel->getReferenceCount(), references);
    EXPECT_EQ(a->getName(), "panel");
}

TEST_F(AdapterContainer, ChildrenAndGroupsByName) {
    auto pic = dynamicCast<PiContainer>(panel->retrieveInterface());
    ASSERT_TRUE(pic);
    RCShdPtr<PiWidget> okInterface = pic->getWidget("ok");
    ASSERT_TRUE(okInterface);
    EXPECT_EQ(UiWidget::fromInterface(okInterface).get(), ok.get());
    EXPECT_FALSE(pic->getWidget("absent"));
    // Direct children only.
    EXPECT_FALSE(pic->getWidget("first"));

    RCShdPtr<PiWidgetGroup> group = pic->getGroup("choices");
    ASSERT_TRUE(group);
    EXPECT_EQ(group->getName(), "choices");
    ASSERT_EQ(group->getNbWidgets(), 2);
    EXPECT_EQ(UiWidget::fromInterface(group->getWidget(0)).get(), first.get());
    EXPECT_EQ(group->getWidget(1)->getName(), "second");
    EXPECT_FALSE(group->getWidget(2));
    EXPECT_FALSE(group->getWidget(-1));

    EXPECT_FALSE(pic->getGroup("absent"));
    // A widget that is no group is not found as one.
    EXPECT_FALSE(pic->getGroup("ok"));
    // The group is a container too: its widget interface lists its members.
    auto groupAsContainer = dynamicCast<PiContainer>(pic->getWidget("choices"));
    ASSERT_TRUE(groupAsContainer);
    EXPECT_TRUE(groupAsContainer->getWidget("second"));
}

TEST_F(AdapterContainer, ContainerWithItsInterfaceIsDestroyed) {
    int destroyed = 0;
    CbFunction<EvEvent> onDestroy([&](EvEvent&) { ++destroyed; });
    panel->addDestroyCb(&onDestroy);
    panel->retrieveInterface();
    root->removeChild(panel);
    panel = nullptr;
    ok = nullptr;
    choices = nullptr;
    first = nullptr;
    second = nullptr;
    EXPECT_EQ(destroyed, 1);
}

TEST_F(AdapterContainer, InterfaceKeptPastTheContainerIsDetached) {
    int destroyed = 0;
    CbFunction<EvEvent> onDestroy([&](EvEvent&) { ++destroyed; });
    panel->addDestroyCb(&onDestroy);
    auto pic = dynamicCast<PiContainer>(panel->retrieveInterface());
    std::vector<std::string> log;
    LabelHandler lock(&log, "lock");
    pic->addCallback(PiWidget::Lock, &lock);
    root->removeChild(panel);
    panel = nullptr;
    EXPECT_EQ(destroyed, 1);

    // Everything answers, nothing reaches the gone container.
    EXPECT_EQ(UiWidget::fromInterface(pic).get(), nullptr);
    EXPECT_EQ(pic->getName(), "");
    EXPECT_FALSE(pic->isDisplayed());
    EXPECT_FALSE(pic->isSame(pic));
    EXPECT_FALSE(pic->getWidget("ok"));
    EXPECT_FALSE(pic->getGroup("choices"));
    pic->lock();
    pic->hide();
    pic->setName("late");
    pic->removeCallback(PiWidget::Lock, &lock);
    EXPECT_TRUE(log.empty());
}

// An adapter of its own kind, as a container class or a plug-in's factory would install.
class NamedAdapter : public UiContainerAdapter {
public:
    using UiContainerAdapter::UiContainerAdapter;
    std::string getName() const override { return "named " + UiContainerAdapter::getName(); }
};

TEST_F(AdapterContainer, SetInterfaceReplacesTheStoredOne) {
    RCShdPtr<PiWidget> original = panel->retrieveInterface();
    panel->setInterface(RCShdPtr<PiWidget>(new NamedAdapter(panel)));
    EXPECT_EQ(panel->retrieveInterface()->getName(), "named panel");
    EXPECT_NE(panel->retrieveInterface().get(), original.get());

    // The replaced adapter, still held, is an ordinary reference to the container again.
    int destroyed = 0;
    CbFunction<EvEvent> onDestroy([&](EvEvent&) { ++destroyed; });
    panel->addDestroyCb(&onDestroy);
    root->removeChild(panel);
    panel = nullptr;
    EXPECT_EQ(destroyed, 0);
    EXPECT_EQ(original->getName(), "panel");
    original = nullptr;
    EXPECT_EQ(destroyed, 1);
}

TEST_F(AdapterContainer, ClearedInterfaceIsMadeAgain) {
    RCShdPtr<PiWidget> a = panel->retrieveInterface();
    panel->setInterface(nullptr);
    EXPECT_FALSE(panel->getInterface());
    RCShdPtr<PiWidget> b = panel->retrieveInterface();
    EXPECT_NE(a.get(), b.get());
    EXPECT_TRUE(a->isSame(b));
}

} // namespace
} // namespace Zr
