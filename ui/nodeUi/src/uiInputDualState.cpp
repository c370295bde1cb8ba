// The "InputToggleButton", "InputPushedToggle" and "InputPushedToggleIcon" widget types.
#include "uiInputDualState.h"

#include "uiInputElement.h"

#include "uiPushedToggleIcon.h"
#include "uiToggleButton.h"
#include "uiWidgetFactory.h"

namespace Zr {

namespace {

template <class W>
class InputDualStateFactory : public UiWidgetFactory {
protected:
    RCShdPtr<UiWidget> create(RCShdPtr<UiContainer> const& parent, char const* name,
                              UiResTable const* table, XmlElement const* element) override {
        RCShdPtr<W> widget = W::create(parent.get(), LiString(name), table);
        UiInputElement const input = UiInputElement::read(element, widget->getName());
        input.bind(*widget, [&widget](auto const& rw, auto const& ro, auto const& path,
                                      bool undoable) {
            return RCShdPtr<RCObject>(new InputDualStateData(widget.get(), rw, ro, path, undoable));
        });
        input.addLabel(*widget, table, element);
        return widget;
    }
};

constexpr char const* IconName = "InputPushedToggleIcon";
constexpr char const* PushedName = "InputPushedToggle";
constexpr char const* ToggleName = "InputToggleButton";

} // namespace

void UiInputDualState::initialize() {
    InputUnderlineColors::fetch();
    UiInputElement::keepMessages();
    UiWidgetFactory::registerFactory(
        LiString(IconName), OPtr<UiWidgetFactory>(new InputDualStateFactory<UiPushedToggleIcon>));
    UiWidgetFactory::registerFactory(
        LiString(PushedName), OPtr<UiWidgetFactory>(new InputDualStateFactory<UiPushedToggle>));
    UiWidgetFactory::registerFactory(
        LiString(ToggleName), OPtr<UiWidgetFactory>(new InputDualStateFactory<UiToggleButton>));
}

void UiInputDualState::finalize() {
    UiWidgetFactory::unregisterFactory(LiString(ToggleName));
    UiWidgetFactory::unregisterFactory(LiString(PushedName));
    UiWidgetFactory::unregisterFactory(LiString(IconName));
}

} // namespace Zr
