// UiLabeledIcon: a label that shows an icon, optionally scaled up to fill its canvas.
#pragma once

#include "uiIcon.h"
#include "uiLabel.h"

namespace Zr {

class UiLabeledIcon : public UiLabel, public UiIconProtocol {
public:
    static RCShdPtr<UiLabeledIcon> create(UiContainer* parent, LiString const& name,
                                          UiResTable const* table = nullptr);

    // Shows the image of that file (a relative path is taken in the icon directory); an
    // unreadable file raises WsImageEx::ExUnreadable and leaves the label without an image.
    void readImage(char const* path);
    UiIcon& getIcon() { return _icon; }
    UiIcon const& getIcon() const { return _icon; }
    bool isZoomToFit() const { return _zoomToFit; }
    void setZoomToFit(bool zoom);
    // With zoom to fit, the factor that makes the image cover the canvas: the larger of the
    // two ratios. The image is drawn scaled only when this is above 1; 0 without an image.
    float getFitScale() const;

    void iconChanged() override;
    void adjustCoords() override;

protected:
    UiLabeledIcon(UiContainer* parent, LiString const& name);
    ~UiLabeledIcon() override;

    void setDefaultResources(UiResSet& set) override;
    // "ZoomToFit" (one int) and the icon's resources; every other resource goes to the label.
    void setResource(RCShdPtr<UiResource> const& resource) override;

private:
    void drawIcon(EvEvent& event);

    UiIcon _icon;
    bool _zoomToFit = false;
    CbMethod<UiLabeledIcon, EvEvent> _drawIcon;
};

} // namespace Zr
