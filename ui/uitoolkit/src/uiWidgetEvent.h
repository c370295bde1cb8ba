// The events that widgets send to their clients: state and value changes, moves, resizes, map
// and unmap. Each carries the widget that sent it.
#pragma once

#include "zrBase.h"

namespace Zr {

class UiWidget;

class UiWidgetEvent : public EvEvent {
public:
    ZR_EVENT_CLASS(UiWidgetEvent)
    UiWidgetEvent() = default;
    explicit UiWidgetEvent(RCShdPtr<UiWidget> const& w);
    ~UiWidgetEvent() override;
    UiWidgetEvent(UiWidgetEvent const&);
    UiWidgetEvent& operator=(UiWidgetEvent const&);
    RCShdPtr<UiWidget> const& getWidget() const { return _widget; }
    void setWidget(RCShdPtr<UiWidget> const& w);
    void dump(std::ostream& os) const override;

private:
    RCShdPtr<UiWidget> _widget;
};

class UiStateChanged : public UiWidgetEvent {
public:
    ZR_EVENT_CLASS(UiStateChanged)
    using UiWidgetEvent::UiWidgetEvent;
    bool getState() const { return _state; }
    void setState(bool s) { _state = s; }
    void dump(std::ostream& os) const override;
    void read(std::istream& is) override;

private:
    bool _state = false;
};

// The payload shared by the events that report a widget's rectangle.
class UiRegionEvent : public UiWidgetEvent {
public:
    ZR_EVENT_CLASS(UiRegionEvent)
    using UiWidgetEvent::UiWidgetEvent;
    GeRectangle<int> const& getRegion() const { return _region; }
    void setRegion(GeRectangle<int> const& r) { _region = r; }
    void dump(std::ostream& os) const override;
    void read(std::istream& is) override;

private:
    GeRectangle<int> _region;
};

class UiReposition : public UiRegionEvent {
public:
    ZR_EVENT_CLASS(UiReposition)
    using UiRegionEvent::UiRegionEvent;
};

class UiResize : public UiRegionEvent {
public:
    ZR_EVENT_CLASS(UiResize)
    using UiRegionEvent::UiRegionEvent;
};

class UiMap : public UiWidgetEvent {
public:
    ZR_EVENT_CLASS(UiMap)
    using UiWidgetEvent::UiWidgetEvent;
};

class UiUnMap : public UiWidgetEvent {
public:
    ZR_EVENT_CLASS(UiUnMap)
    using UiWidgetEvent::UiWidgetEvent;
};

class UiValueChanged : public UiWidgetEvent {
public:
    ZR_EVENT_CLASS(UiValueChanged)
    using UiWidgetEvent::UiWidgetEvent;
    double getValue() const { return _value; }
    void setValue(double v) { _value = v; }
    void dump(std::ostream& os) const override;
    void read(std::istream& is) override;

private:
    double _value = 0;
};

} // namespace Zr
