// WsCursor: a pointer shape of the windowing layer, known by its name. Until a backend
// supplies system cursors a cursor is only its name.
#pragma once

#include "liString.h"
#include "rcBase.h"

namespace Zr {

class WsCursor : public RCObject {
public:
    explicit WsCursor(LiString name) : _name(std::move(name)) {}
    LiString const& getName() const { return _name; }

private:
    LiString _name;
};

} // namespace Zr
