// ActAction: one command that menus offer on a selection ("Set Keyframe" on an input, ...).
// Actions live in the ActRegistry under a unique composite name; a menu asks the registry for
// those that accept its selection, shows their display strings and performs the chosen one.
#pragma once

#include "actBasicParam.h"
#include "drCarrier.h"
#include "snSelection.h"

#include <string>
#include <vector>

namespace Zr {

class ActAction {
public:
    ActAction() = default;
    ActAction(ActAction const&) = delete;
    ActAction& operator=(ActAction const&) = delete;
    virtual ~ActAction();

    // The key under which the registry keeps the action, unique among all actions: the package
    // and the class, as in "nodeUi.SetKey".
    virtual std::string getCompositeName() const = 0;
    // The text of the action in a menu.
    virtual std::string getDisplayString() const = 0;
    // Menus list actions sorted by group name and put separators between groups. Default "".
    virtual std::string getGroup() const;
    // A toggle action shows one of two texts by its state; both are empty for a plain action.
    virtual std::string toggleOnString() const;
    virtual std::string toggleOffString() const;
    bool isToggle() const;

    // Whether the selection holds the kinds of items that the action works on. An action
    // registered as static is listed whenever this holds. Default true.
    virtual bool acceptsSelection(SnSelection const& selection, DrCarrier const* carrier) const;
    // Whether the action can be performed now; a dynamic action is listed only when both this
    // and acceptsSelection hold. Default true.
    virtual bool test(SnSelection const& selection, DrCarrier const* carrier);
    virtual void perform(SnSelection& selection, DrCarrier* carrier) = 0;

    // The options of an action that opens a submenu, one per row; none by default. The
    // numerator is the parameter block that the menu handed to the registry, or null.
    virtual std::vector<ActBasicParam> enumOptions(SnSelection const& selection,
                                                   DrCarrier const* carrier,
                                                   ActBasicParam const* numerator) const;
    // Performs one of the options given by enumOptions. Default: perform.
    virtual void performOption(SnSelection& selection, DrCarrier* carrier,
                               ActBasicParam const& option);
};

} // namespace Zr
