// The helpers of the context menu's actions, ResetInput, CopyPath, and the registration of all
// the actions.
#include "nodeUiAction.h"

#include "animAction.h"
#include "expressionAction.h"
#include "keyAction.h"
#include "markAction.h"
#include "moveKeyAction.h"

#include "actRegistry.h"
#include "drClipboard.h"
#include "piExpressionServices.h"
#include "piGraph.h"
#include "piNode.h"
#include "piSocketUtil.h"
#include "piUndoGuard.h"
#include "wsClipboard.h"

#include <functional>

namespace Zr {

namespace {

// Every action, in the order of the menu.
std::vector<std::function<OPtr<ActAction>()>> const& makers() {
    static std::vector<std::function<OPtr<ActAction>()>> const list{
        [] { return std::make_unique<SetExpression>(); },
        [] { return std::make_unique<RemoveExpression>(); },
        [] { return std::make_unique<CopyExpression>(); },
        [] { return std::make_unique<CutExpression>(); },
        [] { return std::make_unique<PasteExpression>(); },
        [] { return std::make_unique<ConvertExpression>(); },
        [] { return std::make_unique<SetKey>(); },
        [] { return std::make_unique<RemoveKey>(); },
        [] { return std::make_unique<CutKey>(); },
        [] { return std::make_unique<CopyKey>(); },
        [] { return std::make_unique<PasteKey>(); },
        [] { return std::make_unique<FirstKey>(); },
        [] { return std::make_unique<PreviousKey>(); },
        [] { return std::make_unique<NextKey>(); },
        [] { return std::make_unique<LastKey>(); },
        [] { return std::make_unique<Mark>(); },
        [] { return std::make_unique<UnMark>(); },
        [] { return std::make_unique<UnMarkAll>(); },
        [] { return std::make_unique<MarkTool>(); },
        [] { return std::make_unique<UnMarkTool>(); },
        [] { return std::make_unique<RemoveAnim>(); },
        [] { return std::make_unique<CutAnim>(); },
        [] { return std::make_unique<CopyAnim>(); },
        [] { return std::make_unique<PasteAnim>(); },
        [] { return std::make_unique<CreateAnim>(); },
        [] { return std::make_unique<CopyPath>(); },
        [] { return std::make_unique<ResetInput>(); },
    };
    return list;
}

} // namespace

double NodeUiActionUtil::localTime(TimePathPtr const& timePath) {
    return timePath.isNull() ? 0.0 : timePath->getTime();
}

RCShdPtr<PiCommandStack> NodeUiActionUtil::commandStack(PiInput const& input) {
    PiNode const* node = input.getNode();
    return node ? node->getCommandStack() : nullptr;
}

PiAnimInterface* NodeUiActionUtil::animInterface(PiInput const& input) {
    PiNode* node = input.getNode();
    if (!node)
        return nullptr;
    return dynamic_cast<PiAnimInterface*>(node->getController().lock().get());
}

PiKeyframingUtil* NodeUiActionUtil::keyframingUtil(PiInput const& input) {
    PiNode const* node = input.getNode();
    if (!node || !node->getGraph())
        return nullptr;
    return node->getGraph()->getKeyframingUtil().get();
}

template <class V>
RCShdPtr<SnItem const> NodeUiActionUtil::clipboardItem() {
    RCShdPtr<DrCarrier> const& content = DrClipboard::getInstance().getContent();
    if (content.isNull() || content->getSelection().isNull())
        return nullptr;
    for (RCShdPtr<SnItem> const& item : *content->getSelection())
        if (SnItemConvert<V>::test(item))
            return item;
    return nullptr;
}

template RCShdPtr<SnItem const> NodeUiActionUtil::clipboardItem<std::string>();
template RCShdPtr<SnItem const> NodeUiActionUtil::clipboardItem<RCShdPtr<TmKeyframe>>();
template RCShdPtr<SnItem const> NodeUiActionUtil::clipboardItem<RCShdPtr<TmTimeCurve>>();

void NodeUiActionUtil::putOnClipboard(RCShdPtr<SnItem> const& item, int srcAction) {
    RCShdPtr<SnSelection> const selection = SnSelection::create();
    selection->addItem(item);
    DrClipboard::getInstance().setContent(DrCarrier::create(selection), srcAction);
}

void NodeUiActionUtil::registerActions() {
    for (auto const& make : makers())
        ActRegistry::getInstance().registerAction(make(), ActRegistry::Dynamic);
}

void NodeUiActionUtil::unregisterActions() {
    for (auto const& make : makers())
        ActRegistry::getInstance().unregisterAction(make()->getCompositeName());
}

bool ResetInput::test(InputPtr const& input, TimePathPtr const&) {
    return !input.isNull();
}

void ResetInput::perform(InputPtr const& input, TimePathPtr const&) {
    PiUndoGuard guard(NodeUiActionUtil::commandStack(*input),
                      "Reset " + PiSocketUtil::getName(input, 1, nullptr, 0));
    PiSocketUtil::resetInput(input);
}

bool CopyPath::test(InputPtr const& input, TimePathPtr const&) {
    return !input.isNull();
}

void CopyPath::perform(InputPtr const& input, TimePathPtr const&) {
    std::string const name = PiExpressionServices::getInputFullName(input);
    WsClipboard::getInstance().setText(name);
    NodeUiActionUtil::putOnClipboard(
        SnItemConvert<std::string>::createItem(PiExpressionServices::getTisaneToken() + name),
        DrClipboard::Copy);
}

} // namespace Zr
