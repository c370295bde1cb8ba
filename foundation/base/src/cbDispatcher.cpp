// The bookkeeping between handlers and dispatchers.
#include "cbDispatcher.h"

namespace Zr {

void CbEmptyType::NoArgCallBase::invalidNoArgCall() {
    Assertions::throwProgramAborted(__FILE__, __LINE__,
                                    "A callback without argument was called with one");
}

CbHandlerBase::~CbHandlerBase() { reset(); }

void CbHandlerBase::reset() {
    while (!_dispatchers.empty())
        _dispatchers.back()->removeHandler(this);
}

CbDispatcherBase::~CbDispatcherBase() {
    for (CallFrame* f = _frames; f; f = f->previous)
        f->dead = true;
    removeAllHandlers();
}

void CbDispatcherBase::insertAt(std::size_t pos, CbHandlerBase* h) {
    if (!h || _handlers.contains(h))
        return;
    if (pos > _handlers.size())
        pos = _handlers.size();
    _handlers.insert(pos, h);
    h->_dispatchers.push_back(this);
}

void CbDispatcherBase::removeHandler(CbHandlerBase* h) {
    std::size_t i = _handlers.indexOf(h);
    if (i == _handlers.size())
        return;
    _handlers.erase(i);
    std::size_t j = h->_dispatchers.indexOf(this);
    if (j != h->_dispatchers.size())
        h->_dispatchers.erase(j);
}

void CbDispatcherBase::removeAllHandlers() {
    while (!_handlers.empty())
        removeHandler(_handlers.back());
}

bool CbDispatcherBase::isHandlerSubscribed(CbHandlerBase const* h) const {
    return _handlers.contains(const_cast<CbHandlerBase*>(h));
}

} // namespace Zr
