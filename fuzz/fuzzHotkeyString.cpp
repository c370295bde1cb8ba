// Fuzz target: hotkey texts. The input is read as a hotkey's text form, as its stream form and as
// a hotkey domain's text form. Only the documented failures may come out, and whatever reads
// must print to a text that reads back to the same value.
#include "fuzzSupport.h"

#include "uiHotkey.h"
#include "uiResDomain.h"
#include "uiResourceEx.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>

using namespace Zr;

namespace {

[[noreturn]] void fail(char const* what, std::string const& detail) {
    std::fprintf(stderr, "%s: %s\n", what, detail.c_str());
    std::abort();
}

void checkTextForm(std::string const& text) {
    // Values that a parse without modifiers keeps, and a failed parse keeps both.
    EvKeyboardState state(EvKeyboardState::Alt);
    EvKeyCode::KeyCode key = EvKeyCode::Tab;
    try {
        UiHotkey::parseString(text, state, key);
    } catch (EvUndefinedRelation const&) {
        if (key != EvKeyCode::Tab || state.getState() != EvKeyboardState::Alt)
            fail("a failed parse changed its arguments", text);
        return;
    }
    UiHotkey const hotkey(key, state);
    std::string const printed = hotkey.toString();
    UiHotkey back;
    try {
        back = UiHotkey::fromString(printed);
    } catch (EvUndefinedRelation const& ex) {
        fail("printed hotkey does not parse", printed + ": " + ex.getReason());
    }
    if (back != hotkey)
        fail("text form does not read back", text + " -> " + printed + " -> " + back.toString());
}

void checkStreamForm(std::string const& text) {
    std::istringstream in(text);
    UiHotkey hotkey;
    try {
        hotkey.read(in);
    } catch (UiExIncompleteHotkey const&) {
        return;
    } catch (EvUndefinedRelation const&) {
        return;
    }
    std::ostringstream out;
    hotkey.dump(out);
    std::istringstream again(out.str());
    UiHotkey back;
    try {
        back.read(again);
    } catch (ExBase const& ex) {
        fail("dumped hotkey does not read", out.str() + ": " + ex.getReason());
    }
    if (back != hotkey)
        fail("stream form does not read back", out.str());
}

void checkDomainText(std::string const& text) {
    UiResDomain domain("/Fuzz", "Fuzz");
    std::istringstream in(text);
    try {
        domain.read(in);
    } catch (UiResourceEx const&) {
        return;
    }
    std::ostringstream out;
    domain.write(out, false);
    UiResDomain back("/Fuzz", "Fuzz");
    std::istringstream again(out.str());
    try {
        back.read(again);
    } catch (ExBase const& ex) {
        fail("written domain does not read", out.str() + ": " + ex.getReason());
    }
    if (back.getHotkeys() != domain.getHotkeys())
        fail("domain text form does not read back", out.str());
    for (auto const& binding : domain.getHotkeys())
        if (binding.second.isEmpty())
            fail("a binding without a key was kept", binding.first);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    FuzzSupport::initialize();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string const text(reinterpret_cast<char const*>(data), size);
    checkTextForm(text);
    checkStreamForm(text);
    checkDomainText(text);
    return 0;
}
