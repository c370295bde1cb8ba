// UiWidgetAdapter: the plug-in interface of a widget. Each operation of PiWidget forwards to the
// widget it was made for; getUiWidget is the way back to the toolkit's widget.
#pragma once

#include "piWidget.h"

namespace Zr {

class UiContainer;
class UiWidget;

// Lifetime. An adapter counts as a reference to its widget, so an interface that a plug-in keeps
// keeps the widget object alive (not its place in a tree). The one exception is the interface a
// container stores for itself (UiContainer::setInterface): the container holds that adapter,
// and the adapter's reference is handed back to the container while it is stored, so that the
// pair is no cycle. Such an adapter lives as long as the container, or longer when a plug-in
// keeps it. When the container's destruction begins (before its destroy callbacks run) the
// adapter is detached: getUiWidget returns null, commands do nothing, queries answer false or
// "", and isSame is false.
class UiWidgetAdapter : public virtual PiWidget {
public:
    // Fails the assertion "!_widget.isNull()" for a null widget.
    explicit UiWidgetAdapter(RCShdPtr<UiWidget> const& widget);

    // Null once a container's stored adapter outlived its container.
    RCShdPtr<UiWidget> getUiWidget() const;
    // Whether this adapter forwards to `widget`, without taking a reference to it.
    bool adapts(UiWidget const* widget) const { return _widget.get() == widget; }

    void changeResource(std::string const& text) override;
    void display(bool on) override;
    void show() override;
    void hide() override;
    bool isDisplayed() const override;
    bool isMapped() const override;
    void enable(bool enabled) override;
    bool isEnabled() const override;
    void lock() override;
    void unlock() override;
    bool isLocked() const override;
    bool isInside(GePoint2<int> const& p) const override;
    bool isOpaque() const override;
    // True when `other` is an adapter of the same widget.
    bool isSame(RCShdPtr<PiWidget const> const& other) const override;
    std::string getName() const override;
    void setName(std::string const& name) override;
    // Types 0 to 22 go to the widget's add...Cb and remove...Cb of the same event; any other
    // value does nothing.
    void addCallback(EventType type, CbHandler<EvEvent>* handler) override;
    void removeCallback(EventType type, CbHandler<EvEvent>* handler) override;

protected:
    ~UiWidgetAdapter() override;
    // The widget; null once detached.
    UiWidget* widget() const { return _widget.get(); }

private:
    friend class UiContainer;
    // Called by a container that stores this adapter of itself: the adapter's reference is
    // handed back (the container stays counted by its other holders), or taken again when the
    // container lets the adapter go.
    void giveBackReference();
    void takeBackReference();
    // Called by the dying container whose reference was handed back: forgets the pointer
    // without counting it down.
    void detach();

    RCBasePtr<UiWidget> _widget;
};

} // namespace Zr
