// PiDefaultNodeController: node events, an undoable per-node panel description and connected
// outputs.
#include "piDefaultNodeController.h"

#include "piNode.h"

namespace Zr {

// The node's own description, kept in a recordable object of its own: the controller is
// reached weakly and cannot be held by an undo entry, and the entry must be able to outlive it.
class PiDefaultNodeController::Description : public CmRecordable {
public:
    explicit Description(PiDefaultNodeController* owner) : _owner(owner) {}

    bool hasText() const { return _hasText; }
    std::string const& getText() const { return _text; }

    void set(std::string const& text) {
        if (_hasText && text == _text)
            return;
        willChange();
        _text = text;
        _hasText = true;
        changed();
    }
    void detach() { _owner = nullptr; }

    struct Memento : CmMemento {
        Memento(bool h, std::string t) : hasText(h), text(std::move(t)) {}
        bool equals(CmMemento const& other) const override {
            auto const* o = dynamic_cast<Memento const*>(&other);
            return o && o->hasText == hasText && o->text == text;
        }
        bool hasText;
        std::string text;
    };

    OPtr<CmMemento> snapshotState() const override {
        return std::make_unique<Memento>(_hasText, _text);
    }
    void restoreState(CmMemento const& memento) override {
        auto const& m = dynamic_cast<Memento const&>(memento);
        if (m.hasText == _hasText && m.text == _text)
            return;
        _hasText = m.hasText;
        _text = m.text;
        changed();
    }

private:
    void changed() {
        if (_owner)
            _owner->_uiChangedDispatcher.call();
    }

    PiDefaultNodeController* _owner;
    bool _hasText = false;
    std::string _text;
};

PiDefaultNodeController::PiDefaultNodeController(PiNode& node)
    : PiNodeController(node), _description(makeShared<Description>(this)) {}

PiDefaultNodeController::~PiDefaultNodeController() {
    _description->detach();
}

std::string PiDefaultNodeController::getXmlDescription() const {
    return _description->hasText() ? _description->getText() : getDefaultXmlDescription();
}

std::string PiDefaultNodeController::getXmlPath() const {
    return _description->hasText() ? std::string() : getDefaultXmlPath();
}

bool PiDefaultNodeController::isDynamicUi() const {
    return _description->hasText();
}

void PiDefaultNodeController::setXmlDescription(std::string const& text) {
    _description->set(text);
}

void PiDefaultNodeController::addUiChangedCb(CbHandler<CbEmptyType>* handler) {
    _uiChangedDispatcher.addHandler(handler);
}

void PiDefaultNodeController::removeUiChangedCb(CbHandler<CbEmptyType>* handler) {
    _uiChangedDispatcher.removeHandler(handler);
}

RCShdPtr<PiOutput>
PiDefaultNodeController::getConnectedOutput(RCShdPtr<PiInput const> const& input) const {
    return input ? input->getConnectedOutput() : nullptr;
}

} // namespace Zr
