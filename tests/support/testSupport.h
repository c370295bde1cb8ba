// Helpers the test binaries share: capturing what a call prints, temporary files, environment
// variables for a scope, and waiting for another thread.
#pragma once

#include "osFile.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <optional>
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

// Sets (or with null unsets) an environment variable for the scope, restoring what was there.
struct EnvScope {
    EnvScope(char const* name, char const* value) : name(name) {
        if (char const* old = std::getenv(name))
            saved = old;
        value ? ::setenv(name, value, 1) : ::unsetenv(name);
    }
    ~EnvScope() { saved ? ::setenv(name, saved->c_str(), 1) : ::unsetenv(name); }
    EnvScope(EnvScope const&) = delete;
    EnvScope& operator=(EnvScope const&) = delete;
    char const* name;
    std::optional<std::string> saved;
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
