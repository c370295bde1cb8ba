// SmStateObject: a set of OpenGL state changes that a draw applies through the context's
// cache; SmTexUnitStateObject holds the part that belongs to one texture unit.
#pragma once

#include "exBase.h"

#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace Zr {

class SmTexUnitStateObject {
public:
    SmTexUnitStateObject& enable(unsigned target);
    SmTexUnitStateObject& disable(unsigned target);
    // Takes every setting of `other` that this one doesn't make itself.
    SmTexUnitStateObject& inherit(SmTexUnitStateObject const& other);

    // The texture targets switched, in the order first set.
    std::vector<std::pair<unsigned, bool>> const& getTargets() const { return _targets; }
    bool isEmpty() const { return _targets.empty(); }

private:
    std::vector<std::pair<unsigned, bool>> _targets;
};

// Each setting is either left alone or set to one value; setting it again replaces the value.
class SmStateObject {
public:
    struct LineStipple {
        int factor;
        unsigned short pattern;
        bool operator==(LineStipple const&) const = default;
    };
    struct BlendFunc {
        unsigned src;
        unsigned dst;
        bool operator==(BlendFunc const&) const = default;
    };

    // Takes every setting of `other` that this one doesn't make itself, whichever was made
    // first: a draw state built on a shared base keeps its own choices.
    SmStateObject& inherit(SmStateObject const& other);
    SmStateObject& enable(unsigned cap);
    SmStateObject& disable(unsigned cap);
    SmStateObject& blendFunc(unsigned src, unsigned dst);
    SmStateObject& blendEquation(unsigned mode);
    SmStateObject& cullFace(unsigned mode);
    SmStateObject& depthFunc(unsigned func);
    SmStateObject& hint(unsigned target, unsigned mode);
    SmStateObject& lineStipple(int factor, unsigned short pattern);
    SmStateObject& lineWidth(float width);
    SmStateObject& shadeModel(unsigned mode);
    SmTexUnitStateObject& getTexUnitStateObject(int unit);

    // What the object sets, for the context that applies it.
    std::vector<std::pair<unsigned, bool>> const& getCapabilities() const { return _caps; }
    std::optional<bool> getCapability(unsigned cap) const;
    std::optional<BlendFunc> const& getBlendFunc() const { return _blendFunc; }
    std::optional<unsigned> const& getBlendEquation() const { return _blendEquation; }
    std::optional<unsigned> const& getCullFace() const { return _cullFace; }
    std::optional<unsigned> const& getDepthFunc() const { return _depthFunc; }
    std::vector<std::pair<unsigned, unsigned>> const& getHints() const { return _hints; }
    std::optional<LineStipple> const& getLineStipple() const { return _lineStipple; }
    std::optional<float> const& getLineWidth() const { return _lineWidth; }
    std::optional<unsigned> const& getShadeModel() const { return _shadeModel; }
    std::map<int, SmTexUnitStateObject> const& getTexUnits() const { return _texUnits; }
    bool isEmpty() const;

private:
    std::vector<std::pair<unsigned, bool>> _caps;
    std::optional<BlendFunc> _blendFunc;
    std::optional<unsigned> _blendEquation;
    std::optional<unsigned> _cullFace;
    std::optional<unsigned> _depthFunc;
    std::vector<std::pair<unsigned, unsigned>> _hints;
    std::optional<LineStipple> _lineStipple;
    std::optional<float> _lineWidth;
    std::optional<unsigned> _shadeModel;
    std::map<int, SmTexUnitStateObject> _texUnits;
};

} // namespace Zr
