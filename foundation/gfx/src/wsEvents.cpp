// Dumping and reading of the windowing layer's events.
#include "wsEvents.h"

#include <istream>
#include <ostream>
#include <string>

namespace Zr {

namespace {
void dumpRect(std::ostream& os, char const* key, GeRectangle<int> const& r) {
    os << " " << key << " " << r.x1 << " " << r.x2 << " " << r.y1 << " " << r.y2;
}
void readRect(std::istream& is, GeRectangle<int>& r) {
    std::string key;
    is >> key >> r.x1 >> r.x2 >> r.y1 >> r.y2;
}
} // namespace

void WsExposeEvent::dump(std::ostream& os) const {
    EvSystemInterfaceEvent::dump(os);
    dumpRect(os, "region", _region);
}

void WsExposeEvent::read(std::istream& is) {
    EvSystemInterfaceEvent::read(is);
    readRect(is, _region);
}

void WsConfigureEvent::dump(std::ostream& os) const {
    EvSystemInterfaceEvent::dump(os);
    dumpRect(os, "windowRegion", _windowRegion);
}

void WsConfigureEvent::read(std::istream& is) {
    EvSystemInterfaceEvent::read(is);
    readRect(is, _windowRegion);
}

WsExitEvent::WsExitEvent(int mode) : _mode(static_cast<ExitHandlingMode>(mode)) {
    ZR_ASSERT(mode == AskExitHandlers || mode == DontAskExitHandlers);
}

void WsExitEvent::dump(std::ostream& os) const {
    EvEvent::dump(os);
    os << " mode " << static_cast<int>(_mode);
}

void WsExitEvent::read(std::istream& is) {
    EvEvent::read(is);
    std::string key;
    int mode = 0;
    is >> key >> mode;
    ZR_ASSERT(mode == AskExitHandlers || mode == DontAskExitHandlers);
    _mode = static_cast<ExitHandlingMode>(mode);
}

} // namespace Zr
