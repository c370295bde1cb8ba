// SnItem: one element of a selection (an input, a key, a string of text...). Items travel in an
// SnSelection, in drags and on the clipboard; the converters of SnItemConvert read them back.
#pragma once

#include "rcBase.h"

#include <iosfwd>
#include <typeinfo>

namespace Zr {

class SnItem : public RCObject {
public:
    // A new item holding a copy of this one's value. Objects that the value points to are
    // shared, not copied: the copy is independent of later changes to this item only.
    virtual RCShdPtr<SnItem> snapshot() const = 0;
    // Takes the value of `other`, which must be an item of the same kind (made by snapshot).
    virtual void restore(SnItem const& other) = 0;
    // One line describing the item, for logs and debugging.
    virtual void dump(std::ostream& os) const = 0;
    // The type of the value held: what the converters and dumps go by.
    virtual std::type_info const& getValueType() const = 0;
    // The shared object that the item points to, for items that hold a shared pointer; null
    // for other items and for null pointers. Lets a test ask for the object's dynamic type
    // whatever pointer type the item was made with.
    virtual RCObject const* getObject() const { return nullptr; }

    // True when the item holds a value of exactly type T.
    template <class T>
    bool holdsValueOfType() const {
        return getValueType() == typeid(T);
    }

protected:
    SnItem() = default;
    SnItem(SnItem const&) = default;
    SnItem& operator=(SnItem const&) = default;
};

std::ostream& operator<<(std::ostream& os, SnItem const& item);

} // namespace Zr
