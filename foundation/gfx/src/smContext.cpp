// The state cache of a context, and the state manager that creates contexts.
#include "smContext.h"

#include "smGl.h"
#include "smStateManager.h"

#include <algorithm>

namespace Zr {

namespace {
// Drawing happens on the loop's thread only, so one pointer serves as "current".
SmContext* currentContext = nullptr;

// Sends a value if the cache doesn't hold it already, and remembers it.
template <class T, class Send>
void applyValue(std::optional<T>& cached, std::optional<T> const& wanted, Send send) {
    if (wanted && cached != wanted) {
        send(*wanted);
        cached = wanted;
    }
}
} // namespace

SmContext::SmContext() : _lastShadeModel(Gl::SMOOTH) {}

SmContext::~SmContext() {
    if (currentContext == this)
        currentContext = nullptr;
}

SmContext* SmContext::getCurrentContext() {
    return currentContext ? currentContext : &SmStateManager::getInstance().getDefaultContext();
}

void SmContext::makeCurrent() {
    currentContext = this;
}

bool SmContext::isCurrent() const {
    return getCurrentContext() == this;
}

void SmContext::setCapability(unsigned cap, bool on, int texUnit) {
    auto it = std::find_if(_caps.begin(), _caps.end(), [&](UnitCapability const& c) {
        return c.cap == cap && c.unit == texUnit;
    });
    if (it != _caps.end() && it->on == on)
        return;
    // Unit 0 is normally active; select a unit only when it isn't the active one.
    if (texUnit != 0 || (_activeTexUnit && *_activeTexUnit != 0))
        selectTexUnit(texUnit);
    if (on)
        SmGl::enable(cap);
    else
        SmGl::disable(cap);
    if (it != _caps.end())
        it->on = on;
    else
        _caps.push_back({texUnit, cap, on});
}

void SmContext::selectTexUnit(int unit) {
    if (_activeTexUnit == unit)
        return;
    SmGl::activeTexture(Gl::TEXTURE0 + static_cast<unsigned>(unit));
    _activeTexUnit = unit;
}

void SmContext::applyStateObject(SmStateObject const& state) {
    for (auto const& [cap, on] : state.getCapabilities())
        setCapability(cap, on, 0);
    applyValue(_blendFunc, state.getBlendFunc(),
               [](SmStateObject::BlendFunc const& f) { SmGl::blendFunc(f.src, f.dst); });
    applyValue(_blendEquation, state.getBlendEquation(),
               [](unsigned mode) { SmGl::blendEquation(mode); });
    applyValue(_cullFace, state.getCullFace(), [](unsigned mode) { SmGl::cullFace(mode); });
    applyValue(_depthFunc, state.getDepthFunc(), [](unsigned func) { SmGl::depthFunc(func); });
    for (auto const& [target, mode] : state.getHints()) {
        auto it = std::find_if(_hints.begin(), _hints.end(),
                               [target = target](auto const& h) { return h.first == target; });
        if (it != _hints.end() && it->second == mode)
            continue;
        SmGl::hint(target, mode);
        if (it != _hints.end())
            it->second = mode;
        else
            _hints.emplace_back(target, mode);
    }
    applyValue(_lineStipple, state.getLineStipple(),
               [](SmStateObject::LineStipple const& s) { SmGl::lineStipple(s.factor, s.pattern); });
    applyValue(_lineWidth, state.getLineWidth(), [](float width) { SmGl::lineWidth(width); });
    if (state.getShadeModel())
        setShadeModel(*state.getShadeModel());

    // Other units are selected only for their own changes; unit 0 is left active after, as
    // texture binding code expects it.
    for (auto const& [unit, unitState] : state.getTexUnits())
        for (auto const& [target, on] : unitState.getTargets())
            setCapability(target, on, unit);
    if (_activeTexUnit && *_activeTexUnit != 0)
        selectTexUnit(0);
}

void SmContext::setShadeModel(unsigned mode) {
    _lastShadeModel = mode;
    if (_shadeModel == mode)
        return;
    SmGl::shadeModel(mode);
    _shadeModel = mode;
}

void SmContext::invalidate() {
    if (_shadeModel)
        _lastShadeModel = *_shadeModel;
    _caps.clear();
    _blendFunc.reset();
    _blendEquation.reset();
    _cullFace.reset();
    _depthFunc.reset();
    _hints.clear();
    _lineStipple.reset();
    _lineWidth.reset();
    _shadeModel.reset();
    _activeTexUnit.reset();
}

std::optional<bool> SmContext::getCachedCapability(unsigned cap, int texUnit) const {
    for (UnitCapability const& c : _caps)
        if (c.cap == cap && c.unit == texUnit)
            return c.on;
    return std::nullopt;
}

SmStateManager& SmStateManager::getInstance() {
    static SmStateManager instance;
    return instance;
}

SmStateManager::SmStateManager() : _defaultContext(new SmContext()) {}

UPtr<SmContext> SmStateManager::createContext() {
    return UPtr<SmContext>(new SmContext());
}

} // namespace Zr
