// UiValueEditor: number formatting, resources, the drag, the click that opens the text field
// and its commit or cancel, the calculator and reset clicks, the stepping hotkeys and drawing.
#include "uiValueEditor.h"

#include "uiApplication.h"
#include "uiColorRegistry.h"
#include "uiContainer.h"
#include "uiFocusKeyboard.h"
#include "uiFocusPointer.h"
#include "uiGrab.h"
#include "uiHotkeyRegistry.h"
#include "uiLabelString.h"
#include "uiLogGroups.h"
#include "uiMotionHandler.h"
#include "uiResColor.h"
#include "uiResDouble.h"
#include "uiResFont.h"
#include "uiResFrame.h"
#include "uiResInt.h"
#include "uiResMinMax.h"
#include "uiResSet.h"
#include "uiResText.h"
#include "uiTextField.h"
#include "uiWidgetRttiType.h"
#include "uiWindow.h"

#include "lgLog.h"
#include "liStringUtil.h"
#include "msgProtocol.h"
#include "numUtil.h"
#include "piUserSettings.h"
#include "smContext.h"
#include "smGl.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace Zr {

namespace {

// Resource names as LiStrings: comparing them checks the stored hashes first.
LiString const LabelStringName("LabelString");
LiString const FormatStringName("FormatString");
LiString const LimitsName("Limits");
LiString const LabelFontName("LabelFont");
LiString const LabelAlignName("LabelAlign");
LiString const DefaultValueName("DefaultValue");
LiString const IndicatorName("Indicator");
LiString const OnColorName("OnColor");
LiString const OutColorName("OutColor");
// What the text field refuses: every letter but the 'e' of an exponent, and the symbols that
// cannot be part of a number.

char const* const RefusedCharacters =
    "!@#$%^&*()+=`';?><{}[]|~/abcdfghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
// The same, with the minus sign refused where it cannot stand.
std::string const RefusedWithMinus = std::string(RefusedCharacters) + "-";

// Sideways travel under which a press and release still count as a click.
constexpr int ClickSlop = 4;
// Limits of the plain notation: above ten million, or below minus one million (the minus sign
// takes a place), or nearer zero than this, the exponent form is shorter.
constexpr double LargePositive = 10000000.0;
constexpr double LargeNegative = -1000000.0;
constexpr double Tiny = 0.0001;
// The automatic position bar shows for maxima below this.
constexpr double BarMaximum = 9999.0;
constexpr int BarHeight = 4;
constexpr int FormatBuffer = 30;

char const* const DefaultFormat = "%.7g";
char const* const DefaultStringFormat = "%.7s";

// The four hotkeys that step the value while the text field is open.
struct StepHotkeys {
    int incrementStart = 0, decrementStart = 0, incrementEnd = 0, decrementEnd = 0;

    static StepHotkeys const& get() {
        static StepHotkeys const keys = [] {
            UiHotkeyRegistry const& registry = UiHotkeyRegistry::getInstance();
            char const* const domain = "/Local/UI Components/Value Editor";
            return StepHotkeys{registry.getEntry(domain, "Increment Start"),
                               registry.getEntry(domain, "Decrement Start"),
                               registry.getEntry(domain, "Increment End"),
                               registry.getEntry(domain, "Decrement End")};
        }();
        return keys;
    }
    int const* begin() const { return &incrementStart; }
    int const* end() const { return &decrementEnd + 1; }
};

// printf of one value into the editor's buffer size; the format has been checked.
template <class T>
std::string print(char const* format, T value) {
    char buffer[FormatBuffer];
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    std::snprintf(buffer, sizeof buffer, format, value);
#pragma GCC diagnostic pop
    return buffer;
}

// The same for a number. The usual formats, "%e", "%f", "%g" with a precision or none, go
// through std::to_chars, which prints exactly what printf prints for them in the C locale at a
// fraction of the cost; flags, widths, other letters and non-finite numbers go to printf.
std::string print(char const* format, double value) {
    if (format[0] == '%' && std::isfinite(value)) {
        char const* p = format + 1;
        int precision = 6;
        if (*p == '.') {
            precision = 0;
            for (++p; *p >= '0' && *p <= '9' && precision < 100; ++p)
                precision = precision * 10 + (*p - '0');
        }
        std::chars_format const style = *p == 'e'   ? std::chars_format::scientific
                                        : *p == 'f' ? std::chars_format::fixed
                                                    : std::chars_format::general;
        if ((*p == 'e' || *p == 'f' || *p == 'g') && p[1] == '\0') {
            char buffer[FormatBuffer];
            auto const [end, error] =
                std::to_chars(buffer, buffer + sizeof buffer - 1, value, style, precision);
            if (error == std::errc())
                return std::string(buffer, end);
        }
    }
    return print<double>(format, value);
}

// The precision of a string format that is exactly "%.<digits>s" (the editors' usual cut), or -1
// for any other: those cut the text without a call to printf.
int plainCutPrecision(std::string const& format) {
    if (format.size() < 4 || format[0] != '%' || format[1] != '.' || format.back() != 's')
        return -1;
    int precision = 0;
    for (std::size_t i = 2; i + 1 < format.size(); ++i) {
        if (format[i] < '0' || format[i] > '9' || precision > FormatBuffer)
            return -1;
        precision = precision * 10 + (format[i] - '0');
    }
    return precision;
}

// Counts the conversions of a printf format: those whose letter is in `letters`, and all
// others ("%%" is none). Flags, width and precision are allowed, length modifiers are not.
void countConversions(std::string const& format, char const* letters, int& wanted, int& others) {
    wanted = others = 0;
    auto const isDigit = [](char c) { return c >= '0' && c <= '9'; };
    auto const isFlag = [](char c) {
        return c == '-' || c == '+' || c == ' ' || c == '#' || c == '0';
    };
    std::size_t const size = format.size();
    for (std::size_t i = 0; i < size; ++i) {
        if (format[i] != '%')
            continue;
        if (++i < size && format[i] == '%')
            continue;
        while (i < size && isFlag(format[i]))
            ++i;
        while (i < size && isDigit(format[i]))
            ++i;
        if (i < size && format[i] == '.')
            ++i;
        while (i < size && isDigit(format[i]))
            ++i;
        if (i < size && format[i] != '\0' && std::strchr(letters, format[i]))
            ++wanted;
        else
            ++others;
    }
}

// Tells the focus changes whether a value editor is in the middle of an edit: while its text
// field holds the keyboard focus. An editor that is not held by the pointer starts its edit
// when the focus comes to it from an editor that was editing.
class ValueEditorHook : public UiFocusKeyboard::EditorHook {
public:
    bool isEditing(UiWidget& widget) const override {
        auto* editor = dynamic_cast<UiValueEditor*>(&widget);
        if (!editor || !editor->isEditFieldMode())
            return false;
        UiWidget* focus = UiFocusKeyboard::getInstance().getFocus();
        return focus && focus->findClientData<UiValueEditor>() == editor;
    }
    bool startsEditOnFocus(UiWidget& widget) const override {
        auto* editor = dynamic_cast<UiValueEditor*>(&widget);
        return editor && !editor->isArmed();
    }
};

void installEditorHook() {
    static ValueEditorHook hook;
    static bool const installed = [] {
        UiFocusKeyboard::getInstance().addEditorHook(&hook);
        return true;
    }();
    (void)installed;
}

} // namespace

// The handlers bound to the editor and to its text field, and the state of a drag or an edit.
class UiValueEditorImp {
public:
    explicit UiValueEditorImp(UiValueEditor* owner)
        : fieldEnter(owner, &UiValueEditor::onFieldEnter),
          fieldKeyPress(owner, &UiValueEditor::onFieldKeyPress),
          fieldFocusOut(owner, &UiValueEditor::onFieldFocusOut),
          fieldFocusIn(owner, &UiValueEditor::onFieldFocusIn),
          fieldUnmap([this](EvEvent&) { fieldGone(); }),
          keyPress(owner, &UiValueEditor::onKeyPress),
          kbdFocusIn(owner, &UiValueEditor::onKbdFocusIn),
          kbdFocusOut(owner, &UiValueEditor::onKbdFocusOut), arm(owner, &UiValueEditor::onArm),
          disarm(owner, &UiValueEditor::onDisarm), mmove(owner, &UiValueEditor::onMmove),
          userDraw(owner, &UiValueEditor::onUserDraw), hotkey(owner, &UiValueEditor::onHotkey),
          builtInReset(owner, &UiValueEditor::builtInReset), editor(owner),
          ownCalculatable(new UiCalculatableValueEditor(owner)), calculatable(ownCalculatable) {
        resetCb.addHandler(&builtInReset);
    }
    ~UiValueEditorImp() {
        ownCalculatable->detach();
        if (editField)
            editField->removeUnMapCb(&fieldUnmap);
    }

    // The field left the tree while it stood in for the editor (its parent went): it lets go
    // of the editor, which would otherwise keep itself and the field alive. A field leaving the
    // tree has lost its window first; one hidden with its parent (a tab put away) keeps it and
    // goes on with the edit when it shows again.
    void fieldGone() {
        if (!inEdit || !editField || editField->getWindow())
            return;
        inEdit = false;
        editField->removeClientData(RCShdPtr<RCObject>(editor));
    }

    CbMethod<UiValueEditor, EvEvent> fieldEnter, fieldKeyPress, fieldFocusOut, fieldFocusIn;
    CbFunction<EvEvent> fieldUnmap;
    CbMethod<UiValueEditor, EvEvent> keyPress, kbdFocusIn, kbdFocusOut, arm, disarm, mmove,
        userDraw, hotkey;
    CbMethod<UiValueEditor, CbEmptyType> builtInReset;
    UiValueEditor* editor;

    OPtr<UiMotionHandler> motionHandler = std::make_unique<UiLinearMotionHandler>();
    RCShdPtr<UiLabelHandler const> labelHandler;
    RCShdPtr<UiTextField> editField;
    CbDispatcher<CbEmptyType> resetCb;
    CbDispatcher<RCShdPtr<UiCalculatable> const> contextCb;
    CbDispatcher<EvEvent> focusInClients, focusOutClients;
    bool modifierKeyEnabled = true;
    bool dragging = false;
    bool inEdit = false;
    bool showBar = false;
    bool hotkeysActive = false;
    UiValueEditor::IndicatorState indicatorState = UiValueEditor::IndicatorOff;
    double increment = 0.01;
    double keyStep = 1.0;
    int keyRepeats = 0;
    int keyAccelEvery = 30;
    int keyAccelFactor = 5;
    CoRgbColor onColor, outColor;
    GePoint2<int> dragAnchor;
    double lastMagnitude = 0.0;
    LiString fontName;
    bool autoMotion = true;
    RCShdPtr<UiCalculatableValueEditor> ownCalculatable;
    RCShdPtr<UiCalculatable> calculatable;
};

// --- formatting ------------------------------------------------------------------------------

bool UiValueEditor::isNumberFormat(std::string const& format) {
    int wanted = 0, others = 0;
    countConversions(format, "fFeEgGaA", wanted, others);
    return wanted == 1 && others == 0;
}

bool UiValueEditor::isTextFormat(std::string const& format) {
    int wanted = 0, others = 0;
    countConversions(format, "s", wanted, others);
    return wanted == 1 && others == 0;
}

std::string UiValueEditor::filterExponent(std::string const& text) {
    std::size_t const e = text.rfind('e');
    if (e == std::string::npos)
        return text;
    std::string out = text.substr(0, e + 1);
    std::size_t i = e + 1;
    for (; i < text.size(); ++i) {
        char const c = text[i];
        if (c >= '1' && c <= '9')
            break;
        if (c != '+' && c != '0')
            out += c;
    }
    return out + text.substr(i);
}

std::string UiValueEditor::formatString(double value, std::string const& format,
                                        std::string const& stringFormat) {
    char const* const number = isNumberFormat(format) ? format.c_str() : DefaultFormat;
    // Very large, very small and negative millions are printed in exponent form; so is any
    // number the format itself prints that way. Infinities and NaN have no exponent and keep the
    // format's own text.
    bool const large = value >= LargePositive || value <= LargeNegative;
    bool const tiny = (value > 0.0 && value < Tiny) || (value < 0.0 && value > -Tiny);
    std::string text = print(large || tiny ? "%e" : number, value);
    std::size_t const e = text.rfind('e');
    if (e == std::string::npos) {
        if (large || tiny)
            text = print(number, value);
    } else {
        text = filterExponent(text);
        // The room left of seven characters after the exponent says how many decimals fit.
        auto const n = static_cast<long>(text.size()) - static_cast<long>(text.rfind('e')) -
                       (value < 0.0 ? 0 : 1);
        char const* const shortFormat = n == 1   ? "%.3e"
                                        : n == 2 ? "%.2e"
                                        : n == 3 ? "%.1e"
                                                 : "%.0e";
        text = filterExponent(print(shortFormat, value));
    }
    if (int const cut = plainCutPrecision(stringFormat); cut >= 0) {
        // What printf would give: at most `cut` characters, within the editor's buffer.
        text.resize(std::min({text.size(), static_cast<std::size_t>(cut),
                              static_cast<std::size_t>(FormatBuffer - 1)}));
        return text;
    }
    return print(isTextFormat(stringFormat) ? stringFormat.c_str() : DefaultStringFormat,
                 text.c_str());
}

// --- making ----------------------------------------------------------------------------------

RCShdPtr<UiValueEditor> UiValueEditor::create(UiContainer* parent, LiString const& name,
                                              UiResTable const* table) {
    RCShdPtr<UiValueEditor> widget(new UiValueEditor(parent, name));
    widget->resInit(table);
    widget->postInit();
    return widget;
}

UiValueEditor::UiValueEditor(UiContainer* parent, LiString const& name)
    : UiRange(parent, name), _imp(std::make_unique<UiValueEditorImp>(this)), _label(nullptr, 0) {
    installEditorHook();
    UiWidget::addKbdFocusInCb(&_imp->kbdFocusIn);
    UiWidget::addKbdFocusOutCb(&_imp->kbdFocusOut);
    addKeyPressCb(&_imp->keyPress);
    addArmCb(&_imp->arm);
    addDisarmCb(&_imp->disarm);
    addMmoveCb(&_imp->mmove);
    addUserDrawCb(&_imp->userDraw);
}

UiValueEditor::~UiValueEditor() {
    if (_imp->editField && _imp->editField->getParent())
        _imp->editField->getParent()->removeChild(_imp->editField);
}

void UiValueEditor::setDefaultResources(UiResSet& set) {
    UiRange::setDefaultResources(set);
    UiColorRegistry const& colors = UiColorRegistry::getInstance();
    UiLabelString::setDefaultResources(set, "Right Center 4 0");
    set.set(RCShdPtr<UiResource>(new UiResText("LabelString", DefaultStringFormat)));
    set.set(RCShdPtr<UiResource>(new UiResText("FormatString", "%.0f")));
    set.set(
        RCShdPtr<UiResource>(new UiResColor(BackgroundColor, colors.getColor("TextBackground"))));
    set.set(RCShdPtr<UiResource>(new UiResColor("OnColor", colors.getColor("TextBackgroundOn"))));
    set.set(RCShdPtr<UiResource>(new UiResColor("OutColor", colors.getColor("Red"))));
    double const big = std::numeric_limits<double>::max();
    set.set(RCShdPtr<UiResource>(new UiResMinMax("Limits", -big, big, 0.01)));
    set.set(RCShdPtr<UiResource>(new UiResFrame(DefaultFrame, "In")));
}

void UiValueEditor::reportBadResource(UiResource const& resource,
                                      std::string const& expected) const {
    std::string const table = getResTableName(FullName);
    MsgWarning warning(MsgSubscription("MSG_RESOURCE_RES_ERROR"));
    warning.arg(MsgProtocol::substitute(table.empty() ? getName().str() : table));
    MsgProtocol::display(warning);
    std::string const text = "Error in resource '" + resource.getNameRef().str() +
                             "' for widget '" + getName().str() + "': expected " + expected;
    if (LgMinorGroup* group = UiLogGroups::uiResources())
        LgLog::writeLine(*group, text);
    else
        ExStdout::printAtomically(text);
}

void UiValueEditor::setResource(RCShdPtr<UiResource> const& resource) {
    if (!resource)
        return;
    UiResource const& r = *resource;
    LiString const& name = r.getNameRef();
    auto const got = [&r] { return ", got " + std::string(r.getType()); };
    if (name == LabelStringName || name == FormatStringName) {
        auto const* text = dynamic_cast<UiResText const*>(&r);
        bool const label = name == LabelStringName;
        char const* const wanted = label ? "one text with one %s"
                                         : "one text with one number "
                                           "conversion (%f, %e, %g)";
        if (!text || text->getNbStrings() != 1 ||
            !(label ? isTextFormat(text->getString(0)) : isNumberFormat(text->getString(0)))) {
            reportBadResource(r, wanted + (text && text->getNbStrings() == 1
                                               ? ", got \"" + std::string(text->getString(0)) + "\""
                                               : got()));
            return;
        }
        if (label)
            _stringFormat = text->getString(0);
        else
            _format = text->getString(0);
        // While the resources are applied, postInit shows the value once in the final formats.
        if (getInitPhase() != 3)
            updateValue();
    } else if (name == LimitsName) {
        auto const* limits = dynamic_cast<UiResMinMax const*>(&r);
        if (!limits || std::isnan(limits->getMin()) || std::isnan(limits->getMax()) ||
            !std::isfinite(limits->getStep())) {
            reportBadResource(r, "a MinMax with numbers and a finite step" + got());
            return;
        }
        setRange(limits->getMin(), limits->getMax(), false);
        _imp->increment = limits->getStep();
    } else if (name == LabelFontName) {
        auto const* font = dynamic_cast<UiResFont const*>(&r);
        if (!font) {
            reportBadResource(r, "a Font" + got());
            return;
        }
        applyFont(*font);
    } else if (name == LabelAlignName) {
        UiLabelString::applyResource(_label, r);
    } else if (name == DefaultValueName) {
        auto const* value = dynamic_cast<UiResDouble const*>(&r);
        if (!value || value->getNbValues() != 1 || !std::isfinite(value->getValue(0))) {
            reportBadResource(r, "one finite Double" + got());
            return;
        }
        setDefaultValue(value->getValue(0));
    } else if (name == IndicatorName) {
        auto const* value = dynamic_cast<UiResInt const*>(&r);
        if (!value || value->getNbValues() != 1) {
            reportBadResource(r, "one Int" + got());
            return;
        }
        int const v = value->getValue(0);
        setIndicatorState(v == 0 ? IndicatorOff : v == 1 ? IndicatorOn : IndicatorAutomatic);
    } else {
        UiRange::setResource(resource);
    }
}

void UiValueEditor::postInit() {
    UiRange::postInit();
    updateValue();
    updateRange();
}

// --- value -----------------------------------------------------------------------------------

void UiValueEditor::setUiValue(double value) {
    setDisplayValue(value, true);
    UiFocusKeyboard::getInstance().setFocus(this);
    stateChanged();
    EvPointerButtonUpEvent up;
    activate(up);
}

void UiValueEditor::setIncrement(double increment) {
    _imp->increment = increment;
}

double UiValueEditor::getIncrement() const {
    return _imp->increment;
}

void UiValueEditor::resetValue() {
    if (isLocked())
        return;
    _imp->resetCb.call();
}

void UiValueEditor::builtInReset() {
    double const value = getDefaultValue();
    if (almostEqual(value, getDisplayValue()))
        return;
    setDisplayValue(value, true);
    UiFocusKeyboard::getInstance().setFocus(this);
    stateChanged();
    EvPointerButtonUpEvent up;
    activate(up);
}

void UiValueEditor::setResetValueCb(CbHandler<CbEmptyType>* handler) {
    _imp->resetCb.removeHandler(&_imp->builtInReset);
    _imp->resetCb.addHandler(handler);
}

void UiValueEditor::updateValue() {
    double const value = getDisplayValue();
    std::string const text = _imp->labelHandler ? _imp->labelHandler->toString(value)
                                                : formatString(value, _format, _stringFormat);
    _label.setString(text.c_str());
    updateScrollLine(value);
    markForUpdate();
}

void UiValueEditor::updateRange() {
    updateScrollLine(getDisplayValue());
    if (_imp->indicatorState == IndicatorAutomatic)
        setShowBar(getMaxDisplayValue() < BarMaximum);
    markForUpdate();
}

// --- look ------------------------------------------------------------------------------------

void UiValueEditor::setFormat(char const* format) {
    std::string const text = format ? format : "";
    if (!isNumberFormat(text)) {
        reportBadResource(UiResText("FormatString", text.c_str()),
                          "one number conversion (%f, %e, %g), got \"" + text + "\"");
        return;
    }
    _format = text;
    updateValue();
}

std::string const& UiValueEditor::getFormat() const {
    return _format;
}

void UiValueEditor::setString(char const* stringFormat) {
    std::string const text = stringFormat ? stringFormat : "";
    if (!isTextFormat(text)) {
        reportBadResource(UiResText("LabelString", text.c_str()), "one %s, got \"" + text + "\"");
        return;
    }
    _stringFormat = text;
    updateValue();
}

std::string const& UiValueEditor::getString() const {
    return _stringFormat;
}

void UiValueEditor::setLabelHandler(RCShdPtr<UiLabelHandler const> const& handler) {
    _imp->labelHandler = handler;
    updateValue();
}

RCShdPtr<UiLabelHandler const> const& UiValueEditor::getLabelHandler() const {
    return _imp->labelHandler;
}

void UiValueEditor::setFont(LiString const& fontName) {
    applyFont(UiResFont("LabelFont", fontName.c_str()));
}

void UiValueEditor::applyFont(UiResFont const& font) {
    UiLabelString::applyResource(_label, font);
    _imp->fontName = font.getFontHandle();
    if (_imp->editField)
        _imp->editField->setFont(_imp->fontName);
    markForUpdate();
}

void UiValueEditor::setShowBar(bool show) {
    _imp->showBar = show;
    _scrollHeight = show ? BarHeight : -1;
    updateScrollLine(getDisplayValue());
}

void UiValueEditor::setIndicatorState(IndicatorState state) {
    if (state == _imp->indicatorState)
        return;
    _imp->indicatorState = state;
    setShowBar(state == IndicatorOn ||
               (state == IndicatorAutomatic && getMaxDisplayValue() < BarMaximum));
    markForUpdate();
}

UiValueEditor::IndicatorState UiValueEditor::getIndicatorState() const {
    return _imp->indicatorState;
}

int UiValueEditor::computeScrollX(double displayValue) const {
    double const min = getMinDisplayValue();
    double const span = getMaxDisplayValue() - min;
    if (!(span > 0.0))
        return -1;
    GeRectangle<int> const canvas = getCanvas();
    double const x = std::trunc((canvas.width() - 1) * ((displayValue - min) / span) + canvas.x1);
    // A value outside the limits (unclamped) stays at the canvas's ends.
    return static_cast<int>(std::clamp(x, double(canvas.x1 - 1), double(canvas.x2)));
}

void UiValueEditor::updateScrollLine(double displayValue) {
    _scrollX = computeScrollX(displayValue);
}

void UiValueEditor::setColor(LiString const& name, CoRgbColor const& color) {
    if (name == OnColorName)
        _imp->onColor = color;
    else if (name == OutColorName)
        _imp->outColor = color;
    else
        UiWidget::setColor(name, color);
    stateChanged();
}

CoRgbColor UiValueEditor::getColor(LiString const& name) const {
    if (name == OnColorName)
        return _imp->onColor;
    if (name == OutColorName)
        return _imp->outColor;
    return UiWidget::getColor(name);
}

void UiValueEditor::stateChanged() {
    _currentBackground = isArmed() ? _imp->onColor : _background;
    // While the resources are applied, postInit lays the editor out once for all of them.
    if (getInitPhase() == 3)
        return;
    adjustCoords();
    markForUpdate();
}

void UiValueEditor::adjustCoords() {
    UiRange::adjustCoords();
    GeRectangle<int> const canvas = getCanvas();
    _label.setRect({0, canvas.width(), 0, canvas.height()});
    _scrollHeight = _imp->showBar ? BarHeight : -1;
    if (!isArmed()) {
        updateScrollLine(getDisplayValue());
        markForUpdate();
    }
}

// --- interaction settings --------------------------------------------------------------------

void UiValueEditor::setMotionHandler(OPtr<UiMotionHandler> handler) {
    if (!handler)
        return;
    _imp->motionHandler = std::move(handler);
    _imp->autoMotion = false;
}

UiMotionHandler* UiValueEditor::getMotionHandler() const {
    return _imp->motionHandler.get();
}

void UiValueEditor::setModifierKeyEnabled(bool enabled) {
    _imp->modifierKeyEnabled = enabled;
}

bool UiValueEditor::isModifierKeyEnabled() const {
    return _imp->modifierKeyEnabled;
}

bool UiValueEditor::isEditFieldMode() const {
    return _imp->inEdit;
}

void UiValueEditor::addContextMenuCb(CbHandler<RCShdPtr<UiCalculatable> const>* handler) {
    _imp->contextCb.addHandler(handler);
}

void UiValueEditor::removeContextMenuCb(CbHandler<RCShdPtr<UiCalculatable> const>* handler) {
    _imp->contextCb.removeHandler(handler);
}

void UiValueEditor::setCalculatable(RCShdPtr<UiCalculatable> const& calculatable) {
    _imp->calculatable = calculatable;
}

RCShdPtr<UiCalculatable> const& UiValueEditor::getCalculatable() const {
    return _imp->calculatable;
}

void UiValueEditor::addKbdFocusInCb(CbHandler<EvEvent>* h) {
    _imp->focusInClients.addHandler(h);
}

void UiValueEditor::addKbdFocusOutCb(CbHandler<EvEvent>* h) {
    _imp->focusOutClients.addHandler(h);
}

void UiValueEditor::removeKbdFocusInCb(CbHandler<EvEvent>* h) {
    _imp->focusInClients.removeHandler(h);
}

void UiValueEditor::removeKbdFocusOutCb(CbHandler<EvEvent>* h) {
    _imp->focusOutClients.removeHandler(h);
}

void UiValueEditor::removeUserDrawCb(CbHandler<EvEvent>* h) {
    if (h != &_imp->userDraw)
        UiRange::removeUserDrawCb(h);
}

// --- pointer ---------------------------------------------------------------------------------

void UiValueEditor::onArm(EvEvent& event) {
    auto* press = evCast<EvPointerButtonEvent>(event);
    if (!press)
        return;
    if (press->getTriggerButton() == 4) {
        // The context button asks for a menu; without a client it does nothing at all.
        if (!_imp->contextCb.isEmpty()) {
            RCShdPtr<UiCalculatable> const calculatable = _imp->calculatable;
            _imp->contextCb.call(calculatable);
        }
        return;
    }
    if (_imp->autoMotion) {
        // Asked on every press, so a change of the setting counts at once and a circular
        // handler starts afresh.
        bool const circular = PiUserSettings::isInitialized() &&
                              PiUserSettings::getInstance().getValueEditorMotion() == 1;
        if (circular)
            _imp->motionHandler = std::make_unique<UiCircularMotionHandler>();
        else
            _imp->motionHandler = std::make_unique<UiLinearMotionHandler>();
    }
    _imp->dragAnchor = press->getWCoord();
    _imp->lastMagnitude = 0.0;
    UiGrab::pointer().grab(getEventHandler());
}

void UiValueEditor::onMmove(EvEvent& event) {
    auto* move = evCast<EvPointerEvent>(event);
    if (!move || isLocked() || UiGrab::pointer().getCurrent() != getEventHandler())
        return;
    UiValueEditorImp& imp = *_imp;
    GePoint2<int> const at = move->getWCoord();
    if (!imp.dragging) {
        if (std::abs(at.x - imp.dragAnchor.x) < ClickSlop)
            return;
        callPreEditCb();
        imp.dragAnchor = at;
        imp.dragging = true;
    }
    RCShdPtr<UiWidget> const self(this);
    double magnitude =
        imp.motionHandler->computeMagnitudeOfMotion(*move, imp.dragAnchor, self, imp.increment);
    // The pointer's x on the screen, and the screen's right end as far as the window knows.
    UiWindow* window = getWindow();
    WsWindow* os = window ? window->getOSWindow().get() : nullptr;
    int const screenX = os ? os->getGeometry().x1 + at.x : at.x;
    int const screenWidth = os ? os->getGeometry().x2 : std::numeric_limits<int>::max();
    if (almostEqual(magnitude, 0.0)) {
        if (screenX < 1 || screenX >= screenWidth - 1) {
            // Pinned to the edge of the screen: the value keeps running by the last step, and
            // the copy of the event brings the next one.
            magnitude = imp.lastMagnitude;
            UiApplication::getInstance().postEvent(move->clone());
        }
    } else if (almostEqual(magnitude + imp.lastMagnitude, 0.0) && screenX < 1) {
        return;
    }
    double value = imp.motionHandler->computeNewValue(*move, getDisplayValue(), magnitude,
                                                      imp.increment, self);
    value = dragDisplayValue(value, event);
    if (value >= getMinDisplayValue() && value <= getMaxDisplayValue())
        updateScrollLine(value);
    imp.dragAnchor = at;
    imp.lastMagnitude = magnitude;
    markForUpdate();
}

void UiValueEditor::onDisarm(EvEvent& event) {
    UiValueEditorImp& imp = *_imp;
    bool const wasDragging = imp.dragging;
    imp.dragging = false;
    // A press of the context button took no grab: its release ends here.
    if (!UiGrab::pointer().release(getEventHandler()))
        return;
    stateChanged();
    auto* up = evCast<EvPointerButtonEvent>(event);
    if (wasDragging) {
        callPostEditCb();
    } else {
        unsigned const modifiers = up ? up->getKeyboardState().getState() : 0;
        bool const shift = modifiers & EvKeyboardState::Shift;
        bool const alt = modifiers & EvKeyboardState::Alt;
        if (shift) {
            event.setProcessed();
            UiCalculator::PopupMode mode = UiCalculator::Value;
            // Shift and Alt ask for the expression behind the value, when there is one.
            if (alt && imp.calculatable->getExpression())
                mode = UiCalculator::Expression;
            UiApplication::getInstance().popupCalculator(imp.calculatable.get(), mode);
            return;
        }
        if (modifiers & EvKeyboardState::Control) {
            resetValue();
            return;
        }
        if (imp.modifierKeyEnabled)
            editMode();
    }
    if (!isLocked())
        activate(event);
}

// --- the text field --------------------------------------------------------------------------

void UiValueEditor::editMode() {
    UiValueEditorImp& imp = *_imp;
    UiContainer* parent = getParent();
    if (isLocked() || !parent)
        return;
    imp.inEdit = true;
    if (!imp.editField) {
        imp.editField =
            UiTextField::create(parent, LiString(getName().str() + "EditField"), nullptr);
        UiTextField& field = *imp.editField;
        field.addKeyEnterCb(&imp.fieldEnter);
        field.addKeyPressCb(&imp.fieldKeyPress);
        field.addKbdFocusOutCb(&imp.fieldFocusOut);
        field.addKbdFocusInCb(&imp.fieldFocusIn);
        field.addHotkeyCb(&imp.hotkey);
        field.addUnMapCb(&imp.fieldUnmap);
        field.setFilter(RefusedCharacters);
        if (!imp.fontName.empty())
            field.setFont(imp.fontName);
    } else {
        parent->addChild(imp.editField);
    }
    UiTextField& field = *imp.editField;
    field.addClientData(RCShdPtr<RCObject>(this));
    field.setRect(getRect());
    field.show();
    UiFocusKeyboard::getInstance().setFocus(&field);
    hide();
    // The field takes the click that led here, so its edit starts as if it had been clicked.
    EvPointerButtonDownEvent down;
    down.setOrigin(field.getScreenRect().getMin());
    down.setCoord(getScreenCoord());
    down.setTriggerButton(1);
    field.arm(down);
    EvPointerButtonUpEvent up(down);
    field.disarm(up);
    field.setString(LiStringUtil::convertNb(getDisplayValue()).c_str());
    field.highlightAll();
}

void UiValueEditor::putFieldAway() {
    UiValueEditorImp& imp = *_imp;
    if (!imp.editField)
        return;
    // The field leaves the tree but the editor keeps it for the next edit.
    RCShdPtr<UiTextField> const field = imp.editField;
    field->removeClientData(RCShdPtr<RCObject>(this));
    field->hide();
    if (UiContainer* parent = field->getParent())
        parent->removeChild(field);
}

void UiValueEditor::showValueEditor() {
    _imp->inEdit = false;
    show();
    // The focus comes back before the field goes, so the field sees its focus-out. An editor
    // that takes no keyboard focus leaves none: the field must not keep it out of the tree.
    UiFocusKeyboard& keyboard = UiFocusKeyboard::getInstance();
    keyboard.setFocus(this);
    if (_imp->editField && keyboard.getFocus() == _imp->editField.get())
        keyboard.setFocus(static_cast<UiWidget*>(nullptr));
    putFieldAway();
}

void UiValueEditor::commitField(bool moveFocus) {
    UiValueEditorImp& imp = *_imp;
    imp.inEdit = false;
    // Text that is no number reads as 0; the range clamps what it must. A number too large for
    // a double reads as an infinity: a clamped range takes its limit, an unclamped one keeps its
    // value, as no number it could hold was typed.
    double const typed = std::atof(imp.editField->getString().c_str());
    if (std::isfinite(typed) || isValueClamped())
        setDisplayValue(typed, true);
    if (moveFocus) {
        showValueEditor();
    } else {
        show();
        putFieldAway();
    }
    EvDefaultEvent done;
    activate(done);
}

void UiValueEditor::onFieldEnter(EvEvent&) {
    if (!_imp->inEdit)
        return;
    commitField(true);
    UiFocusPointer::getInstance().updateFocus(this);
}

void UiValueEditor::onFieldKeyPress(EvEvent& event) {
    auto* key = evCast<EvKeyEvent>(event);
    UiTextField* field = _imp->editField.get();
    if (!key || !field || key->getKeyboardState().getState() != 0)
        return;
    if (key->getTriggerKey() == 15) {
        if (_imp->inEdit)
            showValueEditor();
    } else if (key->getTriggerKey() == 79) {
        // A minus sign stands first, over the whole text, or right after an 'e'.
        int const cursor = field->getCursorPos();
        LiString const text = field->getString();
        bool const refused = cursor != 0 && !field->isAllHighlighted() &&
                             text.str()[static_cast<std::size_t>(cursor) - 1] != 'e';
        field->setFilter(refused ? RefusedWithMinus.c_str() : RefusedCharacters);
    }
}

void UiValueEditor::onFieldFocusIn(EvEvent&) {
    callPreEditCb();
    if (_imp->hotkeysActive)
        return;
    _imp->hotkeysActive = true;
    UiHotkeyRegistry& registry = UiHotkeyRegistry::getInstance();
    for (int entry : StepHotkeys::get())
        if (entry != 0)
            registry.addHotkeyHandler(entry, &_imp->hotkey);
}

void UiValueEditor::onFieldFocusOut(EvEvent& event) {
    UiValueEditorImp& imp = *_imp;
    callPostEditCb();
    // Focus went elsewhere in the middle of an edit: what was typed counts.
    if (imp.inEdit)
        commitField(false);
    if (imp.hotkeysActive) {
        imp.hotkeysActive = false;
        UiHotkeyRegistry::getInstance().removeHotkeyHandler(&imp.hotkey);
    }
    if (!imp.inEdit)
        imp.focusOutClients.call(event);
}

// --- keys ------------------------------------------------------------------------------------

void UiValueEditor::onKeyPress(EvEvent& event) {
    auto* key = evCast<EvKeyEvent>(event);
    if (key && (key->getTriggerKey() == 11 || key->getTriggerKey() == 46) && !_imp->inEdit)
        editMode();
}

void UiValueEditor::onKbdFocusIn(EvEvent& event) {
    if (!_imp->inEdit)
        _imp->focusInClients.call(event);
}

void UiValueEditor::onKbdFocusOut(EvEvent& event) {
    if (!_imp->inEdit)
        _imp->focusOutClients.call(event);
}

void UiValueEditor::onHotkey(EvEvent& event) {
    auto* hotkey = evCast<EvHotkeyEvent>(event);
    if (!hotkey || isLocked() || hotkey->isProcessed())
        return;
    UiValueEditorImp& imp = *_imp;
    StepHotkeys const& keys = StepHotkeys::get();
    int const entry = hotkey->getEntry();
    if (entry == 0)
        return;
    if (entry == keys.incrementStart || entry == keys.decrementStart) {
        if (!imp.editField)
            return;
        double const direction = entry == keys.incrementStart ? 1.0 : -1.0;
        if (imp.keyRepeats == 0)
            imp.keyStep =
                std::fabs(getMaxDisplayValue() - getMinDisplayValue()) > 1.0 ? 1.0 : imp.increment;
        setDisplayValue(getDisplayValue() + direction * imp.keyStep, true);
        imp.editField->setString(LiStringUtil::convertNb(getDisplayValue()).c_str());
        imp.keyRepeats += 1;
        // Held longer, the steps grow.
        if (imp.keyRepeats % imp.keyAccelEvery == 0)
            imp.keyStep *= imp.keyAccelFactor;
        hotkey->setProcessed();
    } else if (entry == keys.incrementEnd || entry == keys.decrementEnd) {
        imp.keyRepeats = 0;
        activate(event);
        hotkey->setProcessed();
    }
}

// --- drawing ---------------------------------------------------------------------------------

void UiValueEditor::onUserDraw(EvEvent&) {
    if (SmContext* context = SmContext::getCurrentContext())
        context->applyStateObject(getDrawState(DrawStateByOpacity));
    GeRectangle<int> const canvas = getCanvas();
    if (_scrollHeight >= 0 && _scrollX >= 0) {
        SmGl::color3fv(CoUtils::calcLuminance(getCurrentBackground(), 0.75f).data());
        SmGl::begin(Gl::POLYGON);
        SmGl::vertex2i(canvas.x1, canvas.y1);
        SmGl::vertex2i(_scrollX + 1, canvas.y1);
        SmGl::vertex2i(_scrollX + 1, canvas.y1 + _scrollHeight);
        SmGl::vertex2i(canvas.x1, canvas.y1 + _scrollHeight);
        SmGl::end();
    }
    // Only an unclamped value can stand outside its limits.
    CoRgbColor const& color = !isEnabled() ? getInactiveForeground()
                              : (getValue() < getMinValue() || getValue() > getMaxValue())
                                  ? _imp->outColor
                                  : getForeground();
    SmGl::color3fv(color.data());
    drawLabel(0, 0);
}

void UiValueEditor::drawLabel(int x, int y) {
    if (!_label.getFont())
        return;
    GeRectangle<int> const canvas = getCanvas();
    _label.draw(canvas.x1 + x, canvas.y1 + y);
}

void UiValueEditor::drawIndicator(int x, int y0, int y1,
                                  CoRgbColorTyped<float> const& color) const {
    SmGl::color3fv(color.data());
    SmGl::recti(x - 1, y0, x + 2, y1);
}

// --- the calculatable ------------------------------------------------------------------------

RttiType<WidgetRttiType> const& UiValueEditor::getNodeType() const {
    return UiWidgetTypes::ValueEditor::getType();
}

void UiCalculatableValueEditor::setValue(double value) {
    if (_editor)
        _editor->setUiValue(value);
}

double UiCalculatableValueEditor::getValue() const {
    return _editor ? _editor->getDisplayValue() : 0.0;
}

GeRectangle<int> UiCalculatableValueEditor::getScreenRectangle() const {
    if (!_editor)
        return {};
    GePoint2<int> const corner = _editor->getScreenCoord();
    GeRectangle<int> const& rect = _editor->getRect();
    return GeRectangle<int>::fromSize(corner.x, corner.y, rect.width(), rect.height());
}

RCShdPtr<UiLabelHandler const> UiCalculatableValueEditor::getLabelHandler() const {
    return _editor ? _editor->getLabelHandler() : nullptr;
}

} // namespace Zr
