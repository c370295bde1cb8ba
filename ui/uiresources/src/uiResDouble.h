// UiResDouble: a resource holding a list of doubles ("Double").
#pragma once

#include "uiResource.h"

#include <vector>

namespace Zr {

// XML: one <Double> element per value. Text: the values separated by blanks.
class UiResDouble : public UiResource {
public:
    explicit UiResDouble(LiString const& name = {}, char const* text = nullptr);
    UiResDouble(LiString const& name, std::vector<double> values);
    UiResDouble(UiResDouble const&) = default;
    ~UiResDouble() override = default;

    char const* getType() const override { return "Double"; }
    void read(XmlElement const& element) override;
    void read(std::istream& is) override;
    void write(XmlWriter& writer, bool flag) const override;
    void write(std::ostream& os, bool flag) const override;
    ZR_UI_RESOURCE_CLONE(UiResDouble)

    int getNbValues() const { return static_cast<int>(_values.size()); }
    double getValue(int index) const;
    void setValue(double value, int index);
    double operator[](int index) const { return getValue(index); }
    std::vector<double> const& getValues() const { return _values; }

private:
    std::vector<double> _values;
};

} // namespace Zr
