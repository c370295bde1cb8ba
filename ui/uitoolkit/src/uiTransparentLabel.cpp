// UiTransparentLabel: the label's defaults with no opacity.
#include "uiTransparentLabel.h"

#include "uiResInt.h"
#include "uiResSet.h"

namespace Zr {

RCShdPtr<UiTransparentLabel> UiTransparentLabel::create(UiContainer* parent, LiString const& name,
                                                        UiResTable const* table) {
    RCShdPtr<UiTransparentLabel> widget(new UiTransparentLabel(parent, name));
    widget->resInit(table);
    widget->postInit();
    return widget;
}

UiTransparentLabel::~UiTransparentLabel() = default;

void UiTransparentLabel::setDefaultResources(UiResSet& set) {
    UiLabel::setDefaultResources(set);
    set.set(RCShdPtr<UiResource>(new UiResInt("Opacity", "0")));
}

} // namespace Zr
