// UiDualState: the base of the widgets that hold one bit (toggles, labels): two labels, one for
// each state, the state itself, state and change-request callbacks, and the press and key
// logic that flips it.
#pragma once

#include "uiString.h"
#include "uiWidget.h"

namespace Zr {

class UiCalculatable;
class UiDualStateImp;

class UiDualState : public UiWidget {
public:
    static RCShdPtr<UiDualState> create(UiContainer* parent, LiString const& name,
                                        UiResTable const* table = nullptr);

    // Takes `state`; the change-request callbacks may refuse it (rejectChangeRequest), in which
    // case the state callbacks are skipped. With notify the state callbacks run. stateChanged
    // runs in every case.
    virtual void setState(bool state, bool notify = true);
    virtual bool getState() const { return _state; }
    // The context menu of a widget that offers one (a toggle button, a pushed toggle): the
    // handler joins the context handlers. Here, and so on a label, they do nothing.
    virtual void addContextMenuCb(CbHandler<RCShdPtr<UiCalculatable> const>* h);
    virtual void removeContextMenuCb(CbHandler<RCShdPtr<UiCalculatable> const>* h);
    // Called when label `id` moved or changed: redraws when it is the label of the present
    // state.
    virtual void stringChanged(int id);

    // The state callbacks get a UiStateChanged event; so do the change-request callbacks,
    // which run first and may call rejectChangeRequest.
    void addStateCb(CbHandler<EvEvent>* h);
    void removeStateCb(CbHandler<EvEvent>* h);
    void addChangeRequestCb(CbHandler<EvEvent>* h);
    void removeChangeRequestCb(CbHandler<EvEvent>* h);
    // Refuses the change being requested; a second call within the same request undoes the
    // first.
    void rejectChangeRequest();
    // A press of the context button (trigger 4) calls these handlers with the calculatable,
    // locked or not, and does nothing else; without a calculatable it does nothing at all.
    void addContextHandler(CbHandler<RCShdPtr<UiCalculatable> const>* h);
    void removeContextHandler(CbHandler<RCShdPtr<UiCalculatable> const>* h);
    // The value a context menu acts on (an input's keyframes and expression); null, the
    // default, turns the context press off.
    void setCalculatable(RCShdPtr<UiCalculatable> const& calculatable);

    // Label 0 belongs to the off state, label 1 to the on state; any other id gives label 0.
    UiString& getLabel(int id);
    UiString const& getLabel(int id) const;
    void setLabel(int id, char const* text);
    void setLabels(char const* off, char const* on);
    int getCurrentLabel() const { return _currentLabel; }
    // Chooses the label the widget draws; does not redraw.
    void setCurrentLabel(int id) { _currentLabel = id; }
    bool isStateChangedOnArm() const { return _stateChangedOnArm; }
    // True: the state flips when the pointer goes down; false: when it comes up.
    void setStateChangedOnArm(bool onArm) { _stateChangedOnArm = onArm; }
    // Gives both labels the font of that handle.
    void setFont(LiString const& fontName);

    void adjustCoords() override;
    RCShdPtr<PiWidget> retrieveInterface() override;
    RttiType<WidgetRttiType> const& getNodeType() const override;

protected:
    UiDualState(UiContainer* parent, LiString const& name);
    ~UiDualState() override;

    void setDefaultResources(UiResSet& set) override;
    // "State" (one int) sets the state with notification; the label resources go to both
    // labels; everything goes on to the widget.
    void setResource(RCShdPtr<UiResource> const& resource) override;

    // Draws `label` in `color` at the canvas origin, under the widget's draw state.
    void drawLabel(UiString const& label, CoRgbColor const& color) const;
    // Whether the pointer is on this widget.
    bool hasPointerFocusNow() const;

private:
    friend class UiDualStateImp;
    void onArm(EvEvent& event);
    void onDisarm(EvEvent& event);
    void onActivate(EvEvent& event);
    void onMmove(EvEvent& event);
    void onKeyPress(EvEvent& event);

    UPtr<UiDualStateImp> _dualImp;
    UiString _labels[2];

protected:
    bool _state = false;
    int _currentLabel = 0;
    bool _stateChangedOnArm = true;
};

} // namespace Zr
