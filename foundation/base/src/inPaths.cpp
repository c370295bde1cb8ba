// The resources directory lookup.
#include "inPaths.h"

#include "osEnv.h"
#include "osFile.h"

#include <mutex>

namespace Zr {

namespace {
std::mutex& pathsMutex() {
    static std::mutex mutex;
    return mutex;
}
OsFilePath& overridden() {
    static OsFilePath path;
    return path;
}
} // namespace

OsFilePath InPaths::getResourcesDir() {
    {
        std::lock_guard<std::mutex> lock(pathsMutex());
        if (!overridden().isEmpty())
            return overridden();
    }
    if (auto env = OsEnv::get("ZR_RESOURCES_DIR"); env && !env->empty())
        return OsFilePath(*env);
#ifdef ZR_SOURCE_RESOURCES_DIR
    OsFilePath source(ZR_SOURCE_RESOURCES_DIR);
    if (OsFsUtils::fileExists(source))
        return source;
#endif
    return getExecutableDir() + OsFilePath("../share/zrui");
}

void InPaths::setResourcesDir(OsFilePath const& path) {
    std::lock_guard<std::mutex> lock(pathsMutex());
    overridden() = path;
}

OsFilePath InPaths::getExecutableDir() {
    std::error_code ec;
    std::filesystem::path exe = std::filesystem::read_symlink("/proc/self/exe", ec);
    if (ec)
        return OsFilePath(std::filesystem::current_path(ec));
    return OsFilePath(exe.parent_path());
}

} // namespace Zr
