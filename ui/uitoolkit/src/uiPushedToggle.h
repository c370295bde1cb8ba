// UiPushedToggle: a two-state button drawn pushed in when on, with its own foreground colours
// for each state, and a shaded or top-shaded background.
#pragma once

#include "uiDualState.h"

namespace Zr {

class UiPushedToggle : public UiDualState {
public:
    static RCShdPtr<UiPushedToggle> create(UiContainer* parent, LiString const& name,
                                           UiResTable const* table = nullptr);

    virtual void setShadedBackground(bool shaded);
    // Shades only the top of the background; a full shade wins when both are set.
    virtual void setTopShadedBackground(bool shaded);
    bool isShadedBackground() const { return _shaded; }
    bool isTopShadedBackground() const { return _topShaded; }

    // Forward to the context handlers: a right press offers the context menu of the value.
    void addContextMenuCb(CbHandler<RCShdPtr<UiCalculatable> const>* h) override;
    void removeContextMenuCb(CbHandler<RCShdPtr<UiCalculatable> const>* h) override;
    // Knows "OnColor", "OnForegroundColor", "OffForegroundColor" and
    // "DisabledForegroundColor", then the widget's colours. Always redraws.
    void setColor(LiString const& name, CoRgbColor const& color) override;
    CoRgbColor getColor(LiString const& name) const override;

protected:
    UiPushedToggle(UiContainer* parent, LiString const& name);
    ~UiPushedToggle() override;

    void setDefaultResources(UiResSet& set) override;
    void stateChanged() override;
    void drawBackground(GeRectangle<int> const& r, GePoint2<int> const& origin) override;
    // What the toggle shows on its background: the current label; the icon variant draws its
    // icon.
    virtual void drawContent();

private:
    void userDraw(EvEvent& event);

    struct Colors {
        CoRgbColor on;
        CoRgbColor onForeground;
        CoRgbColor offForeground;
    } _colors;
    CbMethod<UiPushedToggle, EvEvent> _userDraw;
    CoRgbColor _disabledForeground;
    bool _shaded = true;
    bool _topShaded = false;
};

} // namespace Zr
