// Input from the X server itself, made with XTest, through SDL and the toolkit's loop: a click
// gives keyboard focus and Tab moves it on; a press, a drag past the threshold and a release
// carry a string from a source to a target. Skipped without a display or without XTest.
#include "xinputWindowFixture.h"

#include "drSrcSink.h"
#include "snItemConvert.h"
#include "uiApplication.h"
#include "uiContainer.h"
#include "uiDragAndDrop.h"
#include "uiFocusKeyboard.h"
#include "uiGestureRecogniser.h"
#include "uiGrab.h"
#include "uiTextField.h"
#include "uiTopLevel.h"
#include "uiTransporter.h"
#include "uiWidget.h"

#include "wsScreenshot.h"
#include "wsSdl.h"
#include "wsSdlWindow.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

using namespace Zr;
using Zr::XInputTest::XInputDriver;

namespace {

// Gives a string to drags and takes strings from drops, counting each call.
class StringSink : public DrSrcSink {
public:
    explicit StringSink(std::string give = {}) : _give(std::move(give)) {}
    bool willPopulateSelection() override { return !_give.empty(); }
    void populateSelection(DrCarrier& carrier) override {
        ++populated;
        carrier.getSelection()->addItem(SnItemConvert<std::string>::createItem(_give));
    }
    bool willConsumeSelection(DrCarrier const& carrier) override {
        return !carrier.getSelection()->isEmpty();
    }
    bool consumeSelection(DrCarrier& carrier) override {
        for (auto const& item : *carrier.getSelection())
            if (SnItemConvert<std::string>::test(item))
                consumed.push_back(SnItemConvert<std::string>::get(item));
        return true;
    }
    void dropCompleted(DrCarrier&) override { ++completed; }
    void operationCancelled(DrCarrier&) override { ++cancelled; }

    int populated = 0;
    int completed = 0;
    int cancelled = 0;
    std::vector<std::string> consumed;

private:
    std::string _give;
};

using XInputFixture = XInputTest::XInputWindowFixture;
using XInputFocus = XInputFixture;
using XInputDragAndDrop = XInputFixture;
// A second top level beside the fixture's, shown and settled.
class XInputDesktop : public XInputFixture {
protected:
    RCShdPtr<UiTopLevel> openSecond(char const* title, bool main) {
        WsWindowStyle style = WsWindowStyleUtils::getNormalWindowStyle({500, 700, 100, 300});
        style.setMainWindow(main);
        RCShdPtr<UiTopLevel> window = UiTopLevel::create(title, nullptr, style);
        window->show();
        pumpFor(100);
        return window;
    }
};

// A source that gives "carried" to drags and a target that takes drops, both in the root.
struct DragPair {
    RCShdPtr<UiWidget> source, target;
    RCShdPtr<StringSink> sourceSink = makeShared<StringSink>("carried");
    RCShdPtr<StringSink> targetSink = makeShared<StringSink>();

    explicit DragPair(UiContainer* root) {
        source = UiWidget::create(root, "source");
        source->setRect({20, 80, 20, 80});
        target = UiWidget::create(root, "target");
        target->setRect({200, 260, 20, 80});
        RCShdPtr<UiDragAndDrop> from = UiDragAndDrop::create();
        from->setDndSrcSink(sourceSink);
        from->setDragEnabled(true);
        source->setDndObject(from);
        source->setDragRecogniser(std::make_unique<UiGestureDrag>());
        RCShdPtr<UiDragAndDrop> to = UiDragAndDrop::create();
        to->setDndSrcSink(targetSink);
        to->setDropEnabled(true);
        target->setDndObject(to);
    }
};

std::uint32_t nativeId(UiWindow& window) {
    return static_cast<WsSdlWindow*>(window.getOSWindow().get())->getNativeId();
}

TEST_F(XInputFocus, AClickGivesKeyboardFocusAndTabMovesItOn) {
    RCShdPtr<UiContainer> panel = UiContainer::create(_top->getRootContainer().get(), "panel");
    panel->setRect({0, 320, 0, 220});
    RCShdPtr<UiWidget> first = UiWidget::create(panel.get(), "first");
    first->setRect({20, 100, 120, 160});
    RCShdPtr<UiWidget> second = UiWidget::create(panel.get(), "second");
    second->setRect({20, 100, 40, 80});
    panel->setTabbingEnabled(true);
    pumpFor(50);
    UiFocusKeyboard& focus = UiFocusKeyboard::getInstance();

    moveTo(60, 60);
    button(true);
    button(false);
    ASSERT_TRUE(pumpUntil([&] { return focus.getFocus() == second.get(); }, 2000))
        << "focus: " << (focus.getFocus() ? focus.getFocus()->getName().str() : "none");

    key("Tab");
    EXPECT_TRUE(pumpUntil([&] { return focus.getFocus() == first.get(); }, 2000))
        << "focus: " << (focus.getFocus() ? focus.getFocus()->getName().str() : "none");
    key("Tab");
    EXPECT_TRUE(pumpUntil([&] { return focus.getFocus() == second.get(); }, 2000));
    panel->setTabbingEnabled(false);
}

TEST_F(XInputDragAndDrop, APressADragAndAReleaseCarryTheStringToTheTarget) {
    DragPair pair(_top->getRootContainer().get());
    auto& sourceSink = pair.sourceSink;
    auto& targetSink = pair.targetSink;
    pumpFor(50);

    moveTo(50, 50);
    button(true);
    // Within the threshold: still no drag.
    moveTo(53, 50);
    moveTo(55, 52);
    EXPECT_FALSE(UiTransporter::isTransporting());
    moveTo(70, 50);
    EXPECT_TRUE(pumpUntil([] { return UiTransporter::isTransporting(); }, 2000));
    for (int x = 100; x <= 230; x += 30)
        moveTo(x, 50);
    button(false);
    ASSERT_TRUE(pumpUntil([&] { return !targetSink->consumed.empty(); }, 2000));
    pumpFor(50);

    EXPECT_EQ(targetSink->consumed, std::vector<std::string>{"carried"});
    EXPECT_EQ(sourceSink->populated, 1);
    EXPECT_EQ(sourceSink->completed, 1);
    EXPECT_EQ(sourceSink->cancelled, 0);
    EXPECT_FALSE(UiTransporter::isTransporting());
    EXPECT_EQ(UiGrab::pointer().getCurrent(), nullptr);
}

TEST_F(XInputDragAndDrop, AQuickDragThatLeavesTheSourceAtOnceIsNotLost) {
    // The first move past the threshold is already off the source: a jump straight onto the
    // target, and a flick in big steps.
    std::vector<std::vector<int>> const paths = {{230}, {90, 130, 170, 210, 230}};
    for (std::vector<int> const& path : paths) {
        SCOPED_TRACE(path.size() == 1 ? "jump" : "flick");
        DragPair pair(_top->getRootContainer().get());
        pumpFor(50);
        moveTo(50, 50);
        button(true);
        for (int x : path)
            moveTo(x, 50);
        button(false);
        EXPECT_TRUE(pumpUntil([&] { return !pair.targetSink->consumed.empty(); }, 2000));
        EXPECT_EQ(pair.targetSink->consumed, std::vector<std::string>{"carried"});
        EXPECT_EQ(pair.sourceSink->completed, 1);
        _top->getRootContainer()->removeChildren();
    }
}

TEST_F(XInputDragAndDrop, EscapeFromTheKeyboardCancelsTheDrag) {
    DragPair pair(_top->getRootContainer().get());
    auto& sourceSink = pair.sourceSink;
    pumpFor(50);

    moveTo(50, 50);
    button(true);
    moveTo(70, 50);
    moveTo(150, 50);
    ASSERT_TRUE(pumpUntil([] { return UiTransporter::isTransporting(); }, 2000));
    key("Escape");
    EXPECT_TRUE(pumpUntil([] { return !UiTransporter::isTransporting(); }, 2000));
    button(false);
    pumpFor(50);
    EXPECT_EQ(sourceSink->cancelled, 1);
    EXPECT_EQ(sourceSink->completed, 0);
}

// The window manager's close button on a main window asks to quit: the exit handlers are
// asked (this one refuses, so that the test's process goes on).
TEST_F(XInputDesktop, TheCloseButtonOfTheMainWindowAsksToQuit) {
    UiApplication& app = UiApplication::getInstance();
    RCShdPtr<UiTopLevel> main = openSecond("main", true);
    struct Refuse : UiApplication::ExitHandler {
        int asked = 0;
        bool canExit() override { return ++asked, false; }
    } refuse;
    UiApplication::addExitHandler(&refuse);
    _x.askToClose(nativeId(*main));
    pumpUntil([&] { return refuse.asked > 0; }, 2000);
    UiApplication::removeExitHandler(&refuse);
    EXPECT_EQ(refuse.asked, 1);
    app.clearCurrentWindow();
}

// Another client destroys one of the program's windows: no X error ends the program; the
// window is closed as if its close button had been pressed, and the others go on.
TEST_F(XInputDesktop, AWindowDestroyedUnderTheProgramIsClosed) {
    UiApplication& app = UiApplication::getInstance();
    RCShdPtr<UiTopLevel> doomed = openSecond("doomed", false);
    int closes = 0;
    CbFunction<EvEvent> onClose([&](EvEvent&) { ++closes; });
    app.addWindowCloseHandler(&onClose);
    WsWindow* os = doomed->getOSWindow().get();
    _x.destroy(nativeId(*doomed));
    pumpUntil([&] { return closes > 0; }, 2000);
    doomed->getRootContainer()->markForUpdate();
    pumpFor(100);
    app.removeWindowCloseHandle(&onClose);
    EXPECT_EQ(closes, 1);
    EXPECT_EQ(app.getWindowRef(os), nullptr);
    // The other window still takes input.
    RCShdPtr<UiWidget> w = UiWidget::create(_top->getRootContainer().get(), "alive");
    w->setRect({20, 100, 20, 100});
    moveTo(50, 50);
    button(true);
    button(false);
    EXPECT_TRUE(
        pumpUntil([&] { return UiFocusKeyboard::getInstance().getFocus() == w.get(); }, 2000));
    app.clearCurrentWindow();
}

// Real keys in a text field: a click starts the edit at the pointer, characters come through
// SDL's text input, BackSpace and Left through the field's hotkeys, Return commits. While the
// edit runs the cursor is drawn in black after the typed text.
TEST_F(XInputFocus, TypingInATextFieldEditsOnScreenAndReturnCommits) {
    RCShdPtr<UiTextField> field = UiTextField::create(_top->getRootContainer().get(), "field");
    field->setRect({21, 301, 98, 126});
    std::vector<std::string> log;
    CbFunction<EvEvent> onEnter(
        [&](EvEvent&) { log.push_back("enter " + field->getString().str()); });
    field->addKeyEnterCb(&onEnter);
    pumpFor(50);
    moveTo(280, 112);
    button(true);
    button(false);
    ASSERT_TRUE(pumpUntil([&] { return field->isEditing(); }, 2000));
    for (char const* name : {"a", "b", "c", "BackSpace", "Left", "x"})
        key(name);
    ASSERT_TRUE(pumpUntil([&] { return field->getString().str() == "axb"; }, 2000))
        << field->getString().str();
    int const cursorX =
        field->getTextOrigin().x + static_cast<int>(field->getFont()->getStringWidth("ax"));
    _top->getRootContainer()->markForUpdate();
    pumpFor(50);
    GeRectangle<int> const g = _top->getOSWindow()->getGeometry();
    std::vector<std::uint8_t> const px = _top->readPixels();
    EXPECT_EQ(WsScreenshot::pixelAt(px, g.width(), g.height(), cursorX, 112) >> 8, 0u);
    EXPECT_NE(WsScreenshot::pixelAt(px, g.width(), g.height(), cursorX + 2, 112) >> 8, 0u);
    key("Return");
    ASSERT_TRUE(pumpUntil([&] { return !log.empty(); }, 2000));
    EXPECT_EQ(log, std::vector<std::string>{"enter axb"});
    EXPECT_FALSE(field->isEditing());
}

} // namespace
