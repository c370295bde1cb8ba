// ActMenuBase: keeping the entries of a selection and performing one by its text.
#include "actMenuBase.h"

namespace Zr {

ActMenuBase::ActMenuBase(ActRegistry& registry, std::string group)
    : _registry(registry), _group(std::move(group)) {}

ActMenuBase::~ActMenuBase() = default;

void ActMenuBase::setActionsForSelection(RCShdPtr<SnSelection> const& selection,
                                         RCShdPtr<DrCarrier> const& carrier) {
    ZR_ASSERT(!selection.isNull());
    std::vector<ActRegistry::Entry> entries;
    for (ConstIterator<ActRegistry::Entry> it =
             _registry.getActions(*selection, carrier, _group, _numerator ? &*_numerator : nullptr);
         !it.atEnd(); ++it)
        entries.push_back(*it);
    _selection = selection;
    _carrier = carrier;
    _entries = std::move(entries);
    actionsChanged();
}

void ActMenuBase::clearActions() {
    _selection.reset();
    _carrier.reset();
    _entries.clear();
    actionsChanged();
}

bool ActMenuBase::performEntry(std::string const& description) {
    for (ActRegistry::Entry const& entry : _entries) {
        if (entry.getDescription() == description) {
            // The entry list may be rebuilt by the action itself: keep what it needs alive.
            ActRegistry::Entry const chosen = entry;
            RCShdPtr<SnSelection> const selection = _selection;
            chosen.performAction(*selection);
            return true;
        }
    }
    return false;
}

void ActMenuBase::actionsChanged() {}

} // namespace Zr
