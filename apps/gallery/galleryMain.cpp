// The gallery, the toolkit's main program: a window of widgets in named colours, framed panels,
// a shaded background, text in the registry's fonts, a panel built from a widget definition
// showing the shipped icons, and two push buttons. `--screenshot FILE.png` writes what it shows,
// `--frames N` times N full repaints.
#include "zrUi.h"

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

// The widget tree of the gallery and what draws into it.
class Gallery {
public:
    Gallery() {
        _window = UiTopLevel::create("ZRui gallery", nullptr,
                                     WsWindowStyleUtils::getNormalWindowStyle({80, 720, 80, 480}));
        _window->setWindowTitle("ZRui gallery");
        UiContainer* root = _window->getRootContainer().get();
        root->setShadedBackground(true);
        WsFontRegistry& fonts = WsFontRegistry::getInstance();
        _title = fonts.getFont(WsFontRegistry::Normal18Font);
        _text = fonts.getFont(WsFontRegistry::Normal14Font);
        _small = fonts.getFont(WsFontRegistry::Normal12Font);
        _italic = fonts.getFont(WsFontRegistry::Italic12Font);
        _fixed = fonts.getFont(WsFontRegistry::Fixed12Font);

        for (RCShdPtr<PiTool const> const& tool : PiToolRegistry::getInstance().getTools())
            _nodeTypes += (_nodeTypes.empty() ? "" : ", ") + tool->getName();
        buildTitle(root);
        buildSwatches(root);
        buildTextPanel(root);
        buildDefinedPanel();
        buildButtons(root);
    }

    ~Gallery() {
        _painters.clear();
        _window->getRootContainer()->removeChildren();
    }

    UiTopLevel& window() { return *_window; }

private:
    RCShdPtr<UiWidget> plain(UiContainer* parent, char const* name, GeRectangle<int> rect,
                             char const* background, char const* frame) {
        RCShdPtr<UiWidget> w = UiWidget::create(parent, name);
        w->setRect(rect);
        w->setColor(UiWidget::BackgroundColor, named(background));
        w->setColor(UiWidget::ParentColor, parent->getCurrentBackground());
        w->setFrame(frameNamed(frame), UiWidget::DefaultFrame);
        return w;
    }

    void paint(UiWidget* w, std::function<void(GeRectangle<int> const&)> fn) {
        _painters.push_back(std::make_unique<Painter>(w, std::move(fn)));
    }

    void buildTitle(UiContainer* root) {
        RCShdPtr<UiWidget> title = plain(root, "title", {12, 628, 346, 390}, "Blue2", "PushOut");
        paint(title.get(), [this](GeRectangle<int> const& r) {
            setColor(named("White"));
            _title->drawString("ZRui gallery", r.x1 + 14.f, r.y1 + 15.f);
            setColor(named("Grey175"));
            std::string const sub = "widgets drawn with OpenGL";
            _small->drawString(sub, r.x2 - 14.f - _small->getStringWidth(sub), r.y1 + 17.f);
        });
    }

    void buildSwatches(UiContainer* root) {
        static char const* const colours[] = {"Red",    "Orange", "Yellow",
                                              "Green1", "Cyan1",  "Blue1"};
        int x = 12;
        for (char const* colour : colours) {
            RCShdPtr<UiWidget> swatch = plain(root, colour, {x, x + 94, 284, 330}, colour, "Line");
            RCShdPtr<UiDragAndDrop> dnd = UiDragAndDrop::create();
            dnd->setDndSrcSink(makeShared<ColourSink>(colour, nullptr));
            dnd->setDragEnabled(true);
            swatch->setDndObject(dnd);
            swatch->setDragRecogniser(std::make_unique<UiGestureDrag>());
            std::string label = colour;
            paint(swatch.get(), [this, label](GeRectangle<int> const& r) {
                setColor(named("Black"));
                _small->drawCenteredString(label, (r.x1 + r.x2) / 2.f, (r.y1 + r.y2) / 2.f, 1.f,
                                           true, true);
            });
            x += 104;
        }
    }

    void buildTextPanel(UiContainer* root) {
        RCShdPtr<UiWidget> panel = plain(root, "text", {12, 380, 96, 268}, "TextBackground", "In");
        paint(panel.get(), [this](GeRectangle<int> const& r) {
            float const x = r.x1 + 14.f;
            float y = r.y2 - 14.f - _text->getAscent();
            setColor(named("TitleForeground"));
            _text->drawString("Normal14Font: The quick brown fox", x, y);
            y -= _text->getLineHeight() + 6;
            setColor(named("Foreground"));
            _small->drawString("Normal12Font: jumps over the lazy dog.", x, y);
            y -= _small->getLineHeight() + 6;
            setColor(named("Yellow1"));
            _italic->drawString("Italic12Font: named colours, frames, text", x, y);
            y -= _italic->getLineHeight() + 6;
            setColor(named("Green4"));
            _fixed->drawString("Fixed12Font: 0123456789 {}[]<>", x, y);
            y -= _fixed->getLineHeight() + 6;
            setColor(named("Cyan1"));
            _small->drawString("UTF-8: \xc3\xa9t\xc3\xa9, na\xc3\xafve, \xc3\x85ngstr\xc3\xb6m", x,
                               y);
            y -= _small->getLineHeight() + 6;
            setColor(named("Orange"));
            _small->drawString("Node types: " + _nodeTypes, x, y);
        });
    }

    // A panel built from the widget definition shipped in resources/resTables: the gallery
    // only draws into the widgets the definition names.
    void buildDefinedPanel() {
        OsFilePath const file =
            InPaths::getResourcesDir() + UiResTable::getResTableDir() + "galleryPanel.xml";
        RCShdPtr<UiWidget> panel;
        try {
            panel = UiWidgetFactory::createWidgetFromFile(_window->getRootContainer(), file);
        } catch (ExBase const& e) {
            std::fprintf(stderr, "gallery: %s\n", e.getReason().c_str());
            return;
        }
        auto* container = dynamic_cast<UiContainer*>(panel.get());
        if (!container)
            return;
        if (RCShdPtr<UiWidget> caption = container->findWidget(LiString("caption")))
            paint(caption.get(), [this](GeRectangle<int> const& r) {
                setColor(named("White"));
                _small->drawString("from galleryPanel.xml", r.x1 + 8.f, r.y1 + 7.f);
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
        int const gap = 4;
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

    void buildButtons(UiContainer* root) {
        _ok = UiPushButton::create(root, "ok");
        _cancel = UiPushButton::create(root, "cancel");
        RCShdPtr<UiWidget> status = plain(root, "status", {240, 628, 28, 68}, "Grey30", "In");
        _ok->setRect({12, 112, 28, 68});
        _cancel->setRect({124, 224, 28, 68});
        _ok->getLabel().setString("OK");
        _cancel->getLabel().setString("Cancel");
        for (UiPushButton* b : {_ok.get(), _cancel.get()})
            b->getLabel().setFont(WsFontRegistry::Normal14Font);
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
            _small->drawString(_status, r.x1 + 12.f, (r.y1 + r.y2) / 2.f - 4.f);
        });
        _onOk = std::make_unique<CbFunction<EvEvent>>([this, statusWidget](EvEvent&) {
            _status = "OK pressed " + std::to_string(++_okCount) + " time(s)";
            statusWidget->markForUpdate();
        });
        _onCancel = std::make_unique<CbFunction<EvEvent>>(
            [this](EvEvent&) { UiApplication::getInstance().exitLoop(); });
        _ok->addActivateCb(_onOk.get());
        _cancel->addActivateCb(_onCancel.get());
    }

    RCShdPtr<UiTopLevel> _window;
    RCShdPtr<WsFont> _title, _text, _small, _italic, _fixed;
    RCShdPtr<UiPushButton> _ok, _cancel;
    std::unique_ptr<CbFunction<EvEvent>> _onOk, _onCancel;
    std::vector<std::unique_ptr<Painter>> _painters;
    std::string _status = "Click OK, or drag a colour here; Cancel quits.";
    int _okCount = 0;
    std::string _nodeTypes;
};

struct Options {
    std::string screenshot;
    int frames = 0;
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
        std::cerr << "usage: zrui-gallery [--screenshot FILE.png] [--frames N]\n";
        return 2;
    }
    InInitGuard packages(argc, argv);
    UiApplication& app = UiApplication::getInstance();
    if (!WsSdl::isActive() && (!options.screenshot.empty() || options.frames == 0))
        std::cerr << "zrui-gallery: no display (" << WsSdl::getLastError()
                  << "); the window is headless\n";
    int status = 0;
    {
        Gallery gallery;
        UiTopLevel& window = gallery.window();
        window.show();
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
