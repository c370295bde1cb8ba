// LgMajorGroup: a process-wide family of log groups ("Gfx"), one per name, knowing the minor
// groups that belong to it.
#pragma once

#include <mutex>
#include <string>
#include <vector>

namespace Zr {

class LgMinorGroup;

class LgMajorGroup {
public:
    // The one group of this name, created on first use; safe from any thread. Groups live to
    // the end of the process, so minor groups in any library may outlive their users.
    static LgMajorGroup& getInstanceForName(std::string const& name);

    LgMajorGroup(LgMajorGroup const&) = delete;
    LgMajorGroup& operator=(LgMajorGroup const&) = delete;

    std::string const& getName() const { return _name; }
    // The first registered minor group of that name, or null.
    LgMinorGroup* findMinor(std::string const& name) const;
    std::vector<LgMinorGroup*> getMinors() const;

private:
    friend class LgMinorGroup;
    explicit LgMajorGroup(std::string name) : _name(std::move(name)) {}
    void addMinor(LgMinorGroup* minor);
    void removeMinor(LgMinorGroup* minor);

    std::string _name;
    mutable std::mutex _mutex;
    std::vector<LgMinorGroup*> _minors;
};

} // namespace Zr
