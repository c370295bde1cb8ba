// PiNodeEvent: what a node tells the observers of its controller. The kind of an event is the
// key observers subscribe with: PiNodeController::addCallback(PiNodeEvent::ValueChanged(), h).
#pragma once

#include "piValue.h"

namespace Zr {

class PiNodeEvent {
public:
    enum class Kind {
        // A stored value of the node changed; getValue() gives it.
        ValueChanged,
        // The node was renamed.
        NameChanged,
    };
    static constexpr int NB_KINDS = 2;

    class ValueChanged;
    class NameChanged;

    explicit PiNodeEvent(Kind kind, RCShdPtr<PiValue const> value = {})
        : _kind(kind), _value(std::move(value)) {}
    virtual ~PiNodeEvent() = default;

    Kind getKind() const { return _kind; }
    // The stored value that changed; null for other kinds and for subscription keys.
    RCShdPtr<PiValue const> const& getValue() const { return _value; }

private:
    Kind _kind;
    RCShdPtr<PiValue const> _value;
};

class PiNodeEvent::ValueChanged : public PiNodeEvent {
public:
    ValueChanged() : PiNodeEvent(Kind::ValueChanged) {}
    explicit ValueChanged(RCShdPtr<PiValue const> value)
        : PiNodeEvent(Kind::ValueChanged, std::move(value)) {}
};

class PiNodeEvent::NameChanged : public PiNodeEvent {
public:
    NameChanged() : PiNodeEvent(Kind::NameChanged) {}
};

} // namespace Zr
