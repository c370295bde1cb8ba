// Helpers the test binaries share: capturing what a call prints, temporary files, and waiting
// for another thread.
#pragma once

#include "osFile.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <fstream>
#include <functional>
#include <string>
#include <thread>

namespace Zr::TestSupport {

// What `run` writes to standard output (or standard error with `err`).
inline std::string printed(std::function<void()> const& run, bool err = false) {
    err ? ::testing::internal::CaptureStderr() : ::testing::internal::CaptureStdout();
    run();
    return err ? ::testing::internal::GetCapturedStderr()
               : ::testing::internal::GetCapturedStdout();
}

// A file in the temporary directory holding `text`, removed at the end of the scope.
struct TempFile {
    TempFile(std::string const& name, std::string const& text)
        : path(OsFilePath::getTempDir() + OsFilePath(name)) {
        std::ofstream(path.getChars(), std::ios::binary) << text;
    }
    ~TempFile() { std::remove(path.getChars()); }
    TempFile(TempFile const&) = delete;
    TempFile& operator=(TempFile const&) = delete;
    OsFilePath path;
};

// Polls until `done` holds or a generous limit passes: tests of threads wait, they never time.
inline bool waitFor(std::function<bool()> const& done, double seconds = 5.0) {
    auto limit = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
    while (!done()) {
        if (std::chrono::steady_clock::now() > limit)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

} // namespace Zr::TestSupport
