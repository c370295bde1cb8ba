// UiHotkeyRegistry: the entries and their maps, reading hotkey files, the dispatch of key events
// to the handlers, editing, conflicts, internal and dynamic entries.
#include "uiHotkeyRegistry.h"

#include "uiLogGroups.h"
#include "uiResDomain.h"
#include "uiResTable.h"

#include "envIntVar.h"
#include "inPaths.h"
#include "lgLog.h"
#include "lkSingleton.h"
#include "msgBase.h"
#include "msgProtocol.h"
#include "xmlDocument.h"

#include <optional>

namespace Zr {

std::string const UiHotkeyRegistry::GlobalDomain = "/Global";
char const* const UiHotkeyRegistry::DefaultHotkeysFile = "defaultHotkeys.xml";

namespace {

// The domains the application's code refers to.
char const* const FixedDomains[] = {
    "/Global",
    "/Global/Layout Presets",
    "/Local",
    "/Local/Browser",
    "/Local/Color Picker",
    "/Local/Creative Workspace",
    "/Local/Creative Workspace/Time Controls",
    "/Local/Hotkey Editor",
    "/Local/Login Screen",
    "/Local/Tools/Comparison",
    "/Local/Tools/Master Keyer",
    "/Local/Tools/Paint",
    "/Local/Tools/Reaction",
    "/Local/Tools/Shape Editor",
    "/Local/Tools/Show Vectors",
    "/Local/Tools/Tracker",
    "/Local/Tools/Transform2D",
    "/Local/Tools/Warps",
    "/Local/UI Components",
    "/Local/UI Components/Popup Message Box",
    "/Local/UI Components/Scrolled List",
    "/Local/UI Components/Text Components",
    "/Local/UI Components/Text Components/Text Editor",
    "/Local/UI Components/Text Components/Text Field",
    "/Local/UI Components/Value Editor",
    "/Local/Viewers",
    "/Local/Viewers/Animation",
    "/Local/Viewers/Animation/Curves",
    "/Local/Viewers/Animation/Tracks",
    "/Local/Viewers/Player",
    "/Local/Viewers/Schematic",
};

// Whether `inner` lies below `outer` in the domain tree ("" is the root of every path).
bool isBelow(std::string const& inner, std::string const& outer) {
    return inner.size() > outer.size() && inner.compare(0, outer.size(), outer) == 0 &&
           inner[outer.size()] == '/';
}

bool domainsOverlap(std::string const& a, std::string const& b) {
    return a == b || isBelow(a, b) || isBelow(b, a);
}

// A plain key that every domain may use for its own purpose.
bool isSharedKey(UiHotkey const& hotkey) {
    if (hotkey.getKeyState().getState() != 0)
        return false;
    int const key = hotkey.getKey();
    return key == EvKeyCode::Escape || key == EvKeyCode::Space || key == EvKeyCode::Tab;
}

void writeLogLine(std::string const& text) {
    if (LgMinorGroup* group = UiLogGroups::uiResources())
        LgLog::writeLine(*group, text);
    else
        ExStdout::printAtomically(text);
}

// Collects the problems of one hotkey file: each is a log line at once, and the user gets one
// warning naming the file at the end.
class HotkeyFileReport {
public:
    explicit HotkeyFileReport(std::string file) : _file(std::move(file)) {}
    HotkeyFileReport(HotkeyFileReport const&) = delete;
    HotkeyFileReport& operator=(HotkeyFileReport const&) = delete;
    ~HotkeyFileReport() {
        if (_count == 0)
            return;
        MsgWarning warning(MsgSubscription("MSG_RESOURCE_RES_ERROR"));
        warning.arg(MsgProtocol::substitute(_file));
        MsgProtocol::display(warning);
    }

    void add(std::string const& text) {
        ++_count;
        writeLogLine("Hotkey error in " + _file + ": " + text);
    }
    void add(XmlElement const& element, std::string const& text) {
        int const line = element.getLine();
        add(line > 0 ? "line " + std::to_string(line) + ", " + text : text);
    }
    int getCount() const { return _count; }

private:
    std::string _file;
    int _count = 0;
};

std::string quoted(std::string const& text) {
    return "\"" + text + "\"";
}

// Walks the Domain elements of a hotkey file and registers what passes the filters.
class HotkeyFileReader {
public:
    using Register = std::function<void(std::string const&, std::string const&, UiHotkey const&)>;

    HotkeyFileReader(HotkeyFileReport& report, std::string const& domainFilter,
                     std::string const& actionFilter, Register registerBinding)
        : _report(report), _domainFilter(domainFilter), _actionFilter(actionFilter),
          _register(std::move(registerBinding)) {}

    // Domains nest at most this deep; the walk recurses once per level, and each level's path
    // holds the names of all the levels above it.
    static constexpr int MaxDomainDepth = 32;

    void walk(XmlElement const& parent, std::string const& parentPath, int depth = 1) {
        for (XmlElement const& child : parent.getElementsByTagName("Domain")) {
            if (depth > MaxDomainDepth) {
                _report.add(child, "domain " +
                                       quoted(parentPath + "/" + child.getAttribute("Name")) +
                                       ": domains nest at most " + std::to_string(MaxDomainDepth) +
                                       " deep; it and its inner domains are skipped");
                continue;
            }
            std::string const name = child.getAttribute("Name");
            if (name.empty() || name.find('/') != std::string::npos) {
                _report.add(child, "domain " + quoted(parentPath + "/" + name) +
                                       ": a Domain needs a Name without \"/\"; its bindings and "
                                       "inner domains are skipped");
                continue;
            }
            std::string const path = parentPath + "/" + name;
            // Inner domains first.
            walk(child, path, depth + 1);
            if (!_domainFilter.empty() && _domainFilter != path)
                continue;
            readDomain(child, path, name);
        }
    }

private:
    void readDomain(XmlElement const& element, std::string const& path, std::string const& name) {
        UiResDomain domain(path, name);
        domain.read(element, [this, &path](XmlElement const& hotkey, ExBase const& error) {
            _report.add(hotkey, "domain " + quoted(path) + ", action " +
                                    quoted(hotkey.getAttribute("Action")) + ": " +
                                    error.getReason());
        });
        std::set<std::string> seen;
        for (auto const& [action, hotkey] : domain.getHotkeys()) {
            if (!_actionFilter.empty() && _actionFilter != action)
                continue;
            if (action.empty()) {
                _report.add(element, "domain " + quoted(path) + ": a Hotkey without an Action (" +
                                         hotkey.toString() + ") is skipped");
                continue;
            }
            if (!seen.insert(action).second) {
                _report.add(element, "domain " + quoted(path) + ", action " + quoted(action) +
                                         ": bound more than once; " + hotkey.toString() +
                                         " is skipped");
                continue;
            }
            _register(path, action, hotkey);
        }
    }

    HotkeyFileReport& _report;
    std::string const& _domainFilter;
    std::string const& _actionFilter;
    Register _register;
};

} // namespace

// --- UiHotkeyRegistry ------------------------------------------------------------------------

void UiHotkeyRegistry::HandlerList::callUntilProcessed(EvEvent& event) {
    forEachLive([&event](CbHandlerBase* h) {
        if (!event.isProcessed())
            static_cast<CbHandler<EvEvent>*>(h)->call(event);
    });
}

UiHotkeyRegistry& UiHotkeyRegistry::getInstance() {
    UiHotkeyRegistry& registry = LkSingleton<UiHotkeyRegistry>::getInstance();
    // The framework's tools and viewers reach the process-wide registry through its interface.
    if (MfHotkeyRegistry::getInstance() == nullptr)
        MfHotkeyRegistry::setInstance(&registry);
    return registry;
}

UiHotkeyRegistry::UiHotkeyRegistry() {
    for (char const* path : FixedDomains)
        _domainPaths.insert(path);
    addEntry(GlobalDomain, "Next Control", UiHotkey(EvKeyCode::Tab, EvKeyboardState()));
    addEntry(GlobalDomain, "Previous Control",
             UiHotkey(EvKeyCode::Tab, EvKeyboardState(EvKeyboardState::Shift)));
    addEntry(GlobalDomain, "Toggle Stencil Mode",
             UiHotkey(EvKeyCode::functionKey(12),
                      EvKeyboardState(EvKeyboardState::Control | EvKeyboardState::Alt)));
}

UiHotkeyRegistry::~UiHotkeyRegistry() = default;

UiHotkeyRegistry::EntryData const* UiHotkeyRegistry::findEntry(int entry) const {
    auto it = _entries.find(entry);
    return it == _entries.end() ? nullptr : &it->second;
}

int UiHotkeyRegistry::createEntry(std::string const& domainPath, std::string const& action,
                                  UiHotkey const& hotkey) {
    int const number = _nextEntry++;
    _domainPaths.insert(domainPath);
    _entryMap.emplace(EntryPath(domainPath, action), number);
    _reverseEntryMap.emplace(number, EntryPath(domainPath, action));
    EntryData& data = _entries[number];
    data.hotkey = hotkey;
    data.handlers = std::make_unique<HandlerList>();
    if (!hotkey.isEmpty()) {
        _hotkeyMap.emplace(hotkey, number);
        _savedDefaults[number] = hotkey;
    }
    return number;
}

void UiHotkeyRegistry::eraseFromHotkeyMap(int entry, UiHotkey const& hotkey) {
    auto [first, last] = _hotkeyMap.equal_range(hotkey);
    for (auto it = first; it != last; ++it) {
        if (it->second == entry) {
            _hotkeyMap.erase(it);
            return;
        }
    }
}

void UiHotkeyRegistry::removeEntry(int entry) {
    auto entryIt = _reverseEntryMap.find(entry);
    if (entryIt == _reverseEntryMap.end())
        return;
    EntryData* data = findEntry(entry);
    eraseFromHotkeyMap(entry, data->hotkey);
    _entryMap.erase(entryIt->second);
    _reverseEntryMap.erase(entryIt);
    _savedDefaults.erase(entry);
    // Last: a handler list being called stops by itself when it goes.
    _entries.erase(entry);
}

int UiHotkeyRegistry::addEntry(std::string const& domainPath, std::string const& action,
                               UiHotkey const& hotkey) {
    if (int const existing = getEntry(domainPath, action)) {
        replaceHotkey(existing, hotkey);
        if (hotkey.isEmpty())
            _savedDefaults.erase(existing);
        else
            _savedDefaults[existing] = hotkey;
        return existing;
    }
    return createEntry(domainPath, action, hotkey);
}

// --- queries ---------------------------------------------------------------------------------

int UiHotkeyRegistry::getEntry(std::string const& domainPath, std::string const& action) const {
    auto it = _entryMap.find(EntryPath(domainPath, action));
    return it == _entryMap.end() ? 0 : it->second;
}

int UiHotkeyRegistry::getEntry(LiString const& action) const {
    for (auto const& [path, number] : _entryMap)
        if (path.second == action.str())
            return number;
    return 0;
}

std::string UiHotkeyRegistry::getPath(int entry) const {
    auto entryIt = _reverseEntryMap.find(entry);
    ZR_ASSERT_TEXT(entryIt != _reverseEntryMap.end(), "entryIt != reverseEntryMap.end()");
    return entryIt->second.first + "/" + entryIt->second.second;
}

std::string UiHotkeyRegistry::getDomainPath(int entry) const {
    auto entryIt = _reverseEntryMap.find(entry);
    ZR_ASSERT_TEXT(entryIt != _reverseEntryMap.end(), "entryIt != reverseEntryMap.end()");
    return entryIt->second.first;
}

std::string UiHotkeyRegistry::getAction(int entry) const {
    auto entryIt = _reverseEntryMap.find(entry);
    return entryIt == _reverseEntryMap.end() ? std::string() : entryIt->second.second;
}

UiHotkey UiHotkeyRegistry::getHotkey(int entry) const {
    EntryData const* data = findEntry(entry);
    return data ? data->hotkey : UiHotkey();
}

UiHotkey const* UiHotkeyRegistry::getHotkey(LiString const& action) const {
    EntryData const* data = findEntry(getEntry(action));
    return data ? &data->hotkey : nullptr;
}

UiHotkey UiHotkeyRegistry::getDefaultHotkey(int entry) const {
    auto it = _savedDefaults.find(entry);
    return it == _savedDefaults.end() ? UiHotkey() : it->second;
}

std::string UiHotkeyRegistry::toString(int entry, StringElement element) const {
    UiHotkey const hotkey = getHotkey(entry);
    if (element == TypeWord)
        return hotkey.typeToStr();
    return hotkey.isEmpty() ? std::string() : hotkey.toString();
}

bool UiHotkeyRegistry::isHotkeyActivated(int entry, EvEvent const& event) const {
    EntryData const* data = findEntry(entry);
    if (!data || data->hotkey.isEmpty())
        return false;
    if (auto const* hotkeyEvent = dynamic_cast<EvHotkeyEvent const*>(&event)) {
        if (hotkeyEvent->getEntry() == entry)
            return true;
        EntryData const* other = findEntry(hotkeyEvent->getEntry());
        return other && other->hotkey == data->hotkey;
    }
    auto const* key = dynamic_cast<EvKeyEvent const*>(&event);
    return key && data->hotkey.matches(*key);
}

bool UiHotkeyRegistry::isHotkeyActivated(std::string const& domainPath, std::string const& action,
                                         EvEvent const& event) const {
    return isHotkeyActivated(getEntry(domainPath, action), event);
}

// --- reading ---------------------------------------------------------------------------------

int UiHotkeyRegistry::registerHotkeys(OsFilePath const& file, std::string const& domainFilter,
                                      std::string const& actionFilter) {
    std::optional<XmlDocument> document;
    try {
        document.emplace(file);
    } catch (ExBase const& error) {
        HotkeyFileReport report(file.toString());
        report.add("the file could not be read: " + error.getReason());
        return report.getCount();
    }
    return registerHotkeys(*document, domainFilter, actionFilter);
}

int UiHotkeyRegistry::registerHotkeys(XmlDocument const& document, std::string const& domainFilter,
                                      std::string const& actionFilter) {
    HotkeyFileReport report(document.getName());
    HotkeyFileReader reader(report, domainFilter, actionFilter,
                            [this](std::string const& path, std::string const& action,
                                   UiHotkey const& hotkey) { addEntry(path, action, hotkey); });
    reader.walk(document.getRoot(), "");
    return report.getCount();
}

int UiHotkeyRegistry::registerDefaultHotkeys() {
    return registerHotkeys(InPaths::getResourcesDir() + UiResTable::getResTableDir() +
                           DefaultHotkeysFile);
}

// --- handlers and events -----------------------------------------------------------------------

void UiHotkeyRegistry::addHotkeyHandler(int entry, CbHandler<EvEvent>* handler) {
    if (EntryData* data = findEntry(entry))
        data->handlers->addHandler(handler);
}

void UiHotkeyRegistry::removeHotkeyHandler(int entry, CbHandler<EvEvent>* handler) {
    if (EntryData* data = findEntry(entry))
        data->handlers->removeHandler(handler);
}

void UiHotkeyRegistry::removeHotkeyHandler(CbHandler<EvEvent>* handler) {
    for (auto& [number, data] : _entries)
        data.handlers->removeHandler(handler);
}

int UiHotkeyRegistry::getNbHandlers(int entry) const {
    EntryData const* data = findEntry(entry);
    return data ? data->handlers->getNbHandlers() : 0;
}

void UiHotkeyRegistry::registerHandler(LiString const& action, CbHandler<EvEvent>* handler) {
    addHotkeyHandler(getEntry(action), handler);
}

void UiHotkeyRegistry::unregisterHandler(LiString const& action, CbHandler<EvEvent>* handler) {
    removeHotkeyHandler(getEntry(action), handler);
}

void UiHotkeyRegistry::removeWidget(UiWidget*) {}

void UiHotkeyRegistry::processEvent(EvKeyEvent& event) {
    if (!_processHotkeys)
        return;
    UiHotkey const pressed(event);
    if (pressed.isEmpty())
        return;
    // The keypad's keys are the codes 40 to 67.
    if (!_processKPHotkeys && EvKeyCode::isKeypad(pressed.getKey()))
        return;
    // Collected first: a handler may rebind or remove entries.
    std::vector<int> matching;
    auto [first, last] = _hotkeyMap.equal_range(pressed);
    for (auto it = first; it != last; ++it)
        matching.push_back(it->second);
    for (int number : matching) {
        EntryData* data = findEntry(number);
        if (!data || data->handlers->isEmpty())
            continue;
        EvHotkeyEvent hotkeyEvent(event, number);
        hotkeyEvent.setProcessed(false);
        data->handlers->callUntilProcessed(hotkeyEvent);
        if (hotkeyEvent.isProcessed()) {
            event.setProcessed();
            return;
        }
    }
}

// --- editing ---------------------------------------------------------------------------------

void UiHotkeyRegistry::replaceHotkey(int entry, UiHotkey const& hotkey) {
    EntryData* data = findEntry(entry);
    if (!data)
        return;
    eraseFromHotkeyMap(entry, data->hotkey);
    data->hotkey = hotkey;
    if (!hotkey.isEmpty())
        _hotkeyMap.emplace(hotkey, entry);
}

void UiHotkeyRegistry::reset(int entry) {
    replaceHotkey(entry, getDefaultHotkey(entry));
}

bool UiHotkeyRegistry::isConflicting(int entry, UiHotkey const& hotkey,
                                     std::string& message) const {
    message.clear();
    if (hotkey.isEmpty() || isSharedKey(hotkey) || isClickHotkey(hotkey))
        return false;
    // An entry not in the table stands at the root and overlaps every domain.
    auto entryIt = _reverseEntryMap.find(entry);
    std::string const domain =
        entryIt == _reverseEntryMap.end() ? std::string() : entryIt->second.first;
    auto [first, last] = _hotkeyMap.equal_range(hotkey);
    for (auto it = first; it != last; ++it) {
        int const other = it->second;
        if (other == entry)
            continue;
        if (!domainsOverlap(domain, getDomainPath(other)))
            continue;
        message = "The hotkey " + quoted(hotkey.toString()) + " is already bound to " +
                  quoted(getPath(other)) + ".";
        return true;
    }
    return false;
}

bool UiHotkeyRegistry::isClickHotkey(UiHotkey const& hotkey) const {
    return hotkey.getKeyState().getState() == 0 && EvKeyCode::isPointerButton(hotkey.getKey());
}

int UiHotkeyRegistry::addInternalHotkey(std::string const& domainPath, std::string const& action,
                                        UiHotkey const& hotkey, InternalType type) {
    if (type == InternalDebug) {
        // Read at each call: debugging hotkeys are added at start-up only.
        EnvIntVar const useDebugHotkeys(__FILE__, "ZR_USE_DEBUG_HOTKEYS", 0);
        if (useDebugHotkeys.getValue() == 0)
            return 0;
    }
    if (int const existing = getEntry(domainPath, action))
        return existing;
    int const number = createEntry(domainPath, action, hotkey);
    _entries[number].internal = true;
    return number;
}

bool UiHotkeyRegistry::isInternal(int entry) const {
    EntryData const* data = findEntry(entry);
    return data && data->internal;
}

int UiHotkeyRegistry::addDynamicHotkey(std::string const& domainPath, std::string const& action,
                                       UiHotkey const& hotkey) {
    if (int const existing = getEntry(domainPath, action))
        return existing;
    int const number = createEntry(domainPath, action, hotkey);
    _entries[number].dynamic = true;
    notify(ObHints(RCShdPtr<ObHint>(new DynamicHotkeyAdded(domainPath, action))));
    return number;
}

bool UiHotkeyRegistry::removeDynamicHotkey(std::string const& domainPath,
                                           std::string const& action) {
    int const entry = getEntry(domainPath, action);
    if (!isDynamic(entry))
        return false;
    removeEntry(entry);
    notify(ObHints(RCShdPtr<ObHint>(new DynamicHotkeyRemoved(domainPath, action))));
    return true;
}

bool UiHotkeyRegistry::renameDynamicHotkey(std::string const& domainPath,
                                           std::string const& oldAction,
                                           std::string const& newAction) {
    int const entry = getEntry(domainPath, oldAction);
    if (!isDynamic(entry))
        return false;
    if (oldAction == newAction)
        return true;
    if (getEntry(domainPath, newAction) != 0)
        return false;
    _entryMap.erase(EntryPath(domainPath, oldAction));
    _entryMap.emplace(EntryPath(domainPath, newAction), entry);
    _reverseEntryMap[entry].second = newAction;
    ObHints hints;
    hints.addHint(RCShdPtr<ObHint>(new DynamicHotkeyRemoved(domainPath, oldAction)));
    hints.addHint(RCShdPtr<ObHint>(new DynamicHotkeyAdded(domainPath, newAction)));
    notify(hints);
    return true;
}

bool UiHotkeyRegistry::isDynamic(int entry) const {
    EntryData const* data = findEntry(entry);
    return data && data->dynamic;
}

std::string UiHotkeyRegistry::getDynamicHotkeyUiName(int entry) const {
    return isDynamic(entry) ? getAction(entry) : std::string();
}

// --- UiGlobalHotkeys -------------------------------------------------------------------------

int UiGlobalHotkeys::Cut = 0;
int UiGlobalHotkeys::Copy = 0;
int UiGlobalHotkeys::Paste = 0;
int UiGlobalHotkeys::Refresh = 0;
int UiGlobalHotkeys::SelectAll = 0;
int UiGlobalHotkeys::Delete = 0;
int UiGlobalHotkeys::Reset = 0;
int UiGlobalHotkeys::Edit = 0;
int UiGlobalHotkeys::FullScreen = 0;
int UiGlobalHotkeys::AddKeyframe = 0;
int UiGlobalHotkeys::RemoveKeyframe = 0;
int UiGlobalHotkeys::Cancel = 0;
int UiGlobalHotkeys::ToggleTooltip = 0;

void UiGlobalHotkeys::cache(UiHotkeyRegistry const& registry) {
    auto entry = [&registry](char const* action) {
        return registry.getEntry(UiHotkeyRegistry::GlobalDomain, action);
    };
    Cut = entry("Cut");
    Copy = entry("Copy");
    Paste = entry("Paste");
    Refresh = entry("Refresh");
    SelectAll = entry("Select All");
    Delete = entry("Delete");
    Reset = entry("Reset");
    Edit = entry("Edit");
    FullScreen = entry("Full Screen");
    AddKeyframe = entry("Add Keyframe");
    RemoveKeyframe = entry("Remove Keyframe");
    Cancel = entry("Cancel");
    ToggleTooltip = entry("Toggle Tooltip");
}

} // namespace Zr
