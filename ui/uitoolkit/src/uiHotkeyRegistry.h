// UiHotkeyRegistry: the process-wide table of key bindings. Each entry is a named action in a
// domain, bound to one UiHotkey; code asks for an entry by name and registers handlers on it,
// and never names a key itself.
#pragma once

#include "zrBase.h"

#include "uiHotkey.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace Zr {

template <class T>
class LkSingleton;
class UiWidget;

// Entry numbers start at 1; 0 names no entry. The registry starts with the bindings the toolkit
// itself needs:
//     "/Global/Next Control"         Tab
//     "/Global/Previous Control"     shift+Tab
//     "/Global/Toggle Stencil Mode"  ctrl+alt+F12 (a debugging aid of the windows)
// Entries are looked up by action name alone; the first entry of that name wins.
class UiHotkeyRegistry {
public:
    static UiHotkeyRegistry& getInstance();

    // Adds an entry, or rebinds the existing one of the same domain and action; returns its number.
    int addEntry(std::string const& domainPath, std::string const& action, UiHotkey const& hotkey);
    // The entry of an action; 0 when there is none.
    int getEntry(LiString const& action) const;
    int getEntry(std::string const& domainPath, std::string const& action) const;
    // The hotkey of an action; null when there is none.
    UiHotkey const* getHotkey(LiString const& action) const;
    // The hotkey of an entry; the empty hotkey for 0 or an unknown number.
    UiHotkey getHotkey(int entry) const;
    // The domain path with the action, "/Global/Next Control". Asserts the entry exists.
    std::string getPath(int entry) const;
    std::string getDomainPath(int entry) const;
    // Whether the event is a key event that the entry's hotkey matches.
    bool isHotkeyActivated(int entry, EvEvent const& event) const;

    // Handlers are called with an EvHotkeyEvent. They are not owned; a destroyed handler leaves
    // the registry by itself. Unknown actions are ignored.
    void registerHandler(LiString const& action, CbHandler<EvEvent>* handler);
    void unregisterHandler(LiString const& action, CbHandler<EvEvent>* handler);
    void addHotkeyHandler(int entry, CbHandler<EvEvent>* handler);
    void removeHotkeyHandler(int entry, CbHandler<EvEvent>* handler);
    // From all entries.
    void removeHotkeyHandler(CbHandler<EvEvent>* handler);
    int getNbHandlers(int entry) const;
    // Forgets handlers tied to a widget that goes away. Handlers are not tied to widgets yet:
    // they leave by themselves when destroyed, so this does nothing.
    void removeWidget(UiWidget* widget);

    // Offers a key event to the entries whose hotkey it matches, in entry order: each gets an
    // EvHotkeyEvent and its handlers run in order until one marks it processed, which also marks
    // `event` processed and ends the search.
    void processEvent(EvKeyEvent& event);
    // Switches all hotkey processing, or that of keypad keys only, off and on.
    void processHotkeyEvents(bool on) { _processHotkeys = on; }
    void processKPHotkeyEvents(bool on) { _processKPHotkeys = on; }

private:
    friend class LkSingleton<UiHotkeyRegistry>;
    UiHotkeyRegistry();
    ~UiHotkeyRegistry();

    // The handlers of one entry; calls them one by one so that processing can stop early.
    class HandlerList : public CbDispatcher<EvEvent> {
    public:
        void callUntilProcessed(EvEvent& event);
    };
    struct Entry {
        std::string domainPath;
        std::string action;
        UiHotkey hotkey;
        UPtr<HandlerList> handlers;
    };

    Entry const* findEntry(int entry) const;
    Entry* findEntry(int entry) {
        return const_cast<Entry*>(std::as_const(*this).findEntry(entry));
    }

    std::map<int, Entry> _entries;
    int _nextEntry = 1;
    bool _processHotkeys = true;
    bool _processKPHotkeys = true;
};

} // namespace Zr
