// Actions and their registry: listing order by group, group filter, static and dynamic
// actions, duplicates, typed actions converting their items, entries and the menu base.
#include "actMenuBase.h"
#include "actRegistry.h"
#include "actTypedAction.h"
#include "tmKeyframe.h"

#include "support/exceptionReason.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Zr {
namespace {

// A plain action with a name, a group, and a test and perform that the test drives.
class NamedAction : public ActAction {
public:
    NamedAction(std::string name, std::string group, bool enabled = true)
        : _name(std::move(name)), _group(std::move(group)), _enabled(enabled) {}
    std::string getCompositeName() const override { return "test." + _name; }
    std::string getDisplayString() const override { return _label.empty() ? _name : _label; }
    std::string getGroup() const override { return _group; }
    bool test(SnSelection const&, DrCarrier const*) override {
        ++_tests;
        return _enabled;
    }
    void perform(SnSelection&, DrCarrier* carrier) override {
        ++_performs;
        _lastCarrier = carrier;
    }
    std::vector<ActBasicParam> enumOptions(SnSelection const&, DrCarrier const*,
                                           ActBasicParam const* numerator) const override {
        if (!numerator)
            return {};
        return {ActBasicParam(numerator->getName() + " 1", numerator->getValue() + 1)};
    }

    std::string _name, _group, _label;
    bool _enabled;
    int _tests = 0, _performs = 0;
    DrCarrier* _lastCarrier = nullptr;
};

using KeyPtr = RCShdPtr<TmKeyframe>;
using ConstKeyPtr = RCShdPtr<TmKeyframe const>;

// Acts on a key (target) with a text (input): perform writes the text's length as the value.
class KeyAction : public ActTypedAction<KeyPtr, std::string> {
public:
    std::string getCompositeName() const override { return "test.KeyAction"; }
    std::string getDisplayString() const override { return "Key Action"; }
    bool test(KeyPtr const& key, std::string const& text) override {
        ++_tests;
        return key->getTime() >= 0.0 && !text.empty();
    }
    void perform(KeyPtr const& key, std::string const& text) override {
        key->setValue(static_cast<double>(text.size()));
        _performedText = text;
    }
    int _tests = 0;
    std::string _performedText;
};

// Reads keys only: finds them in items holding writable keys too.
class ReadKeyAction : public ActTypedAction<ConstKeyPtr, int> {
public:
    std::string getCompositeName() const override { return "test.ReadKey"; }
    std::string getDisplayString() const override { return "Read Key"; }
    bool test(ConstKeyPtr const&, int const&) override { return true; }
    void perform(ConstKeyPtr const& key, int const& factor) override {
        _read = key->getValue() * factor;
    }
    double _read = 0.0;
};

// Picks its target wrongly: the first item whatever it holds.
class WrongTargetAction : public KeyAction {
protected:
    RCShdPtr<SnItem const> findTarget(SnSelection const& selection,
                                      DrCarrier const*) const override {
        return selection.getFirstItem();
    }
};

// Picks its input wrongly: the last item whatever it holds.
class WrongInputAction : public KeyAction {
protected:
    RCShdPtr<SnItem const> findInput(SnSelection const& selection,
                                     DrCarrier const*) const override {
        return selection.getItem(selection.getNbItems() - 1);
    }
};

std::vector<std::string> descriptions(ConstIterator<ActRegistry::Entry> it) {
    std::vector<std::string> out;
    for (; !it.atEnd(); ++it)
        out.push_back(it->getDescription());
    return out;
}

std::string assertionText(std::function<void()> const& f) {
    return TestSupport::reasonOf<ExAssertionFailed>(f);
}

class ActionRegistry : public ::testing::Test {
protected:
    NamedAction* add(std::string name, std::string group,
                     ActRegistry::DynamicState state = ActRegistry::Static, bool enabled = true) {
        auto action = std::make_unique<NamedAction>(std::move(name), std::move(group), enabled);
        NamedAction* raw = action.get();
        registry.registerAction(std::move(action), state);
        return raw;
    }
    ActRegistry registry;
    RCShdPtr<SnSelection> selection = SnSelection::create();
    RCShdPtr<DrCarrier> carrier = DrCarrier::create(selection);
};

TEST_F(ActionRegistry, SortsByGroupNameAndKeepsRegistrationOrderInsideAGroup) {
    add("Reset", "resetGroup");
    add("SetKey", "aKFGroup");
    add("SetExpr", "aExprGroup");
    add("RemoveKey", "aKFGroup");
    add("Mark", "dMarkGroup");
    add("RemoveExpr", "aExprGroup");
    add("CopyKey", "aKFGroup");

    EXPECT_EQ(descriptions(registry.getActions(*selection, carrier, "")),
              (std::vector<std::string>{"SetExpr", "RemoveExpr", "SetKey", "RemoveKey", "CopyKey",
                                        "Mark", "Reset"}));
    EXPECT_EQ(descriptions(registry.getActions(*selection, carrier, "aKFGroup")),
              (std::vector<std::string>{"SetKey", "RemoveKey", "CopyKey"}));
    EXPECT_TRUE(registry.getActions(*selection, carrier, "noSuchGroup").atEnd());
}

TEST_F(ActionRegistry, DynamicActionsAreListedOnlyWhenTheirTestHolds) {
    NamedAction* hidden = add("Hidden", "g", ActRegistry::Dynamic, false);
    add("Shown", "g", ActRegistry::Dynamic, true);
    NamedAction* always = add("Always", "g", ActRegistry::Static, false);

    EXPECT_EQ(descriptions(registry.getActions(*selection, carrier, "")),
              (std::vector<std::string>{"Shown", "Always"}));
    EXPECT_EQ(always->_tests, 0); // a static action's test isn't asked when listing

    hidden->_enabled = true; // dynamic: asked again on every listing
    EXPECT_EQ(registry.getActions(*selection, carrier, "").getCardinality(), 3);
}

TEST_F(ActionRegistry, DuplicateOrNullRegistrationFailsAndKeepsTheFirst) {
    NamedAction* first = add("Same", "g1");
    EXPECT_EQ(assertionText([&] { add("Same", "g2"); }), "!isRegistered(name)");
    EXPECT_EQ(assertionText([&] { registry.registerAction(nullptr, ActRegistry::Static); }),
              "action != nullptr");
    EXPECT_EQ(registry.getNbActions(), 1);
    EXPECT_EQ(registry.findAction("test.Same"), first);
    EXPECT_EQ(registry.getActions(*selection, carrier, "").getCardinality(), 1);
}

TEST_F(ActionRegistry, UnregisteredActionsAreNoLongerListedButTheirEntriesStillWork) {
    add("Keep", "g");
    NamedAction* gone = add("Gone", "g");
    ConstIterator<ActRegistry::Entry> before = registry.getActions(*selection, carrier, "");

    EXPECT_TRUE(registry.unregisterAction("test.Gone"));
    EXPECT_EQ(descriptions(registry.getActions(*selection, carrier, "")),
              (std::vector<std::string>{"Keep"}));

    // An entry shares its action: performing it after unregistering is safe.
    ++before;
    EXPECT_EQ(before->getDescription(), "Gone");
    EXPECT_EQ(&before->getAction(), gone);
    before->performAction(*selection);
    EXPECT_EQ(gone->_performs, 1);

    // A name freed by unregistering can be taken again.
    add("Gone", "g");
    EXPECT_EQ(registry.getNbActions(), 2);
}

TEST_F(ActionRegistry, EntriesKeepTheTextOfTheListingAndPerformWithItsCarrier) {
    NamedAction* action = add("Toggle", "grp");
    action->_label = "Set Expression";
    ActBasicParam const numerator("row", 4);
    ConstIterator<ActRegistry::Entry> entries =
        registry.getActions(*selection, carrier, "", &numerator);
    ASSERT_FALSE(entries.atEnd());
    ActRegistry::Entry const entry = *entries;

    action->_label = "Edit Expression";
    EXPECT_EQ(entry.getDescription(), "Set Expression");

    entry.performAction(*selection);
    EXPECT_EQ(action->_performs, 1);
    EXPECT_EQ(action->_lastCarrier, carrier.get());

    std::vector<ActBasicParam> const options = entry.enumOptions(*selection);
    ASSERT_EQ(options.size(), 1u);
    EXPECT_EQ(options[0], ActBasicParam("row 1", 5));

    // Without a numerator the action offers no options; the default option runs perform.
    ActRegistry::Entry const plain = *registry.getActions(*selection, nullptr, "");
    EXPECT_TRUE(plain.enumOptions(*selection).empty());
    plain.performOption(*selection, ActBasicParam("any", 0));
    EXPECT_EQ(action->_performs, 2);
    EXPECT_EQ(action->_lastCarrier, nullptr);
}

TEST_F(ActionRegistry, TypedActionWithAMissingItemIsNotListedEvenWhenStatic) {
    registry.registerAction(std::make_unique<KeyAction>(), ActRegistry::Static);
    EXPECT_TRUE(registry.getActions(*selection, carrier, "").atEnd());

    selection->addItem(SnItemConvert<KeyPtr>::createItem(makeShared<TmKeyframe>(1.0, 0.0)));
    EXPECT_TRUE(registry.getActions(*selection, carrier, "").atEnd()); // no text yet

    selection->addItem(SnItemConvert<std::string>::createItem("abc"));
    EXPECT_EQ(registry.getActions(*selection, carrier, "").getCardinality(), 1);
}

TEST_F(ActionRegistry, TypedActionConvertsTheFirstFittingItemsOrTestsFalseWithoutThem) {
    KeyAction typed;
    ActAction& action = typed;
    selection->addItem(SnItemConvert<std::string>::createItem("hello"));
    EXPECT_FALSE(action.test(*selection, carrier.get()));
    action.perform(*selection, carrier.get());
    EXPECT_EQ(typed._tests, 0);
    EXPECT_TRUE(typed._performedText.empty());

    KeyPtr first = makeShared<TmKeyframe>(1.0, 0.0);
    KeyPtr second = makeShared<TmKeyframe>(2.0, 0.0);
    selection->addItem(SnItemConvert<int>::createItem(9));
    selection->addItem(SnItemConvert<KeyPtr>::createItem(first));
    selection->addItem(SnItemConvert<std::string>::createItem("ignored"));
    selection->addItem(SnItemConvert<KeyPtr>::createItem(second));

    EXPECT_TRUE(action.test(*selection, carrier.get()));
    action.perform(*selection, carrier.get());
    EXPECT_EQ(typed._performedText, "hello");
    EXPECT_EQ(first->getValue(), 5.0);
    EXPECT_EQ(second->getValue(), 0.0);

    // The typed test decides once the items are there.
    first->setTime(-1.0);
    EXPECT_FALSE(action.test(*selection, carrier.get()));
}

TEST_F(ActionRegistry, TypedActionFindsTheInputInTheCarrierAndConstTargetsInWritableItems) {
    ReadKeyAction typed;
    ActAction& action = typed;
    selection->addItem(SnItemConvert<KeyPtr>::createItem(makeShared<TmKeyframe>(0.0, 2.0)));
    RCShdPtr<SnSelection> dragged = SnSelection::create();
    dragged->addItem(SnItemConvert<int>::createItem(3));
    RCShdPtr<DrCarrier> dragCarrier = DrCarrier::create(dragged);

    EXPECT_FALSE(action.test(*selection, carrier.get()));
    EXPECT_TRUE(action.acceptsSelection(*selection, dragCarrier.get()));
    action.perform(*selection, dragCarrier.get());
    EXPECT_EQ(typed._read, 6.0);
}

TEST_F(ActionRegistry, TypedActionAssertsWhenTheChosenItemDoesNotConvert) {
    WrongTargetAction typed;
    ActAction& action = typed;
    selection->addItem(SnItemConvert<std::string>::createItem("not a key"));
    EXPECT_EQ(assertionText([&] { action.test(*selection, carrier.get()); }),
              "SnItemConvert< TargetType >::test( target )");
    EXPECT_EQ(assertionText([&] { action.perform(*selection, carrier.get()); }),
              "SnItemConvert< TargetType >::test( target )");

    WrongInputAction wrongInput;
    selection->addItem(SnItemConvert<KeyPtr>::createItem(makeShared<TmKeyframe>()));
    EXPECT_EQ(assertionText([&] { static_cast<ActAction&>(wrongInput).test(*selection, nullptr); }),
              "SnItemConvert< InputType >::test( input )");
    EXPECT_TRUE(wrongInput._performedText.empty());
}

// A menu that records each rebuild.
class RecordingMenu : public ActMenuBase {
public:
    using ActMenuBase::ActMenuBase;
    int _rebuilds = 0;

protected:
    void actionsChanged() override { ++_rebuilds; }
};

TEST_F(ActionRegistry, MenuBaseKeepsTheEntriesAndPerformsARowByItsText) {
    NamedAction* setKey = add("SetKey", "aKFGroup");
    NamedAction* reset = add("Reset", "resetGroup");
    add("Hidden", "aKFGroup", ActRegistry::Dynamic, false);

    RecordingMenu menu(registry);
    menu.setActionsForSelection(selection, carrier);
    EXPECT_EQ(menu._rebuilds, 1);
    ASSERT_EQ(menu.getNbEntries(), 2);
    EXPECT_EQ(menu.getEntries()[0].getDescription(), "SetKey");

    EXPECT_TRUE(menu.performEntry("Reset"));
    EXPECT_EQ(reset->_performs, 1);
    EXPECT_EQ(setKey->_performs, 0);
    EXPECT_FALSE(menu.performEntry("No such row"));
    EXPECT_FALSE(menu.performEntry("Hidden"));

    RecordingMenu keysOnly(registry, "resetGroup");
    keysOnly.setActionsForSelection(selection, nullptr);
    ASSERT_EQ(keysOnly.getNbEntries(), 1);
    EXPECT_EQ(keysOnly.getEntries()[0].getDescription(), "Reset");

    EXPECT_THROW(menu.setActionsForSelection(nullptr, carrier), ExAssertionFailed);
    EXPECT_EQ(menu.getNbEntries(), 2); // a refused selection keeps the previous entries
    menu.clearActions();
    EXPECT_EQ(menu.getNbEntries(), 0);
    EXPECT_EQ(menu._rebuilds, 2);
}

} // namespace
} // namespace Zr
