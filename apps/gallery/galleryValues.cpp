// The gallery's "Values" panel: the definition is read, then the gallery draws the heading and
// the captions, reports each committed value and installs the calculator.
#include "galleryValues.h"

#include "galleryStrip.h"

#include "smGl.h"
#include "wsFont.h"
#include "wsFontRegistry.h"

#include <cstdio>
#include <sstream>

namespace Zr {

namespace {

CoRgbColor named(char const* name) {
    return UiColorRegistry::getInstance().getColor(name);
}

char const* const Names[3] = {"gain", "count", "mix"};
char const* const Captions[3] = {"Gain", "Count", "Mix"};

} // namespace

GalleryValues::GalleryValues(RCShdPtr<UiContainer> const& root, char const* below) {
    // The strip stands on the gallery's grid: 14-pixel margins, 7 above its neighbour, 91 high.
    RCShdPtr<UiContainer> const strip = loadGalleryStrip(
        root, "galleryValues.xml", "14 p l 7 p s " + std::string(below) + " -14 p r 91 p h");
    _panel = strip;
    UiContainer* const container = strip.get();
    if (!container)
        return;
    for (int i = 0; i < 3; ++i) {
        _editors[i] = dynamicCast<UiValueEditor>(container->findWidget(LiString(Names[i])));
        if (!_editors[i])
            return;
        _editors[i]->setValue(_editors[i]->getDefaultValue(), false);
    }
    _lastValue = container->findWidget(LiString("lastValue"));
    if (!_lastValue)
        return;
    _editors[0]->setValue(1.25, false);
    connect(root);
}

GalleryValues::~GalleryValues() {
    // The calculator holds the window's root: it goes with the panel.
    UiApplication::getInstance().setCalculator(nullptr);
    for (auto& [widget, handler] : _painters)
        widget->removeUserDrawCb(handler.get());
    for (int i = 0; i < static_cast<int>(_onActivate.size()); ++i)
        _editors[i]->removeActivateCb(_onActivate[static_cast<std::size_t>(i)].get());
}

void GalleryValues::paint(UiWidget& widget, std::function<void(GeRectangle<int> const&)> draw) {
    UiWidget* w = &widget;
    auto handler = std::make_unique<CbFunction<EvEvent>>(
        [w, draw = std::move(draw)](EvEvent&) { draw(w->getRect()); });
    widget.addUserDrawCb(handler.get());
    _painters.emplace_back(RCShdPtr<UiWidget>(w), std::move(handler));
}

void GalleryValues::connect(RCShdPtr<UiContainer> const& root) {
    WsFontRegistry& fonts = WsFontRegistry::getInstance();
    RCShdPtr<WsFont> bold = fonts.getFont(WsFontRegistry::Bold12Font);
    RCShdPtr<WsFont> small = fonts.getFont(WsFontRegistry::Normal12Font);
    UiValueEditor* editors[3] = {_editors[0].get(), _editors[1].get(), _editors[2].get()};
    UiWidget* panel = _panel.get();
    paint(*_panel, [bold, small, editors, panel](GeRectangle<int> const& r) {
        SmGl::color3fv(named("Grey200").data());
        bold->drawString("Values", r.x1 + 14.f, r.y2 - 21.f);
        SmGl::color3fv(named("Grey150").data());
        std::string const hint = "Up and Down step a value while you type";
        small->drawString(hint, r.x2 - 14.f - small->getStringWidth(hint), r.y2 - 21.f);
        // Each caption ends 7 pixels left of its editor, on the editor's text line; the
        // editors stand in the panel's canvas.
        SmGl::color3fv(named("Foreground").data());
        GePoint2<int> const canvas = panel->getCanvas().getMin();
        for (int i = 0; i < 3; ++i) {
            GeRectangle<int> const e = editors[i]->getRect().translated(canvas.x, canvas.y);
            std::string const caption = Captions[i];
            small->drawString(caption, e.x1 - 7.f - small->getStringWidth(caption),
                              (e.y1 + e.y2) / 2.f - 4.f);
        }
    });
    UiWidget* lastValue = _lastValue.get();
    paint(*lastValue, [this, small](GeRectangle<int> const& r) {
        SmGl::color3fv(named("Grey150").data());
        small->drawString(_last, r.x1 + 7.f, (r.y1 + r.y2) / 2.f - 4.f);
    });
    for (int i = 0; i < 3; ++i) {
        UiValueEditor* editor = editors[i];
        _onActivate.push_back(
            std::make_unique<CbFunction<EvEvent>>([this, editor, lastValue, i](EvEvent&) {
                _last = std::string("Last committed: ") + Captions[i] + " = " +
                        editor->getLabel().getString().str();
                lastValue->markForUpdate();
            }));
        editor->addActivateCb(_onActivate.back().get());
    }
    UiApplication::getInstance().setCalculator(makeShared<UiSimpleCalculator>(root));
}

} // namespace Zr
