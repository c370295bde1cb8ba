// Fuzz target: hotkey files given as text, registered in a registry of their own. Reading may
// report but never throw; the registry's maps must agree with each other afterwards, every
// binding must print to a text that reads back, a second read must change nothing, and a key
// event of each hotkey must reach exactly the entries bound to it.
#include "fuzzSupport.h"

#include "uiHotkeyRegistry.h"

#include "xmlDocument.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <optional>
#include <string>

using namespace Zr;

namespace {

[[noreturn]] void fail(char const* what, std::string const& detail) {
    std::fprintf(stderr, "%s: %s\n", what, detail.c_str());
    std::abort();
}

void checkMaps(UiHotkeyRegistry const& registry) {
    auto const& entries = registry.getEntryMap();
    auto const& reverse = registry.getReverseEntryMap();
    if (entries.size() != reverse.size())
        fail("entry maps differ in size", std::to_string(entries.size()));
    std::size_t bound = 0;
    for (auto const& [path, entry] : entries) {
        auto it = reverse.find(entry);
        if (it == reverse.end() || it->second != path)
            fail("reverse entry map disagrees", path.first + "/" + path.second);
        if (registry.getDomainPaths().count(path.first) == 0)
            fail("domain path not known", path.first);
        if (registry.getPath(entry) != path.first + "/" + path.second)
            fail("path of an entry", registry.getPath(entry));
        UiHotkey const hotkey = registry.getHotkey(entry);
        if (hotkey.isEmpty())
            continue;
        ++bound;
        UiHotkey const back = UiHotkey::fromString(hotkey.toString(), hotkey.getType());
        if (back != hotkey)
            fail("hotkey does not read back", hotkey.toString());
        std::string message;
        registry.isConflicting(entry, hotkey, message);
    }
    if (bound != registry.getHotkeyMap().size())
        fail("hotkey map out of step", std::to_string(registry.getHotkeyMap().size()));
    for (auto const& [hotkey, entry] : registry.getHotkeyMap())
        if (registry.getHotkey(entry) != hotkey)
            fail("hotkey map names the wrong hotkey", hotkey.toString());
}

void checkDispatch(UiHotkeyRegistry& registry) {
    std::map<int, int> calls;
    CbFunction<EvEvent> handler(
        [&calls](EvEvent& event) { ++calls[dynamic_cast<EvHotkeyEvent&>(event).getEntry()]; });
    for (auto const& [path, entry] : registry.getEntryMap())
        registry.addHotkeyHandler(entry, &handler);
    for (auto it = registry.getHotkeyMap().begin(); it != registry.getHotkeyMap().end();
         it = registry.getHotkeyMap().upper_bound(it->first)) {
        UiHotkey const& hotkey = it->first;
        calls.clear();
        EvKeyPressEvent press;
        EvKeyReleaseEvent release;
        EvKeyEvent& key = hotkey.getType() == UiHotkey::Release ? static_cast<EvKeyEvent&>(release)
                                                                : static_cast<EvKeyEvent&>(press);
        key.setTriggerKey(hotkey.getKey());
        key.setKeyboardState(hotkey.getKeyState());
        registry.processEvent(key);
        auto [first, last] = registry.getHotkeyMap().equal_range(hotkey);
        std::map<int, int> expected;
        for (auto bound = first; bound != last; ++bound)
            expected[bound->second] = 1;
        if (calls != expected)
            fail("a key did not reach its entries", hotkey.toString());
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    FuzzSupport::initialize();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string const text(reinterpret_cast<char const*>(data), size);
    std::optional<XmlDocument> document;
    try {
        document.emplace(text, "fuzz.xml");
    } catch (XmlEx::ExSyntaxError const&) {
        return 0;
    }
    UiHotkeyRegistry registry;
    int const problems = registry.registerHotkeys(*document);
    checkMaps(registry);
    UiHotkeyRegistry::EntryMap const first = registry.getEntryMap();
    if (registry.registerHotkeys(*document) != problems)
        fail("a second read reports differently", std::to_string(problems));
    if (registry.getEntryMap() != first)
        fail("a second read changed the entries", std::to_string(first.size()));
    checkMaps(registry);
    checkDispatch(registry);
    return 0;
}
