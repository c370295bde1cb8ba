// UiResFrame: a resource naming a frame type ("Frame"). The frames themselves live in the
// toolkit's UiFrameRegistry, which turns the name into a frame when a widget asks for it.
#pragma once

#include "uiResource.h"

namespace Zr {

// XML: <Frame>Border</Frame>. Text: one token.
class UiResFrame : public UiResource {
public:
    explicit UiResFrame(LiString const& name = {}, char const* text = nullptr);
    UiResFrame(UiResFrame const&) = default;
    ~UiResFrame() override = default;

    char const* getType() const override { return "Frame"; }
    // An empty frame name raises ExIncompleteResource; the name is not checked here.
    void read(XmlElement const& element) override;
    void read(std::istream& is) override;
    void write(XmlWriter& writer, bool flag) const override;
    void write(std::ostream& os, bool flag) const override;
    ZR_UI_RESOURCE_CLONE(UiResFrame)

    char const* getFrameType() const { return _frameType.c_str(); }
    LiString const& getFrameTypeName() const { return _frameType; }
    void setFrameType(char const* type) { _frameType = type; }

private:
    LiString _frameType;
};

} // namespace Zr
