// UiIconRegistry: the one place that reads image files for the interface. Each file is read once
// per process and can be traced back from its image to its path.
#pragma once

#include "gePoint2.h"
#include "osFilePath.h"
#include "rcBase.h"
#include "wsManagedImage.h"

#include <map>

namespace Zr {

class UiIconRegistry {
public:
    // Lives to the end of the process; images are never dropped from it.
    static UiIconRegistry& getInstance();

    // Relative paths given to loadImage are taken against this directory. Until the
    // "uiresources" package sets it to <resources>/icons it is "<IconDir>".
    void setIconDirectory(OsFilePath const& directory) { _iconDirectory = directory; }
    OsFilePath getIconDirectory() const { return _iconDirectory; }

    // The image of a file, read on first use and shared afterwards, whichever path (relative or
    // absolute) named it. A file that can't be read raises WsImageEx::ExUnreadable.
    RCShdPtr<WsManagedImage> loadImage(OsFilePath const& path);
    // The full path the image was loaded from; the image must have come through loadImage.
    OsFilePath getImagePath(RCShdPtr<WsManagedImage> const& image) const;
    // Draws the image with its lower-left corner at `position` in the current window, only its
    // visible part when it starts left of or below the window's origin. A null image draws
    // nothing.
    void draw(RCShdPtr<WsManagedImage> const& image, GePoint2<int> position, bool flag);

    // The number of files read so far.
    int getNbImages() const { return static_cast<int>(_cache.size()); }

private:
    UiIconRegistry() = default;
    UiIconRegistry(UiIconRegistry const&) = delete;
    UiIconRegistry& operator=(UiIconRegistry const&) = delete;

    OsFilePath _iconDirectory{"<IconDir>"};
    std::map<OsFilePath, RCShdPtr<WsManagedImage>> _cache;
    std::map<WsManagedImage const*, OsFilePath> _reverseCache; // mirrors _cache
};

} // namespace Zr
