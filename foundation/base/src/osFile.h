// OsFile and OsFileInfo: what the system knows of one path; OsFsUtils and OsFileUtils, the small
// file-system helpers that the toolkit calls without a file object.
#pragma once

#include "exBase.h"
#include "osFilePath.h"

#include <cstdint>
#include <string>

namespace Zr {

struct OsFileEx {
    ZR_DECLARE_EXCEPTION(ExNotFound, ExBase);
};

class OsFileInfo {
public:
    OsFileInfo(bool isDirectory, bool isFile, std::uintmax_t size)
        : _isDirectory(isDirectory), _isFile(isFile), _size(size) {}

    bool isDirectory() const { return _isDirectory; }
    // A regular file (after following links).
    bool isFile() const { return _isFile; }
    // Size in bytes of a regular file; 0 for anything else.
    std::uintmax_t getSize() const { return _size; }

private:
    bool _isDirectory;
    bool _isFile;
    std::uintmax_t _size;
};

class OsFile {
public:
    explicit OsFile(OsFilePath path) : _path(std::move(path)) {}

    OsFilePath const& getPath() const { return _path; }
    bool exists() const;
    // Raises OsFileEx::ExNotFound naming the path when nothing exists there.
    OsFileInfo getInfo() const;

private:
    OsFilePath _path;
};

struct OsFsUtils {
    // True for an existing file or directory.
    static bool fileExists(OsFilePath const& path);
};

struct OsFileUtils {
    // The characters that may not appear in a file name on any system the files travel to.
    static std::string const& getFileInvalidChars();
};

} // namespace Zr
