// UiWidget's resources: the defaults every widget has, the application of a table's set for the
// widget's name, the effect of each resource, and changes of single resources at run time.
#include "uiWidget.h"

#include "xmlWriter.h"

#include "uiColorRegistry.h"
#include "uiFrame.h"
#include "uiResColor.h"
#include "uiResConstraint.h"
#include "uiResCoord.h"
#include "uiResFrame.h"
#include "uiResInt.h"
#include "uiResSet.h"
#include "uiResTable.h"
#include "uiResText.h"
#include "uiWidgetImp.h"

#include <filesystem>

namespace Zr {

namespace {

char const* const DefaultFrameType = "None";
char const* const FocusFrameType = "BorderDecorator";

RCShdPtr<UiResource> registryColor(LiString const& resourceName, LiString const& colorName) {
    return RCShdPtr<UiResource>(
        new UiResColor(resourceName, UiColorRegistry::getInstance().getColor(colorName)));
}

// The table's name without directory or extension: what tooltip ids are built from.
std::string baseName(std::string const& tableName) {
    return std::filesystem::path(tableName).stem().string();
}

} // namespace

void UiWidget::initFocusColors() {
    UiColorRegistry const& colors = UiColorRegistry::getInstance();
    _keyboardFocusColor = colors.getColor(UiColorRegistry::FocusKeyboard);
    _pointerFocusColor = colors.getColor(UiColorRegistry::FocusPointer);
}

CoRgbColor UiWidget::blackColor() {
    return UiColorRegistry::getInstance().getColor(UiColorRegistry::Black);
}

void UiWidget::setDefaultResources(UiResSet& set) {
    set.set(registryColor(BackgroundColor, UiColorRegistry::Background));
    set.set(registryColor(ForegroundColor, UiColorRegistry::Foreground));
    set.set(registryColor(InactiveForegroundColor, UiColorRegistry::InactiveForeground));
    set.set(RCShdPtr<UiResource>(new UiResCoord("Rectangle", getDefaultSize())));
    set.set(RCShdPtr<UiResource>(new UiResFrame(DefaultFrame, DefaultFrameType)));
    set.set(RCShdPtr<UiResource>(new UiResFrame(FocusFrame, FocusFrameType)));
}

void UiWidget::resInit(UiResTable const* table) {
    UiResSet set;
    setDefaultResources(set);
    _imp->_initPhase = 3;
    if (table) {
        if (UiResSet const* stored = table->getResSet(_name))
            set.mergeReplace(*stored);
    }
    for (RCShdPtr<UiResource> const& resource : set)
        setResource(resource);
    _imp->_initPhase = 4;
    if (table)
        _imp->rare()._resTableName = baseName(table->getResTableName());
}

void UiWidget::setResource(RCShdPtr<UiResource> const& resource) {
    if (!resource)
        return;
    UiResource* r = resource.get();
    LiString const& name = r->getNameRef();

    if (auto* color = dynamic_cast<UiResColor*>(r)) {
        setColor(name, color->getColor());
    } else if (auto* coord = dynamic_cast<UiResCoord*>(r); coord && name == "Rectangle") {
        setRect(coord->getCoord(), true);
    } else if (auto* constraint = dynamic_cast<UiResConstraint*>(r);
               constraint && name == "Layout") {
        setConstraint(constraint->getConstraint());
    } else if (auto* text = dynamic_cast<UiResText*>(r); text && name == "KeyboardFocusStatus") {
        if (text->getNbStrings() > 0)
            setKeyboardFocusable(text->getString(0));
    } else if (auto* opacity = dynamic_cast<UiResInt*>(r); opacity && name == "Opacity") {
        if (opacity->getNbValues() == 1)
            setOpacity(static_cast<float>(opacity->getValue(0) / 100.0));
    } else if (auto* id = dynamic_cast<UiResText*>(r); id && name == "TooltipId") {
        if (id->getNbStrings() > 0)
            setTooltipId(id->getString(0));
    } else if (auto* tip = dynamic_cast<UiResText*>(r); tip && name == "DefaultTooltip") {
        if (tip->getNbStrings() > 0)
            setDefaultTooltip(tip->getString(0));
    } else if (auto* frame = dynamic_cast<UiResFrame*>(r)) {
        UiFrameRegistry& frames = UiFrameRegistry::getInstance();
        if (frames.isRegisteredType(frame->getFrameTypeName()))
            setFrame(frames.create(frame->getFrameTypeName()), name);
    } else if (auto* state = dynamic_cast<UiResInt*>(r); state && name == TooltipState) {
        if (state->getNbValues() > 0)
            _imp->_tooltipEnabled = state->getValue(0) != 0;
    }
}

void UiWidget::changeResource(LiString const& text) {
    UiResTable local;
    std::string xml =
        "<Widget Name=\"" + XmlWriter::escape(_name.str(), true) + "\">" + text.str() + "</Widget>";
    LiString name = local.readWidgetCatchErrors(LiString(xml), UiResource::LevelApplication);
    if (UiResSet const* set = local.getResSet(name))
        for (RCShdPtr<UiResource> const& resource : *set)
            setResource(resource);
}

void UiWidget::changeResource(RCShdPtr<UiResource> const& resource) {
    setResource(resource);
}

void UiWidget::setWidgetResTable(UiWidget& widget, UiResTable const& table) {
    if (UiResSet const* set = table.getResSet(widget.getName()))
        for (RCShdPtr<UiResource> const& resource : *set)
            widget.setResource(resource);
    widget.setResTableName(baseName(table.getResTableName()));
}

} // namespace Zr
