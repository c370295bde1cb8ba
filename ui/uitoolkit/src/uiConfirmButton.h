// UiConfirmButton: a one-line prompt that asks for a yes or a no and waits for it in an event
// loop of its own: Return or moving the pointer onto it says yes; Escape or moving the pointer
// elsewhere says no, when a no is allowed.
#pragma once

#include "uiString.h"
#include "uiWidget.h"

namespace Zr {

class UiConfirmButtonImp;

class UiConfirmButton : public UiWidget {
public:
    static RCShdPtr<UiConfirmButton> create(UiContainer* parent, LiString const& name,
                                            UiResTable const* table = nullptr);

    UiString& getLabel() { return _label; }
    UiString const& getLabel() const { return _label; }
    // Shows the prompt and waits for the answer, then hides it. Without `allowCancel` only a
    // yes ends the wait. Events other than moves, keys and exposes are dropped meanwhile.
    bool askConfirm(bool allowCancel);

    void adjustCoords() override;

protected:
    UiConfirmButton(UiContainer* parent, LiString const& name);
    ~UiConfirmButton() override;

    void setDefaultResources(UiResSet& set) override;
    // The label's resources first, then the widget's.
    void setResource(RCShdPtr<UiResource> const& resource) override;
    void postInit() override;

private:
    friend class UiConfirmButtonImp;
    void userDraw(EvEvent& event);

    UPtr<UiConfirmButtonImp> _confirmImp;
    UiString _label;
};

} // namespace Zr
