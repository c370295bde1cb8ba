// Fuzz target: a text field typed into as a user would. The first byte picks the filter (none, a
// BasicFilter, file names, identifiers, a directory or file path, rational, rate, ratio), the
// second the buffer length; the rest is a sequence of actions: characters of any code point
// (invalid ones included), editing keys with modifiers through the hotkey registry, pastes of any
// bytes through the clipboard, setString, insertString, pointer presses and drags, selections,
// new buffer lengths, and commit and cancel by Return and Escape. After each action the field
// must hold valid UTF-8 within its buffer, the cursor, the selection and the first visible
// character must lie on character boundaries within the text, and the glyph table must equal
// what measuring the whole text gives.
#include "fuzzSupport.h"

#include "uiContainer.h"
#include "uiFocusKeyboard.h"
#include "uiFocusPointer.h"
#include "uiFrame.h"
#include "uiGrab.h"
#include "uiHotkeyRegistry.h"
#include "uiIdentifierFilter.h"
#include "uiPathFilter.h"
#include "uiRationalFilter.h"
#include "uiResText.h"
#include "uiTextField.h"

#include "evKeyCode.h"
#include "wsClipboard.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

using namespace Zr;

namespace {

[[noreturn]] void fail(char const* what, std::string const& detail) {
    std::fprintf(stderr, "%s: %s\n", what, detail.c_str());
    std::abort();
}

// The input, read a byte or a run of bytes at a time; zeros once it is used up.
class Input {
public:
    Input(std::uint8_t const* data, std::size_t size) : _data(data), _size(size) {}
    bool done() const { return _pos >= _size; }
    unsigned peek() const { return _pos < _size ? _data[_pos] : 0u; }
    unsigned byte() { return _pos < _size ? _data[_pos++] : 0u; }
    std::string bytes() {
        std::size_t const n = std::min<std::size_t>(byte(), _size - _pos);
        std::string s(reinterpret_cast<char const*>(_data + _pos), n);
        _pos += n;
        return s;
    }

private:
    std::uint8_t const* _data;
    std::size_t _size;
    std::size_t _pos = 0;
};

// A mapped container to hold the field, so that it can take the keyboard focus.
class Root : public UiContainer {
public:
    static RCShdPtr<Root> make() {
        RCShdPtr<Root> root(new Root);
        root->resInit(nullptr);
        root->postInit();
        root->setRect({0, 280, 0, 42}, false);
        root->setDisplayed(true);
        root->UiContainer::setMap(true, false);
        return root;
    }

protected:
    Root() : UiContainer(nullptr, "root") {}
};

RCShdPtr<UiTextField::Filter> makeFilter(unsigned which) {
    switch (which % 9) {
    case 1:
        return RCShdPtr<UiTextField::Filter>(new UiTextField::BasicFilter("-/ "));
    case 2:
        return UiTextField::getFileNameFilter();
    case 3:
        return RCShdPtr<UiTextField::Filter>(new UiIdentifierFilter);
    case 4:
        return RCShdPtr<UiTextField::Filter>(new UiPathFilter(UiPathFilter::Directory, false));
    case 5:
        return RCShdPtr<UiTextField::Filter>(new UiPathFilter(UiPathFilter::File, true));
    case 6:
        return RCShdPtr<UiTextField::Filter>(new UiRationalFilter);
    case 7:
        return RCShdPtr<UiTextField::Filter>(new UiRateFilter);
    case 8:
        return RCShdPtr<UiTextField::Filter>(new UiRatioFilter);
    default:
        return {};
    }
}

bool onBoundary(std::string const& text, int offset) {
    return offset >= 0 && offset <= static_cast<int>(text.size()) &&
           (offset == static_cast<int>(text.size()) ||
            (static_cast<unsigned char>(text[static_cast<std::size_t>(offset)]) & 0xC0) != 0x80);
}

void check(UiTextField& field, UiTextField& whole) {
    std::string const text = field.getString().str();
    if (UiResText::toValidUtf8(text) != text)
        fail("text is not valid UTF-8", text);
    if (static_cast<int>(text.size()) > field.getBufLength())
        fail("text longer than the buffer", std::to_string(text.size()));
    struct {
        char const* name;
        int offset;
    } const places[] = {{"cursor", field.getCursorPos()},
                        {"selection start", field.getSelectionStart()},
                        {"selection end", field.getSelectionEnd()},
                        {"first visible", field.getFirstVisible()}};
    for (auto const& place : places)
        if (!onBoundary(text, place.offset))
            fail(place.name, std::to_string(place.offset) + " in " + text);
    if (field.getFirstVisible() > field.getCursorPos())
        fail("first visible after the cursor", std::to_string(field.getFirstVisible()));
    whole.setStringAsIs(text.c_str());
    for (int i = 0; i <= static_cast<int>(text.size()); ++i)
        if (field.getCharacterX(i) != whole.getCharacterX(i))
            fail("glyph table differs from the whole text's", std::to_string(i) + " in " + text);
}

// The editing keys, and the modifiers that pick their variants.
int const keys[] = {EvKeyCode::Left,
                    EvKeyCode::Right,
                    EvKeyCode::Home,
                    EvKeyCode::End,
                    EvKeyCode::BackSpace,
                    EvKeyCode::Delete,
                    EvKeyCode::Return,
                    EvKeyCode::KP_Enter,
                    EvKeyCode::Escape,
                    EvKeyCode::Tab,
                    EvKeyCode::Complete,
                    EvKeyCode::A + ('x' - 'a'),
                    EvKeyCode::A + ('c' - 'a'),
                    EvKeyCode::A + ('v' - 'a')};

void pressKey(UiTextField& field, unsigned which, unsigned modifiers) {
    EvKeyPressEvent key;
    key.setTriggerKey(keys[which % std::size(keys)]);
    key.setKeyboardState(EvKeyboardState(modifiers & 7u));
    UiHotkeyRegistry::getInstance().processEvent(key);
    if (!key.isProcessed())
        field.processEvent(key);
}

void act(UiTextField& field, Input& in) {
    unsigned const op = in.byte();
    switch (op % 12) {
    case 0: { // a character as typed, ASCII mostly
        EvCharEvent ch(static_cast<char32_t>(in.byte()));
        field.processEvent(ch);
        break;
    }
    case 1: { // any code point, surrogates and values past U+10FFFF included
        char32_t const c = (in.byte() << 16) | (in.byte() << 8) | in.byte();
        EvCharEvent ch(c);
        field.processEvent(ch);
        break;
    }
    case 2:
    case 3:
        pressKey(field, in.byte(), in.byte());
        break;
    case 4: // paste of any bytes, through the hotkey or the call
        WsClipboard::getInstance().setText(in.bytes());
        if (op & 0x10)
            pressKey(field, 13, EvKeyboardState::Control);
        else
            field.paste();
        break;
    case 5: {
        std::string const text = in.bytes();
        if (op & 0x10)
            field.setStringAsIs(text.c_str(), static_cast<int>(op >> 5 & 1), op & 0x40, op & 0x80);
        else
            field.setString(text.c_str(), static_cast<int>(op >> 5 & 1), op & 0x40, op & 0x80);
        break;
    }
    case 6:
        field.insertString(in.bytes().c_str());
        break;
    case 7: { // a press (maybe a double click), a drag and a release
        int const x = static_cast<int>(in.byte()) + field.getCanvas().x1 - 8;
        UiFocusPointer::getInstance().updatePointer(&field, true);
        EvPointerButtonDownEvent down;
        down.setTriggerButton(1);
        down.setPointerState(EvPointerState(1));
        down.setCoord({x, 20});
        down.setDoubleClick(op & 0x10);
        field.processEvent(down);
        EvPointerMoveEvent move;
        move.setPointerState(EvPointerState(1));
        move.setCoord({static_cast<int>(in.byte()) * 2 - 100, 20});
        field.processEvent(move);
        EvPointerButtonUpEvent up;
        up.setTriggerButton(1);
        field.processEvent(up);
        break;
    }
    case 8:
        field.setHighlight(static_cast<std::int8_t>(in.byte()), static_cast<int>(in.byte()));
        break;
    case 9:
        field.setCursorPos(static_cast<std::int8_t>(in.byte()) * 3);
        break;
    case 10:
        field.setBufLength(static_cast<int>(in.byte()) - 2);
        break;
    case 11:
        field.cut();
        field.copy();
        break;
    default:
        break;
    }
}

} // namespace

// Fontconfig keeps what it reads for the process's life; LeakSanitizer would report it at exit.
extern "C" char const* __lsan_default_suppressions() {
    return "leak:libfontconfig\n";
}

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    FuzzSupport::initialize();
    UiFrameRegistry::registerDefaultFrames();
    UiHotkeyRegistry::getInstance().registerDefaultHotkeys();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    Input in(data, size);
    RCShdPtr<Root> root = Root::make();
    RCShdPtr<UiTextField> field = UiTextField::create(root.get(), "field");
    RCShdPtr<UiTextField> whole = UiTextField::create(root.get(), "whole");
    field->setRect({7, 273, 7, 35}, false);
    whole->setBufLength(1 << 20);
    field->setFilter(makeFilter(in.byte()));
    unsigned const length = in.byte();
    field->setBufLength(length & 0x80 ? 255 : static_cast<int>(length & 0x3F));
    UiFocusKeyboard::getInstance().setFocus(field.get());
    // ZR_FUZZ_TRACE=1 prints each action's number and the field after it, to replay a finding.
    static bool const trace = std::getenv("ZR_FUZZ_TRACE") != nullptr;
    for (int steps = 0; !in.done() && steps < 200; ++steps) {
        if (trace)
            std::fprintf(stderr, "action %u: ", in.peek() % 12);
        act(*field, in);
        if (trace)
            std::fprintf(stderr, "\"%s\" cursor %d selection %d %d\n", field->getString().c_str(),
                         field->getCursorPos(), field->getSelectionStart(),
                         field->getSelectionEnd());
        check(*field, *whole);
    }
    UiFocusKeyboard::getInstance().setFocus(static_cast<UiWidget*>(nullptr));
    UiFocusPointer::getInstance().forget(field.get());
    UiGrab::keyboard().clear();
    UiGrab::pointer().clear();
    root->removeChildren();
    return 0;
}
