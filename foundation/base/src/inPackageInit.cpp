// The package registry: dependence ordering, start-up with unwinding on failure, and shut-down.
#include "inPackageInit.h"

#include <algorithm>
#include <mutex>

namespace Zr {

namespace {

struct Registry {
    std::recursive_mutex _mutex;
    std::vector<InPackageInit> _packages;
    // Started packages with their exit steps, in start-up order.
    std::vector<std::pair<std::string, std::function<void()>>> _started;
};

Registry& registry() {
    // Never destroyed: libraries unloaded during exit may still ask about their packages.
    static auto* r = new Registry();
    return *r;
}

std::string quoted(std::string const& s) {
    return "\"" + s + "\"";
}

// Kahn's algorithm; among the packages ready to start the earliest registered goes first.
std::vector<std::size_t> startOrder(std::vector<InPackageInit> const& packages) {
    auto indexOf = [&packages](std::string const& name) -> std::size_t {
        for (std::size_t i = 0; i < packages.size(); ++i)
            if (packages[i].getName() == name)
                return i;
        return packages.size();
    };
    std::size_t const n = packages.size();
    std::vector<std::vector<std::size_t>> deps(n);
    for (std::size_t i = 0; i < n; ++i) {
        for (std::string const& d : packages[i].getDependencies()) {
            std::size_t j = indexOf(d);
            if (j == n)
                throw InPackageEx::ExDependency(__FILE__, __LINE__,
                                                "Package " + quoted(packages[i].getName()) +
                                                    " depends on the unknown package " + quoted(d));
            deps[i].push_back(j);
        }
    }
    std::vector<bool> done(n, false);
    std::vector<std::size_t> order;
    while (order.size() < n) {
        std::size_t next = n;
        for (std::size_t i = 0; i < n && next == n; ++i) {
            if (done[i])
                continue;
            bool ready = std::all_of(deps[i].begin(), deps[i].end(),
                                     [&done](std::size_t j) { return done[j]; });
            if (ready)
                next = i;
        }
        if (next == n) {
            // Every package left waits on another left: walk the waits until one repeats.
            std::size_t at = 0;
            while (done[at])
                ++at;
            std::vector<std::size_t> path;
            while (std::find(path.begin(), path.end(), at) == path.end()) {
                path.push_back(at);
                at = *std::find_if(deps[at].begin(), deps[at].end(),
                                   [&done](std::size_t j) { return !done[j]; });
            }
            std::string cycle;
            for (auto it = std::find(path.begin(), path.end(), at); it != path.end(); ++it)
                cycle += packages[*it].getName() + " -> ";
            cycle += packages[at].getName();
            throw InPackageEx::ExDependency(__FILE__, __LINE__,
                                            "Cyclic package dependency: " + cycle);
        }
        done[next] = true;
        order.push_back(next);
    }
    return order;
}

} // namespace

InPackageInit::InPackageInit(std::string name, std::function<void()> init,
                             std::function<void()> exit)
    : _name(std::move(name)), _init(std::move(init)), _exit(std::move(exit)) {}

InPackageInit& InPackageInit::addDependency(std::string const& name) {
    if (std::find(_dependencies.begin(), _dependencies.end(), name) == _dependencies.end())
        _dependencies.push_back(name);
    return *this;
}

void InPackageInit::registerPackage() const {
    Registry& r = registry();
    std::lock_guard<std::recursive_mutex> lock(r._mutex);
    if (isRegistered(_name))
        throw InPackageEx::ExDuplicate(__FILE__, __LINE__,
                                       "Package " + quoted(_name) + " is already registered");
    r._packages.push_back(*this);
}

bool InPackageInit::isRegistered(std::string const& name) {
    Registry& r = registry();
    std::lock_guard<std::recursive_mutex> lock(r._mutex);
    return std::any_of(r._packages.begin(), r._packages.end(),
                       [&name](InPackageInit const& p) { return p._name == name; });
}

bool InPackageInit::isStarted(std::string const& name) {
    Registry& r = registry();
    std::lock_guard<std::recursive_mutex> lock(r._mutex);
    return std::any_of(r._started.begin(), r._started.end(),
                       [&name](auto const& s) { return s.first == name; });
}

void InPackageInit::unregisterPackage(std::string const& name) {
    Registry& r = registry();
    std::lock_guard<std::recursive_mutex> lock(r._mutex);
    ZR_ASSERT(!isStarted(name));
    r._packages.erase(std::remove_if(r._packages.begin(), r._packages.end(),
                                     [&name](InPackageInit const& p) { return p._name == name; }),
                      r._packages.end());
}

std::vector<std::string> InPackageInit::getStartOrder() {
    Registry& r = registry();
    std::lock_guard<std::recursive_mutex> lock(r._mutex);
    std::vector<std::string> names;
    for (std::size_t i : startOrder(r._packages))
        names.push_back(r._packages[i]._name);
    return names;
}

void InPackageInit::startAll() {
    Registry& r = registry();
    std::vector<InPackageInit> toStart;
    {
        std::lock_guard<std::recursive_mutex> lock(r._mutex);
        for (std::size_t i : startOrder(r._packages))
            toStart.push_back(r._packages[i]);
    }
    // Steps run without the lock held: a start-up step may register or query packages.
    for (InPackageInit const& p : toStart) {
        try {
            if (p._init)
                p._init();
        } catch (...) {
            stopAll();
            throw;
        }
        std::lock_guard<std::recursive_mutex> lock(r._mutex);
        r._started.emplace_back(p._name, p._exit);
    }
}

void InPackageInit::stopAll() {
    Registry& r = registry();
    for (;;) {
        std::pair<std::string, std::function<void()>> last;
        {
            std::lock_guard<std::recursive_mutex> lock(r._mutex);
            if (r._started.empty())
                return;
            last = std::move(r._started.back());
            r._started.pop_back();
        }
        try {
            if (last.second)
                last.second();
        } catch (std::exception const& e) {
            ExStdout::printAtomically("Exit of package " + quoted(last.first) +
                                      " failed: " + e.what());
        } catch (...) {
            ExStdout::printAtomically("Exit of package " + quoted(last.first) + " failed");
        }
    }
}

} // namespace Zr
