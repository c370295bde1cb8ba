// The gallery's "Values" panel: three value editors built from the shipped definition
// resTables/galleryValues.xml, with captions, a line that shows the last committed value, and
// the toolkit's simple calculator installed for Shift-click.
#pragma once

#include "zrUi.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Zr {

class GalleryValues {
public:
    // Builds the panel into `root` as a strip across it, 7 pixels above its child named
    // `below`, which must exist. A definition that cannot be read is reported on stderr and
    // leaves no panel.
    GalleryValues(RCShdPtr<UiContainer> const& root, char const* below);
    ~GalleryValues();
    GalleryValues(GalleryValues const&) = delete;
    GalleryValues& operator=(GalleryValues const&) = delete;

    // The panel, for the siblings placed above it; null without one.
    RCShdPtr<UiWidget> const& panel() const { return _panel; }

private:
    void paint(UiWidget& widget, std::function<void(GeRectangle<int> const&)> draw);
    void connect(RCShdPtr<UiContainer> const& root);

    RCShdPtr<UiWidget> _panel;
    RCShdPtr<UiValueEditor> _editors[3];
    RCShdPtr<UiWidget> _lastValue;
    std::string _last = "Drag sideways, click to type, Shift-click: calculator, Ctrl-click: reset";
    // The user-draw and activate callbacks, removed from their widgets before they go.
    std::vector<std::pair<RCShdPtr<UiWidget>, std::unique_ptr<CbFunction<EvEvent>>>> _painters;
    std::vector<std::unique_ptr<CbFunction<EvEvent>>> _onActivate;
};

} // namespace Zr
