// Intrusive shared pointers: counts, self-assignment, conversion to a base, dynamic assignment,
// null dereference, the dump text and hashing.
#include "rcBase.h"

#include "support/exceptionReason.h"

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

TEST(RCShdPtrTest, CountsFollowCopiesMovesSelfAssignmentAndResets) {
    int deaths = 0;
    RCShdPtr<Shape> a(new Shape(&deaths));
    RCShdPtr<Shape> b = a;
    EXPECT_EQ(a->getReferenceCount(), 2);
    RCShdPtr<Shape> c = std::move(b);
    EXPECT_TRUE(b.isNull());
    EXPECT_EQ(a->getReferenceCount(), 2);
    RCShdPtr<Shape>& alsoC = c; // through a reference, as self-assignment happens in real code
    c = alsoC;
    a = a.get(); // re-assigning the same raw pointer keeps the object too
    EXPECT_EQ(a->getReferenceCount(), 2);
    a.reset();
    EXPECT_EQ(deaths, 0);
    c = nullptr;
    EXPECT_EQ(deaths, 1);

    RCShdPtr<Shape> x = makeShared<Shape>(), y = makeShared<Shape>();
    EXPECT_EQ((std::unordered_set<RCShdPtr<Shape>>{x, y, x}).size(), 2u);
    EXPECT_NE(x < y, y < x);
}

TEST(RCShdPtrTest, ConvertsToBaseAndAssignsDynamically) {
    int deaths = 0;
    RCShdPtr<Circle> circle(new Circle(&deaths));
    RCShdPtr<Shape> shape = circle;
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

TEST(RCShdPtrTest, NullDereferenceAndDumpNameTheTypes) {
    RCShdPtr<Circle> empty;
    EXPECT_EQ(TestSupport::reasonOf<ExNullPtr>([&] { empty->getReferenceCount(); }),
              "Null pointer dereferenced: Zr::(anonymous namespace)::Circle");
    EXPECT_THROW(*empty, ExNullPtr);

    RCShdPtr<Shape> shape(new Circle());
    RCShdPtr<Shape> second = shape;
    std::ostringstream os, pointer, nullText;
    shape.dump(os);
    pointer << static_cast<void const*>(shape.get());
    EXPECT_EQ(os.str(), "Pointee type = Zr::(anonymous namespace)::Circle, T type = "
                        "Zr::(anonymous namespace)::Shape, ref: 2, pointer:" +
                            pointer.str() + ", RCBase pointer: " + pointer.str());
    RCShdPtr<Shape>().dump(nullText);
    EXPECT_EQ(nullText.str().substr(0, 29), "Pointee type = null, T type =");
}

} // namespace
} // namespace Zr
