// WsSdlCursor: a named cursor of the toolkit as one of SDL's system cursors.
#pragma once

#include "wsCursor.h"

struct SDL_Cursor;

namespace Zr {

class WsSdlCursor : public WsCursor {
public:
    // `systemCursor` is an SDL_SystemCursor value.
    WsSdlCursor(LiString name, int systemCursor);
    ~WsSdlCursor() override;
    WsSdlCursor(WsSdlCursor const&) = delete;
    WsSdlCursor& operator=(WsSdlCursor const&) = delete;

    // Shows this cursor (SDL has one for all windows).
    void apply() const;
    int getSystemCursor() const { return _systemCursor; }

    // Replaces the registry's placeholders with SDL cursors, and puts placeholders back (so
    // that no SDL cursor outlives SDL).
    static void registerSystemCursors();
    static void unregisterSystemCursors();

private:
    SDL_Cursor* _cursor = nullptr;
    int _systemCursor;
};

} // namespace Zr
