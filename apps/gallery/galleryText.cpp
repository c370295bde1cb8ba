// The gallery's "Text" panel: the fields come from a widget definition; this file gives each
// field its filter and ties the commit and cancel callbacks to what the panel shows.
#include "galleryText.h"

#include "galleryStrip.h"

#include <cstdio>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

using namespace Zr;

char const* const GalleryTextPanel::Name = "textPanel";

struct GalleryTextPanel::Parts {
    RCShdPtr<UiContainer> panel;
    RCShdPtr<UiTextField> committed;
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
    Parts& p = *_parts;
    p.panel = loadGalleryStrip(RCShdPtr<UiContainer>(root), "galleryText.xml", constraint);
    if (!p.panel)
        return;
    auto field = [&p](char const* name) {
        return dynamicCast<UiTextField>(p.panel->findWidget(LiString(name)));
    };
    p.committed = field("committed");
    p.status = dynamicCast<UiLabel>(p.panel->findWidget(LiString("textStatus")));
    // Each field with its filter and the text it starts with (null: the definition's).
    struct Editable {
        char const* name;
        char const* label;
        RCShdPtr<UiTextField::Filter> filter;
        char const* text;
    };
    Editable const editables[] = {
        {"name", "Text", {}, nullptr},
        {"rate", "Frame rate", makeShared<UiRateFilter>(), "25 FPS"},
        {"ratio", "Ratio", makeShared<UiRatioFilter>(), "16:9"},
        {"fileName", "File name", UiTextField::getFileNameFilter(), nullptr},
        {"identifier", "Identifier", makeShared<UiIdentifierFilter>(), nullptr},
        {"folder", "Folder", makeShared<UiPathFilter>(UiPathFilter::Directory, true), nullptr},
    };
    for (Editable const& e : editables) {
        RCShdPtr<UiTextField> const f = field(e.name);
        if (!f)
            continue;
        if (e.filter)
            f->setFilter(e.filter);
        if (e.text)
            f->setStringAsIs(e.text);
        p.watch(f, e.label);
    }
}

GalleryTextPanel::~GalleryTextPanel() = default;
