// PiDynamicInputInterface: the controller kind of macros, whose published inputs are chosen per
// node; each is a DynamicInputInfo, which may group further entries.
#pragma once

#include "piInput.h"

#include <string>
#include <vector>

namespace Zr {

class PiDynamicInputInterface {
public:
    struct DynamicInputInfo {
        std::string name;
        RCShdPtr<PiInput> input;
        std::vector<DynamicInputInfo> children;
    };

    virtual ~PiDynamicInputInterface() = default;

    // Publishes an entry; an entry of the same name is replaced in place.
    virtual void addDynamicInput(DynamicInputInfo const& info) = 0;
    // False when there is no top-level entry of that name.
    virtual bool removeDynamicInput(std::string const& name) = 0;
    virtual std::vector<DynamicInputInfo> const& getDynamicInputs() const = 0;
    // The top-level entry of that name, or null.
    virtual DynamicInputInfo const* findDynamicInput(std::string const& name) const = 0;
};

} // namespace Zr
