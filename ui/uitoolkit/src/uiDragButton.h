// UiDragButton: a handle with a label that the user drags about inside its parent; each move
// that changes its place is reported to the drag callbacks.
#pragma once

#include "uiString.h"
#include "uiWidget.h"

namespace Zr {

class UiDragButtonImp;

class UiDragButton : public UiWidget {
public:
    static RCShdPtr<UiDragButton> create(UiContainer* parent, LiString const& name,
                                         UiResTable const* table = nullptr);

    UiString& getLabel() { return _label; }
    UiString const& getLabel() const { return _label; }
    // Called with the pointer move after each change of place.
    void addDragCb(CbHandler<EvEvent>* h);
    void removeDragCb(CbHandler<EvEvent>* h);

    void adjustCoords() override;

protected:
    UiDragButton(UiContainer* parent, LiString const& name);
    ~UiDragButton() override;

    void setDefaultResources(UiResSet& set) override;
    // The label's resources first, then the widget's.
    void setResource(RCShdPtr<UiResource> const& resource) override;
    void postInit() override;

private:
    friend class UiDragButtonImp;
    void onArm(EvEvent& event);
    void onDisarm(EvEvent& event);
    void onMmove(EvEvent& event);
    void userDraw(EvEvent& event);

    RCShdPtr<UiDragButtonImp> _dragImp;
    UiString _label;
};

} // namespace Zr
