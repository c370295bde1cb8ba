// PiDefaultNodeController: the controller of nodes that are not tool nodes: node events, a panel
// description set per node, and the connected outputs of the node's inputs.
#pragma once

#include "piNodeController.h"
#include "piOutputInterface.h"
#include "piUserInterface.h"

namespace Zr {

class PiDefaultNodeController : public PiNodeController,
                                public PiUserInterface,
                                public PiOutputInterface {
public:
    explicit PiDefaultNodeController(PiNode& node);
    ~PiDefaultNodeController() override;

    // The description set with setXmlDescription, else the default one (empty here).
    std::string getXmlDescription() const override;
    std::string getXmlPath() const override;
    // True once the node has a description of its own.
    bool isDynamicUi() const override;
    // Recorded in the open undo scope; the "UI changed" observers are told once, also when undo
    // puts a description back.
    void setXmlDescription(std::string const& text) override;
    void addUiChangedCb(CbHandler<CbEmptyType>* handler) override;
    void removeUiChangedCb(CbHandler<CbEmptyType>* handler) override;

    RCShdPtr<PiOutput> getConnectedOutput(RCShdPtr<PiInput const> const& input) const override;

    // True between startUiCreation and endUiCreation (nested calls count).
    bool isCreatingUi() const { return _uiCreationDepth > 0; }

protected:
    // What the node shows when it has no description of its own.
    virtual std::string getDefaultXmlDescription() const { return {}; }
    virtual std::string getDefaultXmlPath() const { return {}; }

    void startUiCreation() override { ++_uiCreationDepth; }
    void endUiCreation() override { --_uiCreationDepth; }

private:
    class Description;
    RCShdPtr<Description> _description;
    CbDispatcher<CbEmptyType> _uiChangedDispatcher;
    int _uiCreationDepth = 0;
};

} // namespace Zr
