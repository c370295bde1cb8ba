// UiResFont: a resource naming a font by its handle in the windowing layer's font registry
// ("FontHandle"), with the description the registry gives for it.
#pragma once

#include "uiResource.h"

namespace Zr {

// XML: <FontHandle>Bold12Font</FontHandle>. Text: one token.
class UiResFont : public UiResource {
public:
    // `text` is a handle in the text form; null leaves handle and name empty.
    explicit UiResFont(LiString const& name = {}, char const* text = nullptr);
    UiResFont(UiResFont const&) = default;
    ~UiResFont() override = default;

    char const* getType() const override { return "FontHandle"; }
    // An empty handle raises ExIncompleteResource (ExInvalidStream from a stream); a handle the
    // font registry doesn't know raises UiInvalidFontEx. Both leave the resource as it was.
    void read(XmlElement const& element) override;
    void read(std::istream& is) override;
    void write(XmlWriter& writer, bool flag) const override;
    void write(std::ostream& os, bool flag) const override;
    ZR_UI_RESOURCE_CLONE(UiResFont)

    LiString const& getFontHandle() const { return _fontHandle; }
    LiString const& getFontName() const { return _fontName; }

private:
    void setHandle(std::string const& handle);

    LiString _fontHandle;
    LiString _fontName;
};

} // namespace Zr
