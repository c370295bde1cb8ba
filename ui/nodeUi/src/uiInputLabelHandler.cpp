// The label of a node-bound widget's row: its building and the input's mark.
#include "uiInputLabelHandler.h"

#include "piGraph.h"
#include "piKeyframingUtil.h"
#include "uiConstraint.h"
#include "uiContainer.h"
#include "xmlElement.h"

namespace Zr {

namespace {

PiKeyframingUtil* keyframingUtil(PiInput const& input) {
    PiGraph* graph = input.getGraph();
    return graph ? graph->getKeyframingUtil().get() : nullptr;
}

} // namespace

UiInputLabelHandler::UiInputLabelHandler(RCShdPtr<PiInput> const& input,
                                         RCShdPtr<PiTimePath const> timePath, UiContainer* parent,
                                         bool isEditable, UiWidget* widget)
    : _inputRW(input), _input(input), _timePath(std::move(timePath)), _parent(parent),
      _isEditable(isEditable), _widget(widget) {
    ZR_ASSERT(!_timePath.isNull());
}

UiInputLabelHandler::UiInputLabelHandler(RCShdPtr<PiInput const> const& input,
                                         RCShdPtr<PiTimePath const> timePath, UiContainer* parent,
                                         bool isEditable, UiWidget* widget)
    : _input(input), _timePath(std::move(timePath)), _parent(parent), _isEditable(isEditable),
      _widget(widget) {
    ZR_ASSERT(!_timePath.isNull());
}

UiInputLabelHandler::~UiInputLabelHandler() = default;

RCShdPtr<UiLabel> UiInputLabelHandler::createLabel(UiResTable const* table,
                                                   XmlElement const& element, char const* name,
                                                   float ratio, std::string const& text) {
    XmlElement const labelElement = element.getElementByTagName("Label");
    std::string labelText = text;
    if (labelText.empty() && !labelElement.isNull()) {
        XmlElement const textElement = labelElement.getElementByTagName("Text");
        labelText = textElement.isNull() ? std::string() : textElement.getDataMB();
        if (labelText.empty())
            labelText = name ? name : "";
    }
    if (!labelElement.isNull()) {
        XmlElement const ratioElement = labelElement.getElementByTagName("Ratio");
        float value = 0.f;
        if (!ratioElement.isNull() && ratioElement.getData(value) && value >= 0.f && value <= 100.f)
            ratio = value;
    }
    if (labelText.empty() || !_parent)
        return nullptr;

    // The row takes the widget's place in the parent; the widget moves into it.
    RCShdPtr<UiContainer> row = UiContainer::create(_parent, _widget->getName(), table);
    if (_widget->hasConstraint())
        row->setConstraint(_widget->getConstraint());
    else
        row->setRect(_widget->getRect(), false);
    _widget->setParent(row.get());

    RCShdPtr<UiLabel> label = UiLabel::create(row.get(), LiString(getLabelName()), table);
    label->setText(labelText.c_str());
    label->getLabel(0).setAlignmentH(0);
    _label = label.get();
    if (_isEditable)
        label->unlock();

    _widget->setConstraint(UiVFillConstraint(ratio, 0.f, UiConstraint::TypePercent));
    float const gap = UiConstraint::getUIGridGap().x * -0.5f;
    label->setConstraint(UiConstraint(0.f, 0.f, gap, 0.f, UiConstraint::TypePixel,
                                      UiConstraint::TypePixel, UiConstraint::TypePixel,
                                      UiConstraint::TypePixel, UiConstraint::TargetLow,
                                      UiConstraint::TargetLow, UiConstraint::TargetSibling,
                                      UiConstraint::TargetHigh, {}, {}, _widget->getName()));
    // The widget reaches its label through this handler, which both hold; the label is not
    // held by the widget, as the label's constraint counts from the widget.
    _widget->addClientData(RCShdPtr<RCObject>(this));
    label->addClientData(RCShdPtr<RCObject>(this));
    label->addDestroyCb(&_destroyHandler);
    if (!_inputRW.isNull())
        install();
    return label;
}

void UiInputLabelHandler::install() {
    ZR_ASSERT(!_inputRW.isNull());
    ZR_ASSERT_TEXT(_label != nullptr, "!_label.isNull()");
    _label->addStateCb(&_stateHandler);
    _label->addMapCb(&_mapHandler);
    _installed = true;
    if (_isEditable)
        _label->unlock();
    EvEvent sync;
    onLabelMap(sync);
}

void UiInputLabelHandler::uninstall() {
    if (!_label)
        return;
    _label->removeStateCb(&_stateHandler);
    _label->removeMapCb(&_mapHandler);
    _installed = false;
    _label->lock(true);
}

void UiInputLabelHandler::setInput(RCShdPtr<PiInput> const& input,
                                   RCShdPtr<PiTimePath const> const& timePath) {
    ZR_ASSERT_TEXT(_label != nullptr, "!_label.isNull()");
    uninstall();
    _inputRW = input;
    _input = input;
    _timePath = timePath;
    if (input.isNull())
        return;
    ZR_ASSERT(!_timePath.isNull());
    install();
}

void UiInputLabelHandler::setInput(RCShdPtr<PiInput const> const& input,
                                   RCShdPtr<PiTimePath const> const& timePath) {
    ZR_ASSERT_TEXT(_label != nullptr, "!_label.isNull()");
    uninstall();
    _inputRW = nullptr;
    _input = input;
    _timePath = timePath;
}

void UiInputLabelHandler::onLabelState(EvEvent&) {
    PiKeyframingUtil* util = keyframingUtil(*_inputRW);
    if (!util)
        return;
    if (_label->getState())
        util->markAttribute(_inputRW, _timePath);
    else
        util->unmarkAttribute(_inputRW);
}

void UiInputLabelHandler::onLabelMap(EvEvent&) {
    PiKeyframingUtil* util = keyframingUtil(*_input);
    bool const marked = util && util->isAttributeMarked(_input);
    if (_label->getState() != marked)
        _label->setState(marked, false);
}

} // namespace Zr
