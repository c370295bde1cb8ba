// UiPopupMenuHandler<T>: the context menu of an input widget. A right click on a bound value
// editor or two-state widget asks the application's action registry for the actions that apply
// to the input, lists them in a popup menu, grouped, and performs the chosen one on the input.
#pragma once

#include "actRegistry.h"
#include "piInput.h"
#include "piTimePath.h"
#include "uiCalculatable.h"
#include "uiPopupMenu.h"

#include "cbDispatcher.h"

namespace Zr {

template <class T>
class UiPopupMenuHandler : public RCObject {
public:
    // The widget owns the binding that owns this handler. With a null `inputRW` the menu lists
    // only the actions that read the input.
    UiPopupMenuHandler(UiWidget* widget, RCShdPtr<PiInput> const& inputRW,
                       RCShdPtr<PiInput const> const& input,
                       RCShdPtr<PiTimePath const> const& timePath,
                       ActRegistry& registry = ActRegistry::getInstance());
    ~UiPopupMenuHandler() override;

    // Builds the menu from the registry and opens it at the pointer; nothing opens when no
    // action applies.
    void popupContextMenuCb(RCShdPtr<UiCalculatable> const& calculatable);

    // Null until the menu first opened, and after its parent dropped it.
    UiPopupMenu* getMenu() const { return _link ? _link->menu : nullptr; }

private:
    // What the menu keeps of this handler, as its client data. The menu belongs to the widget's
    // parent; while open it keeps the widget that launched it, which owns this handler, so the
    // handler keeps only a plain pointer to it, cleared when the menu goes, and the menu reaches
    // the handler through `select`, emptied when the handler goes.
    struct Link : RCObject {
        UiPopupMenu* menu = nullptr;
        CbFunction<EvEvent> select;
        CbFunction<EvEvent> destroyed{[this](EvEvent&) { menu = nullptr; }};
    };

    void onRowSelected(EvEvent& event);
    GePoint2<int> launchPoint() const;

    UiWidget* _widget;
    RCShdPtr<PiInput> _inputRW;
    RCShdPtr<PiInput const> _input;
    RCShdPtr<PiTimePath const> _timePath;
    ActRegistry& _registry;
    RCShdPtr<Link> _link;
    RCShdPtr<UiCalculatable> _calculatable;
    RCShdPtr<SnSelection> _selection;
    ConstIterator<ActRegistry::Entry> _entries;
};

extern template class UiPopupMenuHandler<bool>;
extern template class UiPopupMenuHandler<int>;
extern template class UiPopupMenuHandler<double>;

} // namespace Zr
