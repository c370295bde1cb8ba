// The bevelled frames: "In", "PushIn", "PushOut", the toggle and radio frames (a colour strip
// beside a bevel) and the scroll frames (a bevel with a grip at the centre).
#pragma once

#include "uiFramePaint.h"

namespace Zr {

// A sunken field: dark outline and inner bottom line, shadow along the bottom edge.
class UiFrameIn : public UiFrameInset {
public:
    explicit UiFrameIn(UiFrameColors const& colors);
    void draw(GeRectangle<int> const& rect, CoRgbColor const& background,
              CoRgbColor const& dark) override;
};

// A raised button: the highlight inside the top edge, the shadow along the bottom.
class UiFramePushOut : public UiFrameInset {
public:
    explicit UiFramePushOut(UiFrameColors const& colors);
    void draw(GeRectangle<int> const& rect, CoRgbColor const& background,
              CoRgbColor const& dark) override;
};

// A pressed button: the raised bevel with highlight and shadow exchanged.
class UiFramePushIn : public UiFrameInset {
public:
    explicit UiFramePushIn(UiFrameColors const& colors);
    void draw(GeRectangle<int> const& rect, CoRgbColor const& background,
              CoRgbColor const& dark) override;
};

// A two-state button: the colour strip at the right, then a raised or sunken bevel over the
// whole rectangle. Pressed content shifts up by one pixel.
class UiFrameStripBevel : public UiFrameInset {
public:
    void draw(GeRectangle<int> const& rect, CoRgbColor const& background,
              CoRgbColor const& dark) override;
    int getStrip() const { return _strip; }
    CoRgbColor const& getStripColor() const { return _stripColor; }

protected:
    UiFrameStripBevel(LiString type, UiFrameColors const& colors, CoRgbColor const& stripColor,
                      bool pushedIn);

    int const _strip = UiFramePaint::StripWidth;
    CoRgbColor const _stripColor;
    bool const _pushedIn;
};

class UiFrameToggleIn : public UiFrameStripBevel {
public:
    explicit UiFrameToggleIn(UiFrameColors const& colors);
};

class UiFrameToggleOut : public UiFrameStripBevel {
public:
    explicit UiFrameToggleOut(UiFrameColors const& colors);
};

class UiFrameRadioIn : public UiFrameStripBevel {
public:
    explicit UiFrameRadioIn(UiFrameColors const& colors);
};

class UiFrameRadioOut : public UiFrameStripBevel {
public:
    explicit UiFrameRadioOut(UiFrameColors const& colors);
};

// A scroll bar's slider: a bevel and a grip of four ridges across its middle. The "I" forms
// are sunken, with the highlight below.
class UiFrameScroll : public UiFrameInset {
public:
    void draw(GeRectangle<int> const& rect, CoRgbColor const& background,
              CoRgbColor const& dark) override;

protected:
    UiFrameScroll(LiString type, UiFrameInsets const& insets, UiFrameColors const& colors,
                  bool vertical, bool inverted);

    bool const _vertical;
    bool const _inverted;
};

class UiFrameScrollHor : public UiFrameScroll {
public:
    explicit UiFrameScrollHor(UiFrameColors const& colors);
};

class UiFrameScrollHorI : public UiFrameScroll {
public:
    explicit UiFrameScrollHorI(UiFrameColors const& colors);
};

class UiFrameScrollVer : public UiFrameScroll {
public:
    explicit UiFrameScrollVer(UiFrameColors const& colors);
};

class UiFrameScrollVerI : public UiFrameScroll {
public:
    explicit UiFrameScrollVerI(UiFrameColors const& colors);
};

} // namespace Zr
