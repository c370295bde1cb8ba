// UiColorRegistry: the default colours and the look-up by name.
#include "uiColorRegistry.h"

namespace Zr {

namespace {

struct DefaultColor {
    char const* name;
    int r, g, b;
};

} // namespace

UiColorRegistry& UiColorRegistry::getInstance() {
    static UiColorRegistry instance;
    return instance;
}

UiColorRegistry::UiColorRegistry() {
    DefaultColor const defaults[] = {
        {"Background", 80, 80, 80},
        {"Black", 0, 0, 0},
        {"Blue", 0, 0, 255},
        {"Blue1", 88, 101, 126},
        {"Blue2", 42, 53, 74},
        {"Blue3", 83, 99, 127},
        {"Blue4", 61, 73, 96},
        {"Cyan", 0, 255, 255},
        {"Cyan1", 121, 180, 205},
        {"BrowsableDb", 70, 70, 70},
        {"BrowsableFs", 70, 70, 70},
        {"BrowsableDt", 70, 70, 70},
        {"BrowsableFiltered", 68, 65, 65},
        {"FocusKeyboard", 105, 130, 238},
        {"FocusPointer", 255, 216, 137},
        {"Foreground", 200, 200, 200},
        {"Green", 0, 255, 0},
        {"Green1", 97, 230, 25},
        {"Green2", 94, 103, 103},
        {"Green3", 117, 133, 132},
        {"Green4", 120, 195, 120},
        {"InactiveForeground", 140, 140, 140},
        {"LabelBackground", 105, 105, 105},
        {"SubLabelBackground", 65, 65, 65},
        {"NonEditBackground", 55, 55, 55},
        {"TextBackground", 90, 99, 105},
        {"TextBackgroundOn", 113, 123, 130},
        {"Orange", 235, 107, 41},
        {"Red", 255, 0, 0},
        {"Red1", 179, 25, 25},
        {"Red2", 150, 75, 75},
        {"Selection", 220, 199, 0},
        {"SelectionFocus", 220, 220, 220},
        {"SelectionNonFocus", 155, 155, 155},
        {"TitleForeground", 200, 200, 200},
        {"TL3DObject", 66, 73, 88},
        {"TLAudio", 139, 148, 142},
        {"TLContainer", 82, 102, 151},
        {"TLPositioner", 184, 179, 77},
        {"TLImage", 114, 122, 134},
        {"ToggleActive", 253, 121, 60},
        {"ToggleInactive", 130, 80, 40},
        {"RadioActive", 220, 200, 33},
        {"RadioInactive", 155, 134, 34},
        {"White", 255, 255, 255},
        {"Yellow", 255, 255, 0},
        {"Yellow1", 184, 179, 77},
        {"Yellow2", 255, 230, 0},
        {"Yellow3", 239, 234, 0},
        {"Yellow4", 185, 168, 0},
        {"GridAxis", 166, 131, 58},
        {"Grid1", 30, 30, 30},
        {"Grid2", 55, 55, 55},
        {"Timebar", 255, 255, 0},
        {"Keyframe", 97, 230, 25},
        {"Information", 255, 255, 225},
        {"MarkedForAnimation", 220, 199, 0},
        {"Expression", 97, 230, 25},
        {"Anchor", 0, 77, 191},
        {"Animated", 179, 25, 25},
        {"Grey15", 15, 15, 15},
        {"Grey25", 25, 25, 25},
        {"Grey30", 30, 30, 30},
        {"Grey35", 35, 35, 35},
        {"Grey40", 40, 40, 40},
        {"Grey45", 45, 45, 45},
        {"Grey50", 50, 50, 50},
        {"Grey60", 60, 60, 60},
        {"Grey65", 65, 65, 65},
        {"Grey70", 70, 70, 70},
        {"Grey75", 75, 75, 75},
        {"Grey80", 80, 80, 80},
        {"Grey85", 85, 85, 85},
        {"Grey90", 90, 90, 90},
        {"Grey100", 100, 100, 100},
        {"Grey107", 107, 107, 107},
        {"Grey115", 115, 115, 115},
        {"Grey120", 120, 120, 120},
        {"Grey125", 125, 125, 125},
        {"Grey128", 128, 128, 128},
        {"Grey130", 130, 130, 130},
        {"Grey145", 145, 145, 145},
        {"Grey150", 150, 150, 150},
        {"Grey175", 175, 175, 175},
        {"Grey190", 190, 190, 190},
        {"Grey200", 200, 200, 200},
    };
    for (DefaultColor const& d : defaults)
        registerColor(d.name, d.r, d.g, d.b);
}

CoRgbColorTyped<float> UiColorRegistry::registerColor(LiString const& name, int r, int g, int b) {
    CoRgbColorTyped<float> color(static_cast<float>(r / 255.0), static_cast<float>(g / 255.0),
                                 static_cast<float>(b / 255.0));
    _colors[name] = color;
    ++_generation;
    return color;
}

CoRgbColorTyped<float> UiColorRegistry::getColor(LiString const& name) const {
    auto it = _colors.find(name);
    return it == _colors.end() ? CoRgbColorTyped<float>(0.f, 0.f, 0.f) : it->second;
}

bool UiColorRegistry::isRegisteredColor(LiString const& name) const {
    return _colors.find(name) != _colors.end();
}

} // namespace Zr
