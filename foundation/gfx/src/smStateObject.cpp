// Building and merging state objects.
#include "smStateObject.h"

#include <algorithm>

namespace Zr {

namespace {

template <class Value>
void setEntry(std::vector<std::pair<unsigned, Value>>& entries, unsigned key, Value value) {
    auto it = std::find_if(entries.begin(), entries.end(),
                           [key](auto const& e) { return e.first == key; });
    if (it != entries.end())
        it->second = value;
    else
        entries.emplace_back(key, value);
}

// Appends each entry of `from` whose key `to` doesn't have.
template <class Value>
void inheritEntries(std::vector<std::pair<unsigned, Value>>& to,
                    std::vector<std::pair<unsigned, Value>> const& from) {
    for (auto const& e : from) {
        bool present = std::any_of(to.begin(), to.end(),
                                   [&e](auto const& mine) { return mine.first == e.first; });
        if (!present)
            to.push_back(e);
    }
}

template <class T>
void inheritValue(std::optional<T>& to, std::optional<T> const& from) {
    if (!to)
        to = from;
}

} // namespace

SmTexUnitStateObject& SmTexUnitStateObject::enable(unsigned target) {
    setEntry(_targets, target, true);
    return *this;
}

SmTexUnitStateObject& SmTexUnitStateObject::disable(unsigned target) {
    setEntry(_targets, target, false);
    return *this;
}

SmTexUnitStateObject& SmTexUnitStateObject::inherit(SmTexUnitStateObject const& other) {
    inheritEntries(_targets, other._targets);
    return *this;
}

SmStateObject& SmStateObject::inherit(SmStateObject const& other) {
    if (&other == this)
        return *this;
    inheritEntries(_caps, other._caps);
    inheritValue(_blendFunc, other._blendFunc);
    inheritValue(_blendEquation, other._blendEquation);
    inheritValue(_cullFace, other._cullFace);
    inheritValue(_depthFunc, other._depthFunc);
    inheritEntries(_hints, other._hints);
    inheritValue(_lineStipple, other._lineStipple);
    inheritValue(_lineWidth, other._lineWidth);
    inheritValue(_shadeModel, other._shadeModel);
    for (auto const& [unit, state] : other._texUnits)
        _texUnits[unit].inherit(state);
    return *this;
}

SmStateObject& SmStateObject::enable(unsigned cap) {
    setEntry(_caps, cap, true);
    return *this;
}

SmStateObject& SmStateObject::disable(unsigned cap) {
    setEntry(_caps, cap, false);
    return *this;
}

SmStateObject& SmStateObject::blendFunc(unsigned src, unsigned dst) {
    _blendFunc = BlendFunc{src, dst};
    return *this;
}

SmStateObject& SmStateObject::blendEquation(unsigned mode) {
    _blendEquation = mode;
    return *this;
}

SmStateObject& SmStateObject::cullFace(unsigned mode) {
    _cullFace = mode;
    return *this;
}

SmStateObject& SmStateObject::depthFunc(unsigned func) {
    _depthFunc = func;
    return *this;
}

SmStateObject& SmStateObject::hint(unsigned target, unsigned mode) {
    setEntry(_hints, target, mode);
    return *this;
}

SmStateObject& SmStateObject::lineStipple(int factor, unsigned short pattern) {
    _lineStipple = LineStipple{factor, pattern};
    return *this;
}

SmStateObject& SmStateObject::lineWidth(float width) {
    _lineWidth = width;
    return *this;
}

SmStateObject& SmStateObject::shadeModel(unsigned mode) {
    _shadeModel = mode;
    return *this;
}

SmTexUnitStateObject& SmStateObject::getTexUnitStateObject(int unit) {
    ZR_ASSERT(unit >= 0);
    return _texUnits[unit];
}

std::optional<bool> SmStateObject::getCapability(unsigned cap) const {
    for (auto const& [c, on] : _caps)
        if (c == cap)
            return on;
    return std::nullopt;
}

bool SmStateObject::isEmpty() const {
    bool texUnitsEmpty = std::all_of(_texUnits.begin(), _texUnits.end(),
                                     [](auto const& u) { return u.second.isEmpty(); });
    return _caps.empty() && !_blendFunc && !_blendEquation && !_cullFace && !_depthFunc &&
           _hints.empty() && !_lineStipple && !_lineWidth && !_shadeModel && texUnitsEmpty;
}

} // namespace Zr
