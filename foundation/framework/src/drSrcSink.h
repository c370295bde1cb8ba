// DrSrcSink: the source and sink of drags for one widget or object. A drag asks the source
// whether it will give anything and lets it fill the carrier; the target is asked whether it
// accepts the carrier and then consumes it; the source hears how the drag ended.
#pragma once

#include "drCarrier.h"

namespace Zr {

class DrSrcSink : public RCObject {
public:
    // True when a drag may start here. Default false: nothing to give.
    virtual bool willPopulateSelection();
    // Adds the dragged items to the carrier's selection. Default: adds nothing.
    virtual void populateSelection(DrCarrier& carrier);
    // True when a drop of this carrier would be taken. Default false.
    virtual bool willConsumeSelection(DrCarrier const& carrier);
    // Takes the dropped carrier; true when it was used. Default false.
    virtual bool consumeSelection(DrCarrier& carrier);
    // The source's carrier was dropped and consumed. Default: nothing.
    virtual void dropCompleted(DrCarrier& carrier);
    // The source's drag ended without a drop. Default: nothing.
    virtual void operationCancelled(DrCarrier& carrier);
};

} // namespace Zr
