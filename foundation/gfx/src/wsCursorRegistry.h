// WsCursorRegistry: the named cursors of the toolkit. The same name always gives the same
// cursor object; a backend may replace the placeholders with system cursors.
#pragma once

#include "exBase.h"
#include "liString.h"
#include "rcBase.h"
#include "wsCursor.h"

#include <mutex>
#include <unordered_map>
#include <vector>

namespace Zr {

class WsCursorRegistry {
public:
    ZR_DECLARE_EXCEPTION(ExUnknownCursor, ExBase);

    static constexpr char const* Normal = "Normal";
    static constexpr char const* Busy = "Busy";
    static constexpr char const* Dance = "Dance";
    static constexpr char const* Drag = "Drag";
    static constexpr char const* Drop = "Drop";
    static constexpr char const* Move = "Move";
    static constexpr char const* MoveXY = "MoveXY";
    static constexpr char const* Pan = "Pan";
    static constexpr char const* Pick = "Pick";
    static constexpr char const* Zoom = "Zoom";

    static WsCursorRegistry& getInstance();

    // Throws ExUnknownCursor, naming the cursor, for a name that isn't registered.
    RCShdPtr<WsCursor> getCursor(LiString const& name) const;
    bool isRegistered(LiString const& name) const;
    // Adds a cursor or replaces the one of the same name.
    void registerCursor(RCShdPtr<WsCursor> cursor);
    std::vector<LiString> getNames() const;

private:
    WsCursorRegistry();
    mutable std::mutex _mutex;
    std::unordered_map<LiString, RCShdPtr<WsCursor>> _cursors;
};

} // namespace Zr
