// UiRowSeparator: the two lines between groups of rows.
#include "uiRowSeparator.h"

#include "uiColorRegistry.h"

#include "smContext.h"
#include "smGl.h"

#include <cstring>

namespace Zr {

UiRowSeparator::UiRowSeparator() : UiRow(LiString(""), -1, false) {
    UiColorRegistry const& colors = UiColorRegistry::getInstance();
    _light = colors.getColor("Blue3");
    _shadow = colors.getColor("Black");
}

UiRowSeparator::~UiRowSeparator() = default;

int UiRowSeparator::getHeight() const {
    return 7;
}

void UiRowSeparator::setColor(char const* name, CoRgbColorTyped<float> const& color) {
    if (!std::strcmp(name, "SeparatorLightColor") || !std::strcmp(name, "SeparatorColor"))
        _light = color;
    else if (!std::strcmp(name, "SeparatorShadowColor"))
        _shadow = color;
    else
        UiRow::setColor(name, color);
}

CoRgbColorTyped<float> UiRowSeparator::getColor(char const* name) const {
    if (!std::strcmp(name, "SeparatorLightColor") || !std::strcmp(name, "SeparatorColor"))
        return _light;
    if (!std::strcmp(name, "SeparatorShadowColor"))
        return _shadow;
    return UiRow::getColor(name);
}

void UiRowSeparator::draw(UiCell::DrawArgs const& args) {
    if (args.state)
        if (SmContext* context = SmContext::getCurrentContext())
            context->applyStateObject(*args.state);
    // Two one-pixel lines at the middle, 4 pixels in from the sides: the shadow below the light
    // one, so the groove reads as cut into the menu.
    GeRectangle<int> const& r = args.rect;
    int const y = r.y1 + r.height() / 2;
    SmGl::color3fv(_shadow.data());
    SmGl::recti(r.x1 + 4, y - 1, r.x2 - 4, y);
    SmGl::color3fv(_light.data());
    SmGl::recti(r.x1 + 4, y, r.x2 - 4, y + 1);
}

} // namespace Zr
