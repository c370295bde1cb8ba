// Callbacks: a CbDispatcher calls an ordered list of CbHandlers. Handlers and dispatchers know
// each other, so whichever is destroyed first leaves the other clean.
#pragma once

#include "exBase.h"
#include "smallVector.h"

#include <cstddef>
#include <functional>
#include <string>

namespace Zr {

class CbDispatcherBase;

// The argument type of a callback that takes no argument.
struct CbEmptyType {
    struct NoArgCallBase {
        // A handler of no argument called with one: a programming error.
        [[noreturn]] static void invalidNoArgCall();
    };
};

class CbHandlerBase {
public:
    CbHandlerBase() = default;
    CbHandlerBase(CbHandlerBase const&) = delete;
    CbHandlerBase& operator=(CbHandlerBase const&) = delete;
    // A destroyed handler leaves every dispatcher that holds it.
    virtual ~CbHandlerBase();

    // Leaves every dispatcher.
    void reset();
    int getNbDispatchers() const { return static_cast<int>(_dispatchers.size()); }

private:
    friend class CbDispatcherBase;
    SmallVector<CbDispatcherBase*, 2> _dispatchers;
};

template <class T>
class CbHandler : public CbHandlerBase {
public:
    virtual void call(T&) {}
    virtual void call() {}
};

template <>
class CbHandler<CbEmptyType> : public CbHandlerBase {
public:
    virtual void call(CbEmptyType&) { CbEmptyType::NoArgCallBase::invalidNoArgCall(); }
    virtual void call() {}
};

// The untyped part of a dispatcher: the handler list, and the frames of calls in progress so
// that a dispatcher destroyed by one of its own handlers stops calling at once.
class CbDispatcherBase {
public:
    CbDispatcherBase() = default;
    CbDispatcherBase(CbDispatcherBase const&) = delete;
    CbDispatcherBase& operator=(CbDispatcherBase const&) = delete;
    ~CbDispatcherBase();

    void removeHandler(CbHandlerBase* h);
    void removeAllHandlers();
    bool isHandlerSubscribed(CbHandlerBase const* h) const;
    int getNbHandlers() const { return static_cast<int>(_handlers.size()); }
    bool isEmpty() const { return _handlers.empty(); }

protected:
    using HandlerList = SmallVector<CbHandlerBase*, 8>;
    struct CallFrame {
        CallFrame* previous;
        bool dead;
    };

    // Inserts at `pos` (clamped); a null handler or one already present is ignored.
    void insertAt(std::size_t pos, CbHandlerBase* h);

    // Calls f(handler) for each handler of a snapshot taken on entry, skipping those that
    // left the live list meanwhile: one removed by an earlier handler is not called, one
    // added during the call is not reached.
    template <class F>
    void forEachLive(F&& f) {
        if (_handlers.empty())
            return;
        HandlerList snapshot(_handlers);
        CallFrame frame{_frames, false};
        _frames = &frame;
        struct Pop {
            CallFrame& frame;
            CallFrame*& head;
            ~Pop() {
                if (!frame.dead)
                    head = frame.previous;
            }
        } pop{frame, _frames};
        for (CbHandlerBase* h : snapshot) {
            if (!_handlers.contains(h))
                continue;
            f(h);
            if (frame.dead)
                return;
        }
    }

private:
    friend class CbHandlerBase;
    HandlerList _handlers;
    CallFrame* _frames = nullptr;
};

template <class T>
class CbDispatcher : public CbDispatcherBase {
public:
    void addHandler(CbHandler<T>* h) { insertAt(static_cast<std::size_t>(-1), h); }
    void prependHandler(CbHandler<T>* h) { insertAt(0, h); }
    // Inserts ahead of the handler now at `position`; past the end appends.
    void insertHandler(CbHandler<T>* h, std::size_t position = 0) { insertAt(position, h); }

    void call(T& arg) {
        forEachLive([&arg](CbHandlerBase* h) { static_cast<CbHandler<T>*>(h)->call(arg); });
    }
    void call() {
        forEachLive([](CbHandlerBase* h) { static_cast<CbHandler<T>*>(h)->call(); });
    }
};

// A handler bound to a member function of an object, taking the argument or not.
template <class Obj, class T>
class CbMethod : public CbHandler<T> {
public:
    using WithArg = void (Obj::*)(T&);
    using NoArg = void (Obj::*)();
    CbMethod() = default;
    CbMethod(Obj* obj, WithArg m) : _obj(obj), _withArg(m) {}
    CbMethod(Obj* obj, NoArg m) : _obj(obj), _noArg(m) {}
    void bind(Obj* obj, WithArg m) {
        _obj = obj;
        _withArg = m;
        _noArg = nullptr;
    }
    void call(T& arg) override {
        if (_withArg)
            (_obj->*_withArg)(arg);
        else if (_noArg)
            (_obj->*_noArg)();
    }
    void call() override {
        if (_noArg)
            (_obj->*_noArg)();
    }

private:
    Obj* _obj = nullptr;
    WithArg _withArg = nullptr;
    NoArg _noArg = nullptr;
};

// A handler bound to a free function or any callable.
template <class T>
class CbFunction : public CbHandler<T> {
public:
    CbFunction() = default;
    explicit CbFunction(std::function<void(T&)> f) : _f(std::move(f)) {}
    void set(std::function<void(T&)> f) { _f = std::move(f); }
    void call(T& arg) override {
        if (_f)
            _f(arg);
    }

private:
    std::function<void(T&)> _f;
};

template <>
class CbFunction<CbEmptyType> : public CbHandler<CbEmptyType> {
public:
    CbFunction() = default;
    explicit CbFunction(std::function<void()> f) : _f(std::move(f)) {}
    void set(std::function<void()> f) { _f = std::move(f); }
    void call() override {
        if (_f)
            _f();
    }

private:
    std::function<void()> _f;
};

} // namespace Zr
