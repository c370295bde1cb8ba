// UiFrame: the outline a widget draws around its content, and how much room it takes. Frames
// carry almost no state, so one shared instance per type serves every widget.
#pragma once

#include "zrBase.h"

#include <unordered_map>

namespace Zr {

template <class T>
class LkSingleton;

class UiFrame : public RCObject {
public:
    // `background` is the widget's background, from which highlights derive; `dark` is the
    // colour the cut corners take.
    virtual void draw(GeRectangle<int> const& rect, CoRgbColor const& background,
                      CoRgbColor const& dark) = 0;
    // The part of `rect` left for the content; never negative.
    virtual GeRectangle<int> getCanvas(GeRectangle<int> const& rect) const = 0;
    virtual int getXOffset() const { return _xOffset; }
    virtual int getYOffset() const { return _yOffset; }
    virtual LiString getType() const = 0;
    // A decorator wraps `inner` and returns itself; a plain frame returns null.
    virtual RCShdPtr<UiFrame> decorate(RCShdPtr<UiFrame> const& inner);
    virtual void setBorderColor(CoRgbColor const& c) { _borderColor = c; }
    CoRgbColor const& getBorderColor() const { return _borderColor; }

protected:
    UiFrame() = default;
    explicit UiFrame(CoRgbColor const& border) : _borderColor(border) {}
    ~UiFrame() override = default;

    int _xOffset = 0;
    int _yOffset = 0;
    CoRgbColor _borderColor;
};

// Forwards drawing and measuring to the frame it wraps.
class UiFrameDecorator : public UiFrame {
public:
    void draw(GeRectangle<int> const& rect, CoRgbColor const& background,
              CoRgbColor const& dark) override;
    GeRectangle<int> getCanvas(GeRectangle<int> const& rect) const override;
    int getXOffset() const override;
    int getYOffset() const override;
    RCShdPtr<UiFrame> decorate(RCShdPtr<UiFrame> const& inner) override;
    RCShdPtr<UiFrame> const& getInner() const { return _inner; }

protected:
    RCShdPtr<UiFrame> _inner;
};

// Draws the inner frame, then a one-pixel border with cut corners in the border colour: the
// focus frame.
class UiFrameBorderDecorator : public UiFrameDecorator {
public:
    void draw(GeRectangle<int> const& rect, CoRgbColor const& background,
              CoRgbColor const& dark) override;
    GeRectangle<int> getCanvas(GeRectangle<int> const& rect) const override;
    LiString getType() const override { return "BorderDecorator"; }

protected:
    virtual void drawBorder(GeRectangle<int> const& rect) const;
};

// Draws nothing and takes no room.
class UiFrameNone : public UiFrame {
public:
    void draw(GeRectangle<int> const&, CoRgbColor const&, CoRgbColor const&) override {}
    GeRectangle<int> getCanvas(GeRectangle<int> const& rect) const override { return rect; }
    LiString getType() const override { return "None"; }
};

// The one shared instance of each frame type, by name.
class UiFrameRegistry {
public:
    static UiFrameRegistry& getInstance();
    // Registers every standard frame, "None" first, with the shared colours as the colour
    // registry holds them now; the toolkit's start-up calls it.
    static void registerDefaultFrames();
    // Enters the instance under its getType().
    void registerType(RCShdPtr<UiFrame> const& frame);
    bool isRegisteredType(LiString const& name) const;
    // The shared instance; an unknown name throws UiResourceEx::UiInvalidFrameEx.
    RCShdPtr<UiFrame> create(LiString const& name) const;
    void clear();

private:
    friend class LkSingleton<UiFrameRegistry>;
    UiFrameRegistry();
    ~UiFrameRegistry();
    std::unordered_map<LiString, RCShdPtr<UiFrame>> _frames;
};

} // namespace Zr
