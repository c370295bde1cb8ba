// The main of every test binary: runs the tests under one start-up of the packages. The
// foundation binaries don't link the ui library; there the packages are left to the tests.
#include "inInitGuard.h"

#include <gtest/gtest.h>

#include <memory>

namespace Zr {
// Defined by the ui library; null in a binary that doesn't link it.
[[gnu::weak]] int zrUiLibraryVersion();
} // namespace Zr

// What the sanitizers of a test build do unless ASAN_OPTIONS or UBSAN_OPTIONS say otherwise. An
// undefined-behaviour finding prints where it was reached from and ends the run (the build
// compiles with -fno-sanitize-recover too; halting here keeps it so if that flag is dropped).
// AddressSanitizer also checks that no global is read before its initialiser ran, whatever
// the link order, and catches the use of a function's locals after it returned; it doesn't
// follow __tls_get_addr, whose dynamic TLS blocks LeakSanitizer can misread and crash on
// (google/sanitizers#1322; see tests/packaging/packagingTest.sh). In a build without the
// sanitizers nothing calls these.
extern "C" char const* __ubsan_default_options() {
    return "print_stacktrace=1:halt_on_error=1";
}
extern "C" char const* __asan_default_options() {
    return "check_initialization_order=1:strict_init_order=1:detect_stack_use_after_return=1:"
           "intercept_tls_get_addr=0";
}

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    std::unique_ptr<Zr::InInitGuard> packages;
    if (&Zr::zrUiLibraryVersion != nullptr)
        packages = std::make_unique<Zr::InInitGuard>(argc, argv);
    int result = RUN_ALL_TESTS();
    packages.reset();
    return result;
}
