// OsFilePath over std::filesystem.
#include "osFilePath.h"

#include <ostream>

namespace Zr {

OsFilePath& OsFilePath::operator+=(OsFilePath const& other) {
    if (_path.empty()) {
        _path = other._path;
        return *this;
    }
    // std::filesystem would let an absolute right-hand side replace the left one; a join here
    // always descends, so the root of `other` is dropped first.
    _path /= other._path.relative_path();
    return *this;
}

std::string OsFilePath::getBaseName(BaseNameExtension ext) const {
    std::filesystem::path name = _path.filename();
    if (name.empty())
        name = _path.parent_path().filename(); // "dir/" names "dir"
    return ext == WithExtension ? name.string() : name.stem().string();
}

OsFilePath OsFilePath::getDirectoryName() const {
    std::filesystem::path p = _path;
    if (!p.has_filename() && p.has_parent_path() && p != p.root_path())
        p = p.parent_path(); // "dir/" is the directory "dir" itself
    return OsFilePath(p.parent_path());
}

std::string OsFilePath::getExtension() const {
    return _path.extension().string();
}

void OsFilePath::dump(std::ostream& os) const {
    os << "OsFilePath: " << _path.string();
}

OsFilePath OsFilePath::getTempDir() {
    std::error_code ec;
    std::filesystem::path dir = std::filesystem::temp_directory_path(ec);
    if (ec)
        dir = "/tmp";
    return OsFilePath(dir);
}

std::ostream& operator<<(std::ostream& os, OsFilePath const& path) {
    return os << path.toString();
}

} // namespace Zr
