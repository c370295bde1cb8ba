// Intrusive reference counting: RCBase is the base of every shared object, RCShdPtr the pointer
// that holds it. OPtr and UPtr transfer ownership of objects that are not shared.
#pragma once

#include "exBase.h"
#include "lkCounter.h"

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <typeinfo>
#include <utility>

namespace Zr {

// Ownership transfer: a new object returned to the caller, an event handed to a queue.
template <class T>
using OPtr = std::unique_ptr<T>;
template <class T>
using OPtrRet = std::unique_ptr<T>;
template <class T>
using UPtr = std::unique_ptr<T>;

template <class Counter>
class RCBase {
public:
    void addReference() const { _refCount.increment(); }
    // Drops one reference; the object deletes itself when none is left.
    void removeReference() const {
        if (_refCount.decrement() == 0)
            delete this;
    }
    int getReferenceCount() const { return _refCount.get(); }

protected:
    RCBase() = default;
    // A copy is a new object: it starts with no references.
    RCBase(RCBase const&) {}
    RCBase& operator=(RCBase const&) { return *this; }
    virtual ~RCBase() = default;

private:
    mutable Counter _refCount{0};
};

// The base of every shared object that the toolkit passes around.
using RCObject = RCBase<LkCounter<int>>;

ZR_DECLARE_EXCEPTION(ExNullPtr, ExBase);
ZR_DECLARE_EXCEPTION(ExCastFailed, ExBase);

struct RCExUtil {
    [[noreturn]] static void throwExNullPtr(char const* typeName);
    [[noreturn]] static void throwExCastFailed(char const* fromType, char const* toType);
    static std::string demangle(char const* mangled);
};

// Holds one reference to a T; the common base of the shared pointers.
template <class T>
class RCBasePtr {
public:
    RCBasePtr() = default;
    RCBasePtr(T* p) : _p(p) { acquire(); }
    RCBasePtr(RCBasePtr const& o) : _p(o._p) { acquire(); }
    RCBasePtr(RCBasePtr&& o) noexcept : _p(std::exchange(o._p, nullptr)) {}
    template <class U>
    RCBasePtr(RCBasePtr<U> const& o) : _p(o.get()) {
        acquire();
    }
    ~RCBasePtr() { releaseRef(); }

    RCBasePtr& operator=(RCBasePtr const& o) {
        reset(o._p);
        return *this;
    }
    RCBasePtr& operator=(RCBasePtr&& o) noexcept {
        if (this != &o) {
            T* old = std::exchange(_p, std::exchange(o._p, nullptr));
            if (old)
                old->removeReference();
        }
        return *this;
    }
    RCBasePtr& operator=(T* p) {
        reset(p);
        return *this;
    }

    // Takes the new pointer's reference before dropping the old one, so that assigning a
    // pointer to an object it already holds never deletes it on the way.
    void reset(T* p = nullptr) {
        if (p)
            p->addReference();
        T* old = std::exchange(_p, p);
        if (old)
            old->removeReference();
    }

    T* get() const { return _p; }
    bool isNull() const { return _p == nullptr; }
    explicit operator bool() const { return _p != nullptr; }

    // Prints the pointee's dynamic type, T, the reference count and the pointers.
    void dump(std::ostream& os) const;

private:
    void acquire() {
        if (_p)
            _p->addReference();
    }
    void releaseRef() {
        if (_p)
            std::exchange(_p, nullptr)->removeReference();
    }
    T* _p = nullptr;
};

template <class T>
class RCShdPtr : public RCBasePtr<T> {
public:
    using RCBasePtr<T>::RCBasePtr;
    RCShdPtr() = default;
    RCShdPtr(std::nullptr_t) {}
    RCShdPtr(RCShdPtr const&) = default;
    RCShdPtr(RCShdPtr&&) noexcept = default;
    template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
    RCShdPtr(RCShdPtr<U> const& o) : RCBasePtr<T>(static_cast<T*>(o.get())) {}
    RCShdPtr& operator=(RCShdPtr const&) = default;
    RCShdPtr& operator=(RCShdPtr&&) noexcept = default;
    RCShdPtr& operator=(T* p) {
        this->reset(p);
        return *this;
    }

    // Null dereferences raise ExNullPtr naming the pointee type: callers rely on it.
    T* operator->() const {
        if (!this->get())
            RCExUtil::throwExNullPtr(typeid(T).name());
        return this->get();
    }
    T& operator*() const { return *operator->(); }

    // Assigns from a pointer to a base; null if the dynamic type doesn't fit.
    template <class U>
    RCShdPtr& dynamicAssign(U* p) {
        this->reset(dynamic_cast<T*>(p));
        return *this;
    }
    template <class U>
    RCShdPtr& dynamicAssign(RCBasePtr<U> const& p) {
        return dynamicAssign(p.get());
    }
};

template <class T, class U>
bool operator==(RCBasePtr<T> const& a, RCBasePtr<U> const& b) {
    return a.get() == b.get();
}
template <class T, class U>
bool operator==(RCBasePtr<T> const& a, U* b) {
    return a.get() == b;
}
template <class T>
bool operator==(RCBasePtr<T> const& a, std::nullptr_t) {
    return a.get() == nullptr;
}
template <class T, class U>
bool operator<(RCBasePtr<T> const& a, RCBasePtr<U> const& b) {
    return std::less<void const*>()(a.get(), b.get());
}

template <class T, class... Args>
RCShdPtr<T> makeShared(Args&&... args) {
    return RCShdPtr<T>(new T(std::forward<Args>(args)...));
}

template <class T, class U>
RCShdPtr<T> dynamicCast(RCBasePtr<U> const& p) {
    return RCShdPtr<T>(dynamic_cast<T*>(p.get()));
}

} // namespace Zr

template <class T>
struct std::hash<Zr::RCShdPtr<T>> {
    std::size_t operator()(Zr::RCShdPtr<T> const& p) const noexcept {
        return std::hash<T*>()(p.get());
    }
};

#include "rcBase.inl"
