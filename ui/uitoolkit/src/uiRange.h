// UiRange: the abstract widget holding one double between two limits, with a second, "display"
// view of the same number given by a value handler. Value editors, sliders and progress bars
// derive from it.
#pragma once

#include "uiWidget.h"

namespace Zr {

class UiRangeImp;
class XmlElement;

class UiRange : public UiWidget {
public:
    // Maps the stored value to the number shown to the user and back.
    class ValueHandler : public RCObject {
    public:
        virtual double toDisplay(double value) const = 0;
        virtual double fromDisplay(double display) const = 0;
    };

    // Makes a handler from the element that describes it in a resource table.
    class ValueHandlerFactory {
    public:
        virtual ~ValueHandlerFactory() = default;
        // Raises a UiResourceEx when the element's values are unusable.
        virtual RCShdPtr<ValueHandler> create(XmlElement const& element) = 0;
    };

    // --- value ------------------------------------------------------------------------------
    double getValue() const { return _value; }
    // The value truncated toward zero.
    int getIntValue() const { return static_cast<int>(_value); }
    // Where the value lies between the limits, 0 at the minimum and 1 at the maximum; finite
    // for an empty range.
    double getRelativeValue() const;
    double getDisplayValue() const;
    double getMinValue() const { return _minValue; }
    double getMaxValue() const { return _maxValue; }
    double getMinDisplayValue() const;
    double getMaxDisplayValue() const;
    bool isValueClamped() const { return _clamped; }
    double getDefaultValue() const { return _defaultValue; }
    void setDefaultValue(double value) { _defaultValue = value; }

    // Each returns the value now stored. A value equal to the old one (almostEqual) changes
    // nothing else: no update, no callback, no redraw. With notify the value-changed
    // callbacks get a UiValueChanged holding the new value.
    double setValue(double value, bool notify);
    double setIntValue(int value, bool notify);
    double setRelativeValue(double relative, bool notify);
    double setDisplayValue(double display, bool notify);
    // As setValue, but outside the limits whatever the clamping says.
    double setValueNoClamp(double value, bool notify);

    // Reversed limits are swapped, not refused. A change of limits re-clamps the value.
    void setRange(double a, double b, bool notify);
    // A minimum above the maximum takes the maximum along; the mirror for setMaxValue.
    void setMinValue(double value, bool notify);
    void setMaxValue(double value, bool notify);
    // Turning clamping on pulls the value inside and always calls the value-changed callbacks.
    void setValueClamped(bool clamped);

    // A value from the user's hand: as setValue with notification, then the drag callbacks
    // with `event`, also when the value did not change. A locked widget ignores it.
    double dragValue(double value, EvEvent& event);
    // The same with a display value; returns the display value now stored.
    double dragDisplayValue(double display, EvEvent& event);

    // Null removes the handler. Runs updateValue and updateRange; no callback.
    void setValueHandler(RCShdPtr<ValueHandler> const& handler);
    RCShdPtr<ValueHandler> const& getValueHandler() const;

    // Each calls its callbacks with a fresh EvDefaultEvent: the first two bracket a user's
    // edit, the last two an edit made elsewhere (a calculator, an expression field).
    void callPreEditCb();
    void callPostEditCb();
    void beginExternalEdit();
    void endExternalEdit();

    // The factory a ValueHandlerResource of type `name` asks for its handler.
    static void registerValueHandlerFactory(LiString const& name,
                                            OPtr<ValueHandlerFactory> factory);

    // --- callbacks --------------------------------------------------------------------------
    void addDragCb(CbHandler<EvEvent>* h);
    void removeDragCb(CbHandler<EvEvent>* h);
    void addValueChangedCb(CbHandler<EvEvent>* h);
    void removeValueChangedCb(CbHandler<EvEvent>* h);
    void addBeginExternalEditCb(CbHandler<EvEvent>* h);
    void removeBeginExternalEditCb(CbHandler<EvEvent>* h);
    void addEndExternalEditCb(CbHandler<EvEvent>* h);
    void removeEndExternalEditCb(CbHandler<EvEvent>* h);
    void addPreEditCb(CbHandler<EvEvent>* h);
    void removePreEditCb(CbHandler<EvEvent>* h);
    void addPostEditCb(CbHandler<EvEvent>* h);
    void removePostEditCb(CbHandler<EvEvent>* h);

    RCShdPtr<PiWidget> retrieveInterface() override;
    RttiType<WidgetRttiType> const& getNodeType() const override;

protected:
    UiRange(UiContainer* parent, LiString const& name);
    ~UiRange() override;

    // "DisplayValueHandler" (a ValueHandlerResource) sets the handler; a resource of that name
    // and another kind is ignored. Everything else goes on to the widget.
    void setResource(RCShdPtr<UiResource> const& resource) override;

    // A subclass shows a new value, or new limits.
    virtual void updateValue() = 0;
    virtual void updateRange() = 0;
    // Calls the value-changed callbacks with the present value: for a subclass that reports
    // changes the setters made silently.
    void fireValueChanged();

private:
    double toDisplay(double value) const;
    double fromDisplay(double display) const;
    // Steps 2 to 5 of every setter: store, convert, and tell only of a real change.
    double storeValue(double value, bool notify);
    // Recomputes the display limits from the stored ones, swapped for a decreasing handler.
    void refreshDisplayLimits();

    UPtr<UiRangeImp> _rangeImp;

protected:
    double _value = 0.0;
    double _defaultValue = 0.0;
    double _minValue = 0.0;
    double _maxValue = 1.0;
    bool _clamped = true;
};

} // namespace Zr
