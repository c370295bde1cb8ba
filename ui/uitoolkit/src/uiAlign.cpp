// UiAlign: the placement rules.
#include "uiAlign.h"

namespace Zr {

void UiAlign::adjustPosition() {
    switch (_alignmentH) {
    case 1:
        _x = (_rect.x2 - _rect.x1 - _width) / 2 + _rect.x1;
        break;
    case 2:
        _x = _rect.x2 - _width - _marginH;
        break;
    default:
        _x = _rect.x1 + _marginH;
        break;
    }
    switch (_alignmentV) {
    case 3:
        _y = _rect.y2 - _height - _marginV;
        break;
    case 1:
        _y = _rect.y1 + (_rect.y2 - _rect.y1 - _height) / 2;
        break;
    default:
        _y = _rect.y1 + _marginV;
        break;
    }
}

void UiAlign::setAlignment(int horizontal, int vertical) {
    _alignmentH = horizontal;
    _alignmentV = vertical;
    adjustPosition();
}

void UiAlign::setAlignmentH(int horizontal) {
    _alignmentH = horizontal;
    adjustPosition();
}

void UiAlign::setAlignmentV(int vertical) {
    _alignmentV = vertical;
    adjustPosition();
}

void UiAlign::setMargins(int horizontal, int vertical) {
    _marginH = horizontal;
    _marginV = vertical;
    adjustPosition();
}

void UiAlign::setRect(GeRectangle<int> const& rect) {
    _rect = rect;
    adjustPosition();
}

} // namespace Zr
