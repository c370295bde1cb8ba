// PiSnItem<T> and PiSnItemConst<T>: the selection item of a graph object (a node, an input),
// with the PiPath of groups by which it was reached. The predicates below pick items of live
// graph objects, and of tool nodes.
#pragma once

#include "piPath.h"
#include "snItemBasic.h"
#include "snItemConvert.h"

#include <ostream>

namespace Zr {

template <class Held>
class PiSnItemBase : public SnItemBasic<RCShdPtr<Held>> {
public:
    PiSnItemBase(RCShdPtr<Held> const& object, RCShdPtr<PiPath> const& path)
        : SnItemBasic<RCShdPtr<Held>>(object), _path(path) {}

    // Null when the object was given without a path.
    RCShdPtr<PiPath> const& getPath() const { return _path; }
    void setPath(RCShdPtr<PiPath> const& path) { _path = path; }

    // Each kind of item makes its own copies: with a copy of the path, sharing the object.
    RCShdPtr<SnItem> snapshot() const override = 0;

    void restore(SnItem const& other) override {
        auto const* source = dynamic_cast<PiSnItemBase const*>(&other);
        ZR_ASSERT(source != nullptr);
        this->set(source->get());
        _path = source->_path;
    }

    void dump(std::ostream& os) const override {
        SnItemBasic<RCShdPtr<Held>>::dump(os);
        os << ", path of " << (_path.isNull() ? 0 : _path->getLength()) << " group(s)";
    }

protected:
    RCShdPtr<PiPath> copyPath() const { return _path.isNull() ? _path : _path->copy(); }

private:
    RCShdPtr<PiPath> _path;
};

template <class T>
class PiSnItem : public PiSnItemBase<T> {
public:
    explicit PiSnItem(RCShdPtr<T> const& object, RCShdPtr<PiPath> const& path = {})
        : PiSnItemBase<T>(object, path) {}

    static RCShdPtr<SnItem> create(RCShdPtr<T> const& object, RCShdPtr<PiPath> const& path = {}) {
        return makeShared<PiSnItem>(object, path);
    }

    RCShdPtr<SnItem> snapshot() const override {
        return makeShared<PiSnItem>(this->get(), this->copyPath());
    }
};

template <class T>
class PiSnItemConst : public PiSnItemBase<T const> {
public:
    explicit PiSnItemConst(RCShdPtr<T const> const& object, RCShdPtr<PiPath> const& path = {})
        : PiSnItemBase<T const>(object, path) {}

    static RCShdPtr<SnItem> create(RCShdPtr<T const> const& object,
                                   RCShdPtr<PiPath> const& path = {}) {
        return makeShared<PiSnItemConst>(object, path);
    }

    RCShdPtr<SnItem> snapshot() const override {
        return makeShared<PiSnItemConst>(this->get(), this->copyPath());
    }
};

// Items holding a T (writable or const) that is not null and still in its graph. T must offer
// a const isValid(), as PiGraphObject does.
template <class T>
struct PiIsValidGraphObjectItem {
    static bool test(RCShdPtr<SnItem const> const& item) {
        if (!SnItemConvert<RCShdPtr<T const>>::test(item))
            return false;
        RCShdPtr<T const> const object = SnItemConvert<RCShdPtr<T const>>::get(item);
        return !object.isNull() && object->isValid();
    }
    static PrdPredicate<RCShdPtr<SnItem const>> getPredicate() { return test; }
};

// Items whose object is a tool node, or an input of one, whatever pointer type holds it.
struct PiIsToolNode {
    static bool test(RCShdPtr<SnItem const> const& item);
    static PrdPredicate<RCShdPtr<SnItem const>> getPredicate() { return test; }
};

// Items whose object is a tool node made from a super tool, or an input of one.
struct PiIsSuperToolNode {
    static bool test(RCShdPtr<SnItem const> const& item);
    static PrdPredicate<RCShdPtr<SnItem const>> getPredicate() { return test; }
};

} // namespace Zr
