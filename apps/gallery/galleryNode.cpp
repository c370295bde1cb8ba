// The gallery's "Node" panel: the node, its NodeWidget, the undo and redo controls and the line
// that names the stack's next steps.
#include "galleryNode.h"

#include "piCommandStack.h"
#include "piGraph.h"
#include "piGraphUtils.h"
#include "smGl.h"
#include "wsFont.h"
#include "wsFontRegistry.h"

#include <sstream>

namespace Zr {

namespace {

CoRgbColor named(char const* name) {
    return UiColorRegistry::getInstance().getColor(name);
}

void place(UiWidget& w, char const* constraint) {
    UiConstraint c;
    std::istringstream text(constraint);
    c.read(text);
    w.setConstraint(c);
}

} // namespace

GalleryNode::GalleryNode(RCShdPtr<UiContainer> const& root, std::string const& constraint) {
    _panel = UiContainer::create(root.get(), "nodePanel");
    _panel->setKeyboardFocusable(false);
    _panel->setColor(UiWidget::BackgroundColor, named("Grey45"));
    _panel->setColor(UiWidget::ParentColor, root->getCurrentBackground());
    UiFrameRegistry& frames = UiFrameRegistry::getInstance();
    if (frames.isRegisteredType("PushOut"))
        _panel->setFrame(frames.create("PushOut"), UiWidget::DefaultFrame);
    place(*_panel, constraint.c_str());

    // The node's panel, 420 by 91 pixels, left in the strip under its heading.
    RCShdPtr<UiContainer> nodeWidget = dynamicCast<UiContainer>(
        UiWidgetFactory::createWidget(_panel, "NodeWidget", "nodeWidget", nullptr, nullptr));
    place(*nodeWidget, "7 p l 7 p b 420 p w 91 p h");
    auto undo = UiPushButton::create(_panel.get(), "undo");
    auto redo = UiPushButton::create(_panel.get(), "redo");
    place(*undo, "14 p s nodeWidget 49 p b 84 p w 28 p h");
    place(*redo, "7 p s undo 49 p b 84 p w 28 p h");
    undo->getLabel().setString("Undo");
    redo->getLabel().setString("Redo");
    _stackLine = UiWidget::create(_panel.get(), "stack");
    _stackLine->setKeyboardFocusable(false);
    _stackLine->setColor(UiWidget::BackgroundColor, named("Grey45"));
    place(*_stackLine, "14 p s nodeWidget 7 p b -7 p r 35 p h");

    if (PiToolRegistry::getInstance().findTool("Glow").isNull())
        return;
    _node = _graph->createNode("Glow");
    UiNodeWidget::setContent(dynamicCast<PiNodeWidget>(nodeWidget->retrieveInterface()), _node,
                             PiGraphUtils::getTimePath(RCShdPtr<PiNode const>(_node)));

    RCShdPtr<PiCommandStack> stack = _graph->getCommandStack();
    auto runUndo = [stack] { stack->undo(); };
    auto runRedo = [stack] { stack->redo(); };
    onClick(*undo, runUndo);
    onClick(*redo, runRedo);
    EvKeyboardState const ctrl(EvKeyboardState::Control);
    EvKeyboardState const shiftCtrl(EvKeyboardState::Control | EvKeyboardState::Shift);
    onHotkey("Undo", UiHotkey(EvKeyCode::Z, ctrl), runUndo);
    onHotkey("Redo", UiHotkey(EvKeyCode::Z, shiftCtrl), runRedo);
    _stackChanged = std::make_unique<CbFunction<CbEmptyType>>([this] { showStack(); });
    stack->addChangeCb(_stackChanged.get());
    showStack();

    WsFontRegistry& fonts = WsFontRegistry::getInstance();
    RCShdPtr<WsFont> bold = fonts.getFont(WsFontRegistry::Bold12Font);
    RCShdPtr<WsFont> small = fonts.getFont(WsFontRegistry::Normal12Font);
    std::string const heading = "Node: " + _node->getName() + ", built from its description";
    paint(*_panel, [bold, heading](GeRectangle<int> const& r) {
        SmGl::color3fv(named("Grey200").data());
        bold->drawString(heading, r.x1 + 14.f, r.y2 - 21.f);
    });
    paint(*_stackLine, [this, small](GeRectangle<int> const& r) {
        SmGl::color3fv(named("Foreground").data());
        std::istringstream lines(_stackText);
        std::string line;
        for (float y = r.y2 - 14.f; std::getline(lines, line); y -= 16.f)
            small->drawString(line, r.x1 + 2.f, y);
    });
}

GalleryNode::~GalleryNode() {
    if (_stackChanged)
        _graph->getCommandStack()->removeChangeCb(_stackChanged.get());
    for (auto& [widget, handler] : _painters)
        widget->removeUserDrawCb(handler.get());
    for (auto& [button, handler] : _clicks)
        button->removeActivateCb(handler.get());
    for (auto& handler : _hotkeys)
        UiHotkeyRegistry::getInstance().removeHotkeyHandler(handler.get());
}

void GalleryNode::paint(UiWidget& widget, std::function<void(GeRectangle<int> const&)> draw) {
    UiWidget* w = &widget;
    auto handler = std::make_unique<CbFunction<EvEvent>>(
        [w, draw = std::move(draw)](EvEvent&) { draw(w->getRect()); });
    widget.addUserDrawCb(handler.get());
    _painters.emplace_back(RCShdPtr<UiWidget>(w), std::move(handler));
}

void GalleryNode::onClick(UiPushButton& button, std::function<void()> action) {
    auto handler = std::make_unique<CbFunction<EvEvent>>([action](EvEvent&) { action(); });
    button.addActivateCb(handler.get());
    _clicks.emplace_back(RCShdPtr<UiPushButton>(&button), std::move(handler));
}

// The hotkey tables have no undo entries: the gallery adds them to "/Global" unless a table
// binds them already.
void GalleryNode::onHotkey(char const* action, UiHotkey const& key, std::function<void()> run) {
    UiHotkeyRegistry& hotkeys = UiHotkeyRegistry::getInstance();
    int entry = hotkeys.getEntry(LiString(action));
    if (entry == 0)
        entry = hotkeys.addEntry("/Global", action, key);
    _hotkeys.push_back(std::make_unique<CbFunction<EvEvent>>([run](EvEvent& event) {
        run();
        event.setProcessed(true);
    }));
    hotkeys.addHotkeyHandler(entry, _hotkeys.back().get());
}

void GalleryNode::showStack() {
    RCShdPtr<PiCommandStack> stack = _graph->getCommandStack();
    std::string const undo = stack->getUndoLabel(), redo = stack->getRedoLabel();
    _stackText = "Undo: " + (undo.empty() ? std::string("nothing") : undo) +
                 "\nRedo: " + (redo.empty() ? std::string("nothing") : redo);
    _stackLine->markForUpdate();
}

} // namespace Zr
