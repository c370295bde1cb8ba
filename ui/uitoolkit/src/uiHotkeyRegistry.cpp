// UiHotkeyRegistry: the entries, their handler lists, and the dispatch of key events to them.
#include "uiHotkeyRegistry.h"

#include "lkSingleton.h"

namespace Zr {

namespace {
constexpr char const* GlobalDomain = "/Global";
} // namespace

void UiHotkeyRegistry::HandlerList::callUntilProcessed(EvEvent& event) {
    forEachLive([&event](CbHandlerBase* h) {
        if (!event.isProcessed())
            static_cast<CbHandler<EvEvent>*>(h)->call(event);
    });
}

UiHotkeyRegistry& UiHotkeyRegistry::getInstance() {
    return LkSingleton<UiHotkeyRegistry>::getInstance();
}

UiHotkeyRegistry::UiHotkeyRegistry() {
    addEntry(GlobalDomain, "Next Control", UiHotkey(EvKeyCode::Tab, EvKeyboardState()));
    addEntry(GlobalDomain, "Previous Control",
             UiHotkey(EvKeyCode::Tab, EvKeyboardState(EvKeyboardState::Shift)));
    addEntry(GlobalDomain, "Toggle Stencil Mode",
             UiHotkey(EvKeyCode::functionKey(12),
                      EvKeyboardState(EvKeyboardState::Control | EvKeyboardState::Alt)));
}

UiHotkeyRegistry::~UiHotkeyRegistry() = default;

int UiHotkeyRegistry::addEntry(std::string const& domainPath, std::string const& action,
                               UiHotkey const& hotkey) {
    if (int existing = getEntry(domainPath, action)) {
        _entries.at(existing).hotkey = hotkey;
        return existing;
    }
    int number = _nextEntry++;
    _entries.emplace(number, Entry{domainPath, action, hotkey, std::make_unique<HandlerList>()});
    return number;
}

int UiHotkeyRegistry::getEntry(LiString const& action) const {
    for (auto const& [number, entry] : _entries)
        if (entry.action == action.str())
            return number;
    return 0;
}

int UiHotkeyRegistry::getEntry(std::string const& domainPath, std::string const& action) const {
    for (auto const& [number, entry] : _entries)
        if (entry.domainPath == domainPath && entry.action == action)
            return number;
    return 0;
}

UiHotkeyRegistry::Entry const* UiHotkeyRegistry::findEntry(int entry) const {
    auto it = _entries.find(entry);
    return it == _entries.end() ? nullptr : &it->second;
}

UiHotkey const* UiHotkeyRegistry::getHotkey(LiString const& action) const {
    Entry const* e = findEntry(getEntry(action));
    return e ? &e->hotkey : nullptr;
}

UiHotkey UiHotkeyRegistry::getHotkey(int entry) const {
    Entry const* e = findEntry(entry);
    return e ? e->hotkey : UiHotkey();
}

std::string UiHotkeyRegistry::getPath(int entry) const {
    auto entryIt = _entries.find(entry);
    ZR_ASSERT_TEXT(entryIt != _entries.end(), "entryIt != reverseEntryMap.end()");
    return entryIt->second.domainPath + "/" + entryIt->second.action;
}

std::string UiHotkeyRegistry::getDomainPath(int entry) const {
    auto entryIt = _entries.find(entry);
    ZR_ASSERT_TEXT(entryIt != _entries.end(), "entryIt != reverseEntryMap.end()");
    return entryIt->second.domainPath;
}

bool UiHotkeyRegistry::isHotkeyActivated(int entry, EvEvent const& event) const {
    auto const* key = dynamic_cast<EvKeyEvent const*>(&event);
    Entry const* e = findEntry(entry);
    return key && e && e->hotkey.matches(*key);
}

void UiHotkeyRegistry::registerHandler(LiString const& action, CbHandler<EvEvent>* handler) {
    addHotkeyHandler(getEntry(action), handler);
}

void UiHotkeyRegistry::unregisterHandler(LiString const& action, CbHandler<EvEvent>* handler) {
    removeHotkeyHandler(getEntry(action), handler);
}

void UiHotkeyRegistry::addHotkeyHandler(int entry, CbHandler<EvEvent>* handler) {
    if (Entry* e = findEntry(entry))
        e->handlers->addHandler(handler);
}

void UiHotkeyRegistry::removeHotkeyHandler(int entry, CbHandler<EvEvent>* handler) {
    if (Entry* e = findEntry(entry))
        e->handlers->removeHandler(handler);
}

void UiHotkeyRegistry::removeHotkeyHandler(CbHandler<EvEvent>* handler) {
    for (auto& [number, entry] : _entries)
        entry.handlers->removeHandler(handler);
}

int UiHotkeyRegistry::getNbHandlers(int entry) const {
    Entry const* e = findEntry(entry);
    return e ? e->handlers->getNbHandlers() : 0;
}

void UiHotkeyRegistry::removeWidget(UiWidget*) {}

void UiHotkeyRegistry::processEvent(EvKeyEvent& event) {
    if (!_processHotkeys)
        return;
    UiHotkey pressed(event);
    if (!_processKPHotkeys && EvKeyCode::isKeypad(pressed.getKey()))
        return;
    // Collect first: a handler may add or rebind entries.
    std::vector<int> matching;
    for (auto const& [number, entry] : _entries)
        if (entry.hotkey == pressed && !pressed.isEmpty())
            matching.push_back(number);
    for (int number : matching) {
        Entry* e = findEntry(number);
        if (!e || e->handlers->isEmpty())
            continue;
        EvHotkeyEvent hotkeyEvent(event, number);
        hotkeyEvent.setProcessed(false);
        e->handlers->callUntilProcessed(hotkeyEvent);
        if (hotkeyEvent.isProcessed()) {
            event.setProcessed();
            return;
        }
    }
}

} // namespace Zr
