// SnSelection: an ordered list of selection items, what a menu acts on, a drag carries and the
// clipboard keeps.
#pragma once

#include "prdPredicate.h"
#include "snItem.h"

#include <iosfwd>
#include <vector>

namespace Zr {

class SnSelection : public RCObject {
public:
    using ItemList = std::vector<RCShdPtr<SnItem>>;
    using const_iterator = ItemList::const_iterator;

    static RCShdPtr<SnSelection> create();

    const_iterator begin() const { return _items.begin(); }
    const_iterator end() const { return _items.end(); }

    // Appends an item; a null item fails an assertion and leaves the selection unchanged.
    void addItem(RCShdPtr<SnItem> const& item);
    // Removes every occurrence of the item; false if it wasn't there.
    bool removeItem(RCShdPtr<SnItem> const& item);
    void clear();

    bool isEmpty() const { return _items.empty(); }
    int getNbItems() const { return static_cast<int>(_items.size()); }
    // Null when the selection is empty.
    RCShdPtr<SnItem> getFirstItem() const;
    // The item at `index`; an index out of range fails an assertion.
    RCShdPtr<SnItem> getItem(int index) const;

    // A new selection with the items that pass the predicate, in order. The items are shared.
    RCShdPtr<SnSelection> filter(PrdPredicate<RCShdPtr<SnItem const>> const& predicate) const;
    // A new selection with an independent copy of every item.
    RCShdPtr<SnSelection> snapshot() const;

    // One line per item.
    void dump(std::ostream& os) const;

private:
    SnSelection() = default;
    ItemList _items;
};

} // namespace Zr
