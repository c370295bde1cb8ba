// PiUserInterfaceManip: the door to the protected panel-making operations of a PiUserInterface,
// for the classes that build panels (they derive from it).
#pragma once

#include "piUserInterface.h"

namespace Zr {

class PiUserInterfaceManip {
protected:
    static void startUiCreation(PiUserInterface& ui) { ui.startUiCreation(); }
    static void endUiCreation(PiUserInterface& ui) { ui.endUiCreation(); }
    static RCShdPtr<RCObject> createInstanceData(PiUserInterface& ui,
                                                 RCShdPtr<PiWidget> const& widgetInterface,
                                                 RCShdPtr<PiTimePath const> const& timePath) {
        return ui.createInstanceData(widgetInterface, timePath);
    }
};

} // namespace Zr
