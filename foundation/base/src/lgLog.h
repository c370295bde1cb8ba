// LgLog: where log lines go. To the LgQueue while a logger thread is active, else straight to
// the output stream once logging is initialised, else to standard output.
#pragma once

#include "lgQueue.h"

#include <atomic>
#include <iosfwd>
#include <string>

namespace Zr {

class LgMinorGroup;

// Severity of a log entry, most severe first.
struct TraceLevel {
    static constexpr int Error = 0;
    static constexpr int Warning = 1;
    static constexpr int Info = 2;
    static constexpr int Debug = 3;
};

class LgLog {
public:
    // Set once the output stream is configured; lines then go through outputEntry.
    static std::atomic<bool> _initialized;
    // Set while a logger thread drains getQueue(); lines then go to the queue.
    static std::atomic<bool> _loggerActive;

    static LgQueue& getQueue();

    // Writes "tag: text" as one line to the output stream.
    static void outputEntry(int level, std::string const& tag, std::string const& text);
    // The output stream of outputEntry (std::clog until changed); returns the previous one.
    static std::ostream* setOutputStream(std::ostream* os);

    // Writes "[" + the group name in 15 columns + "] ".
    static void printPrefix(std::ostream& os, LgMinorGroup const& group);
    // Sends "[<group in 15 columns>] text" to the queue, the output stream or standard output.
    static void writeLine(LgMinorGroup const& group, std::string const& text,
                          std::string const& heading = "main");

    static constexpr int kGroupNameWidth = 15;
};

// Thin conveniences for code that traces under a group's flags.
struct Trace {
    static bool isEnabled(LgMinorGroup const& group, unsigned mask);
    static void log(LgMinorGroup const& group, std::string const& text);
};

} // namespace Zr
