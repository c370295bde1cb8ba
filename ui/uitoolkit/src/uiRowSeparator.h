// UiRowSeparator: an unselectable row one grid unit high that draws a light line over a dark
// one across the menu, in the colours it keeps itself: "SeparatorLightColor" (which the menu's
// "SeparatorColor" also sets) and "SeparatorShadowColor".
#pragma once

#include "uiRow.h"

namespace Zr {

class UiRowSeparator : public UiRow {
public:
    UiRowSeparator();
    ~UiRowSeparator() override;

    void draw(UiCell::DrawArgs const& args) override;
    // 7 pixels, whatever the cells.
    int getHeight() const override;
    void setColor(char const* name, CoRgbColorTyped<float> const& color) override;
    CoRgbColorTyped<float> getColor(char const* name) const override;

private:
    CoRgbColor _light;
    CoRgbColor _shadow;
};

} // namespace Zr
