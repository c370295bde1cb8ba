// ActRegistry: registration by composite name and the listing of the actions for a selection.
#include "actRegistry.h"

#include <algorithm>

namespace Zr {

void ActRegistry::Entry::performAction(SnSelection& selection) const {
    _action->perform(selection, _carrier.get());
}

std::vector<ActBasicParam> ActRegistry::Entry::enumOptions(SnSelection const& selection) const {
    return _action->enumOptions(selection, _carrier.get(), _numerator ? &*_numerator : nullptr);
}

void ActRegistry::Entry::performOption(SnSelection& selection, ActBasicParam const& option) const {
    _action->performOption(selection, _carrier.get(), option);
}

ActRegistry& ActRegistry::getInstance() {
    static ActRegistry instance;
    return instance;
}

void ActRegistry::registerAction(OPtr<ActAction> action, DynamicState state) {
    ZR_ASSERT(action != nullptr);
    std::string name = action->getCompositeName();
    ZR_ASSERT(!isRegistered(name));
    _actions.push_back({std::move(name), std::shared_ptr<ActAction>(std::move(action)), state});
}

bool ActRegistry::unregisterAction(std::string const& compositeName) {
    auto const it = std::find_if(_actions.begin(), _actions.end(),
                                 [&](Registered const& r) { return r.name == compositeName; });
    if (it == _actions.end())
        return false;
    _actions.erase(it);
    return true;
}

bool ActRegistry::isRegistered(std::string const& compositeName) const {
    return findAction(compositeName) != nullptr;
}

ActAction* ActRegistry::findAction(std::string const& compositeName) const {
    for (Registered const& r : _actions)
        if (r.name == compositeName)
            return r.action.get();
    return nullptr;
}

ConstIterator<ActRegistry::Entry> ActRegistry::getActions(SnSelection const& selection,
                                                          RCShdPtr<DrCarrier> const& carrier,
                                                          std::string const& group,
                                                          ActBasicParam const* numerator) const {
    std::vector<Entry> entries;
    for (Registered const& r : _actions) {
        ActAction& action = *r.action;
        std::string actionGroup = action.getGroup();
        if (!group.empty() && actionGroup != group)
            continue;
        if (!action.acceptsSelection(selection, carrier.get()))
            continue;
        if (r.state == Dynamic && !action.test(selection, carrier.get()))
            continue;
        Entry entry;
        entry._action = r.action;
        entry._state = r.state;
        entry._description = action.getDisplayString();
        entry._group = std::move(actionGroup);
        entry._carrier = carrier;
        if (numerator)
            entry._numerator = *numerator;
        entries.push_back(std::move(entry));
    }
    std::stable_sort(entries.begin(), entries.end(),
                     [](Entry const& a, Entry const& b) { return a._group < b._group; });
    return makeConstIterator(std::move(entries));
}

} // namespace Zr
