// PiPath: the chain of group objects, from the top down, by which a node was reached.
#pragma once

#include "piGraphObject.h"
#include "rcBase.h"

#include <vector>

namespace Zr {

class PiPath : public RCObject {
public:
    using Elements = std::vector<RCShdPtr<PiGraphObject const>>;

    PiPath() = default;
    explicit PiPath(Elements elements) : _elements(std::move(elements)) {}
    ~PiPath() override;

    // A new path with the same elements.
    RCShdPtr<PiPath> copy() const;

    int getLength() const { return static_cast<int>(_elements.size()); }
    bool isEmpty() const { return _elements.empty(); }
    // The element at `index`, 0 the topmost; out of range is an assertion failure.
    RCShdPtr<PiGraphObject const> const& getElement(int index) const;
    Elements const& getElements() const { return _elements; }
    void append(RCShdPtr<PiGraphObject const> const& object);

    // Same objects in the same order.
    bool operator==(PiPath const& other) const;

private:
    Elements _elements;
};

} // namespace Zr
