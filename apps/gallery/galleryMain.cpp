// The gallery, the toolkit's main program: a window of widgets in named colours, framed panels,
// a shaded background, text in the registry's fonts, a panel built from a widget definition
// showing the shipped icons, a panel of text fields, one of sliders, one of value editors, a
// node's panel with undo and redo, a button that opens a popup menu, and two push buttons.
// `--screenshot FILE.png` writes what it shows, `--frames N` times N full repaints, `--size WxH`
// resizes the window once it is open. Exit status 2 is bad arguments, 3 that no window can be
// opened.
#include "zrUi.h"

#include "galleryMenus.h"
#include "galleryNode.h"
#include "galleryRanges.h"
#include "galleryText.h"
#include "galleryValues.h"
#include "gfxImageUtil.h"
#include "ixTile.h"
#include "smGl.h"
#include "wsFont.h"
#include "wsFontRegistry.h"
#include "wsManagedImage.h"
#include "wsSdl.h"

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

using namespace Zr;

namespace {

CoRgbColor named(char const* name) {
    return UiColorRegistry::getInstance().getColor(name);
}

RCShdPtr<UiFrame> frameNamed(char const* name) {
    UiFrameRegistry& frames = UiFrameRegistry::getInstance();
    return frames.create(frames.isRegisteredType(name) ? name : "None");
}

void setColor(CoRgbColor const& c) {
    float rgb[3] = {c.r, c.g, c.b};
    SmGl::color3fv(rgb);
}

// A user-draw callback bound to a function of the widget's rectangle (the drawing
// coordinates of a user-draw callback are those of the widget's rectangle).
class Painter : public CbHandler<EvEvent> {
public:
    Painter(UiWidget* widget, std::function<void(GeRectangle<int> const&)> paint)
        : _widget(widget), _paint(std::move(paint)) {
        _widget->addUserDrawCb(this);
    }
    ~Painter() override { _widget->removeUserDrawCb(this); }
    void call(EvEvent&) override { _paint(_widget->getRect()); }

private:
    UiWidget* _widget;
    std::function<void(GeRectangle<int> const&)> _paint;
};

// Carries a colour name from a swatch to the status line: a swatch's sink puts the name in the
// carrier; the status line's sink takes a carrier that holds one and tells the gallery.
class ColourSink : public DrSrcSink {
public:
    ColourSink(std::string colour, std::function<void(std::string const&)> dropped)
        : _colour(std::move(colour)), _dropped(std::move(dropped)) {}

    bool willPopulateSelection() override { return !_colour.empty(); }
    void populateSelection(DrCarrier& carrier) override {
        carrier.getSelection()->addItem(SnItemConvert<std::string>::createItem(_colour));
    }
    bool willConsumeSelection(DrCarrier const& carrier) override {
        RCShdPtr<SnItem> item = carrier.getSelection()->getFirstItem();
        return _dropped && item && SnItemConvert<std::string>::test(item);
    }
    bool consumeSelection(DrCarrier& carrier) override {
        if (!willConsumeSelection(carrier))
            return false;
        _dropped(SnItemConvert<std::string>::get(carrier.getSelection()->getFirstItem()));
        return true;
    }

private:
    std::string _colour;
    std::function<void(std::string const&)> _dropped;
};

// Places `w` by a constraint in its text form ("14 p l 14 p b -14 p r 42 p h"): the gallery's
// layout is nothing but these, so the panels follow the window when it is resized.
void place(UiWidget& w, char const* constraint) {
    UiConstraint c;
    std::istringstream text(constraint);
    c.read(text);
    w.setConstraint(c);
}

// The widget tree of the gallery and what draws into it. Everything lies on the 7-pixel grid:
// 14-pixel margins, 7-pixel gaps, sizes in multiples of 7.
class Gallery {
public:
    Gallery() {
        WsWindowStyle style = WsWindowStyleUtils::getNormalWindowStyle({80, 731, 80, 1018});
        style.setMainWindow(true); // closing it quits
        _window = UiTopLevel::create("ZRui gallery", nullptr, style);
        _window->setWindowTitle("ZRui gallery");
        UiContainer* root = _window->getRootContainer().get();
        root->setShadedBackground(true);
        WsFontRegistry& fonts = WsFontRegistry::getInstance();
        _title = fonts.getFont(WsFontRegistry::Normal18Font);
        _text = fonts.getFont(WsFontRegistry::Normal14Font);
        _bold = fonts.getFont(WsFontRegistry::Bold12Font);
        _small = fonts.getFont(WsFontRegistry::Normal12Font);
        _italic = fonts.getFont(WsFontRegistry::Italic12Font);
        _fixed = fonts.getFont(WsFontRegistry::Fixed12Font);

        for (RCShdPtr<PiTool const> const& tool : PiToolRegistry::getInstance().getTools())
            _nodeTypes += (_nodeTypes.empty() ? "" : ", ") + tool->getName();
        // Siblings first: a constraint names only widgets made before it.
        buildHeader(root);
        buildSwatches(root);
        buildButtons(root);
        _node = std::make_unique<GalleryNode>(_window->getRootContainer(),
                                              "14 p l 7 p s ok -14 p r 133 p h");
        _menus = std::make_unique<GalleryMenus>(_window->getRootContainer(),
                                                "14 p l 7 p s nodePanel -14 p r 35 p h");
        _textPanel =
            std::make_unique<GalleryTextPanel>(root, "14 p l 7 p s menusPanel -14 p r 77 p h");
        _ranges = std::make_unique<GalleryRanges>(_window->getRootContainer(), "textPanel");
        _values = std::make_unique<GalleryValues>(_window->getRootContainer(), "rangesPanel");
        buildTextPanel(root);
        buildDefinedPanel();
        // Tab and Shift+Tab step among the fields and buttons in reading order; the first text
        // field has the keyboard focus.
        root->setTabbingEnabled(true);
        root->refreshTabbingState();
    }

    ~Gallery() {
        _painters.clear();
        _window->getRootContainer()->removeChildren();
    }

    UiTopLevel& window() { return *_window; }

private:
    // A widget that only shows something: it takes no keyboard focus.
    RCShdPtr<UiWidget> plain(UiContainer* parent, char const* name, char const* background,
                             char const* frame) {
        RCShdPtr<UiWidget> w = UiWidget::create(parent, name);
        w->setKeyboardFocusable(false);
        w->setColor(UiWidget::BackgroundColor, named(background));
        w->setColor(UiWidget::ParentColor, parent->getCurrentBackground());
        w->setFrame(frameNamed(frame), UiWidget::DefaultFrame);
        return w;
    }

    void paint(UiWidget* w, std::function<void(GeRectangle<int> const&)> fn) {
        _painters.push_back(std::make_unique<Painter>(w, std::move(fn)));
    }

    // A panel's heading, in its top left corner.
    void heading(GeRectangle<int> const& r, std::string const& text) {
        setColor(named("Grey200"));
        _bold->drawString(text, r.x1 + 14.f, r.y2 - 21.f);
    }

    void buildHeader(UiContainer* root) {
        RCShdPtr<UiWidget> header = plain(root, "header", "Blue2", "PushOut");
        place(*header, "14 p l -63 p t -14 p r -14 p t");
        paint(header.get(), [this](GeRectangle<int> const& r) {
            float const baseline = (r.y1 + r.y2) / 2.f - 6.f;
            setColor(named("White"));
            _title->drawString("ZRui", r.x1 + 14.f, baseline);
            setColor(named("Grey200"));
            std::string const sub = "widgets drawn with OpenGL, placed on a 7-pixel grid";
            _small->drawString(sub, r.x2 - 14.f - _small->getStringWidth(sub), baseline + 1.f);
        });
    }

    // A strip of six colour chips, each a sixth of the strip wide whatever the window's width;
    // the chips cover the strip, so its own background never shows.
    void buildSwatches(UiContainer* root) {
        static char const* const colours[][2] = {{"Red", "Red"},       {"Orange", "Orange"},
                                                 {"Yellow", "Yellow"}, {"Green1", "Green"},
                                                 {"Cyan1", "Cyan"},    {"Blue1", "Blue"}};
        RCShdPtr<UiContainer> palette = UiContainer::create(root, "palette");
        palette->setKeyboardFocusable(false);
        place(*palette, "14 p l -112 p t -14 p r -70 p t");
        int i = 0;
        for (auto const& [colour, label] : colours) {
            RCShdPtr<UiWidget> swatch = plain(palette.get(), colour, colour, "PushOut");
            std::ostringstream cell;
            cell << 100.0 * i / 6 << " % l 0 p b " << 100.0 * (i + 1) / 6 << " % l 0 p t";
            place(*swatch, cell.str().c_str());
            ++i;
            RCShdPtr<UiDragAndDrop> dnd = UiDragAndDrop::create();
            dnd->setDndSrcSink(makeShared<ColourSink>(label, nullptr));
            dnd->setDragEnabled(true);
            swatch->setDndObject(dnd);
            swatch->setDragRecogniser(std::make_unique<UiGestureDrag>());
            paint(swatch.get(), [this, text = std::string(label)](GeRectangle<int> const& r) {
                setColor(named("Black"));
                _small->drawCenteredString(text, (r.x1 + r.x2) / 2.f, (r.y1 + r.y2) / 2.f, 1.f,
                                           true, true);
            });
        }
    }

    void buildButtons(UiContainer* root) {
        _ok = UiPushButton::create(root, "ok");
        _cancel = UiPushButton::create(root, "cancel");
        place(*_ok, "14 p l 14 p b 98 p w 35 p h");
        place(*_cancel, "7 p s ok 14 p b 98 p w 35 p h");
        _ok->getLabel().setString("OK");
        _cancel->getLabel().setString("Cancel");
        for (UiPushButton* b : {_ok.get(), _cancel.get()}) {
            b->getLabel().setFont(WsFontRegistry::Normal14Font);
            b->setKeyboardFocusFrame(true);
        }
        RCShdPtr<UiWidget> status = plain(root, "status", "Grey30", "In");
        place(*status, "7 p s cancel 14 p b -14 p r 35 p h");
        UiWidget* statusWidget = status.get();
        RCShdPtr<UiDragAndDrop> dnd = UiDragAndDrop::create();
        dnd->setDndSrcSink(makeShared<ColourSink>("", [this, statusWidget](std::string const& c) {
            _status = "Dropped " + c + " here";
            statusWidget->markForUpdate();
        }));
        dnd->setDropEnabled(true);
        status->setDndObject(dnd);
        paint(statusWidget, [this](GeRectangle<int> const& r) {
            setColor(named("Foreground"));
            _small->drawString(_status, r.x1 + 14.f, (r.y1 + r.y2) / 2.f - 4.f);
        });
        _onOk = std::make_unique<CbFunction<EvEvent>>([this, statusWidget](EvEvent&) {
            _status = "OK pressed " + std::to_string(++_okCount) + " time(s)";
            statusWidget->markForUpdate();
        });
        _onCancel = std::make_unique<CbFunction<EvEvent>>(
            [](EvEvent&) { UiApplication::getInstance().exitLoop(); });
        _ok->addActivateCb(_onOk.get());
        _cancel->addActivateCb(_onCancel.get());
    }

    // Between the swatches and the buttons, left of the middle: the registry's faces.
    void buildTextPanel(UiContainer* root) {
        RCShdPtr<UiWidget> panel = plain(root, "typography", "TextBackground", "In");
        place(*panel, "14 p l 7 p s valuesPanel -4 p c -119 p t");
        paint(panel.get(), [this](GeRectangle<int> const& r) {
            heading(r, "Type");
            float const x = r.x1 + 14.f;
            float y = r.y2 - 49.f;
            auto line = [&](WsFont& font, char const* colour, std::string const& text) {
                setColor(named(colour));
                font.drawString(text, x, y);
                y -= font.getLineHeight() + 7;
            };
            line(*_text, "TitleForeground", "The quick brown fox");
            line(*_small, "Foreground", "jumps over the lazy dog.");
            line(*_italic, "Yellow1", "Italic for emphasis and notes");
            line(*_bold, "Foreground", "Bold for headings");
            line(*_fixed, "Green4", "Monospace 0123456789 {}[]<>");
            line(*_small, "Cyan1",
                 "UTF-8: \xc3\xa9t\xc3\xa9, na\xc3\xafve, \xc3\x85ngstr\xc3\xb6m");
            line(*_bold, "Orange", "Node types");
            // The names wrap at the panel's edge, between two names.
            std::string row;
            std::istringstream names(_nodeTypes);
            for (std::string name; std::getline(names >> std::ws, name, ',');) {
                std::string const longer = row.empty() ? name : row + ", " + name;
                if (!row.empty() && _small->getStringWidth(longer + ",") > r.x2 - 14.f - x) {
                    line(*_small, "Orange", row + ",");
                    row = name;
                } else {
                    row = longer;
                }
            }
            line(*_small, "Orange", row);
        });
    }

    // Right of the middle, a panel built from the widget definition shipped in
    // resources/resTables: the gallery only draws into the widgets the definition names.
    void buildDefinedPanel() {
        OsFilePath const file =
            InPaths::getResourcesDir() + UiResTable::getResTableDir() + "galleryPanel.xml";
        RCShdPtr<UiWidget> panel;
        try {
            panel = UiWidgetFactory::createWidgetFromFile(_window->getRootContainer(), file);
        } catch (ExBase const& e) {
            std::fprintf(stderr, "zrui-gallery: %s\n", e.getReason().c_str());
            return;
        }
        auto* container = dynamic_cast<UiContainer*>(panel.get());
        if (!container)
            return;
        if (RCShdPtr<UiWidget> caption = container->findWidget(LiString("caption")))
            paint(caption.get(), [this](GeRectangle<int> const& r) {
                setColor(named("White"));
                _bold->drawString("Icons", r.x1 + 7.f, r.y1 + 7.f);
            });
        if (RCShdPtr<UiWidget> icons = container->findWidget(LiString("icons")))
            paint(icons.get(), [this](GeRectangle<int> const& r) { drawIcons(r); });
        if (RCShdPtr<UiWidget> note = container->findWidget(LiString("note")))
            paint(note.get(), [this](GeRectangle<int> const& r) {
                setColor(named("Foreground"));
                _small->drawCenteredString("the icons the toolkit ships", (r.x1 + r.x2) / 2.f,
                                           (r.y1 + r.y2) / 2.f, 1.f, true, true);
            });
    }

    // The icons the toolkit ships, through the icon registry, in a row; the small ones zoomed
    // twice so their shapes show.
    void drawIcons(GeRectangle<int> const& r) {
        static char const* const files[] = {"cascade.tif", "toggleOn.tif", "toggleOff.tif",
                                            "radioOn.tif", "radioOff.tif", "warningBW.tif",
                                            "anchor.tif"};
        int const gap = 7;
        auto zoom = [](IxTile const& tile) { return tile.getWidth() < 16 ? 2 : 1; };
        std::vector<RCShdPtr<IxTile>> tiles;
        int width = -gap;
        for (char const* file : files) {
            try {
                tiles.push_back(
                    UiIconRegistry::getInstance().loadImage(OsFilePath(file))->getImage());
                width += zoom(*tiles.back()) * tiles.back()->getWidth() + gap;
            } catch (ExBase const&) {
                // A missing icon leaves no gap; the others still show.
            }
        }
        int x = (r.x1 + r.x2 - width) / 2;
        for (auto const& tile : tiles) {
            int const z = zoom(*tile);
            int const y = (r.y1 + r.y2 - z * tile->getHeight()) / 2;
            GfxImageUtil::draw(tile, {tile->getWidth(), tile->getHeight()}, {x, y},
                               static_cast<float>(z), true);
            x += z * tile->getWidth() + gap;
        }
    }

    RCShdPtr<UiTopLevel> _window;
    RCShdPtr<WsFont> _title, _text, _bold, _small, _italic, _fixed;
    RCShdPtr<UiPushButton> _ok, _cancel;
    std::unique_ptr<CbFunction<EvEvent>> _onOk, _onCancel;
    std::unique_ptr<GalleryMenus> _menus;
    std::unique_ptr<GalleryNode> _node;
    std::unique_ptr<GalleryTextPanel> _textPanel;
    std::unique_ptr<GalleryRanges> _ranges;
    std::unique_ptr<GalleryValues> _values;
    std::vector<std::unique_ptr<Painter>> _painters;
    std::string _status = "Drag a colour here, or Tab and Return.";
    int _okCount = 0;
    std::string _nodeTypes;
};

struct Options {
    std::string screenshot;
    int frames = 0;
    int width = 0, height = 0; // --size: the window's size after it opens
};

bool parse(int argc, char** argv, Options& options) {
    for (int i = 1; i < argc; ++i) {
        std::string const arg = argv[i];
        if (arg == "--screenshot" && i + 1 < argc) {
            options.screenshot = argv[++i];
        } else if (arg == "--frames" && i + 1 < argc) {
            options.frames = std::atoi(argv[++i]);
            if (options.frames <= 0)
                return false;
        } else if (arg == "--size" && i + 1 < argc) {
            char x = 0;
            std::istringstream size(argv[++i]);
            if (!(size >> options.width >> x >> options.height) || x != 'x' || options.width < 1 ||
                options.height < 1 || !size.eof())
                return false;
        } else {
            return false;
        }
    }
    return true;
}

// Runs the loop until `count` turns have repainted something.
void runUntilRedrawn(int count, std::function<void()> const& afterEach = {}) {
    UiApplication& app = UiApplication::getInstance();
    int redraws = 0;
    CbFunction<DtTimeIndex const> counter([&](DtTimeIndex const&) {
        if (++redraws >= count)
            app.exitLoop();
        else if (afterEach)
            afterEach();
    });
    app.addCallback(&counter);
    app.messageLoop();
    app.removeCallback(&counter);
}

} // namespace

int main(int argc, char** argv) {
    Options options;
    if (!parse(argc, argv, options)) {
        std::cerr << "usage: zrui-gallery [--screenshot FILE.png] [--frames N] [--size WxH]\n";
        return 2;
    }
    // With no display the gallery can still draw its screenshot or time its frames offscreen;
    // a person can't use it there.
    bool const interactive = options.screenshot.empty() && options.frames == 0;
    if (interactive && !WsSdl::isDisplayNamed()) {
        std::cerr << "zrui-gallery: no display; run it on a desktop, or give --screenshot "
                     "FILE.png to draw it offscreen\n";
        return 3;
    }
    bool const offscreen = WsSdl::chooseOffscreenWithoutDisplay();
    InInitGuard packages(argc, argv);
    UiApplication& app = UiApplication::getInstance();
    if (!WsSdl::isActive()) {
        std::cerr << "zrui-gallery: no window can be opened (" << WsSdl::getLastError() << ")\n";
        return 3;
    }
    if (offscreen)
        std::cout << "no display: drawing offscreen\n";
    int status = 0;
    {
        Gallery gallery;
        UiTopLevel& window = gallery.window();
        window.show();
        if (options.width > 0) {
            GeRectangle<int> r = window.getRect();
            window.setRect({r.x1, r.x1 + options.width, r.y1, r.y1 + options.height});
        }
        if (!options.screenshot.empty()) {
            runUntilRedrawn(1);
            try {
                window.writeScreenshot(OsFilePath(options.screenshot));
                std::cout << "wrote " << std::filesystem::absolute(options.screenshot).string()
                          << "\n";
            } catch (ExBase const& e) {
                std::cerr << "zrui-gallery: " << e.what() << "\n";
                status = 1;
            }
        } else if (options.frames > 0) {
            runUntilRedrawn(1);
            auto const start = std::chrono::steady_clock::now();
            UiContainer* root = window.getRootContainer().get();
            root->markForUpdate();
            runUntilRedrawn(options.frames, [root] { root->markForUpdate(); });
            double const ms =
                std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
                    .count();
            std::cout << options.frames << " full repaints in " << ms << " ms ("
                      << ms / options.frames << " ms each)\n";
        } else {
            app.messageLoop();
        }
        app.clearCurrentWindow();
    }
    return status;
}
