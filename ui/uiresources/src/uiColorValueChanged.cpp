// UiColorValueChanged: the text form of the event, after the base event's fields.
#include "uiColorValueChanged.h"

#include <istream>
#include <ostream>
#include <string>

namespace Zr {

void UiColorValueChanged::dump(std::ostream& os) const {
    EvEvent::dump(os);
    os << " value " << _value.r << ' ' << _value.g << ' ' << _value.b << " connected "
       << (_connected ? 1 : 0);
}

void UiColorValueChanged::read(std::istream& is) {
    EvEvent::read(is);
    std::string key;
    int connected = 0;
    is >> key >> _value.r >> _value.g >> _value.b >> key >> connected;
    _connected = connected != 0;
}

} // namespace Zr
