// EvEventManager, the process-wide point where any thread hands work to the event loop, and
// EvDictionary, the table of named event relations.
#pragma once

#include "evEvent.h"
#include "exBase.h"
#include "lkSingleton.h"

#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

namespace Zr {

// The event loop implements this; the application installs it with initialize.
class EvEventManager {
public:
    virtual ~EvEventManager() = default;

    // Installs the manager (not owned); null uninstalls it.
    static void initialize(EvEventManager* manager);
    // The installed manager, or null.
    static EvEventManager* getInstance();

    // Queues a request to run on the loop's thread; may be called from any thread.
    virtual void postRequest(OPtr<EvRequestEvent> request) = 0;
};

// The common base of the errors of event classes and of what is built from key events.
ZR_DECLARE_EXCEPTION(EvEx, ExBase);

ZR_DECLARE_EXCEPTION(EvUndefinedRelation, ExBase);

// Names of relations between events (such as which event answers which) mapped to small
// numbers, given in order of definition from 0.
class EvDictionary {
public:
    static EvDictionary& getInstance() { return LkSingleton<EvDictionary>::getInstance(); }

    // The number of the relation, defined on first use.
    int defineRelation(std::string const& name);
    // Raises EvUndefinedRelation for a name never defined.
    int getRelation(std::string const& name) const;
    std::string getRelationName(int id) const;
    bool hasRelation(std::string const& name) const;
    int getNbRelations() const;

private:
    friend class LkSingleton<EvDictionary>;
    EvDictionary() = default;

    mutable std::mutex _mutex;
    std::unordered_map<std::string, int> _ids;
    std::vector<std::string> _names;
};

} // namespace Zr
