// The "uitoolkit" package: log group, message file, the window system, colour definitions and
// the start-up steps of the widget families, in a fixed order.
#include "uitoolkitInit.h"

#include "uiApplication.h"
#include "uiArmStack.h"
#include "uiColorRegistry.h"
#include "uiContainer.h"
#include "uiExternalWidgetFactory.h"
#include "uiFrame.h"
#include "uiHotkeyRegistry.h"
#include "uiLabel.h"
#include "uiLinearValueHandler.h"
#include "uiLogGroups.h"
#include "uiPopupMenu.h"
#include "uiProgressBar.h"
#include "uiPushButton.h"
#include "uiPushButtonIcon.h"
#include "uiPushedToggle.h"
#include "uiPushedToggleIcon.h"
#include "uiResTable.h"
#include "uiTextField.h"
#include "uiToggleButton.h"
#include "uiTrackSlider.h"
#include "uiTransparentLabel.h"
#include "uiValueEditor.h"
#include "uiWidget.h"
#include "uiWidgetFactory.h"
#include "uiWidgetRttiType.h"
#include "uiWindowImp.h"

#include "exBase.h"
#include "inPaths.h"
#include "lgMajorGroup.h"
#include "lgMinorGroup.h"
#include "msgFileGuard.h"
#include "msgProtocol.h"
#include "wsSdl.h"
#include "wsTestGfx.h"
#include "wsWinMgr.h"

#include <memory>

namespace Zr {

namespace {

std::unique_ptr<LgMinorGroup>& eventsGroup() {
    static std::unique_ptr<LgMinorGroup> group;
    return group;
}

// "uitoolkit.msg" stays loaded while the package runs: the toolkit reports with its texts long
// after start-up (a filter refusing a typed number, a menu too tall for its window), and a
// message shown with its identifier tells the user nothing.
std::unique_ptr<MsgFileGuard>& toolkitMessages() {
    static std::unique_ptr<MsgFileGuard> guard;
    return guard;
}

void readColorDefinitions() {
    OsFilePath path = InPaths::getResourcesDir() + UiResTable::getResTableDir() + "colorDefs.xml";
    // Reading fills UiColorRegistry; the table itself is not kept. A missing file leaves the
    // built-in colours.
    UiResTable colors;
    colors.readTable(path, UiResource::LevelSystem);
}

// Each family's step, in the order later families rely on: frames first (widgets take their
// frames from the registry), then the shared draw states, then the colours derived from the
// registry.
void initWidgetFamilies() {
    UiFrameRegistry::registerDefaultFrames();
    UiWidget::initDrawStates();
    UiContainer::ShadeTop = UiColorRegistry::getInstance().getColor("LabelBackground");
    UiContainer::ShadeBottom = UiColorRegistry::getInstance().getColor("Grey60");
    UiWindowExitState::buildHeatMapTables();
}

template <class T>
void registerSimpleFactory(char const* type) {
    if (!UiWidgetFactory::isRegistered(type))
        UiWidgetFactory::registerFactory(type, std::make_unique<UiWidgetFactorySimple<T>>());
}

// The standard widgets that definitions name by type.
void registerStandardWidgetFactories() {
    registerSimpleFactory<UiLabel>("Label");
    registerSimpleFactory<UiTransparentLabel>("TransparentLabel");
    registerSimpleFactory<UiPushButton>("PushButton");
    registerSimpleFactory<UiToggleButton>("ToggleButton");
    registerSimpleFactory<UiPushedToggle>("PushedToggle");
    registerSimpleFactory<UiPushButtonIcon>("PushButtonIcon");
    registerSimpleFactory<UiPushedToggleIcon>("PushedToggleIcon");
    registerSimpleFactory<UiTextField>("TextField");
    registerSimpleFactory<UiProgressBar>("ProgressBar");
    registerSimpleFactory<UiTrackSlider>("TrackSlider");
    registerSimpleFactory<UiValueEditor>("ValueEditor");
    registerSimpleFactory<UiPopupMenu>("PopupMenu");
}

// The value handlers that resource tables can name (<LinearValueHandler A="" B=""/>).
void registerValueHandlerFactories() {
    UiRange::registerValueHandlerFactory("LinearValueHandler",
                                         std::make_unique<LinearHandlerFactory>());
}

} // namespace

void UiToolkitInit::init() {
    ZR_ASSERT_TEXT(UiLogGroups::uiEvents() == nullptr,
                   "LgGroups::ZR_XGLUE( MinorLevel, UiEvents ) == 0");
    eventsGroup() =
        std::make_unique<LgMinorGroup>(LgMajorGroup::getInstanceForName("Gfx"), "UiEvents");
    UiLogGroups::setUiEvents(eventsGroup().get());
    // The widget types first: everything built from here on can answer getNodeType.
    UiWidgetTypes::registerTypes();

    toolkitMessages() = std::make_unique<MsgFileGuard>("uitoolkit.msg");
    UiWidget::PointerFocusFrameEnabled = UiToolkitSettings::isPointerFocusFrameEnabled();
    // The hotkey entries are known without graphics too, so that windows can bind them: the
    // default bindings, then the entries of the "/Global" actions the widgets use.
    UiHotkeyRegistry& hotkeys = UiHotkeyRegistry::getInstance();
    hotkeys.registerDefaultHotkeys();
    UiGlobalHotkeys::cache(hotkeys);
    UiWindowImp::StencilHotkeyEntry =
        hotkeys.getEntry(UiHotkeyRegistry::GlobalDomain, "Toggle Stencil Mode");
    // Definitions can be built without graphics too, so the factories are always there.
    UiWidgetFactory::registerToolkitFactories();
    UiExternalWidgetFactory::registerFactory();
    registerStandardWidgetFactories();
    registerValueHandlerFactories();
    if (!WsTestGfx::isNoGraphicsRequested()) {
        // Real windows when a display opens; otherwise the headless windows stay, and the
        // toolkit still works without pixels.
        if (!WsSdl::initialize())
            MsgProtocol::display(
                MsgWarning("No display, windows are headless: " + WsSdl::getLastError()));
        readColorDefinitions();
        initWidgetFamilies();
    }
}

void UiToolkitInit::exit() {
    // Windows still current or main would outlive the package otherwise.
    if (UiApplication::isInit())
        UiApplication::getInstance().clearCurrentWindow();
    // SDL goes once its windows are gone; a window kept alive past the exit keeps it open.
    if (WsSdl::isActive() && WsWinMgr::getInstance().getNbWindows() == 0)
        WsSdl::shutdown();
    UiExternalWidgetFactory::unregisterFactory();
    toolkitMessages().reset();
    UiLogGroups::setUiEvents(nullptr);
    eventsGroup().reset();
    // The registry asserts at process exit that no type is left in it.
    UiWidgetTypes::deregisterTypes();
    UiArmStack::checkEmpty();
}

} // namespace Zr
