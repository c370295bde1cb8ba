// UiHotkeyRegistry: the process-wide table of key bindings. Each entry is a named action in a
// hierarchical domain, bound to one UiHotkey; code asks for an entry by name and registers
// handlers on it, and never names a key itself. UiGlobalHotkeys caches the toolkit's "/Global"
// entries once the default bindings are read.
#pragma once

#include "zrBase.h"

#include "mfHotkeyRegistry.h"
#include "uiHotkey.h"

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace Zr {

template <class T>
class LkSingleton;
class OsFilePath;
class UiWidget;
class XmlDocument;

// Entry numbers start at 1 and are never given twice; 0 names no entry, and every query about
// it answers "nothing" (the empty hotkey, no handlers). The registry starts with the bindings
// the toolkit itself needs before any file is read:
//     "/Global/Next Control"         Tab
//     "/Global/Previous Control"     shift+Tab
//     "/Global/Toggle Stencil Mode"  ctrl+alt+F12 (a debugging aid of the windows)
// "defaultHotkeys.xml" rebinds them and adds the rest.
//
// Observers are told of dynamic entries: an ObHints list with one DynamicHotkeyAdded or
// DynamicHotkeyRemoved hint, or both (removed, then added) for a rename; always after the maps
// are consistent again.
class UiHotkeyRegistry : public MfHotkeyRegistry, public ObSubject<UiHotkeyRegistry> {
public:
    // (domain path, action), such as ("/Global", "Copy").
    using EntryPath = std::pair<std::string, std::string>;
    using EntryMap = std::map<EntryPath, int>;
    using ReverseEntryMap = std::map<int, EntryPath>;
    using HotkeyMap = std::multimap<UiHotkey, int>;

    // What toString renders: the type word, or the whole hotkey (any other value). The fixed
    // underlying type makes every int a valid value, so callers may pass any number.
    enum StringElement : int { WholeHotkey = 0, TypeWord = 1 };
    // The kinds of internal hotkeys: debugging ones exist only with ZR_USE_DEBUG_HOTKEYS set.
    enum InternalType { InternalTool = 0, InternalDebug = 1 };

    // The hint of a dynamic entry added, and of one removed.
    class DynamicHotkeyHint : public ObHint {
    public:
        DynamicHotkeyHint(std::string domainPath, std::string action)
            : _domainPath(std::move(domainPath)), _action(std::move(action)) {}
        std::string const& getDomainPath() const { return _domainPath; }
        std::string const& getHotkeyAction() const { return _action; }

    private:
        std::string _domainPath;
        std::string _action;
    };
    class DynamicHotkeyAdded : public DynamicHotkeyHint {
    public:
        using DynamicHotkeyHint::DynamicHotkeyHint;
    };
    class DynamicHotkeyRemoved : public DynamicHotkeyHint {
    public:
        using DynamicHotkeyHint::DynamicHotkeyHint;
    };

    // "/Global": the domain whose bindings hold everywhere.
    static std::string const GlobalDomain;
    // The name of the file of default bindings, in the resource tables' directory.
    static char const* const DefaultHotkeysFile;

    static UiHotkeyRegistry& getInstance();
    // A registry of one's own, for tests and tools that must not touch the process-wide one; it
    // starts as the process-wide one did.
    UiHotkeyRegistry();
    ~UiHotkeyRegistry() override;
    UiHotkeyRegistry(UiHotkeyRegistry const&) = delete;
    UiHotkeyRegistry& operator=(UiHotkeyRegistry const&) = delete;

    // --- the table --------------------------------------------------------------------------

    // The domain paths known: those the application's code refers to, fixed here, and any
    // other that a file or a dynamic hotkey brought.
    std::set<std::string> const& getDomainPaths() const { return _domainPaths; }
    EntryMap const& getEntryMap() const { return _entryMap; }
    ReverseEntryMap const& getReverseEntryMap() const { return _reverseEntryMap; }
    HotkeyMap const& getHotkeyMap() const { return _hotkeyMap; }

    // The entry of (domain path, action); 0 when there is none.
    int getEntry(std::string const& domainPath, std::string const& action) const override;
    // The entry of an action in any domain, the first in path order ("/Global" before "/Local");
    // 0 when there is none. Actions of the same name in several domains need the form above.
    int getEntry(LiString const& action) const;
    // "/Global/Copy". Both assert "entryIt != reverseEntryMap.end()" for an unknown entry.
    std::string getPath(int entry) const;
    std::string getDomainPath(int entry) const;
    // The action alone; "" for an unknown entry.
    std::string getAction(int entry) const;
    // The entry's hotkey; the empty hotkey for 0, an unknown entry or one without a key.
    UiHotkey getHotkey(int entry) const;
    // The hotkey of an action found as by getEntry(action); null when there is none.
    UiHotkey const* getHotkey(LiString const& action) const;
    // The hotkey that reset restores; the empty hotkey when there is none.
    UiHotkey getDefaultHotkey(int entry) const;
    // The type word with TypeWord, else the whole hotkey ("ctrl+C"); "" for an entry without
    // a key, so that a menu shows nothing.
    std::string toString(int entry, StringElement element) const;

    // Whether the event is a key event that matches the entry's hotkey in key, modifiers and
    // type. A hotkey event matches the entry it was made for and any entry of the same hotkey.
    bool isHotkeyActivated(int entry, EvEvent const& event) const override;
    bool isHotkeyActivated(std::string const& domainPath, std::string const& action,
                           EvEvent const& event) const;

    // --- reading ----------------------------------------------------------------------------

    // Registers the bindings of a hotkey file: nested Domain elements (attribute Name) give the
    // path, Hotkey elements (Action, Key, State, Type) the bindings. Inner domains register
    // before outer ones. A non-empty `domainFilter` keeps only the domain of exactly that path,
    // a non-empty `actionFilter` only that action. A new (path, action) takes the next entry
    // number; a known one is rebound. Each binding read becomes the entry's default.
    // A file that can't be read, a Domain without a usable Name, and each Hotkey element that
    // can't be read are reported (one warning naming the file, and a line per problem in the
    // "UiResources" log naming the file, line, domain and action); every other binding loads.
    // Returns the number of problems reported.
    int registerHotkeys(OsFilePath const& file, std::string const& domainFilter = {},
                        std::string const& actionFilter = {});
    // The same for a document already parsed; its name stands for the file in reports.
    int registerHotkeys(XmlDocument const& document, std::string const& domainFilter = {},
                        std::string const& actionFilter = {});
    // Reads "defaultHotkeys.xml" from the resource tables' directory.
    int registerDefaultHotkeys();

    // Adds an entry, or rebinds the existing one of the same domain and action; the hotkey
    // becomes its default. Returns its number.
    int addEntry(std::string const& domainPath, std::string const& action, UiHotkey const& hotkey);

    // --- handlers and events ----------------------------------------------------------------

    // Handlers are called with an EvHotkeyEvent, in the order they were added. They are not
    // owned; a destroyed handler leaves the registry by itself. Unknown entries are ignored.
    void addHotkeyHandler(int entry, CbHandler<EvEvent>* handler) override;
    void removeHotkeyHandler(int entry, CbHandler<EvEvent>* handler) override;
    // From all entries.
    void removeHotkeyHandler(CbHandler<EvEvent>* handler);
    int getNbHandlers(int entry) const;
    // By action name, the entry found as by getEntry(action).
    void registerHandler(LiString const& action, CbHandler<EvEvent>* handler);
    void unregisterHandler(LiString const& action, CbHandler<EvEvent>* handler);
    // Forgets handlers tied to a widget that goes away. Handlers are not tied to widgets: they
    // leave by themselves when destroyed, so this does nothing.
    void removeWidget(UiWidget* widget);

    // Offers a key event to the entries of its hotkey, in the hotkey map's order (for equal
    // hotkeys, the order the entries were bound in): each gets an EvHotkeyEvent and its handlers
    // run in order; as soon as one marks the hotkey event processed, `event` is marked processed
    // and nothing else is called. Does nothing while switched off, and for a keypad key while
    // keypad hotkeys are switched off, so that the key goes on to the widgets.
    void processEvent(EvKeyEvent& event);
    // Switches all hotkey processing, or that of keypad keys only, off and on.
    void processHotkeyEvents(bool on) { _processHotkeys = on; }
    void processKPHotkeyEvents(bool on) { _processKPHotkeys = on; }
    bool isProcessingHotkeyEvents() const { return _processHotkeys; }
    bool isProcessingKPHotkeyEvents() const { return _processKPHotkeys; }

    // --- editing ----------------------------------------------------------------------------

    // Binds the entry to `hotkey` (the empty hotkey unbinds it). Unknown entries are ignored.
    void replaceHotkey(int entry, UiHotkey const& hotkey);
    // Binds the entry to its default again, or unbinds it when it has none.
    void reset(int entry);
    // Whether giving `hotkey` to `entry` would clash with another entry: one that bears the
    // same hotkey in the same domain, or in a domain that is an ancestor or a descendant of the
    // entry's ("/Local" and "/Local/Viewers" overlap, "/Global" and "/Local" don't). Plain Esc,
    // Space and Tab, click hotkeys and the entry itself never conflict. On a conflict `message`
    // names the other entry by its path.
    bool isConflicting(int entry, UiHotkey const& hotkey, std::string& message) const;
    // A pointer button as key (LeftClick, MiddleClick, RightClick: 140 to 142) without modifiers.
    bool isClickHotkey(UiHotkey const& hotkey) const;

    // An entry kept out of the hotkey editor. With InternalDebug and ZR_USE_DEBUG_HOTKEYS unset
    // or 0, nothing is registered and the result is 0. An existing (path, action) is returned
    // as it is.
    int addInternalHotkey(std::string const& domainPath, std::string const& action,
                          UiHotkey const& hotkey, InternalType type);
    bool isInternal(int entry) const;

    // Entries made at run time. Adding an existing (path, action) returns its entry and tells
    // nobody. Removing or renaming works on dynamic entries only and gives false for any other
    // or unknown pair, and renaming to a name taken in the domain gives false. A renamed entry
    // keeps its number, hotkey and handlers; a removed one loses its handlers.
    int addDynamicHotkey(std::string const& domainPath, std::string const& action,
                         UiHotkey const& hotkey);
    bool removeDynamicHotkey(std::string const& domainPath, std::string const& action);
    bool renameDynamicHotkey(std::string const& domainPath, std::string const& oldAction,
                             std::string const& newAction);
    bool isDynamic(int entry) const;
    // The name a hotkey editor shows for a dynamic entry: its action; "" for other entries.
    std::string getDynamicHotkeyUiName(int entry) const;

private:
    friend class LkSingleton<UiHotkeyRegistry>;

    // The handlers of one entry; calls them one by one so that processing can stop early.
    class HandlerList : public CbDispatcher<EvEvent> {
    public:
        void callUntilProcessed(EvEvent& event);
    };
    // What an entry holds beyond the maps.
    struct EntryData {
        UiHotkey hotkey;
        UPtr<HandlerList> handlers;
        bool internal = false;
        bool dynamic = false;
    };

    EntryData const* findEntry(int entry) const;
    EntryData* findEntry(int entry) {
        return const_cast<EntryData*>(std::as_const(*this).findEntry(entry));
    }
    // A new entry bound to `hotkey`, which also becomes its default.
    int createEntry(std::string const& domainPath, std::string const& action,
                    UiHotkey const& hotkey);
    void eraseFromHotkeyMap(int entry, UiHotkey const& hotkey);
    void removeEntry(int entry);

    std::set<std::string> _domainPaths;
    EntryMap _entryMap;
    ReverseEntryMap _reverseEntryMap;
    HotkeyMap _hotkeyMap;
    std::map<int, UiHotkey> _savedDefaults;
    std::map<int, EntryData> _entries;
    int _nextEntry = 1;
    bool _processHotkeys = true;
    bool _processKPHotkeys = true;
};

// The entries of the "/Global" actions the widgets use, cached by the toolkit's start-up once
// the default bindings are read; 0 until then, or when the bindings lack the action.
struct UiGlobalHotkeys {
    static int Cut;
    static int Copy;
    static int Paste;
    static int Refresh;
    static int SelectAll;
    static int Delete;
    static int Reset;
    static int Edit;
    static int FullScreen;
    static int AddKeyframe;
    static int RemoveKeyframe;
    static int Cancel;
    static int ToggleTooltip;

    // Looks the entries up in `registry`.
    static void cache(UiHotkeyRegistry const& registry);
};

} // namespace Zr
