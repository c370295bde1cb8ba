// UiColorValueChanged: the event a colour editor sends when its colour changes.
#pragma once

#include "zrBase.h"

namespace Zr {

class UiColorValueChanged : public EvEvent {
public:
    UiColorValueChanged() = default;
    explicit UiColorValueChanged(CoRgbColorTyped<float> const& value, bool connected = false)
        : _value(value), _connected(connected) {}
    ZR_EVENT_CLASS(UiColorValueChanged)

    CoRgbColorTyped<float> const& getValue() const { return _value; }
    void setColorValue(CoRgbColorTyped<float> const& value) { _value = value; }
    // Whether the editor is connected to something that follows the value as it changes.
    bool getConnected() const { return _connected; }
    void setConnected(bool connected) { _connected = connected; }

    void dump(std::ostream& os) const override;
    void read(std::istream& is) override;

private:
    CoRgbColorTyped<float> _value;
    bool _connected = false;
};

} // namespace Zr
