// The gallery's "Ranges" panel: two sliders with live value labels and a progress bar, built
// from the shipped definition resTables/galleryRanges.xml.
#pragma once

#include "zrUi.h"

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace Zr {

class GalleryRanges {
public:
    // Builds the panel into `root` as a strip across it, 7 pixels above its child named
    // `below`, which must exist. A definition that cannot be read is reported on stderr and
    // leaves no panel.
    GalleryRanges(RCShdPtr<UiContainer> const& root, char const* below);
    ~GalleryRanges();
    GalleryRanges(GalleryRanges const&) = delete;
    GalleryRanges& operator=(GalleryRanges const&) = delete;

    // The panel, for the siblings placed above it; null without one.
    RCShdPtr<UiWidget> const& panel() const { return _panel; }

private:
    void paint(UiWidget& widget, std::function<void(GeRectangle<int> const&)> draw);
    void connect();

    RCShdPtr<UiWidget> _panel;
    RCShdPtr<UiTrackSlider> _level, _temperature;
    RCShdPtr<UiProgressBar> _progress;
    RCShdPtr<UiWidget> _levelValue, _temperatureValue;
    // The user-draw and value callbacks, removed from their widgets before they go.
    std::vector<std::pair<RCShdPtr<UiWidget>, std::unique_ptr<CbFunction<EvEvent>>>> _painters;
    std::unique_ptr<CbFunction<EvEvent>> _onLevel, _onTemperature;
};

} // namespace Zr
