// The main of every test binary: runs the tests under one start-up of the packages. The
// foundation binaries don't link the ui library; there the packages are left to the tests.
#include "inInitGuard.h"

#include <gtest/gtest.h>

#include <memory>

namespace Zr {
// Defined by the ui library; null in a binary that doesn't link it.
[[gnu::weak]] int zrUiLibraryVersion();
} // namespace Zr

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    std::unique_ptr<Zr::InInitGuard> packages;
    if (&Zr::zrUiLibraryVersion != nullptr)
        packages = std::make_unique<Zr::InInitGuard>(argc, argv);
    int result = RUN_ALL_TESTS();
    packages.reset();
    return result;
}
