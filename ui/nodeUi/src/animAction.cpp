// The animation actions of the input context menu.
#include "animAction.h"

#include "drClipboard.h"
#include "expressionAction.h"
#include "piSocketUtil.h"
#include "piUndoGuard.h"

namespace Zr {

namespace {

void copyCurve(ConstInputPtr const& input) {
    ZR_ASSERT_TEXT(!input.isNull(), "!input.isNull()");
    PiAnimInterface const* anim = NodeUiActionUtil::animInterface(*input);
    RCShdPtr<TmTimeCurve> curve;
    if (anim)
        curve = anim->getCurve(input);
    else if (!input->getCurve().isNull())
        curve = input->getCurve()->clone();
    if (curve.isNull())
        return;
    NodeUiActionUtil::putOnClipboard(SnItemConvert<RCShdPtr<TmTimeCurve>>::createItem(curve),
                                     DrClipboard::Copy);
}

} // namespace

bool RemoveAnim::test(InputPtr const& input, TimePathPtr const&) {
    return PiSocketUtil::hasAnimation(input);
}

void RemoveAnim::perform(InputPtr const& input, TimePathPtr const& timePath) {
    RemoveExpression::remove(input, timePath);
}

bool CopyAnim::test(ConstInputPtr const& input, TimePathPtr const&) {
    return PiSocketUtil::hasAnimation(input);
}

void CopyAnim::perform(ConstInputPtr const& input, TimePathPtr const&) {
    copyCurve(input);
}

bool CutAnim::test(InputPtr const& input, TimePathPtr const&) {
    return PiSocketUtil::hasAnimation(input);
}

void CutAnim::perform(InputPtr const& input, TimePathPtr const&) {
    PiUndoGuard guard(NodeUiActionUtil::commandStack(*input), getLabel());
    copyCurve(input);
    PiSocketUtil::resetInput(input);
}

bool PasteAnim::test(InputPtr const& input, TimePathPtr const&) {
    return PiSocketUtil::isAnimatable(input) &&
           !NodeUiActionUtil::clipboardItem<RCShdPtr<TmTimeCurve>>().isNull();
}

void PasteAnim::perform(InputPtr const& input, TimePathPtr const&) {
    RCShdPtr<TmTimeCurve> const curve = SnItemConvert<RCShdPtr<TmTimeCurve>>::get(
        NodeUiActionUtil::clipboardItem<RCShdPtr<TmTimeCurve>>());
    PiUndoGuard guard(NodeUiActionUtil::commandStack(*input), getLabel());
    PiSocketUtil::resetInput(input);
    if (PiAnimInterface* anim = NodeUiActionUtil::animInterface(*input))
        anim->setCurve(input, curve);
    else
        input->setCurve(curve);
}

bool CreateAnim::test(InputPtr const& input, TimePathPtr const&) {
    return PiSocketUtil::isAnimatable(input) && !PiSocketUtil::hasAnimation(input);
}

void CreateAnim::perform(InputPtr const& input, TimePathPtr const& timePath) {
    PiAnimInterface* anim = NodeUiActionUtil::animInterface(*input);
    if (!anim)
        return;
    PiUndoGuard guard(NodeUiActionUtil::commandStack(*input), getLabel());
    anim->createCurve(input, NodeUiActionUtil::localTime(timePath));
}

} // namespace Zr
