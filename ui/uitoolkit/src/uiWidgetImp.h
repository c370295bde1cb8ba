// UiWidgetImp: the rarely touched state of a UiWidget (callback dispatchers, parent and window
// links, marks, constraint, drag and drop, tooltip data). It is also the widget's grab handler.
#pragma once

#include "uiDragAndDrop.h"
#include "uiGestureRecogniser.h"
#include "uiGrabHandler.h"
#include "uiMarkedRect.h"
#include "uiWidget.h"
#include "wsCursor.h"

#include <array>
#include <cstdint>
#include <list>
#include <string>
#include <utility>
#include <vector>

namespace Zr {

class UiWidgetImp : public UiGrabHandler {
public:
    // The widget's callback lists, in this order.
    enum Dispatcher : unsigned char {
        Destroy,
        Disable,
        Enable,
        Lock,
        Unlock,
        Map,
        Unmap,
        FocusIn,
        FocusOut,
        Resize,
        Reposition,
        Arm,
        Disarm,
        Mmove,
        GrabAcquired,
        GrabLost,
        KeyPress,
        KeyRelease,
        InputChar,
        KbdFocusIn,
        KbdFocusOut,
        Activate,
        Hotkey,
        UserDraw,
        Scroll,
        Tooltip,
        DispatcherCount
    };

    explicit UiWidgetImp(UiWidget* widget);
    ~UiWidgetImp() override;

    // Most widgets subscribe to few of their lists, so a list exists only once a handler has
    // been added to it; firing a list that doesn't exist does nothing.
    void addHandler(Dispatcher d, CbHandler<EvEvent>* h);
    void insertHandler(Dispatcher d, CbHandler<EvEvent>* h);
    void removeHandler(Dispatcher d, CbHandler<EvEvent>* h);
    void fire(Dispatcher d, EvEvent& event);
    // The list, or null when no handler was ever added to it.
    CbDispatcher<EvEvent>* findDispatcher(Dispatcher d) const;
    int getNbHandlers(Dispatcher d) const;

    // What the destructor does before the members go: phase 6, hotkeys, the destroy callbacks,
    // grabs and focus. The widget's destructor runs it while the widget is still whole.
    void teardown();

    // UiGrabHandler: events captured by a grab go through the widget's own dispatch.
    void processEvent(EvEvent& event) override;
    GePoint2<int> getProcessOrigin() const override;
    std::string getHandlerName() const override;

    UiWidget* _widget;
    UiContainer* _parent = nullptr;

private:
    std::vector<std::pair<Dispatcher, UPtr<CbDispatcher<EvEvent>>>> _dispatchers;

public:
    RCShdPtr<UiDragAndDrop> _dnd;
    OPtr<UiGestureRecogniser> _dragRecogniser;
    UiMarkedRectList _marks;
    // The place in the container: the list node (valid while listed), a key that orders the
    // children bottom to top without walking the list, and whether this widget is in the
    // container's list of children with damage to draw.
    std::list<RCShdPtr<UiWidget>>::iterator _node;
    std::int64_t _stackKey = 0;
    bool _listed = false;
    bool _damageListed = false;
    bool _displayed = true;
    bool _mapped = false;
    bool _locked = false;
    bool _drawCollapsing = false;
    bool _hasConstraint = false;
    bool _tornDown = false;
    int _initPhase = 0;
    // The container's layout count when no sibling above was found over this widget.
    std::uint32_t _clearAboveEpoch = 0;
    // What few widgets use, made on first use, so that a plain widget carries none of it: the
    // constraint and its siblings (one per edge, X1, Y1, X2, Y2), client data, tooltip texts,
    // the name of the table it was read from, and its own cursor.
    struct Rare {
        UiConstraint _constraint;
        std::array<RCBasePtr<UiWidget>, 4> _siblings;
        std::vector<RCShdPtr<RCObject>> _clientData;
        std::string _tooltipId;
        std::string _defaultTooltip;
        std::string _resTableName;
        RCShdPtr<WsCursor> _cursor;
    };
    Rare& rare() {
        if (!_rare)
            _rare = std::make_unique<Rare>();
        return *_rare;
    }
    // For reading: an empty record stands in until one is made.
    Rare const& rareOrNone() const;
    UPtr<Rare> _rare;
    bool _tooltipEnabled = true;
};

} // namespace Zr
