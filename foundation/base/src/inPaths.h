// InPaths: where the shipped resources (resTables, icons, message files) lie.
#pragma once

#include "osFilePath.h"

namespace Zr {

struct InPaths {
    // The directory set by setResourcesDir, else the environment variable ZR_RESOURCES_DIR,
    // else share/zrui of the installation that holds this library (found from the library's
    // own file, so any program linked against an installed toolkit finds it), else the source
    // tree's resources/ when it exists (a build tree), else
    // <directory of the executable>/../share/zrui.
    static OsFilePath getResourcesDir();
    // Overrides the lookup, for tests and tools; an empty path restores it.
    static void setResourcesDir(OsFilePath const& path);
    // The directory of the running executable.
    static OsFilePath getExecutableDir();
};

} // namespace Zr
