// UiCellProgressBar: the trough and the bar of a progress cell.
#include "uiCellProgressBar.h"

#include "uiColorRegistry.h"

#include "smContext.h"
#include "smGl.h"

#include <algorithm>
#include <cmath>

namespace Zr {

UiCellProgressBar::~UiCellProgressBar() = default;

void UiCellProgressBar::setValue(float value) {
    _value = std::isnan(value) ? 0.f : std::clamp(value, 0.f, 1.f);
}

void UiCellProgressBar::draw(DrawArgs const& args) {
    if (args.state)
        if (SmContext* context = SmContext::getCurrentContext())
            context->applyStateObject(*args.state);
    UiColorRegistry const& colors = UiColorRegistry::getInstance();
    // A trough 9 pixels high, centred, 5 in from the sides like the text of other cells.
    GeRectangle<int> const& r = args.rect;
    int const y1 = r.y1 + (r.height() - 9) / 2;
    GeRectangle<int> const trough{r.x1 + 5, r.x2 - 5, y1, y1 + 9};
    if (trough.width() <= 2)
        return;
    SmGl::color3fv(colors.getColor("Black").data());
    SmGl::recti(trough.x1, trough.y1, trough.x2, trough.y2);
    float const value = _status == Done ? 1.f : _value;
    int const fill = static_cast<int>(std::lround(value * static_cast<float>(trough.width() - 2)));
    char const* const bar = _status == Done ? "Green1" : _status == Failed ? "Red" : "Cyan1";
    SmGl::color3fv(colors.getColor(bar).data());
    if (fill > 0)
        SmGl::recti(trough.x1 + 1, trough.y1 + 1, trough.x1 + 1 + fill, trough.y2 - 1);
}

} // namespace Zr
