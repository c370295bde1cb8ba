// Keyboard and pointer focus: where focus lands, the focus-out and focus-in notices along the
// chains of ancestors, key events bubbling up, and the editor hook's fake Return press; and the
// pointer and keyboard grabs: the hand-over between holders with its notices and callbacks,
// releases, and a holder that goes away.
#include "treeTestSupport.h"
#include "uiFocusKeyboard.h"
#include "uiFocusPointer.h"
#include "uiGrab.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using namespace Zr;

using namespace Zr::TreeTest;

namespace {

// root
//   a (container)      b (container)
//     a1  a2             b1
class FocusKeyboard : public ::testing::Test {
protected:
    void SetUp() override {
        root = MappedRoot::make({0, 300, 0, 300});
        a = makeContainer(root.get(), "a", {0, 100, 0, 100});
        b = makeContainer(root.get(), "b", {100, 200, 0, 100});
        a1 = makeWidget(a.get(), "a1", {0, 10, 0, 10});
        a2 = makeWidget(a.get(), "a2", {20, 30, 0, 10});
        b1 = makeWidget(b.get(), "b1", {0, 10, 0, 10});
        for (UiWidget* w :
             std::vector<UiWidget*>{root.get(), a.get(), b.get(), a1.get(), a2.get(), b1.get()})
            watch(w);
    }
    void TearDown() override {
        UiFocusKeyboard::getInstance().setFocus(nullptr);
        root->removeChildren();
    }
    void watch(UiWidget* w) {
        auto in = std::make_unique<CbFunction<EvEvent>>(
            [this, w](EvEvent&) { log.push_back("in " + w->getName().str()); });
        auto out = std::make_unique<CbFunction<EvEvent>>(
            [this, w](EvEvent&) { log.push_back("out " + w->getName().str()); });
        auto key = std::make_unique<CbFunction<EvEvent>>([this, w](EvEvent& e) {
            auto& press = dynamic_cast<EvKeyPressEvent&>(e);
            log.push_back("key " + std::to_string(press.getTriggerKey()) + " " +
                          w->getName().str());
            if (w->getName() == consumer)
                e.setProcessed();
        });
        w->addKbdFocusInCb(in.get());
        w->addKbdFocusOutCb(out.get());
        w->addKeyPressCb(key.get());
        handlers.push_back(std::move(in));
        handlers.push_back(std::move(out));
        handlers.push_back(std::move(key));
    }
    static UiFocusKeyboard& focus() { return UiFocusKeyboard::getInstance(); }
    // The widget of that name in the tree, null for "".
    UiWidget* widget(std::string const& name) const {
        for (UiWidget* w : std::initializer_list<UiWidget*>{root.get(), a.get(), b.get(), a1.get(),
                                                            a2.get(), b1.get()})
            if (w->getName().str() == name)
                return w;
        return nullptr;
    }
    // Each widget's kind of focus, root a b a1 a2 b1: H has it, C contains it, - neither.
    std::string kinds() const {
        std::string out;
        for (char const* name : {"root", "a", "b", "a1", "a2", "b1"}) {
            int const kind = widget(name)->getKeyboardFocusType();
            out += kind == UiWidget::HasKeyboardFocus        ? 'H'
                   : kind == UiWidget::ContainsKeyboardFocus ? 'C'
                                                             : '-';
        }
        return out;
    }

    RCShdPtr<MappedRoot> root;
    RCShdPtr<UiContainer> a, b;
    RCShdPtr<UiWidget> a1, a2, b1;
    std::vector<std::string> log;
    std::vector<std::unique_ptr<CbFunction<EvEvent>>> handlers;
    std::string consumer;
};

using Log = std::vector<std::string>;

} // namespace

// The notices of a move leave the old chain bottom up, then enter the new one bottom up, below
// the root; ancestors the two chains share hear nothing, and the same focus again is no move.
TEST_F(FocusKeyboard, MovesNotifyAlongTheChainsInOrder) {
    struct Row {
        char const* from;
        char const* to;
        Log notices;
        char const* kinds;
    } const rows[] = {
        {"", "a1", {"in a1", "in a"}, "-C-H--"},
        {"a1", "b1", {"out a1", "out a", "in b1", "in b"}, "--C--H"},
        {"a1", "a2", {"out a1", "in a2"}, "-C--H-"},
        {"a1", "a", {"out a1", "out a", "in a"}, "-H----"},
        {"a", "a1", {"out a", "in a1", "in a"}, "-C-H--"},
        {"a1", "", {"out a1", "out a"}, "------"},
        {"", "", {}, "------"},
        {"a1", "a1", {}, "-C-H--"},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(std::string(row.from) + " to " + row.to);
        focus().setFocus(widget(row.from));
        log.clear();
        focus().setFocus(widget(row.to));
        EXPECT_EQ(log, row.notices);
        EXPECT_EQ(focus().getFocus(), widget(row.to));
        EXPECT_EQ(kinds(), row.kinds);
    }
}

TEST_F(FocusKeyboard, PassesToTheNearestKeyboardFocusableAncestor) {
    a1->setKeyboardFocusable(false);
    focus().setFocus(a1);
    EXPECT_EQ(focus().getFocus(), a.get());
    EXPECT_EQ(log, (Log{"in a"}));
}

TEST_F(FocusKeyboard, TheRootIsNeverTheFocus) {
    a1->setKeyboardFocusable(false);
    a->setKeyboardFocusable(false);
    focus().setFocus(b1);
    log.clear();
    focus().setFocus(a1);
    EXPECT_EQ(focus().getFocus(), b1.get());
    focus().setFocus(root.get());
    EXPECT_EQ(focus().getFocus(), b1.get());
    EXPECT_TRUE(log.empty());
}

TEST_F(FocusKeyboard, NonFocusableWidgetEndsTheCall) {
    focus().setFocus(b1);
    log.clear();
    a1->setFocusable(false);
    focus().setFocus(a1);
    EXPECT_EQ(focus().getFocus(), b1.get());
    EXPECT_TRUE(log.empty());
}

TEST_F(FocusKeyboard, KeysBubbleUpToButNotIntoTheRoot) {
    focus().setFocus(a1);
    log.clear();
    EvKeyPressEvent press = UiTest::keyPressOf(EvKeyCode::letter('x'));
    focus().processEvent(press);
    std::string const key = "key " + std::to_string(EvKeyCode::letter('x'));
    EXPECT_EQ(log, (Log{key + " a1", key + " a"}));
    EXPECT_FALSE(press.isProcessed());

    log.clear();
    consumer = "a1";
    EvKeyPressEvent consumed = UiTest::keyPressOf(EvKeyCode::letter('x'));
    focus().processEvent(consumed);
    EXPECT_EQ(log, (Log{key + " a1"}));
    EXPECT_TRUE(consumed.isProcessed());
}

TEST_F(FocusKeyboard, KeysWithoutFocusGoNowhere) {
    EvKeyPressEvent press = UiTest::keyPressOf(EvKeyCode::Return);
    focus().processEvent(press);
    EXPECT_TRUE(log.empty());
}

TEST_F(FocusKeyboard, DestroyedWidgetLeavesNoFocusBehind) {
    RCShdPtr<UiWidget> doomed = makeWidget(b.get(), "doomed", {50, 60, 0, 10});
    focus().setFocus(doomed);
    ASSERT_EQ(focus().getFocus(), doomed.get());
    b->removeChild(doomed);
    doomed = nullptr;
    EXPECT_EQ(focus().getFocus(), nullptr);
}

namespace {
// Widgets named "editing..." are editors in the middle of an edit; those named "editor..."
// start their edit on Return.
struct NameEditorHook : UiFocusKeyboard::EditorHook {
    bool isEditing(UiWidget& w) const override {
        return w.getName().str().rfind("editing", 0) == 0;
    }
    bool startsEditOnFocus(UiWidget& w) const override {
        return w.getName().str().rfind("editor", 0) == 0;
    }
};
} // namespace

TEST_F(FocusKeyboard, LeavingAnEditingEditorStartsTheNextEditorsEdit) {
    NameEditorHook hook;
    focus().addEditorHook(&hook);
    auto editing = makeWidget(b.get(), "editingOne", {20, 30, 0, 10});
    auto editor = makeWidget(b.get(), "editorTwo", {40, 50, 0, 10});
    watch(editing.get());
    watch(editor.get());

    focus().setFocus(editing);
    log.clear();
    focus().setFocus(editor);
    EXPECT_TRUE(focus().wasGrabbing());
    EXPECT_EQ(log, (Log{"out editingOne", "in editorTwo", "key 11 editorTwo"}));

    // A plain widget gets no Return from setFocus...
    focus().setFocus(editing);
    log.clear();
    focus().setFocus(b1);
    EXPECT_EQ(log, (Log{"out editingOne", "in b1"}));

    // ...but tabbing always hands it on.
    focus().setFocus(editing);
    log.clear();
    focus().cycleFocus(b1.get());
    EXPECT_EQ(log, (Log{"out editingOne", "in b1", "key 11 b1"}));

    // Leaving a widget that isn't editing fakes nothing.
    log.clear();
    focus().setFocus(editor);
    EXPECT_FALSE(focus().wasGrabbing());
    EXPECT_EQ(log, (Log{"out b1", "in editorTwo"}));
    focus().removeEditorHook(&hook);
    focus().setFocus(nullptr);
    b->removeChild(editing);
    b->removeChild(editor);
}

namespace {

class FocusPointer : public ::testing::Test {
protected:
    void SetUp() override {
        root = MappedRoot::make({0, 100, 0, 100});
        a = makeWidget(root.get(), "a", {0, 10, 0, 10});
        b = makeWidget(root.get(), "b", {20, 30, 0, 10});
        for (UiWidget* w : {a.get(), b.get()}) {
            auto in = std::make_unique<CbFunction<EvEvent>>([this, w](EvEvent& e) {
                log.push_back("in " + w->getName().str() + " " +
                              std::to_string(dynamic_cast<EvFocusInEvent&>(e).getDeviceType()));
            });
            auto out = std::make_unique<CbFunction<EvEvent>>(
                [this, w](EvEvent&) { log.push_back("out " + w->getName().str()); });
            w->addFocusInCb(in.get());
            w->addFocusOutCb(out.get());
            handlers.push_back(std::move(in));
            handlers.push_back(std::move(out));
        }
        savedFrameFlag = UiWidget::PointerFocusFrameEnabled;
        UiWidget::PointerFocusFrameEnabled = true;
    }
    void TearDown() override {
        UiFocusPointer::getInstance().updateFocus(nullptr);
        UiFocusPointer::getInstance().updatePointer(nullptr, false);
        UiWidget::PointerFocusFrameEnabled = savedFrameFlag;
        root->removeChildren();
    }

    RCShdPtr<MappedRoot> root;
    RCShdPtr<UiWidget> a, b;
    std::vector<std::string> log;
    std::vector<std::unique_ptr<CbFunction<EvEvent>>> handlers;
    bool savedFrameFlag = false;
};

} // namespace

TEST_F(FocusPointer, FocusOutPrecedesFocusInAndRepeatsAreSilent) {
    UiFocusPointer& pointer = UiFocusPointer::getInstance();
    pointer.updateFocus(a.get());
    pointer.updateFocus(b.get());
    pointer.updateFocus(b.get());
    pointer.updateFocus(nullptr);
    EXPECT_EQ(log, (Log{"in a 1", "out a", "in b 1", "out b"}));
    EXPECT_EQ(pointer.getFocus(), nullptr);
}

TEST_F(FocusPointer, PointerMovesTheFocusFrameOnlyWhenNotifying) {
    UiFocusPointer& pointer = UiFocusPointer::getInstance();
    pointer.updatePointer(a.get(), true);
    EXPECT_TRUE(a->hasPointerFocus());
    pointer.updatePointer(b.get(), true);
    EXPECT_FALSE(a->hasPointerFocus());
    EXPECT_TRUE(b->hasPointerFocus());
    pointer.updatePointer(a.get(), false);
    EXPECT_EQ(pointer.getPointer(), a.get());
    EXPECT_TRUE(b->hasPointerFocus());
    EXPECT_FALSE(a->hasPointerFocus());
    EXPECT_TRUE(log.empty());
}

TEST_F(FocusPointer, ForgetDropsTheWidgetSilently) {
    UiFocusPointer& pointer = UiFocusPointer::getInstance();
    pointer.updateFocus(a.get());
    pointer.updatePointer(a.get(), false);
    log.clear();
    pointer.forget(a.get());
    EXPECT_EQ(pointer.getFocus(), nullptr);
    EXPECT_EQ(pointer.getPointer(), nullptr);
    EXPECT_TRUE(log.empty());
}

namespace {

class RecordingHandler : public UiGrabHandler {
public:
    RecordingHandler(std::string name, Log& log) : _name(std::move(name)), _log(log) {}
    void processEvent(EvEvent& event) override {
        auto const* notice = dynamic_cast<EvDeviceManagementEvent const*>(&event);
        _log.push_back(_name + " " + event.getClassName() + " " +
                       std::to_string(notice ? notice->getDeviceType() : 0));
    }
    GePoint2<int> getProcessOrigin() const override { return {}; }
    std::string getHandlerName() const override { return _name; }

private:
    std::string _name;
    Log& _log;
};

class GrabPointer : public ::testing::Test {
protected:
    void SetUp() override {
        onGrab.set([this](UiGrab const*& g) { log.push_back("grabbed " + holderName(g)); });
        onRelease.set([this](UiGrab const*& g) { log.push_back("released " + holderName(g)); });
        grab().registerGrabCb(&onGrab);
        grab().registerReleaseCb(&onRelease);
    }
    void TearDown() override {
        grab().unregisterGrabCb(&onGrab);
        grab().unregisterReleaseCb(&onRelease);
        grab().clear();
    }
    static UiGrab& grab() { return UiGrab::pointer(); }
    static std::string holderName(UiGrab const* g) {
        return g->getCurrent() ? g->getCurrent()->getHandlerName() : "nobody";
    }

    Log log;
    RecordingHandler h1{"h1", log};
    RecordingHandler h2{"h2", log};
    RecordingHandler h3{"h3", log};
    CbFunction<UiGrab const*> onGrab;
    CbFunction<UiGrab const*> onRelease;
};

} // namespace

// A grab by the holder, or by nobody, fires nothing.
TEST_F(GrabPointer, GrabNotifiesTheNewHolderThenTheCallbacks) {
    EXPECT_TRUE(grab().grab(&h1));
    EXPECT_EQ(grab().getCurrent(), &h1);
    EXPECT_TRUE(grab().grab(&h1));
    EXPECT_FALSE(grab().grab(nullptr));
    EXPECT_EQ(grab().getCurrent(), &h1);
    EXPECT_EQ(log, (Log{"h1 EvGrabAcquiredEvent 1", "grabbed h1"}));
}

TEST_F(GrabPointer, TakingTheGrabTellsTheOldHolderFirst) {
    grab().grab(&h1);
    log.clear();
    grab().grab(&h2);
    EXPECT_EQ(log, (Log{"h1 EvGrabLostEvent 1", "released nobody", "h2 EvGrabAcquiredEvent 1",
                        "grabbed h2"}));
}

TEST_F(GrabPointer, GrabDuringAReleaseIsServedByTheLoop) {
    grab().grab(&h1);
    bool once = true;
    CbFunction<UiGrab const*> grabber([&](UiGrab const*&) {
        if (once) {
            once = false;
            grab().grab(&h3);
        }
    });
    grab().registerReleaseCb(&grabber);
    log.clear();
    EXPECT_TRUE(grab().grab(&h2));
    grab().unregisterReleaseCb(&grabber);
    EXPECT_EQ(grab().getCurrent(), &h2);
    EXPECT_EQ(log, (Log{"h1 EvGrabLostEvent 1", "released nobody", "h3 EvGrabAcquiredEvent 1",
                        "grabbed h3", "h3 EvGrabLostEvent 1", "released nobody",
                        "h2 EvGrabAcquiredEvent 1", "grabbed h2"}));
}

TEST_F(GrabPointer, ReleaseByANonHolderIsRefused) {
    EXPECT_FALSE(grab().release(&h1));
    grab().grab(&h1);
    log.clear();
    EXPECT_FALSE(grab().release(&h2));
    EXPECT_FALSE(grab().release(nullptr));
    EXPECT_EQ(grab().getCurrent(), &h1);
    EXPECT_TRUE(log.empty());
    EXPECT_TRUE(grab().release(&h1));
    EXPECT_EQ(grab().getCurrent(), nullptr);
    EXPECT_EQ(log, (Log{"h1 EvGrabLostEvent 1", "released nobody"}));
}

TEST_F(GrabPointer, ClearReleasesWhoeverHoldsIt) {
    grab().clear();
    EXPECT_TRUE(log.empty());
    grab().grab(&h2);
    log.clear();
    grab().clear();
    EXPECT_EQ(grab().getCurrent(), nullptr);
    EXPECT_EQ(log, (Log{"h2 EvGrabLostEvent 1", "released nobody"}));
}

TEST_F(GrabPointer, DestroyedHolderLeavesTheGrabWithoutANotice) {
    {
        RecordingHandler temporary("temporary", log);
        grab().grab(&temporary);
        log.clear();
    }
    EXPECT_EQ(grab().getCurrent(), nullptr);
    EXPECT_EQ(log, (Log{"released nobody"}));
}

TEST(GrabKeyboard, IsSeparateFromThePointerGrabAndSaysSo) {
    Log log;
    RecordingHandler h("h", log);
    ASSERT_NE(&UiGrab::keyboard(), &UiGrab::pointer());
    EXPECT_EQ(UiGrab::keyboard().getDeviceType(), UiGrab::Keyboard);
    UiGrab::keyboard().grab(&h);
    EXPECT_EQ(UiGrab::pointer().getCurrent(), nullptr);
    EXPECT_TRUE(UiGrab::keyboard().release(&h));
    EXPECT_EQ(log, (Log{"h EvGrabAcquiredEvent 2", "h EvGrabLostEvent 2"}));
}
