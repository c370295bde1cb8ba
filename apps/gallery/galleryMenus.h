// The gallery's "Menus" panel: a push button that opens a popup menu (key names, an icon, toggle
// marks, a progress row, a disabled row and two submenus, one of radio marks), and a line that
// shows the last choice, on which a right click opens the same menu at the pointer. Built from
// the shipped definition resTables/galleryMenus.xml.
#pragma once

#include "zrUi.h"

#include <memory>
#include <string>
#include <vector>

namespace Zr {

class GalleryMenus {
public:
    // Builds the panel into `root`, placed by `constraint` (it is 35 pixels high). A definition
    // that cannot be read is reported on stderr and leaves no panel.
    GalleryMenus(RCShdPtr<UiContainer> const& root, std::string const& constraint);
    ~GalleryMenus();
    GalleryMenus(GalleryMenus const&) = delete;
    GalleryMenus& operator=(GalleryMenus const&) = delete;

    RCShdPtr<UiWidget> const& panel() const { return _panel; }
    RCShdPtr<UiPopupMenu> const& menu() const { return _menu; }
    // Opens the menu as the button does.
    void open();

private:
    void buildMenu();
    // A row handler that reports its row's text on the line, after `also` when given.
    CbHandler<EvEvent>* reporter(void (*also)(EvEvent&) = nullptr);
    void show(std::string text);

    RCShdPtr<UiWidget> _panel;
    RCShdPtr<UiPushButton> _button;
    RCShdPtr<UiWidget> _choice;
    RCShdPtr<UiPopupMenu> _menu;
    RCShdPtr<UiPopupMenu> _blend;
    std::string _last = "Right-click this line for the same menu";
    std::vector<std::unique_ptr<CbFunction<EvEvent>>> _handlers;
    std::unique_ptr<CbFunction<EvEvent>> _onButton, _onPress, _onDraw;
};

} // namespace Zr
