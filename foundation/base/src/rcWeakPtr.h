// Strong and weak references: an RCSWBase object keeps its counts in a separate block, so a
// weak reference can outlive the object and still tell that it is gone.
#pragma once

#include "lkCounter.h"
#include "rcBase.h"

#include <cstddef>
#include <functional>
#include <typeinfo>
#include <utility>

namespace Zr {

// The count block of an RCSWBase object. The object dies when the strong count reaches 0; the
// block dies when the weak count reaches 0. While the object lives it holds one weak count
// itself, so the block always outlives the object.
template <class Counter>
class RCSWCount {
public:
    RCSWCount() = default;
    RCSWCount(RCSWCount const&) = delete;
    RCSWCount& operator=(RCSWCount const&) = delete;

    void addStrong() { _strong.increment(); }
    // Returns true when that was the last strong reference: the caller deletes the object.
    bool releaseStrong() { return _strong.decrement() == 0; }
    // Takes a strong reference only if the object still lives; safe against a concurrent
    // release of the last one.
    bool tryAddStrong() { return _strong.incrementIfNotZero(); }

    void addWeak() { _weak.increment(); }
    // Deletes the block with the last weak reference.
    void releaseWeak() {
        if (_weak.decrement() == 0)
            delete this;
    }

    int getStrongCount() const { return _strong.get(); }
    int getWeakCount() const { return _weak.get(); }

private:
    ~RCSWCount() = default;
    Counter _strong{0};
    Counter _weak{1}; // the object's own hold on its block
};

// Base of objects reached through RCStrongPtr and RCWeakPtr.
class RCSWBase {
public:
    using Count = RCSWCount<LkCounter<int>>;

    void addStrongReference() const { _count->addStrong(); }
    // Drops one strong reference; the object deletes itself when none is left.
    void removeStrongReference() const {
        if (_count->releaseStrong())
            delete this;
    }
    int getStrongCount() const { return _count->getStrongCount(); }
    // Weak references, not counting the object's own hold on the block.
    int getWeakCount() const { return _count->getWeakCount() - 1; }
    Count* getCountBlock() const { return _count; }

protected:
    RCSWBase() : _count(new Count) {}
    // A copy is a new object with counts of its own.
    RCSWBase(RCSWBase const&) : _count(new Count) {}
    RCSWBase& operator=(RCSWBase const&) { return *this; }
    virtual ~RCSWBase() { _count->releaseWeak(); }

private:
    Count* _count;
};

template <class T>
class RCWeakPtr;

// Holds one strong reference to a T; the common base of the strong pointers.
template <class T>
class RCStrongBasePtr {
public:
    RCStrongBasePtr() = default;
    RCStrongBasePtr(std::nullptr_t) {}
    RCStrongBasePtr(T* p) : _p(p) { acquire(); }
    RCStrongBasePtr(RCStrongBasePtr const& o) : _p(o._p) { acquire(); }
    RCStrongBasePtr(RCStrongBasePtr&& o) noexcept : _p(std::exchange(o._p, nullptr)) {}
    template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
    RCStrongBasePtr(RCStrongBasePtr<U> const& o) : _p(o.get()) {
        acquire();
    }
    ~RCStrongBasePtr() { reset(); }

    RCStrongBasePtr& operator=(RCStrongBasePtr const& o) {
        reset(o._p);
        return *this;
    }
    RCStrongBasePtr& operator=(RCStrongBasePtr&& o) noexcept {
        if (this != &o) {
            T* old = std::exchange(_p, std::exchange(o._p, nullptr));
            if (old)
                old->removeStrongReference();
        }
        return *this;
    }

    // Takes the new reference before dropping the old, so re-assigning the same object is safe.
    void reset(T* p = nullptr) {
        if (p)
            p->addStrongReference();
        T* old = std::exchange(_p, p);
        if (old)
            old->removeStrongReference();
    }

    T* get() const { return _p; }
    bool isNull() const { return _p == nullptr; }
    explicit operator bool() const { return _p != nullptr; }

protected:
    struct Adopt {};
    // Takes over a strong reference already counted (the result of a weak lock).
    RCStrongBasePtr(T* p, Adopt) : _p(p) {}

private:
    void acquire() {
        if (_p)
            _p->addStrongReference();
    }
    T* _p = nullptr;
};

template <class T>
class RCStrongPtr : public RCStrongBasePtr<T> {
public:
    using RCStrongBasePtr<T>::RCStrongBasePtr;
    RCStrongPtr() = default;
    RCStrongPtr(RCStrongPtr const&) = default;
    RCStrongPtr(RCStrongPtr&&) noexcept = default;
    template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
    RCStrongPtr(RCStrongBasePtr<U> const& o) : RCStrongBasePtr<T>(static_cast<T*>(o.get())) {}
    RCStrongPtr& operator=(RCStrongPtr const&) = default;
    RCStrongPtr& operator=(RCStrongPtr&&) noexcept = default;

    // Null dereferences raise ExNullPtr naming the pointee type.
    T* operator->() const {
        if (!this->get())
            RCExUtil::throwExNullPtr(typeid(T).name());
        return this->get();
    }
    T& operator*() const { return *operator->(); }

private:
    friend class RCWeakPtr<T>;
    using typename RCStrongBasePtr<T>::Adopt;
    RCStrongPtr(T* p, Adopt a) : RCStrongBasePtr<T>(p, a) {}
};

template <class T, class U>
bool operator==(RCStrongBasePtr<T> const& a, RCStrongBasePtr<U> const& b) {
    return a.get() == b.get();
}
template <class T>
bool operator==(RCStrongBasePtr<T> const& a, std::nullptr_t) {
    return a.get() == nullptr;
}

// A reference that does not keep its target alive. lock() gives a strong pointer while the
// target lives and null afterwards, also when another thread drops the last strong reference
// at the same moment.
template <class T>
class RCWeakPtr {
public:
    RCWeakPtr() = default;
    RCWeakPtr(std::nullptr_t) {}
    // From a living object; a pointer to an object with no strong reference yields a weak
    // pointer that is already expired.
    RCWeakPtr(T* p) { assign(p); }
    template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
    RCWeakPtr(RCStrongBasePtr<U> const& o) {
        assign(o.get());
    }
    RCWeakPtr(RCWeakPtr const& o) : _p(o._p), _count(o._count) {
        if (_count)
            _count->addWeak();
    }
    RCWeakPtr(RCWeakPtr&& o) noexcept
        : _p(std::exchange(o._p, nullptr)), _count(std::exchange(o._count, nullptr)) {}
    ~RCWeakPtr() { reset(); }

    RCWeakPtr& operator=(RCWeakPtr const& o) {
        if (o._count)
            o._count->addWeak();
        reset();
        _p = o._p;
        _count = o._count;
        return *this;
    }
    RCWeakPtr& operator=(RCWeakPtr&& o) noexcept {
        if (this != &o) {
            reset();
            _p = std::exchange(o._p, nullptr);
            _count = std::exchange(o._count, nullptr);
        }
        return *this;
    }
    template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
    RCWeakPtr& operator=(RCStrongBasePtr<U> const& o) {
        reset();
        assign(o.get());
        return *this;
    }

    void reset() {
        if (_count)
            std::exchange(_count, nullptr)->releaseWeak();
        _p = nullptr;
    }

    RCStrongPtr<T> lock() const {
        if (_count && _count->tryAddStrong())
            return RCStrongPtr<T>(_p, typename RCStrongPtr<T>::Adopt());
        return RCStrongPtr<T>();
    }
    bool expired() const { return !_count || _count->getStrongCount() == 0; }
    bool isNull() const { return _count == nullptr; }

    // Identity of the target, valid also after it died: for ordered and hashed containers.
    void const* getOwnerKey() const { return _count; }
    bool operator==(RCWeakPtr const& o) const { return _count == o._count; }
    bool operator<(RCWeakPtr const& o) const { return std::less<void const*>()(_count, o._count); }

private:
    void assign(T* p) {
        if (!p)
            return;
        _p = p;
        _count = p->getCountBlock();
        _count->addWeak();
    }
    T* _p = nullptr;
    RCSWBase::Count* _count = nullptr;
};

// Pins the target of a weak pointer for the span of a use:
//     RCWeakAccessor<Node> node(weakNode);
//     if (node.isValid()) node->update();
template <class T>
class RCWeakAccessor {
public:
    explicit RCWeakAccessor(RCWeakPtr<T> const& weak) : _pinned(weak.lock()) {}
    bool isValid() const { return !_pinned.isNull(); }
    explicit operator bool() const { return isValid(); }
    T* get() const { return _pinned.get(); }
    // Raises ExNullPtr when the target was gone.
    T* operator->() const { return _pinned.operator->(); }
    T& operator*() const { return *_pinned; }
    RCStrongPtr<T> const& getStrongPtr() const { return _pinned; }

private:
    RCStrongPtr<T> _pinned;
};

} // namespace Zr
