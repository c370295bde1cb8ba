// PiToolController: the controller of tool nodes: the tool's panel description, published
// inputs, input policies, animation and the graph's keyframing utility.
#pragma once

#include "piAnimInterface.h"
#include "piCompositionGraphInterface.h"
#include "piDefaultNodeController.h"
#include "piDynamicInputInterface.h"
#include "piGraphAnimInterface.h"
#include "piToolInterface.h"

namespace Zr {

class PiToolNode;

class PiToolController : public PiDefaultNodeController,
                         public PiDynamicInputInterface,
                         public PiToolInterface,
                         public PiAnimInterface,
                         public PiGraphAnimInterface,
                         public PiCompositionGraphInterface {
public:
    explicit PiToolController(PiToolNode& node);
    ~PiToolController() override;

    // PiDynamicInputInterface
    void addDynamicInput(DynamicInputInfo const& info) override;
    bool removeDynamicInput(std::string const& name) override;
    std::vector<DynamicInputInfo> const& getDynamicInputs() const override {
        return _dynamicInputs;
    }
    DynamicInputInfo const* findDynamicInput(std::string const& name) const override;

    // PiToolInterface
    RCShdPtr<PiInputPolicy const>
    getInputPolicy(RCShdPtr<PiInput const> const& input) const override;
    RCShdPtr<PiTool const> getTool() const override { return _tool; }

    // PiAnimInterface
    RCShdPtr<TmTimeCurve> createCurve(RCShdPtr<PiInput> const& input, double time) override;
    void removeCurve(RCShdPtr<PiInput> const& input, double time) override;
    RCShdPtr<TmTimeCurve> getCurve(RCShdPtr<PiInput const> const& input) const override;
    void setCurve(RCShdPtr<PiInput> const& input, RCShdPtr<TmTimeCurve> const& curve) override;
    // Key setting allowed, the input animatable and without expression.
    bool canCreateKey(RCShdPtr<PiInput const> const& input, double time) const override;

    // PiCompositionGraphInterface
    PiGraph* getCompositionGraph() const override;

protected:
    // The tool's UI file.
    std::string getDefaultXmlDescription() const override;
    std::string getDefaultXmlPath() const override;

private:
    RCShdPtr<PiTool const> _tool;
    std::vector<DynamicInputInfo> _dynamicInputs;
};

} // namespace Zr
