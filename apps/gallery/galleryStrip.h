// loadGalleryStrip: one of the gallery's panels, built from its widget definition in the
// shipped resource tables and placed by a constraint in the text form.
#pragma once

#include "uiContainer.h"

namespace Zr {

// The panel defined in `definition` (a file of the resource tables' directory), made in `root`
// and placed by `constraint`. A definition that can't be built is reported on standard error
// and gives null: the gallery then shows the rest without it.
RCShdPtr<UiContainer> loadGalleryStrip(RCShdPtr<UiContainer> const& root, char const* definition,
                                       std::string const& constraint);

} // namespace Zr
