// The events of popup menus: the selection of a row, the selection of a path, and the answer of
// an AboutToPop handler that fills the menu with a list of rows.
#pragma once

#include "zrBase.h"

#include <vector>

namespace Zr {

class UiRow;

// Sent to the handlers of a selected row: the row, its id and where the pointer was.
class UiRowSelectedEvent : public EvEvent {
public:
    ZR_EVENT_CLASS(UiRowSelectedEvent)
    UiRowSelectedEvent() = default;
    UiRowSelectedEvent(RCShdPtr<UiRow> const& row, GePoint2<int> const& coord);
    ~UiRowSelectedEvent() override;
    UiRowSelectedEvent(UiRowSelectedEvent const&);
    UiRowSelectedEvent& operator=(UiRowSelectedEvent const&);

    RCShdPtr<UiRow> const& getRow() const { return _row; }
    int getId() const;
    GePoint2<int> const& getCoord() const { return _coord; }

private:
    RCShdPtr<UiRow> _row;
    GePoint2<int> _coord;
};

// A path picked from a menu of paths.
class UiPathSelectedEvent : public EvEvent {
public:
    ZR_EVENT_CLASS(UiPathSelectedEvent)
    explicit UiPathSelectedEvent(std::string path = {}) : _path(std::move(path)) {}
    std::string const& getPath() const { return _path; }

private:
    std::string _path;
};

// Given to the AboutToPop handlers as the event: the rows a handler lists here are added to the
// menu, each with the handler set here, once the handlers have run.
class UiPopulateReturnEvent : public EvEvent {
public:
    ZR_EVENT_CLASS(UiPopulateReturnEvent)
    UiPopulateReturnEvent();
    ~UiPopulateReturnEvent() override;
    UiPopulateReturnEvent(UiPopulateReturnEvent const&);
    UiPopulateReturnEvent& operator=(UiPopulateReturnEvent const&);

    std::vector<RCShdPtr<UiRow>>& getList() { return _rows; }
    CbHandler<EvEvent>* getHandler() const { return _handler; }
    void setHandler(CbHandler<EvEvent>* handler) { _handler = handler; }

private:
    std::vector<RCShdPtr<UiRow>> _rows;
    CbHandler<EvEvent>* _handler = nullptr; // not owned
};

} // namespace Zr
