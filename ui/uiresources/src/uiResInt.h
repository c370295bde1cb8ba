// UiResInt: a resource holding a list of integers ("Int").
#pragma once

#include "uiResource.h"

#include <vector>

namespace Zr {

// XML: one <Int> element per value. Text: the values separated by blanks.
class UiResInt : public UiResource {
public:
    // `text` is the text form; null gives an empty list.
    explicit UiResInt(LiString const& name = {}, char const* text = nullptr);
    UiResInt(LiString const& name, std::vector<int> values);
    UiResInt(UiResInt const&) = default;
    ~UiResInt() override = default;

    char const* getType() const override { return "Int"; }
    void read(XmlElement const& element) override;
    void read(std::istream& is) override;
    void write(XmlWriter& writer, bool flag) const override;
    void write(std::ostream& os, bool flag) const override;
    ZR_UI_RESOURCE_CLONE(UiResInt)

    int getNbValues() const { return static_cast<int>(_values.size()); }
    // The value at `index`; an index out of range fails an assertion.
    int getValue(int index) const;
    // Sets the value at `index`, growing the list with zeros when needed.
    void setValue(int value, int index);
    int operator[](int index) const { return getValue(index); }
    std::vector<int> const& getValues() const { return _values; }

private:
    std::vector<int> _values;
};

} // namespace Zr
