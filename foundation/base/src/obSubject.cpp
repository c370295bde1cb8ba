// Attaching, detaching and notifying observers.
#include "obSubject.h"

#include <algorithm>

namespace Zr {

namespace {
ObChangeManagerImp& plainChangeManager() {
    static ObChangeManagerImp manager;
    return manager;
}
} // namespace

ObObserverAny::~ObObserverAny() {
    for (ObSubjectAny* s : _subjects)
        s->forget(this);
}

void ObNotifierAny::notify(ObSubjectAny& subject, ObObserverAny& observer, ObHints const& hints) {
    observer.update(subject, hints);
}

ObChangeManagerImp::ObChangeManagerImp(OPtr<ObNotifierAny> notifier)
    : _notifier(notifier ? std::move(notifier) : std::make_unique<ObNotifierAny>()) {}

void ObChangeManagerImp::notify(ObSubjectAny& subject, ObHints const& hints) {
    if (subject._observers.empty())
        return;
    std::vector<ObObserverAny*> snapshot(subject._observers);
    ObSubjectAny::NotifyFrame frame{subject._frames, false};
    subject._frames = &frame;
    for (ObObserverAny* o : snapshot) {
        if (!subject.isAttached(o))
            continue;
        try {
            _notifier->notify(subject, *o, hints);
        } catch (...) {
            if (!frame.dead)
                subject._frames = frame.previous;
            throw;
        }
        if (frame.dead)
            return; // an observer destroyed the subject
    }
    subject._frames = frame.previous;
}

ObSubjectAny::~ObSubjectAny() {
    for (NotifyFrame* f = _frames; f; f = f->previous)
        f->dead = true;
    // Each observer is told once and may detach others or itself meanwhile.
    while (!_observers.empty()) {
        ObObserverAny* o = _observers.back();
        _observers.pop_back();
        auto& subjects = o->_subjects;
        subjects.erase(std::find(subjects.begin(), subjects.end(), this));
        o->detachedFrom(*this);
    }
}

void ObSubjectAny::attach(ObObserverAny* observer) {
    if (!observer || isAttached(observer))
        return;
    _observers.push_back(observer);
    observer->_subjects.push_back(this);
    observer->attachedTo(*this);
}

void ObSubjectAny::detach(ObObserverAny* observer) {
    if (!observer || !isAttached(observer))
        return;
    forget(observer);
    auto& subjects = observer->_subjects;
    subjects.erase(std::find(subjects.begin(), subjects.end(), this));
    observer->detachedFrom(*this);
}

void ObSubjectAny::detachAll() {
    while (!_observers.empty())
        detach(_observers.front());
}

bool ObSubjectAny::isAttached(ObObserverAny const* observer) const {
    return std::find(_observers.begin(), _observers.end(), observer) != _observers.end();
}

void ObSubjectAny::notify(ObHints const& hints) {
    (_changeManager ? *_changeManager : plainChangeManager()).notify(*this, hints);
}

void ObSubjectAny::forget(ObObserverAny* observer) {
    auto it = std::find(_observers.begin(), _observers.end(), observer);
    if (it != _observers.end())
        _observers.erase(it);
}

} // namespace Zr
