// loadGalleryStrip: building a gallery panel from its definition and placing it.
#include "galleryStrip.h"

#include "inPaths.h"
#include "uiConstraint.h"
#include "uiResTable.h"
#include "uiWidgetFactory.h"

#include <cstdio>
#include <sstream>

namespace Zr {

RCShdPtr<UiContainer> loadGalleryStrip(RCShdPtr<UiContainer> const& root, char const* definition,
                                       std::string const& constraint) {
    OsFilePath const file = InPaths::getResourcesDir() + UiResTable::getResTableDir() + definition;
    RCShdPtr<UiContainer> panel;
    try {
        panel = dynamicCast<UiContainer>(UiWidgetFactory::createWidgetFromFile(root, file));
    } catch (ExBase const& e) {
        std::fprintf(stderr, "zrui-gallery: %s\n", e.getReason().c_str());
        return {};
    }
    if (!panel)
        return {};
    UiConstraint placement;
    std::istringstream text(constraint);
    placement.read(text);
    panel->setConstraint(placement);
    return panel;
}

} // namespace Zr
