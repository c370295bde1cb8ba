// The text field's hot paths. A key press posted to the event queue and run through the loop to
// the field's content-changed callback, in a field of 100 and 3,000 characters; setString of
// 100 and 1,000 characters with the glyph table; and typing at the end of texts of 30 to 30,000
// characters (1 to 1,000 times a usual entry), where a change measures only what it touches.
// Runs without a display.
#include "headlessBenchMain.h"
#include "zrUi.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <string>

using namespace Zr;

namespace {

// One typed character at the end of a text of state.range(0) characters: insert, then remove
// it again, so the length stays put.
void BM_TypeAtEnd(benchmark::State& state) {
    auto const length = static_cast<int>(state.range(0));
    RCShdPtr<UiTextField> field = UiTextField::create(nullptr, "field");
    field->setRect({0, 210, 0, 28}, false);
    field->setBufLength(length + 2);
    field->setString(std::string(static_cast<std::size_t>(length), 'w').c_str());
    UiGrab::keyboard().grab(field->getEventHandler()); // an edit in progress: characters go in
    for (auto _ : state) {
        EvCharEvent typed(U'x');
        field->processEvent(typed);
        field->deleteChar();
        field->setCursorPos(length);
    }
    UiGrab::keyboard().clear();
    state.counters["us_per_char"] = benchmark::Counter(
        1, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_TypeAtEnd)->Arg(30)->Arg(300)->Arg(3000)->Arg(30000)->Unit(benchmark::kMicrosecond);

// Mixed text of `length` characters: words of letters with blanks and digits, so that kerning
// pairs and narrow and wide glyphs all occur.
std::string sampleText(int length, char first) {
    static char const words[] = "Tonal Values AV 27 wavy Lettering; fit ";
    std::string text;
    for (int i = 0; i < length; ++i)
        text += words[static_cast<std::size_t>(i) % (sizeof words - 1)];
    text[0] = first;
    return text;
}

// A window holding one field of `length` characters, with the keyboard focus and an edit in
// progress, the cursor in the middle of the text.
struct EditingField {
    explicit EditingField(int length) {
        WsWindowStyle style = WsWindowStyleUtils::getNormalWindowStyle({0, 420, 0, 56});
        style.setMainWindow(false);
        window = UiTopLevel::create("bench", nullptr, style);
        field = UiTextField::create(window->getRootContainer().get(), "field");
        field->setRect({7, 413, 14, 42}, false);
        field->setBufLength(2 * length);
        field->setString(sampleText(length, 'T').c_str());
        field->addContentChangedCb(&onChanged);
        window->show();
        UiFocusKeyboard::getInstance().setFocus(field.get());
        if (!field->isEditing())
            UiGrab::keyboard().grab(field->getEventHandler());
        field->setCursorPos(length / 2);
        settle();
    }
    ~EditingField() {
        field->removeContentChangedCb(&onChanged);
        UiFocusKeyboard::getInstance().setFocus(static_cast<UiWidget*>(nullptr));
        UiGrab::keyboard().clear();
        UiApplication::getInstance().clearCurrentWindow();
        field = nullptr;
        window->getRootContainer()->removeChildren();
    }
    void settle() {
        while (window->redraw()) {
        }
    }
    void post(OPtr<EvEvent> event) {
        static_cast<EvDeviceEvent&>(*event).setWindowId(window->getOSWindow()->getId());
        WsEventQ::getInstance().postEvent(std::move(event));
    }
    void postKey(int code) {
        auto press = std::make_unique<EvKeyPressEvent>();
        press->setTriggerKey(code);
        post(std::move(press));
    }
    // Runs the loop until the content-changed callback has run.
    void runUntilChanged() {
        changed = false;
        UiApplication::getInstance().localMessageLoop(&changed, &appExit);
    }

    RCShdPtr<UiTopLevel> window;
    RCShdPtr<UiTextField> field;
    bool volatile changed = false;
    bool volatile appExit = false;
    long changes = 0;
    CbFunction<EvEvent> onChanged{[this](EvEvent&) {
        ++changes;
        changed = true;
    }};
};

// A typed 'x' (its key press and its character, as the window system posts them), then
// BackSpace through the field's hotkey, each from the queue through the loop to the
// content-changed callback; the window repaints between iterations, outside the timing.
void BM_KeyPressThroughLoop(benchmark::State& state) {
    auto const length = static_cast<int>(state.range(0));
    EditingField f(length);
    std::string const before = f.field->getString().str();
    for (auto _ : state) {
        auto const start = std::chrono::steady_clock::now();
        f.postKey(EvKeyCode::A + ('x' - 'a'));
        auto typed = std::make_unique<EvCharEvent>(U'x');
        f.post(std::move(typed));
        f.runUntilChanged();
        f.postKey(EvKeyCode::BackSpace);
        f.runUntilChanged();
        auto const end = std::chrono::steady_clock::now();
        state.SetIterationTime(std::chrono::duration<double>(end - start).count());
        f.settle();
    }
    if (f.changes != 2 * static_cast<long>(state.iterations()) ||
        f.field->getString().str() != before)
        state.SkipWithError("a key press did not change the text as typed");
    state.counters["us_per_key"] = benchmark::Counter(
        2, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_KeyPressThroughLoop)
    ->Arg(100)
    ->Arg(3000)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

// setString of a text of state.range(0) characters into a field in a window, alternating two
// texts so that each call changes the whole text; the glyph table and scrolling come with it.
void BM_SetString(benchmark::State& state) {
    auto const length = static_cast<int>(state.range(0));
    EditingField f(8);
    UiGrab::keyboard().clear();
    f.field->setBufLength(length);
    std::string const texts[2] = {sampleText(length, 'T'), sampleText(length, 'W')};
    int which = 0;
    for (auto _ : state) {
        f.field->setString(texts[which].c_str(), 1, true, false);
        which ^= 1;
    }
    // The cursor at the end is in view: long texts scroll.
    if ((f.field->getFirstVisible() == 0) != (length <= 50))
        state.SkipWithError("the field did not scroll to the end of the text");
}
BENCHMARK(BM_SetString)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
    return Zr::runHeadlessBenchmarks(argc, argv);
}
