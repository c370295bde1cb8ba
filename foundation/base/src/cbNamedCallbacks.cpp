// Named callbacks.
#include "cbNamedCallbacks.h"

namespace Zr {

void CbNamedCallbacks::add(std::string const& name, CbHandler<std::string>* handler) {
    if (!handler)
        return;
    auto& dispatcher = _dispatchers[name];
    if (!dispatcher)
        dispatcher = std::make_unique<CbDispatcher<std::string>>();
    dispatcher->addHandler(handler);
}

bool CbNamedCallbacks::remove(std::string const& name, CbHandler<std::string>* handler) {
    auto it = _dispatchers.find(name);
    if (it == _dispatchers.end() || !it->second->isHandlerSubscribed(handler))
        return false;
    it->second->removeHandler(handler);
    return true;
}

bool CbNamedCallbacks::call(std::string const& name, std::string argument) {
    auto it = _dispatchers.find(name);
    if (it == _dispatchers.end() || it->second->isEmpty())
        return false;
    it->second->call(argument);
    return true;
}

bool CbNamedCallbacks::hasCallback(std::string const& name) const {
    return getNbHandlers(name) > 0;
}

int CbNamedCallbacks::getNbHandlers(std::string const& name) const {
    auto it = _dispatchers.find(name);
    return it == _dispatchers.end() ? 0 : it->second->getNbHandlers();
}

std::vector<std::string> CbNamedCallbacks::getNames() const {
    std::vector<std::string> names;
    for (auto const& [name, dispatcher] : _dispatchers)
        if (!dispatcher->isEmpty())
            names.push_back(name);
    return names;
}

} // namespace Zr
