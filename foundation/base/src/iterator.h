// Iterator<T> and ConstIterator<T>: forward cursors over any collection, behind a virtual
// IteratorImp<T>, so that an interface can hand out its contents without naming its container.
// IteratorSTL wraps a standard range, IteratorEmpty is the cursor over nothing.
#pragma once

#include "exBase.h"
#include "rcBase.h"

#include <iterator>
#include <memory>
#include <type_traits>
#include <utility>

namespace Zr {

struct IteratorEx {
    // A cursor stepped or dereferenced at its end.
    ZR_DECLARE_EXCEPTION(ExOutOfRange, ExBase);
};

template <class T>
class IteratorImp {
public:
    virtual ~IteratorImp() = default;
    virtual bool atEnd() const = 0;
    // Called only when not at the end.
    virtual void next() = 0;
    virtual T& current() const = 0;
    // How many elements the whole walk visits, wherever the cursor stands.
    virtual int getCardinality() const = 0;
    // A second cursor at the same place, walking on independently.
    virtual OPtr<IteratorImp> clone() const = 0;
};

template <class T>
class IteratorEmpty : public IteratorImp<T> {
public:
    bool atEnd() const override { return true; }
    void next() override {}
    T& current() const override {
        throw IteratorEx::ExOutOfRange(__FILE__, __LINE__, "Empty iterator dereferenced");
    }
    int getCardinality() const override { return 0; }
    OPtr<IteratorImp<T>> clone() const override { return std::make_unique<IteratorEmpty>(); }
};

// The element type that a range yields: `int` for a vector<int>, `int const` for a const one.
template <class Range>
using IteratorElement = std::remove_reference_t<decltype(*std::begin(std::declval<Range&>()))>;

// Walks a standard range. Built from an lvalue it refers to the range, which must outlive the
// cursor and its clones and must not change meanwhile; built from an rvalue it keeps the range
// itself, shared between the cursor and its clones.
template <class Range>
class IteratorSTL : public IteratorImp<IteratorElement<Range>> {
public:
    using Element = IteratorElement<Range>;
    using StdIterator = decltype(std::begin(std::declval<Range&>()));

    explicit IteratorSTL(Range& range) : _range(&range) { start(); }
    explicit IteratorSTL(std::remove_const_t<Range>&& range)
        : _owned(std::make_shared<std::remove_const_t<Range>>(std::move(range))),
          _range(_owned.get()) {
        start();
    }

    bool atEnd() const override { return _it == std::end(*_range); }
    void next() override { ++_it; }
    Element& current() const override { return *_it; }
    int getCardinality() const override { return _cardinality; }
    OPtr<IteratorImp<Element>> clone() const override {
        return OPtr<IteratorImp<Element>>(new IteratorSTL(*this));
    }

private:
    IteratorSTL(IteratorSTL const&) = default;
    void start() {
        _it = std::begin(*_range);
        _cardinality = static_cast<int>(std::distance(std::begin(*_range), std::end(*_range)));
    }
    std::shared_ptr<std::remove_const_t<Range>> _owned;
    Range* _range;
    StdIterator _it;
    int _cardinality = 0;
};

template <class T>
class Iterator {
public:
    // The empty cursor.
    Iterator() = default;
    explicit Iterator(OPtr<IteratorImp<T>> imp) : _imp(std::move(imp)) {}
    Iterator(Iterator const& o) : _imp(o._imp ? o._imp->clone() : nullptr) {}
    Iterator(Iterator&&) noexcept = default;
    Iterator& operator=(Iterator const& o) {
        if (this != &o)
            _imp = o._imp ? o._imp->clone() : nullptr;
        return *this;
    }
    Iterator& operator=(Iterator&&) noexcept = default;

    bool atEnd() const { return !_imp || _imp->atEnd(); }
    int getCardinality() const { return _imp ? _imp->getCardinality() : 0; }

    // Stepping at the end raises IteratorEx::ExOutOfRange.
    Iterator& operator++() {
        checkNotAtEnd("Iterator stepped beyond its end");
        _imp->next();
        return *this;
    }
    // Dereferencing at the end raises IteratorEx::ExOutOfRange.
    T& operator*() const {
        checkNotAtEnd("Iterator dereferenced at its end");
        return _imp->current();
    }
    T* operator->() const { return &operator*(); }

private:
    void checkNotAtEnd(char const* text) const {
        if (atEnd())
            throw IteratorEx::ExOutOfRange(__FILE__, __LINE__, text);
    }
    OPtr<IteratorImp<T>> _imp;
};

// Shows a mutable walk as a read-only one; walks a copy of the cursor it was given.
template <class T>
class IteratorConstAdapter : public IteratorImp<T const> {
public:
    explicit IteratorConstAdapter(Iterator<T> it) : _it(std::move(it)) {}
    bool atEnd() const override { return _it.atEnd(); }
    void next() override { ++_it; }
    T const& current() const override { return *_it; }
    int getCardinality() const override { return _it.getCardinality(); }
    OPtr<IteratorImp<T const>> clone() const override {
        return std::make_unique<IteratorConstAdapter>(_it);
    }

private:
    Iterator<T> _it;
};

// A cursor that yields const elements. Any Iterator<T> converts to it.
template <class T>
class ConstIterator : public Iterator<T const> {
public:
    using Iterator<T const>::Iterator;
    ConstIterator() = default;
    ConstIterator(Iterator<T const> const& o) : Iterator<T const>(o) {}
    ConstIterator(Iterator<T> const& o)
        : Iterator<T const>(std::make_unique<IteratorConstAdapter<T>>(o)) {}
};

// Cursors over a standard range: by reference for an lvalue, by value for an rvalue.
template <class Range>
Iterator<IteratorElement<std::remove_reference_t<Range>>> makeIterator(Range&& range) {
    using R = std::remove_reference_t<Range>;
    return Iterator<IteratorElement<R>>(
        std::make_unique<IteratorSTL<R>>(std::forward<Range>(range)));
}

template <class Range>
ConstIterator<std::remove_const_t<IteratorElement<std::remove_reference_t<Range>>>>
makeConstIterator(Range&& range) {
    using R = std::remove_reference_t<Range> const;
    using T = std::remove_const_t<IteratorElement<R>>;
    if constexpr (std::is_lvalue_reference_v<Range>) {
        return ConstIterator<T>(std::make_unique<IteratorSTL<R>>(range));
    } else {
        return ConstIterator<T>(
            std::make_unique<IteratorSTL<R>>(std::remove_const_t<R>(std::move(range))));
    }
}

} // namespace Zr
