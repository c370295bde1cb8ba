// The expression actions of the input context menu.
#include "expressionAction.h"

#include "drClipboard.h"
#include "piExpressionServices.h"
#include "piGraph.h"
#include "piSocketUtil.h"
#include "piUndoGuard.h"
#include "pxNodeEvaluator.h"
#include "uiApplication.h"

namespace Zr {

namespace {

// The text of the clipboard's string item without the token; empty without one.
std::string clipboardExpression() {
    RCShdPtr<SnItem const> const item = NodeUiActionUtil::clipboardItem<std::string>();
    if (item.isNull())
        return {};
    return PiSocketUtil::removeExpressionToken(SnItemConvert<std::string>::get(item));
}

void copyExpression(ConstInputPtr const& input) {
    NodeUiActionUtil::putOnClipboard(
        SnItemConvert<std::string>::createItem(PiExpressionServices::getTisaneToken() +
                                               input->getExpression()),
        DrClipboard::Copy);
}

} // namespace

std::string SetExpression::getDisplayString() const {
    return _hasExpression ? "Edit Expression" : "Set Expression";
}

bool SetExpression::test(RCShdPtr<UiCalculatable> const& calculatable, TimePathPtr const&) {
    if (calculatable.isNull())
        return false;
    _hasExpression = !calculatable->getExpression().isNull();
    return _hasExpression || calculatable->supportsExpressions();
}

void SetExpression::perform(RCShdPtr<UiCalculatable> const& calculatable, TimePathPtr const&) {
    // The calculator writes through the calculatable, whose editor keeps the undo entry.
    UiApplication::getInstance().popupCalculator(calculatable.get(), UiCalculator::Expression);
}

bool RemoveExpression::test(InputPtr const& input, TimePathPtr const&) {
    return PiSocketUtil::hasExpression(input);
}

void RemoveExpression::perform(InputPtr const& input, TimePathPtr const& timePath) {
    remove(input, timePath);
}

void RemoveExpression::remove(InputPtr const& input, TimePathPtr const& timePath) {
    static std::string const label = "Remove Expression";
    double const time = NodeUiActionUtil::localTime(timePath);
    PiUndoGuard guard(NodeUiActionUtil::commandStack(*input), label);
    if (PiAnimInterface* anim = NodeUiActionUtil::animInterface(*input))
        anim->removeCurve(input, time);
    else
        input->removeAnimationKeepingValue(time);
}

bool CopyExpression::test(ConstInputPtr const& input, TimePathPtr const&) {
    return PiSocketUtil::hasExpression(input);
}

void CopyExpression::perform(ConstInputPtr const& input, TimePathPtr const&) {
    copyExpression(input);
}

bool CutExpression::test(InputPtr const& input, TimePathPtr const&) {
    return PiSocketUtil::hasExpression(input);
}

void CutExpression::perform(InputPtr const& input, TimePathPtr const&) {
    copyExpression(input);
    PiUndoGuard guard(NodeUiActionUtil::commandStack(*input), getLabel());
    PiSocketUtil::resetInput(input);
}

bool PasteExpression::test(InputPtr const& input, TimePathPtr const&) {
    if (!PiExpressionServices::supportsExpressions(input) ||
        NodeUiActionUtil::clipboardItem<std::string>().isNull())
        return false;
    return clipboardExpression() != PiExpressionServices::getInputFullName(input);
}

void PasteExpression::perform(InputPtr const& input, TimePathPtr const& timePath) {
    std::string const text = clipboardExpression();
    ZR_ASSERT_TEXT(!text.empty(), "!stringSn->isEmpty()");
    PiUndoGuard guard(NodeUiActionUtil::commandStack(*input), getLabel());
    PiSocketUtil::resetInput(input);
    RCShdPtr<PiInputExpression> const expression =
        PiExpressionServices::getExpressionInterface(input, timePath);
    if (!expression.isNull())
        expression->setExpression(text);
}

bool ConvertExpression::test(InputPtr const& input, TimePathPtr const&) {
    return PiSocketUtil::hasExpression(input);
}

void ConvertExpression::perform(InputPtr const& input, TimePathPtr const& timePath) {
    PiNode const* node = input->getNode();
    PiGraph const* graph = node ? node->getGraph() : nullptr;
    if (!graph)
        return;
    // The graph's range in seconds, in the input's local time, sampled at twice its rate.
    double const fps = graph->getFrameRate().toDouble();
    double start = graph->getStartTime().getSeconds(fps);
    double end = graph->getEndTime().getSeconds(fps);
    if (!timePath.isNull()) {
        start = timePath->getTime(start);
        end = timePath->getTime(end);
    }
    PiUndoGuard guard(NodeUiActionUtil::commandStack(*input), getLabel());
    PxNodeEvaluator::convertToKeys(input, start, end, 2.0 * fps);
}

} // namespace Zr
