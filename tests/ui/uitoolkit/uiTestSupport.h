// Shared helpers for the widget tests: a mapped root without a window, a widget that logs its
// callbacks, event builders, a scope that turns the UiEvents trace on, and colours by name.
#pragma once

#include "lgLog.h"
#include "lgMajorGroup.h"
#include "lgMinorGroup.h"
#include "msgBase.h"
#include "msgProtocol.h"
#include "uiArmStack.h"
#include "uiColorRegistry.h"
#include "uiContainer.h"
#include "uiLogGroups.h"
#include "uiWidget.h"

#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace Zr::UiTest {

// The registry's colour of that name.
inline CoRgbColor color(LiString const& name) {
    return UiColorRegistry::getInstance().getColor(name);
}

// A root container that is displayed and mapped, with no parent and no window: its children
// map with it, and marks stay in the widgets.
class TestRoot : public UiContainer {
public:
    static RCShdPtr<TestRoot> make(GeRectangle<int> const& rect = {0, 200, 0, 100},
                                   LiString const& name = "root") {
        RCShdPtr<TestRoot> root(new TestRoot(name));
        root->resInit(nullptr);
        root->postInit();
        root->setRect(rect, false);
        root->setDisplayed(true);
        root->UiContainer::setMap(true, false);
        root->clearMarks();
        return root;
    }
    void unmapRoot() { UiContainer::setMap(false, false); }
    void mapRoot() { UiContainer::setMap(true, false); }

protected:
    explicit TestRoot(LiString const& name) : UiContainer(nullptr, name) {}
};

// A plain widget whose callbacks append "<name> <callback>" to a shared log.
class LoggingWidget : public UiWidget {
public:
    static RCShdPtr<LoggingWidget> make(UiContainer* parent, LiString const& name,
                                        GeRectangle<int> const& rect,
                                        std::vector<std::string>* log) {
        RCShdPtr<LoggingWidget> w(new LoggingWidget(parent, name, log));
        w->resInit(nullptr);
        w->postInit();
        w->setRect(rect, false);
        w->clearMarks();
        return w;
    }
    // When set, the scroll callback marks the event processed, which stops its climb.
    bool consumeScroll = false;

    using UiWidget::setMap;

protected:
    LoggingWidget(UiContainer* parent, LiString const& name, std::vector<std::string>* log)
        : UiWidget(parent, name), _log(log) {
        auto add = [this](char const* what) {
            auto h = std::make_unique<CbFunction<EvEvent>>([this, what](EvEvent& e) {
                _log->push_back(getName().str() + " " + what);
                if (std::string(what) == "scroll" && consumeScroll)
                    e.setProcessed();
            });
            CbHandler<EvEvent>* raw = h.get();
            _handlers.push_back(std::move(h));
            return raw;
        };
        addArmCb(add("arm"));
        addDisarmCb(add("disarm"));
        addEnableCb(add("enable"));
        addDisableCb(add("disable"));
        addMapCb(add("map"));
        addUnMapCb(add("unmap"));
        addResizeCb(add("resize"));
        addScrollCb(add("scroll"));
        addMmoveCb(add("mmove"));
        addActivateCb(add("activate"));
        addDestroyCb(add("destroy"));
        addKbdFocusInCb(add("kbdFocusIn"));
        addKbdFocusOutCb(add("kbdFocusOut"));
    }

private:
    std::vector<std::string>* _log;
    std::vector<std::unique_ptr<CbFunction<EvEvent>>> _handlers;
};

inline EvPointerButtonDownEvent makeDown(unsigned button, GePoint2<int> at = {10, 5}) {
    EvPointerButtonDownEvent e;
    e.setTriggerButton(button);
    e.setPointerState(EvPointerState(button));
    e.setWCoord(at);
    return e;
}

inline EvKeyPressEvent keyPressOf(int key, unsigned modifiers = 0) {
    EvKeyPressEvent e;
    e.setTriggerKey(key);
    e.setKeyboardState(EvKeyboardState(modifiers));
    return e;
}

inline EvPointerButtonUpEvent makeUp(unsigned button, GePoint2<int> at = {10, 5}) {
    EvPointerButtonUpEvent e;
    e.setTriggerButton(button);
    e.setWCoord(at);
    return e;
}

// Turns the UiEvents trace on for a scope, creating the group if the packages didn't.
class EventTraceScope {
public:
    EventTraceScope() {
        _group = UiLogGroups::uiEvents();
        if (!_group) {
            _own =
                std::make_unique<LgMinorGroup>(LgMajorGroup::getInstanceForName("Gfx"), "UiEvents");
            _group = _own.get();
            UiLogGroups::setUiEvents(_group);
        }
        _flags = _group->getFlags();
        _group->setFlags(_flags | UiLogGroups::EventTraceMask);
    }
    ~EventTraceScope() {
        _group->setFlags(_flags);
        if (_own)
            UiLogGroups::setUiEvents(nullptr);
    }
    EventTraceScope(EventTraceScope const&) = delete;
    EventTraceScope& operator=(EventTraceScope const&) = delete;

private:
    LgMinorGroup* _group;
    std::unique_ptr<LgMinorGroup> _own;
    unsigned _flags = 0;
};

// Collects the ids of the messages shown and the log lines written while it lives, keeping
// both off the console.
class Reports {
public:
    Reports() {
        _previous = MsgProtocol::setDisplayHandler(
            [this](MsgBase const& message) { _ids.push_back(message.getId()); });
        _previousStream = LgLog::setOutputStream(&_log);
        _wasInitialized = LgLog::_initialized.exchange(true);
    }
    ~Reports() {
        LgLog::_initialized = _wasInitialized;
        LgLog::setOutputStream(_previousStream);
        MsgProtocol::setDisplayHandler(_previous);
    }
    Reports(Reports const&) = delete;
    Reports& operator=(Reports const&) = delete;
    std::vector<std::string> const& ids() const { return _ids; }
    std::string log() const { return _log.str(); }

private:
    std::vector<std::string> _ids;
    std::ostringstream _log;
    MsgProtocol::DisplayHandler _previous;
    std::ostream* _previousStream = nullptr;
    bool _wasInitialized = false;
};

} // namespace Zr::UiTest
