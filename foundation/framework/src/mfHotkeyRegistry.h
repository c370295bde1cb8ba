// MfHotkeyRegistry: the framework's view of the application's hotkey registry. Tools and viewers
// of the framework ask it for entries by (domain path, action) and test events against them,
// without knowing the toolkit that keeps the bindings. The toolkit's registry installs itself
// as the instance when it is made.
#pragma once

#include "cbDispatcher.h"
#include "evEvent.h"

#include <string>

namespace Zr {

class MfHotkeyRegistry {
public:
    // The installed registry; null until the toolkit made one.
    static MfHotkeyRegistry* getInstance();
    // Installs `registry` (null removes it). The toolkit's registry does this for itself.
    static void setInstance(MfHotkeyRegistry* registry);

    virtual ~MfHotkeyRegistry();

    // The entry of (domain path, action); 0 when there is none.
    virtual int getEntry(std::string const& domainPath, std::string const& action) const = 0;
    // Whether the event is a key event that matches the entry's hotkey.
    virtual bool isHotkeyActivated(int entry, EvEvent const& event) const = 0;
    // Handlers are called with a hotkey event when the entry's hotkey is pressed; not owned.
    virtual void addHotkeyHandler(int entry, CbHandler<EvEvent>* handler) = 0;
    virtual void removeHotkeyHandler(int entry, CbHandler<EvEvent>* handler) = 0;

protected:
    MfHotkeyRegistry() = default;
    MfHotkeyRegistry(MfHotkeyRegistry const&) = default;
    MfHotkeyRegistry& operator=(MfHotkeyRegistry const&) = default;
};

} // namespace Zr
