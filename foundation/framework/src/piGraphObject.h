// PiGraphObject: the base of everything a graph holds (nodes, groups): a name, and whether the
// object is still in its graph.
#pragma once

#include "cmRecordable.h"

#include <string>

namespace Zr {

class PiGraphObject : public CmRecordable {
public:
    explicit PiGraphObject(std::string name = {}) : _name(std::move(name)) {}
    ~PiGraphObject() override;

    std::string const& getName() const { return _name; }
    // Calls willChange() and stores the name when it differs. Subclasses override it to tell
    // their observers after calling this one; their snapshots should hold the name.
    virtual void setName(std::string name);

    // False once the object was removed from its graph.
    bool isValid() const { return _valid; }
    // Set by the graph that holds the object.
    void setValid(bool valid) { _valid = valid; }

    // True for the same object; two nulls are equal.
    static bool areEqual(RCShdPtr<PiGraphObject const> const& a,
                         RCShdPtr<PiGraphObject const> const& b);

protected:
    // Stores the name without recording or telling anyone: for restoreState.
    void assignName(std::string name) { _name = std::move(name); }

private:
    std::string _name;
    bool _valid = true;
};

} // namespace Zr
