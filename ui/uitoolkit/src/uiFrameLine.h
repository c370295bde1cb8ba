// The one-pixel line frames: outlines, single edges, double lines, and the strip frames built
// on them ("LineToggleIn"/"LineToggleOut" and the strip-only "LineLBRTOggleIn"/"...Out").
#pragma once

#include "uiFramePaint.h"

namespace Zr {

// Draws some edges of a one-pixel outline, by default in the border colour (which starts as
// the shared dark).
class UiFrameEdges : public UiFrameInset {
public:
    void draw(GeRectangle<int> const& rect, CoRgbColor const& background,
              CoRgbColor const& dark) override;

protected:
    UiFrameEdges(LiString type, UiFrameInsets const& insets, UiFrameColors const& colors,
                 unsigned edges);
    virtual CoRgbColor const& getLineColor() const { return _borderColor; }

    unsigned const _edges;
};

// The full outline.
class UiFrameLine : public UiFrameEdges {
public:
    explicit UiFrameLine(UiFrameColors const& colors);
};

// The full outline in the shared light colour, whatever the border colour.
class UiFrameSelected : public UiFrameEdges {
public:
    explicit UiFrameSelected(UiFrameColors const& colors);

protected:
    CoRgbColor const& getLineColor() const override { return _colors.light; }
};

class UiFrameLineTop : public UiFrameEdges {
public:
    explicit UiFrameLineTop(UiFrameColors const& colors);
};

class UiFrameLineBottom : public UiFrameEdges {
public:
    explicit UiFrameLineBottom(UiFrameColors const& colors);
};

class UiFrameLineLeftBottomRight : public UiFrameEdges {
public:
    explicit UiFrameLineLeftBottomRight(UiFrameColors const& colors);
};

class UiFrameLineLeftTopRight : public UiFrameEdges {
public:
    explicit UiFrameLineLeftTopRight(UiFrameColors const& colors);
};

// Both sides in the shared dark, whatever the border colour.
class UiFrameLineLeftRight : public UiFrameEdges {
public:
    explicit UiFrameLineLeftRight(UiFrameColors const& colors);

protected:
    CoRgbColor const& getLineColor() const override { return _colors.dark; }
};

// Two lines at the top: dark inside, shadow outside.
class UiFrameDoubleTop : public UiFrameInset {
public:
    explicit UiFrameDoubleTop(UiFrameColors const& colors);
    void draw(GeRectangle<int> const& rect, CoRgbColor const& background,
              CoRgbColor const& dark) override;
};

// Two lines at the bottom: dark inside, shadow outside.
class UiFrameDoubleBottom : public UiFrameInset {
public:
    explicit UiFrameDoubleBottom(UiFrameColors const& colors);
    void draw(GeRectangle<int> const& rect, CoRgbColor const& background,
              CoRgbColor const& dark) override;
};

// The colour strip, then the full outline in the border colour: "LineToggleIn" with the
// toggle-on colour when `on`, "LineToggleOut" with the toggle-off colour otherwise.
class UiFrameLineToggle : public UiFrameInset {
public:
    UiFrameLineToggle(UiFrameColors const& colors, bool on);
    void draw(GeRectangle<int> const& rect, CoRgbColor const& background,
              CoRgbColor const& dark) override;
    CoRgbColor const& getStripColor() const { return _stripColor; }

private:
    int const _strip = UiFramePaint::StripWidth;
    CoRgbColor const _stripColor;
};

// The colour strip alone, for content that draws its own outline.
class UiFrameNoneToggle : public UiFrameInset {
public:
    void draw(GeRectangle<int> const& rect, CoRgbColor const& background,
              CoRgbColor const& dark) override;
    CoRgbColor const& getStripColor() const { return _stripColor; }

protected:
    UiFrameNoneToggle(LiString type, UiFrameColors const& colors, CoRgbColor const& stripColor);

    int const _strip = UiFramePaint::StripWidth;
    CoRgbColor const _stripColor;
};

class UiFrameNoneToggleIn : public UiFrameNoneToggle {
public:
    explicit UiFrameNoneToggleIn(UiFrameColors const& colors);
};

class UiFrameNoneToggleOut : public UiFrameNoneToggle {
public:
    explicit UiFrameNoneToggleOut(UiFrameColors const& colors);
};

} // namespace Zr
