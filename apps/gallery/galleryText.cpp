// The gallery's "Text" panel: the fields come from a widget definition; this file gives the
// rate field its filter and ties the commit and cancel callbacks to what the panel shows.
#include "galleryText.h"

#include <cstdio>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

using namespace Zr;

char const* const GalleryTextPanel::Name = "textPanel";

struct GalleryTextPanel::Parts {
    RCShdPtr<UiContainer> panel;
    RCShdPtr<UiTextField> name, rate, committed;
    RCShdPtr<UiLabel> status;
    // One handler per field and event; each names its field in what the panel shows.
    std::vector<std::unique_ptr<CbFunction<EvEvent>>> handlers;

    void show(std::string const& text) {
        if (status)
            status->setText(text.c_str());
    }
    void watch(RCShdPtr<UiTextField> const& field, char const* label) {
        if (!field)
            return;
        UiTextField* f = field.get();
        auto add = [this](std::function<void(EvEvent&)> fn) {
            handlers.push_back(std::make_unique<CbFunction<EvEvent>>(std::move(fn)));
            return handlers.back().get();
        };
        f->addKeyEnterCb(add([this, f, label](EvEvent&) {
            if (committed)
                committed->setString(f->getString().c_str());
            show(std::string(label) + " committed");
        }));
        f->addKeyEscapeCb(add([this, label](EvEvent&) { show(std::string(label) + " restored"); }));
        f->addDndConsumedCb(
            add([this, label](EvEvent&) { show(std::string("Dropped on ") + label); }));
    }
};

GalleryTextPanel::GalleryTextPanel(UiContainer* root, char const* constraint)
    : _parts(std::make_unique<Parts>()) {
    OsFilePath const file =
        InPaths::getResourcesDir() + UiResTable::getResTableDir() + "galleryText.xml";
    RCShdPtr<UiWidget> panel;
    try {
        panel = UiWidgetFactory::createWidgetFromFile(RCShdPtr<UiContainer>(root), file);
    } catch (ExBase const& e) {
        std::fprintf(stderr, "zrui-gallery: %s\n", e.getReason().c_str());
        return;
    }
    Parts& p = *_parts;
    p.panel = dynamicCast<UiContainer>(panel);
    if (!p.panel)
        return;
    UiConstraint placement;
    std::istringstream text(constraint);
    placement.read(text);
    p.panel->setConstraint(placement);
    auto field = [&p](char const* name) {
        return dynamicCast<UiTextField>(p.panel->findWidget(LiString(name)));
    };
    p.name = field("name");
    p.rate = field("rate");
    p.committed = field("committed");
    p.status = dynamicCast<UiLabel>(p.panel->findWidget(LiString("textStatus")));
    if (p.rate) {
        p.rate->setFilter(makeShared<UiRateFilter>());
        p.rate->setStringAsIs("25 FPS");
    }
    p.watch(p.name, "Text");
    p.watch(p.rate, "Frame rate");
}

GalleryTextPanel::~GalleryTextPanel() = default;
