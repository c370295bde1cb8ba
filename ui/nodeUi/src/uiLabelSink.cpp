// Linking inputs by dragging a label onto another.
#include "uiLabelSink.h"

#include "nodeUiMessages.h"

#include "msgProtocol.h"
#include "piExpressionServices.h"
#include "piCommandStack.h"
#include "piNode.h"
#include "piSnItem.h"
#include "piStructuredInput.h"
#include "piUndoGuard.h"
#include "uiDragAndDrop.h"
#include "uiGestureRecogniser.h"
#include "uiGrab.h"

namespace Zr {

namespace {

constexpr char const* ValidExpression = "MSG_NODEUI_VALID_EXPR";

// The input itself or, for a structured input, one of its parts has this full name.
bool namesItself(RCShdPtr<PiInput> const& input, std::string const& name) {
    if (PiExpressionServices::getInputFullName(input) == name)
        return true;
    auto const structured = dynamicCast<PiStructuredInput>(input);
    if (structured.isNull())
        return false;
    for (RCShdPtr<PiInput> const& part : structured->getParts())
        if (PiExpressionServices::getInputFullName(part) == name)
            return true;
    return false;
}

} // namespace

UiLabelSink::UiLabelSink(UiWidget* label, RCShdPtr<PiInput> const& input)
    : _label(label), _input(input) {
    ZR_ASSERT_TEXT(label != nullptr, "!label.isNull()");
    ZR_ASSERT_TEXT(!input.isNull(), "!input.isNull()");
    _label->setDragRecogniser(std::make_unique<UiGestureDrag>());
    RCShdPtr<UiDragAndDrop> dnd = _label->getDndObject();
    if (dnd.isNull()) {
        dnd = UiDragAndDrop::create();
        _label->setDndObject(dnd);
    }
    dnd->setDndSrcSink(RCShdPtr<DrSrcSink>(this));
    dnd->setDragEnabled(true);
    dnd->setDropEnabled(true);
}

void UiLabelSink::populateSelection(DrCarrier& carrier) {
    // The drag takes over from the press on the label.
    UiGrab::pointer().release(_label->getEventHandler());
    carrier.getSelection()->addItem(SnItemConvert<std::string>::createItem(
        PiExpressionServices::getTisaneToken() + PiExpressionServices::getInputFullName(_input)));
    carrier.getSelection()->addItem(PiSnItem<PiInput>::create(_input));
}

bool UiLabelSink::willConsumeSelection(DrCarrier const& carrier) {
    return performConsumeSelection(carrier, CHECK);
}

bool UiLabelSink::consumeSelection(DrCarrier& carrier) {
    bool const consumed = performConsumeSelection(carrier, PERFORM_CONSUME);
    ZR_ASSERT_TEXT(consumed, "performConsumeSelection( carrier, PERFORM_CONSUME )");
    return consumed;
}

bool UiLabelSink::performConsumeSelection(DrCarrier const& carrier, ConsumeMode mode) {
    RCShdPtr<SnSelection> const& selection = carrier.getSelection();
    if (selection.isNull())
        return false;
    RCShdPtr<SnItem const> text;
    RCShdPtr<SnItem const> source;
    for (RCShdPtr<SnItem> const& item : *selection) {
        if (text.isNull() && SnItemConvert<std::string>::test(item))
            text = item;
        if (source.isNull() && PiIsValidGraphObjectItem<PiInput>::test(item))
            source = item;
    }
    if (text.isNull() || source.isNull())
        return false;
    std::string const& token = PiExpressionServices::getTisaneToken();
    std::string const reference = SnItemConvert<std::string>::get(text);
    if (reference.compare(0, token.size(), token) != 0)
        return false;
    std::string const name = reference.substr(token.size());
    if (namesItself(_input, name) || !PiExpressionServices::supportsExpressions(_input))
        return false;
    if (mode == CHECK)
        return true;

    PiNode const* node = _input->getNode();
    PiUndoGuard guard(node ? node->getCommandStack() : nullptr, "Set Expression String");
    RCShdPtr<PiInputExpression> const xpit = PiExpressionServices::getExpressionInterface(_input);
    ZR_ASSERT_TEXT(!xpit.isNull(), "!xpit.isNull()");
    xpit->setExpression(name);
    if (!xpit->isValid())
        MsgProtocol::display(MsgWarning(xpit->getErrorMessage()));
    else
        MsgProtocol::display(
            MsgInformation(NodeUiMessages::warning(ValidExpression, {}).getTemplate(),
                           {MsgProtocol::substitute(xpit->getExpression())}));
    return true;
}

void UiLabelSink::initialize() {
    NodeUiMessages::keep({ValidExpression});
}

} // namespace Zr
