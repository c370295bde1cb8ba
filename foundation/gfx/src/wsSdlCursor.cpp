// The toolkit's cursors as SDL system cursors. Dance, the cursor of work in progress that
// still takes input, is SDL's arrow with the wait symbol.
#include "wsSdlCursor.h"

#include "wsCursorRegistry.h"

#include <SDL.h>

#include <utility>

namespace Zr {

namespace {
std::pair<char const*, SDL_SystemCursor> const systemCursors[] = {
    {WsCursorRegistry::Normal, SDL_SYSTEM_CURSOR_ARROW},
    {WsCursorRegistry::Busy, SDL_SYSTEM_CURSOR_WAIT},
    {WsCursorRegistry::Dance, SDL_SYSTEM_CURSOR_WAITARROW},
    {WsCursorRegistry::Drag, SDL_SYSTEM_CURSOR_HAND},
    {WsCursorRegistry::Drop, SDL_SYSTEM_CURSOR_CROSSHAIR},
    {WsCursorRegistry::Move, SDL_SYSTEM_CURSOR_SIZEWE},
    {WsCursorRegistry::MoveXY, SDL_SYSTEM_CURSOR_SIZEALL},
    {WsCursorRegistry::Pan, SDL_SYSTEM_CURSOR_SIZEALL},
    {WsCursorRegistry::Pick, SDL_SYSTEM_CURSOR_CROSSHAIR},
    {WsCursorRegistry::Zoom, SDL_SYSTEM_CURSOR_SIZENWSE},
};
} // namespace

WsSdlCursor::WsSdlCursor(LiString name, int systemCursor)
    : WsCursor(std::move(name)),
      _cursor(SDL_CreateSystemCursor(static_cast<SDL_SystemCursor>(systemCursor))),
      _systemCursor(systemCursor) {}

WsSdlCursor::~WsSdlCursor() {
    if (_cursor)
        SDL_FreeCursor(_cursor);
}

void WsSdlCursor::apply() const {
    if (_cursor)
        SDL_SetCursor(_cursor);
}

void WsSdlCursor::registerSystemCursors() {
    for (auto const& [name, id] : systemCursors)
        WsCursorRegistry::getInstance().registerCursor(makeShared<WsSdlCursor>(name, id));
}

void WsSdlCursor::unregisterSystemCursors() {
    for (auto const& entry : systemCursors)
        WsCursorRegistry::getInstance().registerCursor(makeShared<WsCursor>(entry.first));
}

} // namespace Zr
