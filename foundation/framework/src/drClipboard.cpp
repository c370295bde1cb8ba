// DrClipboard: the single clipboard of the application.
#include "drClipboard.h"

namespace Zr {

DrClipboard& DrClipboard::getInstance() {
    static DrClipboard instance;
    return instance;
}

void DrClipboard::setContent(RCShdPtr<DrCarrier> const& carrier, int srcAction) {
    ZR_ASSERT(srcAction == Copy || srcAction == Cut);
    _content = carrier;
    _srcAction = carrier.isNull() ? static_cast<int>(Copy) : srcAction;
    _changed.call();
}

void DrClipboard::clear() {
    if (_content.isNull())
        return;
    _content.reset();
    _srcAction = Copy;
    _changed.call();
}

} // namespace Zr
