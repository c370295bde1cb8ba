// ActAction's defaults: a plain action in the unnamed group that accepts everything.
#include "actAction.h"

namespace Zr {

ActAction::~ActAction() = default;

std::string ActAction::getGroup() const {
    return {};
}

std::string ActAction::toggleOnString() const {
    return {};
}

std::string ActAction::toggleOffString() const {
    return {};
}

bool ActAction::isToggle() const {
    return !toggleOnString().empty() || !toggleOffString().empty();
}

bool ActAction::acceptsSelection(SnSelection const&, DrCarrier const*) const {
    return true;
}

bool ActAction::test(SnSelection const&, DrCarrier const*) {
    return true;
}

std::vector<ActBasicParam> ActAction::enumOptions(SnSelection const&, DrCarrier const*,
                                                  ActBasicParam const*) const {
    return {};
}

void ActAction::performOption(SnSelection& selection, DrCarrier* carrier, ActBasicParam const&) {
    perform(selection, carrier);
}

} // namespace Zr
