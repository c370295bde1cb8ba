// A fuzz input written to a file of its own in a private temporary directory, for readers
// that take a path; removed again when it goes.
#pragma once

#include "osFilePath.h"

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

namespace Zr {

class FuzzFile {
public:
    FuzzFile(char const* name, std::uint8_t const* data, std::size_t size)
        : _path(directory() / name) {
        std::ofstream(_path, std::ios::binary)
            .write(reinterpret_cast<char const*>(data), static_cast<std::streamsize>(size));
    }
    ~FuzzFile() {
        std::error_code ignored;
        std::filesystem::remove(_path, ignored);
    }
    FuzzFile(FuzzFile const&) = delete;
    FuzzFile& operator=(FuzzFile const&) = delete;

    OsFilePath path() const { return OsFilePath(_path); }

private:
    static std::filesystem::path const& directory() {
        static std::filesystem::path const dir = [] {
            std::filesystem::path d =
                std::filesystem::temp_directory_path() / ("zrFuzz" + std::to_string(::getpid()));
            std::filesystem::create_directories(d);
            return d;
        }();
        return dir;
    }
    std::filesystem::path _path;
};

} // namespace Zr
