// Registration of the library's packages "ui", "uiresources", "uitoolkit" and "nodeUi" at load
// time, and the variables of the toolkit with their environment and command-line names.
#include "nodeUiInit.h"
#include "uiresourcesInit.h"
#include "uitoolkitInit.h"

#include "envIntVar.h"
#include "inPackageInit.h"
#include "inVariable.h"

namespace Zr {

namespace {

InVariable<bool>& noSplashVariable() {
    static InVariable<bool> variable(
        "kelvar::loginScreen::nosplash", false,
        {InEnvAlias("ZR_NO_SPLASH", "When set to 1, disable the splash screen"),
         InArgAlias("nosplash", "Disable the splash screen.")});
    return variable;
}

// The help texts read as they stand although the name says the opposite: a value of 1
// enables the pointer focus frame.
InVariable<bool>& pointerFocusVariable() {
    static InVariable<bool> variable(
        "kelvar::userinterface::nopointerfocus", false,
        {InEnvAlias("ZR_NO_POINTERFOCUS", "When set to 1, enable the pointer focus frame"),
         InArgAlias("pointerfocus", "Enable the pointer focus frame.")});
    return variable;
}

EnvIntVar const& compressPointerMovesVariable() {
    static EnvIntVar const variable(__FILE__, "ZR_COMPRESS_POINTER_MOVES", 1);
    return variable;
}

EnvIntVar const& tooltipDelayVariable() {
    static EnvIntVar const variable(__FILE__, "ZR_TOOLTIP_DELAY_MS", 700);
    return variable;
}

EnvIntVar const& tooltipRetriggerVariable() {
    static EnvIntVar const variable(__FILE__, "ZR_TOOLTIP_RETRIGGER_THRESHOLD_MS", 100);
    return variable;
}

void noStep() {}

// Runs while the library loads: the packages are known before any InInitGuard starts them,
// and the variables before the command line is read.
struct UiLibraryRegistration {
    UiLibraryRegistration() {
        noSplashVariable();
        pointerFocusVariable();
        InPackageInit("ui", noStep, noStep).registerPackage();
        InPackageInit("uiresources", &UiResourcesInit::init, &UiResourcesInit::exit)
            .addDependency("ui")
            .registerPackage();
        InPackageInit("uitoolkit", &UiToolkitInit::init, &UiToolkitInit::exit)
            .addDependency("uiresources")
            .registerPackage();
        InPackageInit("nodeUi", &NodeUiInit::init, &NodeUiInit::exit)
            .addDependency("uitoolkit")
            .registerPackage();
    }
};

UiLibraryRegistration const registration;

} // namespace

bool UiToolkitSettings::compressPointerMoves() {
    return compressPointerMovesVariable().getValue() != 0;
}

int UiToolkitSettings::tooltipDelayMs() {
    return tooltipDelayVariable().getValue();
}

int UiToolkitSettings::tooltipRetriggerThresholdMs() {
    return tooltipRetriggerVariable().getValue();
}

bool UiToolkitSettings::isSplashDisabled() {
    return noSplashVariable().getValue();
}

bool UiToolkitSettings::isPointerFocusFrameEnabled() {
    return pointerFocusVariable().getValue();
}

int zrUiLibraryVersion() {
    return 1;
}

} // namespace Zr
