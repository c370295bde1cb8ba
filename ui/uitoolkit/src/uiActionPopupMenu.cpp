// UiActionPopupMenu: rows from the registry's entries, and performing the chosen one.
#include "uiActionPopupMenu.h"

#include "uiRowCascading.h"

namespace Zr {

RCShdPtr<UiActionPopupMenu> UiActionPopupMenu::create(UiContainer* parent, LiString const& name,
                                                      UiResTable const* table,
                                                      ActRegistry& registry) {
    RCShdPtr<UiActionPopupMenu> menu(new UiActionPopupMenu(parent, name, registry));
    menu->resInit(table);
    menu->postInit();
    return menu;
}

UiActionPopupMenu::UiActionPopupMenu(UiContainer* parent, LiString const& name,
                                     ActRegistry& registry)
    : UiPopupMenu(parent, name), ActMenuBase(registry),
      _populate(this, &UiActionPopupMenu::populatePopup),
      _select(this, &UiActionPopupMenu::handleSelect) {
    addAboutToPopCb(&_populate);
}

UiActionPopupMenu::~UiActionPopupMenu() {
    removeAboutToPopCb(&_populate);
}

void UiActionPopupMenu::populatePopup(EvEvent&) {
    // The actions that apply may have changed since the selection was set.
    if (getSelection())
        setActionsForSelection(getSelection(), getCarrier());
    fillPopup(_point);
}

void UiActionPopupMenu::fillPopup(GePoint2<int> const& p) {
    _point = p;
    if (getCarrier())
        getCarrier()->setLocation({static_cast<float>(p.x), static_cast<float>(p.y)});
    removeOptions(0);
    _optionHandlers.clear();
    std::vector<ActRegistry::Entry> const& entries = getEntries();
    for (int i = 0; i < static_cast<int>(entries.size()); ++i) {
        ActRegistry::Entry const& entry = entries[static_cast<std::size_t>(i)];
        if (i > 0 && entry.getGroup() != entries[static_cast<std::size_t>(i - 1)].getGroup())
            appendSeparator();
        std::vector<ActBasicParam> const options =
            getSelection() ? entry.enumOptions(*getSelection()) : std::vector<ActBasicParam>{};
        if (options.empty()) {
            appendText(LiString(entry.getDescription()), &_select, i);
            continue;
        }
        RCShdPtr<UiRowCascading> row = appendCascade(LiString(entry.getDescription()), i);
        if (!row)
            continue;
        UiPopupMenu& sub = *row->getPopup();
        sub.removeOptions(0);
        for (ActBasicParam const& option : options) {
            auto handler = std::make_unique<CbFunction<EvEvent>>([this, i, option](EvEvent&) {
                if (getSelection() && i < getNbEntries())
                    getEntries()[static_cast<std::size_t>(i)].performOption(*getSelection(),
                                                                            option);
            });
            sub.appendText(LiString(option.getName()), handler.get(), option.getValue());
            _optionHandlers.push_back(std::move(handler));
        }
    }
}

void UiActionPopupMenu::handleSelect(EvEvent& event) {
    auto* selected = dynamic_cast<UiRowSelectedEvent*>(&event);
    if (!selected || !getSelection())
        return;
    int const index = selected->getId();
    if (index < 0 || index >= getNbEntries())
        return;
    getEntries()[static_cast<std::size_t>(index)].performAction(*getSelection());
}

} // namespace Zr
