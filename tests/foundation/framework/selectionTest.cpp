// Selection items and selections: converters round-trip and refuse other kinds, const
// pointers read writable items, graph object items keep their path, filters and snapshots.
#include "piInput.h"
#include "piSnItem.h"
#include "piTool.h"
#include "piToolNode.h"
#include "prdPredicateImp.h"
#include "snItemConvert.h"
#include "snSelection.h"
#include "tmKeyframe.h"

#include "support/exceptionReason.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace Zr {
namespace {

// A graph-like object: the validity predicate asks only for isValid().
class FakeObject : public RCObject {
public:
    explicit FakeObject(bool valid) : _valid(valid) {}
    bool isValid() const { return _valid; }

private:
    bool _valid;
};

std::string assertionText(std::function<void()> const& f) {
    return TestSupport::reasonOf<ExAssertionFailed>(f);
}

std::string dumped(SnItem const& item) {
    std::ostringstream os;
    item.dump(os);
    return os.str();
}

using KeyPtr = RCShdPtr<TmKeyframe>;
using ConstKeyPtr = RCShdPtr<TmKeyframe const>;

TEST(Selection, ConvertersRoundTripTheirOwnTypeAndRefuseOthers) {
    RCShdPtr<SnItem> text = SnItemConvert<std::string>::createItem("Blur1.radius");
    EXPECT_EQ(SnItemConvert<std::string>::get(text), "Blur1.radius");
    KeyPtr key = makeShared<TmKeyframe>(1.0, 3.0);
    RCShdPtr<SnItem> keyItem = SnItemConvert<KeyPtr>::createItem(key);
    EXPECT_EQ(SnItemConvert<KeyPtr>::get(keyItem), key); // the same key, not a copy

    RCShdPtr<SnItem> number = SnItemConvert<int>::createItem(3);
    EXPECT_FALSE(SnItemConvert<int>::test(text));
    EXPECT_FALSE(SnItemConvert<double>::test(number)); // no numeric widening
    EXPECT_FALSE(SnItemConvert<KeyPtr>::test(text));
    EXPECT_FALSE(SnItemConvert<std::string>::test(nullptr));
    EXPECT_EQ(assertionText([&] { SnItemConvert<int>::get(text); }), "SnItemConvert::test( item )");
    EXPECT_EQ(assertionText([&] { SnItemConvert<std::string>::get(nullptr); }),
              "SnItemConvert::test( item )");

    // A const pointer reads writable items, but a const key never becomes writable.
    EXPECT_EQ(SnItemConvert<ConstKeyPtr>::get(keyItem).get(), key.get());
    RCShdPtr<SnItem> readOnly = SnItemConvert<ConstKeyPtr>::createItem(key);
    EXPECT_TRUE(SnItemConvert<ConstKeyPtr>::test(readOnly));
    EXPECT_FALSE(SnItemConvert<KeyPtr>::test(readOnly));
}

TEST(Selection, GraphObjectItemsConvertAsTheirPointerAndKeepThePath) {
    auto object = makeShared<FakeObject>(true);
    auto path = makeShared<PiPath>();
    RCShdPtr<SnItem> item = PiSnItem<FakeObject>::create(object, path);

    EXPECT_TRUE(SnItemConvert<RCShdPtr<FakeObject>>::test(item));
    EXPECT_TRUE(SnItemConvert<RCShdPtr<FakeObject const>>::test(item));
    EXPECT_EQ(SnItemConvert<RCShdPtr<FakeObject>>::get(item), object);
    EXPECT_EQ(dynamic_cast<PiSnItem<FakeObject>&>(*item).getPath(), path);
    EXPECT_EQ(item->getObject(), object.get());

    RCShdPtr<SnItem> constItem = PiSnItemConst<FakeObject>::create(object, path);
    EXPECT_TRUE(SnItemConvert<RCShdPtr<FakeObject const>>::test(constItem));
    EXPECT_FALSE(SnItemConvert<RCShdPtr<FakeObject>>::test(constItem));
}

TEST(Selection, SnapshotsAreIndependentOfLaterChanges) {
    auto original = makeShared<SnItemBasic<std::string>>("before");
    RCShdPtr<SnItem> copy = original->snapshot();
    original->set("after");
    EXPECT_EQ(SnItemConvert<std::string>::get(copy), "before");

    original->restore(*copy);
    EXPECT_EQ(original->get(), "before");

    // A graph object item copies its path and shares the object.
    auto object = makeShared<FakeObject>(true);
    auto path = makeShared<PiPath>();
    RCShdPtr<SnItem> item = PiSnItem<FakeObject>::create(object, path);
    RCShdPtr<SnItem> itemCopy = item->snapshot();
    auto& piCopy = dynamic_cast<PiSnItem<FakeObject>&>(*itemCopy);
    EXPECT_EQ(piCopy.get(), object);
    ASSERT_FALSE(piCopy.getPath().isNull());
    EXPECT_NE(piCopy.getPath(), path);
    EXPECT_TRUE(*piCopy.getPath() == *path);

    // Restoring from another kind fails and keeps the value.
    EXPECT_EQ(assertionText([&] { original->restore(*SnItemConvert<int>::createItem(4)); }),
              "source != nullptr");
    EXPECT_EQ(original->get(), "before");

    // A selection's snapshot copies every item.
    RCShdPtr<SnSelection> selection = SnSelection::create();
    selection->addItem(original);
    RCShdPtr<SnSelection> selectionCopy = selection->snapshot();
    original->set("two");
    EXPECT_EQ(SnItemConvert<std::string>::get(selectionCopy->getFirstItem()), "before");
}

TEST(Selection, DumpsPrintWhatTheValueAllows) {
    EXPECT_EQ(dumped(*SnItemConvert<std::string>::createItem("abc")), "string \"abc\"");
    EXPECT_EQ(dumped(*SnItemConvert<int>::createItem(7)), "int 7");
    EXPECT_EQ(dumped(*SnItemConvert<bool>::createItem(true)), "bool true");
    EXPECT_EQ(dumped(*SnItemConvert<KeyPtr>::createItem(nullptr)), "Zr::TmKeyframe null");
    std::string const text = dumped(*SnItemConvert<KeyPtr>::createItem(makeShared<TmKeyframe>()));
    EXPECT_EQ(text.rfind("Zr::TmKeyframe 0x", 0), 0u) << text;
    std::string const piText =
        dumped(*PiSnItem<FakeObject>::create(makeShared<FakeObject>(true), makeShared<PiPath>()));
    EXPECT_NE(piText.find("FakeObject 0x"), std::string::npos) << piText;
    EXPECT_NE(piText.find(", path of 0 group(s)"), std::string::npos) << piText;
}

TEST(Selection, KeepsItemsInOrderRefusesNullAndFilters) {
    RCShdPtr<SnSelection> selection = SnSelection::create();
    EXPECT_TRUE(selection->getFirstItem().isNull());

    RCShdPtr<SnItem> a = SnItemConvert<std::string>::createItem("a");
    RCShdPtr<SnItem> b = SnItemConvert<int>::createItem(2);
    selection->addItem(a);
    selection->addItem(b);
    EXPECT_EQ(assertionText([&] { selection->addItem(nullptr); }), "!item.isNull()");
    EXPECT_EQ(selection->getItem(1), b);
    EXPECT_EQ(assertionText([&] { selection->getItem(2); }), "index >= 0 && index < getNbItems()");

    std::vector<SnItem*> walked;
    for (RCShdPtr<SnItem> const& item : *selection)
        walked.push_back(item.get());
    EXPECT_EQ(walked, (std::vector<SnItem*>{a.get(), b.get()}));

    EXPECT_TRUE(selection->removeItem(a));
    EXPECT_FALSE(selection->removeItem(a));
    selection->clear();
    EXPECT_TRUE(selection->isEmpty());

    // A filter keeps matching items in order, shared, and leaves the source.
    selection->addItem(SnItemConvert<std::string>::createItem("first"));
    selection->addItem(SnItemConvert<int>::createItem(1));
    selection->addItem(SnItemConvert<std::string>::createItem("second"));

    RCShdPtr<SnSelection> strings = selection->filter(SnItemConvert<std::string>::getPredicate());
    ASSERT_EQ(strings->getNbItems(), 2);
    EXPECT_EQ(SnItemConvert<std::string>::get(strings->getItem(0)), "first");
    EXPECT_EQ(SnItemConvert<std::string>::get(strings->getItem(1)), "second");
    EXPECT_EQ(strings->getItem(0), selection->getItem(0)); // shared, not copied
    EXPECT_EQ(selection->getNbItems(), 3);

    EXPECT_TRUE(selection->filter(SnItemConvert<double>::getPredicate())->isEmpty());
}

TEST(Selection, ValidObjectPredicateSkipsRemovedNullAndOtherItemsAndFollowsTheObject) {
    auto live = makeShared<FakeObject>(true);
    RCShdPtr<SnSelection> selection = SnSelection::create();
    selection->addItem(PiSnItem<FakeObject>::create(makeShared<FakeObject>(false)));
    selection->addItem(PiSnItem<FakeObject>::create(nullptr));
    selection->addItem(SnItemConvert<std::string>::createItem("x"));
    selection->addItem(PiSnItemConst<FakeObject>::create(live));

    RCShdPtr<SnSelection> valid =
        selection->filter(PiIsValidGraphObjectItem<FakeObject>::getPredicate());
    ASSERT_EQ(valid->getNbItems(), 1);
    EXPECT_EQ(valid->getFirstItem()->getObject(), live.get());
    // It follows the object leaving its graph.
    auto input = makeShared<PiInput>("radius", PiInput::Type::Double);
    RCShdPtr<SnItem> item = PiSnItem<PiInput>::create(input);
    EXPECT_TRUE(PiIsValidGraphObjectItem<PiInput>::test(item));
    input->setValid(false);
    EXPECT_FALSE(PiIsValidGraphObjectItem<PiInput>::test(item));
}

TEST(Selection, ToolNodePredicatesRecogniseNodesAndTheirInputs) {
    auto blur = makeShared<PiTool>("Blur", Uuid());
    PiTool::InputDeclaration radius;
    radius.name = "radius";
    blur->addInputDeclaration(radius);
    auto plain = makeShared<PiToolNode>("Blur1", blur);
    auto macro = makeShared<PiToolNode>("Macro1", makeShared<PiTool>("Macro", Uuid(), true));
    auto looseInput = makeShared<PiInput>("gain", PiInput::Type::Double);
    RCShdPtr<SnItem> plainItem = PiSnItem<PiNode>::create(plain);
    RCShdPtr<SnItem> macroItem = PiSnItemConst<PiToolNode>::create(macro);
    RCShdPtr<SnItem> looseItem = PiSnItem<PiInput>::create(looseInput);
    RCShdPtr<SnItem> text = SnItemConvert<std::string>::createItem("Blur1");

    auto const isTool = PiIsToolNode::getPredicate();
    auto const isSuper = PiIsSuperToolNode::getPredicate();
    EXPECT_TRUE(isTool(plainItem));
    EXPECT_TRUE(isTool(macroItem));
    EXPECT_FALSE(isTool(looseItem)); // an input of no node
    EXPECT_FALSE(isTool(text));
    EXPECT_FALSE(isTool(nullptr));
    EXPECT_FALSE(isSuper(plainItem));
    EXPECT_TRUE(isSuper(macroItem));

    RCShdPtr<SnItem> inputItem = PiSnItemConst<PiInput>::create(plain->findInput("radius"));
    EXPECT_TRUE(isTool(inputItem));
    EXPECT_FALSE(isSuper(inputItem));
}

TEST(Selection, CompositePredicatesCombineAndStopEarly) {
    using Item = RCShdPtr<SnItem const>;
    int calls = 0;
    PrdPredicate<Item> counting = [&](Item const&) {
        ++calls;
        return true;
    };
    PrdPredicate<Item> isString = SnItemConvert<std::string>::getPredicate();
    Item number = SnItemConvert<int>::createItem(1);
    Item text = SnItemConvert<std::string>::createItem("t");

    PrdPredicate<Item> both = PrdCompositePredicateImp<Item>::makeAnd(isString, counting);
    EXPECT_FALSE(both(number));
    EXPECT_EQ(calls, 0); // the first false decides
    EXPECT_TRUE(both(text));
    EXPECT_EQ(calls, 1);

    PrdPredicate<Item> either = PrdCompositePredicateImp<Item>::makeOr(isString, counting);
    EXPECT_TRUE(either(text));
    EXPECT_EQ(calls, 1); // the first true decides
    EXPECT_TRUE(either(number));
    EXPECT_EQ(calls, 2);

    EXPECT_TRUE(PrdCompositePredicateImp<Item>(PrdCompositePredicateImp<Item>::And).test(text));
    EXPECT_FALSE(PrdCompositePredicateImp<Item>(PrdCompositePredicateImp<Item>::Or).test(text));

    PrdCompositePredicateImp<Item> composite(PrdCompositePredicateImp<Item>::And);
    EXPECT_EQ(assertionText([&] { composite.add(PrdPredicate<Item>()); }),
              "static_cast<bool>(predicate)");
    EXPECT_EQ(composite.getNbPredicates(), 0);
}

} // namespace
} // namespace Zr
