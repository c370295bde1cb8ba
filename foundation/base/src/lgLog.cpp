// LgLog: routing of log lines, and Trace.
#include "lgLog.h"

#include "exBase.h"
#include "lgMinorGroup.h"

#include <iostream>
#include <mutex>

namespace Zr {

std::atomic<bool> LgLog::_initialized{false};
std::atomic<bool> LgLog::_loggerActive{false};

namespace {
std::mutex& outputMutex() {
    static std::mutex mutex;
    return mutex;
}
std::ostream*& outputStream() {
    static std::ostream* os = &std::clog;
    return os;
}
} // namespace

LgQueue& LgLog::getQueue() {
    static LgQueue queue;
    return queue;
}

void LgLog::outputEntry(int /*level*/, std::string const& tag, std::string const& text) {
    std::lock_guard<std::mutex> lock(outputMutex());
    std::ostream* os = outputStream();
    if (!os)
        return;
    *os << tag << ": " << text << '\n';
    os->flush();
}

std::ostream* LgLog::setOutputStream(std::ostream* os) {
    std::lock_guard<std::mutex> lock(outputMutex());
    std::ostream* previous = outputStream();
    outputStream() = os;
    return previous;
}

void LgLog::printPrefix(std::ostream& os, LgMinorGroup const& group) {
    os << '[' << group.getFormattedName(kGroupNameWidth) << "] ";
}

void LgLog::writeLine(LgMinorGroup const& group, std::string const& text,
                      std::string const& heading) {
    std::string line = "[" + group.getFormattedName(kGroupNameWidth) + "] " + text;
    if (_loggerActive.load()) {
        LgQueue& queue = getQueue();
        LgQueue::Entry entry = queue.reserveEntry(TraceLevel::Info);
        queue.getStream(entry) << line;
        queue.addEntry(entry);
    } else if (_initialized.load()) {
        outputEntry(TraceLevel::Info, heading, line);
    } else {
        ExStdout::printAtomically(line);
    }
}

bool Trace::isEnabled(LgMinorGroup const& group, unsigned mask) {
    return group.isActive(mask);
}

void Trace::log(LgMinorGroup const& group, std::string const& text) {
    LgLog::writeLine(group, text);
}

} // namespace Zr
