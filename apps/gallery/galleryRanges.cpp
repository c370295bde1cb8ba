// The gallery's "Ranges" panel: the definition is read, then the gallery draws the heading and
// the value labels and lets the progress bar follow the first slider.
#include "galleryRanges.h"

#include "galleryStrip.h"

#include "smGl.h"
#include "wsFont.h"
#include "wsFontRegistry.h"

#include <cstdio>
#include <functional>
#include <iomanip>
#include <sstream>

namespace Zr {

namespace {

CoRgbColor named(char const* name) {
    return UiColorRegistry::getInstance().getColor(name);
}

// `value` with `digits` decimals.
std::string fixed(double value, int digits) {
    std::ostringstream os;
    os << std::fixed << std::setprecision(digits) << value;
    return os.str();
}

} // namespace

GalleryRanges::GalleryRanges(RCShdPtr<UiContainer> const& root, char const* below) {
    // The strip stands on the gallery's grid: 14-pixel margins, 7 above its neighbour, 91 high.
    RCShdPtr<UiContainer> const strip = loadGalleryStrip(
        root, "galleryRanges.xml", "14 p l 7 p s " + std::string(below) + " -14 p r 91 p h");
    _panel = strip;
    UiContainer* const container = strip.get();
    if (!container)
        return;
    _level = dynamicCast<UiTrackSlider>(container->findWidget(LiString("level")));
    _temperature = dynamicCast<UiTrackSlider>(container->findWidget(LiString("temperature")));
    _progress = dynamicCast<UiProgressBar>(container->findWidget(LiString("progress")));
    _levelValue = container->findWidget(LiString("levelValue"));
    _temperatureValue = container->findWidget(LiString("temperatureValue"));
    if (!_level || !_temperature || !_progress || !_levelValue || !_temperatureValue)
        return;
    // The level is a fraction shown as a percentage; the temperature is kept in Celsius and
    // shown in Fahrenheit by the definition's handlers.
    _level->setValue(0.42, false);
    _temperature->setRange(-20.0, 40.0, false);
    _temperature->setValue(21.0, false);
    _progress->setValue(_level->getValue(), false);
    connect();
}

GalleryRanges::~GalleryRanges() {
    for (auto& [widget, handler] : _painters)
        widget->removeUserDrawCb(handler.get());
    if (_onLevel)
        _level->removeValueChangedCb(_onLevel.get());
    if (_onTemperature)
        _temperature->removeValueChangedCb(_onTemperature.get());
}

void GalleryRanges::paint(UiWidget& widget, std::function<void(GeRectangle<int> const&)> draw) {
    UiWidget* w = &widget;
    auto handler = std::make_unique<CbFunction<EvEvent>>(
        [w, draw = std::move(draw)](EvEvent&) { draw(w->getRect()); });
    widget.addUserDrawCb(handler.get());
    _painters.emplace_back(RCShdPtr<UiWidget>(w), std::move(handler));
}

void GalleryRanges::connect() {
    WsFontRegistry& fonts = WsFontRegistry::getInstance();
    RCShdPtr<WsFont> bold = fonts.getFont(WsFontRegistry::Bold12Font);
    RCShdPtr<WsFont> small = fonts.getFont(WsFontRegistry::Normal12Font);
    paint(*_panel, [bold, small](GeRectangle<int> const& r) {
        SmGl::color3fv(named("Grey200").data());
        bold->drawString("Ranges", r.x1 + 14.f, r.y2 - 21.f);
        SmGl::color3fv(named("Grey150").data());
        std::string const hint = "drag a handle: the bar follows the level";
        small->drawString(hint, r.x2 - 14.f - small->getStringWidth(hint), r.y2 - 21.f);
    });
    // A label left-aligned and centred across its height.
    auto label = [small](GeRectangle<int> const& r, std::string const& text) {
        SmGl::color3fv(named("Foreground").data());
        small->drawString(text, r.x1 + 7.f, (r.y1 + r.y2) / 2.f - 4.f);
    };
    UiTrackSlider* level = _level.get();
    UiTrackSlider* temperature = _temperature.get();
    paint(*_levelValue, [label, level](GeRectangle<int> const& r) {
        label(r, "Level " + fixed(level->getDisplayValue(), 0) + " %");
    });
    paint(*_temperatureValue, [label, temperature](GeRectangle<int> const& r) {
        label(r, fixed(temperature->getValue(), 1) +
                     " \xc2\xb0"
                     "C = " +
                     fixed(temperature->getDisplayValue(), 1) +
                     " \xc2\xb0"
                     "F");
    });
    UiWidget* levelValue = _levelValue.get();
    UiWidget* temperatureValue = _temperatureValue.get();
    UiProgressBar* progress = _progress.get();
    _onLevel = std::make_unique<CbFunction<EvEvent>>([level, levelValue, progress](EvEvent&) {
        progress->setValue(level->getValue(), false);
        levelValue->markForUpdate();
    });
    _onTemperature = std::make_unique<CbFunction<EvEvent>>(
        [temperatureValue](EvEvent&) { temperatureValue->markForUpdate(); });
    _level->addValueChangedCb(_onLevel.get());
    _temperature->addValueChangedCb(_onTemperature.get());
}

} // namespace Zr
