// SmContext: the cache of what one OpenGL context has been told. Applying a state object
// sends the backend only the settings that differ from what it last sent.
#pragma once

#include "smStateObject.h"

#include <optional>
#include <utility>
#include <vector>

namespace Zr {

class SmContext {
public:
    SmContext(SmContext const&) = delete;
    SmContext& operator=(SmContext const&) = delete;
    ~SmContext();

    // The context that draws now: the one made current last, else the default context, so
    // that drawing code runs without a window. Never null.
    static SmContext* getCurrentContext();
    void makeCurrent();
    bool isCurrent() const;

    void applyStateObject(SmStateObject const& state);
    // The shade model last set through the cache; SMOOTH, OpenGL's initial one, before that.
    unsigned getShadeModel() const { return _shadeModel.value_or(_lastShadeModel); }
    void setShadeModel(unsigned mode);
    // Forgets what was sent, so the next application sends everything it sets: after a
    // context loss, or after code that changed the state behind the cache.
    void invalidate();

    // What the cache believes a capability is; empty if it hasn't sent one since the last
    // invalidate. Texture unit 0's targets are the plain capabilities.
    std::optional<bool> getCachedCapability(unsigned cap, int texUnit = 0) const;

private:
    friend class SmStateManager;
    SmContext();

    void setCapability(unsigned cap, bool on, int texUnit);
    void selectTexUnit(int unit);

    struct UnitCapability {
        int unit;
        unsigned cap;
        bool on;
    };
    std::vector<UnitCapability> _caps;
    std::optional<SmStateObject::BlendFunc> _blendFunc;
    std::optional<unsigned> _blendEquation;
    std::optional<unsigned> _cullFace;
    std::optional<unsigned> _depthFunc;
    std::vector<std::pair<unsigned, unsigned>> _hints;
    std::optional<SmStateObject::LineStipple> _lineStipple;
    std::optional<float> _lineWidth;
    std::optional<unsigned> _shadeModel;
    std::optional<int> _activeTexUnit;
    unsigned _lastShadeModel;
};

} // namespace Zr
