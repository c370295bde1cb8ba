// ActMenuBase: the base of menus that list the registry's actions for a selection. It keeps the
// selection, the carrier and the entries; a subclass turns the entries into rows when told that
// they changed, and performs the row the user picks by its text.
#pragma once

#include "actRegistry.h"

#include <optional>
#include <string>
#include <vector>

namespace Zr {

class ActMenuBase {
public:
    // Lists the actions of `registry`, of one group when `group` isn't empty.
    explicit ActMenuBase(ActRegistry& registry = ActRegistry::getInstance(),
                         std::string group = {});
    ActMenuBase(ActMenuBase const&) = delete;
    ActMenuBase& operator=(ActMenuBase const&) = delete;
    virtual ~ActMenuBase();

    // Keeps the selection and the carrier (which may be null), asks the registry for the
    // entries and calls actionsChanged. A null selection fails an assertion.
    void setActionsForSelection(RCShdPtr<SnSelection> const& selection,
                                RCShdPtr<DrCarrier> const& carrier);
    // Drops the selection, the carrier and the entries, and calls actionsChanged.
    void clearActions();

    std::vector<ActRegistry::Entry> const& getEntries() const { return _entries; }
    int getNbEntries() const { return static_cast<int>(_entries.size()); }
    RCShdPtr<SnSelection> const& getSelection() const { return _selection; }
    RCShdPtr<DrCarrier> const& getCarrier() const { return _carrier; }

    // Performs on the kept selection the first entry whose description is `description`;
    // false when none has it.
    bool performEntry(std::string const& description);

    // The parameter block handed to the registry on the next listing.
    void setNumerator(std::optional<ActBasicParam> numerator) { _numerator = std::move(numerator); }
    std::string const& getGroupFilter() const { return _group; }

protected:
    // The entries changed: a subclass rebuilds its rows here. Default: nothing.
    virtual void actionsChanged();

private:
    ActRegistry& _registry;
    std::string _group;
    std::optional<ActBasicParam> _numerator;
    RCShdPtr<SnSelection> _selection;
    RCShdPtr<DrCarrier> _carrier;
    std::vector<ActRegistry::Entry> _entries;
};

} // namespace Zr
