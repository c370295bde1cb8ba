// Observers: a subject keeps a list of observers and tells them of its changes with hints that
// say what changed. ObSubjectAny and ObObserverAny are the untyped pair; ObSubject<T> and
// ObObserver<T> give the observer the subject as its own type T.
#pragma once

#include "rcBase.h"

#include <cstddef>
#include <vector>

namespace Zr {

class ObSubjectAny;
class ObObserverAny;

// One piece of information about a change; subjects derive their own kinds.
class ObHint : public RCObject {
public:
    ~ObHint() override = default;
};

// The hints that go with one notification.
class ObHints {
public:
    ObHints() = default;
    explicit ObHints(RCShdPtr<ObHint> const& hint) { addHint(hint); }

    // A null hint is ignored.
    void addHint(RCShdPtr<ObHint> const& hint) {
        if (hint)
            _hints.push_back(hint);
    }
    std::vector<RCShdPtr<ObHint>> const& getHints() const { return _hints; }
    bool isEmpty() const { return _hints.empty(); }
    int getNbHints() const { return static_cast<int>(_hints.size()); }
    // The first hint of kind H, or null.
    template <class H>
    H* findHint() const {
        for (auto const& h : _hints)
            if (H* found = dynamic_cast<H*>(h.get()))
                return found;
        return nullptr;
    }

private:
    std::vector<RCShdPtr<ObHint>> _hints;
};

class ObObserverAny {
public:
    ObObserverAny() = default;
    ObObserverAny(ObObserverAny const&) = delete;
    ObObserverAny& operator=(ObObserverAny const&) = delete;
    // Leaves every subject it is attached to, without a detachedFrom call.
    virtual ~ObObserverAny();

    virtual void update(ObSubjectAny& subject, ObHints const& hints) = 0;
    // Told after the subject attached it, and after it detached it or died.
    virtual void attachedTo(ObSubjectAny& /*subject*/) {}
    virtual void detachedFrom(ObSubjectAny& /*subject*/) {}

    int getNbSubjects() const { return static_cast<int>(_subjects.size()); }

private:
    friend class ObSubjectAny;
    std::vector<ObSubjectAny*> _subjects;
};

// Delivers one notification to one observer. The default calls update at once; a notifier
// may instead filter, log or defer.
class ObNotifierAny {
public:
    virtual ~ObNotifierAny() = default;
    virtual void notify(ObSubjectAny& subject, ObObserverAny& observer, ObHints const& hints);
};

// Walks a subject's observers and hands each to its notifier. Every subject uses a plain one
// unless given another with setChangeManager.
class ObChangeManagerImp {
public:
    explicit ObChangeManagerImp(OPtr<ObNotifierAny> notifier = OPtr<ObNotifierAny>());
    virtual ~ObChangeManagerImp() = default;

    // Calls the notifier for each observer of a snapshot of the list taken on entry; an
    // observer detached meanwhile is skipped, one attached meanwhile is not reached.
    virtual void notify(ObSubjectAny& subject, ObHints const& hints);
    ObNotifierAny& getNotifier() { return *_notifier; }

private:
    OPtr<ObNotifierAny> _notifier;
};

class ObSubjectAny {
public:
    ObSubjectAny() = default;
    ObSubjectAny(ObSubjectAny const&) = delete;
    ObSubjectAny& operator=(ObSubjectAny const&) = delete;
    // Tells each observer still attached detachedFrom.
    virtual ~ObSubjectAny();

    // Attaching twice or attaching null is ignored.
    void attach(ObObserverAny* observer);
    // Detaching an observer that is not attached is ignored.
    void detach(ObObserverAny* observer);
    void detachAll();
    bool isAttached(ObObserverAny const* observer) const;
    int getNbObservers() const { return static_cast<int>(_observers.size()); }
    std::vector<ObObserverAny*> const& getObservers() const { return _observers; }

    void notify(ObHints const& hints = ObHints());
    // Not owned; null returns to the plain change manager.
    void setChangeManager(ObChangeManagerImp* manager) { _changeManager = manager; }

private:
    friend class ObObserverAny;
    friend class ObChangeManagerImp;
    struct NotifyFrame {
        NotifyFrame* previous;
        bool dead;
    };
    void forget(ObObserverAny* observer);

    std::vector<ObObserverAny*> _observers;
    ObChangeManagerImp* _changeManager = nullptr;
    NotifyFrame* _frames = nullptr; // notifications in progress, to stop when the subject dies
};

template <class T>
class ObSubject;

// An observer of subjects of type T (T derives from ObSubject<T>).
template <class T>
class ObObserver : public ObObserverAny {
public:
    virtual void update(T& subject, ObHints const& hints) = 0;

private:
    void update(ObSubjectAny& subject, ObHints const& hints) final {
        if (T* typed = dynamic_cast<T*>(&subject))
            update(*typed, hints);
    }
};

template <class T>
class ObSubject : public ObSubjectAny {
public:
    void attach(ObObserver<T>* observer) { ObSubjectAny::attach(observer); }
    void detach(ObObserver<T>* observer) { ObSubjectAny::detach(observer); }
};

} // namespace Zr
