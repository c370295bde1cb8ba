// SnItemConvert<T>: puts a value of type T into a selection item and reads it back. An item
// converts to T when it is an SnItemBasic<T> or a subclass of it (a PiSnItem for instance); an
// item holding RCShdPtr<U> also converts to RCShdPtr<U const>, so read-only users find it.
#pragma once

#include "prdPredicate.h"
#include "snItemBasic.h"

namespace Zr {

template <class T>
struct SnItemConvert {
    static RCShdPtr<SnItem> createItem(T const& value) { return makeShared<SnItemBasic<T>>(value); }

    static bool test(RCShdPtr<SnItem const> const& item) {
        return dynamic_cast<SnItemBasic<T> const*>(item.get()) != nullptr;
    }

    // The value of an item that passes test(); any other item fails an assertion.
    static T get(RCShdPtr<SnItem const> const& item) {
        ZR_ASSERT_TEXT(test(item), "SnItemConvert::test( item )");
        return static_cast<SnItemBasic<T> const*>(item.get())->get();
    }

    static PrdPredicate<RCShdPtr<SnItem const>> getPredicate() {
        return [](RCShdPtr<SnItem const> const& item) { return test(item); };
    }
};

// Read-only pointers: items of the const pointer and of the writable pointer both convert.
template <class U>
struct SnItemConvert<RCShdPtr<U const>> {
    using ConstItem = SnItemBasic<RCShdPtr<U const>>;
    using WritableItem = SnItemBasic<RCShdPtr<U>>;

    static RCShdPtr<SnItem> createItem(RCShdPtr<U const> const& value) {
        return makeShared<ConstItem>(value);
    }

    static bool test(RCShdPtr<SnItem const> const& item) {
        return dynamic_cast<ConstItem const*>(item.get()) != nullptr ||
               dynamic_cast<WritableItem const*>(item.get()) != nullptr;
    }

    static RCShdPtr<U const> get(RCShdPtr<SnItem const> const& item) {
        ZR_ASSERT_TEXT(test(item), "SnItemConvert::test( item )");
        if (auto const* constItem = dynamic_cast<ConstItem const*>(item.get()))
            return constItem->get();
        return static_cast<WritableItem const*>(item.get())->get();
    }

    static PrdPredicate<RCShdPtr<SnItem const>> getPredicate() {
        return [](RCShdPtr<SnItem const> const& item) { return test(item); };
    }
};

} // namespace Zr
