// UiResAlign: a resource holding a horizontal and a vertical alignment with margins ("Align").
#pragma once

#include "uiResource.h"

namespace Zr {

// XML: <Align H="Left" V="Center" MH="2" MV="1"/>. Text: "Left Center 2 1".
class UiResAlign : public UiResource {
public:
    enum Alignment { Left = 0, Center = 1, Right = 2, Top = 3, Bottom = 4 };

    explicit UiResAlign(LiString const& name = {}, int h = Center, int v = Center, int marginH = 0,
                        int marginV = 0);
    UiResAlign(LiString const& name, char const* text);
    UiResAlign(UiResAlign const&) = default;
    ~UiResAlign() override = default;

    char const* getType() const override { return "Align"; }
    // A missing H, V, MH or MV leaves that field as it was.
    void read(XmlElement const& element) override;
    void read(std::istream& is) override;
    // MH and MV are written only when not 0.
    void write(XmlWriter& writer, bool flag) const override;
    void write(std::ostream& os, bool flag) const override;
    ZR_UI_RESOURCE_CLONE(UiResAlign)

    int getAlignmentH() const { return _alignmentH; }
    int getAlignmentV() const { return _alignmentV; }
    int getMarginH() const { return _marginH; }
    int getMarginV() const { return _marginV; }
    void setAlignmentH(int a) { _alignmentH = a; }
    void setAlignmentV(int a) { _alignmentV = a; }
    void setMarginH(int m) { _marginH = m; }
    void setMarginV(int m) { _marginV = m; }

    // "Left", "Center", "Right", "Top", "Bottom"; any other code is "Center".
    static char const* toString(int alignment);
    // The code of a keyword; any other text is 1, Center.
    static int fromString(char const* text);

private:
    int _alignmentH;
    int _alignmentV;
    int _marginH;
    int _marginV;
};

} // namespace Zr
