// The gallery's "Menus" panel: the definition is read, then the gallery fills the menu, opens it
// from the button or a right click, and shows each choice.
#include "galleryMenus.h"

#include "galleryStrip.h"

#include "smGl.h"
#include "wsFont.h"
#include "wsFontRegistry.h"

namespace Zr {

namespace {

constexpr unsigned RightButton = 4;

CoRgbColor named(char const* name) {
    return UiColorRegistry::getInstance().getColor(name);
}

} // namespace

GalleryMenus::GalleryMenus(RCShdPtr<UiContainer> const& root, std::string const& constraint) {
    RCShdPtr<UiContainer> const strip = loadGalleryStrip(root, "galleryMenus.xml", constraint);
    _panel = strip;
    if (!strip)
        return;
    _button = dynamicCast<UiPushButton>(strip->findWidget(LiString("menuButton")));
    _choice = strip->findWidget(LiString("menuChoice"));
    if (!_button || !_choice)
        return;
    _button->getLabel().setString("Menu");
    _button->getLabel().setFont(WsFontRegistry::Normal14Font);
    _button->setKeyboardFocusFrame(true);
    buildMenu();

    _onButton = std::make_unique<CbFunction<EvEvent>>([this](EvEvent&) { open(); });
    _button->addActivateCb(_onButton.get());
    // A right click on the line opens the menu at the pointer, above it: the line is at the
    // bottom of the window.
    _onPress = std::make_unique<CbFunction<EvEvent>>([this](EvEvent& event) {
        auto* press = dynamic_cast<EvPointerButtonDownEvent*>(&event);
        if (!press || press->getTriggerButton() != RightButton || _menu->isDisplayed())
            return;
        _menu->setTrigger(_choice);
        _menu->launch(press->getWCoord(), UiPopupMenu::AboveRight);
    });
    _choice->addArmCb(_onPress.get());
    RCShdPtr<WsFont> small = WsFontRegistry::getInstance().getFont(WsFontRegistry::Normal12Font);
    UiWidget* choice = _choice.get();
    _onDraw = std::make_unique<CbFunction<EvEvent>>([this, small, choice](EvEvent&) {
        GeRectangle<int> const r = choice->getRect();
        SmGl::color3fv(named("Foreground").data());
        small->drawString(_last, r.x1 + 7.f, (r.y1 + r.y2) / 2.f - 4.f);
    });
    _choice->addUserDrawCb(_onDraw.get());
}

GalleryMenus::~GalleryMenus() {
    if (_menu && _menu->isDisplayed())
        _menu->close();
    if (_button && _onButton)
        _button->removeActivateCb(_onButton.get());
    if (_choice && _onPress) {
        _choice->removeArmCb(_onPress.get());
        _choice->removeUserDrawCb(_onDraw.get());
    }
}

void GalleryMenus::open() {
    if (!_menu || _menu->isDisplayed())
        return;
    // Above the button, its left edge on the button's.
    GeRectangle<int> const r = _button->getScreenRect();
    _menu->setTrigger(_button);
    _menu->launch({r.x1 - 3, r.y2 - 3}, UiPopupMenu::AboveRight);
}

void GalleryMenus::show(std::string text) {
    _last = std::move(text);
    _choice->markForUpdate();
}

CbHandler<EvEvent>* GalleryMenus::reporter(void (*also)(EvEvent&)) {
    _handlers.push_back(std::make_unique<CbFunction<EvEvent>>([this, also](EvEvent& event) {
        if (also)
            also(event);
        auto* selected = dynamic_cast<UiRowSelectedEvent*>(&event);
        if (!selected || !selected->getRow())
            return;
        UiRow& row = *selected->getRow();
        auto* mark = row.findCell<UiCellIndicator>();
        show("Chose " + row.getString().str() +
             (mark ? (mark->getState() ? " (now on)" : " (now off)") : ""));
    }));
    return _handlers.back().get();
}

void GalleryMenus::buildMenu() {
    UiContainer* parent = dynamic_cast<UiContainer*>(_panel.get());
    _menu = UiPopupMenu::create(parent, LiString("galleryMenu"));
    UiPopupMenu& m = *_menu;
    m.setMinimumWidth(210);
    m.appendText(LiString("Undo"), LiString("Ctrl+Z"), reporter());
    m.appendText(LiString("Redo"), LiString("Ctrl+Shift+Z"), reporter());
    m.appendSeparator();
    m.appendText(OsFilePath("anchor.tif"), "Set Anchor", "A", reporter());
    m.appendText(OsFilePath("warningBW.tif"), "Show Warnings", "", reporter());
    m.appendSeparator();
    m.appendToggle(LiString("Show Grid"), LiString("G"), true, reporter(&UiPopupMenu::toggleCell));
    m.appendToggle(LiString("Snap to Grid"), false, reporter(&UiPopupMenu::toggleCell));
    RCShdPtr<UiRowCascading> blend = m.appendCascade(LiString("Blend Mode"));
    _blend = blend->getPopup();
    // A radio row turns its mates off and its own mark on.
    _handlers.push_back(std::make_unique<CbFunction<EvEvent>>([this](EvEvent& event) {
        auto* selected = dynamic_cast<UiRowSelectedEvent*>(&event);
        if (!selected || !selected->getRow())
            return;
        for (int i = 0; i < _blend->getNbOptions(); ++i)
            _blend->setToggleState(i, false);
        if (auto* mark = selected->getRow()->findCell<UiCellIndicator>())
            mark->setState(true);
        show("Blend mode: " + selected->getRow()->getString().str());
    }));
    char const* const modes[] = {"Normal", "Add", "Multiply", "Screen", "Overlay"};
    for (int i = 0; i < 5; ++i)
        _blend->appendRadio(LiString(modes[i]), i == 0, _handlers.back().get(), i);
    RCShdPtr<UiRowCascading> recent = m.appendCascade(LiString("Open Recent"));
    for (char const* name : {"shot_010_comp.zr", "shot_020_comp.zr", "matte_paint_v3.zr"})
        recent->getPopup()->appendText(LiString(name), reporter());
    m.appendSeparator();
    RCShdPtr<UiRow> cache(new UiRow(LiString("Cache"), 0, false));
    cache->appendCell(std::make_unique<UiCell>());
    cache->appendCell(std::make_unique<UiCellText>(LiString("Cache")));
    auto bar = std::make_unique<UiCellProgressBar>();
    bar->setValue(0.62f);
    cache->appendCell(std::move(bar));
    m.appendRow(cache);
    m.appendText(LiString("Render Farm"), reporter(), 0, false);
}

} // namespace Zr
