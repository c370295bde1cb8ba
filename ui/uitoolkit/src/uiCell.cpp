// UiCell: the empty filler cell and the row height all cells start from.
#include "uiCell.h"

#include "uiConstraint.h"

#include <cmath>

namespace Zr {

UiCell::~UiCell() = default;

void UiCell::draw(DrawArgs const&) {}

void UiCell::setFont(LiString const&) {}

int UiCell::getDesiredHeight() const {
    return defaultRowHeight();
}

int UiCell::getDesiredWidth() const {
    return 0;
}

int UiCell::defaultRowHeight() {
    return static_cast<int>(
        std::lround(UiConstraint::getUIGrid().y * 3.f * UiConstraint::getUIGridScale().y));
}

} // namespace Zr
