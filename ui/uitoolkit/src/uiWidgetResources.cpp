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

#include "wsFontRegistry.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <typeinfo>
#include <utility>
#include <vector>

namespace Zr {

namespace {

// Resource names as LiStrings: comparing them checks the stored hashes first.
LiString const RectangleName("Rectangle");
LiString const LayoutName("Layout");
LiString const KeyboardFocusStatusName("KeyboardFocusStatus");
LiString const OpacityName("Opacity");
LiString const TooltipIdName("TooltipId");
LiString const DefaultTooltipName("DefaultTooltip");

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

// The defaults of one widget class, made once and shared by all its widgets (resources are
// reference counted and never changed by the widgets that apply them). They hold registry colours
// and the default font, so they are made again when either has changed since.
struct ClassDefaults {
    // Replaced, never changed, when made again: a widget applying it keeps its own reference.
    std::shared_ptr<UiResSet const> set;
    std::uint64_t colorGeneration = 0;
    LiString fontHandle;
};

// The defaults of the class whose type information is `type`. A few dozen classes make widgets,
// so a linear search on the type information's address beats hashing its name; a class seen
// through two copies of its type information would only get two entries.
ClassDefaults& classDefaults(std::type_info const& type) {
    static std::vector<std::pair<std::type_info const*, std::unique_ptr<ClassDefaults>>> defaults;
    for (auto const& entry : defaults)
        if (entry.first == &type)
            return *entry.second;
    defaults.emplace_back(&type, std::make_unique<ClassDefaults>());
    return *defaults.back().second;
}

bool isCurrent(ClassDefaults const& defaults) {
    if (!defaults.set || defaults.colorGeneration != UiColorRegistry::getInstance().getGeneration())
        return false;
    // The font resources keep the handle, which widgets resolve when they apply it.
    return defaults.fontHandle == WsFontRegistry::getInstance().getDefaultFontHandle();
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
    // The class's defaults, keyed by the dynamic type: setDefaultResources depends on nothing
    // else (during a constructor both name the class being built).
    ClassDefaults& defaults = classDefaults(typeid(*this));
    if (!isCurrent(defaults)) {
        auto made = std::make_shared<UiResSet>();
        setDefaultResources(*made);
        defaults.set = std::move(made);
        defaults.colorGeneration = UiColorRegistry::getInstance().getGeneration();
        defaults.fontHandle = WsFontRegistry::getInstance().getDefaultFontHandle();
    }
    _imp->_initPhase = 3;
    UiResSet const* stored = table ? table->getResSet(_name) : nullptr;
    if (stored && !stored->empty()) {
        UiResSet set = *defaults.set;
        set.mergeReplace(*stored);
        for (RCShdPtr<UiResource> const& resource : set)
            setResource(resource);
    } else {
        // Held while applied: a setResource may make widgets whose class defaults are made again.
        std::shared_ptr<UiResSet const> const set = defaults.set;
        for (RCShdPtr<UiResource> const& resource : *set)
            setResource(resource);
    }
    _imp->_initPhase = 4;
    if (table)
        _imp->rare()._resTableName = baseName(table->getResTableName());
}

void UiWidget::setResource(RCShdPtr<UiResource> const& resource) {
    if (!resource)
        return;
    UiResource* r = resource.get();
    LiString const& name = r->getNameRef();

    // Colours go by type whatever their name; UiResColor has no subclasses, so the exact type
    // answers what a dynamic_cast would, without walking the hierarchy for every resource.
    if (auto* color = typeid(*r) == typeid(UiResColor) ? static_cast<UiResColor*>(r) : nullptr) {
        setColor(name, color->getColor());
    } else if (auto* coord = name == RectangleName ? dynamic_cast<UiResCoord*>(r) : nullptr) {
        setRect(coord->getCoord(), true);
    } else if (auto* constraint =
                   name == LayoutName ? dynamic_cast<UiResConstraint*>(r) : nullptr) {
        setConstraint(constraint->getConstraint());
    } else if (auto* text =
                   name == KeyboardFocusStatusName ? dynamic_cast<UiResText*>(r) : nullptr) {
        if (text->getNbStrings() > 0)
            setKeyboardFocusable(text->getString(0));
    } else if (auto* opacity = name == OpacityName ? dynamic_cast<UiResInt*>(r) : nullptr) {
        if (opacity->getNbValues() == 1)
            setOpacity(static_cast<float>(opacity->getValue(0) / 100.0));
    } else if (auto* id = name == TooltipIdName ? dynamic_cast<UiResText*>(r) : nullptr) {
        if (id->getNbStrings() > 0)
            setTooltipId(id->getString(0));
    } else if (auto* tip = name == DefaultTooltipName ? dynamic_cast<UiResText*>(r) : nullptr) {
        if (tip->getNbStrings() > 0)
            setDefaultTooltip(tip->getString(0));
    } else if (auto* frame = dynamic_cast<UiResFrame*>(r)) {
        UiFrameRegistry& frames = UiFrameRegistry::getInstance();
        if (frames.isRegisteredType(frame->getFrameTypeName()))
            setFrame(frames.create(frame->getFrameTypeName()), name);
    } else if (auto* state = name == TooltipState ? dynamic_cast<UiResInt*>(r) : nullptr) {
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
