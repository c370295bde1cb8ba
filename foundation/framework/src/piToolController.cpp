// PiToolController: the controller of tool nodes.
#include "piToolController.h"

#include "piGraph.h"
#include "piToolNode.h"

#include <algorithm>

namespace Zr {

PiToolController::PiToolController(PiToolNode& node)
    : PiDefaultNodeController(node), _tool(node.getTool()) {}

PiToolController::~PiToolController() = default;

std::string PiToolController::getDefaultXmlDescription() const {
    return _tool ? _tool->getXmlDescription() : std::string();
}

std::string PiToolController::getDefaultXmlPath() const {
    return _tool ? _tool->getUiFile().toString() : std::string();
}

void PiToolController::addDynamicInput(DynamicInputInfo const& info) {
    for (auto& entry : _dynamicInputs) {
        if (entry.name == info.name) {
            entry = info;
            return;
        }
    }
    _dynamicInputs.push_back(info);
}

bool PiToolController::removeDynamicInput(std::string const& name) {
    auto it = std::find_if(_dynamicInputs.begin(), _dynamicInputs.end(),
                           [&name](DynamicInputInfo const& e) { return e.name == name; });
    if (it == _dynamicInputs.end())
        return false;
    _dynamicInputs.erase(it);
    return true;
}

PiDynamicInputInterface::DynamicInputInfo const*
PiToolController::findDynamicInput(std::string const& name) const {
    for (auto const& entry : _dynamicInputs)
        if (entry.name == name)
            return &entry;
    return nullptr;
}

RCShdPtr<PiInputPolicy const>
PiToolController::getInputPolicy(RCShdPtr<PiInput const> const& input) const {
    return input ? input->getPolicy() : nullptr;
}

RCShdPtr<TmTimeCurve> PiToolController::createCurve(RCShdPtr<PiInput> const& input, double time) {
    if (!input || !input->isAnimatable())
        return nullptr;
    if (!input->hasAnimation())
        input->setKey(time, input->evaluate(time));
    return input->editCurve();
}

void PiToolController::removeCurve(RCShdPtr<PiInput> const& input, double time) {
    if (input)
        input->removeAnimationKeepingValue(time);
}

RCShdPtr<TmTimeCurve> PiToolController::getCurve(RCShdPtr<PiInput const> const& input) const {
    if (!input || !input->getCurve())
        return nullptr;
    return input->getCurve()->clone();
}

void PiToolController::setCurve(RCShdPtr<PiInput> const& input,
                                RCShdPtr<TmTimeCurve> const& curve) {
    if (input)
        input->setCurve(curve);
}

bool PiToolController::canCreateKey(RCShdPtr<PiInput const> const& input, double) const {
    return input && isKeySettingAllowed() && input->isAnimatable() && !input->hasExpression();
}

PiGraph* PiToolController::getCompositionGraph() const {
    RCShdPtr<PiNode const> node = getNode();
    return node ? node->getGraph() : nullptr;
}

} // namespace Zr
