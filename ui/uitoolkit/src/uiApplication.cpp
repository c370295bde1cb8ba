// UiApplication: the event loop, its dispatch order, the button filter, pointer-move
// compression, tooltip timing, window bookkeeping, cursors and statistics.
#include "uiApplication.h"

#include "uiFocusPointer.h"
#include "uiGrab.h"
#include "uiHotkeyRegistry.h"
#include "uiResTable.h"
#include "uiTransporter.h"
#include "uiWidget.h"
#include "uiWindow.h"
#include "uitoolkitInit.h"

#include "evEventManager.h"
#include "inPaths.h"
#include "mtAlarmManager.h"
#include "osFilePath.h"
#include "statContainer.h"
#include "statMgr.h"
#include "statResourceRegistry.h"
#include "statTypes.h"
#include "tmGfxMsc.h"
#include "wsCursorRegistry.h"
#include "wsEventQ.h"
#include "wsEvents.h"
#include "wsWinMgr.h"

#include <algorithm>
#include <iterator>
#include <typeinfo>

namespace Zr {

namespace {

std::vector<UiApplication::ExitHandler*>& exitHandlers() {
    static std::vector<UiApplication::ExitHandler*> handlers;
    return handlers;
}

UiTooltipHooks* installedHooks = nullptr;

// High-resolution seconds, the unit of the tooltip retrigger rule.
double nowSeconds() {
    return DtRefTimeFactory::getInstance().create().getSeconds();
}

} // namespace

// --- tooltip requests -----------------------------------------------------------------------

UiShowTooltipRequest::UiShowTooltipRequest(RCShdPtr<UiWidget> target, GePoint2<int> const& pos)
    : _target(std::move(target)), _pos(pos) {}
UiShowTooltipRequest::~UiShowTooltipRequest() = default;
UiShowTooltipRequest::UiShowTooltipRequest(UiShowTooltipRequest const&) = default;

void UiShowTooltipRequest::execute() {
    UiApplication::getTooltipHooks().show(_target, _pos);
}

void UiHideTooltipRequest::execute() {
    UiApplication::getTooltipHooks().hide();
}

// --- the event manager ----------------------------------------------------------------------

class UiApplication::EventManager : public EvEventManager {
public:
    explicit EventManager(UiApplication* app) : _app(app) {}
    void postRequest(OPtr<EvRequestEvent> request) override {
        _app->postRequest(std::move(request));
    }

private:
    UiApplication* _app;
};

// --- construction ---------------------------------------------------------------------------

UiApplication& UiApplication::getInstance() {
    return LkSingleton<UiApplication>::getInstance();
}

bool UiApplication::isInit() {
    return LkSingleton<UiApplication>::isInitialized();
}

UiApplication::UiApplication()
    : _winMgr(&WsWinMgr::getInstance()), _transporter(UiTransporter::create()),
      _transporterPnS(UiTransporterPnS::create()), _systemResources(std::make_unique<UiResTable>()),
      _tooltipAlarm(makeShared<MtAlarmHandle>("Tooltip (UiApplication)")),
      _eventManager(std::make_unique<EventManager>(this)) {
    _moveCompression = UiToolkitSettings::compressPointerMoves();
    _tooltipDelay = UiToolkitSettings::tooltipDelayMs() / 1000.0;
    _tooltipRetriggerThreshold =
        std::max(0.0, UiToolkitSettings::tooltipRetriggerThresholdMs() / 1000.0);
    _tooltipAlarm->setDuration(_tooltipDelay);
    _tooltipAlarm->setRequestedRepeats(0);
    _tooltipAlarm->setCallback([this](MtAlarmHandle&) { onTooltipAlarm(); });
    _grabClosesTooltip.set([this](UiGrab const*) { hideTooltip(); });
    UiGrab::pointer().registerGrabCb(&_grabClosesTooltip);
    UiGrab::keyboard().registerGrabCb(&_grabClosesTooltip);
    EvEventManager::initialize(_eventManager.get());
    _flushStatsType = StatResourceRegistry::getInstance().registerResourceType(
        "FlushStatsType", StatContainerFactory::of<StatTimeStamp>());
    TmGfxMsc::computeUstPerMsc();
}

UiApplication::~UiApplication() {
    if (_tooltipAlarmRegistered)
        MtAlarmManager::getInstance().deregisterAlarm(_tooltipAlarm);
    if (EvEventManager::getInstance() == _eventManager.get())
        EvEventManager::initialize(nullptr);
}

// --- the loop -------------------------------------------------------------------------------

void UiApplication::messageLoop() {
    _initializeCbs.call();
    WsEventQ::getInstance().start();
    _exitRequested = false;
    if (!_flushPending)
        flushStatistics();
    localMessageLoop(&_exitRequested, &_exitRequested);
}

bool UiApplication::anyExitFlag(bool const volatile* exitLoopFlag,
                                bool volatile const* exitApp) const {
    return *exitLoopFlag || *exitApp || _exitRequested || _exitDone;
}

void UiApplication::localMessageLoop(bool const volatile* exitLoopFlag, bool volatile* exitApp) {
    ZR_ASSERT(exitLoopFlag != 0);
    ZR_ASSERT(exitApp != 0);
    WsEventQ& queue = WsEventQ::getInstance();
    std::deque<OPtr<EvEvent>> events;
    while (!anyExitFlag(exitLoopFlag, exitApp)) {
        // Events get one eighth of the display period; painting gets the rest.
        std::int64_t period = TmGfxMsc::getUstPerMsc();
        DtTimeIndex now = DtRefTimeFactory::now();
        DtTimeIndex deadline = now + period / 8;
        while (!*exitLoopFlag && !*exitApp && now <= deadline) {
            queue.getAllEvents(events);
            if (_moveCompression)
                compressPointerMoves(events);
            if (events.empty())
                break;
            while (!events.empty()) {
                OPtr<EvEvent> event = std::move(events.front());
                events.pop_front();
                dispatch(*event, exitApp);
            }
            now = DtRefTimeFactory::now();
        }
        if (anyExitFlag(exitLoopFlag, exitApp))
            continue;

        TmGfxMsc::syncCurrentMsc();
        int drawn = redrawWindows();
        std::int64_t msc = TmGfxMsc::syncCurrentMsc();
        if (drawn == 0) {
            // Idle: block in the queue until an event comes or a display period passes.
            queue.wait(1, DtRefTimeFactory::now() + period);
            continue;
        }
        DtTimeIndex const frame(msc);
        _callbacks.call(frame);
    }
}

int UiApplication::redrawWindows() {
    // A redraw may add or remove windows: walk a copy and skip those gone meanwhile. The copy's
    // storage is kept from turn to turn, so an idle turn allocates nothing.
    _redrawList.assign(_windows.begin(), _windows.end());
    int drawn = 0;
    for (auto const& [os, ui] : _redrawList) {
        auto it = _windows.find(os);
        if (it == _windows.end() || it->second != ui)
            continue;
        if (ui->redraw())
            ++drawn;
    }
    return drawn;
}

void UiApplication::exitLoop() {
    postEvent(std::make_unique<WsExitEvent>(WsExitEvent::DontAskExitHandlers));
}

void UiApplication::postEvent(OPtr<EvEvent> event) {
    WsEventQ::getInstance().postEvent(std::move(event));
}

void UiApplication::postRequest(OPtr<EvRequestEvent> request) {
    WsEventQ::getInstance().postRequest(std::move(request));
}

void UiApplication::processEvent(EvEvent& event) {
    dispatch(event, &_exitRequested);
}

bool UiApplication::hasEventsPending(DtTimeIndex const& until) {
    return _pendingEvent || !WsEventQ::getInstance().isEmptyBefore(until);
}

OPtr<EvEvent> UiApplication::getNextEvent(DtTimeIndex const& until) {
    if (_pendingEvent)
        return std::move(_pendingEvent);
    WsEventQ& queue = WsEventQ::getInstance();
    OPtr<EvEvent> held = queue.getNextEvent(until);
    if (!held || !_moveCompression || !evCast<EvPointerMoveEvent>(held.get()))
        return held;
    // A later move replaces the held one; the first other event waits for the next call.
    while (!queue.isEmptyBefore(DtTimeIndex(0))) {
        OPtr<EvEvent> next = queue.getNextEvent(DtTimeIndex(0));
        if (!next)
            break;
        if (evCast<EvPointerMoveEvent>(next.get())) {
            held = std::move(next);
            continue;
        }
        _pendingEvent = std::move(next);
        break;
    }
    return held;
}

void UiApplication::compressPointerMoves(std::deque<OPtr<EvEvent>>& events) {
    auto isMove = [](OPtr<EvEvent> const& e) {
        return evCast<EvPointerMoveEvent>(e.get()) != nullptr;
    };
    auto it = events.begin();
    while (it != events.end()) {
        if (!isMove(*it)) {
            ++it;
            continue;
        }
        auto last = it;
        while (std::next(last) != events.end() && isMove(*std::next(last)))
            ++last;
        if (last == it) {
            ++it;
            continue;
        }
        std::vector<GePoint2<int>> compressedCoords;
        std::vector<float> compressedPressures;
        for (auto m = it; m != last; ++m) {
            auto const& move = static_cast<EvPointerMoveEvent const&>(**m);
            compressedCoords.insert(compressedCoords.end(), move.getCompressedCoords().begin(),
                                    move.getCompressedCoords().end());
            compressedCoords.push_back(move.getCoord());
            compressedPressures.insert(compressedPressures.end(),
                                       move.getCompressedPressures().begin(),
                                       move.getCompressedPressures().end());
            compressedPressures.push_back(move.getPenPressure());
        }
        ZR_ASSERT(compressedCoords.size() == compressedPressures.size());
        static_cast<EvPointerMoveEvent&>(**last).prependCompressedData(compressedCoords,
                                                                       compressedPressures);
        it = events.erase(it, last);
        ++it;
    }
}

// --- dispatch -------------------------------------------------------------------------------

void UiApplication::dispatch(EvEvent& event, bool volatile* exitApp) {
    auto* sysEvent = evCast<EvSystemInterfaceEvent>(event);
    if (sysEvent) {
        if (UiWindow* window = getWindowRef(sysEvent->getWindowId()))
            _currentWindow = window;
    }

    if (typeid(event) == typeid(WsExitEvent)) {
        auto const& exit = static_cast<WsExitEvent const&>(event);
        if (exit.getExitHandlingMode() != WsExitEvent::DontAskExitHandlers && !askExitHandlers())
            return;
        setTooltipTarget(nullptr);
        if (_tooltipAlarmRegistered) {
            MtAlarmManager::getInstance().deregisterAlarm(_tooltipAlarm);
            _tooltipAlarmRegistered = false;
        }
        *exitApp = true;
        return;
    }

    handleTooltip(event);

    if (_eventLoopGrab) {
        _eventLoopGrab->call(event);
        if (event.isProcessed())
            return;
    }

    if (!filterButtons(event))
        return;

    // Main handlers watch every event; marking it processed doesn't stop it.
    _mainHandlers.call(event);

    if (!sysEvent) {
        if (auto* request = dynamic_cast<EvRequestEvent*>(&event))
            request->process();
        ++_processedEvents;
        return;
    }

    if (auto* key = evCast<EvKeyEvent>(event)) {
        UiHotkeyRegistry::getInstance().processEvent(*key);
        if (event.isProcessed()) {
            ++_processedEvents;
            return;
        }
    }

    if (UiWindow* window = getWindowRef(sysEvent->getWindowId()))
        window->processEvent(event);
    ++_processedEvents;
}

bool UiApplication::filterButtons(EvEvent& event) {
    // The button that started the gesture now in progress; 0 when no button is held.
    static unsigned pressedButton = 0;
    if (auto* down = evCast<EvPointerButtonDownEvent>(event)) {
        if (!_allowDoubleDown &&
            (pressedButton != 0 || down->getPointerState().getNumberOfButtonsEnabled() != 1))
            return false;
        pressedButton = down->getTriggerButton();
    } else if (auto* up = evCast<EvPointerButtonUpEvent>(event)) {
        if (!_allowDoubleDown &&
            (up->getPointerState().getNumberOfButtonsEnabled() != 0 || pressedButton == 0))
            return false;
        up->setTriggerButton(pressedButton);
        up->setPointerState(EvPointerState(EvPointerState::NoButton));
        pressedButton = 0;
    }
    return true;
}

// --- tooltips -------------------------------------------------------------------------------

void UiApplication::setTooltipHooks(UiTooltipHooks* hooks) {
    installedHooks = hooks;
}

UiTooltipHooks& UiApplication::getTooltipHooks() {
    static UiTooltipHooks defaultHooks;
    return installedHooks ? *installedHooks : defaultHooks;
}

RCShdPtr<UiWidget> UiApplication::getTooltipTarget() const {
    std::lock_guard<std::mutex> lock(_tooltipMutex);
    return _tooltipTarget;
}

GePoint2<int> UiApplication::getTooltipPos() const {
    std::lock_guard<std::mutex> lock(_tooltipMutex);
    return _tooltipPos;
}

void UiApplication::setTooltipTarget(RCShdPtr<UiWidget> const& target) {
    RCShdPtr<UiWidget> old;
    {
        std::lock_guard<std::mutex> lock(_tooltipMutex);
        old = std::move(_tooltipTarget);
        _tooltipTarget = target;
    }
    // `old` goes here, outside the lock: a widget's destructor may well come back to us.
}

void UiApplication::onTooltipAlarm() {
    // On the alarm thread: read under the lock, then only post.
    RCShdPtr<UiWidget> target;
    GePoint2<int> pos;
    {
        std::lock_guard<std::mutex> lock(_tooltipMutex);
        target = _tooltipTarget;
        pos = _tooltipPos;
    }
    postRequest(std::make_unique<UiShowTooltipRequest>(std::move(target), pos));
}

void UiApplication::registerTooltipAlarm() {
    MtAlarmManager::getInstance().registerAlarm(_tooltipAlarm);
    _tooltipAlarmRegistered = true;
}

void UiApplication::handleTooltip(EvEvent& event) {
    auto* move = evCast<EvPointerMoveEvent>(event);
    if (!move) {
        if (_tooltipAlarmRegistered &&
            (_tooltipAlarm->hasOccurred() || evCast<EvDeviceEvent>(event) ||
             dynamic_cast<EvFocusInEvent*>(&event) || dynamic_cast<EvFocusOutEvent*>(&event)))
            hideTooltip();
        return;
    }
    if (move->getPointerState().getNumberOfButtonsEnabled() != 0)
        return;
    GePoint2<int> pos = move->getCoord();
    {
        std::lock_guard<std::mutex> lock(_tooltipMutex);
        _tooltipPos = pos;
    }
    UiTooltipHooks& hooks = getTooltipHooks();
    if (!hooks.areTooltipsOn())
        return;
    bool grabbed = UiGrab::pointer().getCurrent() || UiGrab::keyboard().getCurrent();
    UiWidget* w = UiFocusPointer::getInstance().getFocus();
    if (hooks.isDisplayed()) {
        if (hooks.isAnchor(w))
            return;
        if (hooks.getRegion().contains(pos))
            return;
        bool sameTarget = getTooltipTarget() == w;
        hideTooltip();
        if (sameTarget)
            return;
    }
    if (grabbed || hooks.isTooltipWidget(w))
        return;
    if (_tooltipAlarmRegistered) {
        if (getTooltipTarget() == w)
            return;
        MtAlarmManager::getInstance().deregisterAlarm(_tooltipAlarm);
        _tooltipAlarmRegistered = false;
    }
    setTooltipTarget(RCShdPtr<UiWidget>(w));
    if (nowSeconds() - _lastTooltipHide < _tooltipRetriggerThreshold)
        postRequest(std::make_unique<UiShowTooltipRequest>(RCShdPtr<UiWidget>(w), pos));
    else
        registerTooltipAlarm();
}

void UiApplication::hideTooltip() {
    setTooltipTarget(nullptr);
    if (_tooltipAlarmRegistered) {
        MtAlarmManager::getInstance().deregisterAlarm(_tooltipAlarm);
        _tooltipAlarmRegistered = false;
        if (!_tooltipAlarm->hasOccurred())
            return; // the delay had not run out: no tooltip is up
    }
    _lastTooltipHide = nowSeconds();
    postRequest(std::make_unique<UiHideTooltipRequest>());
}

void UiApplication::showTooltip(bool force) {
    UiTooltipHooks& hooks = getTooltipHooks();
    if (!hooks.areTooltipsOn() && !force)
        return;
    UiWidget* w = UiFocusPointer::getInstance().getFocus();
    bool grabbed = UiGrab::pointer().getCurrent() || UiGrab::keyboard().getCurrent();
    if (!force && (grabbed || hooks.isTooltipWidget(w)))
        return;
    if (_tooltipAlarmRegistered) {
        MtAlarmManager::getInstance().deregisterAlarm(_tooltipAlarm);
        _tooltipAlarmRegistered = false;
    }
    setTooltipTarget(RCShdPtr<UiWidget>(w));
    GePoint2<int> pos = getTooltipPos();
    if (force || nowSeconds() - _lastTooltipHide < _tooltipRetriggerThreshold)
        postRequest(std::make_unique<UiShowTooltipRequest>(RCShdPtr<UiWidget>(w), pos));
    else
        registerTooltipAlarm();
}

// --- exit handlers --------------------------------------------------------------------------

void UiApplication::addExitHandler(ExitHandler* handler) {
    auto& handlers = exitHandlers();
    if (handler && std::find(handlers.begin(), handlers.end(), handler) == handlers.end())
        handlers.push_back(handler);
}

void UiApplication::removeExitHandler(ExitHandler* handler) {
    auto& handlers = exitHandlers();
    handlers.erase(std::remove(handlers.begin(), handlers.end(), handler), handlers.end());
}

bool UiApplication::askExitHandlers() {
    // A copy: a handler may remove itself while it is asked.
    std::vector<ExitHandler*> handlers = exitHandlers();
    for (ExitHandler* h : handlers)
        if (!h->canExit())
            return false;
    return true;
}

// --- windows --------------------------------------------------------------------------------

void UiApplication::addWindow(WsWindow* window, UiWindow* uiWindow) {
    if (!window || !uiWindow)
        return;
    _windows[window] = uiWindow;
}

void UiApplication::removeWindow(WsWindow* window) {
    auto it = _windows.find(window);
    UiWindow* uiWindow = it == _windows.end() ? nullptr : it->second;
    if (it != _windows.end())
        _windows.erase(it);
    if (uiWindow && uiWindow == _mainWindow) {
        _mainWindow = nullptr;
        _exitRequested = true;
        _exitDone = true;
        return;
    }
    if (uiWindow) {
        // Keep the window alive while the close handlers look at it.
        RCShdPtr<UiWindow> keep(uiWindow);
        uiWindow->display(false);
        WsWindowCloseEvent closeEvent(window->getId());
        _windowCloseHandlers.call(closeEvent);
    }
    _currentWindow = _mainWindow;
}

void UiApplication::forgetWindow(UiWindow* uiWindow) {
    for (auto it = _windows.begin(); it != _windows.end();) {
        if (it->second == uiWindow)
            it = _windows.erase(it);
        else
            ++it;
    }
    if (_mainWindow == uiWindow)
        _mainWindow = nullptr;
}

void UiApplication::closeWindow(WsWindow* window) {
    if (_mainWindow && _mainWindow->getOSWindow().get() == window) {
        if (!askExitHandlers())
            return;
        postEvent(std::make_unique<WsExitEvent>(WsExitEvent::DontAskExitHandlers));
        return;
    }
    removeWindow(window);
}

UiWindow* UiApplication::getWindowRef(WsWindow* window) const {
    auto it = _windows.find(window);
    return it == _windows.end() ? nullptr : it->second;
}

UiWindow* UiApplication::getWindowRef(WsWindowId id) const {
    if (id == 0)
        return nullptr;
    for (auto const& [os, ui] : _windows)
        if (os->getId() == id)
            return ui;
    return nullptr;
}

void UiApplication::updateCurrentWindow(UiWindow* window) {
    _currentWindow = window;
}

void UiApplication::clearCurrentWindow() {
    _currentWindow = nullptr;
}

void UiApplication::setKeyAutoRepeat(bool on) {
    _winMgr->setKeyAutoRepeat(on);
}

// --- resources ------------------------------------------------------------------------------

void UiApplication::loadSystemResources(LiString const& fileName) {
    // A bare name is a table of the shipped resource tables.
    loadSystemResources(InPaths::getResourcesDir() + UiResTable::getResTableDir() +
                        OsFilePath(fileName.str()));
}

void UiApplication::loadSystemResources(OsFilePath const& path) {
    _systemResources->readTable(path, UiResource::LevelSystem);
}

// --- cursors --------------------------------------------------------------------------------

void UiApplication::setCursor(RCShdPtr<WsCursor> const& cursor) {
    for (auto const& entry : _windows)
        entry.first->setCursor(cursor);
}

void UiApplication::applyTopCursor() {
    if (!_overrideCursors.empty()) {
        setCursor(_overrideCursors.back());
        return;
    }
    RCShdPtr<WsCursor> cursor;
    if (UiWidget* focus = UiFocusPointer::getInstance().getFocus())
        cursor = focus->getCursor();
    if (!cursor)
        cursor = WsCursorRegistry::getInstance().getCursor(WsCursorRegistry::Normal);
    setCursor(cursor);
}

void UiApplication::pushOverrideCursor(RCShdPtr<WsCursor> const& cursor) {
    _overrideCursors.push_back(cursor);
    applyTopCursor();
}

void UiApplication::popOverrideCursor() {
    if (!_overrideCursors.empty())
        _overrideCursors.pop_back();
    applyTopCursor();
}

void UiApplication::replaceOverrideCursor(RCShdPtr<WsCursor> const& cursor) {
    if (!_overrideCursors.empty())
        _overrideCursors.pop_back();
    pushOverrideCursor(cursor);
}

void UiApplication::resetCursor() {
    // The first call of the process shows the busy "Dance" cursor while start-up goes on; the
    // call that follows start-up takes it away again.
    static bool firstCallDone = false;
    if (!firstCallDone) {
        firstCallDone = true;
        RCShdPtr<WsCursor> dance =
            WsCursorRegistry::getInstance().getCursor(WsCursorRegistry::Dance);
        if (!_overrideCursors.empty())
            _overrideCursors.pop_back();
        pushOverrideCursor(dance);
        return;
    }
    popOverrideCursor();
}

// --- drag and drop ----------------------------------------------------------------------------

void UiApplication::registerTransporter(UiTransporter* transporter) {
    _currentTransporter = transporter;
}

void UiApplication::deregisterTransporter(UiTransporter* transporter) {
    if (_currentTransporter.get() == transporter)
        _currentTransporter = nullptr;
}

// --- floating handlers ----------------------------------------------------------------------

void UiApplication::registerFloatingHandlerPopupCb(LiString const& name,
                                                   CbHandler<EvEvent>* handler) {
    _floatingHandlers[name] = handler;
}

void UiApplication::unregisterFloatingHandlerPopupCb(LiString const& name) {
    _floatingHandlers.erase(name);
}

bool UiApplication::popupFloatingHandler(LiString const& name, EvEvent& event) {
    auto it = _floatingHandlers.find(name);
    if (it == _floatingHandlers.end() || !it->second)
        return false;
    it->second->call(event);
    return true;
}

// --- statistics -----------------------------------------------------------------------------

void UiApplication::snapStatistics() {
    _lastWaitingEvents = WsEventQ::getInstance().getNbWaitingEvents();
    StatMgr& stats = StatMgr::getInstance();
    stats.record(StatTypes::WAITING_EVENTS_ID, _lastWaitingEvents);
    stats.record(StatTypes::PROCESSED_EVENTS_ID, _processedEvents);
    if (_mainWindow)
        _mainWindow->snapStatistics();
}

void UiApplication::flushStatistics() {
    _flushPending = false;
    // The "FlushStatsType" container holds the moment of the last flush: the first pass only
    // stamps it, later passes flush once it is ten seconds old (a flush empties it again).
    StatMgr& stats = StatMgr::getInstance();
    if (stats.hasLocalStats()) {
        RCShdPtr<StatContainerBase> stamp = stats.getContainer(_flushStatsType);
        if (stamp && stamp->isEmpty())
            stamp->record(StatContainerBase::now());
        else if (stamp && StatContainerBase::now() - stamp->getLast() >= 10.0)
            stats.flushStatistics();
    }
    // Again in ten seconds' worth of display frames.
    class Flush : public EvRequestEvent {
    public:
        ZR_EVENT_CLASS(Flush)
        void execute() override {
            if (UiApplication::isInit())
                UiApplication::getInstance().flushStatistics();
        }
    };
    auto request = std::make_unique<Flush>();
    std::int64_t targetMsc =
        TmGfxMsc::getCurrentMsc() + static_cast<std::int64_t>(10.0 * TmGfxMsc::getRate());
    request->setTargetTime(DtTimeIndex(TmGfxMsc::mscToUst(targetMsc)));
    _flushPending = true;
    postRequest(std::move(request));
}

} // namespace Zr
