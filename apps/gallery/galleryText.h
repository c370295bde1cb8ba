// The gallery's "Text" panel: text fields built from the definition galleryText.xml, one for
// each filter (free text, frame rate, ratio, file name, identifier, existing folder), and a
// read-only field and a line that show what was committed.
#pragma once

#include "zrUi.h"

#include <memory>

class GalleryTextPanel {
public:
    // Builds the panel in `root`, placed by `constraint` (text form). Without the definition
    // file it reports on standard error and shows nothing.
    GalleryTextPanel(Zr::UiContainer* root, char const* constraint);
    ~GalleryTextPanel();
    GalleryTextPanel(GalleryTextPanel const&) = delete;
    GalleryTextPanel& operator=(GalleryTextPanel const&) = delete;

    // The panel's name, for the constraints of the widgets placed above it.
    static char const* const Name;

private:
    struct Parts;
    std::unique_ptr<Parts> _parts;
};
