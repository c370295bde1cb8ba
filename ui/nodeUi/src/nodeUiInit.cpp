// The "nodeUi" package. Its steps run in a fixed order: node descriptions name the widget types
// registered here, and later steps (the context menu's actions, the UI builder) rely on the
// earlier ones. Exit runs the same table backwards.
#include "nodeUiInit.h"

#include "msgFileGuard.h"
#include "nodeUiAction.h"
#include "uiInputDualState.h"
#include "uiInputTextField.h"
#include "uiInputValueEditor.h"
#include "uiLabelSink.h"
#include "uiNodeWidget.h"
#include "uiNodeWidgetFactory.h"
#include "uiTitledContainer.h"

#include <array>

namespace Zr {

namespace {

// One start-up step and its undoing; a null function is a step of a widget family that this
// build does not have yet.
struct NodeUiStep {
    char const* what;
    void (*init)();
    void (*exit)();
};

// In start-up order. Each family fills its own row when it lands.
constexpr std::array<NodeUiStep, 20> steps{{
    {"InputPushedToggleIcon, InputPushedToggle, InputToggleButton", &UiInputDualState::initialize,
     &UiInputDualState::finalize},
    {"StoredPushedToggleIcon, StoredPushedToggle, StoredToggleButton", nullptr, nullptr},
    {"InputMenu", nullptr, nullptr},
    {"StoredMenu", nullptr, nullptr},
    {"InputValueEditor", &UiInputValueEditor::initialize, &UiInputValueEditor::finalize},
    {"StoredValueEditor", nullptr, nullptr},
    {"TitledContainer", &UiTitledContainer::initialize, &UiTitledContainer::finalize},
    {"NodeWidget", &UiNodeWidget::initialize, &UiNodeWidget::finalize},
    {"UiNodeWidgetFactory", &UiNodeWidgetFactory::initialize, &UiNodeWidgetFactory::finalize},
    {"InputTriangleSliderHandle", nullptr, nullptr},
    {"TrackballSet", nullptr, nullptr},
    {"InputTextEditor", nullptr, nullptr},
    {"StoredTextEditor", nullptr, nullptr},
    {"LinkUi", nullptr, nullptr},
    {"UiLabelSink message handler", &UiLabelSink::initialize, nullptr},
    {"InputTextField", &UiInputTextField::initialize, &UiInputTextField::finalize},
    {"StoredTextField", nullptr, nullptr},
    {"ShowVectorsUi", nullptr, nullptr},
    {"context menu actions", &NodeUiActionUtil::registerActions,
     &NodeUiActionUtil::unregisterActions},
    {"UiBuilder", nullptr, nullptr},
}};

} // namespace

void NodeUiInit::init() {
    MsgFileGuard messages("nodeUi.msg");
    for (NodeUiStep const& step : steps)
        if (step.init)
            step.init();
}

void NodeUiInit::exit() {
    for (auto step = steps.rbegin(); step != steps.rend(); ++step)
        if (step->exit)
            step->exit();
}

} // namespace Zr
