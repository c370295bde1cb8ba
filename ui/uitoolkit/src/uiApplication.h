// UiApplication: the single owner of the event loop. It drains WsEventQ in slices of a display
// period, filters and dispatches each event to its window, and repaints damaged windows once
// per turn. Also here: tooltip timing as the loop drives it, cursors and loop statistics.
#pragma once

#include "zrBase.h"

#include "uiCalculator.h"

#include "lkSingleton.h"
#include "wsWindow.h"

#include <deque>
#include <map>
#include <mutex>
#include <unordered_map>
#include <vector>

namespace Zr {

class MtAlarmHandle;
class UiGrab;
class UiResTable;
class UiTransporter;
class UiWidget;
class UiWindow;
class WsWinMgr;
class OsFilePath;

// What the loop needs to know of the tooltip machinery. Until tooltips exist the default says
// that tooltips are off and none is displayed; tests and the tooltip server install their own.
class UiTooltipHooks {
public:
    virtual ~UiTooltipHooks() = default;
    virtual bool areTooltipsOn() const { return false; }
    virtual bool isDisplayed() const { return false; }
    // Screen region of the tooltip on display, in window coordinates.
    virtual GeRectangle<int> getRegion() const { return {}; }
    // A widget that keeps a tooltip open while the pointer is on it.
    virtual bool isAnchor(UiWidget*) const { return false; }
    // A widget that is part of a tooltip itself.
    virtual bool isTooltipWidget(UiWidget*) const { return false; }
    virtual void show(RCShdPtr<UiWidget> const& /*target*/, GePoint2<int> const& /*pos*/) {}
    virtual void hide() {}
};

// Posted by the tooltip alarm, or at once when a tooltip closed a moment ago: runs on the
// loop's thread and shows the tooltip of `target` at `pos`.
class UiShowTooltipRequest : public EvRequestEvent {
public:
    ZR_EVENT_CLASS(UiShowTooltipRequest)
    UiShowTooltipRequest(RCShdPtr<UiWidget> target, GePoint2<int> const& pos);
    ~UiShowTooltipRequest() override;
    UiShowTooltipRequest(UiShowTooltipRequest const&);
    UiShowTooltipRequest& operator=(UiShowTooltipRequest const&) = delete;
    void execute() override;
    RCShdPtr<UiWidget> const& getTarget() const { return _target; }
    GePoint2<int> getPos() const { return _pos; }

private:
    RCShdPtr<UiWidget> _target;
    GePoint2<int> _pos;
};

class UiHideTooltipRequest : public EvRequestEvent {
public:
    ZR_EVENT_CLASS(UiHideTooltipRequest)
    void execute() override;
};

class UiApplication {
public:
    // Asked before the application exits; false refuses the exit.
    class ExitHandler {
    public:
        virtual ~ExitHandler() = default;
        virtual bool canExit() = 0;
    };

    using WindowTable = std::unordered_map<WsWindow*, UiWindow*>;

    static UiApplication& getInstance();
    // Whether the instance exists, without creating it.
    static bool isInit();

    // --- the loop -------------------------------------------------------------------------
    void messageLoop();
    // Runs turns until one of the flags is set. Modal boxes pass flags of their own; an exit
    // of the application still ends the nested loop.
    void localMessageLoop(bool const volatile* exitLoopFlag, bool volatile* exitApp);
    // Posts WsExitEvent(1): ends the loop without asking the exit handlers.
    void exitLoop();
    // Both hand the event to WsEventQ; callable from any thread.
    void postEvent(OPtr<EvEvent> event);
    void postRequest(OPtr<EvRequestEvent> request);
    // Dispatches one event as the loop does, with the application's exit flag.
    void processEvent(EvEvent& event);
    bool hasEventsPending(DtTimeIndex const& until);
    // For clients that pump by hand: the next event, with consecutive moves folded to the last.
    OPtr<EvEvent> getNextEvent(DtTimeIndex const& until);
    void setMoveCompression(bool on) { _moveCompression = on; }
    bool getMoveCompression() const { return _moveCompression; }
    void setAllowDoubleDownEvent(bool allow) { _allowDoubleDown = allow; }
    bool getAllowDoubleDownEvent() const { return _allowDoubleDown; }
    // Folds each run of consecutive pointer moves of `events` into its last move, which then
    // carries the whole path in its compressed data.
    static void compressPointerMoves(std::deque<OPtr<EvEvent>>& events);
    bool isExitRequested() const { return _exitRequested; }
    bool isExitDone() const { return _exitDone; }

    // A handler that sees every event ahead of the button filter; processed ends the dispatch.
    void grabEventLoop(CbHandler<EvEvent>* handler) { _eventLoopGrab = handler; }
    void releaseEventLoop() { _eventLoopGrab = nullptr; }
    CbHandler<EvEvent>* getEventLoopGrab() const { return _eventLoopGrab; }
    void addMainHandler(CbHandler<EvEvent>* h) { _mainHandlers.addHandler(h); }
    void removeMainHandler(CbHandler<EvEvent>* h) { _mainHandlers.removeHandler(h); }
    // Called after a turn in which a window drew, with the display's frame counter.
    void addCallback(CbHandler<DtTimeIndex const>* h) { _callbacks.addHandler(h); }
    void removeCallback(CbHandler<DtTimeIndex const>* h) { _callbacks.removeHandler(h); }
    // Called when messageLoop starts.
    void addInitializeCb(CbHandler<CbEmptyType>* h) { _initializeCbs.addHandler(h); }
    void removeInitializeCb(CbHandler<CbEmptyType>* h) { _initializeCbs.removeHandler(h); }
    // Called with a WsWindowCloseEvent when a secondary window goes.
    void addWindowCloseHandler(CbHandler<EvEvent>* h) { _windowCloseHandlers.addHandler(h); }
    void removeWindowCloseHandle(CbHandler<EvEvent>* h) { _windowCloseHandlers.removeHandler(h); }

    static void addExitHandler(ExitHandler* handler);
    static void removeExitHandler(ExitHandler* handler);
    // Asks every exit handler; false at the first that refuses.
    static bool askExitHandlers();

    // --- windows --------------------------------------------------------------------------
    void addWindow(WsWindow* window, UiWindow* uiWindow);
    void removeWindow(WsWindow* window);
    // Drops every trace of a window that is being destroyed, without close handlers or exit.
    void forgetWindow(UiWindow* uiWindow);
    // The main window asks the exit handlers and ends the loop; any other window is removed.
    void closeWindow(WsWindow* window);
    WindowTable const& getWindowTable() const { return _windows; }
    UiWindow* getWindowRef(WsWindow* window) const;
    UiWindow* getWindowRef(WsWindowId id) const;
    void setMainWindow(UiWindow* window) { _mainWindow = window; }
    UiWindow* getMainWindow() const { return _mainWindow; }
    RCShdPtr<UiWindow> const& getCurrentWindow() const { return _currentWindow; }
    void updateCurrentWindow(UiWindow* window);
    void clearCurrentWindow();
    void setKeyAutoRepeat(bool on);

    // --- tooltips -------------------------------------------------------------------------
    void showTooltip(bool force);
    void hideTooltip();
    // The hooks stay owned by the caller; null restores the default (tooltips off).
    static void setTooltipHooks(UiTooltipHooks* hooks);
    static UiTooltipHooks& getTooltipHooks();
    RCShdPtr<UiWidget> getTooltipTarget() const;
    GePoint2<int> getTooltipPos() const;
    RCShdPtr<MtAlarmHandle> const& getTooltipAlarm() const { return _tooltipAlarm; }
    double getLastTooltipHide() const { return _lastTooltipHide; }

    // --- resources ------------------------------------------------------------------------
    void loadSystemResources(LiString const& fileName);
    void loadSystemResources(OsFilePath const& path);
    UiResTable const& getSystemResources() const { return *_systemResources; }

    // --- cursors --------------------------------------------------------------------------
    // Shows `cursor` in every window.
    void setCursor(RCShdPtr<WsCursor> const& cursor);
    // The first call in the process puts the Dance cursor on the override stack; every later
    // call pops the top and shows what is then in force.
    void resetCursor();
    bool hasOverrideCursor() const { return !_overrideCursors.empty(); }
    void pushOverrideCursor(RCShdPtr<WsCursor> const& cursor);
    void popOverrideCursor();
    void replaceOverrideCursor(RCShdPtr<WsCursor> const& cursor);

    // --- drag and drop --------------------------------------------------------------------
    // The transporters of the held drag and of pick and stick, made with the application and
    // used drag after drag.
    RCShdPtr<UiTransporter> const& getTransporter() const { return _transporter; }
    RCShdPtr<UiTransporter> const& getTransporterPnS() const { return _transporterPnS; }
    // A transporter records itself while its drag runs; deregistering another one does nothing.
    void registerTransporter(UiTransporter* transporter);
    void deregisterTransporter(UiTransporter* transporter);
    // The transporter of the drag that runs now; null between drags.
    RCShdPtr<UiTransporter> const& getCurrentTransporter() const { return _currentTransporter; }

    // --- floating handlers ----------------------------------------------------------------
    void registerFloatingHandlerPopupCb(LiString const& name, CbHandler<EvEvent>* handler);
    void unregisterFloatingHandlerPopupCb(LiString const& name);
    // Calls the handler registered under `name`; false if there is none.
    bool popupFloatingHandler(LiString const& name, EvEvent& event);

    // --- calculator -----------------------------------------------------------------------
    // The application's calculator; the toolkit only opens it on a value.
    void setCalculator(RCShdPtr<UiCalculator> const& calculator) { _calculator = calculator; }
    RCShdPtr<UiCalculator> const& getCalculator() const { return _calculator; }
    // Opens the installed calculator on `calculatable` (which may be null); nothing without one.
    void popupCalculator(UiCalculatable* calculatable, UiCalculator::PopupMode mode) {
        if (_calculator)
            _calculator->popup(calculatable, mode);
    }

    // --- statistics -----------------------------------------------------------------------
    // Records the queue's waiting count and the processed count, and the main window's timings.
    void snapStatistics();
    int getProcessedEvents() const { return _processedEvents; }
    int getLastWaitingEvents() const { return _lastWaitingEvents; }
    void setPointerFocusDuration(double seconds) { _pointerFocusDuration = seconds; }
    double getPointerFocusDuration() const { return _pointerFocusDuration; }

    // Installed as the process-wide EvEventManager: forwards requests to WsEventQ.
    class EventManager;

private:
    friend class LkSingleton<UiApplication>;
    UiApplication();
    ~UiApplication();

    // The dispatch of one event, in the loop's fixed order.
    void dispatch(EvEvent& event, bool volatile* exitApp);
    void handleTooltip(EvEvent& event);
    // The press and release filter; false drops the event.
    bool filterButtons(EvEvent& event);
    bool anyExitFlag(bool const volatile* exitLoopFlag, bool volatile const* exitApp) const;
    // Redraws every window of the table; returns how many drew.
    int redrawWindows();
    void applyTopCursor();
    void registerTooltipAlarm();
    void setTooltipTarget(RCShdPtr<UiWidget> const& target);
    void onTooltipAlarm();
    // The statistics flush: runs at messageLoop and re-posts itself every 10 s of MSC.
    void flushStatistics();

    WindowTable _windows;
    UiWindow* _mainWindow = nullptr;
    WsWinMgr* _winMgr;
    bool volatile _exitRequested = false;
    bool volatile _exitDone = false;
    CbHandler<EvEvent>* _eventLoopGrab = nullptr;
    CbDispatcher<EvEvent> _mainHandlers;
    OPtr<EvEvent> _pendingEvent;
    bool _moveCompression;
    bool _allowDoubleDown = false;
    RCShdPtr<UiWindow> _currentWindow;
    RCShdPtr<UiTransporter> _transporter;
    RCShdPtr<UiTransporter> _transporterPnS;
    RCShdPtr<UiTransporter> _currentTransporter;
    UPtr<UiResTable> _systemResources;
    std::vector<RCShdPtr<WsCursor>> _overrideCursors;
    double _pointerFocusDuration = 0.5;
    CbDispatcher<DtTimeIndex const> _callbacks;
    CbDispatcher<CbEmptyType> _initializeCbs;
    CbDispatcher<EvEvent> _windowCloseHandlers;
    int _processedEvents = 0;
    std::map<LiString, CbHandler<EvEvent>*> _floatingHandlers;
    RCShdPtr<MtAlarmHandle> _tooltipAlarm;
    // Guards target and position, which the alarm thread reads when it posts the request.
    mutable std::mutex _tooltipMutex;
    RCShdPtr<UiWidget> _tooltipTarget;
    GePoint2<int> _tooltipPos;
    double _lastTooltipHide = -100.0;
    double _tooltipDelay;
    double _tooltipRetriggerThreshold;
    CbFunction<UiGrab const*> _grabClosesTooltip;
    // Ours, not the handle's: a one-shot alarm leaves the manager when it fires, yet for the
    // tooltip rules it stays registered until it is deregistered here.
    bool _tooltipAlarmRegistered = false;
    UPtr<EventManager> _eventManager;
    // When the statistics were last flushed, in seconds; negative before the first look.
    int _flushStatsType = 0;
    bool _flushPending = false;
    int _lastWaitingEvents = 0;
    std::vector<std::pair<WsWindow*, UiWindow*>> _redrawList;
    RCShdPtr<UiCalculator> _calculator;
};

} // namespace Zr
