// PiUserInterface: the controller kind that gives a node's panel description (XML) and takes
// part in the making of panels.
#pragma once

#include "cbDispatcher.h"
#include "rcWeakPtr.h"

#include <string>

namespace Zr {

class PiTimePath;
class PiUserInterfaceManip;
class PiWidget;

class PiUserInterface : public virtual RCSWBase {
public:
    ~PiUserInterface() override = default;

    // The XML text of the node's panel description; empty if there is none.
    virtual std::string getXmlDescription() const = 0;
    // The path of the file the description came from; empty if none.
    virtual std::string getXmlPath() const = 0;
    // True when the description belongs to this node alone and must not be cached per tool.
    virtual bool isDynamicUi() const = 0;
    // Gives the node its own description (undoable) and tells the "UI changed" observers.
    virtual void setXmlDescription(std::string const& text) = 0;

    virtual void addUiChangedCb(CbHandler<CbEmptyType>* handler) = 0;
    virtual void removeUiChangedCb(CbHandler<CbEmptyType>* handler) = 0;

protected:
    friend class PiUserInterfaceManip;
    // Brackets the making of a panel for the node.
    virtual void startUiCreation() {}
    virtual void endUiCreation() {}
    // Per-panel data of the node, kept by the panel's top widget and dropped with it; null
    // when the node keeps none.
    virtual RCShdPtr<RCObject> createInstanceData(RCShdPtr<PiWidget> const& widgetInterface,
                                                  RCShdPtr<PiTimePath const> const& timePath);
};

} // namespace Zr
