// UiActionPopupMenu: a popup menu that lists the actions of the application's action registry
// that apply to a selection. It is filled afresh each time it opens: one row per action, a
// separator between groups, a submenu for an action that offers options. Choosing a row performs
// its action on the selection.
#pragma once

#include "uiPopupMenu.h"

#include "actMenuBase.h"

#include <memory>
#include <vector>

namespace Zr {

class UiActionPopupMenu : public UiPopupMenu, public ActMenuBase {
public:
    static RCShdPtr<UiActionPopupMenu> create(UiContainer* parent, LiString const& name,
                                              UiResTable const* table = nullptr,
                                              ActRegistry& registry = ActRegistry::getInstance());

    // Rebuilds the rows from the entries the registry gave for the kept selection; the carrier,
    // if any, is told the point (window coordinates) the menu opens at.
    virtual void fillPopup(GePoint2<int> const& p);
    // The AboutToPop handler: asks the registry again for the kept selection and fills.
    virtual void populatePopup(EvEvent& event);
    // The handler of the action rows: performs the row's action on the selection.
    virtual void handleSelect(EvEvent& event);

protected:
    UiActionPopupMenu(UiContainer* parent, LiString const& name, ActRegistry& registry);
    ~UiActionPopupMenu() override;

private:
    CbMethod<UiActionPopupMenu, EvEvent> _populate;
    CbMethod<UiActionPopupMenu, EvEvent> _select;
    // The handlers of option rows, one per row, rebuilt with the rows.
    std::vector<std::unique_ptr<CbFunction<EvEvent>>> _optionHandlers;
    GePoint2<int> _point;
};

} // namespace Zr
