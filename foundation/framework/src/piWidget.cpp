// The out-of-line destructors of the plug-in widget interfaces, which anchor their type
// information in the framework library so that casts across libraries agree.
#include "piWidget.h"
#include "piContainer.h"
#include "piNodeWidget.h"
#include "piWidgetGroup.h"

namespace Zr {

PiWidget::~PiWidget() = default;
PiWidgetGroup::~PiWidgetGroup() = default;
PiContainer::~PiContainer() = default;
PiNodeWidget::~PiNodeWidget() = default;

} // namespace Zr
