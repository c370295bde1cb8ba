// The context menu of an input widget, built from the action registry.
#include "uiPopupMenuHandler.h"

#include "piSnItem.h"
#include "uiContainer.h"
#include "uiPopupMenuEvents.h"
#include "uiRow.h"
#include "uiWindow.h"
#include "wsSdlWindow.h"

namespace Zr {

template <class T>
UiPopupMenuHandler<T>::UiPopupMenuHandler(UiWidget* widget, RCShdPtr<PiInput> const& inputRW,
                                          RCShdPtr<PiInput const> const& input,
                                          RCShdPtr<PiTimePath const> const& timePath,
                                          ActRegistry& registry)
    : _widget(widget), _inputRW(inputRW), _input(input), _timePath(timePath), _registry(registry) {}

template <class T>
UiPopupMenuHandler<T>::~UiPopupMenuHandler() {
    // The menu stays with the widget's parent, closed (an open menu would keep the widget and so
    // this handler alive); its rows no longer reach this handler.
    if (_link)
        _link->select.set(nullptr);
}

template <class T>
void UiPopupMenuHandler<T>::popupContextMenuCb(RCShdPtr<UiCalculatable> const& calculatable) {
    _calculatable = calculatable;
    UiContainer* parent = _widget->getParent();
    if (!parent || _input.isNull())
        return;
    if (!getMenu()) {
        RCShdPtr<UiPopupMenu> const menu =
            UiPopupMenu::create(parent, LiString(_widget->getName().str() + "ContextMenu"));
        _link = new Link;
        _link->menu = menu.get();
        _link->select.set([this](EvEvent& event) { onRowSelected(event); });
        menu->addDestroyCb(&_link->destroyed);
        menu->addClientData(RCShdPtr<RCObject>(_link));
    }
    UiPopupMenu* const menu = _link->menu;
    menu->removeOptions(0);
    menu->setMinimumWidth(_widget->getRect().width());

    // The input with a copy of the time path's group path, the time path, and the calculatable
    // of a value editor: what the actions convert their target and time path from.
    RCShdPtr<PiPath> path;
    if (!_timePath.isNull() && !_timePath->getPath().isNull())
        path = _timePath->getPath()->copy();
    _selection = SnSelection::create();
    if (!_inputRW.isNull())
        _selection->addItem(PiSnItem<PiInput>::create(_inputRW, path));
    else
        _selection->addItem(PiSnItemConst<PiInput>::create(_input, path));
    _selection->addItem(SnItemConvert<RCShdPtr<PiTimePath const>>::createItem(_timePath));
    if (!calculatable.isNull())
        _selection->addItem(SnItemConvert<RCShdPtr<UiCalculatable>>::createItem(calculatable));
    RCShdPtr<DrCarrier> const carrier = DrCarrier::create(_selection);

    // The registry sorts by group name, hence the letters in front of the groups' names.
    _entries = _registry.getActions(*_selection, carrier, std::string());
    int const count = _entries.getCardinality();
    if (count == 0)
        return;
    std::string previousGroup;
    bool first = true;
    for (ConstIterator<ActRegistry::Entry> it = _entries; !it.atEnd(); ++it) {
        if (it->getDescription() == "Disconnect")
            continue;
        if (count > 2 && !first && it->getGroup() != previousGroup)
            menu->appendSeparator();
        menu->appendText(LiString(it->getDescription()), &_link->select, 0, true);
        previousGroup = it->getGroup();
        first = false;
    }
    if (menu->getNbOptions() == 0)
        return;
    menu->launch(launchPoint());
}

template <class T>
GePoint2<int> UiPopupMenuHandler<T>::launchPoint() const {
    // The context callback carries no position: the window's last pointer position, when it lies
    // on the widget, is where the click was; otherwise the menu opens under the widget.
    GeRectangle<int> const rect = _widget->getScreenRect();
    if (UiWindow const* window = _widget->getWindow())
        if (auto const* os = dynamic_cast<WsSdlWindow const*>(window->getOSWindow().get()))
            if (rect.contains(os->getPointerPosition()))
                return os->getPointerPosition();
    return {rect.getXMin(), rect.getYMin()};
}

template <class T>
void UiPopupMenuHandler<T>::onRowSelected(EvEvent& event) {
    auto* rse = dynamic_cast<UiRowSelectedEvent*>(&event);
    ZR_ASSERT_TEXT(rse != nullptr, "rse != 0");
    if (_selection.isNull() || rse->getRow().isNull())
        return;
    std::string const& text = rse->getRow()->getString().str();
    for (ConstIterator<ActRegistry::Entry> it = _entries; !it.atEnd(); ++it)
        if (it->getDescription() == text) {
            it->performAction(*_selection);
            return;
        }
}

template class UiPopupMenuHandler<bool>;
template class UiPopupMenuHandler<int>;
template class UiPopupMenuHandler<double>;

} // namespace Zr
