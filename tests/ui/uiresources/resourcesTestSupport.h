// Test support for the resource tests: makes sure the "UiResources" log group exists and
// captures the warnings and log lines that the table reader reports.
#pragma once

#include "uiLogGroups.h"

#include "lgLog.h"
#include "lgMajorGroup.h"
#include "lgMinorGroup.h"
#include "msgBase.h"
#include "msgProtocol.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace Zr {

// A fixture that records every warning shown and every log line written while a test runs.
class ResourceReportTest : public ::testing::Test {
protected:
    struct Shown {
        std::string id;
        std::vector<std::string> arguments;
    };

    void SetUp() override {
        // The package start-up creates the group; tests that run without it get one here.
        if (UiLogGroups::uiResources() == nullptr) {
            static LgMinorGroup group(LgMajorGroup::getInstanceForName("Gfx"), "UiResources");
            UiLogGroups::setUiResources(&group);
        }
        _previousHandler = MsgProtocol::setDisplayHandler([this](MsgBase const& message) {
            _shown.push_back({message.getId(), message.getArguments()});
        });
        _wasInitialized = LgLog::_initialized.load();
        LgLog::_initialized = true;
        _previousStream = LgLog::setOutputStream(&_log);
    }

    void TearDown() override {
        LgLog::setOutputStream(_previousStream);
        LgLog::_initialized = _wasInitialized;
        MsgProtocol::setDisplayHandler(_previousHandler);
    }

    // The log text written, each line as "main: [UiResources    ] text".
    std::string logText() const { return _log.str(); }
    // What a report of `text` looks like in the log.
    static std::string logLine(std::string const& text) {
        return "main: [UiResources    ] " + text + "\n";
    }
    std::vector<Shown> const& shown() const { return _shown; }
    // Forgets what was reported so far.
    void clearReports() {
        _shown.clear();
        _log.str("");
    }

private:
    std::vector<Shown> _shown;
    std::ostringstream _log;
    MsgProtocol::DisplayHandler _previousHandler;
    std::ostream* _previousStream = nullptr;
    bool _wasInitialized = false;
};

} // namespace Zr
