// UiGroup: creation from a resource table, as for any container.
#include "uiGroup.h"

namespace Zr {

RCShdPtr<UiGroup> UiGroup::create(UiContainer* parent, LiString const& name,
                                  UiResTable const* table) {
    RCShdPtr<UiGroup> group(new UiGroup(parent, name));
    group->resInit(table);
    group->postInit();
    return group;
}

} // namespace Zr
