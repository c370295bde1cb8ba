// Stored values (typed access, text form, observers, undo), graph object names and Uuids.
#include "piCommandStack.h"
#include "piGraphObject.h"
#include "piTypedValueUtil.h"
#include "piUndoGuard.h"
#include "uuid.h"

#include "support/exceptionReason.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <unordered_map>

using namespace Zr;

namespace {

struct ValueCounter : CbHandler<PiValue const> {
    int calls = 0;
    PiValue const* last = nullptr;
    void call(PiValue const& v) override {
        ++calls;
        last = &v;
    }
};

class NamedObject : public PiGraphObject {
public:
    explicit NamedObject(std::string name) : PiGraphObject(std::move(name)) {}
    struct Memento : CmMemento {
        explicit Memento(std::string n) : name(std::move(n)) {}
        bool equals(CmMemento const& o) const override {
            return static_cast<Memento const&>(o).name == name;
        }
        std::string name;
    };
    OPtr<CmMemento> snapshotState() const override { return std::make_unique<Memento>(getName()); }
    void restoreState(CmMemento const& m) override {
        assignName(static_cast<Memento const&>(m).name);
    }
};

} // namespace

TEST(StoredValue, WrongTypeThrowsAndChangesNothing) {
    auto v = makeShared<PiValue>("radius", 2.5);
    EXPECT_EQ(TestSupport::reasonOf<PiValueEx::ExWrongType>([&] { v->getInt32(); }),
              "Value \"radius\" is of type Double, not Int32");
    EXPECT_THROW(v->setString("x"), PiValueEx::ExWrongType);
    EXPECT_THROW(v->getDoubleArray(), PiValueEx::ExWrongType);
    EXPECT_EQ(v->getDouble(), 2.5);

    EXPECT_THROW(PiValue("label", "text").getAsDouble(), PiValueEx::ExWrongType);
    EXPECT_EQ(PiValue("n", std::int64_t(1) << 40).getAsDouble(), std::ldexp(1.0, 40));
    EXPECT_EQ(PiValue("b", true).getAsDouble(), 1.0);
    EXPECT_EQ(PiValue("z", PiValue::Type::DoubleArray).getDoubleArray().size(), 0u);
}

TEST(StoredValue, ObserversAreToldOncePerChangeAndNotForEqualValues) {
    auto v = makeShared<PiValue>("count", std::int32_t(3));
    ValueCounter counter;
    v->addChangeCb(&counter);
    v->setInt32(4);
    EXPECT_EQ(counter.calls, 1);
    EXPECT_EQ(counter.last, v.get());
    v->setInt32(4);
    EXPECT_EQ(counter.calls, 1);
    v->setFromString("4");
    EXPECT_EQ(counter.calls, 1);
    v->setFromString(" 9 ");
    EXPECT_EQ(counter.calls, 2);
    EXPECT_EQ(v->getInt32(), 9);
    v->removeChangeCb(&counter);
    v->setInt32(1);
    EXPECT_EQ(counter.calls, 2);
}

TEST(StoredValue, TextFormRoundTripsEveryTypeAndBadTextKeepsTheValue) {
    // value, its text, and a text read into a value of that type with what it reads back as
    struct Row {
        RCShdPtr<PiValue> value;
        char const* text;
        char const* read;
        char const* readBack;
    };
    Row const rows[] = {
        {makeShared<PiValue>("d", 0.1), "0.1", "-2.5e3", "-2500"},
        {makeShared<PiValue>("i", std::int64_t(-9000000000)), "-9000000000", " 9 ", "9"},
        {makeShared<PiValue>("b", true), "true", "0", "false"},
        {makeShared<PiValue>("s", std::string(" padded ")), " padded ", "", ""},
        {makeShared<PiValue>("a", std::vector<double>{1.0, -0.5, 1e-20}), "1 -0.5 1e-20", "  ", ""},
    };
    for (Row const& row : rows) {
        std::string const text = row.value->toString();
        EXPECT_EQ(text, row.text);
        row.value->setFromString(row.read);
        EXPECT_EQ(row.value->toString(), row.readBack) << row.read;
        row.value->setFromString(text);
        EXPECT_EQ(row.value->toString(), row.text);
    }
    PiValue d("d", 0.0);
    d.setFromString(PiValue("x", 1.0 / 3.0).toString());
    EXPECT_EQ(d.getDouble(), 1.0 / 3.0);

    auto v = makeShared<PiValue>("gain", 1.5);
    ValueCounter counter;
    v->addChangeCb(&counter);
    for (char const* bad : {"", "abc", "1.5x", "1 2"})
        EXPECT_THROW(v->setFromString(bad), PiValueEx::ExBadText) << bad;
    EXPECT_EQ(TestSupport::reasonOf<PiValueEx::ExBadText>([&] { v->setFromString("abc"); }),
              "Bad Double text \"abc\" for value \"gain\"");
    PiValue i("steps", std::int32_t(2));
    EXPECT_THROW(i.setFromString("3000000000"), PiValueEx::ExBadText);
    EXPECT_THROW(i.setFromString("2.5"), PiValueEx::ExBadText);
    EXPECT_THROW(PiValue("on", true).setFromString("yes"), PiValueEx::ExBadText);
    PiValue a("pts", std::vector<double>{4.0});
    EXPECT_THROW(a.setFromString("1 two 3"), PiValueEx::ExBadText);
    EXPECT_EQ(a.getDoubleArray(), std::vector<double>{4.0});
    EXPECT_EQ(v->getDouble(), 1.5);
    EXPECT_EQ(i.getInt32(), 2);
    EXPECT_EQ(counter.calls, 0);
}

TEST(StoredValue, UndoRestoresTheValueAndTellsObserversOnce) {
    auto stack = makeShared<PiCommandStack>();
    auto v = makeShared<PiValue>("mode", std::string("fast"));
    ValueCounter counter;
    v->addChangeCb(&counter);
    {
        PiUndoGuard g(stack, "Set mode");
        v->setString("slow");
        v->setString("slower");
    }
    EXPECT_EQ(counter.calls, 2);
    ASSERT_EQ(stack->getNbUndo(), 1);
    stack->undo();
    EXPECT_EQ(v->getString(), "fast");
    EXPECT_EQ(counter.calls, 3);
    stack->redo();
    EXPECT_EQ(v->getString(), "slower");
    EXPECT_EQ(counter.calls, 4);
}

TEST(StoredValue, TypedUtilitiesCheckTheType) {
    auto v = makeShared<PiValue>("size", std::int32_t(5));
    PiTypedValueUtil<int> writer(v);
    writer.set(6);
    EXPECT_EQ(PiConstTypedValueUtil<int>(v).get(), 6);
    EXPECT_THROW(PiTypedValueUtil<double>(v, 1), PiValueEx::ExWrongType);
    EXPECT_THROW(PiConstTypedValueUtil<std::string>{v}, PiValueEx::ExWrongType);
    // Without the check the mismatch shows at the first access.
    PiTypedValueUtil<double> unchecked(v, 0);
    EXPECT_THROW(unchecked.get(), PiValueEx::ExWrongType);

    PiTypedValueUtil<bool> none;
    EXPECT_TRUE(none.isNull());
    EXPECT_THROW(none.get(), ExNullPtr);

    auto arr = makeShared<PiValue>("curve", std::vector<double>{0.0, 0.5, 1.0});
    PiConstTypedValueArrayUtil<double> reader(arr);
    ASSERT_EQ(reader.size(), 3u);
    EXPECT_EQ(reader[1], 0.5);
    EXPECT_THROW(reader[3], ExAssertionFailed);
    EXPECT_THROW(PiConstTypedValueArrayUtil<double>{v}, PiValueEx::ExWrongType);
}

TEST(StoredValue, GraphObjectNamesAreUndoableAndEqualityIsIdentity) {
    auto stack = makeShared<PiCommandStack>();
    auto node = makeShared<NamedObject>("Blur1");
    {
        PiUndoGuard g(stack, "Rename");
        node->setName("Soft");
    }
    EXPECT_EQ(node->getName(), "Soft");
    stack->undo();
    EXPECT_EQ(node->getName(), "Blur1");

    RCShdPtr<PiGraphObject const> a = node;
    RCShdPtr<PiGraphObject const> b = makeShared<NamedObject>("Blur1");
    EXPECT_TRUE(PiGraphObject::areEqual(a, node));
    EXPECT_FALSE(PiGraphObject::areEqual(a, b));
    EXPECT_FALSE(PiGraphObject::areEqual(a, nullptr));
    EXPECT_TRUE(PiGraphObject::areEqual(nullptr, nullptr));
}

TEST(UuidText, RoundTripsAndGeneratesVersion4) {
    Uuid const u = Uuid::fromString("123E4567-E89B-12D3-A456-426614174000");
    EXPECT_EQ(u.toString(), "123e4567-e89b-12d3-a456-426614174000");
    EXPECT_EQ(Uuid::fromString(u.toString()), u);
    EXPECT_EQ(Uuid::fromString("{123e4567-e89b-12d3-a456-426614174000}"), u);
    EXPECT_TRUE(Uuid().isNull());
    EXPECT_EQ(Uuid().toString(), "00000000-0000-0000-0000-000000000000");

    std::set<Uuid> ordered;
    std::unordered_map<Uuid, int> hashed;
    for (int i = 0; i < 100; ++i) {
        Uuid g = Uuid::generate();
        std::string const t = g.toString();
        EXPECT_EQ(t[14], '4') << t;
        EXPECT_NE(std::string("89ab").find(t[19]), std::string::npos) << t;
        EXPECT_EQ(Uuid::fromString(t), g);
        ordered.insert(g);
        hashed[g] = i;
    }
    EXPECT_EQ(ordered.size(), 100u);
    EXPECT_EQ(hashed.size(), 100u);
}

TEST(UuidText, BadTextThrowsQuotingIt) {
    for (char const* bad :
         {"", "123e4567e89b12d3a456426614174000", "123e4567-e89b-12d3-a456-42661417400",
          "123e4567-e89b-12d3-a456-4266141740000", "123e4567-e89b-12d3-a456_426614174000",
          "123e4567-e89b-12d3-a456-42661417400g", "{123e4567-e89b-12d3-a456-426614174000"})
        EXPECT_EQ(TestSupport::reasonOf<UuidEx::ExBadUuid>([&] { Uuid::fromString(bad); }),
                  std::string("Bad Uuid \"") + bad + "\"");
}
