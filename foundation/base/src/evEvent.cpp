// Dumping and reading of the event family, and the few constructors with logic.
#include "evEvent.h"

#include "liStringUtil.h"

#include <istream>
#include <ostream>

namespace Zr {

void EvEvent::dump(std::ostream& os) const {
    os << getClassName() << " processed " << (_processed ? 1 : 0);
}

void EvEvent::read(std::istream& is) {
    std::string name, key;
    int processed = 0;
    is >> name >> key >> processed;
    _processed = processed != 0;
}

void EvSystemInterfaceEvent::dump(std::ostream& os) const {
    EvEvent::dump(os);
    os << " window " << _windowId << " origin " << _origin.x << " " << _origin.y;
}

void EvSystemInterfaceEvent::read(std::istream& is) {
    EvEvent::read(is);
    std::string key;
    is >> key >> _windowId >> key >> _origin.x >> _origin.y;
}

void EvDeviceEvent::dump(std::ostream& os) const {
    EvSystemInterfaceEvent::dump(os);
    os << " wcoord " << _wcoord.x << " " << _wcoord.y << " modifiers " << _keyboardState.getState();
}

void EvDeviceEvent::read(std::istream& is) {
    EvSystemInterfaceEvent::read(is);
    std::string key;
    unsigned state = 0;
    is >> key >> _wcoord.x >> _wcoord.y >> key >> state;
    _keyboardState.setState(state);
}

void EvPointerEvent::dump(std::ostream& os) const {
    EvDeviceEvent::dump(os);
    os << " buttons " << _pointerState.getState() << " pressure " << _penPressure;
}

void EvPointerEvent::read(std::istream& is) {
    EvDeviceEvent::read(is);
    std::string key;
    unsigned state = 0;
    is >> key >> state >> key >> _penPressure;
    _pointerState.setState(state);
}

void EvPointerButtonEvent::dump(std::ostream& os) const {
    EvPointerEvent::dump(os);
    os << " trigger " << _triggerButton << " double " << (_doubleClick ? 1 : 0);
}

void EvPointerButtonEvent::read(std::istream& is) {
    EvPointerEvent::read(is);
    std::string key;
    int dbl = 0;
    is >> key >> _triggerButton >> key >> dbl;
    _doubleClick = dbl != 0;
}

EvPointerButtonUpEvent::EvPointerButtonUpEvent(EvPointerButtonDownEvent const& down) {
    setWindowId(down.getWindowId());
    setOrigin(down.getOrigin());
    setWCoord(down.getWCoord());
    setKeyboardState(down.getKeyboardState());
    setPenPressure(down.getPenPressure());
    setTriggerButton(down.getTriggerButton());
    setDoubleClick(down.isDoubleClick());
    EvPointerState state(down.getPointerState().getState() & ~down.getTriggerButton());
    setPointerState(state);
}

void EvPointerMoveEvent::prependCompressedData(std::vector<GePoint2<int>> const& coords,
                                               std::vector<float> const& pressures) {
    _compressedCoords.insert(_compressedCoords.begin(), coords.begin(), coords.end());
    _compressedPressures.insert(_compressedPressures.begin(), pressures.begin(), pressures.end());
}

void EvKeyEvent::dump(std::ostream& os) const {
    EvDeviceEvent::dump(os);
    os << " key " << _triggerKey;
}

void EvKeyEvent::read(std::istream& is) {
    EvDeviceEvent::read(is);
    std::string key;
    is >> key >> _triggerKey;
}

std::string EvCharEvent::getUtf8() const {
    std::string out;
    WideStringUtil::appendUtf8(out, _char);
    return out;
}

EvHotkeyEvent::EvHotkeyEvent(EvKeyboardEvent const& from, int entry) : _entry(entry) {
    setWindowId(from.getWindowId());
    setOrigin(from.getOrigin());
    setWCoord(from.getWCoord());
    setKeyboardState(from.getKeyboardState());
    if (auto const* key = dynamic_cast<EvKeyEvent const*>(&from))
        setTriggerKey(key->getTriggerKey());
}

} // namespace Zr
