// UiResColor: a resource holding one colour ("Color"), given by a registry name or by value.
#pragma once

#include "uiResource.h"

namespace Zr {

// XML: <Color>Selection</Color> takes the registry's colour at reading time; <Color R="1" G="0"
// B="0"/> gives it by value from 0 to 1, or 0 to 255 with Format="Byte". Written always by value.
// Text: three floats from 0 to 1, or a registry name (taken at reading time, as in XML).
class UiResColor : public UiResource {
public:
    UiResColor(LiString const& name, CoRgbColorTyped<float> const& color);
    explicit UiResColor(LiString const& name = {}, char const* text = nullptr);
    UiResColor(UiResColor const&) = default;
    ~UiResColor() override = default;

    char const* getType() const override { return "Color"; }
    // A name the registry does not know raises UiColorEx::ExUnknownType.
    void read(XmlElement const& element) override;
    void read(std::istream& is) override;
    void write(XmlWriter& writer, bool flag) const override;
    void write(std::ostream& os, bool flag) const override;
    ZR_UI_RESOURCE_CLONE(UiResColor)

    CoRgbColorTyped<float> const& getColor() const { return _color; }
    CoRgbColorTyped<float>& getColor() { return _color; }
    void setColor(CoRgbColorTyped<float> const& color) { _color = color; }

private:
    CoRgbColorTyped<float> _color;
};

} // namespace Zr
