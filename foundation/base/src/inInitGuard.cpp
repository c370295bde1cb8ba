// InInitGuard: nesting count, command line, package start-up and shut-down.
#include "inInitGuard.h"

#include "inPackageInit.h"
#include "inVariable.h"

#include <mutex>

namespace Zr {

namespace {
std::mutex& guardMutex() {
    static std::mutex mutex;
    return mutex;
}
int& depth() {
    static int d = 0;
    return d;
}
} // namespace

InInitGuard::InInitGuard(int argc, char** argv) {
    if (argc > 0 && argv)
        InVariableBase::setCommandLine(argc, argv);
    {
        std::lock_guard<std::mutex> lock(guardMutex());
        if (depth()++ > 0)
            return;
    }
    try {
        InPackageInit::startAll();
    } catch (...) {
        std::lock_guard<std::mutex> lock(guardMutex());
        --depth();
        throw;
    }
}

InInitGuard::~InInitGuard() {
    {
        std::lock_guard<std::mutex> lock(guardMutex());
        if (--depth() > 0)
            return;
    }
    InPackageInit::stopAll();
}

bool InInitGuard::isActive() {
    std::lock_guard<std::mutex> lock(guardMutex());
    return depth() > 0;
}

} // namespace Zr
