// Start-up and exit of the "uitoolkit" package, and the toolkit's tuning values as read from
// the environment and the command line.
#pragma once

namespace Zr {

// The variables themselves are defined with the library's package registration.
struct UiToolkitSettings {
    // ZR_COMPRESS_POINTER_MOVES != 0 (default 1).
    static bool compressPointerMoves();
    // ZR_TOOLTIP_DELAY_MS (default 700).
    static int tooltipDelayMs();
    // ZR_TOOLTIP_RETRIGGER_THRESHOLD_MS (default 100).
    static int tooltipRetriggerThresholdMs();
    // kelvar::loginScreen::nosplash.
    static bool isSplashDisabled();
    // kelvar::userinterface::nopointerfocus: a value of 1 enables the pointer focus frame.
    static bool isPointerFocusFrameEnabled();
};

struct UiToolkitInit {
    // Log group "UiEvents", the widget types, "uitoolkit.msg", and unless no graphics are wanted
    // the colour definitions and each widget family's start-up step.
    static void init();
    // Removes the log group and the widget types, and checks that no widget stayed armed.
    static void exit();
};

} // namespace Zr
