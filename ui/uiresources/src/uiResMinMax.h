// UiResMinMax: a resource holding a range and its step ("MinMax").
#pragma once

#include "uiResource.h"

namespace Zr {

// XML: <MinMax Min="0" Max="100" Step="1"/>. Text: "0 100 1".
class UiResMinMax : public UiResource {
public:
    explicit UiResMinMax(LiString const& name = {}, double min = 0.0, double max = 0.0,
                         double step = 0.0);
    UiResMinMax(LiString const& name, char const* text);
    UiResMinMax(UiResMinMax const&) = default;
    ~UiResMinMax() override = default;

    char const* getType() const override { return "MinMax"; }
    // A missing attribute leaves its field as it was; a missing MinMax element is an error.
    void read(XmlElement const& element) override;
    void read(std::istream& is) override;
    void write(XmlWriter& writer, bool flag) const override;
    void write(std::ostream& os, bool flag) const override;
    ZR_UI_RESOURCE_CLONE(UiResMinMax)

    double getMin() const { return _min; }
    double getMax() const { return _max; }
    double getStep() const { return _step; }
    void setMin(double v) { _min = v; }
    void setMax(double v) { _max = v; }
    void setStep(double v) { _step = v; }

private:
    double _min;
    double _max;
    double _step;
};

} // namespace Zr
