// OsFilePath: a file-system path over std::filesystem, with the join, base-name and directory
// operations that resource loading uses.
#pragma once

#include <compare>
#include <filesystem>
#include <iosfwd>
#include <string>

namespace Zr {

class OsFilePath {
public:
    enum BaseNameExtension { WithExtension, WithoutExtension };

    OsFilePath() = default;
    OsFilePath(std::string const& path) : _path(path) {}
    OsFilePath(char const* path) : _path(path ? path : "") {}
    OsFilePath(std::wstring const& path) : _path(path) {}
    OsFilePath(std::filesystem::path path) : _path(std::move(path)) {}

    // Joins `other` below this path. A leading separator of `other` does not make it replace
    // this path: "a" += "/b" gives "a/b". An empty this path gives `other` unchanged.
    OsFilePath& operator+=(OsFilePath const& other);
    friend OsFilePath operator+(OsFilePath lhs, OsFilePath const& rhs) { return lhs += rhs; }

    // The last component, with or without its extension ("icons/ok.tif" -> "ok.tif" or "ok").
    std::string getBaseName(BaseNameExtension ext = WithExtension) const;
    // Everything before the last component; empty for a bare file name.
    OsFilePath getDirectoryName() const;
    // The extension with its dot (".tif"), empty when there is none.
    std::string getExtension() const;

    char const* getChars() const { return _path.c_str(); }
    std::string toString() const { return _path.string(); }
    std::filesystem::path const& getPath() const { return _path; }
    bool isEmpty() const { return _path.empty(); }
    bool isRelative() const { return _path.is_relative(); }

    // Component-wise comparison: negative, zero or positive.
    int compare(OsFilePath const& other) const { return _path.compare(other._path); }
    void dump(std::ostream& os) const;

    // The directory for temporary files of this system.
    static OsFilePath getTempDir();

    friend bool operator==(OsFilePath const& a, OsFilePath const& b) { return a.compare(b) == 0; }
    friend std::strong_ordering operator<=>(OsFilePath const& a, OsFilePath const& b) {
        return a.compare(b) <=> 0;
    }

private:
    std::filesystem::path _path;
};

std::ostream& operator<<(std::ostream& os, OsFilePath const& path);

} // namespace Zr
