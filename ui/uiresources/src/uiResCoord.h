// UiResCoord: a resource holding a rectangle in pixels ("Coord"); widgets take their size from
// the one named "Rectangle".
#pragma once

#include "uiResource.h"

namespace Zr {

// XML: <Coord X="10" Y="5" W="20" H="30"/>. Text: "10 5 20 30". Both give x1 = X, x2 = X + W,
// y1 = Y, y2 = Y + H.
class UiResCoord : public UiResource {
public:
    explicit UiResCoord(LiString const& name = {}, GeRectangle<int> const& coord = {});
    UiResCoord(LiString const& name, char const* text);
    UiResCoord(UiResCoord const&) = default;
    ~UiResCoord() override = default;

    char const* getType() const override { return "Coord"; }
    // A missing Coord element or a width or height of 0 raises ExIncompleteResource.
    void read(XmlElement const& element) override;
    // Four integers; one that cannot be read raises ExIncompleteResource.
    void read(std::istream& is) override;
    void write(XmlWriter& writer, bool flag) const override;
    void write(std::ostream& os, bool flag) const override;
    ZR_UI_RESOURCE_CLONE(UiResCoord)

    GeRectangle<int> const& getCoord() const { return _coord; }
    void setCoord(GeRectangle<int> const& coord) { _coord = coord; }

private:
    GeRectangle<int> _coord;
};

} // namespace Zr
