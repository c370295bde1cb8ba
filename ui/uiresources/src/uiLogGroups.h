// UiLogGroups: the log groups of the ui library ("UiEvents", "UiResources"). The package
// start-up creates them and registers them here; before that, and after exit, they are null.
#pragma once

namespace Zr {

class LgMinorGroup;

class UiLogGroups {
public:
    // The group that traces widget events (arm, disarm, activate, hotkeys, characters).
    static LgMinorGroup* uiEvents() { return _uiEvents; }
    static void setUiEvents(LgMinorGroup* group) { _uiEvents = group; }
    // The group that traces resource loading.
    static LgMinorGroup* uiResources() { return _uiResources; }
    static void setUiResources(LgMinorGroup* group) { _uiResources = group; }

    // The flag bit under which widget events are traced.
    static constexpr unsigned EventTraceMask = 16;

private:
    static LgMinorGroup* _uiEvents;
    static LgMinorGroup* _uiResources;
};

} // namespace Zr
