// UiValueEditor: the numeric field. It shows a number as text on a flat field, with an optional
// position bar along its lower edge. Dragging sideways changes the number, a plain click turns
// the field into a UiTextField for typing, Shift-click opens the application's calculator,
// Control-click resets the value, and held hotkeys step it, faster the longer they are held.
#pragma once

#include "uiCalculatable.h"
#include "uiLabelHandler.h"
#include "uiRange.h"
#include "uiString.h"

#include <string>

namespace Zr {

class UiMotionHandler;
class UiResFont;
class UiValueEditorImp;

class UiValueEditor : public UiRange {
public:
    // Whether the position bar shows: 0 when the maximum is small enough to make it useful,
    // 1 never, 2 always.
    enum IndicatorState { IndicatorAutomatic = 0, IndicatorOff = 1, IndicatorOn = 2 };

    static RCShdPtr<UiValueEditor> create(UiContainer* parent, LiString const& name,
                                          UiResTable const* table = nullptr);

    // Prints `value` with the printf `format` (one floating conversion) in at most seven
    // characters: very large, very small and negative millions go to the exponent form with as
    // many decimals as fit. The result goes through `stringFormat` (one %s conversion), which
    // by default cuts it to seven characters. A format that does not hold exactly the one
    // conversion it needs is replaced by the default ("%.7g", "%.7s").
    static std::string formatString(double value, std::string const& format,
                                    std::string const& stringFormat);
    // From the last 'e' on, drops every '+' and every '0' up to the first digit 1 to 9:
    // "1.500000e+007" gives "1.500000e7".
    static std::string filterExponent(std::string const& text);
    // Whether `format` holds exactly one floating conversion (and no other but "%%"), or
    // exactly one string conversion: the formats the editor accepts.
    static bool isNumberFormat(std::string const& format);
    static bool isTextFormat(std::string const& format);

    // --- value ----------------------------------------------------------------------------
    // The value as the user would set it: display value with notification, keyboard focus to
    // the editor, then activate.
    void setUiValue(double value);
    // The step of one pixel of drag.
    void setIncrement(double increment);
    double getIncrement() const;
    // Runs the reset handlers (the built-in one sets the default value); a locked editor
    // ignores it.
    void resetValue();
    // Puts a client's handler in place of the built-in reset.
    void setResetValueCb(CbHandler<CbEmptyType>* handler);

    // --- look -----------------------------------------------------------------------------
    // A format that isNumberFormat refuses is reported and the old one kept.
    virtual void setFormat(char const* format);
    std::string const& getFormat() const;
    // The text format the number is shown through (one %s); refused formats are reported.
    void setString(char const* stringFormat);
    std::string const& getString() const;
    // Replaces the printf formatting; null gives it back.
    void setLabelHandler(RCShdPtr<UiLabelHandler const> const& handler);
    RCShdPtr<UiLabelHandler const> const& getLabelHandler() const;
    UiString const& getLabel() const { return _label; }
    void setFont(LiString const& fontName);
    void setIndicatorState(IndicatorState state);
    IndicatorState getIndicatorState() const;
    // The right end of the position bar, -1 for an empty range; the bar's height, -1 hidden.
    int getScrollX() const { return _scrollX; }
    int getScrollHeight() const { return _scrollHeight; }
    int computeScrollX(double displayValue) const;
    void setColor(LiString const& name, CoRgbColor const& color) override;
    CoRgbColor getColor(LiString const& name) const override;

    // --- interaction ----------------------------------------------------------------------
    // Ownership passes to the editor, which then keeps it whatever the user setting says.
    void setMotionHandler(OPtr<UiMotionHandler> handler);
    UiMotionHandler* getMotionHandler() const;
    // When off, a plain click does not open the text field.
    void setModifierKeyEnabled(bool enabled);
    bool isModifierKeyEnabled() const;
    virtual bool isEditFieldMode() const;
    // Turns the editor into its text field, the present value selected.
    virtual void editMode();
    // Gives the editor its place back from the text field; the typed text is dropped.
    virtual void showValueEditor();

    // Called with the calculatable on a press of the context button.
    void addContextMenuCb(CbHandler<RCShdPtr<UiCalculatable> const>* handler);
    void removeContextMenuCb(CbHandler<RCShdPtr<UiCalculatable> const>* handler);
    // What the calculator and the context menu reach; each editor starts with its own.
    void setCalculatable(RCShdPtr<UiCalculatable> const& calculatable);
    RCShdPtr<UiCalculatable> const& getCalculatable() const;

    // The clients see one focus-in and one focus-out for the editor and its text field
    // together, not the hand-over between them.
    void addKbdFocusInCb(CbHandler<EvEvent>* h) override;
    void addKbdFocusOutCb(CbHandler<EvEvent>* h) override;
    void removeKbdFocusInCb(CbHandler<EvEvent>* h) override;
    void removeKbdFocusOutCb(CbHandler<EvEvent>* h) override;
    // The editor's own drawing stays whatever is asked.
    void removeUserDrawCb(CbHandler<EvEvent>* h) override;

    void adjustCoords() override;
    RttiType<WidgetRttiType> const& getNodeType() const override;

    // For subclasses that draw more: the label at (x, y) plus the canvas origin, and a mark
    // three pixels wide from y0 to y1.
    void drawLabel(int x, int y);
    virtual void drawIndicator(int x, int y0, int y1, CoRgbColorTyped<float> const& color) const;

protected:
    UiValueEditor(UiContainer* parent, LiString const& name);
    ~UiValueEditor() override;

    void setDefaultResources(UiResSet& set) override;
    // Label and format strings, limits, font, default value and indicator; a value of the
    // wrong kind or count is reported and skipped. The rest goes to the range.
    void setResource(RCShdPtr<UiResource> const& resource) override;
    void postInit() override;
    // The background follows the armed state.
    void stateChanged() override;
    bool hasStateChangedHook() const override { return true; }
    void updateValue() override;
    void updateRange() override;
    virtual void updateScrollLine(double displayValue);

private:
    friend class UiValueEditorImp;
    // setFont's work with the font already read: a resource's font is applied as it stands.
    void applyFont(UiResFont const& font);
    void onArm(EvEvent& event);
    void onDisarm(EvEvent& event);
    void onMmove(EvEvent& event);
    void onKeyPress(EvEvent& event);
    void onKbdFocusIn(EvEvent& event);
    void onKbdFocusOut(EvEvent& event);
    void onUserDraw(EvEvent& event);
    void onHotkey(EvEvent& event);
    void onFieldEnter(EvEvent& event);
    void onFieldKeyPress(EvEvent& event);
    void onFieldFocusIn(EvEvent& event);
    void onFieldFocusOut(EvEvent& event);
    void builtInReset();

    // Takes the field's text as the value and gives the editor its place back.
    void commitField(bool moveFocus);
    // Hides the field and takes it out of the parent; the editor keeps it for the next edit.
    void putFieldAway();
    void setShowBar(bool show);
    void reportBadResource(UiResource const& resource, std::string const& expected) const;

    int _scrollX = -1;
    int _scrollHeight = -1;
    UPtr<UiValueEditorImp> _imp;
    UiString _label;
    std::string _format = "%.7g";
    std::string _stringFormat = "%.7s";
};

// The calculatable every editor starts with: the calculator reads and sets the editor's display
// value and opens next to it.
class UiCalculatableValueEditor : public UiCalculatable {
public:
    // The editor is not held: it owns this object.
    explicit UiCalculatableValueEditor(UiValueEditor* editor) : _editor(editor) {}
    // The editor is going: from now on the value reads 0 and setting it does nothing.
    void detach() { _editor = nullptr; }

    void setValue(double value) override;
    double getValue() const override;
    RCShdPtr<Expression const> getExpression() const override { return nullptr; }
    bool supportsExpressions() const override { return false; }
    GeRectangle<int> getScreenRectangle() const override;
    RCShdPtr<UiLabelHandler const> getLabelHandler() const override;

private:
    UiValueEditor* _editor;
};

} // namespace Zr
