// The resources directory lookup.
#include "inPaths.h"

#include "osEnv.h"
#include "osFile.h"

#include <dlfcn.h>

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

// <directory of this library>/<libdir to datadir>/zrui, when the library is an installed one
// and the resources were installed with it; empty otherwise. The library, not the program, is
// the anchor: a client's executable may live anywhere, but the toolkit's resources are always
// installed next to the toolkit.
OsFilePath installedResourcesDir() {
#ifdef ZR_LIB_TO_RESOURCES_DIR
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(&InPaths::getResourcesDir), &info) == 0 || !info.dli_fname)
        return {};
    std::error_code ec;
    std::filesystem::path const library = std::filesystem::canonical(info.dli_fname, ec);
    if (ec)
        return {};
    std::filesystem::path const dir =
        (library.parent_path() / ZR_LIB_TO_RESOURCES_DIR).lexically_normal();
    if (std::filesystem::is_directory(dir, ec))
        return OsFilePath(dir);
#endif
    return {};
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
    if (OsFilePath installed = installedResourcesDir(); !installed.isEmpty())
        return installed;
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
