// Modifier names and the table of keys held down.
#include "evKeyboardState.h"

#include <algorithm>
#include <bitset>
#include <cctype>
#include <mutex>
#include <sstream>

namespace Zr {

namespace {
struct ModifierName {
    EvKeyboardState::KeyModifierID id;
    char const* name;
};
constexpr ModifierName modifierNames[] = {{EvKeyboardState::Shift, "shift"},
                                          {EvKeyboardState::Control, "ctrl"},
                                          {EvKeyboardState::Alt, "alt"},
                                          {EvKeyboardState::Command, "cmd"}};

std::mutex keysMutex;
std::bitset<512> keysDown;
} // namespace

int EvKeyboardState::getNumberOfModifiersEnabled() const {
    return static_cast<int>(std::bitset<4>(_state).count());
}

std::string EvKeyboardState::toString() const {
    std::string out;
    for (auto const& m : modifierNames) {
        if (!isEnabled(m.id))
            continue;
        if (!out.empty())
            out += '+';
        out += m.name;
    }
    return out.empty() ? "none" : out;
}

bool EvKeyboardState::fromString(std::string const& text) {
    std::string lowered(text);
    std::transform(lowered.begin(), lowered.end(), lowered.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    std::replace(lowered.begin(), lowered.end(), '+', ' ');
    std::istringstream words(lowered);
    unsigned state = 0;
    std::string word;
    while (words >> word) {
        if (word == "none")
            continue;
        auto it = std::find_if(std::begin(modifierNames), std::end(modifierNames),
                               [&](ModifierName const& m) { return word == m.name; });
        if (it == std::end(modifierNames)) {
            if (word == "control")
                state |= Control;
            else if (word == "command")
                state |= Command;
            else
                return false;
            continue;
        }
        state |= it->id;
    }
    _state = state;
    return true;
}

bool EvKeyboardState::isKeyDown(int key) {
    std::lock_guard<std::mutex> lock(keysMutex);
    return key >= 0 && key < static_cast<int>(keysDown.size()) && keysDown[key];
}

void EvKeyboardState::setKeyDown(int key, bool down) {
    std::lock_guard<std::mutex> lock(keysMutex);
    if (key >= 0 && key < static_cast<int>(keysDown.size()))
        keysDown[key] = down;
}

int EvPointerState::getNumberOfButtonsEnabled() const {
    return static_cast<int>(std::bitset<32>(_state).count());
}

} // namespace Zr
