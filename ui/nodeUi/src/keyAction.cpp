// The key actions of the input context menu.
#include "keyAction.h"

#include "drClipboard.h"
#include "piGraphAnimInterface.h"
#include "piNode.h"
#include "piSocketUtil.h"
#include "piStructuredInput.h"
#include "piUndoGuard.h"
#include "tmKeyframe.h"

namespace Zr {

namespace {

// Removes the key at `time` from the input, or from each part of a structured input, which
// has a key where one of its parts has.
void removeKeyAt(InputPtr const& input, double time) {
    auto const structured = dynamicCast<PiStructuredInput>(input);
    if (structured.isNull()) {
        input->removeKey(time);
        return;
    }
    for (RCShdPtr<PiInput> const& part : structured->getParts())
        part->removeKey(time);
}

} // namespace

bool SetKey::test(InputPtr const& input, TimePathPtr const& timePath) {
    if (input.isNull())
        return false;
    if (PiNode* node = input->getNode())
        if (auto* graphAnim =
                dynamic_cast<PiGraphAnimInterface*>(node->getController().lock().get()))
            if (!graphAnim->isKeySettingAllowed())
                return false;
    if (!PiSocketUtil::isAnimatable(input))
        return false;
    if (PiSocketUtil::hasAnimationKey(input, timePath))
        return true;
    PiAnimInterface const* anim = NodeUiActionUtil::animInterface(*input);
    return anim && anim->canCreateKey(input, NodeUiActionUtil::localTime(timePath));
}

void SetKey::perform(InputPtr const& input, TimePathPtr const& timePath) {
    PiKeyframingUtil* util = NodeUiActionUtil::keyframingUtil(*input);
    if (!util)
        return;
    // The keyframing utility's own scope; the reset of an expression joins it.
    PiUndoGuard guard(NodeUiActionUtil::commandStack(*input), getLabel());
    if (PiSocketUtil::hasExpression(input))
        PiSocketUtil::resetInput(input);
    util->setKey(input, NodeUiActionUtil::localTime(timePath));
}

bool RemoveKey::test(InputPtr const& input, TimePathPtr const& timePath) {
    return PiSocketUtil::hasAnimationKey(input, timePath);
}

void RemoveKey::perform(InputPtr const& input, TimePathPtr const& timePath) {
    PiUndoGuard guard(NodeUiActionUtil::commandStack(*input), getLabel());
    removeKeyAt(input, NodeUiActionUtil::localTime(timePath));
}

bool CopyKey::test(ConstInputPtr const& input, TimePathPtr const& timePath) {
    return PiSocketUtil::hasAnimationKey(input, timePath);
}

void CopyKey::perform(ConstInputPtr const& input, TimePathPtr const& timePath) {
    copy(input, timePath, DrClipboard::Copy);
}

void CopyKey::copy(ConstInputPtr const& input, TimePathPtr const& timePath, int srcAction) {
    RCShdPtr<TmTimeCurve const> const curve = input->getCurve();
    TmKeyframe const* key =
        curve.isNull() ? nullptr : curve->findKey(NodeUiActionUtil::localTime(timePath));
    if (!key)
        return;
    NodeUiActionUtil::putOnClipboard(
        SnItemConvert<RCShdPtr<TmKeyframe>>::createItem(makeShared<TmKeyframe>(*key)), srcAction);
}

bool CutKey::test(InputPtr const& input, TimePathPtr const& timePath) {
    return PiSocketUtil::hasAnimationKey(input, timePath);
}

void CutKey::perform(InputPtr const& input, TimePathPtr const& timePath) {
    CopyKey::copy(input, timePath, DrClipboard::Cut);
    PiUndoGuard guard(NodeUiActionUtil::commandStack(*input), getLabel());
    removeKeyAt(input, NodeUiActionUtil::localTime(timePath));
}

bool PasteKey::test(InputPtr const& input, TimePathPtr const&) {
    return PiSocketUtil::isAnimatable(input) &&
           !NodeUiActionUtil::clipboardItem<RCShdPtr<TmKeyframe>>().isNull();
}

void PasteKey::perform(InputPtr const& input, TimePathPtr const& timePath) {
    RCShdPtr<TmKeyframe> const copied = SnItemConvert<RCShdPtr<TmKeyframe>>::get(
        NodeUiActionUtil::clipboardItem<RCShdPtr<TmKeyframe>>());
    double const time = NodeUiActionUtil::localTime(timePath);
    PiUndoGuard guard(NodeUiActionUtil::commandStack(*input), getLabel());
    if (PiSocketUtil::hasExpression(input))
        PiSocketUtil::resetInput(input);
    if (!input->hasAnimation()) {
        if (PiAnimInterface* anim = NodeUiActionUtil::animInterface(*input))
            anim->createCurve(input, time);
        else
            input->setKey(time, copied->getValue());
    }
    TmKeyframe key = *copied;
    key.setTime(time);
    input->editCurve()->setKey(key);
    input->curveEdited();
}

} // namespace Zr
