// LgMinorGroup: one log group ("UiEvents") with its activation flags, read from the environment
// variable ZR_LOG_<name> when the group is created.
#pragma once

#include <atomic>
#include <string>

namespace Zr {

class LgMajorGroup;

class LgMinorGroup {
public:
    // Registers with `major` until destroyed. Flags come from ZR_LOG_<name> (decimal or 0x
    // hexadecimal); an unset or unparseable variable gives 0, everything off.
    LgMinorGroup(LgMajorGroup& major, std::string name);
    ~LgMinorGroup();
    LgMinorGroup(LgMinorGroup const&) = delete;
    LgMinorGroup& operator=(LgMinorGroup const&) = delete;

    std::string const& getName() const { return _name; }
    LgMajorGroup& getMajor() const { return _major; }
    // The name left-aligned in `width` columns: padded with blanks, or cut when longer.
    std::string getFormattedName(int width) const;

    unsigned getFlags() const { return _flags.load(std::memory_order_relaxed); }
    void setFlags(unsigned flags) { _flags.store(flags, std::memory_order_relaxed); }
    bool isActive(unsigned mask) const { return (getFlags() & mask) != 0; }

private:
    LgMajorGroup& _major;
    std::string _name;
    std::atomic<unsigned> _flags{0};
};

} // namespace Zr
