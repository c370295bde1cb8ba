// Iterators over standard ranges: walking, cardinality, clones, ownership of the range, the
// end, and the container names.
#include "iterator.h"
#include "containers.h"

#include "support/exceptionReason.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace Zr {
namespace {

template <class T>
std::vector<std::remove_const_t<T>> collect(Iterator<T> it) {
    std::vector<std::remove_const_t<T>> out;
    for (; !it.atEnd(); ++it)
        out.push_back(*it);
    return out;
}

TEST(IteratorTest, WalksWritesThroughAndCopiesWalkOnIndependently) {
    Vector<int> values{1, 2, 3};
    Iterator<int> it = makeIterator(values);
    for (; !it.atEnd(); ++it)
        *it *= 10;
    EXPECT_EQ(values, (Vector<int>{10, 20, 30}));
    EXPECT_EQ(it.getCardinality(), 3); // the whole walk, not what is left

    List<std::string> names{"a", "b", "c"};
    Iterator<std::string> first = makeIterator(names);
    ++first;
    Iterator<std::string> second = first;
    ++second;
    EXPECT_EQ(*first, "b");
    EXPECT_EQ(second->size(), 1u);
    EXPECT_EQ(*second, "c");

    // Const cursors, over maps and from mutable ones.
    std::map<std::string, int> table{{"x", 1}, {"y", 2}};
    ConstIterator<std::pair<std::string const, int>> entry = makeConstIterator(table);
    EXPECT_EQ(entry.getCardinality(), 2);
    EXPECT_EQ(entry->first, "x");
    ConstIterator<int> view = makeIterator(values);
    ++view;
    ConstIterator<int> viewCopy = view;
    ++viewCopy;
    EXPECT_EQ(*view, 20);
    EXPECT_EQ(*viewCopy, 30);
}

TEST(IteratorTest, KeepsAnRvalueRangeAlive) {
    Iterator<int> it = makeIterator(Vector<int>{4, 5});
    Iterator<int> clone = it;
    it = Iterator<int>();
    EXPECT_EQ(collect(clone), (Vector<int>{4, 5}));
    EXPECT_EQ(collect<int const>(makeConstIterator(Vector<int>{6})), (Vector<int>{6}));
}

TEST(IteratorTest, EndIsGuarded) {
    Vector<int> one{1};
    Iterator<int> it = makeIterator(one);
    ++it;
    EXPECT_TRUE(it.atEnd());
    EXPECT_THROW(++it, IteratorEx::ExOutOfRange);
    EXPECT_EQ(TestSupport::reasonOf<IteratorEx::ExOutOfRange>([&] { *it; }),
              "Iterator dereferenced at its end");
    Iterator<int> empty(std::make_unique<IteratorEmpty<int>>());
    EXPECT_TRUE(empty.atEnd());
    EXPECT_EQ(empty.getCardinality(), 0);
    EXPECT_THROW(*empty, IteratorEx::ExOutOfRange);
    Iterator<int> defaulted;
    EXPECT_TRUE(defaulted.atEnd());
    EXPECT_THROW(++defaulted, IteratorEx::ExOutOfRange);
}

TEST(ContainersTest, HashMapHashesLiStringsWithTheirOwnHash) {
    HashMap<LiString, int> byName;
    byName[LiString("red")] = 1;
    byName[LiString("green")] = 2;
    EXPECT_EQ(byName.at(LiString("red")), 1);
    EXPECT_EQ(Hash<LiString>()(LiString("red")), LiString("red").hashFunc());
}

} // namespace
} // namespace Zr
