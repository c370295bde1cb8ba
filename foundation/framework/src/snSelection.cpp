// SnSelection: the ordered item list.
#include "snSelection.h"

#include <algorithm>
#include <ostream>

namespace Zr {

RCShdPtr<SnSelection> SnSelection::create() {
    return RCShdPtr<SnSelection>(new SnSelection);
}

void SnSelection::addItem(RCShdPtr<SnItem> const& item) {
    ZR_ASSERT(!item.isNull());
    _items.push_back(item);
}

bool SnSelection::removeItem(RCShdPtr<SnItem> const& item) {
    auto const newEnd = std::remove(_items.begin(), _items.end(), item);
    bool const found = newEnd != _items.end();
    _items.erase(newEnd, _items.end());
    return found;
}

void SnSelection::clear() {
    _items.clear();
}

RCShdPtr<SnItem> SnSelection::getFirstItem() const {
    return _items.empty() ? RCShdPtr<SnItem>() : _items.front();
}

RCShdPtr<SnItem> SnSelection::getItem(int index) const {
    ZR_ASSERT(index >= 0 && index < getNbItems());
    return _items[static_cast<std::size_t>(index)];
}

RCShdPtr<SnSelection>
SnSelection::filter(PrdPredicate<RCShdPtr<SnItem const>> const& predicate) const {
    RCShdPtr<SnSelection> result = create();
    for (RCShdPtr<SnItem> const& item : _items)
        if (predicate(item))
            result->_items.push_back(item);
    return result;
}

RCShdPtr<SnSelection> SnSelection::snapshot() const {
    RCShdPtr<SnSelection> result = create();
    result->_items.reserve(_items.size());
    for (RCShdPtr<SnItem> const& item : _items)
        result->_items.push_back(item->snapshot());
    return result;
}

void SnSelection::dump(std::ostream& os) const {
    os << "SnSelection, " << _items.size() << " item(s)\n";
    for (RCShdPtr<SnItem> const& item : _items) {
        os << "  ";
        item->dump(os);
        os << "\n";
    }
}

} // namespace Zr
