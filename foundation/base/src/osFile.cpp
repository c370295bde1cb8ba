// OsFile, OsFsUtils and OsFileUtils over std::filesystem.
#include "osFile.h"

#include <filesystem>

namespace Zr {

bool OsFile::exists() const {
    return OsFsUtils::fileExists(_path);
}

OsFileInfo OsFile::getInfo() const {
    std::error_code ec;
    auto status = std::filesystem::status(_path.getPath(), ec);
    if (ec || !std::filesystem::exists(status))
        throw OsFileEx::ExNotFound(__FILE__, __LINE__,
                                   "No such file or directory: " + _path.toString());
    bool isFile = std::filesystem::is_regular_file(status);
    std::uintmax_t size = 0;
    if (isFile) {
        size = std::filesystem::file_size(_path.getPath(), ec);
        if (ec)
            size = 0;
    }
    return OsFileInfo(std::filesystem::is_directory(status), isFile, size);
}

bool OsFsUtils::fileExists(OsFilePath const& path) {
    std::error_code ec;
    return std::filesystem::exists(path.getPath(), ec);
}

std::string const& OsFileUtils::getFileInvalidChars() {
    // The Windows set is the strictest; names shared between systems must avoid all of it.
    static std::string const chars = "\\/:*?\"<>|";
    return chars;
}

} // namespace Zr
