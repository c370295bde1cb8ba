// UiCellIndicator: sizing and drawing a state mark in its cell.
#include "uiCellIndicator.h"

#include <algorithm>

namespace Zr {

UiCellIndicator::UiCellIndicator(OPtr<UiBaseIndicator> indicator, bool state)
    : _indicator(std::move(indicator)), _state(state) {
    ZR_ASSERT_TEXT(_indicator != nullptr, "indicator != 0");
    if (auto* icons = dynamic_cast<UiIconIndicator*>(_indicator.get()))
        _indicatorWidth =
            std::max(icons->getEnabledIcon().getWidth(), icons->getDisabledIcon().getWidth());
    else
        _indicatorWidth = _indicator->getRect().width();
}

UiCellIndicator::~UiCellIndicator() = default;

int UiCellIndicator::getDesiredWidth() const {
    return _indicatorWidth + 6;
}

void UiCellIndicator::draw(DrawArgs const& args) {
    if (!args.state)
        return;
    _indicator->setRect(args.rect);
    _indicator->draw(_state, args.enabled ? UiBaseIndicator::Active : UiBaseIndicator::Inactive,
                     args.highlighted ? UiBaseIndicator::MouseInside
                                      : UiBaseIndicator::MouseOutside,
                     *args.state, 0, 0);
}

} // namespace Zr
