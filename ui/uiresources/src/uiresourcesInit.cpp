// The "uiresources" package: its log group and message file live from start-up to exit; start-up
// also points the icon registry at <resources>/icons.
#include "uiresourcesInit.h"

#include "uiIconRegistry.h"
#include "uiLogGroups.h"

#include "exBase.h"
#include "inPaths.h"
#include "lgMajorGroup.h"
#include "lgMinorGroup.h"
#include "msgFileGuard.h"

#include <memory>

namespace Zr {

namespace {

std::unique_ptr<LgMinorGroup>& resourcesGroup() {
    static std::unique_ptr<LgMinorGroup> group;
    return group;
}

std::unique_ptr<MsgFileGuard>& resourcesMessages() {
    static std::unique_ptr<MsgFileGuard> guard;
    return guard;
}

} // namespace

void UiResourcesInit::init() {
    ZR_ASSERT_TEXT(UiLogGroups::uiResources() == nullptr,
                   "LgGroups::ZR_XGLUE( MinorLevel, UiResources ) == 0");
    resourcesGroup() =
        std::make_unique<LgMinorGroup>(LgMajorGroup::getInstanceForName("Gfx"), "UiResources");
    UiLogGroups::setUiResources(resourcesGroup().get());
    // Resource errors are reported with texts of this file while tables are read.
    resourcesMessages() = std::make_unique<MsgFileGuard>("uiresources.msg");
    UiIconRegistry::getInstance().setIconDirectory(InPaths::getResourcesDir() +
                                                   OsFilePath("icons"));
}

void UiResourcesInit::exit() {
    resourcesMessages().reset();
    UiLogGroups::setUiResources(nullptr);
    resourcesGroup().reset();
}

} // namespace Zr
