// ActRegistry: the application's actions, kept by composite name. getActions gives the entries
// of the actions that accept a selection, sorted by group name and, inside a group, in order of
// registration: menus show them in that order.
#pragma once

#include "actAction.h"
#include "iterator.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Zr {

class ActRegistry {
public:
    // Static: listed whenever the action accepts the selection's items. Dynamic: also asks the
    // action's test each time the actions are listed.
    enum DynamicState { Static, Dynamic };

    // One action offered for one selection. Entries share the action with the registry, so an
    // entry stays usable after its action was unregistered.
    class Entry {
    public:
        // The display string when the entry was made: what the menu shows.
        std::string const& getDescription() const { return _description; }
        std::string const& getGroup() const { return _group; }
        // The action's display string now.
        std::string getDisplayString() const { return _action->getDisplayString(); }
        DynamicState getDynamicState() const { return _state; }
        RCShdPtr<DrCarrier> const& getCarrier() const { return _carrier; }
        ActAction& getAction() const { return *_action; }

        // Performs the action on the selection, with the carrier the entry was made with.
        void performAction(SnSelection& selection) const;
        // The action's options for the selection, given the numerator of the listing.
        std::vector<ActBasicParam> enumOptions(SnSelection const& selection) const;
        void performOption(SnSelection& selection, ActBasicParam const& option) const;

    private:
        friend class ActRegistry;
        std::shared_ptr<ActAction> _action;
        DynamicState _state = Static;
        std::string _description;
        std::string _group;
        RCShdPtr<DrCarrier> _carrier;
        std::optional<ActBasicParam> _numerator;
    };

    static ActRegistry& getInstance();

    ActRegistry() = default;
    ActRegistry(ActRegistry const&) = delete;
    ActRegistry& operator=(ActRegistry const&) = delete;

    // Takes the action. A null action or a composite name already registered fails an
    // assertion, and the registry keeps what it had.
    void registerAction(OPtr<ActAction> action, DynamicState state);
    // False when no action has the name.
    bool unregisterAction(std::string const& compositeName);
    bool isRegistered(std::string const& compositeName) const;
    // Null when no action has the name.
    ActAction* findAction(std::string const& compositeName) const;
    int getNbActions() const { return static_cast<int>(_actions.size()); }

    // The entries of the actions that accept the selection (and the carrier), of the group
    // when `group` isn't empty, sorted by group name and stable inside a group. The numerator
    // is kept by the entries and handed to the actions' enumOptions.
    ConstIterator<Entry> getActions(SnSelection const& selection,
                                    RCShdPtr<DrCarrier> const& carrier, std::string const& group,
                                    ActBasicParam const* numerator = nullptr) const;

private:
    struct Registered {
        std::string name;
        std::shared_ptr<ActAction> action;
        DynamicState state;
    };
    std::vector<Registered> _actions;
};

} // namespace Zr
