// MsgProtocol: the display handler and its default.
#include "msgProtocol.h"

#include <iostream>
#include <mutex>

namespace Zr {

namespace {
std::mutex& handlerMutex() {
    static std::mutex mutex;
    return mutex;
}
MsgProtocol::DisplayHandler& handler() {
    static MsgProtocol::DisplayHandler h = &MsgProtocol::displayOnStandardError;
    return h;
}
} // namespace

void MsgProtocol::display(MsgBase const& message) {
    DisplayHandler current;
    {
        std::lock_guard<std::mutex> lock(handlerMutex());
        current = handler();
    }
    // Called outside the lock: a handler may display further messages or swap handlers.
    current(message);
}

MsgProtocol::DisplayHandler MsgProtocol::setDisplayHandler(DisplayHandler newHandler) {
    std::lock_guard<std::mutex> lock(handlerMutex());
    DisplayHandler previous = std::move(handler());
    handler() = newHandler ? std::move(newHandler) : DisplayHandler(&displayOnStandardError);
    return previous;
}

void MsgProtocol::displayOnStandardError(MsgBase const& message) {
    std::cerr << message.getSeverityName() << ": " << message.getText() << std::endl;
}

} // namespace Zr
