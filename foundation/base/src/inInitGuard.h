// InInitGuard: the scope of the application's packages. Its constructor reads the command line
// into the package variables and starts every registered package in dependence order; its
// destructor stops them in reverse.
#pragma once

namespace Zr {

class InInitGuard {
public:
    // Only the outermost guard starts and stops the packages; a guard given arguments applies
    // them to the variables whether it is the outermost or not. If a start-up step throws,
    // the packages already started are stopped and the exception propagates.
    explicit InInitGuard(int argc = 0, char** argv = nullptr);
    ~InInitGuard();
    InInitGuard(InInitGuard const&) = delete;
    InInitGuard& operator=(InInitGuard const&) = delete;

    // True while an outermost guard is in scope.
    static bool isActive();
};

} // namespace Zr
