// Intrusive shared pointers: counts, self-assignment, conversion to a base, dynamic assignment,
// null dereference and the dump text.
#include "rcBase.h"

#include <gtest/gtest.h>

#include <sstream>
#include <unordered_set>

namespace Zr {
namespace {

struct Shape : RCObject {
    explicit Shape(int* deaths = nullptr) : _deaths(deaths) {}
    ~Shape() override {
        if (_deaths)
            ++*_deaths;
    }
    int* _deaths;
};
struct Circle : Shape {
    using Shape::Shape;
};
struct Square : Shape {
    using Shape::Shape;
};

TEST(RCShdPtrTest, CountsFollowCopiesMovesAndResets) {
    int deaths = 0;
    RCShdPtr<Shape> a(new Shape(&deaths));
    EXPECT_EQ(a->getReferenceCount(), 1);
    RCShdPtr<Shape> b = a;
    EXPECT_EQ(a->getReferenceCount(), 2);
    RCShdPtr<Shape> c = std::move(b);
    EXPECT_TRUE(b.isNull());
    EXPECT_EQ(a->getReferenceCount(), 2);
    c = c; // self-assignment keeps the object
    EXPECT_EQ(a->getReferenceCount(), 2);
    a = a.get(); // re-assigning the same raw pointer too
    EXPECT_EQ(deaths, 0);
    a.reset();
    EXPECT_EQ(deaths, 0);
    c = nullptr;
    EXPECT_EQ(deaths, 1);
}

TEST(RCShdPtrTest, ConvertsToBaseAndAssignsDynamically) {
    int deaths = 0;
    RCShdPtr<Circle> circle(new Circle(&deaths));
    RCShdPtr<Shape> shape = circle;
    EXPECT_EQ(shape, circle);
    EXPECT_EQ(circle->getReferenceCount(), 2);

    RCShdPtr<Circle> back;
    back.dynamicAssign(shape);
    EXPECT_EQ(back.get(), circle.get());
    RCShdPtr<Square> wrong(new Square(&deaths));
    wrong.dynamicAssign(shape); // a circle is no square: null, and the square is let go
    EXPECT_TRUE(wrong.isNull());
    EXPECT_EQ(deaths, 1);
    EXPECT_TRUE(dynamicCast<Square>(shape).isNull());
    EXPECT_EQ(dynamicCast<Circle>(shape), circle);
}

TEST(RCShdPtrTest, NullDereferenceRaisesExNullPtrNamingTheType) {
    RCShdPtr<Circle> empty;
    try {
        empty->getReferenceCount();
        FAIL() << "expected ExNullPtr";
    } catch (ExNullPtr const& ex) {
        EXPECT_EQ(ex.getReason(), "Null pointer dereferenced: Zr::(anonymous namespace)::Circle");
    }
    EXPECT_THROW(*empty, ExNullPtr);
}

TEST(RCShdPtrTest, DumpNamesTypesCountAndPointers) {
    RCShdPtr<Shape> shape(new Circle());
    RCShdPtr<Shape> second = shape;
    std::ostringstream os;
    shape.dump(os);
    std::ostringstream pointer;
    pointer << static_cast<void const*>(shape.get());
    EXPECT_EQ(os.str(), "Pointee type = Zr::(anonymous namespace)::Circle, T type = "
                        "Zr::(anonymous namespace)::Shape, ref: 2, pointer:" +
                            pointer.str() + ", RCBase pointer: " + pointer.str());
    std::ostringstream nullText;
    RCShdPtr<Shape>().dump(nullText);
    EXPECT_EQ(nullText.str().substr(0, 29), "Pointee type = null, T type =");
}

TEST(RCShdPtrTest, HashesAndOrdersByPointee) {
    RCShdPtr<Shape> a = makeShared<Shape>(), b = makeShared<Shape>();
    std::unordered_set<RCShdPtr<Shape>> set{a, b, a};
    EXPECT_EQ(set.size(), 2u);
    EXPECT_NE(a < b, b < a);
}

} // namespace
} // namespace Zr
