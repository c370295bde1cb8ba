// Exceptions, assertions and atomic printing.
#include "exBase.h"

#include <cstdio>
#include <mutex>

namespace Zr {

ExBase::ExBase(char const* file, int line) : _file(file ? file : ""), _line(line) {}

void ExBase::setReason(std::string const& text) { _reason += text; }

std::string ExBase::getDetailedReason() const {
    return std::string(getClassName()) + " at " + _file + ":" + std::to_string(_line) + ": " +
           _reason;
}

void Assertions::throwAssertionFailed(char const* file, int line, char const* text) {
    throw ExAssertionFailed(file, line, text ? text : "");
}

void Assertions::throwProgramAborted(char const* file, int line, char const* text) {
    throw ExProgramAborted(file, line, text ? text : "");
}

void ExStdout::printAtomically(std::string const& text) {
    static std::mutex mutex;
    std::lock_guard<std::mutex> lock(mutex);
    std::fwrite(text.data(), 1, text.size(), stdout);
    if (text.empty() || text.back() != '\n')
        std::fputc('\n', stdout);
    std::fflush(stdout);
}

} // namespace Zr
